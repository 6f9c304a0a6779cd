#include "BxXmlLib5/values/BxVariant.h"

#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;

constexpr auto kCollapse = CWhitespaceUtils::ws_Collapse;

BxVariant Parsed(wstring const& text, ItemType type) {
    BxVariant variant;
    variant.FromString(text, type, kCollapse);
    return variant;
}

int References(CXmlObjectBase* object) {
    object->AddRef();
    return object->Release();
}

/// @param kind its name, as in its enumerator
/// @param Name as in its setter and getter
#define KIND(kind, Name, text, form)                        \
    {                                                       \
        it_##kind, #kind, u##text, form, [](auto& source) { \
            BxVariant target = Parsed(u"lost", it_string);  \
            target.Set##Name(source.Get##Name());           \
            return target;                                  \
        }                                                   \
    }

/// Each primitive kind: its name, a text with the lexical form of its value, its setter and getter.
struct {
    ItemType type;
    std::string name;
    wstring text;
    std::string form;
    BxVariant (*again)(BxVariant const& source);
} const kKinds[] = {
    KIND(hexBinary, HexBinary, "0aFF", "0AFF"),
    KIND(base64Binary, Base64Binary, "CsP/", "CsP/"),
    KIND(i1, I1, "-0128", "-128"),
    KIND(i2, I2, "-32768", "-32768"),
    KIND(i4, I4, "-2147483648", "-2147483648"),
    KIND(i8, I8, "-9223372036854775808", "-9223372036854775808"),
    KIND(ui1, UI1, "255", "255"),
    KIND(ui2, UI2, "65535", "65535"),
    KIND(ui4, UI4, "4294967295", "4294967295"),
    KIND(ui8, UI8, "18446744073709551615", "18446744073709551615"),
    KIND(r4, R4, "0.1234567891", "0.1234568"),
    KIND(r8, R8, "0.12345678912345678", "0.1234567891234568"),
    KIND(duration, Duration, "-P1Y2M3DT4H5M6.7S", "-P1Y2M3DT4H5M6.7S"),
    KIND(yearMonth, YearMonth, "2001-02Z", "2001-02Z"),
    KIND(monthDay, MonthDay, "--02-29", "--02-29"),
    KIND(year, Year, "-0001+01:00", "65535"),
    KIND(month, Month, "2001-05-03", "--05"),
    KIND(day, Day, "--12-07", "---07"),
    KIND(date, Date, "-2001-02-03", "-2001-02-03"),
    KIND(datetime, DateTime, "2001-02-03T04:05:06.120+01:30", "2001-02-03T04:05:06.12+01:30"),
    KIND(time, Time, "04:05:06Z", "04:05:06Z"),
    KIND(char, Char, "\u20AC", "\u20AC"),
    KIND(string, String, " a  text of many letters ", "a text of many letters"),
    KIND(boolean, Boolean, "TRUE", "true"),
    KIND(decimal, Decimal, "-1.50", "-1.5"),
    KIND(integer, Integer, "-0012345678901234567890", "-12345678901234567890"),
};

#undef KIND

static_assert(std::size(kKinds) == it_integer);

TEST(BxVariant, EveryKindIsReadPrintedCopiedAndMoved) {
    for (auto const& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        EXPECT_EQ(kind.type, &kind - kKinds + 1);
        BxVariant source = Parsed(u"\n " + kind.text + u" ", kind.type);
        for (int const rule : {-1, 3})
            EXPECT_BX_THROW(source.FromString(u"1", kind.type, CWhitespaceUtils::WhitespaceRule(rule)),
                            CBxException, "Unknown WhitespaceRule");
        BxVariant copy(source), again = kind.again(source), assigned = Parsed(u"something else", it_string);
        assigned = source;
        BxVariant moved(std::move(source));
        EXPECT_FALSE(source.IsValid());
        source = std::move(moved);
        EXPECT_FALSE(moved.IsValid());
        for (BxVariant* const variant : {&copy, &again, &assigned, &source}) {
            EXPECT_EQ(variant->m_type, kind.type);
            EXPECT_EQ(ToUtf8(variant->GetType()), kind.name);
            EXPECT_EQ(ToUtf8(variant->ToString(nullptr)), kind.form);
            variant->Clear();  // the others have values of their own
            EXPECT_FALSE(variant->IsValid());
            EXPECT_EQ(variant->m_value.m_bits, 0u);
        }
    }
}

