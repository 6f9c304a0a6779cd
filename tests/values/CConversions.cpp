#include "BxXmlLib5/values/CConversions.h"

#include <bit>
#include <cstdlib>
#include <limits>

#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
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
using Reader = std::string (*)(wstring const& text, C::WhitespaceRule rule);

template <auto FromString, auto ToString>
std::string Read(wstring const& text, C::WhitespaceRule rule) {
    std::string result;
    std::string const failure = BxTest::Thrown([&] { result = ToUtf8(ToString(FromString(text, rule))); });
    return failure == "nothing" ? result : failure;
}

constexpr Reader i1 = Read<&C::i1FromString, &C::i1ToString>;
constexpr Reader i2 = Read<&C::i2FromString, &C::i2ToString>;
constexpr Reader i4 = Read<&C::i4FromString, &C::i4ToString>;
constexpr Reader i8 = Read<&C::i8FromString, &C::i8ToString>;
constexpr Reader ui1 = Read<&C::ui1FromString, &C::ui1ToString>;
constexpr Reader ui2 = Read<&C::ui2FromString, &C::ui2ToString>;
constexpr Reader ui4 = Read<&C::ui4FromString, &C::ui4ToString>;
constexpr Reader ui8 = Read<&C::ui8FromString, &C::ui8ToString>;
constexpr Reader r8 = Read<&C::r8FromString, [](double value) { return C::r8ToString(value, nullptr); }>;
constexpr Reader hexBinary = Read<&C::hexBinaryFromString, &C::hexBinaryToString>;
constexpr Reader base64Binary = Read<&C::base64BinaryFromString, &C::base64BinaryToString>;
constexpr Reader duration = Read<&C::durationFromString, &C::durationToString>;
constexpr Reader date = Read<&C::dateFromString, &C::dateToString>;
constexpr Reader yearMonth = Read<&C::yearMonthFromString, &C::yearMonthToString>;
constexpr Reader monthDay = Read<&C::monthDayFromString, &C::monthDayToString>;
constexpr Reader datetime = Read<&C::datetimeFromString, &C::datetimeToString>;
constexpr Reader time = Read<&C::timeFromString, &C::timeToString>;
constexpr Reader year = Read<&C::yearFromString, &C::yearToString>;
constexpr Reader month = Read<&C::monthFromString, &C::monthToString>;
constexpr Reader day = Read<&C::dayFromString, &C::dayToString>;
constexpr Reader decimal =
    Read<&C::decimalFromString, [](CDecimal const& value) { return C::decimalToString(value, nullptr); }>;
constexpr Reader integer = Read<&C::integerFromString, &C::integerToString>;
constexpr Reader boolean = Read<&C::booleanFromString, &C::booleanToString>;
constexpr Reader character = Read<&C::charFromString, &C::charToString>;
constexpr Reader string = Read<&C::stringFromString, &C::stringToString>;

std::string const kInvalid = "CBxInvalidValueException: ";

/// Each text, and the text of its value or the failure.
void ExpectRead(Reader read, C::WhitespaceRule rule,
                std::initializer_list<std::pair<wstring, std::string>> rows) {
    for (auto const& [text, expected] : rows)
        EXPECT_EQ(read(text, rule), expected) << testing::PrintToString(text) << rule;
}

/// @param message with %s for the text, which is shown as far as a zero unit
std::string Refusal(std::string const& message, wstring const& text) {
    std::string result = kInvalid + message;
    return result.replace(result.find("%s"), 2, ToUtf8(text.c_str()));
}

void ExpectRefused(Reader read, std::string const& message, std::initializer_list<wstring> texts) {
    for (wstring const& text : texts) ExpectRead(read, kPreserve, {{text, Refusal(message, text)}});
}

std::string TooLarge(std::string const& kind) {
    return "The value [%s] is to large to fit in a " + kind;
}
std::string NoNumber(std::string const& kind) {
    return "The value [%s] can not be converted to a " + kind;
}

TEST(CConversions, IntegersReachTheirLimits) {
    struct {
        Reader read;
        std::string kind;
        wstring least, most, tooSmall, tooLarge;
    } const rows[] = {
        {i1, "i1", u"-128", u"127", u"-129", u"128"},
        {i2, "i2", u"-32768", u"32767", u"-32769", u"32768"},
        {i4, "i4", u"-2147483648", u"2147483647", u"-2147483649", u"2147483648"},
        {i8, "i8", u"-9223372036854775808", u"9223372036854775807", u"-9223372036854775809",
         u"9223372036854775808"},
        {ui1, "ui1", u"0", u"255", u"-1", u"256"},
        {ui2, "ui2", u"0", u"65535", u"-1", u"65536"},
        {ui4, "ui4", u"0", u"4294967295", u"-4294967296", u"4294967296"},
        {ui8, "ui8", u"0", u"18446744073709551615", u"-18446744073709551616", u"18446744073709551616"},
    };
    for (auto const& row : rows) {
        ExpectRead(row.read, kCollapse, {{row.least, ToUtf8(row.least)}, {row.most, ToUtf8(row.most)}});
        ExpectRefused(row.read, TooLarge(row.kind), {row.tooSmall, row.tooLarge});
    }
    ExpectRefused(ui8, TooLarge("ui8"), {u"18446744073709551620", u"99999999999999999999999"});
    // A minus wraps what is unsigned, in the wider form.
    ExpectRead(ui1, kCollapse, {{u"-4294967295", "1"}});
    ExpectRead(ui4, kCollapse, {{u"-1", "4294967295"}, {u"-4294967295", "1"}});
    ExpectRead(ui8, kCollapse, {{u"-1", "18446744073709551615"}});
    ExpectRead(i8, kCollapse, {{u"000000000000000000000000000000012", "12"}});
}

