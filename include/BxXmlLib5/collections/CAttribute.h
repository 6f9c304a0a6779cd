// An attribute of untyped content.
#pragma once

#include <string_view>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/CSharedText.h"

namespace BxXmlLib5 {

/// One attribute: name, value, namespace. Made by CAttributeCol::Add. The setters test nothing; a null text
/// is the empty text.
class BXXMLLIB5_API CAttribute : public CXmlObjectBase, public CInstanceMonitor {
public:
    /// @{
    /// Copies name, value and namespace.
    CAttribute(CAttribute const&) = default;
    CAttribute& operator=(CAttribute const&) = default;
    /// @}
    ~CAttribute() override;

    CXmlObjectBase* GetBase() override;
    using CXmlObjectBase::GetBase;
    /// The namespace; empty for none.
    wstring GetNamespace() const override;

    /// The local name.
    wstring GetName() const { return m_name.Get(); }
    /// Sets the local name.
    void SetName(char16_t const* name);
    /// The value, without markup.
    wstring GetValue() const { return m_value; }
    /// Sets the value.
    void SetValue(char16_t const* value);
    /// Sets the namespace; empty for none. The restriction of the collection is not looked at.
    void SetNamespace(char16_t const* ns);

protected:
    /// The arguments are those of CAttributeCol::Add.
    CAttribute(char16_t const* name, char16_t const* value, char16_t const* ns);

    wstring GetTargetNamespace() const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    /// @throws CBxException always: the collection reads its attributes
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;

    /// @{
    /// Do nothing: an attribute has no listeners.
    void FireOnChangeName(char16_t const* name);
    void FireOnChangeNamespace(char16_t const* ns);
    /// @}

private:
    template <class>
    friend class CReadItem;
    friend class CAttributeCol;
    friend class CElement;

    CAttribute(CSharedText name, std::u16string_view value, CSharedText ns);

    CSharedText m_name;
    wstring m_value;
    CSharedText m_namespace;
};

}  // namespace BxXmlLib5
