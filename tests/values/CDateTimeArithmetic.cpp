#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

/// Rows "date + span = sum" or "date - span = difference".
void ExpectSums(std::initializer_list<char const*> rows) {
    for (char const* const row : rows) {
        auto const words = Words(row);
        bool const plus = words[1] == "+";
        CDateTime const date = Date(words[0]);
        CDateTimeSpan const span = Span(words[2]);
        EXPECT_EQ(Text(plus ? date + span : date - span), words[4]) << row;
        CDateTime assigned = date;
        EXPECT_EQ(Text(plus ? assigned += span : assigned -= span), words[4]) << row;
        EXPECT_EQ(assigned.GetType(), date.GetType()) << row;
    }
}

}  // namespace

TEST(CDateTimeArithmetic, AddsMonthsThenDaysThenTheRest) {
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        DateModel model{1500 + static_cast<int>(random() % 700), 1 + static_cast<int>(random() % 12), 28};
        model = model + CDateTimeSpan(0, random() % 10'000, random() % 100'000) + RandomSpan(random);
        CDateTimeSpan const span = RandomSpan(random);
        EXPECT_EQ(Text(model.Date() + span), Text((model + span).Date())) << Text(model.Date()) << Text(span);
    }
    // A minus goes back whatever the sign. Type and zone stay.
    ExpectSums({"2000-01-12T12:13:14Z + P1Y3M5DT7H10M3.3S = 2001-04-17T19:23:17.3Z",
                "2000-01 + -P3M = 1999-10", "2001-03-31 - P1M = 2001-02-28", "2001-03-31 - -P1D = 2001-03-30",
                "2000-12 + P12M = 2001-12", "-0400-02-28 + P1D = -0400-02-29",
                "1970-01-01 - P146098D = 1569-12-31", "2001-05-05 + P1461000D = 6001-06-04",
                "2001-01-01T00:00:30+02:00 + PT90M30S = 2001-01-01T01:31:00+02:00"});
    EXPECT_EQ(Text(CDateTime(2001, 3, 31) - CDateTime(2000, 1, 1)), "P");
}

TEST(CDateTimeArithmetic, FieldsThatATypeLacksCountAsTheirLeastValue) {
    ExpectSums({"2001 + P364D = 2001", "2001 + P365D = 2002", "2001 - PT1S = 2000",
                "2000-01-12 + PT23H = 2000-01-12", "00:15:00Z - P400YT45M = 23:30:00Z", "---31 + P1D = ---01",
                "---05 + P65535Y = ---05", "--12 + P1M = --01", "--02-28 + P1D = --02-29",
                "--12-31 + P1D = --01-01"});
    CDateTime date;
    date.SetDateTime(Date("2000-01-01T23:00:00"), CDateTime::dt_date);
    EXPECT_EQ(Text(date + Span("PT2H")), "2000-01-01") << "an hour out of reach does not count";
    EXPECT_EQ(Show(CDateTime() + Span("P1Y1M1DT1H")), "yearZero Invalid Year Zero");
    EXPECT_EQ(Text(CDateTime(CDateTime::dt_date) + CDateTimeSpan()), "-0001-12-00") << "no month 0";
}

TEST(CDateTimeArithmetic, TheYearMayLeaveItsRangeButNot16Bits) {
    ExpectSums({"-0001 + P1Y = 0000", "9999-12-31 + P1D = 10000-01-01", "-9999-01-01 - P1D = -10000-12-31",
                "9999 + P22768Y = 32767", "-9999 - P22769Y = -32768"});
    CDateTimeSpan const most(65535, UINT32_MAX, UINT32_MAX, UINT32_MAX, UINT64_MAX, UINT64_MAX);
    CDateTimeSpan const seconds(0, 0, UINT64_MAX);
    CDateTime date = Date("2001-01-01T10:00:00");
    for (auto const& row : {std::pair{Span("P30767Y"), "32768"},
                            {Span("-P34770Y"), "-32769"},
                            {most, "2147483647"},
                            {most.GetAsNegative(), "-2147483648"}})
        EXPECT_BX_THROW(
            date += row.first, CBxInvalidValueException,
            std::string("Invalid Year [") + row.second + "] (-9999 <= year <= 9999 && year != 0)");
    EXPECT_EQ(Text(date), "2001-01-01T10:00:00");
    EXPECT_EQ(Text(Date("10:00:00") + seconds), "17:00:15");
    EXPECT_EQ(Text(Date("10:00:00") - seconds), "02:59:45");
}

TEST(CDateTimeArithmetic, NormalisingTakesAnOffsetTo0) {
    for (char const* const row :
         {"2000-01-01T00:00:00Z 2000-01-01T00:00:00Z", "20:00:00-05:30 01:30:00+00:00",
          "2000-03-01T00:00:00+05:30 2000-02-29T18:30:00+00:00"})
        EXPECT_EQ(Text(Date(Words(row)[0]).GetNormalized()), Words(row)[1]);
}
