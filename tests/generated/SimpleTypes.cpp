// Simple types: which literals have a value, and the literal of that value.

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
        {&Again<Xs::float_>, {{"0.1", "0.1"}}, {}},
        {&Again<Xs::double_>,
         {{"0.30000000000000004", "0.30000000000000004"},
          {" -INF ", "-INF"},
          {"NaN", "NaN"},
          {"1.e5", "1e+05"}},
         {"inf", "0x1", ""}},
        {&Again<Xs::dateTime>,
         {{" 2024-02-29T23:59:59.50+14:00 ", "2024-02-29T23:59:59.5+14:00"}},
         {"2024-02-29", "2024-02-30T00:00:00", "2024-02-29T00:00:00+14:01", "2024-02-29T00:00:00."}},
        {&Again<Xs::date>, {{"-0044-03-15Z", "-0044-03-15Z"}}, {"2024"}},
        {&Again<Xs::time>, {{"01:02:03-00:00", "01:02:03+00:00"}}, {"01:02:03Zulu", "01:02:03-00:30"}},
        {&Again<Xs::gYear>, {{"-0044", "-0044"}, {"2024+01:00", "2024+01:00"}}, {"24"}},
        {&Again<Xs::gYearMonth>, {}, {"2024-13"}},
        {&Again<Xs::gMonth>, {{"--05Z", "--05Z"}}, {"--05--"}},
        {&Again<Xs::gDay>, {{"---31", "---31"}}, {}},
        {&Again<Xs::gMonthDay>, {{"--02-29", "--02-29"}}, {}},
        {&Again<Xs::duration>,
         {{"-P1Y2M3DT4H5M6.70S", "-P1Y2M3DT4H5M6.7S"}, {"PT0S", "PT0S"}},
         {"P", "P1YT", "P1S", "P1M1Y", "PT1.5H"}},
        {&Again<Xs::hexBinary>, {{" 0aF0 ", "0AF0"}}, {}},
        {&Again<Xs::base64Binary>, {{" AQ ID\nBA== ", "AQIDBA=="}}, {"AQI", "A?==", "A=ID"}},
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
        {&Again<SizeType>, {{"1", "1"}, {"02.50", "2.5"}}, {"2"}},
        {&Again<TwoSizesType>, {{"1 2.5", "1 2.5"}}, {"1", "1 3"}},
        {&Again<WeightType>, {{"2", "2"}, {" slow ", "slow"}, {"AB9", "AB9"}}, {"slower"}},
    });
}

}  // namespace
