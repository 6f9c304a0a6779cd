// Text of bxconvert's own as octets to write.
#pragma once

#include <string_view>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxConvert {

inline BxXmlLib5::CBinaryData OctetsOf(std::string_view text) {
    BxXmlLib5::CBinaryData octets;
    octets.SetBuffer(reinterpret_cast<unsigned char const*>(text.data()), text.size());
    return octets;
}

}  // namespace BxConvert
