#include "mapping/SimpleTypeMapper.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <set>

#include "mapping/Comments.h"
#include "mapping/Patterns.h"
#include "schema/Text.h"
#include "schema/Values.h"
#include "xml/XmlNames.h"

namespace BxGen {

namespace {

/// In the order in which the kit's facets are declared. The enumeration is not among them.
constexpr FacetKind kOrder[] = {
    FacetKind::kPattern,      FacetKind::kLength,         FacetKind::kMinLength,    FacetKind::kMaxLength,
    FacetKind::kMinInclusive, FacetKind::kMaxInclusive,   FacetKind::kMinExclusive, FacetKind::kMaxExclusive,
    FacetKind::kTotalDigits,  FacetKind::kFractionDigits,
};

bool IsLength(FacetKind kind) {
    return kind == FacetKind::kLength || kind == FacetKind::kMinLength || kind == FacetKind::kMaxLength;
}

bool HasPrefixes(SimpleType const& type) {
    return type.m_primitive == BuiltIn::kQName || type.m_primitive == BuiltIn::kNotation;
}

bool Has(SimpleType const& type, FacetKind kind) {
    return std::ranges::find(type.m_facets, kind, &Facet::m_kind) != type.m_facets.end();
}

/// The type of texts under a whitespace rule.
std::string_view TextTypeOf(WhiteSpace rule) {
    constexpr std::string_view kTypes[] = {"Xs::string", "Xs::normalizedString", "Xs::token"};
    return kTypes[static_cast<std::size_t>(rule)];
}

/// A type that takes whitespace away that its base keeps.
bool ChangesWhiteSpace(SimpleType const& type) {
    SimpleType const* const base = type.RestrictedType();
    return type.m_variety == Variety::kAtomic && type.m_builtIn == BuiltIn::kNone && base != nullptr &&
           base->m_whiteSpace != type.m_whiteSpace;
}

/// A type of C++ for integers, and how many digits all fit.
struct IntegerKind {
    BuiltIn m_type;
    std::string_view m_text;
    std::uint64_t m_digits;  ///< 0 where a sign does not fit
};

constexpr IntegerKind kIntegerKinds[] = {
    {BuiltIn::kInt, "Xs::int_", 9},
    {BuiltIn::kLong, "Xs::long_", 18},
    {BuiltIn::kUnsignedLong, "Xs::unsignedLong", 0},
};

/// Whether all values of a type are within an integer kind, as far as its facets tell, and all bounds too.
bool Fits(SimpleType const& type, IntegerKind const& kind) {
    auto const fits = [&](Facet const* facet) { return IsLexical(kind.m_type, Collapsed(facet->m_value)); };
    if (SimpleType const* const step = type.EnumerationStep()) {
        bool const isListed = std::ranges::all_of(step->m_facets, [&](Facet const* facet) {
            return facet->m_kind != FacetKind::kEnumeration || fits(facet);
        });
        if (isListed) return true;
    }
    Facet const* const digits = type.Find(FacetKind::kTotalDigits);
    bool const isShort = digits != nullptr && digits->m_number <= kind.m_digits;
    bool hasLeast = isShort;
    bool hasMost = isShort;
    for (FacetKind const bound : {FacetKind::kMinInclusive, FacetKind::kMinExclusive,
                                  FacetKind::kMaxInclusive, FacetKind::kMaxExclusive}) {
        Facet const* const facet = type.Find(bound);
        if (facet == nullptr) continue;
        if (!fits(facet)) return false;
        bool const isLeast = bound == FacetKind::kMinInclusive || bound == FacetKind::kMinExclusive;
        (isLeast ? hasLeast : hasMost) = true;
    }
    return hasLeast && hasMost;
}

/// The built-in type of C++ integers that a type of integers without a limit is mapped to; null if there is none.
IntegerKind const* IntegerKindOf(SimpleType const& type) {
    constexpr BuiltIn kUnlimited[] = {BuiltIn::kInteger, BuiltIn::kNonPositiveInteger,
                                      BuiltIn::kNegativeInteger, BuiltIn::kNonNegativeInteger,
                                      BuiltIn::kPositiveInteger};
    bool const isUnlimited = type.m_variety == Variety::kAtomic &&
                             std::ranges::find(kUnlimited, type.NearestBuiltIn()) != std::end(kUnlimited);
    if (!isUnlimited || type.m_builtIn != BuiltIn::kNone) return nullptr;
    auto const* const kind =
        std::ranges::find_if(kIntegerKinds, [&](IntegerKind const& row) { return Fits(type, row); });
    return kind != std::end(kIntegerKinds) ? kind : nullptr;
}

/// The built-in type that stands for all steps of a type, if it is not the one that its base stands on.
std::string_view OtherBase(SimpleType const& type) {
    if (ChangesWhiteSpace(type)) return TextTypeOf(type.m_whiteSpace);
    IntegerKind const* const kind = IntegerKindOf(type);
    return kind != nullptr && kind != IntegerKindOf(*type.RestrictedType()) ? kind->m_text
                                                                            : std::string_view();
}

std::string PatternsOf(SimpleType const& step) {
    std::vector<std::string_view> patterns;
    for (Facet const* const facet : step.m_facets) {
        if (facet->m_kind == FacetKind::kPattern) patterns.push_back(facet->m_value);
    }
    return patterns.empty() ? std::string() : TranslatePatterns(patterns);
}

/// The patterns of a step and of all below, as one.
std::string AllPatternsOf(SimpleType const& type) {
    std::string joined;
    for (SimpleType const* step = &type; step != nullptr && step->m_builtIn == BuiltIn::kNone;
         step = step->RestrictedType()) {
        std::string const pattern = PatternsOf(*step);
        if (pattern.empty()) continue;
        joined = joined.empty() ? pattern : "(?=(?:" + pattern + ")\\z)(?:" + joined + ')';
    }
    return joined;
}

std::string BuiltInText(SimpleType const& type) {
    std::string name = "Xs::" + std::string(type.m_name.m_local);
    for (BuiltIn const keyword :
         {BuiltIn::kLong, BuiltIn::kInt, BuiltIn::kShort, BuiltIn::kFloat, BuiltIn::kDouble}) {
        if (type.m_builtIn == keyword) name += '_';
    }
    return name;
}

/// The text of an enumeration's value under the type's whitespace rule.
std::string ValueText(SimpleType const& type, std::string_view value) {
    if (type.m_variety != Variety::kAtomic || type.m_whiteSpace == WhiteSpace::kCollapse)
        return Collapsed(value);
    std::string text(value);
    if (type.m_whiteSpace == WhiteSpace::kReplace)
        std::ranges::replace_if(
            text, [](char c) { return kWhitespace.find(c) != kWhitespace.npos; }, ' ');
    return text;
}

int Clamped(std::uint64_t number) {
    return static_cast<int>(std::min<std::uint64_t>(number, INT_MAX));
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) TakeCharacter(text);
    return count;
}

}  // namespace

