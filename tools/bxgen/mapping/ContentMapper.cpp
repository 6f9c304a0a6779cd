#include "mapping/ContentMapper.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "mapping/Comments.h"

namespace BxGen {

namespace {

using Shape = PropertyFacts::Shape;
using Kind = PropertyKey::Kind;

int Bound(std::uint64_t number) {
    if (number == Occurs::kUnbounded) return kMany;
    return number > INT_MAX ? kMany : static_cast<int>(number);
}

int LeastOf(Occurs const& occurs) {
    return static_cast<int>(std::min<std::uint64_t>(occurs.m_min, INT_MAX));
}

bool IsRepeated(Shape shape) {
    return shape == Shape::kValues || shape == Shape::kCollection || shape == Shape::kAnyElements;
}

/// States bounds that the kind of property does not have by itself.
void AddBounds(RowPlan& row, Occurs const& occurs, int leastOfKind, int mostOfKind) {
    int const least = LeastOf(occurs);
    int const most = Bound(occurs.m_max);
    if (least == leastOfKind && most == mostOfKind) return;
    row.m_arguments.emplace_back(least);
    row.m_arguments.emplace_back(most);
}

ClassPlan const* Resolved(ClassPlan const* plan) {
    while (plan != nullptr && plan->m_isAlias) plan = plan->m_baseClass;
    return plan;
}

}  // namespace

std::string NamespacesOf(Wildcard const& wildcard, std::string_view target) {
    if (wildcard.m_kind == Wildcard::Kind::kAny) return "##any";
    std::string list;
    if (wildcard.m_kind == Wildcard::Kind::kOther) {
        list = "##other";
        if (wildcard.m_namespaces[0] == target) return list;
    }
    for (std::string_view const uri : wildcard.m_namespaces) {
        if (!list.empty()) list += ' ';
        list += uri.empty() ? "##local" : uri == target ? "##targetNamespace" : uri;
    }
    return list;
}

void ContentMapper::Prepare(ContentNode& node) {
    if (!node.IsGroup() || node.IsRepeatedGroup()) {
        // A group of the class itself has one occurrence.
        static ModelGroup const s_sequence;
        ContentNode whole;
        whole.m_particle = node.m_particle;
        whole.m_group = &s_sequence;
        whole.m_children.push_back(std::move(node));
        node = std::move(whole);
    }
    Assign(node, true, nullptr);
    WarnOfOrder(node);
    std::map<std::string_view, int> counts;
    ChooseNamespace(node, counts);
    std::string_view const target = m_facts.m_plan->m_xmlNamespace;
    int most = counts[target];
    std::string_view best = target;
    for (auto const& [uri, count] : counts) {
        if (count > most) {
            most = count;
            best = uri;
        }
    }
    m_facts.m_plan->m_elementNamespace = std::string(best);
}

namespace {

/// The properties of a node in the order of its elements, each with whether it must be there.
void ListProperties(ContentNode const& node, bool isMandatory, std::vector<std::pair<int, bool>>& list) {
    isMandatory = isMandatory && node.m_occurs.m_min > 0;
    if (node.m_property >= 0) list.emplace_back(node.m_property, isMandatory);
    if (node.IsRepeatedGroup()) return;
    for (ContentNode const& child : node.m_children)
        ListProperties(child, isMandatory && !node.IsChoice(), list);
}

/// What a list has of another one, in its own order; nothing if something that must be there is missing in the other.
std::vector<int> Shared(std::vector<std::pair<int, bool>> const& list,
                        std::vector<std::pair<int, bool>> const& other) {
    std::vector<int> shared;
    for (auto const& [property, isMandatory] : list) {
        bool const isThere = std::ranges::find(other, property, &std::pair<int, bool>::first) != other.end();
        if (isThere) shared.push_back(property);
        if (!isThere && isMandatory) return {};
    }
    return shared;
}

}  // namespace

/// Tells of members of a choice that nothing but the order of their elements tells apart.
void ContentMapper::WarnOfOrder(ContentNode const& node) const {
    if (node.IsRepeatedGroup()) return;
    std::vector<std::vector<std::pair<int, bool>>> lists;
    for (ContentNode const& child : node.m_children) {
        WarnOfOrder(child);
        if (!node.IsChoice()) continue;
        auto& list = lists.emplace_back();
        ListProperties(child, true, list);
        bool const isTold = std::any_of(lists.begin(), lists.end() - 1, [&](auto const& earlier) {
            std::vector<int> const here = Shared(list, earlier), there = Shared(earlier, list);
            return !here.empty() && !there.empty() && here != there;
        });
        if (isTold) {
            m_classes.m_mapping.m_diagnostics.Warning(
                child.m_particle->m_place, "twice",
                "this member of a choice may have the elements of an earlier one in another order: they are "
                "written in the order of the earlier one");
        }
    }
}

void ContentMapper::Add(ContentNode node) {
    Prepare(node);
    for (Draft const& draft : m_drafts) MakeProperty(draft);
    AddRows(node, 0, false);
}

bool ContentMapper::AddRestricted(ContentNode node, std::set<PropertyFacts const*>& used, bool& isNarrower) {
    m_isRestriction = true;
    Prepare(node);
    for (Draft const& draft : m_drafts) {
        PropertyFacts const* const property = FindRestricted(draft, isNarrower);
        if (property == nullptr) return false;
        m_properties.push_back(property);
    }
    used.insert(m_properties.begin(), m_properties.end());
    AddRows(node, 0, false);
    return true;
}

namespace {

/// The property of a substitution group, in a class or its bases, that an element is a member of.
PropertyFacts const* FindHead(ClassFacts const* facts, ElementDeclaration const& element) {
    for (; facts != nullptr; facts = facts->m_base) {
        for (auto const& [key, property] : facts->m_properties) {
            if (key.m_kind != Kind::kElement || property.m_element->m_substitutes.empty()) continue;
            for (ElementDeclaration const* head = element.m_head; head != nullptr; head = head->m_head) {
                if (head == property.m_element) return &property;
            }
        }
    }
    return nullptr;
}

bool IsClass(ElementDeclaration const& element) {
    return element.m_type->AsComplex() != nullptr && !element.m_type->IsAnyType();
}

}  // namespace

PropertyFacts const* ContentMapper::FindRestricted(Draft const& draft, bool& isNarrower) const {
    ContentNode const& first = *draft.m_nodes[0];
    ElementDeclaration const* const element = first.Element();
    PropertyFacts const* property = m_facts.m_base->Find(draft.m_key);
    if (property == nullptr && element != nullptr && draft.m_key.m_number == 0)
        property = FindHead(m_facts.m_base, *element);
    if (property == nullptr) return nullptr;
    bool const isRepeated =
        std::ranges::any_of(draft.m_nodes, [](ContentNode const* node) { return node->m_occurs.m_max > 1; });
    if (isRepeated && !IsRepeated(property->m_shape)) return nullptr;
    if (element == nullptr) return property;
    bool const isObject = property->m_shape == Shape::kObject || property->m_shape == Shape::kCollection;
    bool const isAny = property->m_shape == Shape::kAnyElement || property->m_shape == Shape::kAnyElements;
    bool const holdsNillable = isObject && property->m_isNillable && property->m_class == nullptr;
    bool const hasClass = IsClass(*element);
    if (isObject ? hasClass == holdsNillable : !isAny && hasClass) return nullptr;
    if (isObject && property->m_class != nullptr && !hasClass) return nullptr;
    bool const isValue = !isObject && !isAny;
    if (!isValue && element->m_type != property->m_type && (isAny || !hasClass)) isNarrower = true;
    if (element->m_value && element->m_value->m_isFixed && !property->m_isFixed) isNarrower = true;
    return property;
}

void ContentMapper::ChooseNamespace(ContentNode const& node, std::map<std::string_view, int>& counts) const {
    if (node.Element() != nullptr) ++counts[node.Element()->m_name.m_namespace];
    if (node.IsRepeatedGroup()) return;
    for (ContentNode const& child : node.m_children) ChooseNamespace(child, counts);
}

void ContentMapper::Assign(ContentNode& node, bool isMandatory, ContentNode const* choice) {
    if (!node.IsGroup() || node.IsRepeatedGroup()) return AssignLeaf(node, isMandatory, choice);
    if (!node.IsChoice()) {
        for (ContentNode& child : node.m_children)
            Assign(child, isMandatory && node.m_occurs.m_min > 0, nullptr);
        return;
    }
    // Each member begins from what is used so far; what is used after the choice is the most that one of them
    // uses.
    std::map<PropertyKey, int> most;
    std::size_t const start = m_changes.size();
    for (ContentNode& child : node.m_children) {
        Assign(child, false, &node);
        for (std::size_t i = start; i < m_changes.size(); ++i) {
            int& highest = most[m_changes[i].first];
            highest = std::max(highest, m_used[m_changes[i].first]);
        }
        while (m_changes.size() > start) {
            m_used[m_changes.back().first] = m_changes.back().second;
            m_changes.pop_back();
        }
    }
    for (auto const& [key, count] : most) m_changes.emplace_back(key, std::exchange(m_used[key], count));
}

PropertyKey ContentMapper::KeyOf(ContentNode const& node) const {
    if (node.IsGroup()) return {Kind::kItems, {}, node.m_group, 0};
    if (node.Element() != nullptr) return {Kind::kElement, node.Element()->m_name, nullptr, 0};
    return {Kind::kAny, {}, nullptr, 0};
}

void ContentMapper::AssignLeaf(ContentNode& node, bool isMandatory, ContentNode const* choice) {
    PropertyKey key = KeyOf(node);
    auto const [known, isFirst] = m_used.try_emplace(key, 0);
    int& used = known->second;
    if (isFirst && !m_isRestriction && m_facts.m_base != nullptr) used = m_facts.m_base->CountOf(key);
    m_changes.emplace_back(key, used);
    key.m_number = used++;
    auto const [found, isNew] = m_draftByKey.try_emplace(key, m_drafts.size());
    if (isNew) m_drafts.push_back({key, {}, isMandatory && node.m_occurs.m_min > 0, choice});
    Draft& draft = m_drafts[found->second];
    draft.m_nodes.push_back(&node);
    if (!isNew) draft.m_isMandatory = false;
    node.m_property = static_cast<int>(found->second);
}

void ContentMapper::MakeProperty(Draft const& draft) {
    PropertyFacts property;
    PropertyPlan plan;
    Wish const wish = MakeType(draft, property, plan);
    bool const isTwice = draft.m_key.m_number > 0;
    plan.m_name =
        m_facts.m_names.Take(isTwice ? wish.m_name + std::to_string(draft.m_key.m_number + 1) : wish.m_name);
    property.m_name = plan.m_name;
    if (isTwice) WarnOfSecond(draft, wish.m_from, plan.m_name);
    ContentNode const& first = *draft.m_nodes[0];
    m_classes.m_names.Note(first.m_particle->m_place, wish.m_from, wish.m_name, plan.m_name,
                           isTwice || (first.IsGroup() && first.m_named == nullptr));
    plan.m_occurrence = OccurrenceOf(draft);
    // Of values the type of the property says so.
    bool const isObject = property.m_shape == Shape::kObject || property.m_shape == Shape::kAnyElement;
    if (isObject && draft.m_isMandatory && plan.m_occurrence.empty()) plan.m_occurrence = "required";
    m_properties.push_back(&m_facts.m_properties.emplace(draft.m_key, std::move(property)).first->second);
    m_facts.m_plan->m_properties.push_back(std::move(plan));
}

/// Everything of a property but its name.
ContentMapper::Wish ContentMapper::MakeType(Draft const& draft, PropertyFacts& property, PropertyPlan& plan) {
    ContentNode const& first = *draft.m_nodes[0];
    Names const& names = m_classes.m_names;
    std::vector<Annotation const*> annotations{&first.m_particle->m_annotation};
    Wish wish;
    if (first.IsGroup()) {
        property.m_shape = Shape::kCollection;
        property.m_class = m_classes.Items(first).m_plan;
        plan.m_type = {"Bx::Collection", nullptr, {{{}, property.m_class, {}, {}}}, {}};
        wish = {"Items", "Items"};
        if (first.m_named != nullptr)
            wish = {names.PropertyName(first.m_named->m_name), first.m_named->m_name.m_local};
    } else if (first.AsWildcard() != nullptr) {
        property.m_shape = MayRepeat(draft) ? Shape::kAnyElements : Shape::kAnyElement;
        plan.m_type.m_text = MayRepeat(draft) ? "Bx::AnyElements" : "Bx::AnyElement";
        wish = {"Any", "Any"};
    } else {
        ElementDeclaration const& element = *first.Element();
        MakeElement(draft, property, plan.m_type);
        annotations.push_back(&element.m_annotation);
        annotations.push_back(AnnotationOf(*element.m_type, plan.m_type));
        wish = {names.PropertyName(element.m_name), element.m_name.m_local};
    }
    plan.m_documentation =
        DocumentationOf(m_classes.m_mapping.m_options, annotations, "", first.m_particle->m_place);
    return wish;
}

void ContentMapper::WarnOfSecond(Draft const& draft, std::string_view from, std::string const& name) const {
    std::string const what = draft.m_key.m_kind == Kind::kElement ? "element " + Quoted(from)
                             : draft.m_key.m_kind == Kind::kAny   ? "a wildcard"
                                                                  : "group " + Quoted(from);
    m_classes.m_mapping.m_diagnostics.Warning(draft.m_nodes[0]->m_particle->m_place, "twice",
                                              what + " stands several times in one content: this one is " +
                                                  Quoted(name) + "; documents keep the order");
}

bool ContentMapper::MayRepeat(Draft const& draft) {
    return std::ranges::any_of(draft.m_nodes,
                               [](ContentNode const* node) { return node->m_occurs.m_max > 1; });
}

std::string ContentMapper::OccurrenceOf(Draft const& draft) const {
    ContentNode const& first = *draft.m_nodes[0];
    if (draft.m_nodes.size() == 1 && first.m_occurs.m_max > 1) {
        std::uint64_t const least = first.m_occurs.m_min, most = first.m_occurs.m_max;
        if (most == Occurs::kUnbounded) return least > 0 ? "at least " + std::to_string(least) : "";
        if (least == most) return "exactly " + std::to_string(most);
        return least > 0 ? std::to_string(least) + " to " + std::to_string(most)
                         : "up to " + std::to_string(most);
    }
    constexpr std::size_t kMostNamed = 6;
    if (draft.m_choice == nullptr || draft.m_nodes.size() > 1 ||
        draft.m_choice->m_children.size() > kMostNamed)
        return {};
    std::string names;
    for (ContentNode const& member : draft.m_choice->m_children) {
        if (member.Element() == nullptr) return {};
        if (!names.empty()) names += ", ";
        names += m_classes.m_names.PropertyName(member.Element()->m_name);
    }
    return "one of " + names;
}

bool ContentMapper::HasValue(Draft const& draft) {
    return std::ranges::any_of(draft.m_nodes,
                               [](ContentNode const* node) { return node->Element()->m_value.has_value(); });
}

bool ContentMapper::HasDefault(Draft const& draft) {
    return std::ranges::any_of(draft.m_nodes, [](ContentNode const* node) {
        auto const& value = node->Element()->m_value;
        return value && !value->m_isFixed;
    });
}

void ContentMapper::WarnOfValue(Draft const& draft) const {
    ContentNode const& first = *draft.m_nodes[0];
    m_classes.m_mapping.m_diagnostics.Warning(
        first.m_particle->m_place, "default",
        "the default or fixed value of " + Quoted(first.Element()->m_name.m_local) +
            " is not used, since the element is of any type or has others elsewhere in this content; set it in your program");
}

void ContentMapper::MakeElement(Draft const& draft, PropertyFacts& property, TypeExpression& type) {
    ContentNode const& first = *draft.m_nodes[0];
    ElementDeclaration const& element = *first.Element();
    bool const isRepeated = MayRepeat(draft);
    property.m_type = element.m_type;
    property.m_element = &element;
    property.m_isNillable = std::ranges::any_of(
        draft.m_nodes, [](ContentNode const* node) { return node->Element()->m_isNillable; });
    std::vector<ElementDeclaration const*> const alternatives = AlternativesOf(*first.m_particle);
    if (alternatives.size() > 1 || alternatives[0] != &element) return MakeObject(isRepeated, property, type);
    if (element.m_type->IsAnyType()) {
        if (HasDefault(draft)) WarnOfValue(draft);
        property.m_isNillable = false;
        property.m_shape = isRepeated ? Shape::kAnyElements : Shape::kAnyElement;
        type.m_text = isRepeated ? "Bx::AnyElements" : "Bx::AnyElement";
    } else if (auto const* const complex = element.m_type->AsComplex()) {
        property.m_class = &m_classes.m_names.ClassOf(*complex);
        property.m_shape = isRepeated ? Shape::kCollection : Shape::kObject;
        type = {isRepeated ? "Bx::Collection" : "Bx::Object", nullptr, {{{}, property.m_class, {}, {}}}, {}};
    } else {
        MakeValue(draft, *element.m_type->AsSimple(), isRepeated, property, type);
    }
}

void ContentMapper::MakeObject(bool isRepeated, PropertyFacts& property, TypeExpression& type) {
    property.m_shape = isRepeated ? Shape::kCollection : Shape::kObject;
    property.m_isNillable = false;
    auto const* const complex = property.m_element->m_type->AsComplex();
    TypeExpression held{"Bx::CObject", nullptr, {}, {}};
    if (complex != nullptr && !complex->IsAnyType()) {
        property.m_class = &m_classes.m_names.ClassOf(*complex);
        held = {{}, property.m_class, {}, {}};
    }
    type = {isRepeated ? "Bx::Collection" : "Bx::Object", nullptr, {std::move(held)}, {}};
}

void ContentMapper::MakeValue(Draft const& draft, SimpleType const& simple, bool isRepeated,
                              PropertyFacts& property, TypeExpression& type) {
    ElementDeclaration const& element = *draft.m_nodes[0]->Element();
    TypeExpression const& value = m_classes.m_simples.Expression(simple);
    m_classes.m_simples.CheckValues(simple, *draft.m_nodes[0]->m_particle, element.m_name.m_local);
    bool const isAlike = std::ranges::all_of(draft.m_nodes, [&](ContentNode const* node) {
        auto const& other = node->Element()->m_value;
        return other.has_value() == element.m_value.has_value() &&
               (!other || (other->m_value == element.m_value->m_value &&
                           other->m_isFixed == element.m_value->m_isFixed));
    });
    bool const isConstrained = element.m_value && isAlike && !property.m_isNillable;
    if (HasValue(draft) && !isConstrained && !property.m_isNillable) WarnOfValue(draft);
    if (property.m_isNillable) {
        property.m_shape = isRepeated ? Shape::kCollection : Shape::kObject;
        type = {isRepeated ? "Bx::Collection" : "Bx::Object",
                nullptr,
                {{"Bx::CNillable", nullptr, {value}, {}}},
                {}};
        return;
    }
    property.m_shape = isRepeated ? Shape::kValues : Shape::kValue;
    property.m_isConstrained = isConstrained;
    property.m_isFixed = isConstrained && element.m_value->m_isFixed;
    if (isConstrained) {
        std::string const constraint = element.m_value->m_isFixed ? "Fixed" : "WithDefault";
        std::string const repeated = element.m_value->m_isFixed ? "FixedValues" : "ValuesWithDefault";
        type = {"Bx::" + (isRepeated ? repeated : constraint),
                nullptr,
                {value},
                std::string(element.m_value->m_value)};
    } else if (isRepeated) {
        type = {"Bx::Values", nullptr, {value}, {}};
    } else {
        property.m_isRequired = draft.m_isMandatory;
        type = {property.m_isRequired ? "Bx::Required" : "Bx::Optional", nullptr, {value}, {}};
    }
}

RowPlan& ContentMapper::AddRow(int depth, std::string kind, std::string property) {
    RowPlan& row = m_facts.m_plan->m_rows.emplace_back();
    row.m_depth = depth;
    row.m_kind = std::move(kind);
    row.m_property = std::move(property);
    return row;
}

void ContentMapper::AddRows(ContentNode const& node, int depth, bool isInChoice) {
    if (node.IsRepeatedGroup()) {
        AddBounds(AddRow(depth, "Items", PropertyOf(node).m_name), node.m_occurs, 0, kMany);
    } else if (node.IsGroup()) {
        static constexpr char const* kKinds[] = {"Sequence", "Choice", "All"};
        RowPlan& row = AddRow(depth, kKinds[static_cast<int>(node.m_group->m_compositor)]);
        if (node.m_occurs.m_min == 0) row.m_arguments.emplace_back(0);
        for (ContentNode const& child : node.m_children) AddRows(child, depth + 1, node.IsChoice());
        AddRow(depth, "End");
    } else if (node.AsWildcard() != nullptr) {
        AddWildcardRow(node, PropertyOf(node), depth);
    } else {
        AddElementRows(node, depth, isInChoice);
    }
}

void ContentMapper::AddWildcardRow(ContentNode const& node, PropertyFacts const& property, int depth) {
    Wildcard const& wildcard = *node.AsWildcard();
    if (wildcard.m_processContents != ProcessContents::kSkip) {
        m_classes.m_mapping.m_diagnostics.Warning(
            node.m_particle->m_place, "lax",
            "what stands for this wildcard is not validated; read it with Bx::Read into a class of its own");
    }
    RowPlan& row = AddRow(depth, "Any", property.m_name);
    std::string namespaces = NamespacesOf(wildcard, m_facts.m_plan->m_xmlNamespace);
    bool const isPlain = namespaces == "##any" && LeastOf(node.m_occurs) == 0 &&
                         Bound(node.m_occurs.m_max) == (IsRepeated(property.m_shape) ? kMany : 1);
    if (isPlain) return;
    row.m_arguments.emplace_back(std::move(namespaces));
    AddBounds(row, node.m_occurs, 0, IsRepeated(property.m_shape) ? kMany : 1);
}

void ContentMapper::AddElementRows(ContentNode const& node, int depth, bool isInChoice) {
    PropertyFacts const& property = PropertyOf(node);
    std::vector<ElementDeclaration const*> const alternatives = AlternativesOf(*node.m_particle);
    if (alternatives.size() == 1) return AddElementRow(*alternatives[0], property, node.m_occurs, depth);
    bool const needsChoice = !isInChoice || node.m_occurs != Occurs{1, 1};
    if (needsChoice) {
        RowPlan& row = AddRow(depth, "Choice");
        if (node.m_occurs.m_max > 1) {
            row.m_arguments.emplace_back(LeastOf(node.m_occurs));
            row.m_arguments.emplace_back(Bound(node.m_occurs.m_max));
        } else if (node.m_occurs.m_min == 0) {
            row.m_arguments.emplace_back(0);
        }
    }
    std::set<std::string_view> names;
    for (ElementDeclaration const* const element : alternatives) {
        AddElementRow(*element, property, {1, 1}, depth + (needsChoice ? 1 : 0));
        if (names.insert(element->m_name.m_local).second) continue;
        m_classes.m_mapping.m_diagnostics.Warning(
            node.m_particle->m_place, "same-name",
            "elements of several namespaces that are called " + Quoted(element->m_name.m_local) +
                " may stand here: if one type does for both, the first of them is written");
    }
    if (needsChoice) AddRow(depth, "End");
}

void ContentMapper::AddElementRow(ElementDeclaration const& element, PropertyFacts const& property,
                                  Occurs const& occurs, int depth) {
    RowPlan& row = AddRow(depth, "Element", property.m_name);
    bool const isObject = property.m_shape == Shape::kObject || property.m_shape == Shape::kCollection;
    bool isWrapped = false;
    if (isObject && !(property.m_class == nullptr && property.m_isNillable)) {
        auto const* const complex = element.m_type->AsComplex();
        bool const hasClass = complex != nullptr && !complex->IsAnyType();
        isWrapped = !hasClass;
        ClassPlan const* const plan =
            hasClass ? &m_classes.m_names.ClassOf(*complex) : m_classes.Wrapper(element).m_plan;
        if (Resolved(plan) != Resolved(property.m_class)) row.m_class = plan;
    }
    row.m_arguments.emplace_back(std::string(element.m_name.m_local));
    if (element.m_name.m_namespace != m_facts.m_plan->m_elementNamespace) {
        row.m_arguments.emplace_back(NamespaceArgument{std::string(element.m_name.m_namespace)});
        m_classes.m_units.Need(element.m_name.m_namespace);
    }
    if (element.m_name.m_namespace.empty()) m_classes.m_mapping.m_plan.m_hasDefaultNamespace = false;
    bool const isValue = property.m_shape == Shape::kValue || property.m_shape == Shape::kValues;
    row.m_isNillable = element.m_isNillable && !isValue;
    // Untyped elements are read as they are: an empty one stays empty.
    bool const takesNone =
        isValue || isWrapped || (!isObject && element.m_value && !element.m_value->m_isFixed);
    if (element.m_value && !takesNone) row.m_value = PlanOf(*element.m_value);
    row.m_blocked = BlockedWays(element);
    if (isValue && element.m_type != property.m_type)
        row.m_narrowed = m_classes.m_simples.Expression(*element.m_type->AsSimple());
    bool const isRepeated = IsRepeated(property.m_shape);
    AddBounds(row, occurs, property.m_isRequired ? 1 : 0, isRepeated ? kMany : 1);
}

}  // namespace BxGen
