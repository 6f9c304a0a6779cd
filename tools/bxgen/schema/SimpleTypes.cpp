#include "schema/SimpleTypes.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <string>
#include <unordered_map>

#include "schema/Limits.h"
#include "schema/RegularExpression.h"
#include "schema/ValueChecker.h"
#include "schema/Values.h"

namespace BxGen {

namespace {

using Kinds = std::uint16_t;  ///< a bit for each FacetKind

constexpr Kinds Bit(FacetKind kind) {
    return static_cast<Kinds>(1u << static_cast<unsigned>(kind));
}

constexpr Kinds kLengths = Bit(FacetKind::kLength) | Bit(FacetKind::kMinLength) | Bit(FacetKind::kMaxLength);
constexpr Kinds kTexts = Bit(FacetKind::kPattern) | Bit(FacetKind::kEnumeration);
constexpr Kinds kSpace = Bit(FacetKind::kWhiteSpace);
constexpr Kinds kBounds = Bit(FacetKind::kMinInclusive) | Bit(FacetKind::kMinExclusive) |
                          Bit(FacetKind::kMaxInclusive) | Bit(FacetKind::kMaxExclusive);
constexpr Kinds kDigits = Bit(FacetKind::kTotalDigits) | Bit(FacetKind::kFractionDigits);

/// The facets that a type may have (Part 2, section 4.1.5).
Kinds KindsFor(SimpleType const& type) {
    if (type.m_variety == Variety::kUnion) return kTexts;
    if (type.m_variety == Variety::kList) return kLengths | kTexts | kSpace;
    switch (type.m_primitive) {
        case BuiltIn::kBoolean:
            return Bit(FacetKind::kPattern) | kSpace;
        case BuiltIn::kDecimal:
            return kTexts | kSpace | kBounds | kDigits;
        case BuiltIn::kString:
        case BuiltIn::kHexBinary:
        case BuiltIn::kBase64Binary:
        case BuiltIn::kAnyUri:
        case BuiltIn::kQName:
        case BuiltIn::kNotation:
            return kLengths | kTexts | kSpace;
        default:
            return kTexts | kSpace | kBounds;
    }
}

/// How a bound must compare with another, of the base or of the same step.
struct BoundRule {
    FacetKind m_kind;
    FacetKind m_other;
    bool (*m_holds)(std::partial_ordering);
};

// clang-format off
/// Against bounds of the base (Part 2, sections 4.3.7 to 4.3.10).
constexpr BoundRule kBaseRules[] = {
    {FacetKind::kMinInclusive, FacetKind::kMinInclusive, std::is_gteq},
    {FacetKind::kMinInclusive, FacetKind::kMinExclusive, std::is_gt},
    {FacetKind::kMinInclusive, FacetKind::kMaxInclusive, std::is_lteq},
    {FacetKind::kMinInclusive, FacetKind::kMaxExclusive, std::is_lt},
    {FacetKind::kMinExclusive, FacetKind::kMinInclusive, std::is_gteq},
    {FacetKind::kMinExclusive, FacetKind::kMinExclusive, std::is_gteq},
    {FacetKind::kMinExclusive, FacetKind::kMaxInclusive, std::is_lteq},
    {FacetKind::kMinExclusive, FacetKind::kMaxExclusive, std::is_lt},
    {FacetKind::kMaxInclusive, FacetKind::kMinInclusive, std::is_gteq},
    {FacetKind::kMaxInclusive, FacetKind::kMinExclusive, std::is_gt},
    {FacetKind::kMaxInclusive, FacetKind::kMaxInclusive, std::is_lteq},
    {FacetKind::kMaxInclusive, FacetKind::kMaxExclusive, std::is_lt},
    {FacetKind::kMaxExclusive, FacetKind::kMinInclusive, std::is_gt},
    {FacetKind::kMaxExclusive, FacetKind::kMinExclusive, std::is_gt},
    {FacetKind::kMaxExclusive, FacetKind::kMaxInclusive, std::is_lteq},
    {FacetKind::kMaxExclusive, FacetKind::kMaxExclusive, std::is_lteq},
};

/// Against the other bound of the same step.
constexpr BoundRule kOwnRules[] = {
    {FacetKind::kMinInclusive, FacetKind::kMaxInclusive, std::is_lteq},
    {FacetKind::kMinInclusive, FacetKind::kMaxExclusive, std::is_lt},
    {FacetKind::kMinExclusive, FacetKind::kMaxInclusive, std::is_lt},
    {FacetKind::kMinExclusive, FacetKind::kMaxExclusive, std::is_lteq},
};

/// Facets that must not stand in one step.
constexpr std::pair<FacetKind, FacetKind> kEitherOr[] = {
    {FacetKind::kMinInclusive, FacetKind::kMinExclusive},
    {FacetKind::kMaxInclusive, FacetKind::kMaxExclusive},
};

/// How a number must compare with that of another facet, of the base or in effect.
struct NumberRule {
    FacetKind m_kind;
    FacetKind m_other;
    bool (*m_holds)(std::partial_ordering);
};

constexpr NumberRule kNumberRules[] = {
    {FacetKind::kLength,         FacetKind::kLength,         std::is_eq},
    {FacetKind::kLength,         FacetKind::kMinLength,      std::is_gteq},
    {FacetKind::kLength,         FacetKind::kMaxLength,      std::is_lteq},
    {FacetKind::kMinLength,      FacetKind::kLength,         std::is_lteq},
    {FacetKind::kMinLength,      FacetKind::kMinLength,      std::is_gteq},
    {FacetKind::kMinLength,      FacetKind::kMaxLength,      std::is_lteq},
    {FacetKind::kMaxLength,      FacetKind::kLength,         std::is_gteq},
    {FacetKind::kMaxLength,      FacetKind::kMinLength,      std::is_gteq},
    {FacetKind::kMaxLength,      FacetKind::kMaxLength,      std::is_lteq},
    {FacetKind::kTotalDigits,    FacetKind::kTotalDigits,    std::is_lteq},
    {FacetKind::kFractionDigits, FacetKind::kFractionDigits, std::is_lteq},
    {FacetKind::kFractionDigits, FacetKind::kTotalDigits,    std::is_lteq},
};

constexpr std::pair<std::string_view, WhiteSpace> kWhiteSpaces[] = {
    {"preserve", WhiteSpace::kPreserve}, {"replace", WhiteSpace::kReplace}, {"collapse", WhiteSpace::kCollapse},
};
// clang-format on

bool IsBound(FacetKind kind) {
    return (Bit(kind) & kBounds) != 0;
}

/// The facet of a kind that the step itself has, if there can be one alone.
Facet const* Own(SimpleType const& type, FacetKind kind) {
    SimpleType const* const base = type.RestrictedType();
    Facet const* const facet = type.Find(kind);
    return base == nullptr || facet != base->Find(kind) ? facet : nullptr;
}

/// True if a list must not have items of the type: lists, and unions that hold one.
bool HoldsList(SimpleType const& type) {
    if (type.m_variety != Variety::kUnion) return type.m_variety == Variety::kList;
    return type.m_holdsList;
}

/// Works out one type.
class SimpleTypeFinisher {
public:
    SimpleTypeFinisher(SchemaStore& store, SimpleType& type, ValueChecker& values, Diagnostics& diagnostics)
        : m_store(store), m_type(type), m_values(values), m_diagnostics(diagnostics) {}

