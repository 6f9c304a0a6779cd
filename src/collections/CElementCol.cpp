#include "BxXmlLib5/collections/CElementCol.h"

#include "BxXmlLib5/binding/CBxException.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/NamespaceRules.h"
#include "collections/DefaultNamespace.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CElementCol::CElementCol(char16_t const* ns, char16_t const* namespaceRestriction,
                         char16_t const* targetNamespace, int minOccurs, int maxOccurs)
    : CXmlCollection(u"", u"", minOccurs, maxOccurs),
      CInstanceMonitor(u"CElementCol"),
      m_namespaceRestriction(u"##any"),
      m_defaultNamespace(DefaultNamespace(TextOf(ns), TextOf(namespaceRestriction))),
      m_targetNamespace(TextOf(targetNamespace)) {
    TestNamespace(ns, namespaceRestriction, targetNamespace);
}

CElementCol::~CElementCol() = default;

wstring CElementCol::GetNamespace() const {
    return m_targetNamespace;
}
wstring CElementCol::GetTargetNamespace() const {
    return m_targetNamespace;
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name, char16_t const* ns) {
    TestNamespace(ns, m_namespaceRestriction.c_str(), m_targetNamespace.c_str());
    return Add(new CElement(name, ns, m_namespaceRestriction.c_str(), m_targetNamespace.c_str()));
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name) {
    if (m_defaultNamespace.empty()) {
        throw CBxInvalidStateException(u"A Namespace has not been set for this Collection");
    }
    return Add(name, m_defaultNamespace.c_str());
}

CSmartPtr<CElement> CElementCol::Add(CElement* element) {
    CSmartPtr<CElement> const held = element;
    if (element != nullptr) {
        BxXmlLib5::TestNamespace(element->m_namespace, m_namespaceRestriction, m_targetNamespace);
    }
    AppendItem(element);
    FireOnCollectionChange();
    return held;
}

void CElementCol::AddAfter(CElement const* after, CElement* element) {
    AddAfterItem(after, element);
}
void CElementCol::AddBefore(CElement const* before, CElement* element) {
    AddBeforeItem(before, element);
}

CSmartPtr<CElement> CElementCol::Item(int index) {
    return *CBxIterator<CElement>(GetNodeAtIndex(index));
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                            CXmlSerializationContext const& context, bool) const {
    ValidateCount(context);
    for (CNode const* node = FirstNode(); node != nullptr; node = node->m_next) {
        if (node->m_item)
            CXmlObjectBase::ToXml_Int(node->m_item, writer, false, namespaceUri, context, false);
    }
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                      CXmlSerializationContext const& context, bool) {
    CXmlElement* child = firstChild;
    while (child != nullptr &&
           BxXmlLib5::IsNamespaceValid(child->GetNamespaceURI(), m_namespaceRestriction, m_targetNamespace) &&
           ReadOne(m_namespaceRestriction.c_str(), element, child, context)) {
    }
    return child;
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(wstring name, wstring ns, CXmlElement* element,
                                                     CXmlElement* firstChild,
                                                     CXmlSerializationContext const& context) {
    CXmlElement* child = firstChild;
    while (child != nullptr && Equal(child->GetLocalName(), name) && Equal(child->GetNamespaceURI(), ns) &&
           ReadOne(u"##any", element, child, context)) {
    }
    return child;
}

/// Reads the element at a position, which moves behind it; false if it was not consumed.
bool CElementCol::ReadOne(char16_t const* namespaceRestriction, CXmlElement* element, CXmlElement*& child,
                          CXmlSerializationContext const& context) {
    CSmartPtr<CElement> const item =
        new CElement(child->GetLocalName().c_str(), child->GetNamespaceURI().c_str(), namespaceRestriction,
                     m_targetNamespace.c_str());
    CXmlElement* const next = item->FromXml_Int(element, child, context, false);
    if (next == child) return false;
    Add(item);
    child = next;
    return true;
}

}  // namespace BxXmlLib5
