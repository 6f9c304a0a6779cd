#include "BxXmlLib5/values/BxVariant.h"

#include <array>
#include <concepts>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "values/ValueKinds.h"

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

/// What a variant does by its kind. Null where the slot holds all of the value (copy, drop) or the kind has no
/// text (the rest).
struct Kind {
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
constexpr Kind RowOf() {
    Kind row;
    if constexpr (std::is_pointer_v<SlotType<Member>>) {
        using P = Pointee<std::remove_pointer_t<SlotType<Member>>>;
        row.copy = [](Value& target, Value const& source) { target.*Member = P::Copied(source.*Member); };
        row.drop = [](Value const& value) { P::Drop(value.*Member); };
    }
    return row;
}

template <ItemType kType>
constexpr Kind PrimitiveRow() {
    constexpr auto member = ValueKind<kType>::kMember;
    Kind row = RowOf<member>();
    row.name = ValueKind<kType>::kName;
    row.toString = [](Value const& value, char16_t const* format) -> wstring {
        return LexicalForm<kType>(ReadSlot(value.*member), format);
    };
    row.fromString = [](BxVariant& variant, std::u16string_view text, Rule rule) {
        Value taken;
        if constexpr (std::is_pointer_v<SlotType<member>>) {
            taken.*member = new typename ValueKind<kType>::Value(ValueKind<kType>::kFromString(text, rule));
        } else {
            taken.*member = ValueKind<kType>::kFromString(text, rule);
        }
        variant.Clear();
        variant.m_type = kType;
        variant.m_value = taken;
    };
    return row;
}

template <ItemType kType>
constexpr Kind Row() {
    if constexpr (kType == it_xmlObject) {
        return RowOf<&Value::m_xmlObject>();
    } else if constexpr (kType == it_xmlCollection) {
        return RowOf<&Value::m_xmlCollection>();
    } else if constexpr (kIsPrimitive<kType>) {
        return PrimitiveRow<kType>();
    } else {
        return Kind();
    }
}

template <std::size_t... kTypes>
constexpr auto Rows(std::index_sequence<kTypes...>) {
    return std::array{Row<static_cast<ItemType>(kTypes)>()...};
}

constexpr auto kKinds = Rows(std::make_index_sequence<it_xmlCollection + 1>());

/// Null for a number that is no kind.
Kind const* FindKind(ItemType type) {
    auto const index = static_cast<std::size_t>(type);
    return index < kKinds.size() ? &kKinds[index] : nullptr;
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
    T* const owned = new T(std::forward<T>(value));
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
