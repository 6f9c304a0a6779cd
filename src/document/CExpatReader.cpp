#include "document/CExpatReader.h"

#include <expat.h>

// Weak, since it depends on the Expat that the process loads, not on the one that was there when this was
// compiled.
extern "C" XML_Bool XMLCALL XML_SetReparseDeferralEnabled(XML_Parser parser, XML_Bool enabled)
    __attribute__((weak));

#include <algorithm>
#include <memory>
#include <new>
#include <type_traits>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "document/CDocumentBuilder.h"
#include "document/InputLimits.h"
#include "platform/Stack.h"
#include "platform/TextView.h"
#include "platform/UnitScan.h"
#include "platform/Utf.h"

namespace BxXmlLib5 {

namespace {

constexpr char16_t kSeparator = u'|';

// Expat's wide build calls its 16-bit unit by another name than the language does.
static_assert(sizeof(XML_Char) == sizeof(char16_t) && std::is_unsigned_v<XML_Char>);

char16_t const* Units(XML_Char const* text) {
    return reinterpret_cast<char16_t const*>(text);
}

/// Whether a text is ASCII without a carriage return, as nearly all are: there is nothing in it to look after.
bool IsPlain(std::u16string_view text) {
    return !HasUnit(text, [](std::uint64_t units) {
        return (units & (kEachUnit * 0xFF80)) | UnitsBelow(units ^ (kEachUnit * u'\r'), 1);
    });
}

/// Expat recurses once for each level of reference, so what is left of the stack counts.
int MostNestingEntities() {
    std::size_t const left = StackLeft().value_or(kStackForLevel + kUnknownStack);
    std::size_t const most = (left - std::min(left, kStackForLevel)) / kStackOfEntity;
    return static_cast<int>(std::min<std::size_t>(most, kMaxNestingEntities));
}

bool HasSurrogate(std::u16string_view text) {
    bool hasSurrogate = false;
    for (char16_t const unit : text) hasSurrogate |= (unit & 0xF800) == 0xD800;
    return hasSurrogate;
}

/// Expat takes whatever unit follows the first half of a pair in UTF-16 for the second.
/// @param text whole: Expat hands a long one over in pieces, between which it may cut a pair
void ThrowIfUnpairedSurrogate(std::u16string_view text) {
    if (!HasSurrogate(text)) return;
    for (std::size_t at = 0; at < text.size();) {
        if (Utf::Next(text, at) == Utf::kMalformed)
            throw CBxException(u"A text has half of a surrogate pair");
    }
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

CExpatReader::Parser CExpatReader::MakeParser(std::size_t inputSize) {
    Parser parser(
        m_schemaType == st_NoNamespaces ? XML_ParserCreate(nullptr) : XML_ParserCreateNS(nullptr, kSeparator),
        XML_ParserFree);
    if (!parser) throw std::bad_alloc();
    m_parser = parser.get();
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, Callbacks::StartElement, Callbacks::EndElement);
    XML_SetNamespaceDeclHandler(m_parser, Callbacks::StartNamespace, Callbacks::EndNamespace);
    XML_SetCharacterDataHandler(m_parser, Callbacks::Text);
    XML_SetEntityDeclHandler(m_parser, Callbacks::Entity);
    // Expat 2.6, and older ones with its mends, would leave a token that a slice cuts for a final call, which
    // never comes.
    if (XML_SetReparseDeferralEnabled != nullptr) XML_SetReparseDeferralEnabled(m_parser, XML_FALSE);

    m_mostNestingEntities = MostNestingEntities();
    m_mostDefaultedUnits = MaxRepeatedUnits(inputSize);
    return parser;
}

/// A final call is faster, since Expat counts the lines after any other. It refuses an input that breaks off, so
/// what it refuses is parsed anew.
void CExpatReader::Parse(std::span<unsigned char const> input) {
    if (ParseWhole(input)) return;
    m_builder.Clear();
    CExpatReader(m_builder, m_schemaType).ParseOpen(input);
}

bool CExpatReader::ParseWhole(std::span<unsigned char const> input) {
    constexpr int kFinal = 1;
    Parser const parser = MakeParser(input.size());
    XML_Status const status = XML_Parse(m_parser, reinterpret_cast<char const*>(input.data()),
                                        static_cast<int>(input.size()), kFinal);
    if (m_failure) std::rethrow_exception(m_failure);
    return status != XML_STATUS_ERROR;
}

void CExpatReader::ParseOpen(std::span<unsigned char const> input) {
    Parser const parser = MakeParser(input.size());
    bool const parsed = ParseInSlices(input);
    if (m_failure) std::rethrow_exception(m_failure);
    if (!parsed) {
        throw CBxException(FormatString(u"%s at line %d",
                                        FromUtf8(XML_ErrorString(XML_GetErrorCode(m_parser))).c_str(),
                                        static_cast<int>(XML_GetCurrentLineNumber(m_parser))));
    }
    // Of elements that the input breaks off in.
    if (m_hasSurrogates) ThrowIfUnpairedSurrogate(m_builder.AllOpenText());
}

/// Expat copies what it is given, so it gets the input in slices. It scans a token that is not complete anew
/// with the next slice, so slices double while tokens outgrow them.
bool CExpatReader::ParseInSlices(std::span<unsigned char const> input) {
    constexpr int kNotFinal = 0;  // so that an input that ends inside an element is no error
    std::size_t slice = 64 * 1024;
    for (std::size_t parsed = 0; parsed < input.size();) {
        auto const octets = input.subspan(parsed, std::min(slice, input.size() - parsed));
        if (XML_Parse(m_parser, reinterpret_cast<char const*>(octets.data()), static_cast<int>(octets.size()),
                      kNotFinal) == XML_STATUS_ERROR) {
            return false;
        }
        parsed += octets.size();
        std::size_t const scanned =
            static_cast<std::size_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(m_parser), 0));
        if (parsed - scanned > slice / 2) slice *= 2;
    }
    return true;
}

