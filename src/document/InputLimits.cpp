#include "document/InputLimits.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5 {

void ThrowIfInputTooLarge(std::size_t size, std::size_t most) {
    most = std::min(most, kMaxInputSize);
    if (size <= most) return;
    throw CBxException(
        FormatString(u"The document has more than %d octets, which is the limit", static_cast<int>(most)));
}

void ThrowIfNamespaceTooLong(std::u16string_view namespaceUri) {
    if (namespaceUri.size() <= kMaxNamespaceLength) return;
    throw CBxException(FormatString(u"A namespace has more than %d characters, which is the limit",
                                    static_cast<int>(kMaxNamespaceLength)));
}

void ThrowNoRoot() {
    throw CBxException(u"Invalid or empty XML document");
}

void ThrowEndsInElement(CBxLocation const& end) {
    CBxException failure(u"The document ends inside an element");
    failure.SetLocation(end);
    throw failure;
}

}  // namespace BxXmlLib5
