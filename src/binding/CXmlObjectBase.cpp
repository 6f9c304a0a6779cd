#include "BxXmlLib5/binding/CXmlObjectBase.h"

#include <utility>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/Count.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/NamespaceRules.h"
#include "core/NestingDepth.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

/// What a thread is deleting.
struct Deletions {
    bool m_isRunning = false;
    CXmlObjectBase* m_first = nullptr;  // of those that wait
};

constinit thread_local Deletions t_deletions;

}  // namespace

CXmlObjectBase::CXmlObjectBase() = default;
CXmlObjectBase::CXmlObjectBase(CXmlObjectBase const& other) : m_elementName(other.m_elementName) {}
CXmlObjectBase::~CXmlObjectBase() = default;

CXmlObjectBase& CXmlObjectBase::operator=(CXmlObjectBase const& other) {
    m_elementName = other.m_elementName;
    return *this;
}

std::int32_t CXmlObjectBase::AddRef() {
    return static_cast<std::int32_t>(AddToCount<std::intptr_t>(m_refCount, 1, std::memory_order_relaxed) + 1);
}

std::int32_t CXmlObjectBase::Release() {
    // What other threads did with the object must be seen by the one that deletes it. The last reference is
    // nobody else's, and taking it away needs no locked step.
    if (m_refCount.load(std::memory_order_acquire) == 1) {
        m_refCount.store(0, std::memory_order_relaxed);
        Delete();
        return 0;
    }
    std::intptr_t const count = AddToCount<std::intptr_t>(m_refCount, -1, std::memory_order_acq_rel) - 1;
    if (count == 0) Delete();
    return static_cast<std::int32_t>(count);
}

/// A tree dies from the top, one object inside the other. What finds little stack left waits in line for the
/// outermost one instead, so that the stack suffices however deep the tree is.
void CXmlObjectBase::Delete() {
    Deletions& deletions = t_deletions;
    if (!deletions.m_isRunning) {
        deletions.m_isRunning = true;
        delete this;
        while (CXmlObjectBase* const first = deletions.m_first) {
            auto* const next = reinterpret_cast<CXmlObjectBase*>(first->m_refCount.exchange(0));
            deletions.m_first = next == first ? nullptr : next;
            delete first;
        }
        deletions.m_isRunning = false;
    } else if (HasStackForLevel()) {
        delete this;
    } else {
        // The last one has itself for the next: a count of 0 would have it deleted twice, should it be
        // counted.
        CXmlObjectBase* const next = std::exchange(deletions.m_first, this);
        m_refCount = reinterpret_cast<std::intptr_t>(next == nullptr ? this : next);
    }
}

void CXmlObjectBase::OnEvent(CXmlObjectBase*, MsgType, void*) {}
void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, CXmlSerializationContext const&) const {}

void CXmlObjectBase::SetElementName(char16_t const* name) {
    m_elementName = TextOf(name);
}
wstring CXmlObjectBase::GetElementName() const {
    return m_elementName;
}
void CXmlObjectBase::SetElementName(CXmlObjectBase* object, char16_t const* name) {
    object->SetElementName(name);
}

void CXmlObjectBase::AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                         CXmlSerializationContext const& context) {
    object->AttributesToXml_Int(writer, context);
}

void CXmlObjectBase::ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot,
                               char16_t const* namespaceUri, CXmlSerializationContext const& context,
                               bool allowEmptyChoice) {
    object->ToXml_Int(writer, isRoot, namespaceUri, context, allowEmptyChoice);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* element,
                                         CXmlElement* firstChild, CXmlSerializationContext const& context) {
    return object->FromXml_Int(element, firstChild, context, false);
}

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, char16_t const* name) {
    if (value != nullptr) return;
    throw CBxInvalidParamException(
        FormatString(u"The Property [%s] is mandatory, it may node be NULL", wstring(TextOf(name)).c_str()));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, char16_t const* name) {
    if (value == nullptr) return;
    wstring const& elementName = value->GetBase()->m_elementName;
    if (Equal(elementName, TextOf(name))) return;
    throw CBxInvalidParamException(FormatString(
        u"This property requrires an element with the name %s the element being set has the element name %s",
        wstring(TextOf(name)).c_str(), elementName.c_str()));
}

namespace {

[[noreturn]] void ThrowChoiceAlreadySet(wstring const& selected) {
    throw CBxInvalidStateException(FormatString(
        u"The Property [%s] is already set. Only one element within this class bay be set at a time",
        selected.c_str()));
}

}  // namespace

void CXmlObjectBase::Choice_SetElementValid(bool valid, char16_t const* name, wstring& selected) {
    if (!valid) {
        selected.clear();
    } else if (selected.empty()) {
        selected = TextOf(name);
    } else if (!Equal(selected, TextOf(name))) {
        throw CBxInvalidStateException(FormatString(
            u"The Property %s is already set. Only one element within this class bay be set at a time",
            selected.c_str()));
    }
}

void CXmlObjectBase::Choice_SelectElement(char16_t const* name, CXmlObjectBase* value, wstring& selected) {
    if (selected == TextOf(name)) {
        if (value == nullptr) selected.clear();
    } else if (selected.empty()) {
        selected = TextOf(name);
    } else if (value != nullptr) {
        ThrowChoiceAlreadySet(selected);
    }
}

void CXmlObjectBase::Choice_CollectionChanged(char16_t const* name, std::int32_t count, wstring& selected) {
    if (selected == TextOf(name)) {
        if (count == 0) selected.clear();
    } else if (selected.empty()) {
        if (count >= 1) selected = TextOf(name);
    } else if (count != 0) {
        ThrowChoiceAlreadySet(selected);
    }
}

void CXmlObjectBase::TestNamespace(char16_t const* namespaceUri, char16_t const* allowed,
                                   char16_t const* targetNamespace) const {
    BxXmlLib5::TestNamespace(TextOf(namespaceUri), TextOf(allowed), TextOf(targetNamespace));
}

bool CXmlObjectBase::IsNamespaceValid(char16_t const* namespaceUri, char16_t const* allowed,
                                      char16_t const* targetNamespace) const {
    return BxXmlLib5::IsNamespaceValid(TextOf(namespaceUri), TextOf(allowed), TextOf(targetNamespace));
}

bool CXmlObjectBase::DoesElementNameMatch(CXmlSerializationContext const& context, CXmlElement const* element,
                                          char16_t const* name, char16_t const* namespaceUri) const {
    return Equal(element->GetLocalName(), TextOf(name)) &&
           (context.GetIgnoreNamespaces() || Equal(element->GetNamespaceURI(), TextOf(namespaceUri)));
}

}  // namespace BxXmlLib5
