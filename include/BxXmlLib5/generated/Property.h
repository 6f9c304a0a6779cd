// Properties of simple type.
#pragma once

#include <concepts>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "BxXmlLib5/generated/KeptText.h"
#include "BxXmlLib5/generated/SimpleTypes.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// @throws CBxInvalidStateException always, for a property that is read and not set
[[noreturn]] BXXMLLIB5_API void ThrowNotSet();
/// @throws CBxInvalidParamException always, for an index that is none of a property's
[[noreturn]] BXXMLLIB5_API void ThrowNoIndex(int index);
/// @throws CBxInvalidValueException always, for another value than the one that the schema fixes
[[noreturn]] BXXMLLIB5_API void ThrowNotFixed(std::u16string_view fixed, std::u16string_view text);

/// A simple type whose values are text.
template <class S>
concept HasText = std::same_as<typename S::Value, wstring>;

/// What is taken for text: UTF-16, and UTF-8 as char or char8_t.
template <class T>
concept IsText = std::convertible_to<T, std::u16string_view> || std::convertible_to<T, std::string_view> ||
    std::convertible_to<T, std::u8string_view>;

/// Any text as the library's. One that is a wstring and given up is moved.
template <IsText T>
wstring Wide(T&& text) {
    if constexpr (std::same_as<std::remove_cvref_t<T>, wstring>) {
        return std::forward<T>(text);
    } else if constexpr (std::convertible_to<T, std::u16string_view>) {
        return wstring(std::u16string_view(text));
    } else if constexpr (std::convertible_to<T, std::string_view>) {
        return FromUtf8(std::string_view(text));
    } else {
        std::u8string_view const octets(text);
        return FromUtf8({reinterpret_cast<char const*>(octets.data()), octets.size()});
    }
}

/// @cond
/// Room for a value in the object itself.
template <class V>
class RoomInside {
public:
    bool Has() const { return m_has; }
    V const& Get() const { return m_value; }
    void Set(V value) {
        m_value = std::move(value);
        m_has = true;
    }
    void Clear() {
        m_value = V();
        m_has = false;
    }

private:
    [[no_unique_address]] V m_value{};  // so that the flag may stand in its padding
    bool m_has = false;
};

/// Room for a value on the heap: nothing but a pointer as long as there is none.
template <class V>
class RoomOutside {
public:
    RoomOutside() = default;
    RoomOutside(RoomOutside const& other)
        : m_value(other.m_value ? std::make_unique<V>(*other.m_value) : nullptr) {}
    RoomOutside(RoomOutside&&) noexcept = default;
    RoomOutside& operator=(RoomOutside const& other) { return *this = RoomOutside(other); }
    RoomOutside& operator=(RoomOutside&&) noexcept = default;
    ~RoomOutside() = default;

    bool Has() const { return m_value != nullptr; }
    V const& Get() const { return *m_value; }
    void Set(V value) {
        if (m_value) {
            *m_value = std::move(value);
        } else {
            m_value = std::make_unique<V>(std::move(value));
        }
    }
    void Clear() { m_value.reset(); }

private:
    std::unique_ptr<V> m_value;
};

/// Whether a literal must be kept beside its value.
template <class S>
bool IsToBeKept(typename S::Value const& value, std::u16string_view literal) {
    wstring const usual = TextOf<S, false>(value);
    return usual != literal && usual != Trimmed(literal);
}

/// Room for a literal that says more than its value; none for types that have no such literals.
template <class S>
class LiteralRoom {
public:
    LiteralRoom() = default;
    LiteralRoom(typename S::Value const& value, std::u16string_view literal) {
        if (IsToBeKept<S>(value, literal)) m_text = KeptText(literal);
    }
    wstring const* Get() const { return m_text ? &*m_text : nullptr; }

private:
    KeptText m_text;
};
template <class S>
requires(!SaysMore<S>()) class LiteralRoom<S> {
public:
    LiteralRoom() = default;
    LiteralRoom(typename S::Value const&, std::u16string_view) {}
    wstring const* Get() const { return nullptr; }
};

