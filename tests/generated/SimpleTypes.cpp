// Simple types: which literals have a value, and the literal of that value.

#include <compare>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Parcels.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
using namespace Parcels;

/// The literal of the value of a literal, or "refused".
template <class S>
std::string Again(std::string const& text) {
    try {
        typename S::Value const value = Bx::ValueOf<S>(FromUtf8(text));
        Bx::Test<S>(value);
        return Bx::Utf8<S>(value);
    } catch (CBxInvalidValueException const&) {
        return "refused";
    }
}

struct Row {
    std::string (*m_again)(std::string const& text);
    std::vector<std::pair<char const*, char const*>> m_good;  ///< a literal and that of its value
    std::vector<char const*> m_bad;
};

void Check(std::initializer_list<Row> rows) {
    for (Row const& row : rows) {
        for (auto const& [text, written] : row.m_good) EXPECT_EQ(row.m_again(text), written) << text;
        for (char const* const text : row.m_bad) EXPECT_EQ(row.m_again(text), "refused") << text;
    }
}

TEST(SimpleTypes, HaveTheFormsOfTheStandard) {
    Check({
        {&Again<Xs::string>, {{" a\tb ", " a\tb "}}, {}},
        {&Again<Xs::normalizedString>, {{" a\tb ", " a b "}}, {}},
        {&Again<Xs::token>, {{" a\t b ", "a b"}}, {}},
        {&Again<Xs::anyURI>, {{" x y ", "x y"}}, {}},
        {&Again<Xs::boolean>, {{" 1 ", "true"}, {"false", "false"}, {"0", "false"}}, {"TRUE", ""}},
        {&Again<Xs::decimal>,
         {{" -01.50\n", "-1.5"},
          {"+.5", "0.5"},
          {"5.", "5"},
          {"0.0000000000000000000000000000010", "0.000000000000000000000000000001"}},
         {".", "1e2", "1 2", "0.0000000000000000000000000000001"}},
        {&Again<Xs::integer>, {{"-99999999999999999999", "-99999999999999999999"}}, {"1.0", ""}},
        {&Again<Xs::nonNegativeInteger>, {{"-0", "0"}}, {"-1"}},
        {&Again<Xs::positiveInteger>, {}, {"0"}},
        {&Again<Xs::nonPositiveInteger>, {}, {"1"}},
        {&Again<Xs::negativeInteger>, {}, {"0"}},
        {&Again<Xs::byte>, {{"-128", "-128"}}, {"128"}},
        {&Again<Xs::short_>, {}, {"32768"}},
        {&Again<Xs::int_>, {{"-2147483648", "-2147483648"}}, {"2147483648"}},
        {&Again<Xs::long_>, {{"-9223372036854775808", "-9223372036854775808"}}, {"9223372036854775808"}},
        {&Again<Xs::unsignedByte>, {{"+255", "255"}}, {"256"}},
        {&Again<Xs::unsignedShort>, {}, {"65536"}},
        {&Again<Xs::unsignedInt>, {{"-0", "0"}}, {"-1"}},
        {&Again<Xs::unsignedLong>, {{"18446744073709551615", "18446744073709551615"}}, {"-1"}},
        {&Again<Xs::float_>, {{"0.1", "0.1"}, {"7.038531E-26", "7.038531e-26"}, {"1e39", "INF"}}, {}},
        {&Again<Xs::double_>,
         {{"0.30000000000000004", "0.30000000000000004"},
          {" -INF ", "-INF"},
          {"NaN", "NaN"},
          {"1.e5", "1e+05"},
          {"-0", "-0"}},
         {"inf", "0x1", ""}},
        {&Again<Xs::dateTime>,
         {{" 2024-02-29T23:59:59.50+14:00 ", "2024-02-29T23:59:59.50+14:00"},
          {"2023-12-31T24:00:00", "2023-12-31T24:00:00"},
          {"2024-02-29T23:59:59Z", "2024-02-29T23:59:59Z"},
          {"2024-01-01T00:00:00.1234567890123Z", "2024-01-01T00:00:00.1234567890123Z"},
          {"-123456789012345-02-28T00:00:00", "-123456789012345-02-28T00:00:00"}},
         {"2024-02-29", "2024-02-30T00:00:00", "2024-02-29T00:00:00+14:01", "2024-02-29T00:00:00.",
          "0000-01-01T00:00:00Z", "2023-02-29T00:00:00Z", "2024-13-01T00:00:00Z", "2024-01-00T00:00:00Z",
          "2024-01-01T25:00:00Z", "2024-01-01T00:60:00Z", "2024-01-01 00:00:00Z", "2024-01-01T00:00:0:Z",
          "2023-12-31T24:00:00.1", "1234567890123456-02-28T00:00:00"}},
        {&Again<Xs::date>, {{"-0044-03-15Z", "-0044-03-15Z"}}, {"2024", "0000-01-01", "02024-01-01"}},
        {&Again<Xs::time>,
         {{"01:02:03-00:00", "01:02:03-00:00"}, {"01:02:03-00:30", "01:02:03-00:30"}},
         {"01:02:03Zulu"}},
        {&Again<Xs::gYear>, {{"-0044", "-0044"}, {"2024+01:00", "2024+01:00"}}, {"24"}},
        {&Again<Xs::gYearMonth>, {}, {"2024-13"}},
        {&Again<Xs::gMonth>,
         {{"--05Z", "--05Z"}, {"--05--", "--05--"}, {"--05-05:00", "--05-05:00"}},
         {"--05-"}},
        {&Again<Xs::gDay>, {{"---31", "---31"}}, {}},
        {&Again<Xs::gMonthDay>, {{"--02-29", "--02-29"}}, {}},
        {&Again<Xs::duration>,
         {{"-P1Y2M3DT4H5M6.70S", "-P1Y2M3DT4H5M6.70S"},
          {"PT0S", "PT0S"},
          {"P999999999999999YT0.0000000000001S", "P999999999999999YT0.0000000000001S"}},
         {"P", "P1YT", "P1S", "P1M1Y", "PT1.5H", "PT.5S", "PT5.S", "P1234567890123456D"}},
        {&Again<Xs::hexBinary>, {{" 0aF0 ", "0AF0"}}, {"0g"}},
        {&Again<Xs::base64Binary>, {{" AQ ID\nBA== ", "AQIDBA=="}}, {"AQI", "A?==", "A=ID", "AB==", "AAB="}},
        {&Again<Xs::language>, {{"de-CH-1996", "de-CH-1996"}}, {"1de", "de--CH"}},
        {&Again<Xs::NMTOKEN>, {{" -é·1 ", "-é·1"}}, {"a b"}},
        {&Again<Xs::Name>, {{"a:b", "a:b"}}, {"1a"}},
        {&Again<Xs::NCName>, {{"\xF0\x90\x80\x80", "\xF0\x90\x80\x80"}}, {"a:b"}},
        {&Again<Xs::QName>, {{"a:b", "a:b"}}, {"a:b:c"}},
        {&Again<Xs::NMTOKENS>, {{" a  b ", "a b"}}, {" "}},
        {&Again<Xs::IDREFS>, {}, {"a 1"}},
    });
}

