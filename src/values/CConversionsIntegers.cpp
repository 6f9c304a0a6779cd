#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CConversions.h"
#include "values/CleanText.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

template <class T>
T FromText(std::u16string_view text, CConversions::WhitespaceRule rule, char16_t const* tooLarge,
           char16_t const* noNumber) {
    CleanText const clean(rule, text);
    NumberAtFront<T> const number = ReadInteger<T>(clean.View());
    if (number.outOfRange || number.length != clean.View().size()) {
        char16_t const* const message = number.outOfRange ? tooLarge : noNumber;
        throw CBxInvalidValueException(FormatString(message, wstring(clean.View()).c_str()));
    }
    return number.value;
}

template <class T, class Wide>
T Narrow(Wide value, std::u16string_view text, char16_t const* tooLarge) {
    if (!std::in_range<T>(value))
        throw CBxInvalidValueException(FormatString(tooLarge, wstring(text).c_str()));
    return static_cast<T>(value);
}

}  // namespace

wstring CConversions::i1ToString(std::int8_t value) {
    return i4ToString(value);
}
wstring CConversions::i2ToString(std::int16_t value) {
    return i4ToString(value);
}
wstring CConversions::i4ToString(std::int32_t value) {
    return IntegerText(value);
}
wstring CConversions::i8ToString(std::int64_t value) {
    return IntegerText(value);
}
wstring CConversions::ui1ToString(std::uint8_t value) {
    return ui4ToString(value);
}
wstring CConversions::ui2ToString(std::uint16_t value) {
    return ui4ToString(value);
}
wstring CConversions::ui4ToString(std::uint32_t value) {
    return IntegerText(value);
}
wstring CConversions::ui8ToString(std::uint64_t value) {
    return IntegerText(value);
}

std::int32_t CConversions::i4FromString(std::u16string_view text, WhitespaceRule rule) {
    return FromText<std::int32_t>(text, rule, u"The value [%s] is to large to fit in a i4",
                                  u"The value [%s] can not be converted to a i4");
}
std::int64_t CConversions::i8FromString(std::u16string_view text, WhitespaceRule rule) {
    return FromText<std::int64_t>(text, rule, u"The value [%s] is to large to fit in a i8",
                                  u"The value [%s] can not be converted to a i8");
}
std::uint32_t CConversions::ui4FromString(std::u16string_view text, WhitespaceRule rule) {
    return FromText<std::uint32_t>(text, rule, u"The value [%s] is to large to fit in a ui4",
                                   u"The value [%s] can not be converted to a ui4");
}
std::uint64_t CConversions::ui8FromString(std::u16string_view text, WhitespaceRule rule) {
    return FromText<std::uint64_t>(text, rule, u"The value [%s] is to large to fit in a ui8",
                                   u"The value [%s] can not be converted to a ui8");
}

std::int8_t CConversions::i1FromString(std::u16string_view text, WhitespaceRule rule) {
    return Narrow<std::int8_t>(i4FromString(text, rule), text, u"The value [%s] is to large to fit in a i1");
}
std::int16_t CConversions::i2FromString(std::u16string_view text, WhitespaceRule rule) {
    return Narrow<std::int16_t>(i4FromString(text, rule), text, u"The value [%s] is to large to fit in a i2");
}
std::uint8_t CConversions::ui1FromString(std::u16string_view text, WhitespaceRule rule) {
    return Narrow<std::uint8_t>(ui4FromString(text, rule), text,
                                u"The value [%s] is to large to fit in a ui1");
}
std::uint16_t CConversions::ui2FromString(std::u16string_view text, WhitespaceRule rule) {
    return Narrow<std::uint16_t>(ui4FromString(text, rule), text,
                                 u"The value [%s] is to large to fit in a ui2");
}

}  // namespace BxXmlLib5
