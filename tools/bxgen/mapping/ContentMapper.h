// Content models: their properties and rows.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "mapping/ClassMapper.h"

namespace BxGen {

/// Maps the content that one class describes itself.
class ContentMapper {
public:
    ContentMapper(ClassMapper& classes, ClassFacts& facts) : m_classes(classes), m_facts(facts) {}

    /// Adds the properties and the rows of a content.
    void Add(ContentNode node);

    /// Adds rows over the properties of the bases.
    /// @param used is given the properties that have rows
    /// @param isNarrower becomes true if values are restricted, which a base's properties do not test
    /// @return false if some particle has no property there; nothing is added then
    bool AddRestricted(ContentNode node, std::set<PropertyFacts const*>& used, bool& isNarrower);

private:
    struct Draft {
        PropertyKey m_key;
        std::vector<ContentNode*> m_nodes;
        bool m_isMandatory = false;
        ContentNode const* m_choice = nullptr;  ///< in which the first one stands
    };

    /// The name that a property should have, and what has it in the schema.
    struct Wish {
        std::string m_name;
        std::string_view m_from;
    };

    void Prepare(ContentNode& node);
    PropertyFacts const* FindRestricted(Draft const& draft, bool& isNarrower) const;
    void Assign(ContentNode& node, bool isMandatory, ContentNode const* choice);
    void AssignLeaf(ContentNode& node, bool isMandatory, ContentNode const* choice);
    PropertyKey KeyOf(ContentNode const& node) const;
    void MakeProperty(Draft const& draft);
    Wish MakeType(Draft const& draft, PropertyFacts& property, PropertyPlan& plan);
    void WarnOfSecond(Draft const& draft, std::string_view from, std::string const& name) const;
    static bool MayRepeat(Draft const& draft);
    static bool HasValue(Draft const& draft);
    static bool HasDefault(Draft const& draft);
    void WarnOfValue(Draft const& draft) const;
    void MakeElement(Draft const& draft, PropertyFacts& property, TypeExpression& type);
    void MakeObject(bool isRepeated, PropertyFacts& property, TypeExpression& type);
    void MakeValue(Draft const& draft, SimpleType const& simple, bool isRepeated, PropertyFacts& property,
                   TypeExpression& type);
    std::string OccurrenceOf(Draft const& draft) const;
    void WarnOfOrder(ContentNode const& node) const;
    void ChooseNamespace(ContentNode const& node, std::map<std::string_view, int>& counts) const;

    void AddRows(ContentNode const& node, int depth, bool isInChoice);
    void AddElementRows(ContentNode const& node, int depth, bool isInChoice);
    void AddElementRow(ElementDeclaration const& element, PropertyFacts const& property, Occurs const& occurs,
                       int depth);
    void AddWildcardRow(ContentNode const& node, PropertyFacts const& property, int depth);
    RowPlan& AddRow(int depth, std::string kind, std::string property = {});
    PropertyFacts const& PropertyOf(ContentNode const& node) const {
        return *m_properties[static_cast<std::size_t>(node.m_property)];
    }

    ClassMapper& m_classes;
    ClassFacts& m_facts;
    bool m_isRestriction = false;
    std::vector<Draft> m_drafts;
    std::map<PropertyKey, std::size_t> m_draftByKey;
    std::map<PropertyKey, int> m_used;  ///< how many of one name do not exclude each other so far
    std::vector<std::pair<PropertyKey, int>> m_changes;  ///< of m_used, with what it was
    std::vector<PropertyFacts const*> m_properties;      ///< of the drafts
};

/// The text by which the kit knows a wildcard's namespaces.
/// @param target the namespace of the class
std::string NamespacesOf(Wildcard const& wildcard, std::string_view target);

}  // namespace BxGen
