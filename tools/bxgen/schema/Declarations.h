// Declarations of elements and attributes, and attribute groups: their types and values.
#pragma once

#include <vector>

#include "Diagnostics.h"
#include "schema/SchemaStore.h"

namespace BxGen {

/// Works out and checks all attributes and attribute groups.
/// @param order of attribute groups, each behind those that it refers to
void FinishAttributes(SchemaStore& store, std::vector<AttributeGroup const*> const& order,
                      Diagnostics& diagnostics);

/// Works out and checks all elements, and the groups in which they may be substituted.
/// @param order of elements, each behind the head of its substitution group
void FinishElements(SchemaStore& store, std::vector<ElementDeclaration const*> const& order,
                    Diagnostics& diagnostics);

/// What the items of a type or an attribute group come to.
struct CollectedAttributes {
    std::vector<AttributeUse const*> m_uses;  ///< those of groups in their place; prohibited ones too
    Wildcard const* m_wildcard = nullptr;  ///< what its own wildcard and those of the groups have in common
};

/// Collects the attributes that items list; groups must be finished. Reports attributes that come twice.
CollectedAttributes Collect(SchemaStore& store, Component const& owner,
                            std::vector<AttributeItem> const& items, Wildcard const* ownWildcard,
                            Diagnostics& diagnostics);

}  // namespace BxGen
