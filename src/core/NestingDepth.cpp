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
thread_local std::size_t t_vainSteps = 0;

}  // namespace

CObjectLevel::CObjectLevel() {
    if (t_objects == kMaxObjectDepth) {
        throw CBxException(FormatString(u"Objects are nested more than %d levels deep, which is the limit",
                                        kMaxObjectDepth));
    }
    if (t_objects++ == 0) t_vainSteps = 0;
}

CObjectLevel::~CObjectLevel() {
    --t_objects;
}

void CObjectLevel::CountVainSteps(std::size_t steps) {
    t_vainSteps += steps;
    if (t_vainSteps > kMaxVainSteps) {
        throw CBxException(u"Too many unknown elements stand where a group may begin");
    }
}

}  // namespace BxXmlLib5
