#include "document/ExpatParser.h"

// Weak, since it depends on the Expat that the process loads, not on the one that was there when this was
// compiled.
extern "C" XML_Bool XMLCALL XML_SetReparseDeferralEnabled(XML_Parser parser, XML_Bool enabled)
    __attribute__((weak));

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string_view>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/KeyedHash.h"
#include "platform/LargePages.h"

namespace BxXmlLib5 {

namespace {

constexpr std::string_view kSaltOfParsers = "parsers";

void* Preferred(void* memory, std::size_t octets) {
    if (octets >= kLargePage && memory != nullptr) PreferLargePagesWithin(memory, octets);
    return memory;
}
void* Allocate(std::size_t octets) {
    return Preferred(std::malloc(octets), octets);
}
void* Reallocate(void* memory, std::size_t octets) {
    return Preferred(std::realloc(memory, octets), octets);
}

/// Expat keeps a copy of an input that it gets as a whole, which takes a fault for each page.
constexpr XML_Memory_Handling_Suite kMemory{&Allocate, &Reallocate, &std::free};
constexpr XML_Char kSeparators[] = {kSeparator, 0};

}  // namespace

ExpatParser NewParser(char16_t const* encoding, SchemaType schemaType) {
    auto const* const name = reinterpret_cast<XML_Char const*>(encoding);
    ExpatParser parser(
        XML_ParserCreate_MM(name, &kMemory, schemaType == st_NoNamespaces ? nullptr : kSeparators));
    if (!parser) throw std::bad_alloc();
    // Without one, Expat asks the kernel for a number for each parser. That of the process is as unknown to
    // others.
    XML_SetHashSalt(parser.get(),
                    static_cast<unsigned long>(KeyedHash(kSaltOfParsers.data(), kSaltOfParsers.size())));
    // Expat 2.6, and older ones with its mends, would leave a token that a slice cuts for a final call, which
    // an input that may break off does not have.
    if (XML_SetReparseDeferralEnabled != nullptr) XML_SetReparseDeferralEnabled(parser.get(), XML_FALSE);
    return parser;
}

bool ParsePart(XML_Parser parser, std::span<unsigned char const> octets, int isFinal) {
    return XML_Parse(parser, reinterpret_cast<char const*>(octets.data()), static_cast<int>(octets.size()),
                     isFinal) != XML_STATUS_ERROR;
}

DocumentPlace PlaceIn(XML_Parser parser, bool hasMark) {
    std::size_t const line = XML_GetCurrentLineNumber(parser);
    std::size_t const before = XML_GetCurrentColumnNumber(parser);
    auto const index = std::max<XML_Index>(XML_GetCurrentByteIndex(parser), 0);
    return {line, hasMark && line == 1 && before > 0 ? before : before + 1,
            static_cast<std::uint64_t>(index)};
}

wstring MessageOf(XML_Error error, std::size_t line) {
    return FormatString(u"%s at line %d", FromUtf8(XML_ErrorString(error)).c_str(), static_cast<int>(line));
}

void ThrowError(XML_Parser parser, bool hasMark, wstring const& reason) {
    XML_Error const error = XML_GetErrorCode(parser);
    DocumentPlace const place = PlaceIn(parser, hasMark);
    wstring const message = MessageOf(error, place.m_line);
    CBxException failure = error == XML_ERROR_UNKNOWN_ENCODING && !reason.empty()
                               ? CBxException(message, CBxException(reason))
                               : CBxException(message);
    failure.SetLocation(CBxLocation({}, place.m_line, place.m_column));
    throw failure;
}

void NormalizeLineEnds(wstring& text) {
    auto to = text.begin();
    for (auto from = text.begin(); from != text.end(); ++from) {
        bool const isInPair = *from == u'\r' && from + 1 != text.end() && from[1] == u'\n';
        if (!isInPair) *to++ = *from == u'\r' ? u'\n' : *from;
    }
    text.erase(to, text.end());
}

}  // namespace BxXmlLib5
