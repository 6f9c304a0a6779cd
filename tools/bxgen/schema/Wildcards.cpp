#include "schema/Wildcards.h"

#include <algorithm>

namespace BxGen {

namespace {

using Kind = Wildcard::Kind;

bool Lists(Wildcard const& wildcard, std::string_view namespaceUri) {
    return std::ranges::find(wildcard.m_namespaces, namespaceUri) != wildcard.m_namespaces.end();
}

Wildcard With(Wildcard const& first, Kind kind, std::vector<std::string_view> namespaces) {
    Wildcard result = first;
    result.m_kind = kind;
    result.m_namespaces = std::move(namespaces);
    return result;
}

Wildcard WithSetOf(Wildcard const& first, Wildcard const& second) {
    return With(first, second.m_kind, second.m_namespaces);
}

bool IsListedOnly(Wildcard const& wildcard) {
    return wildcard.m_kind == Kind::kList;
}

}  // namespace

std::optional<Wildcard> Intersection(Wildcard const& first, Wildcard const& second) {
    if (second.m_kind == Kind::kAny) return first;
    if (first.m_kind == Kind::kAny) return WithSetOf(first, second);
    if (IsListedOnly(first) || IsListedOnly(second)) {
        Wildcard const& list = IsListedOnly(first) ? first : second;
        Wildcard const& other = IsListedOnly(first) ? second : first;
        std::vector<std::string_view> both;
        std::ranges::copy_if(list.m_namespaces, std::back_inserter(both),
                             [&other](std::string_view uri) { return other.Allows(uri); });
        return With(first, Kind::kList, std::move(both));
    }
    // Both leave one out.
    if (first.m_namespaces == second.m_namespaces || second.m_namespaces[0].empty()) return first;
    if (first.m_namespaces[0].empty()) return WithSetOf(first, second);
    return std::nullopt;
}

std::optional<Wildcard> Union(Wildcard const& first, Wildcard const& second) {
    if (first.m_kind == Kind::kAny || second.m_kind == Kind::kAny) return With(first, Kind::kAny, {});
    if (IsListedOnly(first) && IsListedOnly(second)) {
        Wildcard result = first;
        std::ranges::copy_if(second.m_namespaces, std::back_inserter(result.m_namespaces),
                             [&first](std::string_view uri) { return !Lists(first, uri); });
        return result;
    }
    if (!IsListedOnly(first) && !IsListedOnly(second)) {
        return first.m_namespaces == second.m_namespaces ? first : With(first, Kind::kOther, {""});
    }
    Wildcard const& list = IsListedOnly(first) ? first : second;
    Wildcard const& other = IsListedOnly(first) ? second : first;
    bool const hasExcluded = Lists(list, other.m_namespaces[0]);
    bool const hasNone = Lists(list, "");
    if (hasExcluded && hasNone) return With(first, Kind::kAny, {});
    if (hasExcluded) return With(first, Kind::kOther, {""});
    if (hasNone) return std::nullopt;
    return WithSetOf(first, other);
}

bool IsSubset(Wildcard const& first, Wildcard const& second) {
    if (second.m_kind == Kind::kAny) return true;
    if (IsListedOnly(first)) {
        return std::ranges::all_of(first.m_namespaces,
                                   [&second](std::string_view uri) { return second.Allows(uri); });
    }
    return first.m_kind == Kind::kOther && second.m_kind == Kind::kOther &&
           (first.m_namespaces == second.m_namespaces || second.m_namespaces[0].empty());
}

}  // namespace BxGen
