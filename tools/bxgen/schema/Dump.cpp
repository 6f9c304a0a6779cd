#include "schema/Dump.h"

#include <algorithm>
#include <iterator>

#include "schema/Text.h"

namespace BxGen {

namespace {

std::string NameText(QName const& name) {
    if (name.m_namespace == kXsdNamespace) return "xs:" + std::string(name.m_local);
    return ToString(name);
}

/// A text in double quotes, with escapes for those, backslashes and control characters.
std::string TextInQuotes(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (char const c : text) {
        auto const octet = static_cast<unsigned char>(c);
        if (octet < 0x20) {
            quoted.append("\\x") += kDigits[octet / 16];
            quoted += kDigits[octet % 16];
        } else {
            if (c == '"' || c == '\\') quoted += '\\';
            quoted += c;
        }
    }
    return quoted + '"';
}

std::string PlaceText(Place const& place) {
    Place short_ = place;
    short_.m_file.remove_prefix(short_.m_file.rfind('/') + 1);
    return ToString(short_);
}

std::string OccursText(Occurs const& occurs) {
    std::string const max = occurs.m_max == Occurs::kUnbounded ? "*" : std::to_string(occurs.m_max);
    return std::to_string(occurs.m_min) + ".." + max;
}

std::string SetText(DerivationSet set) {
    constexpr std::string_view kNames[] = {"extension", "restriction", "substitution", "list", "union"};
    std::string text;
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
        if ((set >> i & 1) != 0) text.append(text.empty() ? "" : ",").append(kNames[i]);
    }
    return text;
}

std::string_view NameOf(Compositor compositor) {
    constexpr std::string_view kNames[] = {"sequence", "choice", "all"};
    return kNames[static_cast<std::size_t>(compositor)];
}

std::string WildcardText(Wildcard const& wildcard) {
    constexpr std::string_view kProcesses[] = {"strict", "lax", "skip"};
    std::string text(kProcesses[static_cast<std::size_t>(wildcard.m_processContents)]);
    if (wildcard.m_kind == Wildcard::Kind::kAny) return text + " any";
    text += wildcard.m_kind == Wildcard::Kind::kOther ? " other than" : " of";
    for (std::string_view const uri : wildcard.m_namespaces) text += ' ' + TextInQuotes(uri);
    return text;
}

/// Builds the text line by line.
class Dumper {
public:
    std::string Take() { return std::move(m_text); }

    void Add(SchemaDocument const& document) {
        Place place;
        place.m_file = document.m_file;
        Line("schema " + PlaceText(place) + " of " + TextInQuotes(document.m_targetNamespace) +
             Flag(document.m_isChameleon, "chameleon") +
             Flag(document.m_elementsQualified, "elements-qualified") +
             Flag(document.m_attributesQualified, "attributes-qualified"));
        Indented([&] {
            for (Annotation const& annotation : document.m_annotations) Documentation(annotation);
        });
    }

    void Add(ElementDeclaration const& element) {
        Element("element", element, "", element.m_place, element.m_annotation);
    }

    void Add(AttributeDeclaration const& attribute) {
        Line("attribute " + NameText(attribute.m_name) + TypeText(*attribute.m_type) +
             ValueText(attribute.m_value) + At(attribute.m_place));
        Indented([&] {
            Documentation(attribute.m_annotation);
            Anonymous(*attribute.m_type, attribute);
        });
    }

    void Add(Type const& type) {
        if (SimpleType const* const simple = type.AsSimple()) return Simple(*simple);
        Complex(*type.AsComplex());
    }

    void Add(NamedGroup const& group) {
        Line("group " + NameText(group.m_name) + Flag(group.m_redefined != nullptr, "redefines") +
             At(group.m_place));
        Indented([&] {
            Documentation(group.m_annotation);
            Group(*group.m_group, "");
        });
        if (group.m_redefined != nullptr) Add(*group.m_redefined);
    }

    void Add(AttributeGroup const& group) {
        Line("attributeGroup " + NameText(group.m_name) + Flag(group.m_redefined != nullptr, "redefines") +
             At(group.m_place));
        Indented([&] {
            Documentation(group.m_annotation);
            Items(group.m_items, group.m_ownWildcard);
        });
        if (group.m_redefined != nullptr) Add(*group.m_redefined);
    }

    void Add(Notation const& notation) {
        Line("notation " + NameText(notation.m_name) + " public " + TextInQuotes(notation.m_public) +
             " system " + TextInQuotes(notation.m_system) + At(notation.m_place));
    }

private:
    void Line(std::string const& text) { m_text.append(2 * m_depth, ' ').append(text) += '\n'; }

