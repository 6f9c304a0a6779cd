// The facets of simple types (XML Schema Part 2, 4.3), as a schema states them.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {
class CCompiledPattern;
}

namespace BxXmlLib5::Generated {

/// The facets of one step of a derivation, in their order here. Those of the steps below are tested too, by
/// the types below. Texts are null and numbers -1 where there is no such facet.
struct Facets {
    char16_t const* pattern = nullptr;  ///< A regular expression of PCRE2 that must match the whole literal.
    int length = -1;                    ///< In characters, octets or items.
    int minLength = -1;                 ///< as length
    int maxLength = -1;                 ///< as length
    char16_t const* minInclusive = nullptr;        ///< a literal of the type, as all bounds
    char16_t const* maxInclusive = nullptr;        ///< a bound that belongs to the values
    char16_t const* minExclusive = nullptr;        ///< a bound that does not
    char16_t const* maxExclusive = nullptr;        ///< a bound that does not
    int totalDigits = -1;                          ///< for decimals and integers
    int fractionDigits = -1;                       ///< for decimals
    std::span<char16_t const* const> values = {};  ///< The enumeration: literals, compared by value.
};

/// The tests of what all simple types have in common: the literal and the length. Made once for a type.
class BXXMLLIB5_API LiteralTests {
public:
    /// @param facets must outlive the object
    /// @throws CBxException if the pattern is no regular expression
    explicit LiteralTests(Facets const& facets);
    /// @{
    /// There is one object for each type.
    LiteralTests(LiteralTests const&) = delete;
    LiteralTests& operator=(LiteralTests const&) = delete;
    /// @}

    /// @throws CBxInvalidValueException if the pattern does not match
    void TestPattern(std::u16string_view literal) const;

    /// @throws CBxInvalidValueException if a value of this length is too short or too long
    void TestLength(std::size_t length) const;

protected:
    ~LiteralTests() = default;

    /// Those that the constructor was given.
    Facets const& m_facets;

private:
    CCompiledPattern const* m_pattern;  // never freed, as the object itself; null for none
};

/// All tests of the types whose values are V: CDecimal, CBigInteger, CSchemaDate, CSchemaDuration,
/// CBinaryData, wstring, bool, float, double and the integers of 8 to 64 bits. Bounds are converted once.
template <class V>
class BXXMLLIB5_API FacetTests : public LiteralTests {
public:
    /// @param facets must outlive the object
    /// @param fromText gives the value of a bound
    /// @throws CBxException if a facet cannot be read
    FacetTests(Facets const& facets, V (*fromText)(std::u16string_view));

    /// The pattern is not tested.
    /// @throws CBxInvalidValueException if the value breaks a facet
    void Test(V const& value) const;

private:
    struct Bounds;
    Bounds const* m_bounds;  // never freed, as the object itself
};

}  // namespace BxXmlLib5::Generated
