#include "collections/FacetChecks.h"

#include <algorithm>
#include <array>
#include <limits>
#include <sstream>

#include "collections/FacetKinds.h"
#include "support/Expect.h"
#include "values/Dates.h"

namespace {

using namespace BxXmlLib5;
using R = CPrimitiveRestrictions;

/// The facets that words set, as in ">=1 <9 maxLength=3 pattern=a*". An underscore is a blank.
R FacetsOf(std::string const& words) {
    struct {
        std::string start;
        int R::*length = nullptr;
        wstring R::*text = nullptr;
    } const kFacets[] = {
        {"pattern=", nullptr, &R::m_pattern}, {"minLength=", &R::m_minLength},
        {"maxLength=", &R::m_maxLength},      {"length=", &R::m_length},
        {">=", nullptr, &R::m_minInclusive},  {"<=", nullptr, &R::m_maxInclusive},
        {">", nullptr, &R::m_minExclusive},   {"<", nullptr, &R::m_maxExclusive},
    };
    R facets;
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        std::ranges::replace(word, '_', ' ');
        auto const* const facet = std::ranges::find_if(
            kFacets, [&word](auto const& candidate) { return word.starts_with(candidate.start); });
        std::string const value = word.substr(facet->start.size());
        if (facet->text != nullptr) {
            facets.*(facet->text) = FromUtf8(value);
        } else {
            facets.*(facet->length) = std::stoi(value);
        }
    }
    return facets;
}

std::string Check(ItemType type, R const& facets, BxVariant const& value) {
    return BxTest::Thrown([&] { CheckRestrictions(type, facets, u"n", value); });
}

std::string Check(ItemType type, std::string const& facets, std::string const& text) {
    BxVariant value;
    value.FromString(FromUtf8(text), type, CWhitespaceUtils::ws_Preserve);
    return Check(type, FacetsOf(facets), value);
}

/// What a message of this value says.
std::string Refused(std::string const& shown) {
    return "CBxException: Invalid Value for n [" + shown + "]";
}

TEST(FacetChecks, EachKindOrdersItsValuesAndShowsThem) {
    // Three values in their order, and how the one in the middle is shown where it is not as it is written.
    std::pair<ItemType, std::string> const rows[] = {
        {it_i1, "-1 1 127"},
        {it_i2, "-1 1 32767"},
        {it_i4, "-1 1 2147483647"},
        {it_i8, "-1 4294967296 9223372036854775807"},
        {it_ui1, "1 200 255"},
        {it_ui2, "1 40000 65535"},
        {it_ui4, "1 3000000000 4294967295"},
        {it_ui8, "1 10000000000000000000 18446744073709551615"},
        {it_r4, "-1 123456789 3e38 123456792.000000"},
        {it_r8, "123456788.9999999 123456789 1e300 123456789.000000"},
        {it_duration, "P1M P40D P2M"},
        {it_yearMonth, "1999-12 2000-01 2000-02"},
        {it_monthDay, "--01-31 --02-01 --02-02"},
        {it_year, "1999 2000 -0001"},
        {it_month, "--04 --05 --06 5"},
        {it_day, "---06 ---07 ---08 7"},
        {it_date, "1999-12-31 2000-01-01 2000-01-02"},
        {it_datetime, "2000-01-01T00:00:00 2000-01-01T00:00:00.5 2000-01-01T00:00:01"},
        {it_time, "09:59:59 10:00:00 10:00:01"},
        {it_decimal, "12345678901234567890.1 12345678901234567890.2 12345678901234567890.3"},
        {it_integer, "-1000000000000000000000000000001 -1000000000000000000000000000000 1"}};
    // Which of them the one in the middle passes as a bound.
    std::pair<std::string, std::array<bool, 3>> const facets[] = {{">=", {true, true, false}},
                                                                  {"<=", {false, true, true}},
                                                                  {">", {true, false, false}},
                                                                  {"<", {false, false, true}}};
    for (auto const& [type, row] : rows) {
        auto const words = BxTest::Words(row);
        for (auto const& [facet, passes] : facets) {
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_EQ(Check(type, facet + words[i], words[1]),
                          passes[i] ? "nothing" : Refused(words.size() == 4 ? words[3] : words[1]))
                    << facet << " for " << row;
        }
    }
}

