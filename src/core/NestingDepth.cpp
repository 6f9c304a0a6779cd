#include "core/NestingDepth.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5 {

void ThrowNestedTooDeeply(std::size_t levels) {
    throw CBxException(FormatString(u"Elements are nested more than %d levels deep, which is the limit",
                                    static_cast<int>(levels)));
}

namespace {

/// Where the outermost level stands on a stack of which nobody knows what is left; 0 if there is none.
constinit thread_local std::uintptr_t t_outermost = 0;

}  // namespace

void CNestingLevel::LookAtStack() {
    bool const isKnown = StackLeft().has_value();
    // From another stack this is more than any has.
    std::uintptr_t const taken = t_outermost - StackAddress();
    if (!isKnown && (t_outermost == 0 || taken > kUnknownStack + kStackForLevel)) {
        t_outermost = StackAddress();
        m_isOutermost = true;
    } else if (isKnown || taken > kUnknownStack) {
        throw CBxException(u"Elements or objects are nested too deeply for what is left of the stack");
    }
}

void CNestingLevel::Leave() {
    t_outermost = 0;
}

}  // namespace BxXmlLib5
