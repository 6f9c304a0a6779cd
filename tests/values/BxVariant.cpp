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

/// A variant that a setter gives what a getter reads.
#define PAIR(Name)                                     \
    [](BxVariant const& source) {                      \
        BxVariant target = Parsed(u"lost", it_string); \
        target.Set##Name(source.Get##Name());          \
        return target;                                 \
    }

/// Each primitive kind: its name, a text with the lexical form of its value, its setter and getter.
struct {
    ItemType type;
    std::string name;
    wstring text;
    std::string form;
    BxVariant (*again)(BxVariant const& source);
} const kKinds[] = {
    {it_hexBinary, "hexBinary", u"0aFF", "0AFF", PAIR(HexBinary)},
    {it_base64Binary, "base64Binary", u"CsP/", "CsP/", PAIR(Base64Binary)},
    {it_i1, "i1", u"-0128", "-128", PAIR(I1)},
    {it_i2, "i2", u"-32768", "-32768", PAIR(I2)},
    {it_i4, "i4", u"-2147483648", "-2147483648", PAIR(I4)},
    {it_i8, "i8", u"-9223372036854775808", "-9223372036854775808", PAIR(I8)},
    {it_ui1, "ui1", u"255", "255", PAIR(UI1)},
    {it_ui2, "ui2", u"65535", "65535", PAIR(UI2)},
    {it_ui4, "ui4", u"4294967295", "4294967295", PAIR(UI4)},
    {it_ui8, "ui8", u"18446744073709551615", "18446744073709551615", PAIR(UI8)},
    {it_r4, "r4", u"0.1234567891", "0.1234568", PAIR(R4)},
    {it_r8, "r8", u"0.12345678912345678", "0.1234567891234568", PAIR(R8)},
    {it_duration, "duration", u"-P1Y2M3DT4H5M6.7S", "-P1Y2M3DT4H5M6.7S", PAIR(Duration)},
    {it_yearMonth, "yearMonth", u"2001-02Z", "2001-02Z", PAIR(YearMonth)},
    {it_monthDay, "monthDay", u"--02-29", "--02-29", PAIR(MonthDay)},
    {it_year, "year", u"-0001+01:00", "65535", PAIR(Year)},
    {it_month, "month", u"--05Z", "--05", PAIR(Month)},
    {it_day, "day", u"---07", "---07", PAIR(Day)},
    {it_date, "date", u"-2001-02-03", "-2001-02-03", PAIR(Date)},
    {it_datetime, "datetime", u"2001-02-03T04:05:06.120+01:30", "2001-02-03T04:05:06.12+01:30",
     PAIR(DateTime)},
    {it_time, "time", u"04:05:06Z", "04:05:06Z", PAIR(Time)},
    {it_char, "char", u"\u20AC", "\u20AC", PAIR(Char)},
    {it_string, "string", u" a  text of many letters ", "a text of many letters", PAIR(String)},
    {it_boolean, "boolean", u"TRUE", "true", PAIR(Boolean)},
    {it_decimal, "decimal", u"-1.50", "-1.5", PAIR(Decimal)},
    {it_integer, "integer", u"-00123456789012345678901234567890", "-123456789012345678901234567890",
     PAIR(Integer)},
};

#undef PAIR

static_assert(std::size(kKinds) == it_integer);

