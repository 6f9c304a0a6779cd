#include "schema/Syntax.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "schema/BuiltIn.h"
#include "schema/Text.h"
#include "schema/Values.h"
#include "xml/XmlNames.h"

namespace BxGen {

namespace {

// ----------------------------------------------------------------------------------------------------
// attributes

bool IsDigits(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

/// A nonNegativeInteger: "+7" and "-0" are some.
bool IsCount(std::string_view text) {
    if (text.starts_with('+')) return IsDigits(text.substr(1));
    if (text.starts_with('-')) return IsDigits(text.substr(1)) && text.find_first_not_of("-0") == text.npos;
    return IsDigits(text);
}

bool IsPositive(std::string_view text) {
    return IsCount(text) && text.find_first_not_of("+-0") != text.npos;
}

bool IsOneOf(std::string_view text, std::string_view words) {
    auto const items = Items(words);
    return std::ranges::find(items, text) != items.end();
}

/// "#all", or a list of some of the words.
bool IsSetOf(std::string_view text, std::string_view words) {
    if (text == "#all") return true;
    return std::ranges::all_of(Items(text), [words](std::string_view item) { return IsOneOf(item, words); });
}

bool IsWildcard(std::string_view text) {
    if (text == "##any" || text == "##other") return true;
    return std::ranges::all_of(Items(text), [](std::string_view item) {
        return !item.starts_with("##") || IsOneOf(item, "##targetNamespace ##local");
    });
}

bool IsUri(std::string_view text) {
    return IsLexical(BuiltIn::kAnyUri, text);
}

bool IsAnything(std::string_view) {
    return true;
}

template <char const* words>
bool IsWord(std::string_view text) {
    return IsOneOf(text, words);
}

template <char const* words>
bool IsSet(std::string_view text) {
    return IsSetOf(text, words);
}

constexpr char kBooleans[] = "true false 0 1";
constexpr char kForms[] = "qualified unqualified";
constexpr char kUses[] = "optional required prohibited";
constexpr char kProcesses[] = "strict lax skip";
constexpr char kSpaces[] = "preserve replace collapse";
constexpr char kZeroOne[] = "0 1";
constexpr char kOne[] = "1";
constexpr char kElementBlocks[] = "extension restriction substitution";
constexpr char kDerivations[] = "extension restriction";
constexpr char kSimpleFinals[] = "restriction list union";
constexpr char kAllFinals[] = "extension restriction list union";

/// A kind of values of attributes.
struct ValueKind {
    std::string_view m_name;
    bool (*m_holds)(std::string_view trimmed);
    std::string_view m_help;
};

// clang-format off
constexpr ValueKind kValueKinds[] = {
    {"text",        IsAnything,              "any text"},
    {"name",        IsNcName,                "a name without a colon"},
    {"qname",       IsQName,                 "a name, with or without a prefix"},
    {"qnames",      [](std::string_view text) { return std::ranges::all_of(Items(text), IsQName); }, "names, with or without prefixes"},
    {"uri",         IsUri,                   "a URI reference"},
    {"boolean",     IsWord<kBooleans>,       "true, false, 1 or 0"},
    {"count",       IsCount,                 "a whole number from 0"},
    {"positive",    IsPositive,              "a whole number from 1"},
    {"bound",       [](std::string_view text) { return text == "unbounded" || IsCount(text); }, "a whole number from 0 or unbounded"},
    {"zero-or-one", IsWord<kZeroOne>,        "0 or 1"},
    {"one",         IsWord<kOne>,            "1"},
    {"form",        IsWord<kForms>,          "qualified or unqualified"},
    {"use",         IsWord<kUses>,           "optional, required or prohibited"},
    {"process",     IsWord<kProcesses>,      "strict, lax or skip"},
    {"space",       IsWord<kSpaces>,         "preserve, replace or collapse"},
    {"wildcard",    IsWildcard,              "##any, ##other, or a list of namespaces, ##targetNamespace and ##local"},
    {"block",       IsSet<kElementBlocks>,   "#all, or some of extension, restriction, substitution"},
    {"derivations", IsSet<kDerivations>,     "#all, or extension, restriction or both"},
    {"simple-final", IsSet<kSimpleFinals>,   "#all, or some of restriction, list, union"},
    {"all-final",   IsSet<kAllFinals>,       "#all, or some of extension, restriction, list, union"},
};

// ------------------------------------------------------------------------------------------------------ elements

/// An element in one of its uses. The name is the element's; what stands behind @ tells the use apart.
/// Attributes are NAME:KIND, with ! where they must be there; every element has `id` besides, and foreign ones.
/// Content is a sequence of steps: alternatives, and how often (one: nothing; ? * + as in a document type).
struct ElementRule {
    std::string_view m_name;
    std::string_view m_attributes;
    std::string_view m_content;
};

#define BX_ATTRIBUTES "attribute@local|attributeGroup@ref* anyAttribute?"
#define BX_FACETS "length|minLength|maxLength|pattern|enumeration|whiteSpace|maxInclusive|maxExclusive|minExclusive|minInclusive|totalDigits|fractionDigits*"
#define BX_OCCURS "minOccurs:count maxOccurs:bound"
#define BX_PARTICLES "element@local|group@ref|choice|sequence|any*"

constexpr ElementRule kElementRules[] = {
    {"schema",                     "targetNamespace:uri version:text finalDefault:all-final blockDefault:block attributeFormDefault:form elementFormDefault:form",
                                   "include|import|redefine|annotation* simpleType|complexType|element|attribute|attributeGroup|group|notation|annotation*"},
    {"include",                    "schemaLocation!:uri", "annotation?"},
    {"import",                     "namespace:uri schemaLocation:uri", "annotation?"},
    {"redefine",                   "schemaLocation!:uri", "annotation|simpleType|complexType|group|attributeGroup*"},
    {"annotation",                 "", "appinfo|documentation*"},
    {"appinfo",                    "source:uri", "anything"},
    {"documentation",              "source:uri", "anything"},
    {"notation",                   "name!:name public:text system:uri", "annotation?"},
    // Elements and attributes
    {"element",                    "name!:name type:qname substitutionGroup:qname default:text fixed:text nillable:boolean abstract:boolean final:derivations block:block",
                                   "annotation? simpleType@local|complexType@local? unique|key|keyref*"},
    {"element@local",              "name!:name type:qname " BX_OCCURS " default:text fixed:text nillable:boolean block:block form:form",
                                   "annotation? simpleType@local|complexType@local? unique|key|keyref*"},
    {"element@ref",                "ref!:qname " BX_OCCURS, "annotation?"},
    {"attribute",                  "name!:name type:qname default:text fixed:text", "annotation? simpleType@local?"},
    {"attribute@local",            "name!:name type:qname default:text fixed:text use:use form:form", "annotation? simpleType@local?"},
    {"attribute@ref",              "ref!:qname default:text fixed:text use:use", "annotation?"},
    {"attributeGroup",             "name!:name", "annotation? " BX_ATTRIBUTES},
    {"attributeGroup@ref",         "ref!:qname", "annotation?"},
    {"anyAttribute",               "namespace:wildcard processContents:process", "annotation?"},
    {"unique",                     "name!:name", "annotation? selector field+"},
    {"key",                        "name!:name", "annotation? selector field+"},
    {"keyref",                     "name!:name refer!:qname", "annotation? selector field+"},
    {"selector",                   "xpath!:text", "annotation?"},
    {"field",                      "xpath!:text", "annotation?"},
    // Groups
    {"group",                      "name!:name", "annotation? all@named|choice@named|sequence@named"},
    {"group@ref",                  "ref!:qname " BX_OCCURS, "annotation?"},
    {"all",                        "minOccurs:zero-or-one maxOccurs:one", "annotation? element@local*"},
    {"all@named",                  "", "annotation? element@local*"},
    {"choice",                     BX_OCCURS, "annotation? " BX_PARTICLES},
    {"choice@named",               "", "annotation? " BX_PARTICLES},
    {"sequence",                   BX_OCCURS, "annotation? " BX_PARTICLES},
    {"sequence@named",             "", "annotation? " BX_PARTICLES},
    {"any",                        "namespace:wildcard processContents:process " BX_OCCURS, "annotation?"},
    // Complex types
    {"complexType",                "name!:name mixed:boolean abstract:boolean final:derivations block:derivations",
                                   "annotation? simpleContent|complexContent|group@ref|all|choice|sequence? " BX_ATTRIBUTES},
    {"complexType@local",          "mixed:boolean",
                                   "annotation? simpleContent|complexContent|group@ref|all|choice|sequence? " BX_ATTRIBUTES},
    {"simpleContent",              "", "annotation? restriction@simpleContent|extension@simpleContent"},
    {"complexContent",             "mixed:boolean", "annotation? restriction@complexContent|extension@complexContent"},
    {"restriction@simpleContent",  "base!:qname", "annotation? simpleType@local? " BX_FACETS " " BX_ATTRIBUTES},
    {"extension@simpleContent",    "base!:qname", "annotation? " BX_ATTRIBUTES},
    {"restriction@complexContent", "base!:qname", "annotation? group@ref|all|choice|sequence? " BX_ATTRIBUTES},
    {"extension@complexContent",   "base!:qname", "annotation? group@ref|all|choice|sequence? " BX_ATTRIBUTES},
    // Simple types
    {"simpleType",                 "name!:name final:simple-final", "annotation? restriction@simple|list|union"},
    {"simpleType@local",           "final:simple-final", "annotation? restriction@simple|list|union"},
    {"restriction@simple",         "base:qname", "annotation? simpleType@local? " BX_FACETS},
    {"list",                       "itemType:qname", "annotation? simpleType@local?"},
    {"union",                      "memberTypes:qnames", "annotation? simpleType@local*"},
    // Facets
    {"length",                     "value!:count fixed:boolean", "annotation?"},
    {"minLength",                  "value!:count fixed:boolean", "annotation?"},
    {"maxLength",                  "value!:count fixed:boolean", "annotation?"},
    {"pattern",                    "value!:text", "annotation?"},
    {"enumeration",                "value!:text", "annotation?"},
    {"whiteSpace",                 "value!:space fixed:boolean", "annotation?"},
    {"maxInclusive",               "value!:text fixed:boolean", "annotation?"},
    {"maxExclusive",               "value!:text fixed:boolean", "annotation?"},
    {"minExclusive",               "value!:text fixed:boolean", "annotation?"},
    {"minInclusive",               "value!:text fixed:boolean", "annotation?"},
    {"totalDigits",                "value!:positive fixed:boolean", "annotation?"},
    {"fractionDigits",             "value!:count fixed:boolean", "annotation?"},
};

constexpr std::string_view kNewElements[] = {
    "assert", "assertion", "alternative", "override", "openContent", "defaultOpenContent", "explicitTimezone",
};

constexpr std::string_view kNewAttributes[] = {
    "defaultAttributes", "defaultAttributesApply", "xpathDefaultNamespace", "inheritable", "notNamespace",
    "notQName", "appliesToEmpty",
};
// clang-format on

#undef BX_ATTRIBUTES
#undef BX_FACETS
#undef BX_OCCURS
#undef BX_PARTICLES

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (std::size_t start = 0; start <= text.size();) {
        std::size_t const end = std::min(text.find(separator, start), text.size());
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

struct AttributeRule {
    std::string_view m_name;
    bool m_isMandatory = false;
    ValueKind const* m_kind = nullptr;
};

struct Rule;

struct Step {
    /// The rules of the elements that may stand here, by the elements' names.
    std::map<std::string_view, Rule const*> m_alternatives;
    bool m_isOptional = false;
    bool m_isRepeated = false;
};

/// A row of the table, taken apart.
struct Rule {
    std::string_view m_element;
    std::vector<AttributeRule> m_attributes;
    std::vector<Step> m_steps;
    bool m_takesAnything = false;
};

/// All rows.
class Grammar {
public:
    Grammar() {
        for (ElementRule const& row : kElementRules)
            m_rules[row.m_name].m_element = row.m_name.substr(0, row.m_name.find('@'));
        for (ElementRule const& row : kElementRules) {
            Rule& rule = m_rules.at(row.m_name);
            for (std::string_view const text : Items(row.m_attributes))
                rule.m_attributes.push_back(ReadAttribute(text));
            rule.m_takesAnything = row.m_content == "anything";
            if (rule.m_takesAnything) continue;
            for (std::string_view const text : Items(row.m_content)) rule.m_steps.push_back(ReadStep(text));
        }
    }

    Rule const& Find(std::string_view name) const { return m_rules.at(name); }

    bool IsElement(std::string_view name) const {
        return std::ranges::any_of(m_rules, [name](auto const& row) { return row.second.m_element == name; });
    }

    /// The rule for an element that refers to a global one instead of declaring something, or the rule itself.
    Rule const& ForUse(Rule const& rule, XmlElement const& element) const {
        bool const isLocal = &rule != &Find("element") && &rule != &Find("attribute");
        bool const mayRefer = rule.m_element == "element" || rule.m_element == "attribute";
        if (!isLocal || !mayRefer || element.Find("ref") == nullptr) return rule;
        return Find(rule.m_element == "element" ? "element@ref" : "attribute@ref");
    }

private:
    static AttributeRule ReadAttribute(std::string_view text) {
        std::size_t const colon = text.find(':');
        std::string_view name = text.substr(0, colon);
        bool const isMandatory = name.ends_with('!');
        if (isMandatory) name.remove_suffix(1);
        auto const* const kind = std::ranges::find(kValueKinds, text.substr(colon + 1), &ValueKind::m_name);
        return {name, isMandatory, kind};
    }

    Step ReadStep(std::string_view text) const {
        Step step;
        step.m_isOptional = text.ends_with('?') || text.ends_with('*');
        step.m_isRepeated = text.ends_with('+') || text.ends_with('*');
        if (step.m_isOptional || step.m_isRepeated) text.remove_suffix(1);
        for (std::string_view const name : SplitAt(text, '|')) {
            step.m_alternatives.emplace(name.substr(0, name.find('@')), &Find(name));
        }
        return step;
    }

    std::map<std::string_view, Rule> m_rules;
};

/// Walks a document beside the grammar.
class SyntaxChecker {
public:
    SyntaxChecker(Grammar const& grammar, Diagnostics& diagnostics)
        : m_grammar(grammar), m_diagnostics(diagnostics) {}

    void Check(XmlElement const& element, Rule const& rule) {
        CheckAttributes(element, rule);
        if (!rule.m_takesAnything) CheckContent(element, rule);
        if (rule.m_element == "complexType") CheckComplexType(element);
    }

private:
    void Report(XmlElement const& element, std::string const& text, Code code = "syntax") {
        m_diagnostics.Error(element.m_place, code, text);
    }

    void CheckAttributes(XmlElement const& element, Rule const& rule) {
        for (XmlAttribute const& attribute : element.m_attributes) {
            if (attribute.m_name.m_namespace.empty()) {
                CheckAttribute(element, rule, attribute);
            } else if (attribute.m_name.m_namespace == kXsdNamespace) {
                Report(element, Quoted(attribute.m_name) + " is no attribute of " + Quoted(rule.m_element));
            }
        }
        for (AttributeRule const& attribute : rule.m_attributes) {
            if (!attribute.m_isMandatory || element.Find(attribute.m_name) != nullptr) continue;
            Report(element, Quoted(rule.m_element) + " lacks its attribute " + Quoted(attribute.m_name));
        }
    }

    void CheckAttribute(XmlElement const& element, Rule const& rule, XmlAttribute const& attribute) {
        std::string_view const name = attribute.m_name.m_local;
        if (name == "id") return CheckId(element, Trimmed(attribute.m_value));
        auto const found = std::ranges::find(rule.m_attributes, name, &AttributeRule::m_name);
        if (found != rule.m_attributes.end()) {
            if (found->m_kind->m_holds(Trimmed(attribute.m_value))) return;
            return Report(element, Quoted(attribute.m_value) + " is no value of " + Quoted(name) +
                                       ", which takes " + std::string(found->m_kind->m_help));
        }
        bool const isNew = std::ranges::find(kNewAttributes, name) != std::end(kNewAttributes);
        if (isNew) return ReportNew(element, name);
        Report(element, "an " + Quoted(rule.m_element) + " here has no attribute " + Quoted(name));
    }

    void CheckId(XmlElement const& element, std::string_view id) {
        if (!IsNcName(id))
            return Report(element, Quoted(id) + " is no value of 'id', which takes a name without a colon");
        if (!m_ids.insert(id).second) Report(element, "the id " + Quoted(id) + " is given twice");
    }

    void CheckContent(XmlElement const& element, Rule const& rule) {
        std::size_t step = 0;
        std::size_t count = 0;  // of elements that the present step has taken
        for (XmlElement::Node const& node : element.m_content) {
            auto const* const child = std::get_if<XmlElement const*>(&node);
            if (child == nullptr) {
                Report(element, "text " + Quoted(Trimmed(std::get<std::string_view>(node))) +
                                    " must not stand in " + Quoted(rule.m_element));
                continue;
            }
            Rule const* const found = Take(**child, rule, step, count);
            if (found == nullptr) return ReportChild(**child, rule);
            Check(**child, m_grammar.ForUse(*found, **child));
        }
        for (; step < rule.m_steps.size(); ++step, count = 0) {
            if (count == 0 && !rule.m_steps[step].m_isOptional)
                return ReportMissing(element, rule, rule.m_steps[step]);
        }
    }

    /// Finds the step that takes a child, from the present one on; null if none does.
    static Rule const* Take(XmlElement const& child, Rule const& rule, std::size_t& step,
                            std::size_t& count) {
        if (child.m_name.m_namespace != kXsdNamespace) return nullptr;
        for (; step < rule.m_steps.size(); ++step, count = 0) {
            Step const& present = rule.m_steps[step];
            auto const alternative = present.m_alternatives.find(child.m_name.m_local);
            bool const isTaken =
                alternative != present.m_alternatives.end() && (count == 0 || present.m_isRepeated);
            if (isTaken) {
                ++count;
                return alternative->second;
            }
            if (count == 0 && !present.m_isOptional) return nullptr;
        }
        return nullptr;
    }

    void ReportChild(XmlElement const& child, Rule const& parent) {
        std::string_view const name = child.m_name.m_local;
        bool const isOfSchema = child.m_name.m_namespace == kXsdNamespace;
        bool const isNew = isOfSchema && std::ranges::find(kNewElements, name) != std::end(kNewElements);
        if (isNew) return ReportNew(child, name);
        if (!isOfSchema) {
            return Report(child, "the element " + Quoted(child.m_name) +
                                     " is not of XML Schema and must not stand in " +
                                     Quoted(parent.m_element));
        }
        if (!m_grammar.IsElement(name)) return Report(child, "XML Schema has no element " + Quoted(name));
        Report(child, Quoted(name) + " must not stand at this place in " + Quoted(parent.m_element));
    }

    void ReportNew(XmlElement const& element, std::string_view name) {
        Report(element, Quoted(name) + " belongs to XML Schema 1.1, which is not supported", "version");
    }

    void ReportMissing(XmlElement const& element, Rule const& rule, Step const& step) {
        std::string names;
        for (auto const& [name, unused] : step.m_alternatives)
            names.append(names.empty() ? "" : " or ").append(name);
        Report(element, Quoted(rule.m_element) + " lacks its " + names);
    }

    /// Attributes stand within simpleContent and complexContent, not beside them.
    void CheckComplexType(XmlElement const& element) {
        bool hasContent = false;
        for (XmlElement::Node const& node : element.m_content) {
            auto const* const child = std::get_if<XmlElement const*>(&node);
            if (child == nullptr) continue;
            std::string_view const name = (*child)->m_name.m_local;
            if (hasContent)
                return Report(**child, Quoted(name) + " must not stand beside the content of 'complexType'");
            hasContent = name == "simpleContent" || name == "complexContent";
        }
    }

    Grammar const& m_grammar;
    Diagnostics& m_diagnostics;
    std::set<std::string_view> m_ids;
};

}  // namespace

bool CheckSyntax(XmlElement const& schema, Diagnostics& diagnostics) {
    static Grammar const s_grammar;
    std::size_t const before = diagnostics.Errors();
    if (schema.m_name != QName{kXsdNamespace, "schema"}) {
        diagnostics.Error(schema.m_place, "syntax",
                          "the root of a schema is 'schema' of " + Quoted(kXsdNamespace) + ", and this is " +
                              Quoted(schema.m_name));
        return false;
    }
    SyntaxChecker(s_grammar, diagnostics).Check(schema, s_grammar.Find("schema"));
    return diagnostics.Errors() == before;
}

}  // namespace BxGen
