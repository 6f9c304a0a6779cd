// The names of types, given before anything refers to them.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "mapping/Mapping.h"
#include "mapping/Units.h"

namespace BxGen {

/// Walks all components once, gives each class and each simple type with a name its symbol, and notes what a type
/// cannot know of itself.
class Names {
public:
    Names(Mapping const& mapping, Units& units, std::vector<ElementDeclaration const*> const& roots);

    /// The class of a complex type other than xs:anyType.
    ClassPlan& ClassOf(ComplexType const& type) const { return *m_classes.at(&type); }
    /// Null if the element is no root, or its class is the one of its anonymous type.
    ClassPlan* RootOf(ElementDeclaration const& element) const;
    /// Null for an anonymous simple type, which may need no name.
    SimplePlan* SimpleOf(SimpleType const& type) const;
    /// A name for an anonymous simple type's struct or a group's items, without prefix, from where it stands.
    std::string SuggestionFor(void const* typeOrGroup) const;
    /// True if an element of the type may be nil, and none of its bases is the type of such an element.
    bool NeedsNil(ComplexType const& type) const;

    /// The name of a class: with the prefix for classes.
    std::string ClassName(std::string const& name) const { return m_mapping.m_options.m_prefix + name; }
    /// The name that the property of an element or attribute should have.
    std::string PropertyName(QName const& name) const;
    /// The name that the class of a repeated group should have.
    std::string GroupName(NamedGroup const& group) const;

    SimplePlan& MakeSimple(SimpleType const& type, std::string_view suggestion);
    /// @param wanted the whole name
    ClassPlan& MakeClass(std::string const& wanted, Component const& component, std::string_view suffix = "",
                         bool isTold = false);

    /// Names that properties must not have, since they would hide types.
    NameScope& TypeScope() { return m_typeScope; }

    /// Notes a change of name, with a warning if it is not what the schema's author would expect.
    void Note(Place const& place, std::string_view from, std::string const& wanted, std::string const& taken,
              bool isTold = false);

    /// All complex types, in the order in which their classes are generated.
    std::vector<ComplexType const*> const& Types() const { return m_types; }

    /// Warns of lines of the file of names that name nothing, once all is mapped.
    void TellUnused() const;

private:
    /// A line of the file of names.
    struct GivenName {
        std::string m_name;
        Place m_place;
        mutable bool m_isUsed = false;
    };

    /// A type, and what its name ends in if another has the plain one.
    using SuffixedType = std::pair<Type const*, std::string_view>;

    std::vector<SuffixedType> AllTypes() const;
    void NameTypesOfElements();
    void VisitAll(std::vector<SuffixedType> const& types);
    std::string CamelOf(std::string_view name) const;
    std::string StrippedCamelOf(std::string_view name) const;
    std::optional<std::string> Given(std::string_view kind, QName const& name) const;
    void ReadNamesFile();
    void NameRoots(std::vector<ElementDeclaration const*> const& roots);
    void NameType(Type const& type, std::string_view suffix);
    void VisitElement(ElementDeclaration const& element, std::string const& owner);
    void VisitParticle(Particle const& particle, std::string const& owner);
    void VisitGroup(ModelGroup const& group, std::string const& owner);
    void VisitAttributes(std::vector<AttributeItem> const& items, std::string const& owner);
    void VisitComplex(ComplexType const& type, std::string const& owner);
    void VisitSimple(SimpleType const& type, std::string const& owner);
    void Register(ComplexType const& type, ClassPlan& plan);

    Mapping m_mapping;
    Units& m_units;
    NameScope m_typeScope{&NamesOfObjects()};
    std::set<std::string, std::less<>> m_propertyNames;  ///< that classes are likely to have
    std::unordered_map<Type const*, ClassPlan*> m_classes;
    std::unordered_map<Type const*, SimplePlan*> m_simples;
    std::unordered_map<ElementDeclaration const*, ClassPlan*> m_roots;
    std::unordered_map<void const*, std::string> m_suggestions;
    std::unordered_set<Type const*> m_nillable;
    std::map<std::string, GivenName, std::less<>> m_given;
    std::vector<ComplexType const*> m_types;
};

/// True for a type that becomes an enum class: this step is the first that enumerates texts.
bool IsTextEnumeration(SimpleType const& type);

}  // namespace BxGen
