// Characters in messages.
#pragma once

namespace BxXmlLib5 {

/// The argument of a %c: the character, or "?" for U+0000, which would end the message, and for half a
/// surrogate pair, which has no UTF-8 form.
constexpr int MessageCharacter(char16_t c) {
    bool const isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return c == 0 || isSurrogate ? u'?' : c;
}

}  // namespace BxXmlLib5
