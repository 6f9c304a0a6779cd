#include "collections/FacetChecks.h"

#include <array>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "collections/FacetKinds.h"

namespace BxXmlLib5 {

namespace Facets {

bool AdmitLength(CPrimitiveRestrictions const& facets, std::size_t length) {
    return (facets.m_minLength < 0 || std::cmp_greater_equal(length, facets.m_minLength)) &&
           (facets.m_maxLength < 0 || std::cmp_less_equal(length, facets.m_maxLength)) &&
           (facets.m_length < 0 || std::cmp_equal(length, facets.m_length));
}

void ThrowInvalidValue(char16_t const* name, wstring const& value) {
    throw CBxException(FormatString(u"Invalid Value for %s [%s]", name, value.c_str()));
}

}  // namespace Facets

namespace {

using Check = void (*)(CPrimitiveRestrictions const& facets, char16_t const* name,
                       BxVariant::Value const& value);

/// Null for a kind without a row.
template <ItemType kType>
constexpr Check CheckOf() {
    if constexpr (kHasFacets<kType>) {
        return [](CPrimitiveRestrictions const& facets, char16_t const* name, BxVariant::Value const& value) {
            CheckValue<kType>(facets, name, ReadSlot(value.*ValueKind<kType>::kMember));
        };
    } else {
        return nullptr;
    }
}

template <std::size_t... kTypes>
constexpr auto ChecksOf(std::index_sequence<kTypes...>) {
    return std::array{CheckOf<static_cast<ItemType>(kTypes)>()...};
}

constexpr auto kChecks = ChecksOf(std::make_index_sequence<it_xmlCollection + 1>());

/// Null for a number that is no kind, too.
Check FindCheck(ItemType type) {
    auto const index = static_cast<std::size_t>(type);
    return index < kChecks.size() ? kChecks[index] : nullptr;
}

}  // namespace

void CheckRestrictions(ItemType type, CPrimitiveRestrictions const& facets, char16_t const* name,
                       BxVariant const& value) {
    Check const check = FindCheck(type);
    if (check == nullptr) throw CBxInvalidValueException(u"unknown type [" + value.GetType() + u"]");
    if (value.m_type != type) {
        throw CBxException(
            FormatString(u"Invalid Type %d for %s of type %d", int{value.m_type}, name, int{type}));
    }
    check(facets, name, value.m_value);
}

}  // namespace BxXmlLib5
