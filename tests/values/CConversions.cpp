#include "BxXmlLib5/values/CConversions.h"

#include <cmath>
#include <limits>

#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
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

struct Row {
    Reader read;
    C::WhitespaceRule rule;
    wstring text;
    std::string expected;
};

template <std::size_t N>
void ExpectEach(Row const (&rows)[N]) {
    for (Row const& row : rows)
        EXPECT_EQ(row.read(row.text, row.rule), row.expected) << testing::PrintToString(row.text) << row.rule;
}

std::string const kInvalid = "CBxInvalidValueException: ";

std::string TooLarge(std::string const& text, std::string const& kind) {
    return kInvalid + "The value [" + text + "] is to large to fit in a " + kind;
}
std::string NoNumber(std::string const& text, std::string const& kind) {
    return kInvalid + "The value [" + text + "] can not be converted to a " + kind;
}

TEST(CConversions, IntegersReachTheirLimits) {
    ExpectEach({
        {i1, kCollapse, u"-128", "-128"},
        {i1, kCollapse, u"127", "127"},
        {i1, kCollapse, u"128", TooLarge("128", "i1")},
        {i1, kCollapse, u"-129", TooLarge("-129", "i1")},
        {i2, kCollapse, u"-32768", "-32768"},
        {i2, kCollapse, u"32767", "32767"},
        {i2, kCollapse, u"32768", TooLarge("32768", "i2")},
        {i2, kCollapse, u"-32769", TooLarge("-32769", "i2")},
        {i4, kCollapse, u"-2147483648", "-2147483648"},
        {i4, kCollapse, u"2147483647", "2147483647"},
        {i4, kCollapse, u"2147483648", TooLarge("2147483648", "i4")},
        {i4, kCollapse, u"-2147483649", TooLarge("-2147483649", "i4")},
        {i8, kCollapse, u"-9223372036854775808", "-9223372036854775808"},
        {i8, kCollapse, u"9223372036854775807", "9223372036854775807"},
        {i8, kCollapse, u"9223372036854775808", TooLarge("9223372036854775808", "i8")},
        {i8, kCollapse, u"-9223372036854775809", TooLarge("-9223372036854775809", "i8")},
        {ui1, kCollapse, u"255", "255"},
        {ui1, kCollapse, u"256", TooLarge("256", "ui1")},
        {ui1, kCollapse, u"-1", TooLarge("-1", "ui1")},
        {ui1, kCollapse, u"-4294967295", "1"},
        {ui2, kCollapse, u"65535", "65535"},
        {ui2, kCollapse, u"65536", TooLarge("65536", "ui2")},
        {ui4, kCollapse, u"4294967295", "4294967295"},
        {ui4, kCollapse, u"4294967296", TooLarge("4294967296", "ui4")},
        {ui4, kCollapse, u"-1", "4294967295"},
        {ui4, kCollapse, u"-4294967295", "1"},
        {ui4, kCollapse, u"-4294967296", TooLarge("-4294967296", "ui4")},
        {ui8, kCollapse, u"18446744073709551615", "18446744073709551615"},
        {ui8, kCollapse, u"18446744073709551616", TooLarge("18446744073709551616", "ui8")},
        {ui8, kCollapse, u"18446744073709551620", TooLarge("18446744073709551620", "ui8")},
        {ui8, kCollapse, u"99999999999999999999999", TooLarge("99999999999999999999999", "ui8")},
        {ui8, kCollapse, u"-1", "18446744073709551615"},
        {i8, kCollapse, u"000000000000000000000000000000012", "12"},
    });
}

