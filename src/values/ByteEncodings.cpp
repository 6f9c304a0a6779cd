#include "values/ByteEncodings.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/FormatString.h"
#include "values/Hex.h"
#include "values/MessageCharacter.h"

namespace BxXmlLib5 {

namespace {

using Octets = std::span<unsigned char const>;

/// @param message with one %c
[[noreturn]] void ThrowInvalidValue(char16_t const* message, unsigned char octet) {
    throw CBxException(FormatString(message, MessageCharacter(octet)));
}

template <class T>
T BigEndian(Octets octets) {
    T value = 0;
    for (unsigned char const octet : octets) value = static_cast<T>(value << 8 | octet);
    return value;
}

template <class Unsigned>
void AppendInteger(wstring& out, Octets group) {
    char digits[24];
    auto const value = static_cast<std::make_signed_t<Unsigned>>(BigEndian<Unsigned>(group));
    out.append(digits, std::to_chars(digits, std::end(digits), value).ptr);
}

void AppendNumber(wstring& out, double value, int precision) {
    if (std::isnan(value)) {
        out += u"NaN";
    } else if (std::isinf(value)) {
        out += value < 0 ? u"-INF" : u"INF";
    } else {
        char digits[32];
        auto const end =
            std::to_chars(digits, std::end(digits), value, std::chars_format::general, precision);
        out.append(digits, end.ptr);
    }
}

void AppendFloat(wstring& out, Octets group) {
    AppendNumber(out, std::bit_cast<float>(BigEndian<std::uint32_t>(group)), 7);
}

void AppendDouble(wstring& out, Octets group) {
    AppendNumber(out, std::bit_cast<double>(BigEndian<std::uint64_t>(group)), 16);
}

void AppendUuid(wstring& out, Octets group) {
    out += EncodeHex(group);
}

/// An encoding with values of one size.
struct Form {
    ByteEncoding m_encoding;
    std::size_t m_size;  // of a value, in octets
    void (*m_append)(wstring& out, Octets group);
    char16_t const* m_message;
};

constexpr Form kForms[] = {
    {be_Short, 2, AppendInteger<std::uint16_t>, u"Invalid value [%c] for SHORT byte encoding."},
    {be_Int, 4, AppendInteger<std::uint32_t>, u"Invalid value [%c] for INT byte encoding."},
    {be_Long, 8, AppendInteger<std::uint64_t>, u"Invalid value [%c] for LONG byte encoding."},
    {be_Float, 4, AppendFloat, u"Invalid value [%c] for FLOAT byte encoding."},
    {be_Double, 8, AppendDouble, u"Invalid value [%c] for DOUBLE byte encoding."},
    {be_UUID, 16, AppendUuid, u"Invalid value [%c] for UUID byte encoding."},
};

wstring RenderGroups(Octets octets, Form const& form) {
    std::size_t const rest = octets.size() % form.m_size;
    if (rest != 0) ThrowInvalidValue(form.m_message, octets[octets.size() - rest]);
    wstring text;
    for (; !octets.empty(); octets = octets.subspan(form.m_size)) {
        if (!text.empty()) text += u' ';
        form.m_append(text, octets.first(form.m_size));
    }
    return text;
}

wstring RenderBits(Octets octets) {
    constexpr std::size_t kCountBits = 4;  // ahead of the values
    std::size_t const unused = octets[0] >> kCountBits;
    std::size_t const most = octets.size() == 1 ? 8 - kCountBits : 7;
    if (unused > most) ThrowInvalidValue(u"Invalid value [%c] for BOOLEAN byte encoding.", octets[0]);
    wstring text;
    for (std::size_t bit = kCountBits; bit < octets.size() * 8 - unused; ++bit) {
        if (!text.empty()) text += u' ';
        text += (octets[bit / 8] << bit % 8 & 0x80) != 0 ? u"true" : u"false";
    }
    return text;
}

}  // namespace

wstring RenderValues(Octets octets, ByteEncoding encoding) {
    if (encoding == be_Boolean) return RenderBits(octets);
    auto const form = std::ranges::find(kForms, encoding, &Form::m_encoding);
    if (form == std::end(kForms)) throw CBxException(u"Unknown byte encoding.");
    return RenderGroups(octets, *form);
}

}  // namespace BxXmlLib5
