#include "BxXmlLib5/binding/CClassfactoryBase.h"

#include "BxXmlLib5/document/CXmlDocument.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5 {

namespace {

wstring const& TypeAttribute(CXmlElement const& element) {
    return element.GetAttribute(u"type", wstring(kXsiNamespace));
}

}  // namespace

CClassfactoryBase::~CClassfactoryBase() = default;

wstring CClassfactoryBase::GetElementType(CXmlElement* element) {
    wstring const& type = TypeAttribute(*element);
    std::size_t const colon = type.find(u':');
    return colon == wstring::npos ? type : type.substr(colon + 1);
}

wstring CClassfactoryBase::GetElementTypeNamespaceUri(CXmlElement* element) {
    wstring const& type = TypeAttribute(*element);
    std::size_t const colon = type.find(u':');
    if (colon == wstring::npos) return element->GetNamespaceURI();
    wstring const prefix = type.substr(0, colon);
    wstring namespaceUri = element->GetDocument()->LookupNamespaceFromAlias(prefix.c_str());
    return namespaceUri.empty() ? element->GetNamespaceURI() : namespaceUri;
}

}  // namespace BxXmlLib5