TypeExpression const& SimpleTypeMapper::Expression(SimpleType const& type) {
    auto const found = m_expressions.find(&type);
    if (found != m_expressions.end()) return found->second;
    TypeExpression made = Make(type);
    return m_expressions.emplace(&type, std::move(made)).first->second;
}

void SimpleTypeMapper::AddName(SimpleType const& type) {
    Type const* base = type.m_base;
    while (base->IsAnonymous() || base == type.m_redefined) base = base->m_base;
    m_mapping.m_plan.m_simpleNames.push_back({std::string(type.m_name.m_local),
                                              std::string(type.m_name.m_namespace), Expression(type),
                                              Expression(*base->AsSimple())});
}

TypeExpression SimpleTypeMapper::Make(SimpleType const& type) {
    if (type.m_builtIn != BuiltIn::kNone) return {BuiltInText(type), nullptr, {}, {}};
    if (m_names.SimpleOf(type) == nullptr && type.IsAnonymous() && type.m_facets.empty()) return BaseOf(type);
    return MakeStruct(type);
}

TypeExpression SimpleTypeMapper::BaseOf(SimpleType const& type) {
    TypeExpression base;
    if (type.m_derivation == kList) {
        base.m_text = "Bx::List";
        base.m_arguments.push_back(Expression(*type.m_item));
    } else if (type.m_derivation == kUnion) {
        base.m_text = "Bx::Union";
        for (SimpleType const* const member : type.m_members) base.m_arguments.push_back(Expression(*member));
    } else {
        base = Expression(*type.RestrictedType());
    }
    return base;
}

