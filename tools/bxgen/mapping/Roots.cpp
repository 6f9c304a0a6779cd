#include "mapping/Roots.h"

#include <set>

namespace BxGen {

std::vector<ElementDeclaration const*> FindRoots(Mapping const& mapping) {
    std::set<std::string, std::less<>> names(mapping.m_options.m_roots.begin(),
                                             mapping.m_options.m_roots.end());
    bool const isAll = names.erase("all") > 0;
    bool const isNone = names.erase("none") > 0;
    bool const isGiven = isAll || isNone || !names.empty();
    std::vector<ElementDeclaration const*> all, unreferenced, named;
    for (ElementDeclaration const* const element : mapping.m_set.Elements()) {
        if (names.erase(ToString(element->m_name)) > 0) named.push_back(element);
        if (element->m_isAbstract) continue;
        all.push_back(element);
        if (!mapping.m_set.IsReferenced(*element)) unreferenced.push_back(element);
    }
    for (std::string const& name : names) {
        mapping.m_diagnostics.Error({}, "root",
                                    "--root-element " + Quoted(name) + ": the schemas have no such element");
    }
    if (isAll) return all;
    if (isGiven) return named;
    return unreferenced.empty() ? all : unreferenced;
}

}  // namespace BxGen
