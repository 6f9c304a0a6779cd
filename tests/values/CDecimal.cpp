#include "BxXmlLib5/values/CDecimal.h"

#include <cmath>
#include <random>

#include "values/Numbers.h"

using namespace BxXmlLib5;
using BxTest::ExpectAscending;
using BxTest::InvalidAt;
using BxTest::Signed;
using BxTest::Text;

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
    static constexpr char kOften[] = "00995";
    auto const digits = [&](std::size_t count) {
        std::string text;
        while (text.size() < count) {
            auto const pick = random() % 10;
            text.push_back(pick < 5 ? kOften[pick] : static_cast<char>('0' + random() % 10));
        }
        return text;
    };
    return Number((random() % 2 == 0 ? "-" : "") + digits(random() % mostDigits) + "." +
                  digits(random() % (mostPlaces + 1)));
}

}  // namespace

TEST(CDecimal, ReadsText) {
    static constexpr struct {
        char const *text, *value;
    } kRows[] = {
        {"-  ", "-0"},   {"-0.00", "-0"},     {"007", "7"},         {"+1.50", "1.5"},        {"0.05", "0.05"},
        {"-.5", "-0.5"}, {"5.", "5"},         {" 1 2\t\r\n", "12"}, {"1\n.\t5 \r1", "1.51"}, {"12-", "-12"},
        {"-1+2", "12"},  {"+1-2.5", "-12.5"}, {" . ", "0"}};
    for (auto const& row : kRows) EXPECT_EQ(Signed(Number(row.text)), row.value) << '[' << row.text << ']';
    EXPECT_EQ(Text(CDecimal(u"")) + Text(CDecimal(static_cast<char16_t const*>(nullptr))), "00");
}

TEST(CDecimal, ReadsExponents) {
    static constexpr struct {
        char const *text, *value;
    } kRows[] = {
        {"1.5E+", "1.5"},        {"-0e-", "-0"},        {"12.345e1", "123.45"},     {"1.2e \t+3", "1200"},
        {"1.25e2", "125"},       {"1e-+2", "100"},      {"1e+ -2", "0.01"},         {"-1.2e-1", "-0.12"},
        {"-12.5e-3", "-0.0125"}, {"100e-2", "1"},       {"1e0000000000002", "100"}, {"0e999999999", "0"},
        {"-0e5", "0"},           {"1e-999999999", "0"}, {"-1e-9999999999", "0"},    {"5e-31", "0"},
        {"-4e-31", "-0"},        {"-4e-33", "0"}};
    for (auto const& row : kRows) EXPECT_EQ(Signed(Number(row.text)), row.value) << '[' << row.text << ']';
    EXPECT_EQ(Text(CDecimal(u"-1.7E+308")), "-17" + Zeros(307));
}

TEST(CDecimal, RoundsTextToThirtyPlaces) {
    std::string const ones = std::string(29, '1'), down = "0." + ones + "1", up = "0." + ones + "2";
    struct {
        std::string text, value;
    } const rows[] = {{down + "5", down},
                      {down + "50000000000001", up},
                      {"-" + down + "6", "-" + up},
                      {down + "49999", down},
                      {"1." + std::string(31, '9'), "2"},
                      {"-0." + std::string(31, '9'), "-1"},
                      {"0.1" + ones.substr(1) + "96", "0." + ones.substr(1) + "2"},
                      {"-6e-31", "-0." + Zeros(29) + "1"},
                      // A negative exponent cuts two places behind the limit, and what is left decides.
                      {down + "509e0", up},
                      {down + "509e-0", down},
                      {down + "509e-", up},
                      {down + "51e-0", up}};
    for (auto const& row : rows) EXPECT_EQ(Text(Number(row.text)), row.value) << row.text;
}

