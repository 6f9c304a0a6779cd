#include "schema/ComplexTypes.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "schema/Declarations.h"
#include "schema/Limits.h"
#include "schema/SimpleTypes.h"
#include "schema/ValueChecker.h"
#include "schema/Wildcards.h"

namespace BxGen {

namespace {

bool IsMixed(ComplexType const& type) {
    return type.m_content == ContentKind::kMixed;
}

/// Works out one type whose base is finished.
class ComplexTypeFinisher {
public:
    ComplexTypeFinisher(SchemaStore& store, WrittenComplexType& type, ValueChecker& values,
                        Diagnostics& diagnostics)
        : m_store(store), m_type(type), m_values(values), m_diagnostics(diagnostics) {}

    void Finish() {
        if ((m_type.m_base->m_final & m_type.m_derivation) != 0) {
            std::string const way = m_type.m_derivation == kExtension ? "extended" : "restricted";
            Report("final", Quoted(m_type.m_base->m_name) + " is final and must not be " + way);
        }
        if (m_type.m_hasSimpleContent) {
            FinishSimpleContent();
        } else if (m_type.m_base->AsComplex() == nullptr) {
            return Report("derivation", "the base of complex content must be a complex type, and " +
                                            Quoted(m_type.m_base->m_name) + " is simple");
        } else {
            FinishComplexContent(*m_type.m_base->AsComplex());
        }
        FinishAttributes();
    }

private:
    bool IsExtension() const { return m_type.m_derivation == kExtension; }

    void Report(Code code, std::string const& text) { m_diagnostics.Error(m_type.m_place, code, text); }

    // -------------------------------------------------------------------------------------------- simple
    // content

    void FinishSimpleContent() {
        m_type.m_content = ContentKind::kSimple;
        SimpleType const* const anySimple = m_store.m_builtIns.at(BuiltIn::kAnySimpleType)->AsSimple();
        m_type.m_simpleContent = anySimple;  // if nothing better is found
        ComplexType const* const base = m_type.m_base->AsComplex();
        if (IsExtension()) {
            SimpleType const* const content =
                base != nullptr ? base->m_simpleContent : m_type.m_base->AsSimple();
            if (content == nullptr)
                return Report("derivation",
                              "the base " + Quoted(m_type.m_base->m_name) + " has no simple content");
            m_type.m_simpleContent = content;
            return;
        }
        if (base == nullptr)
            return Report("derivation", "simple content is restricted from a complex type, and " +
                                            Quoted(m_type.m_base->m_name) + " is simple");
        RestrictSimpleContent(*base);
    }

    void RestrictSimpleContent(ComplexType const& base) {
        SimpleType& content = *m_type.m_restrictedContent;
        bool const hasOwnType = content.m_base != nullptr;
        bool const isEmptiable =
            IsMixed(base) && (base.m_particle == nullptr || MayBeEmpty(*base.m_particle));
        if (base.m_simpleContent == nullptr && !(isEmptiable && hasOwnType)) {
            return Report("derivation", "the base " + Quoted(base.m_name) + " has no simple content");
        }
        if (hasOwnType && base.m_simpleContent != nullptr &&
            !MayReplace(*content.m_base, *base.m_simpleContent)) {
            Report("derivation", "the type of the content does not derive from that of the base");
        }
        if (!hasOwnType) content.m_base = base.m_simpleContent;
        FinishSimpleType(m_store, content, m_values, m_diagnostics);
        m_type.m_simpleContent = &content;
    }

    // ------------------------------------------------------------------------------------------- complex
    // content

    void FinishComplexContent(ComplexType const& base) {
        CheckAll();
        Particle const* const own = m_type.m_ownParticle;
        bool const isOwnEmpty = own == nullptr || !HasMembers(*own);
        if (isOwnEmpty) m_type.m_ownParticle = nullptr;
        if (IsExtension()) return Extend(base, isOwnEmpty);
        SetContent(isOwnEmpty ? nullptr : own, m_type.m_isMixed);
        CheckRestriction(base);
    }

    void SetContent(Particle const* particle, bool isMixed) {
        m_type.m_particle = particle;
        m_type.m_content = isMixed               ? ContentKind::kMixed
                           : particle != nullptr ? ContentKind::kElementOnly
                                                 : ContentKind::kEmpty;
    }

