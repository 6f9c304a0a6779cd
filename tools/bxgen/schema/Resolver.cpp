#include "schema/Resolver.h"

#include <algorithm>
#include <set>
#include <string>

#include "schema/ComplexTypes.h"
#include "schema/ContentModels.h"
#include "schema/Declarations.h"
#include "schema/Order.h"
#include "schema/Restrictions.h"
#include "schema/SimpleTypes.h"

namespace BxGen {

namespace {

/// Looks names up.
class Resolver {
public:
    Resolver(SchemaStore& store, Diagnostics& diagnostics) : m_store(store), m_diagnostics(diagnostics) {}

    void RegisterAll() {
        Register(m_store.m_types, "type");
        Register(m_store.m_elements, "element");
        Register(m_store.m_attributes, "attribute");
        Register(m_store.m_groups, "group");
        Register(m_store.m_attributeGroups, "attribute group");
        Register(m_store.m_notations, "notation");
        Register(m_store.m_identities, "identity constraint");
        std::erase_if(m_store.m_anonymousTypes,
                      [](Type const* type) { return type->m_document->m_isBuiltIn; });
    }

    void LookUpAll() {
        for (Reference const& reference : m_store.m_references) LookUp(reference);
        ReportMissing();
    }

private:
    template <class T>
    static constexpr bool kMayBeRedefined =
        std::is_same_v<T, Type> || std::is_same_v<T, NamedGroup> || std::is_same_v<T, AttributeGroup>;

    // ------------------------------------------------------------------------------------------------
    // definitions

    template <class T>
    void Register(GlobalTable<T>& table, std::string_view kind) {
        std::vector<T*> redefinitions;
        for (T* const component : table.m_written) {
            if (m_store.m_redefinitions.contains(component)) {
                redefinitions.push_back(component);
                continue;
            }
            auto const [entry, isNew] = table.m_byName.emplace(component->m_name, component);
            if (!isNew) ReportSecond(*component, *entry->second, kind);
        }
        // What is redefined is read later than what redefines it.
        if constexpr (kMayBeRedefined<T>) {
            std::ranges::reverse(redefinitions);
            for (T* const component : redefinitions) Redefine(table, *component, kind);
        }
        for (T const* const component : table.m_written) {
            bool const isListed =
                !component->m_document->m_isBuiltIn && table.Find(component->m_name) == component;
            if (isListed) table.m_listed.push_back(component);
        }
    }

    template <class T>
    void ReportSecond(T const& second, T const& first, std::string_view kind) {
        m_diagnostics.Error(second.m_place, "duplicate",
                            "the " + std::string(kind) + ' ' + Quoted(second.m_name) + " is defined twice");
        m_diagnostics.Note(first.m_place, "the first time here");
    }

    template <class T>
    void Redefine(GlobalTable<T>& table, T& component, std::string_view kind) {
        T* const original = table.Find(component.m_name);
        SchemaDocument const* const target = m_store.m_redefinitions.at(&component);
        if (original == nullptr || original->m_document == nullptr ||
            !Reaches(*target, *original->m_document)) {
            m_diagnostics.Error(component.m_place, "redefine",
                                Quoted(target->m_file) + " has no " + std::string(kind) + ' ' +
                                    Quoted(component.m_name) + " to redefine");
            return;
        }
        if (m_redefined.contains(original)) return ReportSecond(component, *original, kind);
        m_redefined.insert(original);
        component.m_redefined = original;
        table.m_byName[component.m_name] = &component;
    }

    /// True if a document is, or includes, another one.
    static bool Reaches(SchemaDocument const& from, SchemaDocument const& to) {
        std::vector<SchemaDocument const*> open{&from};
        std::set<SchemaDocument const*> seen{&from};
        for (std::size_t i = 0; i < open.size() && open[i] != &to; ++i) {
            for (SchemaReference const& reference : open[i]->m_references) {
                bool const isPart =
                    reference.m_kind != SchemaReference::Kind::kImport && reference.m_document;
                if (isPart && seen.insert(reference.m_document).second) open.push_back(reference.m_document);
            }
        }
        return seen.contains(&to);
    }

    // -------------------------------------------------------------------------------------------------
    // references

