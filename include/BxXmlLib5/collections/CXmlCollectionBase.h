// What all collections have in common: bounds, and listeners.
#pragma once

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/core/CSharedText.h"
#include "BxXmlLib5/core/CSmartPtr.h"

namespace BxXmlLib5 {

/// A repeated element: its name and namespace, how many there may be, and who is told of changes.
///
/// The bounds are not enforced while items come and go, only by ValidateCount(), on writing and after
/// reading. A copy takes the listeners along.
class BXXMLLIB5_API CXmlCollectionBase : public CXmlObjectBase {
public:
    CXmlObjectBase* GetBase() override;
    using CXmlObjectBase::GetBase;

protected:
    ~CXmlCollectionBase() override;
    /// @throws CBxException always: a collection is no root
    wstring GetTargetNamespace() const override;

public:
    /// The namespace of the elements.
    wstring GetNamespace() const override;

protected:
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override = 0;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override = 0;

public:
    /// The number of items.
    virtual int GetCount() const = 0;
    /// Removes all items.
    virtual void Clear() = 0;
    /// Removes the item at a position.
    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    virtual void Remove(int index) = 0;

    /// Tests the number of items, the maximum first, unless the context ignores it.
    /// @throws CBxValidationException if a bound is broken
    virtual void ValidateCount(CXmlSerializationContext const& context) const;

    /// @{
    /// Takes name, namespace, bounds and listeners.
    CXmlCollectionBase(CXmlCollectionBase const& other);
    CXmlCollectionBase& operator=(CXmlCollectionBase const& other);
    /// @}

    /// The least number of items, 0 for no minimum.
    int GetMinOccurs() const { return m_minOccurs; }
    /// The greatest number of items, -1 for no maximum.
    int GetMaxOccurs() const { return m_maxOccurs; }

    /// The listener hears of each change through OnEvent, once for each time it was added. It is not owned
    /// and must be removed before it dies. Listeners may come and go during OnEvent: one that is removed
    /// hears no more, one that is added hears the next change. One may even drop the last reference on the
    /// collection.
    void AddEventListener(CXmlObjectBase* listener);
    /// Removes every entry of the listener.
    void RemoveEventListener(CXmlObjectBase* listener);

protected:
    /// Without name, namespace and bounds.
    CXmlCollectionBase();
    /// @param elementName,ns of each element
    /// @param minOccurs 0 for no minimum
    /// @param maxOccurs -1 for no maximum
    CXmlCollectionBase(char16_t const* elementName, char16_t const* ns, int minOccurs, int maxOccurs);

    /// Tells all listeners, in the order of their addition.
    void FireOnCollectionChange();

    CSharedText m_namespace;  ///< of the elements

private:
    friend class CXmlCollection;
    struct Listeners;

    bool IsListenedTo() const { return m_listeners; }

    CSmartPtr<Listeners> m_listeners;  // null as long as there was none
    int m_minOccurs = 0;
    int m_maxOccurs = -1;
};

}  // namespace BxXmlLib5
