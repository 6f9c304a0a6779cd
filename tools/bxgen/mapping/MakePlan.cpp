#include "mapping/MakePlan.h"

#include <algorithm>

#include "mapping/ClassMapper.h"
#include "mapping/Mapping.h"
#include "mapping/Names.h"
#include "mapping/Roots.h"
#include "mapping/Units.h"

namespace BxGen {

namespace {

std::string FileNameOf(std::string_view path) {
    path.remove_prefix(path.rfind('/') + 1);
    return std::string(path);
}

/// True if documents may hold xsi:type or xsi:nil.
bool NeedsInstanceNamespace(Plan const& plan) {
    return std::ranges::any_of(plan.m_classes, [](ClassPlan const& one) {
        bool const isDerived = one.m_baseClass != nullptr && !one.m_isRoot && !one.m_isAlias;
        return isDerived || std::ranges::any_of(one.m_rows, [](RowPlan const& row) {
                   return row.m_isNillable || row.m_kind == "NilMark";
               });
    });
}

void MapAll(Mapping const& mapping) {
    Units units(mapping);
    std::vector<ElementDeclaration const*> const roots = FindRoots(mapping);
    if (mapping.m_diagnostics.HasErrors()) return;
    Names names(mapping, units, roots);
    if (mapping.m_diagnostics.HasErrors()) return;
    ClassMapper classes(mapping, units, names);
    for (Type const* const type : mapping.m_set.Types()) {
        if (auto const* const simple = type->AsSimple()) classes.Simples().AddName(*simple);
    }
    for (ComplexType const* const type : names.Types()) classes.Class(*type);
    for (ElementDeclaration const* const root : roots) classes.Root(*root);
    if (NeedsInstanceNamespace(mapping.m_plan)) units.Need(kXsiNamespace);
    names.TellUnused();
    units.NameConstants();
    units.CheckOrder();
}

}  // namespace

Plan MakePlan(SchemaSet const& set, Options const& options, Diagnostics& diagnostics) {
    Plan plan;
    for (std::string const& schema : options.m_schemas) plan.m_schemas.push_back(FileNameOf(schema));
    MapAll({set, options, diagnostics, plan});
    return plan;
}

}  // namespace BxGen