    void Extend(ComplexType const& base, bool isOwnEmpty) {
        if (isOwnEmpty && (!m_type.m_isMixed || base.m_content == ContentKind::kMixed)) {
            m_type.m_content = base.m_content;
            m_type.m_particle = base.m_particle;
            m_type.m_simpleContent = base.m_simpleContent;
            return;
        }
        if (base.m_content == ContentKind::kSimple) {
            return Report("derivation", "the base " + Quoted(base.m_name) + " has simple content");
        }
        bool const isBaseEmpty = base.m_content == ContentKind::kEmpty;
        if (!isBaseEmpty && IsMixed(base) != m_type.m_isMixed) {
            Report("derivation", "an extension must be mixed if and only if its base is");
        }
        SetContent(Joined(base.m_particle, m_type.m_ownParticle), m_type.m_isMixed);
    }

    /// The content of an extension: what the base has, then what is added.
    Particle const* Joined(Particle const* base, Particle const* own) {
        if (base == nullptr || own == nullptr) return base != nullptr ? base : own;
        auto const isAll = [](Particle const* particle) {
            return particle->AsGroup() != nullptr && particle->AsGroup()->m_compositor == Compositor::kAll;
        };
        if (isAll(base) || isAll(own))
            Report("all", "content of 'all' must not be extended, nor extend other content");
        auto& sequence = m_store.Make<ModelGroup>();
        sequence.m_place = m_type.m_place;
        sequence.m_document = m_type.m_document;
        sequence.m_particles = {base, own};
        auto& particle = m_store.Make<Particle>();
        particle.m_place = m_type.m_place;
        particle.m_document = m_type.m_document;
        particle.m_term = &sequence;
        return &particle;
    }

    void CheckRestriction(ComplexType const& base) {
        if (base.IsAnyType()) return;
        std::string const start = "the base " + Quoted(base.m_name) + ' ';
        switch (m_type.m_content) {
            case ContentKind::kMixed:
                if (!IsMixed(base))
                    Report("derivation", start + "is not mixed, so a restriction of it must not be");
                break;
            case ContentKind::kEmpty:
                if (base.m_content == ContentKind::kSimple ||
                    (base.m_particle != nullptr && !MayBeEmpty(*base.m_particle))) {
                    Report("derivation", start + "must not be empty, so a restriction of it must not be");
                }
                break;
            default:
                if (base.m_particle == nullptr)
                    Report("derivation", start + "has no elements that could be restricted");
        }
    }

    // ------------------------------------------------------------------------------------------------ all
    // groups

    void CheckAll() {
        if (m_type.m_ownParticle == nullptr) return;
        ModelGroup const& group = *m_type.m_ownParticle->AsGroup();
        if (group.m_compositor == Compositor::kAll) {
            if (m_type.m_ownParticle->m_occurs.m_max > 1)
                ReportAll(*m_type.m_ownParticle, "must not occur more than once");
        } else {
            CheckNoAll(group);
        }
    }

    void CheckNoAll(ModelGroup const& group) {
        for (Particle const* const particle : group.m_particles) {
            ModelGroup const* const inner = particle->AsGroup();
            if (inner == nullptr) continue;
            if (inner->m_compositor == Compositor::kAll) {
                ReportAll(*particle, "must be the whole content of a type");
            } else if (particle->m_reference == nullptr || m_checkedGroups.insert(inner).second) {
                CheckNoAll(*inner);
            }
        }
    }

    void ReportAll(Particle const& particle, std::string_view text) {
        m_diagnostics.Error(particle.m_place, "all", "a group of 'all' " + std::string(text));
    }

    // ------------------------------------------------------------------------------------------------
    // attributes

    void FinishAttributes() {
        auto own = Collect(m_store, m_type, m_type.m_ownItems, m_type.m_ownWildcard, m_diagnostics);
        ComplexType const* const base = m_type.m_base->AsComplex();
        if (base == nullptr || (base->IsAnyType() && !IsExtension())) {
            m_type.m_wildcard = own.m_wildcard;
            AddAll(own.m_uses);
        } else if (IsExtension()) {
            m_type.m_attributes = base->m_attributes;
            AddAll(own.m_uses);
            m_type.m_wildcard = Joined(base->m_wildcard, own.m_wildcard);
        } else {
            RestrictAttributes(*base, own.m_uses);
            m_type.m_wildcard = own.m_wildcard;
            CheckWildcard(*base);
        }
        CheckIds();
    }