/// What an arrow leads to: the value, or what it has an arrow to itself.
template <class V>
decltype(auto) ArrowOf(V const& value) {
    if constexpr (requires { value.operator->(); }) {
        return value.operator->();
    } else {
        return &value;
    }
}
/// @endcond

/// A property of simple type S: a value, or none. Every value that comes in is tested against the facets of
/// S. It reads like a pointer: `if (note.Duration) Use(*note.Duration);`.
template <class S, class Room>
class Property {
public:
    /// The simple type.
    using Type = S;
    /// The type of its values in C++.
    using Value = typename S::Value;

    /// Whether there is a value.
    explicit operator bool() const { return m_room.Has(); }

    /// @throws CBxInvalidStateException if there is none
    Value const& operator*() const {
        if (!m_room.Has()) ThrowNotSet();
        return m_room.Get();
    }
    /// The members of the value.
    /// @throws CBxInvalidStateException if there is none
    decltype(auto) operator->() const { return ArrowOf(**this); }

    /// Whether there is this value.
    bool operator==(Value const& value) const { return m_room.Has() && IsSame(m_room.Get(), value); }
    /// Whether both have the same value, or neither has one.
    bool operator==(Property const& other) const {
        return m_room.Has() == other.m_room.Has() && (!m_room.Has() || *this == other.m_room.Get());
    }

    /// @throws CBxInvalidValueException if the value breaks a facet of S; the property keeps what it has
    void Set(Value value) {
        Test<S>(value);
        m_room.Set(std::move(value));
        m_literal = {};
    }
    /// As Set(), with the value of a literal. The literal is kept if it says more than the value, so that what a
    /// pattern or a union takes is written as it was read.
    /// @throws CBxInvalidValueException if the text is no literal of S; the property keeps what it has
    void SetText(std::u16string_view text) { Store(ValueOf<S>(text), text); }

    /// Leaves the property without a value.
    void Clear() {
        m_room.Clear();
        m_literal = {};
    }

    /// The literal that was kept, or null.
    wstring const* GetLiteral() const { return m_literal.Get(); }

protected:
    /// @param value that of the literal
    void Store(Value value, std::u16string_view literal) {
        m_literal = LiteralRoom<S>(value, literal);
        m_room.Set(std::move(value));
    }

private:
    Room m_room;
    [[no_unique_address]] LiteralRoom<S> m_literal;
};

/// A property that must have a value when the object is written. What is assigned is tested as by Set().
template <class S>
class Required : public Property<S, RoomInside<typename S::Value>> {
public:
    /// @{
    /// Sets the value; of a type of text, from any text that IsText takes.
    /// @throws CBxInvalidValueException if the value breaks a facet of S; the property keeps what it has
    Required& operator=(typename S::Value value) requires(!HasText<S>) {
        this->Set(std::move(value));
        return *this;
    }
    template <IsText T>
    requires HasText<S> Required& operator=(T&& text) {
        this->Set(Wide(std::forward<T>(text)));
        return *this;
    }
    /// @}
};

/// A property that may have a value. What is assigned is tested as by Set().
template <class S>
class Optional
    : public Property<S, std::conditional_t<(sizeof(typename S::Value) <= 24), RoomInside<typename S::Value>,
                                            RoomOutside<typename S::Value>>> {
public:
    /// @{
    /// As those of Required.
    Optional& operator=(typename S::Value value) requires(!HasText<S>) {
        this->Set(std::move(value));
        return *this;
    }
    template <IsText T>
    requires HasText<S> Optional& operator=(T&& text) {
        this->Set(Wide(std::forward<T>(text)));
        return *this;
    }
    /// @}
};

/// A text as an argument of a template.
template <std::size_t kSize>
struct Literal {
    /// The text with its terminator.
    char16_t m_text[kSize]{};

    /// From a string literal.
    consteval Literal(char16_t const (&text)[kSize]) {
        for (std::size_t i = 0; i < kSize; ++i) m_text[i] = text[i];
    }
    /// The text without its terminator.
    constexpr std::u16string_view View() const { return {m_text, kSize - 1}; }
};

/// The value of a literal of type S; made when first asked for and never destroyed.
template <class S, Literal kText>
typename S::Value const& ConstantOf() {
    static typename S::Value const& s_value = *new typename S::Value(ValueOf<S>(kText.View()));
    return s_value;
}

