#include "schema/Declarations.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "schema/ComplexTypes.h"
#include "schema/SimpleTypes.h"
#include "schema/ValueChecker.h"
#include "schema/Wildcards.h"

namespace BxGen {

namespace {

/// What elements and attributes have in common: a type, and a value that must be of it.
class DeclarationChecker {
public:
    DeclarationChecker(SchemaStore& store, Diagnostics& diagnostics)
        : m_store(store), m_values(store), m_diagnostics(diagnostics) {}

    void Report(Component const& component, Code code, std::string const& text) {
        m_diagnostics.Error(component.m_place, code, text);
    }

    void CheckValue(Component const& component, SimpleType const& type, ValueConstraint& value) {
        if (IsId(type))
            Report(component, "value", "what is of the type ID must have neither default nor fixed value");
        if (auto const wrong = m_values.WhatIsWrong(type, value.m_value, value.m_scope)) {
            return Report(component, "value", Quoted(value.m_value) + " is no value of the type: " + *wrong);
        }
        bool const isName = type.m_primitive == BuiltIn::kQName || type.m_primitive == BuiltIn::kNotation;
        if (isName) value.m_name = m_values.NameOf(value.m_value, value.m_scope);
    }

    bool IsId(Type const& type) const { return type.IsDerivedFrom(*m_store.m_builtIns.at(BuiltIn::kId)); }

    /// Part 2, section 3.2.19: only types with enumerated notations may be used.
    void CheckNotation(Component const& component, SimpleType const& type) {
        if (type.m_primitive != BuiltIn::kNotation || type.EnumerationStep() != nullptr) return;
        Report(component, "value", "a type of NOTATION must enumerate its values");
    }