    Component const* Find(Reference const& reference) const {
        switch (reference.m_kind) {
            case Reference::Kind::kElement:
                return m_store.m_elements.Find(reference.m_name);
            case Reference::Kind::kAttribute:
                return m_store.m_attributes.Find(reference.m_name);
            case Reference::Kind::kGroup:
                return m_store.m_groups.Find(reference.m_name);
            case Reference::Kind::kAttributeGroup:
                return m_store.m_attributeGroups.Find(reference.m_name);
            case Reference::Kind::kIdentity:
                return m_store.m_identities.Find(reference.m_name);
            default:
                return m_store.m_types.Find(reference.m_name);
        }
    }

    static std::string_view NameOf(Reference::Kind kind) {
        constexpr std::string_view kNames[] = {
            "type", "type", "element", "attribute", "group", "attribute group", "identity constraint"};
        return kNames[static_cast<std::size_t>(kind)];
    }

    Component const* Redefined(Component const& redefinition, Reference::Kind kind) const {
        switch (kind) {
            case Reference::Kind::kGroup:
                return static_cast<NamedGroup const&>(redefinition).m_redefined;
            case Reference::Kind::kAttributeGroup:
                return static_cast<AttributeGroup const&>(redefinition).m_redefined;
            default:
                return static_cast<Type const&>(redefinition).m_redefined;
        }
    }

    void LookUp(Reference const& reference) {
        Component const* found = nullptr;
        if (reference.m_redefinition != nullptr) {
            found = Redefined(*reference.m_redefinition, reference.m_kind);
            if (found == nullptr) return;  // reported as a redefinition of nothing
        } else {
            found = Find(reference);
        }
        std::string const what = std::string(NameOf(reference.m_kind)) + ' ' + Quoted(reference.m_name);
        if (found == nullptr) {
            m_missingNamespaces.insert(reference.m_name.m_namespace);
            return m_diagnostics.Error(reference.m_place, "unresolved", "there is no " + what);
        }
        if (!IsVisible(*reference.m_document, reference.m_name.m_namespace)) {
            return m_diagnostics.Error(reference.m_place, "unresolved",
                                       "the " + what + " is of a namespace that this schema does not import");
        }
        if (reference.m_kind == Reference::Kind::kSimpleType &&
            !static_cast<Type const*>(found)->m_isSimple) {
            return m_diagnostics.Error(reference.m_place, "derivation", "the " + what + " is no simple type");
        }
        reference.m_set(*found);
    }

    static bool IsVisible(SchemaDocument const& document, std::string_view namespaceUri) {
        if (namespaceUri == document.m_targetNamespace || namespaceUri == kXsdNamespace) return true;
        return std::ranges::any_of(document.m_references, [namespaceUri](SchemaReference const& reference) {
            return reference.m_kind == SchemaReference::Kind::kImport &&
                   reference.m_namespace == namespaceUri;
        });
    }

    /// A location that led nowhere matters if something of its namespace is missing.
    void ReportMissing() {
        constexpr std::string_view kRemedy = "give --location URI=FILE or --catalog FILE";
        for (MissingDocument const& missing : m_store.m_missing) {
            bool const isNeeded = m_missingNamespaces.contains(missing.m_namespace);
            bool const isByNamespace = missing.m_location.empty();
            // The document may have come by another way.
            if (isByNamespace && !isNeeded) continue;
            std::string const text =
                (isByNamespace
                     ? "no schema was found for the namespace " + Quoted(missing.m_namespace)
                     : "the location " + Quoted(missing.m_location) + " is no file here and in no catalog") +
                (isNeeded ? "; " + std::string(kRemedy) : "; it is passed over, as nothing of it is needed");
            if (isNeeded) {
                m_diagnostics.Error(missing.m_place, "location", text);
            } else {
                m_diagnostics.Warning(missing.m_place, "location", text);
            }
        }
    }

    SchemaStore& m_store;
    Diagnostics& m_diagnostics;
    std::set<Component const*> m_redefined;
    std::set<std::string_view> m_missingNamespaces;
};

/// Adds the named groups that a content model refers to, and measures how deep it is itself.
std::size_t AddGroups(ModelGroup const& group, std::vector<NamedGroup const*>& groups) {
    std::size_t below = 0;
    for (Particle const* const particle : group.m_particles) {
        if (particle->m_reference != nullptr) {
            groups.push_back(particle->m_reference);
        } else if (ModelGroup const* const inner = particle->AsGroup()) {
            below = std::max(below, AddGroups(*inner, groups));
        }
    }
    return below + 1;
}

/// Finds what rests on itself, and chains that are too long for those who walk them.
class CycleChecker {
public:
    explicit CycleChecker(Diagnostics& diagnostics) : m_diagnostics(diagnostics) {}

