#include "BxXmlLib5/values/BxVariant.h"

#include <concepts>
#include <iterator>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "values/VariantSlot.h"

namespace BxXmlLib5 {

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;
using Value = BxVariant::Value;

template <class T>
concept Counted = std::same_as<T, CXmlObjectBase> || std::same_as<T, CXmlCollectionBase>;

/// What ReadSlot gives, moved out of what the slot points to.
template <class T>
T Taken(T* slot) {
    return slot == nullptr ? T() : std::move(*slot);
}

/// What is to be known of a kind. Null where the slot holds all of the value (copy, drop) or the kind has no
/// text (the rest).
struct Kind {
    ItemType type;
    char16_t const* name = nullptr;
    void (*copy)(Value& target, Value const& source) = nullptr;
    void (*drop)(Value const& value) = nullptr;
    wstring (*toString)(Value const& value, char16_t const* format) = nullptr;
    void (*fromString)(BxVariant& variant, std::u16string_view text, Rule rule) = nullptr;
};

/// A pointer of the slot: to an object of the variant's own, or to a counted one.
template <class T>
struct Pointee {
    static T* Copied(T* source) {
        if (source == nullptr) return nullptr;
        if constexpr (Counted<T>) {
            AddReference(source);
            return source;
        } else {
            return new T(*source);
        }
    }

    static void Drop(T* value) {
        if constexpr (Counted<T>) {
            if (value != nullptr) DropReference(value);
        } else {
            delete value;
        }
    }
};

template <auto Member>
constexpr Kind Row(ItemType type) {
    Kind row{type};
    if constexpr (std::is_pointer_v<SlotType<Member>>) {
        using P = Pointee<std::remove_pointer_t<SlotType<Member>>>;
        row.copy = [](Value& target, Value const& source) { target.*Member = P::Copied(source.*Member); };
        row.drop = [](Value const& value) { P::Drop(value.*Member); };
    }
    return row;
}

template <ItemType type, auto Member, auto Setter, auto ToText, auto FromText>
constexpr Kind Row(char16_t const* name) {
    Kind row = Row<Member>(type);
    row.name = name;
    row.toString = [](Value const& value, [[maybe_unused]] char16_t const* format) {
        if constexpr (std::invocable<decltype(ToText), decltype(ReadSlot(value.*Member)), char16_t const*>) {
            return ToText(ReadSlot(value.*Member), format);
        } else {
            return ToText(ReadSlot(value.*Member));
        }
    };
    row.fromString = [](BxVariant& variant, std::u16string_view text, Rule rule) {
        if constexpr (std::is_pointer_v<SlotType<Member>>) {
            auto* const owned = new std::remove_pointer_t<SlotType<Member>>(FromText(text, rule));
            variant.Clear();
            variant.m_type = type;
            variant.m_value.*Member = owned;
        } else {
            (variant.*Setter)(FromText(text, rule));
        }
    };
    return row;
}

// clang-format off
/// @param kind its name, as in its enumerator and its conversions
#define PRIMITIVE(kind, Setter, Member)                                               \
    Row<it_##kind, &Value::Member, &BxVariant::Set##Setter, &CConversions::kind##ToString, \
        &CConversions::kind##FromString>(u"" #kind)

constexpr Kind kKinds[] = {
    Kind{it_invalid},
    PRIMITIVE(hexBinary,    HexBinary,    m_binary),
    PRIMITIVE(base64Binary, Base64Binary, m_binary),
    PRIMITIVE(i1,           I1,           m_i1),
    PRIMITIVE(i2,           I2,           m_i2),
    PRIMITIVE(i4,           I4,           m_i4),
    PRIMITIVE(i8,           I8,           m_i8),
    PRIMITIVE(ui1,          UI1,          m_ui1),
    PRIMITIVE(ui2,          UI2,          m_ui2),
    PRIMITIVE(ui4,          UI4,          m_ui4),
    PRIMITIVE(ui8,          UI8,          m_ui8),
    PRIMITIVE(r4,           R4,           m_r4),
    PRIMITIVE(r8,           R8,           m_r8),
    PRIMITIVE(duration,     Duration,     m_duration),
    PRIMITIVE(yearMonth,    YearMonth,    m_dateTime),
    PRIMITIVE(monthDay,     MonthDay,     m_dateTime),
    PRIMITIVE(year,         Year,         m_year),
    PRIMITIVE(month,        Month,        m_month),
    PRIMITIVE(day,          Day,          m_day),
    PRIMITIVE(date,         Date,         m_dateTime),
    PRIMITIVE(datetime,     DateTime,     m_dateTime),
    PRIMITIVE(time,         Time,         m_dateTime),
    PRIMITIVE(char,         Char,         m_char),
    PRIMITIVE(string,       String,       m_string),
    PRIMITIVE(boolean,      Boolean,      m_boolean),
    PRIMITIVE(decimal,      Decimal,      m_decimal),
    PRIMITIVE(integer,      Integer,      m_integer),
    Row<&Value::m_xmlObject>(it_xmlObject),
    Row<&Value::m_xmlCollection>(it_xmlCollection),
};

#undef PRIMITIVE
// clang-format on

consteval bool IsIndexedByType() {
    for (std::size_t i = 0; i < std::size(kKinds); ++i) {
        if (static_cast<std::size_t>(kKinds[i].type) != i) return false;
    }
    return std::size(kKinds) == it_xmlCollection + 1;
}
static_assert(IsIndexedByType());

/// Null for a number that is no kind.
Kind const* FindKind(ItemType type) {
    return type >= it_invalid && type <= it_xmlCollection ? &kKinds[type] : nullptr;
}

/// Null for a number that is no primitive kind.
Kind const* FindPrimitive(ItemType type) {
    Kind const* const kind = FindKind(type);
    return kind != nullptr && kind->name != nullptr ? kind : nullptr;
}

[[noreturn]] void ThrowNoText(ItemType type) {
    throw CBxException(FormatString(u"Invalid Type %d to convert to string", int{type}));
}

}  // namespace

