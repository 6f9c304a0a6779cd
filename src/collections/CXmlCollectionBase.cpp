#include "BxXmlLib5/collections/CXmlCollectionBase.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// The collection holds this, and so does each walk over it.
struct CXmlCollectionBase::Listeners {
    void AddRef() { ++m_holders; }
    void Release() {
        --m_holders;
        if (m_holders == 1) std::erase(m_inOrder, nullptr);
        if (m_holders == 0) delete this;
    }
    bool AreBeingTold() const { return m_holders > 1; }

    std::vector<CXmlObjectBase*> m_inOrder;  // null for one that was removed while they were being told
    int m_holders = 0;
};

CXmlCollectionBase::CXmlCollectionBase() = default;

CXmlCollectionBase::CXmlCollectionBase(char16_t const* elementName, char16_t const* ns, int minOccurs,
                                       int maxOccurs)
    : m_namespace(TextOf(ns)), m_minOccurs(minOccurs), m_maxOccurs(maxOccurs) {
    m_elementName = TextOf(elementName);
}

CXmlCollectionBase::CXmlCollectionBase(CXmlCollectionBase const& other)
    : CXmlObjectBase(other),
      m_namespace(other.m_namespace),
      m_listeners(other.m_listeners ? new Listeners{other.m_listeners->m_inOrder} : nullptr),
      m_minOccurs(other.m_minOccurs),
      m_maxOccurs(other.m_maxOccurs) {}

CXmlCollectionBase& CXmlCollectionBase::operator=(CXmlCollectionBase const& other) {
    std::vector<CXmlObjectBase*> listeners;
    if (other.m_listeners) listeners = other.m_listeners->m_inOrder;
    if (!m_listeners && !listeners.empty()) m_listeners = new Listeners;
    CXmlObjectBase::operator=(other);
    m_namespace = other.m_namespace;
    if (m_listeners) m_listeners->m_inOrder = std::move(listeners);
    m_minOccurs = other.m_minOccurs;
    m_maxOccurs = other.m_maxOccurs;
    return *this;
}

CXmlCollectionBase::~CXmlCollectionBase() {
    if (m_listeners) m_listeners->m_inOrder.clear();
}

CXmlObjectBase* CXmlCollectionBase::GetBase() {
    return this;
}

wstring CXmlCollectionBase::GetTargetNamespace() const {
    throw CBxException(
        u"CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program logic error)");
}

wstring CXmlCollectionBase::GetNamespace() const {
    return m_namespace.Get();
}

void CXmlCollectionBase::ValidateCount(CXmlSerializationContext const& context) const {
    if (context.GetIgnoreInvalidCollectionCounts()) return;
    if (GetCount() > m_maxOccurs && m_maxOccurs != -1) {
        throw CBxValidationException(
            FormatString(u"The Maximum number of [%s] elements allowed in this collection is %d",
                         m_elementName.c_str(), m_maxOccurs));
    }
    if (GetCount() < m_minOccurs) {
        throw CBxValidationException(
            FormatString(u"The Minimum number of [%s] elements allowed in this collection is %d",
                         m_elementName.c_str(), m_minOccurs));
    }
}

void CXmlCollectionBase::AddEventListener(CXmlObjectBase* listener) {
    if (!m_listeners) m_listeners = new Listeners;
    m_listeners->m_inOrder.push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(CXmlObjectBase* listener) {
    if (!m_listeners) return;
    std::vector<CXmlObjectBase*>& listeners = m_listeners->m_inOrder;
    if (m_listeners->AreBeingTold()) {
        std::replace(listeners.begin(), listeners.end(), listener, static_cast<CXmlObjectBase*>(nullptr));
    } else {
        std::erase(listeners, listener);
    }
}

void CXmlCollectionBase::FireOnCollectionChange() {
    if (!m_listeners) return;
    CSmartPtr<Listeners> const told = m_listeners;
    std::vector<CXmlObjectBase*> const& listeners = told->m_inOrder;
    std::size_t const count = listeners.size();
    for (std::size_t i = 0; i < count && i < listeners.size(); ++i) {
        FireOnCollectionChangeEvent(listeners[i], this);
    }
}

void CXmlObjectBase::FireOnCollectionChangeEvent(CXmlObjectBase* listener, CXmlCollectionBase* collection) {
    if (listener != nullptr) listener->OnEvent(collection->GetBase(), msg_CollectionChanged, nullptr);
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* element,
                                            CXmlElement*& child, std::int32_t& count,
                                            CXmlSerializationContext const& context) {
    if (count >= 1) return;
    CXmlElement* const next = FromXml_Int(collection, element, child, context);
    if (next == child) return;
    child = next;
    collection->ValidateCount(context);
    ++count;
}

}  // namespace BxXmlLib5
