#include "values/Dates.h"

using namespace BxXmlLib5;
using namespace BxTest;

TEST(CDateTimeSpan, TextIsReadAndPrinted) {
    // Words "text", or "text=printed" where it prints otherwise
    for (std::string const& word : Words(
             "P1Y2M3DT4H5M6.789S -P1Y P1M PT1M P1DT1S PT1H PT0.000001S "
             "P65535Y4294967295M4294967295DT4294967295H18446744073709551615M18446744073709551615.999999999S "
             "PT.500S=PT0.5S PT1.=PT1S PT1.S=PT1S PT0.000000120S=PT0.00000012S PY=P -P0D=-P PM5D=P5D "
             "P5T1H=PT1H P99999999999999999999999T1H=PT1H P1M2Y=P2Y1M P1Y2Y3M=P2Y3M PT5Y=P5Y "
             "PT1S2Y3M=P2Y3MT1S PT1.5S2Y=P2YT1.5S"))
        EXPECT_EQ(Text(Span(word.substr(0, word.find('=')))), word.substr(word.find('=') + 1));
    EXPECT_EQ(Text(Span("P" + std::string(1'000'000, '0') + "1D")), "P1D");
}

TEST(CDateTimeSpan, OtherTextIsRefused) {
    CDateTimeSpan span(1, 2, 3);
    EXPECT_BX_THROW(span.ParseXSDDuration(nullptr), CBxInvalidValueException,
                    "Invalid XSD Duration (Null String)");
    EXPECT_EQ(Text(span), "P") << "cleared first";
    EXPECT_BX_THROW(Span(""), CBxInvalidValueException, "Invalid XSD Duration (Empty String)");
    for (std::string const& text : Words("PT1.0000000000S PT1.1234567890"))
        EXPECT_BX_THROW(Span(text), CBxInvalidValueException,
                        "Invalid XSD Duration [" + text + "] Fraction part too long");
    auto texts = Words(
        "P -P - --P1D 1D p1d P1 P-1D P1.5D P1H P1D1M P1M1M P1D2D PT PTT1S PT1D PT1M1H PT1H1H PT1S1M PT1M1M "
        "PT1S1S PT1ST PT1.5 PT1.5M PT1.5.5S PT1.-5S PT1.5S1S P.5S P65536Y P4294967296M P4294967296D PT4294967296H "
        "PT18446744073709551616M PT18446744073709551616S PT18446744073709551616.5S");
    for (char const* const spaced : {" P1D", "P1D "}) texts.push_back(spaced);
    for (std::string const& text : texts)
        EXPECT_BX_THROW(Span(text), CBxInvalidValueException,
                        "Invalid XSD Duration [" + text + "] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]");
    EXPECT_THROW(span.ParseXSDDuration(u"-P5YT6.25x"), CBxInvalidValueException);
    EXPECT_EQ(Text(span), "-P5YT6.25S") << "what was read stays";
}

TEST(CDateTimeSpan, FieldsAreSetAndRead) {
    CDateTimeSpan span(1, 2, 3, 4, 5, 6, 7, 8, 9);
    span.Negate();
    EXPECT_EQ(Text(span) + Text(span.GetAsNegative()), "-P1Y2M3DT4H5M6.007008009S-P1Y2M3DT4H5M6.007008009S");
    CDateTimeSpan const other(span.GetYears(), span.GetMonths(), span.GetDays(), span.GetHours(),
                              span.GetMinutes(), span.GetSeconds(), span.GetMilliSeconds(),
                              span.GetMicroSeconds(), span.GetNanoSeconds());
    span.Negate();
    EXPECT_EQ(Text(span), Text(other));
    span.Negate();
    span.SetDateTimeSpan(1, 2, 3);
    EXPECT_EQ(Text(span), "PT1H2M3S") << "setting makes it positive";
    span.SetDateTimeSpan(1, 2, 3, 4, 5, 6);
    EXPECT_EQ(Text(span), "P1Y2M3DT4H5M6S");
    span.SetDateTimeSpan(0, 0, 0, 0, 0, 0, 1, 2, 3);
    EXPECT_EQ(Text(span), "PT0.001002003S");
    span.SetYears(9), span.SetMonths(8), span.SetDays(7), span.SetHours(6), span.SetMinutes(5),
        span.SetSeconds(4);
    span.SetMilliSeconds(30), span.SetMicroSeconds(20), span.SetNanoSeconds(10);
    EXPECT_EQ(Text(span), "P9Y8M7DT6H5M4.03002001S");
}

TEST(CDateTimeSpan, TheOrderIsThatOfTheSumsWithFourInstants) {
    std::mt19937 random(2);
    for (int i = 0; i < 3000; ++i) {
        CDateTimeSpan const left = RandomSpan(random);
        CDateTimeSpan right = i % 3 == 0 ? RandomSpan(random) : left;
        if (i % 3 == 1)
            right.SetDays(right.GetMonths() * 30 + static_cast<std::uint32_t>(i % 35)), right.SetMonths(0);
        std::string orders;
        for (DateModel const& start : {DateModel{1696, 9, 1}, {1697, 2, 1}, {1903, 3, 1}, {1903, 7, 1}}) {
            auto const order = start + left <=> start + right;
            orders += order == 0 ? '=' : order < 0 ? '<' : '>';
        }
        ExpectOrder(left, right, orders == std::string(4, orders[0]) ? orders[0] : '?');
    }
    // The first and the last instant each decide alone.
    ExpectOrder(Span, {"P5M ? P1M122D", "P2M ? P62D"});
    ExpectOrder(Span, {"P1Y ? P365D", "P1Y < P367D", "P1Y = P12M", "-P0D = P0D", "PT1.1S < PT1.100000001S"});
    // Years beyond those that a date can have.
    ExpectOrder(Span, {"P40000Y = P40000Y", "P40000Y > P1Y", "P65535Y4294967295M < P65535Y4294967295M1D",
                       "PT18446744073709551615S > P65535Y", "-P40000Y = -P480000M", "-P40000Y < -P39999Y"});
}
