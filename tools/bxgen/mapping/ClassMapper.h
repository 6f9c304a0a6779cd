// Complex types and roots: their classes, with properties and rows.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "mapping/Content.h"
#include "mapping/Mapping.h"
#include "mapping/Names.h"
#include "mapping/Property.h"
#include "mapping/SimpleTypeMapper.h"
#include "mapping/Units.h"

namespace BxGen {

class ClassMapper {
public:
    ClassMapper(Mapping const& mapping, Units& units, Names& names)
        : m_mapping(mapping), m_units(units), m_names(names), m_simples(mapping, names) {}

    /// Makes the class of a type, and of its bases, if it is not made.
    ClassFacts& Class(ComplexType const& type);
    /// Makes the class of a root over a type with a name.
    void Root(ElementDeclaration const& element);

    SimpleTypeMapper& Simples() { return m_simples; }

private:
    friend class ContentMapper;

    void MakeClass(ComplexType const& type, ClassFacts& facts);
    void MakeDerived(ComplexType const& type, ClassFacts& base, ClassFacts& facts);
    bool MakeAlias(ComplexType const& type, ClassFacts& base, ClassFacts& facts);
    bool AddsNothing(ComplexType const& type, ComplexType const& base) const;
    void AddOwn(ComplexType const& type, ComplexType const* base, ClassFacts& facts);
    void AddContent(ComplexType const& type, Particle const* particle, ClassFacts& facts);
    void AddText(Component const& user, SimpleType const& type, std::optional<ValueConstraint> const& value,
                 ClassFacts& facts);
    void AddMixedText(Component const& user, std::string_view name, ClassFacts& facts);
    void AddAttribute(AttributeUse const& use, ClassFacts& facts);
    void AddAttributes(std::vector<AttributeUse const*> const& uses, std::size_t from, ClassFacts& facts);
    void AddAnyAttribute(Wildcard const& wildcard, ClassFacts& facts);
    void AddNil(ClassFacts& facts);
    void AddAnything(ElementDeclaration const& element, ClassFacts& facts);
    void AddRootValue(ElementDeclaration const& element, ClassFacts& facts);
    void FillFromElement(ElementDeclaration const& element, ClassFacts& facts);

    /// Rows over the properties of the base.
    /// @return false, with nothing added, if that cannot be
    bool Restrict(ComplexType const& type, ClassFacts& base, ClassFacts& facts);
    void RestrictAttribute(AttributeUse const& use, ClassFacts& facts, std::set<PropertyFacts const*>& used,
                           bool& isNarrower);
    void Prohibit(ClassFacts const& base, std::set<PropertyFacts const*> const& used, ClassFacts& facts);
    void AddAttributeRow(AttributeUse const& use, PropertyFacts const& property, ClassFacts& facts);

    /// The class of the items of a repeated group.
    ClassFacts& Items(ContentNode const& node);
    /// A class for an element whose type has none, as a member of a substitution group.
    ClassFacts& Wrapper(ElementDeclaration const& element);

    ClassFacts& NewFacts(ClassPlan& plan, ClassFacts* base);
    void Publish(ClassPlan& plan);

    Mapping m_mapping;
    Units& m_units;
    Names& m_names;
    SimpleTypeMapper m_simples;
    std::unordered_map<void const*, std::unique_ptr<ClassFacts>> m_facts;
};

}  // namespace BxGen
