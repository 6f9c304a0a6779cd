#include "BxXmlLib5/values/CDateTime.h"

#include <tuple>
#include <utility>

#include "values/DateTimeFields.h"
#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

using Type = CDateTime::DTType;
constexpr int kUnknown = 9;

/// The fields of a dateTime in the order that makes each fault the first to be found.
struct {
    DateTimeField field;
    int below, above;
    std::string name, range;
} const kFields[] = {
    {&DateTimeFields::nano, -1, 1000, "Nano-Second", "(0 <= nano <= 999)"},
    {&DateTimeFields::micro, -1, 1000, "Micro-Second", "(0 <= micro <= 999)"},
    {&DateTimeFields::milli, -1, 1000, "Milli-Second", "(0 <= milli <= 999)"},
    {&DateTimeFields::second, -1, 60, "Second", "(0 <= second <= 59)"},
    {&DateTimeFields::minute, -1, 60, "Minute", "(0 <= minute <= 59)"},
    {&DateTimeFields::hour, -1, 24, "Hour", "(0 <= hour <= 23)"},
    {&DateTimeFields::day, 0, 32, "Day", "(1 <= day <= days in month"},
    {&DateTimeFields::year, -10000, 10000, "Year", "(-9999 <= year <= 9999 && year != 0)"},
    {&DateTimeFields::month, 0, 13, "Month", "(1 <= month <= 12)"},
};

std::string Fault(Type type, DateTimeFields const& fields) {
    return Thrown([&] { ValidateFields(type, fields); });
}

}  // namespace

TEST(CDateTime, SettersGiveTheTypeNamed) {
    using Setter = void (*)(CDateTime&);
    std::pair<Setter, char const*> const rows[] = {
        {[](auto& d) { d.SetDateTime(2001, 2, 3, 4, 5, 6); }, "dateTime 2001-02-03T04:05:06"},
        {[](auto& d) { d.SetDateTime(-1, 2, 3, 4, 5, 6, 7, 8, 9); },
         "dateTime -0001-02-03T04:05:06.007008009"},
        {[](auto& d) { d.SetDate(2001, 2, 3); }, "date 2001-02-03"},
        {[](auto& d) { d.SetTime(23, 59, 58); }, "time 23:59:58"},
        {[](auto& d) { d.SetTime(1, 2, 3, 4, 5, 6); }, "time 01:02:03.004005006"},
        {[](auto& d) { d.SetFracTime(0, 50, 0); }, "time 00:00:00.00005"},
        {[](auto& d) { d.SetGYear(-12); }, "gYear -0012"},
        {[](auto& d) { d.SetGYearMonth(12, 11); }, "gYearMonth 0012-11"},
        {[](auto& d) { d.SetGMonth(9); }, "gMonth --09"},
        {[](auto& d) { d.SetGMonthDay(2, 29); }, "gMonthDay --02-29"},
        {[](auto& d) { d.SetGDay(31); }, "gDay ---31"}};
    for (auto const& [set, result] : rows) {
        CDateTime date;
        set(date);
        date.SetTimeZone(5, 30);
        set(date);  // drops the zone
        EXPECT_EQ(Show(date), result);
    }
}

TEST(CDateTime, EachFieldHasItsRangeAndItsTurn) {
    std::string const invalid = "CBxInvalidValueException: Invalid ";
    DateTimeFields most{-9999, 12, 31, 23, 59, 59, 999, 999, 999}, month{.month = 1};
    EXPECT_EQ(Fault(CDateTime::dt_dateTime, most), "nothing");
    EXPECT_EQ(Fault(CDateTime::dt_gMonth, month), "nothing");
    for (auto const& [field, below, above, name, range] : kFields) {
        for (int const value : {below, above}) {
            most.*field = value;
            EXPECT_EQ(Fault(CDateTime::dt_dateTime, most),
                      invalid + name + " [" + std::to_string(value) + "] " + range);
        }
        if (name == "Month") continue;
        month.*field = above;
        EXPECT_EQ(Fault(CDateTime::dt_gMonth, month),
                  invalid + name + " [" + std::to_string(above) + "] for type gMonth");
    }
    std::tuple<Type, DateTimeFields, std::string> const rows[] = {
        {CDateTime::dt_gYear, {}, invalid + "Year [0] (-9999 <= year <= 9999 && year != 0)"},
        {CDateTime::dt_gDay, {.day = 31}, "nothing"},
        {CDateTime::dt_gDay, {.day = 0}, invalid + "Day [0] (1 <= day <= 31)"},
        {CDateTime::dt_gDay, {.month = 2}, invalid + "Month [2] for type gDay"},
        {CDateTime::dt_gMonthDay, {.month = 2, .day = 29}, "nothing"},
        {CDateTime::dt_gMonthDay, {.month = 2}, invalid + "Day [0] (1 <= day <= days in month)"},
        {CDateTime::dt_yearZero, {}, invalid + "Year Zero"}};
    for (auto const& [type, fields, fault] : rows) EXPECT_EQ(Fault(type, fields), fault);
}

TEST(CDateTime, ATypedObjectTakesNoOtherType) {
    CDateTime date(CDateTime::dt_date);
    EXPECT_BX_THROW(date.SetGYear(2001), CBxInvalidStateException,
                    "Failed to copy CDateTime. Invalid Date Type: gYear, expected: date.");
    EXPECT_THROW(date = std::int64_t{0}, CBxInvalidStateException);
    EXPECT_THROW(date.SetDate(2001, 2, 30), CBxInvalidValueException);
    EXPECT_EQ(Show(date), "date 2001-02-30") << "a refused value stays in place";
}