CXmlName const& CExpatReader::SplitName(std::u16string_view expanded) {
    // A name is mostly in the namespace of the one before it, which is compared faster than the separator is
    // found.
    std::size_t separator = m_lastNamespace.size();
    bool const sameNamespace = separator < expanded.size() && expanded[separator] == kSeparator &&
                               Equal(expanded.substr(0, separator), m_lastNamespace);
    if (!sameNamespace) separator = expanded.find(kSeparator);
    if (separator == expanded.npos) return m_builder.Names().Intern({}, expanded);
    CXmlName const& name =
        m_builder.Names().Intern(expanded.substr(0, separator), expanded.substr(separator + 1));
    m_lastNamespace = name.m_namespaceUri;
    return name;
}

void CExpatReader::StartElement(char16_t const* name, char16_t const* const* attributes) {
    CXmlName const& elementName = SplitName(name);
    CXmlElement* const element = m_builder.AddElement(elementName);
    std::size_t count = 0;
    while (attributes[2 * count] != nullptr) ++count;
    m_builder.ReserveElementAttributes(element, count);
    auto const specified = static_cast<std::size_t>(XML_GetSpecifiedAttributeCount(m_parser)) / 2;
    for (std::size_t i = 0; i < count; ++i) {
        std::u16string_view const value = attributes[2 * i + 1];
        if (!IsPlain(value)) ThrowIfUnpairedSurrogate(value);
        if (i >= specified) CountDefaulted(value);
        m_builder.AddElementAttribute(element, SplitName(attributes[2 * i]), m_builder.Texts().Add(value));
    }
}

void CExpatReader::CountDefaulted(std::u16string_view value) {
    m_defaultedUnits += value.size() + kUnitsOfDefaultedAttribute;
    if (m_defaultedUnits <= m_mostDefaultedUnits) return;
    throw CBxException(
        u"The document type adds more attributes to the elements than a document of this size may have");
}

void CExpatReader::EndElement() {
    if (!m_builder.HasOpenElement()) return;
    if (m_hasSurrogates) ThrowIfUnpairedSurrogate(m_builder.OpenText());
    m_builder.CloseElement();
}

void CExpatReader::DeclareNamespace(char16_t const* prefix, char16_t const* namespaceUri) {
    ThrowIfNamespaceTooLong(TextOf(namespaceUri));
    // No prefix is the default namespace; no URI is xmlns="".
    CNameTable& names = m_builder.Names();
    m_builder.DeclareNamespace(names.InternText(TextOf(prefix)), names.InternText(TextOf(namespaceUri)));
}

void CExpatReader::AddText(std::u16string_view text) {
    if (text.empty() || !m_builder.HasOpenElement()) return;
    if (IsPlain(text)) {
        m_builder.AppendText(text);
        return;
    }
    m_hasSurrogates |= HasSurrogate(text);
    m_builder.AppendTextExcludingCR(text);
}

void CExpatReader::DeclareEntity(std::u16string_view value) {
    if (value.find(u'&') == value.npos || ++m_nestingEntities <= m_mostNestingEntities) return;
    throw CBxException(
        FormatString(u"More than %d entities refer to others, which is the limit", m_mostNestingEntities));
}

}  // namespace BxXmlLib5