TEST(CDecimal, ReadsTextOfAnyLength) {
    std::string const digits = "1" + std::string(700'000, '2');
    EXPECT_EQ(Text(Number(digits + ".5")), digits + ".5");
    EXPECT_EQ(Text(Number("0." + digits)), "0.1" + std::string(29, '2'));
    EXPECT_EQ(Text(Number("1e3000000")), "1" + Zeros(3'000'000));
    Places const places(800'000);
    EXPECT_EQ(Text(Number("-0." + digits)), "-0." + digits);
    EXPECT_EQ(Text(Number("1e-1000")), "0." + Zeros(999) + "1");
}

TEST(CDecimal, RefusesTextWithThePositionOfItsCharacter) {
    static constexpr struct {
        char const* text;
        int at;
    } kRows[] = {{"x", 0},     {"12x", 2},  {"1.-5", 2}, {"1.5.", 3},   {"1.5x", 3},
                 {"1.5 +", 4}, {"1e5 ", 3}, {"1e5-", 3}, {"1ex", 2},    {"1e1.5", 3},
                 {"1ee", 2},   {"1,5", 1},  {"INF", 0},  {"- e +x", 5}, {"0x10", 1}};
    for (auto const& row : kRows)
        EXPECT_BX_THROW(Number(row.text), CBxInvalidValueException, InvalidAt(row.at, row.text));
    EXPECT_THROW(CDecimal(std::u16string_view(u"1\0", 2)), CBxInvalidValueException);
    EXPECT_THROW(CDecimal(std::u16string_view(u"\0", 1)), CBxInvalidValueException);
    EXPECT_THROW(CDecimal(u"\u0661"), CBxInvalidValueException);
    for (double const value : {HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_THROW(CDecimal{value}, CBxInvalidValueException);
}

TEST(CDecimal, RefusesExponentsThatWouldFillTheMemory) {
    for (char const* const text : {"1e999999999", "0.001e20000000", "-1e18446744073709551618"})
        EXPECT_BX_THROW(Number(text), CBxOverFlowException,
                        std::string("The exponent of the Decimal [") + text + "] is too large");
    Places const places(INT32_MAX);
    EXPECT_THROW(Number("1e-999999999"), CBxOverFlowException);
}

TEST(CDecimal, TakesNativeNumbers) {
    EXPECT_EQ(Text(CDecimal(-5)) + Text(CDecimal(5L)) + Text(CDecimal(INT64_MIN)), "-55-9223372036854775808");
    EXPECT_EQ(Text(CDecimal(CBigInteger(u"-12"))), "-12");
    EXPECT_EQ(CDecimal(0.1), CDecimal(u"0.1"));
    EXPECT_EQ(Text(CDecimal(-2.5e-13)), "-0.0000000000002");  // printed half to even
    EXPECT_EQ(Text(CDecimal(1e22)), "10000000000000000000000");
    EXPECT_EQ(Signed(CDecimal(-1e-20)), "-0");
}

TEST(CDecimal, RoundsToTheLimitOfPlaces) {
    static constexpr struct {
        int places;
        char const *text, *value;
    } kRows[] = {{2, "0.996", "1"},      {2, "0.125", "0.12"}, {2, "0.126", "0.13"}, {2, "-0.126", "-0.13"},
                 {2, "-9.995", "-9.99"}, {2, "-9.996", "-10"}, {2, "1.005", "1"},    {2, "0.196", "0.2"},
                 {1, "0.04", "0"},       {1, "0.06", "0.1"},   {0, "1.5", "1"},      {0, "-2.5", "-2"},
                 {0, "-0.51", "-1"},     {0, "0.4", "0"},      {-3, "1.6", "2"},     {-3, "7", "7"},
                 {0, "15e-1", "1"},      {0, "16e-1", "2"},    {-3, "1.6e0", "2"}};
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.text);
        Places const places(row.places);
        EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), row.places);
        EXPECT_EQ(Text(Number(row.text)), row.value);
        EXPECT_EQ(Number(row.text), Number(row.value));
    }
    EXPECT_EQ(CDecimal::GetMaxDecimalPlaces(), 30);
    Places const places(0);
    EXPECT_EQ(Text(CDecimal(7) / CDecimal(4)), "2");
    EXPECT_EQ(Text(CDecimal(7) / CDecimal(-2)), "-3");
    EXPECT_EQ(Text(CDecimal(8) / CDecimal(3) + CDecimal(1)), "4");
}

TEST(CDecimal, PrintsWithAChosenNumberOfPlaces) {
    static constexpr struct {
        char const* value;
        int places;
        char const* text;
    } kRows[] = {{"1.005", 2, "1.01"}, {"-1.005", 2, "-1.01"}, {"1.0049", 2, "1.00"}, {"12.6", 0, "13."},
                 {"12.4", 0, "12."},   {"1.9995", 3, "2.0"},   {"0.1", 3, "0.100"},   {"1.25", 3, "1.250"},
                 {"0", 0, "0."},       {"0", 2, "0.00"},       {"5", 2, "5.00"},      {"-0.3", 0, "-0."},
                 {"-0.5", 0, "-1."},   {"-0.001", 2, "-0.00"}, {"0.05", 1, "0.1"},    {"99.95", 1, "100.0"},
                 {"1.25", 30, "1.25"}, {"1.25", 99, "1.25"},   {"7", 40, "7.0"}};
    for (auto const& row : kRows)
        EXPECT_EQ(ToUtf8(Number(row.value).ToString(row.places)), row.text) << row.value << ' ' << row.places;
    EXPECT_BX_THROW(CDecimal(1).ToString(-1), CBxInvalidParamException,
                    "Invalid number of decimal places [-1]");
    EXPECT_EQ(ToUtf8(Number("0.15e-28").ToString(29)), "0." + Zeros(28) + "2");
    EXPECT_EQ(ToUtf8(Number("0.15e-28").ToString(30)), "0." + Zeros(28) + "15");
    Places const places(2);
    EXPECT_EQ(ToUtf8(Number("0.49").ToString(1)), "0.5");
    EXPECT_EQ(ToUtf8(Number("0.49").ToString(2)), "0.49");
}

