// How the classes hold the values of their properties, and hand them to the library.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/BxXmlLib5.h"

namespace Gpx {

using namespace BxXmlLib5;

/// An optional value that most objects have.
template <class T>
class Optional {
public:
    bool Has() const { return m_value.has_value(); }
    /// An empty value if there is none.
    T const& Get() const {
        static T const s_empty{};
        return m_value ? *m_value : s_empty;
    }
    void Set(T value) { m_value = std::move(value); }
    void Clear() { m_value.reset(); }

private:
    std::optional<T> m_value;
};

/// An optional value that few objects have: it takes the room of a pointer in those that have none.
template <class T>
class Rare {
public:
    bool Has() const { return m_value != nullptr; }
    /// An empty value if there is none.
    T const& Get() const {
        static T const s_empty{};
        return m_value ? *m_value : s_empty;
    }
    void Set(T value) { m_value = std::make_unique<T>(std::move(value)); }
    void Clear() { m_value.reset(); }

private:
    std::unique_ptr<T> m_value;
};

/// @name A value in a variant, with the kind of its type
/// @{
inline void Put(BxVariant& variant, CDecimal const& value) {
    variant.SetDecimal(value);
}
inline void Put(BxVariant& variant, CBigInteger const& value) {
    variant.SetInteger(value);
}
inline void Put(BxVariant& variant, CDateTime const& value) {
    variant.SetDateTime(value);
}
inline void Put(BxVariant& variant, wstring const& value) {
    variant.SetString(value);
}
inline void Put(BxVariant& variant, std::uint16_t value) {
    variant.SetUI2(value);
}
template <class T>
requires std::is_enum_v<T>
void Put(BxVariant& variant, T value) {
    variant.SetI4(static_cast<std::int32_t>(value));
}

template <class T>
T Taken(BxVariant& variant) {
    if constexpr (std::is_same_v<T, CDecimal>) {
        return std::move(variant).GetDecimal();
    } else if constexpr (std::is_same_v<T, CBigInteger>) {
        return std::move(variant).GetInteger();
    } else if constexpr (std::is_same_v<T, CDateTime>) {
        return variant.GetDateTime();
    } else if constexpr (std::is_same_v<T, wstring>) {
        return std::move(variant).GetString();
    } else if constexpr (std::is_same_v<T, std::uint16_t>) {
        return variant.GetUI2();
    } else {
        return static_cast<T>(variant.GetI4());
    }
}
/// @}

/// Hands the value of a property to the library, or takes it: what AccessProperty() is for.
/// @param read true to fill the variant
template <class T>
void Exchange(bool read, BxVariant& variant, T& member) {
    if (read) {
        Put(variant, member);
    } else {
        member = Taken<T>(variant);
    }
}

/// The same for an optional value, for which an invalid variant stands for none.
template <template <class> class Holder, class T>
void ExchangeOptional(bool read, BxVariant& variant, Holder<T>& member) {
    if (read) {
        if (member.Has()) Put(variant, member.Get());
    } else if (variant.IsValid()) {
        member.Set(Taken<T>(variant));
    } else {
        member.Clear();
    }
}
template <class T>
void Exchange(bool read, BxVariant& variant, Optional<T>& member) {
    ExchangeOptional(read, variant, member);
}
template <class T>
void Exchange(bool read, BxVariant& variant, Rare<T>& member) {
    ExchangeOptional(read, variant, member);
}

/// The same for a collection, which the library never stores.
inline void ExchangeCollection(bool read, BxVariant& variant, CXmlCollectionBase* collection) {
    if (read) variant.SetXmlCollection(collection);
}

}  // namespace Gpx
