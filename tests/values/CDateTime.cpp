#include "BxXmlLib5/values/CDateTime.h"

#include "values/DateTimeFields.h"
#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

using Type = CDateTime::DTType;
constexpr int kUnknown = 9;

struct Fault {
    int DateTimeFields::*field;
    int value;
    char const* message;
};

/// Adds one fault after the other, the last to be found first.
void ExpectFaults(Type type, DateTimeFields fields, std::initializer_list<Fault> faults) {
    EXPECT_EQ(Thrown([&] { ValidateFields(type, fields); }), "nothing");
    for (auto const& [field, value, message] : faults) {
        fields.*field = value;
        EXPECT_BX_THROW(ValidateFields(type, fields), CBxInvalidValueException, message);
    }
}

}  // namespace

TEST(CDateTime, SettersGiveTheTypeNamed) {
    struct Row {
        void (*set)(CDateTime& date);
        char const* result;
    };
    for (auto const& [set, result] :
         {Row{[](auto& d) { d.SetDateTime(2001, 2, 3, 4, 5, 6); }, "dateTime 2001-02-03T04:05:06"},
          Row{[](auto& d) { d.SetDateTime(-1, 2, 3, 4, 5, 6, 7, 8, 9); },
              "dateTime -0001-02-03T04:05:06.007008009"},
          Row{[](auto& d) { d.SetDate(2001, 2, 3); }, "date 2001-02-03"},
          Row{[](auto& d) { d.SetTime(23, 59, 58); }, "time 23:59:58"},
          Row{[](auto& d) { d.SetTime(1, 2, 3, 4, 5, 6); }, "time 01:02:03.004005006"},
          Row{[](auto& d) { d.SetFracTime(0, 50, 0); }, "time 00:00:00.00005"},
          Row{[](auto& d) { d.SetGYear(-12); }, "gYear -0012"},
          Row{[](auto& d) { d.SetGYearMonth(12, 11); }, "gYearMonth 0012-11"},
          Row{[](auto& d) { d.SetGMonth(9); }, "gMonth --09"},
          Row{[](auto& d) { d.SetGMonthDay(2, 29); }, "gMonthDay --02-29"},
          Row{[](auto& d) { d.SetGDay(31); }, "gDay ---31"}}) {
        CDateTime date;
        for (int round = 0; round < 2; ++round) {
            set(date);
            EXPECT_EQ(Show(date), result);
            date.SetTimeZone(5, 30);  // which the second round drops
        }
    }
}

TEST(CDateTime, EachFieldHasItsRangeAndItsTurn) {
    using F = DateTimeFields;
    ExpectFaults(CDateTime::dt_dateTime, {-9999, 12, 31, 23, 59, 59, 999, 999, 999},
                 {{&F::nano, 1000, "Invalid Nano-Second [1000] (0 <= nano <= 999)"},
                  {&F::micro, 1000, "Invalid Micro-Second [1000] (0 <= micro <= 999)"},
                  {&F::milli, 1000, "Invalid Milli-Second [1000] (0 <= milli <= 999)"},
                  {&F::second, 60, "Invalid Second [60] (0 <= second <= 59)"},
                  {&F::minute, 60, "Invalid Minute [60] (0 <= minute <= 59)"},
                  {&F::hour, 24, "Invalid Hour [24] (0 <= hour <= 23)"},
                  {&F::hour, -1, "Invalid Hour [-1] (0 <= hour <= 23)"},
                  {&F::day, 32, "Invalid Day [32] (1 <= day <= days in month"},
                  {&F::day, 0, "Invalid Day [0] (1 <= day <= days in month"},
                  {&F::year, -10000, "Invalid Year [-10000] (-9999 <= year <= 9999 && year != 0)"},
                  {&F::year, 10000, "Invalid Year [10000] (-9999 <= year <= 9999 && year != 0)"},
                  {&F::year, 0, "Invalid Year [0] (-9999 <= year <= 9999 && year != 0)"},
                  {&F::month, 13, "Invalid Month [13] (1 <= month <= 12)"},
                  {&F::month, 0, "Invalid Month [0] (1 <= month <= 12)"}});
    ExpectFaults(CDateTime::dt_gMonth, {.month = 1},
                 {{&F::nano, 9, "Invalid Nano-Second [9] for type gMonth"},
                  {&F::micro, 8, "Invalid Micro-Second [8] for type gMonth"},
                  {&F::milli, 7, "Invalid Milli-Second [7] for type gMonth"},
                  {&F::second, 6, "Invalid Second [6] for type gMonth"},
                  {&F::minute, 5, "Invalid Minute [5] for type gMonth"},
                  {&F::hour, 4, "Invalid Hour [4] for type gMonth"},
                  {&F::day, 3, "Invalid Day [3] for type gMonth"},
                  {&F::year, -1, "Invalid Year [-1] for type gMonth"}});
    ExpectFaults(CDateTime::dt_gDay, {.day = 31},
                 {{&F::day, 0, "Invalid Day [0] (1 <= day <= 31)"},
                  {&F::month, 2, "Invalid Month [2] for type gDay"}});
    ExpectFaults(CDateTime::dt_gMonthDay, {.month = 2, .day = 29},
                 {{&F::day, 0, "Invalid Day [0] (1 <= day <= days in month)"}});
    EXPECT_BX_THROW(ValidateFields(CDateTime::dt_yearZero, {}), CBxInvalidValueException,
                    "Invalid Year Zero");
}

