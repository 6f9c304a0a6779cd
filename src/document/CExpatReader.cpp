#include "document/CExpatReader.h"

#include <expat.h>

#include <memory>
#include <new>
#include <type_traits>

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "binding/NestingDepth.h"
#include "platform/Limits.h"

namespace BxXmlLib5 {

namespace {

constexpr char16_t kSeparator = u'|';

// Expat's wide build calls its 16-bit unit by another name than the language does.
static_assert(sizeof(XML_Char) == sizeof(char16_t) && std::is_unsigned_v<XML_Char>);

char16_t const* Units(XML_Char const* text) {
    return reinterpret_cast<char16_t const*>(text);
}

}  // namespace

/// What Expat calls, with the reader as its user data.
struct CExpatReader::Callbacks {
    template <class Step>
    static void Run(void* userData, Step step) noexcept {
        auto* const reader = static_cast<CExpatReader*>(userData);
        if (reader->m_failure) return;
        try {
            step(*reader);
        } catch (...) {
            reader->m_failure = std::current_exception();
            XML_StopParser(reader->m_parser, XML_FALSE);
        }
    }

    static void StartElement(void* userData, XML_Char const* name, XML_Char const** attributes) {
        Run(userData, [=](CExpatReader& reader) {
            reader.StartElement(Units(name), reinterpret_cast<char16_t const* const*>(attributes));
        });
    }

    static void EndElement(void* userData, XML_Char const*) {
        Run(userData, [](CExpatReader& reader) { reader.EndElement(); });
    }

    static void StartNamespace(void* userData, XML_Char const* prefix, XML_Char const* namespaceUri) {
        Run(userData,
            [=](CExpatReader& reader) { reader.DeclareNamespace(Units(prefix), Units(namespaceUri)); });
    }

    static void EndNamespace(void*, XML_Char const*) {}

    static void Text(void* userData, XML_Char const* text, int length) {
        Run(userData, [=](CExpatReader& reader) {
            reader.AddText({Units(text), static_cast<std::size_t>(length)});
        });
    }

    static void Entity(void* userData, XML_Char const*, int isParameterEntity, XML_Char const* value,
                       int length, XML_Char const*, XML_Char const*, XML_Char const*, XML_Char const*) {
        if (isParameterEntity != 0 || value == nullptr) return;
        Run(userData, [=](CExpatReader& reader) {
            reader.DeclareEntity({Units(value), static_cast<std::size_t>(length)});
        });
    }
};

CExpatReader::CExpatReader(CXmlDocument* document)
    : CInstanceMonitor(u"CExpatReader"), m_document(document) {}
CExpatReader::~CExpatReader() = default;

void CExpatReader::Parse(std::span<unsigned char const> input) {
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> const parser(
        m_document->m_schemaType == st_NoNamespaces ? XML_ParserCreate(nullptr)
                                                    : XML_ParserCreateNS(nullptr, kSeparator),
        XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    m_parser = parser.get();
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, Callbacks::StartElement, Callbacks::EndElement);
    XML_SetNamespaceDeclHandler(m_parser, Callbacks::StartNamespace, Callbacks::EndNamespace);
    XML_SetCharacterDataHandler(m_parser, Callbacks::Text);
    XML_SetEntityDeclHandler(m_parser, Callbacks::Entity);

    constexpr int kNotFinal = 0;  // so that an input that ends inside an element is no error
    XML_Status const status = XML_Parse(m_parser, reinterpret_cast<char const*>(input.data()),
                                        static_cast<int>(input.size()), kNotFinal);
    if (m_failure) std::rethrow_exception(m_failure);
    if (status == XML_STATUS_ERROR) {
        throw CBxException(FormatString(u"%hs at line %d", XML_ErrorString(XML_GetErrorCode(m_parser)),
                                        static_cast<int>(XML_GetCurrentLineNumber(m_parser))));
    }
}

CExpatReader::Name const& CExpatReader::SplitName(std::u16string_view expanded) {
    auto const known = m_names.find(expanded);
    if (known != m_names.end()) return known->second;
    std::size_t const separator = expanded.find(kSeparator);
    bool const qualified = separator != expanded.npos;
    Name const name{
        &m_document->Intern(qualified ? expanded.substr(0, separator) : std::u16string_view()),
        &m_document->Intern(qualified ? expanded.substr(separator + 1) : expanded),
    };
    return m_names.emplace(expanded, name).first->second;
}

void CExpatReader::StartElement(char16_t const* name, char16_t const* const* attributes) {
    auto& stack = m_document->m_elementStack;
    if (stack.size() == kMaxElementDepth) ThrowNestedTooDeeply();
    Name const& elementName = SplitName(name);
    CXmlElement* const element =
        m_document->m_documentElement == nullptr
            ? m_document->AddDocElement(*elementName.m_namespaceUri, *elementName.m_localName)
            : m_document->AddChildElement(*elementName.m_namespaceUri, *elementName.m_localName);
    for (; *attributes != nullptr; attributes += 2) {
        Name const& attributeName = SplitName(attributes[0]);
        m_document->AddElementAttribute(element, *attributeName.m_localName, attributes[1],
                                        *attributeName.m_namespaceUri);
    }
}

void CExpatReader::EndElement() {
    if (!m_document->m_elementStack.empty()) m_document->m_elementStack.pop_back();
}

void CExpatReader::DeclareNamespace(char16_t const* prefix, char16_t const* namespaceUri) {
    // No prefix is the default namespace; no URI is xmlns="".
    m_document->m_namespaceAliases.insert_or_assign(wstring(TextOf(prefix)), wstring(TextOf(namespaceUri)));
}

void CExpatReader::AddText(std::u16string_view text) {
    if (text.empty() || m_document->m_elementStack.empty()) return;
    CXmlDocument::AppendTextExcludingCR(m_document->m_elementStack.back(), text);
}

void CExpatReader::DeclareEntity(std::u16string_view value) {
    if (value.find(u'&') == value.npos || ++m_nestingEntities <= kMaxNestingEntities) return;
    throw CBxException(
        FormatString(u"More than %d entities refer to others, which is the limit", kMaxNestingEntities));
}

}  // namespace BxXmlLib5
