// Octets and the texts that tests write for them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxTest {

inline std::span<unsigned char const> AsOctets(std::string_view text) {
    return {reinterpret_cast<unsigned char const*>(text.data()), text.size()};
}

inline std::string AsText(BxXmlLib5::CBinaryData const& data) {
    return {data.GetOctets().begin(), data.GetOctets().end()};
}

}  // namespace BxTest
