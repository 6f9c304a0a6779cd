// The sources of a namespace of C++: tables of rows.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "emit/References.h"
#include "mapping/Plan.h"

namespace BxGen {

class SourceEmitter {
public:
    SourceEmitter(Plan const& plan, Unit const& unit)
        : m_plan(plan), m_unit(unit), m_references(plan, unit) {}

    /// One source with some of the unit's classes.
    /// @param isFirst the first of the unit's sources: that of the first unit holds the set
    std::string Source(std::span<ClassPlan const* const> classes, bool isFirst);

private:
    std::string Argument(RowArgument const& argument);
    std::string Row(ClassPlan const& owner, RowPlan const& row);
    std::string Class(ClassPlan const& plan);
    std::string SetOfClasses();
    std::string NameOfSet();

    Plan const& m_plan;
    Unit const& m_unit;
    References m_references;
};

}  // namespace BxGen
