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

CSmartPtr<CElement> NewElement() {
    return new CElement(u"e");
}

/// Each primitive kind: its name, and a text with the lexical form of its value.
struct {
    ItemType type;
    std::string name;
    wstring text;
    std::string form;
} const kKinds[] = {
    {it_hexBinary, "hexBinary", u"0aFF", "0AFF"},
    {it_base64Binary, "base64Binary", u"CsP/", "CsP/"},
    {it_i1, "i1", u"-0128", "-128"},
    {it_i2, "i2", u"-32768", "-32768"},
    {it_i4, "i4", u"-2147483648", "-2147483648"},
    {it_i8, "i8", u"-9223372036854775808", "-9223372036854775808"},
    {it_ui1, "ui1", u"255", "255"},
    {it_ui2, "ui2", u"65535", "65535"},
    {it_ui4, "ui4", u"4294967295", "4294967295"},
    {it_ui8, "ui8", u"18446744073709551615", "18446744073709551615"},
    {it_r4, "r4", u"0.1234567891", "0.1234568"},
    {it_r8, "r8", u"0.12345678912345678", "0.1234567891234568"},
    {it_duration, "duration", u"-P1Y2M3DT4H5M6.7S", "-P1Y2M3DT4H5M6.7S"},
    {it_yearMonth, "yearMonth", u"2001-02Z", "2001-02Z"},
    {it_monthDay, "monthDay", u"--02-29", "--02-29"},
    {it_year, "year", u"0005+01:00", "5"},
    {it_month, "month", u"--05Z", "--05"},
    {it_day, "day", u"---07", "---07"},
    {it_date, "date", u"-2001-02-03", "-2001-02-03"},
    {it_datetime, "datetime", u"2001-02-03T04:05:06.120+01:30", "2001-02-03T04:05:06.12+01:30"},
    {it_time, "time", u"04:05:06Z", "04:05:06Z"},
    {it_char, "char", u"\u20AC", "\u20AC"},
    {it_string, "string", u" a  text of many letters ", "a text of many letters"},
    {it_boolean, "boolean", u"TRUE", "true"},
    {it_decimal, "decimal", u"-1.50", "-1.5"},
    {it_integer, "integer", u"-00123456789012345678901234567890", "-123456789012345678901234567890"},
};

static_assert(std::size(kKinds) == it_integer);

TEST(BxVariant, EveryKindHasANameAndTextBothWays) {
    for (auto const& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        BxVariant const variant = Parsed(kind.text, kind.type);
        EXPECT_EQ(variant.m_type, kind.type);
        EXPECT_EQ(ToUtf8(variant.GetType()), kind.name);
        EXPECT_EQ(ToUtf8(variant.ToString(nullptr)), kind.form);
    }
}

TEST(BxVariant, CopiesAndMovesEveryKind) {
    for (auto const& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        BxVariant source = Parsed(kind.text, kind.type);
        BxVariant copy(source);
        BxVariant assigned = Parsed(u"something else", it_string);
        assigned = source;
        BxVariant moved(std::move(source));
        EXPECT_FALSE(source.IsValid());
        EXPECT_EQ(source.m_value.m_bits, 0u);
        source = std::move(moved);
        EXPECT_FALSE(moved.IsValid());
        for (BxVariant* const variant : {&copy, &assigned, &source}) {
            EXPECT_EQ(variant->m_type, kind.type);
            EXPECT_EQ(ToUtf8(variant->ToString(nullptr)), kind.form);
            variant->Clear();  // the others have values of their own
            EXPECT_FALSE(variant->IsValid());
            EXPECT_EQ(variant->m_value.m_bits, 0u);
        }
    }
}

template <class Set, class Get, class T>
void ExpectPair(Set setter, Get getter, T value, ItemType type) {
    BxVariant variant = Parsed(u"dropped by the setter", it_string);
    (variant.*setter)(value);
    EXPECT_EQ(variant.m_type, type);
    EXPECT_EQ((variant.*getter)(), value) << type;
    EXPECT_EQ((BxVariant(variant).*getter)(), value) << type;
}

