#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

using Parser = void (CDateTime::*)(char16_t const*);
constexpr Parser kDate = &CDateTime::ParseXSDDate;
constexpr Parser kTime = &CDateTime::ParseXSDTime;
constexpr Parser kDateTime = &CDateTime::ParseXSDDateTime;

std::string Parsed(Parser parse, char16_t const* text) {
    CDateTime date(u"1234-05-06T07:08:09.5+10:11");
    std::string const failure = Thrown([&] { (date.*parse)(text); });
    return failure == "nothing" ? Show(date) : failure;
}

/// Rows "text type", or "text type printed" where the value prints otherwise.
void ExpectValid(Parser parse, std::initializer_list<char const*> rows) {
    for (char const* const row : rows) {
        auto const words = Words(row);
        EXPECT_EQ(Parsed(parse, FromUtf8(words[0]).c_str()),
                  words[1] + ' ' + words[words.size() == 3 ? 2 : 0]);
    }
}

/// @param message with %s for the text
void ExpectRefused(Parser parse, std::string const& message, std::initializer_list<char16_t const*> texts) {
    for (char16_t const* const text : texts) {
        std::string expected = "CBxInvalidValueException: " + message;
        if (auto const place = expected.find("%s"); place != expected.npos)
            expected.replace(place, 2, ToUtf8(text));
        EXPECT_EQ(Parsed(parse, text), expected);
    }
}

}  // namespace

TEST(CDateTimeText, DatesHaveSevenForms) {
    ExpectValid(kDate,
                {"---31 gDay", "--02-29 gMonthDay", "-0004 gYear", "2001-10 gYearMonth", "-0004-02-29 date",
                 "9999-12-31 date", "--12-- gMonth --12", "--05xx gMonth --05", "--05-1 gMonth --05"});
}

TEST(CDateTimeText, EveryFormOfADateTakesAZone) {
    for (std::string const form : {"--12", "---31", "--02-29", "2001", "2001-10", "-2001-10-26"})
        for (char const* const zone : {"Z", "+00:00", "-23:59"})
            EXPECT_EQ(Text(Date(form + zone)), form + zone);
    ExpectValid(kDate, {"--05---01:00 gMonth --05-01:00", "2001+24:30 gYear 2001+00:30",
                        "2001-10-00:30 gYearMonth 2001-10+00:30", "2001:abcde gYear 2001",
                        "2001-10-26x05:00 date 2001-10-26"});
}

TEST(CDateTimeText, DatesRefuseOtherText) {
    ExpectRefused(kDate, "Invalid Date (Null String)", {nullptr});
    ExpectRefused(kDate, "Invalid Date (Empty String)", {u""});
    ExpectRefused(kDate, "Invalid Date ('T' not allowed)", {u"2001-10-26T10:00:00", u"T:Z"});
    ExpectRefused(kDate, "Invalid Date (Bad Zone value)", {u"2001-10-26+01:00Z"});
    ExpectRefused(kDate, "Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]",
                  {u"Z", u":", u"-", u"--Z", u"---", u"--1:", u"201", u"20011", u"12001-01-01", u"+2001",
                   u"2001/10", u"2001-10-2a", u"200:-10-26", u"--05-011", u" 2001", u"2001-10-26+"});
    ExpectRefused(kDate, "Invalid XSD Time Zone [+1:000]", {u"2001-10-26+1:000"});
    ExpectRefused(kDate, "Invalid TimeZone [-25:0]", {u"2001-25:00"});
    ExpectRefused(kDate, "Invalid Year [0] (-9999 <= year <= 9999 && year != 0)", {u"-0000-01-40"});
    ExpectRefused(kDate, "Invalid Day [30] (1 <= day <= days in month)", {u"--02-30"});
    ExpectRefused(kDate, "Invalid Day [29] (1 <= day <= days in month", {u"1900-02-29"});
}

TEST(CDateTimeText, TimesHaveAFractionAndAZone) {
    ExpectValid(kTime, {"00:00:00 time", "23:59:59 time", "12:00:00Z time", "12:00:00.05-05:30 time",
                        "12:00:00.123456789 time", "12:00:00.000000010 time 12:00:00.00000001",
                        "12:00:00.000100 time 12:00:00.0001", "12:00:00.000000000 time 12:00:00",
                        "12:00:00.Z time 12:00:00Z", "12:00:00Zebra time 12:00:00Z"});
    ExpectRefused(kTime, "Invalid Time (Null String)", {nullptr});
    ExpectRefused(kTime, "Invalid XSD Time (Empty String)", {u""});
    ExpectRefused(kTime, "Invalid XSD Time [%s] Fraction part too long", {u"12:00:00.0000000000Z"});
    ExpectRefused(kTime, "Invalid XSD Time [%s] expected hh:mm:ss[.ff]",
                  {u"24:00:00", u"12:60:00", u"23:59:60", u"12:00:0", u"12-00:00", u"12:00:0a"});
    ExpectRefused(kTime, "Invalid XSD Time Zone [+01:000]", {u"12:00:00+01:000"});
    ExpectRefused(kTime, "Invalid XSD Time Zone [+]", {u"12:00:00.+"});
}

TEST(CDateTimeText, ADateTimeIsADateAndATime) {
    ExpectValid(kDateTime,
                {"-0001-10-26T21:32:52.12679Z dateTime", "2001-10-26ZT21:32:52 dateTime 2001-10-26T21:32:52Z",
                 "2001-10-26+01:00T21:32:52Z dateTime 2001-10-26T21:32:52Z",
                 "2001-10-26T21:32:52T dateTime 2001-10-26T21:32:52"});
    ExpectRefused(kDateTime, "Invalid DateTime (Null String)", {nullptr});
    ExpectRefused(kDateTime, "Invalid XSD DateTime [%s]", {u"", u"2001-10-26 10:00:00"});
    ExpectRefused(kDateTime, "Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]",
                  {u"2001-10T10:00:00"});
    ExpectRefused(kDateTime, "Invalid Date (Empty String)", {u"T10:00:00"});
    ExpectRefused(kDateTime, "Invalid XSD Time (Empty String)", {u"2001-10-26T"});
    ExpectRefused(kDateTime, "Invalid Day [29] (1 <= day <= days in month", {u"2001-02-29T23:00:00"});
}

TEST(CDateTimeText, AFailureBeforeTheClearKeepsTheValue) {
    CDateTime date(2001, 10, 26);
    EXPECT_THROW(date.ParseXSDDateTime(u"2002-01-01"), CBxInvalidValueException);
    EXPECT_EQ(Show(date), "date 2001-10-26");
    EXPECT_THROW(date.ParseXSDTime(nullptr), CBxInvalidValueException);
    EXPECT_EQ(date.GetType(), CDateTime::dt_yearZero);
}

TEST(CDateTimeText, TheFormatIsAName) {
    CDateTime const date(2001, 10, 26);
    EXPECT_EQ(date.ToString(u"s"), u"2001-10-26");
    EXPECT_EQ(date.ToString(nullptr) + date.ToString(u"G"), u"");
    EXPECT_EQ(date.ToString(u"g"), u"Unknown Format: g");
    EXPECT_EQ(CDateTime().ToString(u"G"), u"Invalid Year Zero");
    EXPECT_EQ(Text(CDateTime(CDateTime::dt_dateTime)), "0000-00-00T00:00:00");
    for (int const unknown : {-1, 9}) EXPECT_EQ(Text(CDateTime(static_cast<CDateTime::DTType>(unknown))), "");
}
