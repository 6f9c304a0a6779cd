#include "BxXmlLib5/values/CConversions.h"

#include <bit>
#include <cstdlib>
#include <limits>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/values/BxVariant.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "values/Dates.h"

namespace {

using namespace BxXmlLib5;
using BxTest::Words;
using C = CConversions;

constexpr auto kPreserve = CWhitespaceUtils::ws_Preserve;
constexpr auto kReplace = CWhitespaceUtils::ws_Replace;
constexpr auto kCollapse = CWhitespaceUtils::ws_Collapse;

/// The text of the value that a text gives, or the failure.
std::string Read(ItemType type, wstring const& text, C::WhitespaceRule rule) {
    BxVariant value;
    std::string const failure = BxTest::Thrown([&] { value.FromString(text, type, rule); });
    return failure == "nothing" ? ToUtf8(value.ToString(nullptr)) : failure;
}

std::string const kInvalid = "CBxInvalidValueException: ";

/// Each text, and the text of its value or the failure.
void ExpectRead(ItemType type, C::WhitespaceRule rule,
                std::initializer_list<std::pair<wstring, std::string>> rows) {
    for (auto const& [text, expected] : rows)
        EXPECT_EQ(Read(type, text, rule), expected) << testing::PrintToString(text) << rule;
}

/// @param message with %s for the text, which is shown as far as a zero unit
std::string Refusal(std::string const& message, wstring const& text) {
    std::string result = kInvalid + message;
    return result.replace(result.find("%s"), 2, ToUtf8(text.c_str()));
}

void ExpectRefused(ItemType type, std::string const& message, std::initializer_list<wstring> texts) {
    for (wstring const& text : texts) ExpectRead(type, kPreserve, {{text, Refusal(message, text)}});
}

std::string TooLarge(std::string const& kind) {
    return "The value [%s] is to large to fit in a " + kind;
}
std::string NoNumber(std::string const& kind) {
    return "The value [%s] can not be converted to a " + kind;
}

template <class Native>
void ExpectLimits(ItemType type, std::string const& kind) {
    CBigInteger const one(1), least(std::numeric_limits<Native>::min()),
        most(std::numeric_limits<Native>::max());
    for (CBigInteger const& value : {least, most})
        ExpectRead(type, kCollapse, {{value.ToString(), ToUtf8(value.ToString())}});
    // Small negative numbers wrap where 32 bits or more have no sign.
    bool const wraps = std::is_unsigned_v<Native> && sizeof(Native) >= 4;
    CBigInteger const below = wraps ? (most + one).GetNegative() : least - one;
    ExpectRefused(type, TooLarge(kind), {below.ToString(), (most + one).ToString()});
}

TEST(CConversions, IntegersReachTheirLimits) {
    ExpectLimits<std::int8_t>(it_i1, "i1");
    ExpectLimits<std::int16_t>(it_i2, "i2");
    ExpectLimits<std::int32_t>(it_i4, "i4");
    ExpectLimits<std::int64_t>(it_i8, "i8");
    ExpectLimits<std::uint8_t>(it_ui1, "ui1");
    ExpectLimits<std::uint16_t>(it_ui2, "ui2");
    ExpectLimits<std::uint32_t>(it_ui4, "ui4");
    ExpectLimits<std::uint64_t>(it_ui8, "ui8");
    ExpectRefused(it_ui8, TooLarge("ui8"), {u"18446744073709551620"});
    // A minus wraps what is unsigned, in the wider form.
    ExpectRead(it_ui1, kCollapse, {{u"-4294967295", "1"}});
    ExpectRead(it_ui8, kCollapse, {{u"-1", "18446744073709551615"}});
    ExpectRead(it_i8, kCollapse, {{u"000000000000000000000000000000012", "12"}});
}

TEST(CConversions, IntegersHaveWhitespaceSignAndDigits) {
    ExpectRead(it_i4, kPreserve, {{u"", "0"}, {u" \t\n+12", "12"}, {u"1\r2\r", "12"}});
    ExpectRead(it_i4, kReplace, {{u"12\t", Refusal(NoNumber("i4"), u"12 ")}});
    ExpectRead(it_i4, kCollapse, {{u" \t\r\n", "0"}, {u"12 ", "12"}});
    ExpectRefused(it_i4, NoNumber("i4"),
                  {u"12 ", u"\u00A012", u"-", u"+-1", u"- 1", u"0x10", u"\uFF11", wstring(u"12\0", 3)});
    for (auto const& [type, kind] : {std::pair{it_i8, "i8"}, {it_ui2, "ui4"}, {it_ui8, "ui8"}})
        ExpectRefused(type, NoNumber(kind), {u"x"});
}

TEST(CConversions, IntegersReportTheWiderFormThenTheRange) {
    ExpectRead(it_i4, kCollapse,
               {{u" 99999999999x ", Refusal(TooLarge("i4"), u"99999999999x")},
                {u" 12  x ", Refusal(NoNumber("i4"), u"12 x")}});
    ExpectRead(it_i1, kCollapse,
               {{u" 99999999999 ", Refusal(TooLarge("i4"), u"99999999999")},
                {u" 128 ", Refusal(TooLarge("i1"), u" 128 ")}});
    ExpectRefused(it_ui2, TooLarge("ui4"), {u"99999999999"});
}

TEST(CConversions, FloatsHaveAPlainForm) {
    ExpectRead(it_r8, kPreserve, {{u"", "0"}, {u" \n+1.5", "1.5"}});
    ExpectRead(it_r8, kCollapse, {{u" -1.5 ", "-1.5"}, {u" 1  x", Refusal(NoNumber("r8"), u"1 x")}});
    ExpectRefused(it_r4, NoNumber("r8"),
                  {u"1.5 ", u".", u"-.e1", u"1e", u"1e+", u"1e1.5", u"1.2.3", u"1d5", u"0x1p3", u"INF",
                   u"1\u0135", wstring(u"1\0", 2)});
}

TEST(CConversions, FloatsAreTheNearest) {
    // ~ for a thousand zeros
    for (std::string text : Words(
             "0.1 5. .5 -0 1e3 1.E+003 .25e-1 1.7976931348623157e308 1.7976931348623159e308 4.9e-324 2e-324 "
             "2.2250738585072011e-308 -1e-999 12E-999 -1e999 1e99999999999999999999 "
             "1E-99999999999999999999 0e99999999999999999999 1~ 0.~1 1~e-1000 0.~1e1001 1~e-1400 "
             "0.~1e+1400 0.500000000000000166533453693773481063544750213623046875~")) {
        if (auto const place = text.find('~'); place != text.npos) text.replace(place, 1, 1000, '0');
        double const value = C::r8FromString(FromUtf8(text), kPreserve);
        double const expected = std::strtod(text.c_str(), nullptr);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected)) << text;
    }
    EXPECT_EQ(C::r4FromString(u"1e39", kPreserve), std::numeric_limits<float>::infinity());
    // Just above the middle of two floats, but the middle itself once it is a double.
    EXPECT_EQ(C::r4FromString(u"1.00000005960464477540", kPreserve), 1.0f);
}

