#include "values/DigitText.h"

#include <algorithm>
#include <iterator>

#include "platform/TextView.h"

namespace BxXmlLib5 {

Fraction TakeFraction(std::u16string_view& text) {
    Fraction fraction;
    for (std::uint16_t* const part : {&fraction.milli, &fraction.micro, &fraction.nano}) {
        for (int weight : {100, 10, 1}) {
            if (text.empty() || !IsDigit(text[0])) return fraction;
            *part = static_cast<std::uint16_t>(*part + (text[0] - u'0') * weight);
            text.remove_prefix(1);
        }
    }
    return fraction;
}

void CDigitText::PutNumber(std::uint64_t number, std::size_t width) {
    if (width == 2 && number < 100) {
        std::memcpy(m_units + m_length, &kTwoDigits[2 * number], 2 * sizeof(char16_t));
        m_length += 2;
        return;
    }
    char16_t digits[20];
    char16_t* const first = PutDigits(std::end(digits), number, width);
    auto const count = static_cast<std::size_t>(std::end(digits) - first);
    std::copy_n(first, count, m_units + m_length);
    m_length += count;
}

void CDigitText::PutFraction(Fraction const& fraction) {
    auto const [milli, micro, nano] = fraction;
    if (milli == 0 && micro == 0 && nano == 0) return;
    Put(u'.');
    PutNumber(milli, 3);
    if (micro != 0 || nano != 0) PutNumber(micro, 3);
    if (nano != 0) PutNumber(nano, 3);
    while (m_units[m_length - 1] == u'0') --m_length;
}

}  // namespace BxXmlLib5
