#include "values/NumberText.h"

#include <algorithm>
#include <string>

namespace BxXmlLib5 {

namespace {

/// The end of an exponent that starts at a position, that position if none does.
std::size_t SkipExponent(std::u16string_view text, std::size_t at) {
    if (at == text.size() || (text[at] != u'e' && text[at] != u'E')) return at;
    std::size_t digits = at + 1;
    TakeSign(text, digits);
    std::size_t const end = SkipDigits(text, digits);
    return end == digits ? at : end;
}

/// The end of digits with a point, and of an exponent, that start at a position; that position if none do.
std::size_t SkipMagnitude(std::u16string_view text, std::size_t at) {
    std::size_t const point = SkipDigits(text, at);
    std::size_t end = point;
    if (point < text.size() && text[point] == u'.') {
        end = SkipDigits(text, point + 1);
        if (end == at + 1) return at;  // the point alone
    }
    return end == at ? at : SkipExponent(text, end);
}

/// The value of a number, not 0, that std::from_chars found to be out of range: it does not say at which end.
template <std::floating_point T>
T ValueOutOfRange(std::u16string_view magnitude) {
    std::size_t const exponentAt = std::min(magnitude.find_first_of(u"eE"), magnitude.size());
    std::u16string_view const mantissa = magnitude.substr(0, exponentAt);
    auto const point = static_cast<std::int64_t>(std::min(mantissa.find(u'.'), mantissa.size()));
    auto const firstDigit = static_cast<std::int64_t>(mantissa.find_first_of(u"123456789"));
    std::int64_t exponent = 0;
    if (exponentAt < magnitude.size()) {
        exponent = ReadInteger<std::int32_t>(magnitude.substr(exponentAt + 1)).value;
    }
    return point - firstDigit + exponent > 0 ? std::numeric_limits<T>::infinity() : T(0);
}

/// The value of digits, point and exponent.
template <std::floating_point T>
T ValueOf(std::u16string_view magnitude) {
    char shortText[64];
    std::string longText;
    char* octets = shortText;
    if (magnitude.size() > sizeof shortText) {
        longText.resize(magnitude.size());
        octets = longText.data();
    }
    for (std::size_t i = 0; i < magnitude.size(); ++i) octets[i] = static_cast<char>(magnitude[i]);

    T value = 0;
    auto const result = std::from_chars(octets, octets + magnitude.size(), value);
    return result.ec == std::errc::result_out_of_range ? ValueOutOfRange<T>(magnitude) : value;
}

}  // namespace

template <std::floating_point T>
NumberAtFront<T> ReadFloating(std::u16string_view text) {
    std::size_t at = SkipWhitespace(text, 0);
    bool const negative = TakeSign(text, at);
    std::size_t const end = SkipMagnitude(text, at);
    if (end == at) return {};
    T const value = ValueOf<T>(text.substr(at, end - at));
    return {negative ? -value : value, end};
}

template NumberAtFront<float> ReadFloating(std::u16string_view text);
template NumberAtFront<double> ReadFloating(std::u16string_view text);

}  // namespace BxXmlLib5
