#include "BxXmlLib5/values/CDecimal.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "values/Numbers.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

/// Sets the limit of decimal places for a scope.
class Places {
public:
    explicit Places(int places) { CDecimal::SetMaxDecimalPlaces(places); }
    Places(Places const&) = delete;
    ~Places() { CDecimal::SetMaxDecimalPlaces(m_before); }

private:
    int m_before = CDecimal::GetMaxDecimalPlaces();
};

CDecimal Number(std::string const& text) {
    return BxTest::Number<CDecimal>(text);
}

std::string Zeros(std::size_t count) {
    return std::string(count, '0');
}

CDecimal Random(std::mt19937& random, unsigned mostDigits, unsigned mostPlaces) {
    std::string const sign = random() % 2 == 0 ? "-" : "",
                      integer = RandomDigits(random, random() % mostDigits);
    return Number(sign + integer + "." + RandomDigits(random, random() % (mostPlaces + 1)));
}

}  // namespace

TEST(CDecimal, ReadsText) {
    Values const values = {{"", "0"},        {"-  ", "-0"},   {"-0.00", "-0"}, {"+1.50", "1.5"},
                           {"0.05", "0.05"}, {"-.5", "-0.5"}, {"5.", "5"},     {"1\n.\t5 \r1", "1.51"},
                           {"12-", "-12"},   {"-1+2", "12"}};
    ExpectRead<CDecimal>(values);
    EXPECT_EQ(Text(CDecimal(u"-1.5")) + Text(CDecimal(static_cast<char16_t const*>(nullptr))), "-1.50");
}

TEST(CDecimal, TakesLiteralsAlone) {
    Values const values = {
        {"+1.50", "1.5"}, {"-.5", "-0.5"}, {"5.", "5"}, {"12345678901234567890.5", "12345678901234567890.5"}};
    for (auto const& [text, value] : values) {
        std::optional<CDecimal> const read = CDecimal::FromLiteral(FromUtf8(text));
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(Text(*read), value);
    }
    for (char const* text : {"", "-", ".", "+.", "-+1", "1.2.3", "1e2", " 1", "1 ", "12345678901234567890.5.",
                             "12345678901234567890-", ".12345678901234567890x"})
        EXPECT_FALSE(CDecimal::FromLiteral(FromUtf8(text))) << text;
}

TEST(CDecimal, ReadsExponents) {
    Values const values = {{"1.5E+", "1.5"},      {"-0e-", "-0"},      {"12.345e1", "123.45"},
                           {"1.2e \t+3", "1200"}, {"1e+ -2", "0.01"},  {"-12.5e-3", "-0.0125"},
                           {"100e-2", "1"},       {"1e000002", "100"}, {"0e999999999", "0"},
                           {"-0e5", "0"},         {"-1e-999999", "0"}};
    ExpectRead<CDecimal>(values);
}