    void Finish() {
        switch (m_type.m_derivation) {
            case kList:
                return FinishList();
            case kUnion:
                return FinishUnion();
            default:
                FinishRestriction();
        }
    }

private:
    void Report(Component const& component, Code code, std::string const& text) {
        m_diagnostics.Error(component.m_place, code, text);
    }

    void CheckFinal(Type const& from, Derivation derivation, std::string_view verb) {
        if ((from.m_final & derivation) == 0) return;
        Report(m_type, "final", Quoted(from.m_name) + " is final and must not be " + std::string(verb));
    }

    void FinishList() {
        CheckFinal(*m_type.m_item, kList, "an item of a list");
        if (HoldsList(*m_type.m_item)) Report(m_type, "derivation", "the items of a list must not be lists");
    }

    void FinishUnion() {
        for (SimpleType const* const member : m_type.m_members) {
            CheckFinal(*member, kUnion, "a member of a union");
            m_type.m_holdsList = m_type.m_holdsList || HoldsList(*member);
            m_type.m_memberCount += std::max<std::size_t>(member->m_memberCount, 1);
        }
        if (m_type.m_memberCount <= kMaxMembers) return;
        Report(m_type, "limit", "the union has more than " + std::to_string(kMaxMembers) + " members");
        m_type.m_memberCount = kMaxMembers;
    }

