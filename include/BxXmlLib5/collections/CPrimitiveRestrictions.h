// The facets of a simple type.
#pragma once

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// What XML Schema restricts of a simple type (XML Schema Part 2, 4.3), as the code generator found it. A
/// text that is empty and a length below 0 restrict nothing; a length of 0 does. The bounds are in the
/// lexical form of the restricted type, which this record does not know.
class BXXMLLIB5_API CPrimitiveRestrictions {
public:
    /// Nothing is restricted.
    CPrimitiveRestrictions();

    /// A text that is null counts as empty.
    CPrimitiveRestrictions(char16_t const* pattern, int minLength, int maxLength,
                           char16_t const* minInclusive, char16_t const* maxInclusive,
                           char16_t const* minExclusive, char16_t const* maxExclusive, int length);

    /// @{
    /// Copies or moves all facets.
    CPrimitiveRestrictions(CPrimitiveRestrictions const&) = default;
    CPrimitiveRestrictions(CPrimitiveRestrictions&&) = default;
    CPrimitiveRestrictions& operator=(CPrimitiveRestrictions const&) = default;
    CPrimitiveRestrictions& operator=(CPrimitiveRestrictions&&) = default;
    /// @}
    virtual ~CPrimitiveRestrictions();

    wstring m_pattern;       ///< In the regular expressions of XML Schema (Part 2, appendix F).
    int m_minLength = -1;    ///< In octets or 16-bit units.
    int m_maxLength = -1;    ///< In octets or 16-bit units.
    wstring m_minInclusive;  ///< a bound that belongs to the values
    wstring m_maxInclusive;  ///< a bound that belongs to the values
    wstring m_minExclusive;  ///< a bound that does not
    wstring m_maxExclusive;  ///< a bound that does not
    int m_length = -1;       ///< In octets or 16-bit units.
};

}  // namespace BxXmlLib5