TEST(SimpleTypes, HaveTheFacetsOfAllSteps) {
    Check({
        {&Again<PercentType>, {{"100.00", "100"}}, {"100.01", "-1", "1.234"}},
        {&Again<TopPercentType>, {{"90.5", "90.5"}}, {"90", "101"}},
        {&Again<AngleType>, {{"0", "0"}, {"359", "359"}}, {"-1", "360"}},
        {&Again<DayType>,
         {{"2024-02-29", "2024-02-29"}, {"2024-03-01", "2024-03-01"}},
         {"2024-02-28", "2024-03-02"}},
        {&Again<MarkType>, {{"ab", "ab"}}, {"a"}},
        {&Again<CodeType>, {{" AB123 ", "AB123"}}, {"AB12345", "xAB1", "AB1x"}},
        {&Again<SpeedType>, {{" fast ", "fast"}}, {"Fast"}},
        {&Again<PaceType>, {{"slow", "slow"}, {" fast", " fast"}}, {" slow", "fast", "\tfast"}},
        {&Again<GaitType>, {{"slow\nwalk", "slow walk"}}, {"slow  walk", " slow walk"}},
        {&Again<SizeType>, {{"1", "1"}, {"02.50", "2.5"}}, {"2"}},
        {&Again<TwoSizesType>, {{"1 2.5", "1 2.5"}}, {"1", "1 3"}},
        {&Again<WeightType>, {{"2", "2"}, {" slow ", "slow"}, {"AB9", "AB9"}}, {"slower"}},
    });
}

