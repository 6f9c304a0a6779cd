#include "binding/IndexRange.h"

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/FormatString.h"

namespace BxXmlLib5 {

void ThrowIndexOutOfRange(int index, int count) {
    throw CBxInvalidParamException(FormatString(u"Index %d is out of range, use 0 - %d", index, count - 1));
}

}  // namespace BxXmlLib5