TEST(CDecimal, ReadsTextOfAnyLength) {
    Places const places(800'000);
    std::string const digits = "1" + std::string(700'000, '2'), text = "-" + digits + "." + digits;
    EXPECT_EQ(Text(Number(text)), text);
}

TEST(CDecimal, RefusesTextWithThePositionOfItsCharacter) {
    Values const rows = {{"x", "0"},    {"1.-5", "2"}, {"1.5.", "3"},  {"1.5 +", "4"},  {"1e5 ", "3"},
                         {"1e5-", "3"}, {"1ex", "2"},  {"1e1.5", "3"}, {"- e +x", "5"}, {"\u0661", "0"}};
    ExpectRefused<CDecimal>(rows);
    for (double const value : {HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_THROW(CDecimal{value}, CBxInvalidValueException);
}

TEST(CDecimal, RefusesExponentsThatWouldFillTheMemory) {
    for (char const* const text : {"0.001e10004", "-1e18446744073709551618"})
        EXPECT_BX_THROW(Number(text), CBxOverFlowException,
                        std::string("The exponent of the Decimal [") + text + "] is too large");
    EXPECT_EQ(Text(Number("0.001e10003")), "1" + std::string(10000, '0'));
    Places const places(INT32_MAX);
    EXPECT_EQ(Text(Number("1e-5000001")), "0") << "the limit has a limit of its own";
}

TEST(CDecimal, IsZeroOnceMovedFrom) {
    CDecimal from(u"-1.005"), to(std::move(from));
    EXPECT_EQ(from, CDecimal());
    EXPECT_FALSE(from < CDecimal());
    from = std::move(to);
    EXPECT_EQ(Text(from) + Text(to), "-1.0050");
}

TEST(CDecimal, TakesNativeNumbers) {
    ExpectTakesIntegers<CDecimal, bool, char, signed char, short, unsigned short, int, unsigned, long,
                        unsigned long, long long, unsigned long long>();
    EXPECT_EQ(Text(CDecimal(-2.5e-13)), "-0.0000000000002");  // printed half to even
    EXPECT_EQ(Signed(CDecimal(-1e-20)), "-0");
}

TEST(CDecimal, RoundsToTheLimitOfPlaces) {
    Places const places(2);
    ExpectRead<CDecimal>({{"0.1250001", "0.13"}, {"-9.996", "-10"}, {"-4e-3", "-0"}, {"-4e-5", "0"}});
    // A negative exponent cuts two places behind the limit, and what is left decides.
    ExpectRead<CDecimal>({{"0.12509e0", "0.13"}, {"0.12509e-0", "0.12"}, {"0.1251e-0", "0.13"}});
    CDecimal::SetMaxDecimalPlaces(-3);
    ExpectRead<CDecimal>({{"1.6", "2"}, {"1.6e0", "2"}, {"15e-1", "1"}, {"16e-1", "2"}});
    EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), -3);
}

TEST(CDecimal, PrintsWithAChosenNumberOfPlaces) {
    std::tuple<std::string, int, std::string> const rows[] = {
        {"1.9995", 3, "2.0"}, {"-0.001", 2, "-0.00"}, {"1.25", 30, "1.25"}};
    for (auto const& [value, count, text] : rows)
        EXPECT_EQ(ToUtf8(Number(value).ToString(count)), text) << value << ' ' << count;
    EXPECT_EQ(ToUtf8(Number("15e-30").ToString(29)), "0." + Zeros(28) + "2");
    EXPECT_BX_THROW(CDecimal(1).ToString(-1), CBxInvalidParamException,
                    "Invalid number of decimal places [-1]");
    Places const places(2);
    EXPECT_EQ(ToUtf8(Number("0.49").ToString(1) + Number("0.49").ToString(2)), "0.50.49");
}

TEST(CDecimal, ConvertsToDoublesOfAnySize) {
    Places const places(400);
    EXPECT_EQ(CDecimal(u"1e-320").ToDouble(), 1e-320);
    EXPECT_EQ(CDecimal(u"1e-390").ToDouble(), 0.0);
    EXPECT_EQ(CDecimal(u"-123456789012345678901234567890.5").ToDouble(), -123456789012345678901234567890.5);
}

TEST(CDecimal, RefusesToConvertWhatIsTooLarge) {
    CDecimal const most = Number("1.7e308");
    EXPECT_EQ(Number("2147483647.5").ToLong(), INT32_MAX);
    EXPECT_EQ(Number("-2147483648.5").ToLong(), INT32_MIN);
    EXPECT_EQ(Number("9223372036854775807.95").ToLongLong(), INT64_MAX);
    EXPECT_EQ(Number("-9223372036854775808.95").ToLongLong(), INT64_MIN);
    EXPECT_EQ((most + CDecimal(0.5)).ToDouble(), 1.7e308);
    std::string const message = "The Decimal value if to large to fit into a ";
    for (char const* const text : {"2147483647.51", "-2147483648.51"})
        EXPECT_BX_THROW(Number(text).ToLong(), CBxOverFlowException, message + "LONG");
    for (char const* const text : {"9223372036854775807.96", "-9223372036854775808.96"})
        EXPECT_BX_THROW(Number(text).ToLongLong(), CBxOverFlowException, message + "LONGLONG");
    for (CDecimal const& value : {most + 1, most.GetNegative() - 1})
        EXPECT_BX_THROW(value.ToDouble(), CBxOverFlowException, message + "Double");
}

TEST(CDecimal, CalculatesAndRounds) {
    auto const withoutSignOf0 = [](Model number) {
        return Model{number.minus && number.units != 0, number.units, number.places};
    };
    std::mt19937 random(5);
    for (int i = 0; i < 3000; ++i) {
        int const limit = std::array{0, 3, 8, 20}[random() % 4], count = static_cast<int>(random() % 9);
        Model const a = Model::Random(random, 6), b = i % 8 == 0 ? Negative(a) : Model::Random(random, 6);
        CDecimal const x = Number(a.Source()), y = Number(b.Source());
        SCOPED_TRACE(a.Source() + " and " + b.Source() + ", limit " + std::to_string(limit));
        Places const places(limit);
        EXPECT_EQ(Signed(Number(a.Source())), a.Rounded(limit).Text());
        auto const expect = [&](auto apply, auto assign, Model const& result) {
            ExpectResult(x, y, apply, assign, result.Text(), result.Text());
        };
        expect(BX_APPLY(+), withoutSignOf0(Sum(a, b)));
        expect(BX_APPLY(-), withoutSignOf0(Sum(a, Negative(b))));
        expect(BX_APPLY(*), withoutSignOf0(Product(a, b)).Rounded(limit));
        std::string const quotient =
            b.units == 0 ? "!" : withoutSignOf0(Quotient(a, b, limit + 2)).Rounded(limit).Text();
        ExpectResult(x, y, BX_APPLY(/), quotient, quotient);
        ExpectOrder(x, y, a <=> b);

        EXPECT_EQ(x.ToLong(), a.Rounded(0).Value(0));
        EXPECT_EQ(x.ToLongLong(), a.Rounded(1).Value(1) / 10);
        EXPECT_EQ(Text(x.ToBigInteger()), withoutSignOf0(a.Rounded(0)).Text());
        EXPECT_EQ(x.ToDouble(), std::stod(a.Source()));
        std::string text = count < limit ? Sum(a, {a.minus, 5, count + 1}).Text() : withoutSignOf0(a).Text();
        if (text.find('.') == text.npos) text += ".0";
        EXPECT_EQ(ToUtf8(x.ToString(count)),
                  text.substr(0, text.find('.') + 1 + static_cast<std::size_t>(count)));
    }
}

TEST(CDecimal, HasThirteenPlacesOfADouble) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20'000; ++i) {
        // Of any size, and halves of the last place.
        double const any = std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 140) - 150);
        double const value = i % 2 == 0 ? any : -std::ldexp(static_cast<double>(random() >> 40), -14);
        char text[400];
        std::snprintf(text, sizeof text, "%.13f", value);
        ASSERT_EQ(Signed(CDecimal(value)), Signed(Number(text))) << text;
    }
    Places const places(2);
    EXPECT_EQ(Text(CDecimal(0.126)) + Text(CDecimal(0.125)), "0.130.12");
}