TEST(BxVariant, EveryKindIsReadPrintedCopiedAndMoved) {
    for (auto const& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        BxVariant source = Parsed(kind.text, kind.type);
        BxVariant copy(source), again = kind.again(source), assigned = Parsed(u"something else", it_string);
        assigned = source;
        BxVariant moved(std::move(source));
        EXPECT_FALSE(source.IsValid());
        EXPECT_EQ(source.m_value.m_bits, 0u);
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
    BxVariant string = Parsed(digits, it_string), integer = Parsed(digits, it_integer);
    BxVariant decimal = Parsed(digits + u".5", it_decimal);
    char16_t const* const units = string.m_value.m_string->data();
    EXPECT_EQ(string.GetString(), digits);
    wstring const taken = std::move(string).GetString();
    EXPECT_EQ(taken, digits);
    EXPECT_EQ(taken.data(), units);
    EXPECT_EQ(integer.GetInteger().ToString(), digits);
    EXPECT_EQ(std::move(integer).GetInteger().ToString(), digits);
    EXPECT_EQ(std::move(decimal).GetDecimal().ToString(), digits + u".5");
}

TEST(BxVariant, HoldsOneReferenceOfAnObject) {
    CSmartPtr<CElement> const element = new CElement(u"e");
    CSmartPtr<CElementCol> const collection = new CElementCol(u"", u"##any", u"", 0, -1);
    {
        BxVariant object, other;
        object.SetXmlObject(element);
        other.SetXmlCollection(collection);
        EXPECT_EQ(References(element), 2);
        EXPECT_EQ(References(collection), 2);

        BxVariant copy = object;
        EXPECT_EQ(References(element), 3);
        copy = BxVariant(other);
        EXPECT_EQ(References(element), 2);
        EXPECT_EQ(References(collection), 3);
        BxVariant& same = copy;
        copy = same;
        copy = std::move(same);
        EXPECT_EQ(copy.GetXmlCollection(), collection);
        EXPECT_EQ(object.GetXmlObject(), element);
        copy.SetI4(1);
        other.SetInvalid();
        EXPECT_EQ(References(collection), 1);
    }
    EXPECT_EQ(References(element), 1);
}

TEST(BxVariant, TakesANullObject) {
    BxVariant object, collection;
    object.SetXmlObject(nullptr);
    collection.SetXmlCollection(nullptr);
    EXPECT_EQ(BxVariant(object).m_type, it_xmlObject);
    EXPECT_EQ(BxVariant(collection).m_type, it_xmlCollection);
    EXPECT_EQ(collection.GetXmlCollection(), nullptr);
}

TEST(BxVariant, CanBeSetFromWhatItHolds) {
    wstring const text = u"long enough to stand on the heap";
    BxVariant variant = Parsed(text, it_string);
    BxVariant const& same = variant;
    variant = same;
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
    EXPECT_THROW(variant.FromString(u"x", it_xmlObject, kCollapse), CBxException);
    EXPECT_EQ(variant.GetString(), u"kept");
}

TEST(BxVariant, KindsWithoutTextSaySo) {
    for (int const type : {-1, 0, 27, 28, 29}) {
        SCOPED_TRACE(type);
        BxVariant variant;
        variant.m_type = static_cast<ItemType>(type);
        EXPECT_EQ(variant.IsValid(), type != 0);
        EXPECT_BX_THROW(variant.GetType(), CBxException, "Invalid Type " + std::to_string(type));
        std::string const message = "Invalid Type " + std::to_string(type) + " to convert to string";
        EXPECT_BX_THROW(variant.ToString(u"%f"), CBxException, message);
        EXPECT_BX_THROW(BxVariant().FromString(u"", variant.m_type, kCollapse), CBxException, message);
    }
}

TEST(BxVariant, AnUnknownKindIsNotCopiedButCleared) {
    for (int const type : {-1, 29, 1000}) {
        BxVariant unknown;
        unknown.m_type = static_cast<ItemType>(type);
        BxVariant target = Parsed(u"lost", it_string);
        EXPECT_BX_THROW(target = unknown, CBxException, "Unknown Type");
        EXPECT_FALSE(target.IsValid());
        EXPECT_BX_THROW(BxVariant(unknown), CBxException, "Unknown Type");
    }
}

TEST(BxVariant, NoPointerReadsAsAnEmptyValue) {
    BxVariant variant;
    EXPECT_EQ(std::move(variant).GetString(), u"");
    for (auto const& [type, form] : {std::pair{it_string, u""}, {it_base64Binary, u""}, {it_decimal, u"0"}}) {
        variant.m_type = type;
        BxVariant const copy = variant;
        EXPECT_EQ(copy.ToString(nullptr), form);
    }
}

TEST(BxVariant, FloatsAndDecimalsLookAtTheFormat) {
    EXPECT_EQ(Parsed(u"2.5", it_r4).ToString(u"%.2f"), u"2.50");
    EXPECT_EQ(Parsed(u"2.5", it_r8).ToString(u"%.3f"), u"2.500");
    EXPECT_EQ(Parsed(u"2.456", it_decimal).ToString(u"2"), u"2.46");
    EXPECT_EQ(Parsed(u"2", it_i4).ToString(u"%s"), u"2");
}

}  // namespace
