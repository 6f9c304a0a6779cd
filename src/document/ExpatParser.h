// Expat, with texts as the library has them.
#pragma once

#include <expat.h>

#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>

#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/platform/Text.h"
#include "document/CDocumentReader.h"

namespace BxXmlLib5 {

// Expat's wide build calls its 16-bit unit by another name than the language does.
static_assert(sizeof(XML_Char) == sizeof(char16_t) && std::is_unsigned_v<XML_Char>);

inline char16_t const* Units(XML_Char const* text) {
    return reinterpret_cast<char16_t const*>(text);
}

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ExpatParser = std::unique_ptr<XML_ParserStruct, FreeParser>;

/// Stands between namespace, local name and prefix.
inline constexpr char16_t kSeparator = u'|';

/// @param encoding null for what the input says
/// @throws std::bad_alloc
ExpatParser NewParser(char16_t const* encoding, SchemaType schemaType);

inline constexpr int kFinal = 1;
inline constexpr int kNotFinal = 0;  // so that an input that ends inside an element is no error

/// @return false if the parser failed or was stopped
bool ParsePart(XML_Parser parser, std::span<unsigned char const> octets, int isFinal);

/// @param hasMark whether the input begins with a byte order mark, for which Expat counts a column
DocumentPlace PlaceIn(XML_Parser parser, bool hasMark);

wstring MessageOf(XML_Error error, std::size_t line);

/// Throws the error of the parser.
/// @param reason why an encoding is not known
[[noreturn]] void ThrowError(XML_Parser parser, bool hasMark, wstring const& reason = {});

/// As XML 1.0, 2.11, has it. Expat does not do so where it gives markup as it stands.
void NormalizeLineEnds(wstring& text);

}  // namespace BxXmlLib5