    template <class Body>
    void Indented(Body body) {
        ++m_depth;
        body();
        --m_depth;
    }

    static std::string Flag(bool isSet, std::string_view name) {
        return isSet ? ' ' + std::string(name) : std::string();
    }

    static std::string At(Place const& place) { return " @" + PlaceText(place); }

    static std::string TypeText(Type const& type) {
        return " type " + (type.IsAnonymous() ? "anonymous" : NameText(type.m_name));
    }

    static std::string ValueText(std::optional<ValueConstraint> const& value) {
        if (!value) return {};
        return (value->m_isFixed ? " fixed " : " default ") + TextInQuotes(value->m_value);
    }

    static std::string SetText(std::string_view name, DerivationSet set) {
        return set == 0 ? std::string() : ' ' + std::string(name) + ' ' + BxGen::SetText(set);
    }

    void Documentation(Annotation const& annotation) {
        for (XmlElement const* const part : annotation.m_documentation)
            Line("doc " + TextInQuotes(Collapsed(TextOf(*part))));
        for (XmlElement const* const part : annotation.m_appInfo)
            Line("appinfo " + TextInQuotes(Collapsed(TextOf(*part))));
    }

    /// A type without a name, below what it is the type of.
    void Anonymous(Type const& type, Component const& owner) {
        if (type.IsAnonymous() && type.m_owner == &owner) Add(type);
    }

    void Element(std::string_view word, ElementDeclaration const& element, std::string const& occurs,
                 Place const& place, Annotation const& annotation) {
        Line(std::string(word) + ' ' + NameText(element.m_name) + occurs + TypeText(*element.m_type) +
             ValueText(element.m_value) + Flag(element.m_isNillable, "nillable") +
             Flag(element.m_isAbstract, "abstract") + SetText("block", element.m_block) +
             SetText("final", element.m_final) +
             (element.m_head != nullptr ? " head " + NameText(element.m_head->m_name) : "") + At(place));
        Indented([&] {
            Documentation(annotation);
            Anonymous(*element.m_type, element);
            for (IdentityConstraint const* const identity : element.m_identities) Identity(*identity);
        });
    }

    void Identity(IdentityConstraint const& identity) {
        constexpr std::string_view kKinds[] = {"unique", "key", "keyref"};
        std::string line(kKinds[static_cast<std::size_t>(identity.m_kind)]);
        line += ' ' + NameText(identity.m_name);
        if (identity.m_refer != nullptr) line += " refer " + NameText(identity.m_refer->m_name);
        line += " selector " + TextInQuotes(identity.m_selector) + " fields";
        for (std::string_view const field : identity.m_fields) line += ' ' + TextInQuotes(field);
        Line(line + At(identity.m_place));
    }

    // ----------------------------------------------------------------------------------------------- simple
    // types

    void Simple(SimpleType const& type) {
        std::string line = "simpleType" + Flag(!type.IsAnonymous(), NameText(type.m_name));
        if (type.m_derivation == kList) line += " list of " + RefText(*type.m_item);
        if (type.m_derivation == kUnion) {
            line += " union of";
            for (SimpleType const* const member : type.m_members) line += ' ' + RefText(*member);
        }
        if (type.m_derivation == kRestriction) line += " restricts " + RefText(*type.m_base);
        Line(line + SetText("final", type.m_final) + Flag(type.m_redefined != nullptr, "redefines") +
             At(type.m_place));
        Indented([&] {
            Documentation(type.m_annotation);
            if (type.m_derivation == kList) Anonymous(*type.m_item, type);
            if (type.m_derivation == kUnion) {
                for (SimpleType const* const member : type.m_members) Anonymous(*member, type);
            }
            Anonymous(*type.m_base, type);
            for (Facet const* const facet : type.m_facets) Line(FacetText(*facet));
        });
        if (type.m_redefined != nullptr) Add(*type.m_redefined);
    }

    std::string FacetText(Facet const& facet) {
        std::string line = std::string(BxGen::NameOf(facet.m_kind)) + ' ' + TextInQuotes(facet.m_value) +
                           Flag(facet.m_isFixed, "fixed");
        if (!facet.m_name.IsEmpty()) line += " is " + NameText(facet.m_name);
        for (XmlElement const* const part : facet.m_annotation.m_documentation) {
            line += " doc " + TextInQuotes(Collapsed(TextOf(*part)));
        }
        return line;
    }

    static std::string RefText(Type const& type) {
        return type.IsAnonymous() ? "anonymous" : NameText(type.m_name);
    }

    // ---------------------------------------------------------------------------------------------- complex
    // types

