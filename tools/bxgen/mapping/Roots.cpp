#include "mapping/Roots.h"

#include <set>

namespace BxGen {

std::vector<ElementDeclaration const*> FindRoots(Mapping const& mapping) {
    std::set<std::string, std::less<>> names(mapping.m_options.m_roots.begin(),
                                             mapping.m_options.m_roots.end());
    bool const isAll = names.erase("all") > 0;
    bool const isNone = names.erase("none") > 0;
    bool const isGiven = isAll || isNone || !names.empty();
    std::set<std::string, std::less<>> found;
    std::vector<ElementDeclaration const*> all, unreferenced, named;
    for (ElementDeclaration const* const element : mapping.m_set.Elements()) {
        // With its namespace or, where it has the name in any, without.
        for (std::string const& name : {ToString(element->m_name), std::string(element->m_name.m_local)}) {
            if (!names.contains(name)) continue;
            found.insert(name);
            named.push_back(element);
            break;
        }
        if (element->m_isAbstract) continue;
        all.push_back(element);
        if (!mapping.m_set.IsReferenced(*element)) unreferenced.push_back(element);
    }
    for (std::string const& name : names) {
        if (found.contains(name)) continue;
        mapping.m_diagnostics.Error({}, "root",
                                    "--root-element " + Quoted(name) + ": the schemas have no such element");
    }
    if (isAll) return all;
    if (isGiven) return named;
    return unreferenced.empty() ? all : unreferenced;
}

}  // namespace BxGen