BxVariant::BxVariant(BxVariant const& other) {
    Kind const* const kind = FindKind(other.m_type);
    if (kind == nullptr) throw CBxException(u"Unknown Type");
    if (kind->copy != nullptr) {
        kind->copy(m_value, other.m_value);
    } else {
        m_value = other.m_value;
    }
    m_type = other.m_type;
}

BxVariant const& BxVariant::operator=(BxVariant const& other) {
    try {
        // The other variant may be part of what this one holds.
        *this = BxVariant(other);
    } catch (...) {
        Clear();
        throw;
    }
    return *this;
}

BxVariant::BxVariant(BxVariant&& other) noexcept
    : m_type(std::exchange(other.m_type, it_invalid)), m_value(std::exchange(other.m_value, Value())) {}

BxVariant const& BxVariant::operator=(BxVariant&& other) noexcept {
    BxVariant taken(std::move(other));
    std::swap(m_type, taken.m_type);
    std::swap(m_value, taken.m_value);
    return *this;
}

void BxVariant::Drop() {
    Kind const* const kind = FindKind(std::exchange(m_type, it_invalid));
    Value const old = std::exchange(m_value, Value());
    if (kind != nullptr && kind->drop != nullptr) kind->drop(old);
}

wstring BxVariant::GetType() const {
    Kind const* const kind = FindPrimitive(m_type);
    if (kind == nullptr) throw CBxException(FormatString(u"Invalid Type %d", int{m_type}));
    return kind->name;
}

wstring BxVariant::ToString(char16_t const* format) const {
    Kind const* const kind = FindPrimitive(m_type);
    if (kind == nullptr) ThrowNoText(m_type);
    return kind->toString(m_value, format);
}

void BxVariant::FromString(std::u16string_view text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    Kind const* const kind = FindPrimitive(type);
    if (kind == nullptr) ThrowNoText(type);
    kind->fromString(*this, text, rule);
}

template <class T>
void BxVariant::Own(ItemType type, T* Value::*member, T&& value) {
    T* const owned = new T(std::move(value));
    Start(type).*member = owned;
}

void BxVariant::SetString(wstring value) {
    Own(it_string, &Value::m_string, std::move(value));
}
void BxVariant::SetHexBinary(CBinaryData value) {
    Own(it_hexBinary, &Value::m_binary, std::move(value));
}
void BxVariant::SetBase64Binary(CBinaryData value) {
    Own(it_base64Binary, &Value::m_binary, std::move(value));
}
void BxVariant::SetDuration(CDateTimeSpan value) {
    Own(it_duration, &Value::m_duration, std::move(value));
}
void BxVariant::SetYearMonth(CDateTime value) {
    Own(it_yearMonth, &Value::m_dateTime, std::move(value));
}
void BxVariant::SetMonthDay(CDateTime value) {
    Own(it_monthDay, &Value::m_dateTime, std::move(value));
}
void BxVariant::SetDate(CDateTime value) {
    Own(it_date, &Value::m_dateTime, std::move(value));
}
void BxVariant::SetDateTime(CDateTime value) {
    Own(it_datetime, &Value::m_dateTime, std::move(value));
}
void BxVariant::SetTime(CDateTime value) {
    Own(it_time, &Value::m_dateTime, std::move(value));
}
void BxVariant::SetDecimal(CDecimal value) {
    Own(it_decimal, &Value::m_decimal, std::move(value));
}
void BxVariant::SetInteger(CBigInteger value) {
    Own(it_integer, &Value::m_integer, std::move(value));
}

wstring BxVariant::GetString() const& {
    return ReadSlot(m_value.m_string);
}
wstring BxVariant::GetString() && {
    return Taken(m_value.m_string);
}
CBinaryData BxVariant::GetHexBinary() const {
    return ReadSlot(m_value.m_binary);
}
CBinaryData BxVariant::GetBase64Binary() const {
    return ReadSlot(m_value.m_binary);
}
CDateTimeSpan BxVariant::GetDuration() const {
    return ReadSlot(m_value.m_duration);
}
CDateTime BxVariant::GetYearMonth() const {
    return ReadSlot(m_value.m_dateTime);
}
CDateTime BxVariant::GetMonthDay() const {
    return ReadSlot(m_value.m_dateTime);
}
CDateTime BxVariant::GetDate() const {
    return ReadSlot(m_value.m_dateTime);
}
CDateTime BxVariant::GetDateTime() const {
    return ReadSlot(m_value.m_dateTime);
}
CDateTime BxVariant::GetTime() const {
    return ReadSlot(m_value.m_dateTime);
}
CDecimal BxVariant::GetDecimal() const& {
    return ReadSlot(m_value.m_decimal);
}
CDecimal BxVariant::GetDecimal() && {
    return Taken(m_value.m_decimal);
}
CBigInteger BxVariant::GetInteger() const& {
    return ReadSlot(m_value.m_integer);
}
CBigInteger BxVariant::GetInteger() && {
    return Taken(m_value.m_integer);
}

}  // namespace BxXmlLib5
