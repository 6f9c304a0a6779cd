// The simple types that documents may name by xsi:type (XML Schema Part 1, 2.6.1).
#pragma once

#include <span>
#include <string_view>
#include <tuple>

#include "BxXmlLib5/generated/SimpleTypes.h"

namespace BxXmlLib5::Generated {

/// Ways of derivation, as bits.
enum Derivation : unsigned char {
    kExtension = 1,    ///< by extension
    kRestriction = 2,  ///< by restriction
};

/// A simple type without its struct: one constant for each.
struct SimpleType {
    /// @throws CBxInvalidValueException unless the text is a literal of the type
    void (*test)(std::u16string_view text);
    /// Of a union.
    std::span<SimpleType const* const> members = {};
};

// What stands behind SimpleType.
/// @cond
template <class S>
void TestLiteral(std::u16string_view text) {
    (void)ValueOf<S>(text);
}

template <class S>
struct SimpleTypeOf;

template <class Members>
struct TypesOf;
template <class... S>
struct TypesOf<std::tuple<S...>> {
    static constexpr SimpleType const* kTypes[] = {&SimpleTypeOf<S>::kType...};
};

template <class S>
constexpr std::span<SimpleType const* const> MemberTypesOf() {
    if constexpr (IsUnion<S> && !StepOf<S>::kHasBase) {
        return TypesOf<typename S::Members>::kTypes;
    } else {
        return {};
    }
}

template <class S>
struct SimpleTypeOf {
    static constexpr SimpleType kType{&TestLiteral<S>, MemberTypesOf<S>()};
};
/// @endcond

/// A simple type with its name, and the one that it derives from.
struct SimpleTypeName {
    char16_t const* name;          ///< the local name
    char16_t const* namespaceUri;  ///< empty for none
    SimpleType const* type;        ///< the type itself
    SimpleType const* base;        ///< the one that it derives from
};

/// `Bx::Simple<CodeType, Xs::token>(u"code", kNamespace)`
template <class S, class Base>
constexpr SimpleTypeName Simple(char16_t const* name, char16_t const* namespaceUri) {
    return {name, namespaceUri, &SimpleTypeOf<S>::kType, &SimpleTypeOf<Base>::kType};
}

}  // namespace BxXmlLib5::Generated
