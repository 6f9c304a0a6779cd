#include "schema/Restrictions.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "schema/Limits.h"
#include "schema/SimpleTypes.h"
#include "schema/Wildcards.h"

namespace BxGen {

namespace {

constexpr std::uint64_t kMost = Occurs::kUnbounded;

std::uint64_t Sum(std::uint64_t a, std::uint64_t b) {
    return a > kMost - b ? kMost : a + b;
}

std::uint64_t Product(std::uint64_t a, std::uint64_t b) {
    if (a == 0 || b == 0) return 0;
    return a > kMost / b ? kMost : a * b;
}

/// An element or a wildcard of a content model.
struct Leaf {
    Particle const* m_particle;
    std::vector<ElementDeclaration const*> m_elements;  ///< which may stand there; none for a wildcard

    /// Whether an element of that name may stand there.
    bool Takes(QName const& name) const {
        if (Wildcard const* const wildcard = m_particle->AsWildcard())
            return wildcard->Allows(name.m_namespace);
        return Find(name) != nullptr;
    }
    ElementDeclaration const* Find(QName const& name) const {
        auto const found = std::ranges::find(m_elements, name, &ElementDeclaration::m_name);
        return found != m_elements.end() ? *found : nullptr;
    }
};

/// The content of a type, by its leaves.
class Content {
public:
    explicit Content(Particle const& whole) : m_whole(whole) { Collect(whole); }

    /// False if it has too many leaves, or one where no element may stand.
    bool IsComparable() const { return m_isComparable; }
    std::vector<Leaf> const& Leaves() const { return m_leaves; }

    /// How many elements of some leaves there may be.
    template <class Counts>
    Occurs Count(Counts const& counts) const {
        std::size_t leaf = 0;
        return Count(m_whole, counts, leaf);
    }

private:
    static constexpr std::size_t kMaxLeaves = 300;

    void Collect(Particle const& particle) {
        if (m_leaves.size() > kMaxLeaves) {
            m_isComparable = false;
        } else if (ModelGroup const* const group = particle.AsGroup()) {
            for (Particle const* const member : group->m_particles) Collect(*member);
        } else {
            Leaf& leaf = m_leaves.emplace_back(Leaf{&particle, {}});
            ElementDeclaration const* const element = particle.AsElement();
            if (element == nullptr) return;
            leaf.m_elements = element->m_isGlobal ? SubstitutionGroupOf(*element) : std::vector{element};
            if (leaf.m_elements.empty()) m_isComparable = false;
        }
    }

    template <class Counts>
    Occurs Count(Particle const& particle, Counts const& counts, std::size_t& leaf) const {
        Occurs once{0, 0};
        if (ModelGroup const* const group = particle.AsGroup()) {
            bool const isChoice = group->m_compositor == Compositor::kChoice;
            bool isFirst = true;
            for (Particle const* const member : group->m_particles) {
                Occurs const next = Count(*member, counts, leaf);
                if (!isChoice) {
                    once = {Sum(once.m_min, next.m_min), Sum(once.m_max, next.m_max)};
                } else {
                    once = {isFirst ? next.m_min : std::min(once.m_min, next.m_min),
                            std::max(once.m_max, next.m_max)};
                }
                isFirst = false;
            }
        } else {
            once = counts(m_leaves[leaf++]);
        }
        return {Product(once.m_min, particle.m_occurs.m_min), Product(once.m_max, particle.m_occurs.m_max)};
    }

    Particle const& m_whole;
    std::vector<Leaf> m_leaves;
    bool m_isComparable = true;
};

class RestrictionChecker {
public:
    RestrictionChecker(ComplexType const& type, ComplexType const& base, Diagnostics& diagnostics)
        : m_type(type),
          m_base(base),
          m_own(*type.m_particle),
          m_others(*base.m_particle),
          m_diagnostics(diagnostics) {}

    void Check() {
        if (!m_own.IsComparable() || !m_others.IsComparable()) return;
        for (Leaf const& leaf : m_own.Leaves()) CheckLeaf(leaf);
        if (m_isRefused) return;
        CompareNumber("elements", [](Leaf const&) { return Occurs{1, 1}; });
        for (Leaf const& leaf : m_others.Leaves()) {
            if (m_isWarned) return;
            if (leaf.m_elements.size() == 1) CompareNumber(leaf.m_elements[0]->m_name);
        }
    }

private:
    void CheckLeaf(Leaf const& leaf) {
        if (Wildcard const* const wildcard = leaf.m_particle->AsWildcard())
            return CheckWildcard(leaf, *wildcard);
        for (ElementDeclaration const* const element : leaf.m_elements) {
            if (m_isRefused) return;
            CheckElement(leaf, *element);
        }
    }