TEST(FacetChecks, TestsTheFacetsOfTheKind) {
    std::string const kAll = "length=9 minLength=9 maxLength=0 pattern=( >=9 >9 <=0 <0";
    std::string const kNoLengths = "length=-1 minLength=-7 maxLength=-2";
    auto const noInteger = [](std::string const& bound) {
        return "CBxInvalidValueException: The value [" + bound + "] can not be converted to a i4";
    };
    struct {
        ItemType type;
        std::string facets, value, result;
    } const kRows[] = {
        {it_string, kNoLengths + " >=x <=x >x <x", "any", "nothing"},
        {it_string, "minLength=3 maxLength=3 length=3", "abc", "nothing"},
        {it_string, "minLength=3", "ab", Refused("ab")},
        {it_string, "maxLength=3", "abcd", Refused("abcd")},
        {it_string, "length=3", "ab", Refused("ab")},
        {it_string, "length=3", "abcd", Refused("abcd")},
        {it_string, "length=0 maxLength=0", "", "nothing"},
        {it_string, "length=0", "a", Refused("a")},
        {it_string, "minLength=3 maxLength=2", "ab", Refused("ab")},
        {it_string, "length=2", "\U0001F600", "nothing"},
        {it_string, "minLength=3 pattern=(", "ab", Refused("ab")},  // lengths first
        {it_hexBinary, "minLength=2 length=2 maxLength=2 pattern=( >=9", "0aFF", "nothing"},
        {it_hexBinary, "minLength=3", "0aFF", Refused("0AFF")},
        {it_base64Binary, "maxLength=2", "CsP/", Refused("0AC3FF")},
        {it_boolean, kAll, "true", "nothing"},
        {it_i4, "length=9 minLength=9 maxLength=0 >=5 >4 <=5 <6", "5", "nothing"},
        {it_i4, ">=_5_ <=+05", "5", "nothing"},
        {it_i4, ">=_", "-1", Refused("-1")},  // a bound of blanks is 0
        {it_i4, ">=6 <=a >b <c", "5", Refused("5")},
        {it_i4, ">=5 <=a >b <c", "5", noInteger("a")},
        {it_i4, ">4 <c", "5", noInteger("c")},
        {it_ui1, "<256", "5", "CBxInvalidValueException: The value [256] is to large to fit in a ui1"},
        {it_date, ">=_", "2000-01-01", "CBxInvalidValueException: Invalid Date (Empty String)"},
        {it_year, ">=--05", "2000",
         "CBxInvalidStateException: Failed to GetYear. Invalid Date Type: gMonth."},
        {it_date, ">=2000-01-01Z >2000-01-01Z <=2000-01-01Z <2000-01-01Z", "2000-01-01", "nothing"},
        {it_duration, ">=P30D >P30D <=P30D <P30D", "P1M", "nothing"},
        {it_integer, ">=0", "-0", Refused("0")},
        {it_decimal, ">=0", "-0", Refused("0")},
        {it_char, "", "c", "CBxInvalidValueException: unknown type [char]"},
    };
    for (auto const& row : kRows) {
        EXPECT_EQ(Check(row.type, row.facets, row.value), row.result) << row.facets << " for " << row.value;
    }
}

TEST(FacetChecks, AbsentOnesRestrictNothing) {
    BxVariant value;
    value.SetString(u"x");
    R const absent(nullptr, -1, -1, nullptr, nullptr, nullptr, nullptr, -1);
    EXPECT_EQ(Check(it_string, absent, value) + Check(it_string, R(), value), "nothingnothing");
}

TEST(FacetChecks, NanBreaksEveryBound) {
    BxVariant nan;
    nan.SetR4(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(Check(it_r4, FacetsOf(""), nan), "nothing");
    EXPECT_EQ(Check(it_r4, FacetsOf("<=1"), nan), Refused("nan"));
    nan.SetR8(std::numeric_limits<double>::quiet_NaN());
    for (char const* const facet : {">=0", ">0", "<=0", "<0"}) {
        EXPECT_EQ(Check(it_r8, FacetsOf(facet), nan), Refused("nan")) << facet;
    }
}

TEST(FacetChecks, RefusesAVariantOfAnotherKind) {
    R const facets;
    BxVariant value;
    EXPECT_EQ(Check(it_string, facets, value), "CBxException: Invalid Type 0 for n of type 23");
    EXPECT_EQ(Check(it_char, facets, value), "CBxException: Invalid Type 0");
    value.SetI4(7);
    EXPECT_EQ(Check(it_decimal, facets, value), "CBxException: Invalid Type 5 for n of type 25");
    for (int const type : {-1, 0, 28, 29}) {
        EXPECT_EQ(Check(static_cast<ItemType>(type), facets, value),
                  "CBxInvalidValueException: unknown type [i4]");
    }
    value.Clear();
    value.m_type = it_string;  // with a null pointer
    EXPECT_EQ(Check(it_string, FacetsOf("length=1"), value), Refused(""));
    value.m_type = it_invalid;
}

}  // namespace