    SchemaStore& Store() { return m_store; }

private:
    SchemaStore& m_store;
    ValueChecker m_values;
    Diagnostics& m_diagnostics;
};

void FinishAttribute(DeclarationChecker& checker, AttributeDeclaration& attribute) {
    if (attribute.m_type == nullptr) {
        attribute.m_type = checker.Store().m_builtIns.at(BuiltIn::kAnySimpleType)->AsSimple();
    }
    checker.CheckNotation(attribute, *attribute.m_type);
    if (attribute.m_value) checker.CheckValue(attribute, *attribute.m_type, *attribute.m_value);
}

void FinishUse(DeclarationChecker& checker, AttributeUse& use) {
    AttributeDeclaration const& declaration = *use.m_declaration;
    if (!use.m_value || !use.m_isReference) {
        use.m_value = declaration.m_value;
        return;
    }
    checker.CheckValue(use, *declaration.m_type, *use.m_value);
    if (!declaration.m_value || !declaration.m_value->m_isFixed) return;
    bool const isSame = WithWhiteSpace(*declaration.m_type, use.m_value->m_value) ==
                        WithWhiteSpace(*declaration.m_type, declaration.m_value->m_value);
    if (use.m_value->m_isFixed && isSame) return;
    checker.Report(use, "value",
                   "the attribute is declared with the fixed value " + Quoted(declaration.m_value->m_value));
}

// --------------------------------------------------------------------------------------------------------
// elements

void FinishElementType(DeclarationChecker& checker, ElementDeclaration& element) {
    if (element.m_type == nullptr) {
        element.m_type = element.m_head != nullptr ? element.m_head->m_type
                                                   : checker.Store().m_builtIns.at(BuiltIn::kAnyType);
    }
    if (SimpleType const* const simple = element.m_type->AsSimple()) checker.CheckNotation(element, *simple);
}

void CheckElementValue(DeclarationChecker& checker, ElementDeclaration& element) {
    if (!element.m_value) return;
    ComplexType const* const complex = element.m_type->AsComplex();
    SimpleType const* const simple =
        complex != nullptr ? complex->m_simpleContent : element.m_type->AsSimple();
    if (simple != nullptr) return checker.CheckValue(element, *simple, *element.m_value);
    bool const mayBeText = complex->m_content == ContentKind::kMixed &&
                           (complex->m_particle == nullptr || MayBeEmpty(*complex->m_particle));
    if (mayBeText) return;
    checker.Report(
        element, "value",
        "an element with a default or fixed value needs simple content, or mixed content that may be empty");
}

void JoinSubstitutionGroup(DeclarationChecker& checker, ElementDeclaration& element) {
    ElementDeclaration const& head = *element.m_head;
    SchemaStore::Mutable(head).m_substitutes.push_back(&element);
    if (!MayReplace(*element.m_type, *head.m_type)) {
        return checker.Report(element, "derivation",
                              "the type of the element does not derive from that of " + Quoted(head.m_name) +
                                  ", which it may be substituted for");
    }
    for (Type const* type = element.m_type; type != head.m_type && type->m_base != nullptr;
         type = type->m_base) {
        if ((head.m_final & type->m_derivation) == 0) continue;
        return checker.Report(
            element, "final",
            Quoted(head.m_name) + " is final for the way in which the type of the element derives");
    }
}

}  // namespace

void FinishAttributes(SchemaStore& store, std::vector<AttributeGroup const*> const& order,
                      Diagnostics& diagnostics) {
    DeclarationChecker checker(store, diagnostics);
    for (AttributeDeclaration& attribute : store.All<AttributeDeclaration>())
        FinishAttribute(checker, attribute);
    for (AttributeUse& use : store.All<AttributeUse>()) FinishUse(checker, use);
    for (AttributeGroup const* const component : order) {
        AttributeGroup& group = SchemaStore::Mutable(*component);
        auto collected = Collect(store, group, group.m_items, group.m_ownWildcard, diagnostics);
        // A prohibited attribute says nothing outside of a restriction.
        std::erase_if(collected.m_uses,
                      [](AttributeUse const* use) { return use->m_use == Use::kProhibited; });
        group.m_attributes = std::move(collected.m_uses);
        group.m_wildcard = collected.m_wildcard;
    }
}

void FinishElements(SchemaStore& store, std::vector<ElementDeclaration const*> const& order,
                    Diagnostics& diagnostics) {
    DeclarationChecker checker(store, diagnostics);
    for (ElementDeclaration const* const element : order)
        FinishElementType(checker, SchemaStore::Mutable(*element));
    for (ElementDeclaration& element : store.All<ElementDeclaration>()) {
        CheckElementValue(checker, element);
        if (element.m_head != nullptr) JoinSubstitutionGroup(checker, element);
    }
}

CollectedAttributes Collect(SchemaStore& store, Component const& owner,
                            std::vector<AttributeItem> const& items, Wildcard const* ownWildcard,
                            Diagnostics& diagnostics) {
    CollectedAttributes collected;
    collected.m_wildcard = ownWildcard;
    std::unordered_set<QName> names;
    auto const add = [&](AttributeUse const* use, Component const& item) {
        bool const isNew = use->m_use == Use::kProhibited || names.insert(use->m_declaration->m_name).second;
        collected.m_uses.push_back(use);
        if (isNew) return;
        diagnostics.Error(item.m_place, "duplicate",
                          "the attribute " + Quoted(use->m_declaration->m_name) + " comes twice");
    };
    for (AttributeItem const& item : items) {
        if (auto const* const use = std::get_if<AttributeUse const*>(&item)) {
            add(*use, **use);
            continue;
        }
        AttributeGroupReference const& reference = *std::get<AttributeGroupReference const*>(item);
        for (AttributeUse const* const use : reference.m_group->m_attributes) add(use, reference);
        Wildcard const* const wildcard = reference.m_group->m_wildcard;
        if (wildcard == nullptr) continue;
        if (collected.m_wildcard == nullptr) {
            collected.m_wildcard = wildcard;
        } else if (auto both = Intersection(*collected.m_wildcard, *wildcard)) {
            collected.m_wildcard = &(store.Make<Wildcard>() = *std::move(both));
        } else {
            diagnostics.Error(owner.m_place, "wildcard",
                              "no wildcard can say what those of the attribute groups have in common");
        }
    }
    return collected;
}

}  // namespace BxGen