TypeExpression SimpleTypeMapper::MakeStruct(SimpleType const& type) {
    SimplePlan* plan = m_names.SimpleOf(type);
    if (plan == nullptr) plan = &m_names.MakeSimple(type, m_names.SuggestionFor(&type));
    plan->m_documentation =
        DocumentationOf(m_mapping.m_options, {&type.m_annotation}, type.m_name.m_local, type.m_place);
    if (IsTextEnumeration(type)) {
        AddEnumerators(type, *plan);
    } else if (type.m_derivation == kList || type.m_derivation == kUnion) {
        plan->m_base = BaseOf(type);
    } else {
        AddFacets(type, *plan);
    }
    const_cast<Unit*>(plan->m_unit)->m_simples.push_back(plan);
    return {{}, plan, {}, {}};
}

void SimpleTypeMapper::AddEnumerators(SimpleType const& type, SimplePlan& plan) {
    plan.m_base = {"Bx::Enumeration", nullptr, {{plan.m_enum, nullptr, {}, {}}}, {}};
    if (type.m_whiteSpace != WhiteSpace::kPreserve)
        plan.m_base.m_arguments.push_back({std::string(TextTypeOf(type.m_whiteSpace)), nullptr, {}, {}});
    NameScope scope;
    std::set<std::string> texts;
    for (Facet const* const facet : type.m_facets) {
        if (facet->m_kind != FacetKind::kEnumeration) continue;
        std::string text = ValueText(type, facet->m_value);
        if (!texts.insert(text).second) continue;
        std::string name = Camel(text, m_mapping.m_options.m_ascii);
        if (name.empty())
            name = text.empty() ? "Empty" : "Value" + std::to_string(plan.m_enumerators.size() + 1);
        plan.m_enumerators.push_back(
            {scope.Take(name), std::move(text),
             DocumentationOf(m_mapping.m_options, {&facet->m_annotation}, "", facet->m_place)});
        m_names.Note(facet->m_place, facet->m_value, name, plan.m_enumerators.back().m_name, true);
    }
}

void SimpleTypeMapper::AddFacets(SimpleType const& type, SimplePlan& plan) {
    SimpleType const& restricted = *type.RestrictedType();
    SimpleType const* const enumeration = type.EnumerationStep();
    bool const isOverEnum = enumeration != nullptr && enumeration != &type &&
                            IsTextEnumeration(*enumeration) && !ChangesWhiteSpace(type);
    std::string_view const otherBase = isOverEnum ? std::string_view() : OtherBase(type);
    if (!otherBase.empty()) {
        // All steps below are repeated.
        plan.m_base.m_text = otherBase;
        std::string pattern = AllPatternsOf(type);
        if (!pattern.empty()) plan.m_facets.push_back({"pattern", std::move(pattern), false});
        for (FacetKind const kind : kOrder) {
            Facet const* const facet = kind == FacetKind::kPattern ? nullptr : type.Find(kind);
            // That integers have no fraction goes without saying.
            bool const isSaid = facet != nullptr &&
                                (kind != FacetKind::kFractionDigits || type.m_primitive != BuiltIn::kDecimal);
            if (isSaid) AddFacet(type, *facet, plan);
        }
        if (enumeration != nullptr) AddValues(*enumeration, plan);
    } else {
        plan.m_base = Expression(restricted);
        for (FacetKind const kind : kOrder) {
            if (!Has(type, kind)) continue;
            if (kind == FacetKind::kPattern) {
                plan.m_facets.push_back({"pattern", PatternsOf(type), false});
            } else {
                AddFacet(type, *type.Find(kind), plan);
            }
        }
        if (enumeration == &type) AddValues(type, plan);
        if (isOverEnum && enumeration != &type) KeepLengths(type, plan);
    }
    if (plan.m_facets.empty() && plan.m_values.empty()) {
        plan.m_isAlias = true;
    } else {
        plan.m_base = {"Bx::Restriction", nullptr, {plan.m_base}, {}};
    }
}

