// Simple types: built-in ones by their names, others as structs.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "mapping/Mapping.h"
#include "mapping/Names.h"

namespace BxGen {

class SimpleTypeMapper {
public:
    SimpleTypeMapper(Mapping const& mapping, Names& names) : m_mapping(mapping), m_names(names) {}

    /// What generated code writes for a type; makes its struct when it is first asked for.
    TypeExpression const& Expression(SimpleType const& type);

    /// Lists a type with a name among those that documents may name.
    void AddName(SimpleType const& type);

    /// Warns of values whose prefixes lose their meaning.
    void CheckValues(SimpleType const& type, Component const& user, std::string_view name);

private:
    TypeExpression Make(SimpleType const& type);
    TypeExpression MakeStruct(SimpleType const& type);
    /// What a list or a union is, without a name; a restriction's base.
    TypeExpression BaseOf(SimpleType const& type);
    void AddEnumerators(SimpleType const& type, SimplePlan& plan);
    void AddFacets(SimpleType const& type, SimplePlan& plan);
    void AddFacet(SimpleType const& type, Facet const& facet, SimplePlan& plan);
    void AddValues(SimpleType const& step, SimplePlan& plan);
    void AddNames(SimpleType const& step, SimplePlan& plan);
    void KeepLengths(SimpleType const& type, SimplePlan& plan);

    Mapping m_mapping;
    Names& m_names;
    std::unordered_map<SimpleType const*, TypeExpression> m_expressions;
};

}  // namespace BxGen
