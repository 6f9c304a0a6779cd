#include "writers/CFastInfosetWriter.h"

#include <algorithm>
#include <span>

#include "fastinfoset/WriteInteger.h"
#include "platform/TextView.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5 {

using namespace FastInfoset;

namespace {

/// Shorter values and chunks, in units, get an index: short ones repeat often, long ones seldom.
constexpr std::size_t kIndexedBelow = 6;
static_assert(kIndexedBelow == ShortText::kMaxSize + 1);

/// Appends octets that are known when the library is built.
void AppendOctets(COctetBuffer& output, auto const& octets) {
    std::transform(octets.begin(), octets.end(), output.Extend(octets.size()),
                   [](auto octet) { return static_cast<unsigned char>(octet); });
}

}  // namespace

CFastInfosetWriter::CFastInfosetWriter() : CElementWriter(u"CFastInfosetWriter") {
    m_prefixes.Add(kBuiltInPrefix);
    m_namespaceNames.Add(kBuiltInNamespace);
}

CFastInfosetWriter::~CFastInfosetWriter() = default;

CBinaryData CFastInfosetWriter::GetBinaryData() const {
    CBinaryData document;
    if (m_output.Size() > 0) document.Append(m_output.Octets());
    return document;
}

// C.2: documents.

void CFastInfosetWriter::WriteStartDocument(FInfoDecl declaration) {
    m_output.Truncate(0);
    auto const index = static_cast<std::size_t>(declaration);
    if (index < kDeclarations.size()) AppendOctets(m_output, kDeclarations[index]);
    AppendOctets(m_output, kIdentification);
    m_output.Append(kNoOptionalComponents);
}

void CFastInfosetWriter::WriteEndDocument() {
    CXmlWriter::WriteEndDocument();
    m_output.Append(m_pendingTerminator ? kTwoTerminators : kTerminator);
    m_pendingTerminator = false;
}

void CFastInfosetWriter::WriteComment(wstring const&) {}

void CFastInfosetWriter::WriteProcessingInstruction(wstring const&) {
    CloseStartTag();
}

void CFastInfosetWriter::WriteInLineSchema(wstring const&) {}

// C.3: elements. What comes first says whether attributes follow and what they need to have declared, so a
// start tag waits until it closes.

void CFastInfosetWriter::WriteStartElement(wstring const& name, wstring const& namespaceUri) {
    Context().TestDepth();
    CloseStartTag();
    PadTerminator();
    Start();
    m_element = &Recall(m_recentElements, namespaceUri, name);
    m_hasElementPrefix = false;
    m_attributeCount = 0;
    m_declarations.clear();
}

void CFastInfosetWriter::WriteText(wstring const& text) {
    if (text.empty() && !Context().IsOpen()) return;
    Context().Innermost();
    CloseStartTag();
    PadTerminator();
    if (!text.empty()) WriteChunk(text);
}

void CFastInfosetWriter::WriteEndElement() {
    Context().Innermost();
    CloseStartTag();
    if (m_pendingTerminator) m_output.Append(kTwoTerminators);
    m_pendingTerminator = !m_pendingTerminator;
    Context().End();
}

void CFastInfosetWriter::BeginTag(DocumentElement const& element, bool declares) {
    Context().TestDepth();
    CloseStartTag();
    PadTerminator();
    Start();
    Context().Innermost().m_startTagOpen = false;
    unsigned const first = element.m_attributes.empty() ? 0U : kHasAttributes;
    if (declares) m_output.Append(first | kNamespaceAttributesFollow.m_octet);
}

void CFastInfosetWriter::FinishTag(DocumentElement const& element, bool declares) {
    unsigned const first = element.m_attributes.empty() ? 0U : kHasAttributes;
    if (declares) m_output.Append(kTerminator);
    WriteName(m_elementNames, kLiteralElementName, declares ? 0U : first, kIndexOnThirdBit,
              Recall(m_recentElements, element.m_name, element.m_prefix));
    for (DocumentAttribute const& attribute : element.m_attributes) {
        CheckedUtf8Size(attribute.m_value);
        WriteName(m_attributeNames, kLiteralAttributeName, 0, kIndexOnSecondBit,
                  Recall(m_recentAttributes, *attribute.m_name, attribute.m_prefix));
        WriteValue(attribute.m_value);
    }
    if (first != 0) m_output.Append(kTerminator);
}

CFastInfosetWriter::Name& CFastInfosetWriter::Recall(RecentNames& names, CXmlName const& name,
                                                     std::u16string_view prefix) {
    Name& recent = Recall(names, name.m_namespaceUri, name.m_localName);
    if (Equal(recent.m_prefix, prefix)) return recent;
    recent.m_prefix = prefix;
    recent.m_index = 0;
    return recent;
}