TEST(CConversions, FloatsAreWrittenByDefaultOrByFormat) {
    // Rows "value r4 r8"
    for (char const* const row :
         {"0.33333333333333331 0.3333333 0.3333333333333333", "123456789 1.234568e+08 123456789",
          "-inf -INF -INF", "inf INF INF", "nan NaN NaN"}) {
        double const value = std::strtod(row, nullptr);
        EXPECT_EQ(ToUtf8(C::r4ToString(static_cast<float>(value), nullptr)), Words(row)[1]);
        EXPECT_EQ(ToUtf8(C::r8ToString(value, nullptr)), Words(row)[2]);
    }
    EXPECT_EQ(C::r4ToString(0.1f, u"%.17g"), u"0.10000000149011612");
    EXPECT_EQ(C::r8ToString(2.5, u"100%% of %+08.2lE!"), u"100% of +2.50E+00!");
    EXPECT_EQ(C::r8ToString(2.5, u"% -#09.3g|"), u" 2.50    |");
    EXPECT_EQ(C::r8ToString(std::numeric_limits<double>::infinity(), u"%9.2f"), u"INF");
}

TEST(CConversions, AFormatTakesOneDouble) {
    for (std::string const format : {"", "%", "%%", "%s", "%Lf", "%llf", "%*f", "%.*f", "%f%f", "%f %", "%%f",
                                     "%1$f", "%5%f", "%f%s", "%.2", "%12345f", "%.12345f"}) {
        EXPECT_BX_THROW(C::r8ToString(std::numeric_limits<double>::infinity(), FromUtf8(format).c_str()),
                        CBxInvalidParamException,
                        "The format [" + format + "] is no format for one floating point number");
    }
}

TEST(CConversions, CharactersStringsAndBooleans) {
    std::string const noChar =
        "The value [%s] can not be a char as it is either empty of greater than 1 char long";
    std::string const noBoolean =
        "A Boolean Value read from an XML document was invalid [%s]. "
        "Valid values are 'true', 'false', '1', or '0'";
    ExpectRead(it_char, kPreserve, {{u" ", " "}, {u"x\r", "x"}});
    ExpectRead(it_char, kCollapse, {{u" x  y ", Refusal(noChar, u"x y")}});
    ExpectRefused(it_char, noChar, {u"", u"\U0001F600"});
    ExpectRead(it_string, kReplace, {{u" a\r\n ", " a  "}});
    ExpectRead(it_boolean, kCollapse,
               {{u" tRZe ", Refusal(noBoolean, u" tRZe ")},
                {u" tRUe ", "true"},
                {u"1", "true"},
                {u"fALSE", "false"},
                {u"0", "false"}});
    ExpectRefused(it_boolean, noBoolean, {u"truex", u"", u"01", u"fal\u017Fe", wstring(u"true\0", 5)});
}

TEST(CConversions, AUnitOfValue0IsNoEndOfAText) {
    std::pair<ItemType, wstring> const rows[] = {
        {it_duration, wstring(u"P1M\0", 4)},    {it_date, wstring(u"2001-02-03\0", 11)},
        {it_date, wstring(u"--02\0\0", 6)},     {it_time, wstring(u"04:05:06\0", 9)},
        {it_time, wstring(u"04:05:06Z\0", 10)}, {it_decimal, wstring(u"1\0", 2)},
        {it_integer, wstring(u"1\0", 2)}};
    for (auto const& [type, text] : rows)
        EXPECT_EQ(Read(type, text, kPreserve).find(kInvalid), 0u) << testing::PrintToString(text);
}

TEST(CConversions, YearsMonthsAndDaysAreNumbers) {
    EXPECT_EQ(C::yearToString(5) + C::monthToString(5) + C::dayToString(7), u"5--05---07");
}

TEST(CConversions, TheFormatOfADecimalCountsDigits) {
    CDecimal const value(u"12.625");
    EXPECT_EQ(C::decimalToString(value, u" \t+2x"), u"12.63");
    EXPECT_EQ(C::decimalToString(value, u"x"), u"13.");
    EXPECT_EQ(C::decimalToString(value, u"99999999999"), u"12.625");
    EXPECT_THROW(C::decimalToString(value, u"-1"), CBxInvalidParamException);
}

}  // namespace
