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

wstring WrongRoot(CXmlName const& root, char16_t const* name, wstring const* namespaceUri) {
    wstring const message =
        FormatString(u"The root is the element [%s] in the namespace [%s], it must be [%s]",
                     root.m_localName.c_str(), root.m_namespaceUri.c_str(), name);
    return namespaceUri == nullptr ? message : message + u" in [" + *namespaceUri + u']';
}

CEndsInElement::CEndsInElement(CBxLocation const& end)
    : CBxException(u"The document ends inside an element") {
    SetLocation(end);
}

CBxException EndsInside(CBxLocation const& open) {
    CBxException failure(FormatString(u"The document ends inside the element [%s], which begins on line %d",
                                      open.GetPath().c_str(), static_cast<int>(open.GetLine())));
    failure.SetLocation(CBxLocation({}, open.GetLine()));
    return failure;
}

CBxException EntityIsSkipped(wstring const& name, std::size_t line) {
    CBxException failure(
        FormatString(u"The entity [%s], to which line %d refers, is not declared in the document itself",
                     name.c_str(), static_cast<int>(line)));
    failure.SetLocation(CBxLocation({}, line));
    return failure;
}

}  // namespace BxXmlLib5