void SimpleTypeMapper::AddFacet(SimpleType const& type, Facet const& facet, SimplePlan& plan) {
    bool const isNumber = IsLength(facet.m_kind) || facet.m_kind == FacetKind::kTotalDigits ||
                          facet.m_kind == FacetKind::kFractionDigits;
    // Names have no length, whatever a schema says of it.
    if (IsLength(facet.m_kind) && HasPrefixes(type)) return;
    std::string value = isNumber ? std::to_string(Clamped(facet.m_number)) : Collapsed(facet.m_value);
    plan.m_facets.push_back({std::string(NameOf(facet.m_kind)), std::move(value), isNumber});
}

void SimpleTypeMapper::AddValues(SimpleType const& step, SimplePlan& plan) {
    if (HasPrefixes(step)) return AddNames(step, plan);
    for (Facet const* const facet : step.m_facets) {
        if (facet->m_kind == FacetKind::kEnumeration)
            plan.m_values.push_back(ValueText(step, facet->m_value));
    }
}

/// Documents have prefixes of their own, so that local names alone can be compared.
void SimpleTypeMapper::AddNames(SimpleType const& step, SimplePlan& plan) {
    std::string names;
    for (Facet const* const facet : step.m_facets) {
        if (facet->m_kind != FacetKind::kEnumeration) continue;
        names += names.empty() ? "" : "|";
        for (char const c : facet->m_name.m_local) names += c == '.' ? std::string("\\.") : std::string(1, c);
    }
    std::string pattern = "(?:[^:]*:)?(?:" + names + ')';
    std::vector<FacetPlan>& facets = plan.m_facets;
    if (!facets.empty() && facets[0].m_name == "pattern") {
        facets[0].m_value = "(?=(?:" + facets[0].m_value + ")\\z)(?:" + pattern + ')';
    } else {
        facets.insert(facets.begin(), {"pattern", std::move(pattern), false});
    }
}

/// The kit tests no lengths of enumerators, so those of other lengths are left out of the values.
void SimpleTypeMapper::KeepLengths(SimpleType const& type, SimplePlan& plan) {
    auto const removed =
        std::remove_if(plan.m_facets.begin(), plan.m_facets.end(), [](FacetPlan const& facet) {
            return facet.m_name == "length" || facet.m_name == "minLength" || facet.m_name == "maxLength";
        });
    if (removed == plan.m_facets.end()) return;
    plan.m_facets.erase(removed, plan.m_facets.end());
    if (plan.m_values.empty()) AddValues(*type.EnumerationStep(), plan);
    std::erase_if(plan.m_values, [&](std::string const& value) {
        auto const length = static_cast<std::uint64_t>(CountCharacters(value));
        Facet const* const exact = type.Find(FacetKind::kLength);
        Facet const* const least = type.Find(FacetKind::kMinLength);
        Facet const* const most = type.Find(FacetKind::kMaxLength);
        return (exact != nullptr && length != exact->m_number) ||
               (least != nullptr && length < least->m_number) || (most != nullptr && length > most->m_number);
    });
}

void SimpleTypeMapper::CheckValues(SimpleType const& type, Component const& user, std::string_view name) {
    bool const isList =
        type.m_variety == Variety::kList && type.m_item != nullptr && HasPrefixes(*type.m_item);
    if (!HasPrefixes(type) && !isList) return;
    m_mapping.m_diagnostics.Warning(
        user.m_place, "qname",
        "values of " + Quoted(name) +
            " are text as it stands: what their prefixes stand for is lost; write them "
            "with the prefixes of the schema, which documents declare");
}

}  // namespace BxGen
