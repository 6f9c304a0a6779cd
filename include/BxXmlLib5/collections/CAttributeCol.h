// The attributes of untyped content.
#pragma once

#include <string_view>

#include "BxXmlLib5/collections/CAttribute.h"
#include "BxXmlLib5/collections/CBxIterator.h"
#include "BxXmlLib5/collections/CXmlCollection.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"

namespace BxXmlLib5Data {
class CAttributeInfoAny;
}

namespace BxXmlLib5 {

class CBlockMemory;
class CSharedNames;
class CXmlAttribute;
struct CWildcard;

/// Attributes under the namespace restriction of a schema wildcard. A null text is the empty text.
class BXXMLLIB5_API CAttributeCol : public CXmlCollection, public CInstanceMonitor {
public:
    /// @param ns the namespace of attributes that are added without one. If it is empty, and the first token
    ///        of the restriction is a concrete namespace, that is taken.
    /// @param namespaceRestriction as for CXmlObjectBase::IsNamespaceValid
    CAttributeCol(char16_t const* ns, char16_t const* namespaceRestriction, char16_t const* targetNamespace);
    /// @{
    /// Shares the attributes, as CXmlCollection does, and takes namespace and restriction along.
    CAttributeCol(CAttributeCol const& other);
    CAttributeCol& operator=(CAttributeCol const& other);
    /// @}
    ~CAttributeCol() override;

    /// @{
    /// Appends a new attribute. What is refused changes nothing.
    /// @throws CBxInvalidNamespaceException if the restriction does not allow the namespace
    CSmartPtr<CAttribute> Add(char16_t const* name, char16_t const* value, char16_t const* ns);
    CSmartPtr<CAttribute> Add(char16_t const* name, char16_t const* value);
    CSmartPtr<CAttribute> Add(char16_t const* name);
    /// @}

    /// Appends an attribute; its namespace is not tested.
    CSmartPtr<CAttribute> Add(CAttribute* attribute);

    /// @{
    /// Inserts an attribute beside another, at the front and at the end if that is null; its namespace is not
    /// tested.
    /// @throws CBxInvalidParamException if the other one is not in the collection
    void AddAfter(CAttribute const* after, CAttribute* attribute);
    void AddBefore(CAttribute const* before, CAttribute* attribute);
    /// @}

    /// The attribute at a position. This walks; use the iterators to go through all of them.
    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    CSmartPtr<CAttribute> Item(int index);

    /// @{
    /// Walk the attributes in order, as pointers.
    CBxIterator<CAttribute> begin() { return CBxIterator<CAttribute>(FirstNode()); }
    CBxIterator<CAttribute> end() { return CBxIterator<CAttribute>(nullptr); }
    CBxIterator<CAttribute const> begin() const { return CBxIterator<CAttribute const>(FirstNode()); }
    CBxIterator<CAttribute const> end() const { return CBxIterator<CAttribute const>(nullptr); }
    /// @}

protected:
    wstring GetTargetNamespace() const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;

private:
    template <class>
    friend class CReadCol;
    friend class BxXmlLib5Data::CAttributeInfoAny;
    friend class CContentReader;
    friend class CElement;

    explicit CAttributeCol(CSmartPtr<CWildcard const> wildcard);

    /// Appends a copy of an attribute.
    /// @throws CBxInvalidNamespaceException if the restriction does not allow its namespace
    CSmartPtr<CAttribute> Add(CXmlAttribute const& attribute);

    CSmartPtr<CAttribute> AddTested(std::u16string_view name, std::u16string_view value,
                                    std::u16string_view ns);
    CSmartPtr<CAttribute> AddNew(CSharedText name, std::u16string_view value, CSharedText ns);
    void Read(CXmlElement const& element, CSharedNames& names, CBlockMemory& memory);

    CSmartPtr<CWildcard const> m_wildcard;
};

}  // namespace BxXmlLib5
