#include "fastinfoset/CFastInfosetReader.h"

#include <algorithm>
#include <optional>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "document/COctetSource.h"
#include "document/InputLimits.h"
#include "fastinfoset/Format.h"

namespace BxXmlLib5 {

using namespace FastInfoset;

namespace {

using Octets = std::span<unsigned char const>;

/// What is left of the input behind others, if it begins with these and does not end with them.
template <class Text>
std::optional<Octets> Behind(Text const& beginning, Octets input) {
    bool const matches = input.size() > std::size(beginning) &&
                         std::equal(std::begin(beginning), std::end(beginning), input.begin(),
                                    [](auto a, auto b) { return static_cast<unsigned char>(a) == b; });
    return matches ? std::optional(input.subspan(std::size(beginning))) : std::nullopt;
}

/// The octets behind the identification, ahead of which there may be a declaration.
std::optional<Octets> FindOptionalComponents(Octets input) {
    for (std::string_view const declaration : kDeclarations) {
        auto const identification = Behind(declaration, input);
        if (!identification) continue;
        if (auto const components = Behind(kIdentification, *identification)) return components;
    }
    return std::nullopt;
}

/// Drops, in place, what no text of an element has: CR, and what follows a zero.
Decoded ExcludingCR(Decoded text) {
    // Looked at without a branch for each unit, so that the compiler can look at many at once.
    bool isClean = true;
    for (char16_t const unit : text) isClean &= unit != u'\r' && unit != u'\0';
    if (isClean) return text;
    auto const end = std::remove(text.begin(), std::find(text.begin(), text.end(), u'\0'), u'\r');
    return text.first(static_cast<std::size_t>(end - text.begin()));
}

// C.9 to C.11: what a document type, an unparsed entity, a notation or an entity reference has.
constexpr unsigned kHasSystemIdentifier = 0x02;
constexpr unsigned kHasPublicIdentifier = 0x01;

[[noreturn]] void ThrowInvalidElement() {
    throw CBxException(u"Failed to parse FastInfoset. Invalid Encoding of Element type.");
}

}  // namespace

CFastInfosetReader::CFastInfosetReader(CDocumentReceiver& receiver, DocumentMemory const& memory,
                                       DocumentDetails details)
    : CInstanceMonitor(u"CFastInfosetReader"),
      CDocumentReader(receiver, memory, details),
      m_input(memory.m_texts, details.m_exact) {}
CFastInfosetReader::~CFastInfosetReader() = default;

bool CFastInfosetReader::Recognises(Octets beginning) {
    return FindOptionalComponents(beginning).has_value();
}

bool CFastInfosetReader::Parse(Octets input) {
    auto const components = FindOptionalComponents(input);
    if (!components) return false;
    m_input.Start(*components);
    ReadStart();
    ReadDocumentChild();
    return true;
}

void CFastInfosetReader::Start(CPeekedSource& source) {
    std::size_t const size = source.Beginning().size();
    auto const components = FindOptionalComponents(source.Beginning());
    m_input.Start(source);
    m_input.ReadOctets(size - components.value_or(Octets()).size());
    ReadStart();
}

bool CFastInfosetReader::Read() {
    m_isPaused = false;
    while (!m_isPaused && !m_isAtEnd) {
        if (HasOpenElement()) {
            ReadItem(m_input.ReadOctet());
        } else {
            m_isAtEnd = !ReadItemOfDocument();
        }
        m_memory.m_texts.Empty();
    }
    return m_isPaused;
}

void CFastInfosetReader::ReadStart() {
    m_namespaceNames.Add(&m_memory.m_names.InternText(kBuiltInNamespace));
    m_prefixes.Add(&m_memory.m_names.InternText(kBuiltInPrefix));
    SkipOptionalComponents();
}

// C.2: what stands ahead of the document's children, in this order.
void CFastInfosetReader::SkipOptionalComponents() {
    constexpr struct {
        unsigned m_bit;
        void (*m_skip)(CFastInfosetReader& reader);
    } kComponents[] = {
        {0x40, [](auto& reader) { reader.SkipAdditionalData(); }},
        {0x20, [](auto& reader) { reader.ReadInitialVocabulary(); }},
        {0x10, [](auto& reader) { reader.SkipNotations(); }},
        {0x08, [](auto& reader) { reader.SkipUnparsedEntities(); }},
        {0x04, [](auto& reader) { reader.SkipOctetString(); }},    // character-encoding-scheme
        {0x02, [](auto& reader) { reader.m_input.ReadOctet(); }},  // standalone
        {0x01, [](auto& reader) { reader.ReadOtherString(); }},    // version
    };
    unsigned const present = m_input.ReadOctet();
    for (auto const& component : kComponents) {
        if ((present & component.m_bit) != 0) component.m_skip(*this);
    }
}

// C.2.4
void CFastInfosetReader::SkipAdditionalData() {
    for (auto count = m_input.ReadSequenceLength(); count > 0; --count) {
        SkipOctetString();  // id
        SkipOctetString();  // data
    }
}

// C.2.5
void CFastInfosetReader::ReadInitialVocabulary() {
    constexpr struct {
        unsigned m_bit;  // of the two octets that say which tables follow
        void (*m_readEntry)(CFastInfosetReader& reader);
    } kTables[] = {
        {0x08'00, [](auto& reader) { reader.SkipOctetString(); }},  // restricted-alphabets
        {0x04'00, [](auto& reader) { reader.SkipOctetString(); }},  // encoding-algorithms
        {0x02'00, [](auto& reader) { reader.ReadInitialName(reader.m_prefixes); }},
        {0x01'00, [](auto& reader) { reader.ReadInitialName(reader.m_namespaceNames); }},
        {0x00'80, [](auto& reader) { reader.ReadInitialName(reader.m_localNames); }},
        {0x00'40, [](auto& reader) { reader.ReadInitialName(reader.m_otherNames); }},  // other-ncnames
        {0x00'20, [](auto& reader) { reader.SkipOctetString(); }},                     // other-uris
        {0x00'10, [](auto& reader) { reader.ReadInitialString(reader.m_attributeValues); }},
        {0x00'08, [](auto& reader) { reader.ReadInitialString(reader.m_characterChunks); }},
        {0x00'04, [](auto& reader) { reader.ReadInitialString(reader.m_otherStrings); }},
        {0x00'02, [](auto& reader) { reader.ReadInitialSurrogate(reader.m_elementNames); }},
        {0x00'01, [](auto& reader) { reader.ReadInitialSurrogate(reader.m_attributeNames); }},
    };
    constexpr unsigned kExternalVocabulary = 0x10'00;
    unsigned present = m_input.ReadOctet();
    present = present << 8 | m_input.ReadOctet();
    if ((present & kExternalVocabulary) != 0) SkipExternalVocabulary();
    for (auto const& table : kTables) {
        if ((present & table.m_bit) == 0) continue;
        for (auto count = m_input.ReadSequenceLength(); count > 0; --count) table.m_readEntry(*this);
    }
}

void CFastInfosetReader::SkipExternalVocabulary() {
    if (m_details.m_exact)
        throw CBxException(u"Failed to parse FastInfoset. The document needs an external vocabulary.");
    SkipOctetString();
}

void CFastInfosetReader::SkipOctetString() {
    m_input.ReadOctets(m_input.ReadLengthOnSecondBit(m_input.ReadOctet()));
}

void CFastInfosetReader::ReadInitialName(NameParts& table) {
    if (!m_details.m_exact) return SkipOctetString();
    auto const text = m_input.ReadUtf8OnSecondBit();
    table.Add(&m_memory.m_names.InternText({text.data(), text.size()}));
}

void CFastInfosetReader::ReadInitialString(Strings& table) {
    auto const text = m_input.ReadEncodedStringOnThirdBit(m_input.ReadOctet());
    if (m_details.m_exact) table.Add(KeepInVocabulary({text.data(), text.size()}));
}

// C.16
void CFastInfosetReader::ReadInitialSurrogate(Names& names) {
    unsigned const present = m_input.ReadOctet();
    wstring const* const none = &m_memory.m_names.InternText({});
    auto const read = [&](bool isPresent, NameParts const& table) {
        if (!isPresent) return none;
        auto const index = m_input.ReadIndexOnSecondBit(m_input.ReadOctet());
        return m_details.m_exact ? table.At(index) : none;
    };
    wstring const* const prefix = read((present & kHasPrefix) != 0, m_prefixes);
    wstring const* const namespaceUri = read((present & kHasNamespace) != 0, m_namespaceNames);
    wstring const* const localName = read(true, m_localNames);
    if (!m_details.m_exact) return;
    ThrowIfNamespaceTooLong(*namespaceUri);
    names.Add({&m_memory.m_names.Combine(*namespaceUri, *localName), prefix});
}

// C.11
void CFastInfosetReader::SkipNotations() {
    unsigned char first = m_input.ReadOctet();
    for (; kNotation.Matches(first); first = m_input.ReadOctet()) {
        ReadOtherName();
        SkipIdentifiers(first);
    }
}

// C.10
void CFastInfosetReader::SkipUnparsedEntities() {
    unsigned char first = m_input.ReadOctet();
    for (; kUnparsedEntity.Matches(first); first = m_input.ReadOctet()) {
        ReadOtherName();
        m_input.ReadIdentifyingStringOrIndex();                                           // system identifier
        if ((first & kHasPublicIdentifier) != 0) m_input.ReadIdentifyingStringOrIndex();  // public identifier
        ReadOtherName();                                                                  // notation name
    }
}

void CFastInfosetReader::SkipIdentifiers(unsigned char present) {
    if ((present & kHasSystemIdentifier) != 0) m_input.ReadIdentifyingStringOrIndex();
    if ((present & kHasPublicIdentifier) != 0) m_input.ReadIdentifyingStringOrIndex();
}

// C.9
void CFastInfosetReader::SkipDocumentType(unsigned char first) {
    SkipIdentifiers(first);
    unsigned char next = m_input.ReadOctet();
    for (; kProcessingInstruction.Matches(next); next = m_input.ReadOctet()) {
        ReadOtherName();
        ReadOtherString();
    }
    if (next != kTerminator) ThrowInvalidElement();
    if (m_details.m_markup) m_receiver.LoseDocumentType();
}

// C.5
void CFastInfosetReader::ReadProcessingInstruction() {
    NamePart const target = ReadOtherName();
    std::u16string_view const content = ReadOtherString();
    if (m_details.m_markup) m_receiver.AddInstruction(target.m_text, content);
}

// C.8
void CFastInfosetReader::ReadComment() {
    std::u16string_view const text = ReadOtherString();
    if (m_details.m_markup) m_receiver.AddComment(text);
}

// C.6
void CFastInfosetReader::ReadEntityReference(unsigned char first) {
    NamePart const name = ReadOtherName();
    SkipIdentifiers(first);
    if (m_details.m_markup) m_receiver.AddEntityReference(name.m_text);
}

// C.2: of the document's children only the first is looked at.
void CFastInfosetReader::ReadDocumentChild() {
    unsigned char const first = m_input.ReadOctet();
    if (kElement.Matches(first)) {
        ReadElement(first);
        while (HasOpenElement()) ReadItem(m_input.ReadOctet());
    } else if (kDocumentType.Matches(first)) {
        SkipIdentifiers(first);
    } else {
        ReadMarkup(first);
    }
}

/// @return false if the document ends here
bool CFastInfosetReader::ReadItemOfDocument() {
    if (m_hasRoot && m_input.IsAtEnd()) return false;
    unsigned char const first = m_input.ReadOctet();
    if (kElement.Matches(first) && !m_hasRoot) {
        ReadElement(first);
    } else if (kDocumentType.Matches(first) && !m_hasRoot) {
        SkipDocumentType(first);
    } else if (!ReadMarkup(first)) {
        if (!m_hasRoot) ThrowNoRoot();
        if (first != kTerminator && first != kTwoTerminators) ThrowInvalidElement();
        return false;
    }
    return true;
}

/// A comment or an instruction.
/// @return false if it is something else
bool CFastInfosetReader::ReadMarkup(unsigned char first) {
    if (kProcessingInstruction.Matches(first)) {
        ReadProcessingInstruction();
    } else if (kComment.Matches(first)) {
        ReadComment();
    } else {
        return false;
    }
    return true;
}

/// What the innermost open element has next: an item of its content, or its end.
void CFastInfosetReader::ReadItem(unsigned char first) {
    if (kElement.Matches(first)) {
        ReadElement(first);
    } else if (kCharacterChunk.Matches(first)) {
        ReadCharacterChunk(first);
    } else if (first == kTerminator) {
        EndElement();
    } else if (first == kTwoTerminators) {
        EndElement();
        m_isAtEnd = !HasOpenElement();
        if (!m_isAtEnd) EndElement();
    } else if (kUnexpandedEntityReference.Matches(first)) {
        ReadEntityReference(first);
    } else if (!ReadMarkup(first)) {
        ThrowInvalidElement();
    }
}

// C.3
void CFastInfosetReader::ReadElement(unsigned char first) {
    unsigned char nameStart = first;
    if (kNamespaceAttributesFollow.Matches(first)) {
        unsigned char next = m_input.ReadOctet();
        for (; kNamespaceAttribute.Matches(next); next = m_input.ReadOctet()) ReadNamespaceAttribute(next);
        nameStart = m_input.ReadOctet();
    }
    PrefixedName const name = kLiteralElementName.Matches(nameStart)
                                  ? ReadLiteralName(nameStart, m_elementNames)
                                  : FindName(m_elementNames, m_input.ReadIndexOnThirdBit(nameStart));
    CountElement();
    m_hasRoot = true;
    m_attributes.clear();
    auto const start = [&] { StartElement({*name.m_name, PrefixOf(name), m_attributes, 0}); };
    bool isEmpty = false;
    try {
        isEmpty = (first & kHasAttributes) != 0 && ReadAttributes();
    } catch (...) {
        if (m_memory.m_keepsTexts) start();  // what came so far, for the tree that a failure leaves
        throw;
    }
    start();
    if (isEmpty) EndElement();
}

/// @return whether the element ends with them
bool CFastInfosetReader::ReadAttributes() {
    unsigned char next = m_input.ReadOctet();
    for (; kAttribute.Matches(next); next = m_input.ReadOctet()) ReadAttribute(next);
    if (next != kTwoTerminators && next != kTerminator) ThrowInvalidElement();
    // Here the second terminator is the element's own.
    return next == kTwoTerminators;
}

// C.4
void CFastInfosetReader::ReadAttribute(unsigned char first) {
    PrefixedName const name = kLiteralAttributeName.Matches(first)
                                  ? ReadLiteralName(first, m_attributeNames)
                                  : FindName(m_attributeNames, m_input.ReadIndexOnSecondBit(first));
    m_attributes.push_back({name.m_name, PrefixOf(name), ReadStringOnFirstBit(m_attributeValues)});
}

// C.14
std::u16string_view CFastInfosetReader::ReadStringOnFirstBit(Strings& table) {
    StringOrIndex const string = m_input.ReadNonIdentifyingStringOrIndexOnFirstBit();
    bool const isEmpty = string.m_isIndex && string.m_index == 0;
    return isEmpty ? std::u16string_view() : Resolve(string, table);
}

std::u16string_view CFastInfosetReader::ReadOtherString() {
    if (m_details.m_markup) return ReadStringOnFirstBit(m_otherStrings);
    m_input.ReadNonIdentifyingStringOrIndexOnFirstBit();
    return {};
}

CFastInfosetReader::NamePart CFastInfosetReader::ReadOtherName() {
    if (m_details.m_markup) {
        NamePart const name = ReadNamePart(m_otherNames);
        CountName(name.m_text);
        return name;
    }
    m_input.ReadIdentifyingStringOrIndex();
    return NoNamePart();
}

// C.12
void CFastInfosetReader::ReadNamespaceAttribute(unsigned char first) {
    NamePart const prefix = (first & kHasPrefix) != 0 ? ReadNamePart(m_prefixes) : NoNamePart();
    NamePart const namespaceUri = (first & kHasNamespace) != 0 ? ReadNamespaceName() : NoNamePart();
    if (m_details.m_prefixes) {
        CountName(prefix.m_text);
        CountName(namespaceUri.m_text);
    }
    m_receiver.DeclareNamespace(prefix.m_text, namespaceUri.m_text);
}

// C.7
void CFastInfosetReader::ReadCharacterChunk(unsigned char first) {
    StringOrIndex chunk = m_input.ReadNonIdentifyingStringOrIndexOnThirdBit(first);
    if (!m_memory.m_keepsTexts) return AddAnyText(Resolve(chunk, m_characterChunks));
    chunk.m_string = ExcludingCR(chunk.m_string);
    std::size_t const copied = m_receiver.AddKeptText(Resolve(chunk, m_characterChunks));
    CountRepeated(copied * kUnitsOfJoinedUnit);
}

// C.17, C.18
CFastInfosetReader::PrefixedName CFastInfosetReader::ReadLiteralName(unsigned char first, Names& names) {
    bool const hasPrefix = (first & kHasPrefix) != 0;
    bool const hasNamespace = (first & kHasNamespace) != 0;
    if (hasPrefix && !hasNamespace) {
        throw CBxException(u"Failed to parse FastInfoset. Invalid QName type Prefix without Namespace.");
    }
    NamePart const prefix = hasPrefix ? ReadNamePart(m_prefixes) : NoNamePart();
    NamePart const namespaceUri = hasNamespace ? ReadNamespaceName() : NoNamePart();
    NamePart const localName = ReadNamePart(m_localNames);
    PrefixedName const name{&m_memory.m_names.Combine(namespaceUri.m_text, localName.m_text), &prefix.m_text};
    CountName(name);
    if (prefix.m_hasIndex && namespaceUri.m_hasIndex && localName.m_hasIndex) names.Add(name);
    return name;
}

CFastInfosetReader::PrefixedName CFastInfosetReader::FindName(Names const& names, std::uint64_t index) {
    PrefixedName const name = names.At(index);
    CountName(name);
    return name;
}

std::u16string_view CFastInfosetReader::PrefixOf(PrefixedName const& name) const {
    return m_details.m_prefixes ? std::u16string_view(*name.m_prefix) : std::u16string_view();
}

/// The tree holds a name once, but what is read from the tree holds the local one for each element.
void CFastInfosetReader::CountName(PrefixedName const& name) {
    CountName(name.m_name->m_localName);
    if (m_details.m_prefixes) CountName(*name.m_prefix);
}

void CFastInfosetReader::CountName(std::u16string_view name) {
    if (name.size() > kUnitsOfName) CountRepeated(name.size() - kUnitsOfName);
}

CFastInfosetReader::NamePart CFastInfosetReader::NoNamePart() const {
    return {m_memory.m_names.InternText({})};
}

CFastInfosetReader::NamePart CFastInfosetReader::ReadNamePart(NameParts& table) {
    StringOrIndex const part = m_input.ReadIdentifyingStringOrIndex();
    if (part.m_isIndex) return {*table.At(part.m_index)};
    wstring const& text = m_memory.m_names.InternText({part.m_string.data(), part.m_string.size()});
    NamePart const name{text, !table.IsFull()};
    table.Add(&text);
    return name;
}

CFastInfosetReader::NamePart CFastInfosetReader::ReadNamespaceName() {
    NamePart const name = ReadNamePart(m_namespaceNames);
    ThrowIfNamespaceTooLong(name.m_text);
    return name;
}

std::u16string_view CFastInfosetReader::Resolve(StringOrIndex const& string, Strings& table) {
    if (string.m_isIndex) {
        std::u16string_view const known = table.At(string.m_index);
        CountRepeated(known.size());
        return known;
    }
    std::u16string_view const kept = m_memory.m_texts.Keep(string.m_string.size());
    if (string.m_addToTable) table.Add(m_memory.m_keepsTexts ? kept : KeepInVocabulary(kept));
    return kept;
}

std::u16string_view CFastInfosetReader::KeepInVocabulary(std::u16string_view text) {
    m_vocabularyOctets += text.size() * sizeof(char16_t);
    if (m_vocabularyOctets > kMaxOctetsOfVocabulary) {
        throw CBxException(FormatString(
            u"Failed to parse FastInfoset. The tables take more than %d octets, which is the limit.",
            static_cast<int>(kMaxOctetsOfVocabulary)));
    }
    return m_vocabularyTexts.Add(text);
}

void CFastInfosetReader::CountRepeated(std::size_t units) {
    m_repeatedUnits += units;
    if (m_repeatedUnits <= m_repeatableUnits) return;
    m_repeatableUnits = MaxRepeatedUnits(m_input.Received());
    if (m_repeatedUnits <= m_repeatableUnits) return;
    throw CBxException(
        u"Failed to parse FastInfoset. The indices repeat more text than a document of this size may have.");
}

}  // namespace BxXmlLib5
