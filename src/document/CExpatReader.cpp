#include "document/CExpatReader.h"

#include <expat.h>

// Weak, since it depends on the Expat that the process loads, not on the one that was there when this was
// compiled.
extern "C" XML_Bool XMLCALL XML_SetReparseDeferralEnabled(XML_Parser parser, XML_Bool enabled)
    __attribute__((weak));

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <type_traits>
#include <vector>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "document/CDocumentBuilder.h"
#include "document/InputLimits.h"
#include "platform/Stack.h"
#include "platform/TextView.h"
#include "platform/UnitScan.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5 {

namespace {

constexpr char16_t kSeparator = u'|';

// Expat's wide build calls its 16-bit unit by another name than the language does.
static_assert(sizeof(XML_Char) == sizeof(char16_t) && std::is_unsigned_v<XML_Char>);

char16_t const* Units(XML_Char const* text) {
    return reinterpret_cast<char16_t const*>(text);
}

bool HasCarriageReturn(std::u16string_view text) {
    if (text.size() == 1) return text[0] == u'\r';  // Expat gives each end of a line by itself
    return HasUnit(text, [](std::uint64_t units) { return UnitsBelow(units ^ (kEachUnit * u'\r'), 1); });
}

/// Expat recurses once for each level of reference, so what is left of the stack counts.
int MostNestingEntities() {
    std::size_t const left = StackLeft().value_or(kStackForLevel + kUnknownStack);
    std::size_t const most = (left - std::min(left, kStackForLevel)) / kStackOfEntity;
    return static_cast<int>(std::min<std::size_t>(most, kMaxNestingEntities));
}

/// The place of the high octet in each unit, if the input is UTF-16; Expat tells it by the same octets.
std::optional<std::size_t> HighOctetOfUtf16(std::span<unsigned char const> input) {
    if (input.size() < 2) return std::nullopt;
    if (input[0] == 0 || (input[0] == 0xFE && input[1] == 0xFF)) return 0;
    if (input[1] == 0 || (input[0] == 0xFF && input[1] == 0xFE)) return 1;
    return std::nullopt;
}

bool HasSurrogate(std::span<unsigned char const> input, std::size_t highOctet) {
    bool hasSurrogate = false;
    for (std::size_t at = highOctet; at < input.size(); at += 2) hasSurrogate |= (input[at] & 0xF8) == 0xD8;
    return hasSurrogate;
}

wstring UnitsOf(std::span<unsigned char const> input, std::size_t highOctet) {
    wstring units(input.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        units[i] = static_cast<char16_t>(input[2 * i + highOctet] << 8 | input[2 * i + 1 - highOctet]);
    }
    return units;
}

using Parser = std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)>;