TEST(CDecimal, ConvertsToNativeNumbers) {
    static constexpr struct {
        char const* value;
        std::int32_t rounded;
        std::int64_t cut;
    } kRows[] = {{"1.6", 2, 1},     {"1.5", 1, 1},  {"-2.5", -2, -2}, {"-2.51", -3, -2}, {"0.96", 1, 1},
                 {"-1.96", -2, -2}, {"0.95", 1, 0}, {"-0.4", 0, 0},   {"7", 7, 7},       {"-0", 0, 0}};
    for (auto const& row : kRows) {
        EXPECT_EQ(Number(row.value).ToLong(), row.rounded) << row.value;
        EXPECT_EQ(Text(Number(row.value).ToBigInteger()), std::to_string(row.rounded)) << row.value;
        EXPECT_EQ(CBigInteger(Number(row.value)), CBigInteger(row.rounded)) << row.value;
        EXPECT_EQ(Number(row.value).ToLongLong(), row.cut) << row.value;
    }
    EXPECT_EQ(CDecimal(u"2147483647.5").ToLong(), INT32_MAX);
    EXPECT_EQ(CDecimal(u"-2147483648.5").ToLong(), INT32_MIN);
    EXPECT_EQ(CDecimal(u"9223372036854775807.95").ToLongLong(), INT64_MAX);
    EXPECT_EQ(CDecimal(u"-9223372036854775808.95").ToLongLong(), INT64_MIN);
    for (char const* const text : {"2147483647.51", "-2147483648.51", "1e20"})
        EXPECT_BX_THROW(Number(text).ToLong(), CBxOverFlowException,
                        "The Decimal value if to large to fit into a LONG");
    for (char const* const text : {"9223372036854775807.96", "-9223372036854775809"})
        EXPECT_BX_THROW(Number(text).ToLongLong(), CBxOverFlowException,
                        "The Decimal value if to large to fit into a LONGLONG");
}

TEST(CDecimal, ConvertsToDouble) {
    EXPECT_EQ(CDecimal(u"-0.1").ToDouble(), -0.1);
    EXPECT_EQ(CDecimal(u"123456789012345678901234567890.5").ToDouble(), 123456789012345678901234567890.5);
    EXPECT_EQ(CDecimal(u"-1.7e308").ToDouble(), -1.7e308);
    EXPECT_EQ((CDecimal(u"1.7e308") + CDecimal(0.5)).ToDouble(), 1.7e308);
    for (int const sign : {1, -1}) {
        CDecimal const beyond = (CDecimal(u"1.7e308") + 1) * sign;
        EXPECT_BX_THROW(beyond.ToDouble(), CBxOverFlowException,
                        "The Decimal value if to large to fit into a Double");
    }
    Places const places(400);
    EXPECT_EQ(CDecimal(u"1e-320").ToDouble(), 1e-320);
    EXPECT_EQ(CDecimal(u"1e-390").ToDouble(), 0.0);
}