TEST(CConversions, IntegersHaveWhitespaceSignAndDigits) {
    ExpectRead(i4, kPreserve, {{u"", "0"}, {u" \t\n+12", "12"}, {u"1\r2\r", "12"}});
    ExpectRead(i4, kReplace, {{u"\n12", "12"}, {u"12\t", Refusal(NoNumber("i4"), u"12 ")}});
    ExpectRead(i4, kCollapse, {{u" \t\r\n", "0"}, {u"12 ", "12"}});
    ExpectRefused(i4, NoNumber("i4"),
                  {u" ", u"12 ", u"\u00A012", u"\v12", u"-", u"+-1", u"- 1", u"0x10", u"1.0", u"\u0661\uFF11",
                   wstring(u"12\0", 3), wstring(u"\0", 1)});
    for (auto const& [read, kind] : {std::pair{i8, "i8"}, {ui4, "ui4"}, {ui8, "ui8"}})
        ExpectRefused(read, NoNumber(kind), {u"x"});
}

TEST(CConversions, IntegersReportTheWiderFormThenTheRange) {
    ExpectRead(i4, kCollapse, {{u" 99999999999x ", Refusal(TooLarge("i4"), u"99999999999x")}});
    ExpectRead(i4, kCollapse, {{u" 12  x ", Refusal(NoNumber("i4"), u"12 x")}});
    ExpectRead(i1, kCollapse, {{u" 99999999999 ", Refusal(TooLarge("i4"), u"99999999999")}});
    ExpectRead(i1, kCollapse, {{u" 128 ", Refusal(TooLarge("i1"), u" 128 ")}});
    ExpectRefused(ui2, TooLarge("ui4"), {u"99999999999"});
    ExpectRefused(i2, NoNumber("i4"), {u"128 x"});
    ExpectRefused(ui1, NoNumber("ui4"), {u"a"});
}

TEST(CConversions, FloatsHaveAPlainForm) {
    ExpectRead(r8, kPreserve, {{u"", "0"}, {u" \n+1.5", "1.5"}});
    ExpectRead(r8, kCollapse, {{u" -1.5 ", "-1.5"}, {u" 1  x", Refusal(NoNumber("r8"), u"1 x")}});
    ExpectRefused(r8, NoNumber("r8"),
                  {u" ", u"1.5 ", u".", u"-.e1", u"e1", u"1e", u"1e+", u"1e1.5", u"1.2.3", u"1,5", u"1d5",
                   u"0x1p3", u"INF", u"inf", u"NaN", u"1\u0135", wstring(u"1\0", 2)});
    ExpectRefused(Read<&C::r4FromString, [](float) { return wstring(); }>, NoNumber("r8"), {u"x"});
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
          "-0.66666666666666663 -0.6666667 -0.6666666666666666", "1e16 1e+16 1e+16", "-0 -0 -0",
          "inf INF INF", "-inf -INF -INF", "-nan NaN NaN"}) {
        double const value = std::strtod(row, nullptr);
        EXPECT_EQ(ToUtf8(C::r4ToString(static_cast<float>(value), nullptr)), Words(row)[1]);
        EXPECT_EQ(ToUtf8(C::r8ToString(value, nullptr)), Words(row)[2]);
    }
    EXPECT_EQ(C::r4ToString(0.1f, u"%.17g"), u"0.10000000149011612");
    EXPECT_EQ(C::r8ToString(2.5, u"100%% of %+08.2lE!"), u"100% of +2.50E+00!");
    EXPECT_EQ(C::r8ToString(2.5, u"% -#09.3g|"), u" 2.50    |");
    EXPECT_EQ(C::r8ToString(1, u"%.40f"), u"1." + wstring(40, u'0'));
    EXPECT_EQ(C::r8ToString(std::numeric_limits<double>::infinity(), u"%9.2f"), u"INF");
}

