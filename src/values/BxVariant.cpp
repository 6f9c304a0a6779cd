#include "BxXmlLib5/values/BxVariant.h"

#include <concepts>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/FormatString.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/values/CConversions.h"

namespace BxXmlLib5 {

namespace {

using Rule = CWhitespaceUtils::WhitespaceRule;
using Value = BxVariant::Value;

template <class T>
concept Counted = std::derived_from<T, CXmlObjectBase>;

/// A value that lies in the slot itself.
template <class T>
T const& Read(T const& slot) {
    return slot;
}

/// A value that the slot points to; an empty one for a null pointer.
template <class T>
T const& Read(T* const& slot) {
    static T const empty{};
    return slot == nullptr ? empty : *slot;
}

/// What is to be known of a kind. Null where the slot holds all of the value (copy, drop) or the kind has no
/// text (the rest).
struct Kind {
    ItemType type;
    char16_t const* name = nullptr;
    void (*copy)(Value& target, Value const& source) = nullptr;
    void (*drop)(Value const& value) = nullptr;
    wstring (*toString)(Value const& value, char16_t const* format) = nullptr;
    void (*fromString)(BxVariant& variant, wstring const& text, Rule rule) = nullptr;
};

/// A pointer of the slot: to an object of the variant's own, or to a counted one.
template <class T>
struct Pointee {
    static T* Copied(T* source) {
        if (source == nullptr) return nullptr;
        if constexpr (Counted<T>) {
            source->AddRef();
            return source;
        } else {
            return new T(*source);
        }
    }

    static void Drop(T* value) {
        if constexpr (Counted<T>) {
            if (value != nullptr) value->Release();
        } else {
            delete value;
        }
    }
};

template <auto Member>
using Slot = std::remove_reference_t<decltype(std::declval<Value&>().*Member)>;

template <auto Member>
constexpr Kind Row(ItemType type) {
    Kind row{type};
    if constexpr (std::is_pointer_v<Slot<Member>>) {
        using P = Pointee<std::remove_pointer_t<Slot<Member>>>;
        row.copy = [](Value& target, Value const& source) { target.*Member = P::Copied(source.*Member); };
        row.drop = [](Value const& value) { P::Drop(value.*Member); };
    }
    return row;
}

template <auto Member, auto Setter, auto ToText, auto FromText>
constexpr Kind Row(ItemType type, char16_t const* name) {
    Kind row = Row<Member>(type);
    row.name = name;
    row.toString = [](Value const& value, [[maybe_unused]] char16_t const* format) {
        if constexpr (std::invocable<decltype(ToText), decltype(Read(value.*Member)), char16_t const*>) {
            return ToText(Read(value.*Member), format);
        } else {
            return ToText(Read(value.*Member));
        }
    };
    row.fromString = [](BxVariant& variant, wstring const& text, Rule rule) {
        (variant.*Setter)(FromText(text, rule));
    };
    return row;
}

using C = CConversions;
using V = BxVariant;

// clang-format off
constexpr Kind kKinds[] = {
    Kind{it_invalid},
    Kind{it_hexBinary, u"hexBinary"},
    Kind{it_base64Binary, u"base64Binary"},
    Row<&Value::m_i1,      &V::SetI1,      &C::i1ToString,      &C::i1FromString>     (it_i1,      u"i1"),
    Row<&Value::m_i2,      &V::SetI2,      &C::i2ToString,      &C::i2FromString>     (it_i2,      u"i2"),
    Row<&Value::m_i4,      &V::SetI4,      &C::i4ToString,      &C::i4FromString>     (it_i4,      u"i4"),
    Row<&Value::m_i8,      &V::SetI8,      &C::i8ToString,      &C::i8FromString>     (it_i8,      u"i8"),
    Row<&Value::m_ui1,     &V::SetUI1,     &C::ui1ToString,     &C::ui1FromString>    (it_ui1,     u"ui1"),
    Row<&Value::m_ui2,     &V::SetUI2,     &C::ui2ToString,     &C::ui2FromString>    (it_ui2,     u"ui2"),
    Row<&Value::m_ui4,     &V::SetUI4,     &C::ui4ToString,     &C::ui4FromString>    (it_ui4,     u"ui4"),
    Row<&Value::m_ui8,     &V::SetUI8,     &C::ui8ToString,     &C::ui8FromString>    (it_ui8,     u"ui8"),
    Row<&Value::m_r4,      &V::SetR4,      &C::r4ToString,      &C::r4FromString>     (it_r4,      u"r4"),
    Row<&Value::m_r8,      &V::SetR8,      &C::r8ToString,      &C::r8FromString>     (it_r8,      u"r8"),
    Kind{it_duration, u"duration"},
    Kind{it_yearMonth, u"yearMonth"},
    Kind{it_monthDay, u"monthDay"},
    Kind{it_year, u"year"},
    Kind{it_month, u"month"},
    Kind{it_day, u"day"},
    Kind{it_date, u"date"},
    Kind{it_datetime, u"datetime"},
    Kind{it_time, u"time"},
    Row<&Value::m_char,    &V::SetChar,    &C::charToString,    &C::charFromString>   (it_char,    u"char"),
    Row<&Value::m_string,  &V::SetString,  &C::stringToString,  &C::stringFromString> (it_string,  u"string"),
    Row<&Value::m_boolean, &V::SetBoolean, &C::booleanToString, &C::booleanFromString>(it_boolean, u"boolean"),
    Kind{it_decimal, u"decimal"},
    Kind{it_integer, u"integer"},
    Row<&Value::m_xmlObject>    (it_xmlObject),
    Row<&Value::m_xmlCollection>(it_xmlCollection),
};
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

void BxVariant::Clear() {
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

void BxVariant::FromString(wstring const& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    Kind const* const kind = FindPrimitive(type);
    if (kind == nullptr) ThrowNoText(type);
    kind->fromString(*this, text, rule);
}

template <class T>
void BxVariant::Own(ItemType type, T* Value::*member, T value) {
    T* const owned = new T(std::move(value));
    Start(type).*member = owned;
}

template <class T>
void BxVariant::Refer(ItemType type, T* Value::*member, T* value) {
    T* const counted = Pointee<T>::Copied(value);
    Start(type).*member = counted;
}

void BxVariant::SetString(wstring value) {
    Own(it_string, &Value::m_string, std::move(value));
}
wstring BxVariant::GetString() const& {
    return Read(m_value.m_string);
}
wstring BxVariant::GetString() && {
    return m_value.m_string == nullptr ? wstring() : std::move(*m_value.m_string);
}

void BxVariant::SetXmlObject(CXmlObjectBase* value) {
    Refer(it_xmlObject, &Value::m_xmlObject, value);
}
void BxVariant::SetXmlCollection(CXmlCollectionBase* value) {
    Refer(it_xmlCollection, &Value::m_xmlCollection, value);
}
CSmartPtr<CXmlObjectBase> BxVariant::GetXmlObject() const {
    return m_value.m_xmlObject;
}
CSmartPtr<CXmlCollectionBase> BxVariant::GetXmlCollection() const {
    return m_value.m_xmlCollection;
}

}  // namespace BxXmlLib5
