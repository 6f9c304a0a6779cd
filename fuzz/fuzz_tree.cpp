// A tree of untyped content that the octets tell to build, written with the check that it is well-formed:
// what is not refused comes back the same, from text and from Fast Infoset.
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"

using namespace BxXmlLib5;

namespace {

struct Element : CElement {
    using CElement::CElement;
    using CElement::FromXml_Int;
};

/// Takes what to do off the octets; zeros behind their end.
class Script {
public:
    Script(unsigned char const* data, std::size_t size)
        : m_octets(reinterpret_cast<char const*>(data), size) {}

    unsigned Next() {
        if (m_octets.empty()) return 0;
        unsigned const octet = static_cast<unsigned char>(m_octets.front());
        m_octets.remove_prefix(1);
        return octet;
    }

    /// A CR is left out: no tree keeps one.
    wstring Text() {
        static constexpr std::u16string_view kUnits =
            u"ab<>&\"' \t\n]-:;x0\u00E9\u20AC\u0085\u2028\xD83D\xDE00\xD83D\xDE00\u0001\uFFFE\uFFFD";
        wstring text;
        for (unsigned left = Next() % 12; left > 0; --left) text += kUnits[Next() % kUnits.size()];
        return text;
    }

    wstring Name() {
        static constexpr std::u16string_view kNames[] = {u"a", u"b", u"xmlns", u"xml", u"\u00E9-1.", u"type"};
        unsigned const choice = Next() % 8;
        return choice < std::size(kNames) ? wstring(kNames[choice]) : Text();
    }

    wstring Namespace() {
        static constexpr std::u16string_view kNamespaces[] = {u"", u"n", u"urn:m",
                                                              u"http://www.w3.org/2001/XMLSchema-instance",
                                                              u"http://www.w3.org/XML/1998/namespace"};
        unsigned const choice = Next() % 8;
        return choice < std::size(kNamespaces) ? wstring(kNamespaces[choice]) : Text();
    }

    bool IsDone() const { return m_octets.empty(); }

private:
    std::string_view m_octets;
};

void Build(Element& root, Script& script) {
    std::vector<CSmartPtr<CElement>> open{&root};
    while (!script.IsDone()) {
        CElement& element = *open.back();
        switch (script.Next() % 4) {
            case 0: {
                wstring const name = script.Name(), ns = script.Namespace();
                open.push_back(element.GetChildElements()->Add(name.c_str(), ns.c_str()));
                break;
            }
            case 1: {
                wstring const name = script.Name(), value = script.Text(), ns = script.Namespace();
                element.GetAttributes()->Add(name.c_str(), value.c_str(), ns.c_str());
                break;
            }
            case 2:
                element.SetText(script.Text().c_str());
                break;
            default:
                if (open.size() > 1) open.pop_back();
        }
    }
}

wstring Read(CBinaryData const& octets, CXmlSerializationContext const& context) {
    CXmlDocument document;
    document.LoadXmlStream(octets.GetData(), static_cast<std::size_t>(octets.GetLength()));
    CSmartPtr<Element> const element(new Element(u""));
    CXmlElement* const root = document.GetDocumentElement();
    element->FromXml_Int(root, root, context, false);
    return element->ToXml(false, false, eol_LF, context);
}

void Expect(char const* form, wstring const& text, wstring const& read) {
    if (read == text) return;
    std::fprintf(stderr, "%s:\n%s\n%s\n", form, ToUtf8(text).c_str(), ToUtf8(read).c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    Script script(data, size);
    CSmartPtr<Element> const element(new Element(u"r"));
    CXmlSerializationContext context;
    context.SetCheckWellFormed(true);
    wstring text;
    CBinaryData utf8, utf16, finf;
    try {
        Build(*element, script);
        text = element->ToXml(false, false, eol_LF, context);
        utf8 = element->ToXmlStream(true, false, enc_UTF8, eol_LF, context, cmp_None);
        utf16 = element->ToXmlStream(true, false, enc_UTF16, eol_LF, context, cmp_None);
        finf = element->ToFastInfosetStream(fi_None, context, cmp_None);
    } catch (CBxException const&) {
        return 0;
    }
    Expect("UTF-8", text, Read(utf8, context));
    Expect("UTF-16", text, Read(utf16, context));
    Expect("Fast Infoset", text, Read(finf, context));
    return 0;
}
