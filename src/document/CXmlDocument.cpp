#include "BxXmlLib5/document/CXmlDocument.h"

#include <algorithm>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"
#include "document/CDocumentNodes.h"
#include "document/CExpatReader.h"
#include "document/Inflate.h"
#include "document/InputLimits.h"
#include "fastinfoset/CFastInfosetReader.h"
#include "platform/Files.h"
#include "platform/TextView.h"
#include "platform/Utf16Octets.h"

namespace BxXmlLib5 {

namespace {

/// Octets that are about to be overwritten, so they are not cleared first.
class Buffer {
public:
    explicit Buffer(std::size_t size)
        : m_octets(std::make_unique_for_overwrite<unsigned char[]>(size)), m_size(size) {}
    unsigned char* data() const { return m_octets.get(); }
    std::span<unsigned char> Octets() const { return {m_octets.get(), m_size}; }

private:
    std::unique_ptr<unsigned char[]> m_octets;
    std::size_t m_size;
};

Buffer ReadFile(std::u16string_view path) {
    CInputFile file(path);
    auto const fail = [&](char16_t const* format) {
        throw CBxException(FormatString(format, wstring(path).c_str(), file.Error()));
    };
    if (!file.IsOpen()) fail(u"Failed to open the file [%s] Error [0x%08x]");
    auto const size = file.Size();
    if (!size) fail(u"Failed to get the size of the file [%s] Error [0x%08x]");
    ThrowIfInputTooLarge(*size);
    Buffer buffer(*size);
    if (!file.Read(buffer.Octets())) fail(u"Failed to read the contents of the file [%s] Error [0x%08x]");
    return buffer;
}

void ThrowIfEmpty(std::size_t textLength) {
    if (textLength == 0) throw CBxException(u"XML String is empty!");
}

}  // namespace

CXmlDocument::CXmlDocument(SchemaType schemaType)
    : CInstanceMonitor(u"CXmlDocument"),
      m_schemaType(schemaType),
      m_nodes(std::make_unique<CDocumentNodes>()) {}

CXmlDocument::~CXmlDocument() = default;

void CXmlDocument::Cleanup() {
    m_documentElement = nullptr;
    m_isComplete = false;
    m_isCompressed = false;
    m_isFastInfoset = false;
    m_elementStack.clear();
    m_namespaceAliases.clear();
    m_openText = wstring();
    m_nodes->Clear();
}

void CXmlDocument::Load(char16_t const* path) {
    Cleanup();
    Buffer const file = ReadFile(TextOf(path));
    Parse(file.Octets(), false);
}

void CXmlDocument::LoadXmlStream(unsigned char const* data, std::size_t size) {
    Cleanup();
    if (size == 0) throw CBxException(u"XML Stream is empty!");
    Parse({data, size}, false);
}

void CXmlDocument::LoadXml(char const* text) {
    Cleanup();
    std::string_view const octets = text == nullptr ? std::string_view() : std::string_view(text);
    ThrowIfEmpty(octets.size());
    Parse({reinterpret_cast<unsigned char const*>(octets.data()), octets.size()}, true);
}

void CXmlDocument::LoadXml(char16_t const* text) {
    Cleanup();
    std::u16string_view const units = TextOf(text);
    ThrowIfEmpty(units.size());
    ThrowIfInputTooLarge((units.size() + 1) * sizeof(char16_t));
    // The byte order mark tells Expat that this is UTF-16, whatever the text claims.
    Buffer const octets((units.size() + 1) * sizeof(char16_t));
    WriteUtf16(units, std::ranges::copy(kByteOrderMark, octets.data()).out);
    Parse(octets.Octets(), true);
}

wstring CXmlDocument::LookupNamespaceFromAlias(char16_t const* alias) const {
    auto const entry = m_namespaceAliases.find(TextOf(alias));
    return entry == m_namespaceAliases.end() ? wstring() : entry->second;
}

void CXmlDocument::Parse(std::span<unsigned char const> input, bool isText) {
    ThrowIfInputTooLarge(input.size());
    auto const inflated = isText ? std::nullopt : Inflate(input);
    try {
        auto const octets = inflated ? std::span<unsigned char const>(*inflated) : input;
        m_isCompressed = inflated.has_value();
        m_isFastInfoset = !isText && CFastInfosetReader(this).Parse(octets);
        if (!m_isFastInfoset) CExpatReader(this).Parse(octets);
    } catch (...) {
        CloseAllElements();
        throw;
    }
    m_isComplete = m_elementStack.empty();
    CloseAllElements();
    if (m_documentElement == nullptr) {
        Cleanup();
        throw CBxException(u"Invalid or empty XML document");
    }
}

CXmlName const& CXmlDocument::InternName(std::u16string_view namespaceUri, std::u16string_view localName) {
    return m_nodes->m_names.Intern(namespaceUri, localName);
}

std::u16string_view CXmlDocument::StoreText(std::u16string_view text) {
    return m_nodes->m_texts.Add(text);
}

CXmlElement* CXmlDocument::AddElement(CXmlName const& name) {
    if (m_elementStack.size() == kMaxElementDepth) ThrowNestedTooDeeply();
    return m_documentElement == nullptr ? AddDocElement(name) : AddChildElement(name);
}

CXmlElement* CXmlDocument::AddDocElement(CXmlName const& name) {
    return m_documentElement = Open(m_nodes->m_elements.Create(this, name));
}

CXmlElement* CXmlDocument::AddChildElement(CXmlName const& name) {
    CXmlElement* const child = m_nodes->m_elements.Create(this, name);
    OpenElement& parent = m_elementStack.back();
    (parent.m_lastChild == nullptr ? parent.m_element->m_firstChild : parent.m_lastChild->m_nextSibling) =
        child;
    parent.m_lastChild = child;
    return Open(child);
}

CXmlElement* CXmlDocument::Open(CXmlElement* element) {
    m_elementStack.push_back({element, nullptr, m_openText.size(), {}});
    return element;
}

void CXmlDocument::CloseElement() {
    OpenElement const closed = m_elementStack.back();
    m_elementStack.pop_back();
    if (m_openText.size() == closed.m_textStart) {
        closed.m_element->SetText(CXmlText(closed.m_storedText));
        return;
    }
    closed.m_element->SetText(
        CXmlText(StoreText(std::u16string_view(m_openText).substr(closed.m_textStart))));
    m_openText.resize(closed.m_textStart);
}

void CXmlDocument::CloseAllElements() {
    while (!m_elementStack.empty()) CloseElement();
    m_openText = wstring();
}

void CXmlDocument::ReserveElementAttributes(CXmlElement* element, std::size_t count) {
    element->ReserveAttributes(count);
}

void CXmlDocument::AddElementAttribute(CXmlElement* element, CXmlName const& name,
                                       std::u16string_view value) {
    element->AddAttribute(m_nodes->m_attributes.Create(name, CXmlText(value)));
}

void CXmlDocument::AppendTextExcludingCR(std::u16string_view text) {
    // In runs between the CRs, which only come from character references: Expat normalises line ends.
    for (;;) {
        std::size_t const cr = text.find(u'\r');
        m_openText.append(text.substr(0, cr));
        if (cr == text.npos) return;
        text.remove_prefix(cr + 1);
    }
}

std::size_t CXmlDocument::AppendStoredText(std::u16string_view text) {
    OpenElement& open = m_elementStack.back();
    std::size_t const former = m_openText.size();
    if (open.m_storedText.empty() && former == open.m_textStart) {
        open.m_storedText = text;
        return 0;
    }
    m_openText.append(std::exchange(open.m_storedText, {})).append(text);
    return m_openText.size() - former;
}

}  // namespace BxXmlLib5
