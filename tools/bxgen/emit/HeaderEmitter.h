// The headers of a namespace of C++.
#pragma once

#include <string>

#include "emit/References.h"
#include "mapping/Plan.h"

namespace BxGen {

/// The comment that stands first in every file.
std::string Banner(Plan const& plan);

class HeaderEmitter {
public:
    HeaderEmitter(Plan const& plan, Unit const& unit) : m_plan(plan), m_unit(unit) {}

    /// The classes by name alone.
    std::string Forward() const;
    std::string Header() const;

private:
    bool HoldsTheSet() const { return &m_unit == &m_plan.m_units.front(); }
    std::string Constants() const;
    static std::string Simple(SimplePlan const& simple, References& references);
    static std::string Class(ClassPlan const& plan, References& references);
    std::string Includes(std::set<Unit const*> const& whole, std::set<Unit const*> const& byName) const;

    Plan const& m_plan;
    Unit const& m_unit;
};

}  // namespace BxGen
