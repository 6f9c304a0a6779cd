#include "BxXmlLib5/collections/CElementCol.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "collections/CContentReader.h"
#include "collections/ReadItems.h"
#include "collections/Wildcards.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CElementCol::CElementCol(char16_t const* ns, char16_t const* namespaceRestriction,
                         char16_t const* targetNamespace, int minOccurs, int maxOccurs)
    : CElementCol(AnyWildcard(CSharedText(DefaultNamespace(TextOf(ns), TextOf(namespaceRestriction))),
                              CSharedText(TextOf(targetNamespace))),
                  minOccurs, maxOccurs) {
    TestNamespace(ns, namespaceRestriction, targetNamespace);
}

CElementCol::CElementCol(CSmartPtr<CWildcard const> wildcard, int minOccurs, int maxOccurs)
    : CXmlCollection(u"", u"", minOccurs, maxOccurs),
      CInstanceMonitor(u"CElementCol"),
      m_wildcard(std::move(wildcard)) {}

CElementCol::CElementCol(CElementCol const&) = default;
CElementCol::~CElementCol() = default;

CElementCol& CElementCol::operator=(CElementCol const& other) {
    // Held, since the other collection may hang on one of the items.
    CSmartPtr<CWildcard const> wildcard = other.m_wildcard;
    CXmlCollection::operator=(other);
    m_wildcard = std::move(wildcard);
    return *this;
}

wstring CElementCol::GetNamespace() const {
    return m_wildcard->m_targetNamespace;
}
wstring CElementCol::GetTargetNamespace() const {
    return m_wildcard->m_targetNamespace;
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name, char16_t const* ns) {
    CElement::ThrowIfNoName(name);
    return AddNew(name, TextOf(ns));
}

CSmartPtr<CElement> CElementCol::Add(char16_t const* name) {
    if (m_wildcard->m_defaultNamespace.empty()) {
        throw CBxInvalidStateException(u"A Namespace has not been set for this Collection");
    }
    CElement::ThrowIfNoName(name);
    return AddNew(name, m_wildcard->m_defaultNamespace);
}

CSmartPtr<CElement> CElementCol::AddNew(std::u16string_view name, std::u16string_view ns) {
    CElement const* const last = LastElement();  // most siblings are alike
    CSharedText sharedName = last == nullptr ? CSharedText() : last->m_name;
    sharedName.Set(name);
    CSharedText sharedNamespace = last == nullptr ? m_wildcard->m_defaultNamespace : last->m_namespace;
    sharedNamespace.Set(ns);
    CSmartPtr<CWildcard const> wildcard = m_wildcard;
    if (last != nullptr && !wildcard->IsAny(ns, m_wildcard->m_targetNamespace)) wildcard = last->m_wildcard;
    if (!wildcard->IsAny(ns, m_wildcard->m_targetNamespace)) {
        wildcard = AnyWildcard(sharedNamespace, m_wildcard->m_targetNamespace);
    }
    CSmartPtr<CElement> const element =
        new CElement(std::move(sharedName), std::move(sharedNamespace), std::move(wildcard));
    Append(element);
    return element;
}

CSmartPtr<CElement> CElementCol::Add(CElement* element) {
    CElement const* const last = LastElement();
    m_list.LinkAhead(nullptr, element);
    CSmartPtr<CElement> held = element;  // a listener may remove it
    if (element != nullptr && last != nullptr) element->ShareTexts(*last);
    TellTwice();
    return held;
}

void CElementCol::Append(CElement* element) {
    m_list.LinkAhead(nullptr, element);
    TellTwice();
}

void CElementCol::AppendRead(CReadItem<CElement>& element) {
    element.m_node.m_item = &element;
    m_list.LinkAhead(nullptr, &element.m_node);
    TellTwice();
}

void CElementCol::TellTwice() {
    FireOnCollectionChange();
    FireOnCollectionChange();
}

CElement const* CElementCol::LastElement() const {
    return m_list.m_tail == nullptr ? nullptr : *CBxIterator<CElement const>(m_list.m_tail);
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
    ItemsToXml(writer, namespaceUri, context);
}

CXmlElement* CElementCol::FromXml_Int(CXmlElement*, CXmlElement* firstChild, CXmlSerializationContext const&,
                                      bool) {
    return ReadWhile([](CXmlElement const&) { return true; }, firstChild);
}

CXmlElement* CElementCol::FromXmlLockElementName_Int(wstring name, wstring ns, CXmlElement*,
                                                     CXmlElement* firstChild,
                                                     CXmlSerializationContext const&) {
    auto const accepts = [&](CXmlElement const& child) {
        return Equal(child.GetLocalName(), name) && Equal(child.GetNamespaceURI(), ns);
    };
    return ReadWhile(accepts, firstChild);
}

/// Reads siblings as long as they are accepted.
/// @return the first one that was not consumed
template <class Accepts>
CXmlElement* CElementCol::ReadWhile(Accepts accepts, CXmlElement* firstChild) {
    CContentReader reader(m_wildcard->m_targetNamespace);
    CXmlElement* child = firstChild;
    for (; child != nullptr && accepts(*child); child = child->GetNextSiblingElement()) {
        AppendRead(*reader.Read(*child));
    }
    return child;
}

}  // namespace BxXmlLib5
