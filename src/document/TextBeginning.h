// What the first octets of an XML text say.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "document/ExpatParser.h"

namespace BxXmlLib5 {

bool HasByteOrderMark(std::span<unsigned char const> input);

/// The octets of an XML declaration, if there is one, and at most as many as a reader looks ahead.
std::span<unsigned char const> DeclarationOf(std::span<unsigned char const> beginning);

/// Whether an encoding has that name; case does not matter.
/// @param name in capitals
bool IsNamed(std::u16string_view encoding, std::u16string_view name);

/// Where text in UTF-8 goes on behind its byte order mark and its XML declaration; nothing for other encodings, and where
/// the declaration matters: a document that stands alone may refer to entities declared behind what is not read.
/// @param beginning of a text that is neither UTF-16 nor UTF-32
std::optional<std::size_t> BehindDeclaration(XML_Parser parser, std::span<unsigned char const> beginning);

}  // namespace BxXmlLib5