    void AddAll(std::vector<AttributeUse const*> const& uses) {
        std::unordered_set<QName> names;
        for (AttributeUse const* const use : m_type.m_attributes) names.insert(use->m_declaration->m_name);
        for (AttributeUse const* const use : uses) {
            if (use->m_use == Use::kProhibited) continue;
            if (names.contains(use->m_declaration->m_name)) {
                m_diagnostics.Error(
                    use->m_place, "duplicate",
                    "the base has the attribute " + Quoted(use->m_declaration->m_name) + " already");
            }
            m_type.m_attributes.push_back(use);
        }
    }

    Wildcard const* Joined(Wildcard const* base, Wildcard const* own) {
        if (base == nullptr || own == nullptr) return base != nullptr ? base : own;
        if (auto both = Union(*own, *base)) return &(m_store.Make<Wildcard>() = *std::move(both));
        Report("wildcard",
               "no wildcard can say what that of the base and that of the extension allow together");
        return own;
    }

    void RestrictAttributes(ComplexType const& base, std::vector<AttributeUse const*> const& uses) {
        std::unordered_map<QName, AttributeUse const*> own;
        for (AttributeUse const* const use : uses) own.emplace(use->m_declaration->m_name, use);
        std::unordered_set<QName> inherited;
        for (AttributeUse const* const use : base.m_attributes) {
            inherited.insert(use->m_declaration->m_name);
            auto const found = own.find(use->m_declaration->m_name);
            AttributeUse const* const present = found != own.end() ? found->second : use;
            if (present != use) CheckUse(*present, *use);
            if (present->m_use != Use::kProhibited) m_type.m_attributes.push_back(present);
        }
        for (AttributeUse const* const use : uses) {
            QName const& name = use->m_declaration->m_name;
            if (inherited.contains(name) || use->m_use == Use::kProhibited) continue;
            if (base.m_wildcard == nullptr || !base.m_wildcard->Allows(name.m_namespace)) {
                ReportUse(*use, "is none of the base, so a restriction must not have it");
            }
            m_type.m_attributes.push_back(use);
        }
    }

    void CheckUse(AttributeUse const& use, AttributeUse const& base) {
        if (base.m_use == Use::kRequired && use.m_use != Use::kRequired) {
            ReportUse(use, "is required by the base, so a restriction must require it");
        }
        if (use.m_use == Use::kProhibited) return;
        SimpleType const& type = *use.m_declaration->m_type;
        if (!MayReplace(type, *base.m_declaration->m_type))
            ReportUse(use, "has a type that does not derive from that in the base");
        if (!base.m_value || !base.m_value->m_isFixed) return;
        bool const isSame =
            use.m_value && use.m_value->m_isFixed &&
            WithWhiteSpace(type, use.m_value->m_value) == WithWhiteSpace(type, base.m_value->m_value);
        if (!isSame) ReportUse(use, "is fixed to " + Quoted(base.m_value->m_value) + " in the base");
    }

    void ReportUse(AttributeUse const& use, std::string const& text) {
        m_diagnostics.Error(use.m_place, "derivation",
                            "the attribute " + Quoted(use.m_declaration->m_name) + ' ' + text);
    }

    void CheckWildcard(ComplexType const& base) {
        if (m_type.m_wildcard == nullptr) return;
        bool const isSubset = base.m_wildcard != nullptr && IsSubset(*m_type.m_wildcard, *base.m_wildcard);
        if (!isSubset) Report("derivation", "the wildcard for attributes allows more than that of the base");
    }

    void CheckIds() {
        Type const& id = *m_store.m_builtIns.at(BuiltIn::kId);
        auto const count = std::ranges::count_if(m_type.m_attributes, [&id](AttributeUse const* use) {
            return use->m_declaration->m_type->IsDerivedFrom(id);
        });
        if (count > 1) Report("duplicate", "the type has more than one attribute of the type ID");
    }

    SchemaStore& m_store;
    WrittenComplexType& m_type;
    ValueChecker& m_values;
    Diagnostics& m_diagnostics;
    std::unordered_set<ModelGroup const*> m_checkedGroups;
};

/// A type that stands in xs:redefine must derive from what it takes the place of.
void CheckRedefinition(Type const& type, Diagnostics& diagnostics) {
    if (type.m_redefined == nullptr || type.m_base == type.m_redefined) return;
    diagnostics.Error(type.m_place, "redefine", "the base of a type that is redefined must be itself");
}

/// The number of particles of a group, those of groups that are referred to counted each time.
class ParticleCounter {
public:
    std::size_t Count(ModelGroup const& group) const {
        std::size_t count = 1;
        for (Particle const* const particle : group.m_particles) {
            count = std::min(count + Count(*particle), kTooMany);
        }
        return count;
    }

