#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"

#include "platform/TextView.h"

namespace BxXmlLib5 {

CPrimitiveRestrictions::CPrimitiveRestrictions() = default;
CPrimitiveRestrictions::~CPrimitiveRestrictions() = default;

CPrimitiveRestrictions::CPrimitiveRestrictions(char16_t const* pattern, int minLength, int maxLength,
                                               char16_t const* minInclusive, char16_t const* maxInclusive,
                                               char16_t const* minExclusive, char16_t const* maxExclusive,
                                               int length)
    : m_pattern(TextOf(pattern)),
      m_minLength(minLength),
      m_maxLength(maxLength),
      m_minInclusive(TextOf(minInclusive)),
      m_maxInclusive(TextOf(maxInclusive)),
      m_minExclusive(TextOf(minExclusive)),
      m_maxExclusive(TextOf(maxExclusive)),
      m_length(length) {}

}  // namespace BxXmlLib5