TEST(BxVariant, SettersAndGettersArePairs) {
    using V = BxVariant;
    ExpectPair(&V::SetI1, &V::GetI1, std::int8_t{-128}, it_i1);
    ExpectPair(&V::SetI2, &V::GetI2, std::int16_t{-32768}, it_i2);
    ExpectPair(&V::SetI4, &V::GetI4, std::int32_t{-2147483647}, it_i4);
    ExpectPair(&V::SetI8, &V::GetI8, std::int64_t{-9223372036854775807}, it_i8);
    ExpectPair(&V::SetUI1, &V::GetUI1, std::uint8_t{200}, it_ui1);
    ExpectPair(&V::SetUI2, &V::GetUI2, std::uint16_t{60000}, it_ui2);
    ExpectPair(&V::SetUI4, &V::GetUI4, std::uint32_t{4000000000}, it_ui4);
    ExpectPair(&V::SetUI8, &V::GetUI8, std::uint64_t{18000000000000000000u}, it_ui8);
    ExpectPair(&V::SetR4, &V::GetR4, 0.1f, it_r4);
    ExpectPair(&V::SetR8, &V::GetR8, 0.1, it_r8);
    ExpectPair(&V::SetYear, &V::GetYear, std::uint16_t{65535}, it_year);
    ExpectPair(&V::SetMonth, &V::GetMonth, std::uint8_t{255}, it_month);
    ExpectPair(&V::SetDay, &V::GetDay, std::uint8_t{255}, it_day);
    ExpectPair(&V::SetChar, &V::GetChar, u'\uFFFF', it_char);
    ExpectPair(&V::SetBoolean, &V::GetBoolean, true, it_boolean);

    unsigned char const octets[] = {1, 2, 3};
    CBinaryData binary;
    binary.SetBuffer(octets, 3);
    CDateTime const date(2001, 2, 3);
    ExpectPair(&V::SetHexBinary, &V::GetHexBinary, binary, it_hexBinary);
    ExpectPair(&V::SetBase64Binary, &V::GetBase64Binary, binary, it_base64Binary);
    ExpectPair(&V::SetDuration, &V::GetDuration, CDateTimeSpan(1, 2, 3), it_duration);
    ExpectPair(&V::SetYearMonth, &V::GetYearMonth, date, it_yearMonth);
    ExpectPair(&V::SetMonthDay, &V::GetMonthDay, date, it_monthDay);
    ExpectPair(&V::SetDate, &V::GetDate, date, it_date);
    ExpectPair(&V::SetDateTime, &V::GetDateTime, date, it_datetime);
    ExpectPair(&V::SetTime, &V::GetTime, date, it_time);
    // Those that can be taken from an rvalue, as they are read from an lvalue.
    ExpectPair(&V::SetString, static_cast<wstring (V::*)() const&>(&V::GetString), wstring(u"text"),
               it_string);
    ExpectPair(&V::SetDecimal, static_cast<CDecimal (V::*)() const&>(&V::GetDecimal), CDecimal(u"1.5"),
               it_decimal);
    ExpectPair(&V::SetInteger, static_cast<CBigInteger (V::*)() const&>(&V::GetInteger), CBigInteger(-7),
               it_integer);
}

TEST(BxVariant, TextIsHandedOverByAnRvalue) {
    wstring const text = u"long enough to stand on the heap";
    BxVariant variant;
    variant.SetString(text);
    char16_t const* const units = variant.m_value.m_string->data();
    EXPECT_EQ(variant.GetString(), text);
    EXPECT_EQ(variant.GetString(), text);
    BxVariant moved = std::move(variant);
    wstring const taken = std::move(moved).GetString();
    EXPECT_EQ(taken, text);
    EXPECT_EQ(taken.data(), units);
}

TEST(BxVariant, BigNumbersAreHandedOverByAnRvalue) {
    wstring const digits(50, u'7');
    BxVariant integer = Parsed(digits, it_integer);
    BxVariant decimal = Parsed(digits + u".5", it_decimal);
    EXPECT_EQ(integer.GetInteger().ToString(), digits);
    EXPECT_EQ(std::move(integer).GetInteger().ToString(), digits);
    EXPECT_EQ(std::move(decimal).GetDecimal().ToString(), digits + u".5");
}

TEST(BxVariant, CopiesShareTheOctetsOfBinaryData) {
    BxVariant variant = Parsed(u"0102", it_hexBinary);
    unsigned char const* const octets = variant.GetHexBinary().GetData();
    CBinaryData const kept = BxVariant(variant).GetHexBinary();
    EXPECT_EQ(kept.GetData(), octets);
    CBinaryData changed = variant.GetHexBinary();
    changed.Append(3);
    variant.Clear();
    EXPECT_EQ(kept.GetAsHexString(), u"0102");
}

