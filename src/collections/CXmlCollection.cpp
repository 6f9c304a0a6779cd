#include "BxXmlLib5/collections/CXmlCollection.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "collections/ReadItems.h"
#include "core/IndexRange.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5 {

namespace {

/// Frees a node that is in no list. Its item goes last, and may take a tree with it.
void FreeNode(CNode* node) {
    CSmartPtr<CXmlObjectBase> const item = std::move(node->m_item);
    if (!item || !IsOwnNode(node, *item)) delete node;
}

}  // namespace

CXmlCollection::CXmlCollection() = default;

CXmlCollection::CXmlCollection(char16_t const* elementName, char16_t const* ns, int minOccurs, int maxOccurs)
    : CXmlCollectionBase(elementName, ns, minOccurs, maxOccurs) {}

CXmlCollection& CXmlCollection::operator=(CXmlCollection const& other) {
    // The old items go last: the other collection may hang on one of them.
    List items(other.m_list);
    CXmlCollectionBase::operator=(other);
    m_list.Swap(items);
    return *this;
}

CXmlCollection::~CXmlCollection() {
    if (!IsListenedTo()) return;
    // A listener may take a counting pointer to the source; dropping it must not delete the collection again.
    AddRef();
    while (m_list.m_count > 0) {
        try {
            CXmlCollection::Remove(0);
        } catch (...) {
            // A listener's failure: the item is out by then, and a destructor has nobody to tell.
        }
    }
}

CXmlCollection::List::List(List const& other) : List() {
    for (CNode const* node = other.m_head; node != nullptr; node = node->m_next)
        LinkAhead(nullptr, node->m_item);
}

CXmlCollection::List::~List() {
    while (m_head != nullptr) FreeNode(std::exchange(m_head, m_head->m_next));
}

void CXmlCollection::List::LinkAhead(CNode* next, CXmlObjectBase* item) {
    LinkAhead(next, new CNode{item});
}

void CXmlCollection::List::LinkAhead(CNode* next, CNode* node) noexcept {
    CNode* const prev = next == nullptr ? m_tail : next->m_prev;
    node->m_next = next;
    node->m_prev = prev;
    (prev == nullptr ? m_head : prev->m_next) = node;
    (next == nullptr ? m_tail : next->m_prev) = node;
    ++m_count;
}

void CXmlCollection::List::Swap(List& other) noexcept {
    std::swap(m_head, other.m_head);
    std::swap(m_tail, other.m_tail);
    std::swap(m_count, other.m_count);
}

int CXmlCollection::GetCount() const {
    return m_list.m_count;
}

void CXmlCollection::Clear() {
    while (m_list.m_count > 0) Remove(0);
}

void CXmlCollection::Remove(int index) {
    RemoveNode(GetNodeAtIndex(index));
    FireOnCollectionChange();
}

void CXmlCollection::AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const& context) const {
    CNestingLevel const level;
    for (CNode const* node = m_list.m_head; node != nullptr; node = node->m_next) {
        if (node->m_item) CXmlObjectBase::AttributesToXml_Int(node->m_item->GetBase(), writer, context);
    }
}

void CXmlCollection::ItemsToXml(CXmlWriter* writer, char16_t const* namespaceUri,
                                CXmlSerializationContext const& context) const {
    CNestingLevel const level;
    for (CNode const* node = m_list.m_head; node != nullptr; node = node->m_next) {
        if (node->m_item) ToXml_Int(node->m_item->GetBase(), writer, false, namespaceUri, context, false);
    }
}

void CXmlCollection::AppendItem(CXmlObjectBase* item) {
    InsertAhead(nullptr, item);
}
void CXmlCollection::PrependItem(CXmlObjectBase* item) {
    InsertAhead(m_list.m_head, item);
}

void CXmlCollection::AddAfterItem(CXmlObjectBase const* after, CXmlObjectBase* item) {
    if (after == nullptr) return PrependItem(item);
    InsertAhead(GetNodeForItem(after)->m_next, item);
}

void CXmlCollection::AddBeforeItem(CXmlObjectBase const* before, CXmlObjectBase* item) {
    if (before == nullptr) return AppendItem(item);
    InsertAhead(GetNodeForItem(before), item);
}

void CXmlCollection::AddItemAt(int index, CXmlObjectBase* item) {
    ThrowIfInsertionIndexOutOfRange(index, m_list.m_count);
    InsertAhead(index == m_list.m_count ? nullptr : NodeAt(index), item);
}

void CXmlCollection::RemoveNode(CNode* node) {
    (node->m_prev == nullptr ? m_list.m_head : node->m_prev->m_next) = node->m_next;
    (node->m_next == nullptr ? m_list.m_tail : node->m_next->m_prev) = node->m_prev;
    --m_list.m_count;
    FreeNode(node);
}

CNode* CXmlCollection::GetNodeAtIndex(int index) {
    ThrowIfIndexOutOfRange(index, GetCount());
    ThrowIfIndexOutOfRange(index, m_list.m_count);  // a derived class may count otherwise
    return NodeAt(index);
}

CNode* CXmlCollection::GetNodeForItem(CXmlObjectBase const* item) {
    for (CNode* node = m_list.m_head; node != nullptr && item != nullptr; node = node->m_next) {
        if (node->m_item && node->m_item->GetBase() == item->GetBase()) return node;
    }
    throw CBxInvalidParamException(u"The object was not found in the collection");
}

void CXmlCollection::InsertAhead(CNode* next, CXmlObjectBase* item) {
    m_list.LinkAhead(next, item);
    FireOnCollectionChange();
}

CNode* CXmlCollection::NodeAt(int index) const {
    CNode* node = m_list.m_head;
    for (; index > 0; --index) node = node->m_next;
    return node;
}

}  // namespace BxXmlLib5
