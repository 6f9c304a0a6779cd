// What is to be generated: the schema's components as declarations of C++. The mapping makes it, the emitter
// prints it.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "names/Identifiers.h"
#include "xml/Place.h"

namespace BxGen {

/// A namespace of C++, with the files that are named for it.
struct Unit;

/// A name of C++ that generated code refers to.
struct Symbol {
    Unit const* m_unit = nullptr;
    std::string m_name;
};

/// A type as generated code writes it: a text or a symbol, with arguments.
struct TypeExpression {
    std::string m_text;  ///< "Xs::decimal", "Bx::Required"; empty for a symbol
    Symbol const* m_symbol = nullptr;
    std::vector<TypeExpression> m_arguments;
    std::optional<std::string> m_literal;  ///< a text as the last argument, in UTF-8
};

/// What a comment says: the schema's own words, then name and place.
struct Documentation {
    std::string m_text;  ///< first paragraph, whitespace collapsed
    std::string m_name;  ///< of the component, empty for none
    Place m_place;
};

/// An argument of a row after the property: a text, a namespace, a number, ways of derivation as bits.
struct NamespaceArgument {
    std::string m_uri;
};
struct WaysArgument {
    int m_ways;
};
using RowArgument = std::variant<std::string, NamespaceArgument, int, WaysArgument>;
inline constexpr int kMany = -1;  ///< as a number: no maximum

/// The default or fixed value of an element that is an object, or untyped.
struct ElementValuePlan {
    std::string m_text;
    bool m_isFixed;
};

/// A line of a class's table. Kinds are the names of the kit.
struct RowPlan {
    int m_depth = 0;
    std::string m_kind;               ///< "Element", "Sequence", "End" ...
    std::string m_property;           ///< empty for none
    Symbol const* m_class = nullptr;  ///< a class as (further) argument of the template
    std::vector<RowArgument> m_arguments;
    bool m_isNillable = false;
    std::optional<ElementValuePlan> m_value;
    int m_blocked = 0;                         ///< ways of derivation, as bits
    std::optional<TypeExpression> m_narrowed;  ///< a simple type that its values are tested against too
};

/// A property of a class.
struct PropertyPlan {
    std::string m_name;
    TypeExpression m_type;
    Documentation m_documentation;
    std::string m_occurrence;  ///< "up to 2", "one of Pitch, Rest"; may be empty
};

struct FacetPlan {
    std::string m_name;   ///< of the kit's member: "minInclusive"
    std::string m_value;  ///< a text, in UTF-8, or a number
    bool m_isNumber = false;
};

struct EnumeratorPlan {
    std::string m_name;
    std::string m_text;
    Documentation m_documentation;
};

/// A struct for a simple type, with its enum class if it is an enumeration of texts, or an alias.
struct SimplePlan : Symbol {
    Documentation m_documentation;
    TypeExpression m_base;  ///< what the struct derives from, or the alias stands for
    bool m_isAlias = false;
    std::string m_enum;  ///< of an enumeration of texts
    std::vector<EnumeratorPlan> m_enumerators;
    std::vector<FacetPlan> m_facets;
    std::vector<std::string> m_values;  ///< the allowed ones, of an enumeration of another base
};

/// A class, or an alias for one.
struct ClassPlan : Symbol {
    Documentation m_documentation;
    TypeExpression m_base;
    ClassPlan const* m_baseClass = nullptr;  ///< of the classes that are generated, null for none
    bool m_isAlias = false;
    bool m_isAbstract = false;
    bool m_isGroup = false;
    bool m_isRoot = false;
    bool m_isNamedType = false;
    int m_derivation = 0;  ///< of an alias: the way in which its type derives
    std::string m_xmlName;
    std::string m_xmlNamespace;
    std::string m_elementNamespace;  ///< of the elements whose rows name none
    std::vector<PropertyPlan> m_properties;
    std::vector<RowPlan> m_rows;
};

struct Unit {
    std::string m_name;                     ///< "Ubl::Cbc"
    std::string m_file;                     ///< "Ubl_Cbc"
    std::vector<std::string> m_namespaces;  ///< of XML, whose components are here
    NameScope m_scope{&NamesOfNamespaces()};
    std::vector<SimplePlan*> m_simples;  ///< each after those that it needs
    std::vector<ClassPlan*> m_classes;   ///< each after its base
};

/// A namespace of XML that rows or the set refer to.
struct NamespacePlan {
    std::string m_uri;
    std::string m_constant;  ///< "kXlink"
    std::string m_prefix;    ///< for documents
    Unit const* m_unit = nullptr;
};

/// A simple type that documents may name.
struct SimpleNamePlan {
    std::string m_name;
    std::string m_namespace;
    TypeExpression m_type;
    TypeExpression m_base;  ///< the nearest base that has a name
};

struct Renamed {
    Place m_place;
    std::string m_from;
    std::string m_to;
};

struct Plan {
    std::deque<Unit> m_units;
    std::deque<SimplePlan> m_simples;
    std::deque<ClassPlan> m_classes;
    std::vector<SimpleNamePlan> m_simpleNames;
    std::vector<NamespacePlan> m_namespaces;
    std::vector<Renamed> m_renamed;
    std::vector<std::string> m_schemas;  ///< names of the files of the command line, without folders
    std::string m_program;               ///< the file of --program, without folder and extension
    bool m_hasDefaultNamespace = true;
};

}  // namespace BxGen