TEST(CConversions, IntegersHaveWhitespaceSignAndDigits) {
    ExpectEach({
        {i4, kPreserve, u"", "0"},
        {i4, kCollapse, u" \t\r\n", "0"},
        {i4, kReplace, u" ", NoNumber(" ", "i4")},
        {i4, kPreserve, u" ", NoNumber(" ", "i4")},
        {i4, kPreserve, u" \t\n+12", "12"},
        {i4, kReplace, u"\n12", "12"},
        {i4, kPreserve, u"12 ", NoNumber("12 ", "i4")},
        {i4, kReplace, u"12\t", NoNumber("12 ", "i4")},
        {i4, kCollapse, u"12 ", "12"},
        {i4, kPreserve, u"1\r2\r", "12"},
        {i4, kPreserve, u"\u00A012", NoNumber("\u00A012", "i4")},
        {i4, kPreserve, u"\v12", NoNumber("\v12", "i4")},
        {i4, kCollapse, u"-", NoNumber("-", "i4")},
        {i4, kCollapse, u"+-1", NoNumber("+-1", "i4")},
        {i4, kCollapse, u"- 1", NoNumber("- 1", "i4")},
        {i4, kCollapse, u"0x10", NoNumber("0x10", "i4")},
        {i4, kCollapse, u"1.0", NoNumber("1.0", "i4")},
        {i4, kCollapse, u"\u0661\uFF11", NoNumber("\u0661\uFF11", "i4")},
        {i8, kCollapse, u"x", NoNumber("x", "i8")},
        {ui4, kCollapse, u"x", NoNumber("x", "ui4")},
        {ui8, kCollapse, u"x", NoNumber("x", "ui8")},
        {i4, kCollapse, wstring(u"12\0", 3), NoNumber("12", "i4")},
        {i4, kCollapse, wstring(u"\0", 1), NoNumber("", "i4")},
    });
}

TEST(CConversions, IntegersReportTheWiderFormThenTheRange) {
    ExpectEach({
        {i4, kCollapse, u" 99999999999x ", TooLarge("99999999999x", "i4")},
        {i4, kCollapse, u" 12  x ", NoNumber("12 x", "i4")},
        {i1, kCollapse, u" 99999999999 ", TooLarge("99999999999", "i4")},
        {i1, kCollapse, u" 128 ", TooLarge(" 128 ", "i1")},
        {i2, kCollapse, u" -40000 ", TooLarge(" -40000 ", "i2")},
        {ui1, kCollapse, u" 256 ", TooLarge(" 256 ", "ui1")},
        {ui2, kCollapse, u"99999999999", TooLarge("99999999999", "ui4")},
        {i1, kCollapse, u" a ", NoNumber("a", "i4")},
        {i2, kCollapse, u"128 x", NoNumber("128 x", "i4")},
        {ui1, kCollapse, u"a", NoNumber("a", "ui4")},
        {ui2, kCollapse, u"1 a", NoNumber("1 a", "ui4")},
    });
}

TEST(CConversions, FloatsHaveAPlainForm) {
    ExpectEach({
        {r8, kPreserve, u"", "0"},
        {r8, kPreserve, u" ", NoNumber(" ", "r8")},
        {r8, kPreserve, u" \n+1.5", "1.5"},
        {r8, kPreserve, u"1.5 ", NoNumber("1.5 ", "r8")},
        {r8, kCollapse, u" -1.5 ", "-1.5"},
        {r8, kCollapse, u"5.", "5"},
        {r8, kCollapse, u".5", "0.5"},
        {r8, kCollapse, u"-0", "-0"},
        {r8, kCollapse, u"1e3", "1000"},
        {r8, kCollapse, u"1.E+003", "1000"},
        {r8, kCollapse, u".25e-1", "0.025"},
        {r8, kCollapse, u".", NoNumber(".", "r8")},
        {r8, kCollapse, u"-.e1", NoNumber("-.e1", "r8")},
        {r8, kCollapse, u"e1", NoNumber("e1", "r8")},
        {r8, kCollapse, u"1e", NoNumber("1e", "r8")},
        {r8, kCollapse, u"1e+", NoNumber("1e+", "r8")},
        {r8, kCollapse, u"1e1.5", NoNumber("1e1.5", "r8")},
        {r8, kCollapse, u"1.2.3", NoNumber("1.2.3", "r8")},
        {r8, kCollapse, u"1,5", NoNumber("1,5", "r8")},
        {r8, kCollapse, u"1d5", NoNumber("1d5", "r8")},
        {r8, kCollapse, u"0x1p3", NoNumber("0x1p3", "r8")},
        {r8, kCollapse, u"INF", NoNumber("INF", "r8")},
        {r8, kCollapse, u"inf", NoNumber("inf", "r8")},
        {r8, kCollapse, u"NaN", NoNumber("NaN", "r8")},
        {r8, kCollapse, u" 1  x", NoNumber("1 x", "r8")},
        {r8, kCollapse, u"1\u0135", NoNumber("1\u0135", "r8")},
        {r8, kCollapse, wstring(u"1\0", 2), NoNumber("1", "r8")},
        {Read<&C::r4FromString, [](float) { return wstring(); }>, kCollapse, u"x", NoNumber("x", "r8")},
    });
}

