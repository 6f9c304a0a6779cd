#include "schema/ContentModels.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "schema/Limits.h"

namespace BxGen {

namespace {

/// The check has taken too many steps.
struct TooMuch {};

/// A place in a content model where an element of a document may belong: an element or a wildcard, apart for each way in
/// which groups lead to it.
struct Position {
    Particle const* m_particle;
    std::vector<QName> const*
        m_names;  ///< of the element and those that may stand for it; null for a wildcard
};

/// A set of positions that tells which of them a position overlaps with.
class PositionSet {
public:
    explicit PositionSet(std::size_t& steps) : m_steps(&steps) {}

    /// A position of the set, other than the given one, that takes an element that the given one takes.
    Position const* Overlapping(Position const& position) const {
        if (position.m_names != nullptr) return OverlappingElement(position);
        return OverlappingWildcard(position);
    }

    void Add(Position const& position) {
        Step();
        m_positions.push_back(&position);
        if (position.m_names == nullptr) return AddWildcard(position);
        for (QName const& name : *position.m_names) {
            Step();
            m_names[name].Add(position);
            m_elementNamespaces[name.m_namespace].Add(position);
        }
    }

    void Add(PositionSet const& other) {
        for (Position const* const position : other.m_positions) Add(*position);
    }

    /// A position of the other set and one of this that overlap and differ.
    std::optional<std::pair<Position const*, Position const*>> Conflict(PositionSet const& other) const {
        bool const isOtherSmaller = other.m_positions.size() <= m_positions.size();
        PositionSet const& small = isOtherSmaller ? other : *this;
        PositionSet const& large = isOtherSmaller ? *this : other;
        for (Position const* const position : small.m_positions) {
            if (Position const* const found = large.Overlapping(*position)) return std::pair{found, position};
        }
        return std::nullopt;
    }

    std::size_t Size() const { return m_positions.size(); }

private:
    /// Up to two positions: one of them differs from any given one.
    struct Slot {
        Position const* m_one = nullptr;
        Position const* m_other = nullptr;

        void Add(Position const& position) {
            if (m_one == nullptr) m_one = &position;
            if (m_one != &position) m_other = &position;
        }

        Position const* OtherThan(Position const& position) const {
            return m_one != &position ? m_one : m_other;
        }
    };

    void Step() const {
        if (++*m_steps > kMaxContentSteps) throw TooMuch();
    }

    static Wildcard const& WildcardOf(Position const& position) { return *position.m_particle->AsWildcard(); }

    void AddWildcard(Position const& position) {
        Wildcard const& wildcard = WildcardOf(position);
        if (wildcard.m_kind == Wildcard::Kind::kList) {
            for (std::string_view const uri : wildcard.m_namespaces) m_listedNamespaces[uri].Add(position);
            return;
        }
        for (auto& [known, slot] : m_open) {
            bool const isSame =
                known->m_kind == wildcard.m_kind && known->m_namespaces == wildcard.m_namespaces;
            if (isSame) return slot.Add(position);
        }
        m_open.emplace_back(&wildcard, Slot{&position, nullptr});
    }

    Position const* OverlappingElement(Position const& position) const {
        for (QName const& name : *position.m_names) {
            Step();
            if (Position const* const found = Find(m_names, name, position)) return found;
            if (Position const* const found = Find(m_listedNamespaces, name.m_namespace, position))
                return found;
            for (auto const& [wildcard, slot] : m_open) {
                if (Position const* const found = slot.OtherThan(position);
                    found && wildcard->Allows(name.m_namespace))
                    return found;
            }
        }
        return nullptr;
    }

    Position const* OverlappingWildcard(Position const& position) const {
        Wildcard const& wildcard = WildcardOf(position);
        if (wildcard.m_kind == Wildcard::Kind::kList) return OverlappingList(position, wildcard);
        // Two of those that list nothing always have a namespace in common.
        for (auto const& [unused, slot] : m_open) {
            if (Position const* const found = slot.OtherThan(position)) return found;
        }
        for (auto const* const table : {&m_elementNamespaces, &m_listedNamespaces}) {
            for (auto const& [uri, slot] : *table) {
                Step();
                if (Position const* const found = slot.OtherThan(position); found && wildcard.Allows(uri))
                    return found;
            }
        }
        return nullptr;
    }

