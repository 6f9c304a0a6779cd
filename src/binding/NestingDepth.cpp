#include "binding/NestingDepth.h"

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/binding/FormatString.h"
#include "platform/Limits.h"

namespace BxXmlLib5 {

void ThrowNestedTooDeeply() {
    throw CBxException(
        FormatString(u"Elements are nested more than %d levels deep, which is the limit", kMaxElementDepth));
}

}  // namespace BxXmlLib5
