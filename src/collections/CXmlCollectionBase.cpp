#include "BxXmlLib5/collections/CXmlCollectionBase.h"

#include <algorithm>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CXmlCollectionBase::CXmlCollectionBase() = default;

CXmlCollectionBase::CXmlCollectionBase(char16_t const* elementName, char16_t const* ns, int minOccurs,
                                       int maxOccurs)
    : m_namespace(TextOf(ns)), m_minOccurs(minOccurs), m_maxOccurs(maxOccurs) {
    m_elementName = TextOf(elementName);
}

CXmlCollectionBase::~CXmlCollectionBase() = default;

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
    m_listeners.push_back(listener);
}

void CXmlCollectionBase::RemoveEventListener(CXmlObjectBase* listener) {
    std::erase(m_listeners, listener);
}

void CXmlCollectionBase::FireOnCollectionChange() {
    if (m_listeners.empty()) return;
    // Over a copy, since a listener may add and remove listeners; one that is gone by its turn may be dead.
    std::vector<CXmlObjectBase*> const listeners = m_listeners;
    for (CXmlObjectBase* const listener : listeners) {
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) == m_listeners.end()) continue;
        FireOnCollectionChangeEvent(listener, this);
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
