// The failure of an index, which several classes share.
#pragma once

namespace BxXmlLib5 {

/// @param count how many there are
/// @throws CBxInvalidParamException always
[[noreturn]] void ThrowIndexOutOfRange(int index, int count);

}  // namespace BxXmlLib5