    void FinishRestriction() {
        SimpleType const& base = *m_type.m_base->AsSimple();
        CheckFinal(base, kRestriction, "restricted");
        if (base.m_builtIn == BuiltIn::kAnySimpleType) {
            return Report(m_type, "derivation", "'anySimpleType' must not be restricted");
        }
        m_type.m_variety = base.m_variety;
        m_type.m_primitive = base.m_primitive;
        m_type.m_item = base.m_item;
        m_type.m_members = base.m_members;
        m_type.m_holdsList = base.m_holdsList;
        m_type.m_memberCount = base.m_memberCount;
        m_type.m_whiteSpace = base.m_whiteSpace;
        InheritFacets(m_type, base);
        if (CheckKinds()) CheckFacets(base);
    }

    /// Which facets there are, and how often.
    bool CheckKinds() {
        std::size_t const before = m_diagnostics.Errors();
        Kinds const allowed = KindsFor(m_type);
        Kinds seen = 0;
        for (Facet const* const facet : m_type.m_facets) {
            Kinds const bit = Bit(facet->m_kind);
            std::string const name = Quoted(NameOf(facet->m_kind));
            if ((bit & allowed) == 0) {
                Report(*facet, "facet", name + " is no facet of the type that is restricted");
            } else if ((bit & seen) != 0 && (bit & kTexts) == 0) {
                Report(*facet, "facet", name + " is given twice");
            }
            seen |= bit;
        }
        for (auto const& [one, other] : kEitherOr) {
            if ((seen & Bit(one)) == 0 || (seen & Bit(other)) == 0) continue;
            Report(*Own(m_type, one), "facet",
                   Quoted(NameOf(one)) + " and " + Quoted(NameOf(other)) + " must not stand together");
        }
        return m_diagnostics.Errors() == before;
    }

    void CheckFacets(SimpleType const& base) {
        bool areBoundsGood = true;
        for (Facet const* const facet : m_type.m_facets) {
            switch (facet->m_kind) {
                case FacetKind::kPattern:
                    CheckPattern(*facet);
                    break;
                case FacetKind::kEnumeration:
                    CheckEnumeration(base, SchemaStore::Mutable(*facet));
                    break;
                case FacetKind::kWhiteSpace:
                    CheckWhiteSpace(*facet);
                    break;
                default:
                    if (IsBound(facet->m_kind)) areBoundsGood = CheckBoundText(base, *facet) && areBoundsGood;
            }
            if (areBoundsGood) CheckFixed(base, *facet);
        }
        if (areBoundsGood) CheckRanges(base);
        CheckLengths(base);
    }

    void CheckPattern(Facet const& facet) {
        if (auto const wrong = WhatIsWrongWithPattern(facet.m_value)) {
            Report(facet, "pattern",
                   Quoted(facet.m_value) + " is no pattern of XML Schema: it has " + *wrong);
        }
    }

    void CheckEnumeration(SimpleType const& base, Facet& facet) {
        if (auto const wrong = m_values.WhatIsWrong(base, facet.m_value, facet.m_scope)) {
            return Report(facet, "facet",
                          Quoted(facet.m_value) + " is no value of the type that is restricted: " + *wrong);
        }
        bool const isName = base.m_primitive == BuiltIn::kQName || base.m_primitive == BuiltIn::kNotation;
        if (isName) facet.m_name = m_values.NameOf(facet.m_value, facet.m_scope);
    }

    void CheckWhiteSpace(Facet const& facet) {
        auto const* const word =
            std::ranges::find(kWhiteSpaces, facet.m_value, &std::pair<std::string_view, WhiteSpace>::first);
        if (word->second < m_type.m_whiteSpace) {
            return Report(facet, "facet",
                          "'whiteSpace' must not be " + Quoted(facet.m_value) +
                              ", as the type that is restricted handles more of it");
        }
        m_type.m_whiteSpace = word->second;
    }

    bool CheckBoundText(SimpleType const& base, Facet const& facet) {
        BuiltIn const builtIn = base.NearestBuiltIn();
        // A bound is a value of the type's base, whose own bounds are compared elsewhere.
        bool const isInteger =
            m_store.m_builtIns.at(builtIn)->IsDerivedFrom(*m_store.m_builtIns.at(BuiltIn::kInteger));
        if (IsLexical(isInteger ? BuiltIn::kInteger : builtIn, facet.m_value)) return true;
        Report(facet, "facet", Quoted(facet.m_value) + " is no value of the type that is restricted");
        return false;
    }

    bool IsSame(Facet const& left, Facet const& right) const {
        if (IsBound(left.m_kind)) return CompareValues(m_type.m_primitive, left.m_value, right.m_value) == 0;
        if (left.m_kind == FacetKind::kWhiteSpace) return left.m_value == right.m_value;
        return left.m_number == right.m_number;
    }

