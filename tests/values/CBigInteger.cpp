#include "BxXmlLib5/values/CBigInteger.h"

#include <cmath>
#include <limits>

#include "BxXmlLib5/values/CDecimal.h"
#include "values/Magnitude.h"
#include "values/Numbers.h"

using namespace BxXmlLib5;
using namespace BxTest;

namespace {

/// Built before main, from constants that have to be there by then.
std::size_t const kDigitsOfGreatest = CBigInteger::MAX_DOUBLE.ToString().size();

CBigInteger Number(std::string const& text) {
    return BxTest::Number<CBigInteger>(text);
}

CBigInteger Random(std::mt19937& random) {
    static constexpr std::size_t kMost[] = {8, 20, 40, 500, 3000};
    std::string const sign = random() % 2 == 0 ? "" : "-", first = std::to_string(1 + random() % 9);
    return Number(sign + first + RandomDigits(random, random() % kMost[random() % 5]));
}

template <class Native>
void ExpectLimits(CBigInteger const& least, CBigInteger const& most) {
    EXPECT_EQ(static_cast<Native>(least), std::numeric_limits<Native>::min());
    EXPECT_EQ(static_cast<Native>(most), std::numeric_limits<Native>::max());
    for (CBigInteger const& beyond : {least - CBigInteger(1), most + CBigInteger(1)})
        EXPECT_BX_THROW(static_cast<Native>(beyond), CBxInvalidValueException,
                        "ERROR: Domain in operator int()!");
}

/// Sees what a derived class sees.
class CBigIntegerDigits : public testing::Test, protected CBigInteger {
protected:
    CBigIntegerDigits() : CBigInteger(-1, Digits{8, 9, 0}) {}
};

}  // namespace

TEST(CBigInteger, ReadsText) {
    Values const values = {{"", "0"},       {"-", "-0"},       {"+ -", "0"},    {"-0", "-0"},
                           {"007", "7"},    {"+5", "5"},       {"+-5", "5"},    {"-+5", "-5"},
                           {"\t-5", "5"},   {"  -1 ", "-1"},   {"1-2", "2"},    {"1 2", "2"},
                           {"-1+2", "-2"},  {"12\t\n ", "12"}, {"-2.51", "-3"}, {"-0.3", "-0"},
                           {"1e3", "1000"}, {"1 2.0", "12"}};
    ExpectRead<CBigInteger>(values);
    EXPECT_EQ(Text(CBigInteger(u"-1234567890")), "-1234567890");
    std::string const million = "-" + std::string(1'000'000, '7');
    EXPECT_EQ(Text(Number(million)), million);
}

TEST(CBigInteger, RefusesTextWithThePositionOfItsCharacter) {
    ExpectRefused<CBigInteger>({{"1x", "1"}, {"12 -", "3"}, {"1-2+ ", "3"}, {" 1.2-", "4"}});
    CBigInteger value(5);
    EXPECT_THROW(value.Parse(u"5-"), CBxInvalidValueException);
    EXPECT_EQ(Text(value), "5");
}