/// @param encoding null for what the input says
Parser NewParser(char16_t const* encoding, SchemaType schemaType) {
    auto const* const name = reinterpret_cast<XML_Char const*>(encoding);
    Parser parser(
        schemaType == st_NoNamespaces ? XML_ParserCreate(name) : XML_ParserCreateNS(name, kSeparator),
        XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    return parser;
}

constexpr int kFinal = 1;
constexpr int kNotFinal = 0;  // so that an input that ends inside an element is no error

bool ParsePart(XML_Parser parser, std::span<unsigned char const> octets, int isFinal) {
    return XML_Parse(parser, reinterpret_cast<char const*>(octets.data()), static_cast<int>(octets.size()),
                     isFinal) != XML_STATUS_ERROR;
}

[[noreturn]] void ThrowError(XML_Parser parser) {
    XML_Size const line = XML_GetCurrentLineNumber(parser);
    CBxException failure(FormatString(u"%s at line %d",
                                      FromUtf8(XML_ErrorString(XML_GetErrorCode(parser))).c_str(),
                                      static_cast<int>(line)));
    failure.SetLocation(CBxLocation({}, line, XML_GetCurrentColumnNumber(parser) + 1));
    throw failure;
}

std::vector<unsigned char> Utf8Of(std::u16string_view units) {
    std::vector<unsigned char> octets(Utf8Size(units));
    if (octets.empty()) throw CBxException(u"A text has half of a surrogate pair");
    WriteUtf8(units, octets);
    return octets;
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

CExpatReader::CExpatReader(CDocumentBuilder& builder, SchemaType schemaType)
    : CInstanceMonitor(u"CExpatReader"), m_builder(builder), m_schemaType(schemaType) {}
CExpatReader::~CExpatReader() = default;

void CExpatReader::Parse(std::span<unsigned char const> input) {
    m_mostNestingEntities = MostNestingEntities();
    m_mostDefaultedUnits = MaxRepeatedUnits(input.size());
    auto const highOctet = HighOctetOfUtf16(input);
    if (!highOctet || !HasSurrogate(input, *highOctet)) return ParseAs(nullptr, input);
    // In UTF-16 Expat takes whatever unit follows the first half of a pair for the second, and some releases
    // lose the second half of one that ends a long text.
    wstring const units = UnitsOf(input, *highOctet);
    std::vector<unsigned char> const octets = Utf8Of(units);
    ThrowIfInputTooLarge(octets.size());
    // Expat does not look at the declared encoding if it is told another one.
    std::size_t const declaration = std::min(units.find(u'>'), units.size() - 1) + 1;
    Parser const parser = NewParser(nullptr, m_schemaType);
    if (!ParsePart(parser.get(), input.first(declaration * sizeof(char16_t)), kNotFinal)) {
        ThrowError(parser.get());
    }
    ParseAs(u"UTF-8", octets);
}

/// A final call is faster, since Expat counts the lines after any other. It refuses an input that breaks off, so
/// what it refuses is parsed anew.
void CExpatReader::ParseAs(char16_t const* encoding, std::span<unsigned char const> input) {
    if (ParseWhole(encoding, input)) return;
    m_builder.Clear();
    ParseOpen(encoding, input);
}

CExpatReader::Parser CExpatReader::MakeParser(char16_t const* encoding,
                                              std::span<unsigned char const> input) {
    Parser parser = NewParser(encoding, m_schemaType);
    m_parser = parser.get();
    m_lines = {input, encoding == nullptr ? HighOctetOfUtf16(input) : std::nullopt};
    m_lastNamespace = nullptr;
    m_noNamespace = &m_builder.Names().InternText({});
    m_nestingEntities = 0;
    m_defaultedUnits = 0;
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, Callbacks::StartElement, Callbacks::EndElement);
    XML_SetNamespaceDeclHandler(m_parser, Callbacks::StartNamespace, Callbacks::EndNamespace);
    XML_SetCharacterDataHandler(m_parser, Callbacks::Text);
    XML_SetEntityDeclHandler(m_parser, Callbacks::Entity);
    // Expat 2.6, and older ones with its mends, would leave a token that a slice cuts for a final call, which
    // never comes.
    if (XML_SetReparseDeferralEnabled != nullptr) XML_SetReparseDeferralEnabled(m_parser, XML_FALSE);
    return parser;
}

bool CExpatReader::ParseWhole(char16_t const* encoding, std::span<unsigned char const> input) {
    Parser const parser = MakeParser(encoding, input);
    bool const parsed = ParsePart(m_parser, input, kFinal);
    if (m_failure) std::rethrow_exception(m_failure);
    return parsed;
}

void CExpatReader::ParseOpen(char16_t const* encoding, std::span<unsigned char const> input) {
    Parser const parser = MakeParser(encoding, input);
    bool const parsed = ParseInSlices(input);
    if (m_failure) std::rethrow_exception(m_failure);
    if (!parsed) ThrowError(m_parser);
}

/// Expat copies what it is given, so it gets the input in slices. It scans a token that is not complete anew
/// with the next slice, so slices double while tokens outgrow them.
bool CExpatReader::ParseInSlices(std::span<unsigned char const> input) {
    std::size_t slice = 64 * 1024;
    for (std::size_t parsed = 0; parsed < input.size();) {
        auto const octets = input.subspan(parsed, std::min(slice, input.size() - parsed));
        if (!ParsePart(m_parser, octets, kNotFinal)) return false;
        parsed += octets.size();
        std::size_t const scanned =
            static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(m_parser), 0));
        if (parsed - scanned > slice / 2) slice *= 2;
    }
    return true;
}

