// Elements of simple type that may be nil.
#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

#include "BxXmlLib5/generated/CObject.h"

namespace BxXmlLib5::Generated {

/// An element of simple type S that may be there without a value: `order.Due.Make().Nil = true;`. It takes a
/// value as such: `order.Due = CDateTime(u"2026-05-01");`.
template <class S>
class CNillable : public CObject {
public:
    /// The value, which must be there unless the element is nil.
    Required<S> Value;
    /// Whether the element is there without a value.
    Generated::Nil Nil;

    /// Not nil, and without a value.
    CNillable() = default;
    /// @throws CBxInvalidValueException if the value breaks a facet of S
    CNillable(typename S::Value value) { Value.Set(std::move(value)); }
    /// From what converts to a value: a CDateTime for a date.
    /// @throws CBxInvalidValueException as above
    template <class V>
    requires(std::is_class_v<V> && !std::derived_from<V, CObject> && !std::same_as<V, typename S::Value> &&
             std::convertible_to<V const&, typename S::Value>) CNillable(V const& value)
        : CNillable(typename S::Value(value)) {}

    /// The description of the class.
    static Class const kClass;

protected:
    Class const& Describe() const override { return kClass; }
};

/// @cond
template <class S>
inline constexpr Row kNillableRows[] = {Text<&CNillable<S>::Value>(), NilMark<&CNillable<S>::Nil>()};

inline constexpr Set kNillableSet{};

template <class S>
constinit Class const CNillable<S>::kClass = Generated::Describe<CNillable<S>>(kNillableSet, u"nillable", u"",
                                                                               kNillableRows<S>);
/// @endcond

}  // namespace BxXmlLib5::Generated
