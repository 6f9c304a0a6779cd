// Elements of simple type that may be nil.
#pragma once

#include <utility>

#include "BxXmlLib5/generated/CObject.h"

namespace BxXmlLib5::Generated {

/// An element of simple type S that may be there without a value: `order.Due.Make().Nil = true;`. It takes a
/// value as such: `order.Due = CDateTime(u"2026-05-01");`.
template <class S>
class CNillable : public CObject {
public:
    Required<S> Value;
    Generated::Nil Nil;

    CNillable() = default;
    /// @throws CBxInvalidValueException if the value breaks a facet of S
    CNillable(typename S::Value value) { Value.Set(std::move(value)); }

    static Class const kClass;

protected:
    Class const& Describe() const override { return kClass; }
};

template <class S>
inline constexpr Row kNillableRows[] = {Text<&CNillable<S>::Value>(), NilMark<&CNillable<S>::Nil>()};

inline constexpr Set kNillableSet{};

template <class S>
constinit Class const CNillable<S>::kClass = Generated::Describe<CNillable<S>>(kNillableSet, u"nillable", u"",
                                                                               kNillableRows<S>);

}  // namespace BxXmlLib5::Generated