CXmlName const& CExpatReader::SplitName(std::u16string_view expanded) {
    CNameTable& names = m_builder.Names();
    // A name is mostly in the namespace of the one before it, which is compared faster than the separator is
    // found.
    if (m_lastNamespace != nullptr) {
        std::size_t const size = m_lastNamespace->size();
        if (size < expanded.size() && expanded[size] == kSeparator &&
            Equal(expanded.substr(0, size), *m_lastNamespace))
            return names.Intern(*m_lastNamespace, expanded.substr(size + 1));
    }
    std::size_t const separator = expanded.find(kSeparator);
    if (separator == expanded.npos) return names.Intern(*m_noNamespace, expanded);
    m_lastNamespace = &names.InternText(expanded.substr(0, separator));
    return names.Intern(*m_lastNamespace, expanded.substr(separator + 1));
}

void CExpatReader::StartElement(char16_t const* name, char16_t const* const* attributes) {
    CXmlName const& elementName = SplitName(name);
    CXmlElement* const element = m_builder.AddElement(elementName, Line());
    std::size_t count = 0;
    while (attributes[2 * count] != nullptr) ++count;
    if (count == 0) return;
    m_builder.ReserveElementAttributes(element, count);
    auto const specified = static_cast<std::size_t>(XML_GetSpecifiedAttributeCount(m_parser)) / 2;
    for (std::size_t i = 0; i < count; ++i) {
        std::u16string_view const value = attributes[2 * i + 1];
        if (i >= specified) CountDefaulted(value);
        m_builder.AddElementAttribute(element, SplitName(attributes[2 * i]), m_builder.Texts().Add(value));
    }
}

/// The line of the event that Expat tells. Expat's own count would look at each octet once more.
std::size_t CExpatReader::Line() {
    return m_lines.LineAt(
        static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(m_parser), 0)));
}

void CExpatReader::CountDefaulted(std::u16string_view value) {
    m_defaultedUnits += value.size() + kUnitsOfDefaultedAttribute;
    if (m_defaultedUnits <= m_mostDefaultedUnits) return;
    throw CBxException(
        u"The document type adds more attributes to the elements than a document of this size may have");
}

void CExpatReader::EndElement() {
    if (m_builder.HasOpenElement()) m_builder.CloseElement();
}

void CExpatReader::DeclareNamespace(char16_t const* prefix, char16_t const* namespaceUri) {
    ThrowIfNamespaceTooLong(TextOf(namespaceUri));
    // No prefix is the default namespace; no URI is xmlns="".
    CNameTable& names = m_builder.Names();
    m_builder.DeclareNamespace(names.InternText(TextOf(prefix)), names.InternText(TextOf(namespaceUri)));
}

void CExpatReader::AddText(std::u16string_view text) {
    if (text.empty() || !m_builder.HasOpenElement()) return;
    if (HasCarriageReturn(text)) {
        m_builder.AppendTextExcludingCR(text);
    } else {
        m_builder.AppendText(text);
    }
}

void CExpatReader::DeclareEntity(std::u16string_view value) {
    if (value.find(u'&') == value.npos || ++m_nestingEntities <= m_mostNestingEntities) return;
    throw CBxException(
        FormatString(u"More than %d entities refer to others, which is the limit", m_mostNestingEntities));
}

}  // namespace BxXmlLib5
