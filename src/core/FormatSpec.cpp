#include "core/FormatSpec.h"

#include <algorithm>
#include <climits>
#include <cstdint>

#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

bool Skip(std::u16string_view& rest, std::u16string_view wanted) {
    bool const found = rest.starts_with(wanted);
    if (found) rest.remove_prefix(wanted.size());
    return found;
}

bool SkipFlag(std::u16string_view& rest, FormatSpec& spec) {
    if (Skip(rest, u"-")) return spec.left = true;
    if (Skip(rest, u"+")) return spec.plus = true;
    if (Skip(rest, u" ")) return spec.blank = true;
    if (Skip(rest, u"#")) return spec.alternate = true;
    if (Skip(rest, u"0")) return spec.zeros = true;
    return false;
}

int TakeNumber(std::u16string_view& rest) {
    std::int64_t number = 0;
    for (; !rest.empty() && IsDigit(rest[0]); rest.remove_prefix(1)) {
        number = std::min<std::int64_t>(number * 10 + (rest[0] - u'0'), INT_MAX);
    }
    return static_cast<int>(number);
}

bool SkipSize(std::u16string_view& rest, FormatSpec& spec) {
    using Size = FormatSpec::Size;
    if (Skip(rest, u"I64") || Skip(rest, u"ll")) return spec.size = Size::Bits64, true;
    if (Skip(rest, u"h")) return spec.size = Size::Short, true;
    if (Skip(rest, u"l")) return spec.size = Size::Long, true;
    if (Skip(rest, u"L")) return spec.size = Size::LongDouble, true;
    return Skip(rest, u"F") || Skip(rest, u"N");
}

}  // namespace

FormatSpec TakeFormatSpec(std::u16string_view& rest) {
    FormatSpec spec;
    while (SkipFlag(rest, spec)) continue;
    spec.width = TakeNumber(rest);
    if (Skip(rest, u".")) spec.precision = TakeNumber(rest);
    while (SkipSize(rest, spec)) continue;
    if (rest.empty()) return spec;
    spec.letter = rest[0];
    rest.remove_prefix(1);
    return spec;
}

}  // namespace BxXmlLib5