/// Rows "left < right", with = for the same and ? for no order.
template <class Read>
void ExpectOrder(Read read, std::initializer_list<std::string> rows) {
    for (std::string const& row : rows) {
        std::istringstream words(row);
        std::string left, order, right;
        words >> left >> order >> right;
        auto const expected = order == "<"   ? std::partial_ordering::less
                              : order == "=" ? std::partial_ordering::equivalent
                                             : std::partial_ordering::unordered;
        auto const first = read(FromUtf8(left)), second = read(FromUtf8(right));
        EXPECT_EQ(first <=> second, expected) << row;
        EXPECT_EQ(second <=> first, 0 <=> expected) << row;
        EXPECT_EQ(first == second, order == "=") << row;
    }
}

auto ReadsDate(CDateTime::DTType type) {
    return [type](wstring const& text) { return Bx::CSchemaDate(type, text); };
}

TEST(SimpleTypes, DatesHaveThePartialOrderOfTheStandard) {
    ExpectOrder(
        ReadsDate(CDateTime::dt_dateTime),
        {"2000-01-15T00:00:00 < 2000-02-15T00:00:00", "2000-01-15T12:00:00 < 2000-01-16T12:00:00Z",
         "2000-01-01T12:00:00 ? 1999-12-31T23:00:00Z", "2000-01-16T12:00:00 ? 2000-01-16T12:00:00Z",
         "2000-01-16T00:00:00 ? 2000-01-16T14:00:00Z",
         "2000-01-16T00:00:00 < 2000-01-16T14:00:00.0000000000001Z",
         "1999-12-31T24:00:00Z = 2000-01-01T00:30:00+00:30", "-0001-12-31T23:59:59Z < 0001-01-01T00:00:00Z",
         "9999-12-31T00:00:00Z < 10000-01-01T00:00:00Z"});
    ExpectOrder(ReadsDate(CDateTime::dt_date), {"2000-01-01+13:00 < 2000-01-01Z"});
    ExpectOrder(ReadsDate(CDateTime::dt_time), {"24:00:00Z = 00:00:00Z", "00:30:00+01:00 < 00:00:00Z"});
    ExpectOrder(ReadsDate(CDateTime::dt_gMonthDay), {"--02-29 < --03-01"});
    ExpectOrder(ReadsDate(CDateTime::dt_gDay), {"---31Z ? ---31"});
    ExpectOrder(ReadsDate(CDateTime::dt_gYear), {"-0044 < 0044"});
    EXPECT_EQ(
        Bx::CSchemaDate(CDateTime::dt_gDay, u"---01") <=> Bx::CSchemaDate(CDateTime::dt_gMonth, u"--01"),
        std::partial_ordering::unordered);
}

TEST(SimpleTypes, DurationsHaveThePartialOrderOfTheStandard) {
    auto const read = [](wstring const& text) { return Bx::CSchemaDuration(text); };
    // The table of XML Schema Part 2, 3.2.6.2.
    ExpectOrder(read,
                {"P364D < P1Y", "P365D ? P1Y", "P366D ? P1Y", "P1Y < P367D", "P27D < P1M", "P28D ? P1M",
                 "P31D ? P1M", "P1M < P32D", "P149D < P5M", "P150D ? P5M", "P153D ? P5M", "P5M < P154D"});
    ExpectOrder(read,
                {"P1Y = P12M", "P1D = PT24H", "-P1D = -PT86400S", "-PT0.5S < PT0S", "-PT0.75S < -PT0.5S",
                 "-PT1.25S < -PT1S", "-PT0.50S = -PT0.5S", "PT0.1S < PT0.10000000000001S", "-P1M ? -P30D",
                 "P999999999999998Y < P999999999999999Y"});
}

TEST(SimpleTypes, DatesAndDurationsConvert) {
    auto const date = [](char const* text) {
        return Bx::CSchemaDate(CDateTime::dt_dateTime, FromUtf8(text));
    };
    EXPECT_EQ(ToUtf8(date("2024-02-29T23:59:59.120-03:30")->ToString()), "2024-02-29T23:59:59.12-03:30");
    EXPECT_EQ(ToUtf8(date("2023-12-31T24:00:00Z")->ToString()), "2024-01-01T00:00:00Z");
    for (char const* text :
         {"10000-01-01T00:00:00", "2024-01-01T00:00:00.1234567891", "2024-01-01T00:00:00-00:30"}) {
        EXPECT_FALSE(date(text).HasDateTime()) << text;
        EXPECT_BX_THROW(date(text).GetDateTime(), CBxInvalidValueException,
                        std::string("The value [") + text + "] is beyond what CDateTime can hold");
    }
    EXPECT_TRUE(date("2024-01-01T00:00:00") == CDateTime(2024, 1, 1, 0, 0, 0));
    EXPECT_BX_THROW(Bx::CSchemaDate{CDateTime()}, CBxInvalidValueException,
                    "The value [Invalid Year Zero] has not the form of its type");

    EXPECT_EQ(Bx::CSchemaDuration(u"-P1Y2M3DT4H5M6.0789S")->GetMicroSeconds(), 900);
    EXPECT_EQ(ToUtf8(Bx::CSchemaDuration(CDateTimeSpan(1, 30, 0)).GetText()), "PT1H30M");
    EXPECT_EQ(ToUtf8(Bx::CSchemaDuration().GetText()), "PT0S");
    EXPECT_BX_THROW(Bx::CSchemaDuration(u"P65536Y").GetSpan(), CBxInvalidValueException,
                    "The value [P65536Y] is beyond what CDateTimeSpan can hold");
}

