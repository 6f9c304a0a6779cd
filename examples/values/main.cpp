// The value classes, each doing what an application would want of it.

#include <cstdlib>
#include <iostream>
#include <string>

#include "BxXmlLib5/BxXmlLib5.h"

using namespace BxXmlLib5;

namespace {

void Show(char const* what, wstring const& value) {
    std::cout << "  " << what << ": " << ToUtf8(value) << '\n';
}

void Money() {
    std::cout << "Money is exact\n";
    CDecimal total;
    for (int i = 0; i < 10; ++i) total += CDecimal(u"0.10");
    Show("ten times 0.10", total.ToString());
    CDecimal const price(u"1234.567");
    Show("1234.567 to the cent", price.ToString(2));
    Show("19 % of it, all places", (price * CDecimal(u"0.19")).ToString());
    Show("a third of 100, 30 places", (CDecimal(100) / CDecimal(3)).ToString());
}

void LargeNumbers() {
    std::cout << "Integers have no limit\n";
    CBigInteger factorial(1);
    for (int i = 2; i <= 30; ++i) factorial *= CBigInteger(i);
    Show("30!", factorial.ToString());
    Show("its square root", factorial.SquareRoot().ToString());
    Show("divided by 10^20", (factorial / CBigInteger::Pow10(20)).ToString());
}

void Dates() {
    std::cout << "Dates follow the calendar\n";
    CDateTimeSpan month;
    month.ParseXSDDuration(u"P1M");
    CDateTime due(2028, 1, 31);
    Show("31 January 2028 and a month", (due + month).ToString());
    CDateTime departure;
    departure.ParseXSDDateTime(u"2026-12-31T23:30:00-05:00");
    CDateTimeSpan flight;
    flight.ParseXSDDuration(u"PT8H45M");
    Show("eight and three quarter hours after New York's last half hour of 2026",
         (departure + flight).ToString());
    Show("the same instant in UTC", (departure + flight).GetNormalized().ToString());
}

char const* Name(CDateTime::DTCompareResult result) {
    switch (result) {
        case CDateTime::dtc_equal:
            return "at the same time as";
        case CDateTime::dtc_lessThan:
            return "before";
        case CDateTime::dtc_greaterThan:
            return "after";
        default:
            return "perhaps before, perhaps after";
    }
}

void Compare(char16_t const* left, char16_t const* right) {
    CDateTime first;
    CDateTime second;
    first.ParseXSDDateTime(left);
    second.ParseXSDDateTime(right);
    std::cout << "  " << ToUtf8(left) << " is " << Name(first.CompareTo(second)) << ' ' << ToUtf8(right)
              << '\n';
}

void TimeZones() {
    std::cout << "Times compare with and without a zone\n";
    Compare(u"2026-11-22T12:00:00+01:00", u"2026-11-22T11:00:00Z");
    Compare(u"2026-11-22T12:00:00", u"2026-11-24T12:00:00Z");
    Compare(u"2026-11-22T12:00:00", u"2026-11-22T20:00:00Z");  // the first may be anywhere on Earth
}

void Octets() {
    std::cout << "Octets have text forms\n";
    CBinaryData data;
    data.SetAsHexString(u"48656C6C6F2C20776F726C64");
    Show("48656C6C6F2C20776F726C64 in Base64", data.GetAsBase64());
    CBinaryData numbers;
    numbers.SetAsBase64(u"AAH//wAq");
    Show("AAH//wAq as numbers of two octets", numbers.GetAsString(be_Short));
    CBinaryData const copy = numbers;  // shares the octets until one of the two changes
    numbers[1] = 7;
    Show("changed", numbers.GetAsString(be_Short));
    Show("a copy made before", copy.GetAsString(be_Short));
}

void Failures() {
    std::cout << "What is no value is refused\n";
    try {
        CDecimal(u"12,50");
    } catch (CBxInvalidValueException const& failure) {
        Show("12,50", failure.GetMessage());
    }
    try {
        CConversions::i1FromString(u"300", CWhitespaceUtils::ws_Collapse);
    } catch (CBxInvalidValueException const& failure) {
        Show("300 in 8 bits", failure.GetMessage());
    }
}

}  // namespace

int main() {
    try {
        Money();
        LargeNumbers();
        Dates();
        TimeZones();
        Octets();
        Failures();
        return EXIT_SUCCESS;
    } catch (CBxException const& failure) {
        std::cerr << ToUtf8(failure.GetFullMessage()) << '\n';
        return EXIT_FAILURE;
    }
}