TEST(CDecimal, StepsAndChangesItsSign) {
    CDecimal a(u"-0.25");
    EXPECT_EQ(Text(a++) + Text(a--) + Text(a), "0.75-1.25-0.25");
    EXPECT_EQ(Text(++ ++a), "1.75");
    EXPECT_EQ(Text(-- --a), "-0.25");
    EXPECT_EQ(Text(a.GetNegative()) + Text(a), "0.25-0.25");
    EXPECT_EQ(Signed(CDecimal().GetNegative()), "-0");
}

// Numbers around what 64 bits hold are the same whichever way they were made.
TEST(CDecimal, IsEqualHoweverItWasMade) {
    CDecimal const great = Number("1e30"), tenth = Number("0.1");
    for (char const* const text :
         {"9223372036854775807", "9223372036854775808", "-9223372036854775808", "-9223372036854775809",
          "922337203685477580.7", "92233720368547758.075", "0.000000000000000001", "-0.999999999999999999",
          "0.9999999999999999999", "-7", "1000000000000000000", "123456789012345678901234.5", "0"}) {
        CDecimal const value = Number(text);
        CDecimal copy = great;
        copy = value;
        SCOPED_TRACE(text);
        EXPECT_EQ(Text(value), text);
        for (CDecimal const& other :
             {copy, value + great - great, value * 10 * tenth, value.GetNegative().GetNegative(),
              great - (great - value),
              Number(text + std::string(std::string(text).find('.') == std::string::npos ? ".0" : "0"))}) {
            EXPECT_TRUE(other == value && !(other < value) && !(other > value)) << Text(other);
        }
        EXPECT_TRUE(value + tenth > value && value - tenth < value && value != value + tenth);
    }
}

TEST(CDecimal, KeepsTheLawsOfArithmetic) {
    Places const places(60);
    std::mt19937 random(7);
    for (int i = 0; i < 1000; ++i) {
        CDecimal const a = Random(random, 20, 25), b = Random(random, 20, 25), c = Random(random, 12, 12);
        SCOPED_TRACE(Text(a) + ' ' + Text(b) + ' ' + Text(c));
        ASSERT_EQ(Text(a + b - b), Text(a));
        ASSERT_EQ(Text((a + b) * c), Text(a * c + b * c));
        ASSERT_EQ(a < b, Text(a - b)[0] == '-');
        if (b == CDecimal()) continue;
        CDecimal const quotient = a / b;
        Places const all(1000);
        // Off by no more than 0.51 units of the last place.
        CDecimal const error = quotient * b - a, most = CDecimal(u"51e-62") * b;
        ASSERT_LE(error * error, most * most) << Text(quotient);
    }
}

// What else compiles: neither the standard order nor the integers made the told operators ambiguous.
static_assert(std::three_way_comparable<CDecimal, std::strong_ordering> && std::totally_ordered<CBigInteger>);
static_assert(requires(CBigInteger const& integer, CDecimal decimal) {
    integer < decimal;
    decimal >= 2;
    decimal != 2.5;
    decimal *= 5u;
});
