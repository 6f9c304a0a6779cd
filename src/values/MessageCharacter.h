// Characters in messages.
#pragma once

namespace BxXmlLib5 {

/// The argument of a %c: the character, or "?" for a control character or half a surrogate pair, which cannot
/// be printed.
constexpr int MessageCharacter(char16_t c) {
    bool const isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    bool const isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return isControl || isSurrogate ? u'?' : c;
}

}  // namespace BxXmlLib5