/// @throws CBxInvalidValueException if a value is not the one that the schema fixes
template <class S, Literal kText>
void TestFixed(typename S::Value const& value) {
    if (!IsSame(value, ConstantOf<S, kText>())) ThrowNotFixed(kText.View(), TextOf<S>(value));
}

/// A property with a default value: it reads as that if it has none of its own. An element that is there and
/// empty has the default.
template <class S, Literal kText>
class WithDefault : public Optional<S> {
public:
    /// The type of the values in C++.
    using Value = typename S::Value;
    using Optional<S>::operator=;

    /// The value, or the default.
    Value const& operator*() const { return *this ? Optional<S>::operator*() : ConstantOf<S, kText>(); }
    /// The members of the value, or of the default.
    decltype(auto) operator->() const { return ArrowOf(**this); }

    /// Whether it reads as this value.
    bool operator==(Value const& value) const { return IsSame(**this, value); }
    /// Whether both have the same value, or neither has one of its own.
    bool operator==(WithDefault const& other) const {
        return static_cast<Optional<S> const&>(*this) == static_cast<Optional<S> const&>(other);
    }

    /// The literal of the default.
    static constexpr std::u16string_view kDefault = kText.View();
};

/// A property with one value that the schema fixes. It reads as that, set or not.
template <class S, Literal kText>
class Fixed : public WithDefault<S, kText> {
public:
    /// The type of the value in C++.
    using Value = typename S::Value;

    /// @throws CBxInvalidValueException for any other value
    void Set(Value value) {
        TestFixed<S, kText>(value);
        Optional<S>::Set(std::move(value));
    }
    /// @throws CBxInvalidValueException for the literal of any other value
    void SetText(std::u16string_view text) {
        Value value = ValueOf<S>(text);
        TestFixed<S, kText>(value);
        this->Store(std::move(value), text);
    }

    /// @{
    /// As Set().
    Fixed& operator=(typename S::Value value) requires(!HasText<S>) {
        this->Set(std::move(value));
        return *this;
    }
    template <IsText T>
    requires HasText<S> Fixed& operator=(T&& text) {
        this->Set(Wide(std::forward<T>(text)));
        return *this;
    }
    /// @}
};

/// A repeated element of simple type S. It takes the room of a pointer as long as it is empty.
template <class S>
class Values {
public:
    /// The simple type.
    using Type = S;
    /// The type of its values in C++.
    using Value = typename S::Value;

    /// Without values.
    Values() = default;
    /// A copy of all values.
    Values(Values const& other)
        : m_content(other.m_content ? std::make_unique<Content>(*other.m_content) : nullptr) {}
    /// Leaves the other property empty.
    Values(Values&&) noexcept = default;
    /// Takes a copy of all values.
    Values& operator=(Values const& other) { return *this = Values(other); }
    /// Leaves the other property empty.
    Values& operator=(Values&&) noexcept = default;
    /// Frees the values.
    ~Values() = default;

    /// Replaces all values.
    /// @throws CBxInvalidValueException if one of them breaks a facet of S; the property keeps what it has
    Values& operator=(std::initializer_list<Value> values) {
        Values other;
        for (Value const& value : values) other.AddTested(value);
        m_content.swap(other.m_content);
        return *this;
    }

    /// Whether there is no value.
    bool IsEmpty() const { return Count() == 0; }
    /// The number of values.
    int Count() const { return static_cast<int>(All().size()); }
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    decltype(auto) operator[](int index) const { return All()[Index(index)]; }

    /// @{
    /// Walk the values in document order. They are constant: Set() changes one, and tests it.
    auto begin() const { return All().begin(); }
    auto end() const { return All().end(); }
    /// @}

    /// Appends a value.
    /// @throws CBxInvalidValueException if the value breaks a facet of S
    void Add(Value value) requires(!HasText<S>) { AddTested(std::move(value)); }
    /// Appends a text, in any form that IsText takes.
    /// @throws CBxInvalidValueException if it breaks a facet of S
    template <IsText T>
    requires HasText<S>
    void Add(T&& text) { AddTested(Wide(std::forward<T>(text))); }
    /// As Add(), with the value of a literal, which is kept as Property::SetText() does.
    /// @throws CBxInvalidValueException if the text is no literal of S
    void AddText(std::u16string_view text) {
        Append(ValueOf<S>(text));
        if constexpr (SaysMore<S>()) {
            Vector const& values = m_content->values;
            if (!IsToBeKept<S>(values.back(), text)) return;
            m_content->literals.resize(values.size());
            m_content->literals.back() = text;
        }
    }

