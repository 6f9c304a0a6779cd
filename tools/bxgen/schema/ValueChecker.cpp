#include "schema/ValueChecker.h"

#include <algorithm>
#include <compare>

#include "schema/Text.h"
#include "schema/Values.h"

namespace BxGen {

namespace {

std::uint64_t Characters(std::string_view text) {
    return static_cast<std::uint64_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// Length in the units of the type (Part 2, section 4.3.1).
std::uint64_t LengthOf(BuiltIn primitive, std::string_view text) {
    if (primitive == BuiltIn::kHexBinary) return text.size() / 2;
    if (primitive != BuiltIn::kBase64Binary) return Characters(text);
    auto const blanks = static_cast<std::uint64_t>(std::ranges::count(text, ' '));
    auto const padding = static_cast<std::uint64_t>(std::ranges::count(text, '='));
    return (text.size() - blanks) / 4 * 3 - padding;
}

bool HasLength(BuiltIn primitive) {
    return primitive != BuiltIn::kQName && primitive != BuiltIn::kNotation;
}

std::optional<std::string> CheckLength(SimpleType const& type, std::uint64_t length) {
    Facet const* const exact = type.Find(FacetKind::kLength);
    Facet const* const least = type.Find(FacetKind::kMinLength);
    Facet const* const most = type.Find(FacetKind::kMaxLength);
    if (exact != nullptr && length != exact->m_number)
        return "its length is not " + std::string(exact->m_value);
    if (least != nullptr && length < least->m_number)
        return "it is shorter than " + std::string(least->m_value);
    if (most != nullptr && length > most->m_number) return "it is longer than " + std::string(most->m_value);
    return std::nullopt;
}

std::optional<std::string> CheckDigits(SimpleType const& type, std::string_view text) {
    DecimalDigits const digits = DigitsOf(text);
    Facet const* const total = type.Find(FacetKind::kTotalDigits);
    Facet const* const fraction = type.Find(FacetKind::kFractionDigits);
    if (total != nullptr && digits.m_whole.size() + digits.m_fraction.size() > total->m_number) {
        return "it has more than " + std::string(total->m_value) + " digits";
    }
    if (fraction != nullptr && digits.m_fraction.size() > fraction->m_number) {
        return "its fraction has more than " + std::string(fraction->m_value) + " digits";
    }
    return std::nullopt;
}

/// A bound, and whether a value that compares so with it is within it. What cannot be compared is not.
struct BoundRule {
    FacetKind m_kind;
    bool (*m_holds)(std::partial_ordering);
    std::string_view m_text;
};

constexpr BoundRule kBoundRules[] = {
    {FacetKind::kMinInclusive, std::is_gteq, "it is less than "},
    {FacetKind::kMinExclusive, std::is_gt, "it is not more than "},
    {FacetKind::kMaxInclusive, std::is_lteq, "it is more than "},
    {FacetKind::kMaxExclusive, std::is_lt, "it is not less than "},
};

std::optional<std::string> CheckBounds(SimpleType const& type, std::string_view text) {
    for (BoundRule const& rule : kBoundRules) {
        Facet const* const bound = type.Find(rule.m_kind);
        if (bound == nullptr || rule.m_holds(CompareValues(type.m_primitive, text, bound->m_value))) continue;
        return std::string(rule.m_text) + std::string(bound->m_value);
    }
    return std::nullopt;
}

/// What makes two texts of a type the same value. Those of a union are compared as texts.
std::string KeyOf(SimpleType const& type, std::string_view text) {
    if (type.m_variety == Variety::kAtomic) return KeyOfValue(type.m_primitive, WithWhiteSpace(type, text));
    if (type.m_variety == Variety::kUnion) return Collapsed(text);
    std::string key;
    for (std::string_view const item : Items(text)) key.append(KeyOf(*type.m_item, item)).append(" ");
    return key;
}

}  // namespace

std::string WithWhiteSpace(SimpleType const& type, std::string_view text) {
    if (type.m_variety == Variety::kUnion || type.m_whiteSpace == WhiteSpace::kPreserve)
        return std::string(text);
    if (type.m_whiteSpace == WhiteSpace::kCollapse) return Collapsed(text);
    std::string replaced(text);
    std::ranges::replace_if(
        replaced, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return replaced;
}

std::optional<std::string> ValueChecker::WhatIsWrong(SimpleType const& type, std::string_view text,
                                                     NamespaceScope const* scope) {
    Visited visited;
    return Check(type, text, scope, visited);
}

QName ValueChecker::NameOf(std::string_view text, NamespaceScope const* scope) const {
    text = Trimmed(text);
    std::size_t const colon = text.find(':');
    std::string_view const prefix = colon == text.npos ? std::string_view() : text.substr(0, colon);
    auto const uri = scope != nullptr ? scope->Find(prefix) : std::nullopt;
    if (!uri) return {};
    return {*uri, colon == text.npos ? text : text.substr(colon + 1)};
}

ValueChecker::Answer ValueChecker::Check(SimpleType const& type, std::string_view text,
                                         NamespaceScope const* scope, Visited& visited) {
    if (type.m_variety == Variety::kUnion) return CheckUnion(type, text, scope, visited);
    std::string const value = WithWhiteSpace(type, text);
    Answer answer = type.m_variety == Variety::kList ? CheckList(type, value, scope, visited)
                                                     : CheckAtomic(type, value, scope);
    return answer ? answer : CheckEnumeration(type, value);
}

ValueChecker::Answer ValueChecker::CheckAtomic(SimpleType const& type, std::string const& text,
                                               NamespaceScope const* scope) const {
    BuiltIn const builtIn = type.NearestBuiltIn();
    if (!IsLexical(builtIn, text)) {
        return "it is no " + std::string(m_store.m_builtIns.at(builtIn)->m_name.m_local);
    }
    if (type.m_primitive == BuiltIn::kDecimal) {
        if (Answer answer = CheckDigits(type, text)) return answer;
    }
    if (type.m_primitive == BuiltIn::kQName || type.m_primitive == BuiltIn::kNotation) {
        QName const name = NameOf(text, scope);
        if (name.IsEmpty()) return "its prefix is not declared";
        bool const isNotation = type.m_primitive == BuiltIn::kNotation;
        if (isNotation && m_store.m_notations.Find(name) == nullptr) return "there is no such notation";
    }
    if (HasLength(type.m_primitive)) {
        if (Answer answer = CheckLength(type, LengthOf(type.m_primitive, text))) return answer;
    }
    return CheckBounds(type, text);
}

ValueChecker::Answer ValueChecker::CheckList(SimpleType const& type, std::string_view text,
                                             NamespaceScope const* scope, Visited& visited) {
    auto const items = Items(text);
    for (std::string_view const item : items) {
        visited.clear();
        if (Answer answer = Check(*type.m_item, item, scope, visited))
            return "of its item " + Quoted(item) + ": " + *answer;
    }
    return CheckLength(type, items.size());
}

ValueChecker::Answer ValueChecker::CheckUnion(SimpleType const& type, std::string_view text,
                                              NamespaceScope const* scope, Visited& visited) {
    // A member that was tried before, in whatever union, has refused the text.
    bool const isTaken = std::ranges::any_of(type.m_members, [&](SimpleType const* member) {
        return visited.insert(member).second && !Check(*member, text, scope, visited);
    });
    if (!isTaken) return "no member of its union takes it";
    return CheckEnumeration(type, std::string(text));
}

ValueChecker::Answer ValueChecker::CheckEnumeration(SimpleType const& type, std::string const& text) {
    SimpleType const* const step = type.EnumerationStep();
    if (step == nullptr) return std::nullopt;
    auto const [entry, isNew] = m_keys.try_emplace(step);
    if (isNew) {
        for (Facet const* const facet : step->m_facets) {
            if (facet->m_kind == FacetKind::kEnumeration) entry->second.insert(KeyOf(*step, facet->m_value));
        }
    }
    if (entry->second.contains(KeyOf(type, text))) return std::nullopt;
    return "it is none of the enumerated values";
}

}  // namespace BxGen