/// Closes and writes the start tag of the innermost open element, if there is one.
void CFastInfosetWriter::CloseStartTag() {
    if (!Context().IsOpen() || !Context().Innermost().m_startTagOpen) return;
    TakeElementPrefix();
    Context().Innermost().m_startTagOpen = false;
    unsigned const first = m_attributeCount > 0 ? kHasAttributes : 0U;
    bool const declares = WriteNamespaceAttributes(first);
    WriteName(m_elementNames, kLiteralElementName, declares ? 0U : first, kIndexOnThirdBit, *m_element);
    for (Attribute& attribute : std::span(m_attributes).first(m_attributeCount)) {
        WriteAttributeName(attribute.m_name);
        WriteValue(attribute.m_value);
    }
    if (m_attributeCount > 0) m_output.Append(kTerminator);
}

/// The open element takes its prefix before its attributes take theirs.
void CFastInfosetWriter::TakeElementPrefix() {
    if (m_hasElementPrefix) return;
    m_hasElementPrefix = true;
    TakePrefix(*m_element);
}

void CFastInfosetWriter::TakePrefix(Name& name) {
    if (name.m_namespace.empty()) return;
    if (name.m_scope == nullptr) name.m_scope = Scopes().HandleOf(name.m_namespace);
    wstring const& alias = Scopes().TakePrefix(name.m_scope).m_alias;
    if (Equal(alias, name.m_prefix)) return;
    name.m_prefix = alias;
    name.m_index = 0;
}

CFastInfosetWriter::Name& CFastInfosetWriter::Recall(RecentNames& names, std::u16string_view namespaceUri,
                                                     std::u16string_view localName) {
    std::size_t const spread =
        localName.empty() ? 0 : localName.size() + 3u * localName.front() + 7u * localName.back();
    Name& name = names[spread % names.size()];
    if (Equal(name.m_localName, localName) && Equal(name.m_namespace, namespaceUri)) return name;
    name.m_index = 0;
    name.m_scope = nullptr;
    name.m_prefix.clear();
    name.m_localName = localName;
    name.m_namespace = namespaceUri;
    return name;
}

/// Writes the first octet and the namespace attributes, if there are any.
bool CFastInfosetWriter::WriteNamespaceAttributes(unsigned first) {
    if (!Context().IsRoot() && m_declarations.empty()) return false;
    std::size_t const start = m_output.Size();
    m_output.Append(first | kNamespaceAttributesFollow.m_octet);
    if (Context().IsRoot()) {
        ForEachRootDeclaration([this](auto const& alias, auto const& namespaceUri) {
            m_output.Append(kNamespaceAttribute.m_octet | (alias.empty() ? 0U : kHasPrefix) | kHasNamespace);
            if (!alias.empty()) WriteLiteral(m_prefixes, alias);
            WriteLiteral(m_namespaceNames, namespaceUri);
        });
    }
    for (auto const& [alias, namespaceUri] : m_declarations) WriteNamespaceAttribute(alias, namespaceUri);
    bool const any = m_output.Size() > start + 1;
    if (any) {
        m_output.Append(kTerminator);
    } else {
        m_output.Truncate(start);
    }
    return any;
}

// C.12: no namespace name takes the default namespace back.
void CFastInfosetWriter::WriteNamespaceAttribute(std::u16string_view alias,
                                                 std::u16string_view namespaceUri) {
    m_output.Append(kNamespaceAttribute.m_octet | (alias.empty() ? 0U : kHasPrefix) |
                    (namespaceUri.empty() ? 0U : kHasNamespace));
    if (!alias.empty()) WriteIdentifyingString(m_prefixes, alias);
    if (!namespaceUri.empty()) WriteIdentifyingString(m_namespaceNames, namespaceUri);
}

/// Writes a terminator that waits, since none follows it.
void CFastInfosetWriter::PadTerminator() {
    if (m_pendingTerminator) m_output.Append(kTerminator);
    m_pendingTerminator = false;
}

// C.4: attributes. The default namespace plays no part in the prefixes of names.

void CFastInfosetWriter::WriteAttribute(wstring const& name, wstring const& namespaceUri,
                                        wstring const& value) {
    Context().OpenForAttributes();
    TakeElementPrefix();
    if (m_attributeCount == m_attributes.size()) m_attributes.emplace_back();
    Attribute& attribute = m_attributes[m_attributeCount];
    Name& recent = Recall(m_recentAttributes, namespaceUri, name);
    TakePrefix(recent);
    attribute.m_name.m_index = recent.m_index;
    if (recent.m_index == 0) attribute.m_name = recent;
    attribute.m_value = value;
    ++m_attributeCount;
}

wstring CFastInfosetWriter::DeclaredPrefix(wstring const& namespaceUri) {
    TakeElementPrefix();
    bool const isNew = Scopes().Declare(namespaceUri);
    wstring const alias = Scopes().TakePrefix(namespaceUri).m_alias;
    if (isNew) m_declarations.emplace_back(alias, namespaceUri);
    return alias;
}

