// How code in one namespace of C++ names what stands in it and in others.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "mapping/Plan.h"

namespace BxGen {

/// Writes names as they read within one unit, and remembers which others it needed.
class References {
public:
    References(Plan const& plan, Unit const& unit) : m_plan(plan), m_unit(unit) {}

    std::string Name(Symbol const& symbol);
    std::string Type(TypeExpression const& type);
    /// The constant of a namespace of XML, or its text if there is none.
    std::string Namespace(std::string const& uri);

    std::set<Unit const*> const& Needed() const { return m_needed; }

private:
    Plan const& m_plan;
    Unit const& m_unit;
    std::set<Unit const*> m_needed;
};

/// A symbol's name in full: `Gpx::CLink`.
std::string FullName(Symbol const& symbol);

}  // namespace BxGen