    Position const* OverlappingList(Position const& position, Wildcard const& wildcard) const {
        for (std::string_view const uri : wildcard.m_namespaces) {
            Step();
            if (Position const* const found = Find(m_elementNamespaces, uri, position)) return found;
            if (Position const* const found = Find(m_listedNamespaces, uri, position)) return found;
            for (auto const& [open, slot] : m_open) {
                if (Position const* const found = slot.OtherThan(position); found && open->Allows(uri))
                    return found;
            }
        }
        return nullptr;
    }

    template <class Key>
    static Position const* Find(std::unordered_map<Key, Slot> const& table, Key const& key,
                                Position const& position) {
        auto const found = table.find(key);
        return found != table.end() ? found->second.OtherThan(position) : nullptr;
    }

    std::size_t* m_steps;
    std::vector<Position const*> m_positions;
    std::unordered_map<QName, Slot> m_names;
    std::unordered_map<std::string_view, Slot> m_elementNamespaces;
    std::unordered_map<std::string_view, Slot> m_listedNamespaces;
    std::vector<std::pair<Wildcard const*, Slot>>
        m_open;  ///< wildcards that list nothing: any, and all but one
};

/// What the check must know of a part of a content model.
struct Part {
    PositionSet m_first;  ///< where its first element may belong
    /// Where an element may belong that comes behind its last one and is still within it.
    PositionSet m_behindLast;
    bool m_mayBeEmpty = false;
};

/// Walks one content model. It is ambiguous if what may come next, at any place, overlaps. Instead of following each
/// position, sets are compared where parts meet: branches of a choice, a part and what comes behind it, the end of a
/// repeated part and its start. Bounds matter only in that a part that occurs exactly so often either repeats or ends.
class ModelChecker {
public:
    using NameTable = std::unordered_map<ElementDeclaration const*, std::vector<QName>>;

    ModelChecker(NameTable& names, std::size_t& steps, Diagnostics& diagnostics)
        : m_names(names), m_steps(steps), m_diagnostics(diagnostics) {}

    void Check(Particle const& content) { Walk(content); }

private:
    Part NewPart() { return {PositionSet(m_steps), PositionSet(m_steps), false}; }

    Part Walk(Particle const& particle) {
        ModelGroup const* const group = particle.AsGroup();
        Part part = group == nullptr                               ? Leaf(particle)
                    : group->m_compositor == Compositor::kSequence ? Sequence(*group)
                                                                   : Choice(*group);
        Repeat(part, particle.m_occurs);
        return part;
    }

    void Repeat(Part& part, Occurs const& occurs) {
        if (occurs.m_max > 1) {
            Compare(part.m_behindLast, part.m_first);
            bool const isExact = occurs.m_min == occurs.m_max && !part.m_mayBeEmpty;
            if (!isExact) part.m_behindLast.Add(part.m_first);
        }
        part.m_mayBeEmpty = part.m_mayBeEmpty || occurs.m_min == 0;
    }

    Part Leaf(Particle const& particle) {
        Part part = NewPart();
        ElementDeclaration const* const element = particle.AsElement();
        m_positions.push_back(
            std::make_unique<Position>(Position{&particle, element ? &NamesOf(*element) : nullptr}));
        if (element != nullptr) CheckType(*element, particle);
        part.m_first.Add(*m_positions.back());
        return part;
    }

    Part Choice(ModelGroup const& group) {
        bool const isAll = group.m_compositor == Compositor::kAll;
        Part part = NewPart();
        part.m_mayBeEmpty = isAll || group.m_particles.empty();
        for (Particle const* const particle : group.m_particles) {
            Part branch = Walk(*particle);
            Join(part.m_first, std::move(branch.m_first));
            Merge(part.m_behindLast, std::move(branch.m_behindLast));
            part.m_mayBeEmpty =
                isAll ? part.m_mayBeEmpty && branch.m_mayBeEmpty : part.m_mayBeEmpty || branch.m_mayBeEmpty;
        }
        if (isAll) part.m_behindLast.Add(part.m_first);
        return part;
    }