    template <class T, class EdgesOf, class Components>
    std::vector<T const*> Check(Components const& components, EdgesOf edgesOf, std::string_view relation) {
        DependencyOrder<T> order(edgesOf);
        for (auto const& component : components) order.Visit(component);
        for (T const* const component : order.Found().m_cycles) {
            m_diagnostics.Error(component->m_place, "cycle",
                                Quoted(component->m_name) + ' ' + std::string(relation) + " itself");
        }
        for (T const* const component : order.Found().m_tooDeep) {
            m_diagnostics.Error(component->m_place, "limit",
                                Quoted(component->m_name) + " stands at the end of a chain of more than " +
                                    std::to_string(kMaxDepth) + " components");
        }
        return order.Found().m_order;
    }

private:
    Diagnostics& m_diagnostics;
};

using TypeEdges = DependencyOrder<Type>::Edges;

TypeEdges EdgesOf(Type const& type) {
    TypeEdges edges;
    auto const add = [&edges](Type const* to) {
        if (to != nullptr) edges.m_to.push_back(to);
    };
    add(type.m_base);
    if (SimpleType const* const simple = type.AsSimple()) {
        add(simple->m_item);
        std::ranges::for_each(simple->m_members, add);
    }
    return edges;
}

DependencyOrder<NamedGroup>::Edges EdgesOf(NamedGroup const& group) {
    DependencyOrder<NamedGroup>::Edges edges;
    edges.m_depth = AddGroups(*group.m_group, edges.m_to);
    return edges;
}

DependencyOrder<AttributeGroup>::Edges EdgesOf(AttributeGroup const& group) {
    DependencyOrder<AttributeGroup>::Edges edges;
    for (AttributeItem const& item : group.m_items) {
        auto const* const reference = std::get_if<AttributeGroupReference const*>(&item);
        if (reference != nullptr) edges.m_to.push_back((*reference)->m_group);
    }
    return edges;
}

DependencyOrder<ElementDeclaration>::Edges EdgesOf(ElementDeclaration const& element) {
    DependencyOrder<ElementDeclaration>::Edges edges;
    if (element.m_head != nullptr) edges.m_to.push_back(element.m_head);
    return edges;
}

template <class T>
constexpr auto kEdges = [](T const& component) { return EdgesOf(component); };

}  // namespace

void ResolveComponents(SchemaStore& store, Diagnostics& diagnostics) {
    Resolver resolver(store, diagnostics);
    resolver.RegisterAll();
    resolver.LookUpAll();
    if (diagnostics.HasErrors()) return;

    CycleChecker cycles(diagnostics);
    std::vector<std::reference_wrapper<Type const>> types;
    for (SimpleType const& type : store.All<SimpleType>()) types.emplace_back(type);
    for (WrittenComplexType const& type : store.All<WrittenComplexType>()) types.emplace_back(type);
    auto const typeOrder = cycles.Check<Type>(types, kEdges<Type>, "derives from");
    auto const groupOrder =
        cycles.Check<NamedGroup>(store.All<NamedGroup>(), kEdges<NamedGroup>, "refers to");
    auto const attributeGroupOrder =
        cycles.Check<AttributeGroup>(store.All<AttributeGroup>(), kEdges<AttributeGroup>, "refers to");
    auto const elementOrder = cycles.Check<ElementDeclaration>(
        store.All<ElementDeclaration>(), kEdges<ElementDeclaration>, "may be substituted for");
    if (diagnostics.HasErrors()) return;

    FinishSimpleTypes(store, typeOrder, diagnostics);
    if (diagnostics.HasErrors()) return;
    FinishAttributes(store, attributeGroupOrder, diagnostics);
    CheckSizes(store, groupOrder, diagnostics);
    if (diagnostics.HasErrors()) return;
    FinishComplexTypes(store, typeOrder, diagnostics);
    if (diagnostics.HasErrors()) return;
    FinishElements(store, elementOrder, diagnostics);
    if (diagnostics.HasErrors()) return;
    CheckContentModels(store, diagnostics);
    if (diagnostics.HasErrors()) return;
    CheckRestrictions(store, diagnostics);
}

}  // namespace BxGen
