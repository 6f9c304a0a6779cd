// Content models as they are mapped: without what makes no difference.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Diagnostics.h"
#include "schema/Components.h"

namespace BxGen {

/// An element, a wildcard or a group of a content model.
struct ContentNode {
    Particle const* m_particle = nullptr;  ///< where it is written
    ModelGroup const* m_group = nullptr;   ///< null for an element and a wildcard
    NamedGroup const* m_named = nullptr;   ///< whose content the group is
    Occurs m_occurs;
    std::vector<ContentNode> m_children;
    int m_property = -1;  ///< of those of the class, for what has one

    bool IsGroup() const { return m_group != nullptr; }
    bool IsChoice() const { return IsGroup() && m_group->m_compositor == Compositor::kChoice; }
    /// A group that needs a class for each time that it occurs.
    bool IsRepeatedGroup() const { return IsGroup() && m_occurs.m_max > 1; }
    ElementDeclaration const* Element() const { return IsGroup() ? nullptr : m_particle->AsElement(); }
    Wildcard const* AsWildcard() const { return IsGroup() ? nullptr : m_particle->AsWildcard(); }
};

/// The elements that may stand where a particle stands. Empty if the element is abstract and nothing takes its place.
std::vector<ElementDeclaration const*> AlternativesOf(Particle const& particle);

/// The content of a particle. Groups without members are gone; groups within groups, where they can be, and groups of
/// one member too.
/// @return nothing if no element and no wildcard is left
std::optional<ContentNode> Normalised(Particle const& particle, Diagnostics& diagnostics);

}  // namespace BxGen
