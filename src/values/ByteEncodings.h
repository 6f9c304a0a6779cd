// Text of values in the built-in encoding algorithms of ITU-T X.891, clause 10.
#pragma once

#include <span>

#include "BxXmlLib5/values/CBinaryData.h"

namespace BxXmlLib5 {

/// The values with one blank between two.
/// @param octets at least one
/// @param encoding be_Short to be_UUID
/// @throws CBxException as CBinaryData::GetAsString
wstring RenderValues(std::span<unsigned char const> octets, ByteEncoding encoding);

}  // namespace BxXmlLib5