TEST(BxVariant, HoldsOneReferenceOfAnObject) {
    CSmartPtr<CElement> const element = NewElement();
    CSmartPtr<CElementCol> const collection = new CElementCol(u"", u"##any", u"", 0, -1);
    {
        BxVariant object, other;
        object.SetXmlObject(element);
        other.SetXmlCollection(collection);
        EXPECT_EQ(object.m_type, it_xmlObject);
        EXPECT_EQ(other.m_type, it_xmlCollection);
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
        EXPECT_EQ(References(collection), 2);
        other.SetInvalid();
        EXPECT_EQ(References(collection), 1);
        EXPECT_FALSE(other.IsValid());
    }
    EXPECT_EQ(References(element), 1);
}

TEST(BxVariant, TakesANullObject) {
    BxVariant variant;
    variant.SetXmlObject(nullptr);
    BxVariant const object = variant;
    variant.SetXmlCollection(nullptr);
    BxVariant const collection = variant;
    EXPECT_EQ(object.m_type, it_xmlObject);
    EXPECT_EQ(collection.m_type, it_xmlCollection);
    EXPECT_EQ(object.GetXmlObject(), nullptr);
    EXPECT_EQ(collection.GetXmlCollection(), nullptr);
}

TEST(BxVariant, CanBeSetFromWhatItHolds) {
    BxVariant variant = Parsed(u"long enough to stand on the heap", it_string);
    BxVariant const& same = variant;
    variant = same;
    variant.SetString(*variant.m_value.m_string);
    variant.FromString(*variant.m_value.m_string, it_string, kCollapse);
    EXPECT_EQ(variant.GetString(), u"long enough to stand on the heap");

    variant.SetXmlObject(NewElement());
    variant.SetXmlObject(variant.m_value.m_xmlObject);
    EXPECT_EQ(References(variant.m_value.m_xmlObject), 1);
}

TEST(BxVariant, CanBeSetFromPartOfTheObjectItHolds) {
    struct Owner : CElement {
        Owner() : CElement(u"e") {}
        BxVariant m_property = Parsed(u"long enough to stand on the heap", it_string);
    };
    auto* const owner = new Owner;
    BxVariant variant;
    variant.SetXmlObject(owner);
    variant = owner->m_property;
    EXPECT_EQ(variant.GetString(), u"long enough to stand on the heap");
}

TEST(BxVariant, AFailedTextLeavesTheValue) {
    BxVariant variant = Parsed(u"kept", it_string);
    EXPECT_BX_THROW(variant.FromString(u"x", it_i4, kCollapse), CBxInvalidValueException,
                    "The value [x] can not be converted to a i4");
    EXPECT_BX_THROW(variant.FromString(u"1", it_xmlObject, kCollapse), CBxException,
                    "Invalid Type 27 to convert to string");
    EXPECT_BX_THROW(variant.FromString(u"1", it_i4, CWhitespaceUtils::WhitespaceRule(7)), CBxException,
                    "Unknown WhitespaceRule");
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
        EXPECT_BX_THROW(unknown = *&unknown, CBxException, "Unknown Type");
        EXPECT_FALSE(unknown.IsValid());
    }
}

TEST(BxVariant, NoPointerReadsAsAnEmptyValue) {
    BxVariant variant;
    EXPECT_EQ(variant.GetString(), u"");
    EXPECT_EQ(variant.GetXmlObject(), nullptr);
    EXPECT_EQ(std::move(variant).GetString(), u"");
    for (auto const& [type, form] : {std::pair{it_string, u""}, {it_base64Binary, u""}, {it_decimal, u"0"}}) {
        variant.m_type = type;
        BxVariant const copy = variant;
        EXPECT_EQ(copy.m_type, type);
        EXPECT_EQ(copy.m_value.m_bits, 0u);
        EXPECT_EQ(copy.ToString(nullptr), form);
    }
}

TEST(BxVariant, FloatsAndDecimalsLookAtTheFormat) {
    EXPECT_EQ(Parsed(u"2.5", it_r4).ToString(u"%.2f"), u"2.50");
    EXPECT_EQ(Parsed(u"2.5", it_r8).ToString(u"%.3f"), u"2.500");
    EXPECT_EQ(Parsed(u"2.5", it_decimal).ToString(u"3"), u"2.500");
    EXPECT_EQ(Parsed(u"2.456", it_decimal).ToString(u"2"), u"2.46");
    EXPECT_EQ(Parsed(u"2", it_i4).ToString(u"%s"), u"2");
}

}  // namespace