TEST(CConversions, FloatsAreTheNearest) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    wstring const zeros(1000, u'0');
    struct {
        wstring text;
        double expected;
    } const rows[] = {
        {u"0.1", 0.1},
        {u"1.7976931348623157e308", 1.7976931348623157e308},
        {u"2.2250738585072011e-308", 2.2250738585072011e-308},
        {u"4.9e-324", 5e-324},
        {u"1.7976931348623159e308", kInfinity},
        {u"-1e999", -kInfinity},
        {u"1e99999999999999999999", kInfinity},
        {u"1e-99999999999999999999", 0.0},
        {u"0e99999999999999999999", 0.0},
        {u"2e-324", 0.0},
        {u"1" + zeros, kInfinity},
        {u"0." + zeros + u"1", 0.0},
        {u"1" + zeros + u"e-1000", 1.0},
        {u"0." + zeros + u"1e1001", 1.0},
        {u"1" + zeros + u"e-1400", 0.0},
        {u"0." + zeros + u"1e+1400", kInfinity},
        {u"0.500000000000000166533453693773481063544750213623046875" + zeros, 0.5000000000000002},
    };
    for (auto const& row : rows) {
        double const value = C::r8FromString(row.text, kPreserve);
        EXPECT_EQ(value, row.expected) << ToUtf8(row.text);
        EXPECT_EQ(std::signbit(value), std::signbit(row.expected)) << ToUtf8(row.text);
    }
    EXPECT_TRUE(std::signbit(C::r8FromString(u"-1e-999", kPreserve)));
    EXPECT_EQ(C::r4FromString(u"1e39", kPreserve), std::numeric_limits<float>::infinity());
    // Just above the middle of two floats, but the middle itself once it is a double.
    EXPECT_EQ(C::r4FromString(u"1.00000005960464477540", kPreserve), 1.0f);
}

