#include "Score.h"

namespace Score {

static_assert(Bx::kVersion == 1);

constinit Bx::Set const kSet{};

namespace {

// clang-format off
constexpr Bx::Row kPitchRows[] = {
    Bx::Sequence,
        Bx::Element<&CPitch::Step>(u"step"),
        Bx::Element<&CPitch::Alter>(u"alter"),
        Bx::Element<&CPitch::Octave>(u"octave"),
    Bx::End,
};

constexpr Bx::Row kEmptyRows[] = {Bx::Sequence, Bx::End};

constexpr Bx::Row kNoteRows[] = {
    Bx::Sequence,
        Bx::Choice,
            Bx::Sequence,
                Bx::Element<&CNote::Grace>(u"grace", 1, 1),
                Bx::Choice,
                    Bx::Sequence,
                        Bx::Element<&CNote::Chord>(u"chord"),
                        Bx::Choice,
                            Bx::Element<&CNote::Pitch>(u"pitch", 1, 1),
                            Bx::Element<&CNote::Rest>(u"rest", 1, 1),
                        Bx::End,
                        Bx::Element<&CNote::Tie>(u"tie", 0, 2),
                    Bx::End,
                    Bx::Sequence,
                        Bx::Element<&CNote::Cue>(u"cue", 1, 1),
                        Bx::Element<&CNote::Chord>(u"chord"),
                        Bx::Choice,
                            Bx::Element<&CNote::Pitch>(u"pitch", 1, 1),
                            Bx::Element<&CNote::Rest>(u"rest", 1, 1),
                        Bx::End,
                    Bx::End,
                Bx::End,
            Bx::End,
            Bx::Sequence,
                Bx::Element<&CNote::Cue>(u"cue", 1, 1),
                Bx::Element<&CNote::Chord>(u"chord"),
                Bx::Choice,
                    Bx::Element<&CNote::Pitch>(u"pitch", 1, 1),
                    Bx::Element<&CNote::Rest>(u"rest", 1, 1),
                Bx::End,
                Bx::Element<&CNote::Duration>(u"duration", 1, 1),
            Bx::End,
            Bx::Sequence,
                Bx::Element<&CNote::Chord>(u"chord"),
                Bx::Choice,
                    Bx::Element<&CNote::Pitch>(u"pitch", 1, 1),
                    Bx::Element<&CNote::Rest>(u"rest", 1, 1),
                Bx::End,
                Bx::Element<&CNote::Duration>(u"duration", 1, 1),
                Bx::Element<&CNote::Tie>(u"tie", 0, 2),
            Bx::End,
        Bx::End,
        Bx::Element<&CNote::Voice>(u"voice"),
        Bx::Element<&CNote::Verse>(u"verse"),
    Bx::End,
    Bx::Attribute<&CNote::Color>(u"color"),
};

constexpr Bx::Row kTieRows[] = {
    Bx::Attribute<&CTie::Type>(u"type"),
};

constexpr Bx::Row kVerseRows[] = {
    Bx::Sequence,
        Bx::Choice,
            Bx::Items<&CVerse::Text>(1),
            Bx::Element<&CVerse::Humming>(u"humming", 1, 1),
        Bx::End,
        Bx::Sequence(0),
            Bx::Element<&CVerse::EndLine>(u"end-line", 1, 1),
            Bx::Element<&CVerse::EndParagraph>(u"end-paragraph"),
        Bx::End,
    Bx::End,
};

constexpr Bx::Row kTextRows[] = {
    Bx::Sequence,
        Bx::Element<&CText::Elision>(u"elision", 0, 2),
        Bx::Element<&CText::Word>(u"word"),
    Bx::End,
};
// clang-format on

}  // namespace

constinit Bx::Class const CPitch::kClass = Bx::Describe<CPitch>(kSet, u"pitch", kNamespace, kPitchRows);
Bx::Class const& CPitch::Describe() const {
    return kClass;
}

constinit Bx::Class const CEmpty::kClass = Bx::Describe<CEmpty>(kSet, u"empty", kNamespace, kEmptyRows);
Bx::Class const& CEmpty::Describe() const {
    return kClass;
}

constinit Bx::Class const CNote::kClass = Bx::Describe<CNote>(kSet, u"note", kNamespace, kNoteRows);
Bx::Class const& CNote::Describe() const {
    return kClass;
}

constinit Bx::Class const CTie::kClass = Bx::Describe<CTie>(kSet, u"tie", kNamespace, kTieRows);
Bx::Class const& CTie::Describe() const {
    return kClass;
}

constinit Bx::Class const CVerse::kClass = Bx::Describe<CVerse>(kSet, u"verse", kNamespace, kVerseRows);
Bx::Class const& CVerse::Describe() const {
    return kClass;
}

constinit Bx::Class const CText::kClass = Bx::Describe<CText>(kSet, u"text", kNamespace, kTextRows);
Bx::Class const& CText::Describe() const {
    return kClass;
}

}  // namespace Score
