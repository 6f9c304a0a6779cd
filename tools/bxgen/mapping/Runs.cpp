#include "mapping/Runs.h"

#include <algorithm>
#include <set>

namespace BxGen {

namespace {

using Nodes = std::set<ContentNode const*>;

bool CanBeEmpty(ContentNode const& node);

bool IsContentEmptiable(ContentNode const& node) {
    if (!node.IsGroup()) return false;
    return node.IsChoice() ? std::ranges::any_of(node.m_children, CanBeEmpty)
                           : std::ranges::all_of(node.m_children, CanBeEmpty);
}

bool CanBeEmpty(ContentNode const& node) {
    return node.m_occurs.m_min == 0 || IsContentEmptiable(node);
}

/// Whether it need not occur more than once.
bool IsOnceEnough(ContentNode const& node) {
    return node.m_occurs.m_min <= 1 || IsContentEmptiable(node);
}

/// Adds what is repeated and may come at an end of a group.
void AddAtEnd(ContentNode const& group, bool isFront, Nodes& nodes) {
    auto const add = [&](ContentNode const& child) {
        if (child.m_occurs.m_max > 1) nodes.insert(&child);
        AddAtEnd(child, isFront, nodes);
        return group.m_group->m_compositor != Compositor::kSequence || CanBeEmpty(child);
    };
    if (isFront) {
        static_cast<void>(std::ranges::all_of(group.m_children, add));
    } else {
        static_cast<void>(std::all_of(group.m_children.rbegin(), group.m_children.rend(), add));
    }
}

/// Whether the reader might end a round of a group too late.
bool IsReadTooFar(ContentNode const& group) {
    Nodes first, both;
    AddAtEnd(group, true, first);
    AddAtEnd(group, false, both);
    std::erase_if(both, [&first](ContentNode const* node) { return !first.contains(node); });
    // What elements there are in one round, the reader shares out among the next ones.
    if (std::ranges::none_of(both, &ContentNode::IsGroup)) return false;
    auto const isExact = [](ContentNode const* node) { return node->m_occurs.m_min == node->m_occurs.m_max; };
    if (std::ranges::all_of(both, isExact)) return false;
    return !IsOnceEnough(group) || !std::ranges::all_of(both, [&isExact](ContentNode const* node) {
        return isExact(node) || IsOnceEnough(*node);
    });
}

}  // namespace

void WarnOfRuns(ContentNode const& node, Diagnostics& diagnostics) {
    for (ContentNode const& child : node.m_children) WarnOfRuns(child, diagnostics);
    if (!node.IsRepeatedGroup() || !IsReadTooFar(node)) return;
    diagnostics.Warning(
        node.m_particle->m_place, "runs",
        "a repeated group may come last in this one and first in its next round: it is read as often as its bounds "
        "let it, so documents in which it must occur less often are refused; set an element between the rounds, or "
        "take the least bounds off");
}

}  // namespace BxGen