TEST(CConversions, FloatsAreWrittenByDefaultOrByFormat) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    struct {
        double value;
        char16_t const* format;
        std::string r4, r8;
    } const rows[] = {
        {0.1, nullptr, "0.1", "0.1"},
        {1.0 / 3, nullptr, "0.3333333", "0.3333333333333333"},
        {-2.0 / 3, nullptr, "-0.6666667", "-0.6666666666666666"},
        {123456789, nullptr, "1.234568e+08", "123456789"},
        {1e16, nullptr, "1e+16", "1e+16"},
        {1e-5, nullptr, "1e-05", "1e-05"},
        {-0.0, nullptr, "-0", "-0"},
        {kInfinity, nullptr, "INF", "INF"},
        {-kInfinity, u"%9.2f", "-INF", "-INF"},
        {-kNaN, u"%.1f", "NaN", "NaN"},
        {2.5, u"%.2f", "2.50", "2.50"},
        {2.5, u"100%% of %+08.2lE!", "100% of +2.50E+00!", "100% of +2.50E+00!"},
        {2.5, u"% -#9.3g|", " 2.50    |", " 2.50    |"},
        {1, u"%.40f", "1." + std::string(40, '0'), "1." + std::string(40, '0')},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(ToUtf8(C::r4ToString(static_cast<float>(row.value), row.format)), row.r4);
        EXPECT_EQ(ToUtf8(C::r8ToString(row.value, row.format)), row.r8);
    }
    EXPECT_EQ(ToUtf8(C::r4ToString(0.1f, u"%.17g")), "0.10000000149011612");
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
    auto const noChar = [](std::string const& text) {
        return kInvalid + "The value [" + text +
               "] can not be a char as it is either empty of greater than 1 char long";
    };
    auto const noBoolean = [](std::string const& text) {
        return kInvalid + "A Boolean Value read from an XML document was invalid [" + text +
               "]. Valid values are 'true', 'false', '1', or '0'";
    };
    ExpectEach({
        {character, kCollapse, u" x ", "x"},
        {character, kPreserve, u" ", " "},
        {character, kReplace, u"\t\r", " "},
        {character, kCollapse, u" ", noChar("")},
        {character, kCollapse, u" x  y ", noChar("x y")},
        {character, kPreserve, u"\U0001F600", noChar("\U0001F600")},
        {string, kPreserve, u" a\r\n ", " a\n "},
        {string, kReplace, u" a\r\n ", " a  "},
        {string, kCollapse, u" a\r\n ", "a"},
        {boolean, kCollapse, u" true ", "true"},
        {boolean, kPreserve, u"1", "true"},
        {boolean, kPreserve, u"TRue", "true"},
        {boolean, kPreserve, u"fALSE", "false"},
        {boolean, kReplace, u"0", "false"},
        {boolean, kPreserve, u" true", noBoolean(" true")},
        {boolean, kCollapse, u" tru ", noBoolean(" tru ")},
        {boolean, kCollapse, u"truex", noBoolean("truex")},
        {boolean, kCollapse, u"", noBoolean("")},
        {boolean, kCollapse, u"01", noBoolean("01")},
        {boolean, kCollapse, u"\u0131", noBoolean("\u0131")},
        {boolean, kCollapse, u"fal\u017Fe", noBoolean("fal\u017Fe")},
        {boolean, kCollapse, wstring(u"true\0", 5), noBoolean("true")},
    });
}

TEST(CConversions, ValueClassesReadTheCleanedText) {
    std::string const noDate = kInvalid + "Invalid XSD Date [";
    std::string const noTime = kInvalid + "Invalid XSD Time [";
    std::string const dateForm = "] expected CCYY-MM-DD[Z|[+|-]hh:mm]";
    std::string const timeForm = "] expected hh:mm:ss[.ff]";
    std::string const noDecimal =
        kInvalid + "The string representing a Decimal, contained an invalid char at position ";
    ExpectEach({
        {hexBinary, kCollapse, u" 0aFF ", "0AFF"},
        {hexBinary, kPreserve, u"0a ff", "CBxException: Invalid char in hex string [ ]"},
        {hexBinary, kCollapse, wstring(u"0a\0\0", 4), "CBxException: Invalid char in hex string [?]"},
        {base64Binary, kCollapse, u" YWJj ", "YWJj"},
        {base64Binary, kPreserve, u" YWJj", ""},
        {base64Binary, kCollapse, wstring(u"YWJj\0", 5), ""},
        {duration, kCollapse, u" P1M ", "P1M"},
        {duration, kCollapse, wstring(u"P1M\0", 4),
         kInvalid + "Invalid XSD Duration [P1M] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"},
        {date, kCollapse, u" 2001-02-03 ", "2001-02-03"},
        {date, kPreserve, u"2001-02-03 ", noDate + "2001-02-03 " + dateForm},
        {date, kCollapse, u"2001-02-30", kInvalid + "Invalid Day [30] (1 <= day <= days in month"},
        {date, kCollapse, wstring(u"2001-02-03\0", 11), noDate + "2001-02-03" + dateForm},
        {date, kCollapse, wstring(u"--02\0\0", 6), noDate + "--02" + dateForm},
        {time, kCollapse, u" 04:05:06 ", "04:05:06"},
        {time, kCollapse, u"04:05:06 and more", "04:05:06"},
        {time, kCollapse, wstring(u"04:05:06\0", 9), noTime + "04:05:06" + timeForm},
        {time, kCollapse, wstring(u"04:05:06Z\0", 10), noTime + "04:05:06Z" + timeForm},
        {datetime, kCollapse, u" 2001-02-03T04:05:06 ", "2001-02-03T04:05:06"},
        {datetime, kCollapse, u"2001-02-03", kInvalid + "Invalid XSD DateTime [2001-02-03]"},
        {datetime, kCollapse, wstring(u"2001-02-03T04:05:06\0", 20), noTime + "04:05:06" + timeForm},
        {decimal, kCollapse, u" 1.50 ", "1.5"},
        {decimal, kReplace, u"1x", noDecimal + "1 [1x]"},
        {decimal, kCollapse, wstring(u"1\0", 2), noDecimal + "1 [1]"},
        {integer, kCollapse, u" 00012 ", "12"},
        {integer, kPreserve, u"1e3", "1000"},
        {integer, kCollapse, wstring(u"1\0", 2), noDecimal + "1 [1]"},
    });
}

