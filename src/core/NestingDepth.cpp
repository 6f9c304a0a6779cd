#include "core/NestingDepth.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"

namespace BxXmlLib5 {

void ThrowNestedTooDeeply() {
    throw CBxException(
        FormatString(u"Elements are nested more than %d levels deep, which is the limit", kMaxElementDepth));
}

namespace {

thread_local int t_objects = 0;

}  // namespace

CObjectLevel::CObjectLevel() {
    if (t_objects == kMaxObjectDepth) {
        throw CBxException(FormatString(u"Objects are nested more than %d levels deep, which is the limit",
                                        kMaxObjectDepth));
    }
    ++t_objects;
}

CObjectLevel::~CObjectLevel() {
    --t_objects;
}

}  // namespace BxXmlLib5
