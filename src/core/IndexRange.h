// The tests of an index, which several classes share.
#pragma once

namespace BxXmlLib5 {

/// @throws CBxInvalidParamException unless index is 0 to count - 1
void ThrowIfIndexOutOfRange(int index, int count);

/// @throws CBxInvalidParamException unless index is 0 to count, where something can be inserted
void ThrowIfInsertionIndexOutOfRange(int index, int count);

}  // namespace BxXmlLib5
