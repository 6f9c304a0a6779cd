// Simple types: which literals have a value, and the literal of that value.

#include <string>

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
    std::string (*again)(std::string const& text);
    char const* text;
    char const* written;
};

constexpr char const* kNo = "refused";

TEST(SimpleTypes, HaveTheFormsOfTheStandard) {
    Row const rows[] = {
        {&Again<Xs::string>, " a\tb ", " a\tb "},
        {&Again<Xs::normalizedString>, " a\tb ", " a b "},
        {&Again<Xs::token>, " a\t b ", "a b"},
        {&Again<Xs::anyURI>, " x y ", "x y"},
        {&Again<Xs::boolean>, " 1 ", "true"},
        {&Again<Xs::boolean>, "false", "false"},
        {&Again<Xs::boolean>, "0", "false"},
        {&Again<Xs::boolean>, "TRUE", kNo},
        {&Again<Xs::boolean>, "", kNo},
        {&Again<Xs::decimal>, " -01.50\n", "-1.5"},
        {&Again<Xs::decimal>, "+.5", "0.5"},
        {&Again<Xs::decimal>, "5.", "5"},
        {&Again<Xs::decimal>, ".", kNo},
        {&Again<Xs::decimal>, "1e2", kNo},
        {&Again<Xs::decimal>, "1 2", kNo},
        {&Again<Xs::decimal>, "0.0000000000000000000000000000001", kNo},
        {&Again<Xs::decimal>, "0.0000000000000000000000000000010", "0.000000000000000000000000000001"},
        {&Again<Xs::integer>, "-99999999999999999999", "-99999999999999999999"},
        {&Again<Xs::integer>, "1.0", kNo},
        {&Again<Xs::integer>, "", kNo},
        {&Again<Xs::nonNegativeInteger>, "-0", "0"},
        {&Again<Xs::nonNegativeInteger>, "-1", kNo},
        {&Again<Xs::positiveInteger>, "0", kNo},
        {&Again<Xs::nonPositiveInteger>, "1", kNo},
        {&Again<Xs::negativeInteger>, "0", kNo},
        {&Again<Xs::byte>, "-128", "-128"},
        {&Again<Xs::byte>, "128", kNo},
        {&Again<Xs::short_>, "32768", kNo},
        {&Again<Xs::int_>, "-2147483648", "-2147483648"},
        {&Again<Xs::int_>, "2147483648", kNo},
        {&Again<Xs::long_>, "-9223372036854775808", "-9223372036854775808"},
        {&Again<Xs::long_>, "9223372036854775808", kNo},
        {&Again<Xs::unsignedByte>, "+255", "255"},
        {&Again<Xs::unsignedByte>, "256", kNo},
        {&Again<Xs::unsignedShort>, "65536", kNo},
        {&Again<Xs::unsignedInt>, "-0", "0"},
        {&Again<Xs::unsignedInt>, "-1", kNo},
        {&Again<Xs::unsignedLong>, "18446744073709551615", "18446744073709551615"},
        {&Again<Xs::unsignedLong>, "-1", kNo},
        {&Again<Xs::float_>, "0.1", "0.1"},
        {&Again<Xs::double_>, "0.30000000000000004", "0.30000000000000004"},
        {&Again<Xs::double_>, " -INF ", "-INF"},
        {&Again<Xs::double_>, "NaN", "NaN"},
        {&Again<Xs::double_>, "1.e5", "1e+05"},
        {&Again<Xs::double_>, "inf", kNo},
        {&Again<Xs::double_>, "0x1", kNo},
        {&Again<Xs::double_>, "", kNo},
        {&Again<Xs::dateTime>, " 2024-02-29T23:59:59.50+14:00 ", "2024-02-29T23:59:59.5+14:00"},
        {&Again<Xs::dateTime>, "2024-02-29", kNo},
        {&Again<Xs::dateTime>, "2024-02-30T00:00:00", kNo},
        {&Again<Xs::dateTime>, "2024-02-29T00:00:00+14:01", kNo},
        {&Again<Xs::dateTime>, "2024-02-29T00:00:00.", kNo},
        {&Again<Xs::date>, "-0044-03-15Z", "-0044-03-15Z"},
        {&Again<Xs::date>, "2024", kNo},
        {&Again<Xs::time>, "01:02:03Zulu", kNo},
        {&Again<Xs::time>, "01:02:03-00:30", kNo},
        {&Again<Xs::time>, "01:02:03-00:00", "01:02:03+00:00"},
        {&Again<Xs::gYear>, "-0044", "-0044"},
        {&Again<Xs::gYear>, "2024+01:00", "2024+01:00"},
        {&Again<Xs::gYear>, "24", kNo},
        {&Again<Xs::gYearMonth>, "2024-13", kNo},
        {&Again<Xs::gMonth>, "--05Z", "--05Z"},
        {&Again<Xs::gMonth>, "--05--", kNo},
        {&Again<Xs::gDay>, "---31", "---31"},
        {&Again<Xs::gMonthDay>, "--02-29", "--02-29"},
        {&Again<Xs::duration>, "-P1Y2M3DT4H5M6.70S", "-P1Y2M3DT4H5M6.7S"},
        {&Again<Xs::duration>, "PT0S", "PT0S"},
        {&Again<Xs::duration>, "P", kNo},
        {&Again<Xs::duration>, "P1YT", kNo},
        {&Again<Xs::duration>, "P1S", kNo},
        {&Again<Xs::duration>, "P1M1Y", kNo},
        {&Again<Xs::duration>, "PT1.5H", kNo},
        {&Again<Xs::hexBinary>, " 0aF0 ", "0AF0"},
        {&Again<Xs::base64Binary>, " AQ ID\nBA== ", "AQIDBA=="},
        {&Again<Xs::base64Binary>, "AQI", kNo},
        {&Again<Xs::base64Binary>, "A?==", kNo},
        {&Again<Xs::base64Binary>, "A=ID", kNo},
        {&Again<Xs::language>, "de-CH-1996", "de-CH-1996"},
        {&Again<Xs::language>, "1de", kNo},
        {&Again<Xs::language>, "de--CH", kNo},
        {&Again<Xs::NMTOKEN>, " -é·1 ", "-é·1"},
        {&Again<Xs::NMTOKEN>, "a b", kNo},
        {&Again<Xs::Name>, "a:b", "a:b"},
        {&Again<Xs::Name>, "1a", kNo},
        {&Again<Xs::NCName>, "a:b", kNo},
        {&Again<Xs::NCName>, "\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
        {&Again<Xs::QName>, "a:b", "a:b"},
        {&Again<Xs::QName>, "a:b:c", kNo},
        {&Again<Xs::NMTOKENS>, " a  b ", "a b"},
        {&Again<Xs::NMTOKENS>, " ", kNo},
        {&Again<Xs::IDREFS>, "a 1", kNo},
    };
    for (Row const& row : rows) EXPECT_EQ(row.again(row.text), row.written) << row.text;
}

TEST(SimpleTypes, HaveTheFacetsOfAllSteps) {
    Row const rows[] = {
        {&Again<PercentType>, "100.00", "100"},
        {&Again<PercentType>, "100.01", kNo},
        {&Again<PercentType>, "-1", kNo},
        {&Again<PercentType>, "1.234", kNo},
        {&Again<TopPercentType>, "90", kNo},
        {&Again<TopPercentType>, "90.5", "90.5"},
        {&Again<TopPercentType>, "101", kNo},
        {&Again<AngleType>, "0", "0"},
        {&Again<AngleType>, "-1", kNo},
        {&Again<AngleType>, "359", "359"},
        {&Again<AngleType>, "360", kNo},
        {&Again<DayType>, "2024-02-28", kNo},
        {&Again<DayType>, "2024-02-29", "2024-02-29"},
        {&Again<DayType>, "2024-03-01", "2024-03-01"},
        {&Again<DayType>, "2024-03-02", kNo},
        {&Again<MarkType>, "a", kNo},
        {&Again<MarkType>, "ab", "ab"},
        {&Again<CodeType>, " AB123 ", "AB123"},
        {&Again<CodeType>, "AB12345", kNo},
        {&Again<CodeType>, "xAB1", kNo},
        {&Again<CodeType>, "AB1x", kNo},
        {&Again<SpeedType>, " fast ", "fast"},
        {&Again<SpeedType>, "Fast", kNo},
        {&Again<SizeType>, "1", "1"},
        {&Again<SizeType>, "02.50", "2.5"},
        {&Again<SizeType>, "2", kNo},
        {&Again<TwoSizesType>, "1 2.5", "1 2.5"},
        {&Again<TwoSizesType>, "1", kNo},
        {&Again<TwoSizesType>, "1 3", kNo},
        {&Again<WeightType>, "2", "2"},
        {&Again<WeightType>, " slow ", "slow"},
        {&Again<WeightType>, "AB9", "AB9"},
        {&Again<WeightType>, "slower", kNo},
    };
    for (Row const& row : rows) EXPECT_EQ(row.again(row.text), row.written) << row.text;
}

}  // namespace