TEST(CDateTime, ARefusedSettingLeavesItsFieldsInPlace) {
    CDateTime date;
    EXPECT_THROW(date.SetDate(2001, 2, 30), CBxInvalidValueException);
    EXPECT_EQ(Show(date), "date 2001-02-30");
}

TEST(CDateTime, ATypedObjectTakesNoOtherType) {
    CDateTime date(CDateTime::dt_date);
    EXPECT_BX_THROW(date.SetGYear(2001), CBxInvalidStateException,
                    "Failed to copy CDateTime. Invalid Date Type: gYear, expected: date.");
    EXPECT_BX_THROW(date = std::int64_t{0}, CBxInvalidStateException,
                    "Failed to copy CDateTime. Invalid Date Type: dateTime, expected: date.");
    date.SetDate(2001, 2, 3);
    EXPECT_EQ(Show(date), "date 2001-02-03");
}

TEST(CDateTime, ConstructorsTakeWhatIsNoValueForNone) {
    for (CDateTime const& date :
         {CDateTime(2001, 2, 30), CDateTime(2001, 2, 28, 24, 0, 0), CDateTime(INT64_MAX),
          CDateTime(_SYSTEMTIME{}), CDateTime(_FILETIME{0, 0x80000000})}) {
        EXPECT_EQ(date.GetType(), CDateTime::dt_yearZero);
        EXPECT_EQ(Text(date + Span("P1Y1M1D")), "Invalid Year Zero");
    }
    EXPECT_EQ(Show(CDateTime(2001, 2, 28)), "date 2001-02-28");
    EXPECT_EQ(Show(CDateTime(2001, 2, 28, 1, 2, 3)), "dateTime 2001-02-28T01:02:03");
    EXPECT_EQ(Show(CDateTime(2001, 2, 28, 1, 2, 3, 0, 0, 1)), "dateTime 2001-02-28T01:02:03.000000001");
    EXPECT_BX_THROW(CDateTime(u"2001"), CBxInvalidValueException, "Invalid XSD DateTime [2001]");
}

TEST(CDateTime, GettersKnowWhichFieldsATypeUses) {
    struct Getter {
        double (*get)(CDateTime const& date);
        double value;
        char const* name;
        char const* types;  // by number: 1 if the type has the field
    };
    constexpr Getter kGetters[] = {
        {[](auto& d) -> double { return d.GetYear(); }, 2004, "GetYear", "011110000"},
        {[](auto& d) -> double { return d.GetMonth(); }, 12, "GetMonth", "011100011"},
        {[](auto& d) -> double { return d.GetDay(); }, 30, "GetDay", "011000101"},
        {[](auto& d) -> double { return d.GetHour(); }, 4, "GetHour", "010001000"},
        {[](auto& d) -> double { return d.GetMinute(); }, 5, "GetMinute", "010001000"},
        {[](auto& d) -> double { return d.GetSecond(); }, 6, "GetSecond", "010001000"},
        {[](auto& d) -> double { return d.GetRealSecond(); }, 6.25, "GetRealSecond", "010001000"},
        {[](auto& d) -> double { return d.GetMilliSecond(); }, 250, "GetMilliSecond", "010001000"},
        {[](auto& d) -> double { return d.GetMicroSecond(); }, 0, "GetMicroSecond", "010001000"},
        {[](auto& d) -> double { return d.GetNanoSecond(); }, 0, "GetNanoSecond", "010001000"},
        {[](auto& d) -> double { return d.GetDayOfWeek(); }, 5, "GetDayOfWeek", "011000000"},
        {[](auto& d) -> double { return d.GetDayOfYear(); }, 365, "GetDayOfYear", "011000000"},
    };
    char const* const names[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                 "time",     "gDay",     "gMonth", "gMonthDay",  ""};
    for (int type = 0; type <= kUnknown; ++type) {
        CDateTime date;
        date.SetDateTime(CDateTime(2004, 12, 30, 4, 5, 6, 250, 0, 0), static_cast<Type>(type));
        EXPECT_EQ(ToUtf8(date.GetTypeAsString()), names[type]);
        for (Getter const& row : kGetters) {
            if (type < kUnknown && row.types[type] == '1') {
                EXPECT_EQ(row.get(date), row.value) << row.name;
            } else {
                EXPECT_BX_THROW(
                    row.get(date), CBxInvalidStateException,
                    std::string("Failed to ") + row.name + ". Invalid Date Type: " + names[type] + ".");
            }
        }
    }
}

