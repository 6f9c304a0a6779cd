#include "mapping/ClassMapper.h"

#include <algorithm>
#include <utility>

#include "mapping/Comments.h"
#include "mapping/ContentMapper.h"
#include "mapping/Runs.h"

namespace BxGen {

namespace {

using Shape = PropertyFacts::Shape;
using Kind = PropertyKey::Kind;

TypeExpression Text(std::string text) {
    return {std::move(text), nullptr, {}, {}};
}

/// The base of a class: of a root one more layer.
TypeExpression BaseExpression(ClassFacts const& facts) {
    TypeExpression base = facts.m_base != nullptr
                              ? TypeExpression{{}, facts.m_base->m_plan, {}, {}}
                              : Text(facts.m_plan->m_isGroup ? "Bx::CGroup" : "Bx::CObject");
    if (!facts.m_plan->m_isRoot) return base;
    return {"Bx::Root", nullptr, {std::move(base)}, {}};
}

RowPlan& AddRow(ClassFacts& facts, std::string kind, std::string property = {}) {
    RowPlan& row = facts.m_plan->m_rows.emplace_back();
    row.m_kind = std::move(kind);
    row.m_property = std::move(property);
    return row;
}

ComplexType const* BaseOf(ComplexType const& type) {
    auto const* const base = type.m_base != nullptr ? type.m_base->AsComplex() : nullptr;
    return base == nullptr || base->IsAnyType() ? nullptr : base;
}

PropertyFacts& AddProperty(ClassFacts& facts, PropertyKey const& key, PropertyFacts property,
                           PropertyPlan plan) {
    facts.m_plan->m_properties.push_back(std::move(plan));
    return facts.m_properties.emplace(key, std::move(property)).first->second;
}

}  // namespace

ClassFacts& ClassMapper::NewFacts(ClassPlan& plan, ClassFacts* base) {
    auto facts = std::make_unique<ClassFacts>();
    facts->m_plan = &plan;
    facts->m_base = base;
    facts->m_names = NameScope(&m_names.TypeScope(), base != nullptr ? &base->m_names : nullptr);
    if (base != nullptr) {
        plan.m_baseClass = base->m_plan;
        facts->m_isMixed = base->m_isMixed;
    }
    m_units.Need(plan.m_xmlNamespace);
    if (plan.m_xmlNamespace.empty() && plan.m_isRoot) m_mapping.m_plan.m_hasDefaultNamespace = false;
    return *(m_facts[&plan] = std::move(facts));
}

void ClassMapper::Publish(ClassPlan& plan) {
    m_units.Need(plan.m_elementNamespace);
    const_cast<Unit*>(plan.m_unit)->m_classes.push_back(&plan);
}

ClassFacts& ClassMapper::Class(ComplexType const& type) {
    ClassPlan& plan = m_names.ClassOf(type);
    auto const found = m_facts.find(&plan);
    if (found != m_facts.end()) return *found->second;
    ComplexType const* const base = BaseOf(type);
    ClassFacts* const baseFacts = base != nullptr ? &Class(*base) : nullptr;
    ClassFacts& facts = NewFacts(plan, baseFacts);
    plan.m_documentation =
        DocumentationOf(m_mapping.m_options, {&type.m_annotation}, plan.m_xmlName, type.m_place);
    plan.m_isAbstract = type.m_isAbstract;
    if (baseFacts != nullptr) {
        MakeDerived(type, *baseFacts, facts);
    } else {
        MakeClass(type, facts);
    }
    facts.m_isDone = true;
    Publish(plan);
    return facts;
}

void ClassMapper::MakeClass(ComplexType const& type, ClassFacts& facts) {
    facts.m_plan->m_base = BaseExpression(facts);
    if (type.m_content == ContentKind::kSimple) AddText(type, *type.m_simpleContent, std::nullopt, facts);
    AddContent(type, type.m_particle, facts);
    AddOwn(type, nullptr, facts);
}

void ClassMapper::MakeDerived(ComplexType const& type, ClassFacts& base, ClassFacts& facts) {
    if (MakeAlias(type, base, facts)) return;
    facts.m_plan->m_base = BaseExpression(facts);
    if (type.m_derivation == kRestriction && Restrict(type, base, facts)) return;
    RowPlan& inherit = AddRow(facts, "Inherit");
    inherit.m_class = base.m_plan;
    if (type.m_derivation == kRestriction) {
        inherit.m_arguments.emplace_back(WaysArgument{kRestriction});
        m_mapping.m_diagnostics.Warning(
            type.m_place, "restriction",
            Quoted(facts.m_plan->m_xmlName) + " restricts " + Quoted(base.m_plan->m_xmlName) +
                " in a way that its class does not express: it takes what its base takes; test the difference in "
                "your program");
    } else {
        AddContent(type, type.m_ownParticle, facts);
    }
    AddOwn(type, BaseOf(type), facts);
}

bool ClassMapper::AddsNothing(ComplexType const& type, ComplexType const& base) const {
    if (type.m_isAbstract || base.m_isAbstract || m_names.NeedsNil(type)) return false;
    if (type.m_content != base.m_content || type.m_attributes != base.m_attributes) return false;
    if (type.m_wildcard != base.m_wildcard || type.m_simpleContent != base.m_simpleContent) return false;
    if (type.m_derivation == kExtension) return type.m_ownParticle == nullptr;
    return type.m_particle == base.m_particle;
}

bool ClassMapper::MakeAlias(ComplexType const& type, ClassFacts& base, ClassFacts& facts) {
    bool const isWanted = m_mapping.m_options.m_withAliases && !facts.m_plan->m_isRoot;
    if (!isWanted || !AddsNothing(type, *BaseOf(type))) return false;
    facts.m_plan->m_isAlias = true;
    facts.m_plan->m_base = {{}, base.m_plan, {}, {}};
    facts.m_plan->m_derivation = type.m_derivation | base.m_plan->m_derivation;
    return true;
}

void ClassMapper::AddContent(ComplexType const& type, Particle const* particle, ClassFacts& facts) {
    if (particle != nullptr) {
        std::optional<ContentNode> node = Normalised(*particle, m_mapping.m_diagnostics);
        if (node) {
            WarnOfRuns(*node, m_mapping.m_diagnostics);
            ContentMapper(*this, facts).Add(std::move(*node));
        }
    }
    if (type.m_content == ContentKind::kMixed) AddMixedText(type, facts.m_plan->m_xmlName, facts);
}

/// Attributes and what else comes after the content.
void ClassMapper::AddOwn(ComplexType const& type, ComplexType const* base, ClassFacts& facts) {
    bool const isRestricted = base != nullptr && type.m_derivation == kRestriction;
    if (!isRestricted)
        AddAttributes(type.m_attributes, base != nullptr ? base->m_attributes.size() : 0, facts);
    if (m_names.NeedsNil(type)) AddNil(facts);
    if (type.m_wildcard != nullptr && !isRestricted &&
        (base == nullptr || type.m_wildcard != base->m_wildcard))
        AddAnyAttribute(*type.m_wildcard, facts);
}

void ClassMapper::AddText(Component const& user, SimpleType const& type,
                          std::optional<ValueConstraint> const& value, ClassFacts& facts) {
    TypeExpression const& expression = m_simples.Expression(type);
    m_simples.CheckValues(type, user, facts.m_plan->m_xmlName);
    PropertyFacts property;
    property.m_name = facts.m_names.Take("Value");
    property.m_type = &type;
    PropertyPlan plan;
    plan.m_name = property.m_name;
    plan.m_documentation.m_place = user.m_place;
    if (value) {
        plan.m_type = {value->m_isFixed ? "Bx::Fixed" : "Bx::WithDefault",
                       nullptr,
                       {expression},
                       std::string(value->m_value)};
    } else {
        plan.m_type = {"Bx::Required", nullptr, {expression}, {}};
        property.m_isRequired = true;
    }
    AddRow(facts, "Text", property.m_name);
    AddProperty(facts, {Kind::kText, {}, nullptr, 0}, std::move(property), std::move(plan));
}

void ClassMapper::AddMixedText(Component const& user, std::string_view name, ClassFacts& facts) {
    if (facts.m_isMixed) return;
    facts.m_isMixed = true;
    m_mapping.m_diagnostics.Warning(
        user.m_place, "mixed",
        "content of " + Quoted(name) +
            " is mixed: the place of its text among the children is lost; keep such "
            "content untyped where the place matters");
    PropertyFacts property;
    property.m_name = facts.m_names.Take("Text");
    PropertyPlan plan;
    plan.m_name = property.m_name;
    plan.m_type = {"Bx::Optional", nullptr, {Text("Xs::string")}, {}};
    plan.m_documentation.m_place = user.m_place;
    AddRow(facts, "Text", property.m_name);
    AddProperty(facts, {Kind::kText, {}, nullptr, 0}, std::move(property), std::move(plan));
}

void ClassMapper::AddAttributes(std::vector<AttributeUse const*> const& uses, std::size_t from,
                                ClassFacts& facts) {
    for (std::size_t i = from; i < uses.size(); ++i) AddAttribute(*uses[i], facts);
}

void ClassMapper::AddAttribute(AttributeUse const& use, ClassFacts& facts) {
    AttributeDeclaration const& attribute = *use.m_declaration;
    TypeExpression const& value = m_simples.Expression(*attribute.m_type);
    m_simples.CheckValues(*attribute.m_type, use, attribute.m_name.m_local);
    bool const isRequired = use.m_use == Use::kRequired;
    PropertyFacts property;
    PropertyPlan plan;
    std::string const wanted = m_names.PropertyName(attribute.m_name);
    property.m_name = facts.m_names.Take(wanted, "Attribute");
    property.m_type = attribute.m_type;
    property.m_isConstrained = use.m_value.has_value();
    property.m_isFixed = use.m_value && use.m_value->m_isFixed;
    property.m_isRequired = isRequired && !use.m_value;
    plan.m_name = property.m_name;
    m_names.Note(use.m_place, attribute.m_name.m_local, wanted, plan.m_name);
    if (use.m_value) {
        plan.m_type = {use.m_value->m_isFixed ? "Bx::Fixed" : "Bx::WithDefault",
                       nullptr,
                       {value},
                       std::string(use.m_value->m_value)};
    } else {
        plan.m_type = {isRequired ? "Bx::Required" : "Bx::Optional", nullptr, {value}, {}};
    }
    plan.m_documentation =
        DocumentationOf(m_mapping.m_options,
                        {&use.m_annotation, &attribute.m_annotation, AnnotationOf(*attribute.m_type, value)},
                        "", use.m_place);
    AddAttributeRow(use, property, facts);
    AddProperty(facts, {Kind::kAttribute, attribute.m_name, nullptr, 0}, std::move(property),
                std::move(plan));
}

void ClassMapper::AddAttributeRow(AttributeUse const& use, PropertyFacts const& property, ClassFacts& facts) {
    QName const& name = use.m_declaration->m_name;
    RowPlan& row = AddRow(facts, "Attribute", property.m_name);
    SimpleType const* const type = use.m_declaration->m_type;
    if (type != property.m_type) row.m_narrowed = m_simples.Expression(*type);
    row.m_arguments.emplace_back(std::string(name.m_local));
    std::string_view const uri = name.m_namespace;
    bool const needsMinimum = use.m_use == Use::kRequired && !property.m_isRequired;
    if (!uri.empty() || needsMinimum) row.m_arguments.emplace_back(NamespaceArgument{std::string(uri)});
    if (needsMinimum) row.m_arguments.emplace_back(1);
    m_units.Need(uri);
}

void ClassMapper::AddAnyAttribute(Wildcard const& wildcard, ClassFacts& facts) {
    if (wildcard.m_processContents != ProcessContents::kSkip) {
        m_mapping.m_diagnostics.Warning(
            wildcard.m_place, "lax",
            "attributes that stand for this wildcard are not validated; test them in your program");
    }
    PropertyKey const key{Kind::kAnyAttribute, {}, nullptr, 0};
    std::string name;
    if (PropertyFacts const* const known = facts.Find(key)) {
        name = known->m_name;
    } else {
        PropertyFacts property;
        property.m_shape = Shape::kAnyAttributes;
        property.m_name = name = facts.m_names.Take("AnyAttributes");
        PropertyPlan plan;
        plan.m_name = name;
        plan.m_type = Text("Bx::AnyAttributes");
        plan.m_documentation =
            DocumentationOf(m_mapping.m_options, {&wildcard.m_annotation}, "", wildcard.m_place);
        AddProperty(facts, key, std::move(property), std::move(plan));
    }
    RowPlan& row = AddRow(facts, "AnyAttribute", name);
    std::string namespaces = NamespacesOf(wildcard, facts.m_plan->m_xmlNamespace);
    if (namespaces != "##any") row.m_arguments.emplace_back(std::move(namespaces));
}

void ClassMapper::AddNil(ClassFacts& facts) {
    PropertyFacts property;
    property.m_shape = Shape::kNil;
    property.m_name = facts.m_names.Take("Nil");
    PropertyPlan plan;
    plan.m_name = property.m_name;
    plan.m_type = Text("Bx::Nil");
    AddRow(facts, "NilMark", property.m_name);
    AddProperty(facts, {Kind::kNil, {}, nullptr, 0}, std::move(property), std::move(plan));
}

void ClassMapper::AddAnything(ElementDeclaration const& element, ClassFacts& facts) {
    PropertyPlan elements;
    elements.m_name = facts.m_names.Take("Any");
    elements.m_type = Text("Bx::AnyElements");
    PropertyPlan attributes;
    attributes.m_name = facts.m_names.Take("AnyAttributes");
    attributes.m_type = Text("Bx::AnyAttributes");
    AddRow(facts, "Sequence");
    AddRow(facts, "Any", elements.m_name).m_depth = 1;
    AddRow(facts, "End");
    facts.m_plan->m_properties.push_back(std::move(elements));
    AddMixedText(element, element.m_name.m_local, facts);
    AddRow(facts, "AnyAttribute", attributes.m_name);
    facts.m_plan->m_properties.push_back(std::move(attributes));
}

/// The class of an element of simple type, or of any.
void ClassMapper::FillFromElement(ElementDeclaration const& element, ClassFacts& facts) {
    facts.m_plan->m_base = BaseExpression(facts);
    if (auto const* const simple = element.m_type->AsSimple()) {
        AddText(element, *simple, element.m_value, facts);
        if (element.m_isNillable) AddNil(facts);
    } else {
        AddAnything(element, facts);
    }
    // The property of a simple type has its own, which does not know of nil.
    if (element.m_isNillable || element.m_type->AsSimple() == nullptr) AddRootValue(element, facts);
}

void ClassMapper::AddRootValue(ElementDeclaration const& element, ClassFacts& facts) {
    if (element.m_value) AddRow(facts, "RootValue").m_value = PlanOf(*element.m_value);
}

void ClassMapper::Root(ElementDeclaration const& element) {
    ClassPlan& plan = *m_names.RootOf(element);
    auto const* const complex = element.m_type->AsComplex();
    bool const isOfClass = complex != nullptr && !complex->IsAnyType();
    if (isOfClass && &m_names.ClassOf(*complex) == &plan) {
        Class(*complex);
        // What the element says goes before what its type says.
        Documentation own = DocumentationOf(m_mapping.m_options, {&element.m_annotation},
                                            element.m_name.m_local, element.m_place);
        if (own.m_text.empty()) own.m_text = std::move(plan.m_documentation.m_text);
        plan.m_documentation = std::move(own);
        if (plan.m_baseClass != nullptr) AddRow(*m_facts.at(&plan), "OwnType");
        if (element.m_isNillable) AddRow(*m_facts.at(&plan), "MayBeNil");
        AddRootValue(element, *m_facts.at(&plan));
        return;
    }
    ClassFacts& facts = NewFacts(plan, isOfClass ? &Class(*complex) : nullptr);
    plan.m_documentation = DocumentationOf(m_mapping.m_options, {&element.m_annotation},
                                           element.m_name.m_local, element.m_place);
    if (isOfClass) {
        plan.m_base = BaseExpression(facts);
        AddRow(facts, "Inherit").m_class = facts.m_base->m_plan;
        AddRootValue(element, facts);
    } else {
        FillFromElement(element, facts);
    }
    if (element.m_isNillable) AddRow(facts, "MayBeNil");
    if (int const blocked = BlockedWays(element))
        AddRow(facts, "Blocks").m_arguments.emplace_back(WaysArgument{blocked});
    Publish(plan);
}

ClassFacts& ClassMapper::Wrapper(ElementDeclaration const& element) {
    std::unique_ptr<ClassFacts>& made = m_facts[&element];
    if (made != nullptr) return *made;
    ClassPlan* plan = m_names.RootOf(element);
    if (plan != nullptr) {
        // The root's own class does: Root() makes it.
        made = std::make_unique<ClassFacts>();
        made->m_plan = plan;
        return *made;
    }
    plan = &m_names.MakeClass(m_names.ClassName(m_names.PropertyName(element.m_name)), element, "Element");
    plan->m_xmlName = element.m_name.m_local;
    ClassFacts& facts = NewFacts(*plan, nullptr);
    plan->m_documentation = DocumentationOf(m_mapping.m_options, {&element.m_annotation},
                                            element.m_name.m_local, element.m_place);
    FillFromElement(element, facts);
    Publish(*plan);
    std::unique_ptr<ClassFacts>& again = m_facts[&element];
    again = std::make_unique<ClassFacts>();
    again->m_plan = plan;
    return *again;
}

ClassFacts& ClassMapper::Items(ContentNode const& node) {
    auto const found = m_facts.find(node.m_group);
    if (found != m_facts.end()) return *found->second;
    Component const& component = *node.m_group;
    std::string_view const local =
        node.m_named != nullptr ? node.m_named->m_name.m_local : std::string_view();
    std::string const name = node.m_named != nullptr ? m_names.GroupName(*node.m_named)
                                                     : m_names.ClassName(m_names.SuggestionFor(node.m_group));
    ClassPlan& plan =
        m_names.MakeClass(name, component, node.m_named != nullptr ? "Item" : "", node.m_named == nullptr);
    plan.m_isGroup = true;
    plan.m_xmlName = local;
    ClassFacts& facts = NewFacts(plan, nullptr);
    plan.m_documentation =
        DocumentationOf(m_mapping.m_options,
                        {node.m_named != nullptr ? &node.m_named->m_annotation : &component.m_annotation,
                         &component.m_annotation},
                        local, node.m_named != nullptr ? node.m_named->m_place : component.m_place);
    plan.m_base = BaseExpression(facts);
    ContentNode inner = node;
    inner.m_occurs = {1, 1};
    ContentMapper(*this, facts).Add(std::move(inner));
    Publish(plan);
    // Facts of plans are found by plan, those of items by group too.
    std::unique_ptr<ClassFacts>& alias = m_facts[node.m_group];
    alias = std::make_unique<ClassFacts>();
    alias->m_plan = &plan;
    return *alias;
}

bool ClassMapper::Restrict(ComplexType const& type, ClassFacts& base, ClassFacts& facts) {
    std::set<PropertyFacts const*> used;
    bool isNarrower = false;
    AddRow(facts, "Restrict").m_class = base.m_plan;
    std::optional<ContentNode> node;
    if (type.m_particle != nullptr) node = Normalised(*type.m_particle, m_mapping.m_diagnostics);
    if (node) WarnOfRuns(*node, m_mapping.m_diagnostics);
    if (node && !ContentMapper(*this, facts).AddRestricted(std::move(*node), used, isNarrower)) {
        facts.m_plan->m_rows.clear();
        return false;
    }
    if (type.m_content == ContentKind::kSimple || type.m_content == ContentKind::kMixed) {
        PropertyFacts const* const text = base.Find({Kind::kText, {}, nullptr, 0});
        if (text == nullptr) {
            facts.m_plan->m_rows.clear();
            return false;
        }
        used.insert(text);
        RowPlan& row = AddRow(facts, "Text", text->m_name);
        if (type.m_content == ContentKind::kSimple && text->m_type != type.m_simpleContent)
            row.m_narrowed = m_simples.Expression(*type.m_simpleContent);
    }
    for (AttributeUse const* const use : type.m_attributes) RestrictAttribute(*use, facts, used, isNarrower);
    PropertyFacts const* const nil = base.Find({Kind::kNil, {}, nullptr, 0});
    if (nil != nullptr) {
        used.insert(nil);
        AddRow(facts, "NilMark", nil->m_name);
    } else if (m_names.NeedsNil(type)) {
        AddNil(facts);
    }
    if (type.m_wildcard != nullptr) {
        AddAnyAttribute(*type.m_wildcard, facts);
        used.insert(facts.Find({Kind::kAnyAttribute, {}, nullptr, 0}));
    }
    Prohibit(base, used, facts);
    if (isNarrower) {
        m_mapping.m_diagnostics.Warning(
            type.m_place, "restriction",
            Quoted(facts.m_plan->m_xmlName) + " restricts values of " + Quoted(base.m_plan->m_xmlName) +
                ", whose properties take what that takes; test the difference in your "
                "program");
    }
    return true;
}

void ClassMapper::RestrictAttribute(AttributeUse const& use, ClassFacts& facts,
                                    std::set<PropertyFacts const*>& used, bool& isNarrower) {
    AttributeDeclaration const& attribute = *use.m_declaration;
    PropertyFacts const* const property = facts.Find({Kind::kAttribute, attribute.m_name, nullptr, 0});
    // What a wildcard of the base let in.
    if (property == nullptr) return AddAttribute(use, facts);
    used.insert(property);
    if (use.m_value && use.m_value->m_isFixed && !property->m_isFixed) isNarrower = true;
    AddAttributeRow(use, *property, facts);
}

void ClassMapper::Prohibit(ClassFacts const& base, std::set<PropertyFacts const*> const& used,
                           ClassFacts& facts) {
    for (ClassFacts const* one = &base; one != nullptr; one = one->m_base) {
        for (auto const& [key, property] : one->m_properties) {
            if (used.contains(&property)) continue;
            std::string const name = key.m_name.IsEmpty() ? property.m_name : std::string(key.m_name.m_local);
            AddRow(facts, "Prohibited", property.m_name).m_arguments.emplace_back(name);
        }
    }
}

}  // namespace BxGen
