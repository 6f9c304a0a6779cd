// Integers as the forms of ITU-T X.891 have them.
#pragma once

#include "BxXmlLib5/core/CBxException.h"
#include "fastinfoset/COctetBuffer.h"
#include "fastinfoset/IntegerForms.h"

namespace BxXmlLib5::FastInfoset {

/// @param first the bits ahead of the integer in its first octet
/// @param value 1 or more
/// @throws CBxInvalidValueException if it is greater than what the last form holds
template <std::size_t kCount>
void WriteInteger(COctetBuffer& output, unsigned first, IntegerForms<kCount> const& forms,
                  std::uint64_t value) {
    // The first form, which nearly all take, has one octet.
    if (value < forms[1].m_base) {
        return output.Append(first | forms[0].m_mark | static_cast<unsigned>(value - forms[0].m_base));
    }
    std::size_t at = 1;
    while (at + 1 < kCount && value >= forms[at + 1].m_base) ++at;
    IntegerForm const& form = forms[at];
    std::uint64_t const rest = value - form.m_base;
    int shift = 8 * form.m_moreOctets;
    if (rest >> shift > form.m_valueMask) {
        throw CBxInvalidValueException(u"A text is too long for a Fast Infoset document");
    }
    unsigned char* out = output.Extend(static_cast<std::size_t>(form.m_moreOctets) + 1);
    *out++ = static_cast<unsigned char>(first | form.m_mark | rest >> shift);
    while (shift > 0) *out++ = static_cast<unsigned char>(rest >> (shift -= 8));
}

}  // namespace BxXmlLib5::FastInfoset