    /// From the end, so that what may come behind a member is known.
    Part Sequence(ModelGroup const& group) {
        Part part = NewPart();
        part.m_mayBeEmpty = true;
        PositionSet next(m_steps);  // the first positions of the member behind the present one
        for (auto member = group.m_particles.rbegin(); member != group.m_particles.rend(); ++member) {
            Part present = Walk(**member);
            Compare(present.m_behindLast, part.m_first);
            if (part.m_mayBeEmpty) {
                // The member may be the last one: what may stand behind it within the sequence is behind the
                // last.
                Merge(part.m_behindLast, std::move(present.m_behindLast));
                part.m_behindLast.Add(next);
            }
            next = PositionSet(m_steps);
            if (part.m_mayBeEmpty && present.m_mayBeEmpty) next.Add(present.m_first);
            if (present.m_mayBeEmpty) {
                Join(part.m_first, std::move(present.m_first));
            } else {
                part.m_first = std::move(present.m_first);
            }
            part.m_mayBeEmpty = part.m_mayBeEmpty && present.m_mayBeEmpty;
        }
        return part;
    }

    std::vector<QName> const& NamesOf(ElementDeclaration const& element) {
        auto const [entry, isNew] = m_names.try_emplace(&element);
        if (!isNew) return entry->second;
        entry->second.push_back(element.m_name);
        for (ElementDeclaration const* const member : SubstitutionGroupOf(element)) {
            if (member != &element) entry->second.push_back(member->m_name);
        }
        return entry->second;
    }

    void CheckType(ElementDeclaration const& element, Particle const& particle) {
        auto const [entry, isNew] = m_types.try_emplace(element.m_name, element.m_type, particle.m_place);
        if (isNew || entry->second.first == element.m_type || m_isReported) return;
        m_diagnostics.Error(
            particle.m_place, "type",
            "elements " + Quoted(element.m_name) + " of one content model must have one type");
        m_diagnostics.Note(entry->second.second, "the other one is here");
        m_isReported = true;
    }

    void Compare(PositionSet const& one, PositionSet const& other) {
        if (m_isReported) return;
        if (auto const conflict = one.Conflict(other)) Report(*conflict->first, *conflict->second);
    }

    /// Adds positions that must not overlap with those that are there.
    void Join(PositionSet& set, PositionSet&& other) {
        Compare(set, other);
        Merge(set, std::move(other));
    }

    static void Merge(PositionSet& set, PositionSet&& other) {
        if (set.Size() < other.Size()) std::swap(set, other);
        set.Add(other);
    }

    static std::string Describe(Position const& position) {
        if (ElementDeclaration const* const element = position.m_particle->AsElement())
            return "element " + Quoted(element->m_name);
        return "wildcard";
    }

    void Report(Position const& one, Position const& other) {
        m_isReported = true;
        m_diagnostics.Error(one.m_particle->m_place, "ambiguous",
                            "the content is ambiguous: an element may belong to this " + Describe(one) +
                                " or to another " + Describe(other));
        m_diagnostics.Note(other.m_particle->m_place, "the other one is here");
    }

    NameTable& m_names;
    std::size_t& m_steps;
    Diagnostics& m_diagnostics;
    std::vector<std::unique_ptr<Position>> m_positions;
    std::unordered_map<QName, std::pair<Type const*, Place>> m_types;
    bool m_isReported = false;
};

}  // namespace

void CheckContentModels(SchemaStore& store, Diagnostics& diagnostics) {
    ModelChecker::NameTable names;
    std::size_t steps = 0;
    for (WrittenComplexType const& type : store.All<WrittenComplexType>()) {
        ComplexType const* const base = type.m_base != nullptr ? type.m_base->AsComplex() : nullptr;
        bool const isInherited = base != nullptr && type.m_particle == base->m_particle;
        if (type.m_particle == nullptr || isInherited) continue;
        try {
            ModelChecker(names, steps, diagnostics).Check(*type.m_particle);
        } catch (TooMuch const&) {
            return diagnostics.Error(type.m_place, "limit", "the content models are too large to be checked");
        }
    }
}

}  // namespace BxGen