TEST(CDateTime, ConstructorsTakeWhatIsNoValueForNone) {
    for (CDateTime const& date :
         {CDateTime(2001, 2, 30), CDateTime(2001, 2, 28, 24, 0, 0), CDateTime(INT64_MAX),
          CDateTime(_SYSTEMTIME{}), CDateTime(_FILETIME{0, 0x80000000})})
        EXPECT_EQ(Show(date), "yearZero Invalid Year Zero");
    EXPECT_EQ(Show(CDateTime(2001, 2, 28, 1, 2, 3, 0, 0, 1)), "dateTime 2001-02-28T01:02:03.000000001");
    EXPECT_BX_THROW(CDateTime(u"2001"), CBxInvalidValueException, "Invalid XSD DateTime [2001]");
}

TEST(CDateTime, GettersKnowWhichFieldsATypeUses) {
    struct {
        std::string name;
        double (*get)(CDateTime const& date);
        double value;
        char const* types;  // by number: 1 if the type has the field
    } const getters[] = {
#define GETTER(Name) "Get" #Name, [](auto& d) -> double { return d.Get##Name(); }
        {GETTER(Year), 2004, "011110000"},
        {GETTER(Month), 12, "011100011"},
        {GETTER(Day), 30, "011000101"},
        {GETTER(Hour), 4, "010001000"},
        {GETTER(Minute), 5, "010001000"},
        {GETTER(Second), 6, "010001000"},
        {GETTER(RealSecond), 6.250125031, "010001000"},
        {GETTER(MilliSecond), 250, "010001000"},
        {GETTER(MicroSecond), 125, "010001000"},
        {GETTER(NanoSecond), 31, "010001000"},
        {GETTER(DayOfWeek), 5, "011000000"},
        {GETTER(DayOfYear), 365, "011000000"},
#undef GETTER
    };
    char const* const names[] = {"yearZero", "dateTime", "date",   "gYearMonth", "gYear",
                                 "time",     "gDay",     "gMonth", "gMonthDay",  ""};
    for (int type = 0; type <= kUnknown; ++type) {
        CDateTime date;
        date.SetDateTime(CDateTime(2004, 12, 30, 4, 5, 6, 250, 125, 31), static_cast<Type>(type));
        EXPECT_EQ(ToUtf8(date.GetTypeAsString()), names[type]);
        for (auto const& row : getters) {
            if (type < kUnknown && row.types[type] == '1') {
                EXPECT_DOUBLE_EQ(row.get(date), row.value) << row.name;
            } else {
                EXPECT_BX_THROW(row.get(date), CBxInvalidStateException,
                                "Failed to " + row.name + ". Invalid Date Type: " + names[type] + ".");
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
            CDateTime const from(static_cast<Type>(source));
            bool const converts =
                Thrown([&] { date.SetDateTime(from, static_cast<Type>(target)); }) == "nothing";
            EXPECT_EQ(converts, allowed[source][target] == '1') << source << " to " << target;
            EXPECT_EQ(date.GetType(), converts ? target : CDateTime::dt_date);
        }
    }
    CDateTime date;
    EXPECT_BX_THROW(date.SetDateTime(CDateTime(2001, 2, 3), CDateTime::dt_time), CBxInvalidValueException,
                    "Attempting to set a CDateTime of type time using an XmlDateTime of type date. "
                    "The source CDateTime does not contian enough data to allow the conversion.");
    CDateTime const unknown(static_cast<Type>(kUnknown));
    EXPECT_BX_THROW(date.SetDateTime(unknown, CDateTime::dt_date), CBxInvalidValueException,
                    "Unknown date type 9.");
    date.SetDateTime(Date("-2001-02-03T04:05:06.7-08:00"), CDateTime::dt_date);
    EXPECT_EQ(Show(date), "date -2001-02-03-08:00");
}

TEST(CDateTime, AZoneHasThreeStates) {
    CDateTime date(2001, 2, 3);
    EXPECT_FALSE(date.IsUTC() || date.HasTimeZone());
    EXPECT_BX_THROW(date.GetZoneHour(), CBxInvalidStateException, "TimeZone is not been used");
    date.SetTimeZone(-23, 59);
    EXPECT_TRUE(date.IsUTC() && date.HasTimeZone());
    EXPECT_EQ(date.GetZoneHour() * 100 - date.GetZoneMinute(), -2359);
    EXPECT_THROW(date.SetTimeZone(24, 0), CBxInvalidValueException);
    EXPECT_THROW(date.SetTimeZone(-24, 0), CBxInvalidValueException);
    EXPECT_BX_THROW(date.SetTimeZone(0, 60), CBxInvalidValueException, "Invalid TimeZone [0:60]");
    EXPECT_EQ(Text(date), "2001-02-03-23:59") << "a refused zone leaves the old one";
    date.SetUTC();
    EXPECT_TRUE(date.IsUTC() && !date.HasTimeZone());
    EXPECT_BX_THROW(date.GetZoneMinute(), CBxInvalidStateException, "TimeZone is not been used");
}

TEST(CDateTime, DaysOfTheWeekAndYear) {
    // Rows "date dayOfWeek dayOfYear"; 1 for Sunday
    for (char const* const row : {"2026-11-22 1 326", "2000-01-01 7 1", "2000-03-01 4 61", "2001-03-01 5 60",
                                  "1900-12-31 2 365", "-0004-02-29 5 60", "-0400-12-31 1 366"}) {
        CDateTime const date = Date(Words(row)[0]);
        EXPECT_EQ(std::to_string(date.GetDayOfWeek()), Words(row)[1]) << row;
        EXPECT_EQ(std::to_string(date.GetDayOfYear()), Words(row)[2]) << row;
    }
    CDateTime date(CDateTime::dt_date);
    EXPECT_THROW(date.SetDate(1, 255, 255), CBxInvalidValueException);
    EXPECT_EQ(date.GetDayOfYear(), 365 + 255);
}
