// Notes of a score: model groups inside each other, with the same elements in several arms of a choice.
#pragma once

#include "BxXmlLib5/generated/Generated.h"

namespace Score {

namespace Bx = BxXmlLib5::Generated;
namespace Xs = Bx::Xs;
using namespace BxXmlLib5;

inline constexpr char16_t kNamespace[] = u"urn:score";

extern Bx::Set const kSet;

enum class Step { A, B, C, D, E, F, G };
struct StepType : Bx::Enumeration<Step> {
    static constexpr char16_t const* kTexts[] = {u"A", u"B", u"C", u"D", u"E", u"F", u"G"};
};

enum class StartStop { Start, Stop };
struct StartStopType : Bx::Enumeration<StartStop> {
    static constexpr char16_t const* kTexts[] = {u"start", u"stop"};
};

struct OctaveType : Bx::Restriction<Xs::int_> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"0", .maxInclusive = u"9"};
};

class CTie;
class CText;
class CVerse;

/// A pitch.
class CPitch : public Bx::CObject {
public:
    Bx::Required<StepType> Step;
    Bx::Optional<Xs::decimal> Alter;
    Bx::Required<OctaveType> Octave;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// An element without content.
class CEmpty : public Bx::CObject {
public:
    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// A note: a grace note, a cue note or a full one.
class CNote : public Bx::Root<Bx::CObject> {
public:
    Bx::Object<CEmpty> Grace;
    Bx::Object<CEmpty> Cue;
    Bx::Object<CEmpty> Chord;
    Bx::Object<CPitch> Pitch;
    Bx::Object<CEmpty> Rest;
    Bx::Optional<Xs::decimal> Duration;
    Bx::Collection<CTie> Tie;  ///< up to 2
    Bx::Optional<Xs::string> Voice;
    Bx::Collection<CVerse> Verse;
    Bx::Optional<Xs::token> Color;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// The start or end of a tie.
class CTie : public Bx::CObject {
public:
    Bx::Required<StartStopType> Type;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// Words below a note: texts with elisions between them, and an end.
class CVerse : public Bx::CObject {
public:
    Bx::Collection<CText> Text;
    Bx::Optional<Xs::string> Humming;
    Bx::Object<CEmpty> EndLine;
    Bx::Object<CEmpty> EndParagraph;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// A text of a verse and the elisions ahead of it.
class CText : public Bx::CGroup {
public:
    Bx::Values<Xs::token> Elision;
    Bx::Required<Xs::string> Word;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

}  // namespace Score
