// The components of a set of schemas: what XML Schema Part 1, section 3, describes, with what its component
// model leaves out and generated code wants: places, order, documentation of references, and where a
// reference to a group or an attribute group stood.
//
// Everything is resolved and checked once LoadSchemas has returned without an error, and never changes after
// that. Pointers and texts live as long as the SchemaSet. Members are in the order in which they are written.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "schema/BuiltIn.h"
#include "xml/Place.h"
#include "xml/QName.h"
#include "xml/XmlElement.h"

namespace BxGen {

struct AttributeGroup;
struct ComplexType;
struct ElementDeclaration;
struct ModelGroup;
struct NamedGroup;
struct SchemaDocument;
struct SimpleType;

// ------------------------------------------------------------------------------------------------- what all
// have

/// What xs:annotation holds. The elements are those of the document: TextOf gives their text.
struct Annotation {
    std::vector<XmlElement const*> m_documentation;
    std::vector<XmlElement const*> m_appInfo;
};

/// What every component has.
struct Component {
    Place m_place;
    Annotation m_annotation;
    SchemaDocument const* m_document = nullptr;  ///< null for what is built in
};

/// Bounds of occurrence.
struct Occurs {
    static constexpr std::uint64_t kUnbounded = std::numeric_limits<std::uint64_t>::max();

    std::uint64_t m_min = 1;
    std::uint64_t m_max = 1;  ///< kUnbounded for "unbounded", and for more than 64 bits hold

    bool operator==(Occurs const&) const = default;
};

/// A default or fixed value.
struct ValueConstraint {
    std::string_view m_value;  ///< as written, whitespace and all
    bool m_isFixed = false;
    NamespaceScope const* m_scope = nullptr;  ///< the prefixes where it stands
    QName m_name;                             ///< what the value names, if its type is QName or NOTATION
};

/// Ways of derivation, as bits: in sets of them (block, final), and alone.
enum Derivation : std::uint8_t {
    kNoDerivation = 0,
    kExtension = 1,
    kRestriction = 2,
    kSubstitution = 4,  ///< in block only
    kList = 8,          ///< of simple types only, as is union
    kUnion = 16,
};

using DerivationSet = std::uint8_t;  ///< of bits of Derivation

// --------------------------------------------------------------------------------------------------------
// types

/// A type, simple or complex.
struct Type : Component {
    explicit Type(bool isSimple) : m_isSimple(isSimple) {}

    /// Null if it is a type of the other kind.
    SimpleType const* AsSimple() const;
    ComplexType const* AsComplex() const;
    bool IsAnonymous() const { return m_name.IsEmpty(); }
    /// xs:anyType, the type of elements that have none.
    bool IsAnyType() const { return m_builtIn == BuiltIn::kAnyType; }
    /// True if this is the type, or derives from it in any number of steps.
    bool IsDerivedFrom(Type const& base) const;

    bool const m_isSimple;
    QName m_name;  ///< empty for an anonymous type
    BuiltIn m_builtIn = BuiltIn::kNone;
    Type const* m_base = nullptr;             ///< null for xs:anyType alone
    Derivation m_derivation = kNoDerivation;  ///< from m_base; of a list and a union: kList, kUnion
    DerivationSet m_final = 0;
    std::vector<Type const*> m_derived;  ///< types that derive from this one in one step, as they are written

    /// For an anonymous type: the element or attribute whose type it is, or the complex or simple type within which
    /// it stands (content, list item, union member, base of a restriction). Null for a named one.
    Component const* m_owner = nullptr;
    /// For a type that stands in xs:redefine: the type that it takes the place of, which is its base. That one keeps
    /// its name, but no name leads to it.
    Type const* m_redefined = nullptr;
};

/// The facets of XML Schema Part 2, section 4.3.
enum class FacetKind : std::uint8_t {
    kLength,
    kMinLength,
    kMaxLength,
    kPattern,
    kEnumeration,
    kWhiteSpace,
    kMaxInclusive,
    kMaxExclusive,
    kMinExclusive,
    kMinInclusive,
    kTotalDigits,
    kFractionDigits,
};

inline constexpr std::size_t kFacetKinds = 12;

/// The name of a facet's element: "minLength".
std::string_view NameOf(FacetKind kind);

/// One facet as it is written.
struct Facet : Component {
    FacetKind m_kind = FacetKind::kPattern;
    std::string_view
        m_value;  ///< as written; without surrounding whitespace where the facet's value is a number
    bool m_isFixed = false;
    std::uint64_t m_number = 0;               ///< of lengths and digits; the greatest there is if it is more
    NamespaceScope const* m_scope = nullptr;  ///< the prefixes where it stands; null for what is built in
    QName m_name;  ///< of an enumeration of QName or NOTATION: what the value names
};

enum class Variety : std::uint8_t { kAtomic, kList, kUnion };
enum class WhiteSpace : std::uint8_t { kPreserve, kReplace, kCollapse };

/// A simple type: a step of derivation. What it inherits is reached by m_base.
struct SimpleType : Type {
    SimpleType() : Type(true) {}