    void CheckFixed(SimpleType const& base, Facet const& facet) {
        if ((Bit(facet.m_kind) & kTexts) != 0) return;
        Facet const* const inherited = base.Find(facet.m_kind);
        if (inherited == nullptr || !inherited->m_isFixed || IsSame(facet, *inherited)) return;
        Report(facet, "facet",
               Quoted(NameOf(facet.m_kind)) + " is fixed to " + Quoted(inherited->m_value) +
                   " in the type that is restricted");
    }

    void CheckRanges(SimpleType const& base) {
        for (BoundRule const& rule : kBaseRules)
            CheckRange(rule, base.Find(rule.m_other), " of the type that is restricted");
        for (BoundRule const& rule : kOwnRules) CheckRange(rule, Own(m_type, rule.m_other), "");
    }

    void CheckRange(BoundRule const& rule, Facet const* other, std::string_view whose) {
        Facet const* const own = Own(m_type, rule.m_kind);
        if (own == nullptr || other == nullptr) return;
        auto const order = CompareValues(m_type.m_primitive, own->m_value, other->m_value);
        if (order == std::partial_ordering::unordered || rule.m_holds(order)) return;
        ReportPair(*own, *other, whose);
    }

    void ReportPair(Facet const& own, Facet const& other, std::string_view whose) {
        Report(own, "facet",
               Quoted(NameOf(own.m_kind)) + ' ' + Quoted(own.m_value) + " does not go with " +
                   Quoted(NameOf(other.m_kind)) + ' ' + Quoted(other.m_value) + std::string(whose));
    }

    void CheckLengths(SimpleType const& base) {
        for (NumberRule const& rule : kNumberRules) {
            Facet const* const own = Own(m_type, rule.m_kind);
            Facet const* const beside = rule.m_kind != rule.m_other ? Own(m_type, rule.m_other) : nullptr;
            Facet const* const other = beside != nullptr ? beside : base.Find(rule.m_other);
            if (own == nullptr || other == nullptr || rule.m_holds(own->m_number <=> other->m_number))
                continue;
            ReportPair(*own, *other, beside != nullptr ? "" : " of the type that is restricted");
        }
        Facet const* const length = Own(m_type, FacetKind::kLength);
        for (FacetKind const kind : {FacetKind::kMinLength, FacetKind::kMaxLength}) {
            Facet const* const own = Own(m_type, kind);
            if (length == nullptr || own == nullptr) continue;
            Facet const* const inherited = base.Find(kind);
            bool const isRepeated = inherited != nullptr && inherited->m_number == own->m_number;
            if (!isRepeated)
                Report(*own, "facet", "'length' and " + Quoted(NameOf(kind)) + " must not stand together");
        }
    }

    SchemaStore& m_store;
    SimpleType& m_type;
    ValueChecker& m_values;
    Diagnostics& m_diagnostics;
};

bool IsReplaceable(Type const& type, Type const& expected, std::size_t& budget) {
    if (type.IsDerivedFrom(expected)) return true;
    SimpleType const* const simple = expected.AsSimple();
    if (simple == nullptr || simple->m_variety != Variety::kUnion || budget-- == 0) return false;
    return std::ranges::any_of(simple->m_members, [&](SimpleType const* member) {
        return budget > 0 && IsReplaceable(type, *member, budget);
    });
}

}  // namespace

void InheritFacets(SimpleType& type, SimpleType const& base) {
    type.m_effective = base.m_effective;
    type.m_enumerationStep = base.m_enumerationStep;
    for (Facet const* const facet : type.m_facets) {
        type.m_effective[static_cast<std::size_t>(facet->m_kind)] = facet;
        if (facet->m_kind == FacetKind::kEnumeration) type.m_enumerationStep = &type;
    }
}

void FinishSimpleTypes(SchemaStore& store, std::vector<Type const*> const& order, Diagnostics& diagnostics) {
    ValueChecker values(store);
    for (Type const* const type : order) {
        SimpleType const* const simple = type->AsSimple();
        bool const isReady =
            simple != nullptr && simple->m_builtIn == BuiltIn::kNone && simple->m_base != nullptr;
        if (!isReady) continue;
        FinishSimpleType(store, SchemaStore::Mutable(*simple), values, diagnostics);
    }
}

void FinishSimpleType(SchemaStore& store, SimpleType& type, ValueChecker& values, Diagnostics& diagnostics) {
    SimpleTypeFinisher(store, type, values, diagnostics).Finish();
}

bool MayReplace(Type const& type, Type const& expected) {
    std::size_t budget = kMaxMembers;
    return IsReplaceable(type, expected, budget);
}

}  // namespace BxGen
