// Any octets, told piece by piece: the tree of what is told is that of the whole document, however the octets
// are cut into slices and wherever the receiver pauses; and what bxconvert makes of them tells the same.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "bxconvert/Conversion.h"
#include "document/CDocumentBuilder.h"
#include "document/CDocumentStream.h"
#include "document/CInflatingSource.h"
#include "fastinfoset/CFastInfosetReader.h"

using namespace BxXmlLib5;

namespace {

using Octets = std::vector<unsigned char>;
using Random = std::minstd_rand;

[[noreturn]] void Fail(char const* what, std::string const& first, std::string const& second) {
    std::fprintf(stderr, "%s:\n%s\n%s\n", what, first.c_str(), second.c_str());
    std::abort();
}

void Expect(char const* what, std::string const& first, std::string const& second) {
    if (first != second) Fail(what, first, second);
}

std::string Dump(CXmlElement const* element) {
    if (element == nullptr) return "-";
    auto const name = [](auto const& named) {
        return ToUtf8(u"{" + named.GetNamespaceURI() + u"}" + named.GetLocalName());
    };
    std::string text = "<" + name(*element);
    for (CXmlAttribute const* attribute : element->GetAttributes())
        text += " " + name(*attribute) + "='" + ToUtf8(attribute->GetValue()) + "'";
    text += ">" + ToUtf8(element->GetText());
    for (auto* child = element->GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        text += Dump(child);
    return text + "</>";
}

/// Octets in slices of any size.
class Slices : public COctetSource {
public:
    Slices(std::span<unsigned char const> octets, Random& random) : m_left(octets), m_random(random) {}

    std::size_t Read(std::span<unsigned char> room) override {
        std::size_t const some = m_random() % 4 == 0 ? 1 + m_random() % 2000 : 1 + m_random() % 12;
        std::size_t const count = std::min({room.size(), m_left.size(), some});
        std::copy_n(m_left.begin(), count, room.begin());
        m_left = m_left.subspan(count);
        return count;
    }

private:
    std::span<unsigned char const> m_left;
    Random& m_random;
};

/// Pauses now and then.
class Pausing : public CDocumentReceiver {
public:
    Pausing(CDocumentReceiver& receiver, Random& random) : m_receiver(receiver), m_random(random) {}

    void DeclareNamespace(wstring const& prefix, wstring const& uri) override {
        m_receiver.DeclareNamespace(prefix, uri);
        Pause();
    }
    void StartElement(DocumentElement const& element) override {
        m_receiver.StartElement(element);
        Pause();
    }
    void AddText(std::u16string_view text) override {
        m_receiver.AddText(text);
        Pause();
    }
    void EndElement() override {
        m_receiver.EndElement();
        Pause();
    }

    CDocumentStream* m_stream = nullptr;

private:
    void Pause() {
        if (m_random() % 3 == 0) m_stream->Pause();
    }

    CDocumentReceiver& m_receiver;
    Random& m_random;
};

/// A tree, and why it was not finished.
struct Tree {
    std::string m_text;
    std::optional<std::string> m_refusal{};
};

Tree LoadedTree(Octets const& octets) {
    CXmlDocument document;
    try {
        document.LoadXmlStream(octets.data(), octets.size());
    } catch (CBxException const& failure) {
        return {{}, ToUtf8(failure.GetMessage())};
    }
    return {Dump(document.GetDocumentElement())};
}

Tree StreamedTree(Octets const& octets, Random& random, bool pauses,
                  DocumentStreamSettings const& settings = {}) {
    CXmlDocument const document;
    CDocumentNodes nodes;
    CDocumentBuilder builder(document, nodes, CDocumentBuilder::kTextsPass);
    Pausing pausing(builder, random);
    Slices source(octets, random);
    std::optional<std::string> refusal;
    try {
        CDocumentStream stream(source, pauses ? static_cast<CDocumentReceiver&>(pausing) : builder,
                               nodes.m_names, settings);
        pausing.m_stream = &stream;
        while (stream.Read()) {
        }
    } catch (CBxException const& failure) {
        refusal = ToUtf8(failure.GetMessage());
    }
    return {Dump(builder.CloseAllElements()), refusal};
}

/// What a document tells, with the parts of a text joined.
class Recorder : public CDocumentReceiver {
public:
    void DeclareNamespace(wstring const& prefix, wstring const& uri) override {
        Add(u"xmlns:" + prefix + u"=" + uri);
    }
    void StartElement(DocumentElement const& element) override {
        Add(u"<{" + element.m_name.m_namespaceUri + u"}" + wstring(element.m_prefix) + u":" +
            element.m_name.m_localName);
        for (DocumentAttribute const& attribute : element.m_attributes)
            Add(u"@{" + attribute.m_name->m_namespaceUri + u"}" + wstring(attribute.m_prefix) + u":" +
                attribute.m_name->m_localName + u"=" + wstring(attribute.m_value));
        for (AttributeLiteral const& literal : element.m_literals) Add(wstring(literal.m_text));
    }
    void AddText(std::u16string_view text) override { m_text += text; }
    void EndElement() override { Add(u">"); }
    void AddComment(std::u16string_view text) override { Add(u"!" + wstring(text)); }
    void AddInstruction(std::u16string_view target, std::u16string_view content) override {
        Add(u"?" + wstring(target) + u" " + wstring(content));
    }
    void AddDocumentType(std::u16string_view text) override { Add(wstring(text)); }
    void AddEntityReference(std::u16string_view name) override { Add(u"&" + wstring(name)); }

    std::string Events() const { return ToUtf8(m_events + m_text); }

private:
    void Add(wstring const& event) {
        if (!m_text.empty()) m_events += u"'" + m_text + u"'\n";
        m_text.clear();
        m_events += event + u"\n";
    }

    wstring m_events;
    wstring m_text;
};

std::string EventsOf(Octets const& octets) {
    Recorder recorder;
    CNameTable names;
    CMemorySource source(octets);
    CDocumentStream stream(source, recorder, names,
                           {.m_details = {.m_systemEncodings = true, .m_prefixes = true, .m_markup = true}});
    stream.Read();
    return recorder.Events();
}

/// Of text that bxconvert wrote. Of what XML allows, only names of its later editions, namespaces with a vertical bar
/// and what breaks a limit may be refused.
std::string EventsOfWritten(Octets const& octets) {
    try {
        return EventsOf(octets);
    } catch (CBxException const& failure) {
        std::string const message = ToUtf8(failure.GetMessage());
        bool const mayBe = message.starts_with("not well-formed (invalid token)") ||
                           message.starts_with("syntax error") || message.find("limit") != message.npos;
        if (!mayBe) Fail("written", message, {octets.begin(), octets.end()});
        throw;
    }
}

struct MemorySink : BxConvert::Sink {
    void Write(std::span<unsigned char const> octets) override {
        m_octets.insert(m_octets.end(), octets.begin(), octets.end());
    }
    void Finish() override {}
    Octets m_octets;
};

Octets Converted(Octets const& octets, BxConvert::Options const& options) {
    MemorySink sink;
    CMemorySource source(octets);
    BxConvert::Convert(options, source, sink);
    return sink.m_octets;
}

bool IsCompressed(Octets const& octets) {
    return CInflatingSource::Recognises(octets);
}

bool IsFastInfoset(Octets const& octets) {
    return CFastInfosetReader::Recognises(octets);
}

/// Whether the last character may belong to ]]> or to an end of a line. Of that Expat tells only in a final call, which
/// a text that breaks off does not get when it is loaded whole.
bool EndsInDoubt(Octets const& octets) {
    auto const last = std::span(octets).last(std::min<std::size_t>(octets.size(), 4));
    return std::any_of(last.begin(), last.end(), [](auto octet) { return octet == ']' || octet == '\r'; });
}

void CompareTrees(Octets const& octets, Random& random) {
    Tree const loaded = LoadedTree(octets);
    for (bool const pauses : {false, true}) {
        Tree const streamed = StreamedTree(octets, random, pauses);
        bool const isText = !IsCompressed(octets) && !IsFastInfoset(octets);
        if (loaded.m_refusal) {
            // Fast Infoset may have other items ahead of its root.
            if (!streamed.m_refusal && isText) Fail("streamed", streamed.m_text, *loaded.m_refusal);
        } else if (!streamed.m_refusal || !(IsCompressed(octets) || (isText && EndsInDoubt(octets)))) {
            // Text that breaks off was told as far as it goes, and Fast Infoset is loaded no further than its
            // root.
            Expect("streamed", loaded.m_text, streamed.m_text);
        }
    }
}

std::string WithoutCR(std::string text) {
    std::erase(text, '\r');
    return text;
}

void CompareConversions(Octets const& octets, bool isText, Random& random) {
    using namespace BxConvert;
    Options const text{}, infoset{.m_form = Form::kFastInfoset},
        compact{.m_layout = BxConvert::Layout::kCompact},
        formatted{.m_layout = BxConvert::Layout::kFormatted},
        wide{.m_encoding = enc_UTF16, .m_eol = eol_CRLF};
    Octets const again = Converted(octets, text);
    std::string const events = EventsOfWritten(again);
    if (isText) Expect("text", EventsOf(octets), events);
    if (IsFastInfoset(octets)) {
        DocumentStreamSettings const exact{.m_details = {.m_exact = true}};
        Expect("Fast Infoset", WithoutCR(StreamedTree(octets, random, false, exact).m_text),
               WithoutCR(LoadedTree(again).m_text));
    }
    Expect("text twice", events, EventsOf(Converted(again, wide)));
    Expect("to Fast Infoset", LoadedTree(again).m_text, LoadedTree(Converted(again, infoset)).m_text);
    Expect("Fast Infoset as text", LoadedTree(again).m_text,
           LoadedTree(Converted(Converted(octets, infoset), text)).m_text);
    Expect("compact", EventsOf(Converted(octets, compact)),
           EventsOf(Converted(Converted(octets, formatted), compact)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    Octets const octets(data, data + size);
    Random random(static_cast<Random::result_type>(size + 1));
    CompareTrees(octets, random);
    std::string refusal;
    bool const isText = StreamedTree(octets, random, false).m_refusal == std::nullopt &&
                        !IsCompressed(octets) && !IsFastInfoset(octets);
    try {
        CompareConversions(octets, isText, random);
        return 0;
    } catch (CBxException const& failure) {
        refusal = ToUtf8(failure.GetMessage());
    } catch (std::runtime_error const& failure) {
        refusal = failure.what();
    }
    // Fast Infoset may hold what text cannot, and in ISO-8859-1 Expat lets some names pass that are none.
    // Nor does bxconvert believe that encoding more than a mark.
    DocumentStreamSettings const exact{.m_details = {.m_systemEncodings = true, .m_exact = true}};
    auto const other = StreamedTree(octets, random, false, exact).m_refusal;
    bool const isLatin1 = other && (other->starts_with("not well-formed (invalid token)") ||
                                    other->starts_with("The text is UTF-8 by its byte order mark"));
    if (isText && !isLatin1) Fail("refused", refusal, {});
    return 0;
}