    /// The simple type that it restricts; null for a list, a union and xs:anySimpleType.
    SimpleType const* RestrictedType() const {
        return m_derivation == kRestriction && m_base ? m_base->AsSimple() : nullptr;
    }
    /// The nearest built-in type: itself, or of its bases. BuiltIn::kAnySimpleType for lists and unions of the schema.
    BuiltIn NearestBuiltIn() const;
    /// The facet of a kind that holds for this type: of this step, or of the nearest one that has it. Null if none.
    /// For pattern and enumeration use EnumerationStep and the facets of each step.
    Facet const* Find(FacetKind kind) const { return m_effective[static_cast<std::size_t>(kind)]; }
    /// The nearest step that has enumerations (its enumerations are the allowed values), or null.
    SimpleType const* EnumerationStep() const { return m_enumerationStep; }

    Variety m_variety = Variety::kAtomic;
    BuiltIn m_primitive =
        BuiltIn::kNone;  ///< of an atomic type: of the 19, or kAnySimpleType for that one alone
    WhiteSpace m_whiteSpace = WhiteSpace::kCollapse;  ///< that holds; not meaningful for a union
    SimpleType const* m_item = nullptr;               ///< of a list, also of a restricted one
    std::vector<SimpleType const*>
        m_members;                  ///< of a union, also of a restricted one; unions within not flattened
    bool m_holdsList = false;       ///< a union with a list among its members, however deep
    std::size_t m_memberCount = 0;  ///< of a union, those of unions within counted each time
    std::vector<Facet const*> m_facets;  ///< of this step, in order; one for each pattern and enumeration

    std::array<Facet const*, kFacetKinds> m_effective = {};  ///< what Find gives
    SimpleType const* m_enumerationStep = nullptr;
};

// --------------------------------------------------------------------------------------- elements and
// attributes

enum class IdentityKind : std::uint8_t { kUnique, kKey, kKeyRef };

/// xs:unique, xs:key, xs:keyref. Noted, not evaluated.
struct IdentityConstraint : Component {
    IdentityKind m_kind = IdentityKind::kUnique;
    QName m_name;
    IdentityConstraint const* m_refer = nullptr;  ///< of a keyref
    std::string_view m_selector;
    std::vector<std::string_view> m_fields;
};

/// A declaration of an element, global or within a type or a group.
struct ElementDeclaration : Component {
    QName m_name;  ///< its namespace is that which it has in documents, by form and elementFormDefault
    bool m_isGlobal = false;
    Type const* m_type = nullptr;  ///< never null: xs:anyType, or the type of the head, if none is written
    std::optional<ValueConstraint> m_value;
    bool m_isNillable = false;
    bool m_isAbstract = false;
    DerivationSet m_block = 0;
    DerivationSet m_final = 0;
    ElementDeclaration const* m_head = nullptr;            ///< of the substitution group that it belongs to
    std::vector<ElementDeclaration const*> m_substitutes;  ///< elements whose m_head this is
    std::vector<IdentityConstraint const*> m_identities;
};

/// All elements that may stand for a head in documents, itself first: not abstract, not blocked, in order of writing.
std::vector<ElementDeclaration const*> SubstitutionGroupOf(ElementDeclaration const& head);

/// A declaration of an attribute, global or within a type or an attribute group.
struct AttributeDeclaration : Component {
    QName m_name;
    bool m_isGlobal = false;
    SimpleType const* m_type = nullptr;  ///< never null: xs:anySimpleType if none is written
    std::optional<ValueConstraint> m_value;
};

enum class Use : std::uint8_t { kOptional, kRequired, kProhibited };

/// xs:attribute within a type or an attribute group: a declaration in place, or a reference to a global one.
/// Place and annotation are those of the use, which for a declaration in place are those of the declaration.
struct AttributeUse : Component {
    AttributeDeclaration const* m_declaration = nullptr;
    bool m_isReference = false;
    Use m_use = Use::kOptional;
    std::optional<ValueConstraint> m_value;  ///< that holds: of the use, else of the declaration
    AttributeGroup const* m_group =
        nullptr;  ///< the attribute group in which it is written; null if in a type
};

enum class ProcessContents : std::uint8_t { kStrict, kLax, kSkip };

/// xs:any, xs:anyAttribute, and what comes of joining those of attribute groups and bases.
struct Wildcard : Component {
    enum class Kind : std::uint8_t {
        kAny,    ///< every namespace
        kOther,  ///< every namespace but m_namespaces[0] and none; whatever is in a namespace if that is empty
        kList,   ///< those of m_namespaces, the empty one for no namespace
    };

    /// True if elements or attributes of the namespace (empty for none) may stand here.
    bool Allows(std::string_view namespaceUri) const;

    Kind m_kind = Kind::kAny;
    std::vector<std::string_view> m_namespaces;
    ProcessContents m_processContents = ProcessContents::kStrict;
};

// ---------------------------------------------------------------------------------------------- content of
// types

/// What may stand in a content model, and how often. Place and annotation are those of the element, reference, group
/// or wildcard as it stands here; what a reference leads to has its own.
struct Particle : Component {
    /// One of the three. A reference to a group leads to the group itself: m_reference tells it.
    std::variant<ElementDeclaration const*, ModelGroup const*, Wildcard const*> m_term;
    Occurs m_occurs;
    bool m_isReference = false;               ///< to a global element or a named group
    NamedGroup const* m_reference = nullptr;  ///< the named group that is referred to

