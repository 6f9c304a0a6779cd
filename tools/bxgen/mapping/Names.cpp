#include "mapping/Names.h"

#include <algorithm>
#include <sstream>
#include <system_error>

#include "schema/Text.h"
#include "xml/File.h"

namespace BxGen {

bool IsTextEnumeration(SimpleType const& type) {
    bool const isText = type.m_variety == Variety::kAtomic &&
                        (type.m_primitive == BuiltIn::kString || type.m_primitive == BuiltIn::kAnyUri);
    if (!isText || type.EnumerationStep() != &type || type.m_builtIn != BuiltIn::kNone) return false;
    SimpleType const* const base = type.RestrictedType();
    return base == nullptr || base->EnumerationStep() == nullptr;
}

namespace {

/// A name of a type without "Type" at its end.
std::string_view WithoutType(std::string_view name) {
    for (std::string_view const suffix : {"-type", "_type", ".type", "Type", "-Type", "_Type"}) {
        if (name.size() > suffix.size() && name.ends_with(suffix)) {
            name.remove_suffix(suffix.size());
            break;
        }
    }
    return name;
}

std::string WithType(std::string name) {
    if (!name.ends_with("Type")) name += "Type";
    return name;
}

/// What a line of a file of names may be about.
constexpr std::string_view kKindsOfNames[] = {"type", "element", "group", "property"};

bool IsExpected(std::string const& wanted, std::string const& taken) {
    if (!taken.starts_with(wanted)) return true;
    std::string const added = taken.substr(wanted.size());
    return added.empty() || (added[0] != '_' && (added[0] < '0' || added[0] > '9'));
}

}  // namespace

Names::Names(Mapping const& mapping, Units& units, std::vector<ElementDeclaration const*> const& roots)
    : m_mapping(mapping), m_units(units) {
    ReadNamesFile();
    std::vector<SuffixedType> const types = AllTypes();
    // Who comes first gets the plain name.
    NameRoots(roots);
    for (auto const& [type, suffix] : types) {
        if (type->AsComplex() != nullptr) NameType(*type, suffix);
    }
    NameTypesOfElements();
    VisitAll(types);
    for (auto const& [type, suffix] : types) {
        if (type->AsSimple() != nullptr) NameType(*type, suffix);
    }
}

std::vector<Names::SuffixedType> Names::AllTypes() const {
    std::vector<SuffixedType> types;
    for (Type const* const type : m_mapping.m_set.Types()) types.emplace_back(type, "Type");
    for (Type const* const type : m_mapping.m_set.Types()) {
        for (Type const* base = type->m_redefined; base != nullptr; base = base->m_redefined)
            types.emplace_back(base, "Base");
    }
    return types;
}

/// The anonymous types of global elements.
void Names::NameTypesOfElements() {
    for (ElementDeclaration const* const element : m_mapping.m_set.Elements()) {
        ComplexType const* const type = element->m_type->AsComplex();
        if (type == nullptr || !type->IsAnonymous() || m_classes.contains(type)) continue;
        ClassPlan& plan = MakeClass(ClassName(CamelOf(element->m_name.m_local)), *element, "Element");
        plan.m_xmlName = element->m_name.m_local;
        Register(*type, plan);
    }
}

void Names::VisitAll(std::vector<SuffixedType> const& types) {
    SchemaSet const& set = m_mapping.m_set;
    for (ElementDeclaration const* const element : set.Elements()) VisitElement(*element, "");
    for (auto const& [type, suffix] : types) {
        if (auto const* const complex = type->AsComplex()) VisitComplex(*complex, m_suggestions[type]);
        if (auto const* const simple = type->AsSimple())
            VisitSimple(*simple, StrippedCamelOf(type->m_name.m_local));
    }
    for (NamedGroup const* named : set.Groups()) {
        for (; named != nullptr; named = named->m_redefined) {
            m_suggestions[named->m_group] = CamelOf(named->m_name.m_local);
            VisitGroup(*named->m_group, CamelOf(named->m_name.m_local));
        }
    }
    for (AttributeGroup const* group : set.AttributeGroups()) {
        for (; group != nullptr; group = group->m_redefined)
            VisitAttributes(group->m_items, CamelOf(group->m_name.m_local));
    }
    for (AttributeDeclaration const* const attribute : set.Attributes())
        VisitSimple(*attribute->m_type, CamelOf(attribute->m_name.m_local));
}

void Names::ReadNamesFile() {
    if (!m_mapping.m_options.m_namesFile) return;
    std::string const& name = *m_mapping.m_options.m_namesFile;
    std::string text;
    try {
        text = ReadFile(name);
    } catch (std::system_error const& failure) {
        m_mapping.m_diagnostics.FileError({}, Quoted(name) + " cannot be read: " + failure.code().message());
        return;
    }
    std::istringstream lines(text);
    std::string line;
    for (std::uint32_t number = 1; std::getline(lines, line); ++number) {
        std::vector<std::string_view> const items = Items(line);
        if (items.empty() || items[0].starts_with('#')) continue;
        Place const place{name, number, 1};
        if (items.size() != 3 || std::ranges::find(kKindsOfNames, items[0]) == std::end(kKindsOfNames) ||
            !IsIdentifier(items[2])) {
            m_mapping.m_diagnostics.Error(place, "names",
                                          "a line must be: type|element|group|property {namespace}name NAME");
            continue;
        }
        m_given.insert_or_assign(std::string(items[0]) + ' ' + std::string(items[1]),
                                 GivenName{std::string(items[2]), place});
    }
}

void Names::TellUnused() const {
    for (auto const& [what, given] : m_given) {
        if (!given.m_isUsed)
            m_mapping.m_diagnostics.Warning(given.m_place, "names",
                                            Quoted(what) + " is nothing that gets a name here");
    }
}

std::optional<std::string> Names::Given(std::string_view kind, QName const& name) const {
    auto const found = m_given.find(std::string(kind) + ' ' + ToString(name));
    if (found == m_given.end()) return std::nullopt;
    found->second.m_isUsed = true;
    return found->second.m_name;
}

std::string Names::CamelOf(std::string_view name) const {
    std::string camel = Camel(name, m_mapping.m_options.m_ascii);
    return camel.empty() ? "Name" : camel;
}

std::string Names::PropertyName(QName const& name) const {
    std::optional<std::string> const given = Given("property", name);
    return given ? *given : CamelOf(name.m_local);
}

std::string Names::GroupName(NamedGroup const& group) const {
    std::optional<std::string> const given = Given("group", group.m_name);
    return given ? *given : ClassName(CamelOf(group.m_name.m_local));
}

std::string Names::StrippedCamelOf(std::string_view name) const {
    std::string_view const suffix = m_mapping.m_options.m_strippedSuffix;
    if (!suffix.empty() && name.size() > suffix.size() && name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    return CamelOf(name);
}

void Names::Note(Place const& place, std::string_view from, std::string const& wanted,
                 std::string const& taken, bool isTold) {
    if (wanted == taken) return;
    m_mapping.m_plan.m_renamed.push_back({place, std::string(from), taken});
    if (isTold || IsExpected(wanted, taken)) return;
    m_mapping.m_diagnostics.Warning(place, "renamed",
                                    Quoted(from) + " is " + Quoted(taken) + " in C++, since " +
                                        Quoted(wanted) +
                                        " is another name there; --names gives it one of your choice");
}

ClassPlan& Names::MakeClass(std::string const& wanted, Component const& component, std::string_view suffix,
                            bool isTold) {
    ClassPlan& plan = m_mapping.m_plan.m_classes.emplace_back();
    Unit& unit = m_units.Of(TargetNamespaceOf(component));
    plan.m_unit = &unit;
    plan.m_name = unit.m_scope.Take(wanted, suffix);
    plan.m_xmlNamespace = TargetNamespaceOf(component);
    plan.m_elementNamespace = plan.m_xmlNamespace;
    m_typeScope.Add(plan.m_name);
    Note(component.m_place, wanted, wanted, plan.m_name, isTold);
    return plan;
}

SimplePlan& Names::MakeSimple(SimpleType const& type, std::string_view suggestion) {
    SimplePlan& plan = m_mapping.m_plan.m_simples.emplace_back();
    Unit& unit = m_units.Of(TargetNamespaceOf(type));
    plan.m_unit = &unit;
    std::string const wanted(suggestion);
    // A property of the name of its type would hide it.
    auto const free = [this](std::string name) {
        while (m_propertyNames.contains(name)) name += "Type";
        return name;
    };
    if (IsTextEnumeration(type)) {
        std::string const plain = CamelOf(WithoutType(wanted));
        plan.m_enum = unit.m_scope.Take(plain, "Value");
        plan.m_name = unit.m_scope.Take(free(plan.m_enum + "Type"));
        Note(type.m_place, wanted, plain, plan.m_enum);
    } else {
        plan.m_name = unit.m_scope.Take(free(WithType(wanted)));
        Note(type.m_place, wanted, free(WithType(wanted)), plan.m_name);
    }
    m_typeScope.Add(plan.m_name);
    m_simples[&type] = &plan;
    return plan;
}

void Names::Register(ComplexType const& type, ClassPlan& plan) {
    m_classes[&type] = &plan;
    m_types.push_back(&type);
    m_suggestions[&type] = plan.m_name.substr(
        plan.m_name.starts_with(m_mapping.m_options.m_prefix) ? m_mapping.m_options.m_prefix.size() : 0);
}

void Names::NameRoots(std::vector<ElementDeclaration const*> const& roots) {
    for (ElementDeclaration const* const element : roots) {
        std::optional<std::string> const given = Given("element", element->m_name);
        ClassPlan& plan =
            MakeClass(given ? *given : ClassName(CamelOf(element->m_name.m_local)), *element, "Root");
        plan.m_isRoot = true;
        plan.m_xmlName = element->m_name.m_local;
        m_roots[element] = &plan;
        ComplexType const* const type = element->m_type->AsComplex();
        if (type != nullptr && type->IsAnonymous()) Register(*type, plan);
    }
}

void Names::NameType(Type const& type, std::string_view suffix) {
    std::optional<std::string> const given = Given("type", type.m_name);
    std::string const name = given ? *given : StrippedCamelOf(type.m_name.m_local);
    if (auto const* const complex = type.AsComplex()) {
        ClassPlan& plan = MakeClass(given ? name : ClassName(name), type, suffix);
        plan.m_xmlName = type.m_name.m_local;
        plan.m_isNamedType = suffix != "Base";
        Register(*complex, plan);
    } else {
        MakeSimple(*type.AsSimple(), name);
    }
}

void Names::VisitElement(ElementDeclaration const& element, std::string const& owner) {
    for (IdentityConstraint const* const identity : element.m_identities) {
        m_mapping.m_diagnostics.Warning(
            identity->m_place, "identity",
            Quoted(identity->m_name.m_local) + " is not enforced; test the values in your program");
    }
    std::string const name = owner + CamelOf(element.m_name.m_local);
    m_propertyNames.insert(PropertyName(element.m_name));
    auto const* const complex = element.m_type->AsComplex();
    if (complex != nullptr && element.m_isNillable && !complex->IsAnyType()) m_nillable.insert(complex);
    if (!element.m_type->IsAnonymous()) return;
    if (complex == nullptr) return VisitSimple(*element.m_type->AsSimple(), name);
    // A member of a substitution group without a type has its head's.
    if (complex->m_owner != &element && m_classes.contains(complex)) return;
    if (!m_classes.contains(complex)) {
        ClassPlan& plan = MakeClass(ClassName(name), *complex, "Element");
        plan.m_xmlName = element.m_name.m_local;
        Register(*complex, plan);
    }
    VisitComplex(*complex, m_suggestions[complex]);
}

void Names::VisitParticle(Particle const& particle, std::string const& owner) {
    if (auto const* const element = particle.AsElement()) {
        if (!element->m_isGlobal) VisitElement(*element, owner);
    } else if (auto const* const group = particle.AsGroup()) {
        if (particle.m_reference == nullptr) VisitGroup(*group, owner);
    }
}

void Names::VisitGroup(ModelGroup const& group, std::string const& owner) {
    m_suggestions.try_emplace(&group, owner + "Item");
    for (Particle const* const member : group.m_particles) VisitParticle(*member, owner);
}

void Names::VisitAttributes(std::vector<AttributeItem> const& items, std::string const& owner) {
    for (AttributeItem const& item : items) {
        auto const* const use = std::get_if<AttributeUse const*>(&item);
        if (use == nullptr) continue;
        AttributeDeclaration const& attribute = *(*use)->m_declaration;
        m_propertyNames.insert(PropertyName(attribute.m_name));
        if ((*use)->m_isReference) continue;
        VisitSimple(*attribute.m_type, owner + CamelOf(attribute.m_name.m_local));
    }
}

void Names::VisitComplex(ComplexType const& type, std::string const& owner) {
    if (type.m_ownParticle != nullptr) VisitParticle(*type.m_ownParticle, owner);
    VisitAttributes(type.m_ownItems, owner);
    if (type.m_simpleContent != nullptr) VisitSimple(*type.m_simpleContent, owner + "Value");
}

void Names::VisitSimple(SimpleType const& type, std::string const& owner) {
    if (type.IsAnonymous() && !m_suggestions.try_emplace(&type, owner).second) return;
    std::string const inner = std::string(WithoutType(owner));
    if (SimpleType const* const base = type.RestrictedType(); base != nullptr && base->IsAnonymous())
        VisitSimple(*base, inner + "Base");
    if (type.m_item != nullptr && type.m_item->IsAnonymous()) VisitSimple(*type.m_item, inner + "Item");
    for (SimpleType const* const member : type.m_members) {
        if (member->IsAnonymous()) VisitSimple(*member, inner + "Member");
    }
}

ClassPlan* Names::RootOf(ElementDeclaration const& element) const {
    auto const found = m_roots.find(&element);
    return found == m_roots.end() ? nullptr : found->second;
}

SimplePlan* Names::SimpleOf(SimpleType const& type) const {
    auto const found = m_simples.find(&type);
    return found == m_simples.end() ? nullptr : found->second;
}

std::string Names::SuggestionFor(void const* typeOrGroup) const {
    auto const found = m_suggestions.find(typeOrGroup);
    return found == m_suggestions.end() ? "Anonymous" : found->second;
}

bool Names::NeedsNil(ComplexType const& type) const {
    if (!m_nillable.contains(&type)) return false;
    for (Type const* base = type.m_base; base != nullptr; base = base->m_base) {
        if (m_nillable.contains(base)) return false;
    }
    return true;
}

}  // namespace BxGen
