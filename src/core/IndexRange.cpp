#include "core/IndexRange.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5 {

void ThrowIfIndexOutOfRange(int index, int count) {
    if (index >= 0 && index < count) return;
    throw CBxInvalidParamException(FormatString(u"Index %d is out of range, use 0 - %d", index, count - 1));
}

void ThrowIfInsertionIndexOutOfRange(int index, int count) {
    if (index < 0 || index > count) throw CBxInvalidParamException(u"Index out of range");
}

}  // namespace BxXmlLib5