    /// The literal of a value that was kept, as for Property, or null.
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    wstring const* GetLiteral(int index) const {
        std::size_t const at = Index(index);
        auto const& literals = m_content->literals;
        return at < literals.size() && !literals[at].empty() ? &literals[at] : nullptr;
    }

    /// Replaces one value.
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    /// @throws CBxInvalidValueException if the value breaks a facet of S
    void Set(int index, Value value) {
        std::size_t const at = Index(index);
        Test<S>(value);
        m_content->values[at] = std::move(value);
        if (at < m_content->literals.size()) m_content->literals[at].clear();
    }
    /// @throws CBxInvalidParamException unless index is 0 to Count() - 1
    void Remove(int index) {
        auto const at = static_cast<std::ptrdiff_t>(Index(index));
        m_content->values.erase(m_content->values.begin() + at);
        auto& literals = m_content->literals;
        if (at < std::ssize(literals)) literals.erase(literals.begin() + at);
    }
    /// Drops all values.
    void Clear() { m_content.reset(); }

    /// Whether both have the same values in the same order.
    bool operator==(Values const& other) const {
        if (Count() != other.Count()) return false;
        for (int i = 0; i < Count(); ++i) {
            Value const& mine = (*this)[i];
            Value const& theirs = other[i];
            if (!IsSame(mine, theirs)) return false;
        }
        return true;
    }

private:
    using Vector = std::vector<Value>;

    struct Content {
        Vector values;
        std::vector<wstring> literals;  // of the first values, empty where none is kept
    };

    Vector const& All() const {
        static Vector const& s_none = *new Vector;
        return m_content ? m_content->values : s_none;
    }
    std::size_t Index(int index) const {
        if (index < 0 || index >= Count()) ThrowNoIndex(index);
        return static_cast<std::size_t>(index);
    }
    void AddTested(Value value) {
        Test<S>(value);
        Append(std::move(value));
    }
    void Append(Value value) {
        if (!m_content) m_content = std::make_unique<Content>();
        m_content->values.push_back(std::move(value));
    }

    std::unique_ptr<Content> m_content;
};

/// A repeated element with a default value, which those that are there and empty have.
template <class S, Literal kText>
class ValuesWithDefault : public Values<S> {
public:
    using Values<S>::operator=;

    /// The literal of the default.
    static constexpr std::u16string_view kDefault = kText.View();
};

/// A repeated element whose values are all the one that the schema fixes.
template <class S, Literal kText>
class FixedValues : public ValuesWithDefault<S, kText> {
    using Base = ValuesWithDefault<S, kText>;

public:
    /// The type of the value in C++.
    using Value = typename S::Value;

    /// @throws CBxInvalidValueException for any other value
    FixedValues& operator=(std::initializer_list<Value> values) {
        for (Value const& value : values) TestFixed<S, kText>(value);
        Base::operator=(values);
        return *this;
    }
    /// @{
    /// As those of Values.
    /// @throws CBxInvalidValueException for any other value
    void Add(Value value) requires(!HasText<S>) {
        TestFixed<S, kText>(value);
        Base::Add(std::move(value));
    }
    template <IsText T>
    requires HasText<S>
    void Add(T&& text) {
        wstring value = Wide(std::forward<T>(text));
        TestFixed<S, kText>(value);
        Base::Add(std::move(value));
    }
    void AddText(std::u16string_view text) {
        TestFixed<S, kText>(ValueOf<S>(text));
        Base::AddText(text);
    }
    /// @}
    /// As that of Values.
    /// @throws CBxInvalidValueException for any other value
    void Set(int index, Value value) {
        TestFixed<S, kText>(value);
        Base::Set(index, std::move(value));
    }
};

}  // namespace BxXmlLib5::Generated
