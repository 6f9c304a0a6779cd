#include "BxXmlLib5/values/CBigInteger.h"

#include <cmath>
#include <limits>
#include <random>

#include "BxXmlLib5/values/CDecimal.h"
#include "values/Numbers.h"

using namespace BxXmlLib5;
using BxTest::ExpectAscending;
using BxTest::InvalidAt;
using BxTest::Signed;
using BxTest::Text;

namespace {

/// Built before main, from constants that have to be there by then.
std::size_t const kDigitsOfGreatest = CBigInteger::MAX_DOUBLE.ToString().size();

CBigInteger Number(std::string const& text) {
    return BxTest::Number<CBigInteger>(text);
}

/// Numbers whose runs of 0 and 9 make for carries and borrows.
class Source {
public:
    CBigInteger Next(std::size_t digits) {
        std::string text;
        while (text.size() < digits) {
            char const digit = "0909123456789"[m_random() % 13];
            text.append(1 + m_random() % 12, digit);
            text.push_back(static_cast<char>('0' + m_random() % 10));
        }
        text.resize(digits);
        text[0] = static_cast<char>('1' + m_random() % 9);
        return Number(m_random() % 2 == 0 ? text : "-" + text);
    }
    std::size_t Size() {
        static constexpr std::size_t kMost[] = {9, 20, 40, 500, 3000};
        return 1 + m_random() % kMost[m_random() % 5];
    }

private:
    std::mt19937 m_random{20};
};

/// What a number leaves when divided by a prime, from its text.
std::int64_t Residue(CBigInteger const& value) {
    std::int64_t residue = 0;
    for (char const digit : Text(value.GetAbs())) residue = (residue * 10 + (digit - '0')) % 2147483647;
    return value < CBigInteger(0) ? -residue : residue;
}

std::int64_t Reduce(std::int64_t value) {
    return (value % 2147483647 + 2147483647) % 2147483647;
}

struct Open : CBigInteger {
    using Vector = std::vector<char16_t>;
    Open(int sign, Vector const& digits) : CBigInteger(sign, digits) {}
    using CBigInteger::Add;
    using CBigInteger::Build;
    using CBigInteger::BuildDouble;
    using CBigInteger::BuildDWORDLONG;
    using CBigInteger::Clean;
    using CBigInteger::Compare;
    using CBigInteger::Divide;
    using CBigInteger::Multiply;
    using CBigInteger::Position;
    using CBigInteger::Pow10;
    using CBigInteger::ShiftLeft;
    using CBigInteger::Subtract;
};

}  // namespace

TEST(CBigInteger, ReadsText) {
    static constexpr struct {
        char const *text, *value;
    } kRows[] = {{"   ", "0"},     {"\t", "0"},    {"-", "-0"},     {"+", "0"},        {"+ -", "0"},
                 {"0", "0"},       {"-0", "-0"},   {"007", "7"},    {"+5", "5"},       {"  -12  ", "-12"},
                 {"- 5", "-5"},    {"+-5", "5"},   {"-+5", "-5"},   {"\t-5", "5"},     {" \n-5", "5"},
                 {"1-2", "2"},     {"1 2", "2"},   {"-1 2", "-2"},  {"-1+2", "-2"},    {"12\t\r\n ", "12"},
                 {"-12\n", "-12"}, {"12.6", "13"}, {"12.5", "12"},  {"-12.51", "-13"}, {"1e3", "1000"},
                 {"-0.3", "-0"},   {"-0.7", "-1"}, {"1 2.0", "12"}, {"12-.", "-12"}};
    for (auto const& row : kRows) EXPECT_EQ(Signed(Number(row.text)), row.value) << '[' << row.text << ']';
    EXPECT_EQ(Text(CBigInteger(u"-123456789012345678901234567890")), "-123456789012345678901234567890");
    EXPECT_EQ(Text(CBigInteger(u"")) + Text(CBigInteger(static_cast<char16_t const*>(nullptr))), "00");
    std::string const million = "-" + std::string(1'000'000, '7');
    EXPECT_EQ(Text(Number(million)), million);
}

