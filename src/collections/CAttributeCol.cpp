#include "BxXmlLib5/collections/CAttributeCol.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/NamespaceRules.h"
#include "collections/CContentReader.h"
#include "collections/ReadItems.h"
#include "collections/Wildcards.h"
#include "document/ReadPlace.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CAttributeCol::CAttributeCol(char16_t const* ns, char16_t const* namespaceRestriction,
                             char16_t const* targetNamespace)
    : CAttributeCol(MakeWildcard(CSharedText(DefaultNamespace(TextOf(ns), TextOf(namespaceRestriction))),
                                 TextOf(namespaceRestriction), TextOf(targetNamespace))) {}

CAttributeCol::CAttributeCol(CSmartPtr<CWildcard const> wildcard)
    : CInstanceMonitor(u"CAttributeCol"), m_wildcard(std::move(wildcard)) {
    m_namespace = m_wildcard->m_defaultNamespace;
}

CAttributeCol::CAttributeCol(CAttributeCol const&) = default;
CAttributeCol::~CAttributeCol() = default;

CAttributeCol& CAttributeCol::operator=(CAttributeCol const& other) {
    // Held, since the other collection may hang on one of the items.
    CSmartPtr<CWildcard const> wildcard = other.m_wildcard;
    CXmlCollection::operator=(other);
    m_wildcard = std::move(wildcard);
    return *this;
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name, char16_t const* value, char16_t const* ns) {
    return AddTested(TextOf(name), TextOf(value), TextOf(ns));
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name, char16_t const* value) {
    return AddTested(TextOf(name), TextOf(value), m_namespace);
}

CSmartPtr<CAttribute> CAttributeCol::Add(char16_t const* name) {
    return Add(name, u"");
}

CSmartPtr<CAttribute> CAttributeCol::Add(CAttribute* attribute) {
    m_list.LinkAhead(nullptr, attribute);
    CSmartPtr<CAttribute> held = attribute;  // a listener may remove it
    FireOnCollectionChange();
    return held;
}

CSmartPtr<CAttribute> CAttributeCol::Add(CXmlAttribute const& attribute) {
    return AddTested(attribute.GetLocalName(), attribute.GetValueView(), attribute.GetNamespaceURI());
}

void CAttributeCol::AddAfter(CAttribute const* after, CAttribute* attribute) {
    AddAfterItem(after, attribute);
}
void CAttributeCol::AddBefore(CAttribute const* before, CAttribute* attribute) {
    AddBeforeItem(before, attribute);
}

CSmartPtr<CAttribute> CAttributeCol::Item(int index) {
    return *CBxIterator<CAttribute>(GetNodeAtIndex(index));
}

wstring CAttributeCol::GetTargetNamespace() const {
    return m_namespace;
}

void CAttributeCol::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                              CXmlSerializationContext const& context, bool) const {
    ItemsToXml(writer, namespaceUri, context);
}

CXmlElement* CAttributeCol::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                        CXmlSerializationContext const&, bool) {
    CSharedNames names;
    CBlockMemory memory;
    Read(*element, names, memory);
    return firstChild;
}

void CAttributeCol::Read(CXmlElement const& element, CSharedNames& names, CBlockMemory& memory) {
    for (CXmlAttribute const& attribute : element.GetAttributeView()) {
        wstring const& name = attribute.GetLocalName();
        wstring const& ns = attribute.GetNamespaceURI();
        if (!BxXmlLib5::IsNamespaceValid(ns, m_wildcard->m_namespaceRestriction,
                                         m_wildcard->m_targetNamespace)) {
            throw FailureAt(
                &element,
                CBxInvalidNamespaceException(FormatString(
                    u"Invalid Attribute [%s]. The attributes namespace is Inappropriate.", name.c_str())),
                &attribute);
        }
        auto* const added = new (memory)
            CReadItem<CAttribute>(names.Name(name), attribute.GetValueView(), names.Namespace(ns));
        added->m_node.m_item = added;
        m_list.LinkAhead(nullptr, &added->m_node);
        FireOnCollectionChange();
    }
}

CSmartPtr<CAttribute> CAttributeCol::AddTested(std::u16string_view name, std::u16string_view value,
                                               std::u16string_view ns) {
    BxXmlLib5::TestNamespace(ns, m_wildcard->m_namespaceRestriction, m_wildcard->m_targetNamespace);
    CSharedText sharedNamespace = m_namespace;
    CNode* const last = m_list.m_tail;
    if (!sharedNamespace.Is(ns) && last != nullptr) {
        if (auto const* const attribute = *CBxIterator<CAttribute const>(last))
            sharedNamespace = attribute->m_namespace;
    }
    sharedNamespace.Set(ns);
    return AddNew(CSharedText(name), value, std::move(sharedNamespace));
}

CSmartPtr<CAttribute> CAttributeCol::AddNew(CSharedText name, std::u16string_view value, CSharedText ns) {
    CSmartPtr<CAttribute> const attribute = new CAttribute(std::move(name), value, std::move(ns));
    return Add(attribute);
}

}  // namespace BxXmlLib5