    /// Null if it is none.
    ElementDeclaration const* AsElement() const { return As<ElementDeclaration>(); }
    ModelGroup const* AsGroup() const { return As<ModelGroup>(); }
    Wildcard const* AsWildcard() const { return As<Wildcard>(); }

private:
    template <class T>
    T const* As() const {
        auto const* const term = std::get_if<T const*>(&m_term);
        return term != nullptr ? *term : nullptr;
    }
};

enum class Compositor : std::uint8_t { kSequence, kChoice, kAll };

/// xs:sequence, xs:choice, xs:all. What cannot occur (maxOccurs 0) is left out.
struct ModelGroup : Component {
    Compositor m_compositor = Compositor::kSequence;
    std::vector<Particle const*> m_particles;
};

/// xs:group with a name.
struct NamedGroup : Component {
    QName m_name;
    ModelGroup const* m_group = nullptr;  ///< never null
    NamedGroup const* m_redefined =
        nullptr;  ///< for one that stands in xs:redefine: what it takes the place of
};

/// A reference to an attribute group as it is written.
struct AttributeGroupReference : Component {
    AttributeGroup const* m_group = nullptr;
};

/// What a type or an attribute group lists as its attributes, in order: uses in place and references to groups.
using AttributeItem = std::variant<AttributeUse const*, AttributeGroupReference const*>;

/// xs:attributeGroup with a name.
struct AttributeGroup : Component {
    QName m_name;
    std::vector<AttributeItem> m_items;  ///< as written
    std::vector<AttributeUse const*>
        m_attributes;                             ///< all of them, those of groups referred to in their place
    Wildcard const* m_ownWildcard = nullptr;      ///< as written
    Wildcard const* m_wildcard = nullptr;         ///< joined with those of the groups referred to
    AttributeGroup const* m_redefined = nullptr;  ///< for one in xs:redefine: what it takes the place of
};

enum class ContentKind : std::uint8_t {
    kEmpty,        ///< no children, no text
    kSimple,       ///< text of m_simpleContent
    kElementOnly,  ///< m_particle
    kMixed,        ///< m_particle, which may be null, and text anywhere
};

/// A complex type.
struct ComplexType : Type {
    ComplexType() : Type(false) {}

    bool m_isAbstract = false;
    DerivationSet m_block = 0;

    ContentKind m_content = ContentKind::kEmpty;
    /// The whole content, after derivation: of an extension a sequence of the base's content and its own. Null if it
    /// holds no element and no wildcard.
    Particle const* m_particle = nullptr;
    /// What this step of derivation writes itself: of an extension what is added, else all. Null if nothing.
    Particle const* m_ownParticle = nullptr;
    /// The type of the text of simple content, after derivation.
    SimpleType const* m_simpleContent = nullptr;

    /// All attributes after derivation, but those prohibited: of an extension the base's first; of a restriction the
    /// base's in their order, then what is written of its own.
    std::vector<AttributeUse const*> m_attributes;
    Wildcard const* m_wildcard = nullptr;     ///< after derivation, or null
    std::vector<AttributeItem> m_ownItems;    ///< as written in this step
    Wildcard const* m_ownWildcard = nullptr;  ///< as written in this step
};

// -----------------------------------------------------------------------------------------------------
// documents

/// xs:notation.
struct Notation : Component {
    QName m_name;
    std::string_view m_public;
    std::string_view m_system;
};

/// xs:include, xs:import or xs:redefine, and where it led.
struct SchemaReference {
    enum class Kind : std::uint8_t { kInclude, kImport, kRedefine };

    Kind m_kind = Kind::kInclude;
    Place m_place;
    std::string_view m_namespace;                ///< of an import
    std::optional<std::string_view> m_location;  ///< as written
    SchemaDocument const* m_document = nullptr;  ///< null if nothing was found
};

/// A schema document as it was read for one target namespace.
struct SchemaDocument {
    std::string_view m_file;             ///< as messages name it
    std::string_view m_targetNamespace;  ///< that holds: the including one's, if it is a chameleon
    bool m_isChameleon = false;  ///< it has no target namespace and took that of the one that includes it
    bool m_isBuiltIn = false;    ///< it comes with the tool
    bool m_elementsQualified = false;    ///< elementFormDefault
    bool m_attributesQualified = false;  ///< attributeFormDefault
    XmlElement const* m_root = nullptr;  ///< xs:schema; its m_scope has the prefixes
    std::vector<Annotation> m_annotations;
    std::vector<SchemaReference> m_references;
};

// ------------------------------------------------------------------------------------------------- inline
// bodies

inline SimpleType const* Type::AsSimple() const {
    return m_isSimple ? static_cast<SimpleType const*>(this) : nullptr;
}

inline ComplexType const* Type::AsComplex() const {
    return m_isSimple ? nullptr : static_cast<ComplexType const*>(this);
}

}  // namespace BxGen
