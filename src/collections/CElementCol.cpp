#include "BxXmlLib5/collections/CElementCol.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/NamespaceRules.h"
#include "collections/Wildcards.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CElementCol::CElementCol(char16_t const* ns, char16_t const* namespaceRestriction,
                         char16_t const* targetNamespace, int minOccurs, int maxOccurs)
    : CElementCol(CSharedText(DefaultNamespace(TextOf(ns), TextOf(namespaceRestriction))),
                  CSharedText(TextOf(targetNamespace)), minOccurs, maxOccurs) {
    TestNamespace(ns, namespaceRestriction, targetNamespace);
}

CElementCol::CElementCol(CSharedText defaultNamespace, CSharedText targetNamespace, int minOccurs,
                         int maxOccurs)
    : CXmlCollection(u"", u"", minOccurs, maxOccurs),
      CInstanceMonitor(u"CElementCol"),
      m_namespaceRestriction(AnyNamespace()),
      m_defaultNamespace(std::move(defaultNamespace)),
      m_targetNamespace(std::move(targetNamespace)) {}

CElementCol::~CElementCol() = default;

CElementCol& CElementCol::operator=(CElementCol const& other) {
    // The items go last: the other collection may hang on one of them.
    m_namespaceRestriction = other.m_namespaceRestriction;
    m_defaultNamespace = other.m_defaultNamespace;
    m_targetNamespace = other.m_targetNamespace;
    CXmlCollection::operator=(other);
    return *this;
}

wstring CElementCol::GetNamespace() const {
    return m_targetNamespace.Get();
}
wstring CElementCol::GetTargetNamespace() const {
    return m_targetNamespace.Get();
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name, char16_t const* ns) {
    TestNamespace(ns, m_namespaceRestriction.Get().c_str(), m_targetNamespace.Get().c_str());
    return Add(new CElement(name, ns, m_namespaceRestriction.Get().c_str(), m_targetNamespace.Get().c_str()));
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name) {
    if (m_defaultNamespace.Is({})) {
        throw CBxInvalidStateException(u"A Namespace has not been set for this Collection");
    }
    return Add(name, m_defaultNamespace.Get().c_str());
}

CSmartPtr<CElement> CElementCol::Add(CElement* element) {
    CSmartPtr<CElement> held = element;
    if (element != nullptr) {
        BxXmlLib5::TestNamespace(element->m_namespace.Get(), m_namespaceRestriction.Get(),
                                 m_targetNamespace.Get());
    }
    AppendItem(element);
    FireOnCollectionChange();
    return held;
}

void CElementCol::AddAfter(CElement const* after, CElement* element) {
    CSmartPtr<CElement> const held = element;
    AddAfterItem(after, element);
}
void CElementCol::AddBefore(CElement const* before, CElement* element) {
    CSmartPtr<CElement> const held = element;
    AddBeforeItem(before, element);
}

CSmartPtr<CElement> CElementCol::Item(int index) {
    return *CBxIterator<CElement>(GetNodeAtIndex(index));
}

void CElementCol::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                            CXmlSerializationContext const& context, bool) const {
    ValidateCount(context);
    ItemsToXml(writer, namespaceUri, context);
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                      CXmlSerializationContext const& context, bool) {
    auto const accepts = [this](CXmlElement const& child) {
        return BxXmlLib5::IsNamespaceValid(child.GetNamespaceURI(), m_namespaceRestriction.Get(),
                                           m_targetNamespace.Get());
    };
    return ReadWhile(accepts, element, firstChild, context);
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(wstring name, wstring ns, CXmlElement* element,
                                                     CXmlElement* firstChild,
                                                     CXmlSerializationContext const& context) {
    auto const accepts = [&](CXmlElement const& child) {
        return Equal(child.GetLocalName(), name) && Equal(child.GetNamespaceURI(), ns);
    };
    return ReadWhile(accepts, element, firstChild, context);
}

/// Reads siblings as long as they are accepted.
/// @return the first one that was not consumed
template <class Accepts>
CXmlElement* CElementCol::ReadWhile(Accepts accepts, CXmlElement* element, CXmlElement* firstChild,
                                    CXmlSerializationContext const& context) {
    CSharedText ns = m_defaultNamespace;  // siblings are mostly in one namespace
    CXmlElement* child = firstChild;
    while (child != nullptr && accepts(*child)) {
        ns.Set(child->GetNamespaceURI());
        CSmartPtr<CElement> const item =
            new CElement(child->GetLocalName(), ns, m_namespaceRestriction, m_targetNamespace);
        CXmlElement* const next = item->FromXml_Int(element, child, context, false);
        if (next == child) break;
        Add(item);
        child = next;
    }
    return child;
}

}  // namespace BxXmlLib5
