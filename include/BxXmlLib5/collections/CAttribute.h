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
    CAttribute(CAttribute const&) = default;
    CAttribute& operator=(CAttribute const&) = default;
    ~CAttribute() override;

    CXmlObjectBase* GetBase() override;
    using CXmlObjectBase::GetBase;
    wstring GetNamespace() const override;

    wstring GetName() const { return m_name.Get(); }
    void SetName(char16_t const* name);
    wstring GetValue() const { return m_value; }
    void SetValue(char16_t const* value);
    void SetNamespace(char16_t const* ns);

protected:
    CAttribute(char16_t const* name, char16_t const* value, char16_t const* ns);

    wstring GetTargetNamespace() const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    /// @throws CBxException always: the collection reads its attributes
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;

    void FireOnChangeName(char16_t const* name);
    void FireOnChangeNamespace(char16_t const* ns);

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