struct PaddedType : Bx::Restriction<Xs::decimal> {
    static constexpr Bx::Facets kFacets{.pattern = u"[0-9]{2}\\.[0-9]{2}"};
};
struct FlagOrNumberType : Bx::Union<Xs::boolean, Xs::float_, PaddedType, Xs::token> {};
struct ManyType : Bx::List<FlagOrNumberType> {};
struct SomeType : Bx::Restriction<FlagOrNumberType> {
    static constexpr char16_t const* kValues[] = {u"2.0", u"x y"};
    static constexpr Bx::Facets kFacets{.values = kValues};
};
struct PairType : Bx::Restriction<Bx::List<Xs::double_>> {
    static constexpr char16_t const* kValues[] = {u"1 2", u"NaN"};
    static constexpr Bx::Facets kFacets{.values = kValues};
};
struct TwoWordsType : Bx::Restriction<Bx::List<Xs::int_>> {
    static constexpr Bx::Facets kFacets{.pattern = u"[0-9]+ [0-9]+"};
};
struct SpacedType : Bx::Restriction<Bx::Union<Bx::List<Xs::int_>, Xs::string>> {
    static constexpr Bx::Facets kFacets{.pattern = u"1 2|  a"};
};
struct LaterType : Bx::Restriction<Xs::dateTime> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"2024-01-02T00:00:00Z"};
};

TEST(SimpleTypes, LiteralsOfPatternsAndUnionsAreKept) {
    Bx::Required<PaddedType> padded;
    padded.SetText(u" 07.50 ");
    EXPECT_EQ(Bx::Utf8(padded), " 07.50 ");
    EXPECT_TRUE(padded == CDecimal(u"7.5"));
    Bx::Required<PaddedType> const copy = padded;
    EXPECT_BX_THROW(padded = CDecimal(u"7.5"), CBxInvalidValueException,
                    "The value [7.5] does not match the pattern [[0-9]{2}\\.[0-9]{2}]");
    padded = CDecimal(u"12.34");
    EXPECT_EQ(Bx::Utf8(padded), "12.34");
    EXPECT_EQ(Bx::Utf8(copy), " 07.50 ");

    Bx::Values<PaddedType> values;
    for (char16_t const* text : {u"10.25", u"07.50", u"00.10"}) values.AddText(text);
    values.Remove(0);
    values.Set(1, CDecimal(u"55.55"));
    EXPECT_EQ(ToUtf8(*values.GetLiteral(0)), "07.50");
    EXPECT_EQ(values.GetLiteral(1), nullptr);

    Bx::Optional<ManyType> many;
    many.SetText(u"1 1.0 true  01.50 1e0 x");
    EXPECT_EQ(Bx::Utf8(many), "1 1.0 true  01.50 1e0 x");
}

TEST(SimpleTypes, ValuesOfUnionsComeBackAsTheSameMember) {
    Check({
        {&Again<FlagOrNumberType>,
         {{"1", "true"}, {"1.0", "1.0"}, {"0e5", "0.0"}, {"-0", "-0"}, {"x  y", "x y"}},
         {}},
        {&Again<ManyType>, {{"1 +1 0", "true 1.0 false"}}, {}},
        {&Again<SomeType>, {{"2", "2"}, {"x  y", "x y"}}, {"3"}},
        {&Again<PairType>, {{" 1.0 2e0", "1 2"}, {"NaN", "NaN"}}, {"2 1"}},
        {&Again<TwoWordsType>, {{" 01\n 2 ", "1 2"}}, {"1"}},
        {&Again<SpacedType>, {{" 1  2", "1 2"}, {"  a", "  a"}}, {"a"}},
        {&Again<LaterType>, {{"2024-01-02T15:00:00", "2024-01-02T15:00:00"}}, {"2024-01-02T00:00:00"}},
    });
}

}  // namespace