TEST(CDateTime, AConversionNeedsTheFieldsOfItsTarget) {
    // By type and target: 1 if allowed. Behind the eight types, a target that is none.
    char const* const allowed[] = {"1000000000", "1111111111", "1011101110", "1001100100", "1000100000",
                                   "1000010000", "1000001000", "1000000100", "1000001110"};
    for (int source = 0; source < kUnknown; ++source) {
        for (int target = 0; target <= kUnknown; ++target) {
            CDateTime date(2001, 2, 3);
            auto const convert = [&] {
                date.SetDateTime(CDateTime(static_cast<Type>(source)), static_cast<Type>(target));
            };
            bool const converts = Thrown(convert) == "nothing";
            EXPECT_EQ(converts, allowed[source][target] == '1') << source << " to " << target;
            EXPECT_EQ(date.GetType(), converts ? target : CDateTime::dt_date);
        }
    }
    CDateTime date;
    EXPECT_BX_THROW(
        date.SetDateTime(CDateTime(2001, 2, 3), CDateTime::dt_time), CBxInvalidValueException,
        "Attempting to set a CDateTime of type time using an XmlDateTime of type date. The source "
        "CDateTime does not contian enough data to allow the conversion.");
    CDateTime const unknown(static_cast<Type>(kUnknown));
    EXPECT_BX_THROW(date.SetDateTime(unknown, CDateTime::dt_date), CBxInvalidValueException,
                    "Unknown date type 9.");
    date.SetDateTime(unknown, unknown.GetType());
    EXPECT_EQ(date.GetType(), unknown.GetType());
    date.SetDateTime(Date("-2001-02-03T04:05:06.7-08:00"), CDateTime::dt_date);
    EXPECT_EQ(Show(date), "date -2001-02-03-08:00");
    date.SetDateTime(date, CDateTime::dt_gDay);
    EXPECT_EQ(Show(date), "gDay ---03-08:00");
}

TEST(CDateTime, AZoneHasThreeStates) {
    CDateTime date(2001, 2, 3);
    EXPECT_FALSE(date.IsUTC() || date.HasTimeZone());
    EXPECT_BX_THROW(date.GetZoneHour(), CBxInvalidStateException, "TimeZone is not been used");
    date.SetTimeZone(-23, 59);
    EXPECT_TRUE(date.IsUTC() && date.HasTimeZone());
    EXPECT_EQ(date.GetZoneHour(), -23);
    EXPECT_EQ(date.GetZoneMinute(), 59);
    EXPECT_BX_THROW(date.SetTimeZone(24, 0), CBxInvalidValueException, "Invalid TimeZone [24:0]");
    EXPECT_BX_THROW(date.SetTimeZone(-24, 0), CBxInvalidValueException, "Invalid TimeZone [-24:0]");
    EXPECT_BX_THROW(date.SetTimeZone(0, 60), CBxInvalidValueException, "Invalid TimeZone [0:60]");
    EXPECT_EQ(Text(date), "2001-02-03-23:59") << "a refused zone leaves the old one";
    date.SetUTC();
    EXPECT_TRUE(date.IsUTC() && !date.HasTimeZone());
    EXPECT_BX_THROW(date.GetZoneMinute(), CBxInvalidStateException, "TimeZone is not been used");
}

TEST(CDateTime, DaysOfTheWeekAndYear) {
    // Rows "date dayOfWeek dayOfYear"; 1 for Sunday
    for (char const* const row :
         {"2026-11-22 1 326", "2026-11-23 2 327", "2000-01-01 7 1", "2000-02-29 3 60", "2000-03-01 4 61",
          "2001-03-01 5 60", "2000-12-31 1 366", "1900-12-31 2 365", "1970-01-01T23:00:00 5 1",
          "-0004-02-29 5 60", "-0400-12-31 1 366"}) {
        auto const words = Words(row);
        EXPECT_EQ(std::to_string(Date(words[0]).GetDayOfWeek()), words[1]) << row;
        EXPECT_EQ(std::to_string(Date(words[0]).GetDayOfYear()), words[2]) << row;
    }
    CDateTime date(CDateTime::dt_date);
    EXPECT_EQ(date.GetDayOfYear(), 0);
    EXPECT_THROW(date.SetDate(1, 255, 255), CBxInvalidValueException);
    EXPECT_EQ(date.GetDayOfYear(), 365 + 255);
}
