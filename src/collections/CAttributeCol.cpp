#include "BxXmlLib5/collections/CAttributeCol.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/NamespaceRules.h"
#include "collections/Wildcards.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CAttributeCol::CAttributeCol(char16_t const* ns, char16_t const* namespaceRestriction,
                             char16_t const* targetNamespace)
    : CAttributeCol(CSharedText(DefaultNamespace(TextOf(ns), TextOf(namespaceRestriction))),
                    CSharedText(TextOf(namespaceRestriction)), CSharedText(TextOf(targetNamespace))) {}

CAttributeCol::CAttributeCol(CSharedText ns, CSharedText namespaceRestriction, CSharedText targetNamespace)
    : CInstanceMonitor(u"CAttributeCol"),
      m_namespaceRestriction(std::move(namespaceRestriction)),
      m_targetNamespace(std::move(targetNamespace)) {
    m_namespace = std::move(ns);
}

CAttributeCol::~CAttributeCol() = default;

CAttributeCol& CAttributeCol::operator=(CAttributeCol const& other) {
    // The items go last: the other collection may hang on one of them.
    m_namespaceRestriction = other.m_namespaceRestriction;
    m_targetNamespace = other.m_targetNamespace;
    CXmlCollection::operator=(other);
    return *this;
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name, char16_t const* value, char16_t const* ns) {
    BxXmlLib5::TestNamespace(TextOf(ns), m_namespaceRestriction.Get(), m_targetNamespace.Get());
    return AddNew(TextOf(name), TextOf(value), TextOf(ns));
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name, char16_t const* value) {
    return Add(name, value, m_namespace.Get().c_str());
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name) {
    return Add(name, u"");
}

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute) {
    CSmartPtr<CAttribute> held = attribute;
    AppendItem(attribute);
    return held;
}

CSmartPtr<CAttribute> CAttributeCol::Add(CXmlAttribute const& attribute) {
    BxXmlLib5::TestNamespace(attribute.GetNamespaceURI(), m_namespaceRestriction.Get(),
                             m_targetNamespace.Get());
    return AddNew(attribute.GetLocalName(), attribute.GetValueView(), attribute.GetNamespaceURI());
}

void CAttributeCol::AddAfter(CAttribute const* after, CAttribute* attribute) {
    CSmartPtr<CAttribute> const held = attribute;
    AddAfterItem(after, attribute);
}
void CAttributeCol::AddBefore(CAttribute const* before, CAttribute* attribute) {
    CSmartPtr<CAttribute> const held = attribute;
    AddBeforeItem(before, attribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(int index) {
    return *CBxIterator<CAttribute>(GetNodeAtIndex(index));
}

wstring CAttributeCol::GetTargetNamespace() const {
    return m_namespace.Get();
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                              CXmlSerializationContext const& context, bool) const {
    ItemsToXml(writer, namespaceUri, context);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                        CXmlSerializationContext const&, bool) {
    for (CXmlAttribute const* attribute : element->GetAttributes()) {
        if (!BxXmlLib5::IsNamespaceValid(attribute->GetNamespaceURI(), m_namespaceRestriction.Get(),
                                         m_targetNamespace.Get())) {
            throw CBxInvalidNamespaceException(
                FormatString(u"Invalid Attribute [%s]. The attributes namespace is Inappropriate.",
                             attribute->GetLocalName().c_str()));
        }
        AddNew(attribute->GetLocalName(), attribute->GetValueView(), attribute->GetNamespaceURI());
    }
    return firstChild;
}

CSmartPtr<CAttribute> CAttributeCol::AddNew(std::u16string_view name, std::u16string_view value,
                                            std::u16string_view ns) {
    return Add(new CAttribute(name, value, ns));
}

}  // namespace BxXmlLib5
