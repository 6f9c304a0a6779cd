// A list of counted objects.
#pragma once

#include "BxXmlLib5/collections/CNode.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"

namespace BxXmlLib5 {

/// A doubly linked list that holds one reference on each item. Derived classes offer a typed Add, AddAt and
/// Item and hand the objects on to the protected operations. An object may stand in the list more than once,
/// and an item may be null: walks skip it.
///
/// Insertions and removals tell the listeners once for each item, after the list has its new state; so does
/// the destructor. At the ends they take constant time; positions are found by walking. Items die without
/// recursion on the stack, however deep the tree below them is. What fails takes no reference and drops none:
/// an item that was refused is as it was.
///
/// A copy has a list of its own that shares the items; copying tells nobody.
class BXXMLLIB5_API CXmlCollection : public CXmlCollectionBase {
public:
    /// @{
    /// A list of its own with the same items, the same bounds and listeners.
    CXmlCollection(CXmlCollection const&) = default;
    CXmlCollection& operator=(CXmlCollection const& other);
    /// @}

    /// The number of nodes, those without an item included.
    int GetCount() const override;
    /// Removes all items.
    void Clear() override;
    /// Removes the item at a position, which is found by walking.
    void Remove(int index) override;

protected:
    /// A collection without name, namespace and bounds.
    CXmlCollection();
    /// The arguments are those of CXmlCollectionBase.
    CXmlCollection(char16_t const* elementName, char16_t const* ns, int minOccurs, int maxOccurs);
    ~CXmlCollection() override;

    /// Forwards to each item.
    void AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const& context) const override;
    using CXmlObjectBase::AttributesToXml_Int;

    /// Writes each item, in order.
    void ItemsToXml(CXmlWriter* writer, char16_t const* namespaceUri,
                    CXmlSerializationContext const& context) const;
    using CXmlObjectBase::ToXml_Int;

    /// Adds an item at the end.
    void AppendItem(CXmlObjectBase* item);
    /// Adds an item at the front.
    void PrependItem(CXmlObjectBase* item);

    /// Inserts behind the first occurrence of an object, as the first item if that is null.
    /// @throws CBxInvalidParamException if the object is not in the list
    void AddAfterItem(CXmlObjectBase const* after, CXmlObjectBase* item);

    /// Inserts ahead of the first occurrence of an object, as the last item if that is null.
    /// @throws CBxInvalidParamException if the object is not in the list
    void AddBeforeItem(CXmlObjectBase const* before, CXmlObjectBase* item);

    /// Inserts so that the item has this position.
    /// @param index 0 to GetCount()
    /// @throws CBxInvalidParamException for any other index
    void AddItemAt(int index, CXmlObjectBase* item);

    /// Takes a node out of the list and frees it; tells nobody.
    void RemoveNode(CNode* node);

    /// The node at a position.
    /// @throws CBxInvalidParamException unless index is 0 to GetCount() - 1
    CNode* GetNodeAtIndex(int index);

    /// The first node that holds the object.
    /// @throws CBxInvalidParamException if there is none
    CNode* GetNodeForItem(CXmlObjectBase const* item);

    /// Null if the list is empty.
    CNode* FirstNode() const { return m_list.m_head; }

private:
    friend class CAttributeCol;
    friend class CContentReader;
    friend class CElementCol;

    struct List {
        List() = default;
        List(List const& other);
        List& operator=(List const&) = delete;
        ~List();

        /// @param next null for the end of the list
        void LinkAhead(CNode* next, CXmlObjectBase* item);
        /// Takes a node that holds its item.
        void LinkAhead(CNode* next, CNode* node) noexcept;
        void Swap(List& other) noexcept;

        CNode* m_head = nullptr;
        CNode* m_tail = nullptr;
        int m_count = 0;
    };

    void InsertAhead(CNode* next, CXmlObjectBase* item);
    CNode* NodeAt(int index) const;

    List m_list;
};

}  // namespace BxXmlLib5