TEST(BxVariant, TextAndBigNumbersAreHandedOverByAnRvalue) {
    wstring const digits(50, u'7');
    BxVariant string = Parsed(digits, it_string);
    char16_t const* const units = string.m_value.m_string->data();
    wstring const taken = std::move(string).GetString();
    EXPECT_EQ(taken, digits);
    EXPECT_EQ(taken.data(), units);
    EXPECT_EQ(Parsed(digits, it_integer).GetInteger().ToString(), digits);
    EXPECT_EQ(Parsed(digits + u".5", it_decimal).GetDecimal().ToString(), digits + u".5");
}

TEST(BxVariant, HoldsOneReferenceOfAnObject) {
    CSmartPtr<CElement> const element = new CElement(u"e");
    CSmartPtr<CElementCol> const collection = new CElementCol(u"", u"##any", u"", 0, -1);
    {
        BxVariant object, other;
        object.SetXmlObject(element);
        other.SetXmlCollection(collection);
        BxVariant copy = object;
        EXPECT_EQ(References(element), 3);
        copy = other;
        EXPECT_EQ(References(element), 2);
        BxVariant& same = copy;
        copy = same;
        copy = std::move(same);
        EXPECT_EQ(References(collection), 3);
        EXPECT_EQ(copy.GetXmlCollection(), collection);
        EXPECT_EQ(object.GetXmlObject(), element);
        copy.SetI4(1);
        other.SetInvalid();
        EXPECT_EQ(References(collection), 1);
    }
    EXPECT_EQ(References(element), 1);
}

TEST(BxVariant, CanBeSetFromWhatItHolds) {
    wstring const text = u"long enough to stand on the heap";
    BxVariant variant = Parsed(text, it_string);
    variant.SetString(*variant.m_value.m_string);
    variant.FromString(*variant.m_value.m_string, it_string, kCollapse);
    EXPECT_EQ(variant.GetString(), text);

    struct Owner : CElement {
        explicit Owner(BxVariant const& property) : CElement(u"e"), m_property(property) {}
        BxVariant m_property;
    };
    auto* const owner = new Owner(variant);
    variant.SetXmlObject(owner);
    variant.SetXmlObject(owner);
    EXPECT_EQ(References(owner), 1);
    variant = owner->m_property;
    EXPECT_EQ(variant.GetString(), text);
}

TEST(BxVariant, AFailedTextLeavesTheValue) {
    BxVariant variant = Parsed(u"kept", it_string);
    EXPECT_THROW(variant.FromString(u"x", it_i4, kCollapse), CBxInvalidValueException);
    EXPECT_EQ(variant.GetString(), u"kept");
}

TEST(BxVariant, SomeKindsHaveNoTextAndUnknownOnesNoCopy) {
    for (int const type : {-1, 0, 27, 28, 29}) {
        SCOPED_TRACE(type);
        BxVariant variant, target = Parsed(u"lost", it_string);
        variant.m_type = static_cast<ItemType>(type);
        EXPECT_EQ(variant.IsValid(), type != 0);
        EXPECT_BX_THROW(variant.GetType(), CBxException, "Invalid Type " + std::to_string(type));
        std::string const message = "Invalid Type " + std::to_string(type) + " to convert to string";
        EXPECT_BX_THROW(variant.ToString(u"%f"), CBxException, message);
        EXPECT_BX_THROW(BxVariant().FromString(u"", variant.m_type, kCollapse), CBxException, message);
        bool const isKnown = type != -1 && type != 29;
        EXPECT_EQ(BxTest::Thrown([&] { target = variant; }),
                  isKnown ? "nothing" : "CBxException: Unknown Type");
        EXPECT_EQ(target.m_type, isKnown ? type : it_invalid);
    }
}

TEST(BxVariant, NoPointerReadsAsAnEmptyValue) {
    BxVariant variant;
    EXPECT_EQ(std::move(variant).GetString(), u"");
    variant.m_type = it_decimal;
    EXPECT_EQ(BxVariant(variant).ToString(nullptr), u"0");
}

TEST(BxVariant, FloatsAndDecimalsLookAtTheFormat) {
    EXPECT_EQ(Parsed(u"2.5", it_r4).ToString(u"%.2f"), u"2.50");
    EXPECT_EQ(Parsed(u"2.456", it_decimal).ToString(u"2"), u"2.46");
    EXPECT_EQ(Parsed(u"2", it_i4).ToString(u"%s"), u"2");
}

}  // namespace
