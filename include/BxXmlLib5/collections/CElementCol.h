// The elements of untyped content.
#pragma once

#include <string_view>

#include "BxXmlLib5/collections/CBxIterator.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/collections/CXmlCollection.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"

namespace BxXmlLib5Data {
class CElementInfo;
}

namespace BxXmlLib5 {

template <class>
class CReadItem;
struct CWildcard;

/// Untyped elements of any namespace: the restriction given to the constructor only decides on the default
/// namespace. Each Add tells the listeners twice. A null text is the empty text.
class BXXMLLIB5_API CElementCol : public CXmlCollection, public CInstanceMonitor {
public:
    /// @param ns the namespace of elements that are added without one. If it is empty, and the first token of
    ///        the restriction is a concrete namespace, that is taken.
    /// @param minOccurs,maxOccurs the bounds of the count
    /// @throws CBxInvalidNamespaceException if the restriction does not allow ns
    CElementCol(char16_t const* ns, char16_t const* namespaceRestriction, char16_t const* targetNamespace,
                int minOccurs, int maxOccurs);
    /// @{
    /// Shares the elements, as CXmlCollection does, and takes namespace, restriction and bounds along.
    CElementCol(CElementCol const& other);
    CElementCol& operator=(CElementCol const& other);
    /// @}
    ~CElementCol() override;

    /// The target namespace that the collection was made with.
    wstring GetNamespace() const override;

    /// Appends a new element.
    CSmartPtr<CElement> Add(char16_t const* name, char16_t const* ns);
    /// Appends a new element in the default namespace.
    /// @throws CBxInvalidStateException if there is none
    CSmartPtr<CElement> Add(char16_t const* name);
    /// Appends an element.
    CSmartPtr<CElement> Add(CElement* element);

    /// @{
    /// Inserts an element beside another, at the front and at the end if that is null.
    /// @throws CBxInvalidParamException if the other one is not in the collection
    void AddAfter(CElement const* after, CElement* element);
    void AddBefore(CElement const* before, CElement* element);
    /// @}

    /// The element at a position. This walks; use the iterators to go through all of them.
    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    CSmartPtr<CElement> Item(int index);

    /// @{
    /// Walk the elements in order, as pointers.
    CBxIterator<CElement> begin() { return CBxIterator<CElement>(FirstNode()); }
    CBxIterator<CElement> end() { return CBxIterator<CElement>(nullptr); }
    CBxIterator<CElement const> begin() const { return CBxIterator<CElement const>(FirstNode()); }
    CBxIterator<CElement const> end() const { return CBxIterator<CElement const>(nullptr); }
    /// @}

protected:
    wstring GetTargetNamespace() const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlObjectBase::FromXml_Int;
    using CXmlObjectBase::ToXml_Int;

    /// Reads the run of siblings with this name and namespace, for an element that a schema names without
    /// typing it.
    virtual CXmlElement* FromXmlLockElementName_Int(wstring name, wstring ns, CXmlElement* element,
                                                    CXmlElement* firstChild,
                                                    CXmlSerializationContext const& context);

private:
    template <class>
    friend class CReadCol;
    friend class BxXmlLib5Data::CElementInfo;
    friend class CContentReader;
    friend class CElement;

    CElementCol(CSmartPtr<CWildcard const> wildcard, int minOccurs, int maxOccurs);

    CSmartPtr<CElement> AddNew(std::u16string_view name, std::u16string_view ns);
    void Append(CElement* element);
    void AppendRead(CReadItem<CElement>& element);
    void TellTwice();
    CElement const* LastElement() const;

    template <class Accepts>
    CXmlElement* ReadWhile(Accepts accepts, CXmlElement* firstChild);

    CSmartPtr<CWildcard const> m_wildcard;
};

}  // namespace BxXmlLib5
