#include "collections/Wildcards.h"

namespace BxXmlLib5 {

std::u16string_view DefaultNamespace(std::u16string_view ns, std::u16string_view namespaceRestriction) {
    if (!ns.empty()) return ns;
    std::u16string_view const token = namespaceRestriction.substr(0, namespaceRestriction.find(u' '));
    bool const isConcrete = token.size() >= 2 && token[0] != u'#' && token[1] != u'#';
    return isConcrete ? token : std::u16string_view();
}

CSharedText const& AnyNamespace() {
    // Never destroyed, so that a destructor of static storage may use it.
    static CSharedText const& s_any = *new CSharedText(u"##any");
    return s_any;
}

}  // namespace BxXmlLib5