TEST(CConversions, AFormatTakesOneDouble) {
    for (std::string const format :
         {"",     "2",    "%",    "%%",  "%d",   "%s",   "%n", "%Lf", "%llf", "%hf", "%*f",
          "%.*f", "%f%f", "%f %", "%%f", "%1$f", "%5%f", "%a", "%c",  "%f%s", "%.2", "%..2f"}) {
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
    ExpectRead(character, kPreserve, {{u" ", " "}, {u"x\r", "x"}});
    ExpectRead(character, kCollapse, {{u" x ", "x"}, {u" x  y ", Refusal(noChar, u"x y")}});
    ExpectRefused(character, noChar, {u"", u"\U0001F600"});
    ExpectRead(string, kReplace, {{u" a\r\n ", " a  "}});
    ExpectRead(boolean, kCollapse,
               {{u" tRue ", "true"}, {u"1", "true"}, {u"fALSE", "false"}, {u"0", "false"}});
    ExpectRead(boolean, kCollapse, {{u" tru ", Refusal(noBoolean, u" tru ")}});
    ExpectRefused(boolean, noBoolean,
                  {u" true", u"truex", u"", u"01", u"\u0131", u"fal\u017Fe", wstring(u"true\0", 5)});
}

TEST(CConversions, ValueClassesReadTheCleanedText) {
    std::string const noDecimal =
        "The string representing a Decimal, contained an invalid char at position 1 [%s]";
    std::string const noDate = "Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]";
    std::string const noTime = "Invalid XSD Time [%s] expected hh:mm:ss[.ff]";
    std::string const noHex = "CBxException: Invalid char in hex string ";
    ExpectRead(hexBinary, kCollapse, {{u" 0aFF ", "0AFF"}});
    ExpectRead(base64Binary, kCollapse, {{u" YWJj ", "YWJj"}});
    ExpectRead(duration, kCollapse, {{u" P1M ", "P1M"}});
    ExpectRead(datetime, kCollapse, {{u" 2001-02-03T04:05:06 ", "2001-02-03T04:05:06"}});
    ExpectRead(decimal, kCollapse, {{u" 1.50 ", "1.5"}});
    ExpectRead(integer, kCollapse, {{u" 00012 ", "12"}, {u"1e3", "1000"}});
    ExpectRead(hexBinary, kPreserve, {{u"0a ff", noHex + "[ ]"}, {wstring(u"0a\0\0", 4), noHex + "[?]"}});
    ExpectRead(base64Binary, kPreserve, {{u" YWJj", ""}, {wstring(u"YWJj\0", 5), ""}});
    ExpectRead(time, kCollapse, {{u" 04:05:06 ", "04:05:06"}, {u"04:05:06 and more", "04:05:06"}});
    // A unit of value 0 is no end of a text.
    ExpectRefused(duration, "Invalid XSD Duration [%s] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]",
                  {wstring(u"P1M\0", 4)});
    ExpectRefused(date, noDate, {u"2001-02-03 ", wstring(u"2001-02-03\0", 11), wstring(u"--02\0\0", 6)});
    ExpectRefused(time, noTime, {wstring(u"04:05:06\0", 9), wstring(u"04:05:06Z\0", 10)});
    ExpectRefused(datetime, "Invalid XSD DateTime [%s]", {u"2001-02-03"});
    ExpectRefused(decimal, noDecimal, {u"1x", wstring(u"1\0", 2)});
    ExpectRefused(integer, noDecimal, {wstring(u"1\0", 2)});
}

TEST(CConversions, YearsMonthsAndDaysArePlainNumbers) {
    std::string const failed = "CBxInvalidStateException: Failed to Get";
    ExpectRead(year, kCollapse, {{u" 0005+14:00 ", "5"}, {u"2001-02-03", "2001"}, {u"-0001", "65535"}});
    ExpectRead(month, kCollapse, {{u" --05 ", "--05"}, {u"2001-12-03", "--12"}});
    ExpectRead(day, kCollapse, {{u" ---07Z ", "---07"}, {u"--12-31", "---31"}});
    ExpectRead(year, kCollapse, {{u"--02-03", failed + "Year. Invalid Date Type: gMonthDay."}});
    ExpectRead(month, kCollapse, {{u"2001", failed + "Month. Invalid Date Type: gYear."}});
    ExpectRead(day, kCollapse, {{u"2001-12", failed + "Day. Invalid Date Type: gYearMonth."}});
}

TEST(CConversions, TheFormatOfADecimalCountsDigits) {
    CDecimal const value(u"12.625");
    for (char16_t const* const format : {u"2", u" \t+2x"})
        EXPECT_EQ(C::decimalToString(value, format), u"12.63");
    for (char16_t const* const format : {u"", u"x"}) EXPECT_EQ(C::decimalToString(value, format), u"13.");
    EXPECT_EQ(C::decimalToString(value, u"99999999999"), u"12.625");
    EXPECT_THROW(C::decimalToString(value, u"-1"), CBxInvalidParamException);
}

TEST(CConversions, EveryReaderAppliesTheRuleFirst) {
    for (Reader const read :
         {i1,        i2,           i4,       i8,      ui1,       ui2,       ui4,      ui8,  r8,
          hexBinary, base64Binary, duration, date,    yearMonth, monthDay,  datetime, time, year,
          month,     day,          decimal,  integer, boolean,   character, string})
        EXPECT_EQ(read(u"1", C::WhitespaceRule(3)), "CBxException: Unknown WhitespaceRule");
}

}  // namespace
