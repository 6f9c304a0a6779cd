#include "mapping/Content.h"

#include <limits>
#include <utility>

namespace BxGen {

namespace {

constexpr std::uint64_t kMost = Occurs::kUnbounded;

std::uint64_t Product(std::uint64_t a, std::uint64_t b) {
    if (a == 0 || b == 0) return 0;
    return a > kMost / b ? kMost : a * b;
}

/// The bounds of a member within a group that holds nothing else; nothing if some count between is impossible.
std::optional<Occurs> Multiplied(Occurs const& group, Occurs const& member) {
    // Another round adds counts from its least to its most; the gap, if any, is widest after the first ones.
    bool const isContiguous =
        group.m_min == group.m_max || member.m_min == 0 ||
        Product(group.m_min + 1, member.m_min) - 1 <= Product(group.m_min, member.m_max);
    if (!isContiguous) return std::nullopt;
    return Occurs{Product(group.m_min, member.m_min), Product(group.m_max, member.m_max)};
}

class Normaliser {
public:
    explicit Normaliser(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

    std::optional<ContentNode> Make(Particle const& particle) {
        ContentNode node;
        node.m_particle = &particle;
        node.m_occurs = particle.m_occurs;
        node.m_group = particle.AsGroup();
        if (node.IsGroup()) {
            node.m_named = particle.m_reference;
            return MakeGroup(std::move(node));
        }
        if (node.Element() != nullptr && AlternativesOf(particle).empty()) {
            m_diagnostics.Warning(
                particle.m_place, "open-subst",
                "element " + Quoted(node.Element()->m_name.m_local) +
                    " is abstract and none of these schemas has one that may stand for it: it is "
                    "left out; name the schema that has them too");
            return std::nullopt;
        }
        return node;
    }

private:
    std::optional<ContentNode> MakeGroup(ContentNode node) {
        for (Particle const* const member : node.m_group->m_particles) {
            std::optional<ContentNode> child = Make(*member);
            if (child) {
                Append(node, std::move(*child));
            } else if (node.IsChoice()) {
                node.m_occurs.m_min = 0;
            }
        }
        if (node.m_children.empty()) return std::nullopt;
        if (node.m_children.size() > 1) return node;
        ContentNode& only = node.m_children[0];
        std::optional<Occurs> const occurs = Multiplied(node.m_occurs, only.m_occurs);
        if (!occurs) return node;
        only.m_occurs = *occurs;
        if (only.IsGroup() && node.m_named != nullptr) only.m_named = node.m_named;
        ContentNode merged = std::move(only);
        return merged;
    }

    void Append(ContentNode& node, ContentNode child) {
        bool const isAlike = child.IsGroup() && child.m_group->m_compositor == node.m_group->m_compositor;
        bool const isOptional = child.m_occurs == Occurs{0, 1};
        if (!isAlike || !(child.m_occurs == Occurs{1, 1} || (isOptional && node.IsChoice()))) {
            node.m_children.push_back(std::move(child));
            return;
        }
        if (isOptional) node.m_occurs.m_min = 0;
        for (ContentNode& inner : child.m_children) node.m_children.push_back(std::move(inner));
    }

    Diagnostics& m_diagnostics;
};

}  // namespace

std::vector<ElementDeclaration const*> AlternativesOf(Particle const& particle) {
    ElementDeclaration const& element = *particle.AsElement();
    if (!element.m_isGlobal) return {&element};
    return SubstitutionGroupOf(element);
}

std::optional<ContentNode> Normalised(Particle const& particle, Diagnostics& diagnostics) {
    return Normaliser(diagnostics).Make(particle);
}

}  // namespace BxGen
