// The conversions of printf formats.
#pragma once

#include <string_view>

namespace BxXmlLib5 {

/// What stands behind a percent sign: flags, width, precision and size of a conversion, and its letter.
struct FormatSpec {
    enum class Size { Plain, Short, Long, Bits64, LongDouble };

    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zeros = false;
    int width = 0;
    int precision = -1;  // -1 for none
    Size size = Size::Plain;
    char16_t letter = u'\0';  // 0 if the format ends before it
};

/// Takes a conversion from the front of what is left of a format. Numbers above INT_MAX count as that.
FormatSpec TakeFormatSpec(std::u16string_view& rest);

}  // namespace BxXmlLib5