TEST(CBigInteger, RefusesTextWithThePositionOfItsCharacter) {
    static constexpr struct {
        char const* text;
        int at;
    } kRows[] = {{"abc", 0}, {"1x", 1}, {"12-", 2}, {"12 -", 3}, {"1-2+ ", 3}, {"12--", 2}, {" 1.2-", 4}};
    for (auto const& row : kRows)
        EXPECT_BX_THROW(Number(row.text), CBxInvalidValueException, InvalidAt(row.at, row.text));
    EXPECT_BX_THROW(CBigInteger(std::u16string_view(u"1\0002", 3)), CBxInvalidValueException,
                    "The string representing a Decimal, contained an invalid char at position 1 [1]");
    CBigInteger value(5);
    EXPECT_THROW(value.Parse(u"5-"), CBxInvalidValueException);
    EXPECT_EQ(Text(value), "5");
    value.Parse(u"-6");
    EXPECT_EQ(Text(value), "-6");
}

TEST(CBigInteger, TakesNativeNumbers) {
    EXPECT_EQ(Text(CBigInteger()), "0");
    EXPECT_EQ(Text(CBigInteger(INT32_MIN)), "-2147483648");
    EXPECT_EQ(Text(CBigInteger(1000000000L)), "1000000000");
    EXPECT_EQ(Text(CBigInteger(std::numeric_limits<long long>::min())), "-9223372036854775808");
    static constexpr struct {
        double value;
        char const* text;
    } kRows[] = {{0.0, "0"}, {-0.3, "-0"}, {0.5, "0"},   {0.6, "1"},  {2.5, "2"},
                 {2.6, "3"}, {3.5, "3"},   {-2.5, "-2"}, {-2.6, "-3"}};
    for (auto const& row : kRows) EXPECT_EQ(Signed(CBigInteger(row.value)), row.text) << row.value;
    EXPECT_EQ(Text(CBigInteger(0.49999999999999994)), "0");
    EXPECT_EQ(Text(CBigInteger(2251799813685249.5)), "2251799813685249");
    EXPECT_EQ(Text(CBigInteger(9007199254740991.0)), "9007199254740991");
    EXPECT_EQ(Text(CBigInteger(-1e23)), "-99999999999999991611392");
    CBigInteger power(1);
    for (int i = 0; i < 1023; ++i) power += power;
    EXPECT_EQ(Text(CBigInteger(std::ldexp(1.0, 1023))), Text(power));
    for (double const value : {HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_BX_THROW(CBigInteger(value), CBxInvalidValueException,
                        "ERROR: Domain in function BuildDouble()!");
}

TEST(CBigInteger, HasTheLimitsOfTheNativeTypes) {
    EXPECT_EQ(kDigitsOfGreatest, 309u);
    EXPECT_EQ(Text(CBigInteger::MAX_LONG) + Text(CBigInteger::MIN_LONG), "2147483647-2147483648");
    EXPECT_EQ(Text(CBigInteger::MAX_LONGLONG), "9223372036854775807");
    EXPECT_EQ(Text(CBigInteger::MIN_LONGLONG), "-9223372036854775808");
    EXPECT_EQ(Text(CBigInteger::MAX_DOUBLE), "17" + std::string(307, '0'));
    EXPECT_EQ(Text(CBigInteger::MIN_DOUBLE), "-17" + std::string(307, '0'));

    CBigInteger const one(1);
    char const* const domain = "ERROR: Domain in operator int()!";
    EXPECT_EQ(static_cast<int>(CBigInteger::MIN_LONG), INT32_MIN);
    EXPECT_EQ(static_cast<int>(CBigInteger::MAX_LONG), INT32_MAX);
    EXPECT_EQ(static_cast<int>(CBigInteger(u"-0")), 0);
    EXPECT_BX_THROW(static_cast<int>(CBigInteger::MIN_LONG - one), CBxInvalidValueException, domain);
    EXPECT_BX_THROW(static_cast<int>(CBigInteger::MAX_LONG + one), CBxInvalidValueException, domain);
    EXPECT_EQ(static_cast<std::int64_t>(CBigInteger(u"-12345678901")), -12345678901);
    EXPECT_EQ(static_cast<std::int64_t>(CBigInteger::MIN_LONGLONG), INT64_MIN);
    EXPECT_EQ(static_cast<long long>(CBigInteger::MAX_LONGLONG), INT64_MAX);
    EXPECT_BX_THROW(static_cast<long>(CBigInteger::MIN_LONGLONG - one), CBxInvalidValueException, domain);
    EXPECT_BX_THROW(static_cast<long long>(CBigInteger::MAX_LONGLONG + one), CBxInvalidValueException,
                    domain);
}

TEST(CBigInteger, CalculatesWithSigns) {
    static constexpr struct {
        char const *a, *b, *sum, *difference, *product, *quotient, *remainder;
    } kRows[] = {{"7", "2", "9", "5", "14", "3", "1"},
                 {"-7", "2", "-5", "-9", "-14", "-3", "-1"},
                 {"7", "-2", "5", "9", "-14", "-3", nullptr},
                 {"-7", "-2", "-9", "-5", "14", "3", nullptr},
                 {"2", "7", "9", "-5", "14", "0", "2"},
                 {"2", "-7", "-5", "9", "-14", "-0", nullptr},
                 {"5", "-5", "0", "10", "-25", "-1", nullptr},
                 {"-5", "-5", "-10", "0", "25", "1", nullptr},
                 {"-4", "2", "-2", "-6", "-8", "-2", "-0"},
                 {"-5", "0", "-5", "-5", "-0", nullptr, nullptr},
                 {"0", "0", "0", "0", "0", nullptr, nullptr},
                 {"-0", "0", "0", "-0", "-0", nullptr, nullptr},
                 {"0", "-0", "0", "0", "-0", nullptr, nullptr},
                 {"-0", "-0", "-0", "0", "0", nullptr, nullptr},
                 {"-0", "3", "3", "-3", "-0", "0", "0"},
                 {"0", "-3", "-3", "3", "-0", "0", nullptr},
                 {"999999999", "1", "1000000000", "999999998", "999999999", "999999999", "0"},
                 {"1000000000000000000", "1", "1000000000000000001", "999999999999999999",
                  "1000000000000000000", "1000000000000000000", "0"}};
    for (auto const& row : kRows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        CBigInteger const a = Number(row.a), b = Number(row.b);
        CBigInteger c = a;
        EXPECT_EQ(Signed(a + b), row.sum);
        EXPECT_EQ(Signed(c += b), row.sum);
        EXPECT_EQ(Signed(a - b), row.difference);
        EXPECT_EQ(Signed((c = a) -= b), row.difference);
        EXPECT_EQ(Signed(a * b), row.product);
        EXPECT_EQ(Signed((c = a) *= b), row.product);
        c = a;
        if (row.quotient != nullptr) {
            EXPECT_EQ(Signed(a / b), row.quotient);
        } else {
            EXPECT_BX_THROW(a / b, CBxInvalidValueException, "ERROR: Overflow in operator/!");
        }
        if (row.remainder != nullptr) {
            EXPECT_EQ(Signed(a % b), row.remainder);
            EXPECT_EQ(Signed(c /= b), row.quotient);
            EXPECT_EQ(Signed((c = a) %= b), row.remainder);
        } else {
            EXPECT_BX_THROW(a % b, CBxInvalidValueException, "ERROR: Overflow in operator%!");
            EXPECT_BX_THROW(c /= b, CBxInvalidValueException, "ERROR: Overflow in operator /=!");
            EXPECT_BX_THROW(c %= b, CBxInvalidValueException, "ERROR: Overflow in operator%=!");
            EXPECT_EQ(Signed(c), row.a);
        }
    }
}

TEST(CBigInteger, OrdersBySignThenMagnitude) {
    ExpectAscending<CBigInteger>(
        {"-1e19", "-10", "-9", "-1", "-0", "0", "1", "9", "10", "1e9", "1.1e9", "2e9", "1e18"});
}

TEST(CBigInteger, ChangesItsSign) {
    CBigInteger a(7);
    CBigInteger const b = -a;
    EXPECT_EQ(Text(a) + Text(b), "-7-7");
    EXPECT_EQ(Text(b.GetAbs()) + Text(b.GetNegative()) + Text(b), "77-7");
    a.Abs();
    EXPECT_EQ(Text(a), "7");
    a.Negate();
    EXPECT_EQ(Text(a), "-7");
    EXPECT_EQ(Signed(CBigInteger(0).GetNegative()), "-0");
    EXPECT_EQ(Signed(CBigInteger(u"-0").GetAbs()), "0");
}

TEST(CBigInteger, OperandsMayBeTheObject) {
    CBigInteger const value = CBigInteger::Pow10(40) + CBigInteger(3);
    CBigInteger a = value;
    EXPECT_EQ(Text(a += a), "2" + std::string(39, '0') + "6");
    EXPECT_EQ(Text(a /= a), "1");
    EXPECT_EQ(Text((a = value) *= a), "1" + std::string(39, '0') + "6" + std::string(39, '0') + "9");
    EXPECT_EQ(Text((a = value) %= a), "0");
    EXPECT_EQ(Text((a = value) -= a), "0");
    CBigInteger& self = a = value;
    a = self;
    EXPECT_EQ(Text(a), Text(value));
    CBigInteger const moved = std::move(a);
    EXPECT_EQ(Text(moved), Text(value));
    a = CBigInteger(2);
    EXPECT_EQ(Text(a), "2");
}

TEST(CBigInteger, KeepsTheLawsOfArithmetic) {
    Source source;
    for (int i = 0; i < 400; ++i) {
        CBigInteger const a = source.Next(source.Size()), b = source.Next(source.Size()).GetAbs(),
                          c = source.Next(source.Size());
        CBigInteger const quotient = a / b, remainder = a % b;
        ASSERT_EQ(Text(quotient * b + remainder), Text(a)) << Text(b);
        ASSERT_LT(remainder.GetAbs(), b) << Text(a);
        ASSERT_EQ(Text(a + c - c), Text(a)) << Text(c);
        ASSERT_EQ(Text((a + c) * b), Text(a * b + c * b)) << Text(a) << ' ' << Text(b) << ' ' << Text(c);
        ASSERT_EQ(Reduce(Residue(a + c)), Reduce(Residue(a) + Residue(c))) << Text(a) << ' ' << Text(c);
        ASSERT_EQ(Reduce(Residue(a * c)), Reduce(Residue(a) * Residue(c))) << Text(a) << ' ' << Text(c);
        CBigInteger const root = b.SquareRoot(), above = root + CBigInteger(1);
        ASSERT_LE(root * root, b);
        ASSERT_GT(above * above, b);
    }
}

TEST(CBigInteger, DividesWhereEstimatesAreOff) {
    // Divisors of 1 and zeros, of nines, and dividends one below a multiple.
    for (unsigned size : {18u, 27u, 360u, 400u, 900u}) {
        for (unsigned more : {1u, 9u, 40u, 361u, 500u, 2000u}) {
            CBigInteger const one(1), power = CBigInteger::Pow10(size),
                                      quotient = CBigInteger::Pow10(more) - one;
            for (CBigInteger const& divisor :
                 {power, power - one, power + one, power + power - one, CBigInteger(5) * power}) {
                SCOPED_TRACE(Text(divisor) + " " + std::to_string(more));
                CBigInteger const below = quotient * divisor - one;
                EXPECT_EQ(Text(below / divisor), Text(quotient - one));
                EXPECT_EQ(Text(below % divisor), Text(divisor - one));
                EXPECT_EQ(Text((below + one) / divisor), Text(quotient));
                EXPECT_EQ(Text((below + one) % divisor), "0");
            }
        }
    }
}

TEST(CBigInteger, TakesSquareRoots) {
    static constexpr struct {
        char const *value, *root;
    } kRows[] = {{"1", "1"},     {"2", "1"},       {"3", "1"},         {"4", "2"},
                 {"15", "3"},    {"16", "4"},      {"99", "9"},        {"100", "10"},
                 {"9999", "99"}, {"10000", "100"}, {"1000000", "1000"}};
    for (auto const& row : kRows) EXPECT_EQ(Text(Number(row.value).SquareRoot()), row.root) << row.value;
    for (char const* const zero : {"0", "-0"})
        EXPECT_BX_THROW(Number(zero).SquareRoot(), CBxInvalidValueException, "ERROR: Overflow in operator/!");
    EXPECT_BX_THROW(CBigInteger(-1).SquareRoot(), CBxInvalidValueException,
                    "ERROR: Negative Number in function SquareRoot()!");
}

TEST(CBigInteger, HasPowersOfTen) {
    for (unsigned n : {0u, 1u, 8u, 9u, 10u, 100u})
        EXPECT_EQ(Text(CBigInteger::Pow10(n)), std::string("1").append(n, '0'));
}

TEST(CBigInteger, OffersOperationsOnDigits) {
    using Vector = Open::Vector;
    Vector const a{5, 4, 3, 2, 1, 9, 8, 7, 6, 5, 4}, b{8, 9};  // 45678912345 and 98
    Vector result{7, 7}, rest;
    auto const expect = [&](Vector const& wanted) { EXPECT_EQ(result, wanted); };
    EXPECT_EQ(Text(Open(-1, a)), "-45678912345");
    Open::Build(120u, result), expect({0, 2, 1});
    Open::Build(0u, result), expect({0});
    Open::BuildDWORDLONG(UINT64_MAX, result);
    expect({5, 1, 6, 1, 5, 5, 9, 0, 7, 3, 7, 0, 4, 4, 7, 6, 4, 4, 8, 1});
    Open::BuildDouble(12.5, result), expect({2, 1});
    EXPECT_THROW(Open::BuildDouble(HUGE_VAL, result), CBxInvalidValueException);
    Open::Build(wstring(u"5x0120"), result), expect({0, 2, 1});
    Open::Build(wstring(u"x"), result), expect({0});
    Open::Clean(result = {3, 0, 0}), expect({3});
    Open::Clean(result = {}), expect({0});
    EXPECT_EQ(Open::Compare(a, b), 1);
    EXPECT_EQ(Open::Compare(b, a), -1);
    EXPECT_EQ(Open::Compare(b, b), 0);
    EXPECT_EQ(Open::Compare(b, {9, 8}), 1);
    Open::Add(a, b, result), expect({3, 4, 4, 2, 1, 9, 8, 7, 6, 5, 4});
    Open::Subtract(a, b, result), expect({7, 4, 2, 2, 1, 9, 8, 7, 6, 5, 4});
    Open::Multiply(a, u'\3', result), expect({5, 3, 0, 7, 3, 7, 6, 3, 0, 7, 3, 1});
    Open::Multiply(a, u'\0', result), expect({0});
    Open::Multiply(b, b, result), expect({4, 0, 6, 9});
    Open::Multiply(b, Vector{0}, result), expect({0});
    Open::ShiftLeft(result = b, 2), expect({0, 0, 8, 9});
    Open::ShiftLeft(result = b, -1), expect(b);
    EXPECT_EQ(Open::Position(a), 11);
    EXPECT_EQ(Open::Position({}), 1);
    Open::Pow10(3, result), expect({0, 0, 0, 1});
    Open::Divide(a, b, result, rest), expect({0, 5, 3, 1, 1, 1, 6, 6, 4});
    EXPECT_EQ(rest, (Vector{5, 4}));
    Open::Divide(b, a, result, rest), expect({0});
    EXPECT_EQ(rest, b);
    EXPECT_THROW(Open::Divide(a, {0}, result, rest), CBxInvalidValueException);
    Open::Add(result = a, result, result), expect({0, 9, 6, 4, 2, 8, 7, 5, 3, 1, 9});
    Open::Divide(result, rest = b, result, rest), expect({0, 0, 7, 2, 2, 2, 2, 3, 9});
    EXPECT_EQ(rest, (Vector{0, 9}));
}