    void CheckWildcard(Leaf const& leaf, Wildcard const& wildcard) {
        // Several wildcards of the base may have its namespaces together.
        auto const isWide = [&wildcard](Leaf const& other) {
            Wildcard const* const base = other.m_particle->AsWildcard();
            return base != nullptr && IsSubset(wildcard, *base);
        };
        auto const isWildcard = [](Leaf const& other) { return other.m_particle->AsWildcard() != nullptr; };
        bool const isDecided = std::ranges::count_if(m_others.Leaves(), isWildcard) <= 1;
        if (isDecided && std::ranges::none_of(m_others.Leaves(), isWide))
            Refuse(leaf, "this wildcard allows more than the base " + Quoted(m_base.m_name));
    }

    void CheckElement(Leaf const& leaf, ElementDeclaration const& element) {
        bool isTaken = false;
        ElementDeclaration const* base = nullptr;
        for (Leaf const& other : m_others.Leaves()) {
            isTaken = isTaken || other.Takes(element.m_name);
            if (base == nullptr) base = other.Find(element.m_name);
        }
        std::string const name = "the element " + Quoted(element.m_name);
        if (!isTaken) return Refuse(leaf, name + " has no place in the base " + Quoted(m_base.m_name));
        if (base == nullptr || base == &element) return;
        if (!MayReplace(*element.m_type, *base->m_type))
            return Refuse(leaf, name + " has a type that does not derive from that in the base");
        if (element.m_isNillable && !base->m_isNillable)
            Warn(leaf, name + " is nillable, and not in the base");
        bool const isFixed = element.m_value && element.m_value->m_isFixed;
        if (base->m_value && base->m_value->m_isFixed && !isFixed)
            Warn(leaf, name + " is fixed to " + Quoted(base->m_value->m_value) + " in the base");
    }

    /// Compares how many of one name there are at least, where nothing else may stand, and at most, where others may.
    void CompareNumber(QName const& name) {
        CompareNumber("elements " + Quoted(name), [&name](Leaf const& leaf) {
            bool const isOnly = leaf.m_elements.size() == 1 && leaf.m_elements[0]->m_name == name;
            return Occurs{isOnly ? 1U : 0U, leaf.Takes(name) ? 1U : 0U};
        });
    }

    template <class Counts>
    void CompareNumber(std::string const& what, Counts const& counts) {
        Occurs const own = m_own.Count(counts), base = m_others.Count(counts);
        bool const isFewer = own.m_min < base.m_min;
        if (!isFewer && own.m_max <= base.m_max) return;
        Warn({m_type.m_particle, {}}, "it may have " + std::string(isFewer ? "fewer " : "more ") + what +
                                          " than the base " + Quoted(m_base.m_name));
    }

    void Refuse(Leaf const& leaf, std::string const& text) {
        m_isRefused = true;
        m_diagnostics.Error(leaf.m_particle->m_place, "derivation", text + ", so it is no restriction");
    }

    void Warn(Leaf const& leaf, std::string const& text) {
        m_isWarned = true;
        m_diagnostics.Warning(leaf.m_particle->m_place, "restriction", text + ", so it is no restriction");
    }

    ComplexType const& m_type;
    ComplexType const& m_base;
    Content m_own;
    Content m_others;
    Diagnostics& m_diagnostics;
    bool m_isRefused = false;
    bool m_isWarned = false;
};

}  // namespace

void CheckRestrictions(SchemaStore& store, Diagnostics& diagnostics) {
    for (WrittenComplexType const& type : store.All<WrittenComplexType>()) {
        ComplexType const* const base = type.m_base != nullptr ? type.m_base->AsComplex() : nullptr;
        if (base == nullptr || base->IsAnyType() || type.m_derivation != kRestriction) continue;
        if (type.m_particle == nullptr || base->m_particle == nullptr) continue;
        if (type.m_particle != base->m_particle) RestrictionChecker(type, *base, diagnostics).Check();
    }
}

}  // namespace BxGen