TEST(CBigInteger, TakesNativeNumbers) {
    ExpectTakesIntegers<CBigInteger, bool, char, signed char, short, unsigned short, int, unsigned, long,
                        unsigned long, long long, unsigned long long>();
    std::pair<double, std::string> const rows[] = {{0.0, "0"},
                                                   {-0.3, "-0"},
                                                   {0.49999999999999994, "0"},
                                                   {2251799813685249.5, "2251799813685249"},
                                                   {2.5, "2"},
                                                   {-3.5, "-3"},
                                                   {-2.6, "-3"},
                                                   {-1e23, "-99999999999999991611392"}};
    for (auto const& [value, text] : rows) EXPECT_EQ(Signed(CBigInteger(value)), text);
    EXPECT_EQ(Text(CBigInteger(1.7e308)).size(), 309u);
    for (double const none : {HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_BX_THROW(CBigInteger(none), CBxInvalidValueException,
                        "ERROR: Domain in function BuildDouble()!");
}

TEST(CBigInteger, HasTheLimitsOfTheNativeTypes) {
    ExpectLimits<int>(CBigInteger::MIN_LONG, CBigInteger::MAX_LONG);
    ExpectLimits<long>(CBigInteger::MIN_LONGLONG, CBigInteger::MAX_LONGLONG);
    ExpectLimits<long long>(CBigInteger::MIN_LONGLONG, CBigInteger::MAX_LONGLONG);
    EXPECT_EQ(kDigitsOfGreatest, 309u);
    EXPECT_EQ(Text(CBigInteger::MIN_DOUBLE), "-17" + std::string(307, '0'));
}

TEST(CBigInteger, CalculatesWithSigns) {
    std::mt19937 random(3);
    for (int i = 0; i < 3000; ++i) {
        Model a = Model::Random(random, 9), b = Model::Random(random, 9);
        a.places = b.places = 0;
        if (i % 8 == 0) b.units = a.units;
        CBigInteger const x = Number(a.Text()), y = Number(b.Text());
        SCOPED_TRACE(Signed(x) + " and " + Signed(y));
        auto const expect = [&](auto apply, auto assign, Model const& result) {
            ExpectResult(x, y, apply, assign, result.Text(), result.Text());
        };
        expect(BX_APPLY(+), Sum(a, b));
        expect(BX_APPLY(-), Sum(a, Negative(b)));
        expect(BX_APPLY(*), Product(a, b));
        std::string const quotient = b.units == 0 ? "!" : Quotient(a, b, 0).Text();
        ExpectResult(x, y, BX_APPLY(/), quotient, b.minus ? "!" : quotient);
        bool const remains = b.units != 0 && !b.minus;
        std::string const rest = remains ? Model{a.minus && a.units != 0, a.units % b.units}.Text() : "!";
        ExpectResult(x, y, BX_APPLY(%), rest, rest);
        ExpectOrder(x, y, a <=> b);
    }
    EXPECT_EQ(Text(CBigInteger(999999999) + CBigInteger(1)), "1000000000");
}

TEST(CBigInteger, RefusesDivisorsThatAreNotPositive) {
    CBigInteger a(3);
    EXPECT_BX_THROW(a / CBigInteger(), CBxInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_BX_THROW(a % CBigInteger(), CBxInvalidValueException, "ERROR: Overflow in operator%!");
    EXPECT_BX_THROW(a /= CBigInteger(), CBxInvalidValueException, "ERROR: Overflow in operator /=!");
    EXPECT_BX_THROW(a %= CBigInteger(), CBxInvalidValueException, "ERROR: Overflow in operator%=!");
    EXPECT_EQ(Text(a), "3");
}

TEST(CBigInteger, ChangesItsSign) {
    CBigInteger a(7);
    EXPECT_EQ(Text(-a), "-7");
    EXPECT_EQ(Text(a) + Text(a.GetAbs()) + Text(a.GetNegative()) + Text(a), "-777-7");
    a.Abs();
    EXPECT_EQ(Text(a), "7");
}

TEST(CBigInteger, KeepsTheLawsOfArithmetic) {
    std::mt19937 random(20);
    for (int i = 0; i < 400; ++i) {
        CBigInteger const a = Random(random), b = Random(random).GetAbs(), c = Random(random);
        SCOPED_TRACE(Text(a) + ' ' + Text(b) + ' ' + Text(c));
        ASSERT_EQ(Text(a / b * b + a % b), Text(a));
        ASSERT_LT((a % b).GetAbs(), b);
        ASSERT_EQ(Text(a + c - c), Text(a));
        ASSERT_EQ(Text((a + c) * b), Text(a * b + c * b));
        CBigInteger const root = b.SquareRoot(), above = root + CBigInteger(1);
        ASSERT_LE(root * root, b);
        ASSERT_GT(above * above, b);
    }
}

TEST(CBigInteger, DividesWhereEstimatesAreOff) {
    // Divisors of 1 and zeros, of nines, and dividends one below a multiple.
    CBigInteger const one(1);
    for (unsigned size : {0u, 18u, 27u, 360u, 400u, 900u}) {
        for (unsigned more : {1u, 9u, 40u, 361u, 500u, 2000u}) {
            CBigInteger const power = CBigInteger::Pow10(size), quotient = CBigInteger::Pow10(more) - one;
            for (CBigInteger const& divisor : {power + one, power + power - one, CBigInteger(5) * power}) {
                CBigInteger const product = quotient * divisor, below = product - one;
                EXPECT_TRUE(product / divisor == quotient && product % divisor == CBigInteger(0) &&
                            below / divisor == quotient - one && below % divisor == divisor - one)
                    << Text(divisor) << " " << more;
            }
        }
    }
}

TEST(CBigInteger, TakesSquareRoots) {
    for (int root = 1; root < 50; ++root)
        EXPECT_EQ(Text(CBigInteger(root * root + 2 * root).SquareRoot()), std::to_string(root));
    EXPECT_BX_THROW(Number("-0").SquareRoot(), CBxInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_BX_THROW(CBigInteger(-1).SquareRoot(), CBxInvalidValueException,
                    "ERROR: Negative Number in function SquareRoot()!");
}

TEST(Magnitude, MayBeAppendedToItself) {
    for (std::size_t size : {1u, 2u, 3u, 100u}) {
        Magnitude::Limbs limbs = Magnitude::Limbs::Zeros(size);
        limbs[size - 1] = 7;
        limbs.Append(limbs);
        EXPECT_EQ(limbs.size(), 2 * size);
        EXPECT_EQ(limbs[size - 1] + limbs.back(), 14u);
    }
}

TEST_F(CBigIntegerDigits, AreCalculatedWith) {
    Digits const a{5, 4, 3, 2, 1, 9, 8, 7, 6, 5, 4}, b{8, 9};  // 45678912345 and 98
    Digits result{7, 7}, rest;
    auto const expect = [&result](Digits const& wanted) { EXPECT_EQ(result, wanted); };
    EXPECT_EQ(ToString(), u"-98");
    Build(120u, result), expect({0, 2, 1});
    BuildDWORDLONG(UINT64_MAX, result), expect({5, 1, 6, 1, 5, 5, 9, 0, 7, 3, 7, 0, 4, 4, 7, 6, 4, 4, 8, 1});
    BuildDouble(12.5, result), expect({2, 1});
    Build(wstring(u"5x0120"), result), expect({0, 2, 1});
    EXPECT_EQ(Compare(b, {9, 8}), 1);
    Add(a, b, result), expect({3, 4, 4, 2, 1, 9, 8, 7, 6, 5, 4});
    Subtract(a, b, result), expect({7, 4, 2, 2, 1, 9, 8, 7, 6, 5, 4});
    Multiply(b, u'\3', result), expect({4, 9, 2});
    Multiply(b, b, result), expect({4, 0, 6, 9});
    ShiftLeft(result = b, 2), expect({0, 0, 8, 9});
    EXPECT_EQ(Position(a) + Position({}), 11 + 1);
    Pow10(3, result), expect({0, 0, 0, 1});
    Divide(result = a, rest = b, result, rest), expect({0, 5, 3, 1, 1, 1, 6, 6, 4});
    EXPECT_EQ(rest, (Digits{5, 4}));
}
