#include "writers/CFastInfosetWriter.h"

#include <algorithm>

#include "fastinfoset/WriteInteger.h"
#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"
#include "values/Utf8Conversion.h"
#include "writers/CXmlWriterContext.h"

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

CFastInfosetWriter::CFastInfosetWriter() : CXmlWriter(u"CFastInfosetWriter") {
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

// C.3: elements. The first octet says whether attributes follow, so it waits for the next call.

void CFastInfosetWriter::WriteStartElement(wstring const& name, wstring const& namespaceUri) {
    CloseStartTag();
    PadTerminator();
    auto element = NewRecord(name, namespaceUri);
    if (Current() != nullptr) ++Current()->m_childCount;
    Push(std::move(element));
    m_pendingElement = true;
}

void CFastInfosetWriter::WriteText(wstring const& text) {
    InnermostElement();
    CloseStartTag();
    PadTerminator();
    if (!text.empty()) WriteChunk(text);
}

void CFastInfosetWriter::WriteEndElement() {
    InnermostElement();
    CloseStartTag();
    if (m_pendingTerminator) m_output.Append(kTwoTerminators);
    m_pendingTerminator = !m_pendingTerminator;
    Pop();
}

/// Writes the start of an element that waits for it.
/// @param ofType the declaration that the value of its xsi:type needs, null for none
void CFastInfosetWriter::Flush(bool hasAttributes, Declaration const* ofType) {
    if (!m_pendingElement) return;
    m_pendingElement = false;
    CXmlWriterContext& element = *Current();
    element.m_hasAttributes = hasAttributes;
    unsigned const first = hasAttributes ? kHasAttributes : 0U;
    bool const declares = WriteNamespaceAttributes(first, element.m_depth == 0, ofType);
    WriteName(m_elementNames, kLiteralElementName, declares ? 0U : first, kIndexOnThirdBit,
              PrefixOf(element, element.m_namespace), element.m_namespace, element.m_name);
}

/// Writes the first octet and the namespace attributes, if there are any.
bool CFastInfosetWriter::WriteNamespaceAttributes(unsigned first, bool isRoot, Declaration const* ofType) {
    if (!isRoot && ofType == nullptr) return false;
    std::size_t const start = m_output.Size();
    m_output.Append(first | kNamespaceAttributesFollow.m_octet);
    if (isRoot) WriteRootNamespaces();
    if (ofType != nullptr) {
        m_output.Append(kNamespaceAttribute.m_octet | kHasPrefix | kHasNamespace);
        WriteIdentifyingString(m_prefixes, ofType->m_alias);
        WriteIdentifyingString(m_namespaceNames, ofType->m_namespace);
    }
    bool const any = m_output.Size() > start + 1;
    if (any) {
        m_output.Append(kTerminator);
    } else {
        m_output.Truncate(start);
    }
    return any;
}

void CFastInfosetWriter::WriteRootNamespaces() {
    if (!RootDefaultNamespace().empty() && !Equal(RootDefaultNamespace(), kXmlNamespace)) {
        m_output.Append(kNamespaceAttribute.m_octet | kHasNamespace);
        WriteLiteral(m_namespaceNames, RootDefaultNamespace());
    }
    for (auto const& [namespaceUri, alias] : RootNamespaces()) {
        if (alias.empty() || Equal(namespaceUri, kXmlNamespace)) continue;
        m_output.Append(kNamespaceAttribute.m_octet | kHasPrefix | kHasNamespace);
        WriteLiteral(m_prefixes, alias);
        WriteLiteral(m_namespaceNames, namespaceUri);
    }
}

/// Closes the start tag of the innermost open element, if there is one.
void CFastInfosetWriter::CloseStartTag() {
    Flush(false);
    CXmlWriterContext* const element = Current();
    if (element == nullptr || !element->m_startTagOpen) return;
    element->m_startTagOpen = false;
    if (element->m_hasAttributes) m_output.Append(kTerminator);
}

/// Writes a terminator that waits, since none follows it.
void CFastInfosetWriter::PadTerminator() {
    if (m_pendingTerminator) m_output.Append(kTerminator);
    m_pendingTerminator = false;
}

// C.4: attributes.

void CFastInfosetWriter::WriteAttribute(wstring const& name, wstring const& namespaceUri,
                                        wstring const& value) {
    CXmlWriterContext& element = ElementOpenForAttributes();
    Flush(true);
    WriteName(m_attributeNames, kLiteralAttributeName, 0, kIndexOnSecondBit, PrefixOf(element, namespaceUri),
              namespaceUri, name);
    WriteValue(value);
}

void CFastInfosetWriter::WriteXsiType(wstring const& namespaceUri, wstring const& typeName) {
    // Never destroyed, so that a destructor of static storage may write.
    static wstring const& s_name = *new wstring(u"type");
    static wstring const& s_xsiNamespace = *new wstring(kXsiNamespace);
    CXmlWriterContext& element = ElementOpenForAttributes();
    if (element.IsDefault(namespaceUri)) return WriteAttribute(s_name, s_xsiNamespace, typeName);
    PrefixOf(element, element.m_namespace);  // it comes before that of the type
    Declaration const ofType{PrefixOf(element, namespaceUri), namespaceUri};
    Flush(true, IsUndeclared(ofType) ? &ofType : nullptr);
    WriteAttribute(s_name, s_xsiNamespace, wstring(ofType.m_alias) + u':' + typeName);
}

/// What a name in a namespace stands with. The default namespace plays no part here.
wstring const& CFastInfosetWriter::PrefixOf(CXmlWriterContext& element, wstring const& namespaceUri) {
    static wstring const& s_none = *new wstring;  // never destroyed, as above
    return namespaceUri.empty() ? s_none : element.TakePrefix(namespaceUri).m_alias;
}

/// Whether no namespace attribute of the root binds a prefix, so that names alone would tell it.
bool CFastInfosetWriter::IsUndeclared(Declaration const& declaration) const {
    if (Equal(declaration.m_namespace, kXmlNamespace)) return false;
    auto const known = RootNamespaces().find(declaration.m_namespace);
    return known == RootNamespaces().end() || !Equal(known->second, declaration.m_alias);
}

// C.17, C.18: names. The indices of its parts tell a name, so what has a part that is new is new as well.

template <class IndexForms>
void CFastInfosetWriter::WriteName(CNameIndex& names, OctetPattern const& literal, unsigned first,
                                   IndexForms const& indexForms, std::u16string_view prefix,
                                   std::u16string_view namespaceUri, std::u16string_view localName) {
    bool const hasPrefix = !prefix.empty();
    bool const hasNamespace = !namespaceUri.empty();
    NameSurrogate name;
    if (hasPrefix) name.m_prefix = m_prefixes.Find(prefix);
    if (hasNamespace) name.m_namespace = m_namespaceNames.Find(namespaceUri);
    name.m_localName = m_localNames.Find(localName);
    if (std::uint32_t const index = names.Find(name)) return WriteInteger(m_output, first, indexForms, index);
    m_output.Append(first | literal.m_octet | (hasPrefix ? kHasPrefix : 0U) |
                    (hasNamespace ? kHasNamespace : 0U));
    if (hasPrefix) name.m_prefix = WriteIdentifyingString(m_prefixes, prefix);
    if (hasNamespace) name.m_namespace = WriteIdentifyingString(m_namespaceNames, namespaceUri);
    name.m_localName = WriteIdentifyingString(m_localNames, localName);
    if (name.IsComplete()) names.Add(name);
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
    bool const isAdded = isIndexed && m_attributeValues.Add(ShortText(value)) != 0;
    WriteUtf8String(isAdded ? kAddToTableOnFirstBit : 0U, kLengthOnFifthBit, value, size);
}

void CFastInfosetWriter::WriteChunk(std::u16string_view text) {
    bool const isIndexed = text.size() < kIndexedBelow;
    if (std::uint32_t const index = isIndexed ? m_characterChunks.Find(ShortText(text)) : 0) {
        return WriteInteger(m_output, kCharacterChunk.m_octet | kIndexOnThirdBitFollows, kIndexOnFourthBit,
                            index);
    }
    std::size_t const size = CheckedUtf8Size(text);
    bool const isAdded = isIndexed && m_characterChunks.Add(ShortText(text)) != 0;
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