    void Complex(ComplexType const& type) {
        constexpr std::string_view kContents[] = {"empty", "simple", "element-only", "mixed"};
        Line("complexType" + Flag(!type.IsAnonymous(), NameText(type.m_name)) +
             (type.m_derivation == kExtension ? " extends " : " restricts ") + RefText(*type.m_base) + ' ' +
             std::string(kContents[static_cast<std::size_t>(type.m_content)]) +
             Flag(type.m_isAbstract, "abstract") + SetText("block", type.m_block) +
             SetText("final", type.m_final) + Flag(type.m_redefined != nullptr, "redefines") +
             At(type.m_place));
        Indented([&] { ComplexBody(type); });
        if (type.m_redefined != nullptr) Add(*type.m_redefined);
    }

    void ComplexBody(ComplexType const& type) {
        Documentation(type.m_annotation);
        if (type.m_simpleContent != nullptr) {
            Line("content" + TypeText(*type.m_simpleContent));
            Indented([&] { Anonymous(*type.m_simpleContent, type); });
        }
        if (type.m_ownParticle != nullptr) Content(*type.m_ownParticle);
        Items(type.m_ownItems, type.m_ownWildcard);
        if (type.m_attributes.empty() && type.m_wildcard == nullptr) return;
        std::string line = "attributes";
        for (AttributeUse const* const use : type.m_attributes) {
            line += ' ' + NameText(use->m_declaration->m_name) + (use->m_use == Use::kRequired ? "!" : "");
        }
        Line(line + (type.m_wildcard != nullptr ? " and " + WildcardText(*type.m_wildcard) : ""));
    }

    void Content(Particle const& particle) {
        std::string const occurs = ' ' + OccursText(particle.m_occurs);
        if (ElementDeclaration const* const element = particle.AsElement()) {
            if (!particle.m_isReference)
                return Element("element", *element, occurs, particle.m_place, particle.m_annotation);
            Line("element ref " + NameText(element->m_name) + occurs + At(particle.m_place));
            return Indented([&] { Documentation(particle.m_annotation); });
        }
        if (Wildcard const* const wildcard = particle.AsWildcard()) {
            Line("any" + occurs + ' ' + WildcardText(*wildcard) + At(particle.m_place));
            return Indented([&] { Documentation(particle.m_annotation); });
        }
        if (particle.m_reference == nullptr) return Group(*particle.AsGroup(), occurs);
        Line("group ref " + NameText(particle.m_reference->m_name) + occurs + At(particle.m_place));
        Indented([&] { Documentation(particle.m_annotation); });
    }

    void Group(ModelGroup const& group, std::string const& occurs) {
        Line(std::string(NameOf(group.m_compositor)) + occurs + At(group.m_place));
        Indented([&] {
            Documentation(group.m_annotation);
            for (Particle const* const particle : group.m_particles) Content(*particle);
        });
    }

    void Items(std::vector<AttributeItem> const& items, Wildcard const* wildcard) {
        for (AttributeItem const& item : items) {
            if (auto const* const use = std::get_if<AttributeUse const*>(&item)) {
                AttributeLine(**use);
                continue;
            }
            AttributeGroupReference const& reference = *std::get<AttributeGroupReference const*>(item);
            Line("attributeGroup ref " + NameText(reference.m_group->m_name) + At(reference.m_place));
            Indented([&] { Documentation(reference.m_annotation); });
        }
        if (wildcard == nullptr) return;
        Line("anyAttribute " + WildcardText(*wildcard) + At(wildcard->m_place));
        Indented([&] { Documentation(wildcard->m_annotation); });
    }

    void AttributeLine(AttributeUse const& use) {
        constexpr std::string_view kUses[] = {"", " required", " prohibited"};
        AttributeDeclaration const& declaration = *use.m_declaration;
        Line((use.m_isReference ? "attribute ref " : "attribute ") + NameText(declaration.m_name) +
             std::string(kUses[static_cast<std::size_t>(use.m_use)]) +
             (use.m_isReference ? "" : TypeText(*declaration.m_type)) + ValueText(use.m_value) +
             At(use.m_place));
        Indented([&] {
            Documentation(use.m_annotation);
            if (!use.m_isReference) Anonymous(*declaration.m_type, declaration);
        });
    }

    std::string m_text;
    std::size_t m_depth = 0;
};

}  // namespace

std::string Dump(SchemaSet const& set) {
    Dumper dumper;
    auto const addAll = [&dumper](auto const& components) {
        for (auto const* const component : components) dumper.Add(*component);
    };
    addAll(set.Documents());
    addAll(set.Elements());
    addAll(set.Attributes());
    addAll(set.Types());
    addAll(set.Groups());
    addAll(set.AttributeGroups());
    addAll(set.Notations());
    return dumper.Take();
}

}  // namespace BxGen
