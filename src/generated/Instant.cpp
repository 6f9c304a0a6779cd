#include "generated/Instant.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5::Generated {

std::int64_t NumberOf(std::u16string_view digits, std::u16string_view literal) {
    digits.remove_prefix(std::min(digits.find_first_not_of(u'0'), digits.size()));
    if (digits.size() > kMostDigits) {
        throw CBxInvalidValueException(FormatString(u"The value [%s] has a number of more than %d digits",
                                                    wstring(literal).c_str(), static_cast<int>(kMostDigits)));
    }
    std::int64_t number = 0;
    for (char16_t const digit : digits) number = number * 10 + (digit - u'0');
    return number;
}

std::uint16_t Thousandths(std::u16string_view fraction, std::size_t from) {
    if (fraction.size() <= from) return 0;
    int number = 0;
    for (std::size_t i = from; i < from + 3; ++i) {
        number = number * 10 + (i < fraction.size() ? fraction[i] - u'0' : 0);
    }
    return static_cast<std::uint16_t>(number);
}

}  // namespace BxXmlLib5::Generated
