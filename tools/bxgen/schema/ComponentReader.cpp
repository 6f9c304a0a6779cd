#include "schema/ComponentReader.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

#include "schema/Text.h"

namespace BxGen {

namespace {

/// The children of an element of a schema, which has no text.
std::vector<XmlElement const*> Children(XmlElement const& element) {
    std::vector<XmlElement const*> children;
    for (XmlElement::Node const& node : element.m_content) {
        if (auto const* const child = std::get_if<XmlElement const*>(&node)) children.push_back(*child);
    }
    return children;
}

XmlElement const* Child(XmlElement const& element, std::string_view name) {
    for (XmlElement const* const child : Children(element)) {
        if (child->m_name.m_local == name) return child;
    }
    return nullptr;
}

/// A whole number that may be written with a sign; the greatest there is if it is more.
std::uint64_t Number(std::string_view text) {
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    std::uint64_t number = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : number;
}

template <class T>
struct Word {
    std::string_view m_word;
    T m_value;
};

constexpr Word<DerivationSet> kDerivationWords[] = {
    {"extension", kExtension},
    {"restriction", kRestriction},
    {"substitution", kSubstitution},
    {"list", kList},
    {"union", kUnion},
};
constexpr Word<Use> kUseWords[] = {{"required", Use::kRequired}, {"prohibited", Use::kProhibited}};
constexpr Word<ProcessContents> kProcessWords[] = {{"lax", ProcessContents::kLax},
                                                   {"skip", ProcessContents::kSkip}};
constexpr Word<Compositor> kCompositorWords[] = {{"choice", Compositor::kChoice}, {"all", Compositor::kAll}};
constexpr Word<IdentityKind> kIdentityWords[] = {{"key", IdentityKind::kKey},
                                                 {"keyref", IdentityKind::kKeyRef}};
constexpr Word<FacetKind> kFacetWords[] = {
    {"length", FacetKind::kLength},
    {"minLength", FacetKind::kMinLength},
    {"maxLength", FacetKind::kMaxLength},
    {"pattern", FacetKind::kPattern},
    {"enumeration", FacetKind::kEnumeration},
    {"whiteSpace", FacetKind::kWhiteSpace},
    {"maxInclusive", FacetKind::kMaxInclusive},
    {"maxExclusive", FacetKind::kMaxExclusive},
    {"minExclusive", FacetKind::kMinExclusive},
    {"minInclusive", FacetKind::kMinInclusive},
    {"totalDigits", FacetKind::kTotalDigits},
    {"fractionDigits", FacetKind::kFractionDigits},
};

/// What a word stands for; the value that goes without saying for others.
template <class T, std::size_t size>
T Meaning(Word<T> const (&words)[size], std::string_view word, T otherwise) {
    auto const* const found = std::ranges::find(words, word, &Word<T>::m_word);
    return found != std::end(words) ? found->m_value : otherwise;
}

bool HasNumber(FacetKind kind) {
    return kind <= FacetKind::kMaxLength || kind >= FacetKind::kTotalDigits;
}

constexpr DerivationSet kComplexDerivations = kExtension | kRestriction;
constexpr DerivationSet kSimpleDerivations = kRestriction | kList | kUnion;

}  // namespace

std::string_view NameOf(FacetKind kind) {
    return kFacetWords[static_cast<std::size_t>(kind)].m_word;
}

ComponentReader::ComponentReader(SchemaStore& store, SchemaDocument const& document, Diagnostics& diagnostics)
    : m_store(store), m_document(document), m_diagnostics(diagnostics) {}

void ComponentReader::Read() {
    std::size_t reference = 0;
    for (Element* const child : Children(*m_document.m_root)) {
        std::string_view const name = child->m_name.m_local;
        bool const isReference = name == "include" || name == "import" || name == "redefine";
        SchemaDocument const* const target =
            isReference ? m_document.m_references[reference++].m_document : nullptr;
        if (name != "redefine") {
            ReadGlobal(*child, nullptr);
            continue;
        }
        for (Element* const redefinition : Children(*child)) ReadGlobal(*redefinition, target);
    }
}

void ComponentReader::ReadGlobal(Element& element, SchemaDocument const* redefined) {
    std::string_view const kind = element.m_name.m_local;
    m_redefinition = nullptr;
    m_redefinedElement = redefined != nullptr ? kind : std::string_view();
    if (kind == "element") {
        Register(element, m_store.m_elements, ReadElementDeclaration(element, true));
    } else if (kind == "attribute") {
        Register(element, m_store.m_attributes, ReadAttributeDeclaration(element, true));
    } else if (kind == "complexType" || kind == "simpleType") {
        m_redefinedName = NameHere(element, "name");
        Type& type = kind == "complexType" ? static_cast<Type&>(ReadComplexType(element, nullptr))
                                           : ReadSimpleType(element, nullptr);
        if (redefined != nullptr) m_store.m_redefinitions.emplace(&type, redefined);
        Register(element, m_store.m_types, type);
    } else if (kind == "group") {
        ReadNamedGroup(element, redefined);
    } else if (kind == "attributeGroup") {
        ReadAttributeGroup(element, redefined);
    } else if (kind == "notation") {
        ReadNotation(element);
    }
}

template <class T>
T& ComponentReader::Register(Element& element, GlobalTable<T>& table, T& component) {
    component.m_name = NameHere(element, "name");
    table.m_written.push_back(&component);
    return component;
}

// ---------------------------------------------------------------------------------------------------------
// values

std::string_view ComponentReader::Value(Element& element, std::string_view attribute) const {
    std::string_view const* const value = element.Find(attribute);
    return value != nullptr ? Trimmed(*value) : std::string_view();
}

bool ComponentReader::Flag(Element& element, std::string_view attribute) const {
    std::string_view const value = Value(element, attribute);
    return value == "true" || value == "1";
}

QName ComponentReader::Resolve(Element& element, std::string_view name) {
    std::size_t const colon = name.find(':');
    std::string_view const prefix = colon == name.npos ? std::string_view() : name.substr(0, colon);
    std::string_view const local = m_store.m_pool.Intern(colon == name.npos ? name : name.substr(colon + 1));
    auto const uri = element.m_scope->Find(prefix);
    if (!uri) {
        m_diagnostics.Error(element.m_place, "unresolved",
                            "the prefix of " + Quoted(name) + " is not declared");
        return {};
    }
    bool const takesTarget = uri->empty() && m_document.m_isChameleon;
    return {takesTarget ? m_document.m_targetNamespace : *uri, local};
}

QName ComponentReader::NameHere(Element& element, std::string_view attribute) const {
    return {m_document.m_targetNamespace, m_store.m_pool.Intern(Value(element, attribute))};
}

QName ComponentReader::LocalName(Element& element, bool isQualifiedByDefault) const {
    std::string_view const form = Value(element, "form");
    bool const isQualified = form.empty() ? isQualifiedByDefault : form == "qualified";
    QName name = NameHere(element, "name");
    if (!isQualified) name.m_namespace = {};
    return name;
}

DerivationSet ComponentReader::Set(Element& element, std::string_view attribute,
                                   std::string_view schemaDefault, DerivationSet all) const {
    std::string_view const* value = element.Find(attribute);
    if (value == nullptr) value = m_document.m_root->Find(schemaDefault);
    if (value == nullptr) return 0;
    DerivationSet set = 0;
    for (std::string_view const word : Items(*value)) {
        set |= word == "#all" ? all : Meaning(kDerivationWords, word, DerivationSet{0});
    }
    return set & all;
}

Occurs ComponentReader::Bounds(Element& element) {
    Occurs occurs;
    std::string_view const min = Value(element, "minOccurs");
    std::string_view const max = Value(element, "maxOccurs");
    if (!min.empty()) occurs.m_min = Number(min);
    if (!max.empty()) occurs.m_max = max == "unbounded" ? Occurs::kUnbounded : Number(max);
    if (occurs.m_min > occurs.m_max) {
        m_diagnostics.Error(element.m_place, "occurs",
                            "minOccurs is " + std::to_string(occurs.m_min) +
                                ", which is more than maxOccurs, " + std::to_string(occurs.m_max));
    }
    return occurs;
}

std::optional<ValueConstraint> ComponentReader::Constraint(Element& element) {
    std::string_view const* const fixed = element.Find("fixed");
    std::string_view const* const value = fixed != nullptr ? fixed : element.Find("default");
    if (value == nullptr) return std::nullopt;
    if (fixed != nullptr && element.Find("default") != nullptr) {
        Report(element, "'default' and 'fixed' must not stand together");
    }
    return ValueConstraint{*value, fixed != nullptr, element.m_scope, {}};
}

// -----------------------------------------------------------------------------------------------------------
// help

Annotation ComponentReader::AnnotationOf(Element& element) const {
    Annotation annotation;
    Element* const written = element.m_name.m_local == "annotation" ? &element : Child(element, "annotation");
    if (written == nullptr) return annotation;
    for (Element* const part : Children(*written)) {
        bool const isDocumentation = part->m_name.m_local == "documentation";
        (isDocumentation ? annotation.m_documentation : annotation.m_appInfo).push_back(part);
    }
    return annotation;
}

void ComponentReader::Fill(Component& component, Element& element) const {
    component.m_place = element.m_place;
    component.m_annotation = AnnotationOf(element);
    component.m_document = &m_document;
}

void ComponentReader::Refer(Reference::Kind kind, Element& element, std::string_view name,
                            std::function<void(Component const&)> set, Component const* redefinition) {
    QName const resolved = Resolve(element, name);
    if (resolved.IsEmpty()) return;
    bool const meansRedefined = redefinition != nullptr && resolved == m_redefinedName;
    m_store.m_references.push_back({kind, resolved, element.m_place, &m_document,
                                    meansRedefined ? redefinition : nullptr, std::move(set)});
}

Component const* ComponentReader::RedefinitionOf(std::string_view element) const {
    return m_redefinedElement == element ? m_redefinition : nullptr;
}

void ComponentReader::Report(Element& element, std::string const& text) {
    m_diagnostics.Error(element.m_place, "syntax", text);
}

// ---------------------------------------------------------------------------------------------------
// declarations

ElementDeclaration& ComponentReader::ReadElementDeclaration(Element& element, bool isGlobal) {
    auto& declaration = m_store.Make<ElementDeclaration>();
    Fill(declaration, element);
    declaration.m_isGlobal = isGlobal;
    declaration.m_name =
        isGlobal ? NameHere(element, "name") : LocalName(element, m_document.m_elementsQualified);
    declaration.m_value = Constraint(element);
    declaration.m_isNillable = Flag(element, "nillable");
    declaration.m_isAbstract = Flag(element, "abstract");
    declaration.m_block = Set(element, "block", "blockDefault", kComplexDerivations | kSubstitution);
    if (isGlobal) declaration.m_final = Set(element, "final", "finalDefault", kComplexDerivations);
    ReadElementType(element, declaration);
    if (std::string_view const head = Value(element, "substitutionGroup"); !head.empty()) {
        Refer(Reference::Kind::kElement, element, head, [&declaration](Component const& found) {
            declaration.m_head = static_cast<ElementDeclaration const*>(&found);
        });
    }
    for (Element* const child : Children(element)) {
        std::string_view const name = child->m_name.m_local;
        bool const isIdentity = name == "unique" || name == "key" || name == "keyref";
        if (isIdentity) declaration.m_identities.push_back(&ReadIdentity(*child));
    }
    return declaration;
}

void ComponentReader::ReadElementType(Element& element, ElementDeclaration& declaration) {
    Element* const simple = Child(element, "simpleType");
    Element* const complex = Child(element, "complexType");
    std::string_view const name = Value(element, "type");
    if (!name.empty() && (simple != nullptr || complex != nullptr)) {
        Report(element, "'type' and a type within the element must not stand together");
    }
    if (simple != nullptr) declaration.m_type = &ReadSimpleType(*simple, &declaration);
    if (complex != nullptr) declaration.m_type = &ReadComplexType(*complex, &declaration);
    if (name.empty()) return;
    Refer(Reference::Kind::kType, element, name,
          [&declaration](Component const& found) { declaration.m_type = static_cast<Type const*>(&found); });
}

IdentityConstraint& ComponentReader::ReadIdentity(Element& element) {
    auto& identity = m_store.Make<IdentityConstraint>();
    Fill(identity, element);
    identity.m_kind = Meaning(kIdentityWords, element.m_name.m_local, IdentityKind::kUnique);
    for (Element* const child : Children(element)) {
        if (child->m_name.m_local == "selector") identity.m_selector = Value(*child, "xpath");
        if (child->m_name.m_local == "field") identity.m_fields.push_back(Value(*child, "xpath"));
    }
    if (std::string_view const refer = Value(element, "refer"); !refer.empty()) {
        Refer(Reference::Kind::kIdentity, element, refer, [&identity](Component const& found) {
            identity.m_refer = static_cast<IdentityConstraint const*>(&found);
        });
    }
    return Register(element, m_store.m_identities, identity);
}

AttributeDeclaration& ComponentReader::ReadAttributeDeclaration(Element& element, bool isGlobal) {
    auto& declaration = m_store.Make<AttributeDeclaration>();
    Fill(declaration, element);
    declaration.m_isGlobal = isGlobal;
    declaration.m_name =
        isGlobal ? NameHere(element, "name") : LocalName(element, m_document.m_attributesQualified);
    declaration.m_value = Constraint(element);
    if (declaration.m_name.m_local == "xmlns") Report(element, "no attribute may be named 'xmlns'");
    if (declaration.m_name.m_namespace == kXsiNamespace && !m_document.m_isBuiltIn) {
        Report(element, "no attribute may be declared in the namespace " + Quoted(kXsiNamespace));
    }
    Element* const simple = Child(element, "simpleType");
    std::string_view const name = Value(element, "type");
    if (simple != nullptr) declaration.m_type = &ReadSimpleType(*simple, &declaration);
    if (name.empty()) return declaration;
    if (simple != nullptr) Report(element, "'type' and a type within the attribute must not stand together");
    Refer(Reference::Kind::kSimpleType, element, name, [&declaration](Component const& found) {
        declaration.m_type = static_cast<SimpleType const*>(&found);
    });
    return declaration;
}

AttributeUse& ComponentReader::ReadAttributeUse(Element& element) {
    auto& use = m_store.Make<AttributeUse>();
    Fill(use, element);
    use.m_use = Meaning(kUseWords, Value(element, "use"), Use::kOptional);
    use.m_value = Constraint(element);
    use.m_isReference = element.Find("ref") != nullptr;
    if (use.m_use != Use::kOptional && element.Find("default") != nullptr) {
        Report(element, "an attribute with a default must be optional");
    }
    if (!use.m_isReference) {
        use.m_declaration = &ReadAttributeDeclaration(element, false);
        return use;
    }
    Refer(Reference::Kind::kAttribute, element, Value(element, "ref"), [&use](Component const& found) {
        use.m_declaration = static_cast<AttributeDeclaration const*>(&found);
    });
    return use;
}

void ComponentReader::ReadAttributes(Element& parent, std::vector<AttributeItem>& items,
                                     Wildcard const*& wildcard, AttributeGroup const* group) {
    for (Element* const child : Children(parent)) {
        std::string_view const name = child->m_name.m_local;
        if (name == "attribute") {
            AttributeUse& use = ReadAttributeUse(*child);
            use.m_group = group;
            items.emplace_back(&use);
        } else if (name == "attributeGroup") {
            auto& reference = m_store.Make<AttributeGroupReference>();
            Fill(reference, *child);
            Refer(
                Reference::Kind::kAttributeGroup, *child, Value(*child, "ref"),
                [&reference](Component const& found) {
                    reference.m_group = static_cast<AttributeGroup const*>(&found);
                },
                RedefinitionOf("attributeGroup"));
            items.emplace_back(&reference);
        } else if (name == "anyAttribute") {
            wildcard = &ReadWildcard(*child);
        }
    }
}

Wildcard& ComponentReader::ReadWildcard(Element& element) {
    auto& wildcard = m_store.Make<Wildcard>();
    Fill(wildcard, element);
    wildcard.m_processContents =
        Meaning(kProcessWords, Value(element, "processContents"), ProcessContents::kStrict);
    std::string_view const* const value = element.Find("namespace");
    std::string_view const text = value != nullptr ? Trimmed(*value) : "##any";
    if (text == "##any") return wildcard;
    if (text == "##other") {
        wildcard.m_kind = Wildcard::Kind::kOther;
        wildcard.m_namespaces.push_back(m_document.m_targetNamespace);
        return wildcard;
    }
    wildcard.m_kind = Wildcard::Kind::kList;
    for (std::string_view const item : Items(text)) {
        std::string_view const uri = item == "##local"             ? std::string_view()
                                     : item == "##targetNamespace" ? m_document.m_targetNamespace
                                                                   : m_store.m_pool.Intern(item);
        wildcard.m_namespaces.push_back(uri);
    }
    return wildcard;
}

void ComponentReader::ReadNotation(Element& element) {
    auto& notation = m_store.Make<Notation>();
    Fill(notation, element);
    notation.m_public = Value(element, "public");
    notation.m_system = Value(element, "system");
    if (element.Find("public") == nullptr && element.Find("system") == nullptr) {
        Report(element, "a notation needs 'public' or 'system'");
    }
    Register(element, m_store.m_notations, notation);
}

// ---------------------------------------------------------------------------------------------------------
// groups

void ComponentReader::ReadNamedGroup(Element& element, SchemaDocument const* redefined) {
    auto& group = m_store.Make<NamedGroup>();
    Fill(group, element);
    m_redefinedName = NameHere(element, "name");
    if (redefined != nullptr) {
        m_redefinition = &group;
        m_store.m_redefinitions.emplace(&group, redefined);
    }
    for (Element* const child : Children(element)) {
        if (child->m_name.m_local != "annotation") group.m_group = &ReadModelGroup(*child);
    }
    Register(element, m_store.m_groups, group);
}

void ComponentReader::ReadAttributeGroup(Element& element, SchemaDocument const* redefined) {
    auto& group = m_store.Make<AttributeGroup>();
    Fill(group, element);
    m_redefinedName = NameHere(element, "name");
    if (redefined != nullptr) {
        m_redefinition = &group;
        m_store.m_redefinitions.emplace(&group, redefined);
    }
    ReadAttributes(element, group.m_items, group.m_ownWildcard, &group);
    Register(element, m_store.m_attributeGroups, group);
}

Particle const* ComponentReader::ReadParticle(Element& element) {
    auto& particle = m_store.Make<Particle>();
    Fill(particle, element);
    particle.m_occurs = Bounds(element);
    std::string_view const name = element.m_name.m_local;
    if (name == "element") {
        ReadElementParticle(element, particle);
    } else if (name == "any") {
        particle.m_term = &ReadWildcard(element);
    } else if (name == "group") {
        particle.m_isReference = true;
        particle.m_term = static_cast<ModelGroup const*>(nullptr);
        Refer(
            Reference::Kind::kGroup, element, Value(element, "ref"),
            [&particle](Component const& found) {
                particle.m_reference = static_cast<NamedGroup const*>(&found);
                particle.m_term = particle.m_reference->m_group;
            },
            RedefinitionOf("group"));
    } else {
        particle.m_term = &ReadModelGroup(element);
    }
    return particle.m_occurs.m_max > 0 ? &particle : nullptr;
}

void ComponentReader::ReadElementParticle(Element& element, Particle& particle) {
    particle.m_isReference = element.Find("ref") != nullptr;
    if (!particle.m_isReference) {
        particle.m_term = &ReadElementDeclaration(element, false);
        return;
    }
    Refer(Reference::Kind::kElement, element, Value(element, "ref"),
          [&particle, &referenced = m_store.m_referencedElements](Component const& found) {
              auto const* const declaration = static_cast<ElementDeclaration const*>(&found);
              particle.m_term = declaration;
              referenced.insert(declaration);
          });
}

ModelGroup& ComponentReader::ReadModelGroup(Element& element) {
    auto& group = m_store.Make<ModelGroup>();
    Fill(group, element);
    group.m_compositor = Meaning(kCompositorWords, element.m_name.m_local, Compositor::kSequence);
    for (Element* const child : Children(element)) {
        if (child->m_name.m_local == "annotation") continue;
        Particle const* const particle = ReadParticle(*child);
        if (particle == nullptr) continue;
        if (group.m_compositor == Compositor::kAll && particle->m_occurs.m_max > 1) {
            m_diagnostics.Error(child->m_place, "occurs",
                                "an element of 'all' must not occur more than once");
        }
        group.m_particles.push_back(particle);
    }
    return group;
}

/// The group or reference that a complex type or a step of derivation has as its content; null if none.
Particle const* ComponentReader::ReadContentParticle(Element& parent) {
    constexpr std::string_view kGroups[] = {"sequence", "choice", "all", "group"};
    for (Element* const child : Children(parent)) {
        bool const isGroup = std::ranges::find(kGroups, child->m_name.m_local) != std::end(kGroups);
        if (isGroup) return ReadParticle(*child);
    }
    return nullptr;
}

// ----------------------------------------------------------------------------------------------------------
// types

ComplexType& ComponentReader::ReadComplexType(Element& element, Component const* owner) {
    auto& type = m_store.Make<WrittenComplexType>();
    Fill(type, element);
    type.m_owner = owner;
    if (owner == nullptr && !m_redefinedElement.empty()) m_redefinition = &type;
    if (owner != nullptr) m_store.m_anonymousTypes.push_back(&type);
    type.m_isMixed = Flag(element, "mixed");
    type.m_isAbstract = Flag(element, "abstract");
    type.m_block = Set(element, "block", "blockDefault", kComplexDerivations);
    type.m_final = Set(element, "final", "finalDefault", kComplexDerivations);
    type.m_derivation = kRestriction;
    Element* const simple = Child(element, "simpleContent");
    Element* const content = simple != nullptr ? simple : Child(element, "complexContent");
    if (content != nullptr) {
        type.m_hasSimpleContent = simple != nullptr;
        ReadDerivation(*content, type);
        return type;
    }
    type.m_base = m_store.m_builtIns.at(BuiltIn::kAnyType);
    type.m_ownParticle = ReadContentParticle(element);
    ReadAttributes(element, type.m_ownItems, type.m_ownWildcard, nullptr);
    return type;
}

void ComponentReader::ReadDerivation(Element& content, WrittenComplexType& type) {
    if (content.Find("mixed") != nullptr) type.m_isMixed = Flag(content, "mixed");
    Element* const extension = Child(content, "extension");
    Element& step = extension != nullptr ? *extension : *Child(content, "restriction");
    type.m_derivation = extension != nullptr ? kExtension : kRestriction;
    Refer(
        Reference::Kind::kType, step, Value(step, "base"),
        [&type](Component const& found) { type.m_base = static_cast<Type const*>(&found); },
        &type == m_redefinition ? m_redefinition : nullptr);
    if (!type.m_hasSimpleContent) type.m_ownParticle = ReadContentParticle(step);
    if (type.m_hasSimpleContent && extension == nullptr) ReadRestrictedContent(step, type);
    ReadAttributes(step, type.m_ownItems, type.m_ownWildcard, nullptr);
}

void ComponentReader::ReadRestrictedContent(Element& restriction, WrittenComplexType& type) {
    auto& content = m_store.Make<SimpleType>();
    Fill(content, restriction);
    content.m_owner = &type;
    content.m_derivation = kRestriction;
    m_store.m_anonymousTypes.push_back(&content);
    if (Element* const simple = Child(restriction, "simpleType"))
        content.m_base = &ReadSimpleType(*simple, &type);
    ReadFacets(restriction, content);
    type.m_restrictedContent = &content;
}

SimpleType& ComponentReader::ReadSimpleType(Element& element, Component const* owner) {
    auto& type = m_store.Make<SimpleType>();
    Fill(type, element);
    type.m_owner = owner;
    if (owner == nullptr && !m_redefinedElement.empty()) m_redefinition = &type;
    if (owner != nullptr) m_store.m_anonymousTypes.push_back(&type);
    type.m_final = Set(element, "final", "finalDefault", kSimpleDerivations);
    for (Element* const child : Children(element)) {
        std::string_view const name = child->m_name.m_local;
        if (name == "restriction") ReadRestriction(*child, type);
        if (name == "list") ReadList(*child, type);
        if (name == "union") ReadUnion(*child, type);
    }
    return type;
}

void ComponentReader::ReadRestriction(Element& restriction, SimpleType& type) {
    type.m_derivation = kRestriction;
    Element* const simple = Child(restriction, "simpleType");
    std::string_view const base = Value(restriction, "base");
    if (base.empty() == (simple == nullptr)) {
        Report(restriction, "a restriction has either 'base' or a type within it");
    }
    if (simple != nullptr) type.m_base = &ReadSimpleType(*simple, &type);
    if (!base.empty()) {
        Refer(
            Reference::Kind::kSimpleType, restriction, base,
            [&type](Component const& found) { type.m_base = static_cast<Type const*>(&found); },
            &type == m_redefinition ? m_redefinition : nullptr);
    }
    ReadFacets(restriction, type);
}

void ComponentReader::ReadList(Element& list, SimpleType& type) {
    type.m_derivation = kList;
    type.m_variety = Variety::kList;
    type.m_base = m_store.m_builtIns.at(BuiltIn::kAnySimpleType);
    Element* const simple = Child(list, "simpleType");
    std::string_view const item = Value(list, "itemType");
    if (item.empty() == (simple == nullptr)) Report(list, "a list has either 'itemType' or a type within it");
    if (simple != nullptr) type.m_item = &ReadSimpleType(*simple, &type);
    if (item.empty()) return;
    Refer(Reference::Kind::kSimpleType, list, item,
          [&type](Component const& found) { type.m_item = static_cast<SimpleType const*>(&found); });
}

void ComponentReader::ReadUnion(Element& element, SimpleType& type) {
    type.m_derivation = kUnion;
    type.m_variety = Variety::kUnion;
    type.m_base = m_store.m_builtIns.at(BuiltIn::kAnySimpleType);
    auto const names = Items(Value(element, "memberTypes"));
    type.m_members.resize(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        Refer(Reference::Kind::kSimpleType, element, names[i], [&type, i](Component const& found) {
            type.m_members[i] = static_cast<SimpleType const*>(&found);
        });
    }
    for (Element* const child : Children(element)) {
        if (child->m_name.m_local == "simpleType") type.m_members.push_back(&ReadSimpleType(*child, &type));
    }
    if (type.m_members.empty()) Report(element, "a union has no members");
}

void ComponentReader::ReadFacets(Element& parent, SimpleType& type) {
    for (Element* const child : Children(parent)) {
        auto const* const word =
            std::ranges::find(kFacetWords, child->m_name.m_local, &Word<FacetKind>::m_word);
        if (word == std::end(kFacetWords)) continue;
        auto& facet = m_store.Make<Facet>();
        Fill(facet, *child);
        facet.m_kind = word->m_value;
        bool const isText = facet.m_kind == FacetKind::kPattern || facet.m_kind == FacetKind::kEnumeration;
        facet.m_value = isText ? *child->Find("value") : Value(*child, "value");
        facet.m_isFixed = Flag(*child, "fixed");
        if (HasNumber(facet.m_kind)) facet.m_number = Number(facet.m_value);
        facet.m_scope = child->m_scope;
        type.m_facets.push_back(&facet);
    }
}

}  // namespace BxGen