TEST(CDecimal, Calculates) {
    static struct {
        char const *a, *b, *sum, *difference, *product;
        std::string quotient;
    } const kRows[] = {
        {"0.1", "0.2", "0.3", "-0.1", "0.02", "0.5"},
        {"1.5", "-2.25", "-0.75", "3.75", "-3.375", "-0." + std::string(29, '6') + "7"},
        {"-1", "0.5", "-0.5", "-1.5", "-0.5", "-2"},
        {"-0.5", "0.5", "0", "-1", "-0.25", "-1"},
        {"9.95", "0.05", "10", "9.9", "0.4975", "199"},
        {"1", "3", "4", "-2", "3", "0." + std::string(30, '3')},
        {"2", "-3", "-1", "5", "-6", "-0." + std::string(29, '6') + "7"},
        {"0", "-7", "-7", "7", "0", "0"},
        {"-7", "-0", "-7", "-7", "0", ""},
        {"-0", "-0", "0", "0", "0", ""},
        {"0.000000000000001", "0.0000000000000005", "0.0000000000000015", "0.0000000000000005", "0", "2"}};
    for (auto const& row : kRows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        CDecimal const a = Number(row.a), b = Number(row.b);
        CDecimal c = a;
        EXPECT_EQ(Signed(a + b), row.sum);
        EXPECT_EQ(Signed(c += b), row.sum);
        EXPECT_EQ(Signed(a - b), row.difference);
        EXPECT_EQ(Signed((c = a) -= b), row.difference);
        EXPECT_EQ(Signed(a * b), row.product);
        EXPECT_EQ(Signed((c = a) *= b), row.product);
        c = a;
        if (!row.quotient.empty()) {
            EXPECT_EQ(Signed(a / b), row.quotient);
            EXPECT_EQ(Signed(c /= b), row.quotient);
        } else {
            EXPECT_BX_THROW(c /= b, CBxInvalidValueException, "ERROR: Overflow in operator/!");
            EXPECT_EQ(Signed(c), row.a);
        }
    }
}

TEST(CDecimal, StepsByOne) {
    CDecimal a(u"-0.25");
    EXPECT_EQ(Text(a++) + Text(a--) + Text(a), "0.75-1.25-0.25");
    EXPECT_EQ(&++a, &a);
    EXPECT_EQ(Text(a), "0.75");
    EXPECT_EQ(Text(-- --a), "-1.25");
    EXPECT_EQ(Text(a), "-1.25");
}

TEST(CDecimal, ChangesItsSign) {
    CDecimal a(u"0.5");
    EXPECT_EQ(Text(a.GetNegative()) + Text(a), "-0.50.5");
    a.Negate();
    EXPECT_EQ(a, CDecimal(u"-0.5"));
    CDecimal one(-1);
    one.Negate();
    EXPECT_EQ(Signed(CDecimal().GetNegative()), "-0");
    EXPECT_FALSE(one < CDecimal(u"1.00") || one > CDecimal(u"1.00"));
}

TEST(CDecimal, OrdersByIntegerPartThenFraction) {
    ExpectAscending<CDecimal>({"-1e30", "-2", "-1.5", "-1.05", "-1", "-0.5", "-0.25", "-0.0", "0", "0.05",
                               "0.3", "0.35", "1", "1.0001", "1e30"});
    // -1 with and without a fraction in its text, and as a result.
    CDecimal const ones[] = {CDecimal(-1),         CDecimal(u"-1"),
                             CDecimal(u"-1.00"),   CDecimal(1) - CDecimal(2),
                             CDecimal(u"-100e-2"), CDecimal(u"-0.5") * CDecimal(2)};
    for (CDecimal const& a : ones)
        for (CDecimal const& b : ones) EXPECT_TRUE(a == b && a <= b && a >= b && !(a < b) && !(a > b));
}

TEST(CDecimal, OperandsMayBeTheObject) {
    CDecimal const value(u"-1.25");
    CDecimal a = value;
    EXPECT_EQ(Text(a += a), "-2.5");
    EXPECT_EQ(Text((a = value) *= a), "1.5625");
    EXPECT_EQ(Text((a = value) /= a), "1");
    EXPECT_EQ(Text((a = value) -= a), "0");
    CDecimal& self = a = value;
    a = self;
    CDecimal const moved = std::move(a);
    EXPECT_EQ(Text(moved), "-1.25");
    a = 2;
    EXPECT_EQ(Text(a), "2");
}

TEST(CDecimal, KeepsTheLawsOfArithmetic) {
    Places const places(60);
    std::mt19937 random(7);
    CDecimal const unit(u"1e-60");
    for (int i = 0; i < 1000; ++i) {
        CDecimal const a = Random(random, 20, 25), b = Random(random, 20, 25), c = Random(random, 12, 12);
        SCOPED_TRACE(Text(a) + ' ' + Text(b) + ' ' + Text(c));
        ASSERT_EQ(Text(Number(Text(a))), Text(a));
        ASSERT_EQ(Text(a + b - b), Text(a));
        ASSERT_EQ(Text((a + b) * c), Text(a * c + b * c));
        ASSERT_EQ(a < b, Text(a - b)[0] == '-');
        if (b == CDecimal()) continue;
        CDecimal const quotient = a / b;
        {
            Places const all(1000);
            CDecimal const error = (quotient * b - a) * 100;
            CDecimal const most = unit * (b < CDecimal() ? b.GetNegative() : b) * 51;
            ASSERT_TRUE(error <= most && error >= most.GetNegative()) << Text(quotient);
        }
    }
}