    std::size_t Count(Particle const& particle) const {
        if (particle.m_reference != nullptr) return m_counts.at(particle.m_reference);
        ModelGroup const* const group = particle.AsGroup();
        return group != nullptr ? Count(*group) : 1;
    }

    void Add(NamedGroup const& group) { m_counts.emplace(&group, Count(*group.m_group)); }

    static constexpr std::size_t kTooMany = kMaxParticles + 1;

private:
    std::unordered_map<NamedGroup const*, std::size_t> m_counts;
};

/// Keeps the types together within the limits.
class Totals {
public:
    explicit Totals(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

    /// False, with an error, if the content of a type whose base is finished is too large.
    bool AddParticles(WrittenComplexType& type) {
        auto const* const base = static_cast<WrittenComplexType const*>(type.m_base->AsComplex());
        bool const isJoined = base != nullptr && type.m_derivation == kExtension;
        type.m_count = type.m_ownCount + (isJoined ? base->m_count : 0);
        m_particles += type.m_ownCount > 0 ? type.m_count : 0;
        if (type.m_count > kMaxParticles) return Refuse(type, "the content", kMaxParticles, "particles");
        return m_particles <= kMaxAllParticles ||
               Refuse(type, "all content together", kMaxAllParticles, "particles");
    }

    bool AddAttributes(ComplexType const& type) {
        m_attributes += type.m_attributes.size();
        return m_attributes <= kMaxAttributeUses ||
               Refuse(type, "all types together", kMaxAttributeUses, "attributes");
    }

private:
    bool Refuse(Type const& type, std::string const& what, std::size_t limit, std::string_view of) {
        m_diagnostics.Error(type.m_place, "limit",
                            "more than " + std::to_string(limit) + ' ' + std::string(of) + " in " + what);
        return false;
    }

    Diagnostics& m_diagnostics;
    std::size_t m_particles = 0;
    std::size_t m_attributes = 0;
};

template <class Types>
void NoteDerived(SchemaStore& store, Types const& types) {
    for (Type const& type : types) {
        bool const isNoted = type.m_builtIn != BuiltIn::kNone || type.m_base == nullptr;
        if (!isNoted) store.Mutable(*type.m_base).m_derived.push_back(&type);
    }
}

}  // namespace

void CheckSizes(SchemaStore& store, std::vector<NamedGroup const*> const& order, Diagnostics& diagnostics) {
    ParticleCounter counter;
    auto const report = [&diagnostics](Component const& component) {
        diagnostics.Error(component.m_place, "limit",
                          "more than " + std::to_string(kMaxParticles) + " particles in the content");
    };
    for (NamedGroup const* const group : order) {
        counter.Add(*group);
        if (counter.Count(*group->m_group) > kMaxParticles) return report(*group);
    }
    for (WrittenComplexType& type : store.All<WrittenComplexType>()) {
        type.m_ownCount = type.m_ownParticle != nullptr ? counter.Count(*type.m_ownParticle) : 0;
        if (type.m_ownCount > kMaxParticles) report(type);
    }
}

void FinishComplexTypes(SchemaStore& store, std::vector<Type const*> const& order, Diagnostics& diagnostics) {
    ValueChecker values(store);
    Totals totals(diagnostics);
    for (Type const* const type : order) {
        CheckRedefinition(*type, diagnostics);
        if (type->m_isSimple || type->IsAnyType()) continue;
        auto& complex = static_cast<WrittenComplexType&>(SchemaStore::Mutable(*type));
        if (!totals.AddParticles(complex)) return;
        ComplexTypeFinisher(store, complex, values, diagnostics).Finish();
        if (!totals.AddAttributes(complex)) return;
    }
    NoteDerived(store, store.All<SimpleType>());
    NoteDerived(store, store.All<WrittenComplexType>());
}

bool MayBeEmpty(Particle const& particle) {
    if (particle.m_occurs.m_min == 0) return true;
    ModelGroup const* const group = particle.AsGroup();
    if (group == nullptr) return false;
    auto const isEmptiable = [](Particle const* member) { return MayBeEmpty(*member); };
    if (group->m_compositor != Compositor::kChoice)
        return std::ranges::all_of(group->m_particles, isEmptiable);
    return group->m_particles.empty() || std::ranges::any_of(group->m_particles, isEmptiable);
}

bool HasMembers(Particle const& particle) {
    ModelGroup const* const group = particle.AsGroup();
    if (group == nullptr) return true;
    return std::ranges::any_of(group->m_particles,
                               [](Particle const* member) { return HasMembers(*member); });
}

}  // namespace BxGen
