#include "binding/NamespaceRules.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

bool Accepts(std::u16string_view token, std::u16string_view namespaceUri,
             std::u16string_view targetNamespace) {
    if (token == u"##any") return true;
    if (token == u"##other") return !Equal(namespaceUri, targetNamespace);
    if (token == u"##local") return namespaceUri.empty();
    if (token == u"##targetNamespace") return Equal(namespaceUri, targetNamespace);
    return namespaceUri.empty() || Equal(namespaceUri, token);
}

}  // namespace

bool IsNamespaceValid(std::u16string_view namespaceUri, std::u16string_view allowed,
                      std::u16string_view targetNamespace) {
    for (;;) {
        std::size_t const blank = allowed.find(u' ');
        if (Accepts(allowed.substr(0, blank), namespaceUri, targetNamespace)) return true;
        if (blank == allowed.npos) return false;
        allowed.remove_prefix(blank + 1);
    }
}

void TestNamespace(std::u16string_view namespaceUri, std::u16string_view allowed,
                   std::u16string_view targetNamespace) {
    if (IsNamespaceValid(namespaceUri, allowed, targetNamespace)) return;
    throw CBxInvalidNamespaceException(FormatString(
        u"Invalid namespace [%s]. The namespace must be one of [%s] where the target namespace is [%s]",
        std::u16string(namespaceUri).c_str(), std::u16string(allowed).c_str(),
        std::u16string(targetNamespace).c_str()));
}

}  // namespace BxXmlLib5
