#include "values/ByteEncodings.h"

#include <algorithm>
#include <bit>
#include <iterator>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CConversions.h"
#include "values/Hex.h"
#include "values/MessageCharacter.h"

namespace BxXmlLib5 {

namespace {

using Octets = std::span<unsigned char const>;

/// @param message with one %c
[[noreturn]] void ThrowInvalidValue(char16_t const* message, unsigned char octet) {
    throw CBxException(FormatString(message, MessageCharacter(octet)));
}

/// @tparam Bits unsigned, of the size of T
template <class T, class Bits>
T BigEndian(Octets octets) {
    Bits bits = 0;
    for (unsigned char const octet : octets) bits = static_cast<Bits>(bits << 8 | octet);
    return std::bit_cast<T>(bits);
}

wstring ShortText(Octets group) {
    return CConversions::i2ToString(BigEndian<std::int16_t, std::uint16_t>(group));
}
wstring IntText(Octets group) {
    return CConversions::i4ToString(BigEndian<std::int32_t, std::uint32_t>(group));
}
wstring LongText(Octets group) {
    return CConversions::i8ToString(BigEndian<std::int64_t, std::uint64_t>(group));
}
wstring FloatText(Octets group) {
    return CConversions::r4ToString(BigEndian<float, std::uint32_t>(group), nullptr);
}
wstring DoubleText(Octets group) {
    return CConversions::r8ToString(BigEndian<double, std::uint64_t>(group), nullptr);
}

/// An encoding with values of one size.
struct Form {
    ByteEncoding m_encoding;
    std::size_t m_size;  // of a value, in octets
    wstring (*m_text)(Octets group);
    char16_t const* m_message;
};

constexpr Form kForms[] = {
    {be_Short, 2, ShortText, u"Invalid value [%c] for SHORT byte encoding."},
    {be_Int, 4, IntText, u"Invalid value [%c] for INT byte encoding."},
    {be_Long, 8, LongText, u"Invalid value [%c] for LONG byte encoding."},
    {be_Float, 4, FloatText, u"Invalid value [%c] for FLOAT byte encoding."},
    {be_Double, 8, DoubleText, u"Invalid value [%c] for DOUBLE byte encoding."},
    {be_UUID, 16, EncodeHex, u"Invalid value [%c] for UUID byte encoding."},
};

wstring RenderGroups(Octets octets, Form const& form) {
    std::size_t const rest = octets.size() % form.m_size;
    if (rest != 0) ThrowInvalidValue(form.m_message, octets[octets.size() - rest]);
    wstring text;
    for (; !octets.empty(); octets = octets.subspan(form.m_size)) {
        if (!text.empty()) text += u' ';
        text += form.m_text(octets.first(form.m_size));
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