TEST(CConversions, DatesTakeEveryFormWithoutATime) {
    for (char16_t const* const form : {u"2001-02-03Z", u"2001-02", u"-2001", u"--02", u"--02-29", u"---31"}) {
        for (Reader const read : {date, yearMonth, monthDay}) EXPECT_EQ(read(form, kPreserve), ToUtf8(form));
    }
    EXPECT_EQ(C::dateFromString(u"2001-02", kPreserve).GetType(), CDateTime::dt_gYearMonth);
    EXPECT_EQ(C::dateToString(C::timeFromString(u"04:05:06", kPreserve)), u"04:05:06");
}

TEST(CConversions, YearsMonthsAndDaysArePlainNumbers) {
    auto const noField = [](std::string const& name, std::string const& type) {
        return "CBxInvalidStateException: Failed to Get" + name + ". Invalid Date Type: " + type + ".";
    };
    ExpectEach({
        {year, kCollapse, u" 0005+14:00 ", "5"},
        {year, kPreserve, u"2001-02-03", "2001"},
        {year, kPreserve, u"2001-02", "2001"},
        {year, kPreserve, u"-0001", "65535"},
        {year, kPreserve, u"--02-03", noField("Year", "gMonthDay")},
        {month, kCollapse, u" --05 ", "--05"},
        {month, kPreserve, u"2001-12-03", "--12"},
        {month, kPreserve, u"2001", noField("Month", "gYear")},
        {day, kCollapse, u" ---07Z ", "---07"},
        {day, kPreserve, u"2001-12-31", "---31"},
        {day, kPreserve, u"--12-31", "---31"},
        {day, kPreserve, u"2001-12", noField("Day", "gYearMonth")},
        {day, kPreserve, u"---32", kInvalid + "Invalid Day [32] (1 <= day <= 31)"},
    });
    EXPECT_EQ(C::monthToString(255), u"--255");
}

TEST(CConversions, TheFormatOfADecimalCountsDigits) {
    struct {
        char16_t const* format;
        std::string expected;
    } const rows[] = {
        {nullptr, "12.625"}, {u"2", "12.63"}, {u" \t+2x", "12.63"},       {u"", "13."},
        {u"x", "13."},       {u"0", "13."},   {u"99999999999", "12.625"},
    };
    for (auto const& row : rows)
        EXPECT_EQ(ToUtf8(C::decimalToString(CDecimal(u"12.625"), row.format)), row.expected);
    EXPECT_EQ(BxTest::Thrown([] { C::decimalToString(CDecimal(1), u"-1"); }).find("CBxInvalidParamException"),
              0u);
}

TEST(CConversions, EveryReaderAppliesTheRuleFirst) {
    for (Reader const read :
         {i1,        i2,           i4,       i8,      ui1,       ui2,       ui4,      ui8,  r8,
          hexBinary, base64Binary, duration, date,    yearMonth, monthDay,  datetime, time, year,
          month,     day,          decimal,  integer, boolean,   character, string})
        EXPECT_EQ(read(u"1", C::WhitespaceRule(3)), "CBxException: Unknown WhitespaceRule");
}

}  // namespace