// C.17, C.18: names. The indices of its parts tell a name, so what has a part that is new is new as well.

template <class IndexForms>
void CFastInfosetWriter::WriteName(CNameIndex& names, OctetPattern const& literal, unsigned first,
                                   IndexForms const& indexForms, Name& name) {
    bool const hasPrefix = !name.m_prefix.empty();
    bool const hasNamespace = !name.m_namespace.empty();
    NameSurrogate parts;
    if (name.m_index == 0) {
        if (hasPrefix) parts.m_prefix = m_prefixes.Find(name.m_prefix);
        if (hasNamespace) parts.m_namespace = m_namespaceNames.Find(name.m_namespace);
        parts.m_localName = m_localNames.Find(name.m_localName);
        name.m_index = names.Find(parts);
    }
    if (name.m_index != 0) return WriteInteger(m_output, first, indexForms, name.m_index);
    m_output.Append(first | literal.m_octet | (hasPrefix ? kHasPrefix : 0U) |
                    (hasNamespace ? kHasNamespace : 0U));
    if (hasPrefix) parts.m_prefix = WriteIdentifyingString(m_prefixes, name.m_prefix);
    if (hasNamespace) parts.m_namespace = WriteIdentifyingString(m_namespaceNames, name.m_namespace);
    parts.m_localName = WriteIdentifyingString(m_localNames, name.m_localName);
    if (parts.IsComplete()) name.m_index = names.Add(parts);
}

void CFastInfosetWriter::WriteAttributeName(Name& name) {
    bool const isKnown = name.m_index != 0;
    WriteName(m_attributeNames, kLiteralAttributeName, 0, kIndexOnSecondBit, name);
    if (isKnown) return;
    Name& recent = Recall(m_recentAttributes, name.m_namespace, name.m_localName);
    recent.m_prefix = name.m_prefix;
    recent.m_index = name.m_index;
}

// C.13 to C.15, C.19, C.20, C.22: strings.

std::uint32_t CFastInfosetWriter::WriteIdentifyingString(CTextIndex& table, std::u16string_view text) {
    std::uint32_t const index = table.Find(text);
    if (index == 0) return WriteLiteral(table, text);
    WriteInteger(m_output, kIndexOnFirstBit, kIndexOnSecondBit, index);
    return index;
}

std::uint32_t CFastInfosetWriter::WriteLiteral(CTextIndex& table, std::u16string_view text) {
    if (text.empty()) {
        m_output.Append(kEmptyString);
    } else {
        WriteUtf8String(0, kLengthOnSecondBit, text, CheckedUtf8Size(text));
    }
    return table.Add(text);
}

void CFastInfosetWriter::WriteValue(std::u16string_view value) {
    bool const isIndexed = value.size() < kIndexedBelow;
    if (std::uint32_t const index = isIndexed ? m_attributeValues.Find(ShortText(value)) : 0) {
        return WriteInteger(m_output, kIndexOnFirstBit, kIndexOnSecondBit, index);
    }
    std::size_t const size = Utf8Size(value);
    if (size == 0) return m_output.Append(kEmptyString);
    bool const isAdded = isIndexed && m_attributeValues.Size() < m_mostShortTexts &&
                         m_attributeValues.Add(ShortText(value)) != 0;
    WriteUtf8String(isAdded ? kAddToTableOnFirstBit : 0U, kLengthOnFifthBit, value, size);
}

void CFastInfosetWriter::WriteChunk(std::u16string_view text) {
    bool const isIndexed = text.size() < kIndexedBelow;
    if (std::uint32_t const index = isIndexed ? m_characterChunks.Find(ShortText(text)) : 0) {
        return WriteInteger(m_output, kCharacterChunk.m_octet | kIndexOnThirdBitFollows, kIndexOnFourthBit,
                            index);
    }
    std::size_t const size = CheckedUtf8Size(text);
    bool const isAdded = isIndexed && m_characterChunks.Size() < m_mostShortTexts &&
                         m_characterChunks.Add(ShortText(text)) != 0;
    WriteUtf8String(kCharacterChunk.m_octet | (isAdded ? kAddToTableOnThirdBit : 0U), kLengthOnSeventhBit,
                    text, size);
}

/// The bits that tell the encoding of a string are 0 for UTF-8.
template <class LengthForms>
void CFastInfosetWriter::WriteUtf8String(unsigned first, LengthForms const& lengthForms,
                                         std::u16string_view text, std::size_t size) {
    static_assert(se_Utf8 == 0);
    WriteInteger(m_output, first, lengthForms, size);
    WriteUtf8(text, {m_output.Extend(size), size});
}

}  // namespace BxXmlLib5
