// The properties of classes, as the mapping knows them.
#pragma once

#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "mapping/Plan.h"
#include "schema/Components.h"

namespace BxGen {

inline ElementValuePlan PlanOf(ValueConstraint const& value) {
    return {std::string(value.m_value), value.m_isFixed};
}

/// What a property stands for: an element, an attribute, a wildcard, a group.
struct PropertyKey {
    enum class Kind { kElement, kAttribute, kAny, kAnyAttribute, kItems, kText, kNil };

    Kind m_kind = Kind::kElement;
    QName m_name;
    void const* m_group = nullptr;
    int m_number = 0;  ///< of several that do not exclude each other

    auto operator<=>(PropertyKey const&) const = default;
};

struct PropertyFacts {
    enum class Shape {
        kValue,
        kValues,
        kObject,
        kCollection,
        kAnyElement,
        kAnyElements,
        kAnyAttributes,
        kNil
    };

    std::string m_name;
    Shape m_shape = Shape::kValue;
    bool m_isRequired = false;
    bool m_isNillable = false;
    bool m_isConstrained = false;  ///< has a default or fixed value
    bool m_isFixed = false;
    Type const* m_type = nullptr;        ///< of the element or attribute
    ClassPlan const* m_class = nullptr;  ///< of the objects; null for Bx::CObject and what is no object
    ElementDeclaration const* m_element = nullptr;
};

/// A class, with what its derived classes need to know of it.
struct ClassFacts {
    ClassPlan* m_plan = nullptr;
    ClassFacts* m_base = nullptr;
    NameScope m_names;
    std::map<PropertyKey, PropertyFacts> m_properties;  ///< its own
    bool m_isDone = false;
    bool m_isMixed = false;  ///< has a text property, or a base has

    /// Also in the bases; null if there is none.
    PropertyFacts const* Find(PropertyKey const& key) const {
        for (ClassFacts const* facts = this; facts != nullptr; facts = facts->m_base) {
            auto const found = facts->m_properties.find(key);
            if (found != facts->m_properties.end()) return &found->second;
        }
        return nullptr;
    }

    /// How many properties, numbered from 0, there are for one element, wildcard or group, in the bases too.
    int CountOf(PropertyKey key) const {
        for (ClassFacts const* facts = this; facts != nullptr; facts = facts->m_base) {
            key.m_number = std::numeric_limits<int>::max();
            auto const next = facts->m_properties.upper_bound(key);
            if (next == facts->m_properties.begin()) continue;
            PropertyKey const& last = std::prev(next)->first;
            key.m_number = last.m_number;
            if (last == key) return last.m_number + 1;
        }
        return 0;
    }
};

}  // namespace BxGen
