// An element of untyped content.
#pragma once

#include <string_view>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/CMadeOnce.h"
#include "BxXmlLib5/core/CSharedText.h"
#include "BxXmlLib5/core/CSmartPtr.h"

namespace BxXmlLib5 {

class CAttributeCol;
class CElementCol;
struct CWildcard;

/// One element that no generated class describes: name, namespace, text, attributes, children. It reads and
/// writes any document; its text stands behind its children.
///
/// The namespace restriction of a schema wildcard applies to the element alone: its attributes and children
/// may be in any namespace. A copy shares the attributes and the children with its source, and several threads
/// may copy one element that none of them changes. Elements that were read together lie in blocks of memory, up
/// to 64 KiB, and a block goes with the last of them. A null text is the empty text, except where a constructor
/// refuses it.
class BXXMLLIB5_API CElement : public CXmlObjectBase, public CInstanceMonitor {
public:
    /// An element in no namespace.
    /// @throws CBxInvalidNamespaceException if name is null
    explicit CElement(char16_t const* name);

    /// @param ns a concrete namespace, which is also the restriction
    /// @throws CBxInvalidNamespaceException if name or ns is null or ns is one of ##any, ##other, ##local,
    ///        ##targetNamespace
    CElement(char16_t const* name, char16_t const* ns);

    /// @param namespaceRestriction as for CXmlObjectBase::IsNamespaceValid
    /// @throws CBxInvalidNamespaceException if the name, the restriction or the target namespace is null, or
    ///        the restriction does not allow the namespace
    CElement(char16_t const* name, char16_t const* ns, char16_t const* namespaceRestriction,
             char16_t const* targetNamespace);

    /// A tree of an object's XML form, as a context of its own would write it.
    /// @param object not null
    /// @throws CBxException for what ToXmlStream() and CXmlDocument throw
    explicit CElement(CXmlObjectBase* object);

    CElement(CElement const& other);
    CElement& operator=(CElement const& other);
    ~CElement() override;

    CXmlObjectBase* GetBase() override;
    using CXmlObjectBase::GetBase;
    wstring GetNamespace() const override;

    wstring GetName() const { return m_name.Get(); }
    void SetName(char16_t const* name);
    wstring GetText() const { return m_text; }
    void SetText(char16_t const* text);
    /// Tests nothing.
    void SetNamespace(char16_t const* ns);

    /// The collections themselves, never null.
    CSmartPtr<CAttributeCol> GetAttributes();
    CSmartPtr<CElementCol> GetChildElements();

    /// The same for an element that is not to be changed. Where nobody has asked for the collection itself,
    /// it is an empty one that such elements share.
    CAttributeCol const* GetAttributes() const;
    CElementCol const* GetChildElements() const;

    /// Tests the element, its attributes and all below against a restriction; stores nothing.
    /// @throws CBxInvalidNamespaceException at the first offence
    /// @throws CBxException if elements are nested more than 1,024 levels deep
    void SetNamespaceRestrictions(char16_t const* namespaceRestriction, char16_t const* targetNamespace);

    /// Reads the root of a document into this element, beside the attributes and children that it has. A root
    /// that the restriction does not allow leaves the element as it is.
    /// @throws CBxException if the text is empty or no well-formed document
    void FromXml(char16_t const* text);

    /// Note that these read the first child of the root, as a member of an object would be read.
    using CXmlObjectBase::FromXml;

protected:
    void Init(char16_t const* name, char16_t const* ns, char16_t const* namespaceRestriction,
              char16_t const* targetNamespace);

    /// Becomes a copy of an element of a document, with all below it.
    void CopyXmlElement(CXmlElement* source);

    wstring GetTargetNamespace() const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;

    /// Reads firstChild, not element.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlObjectBase::FromXml_Int;
    using CXmlObjectBase::ToXml_Int;

    void FireOnChangeName(char16_t const* name);
    void FireOnChangeNamespace(char16_t const* ns);
    void FireOnChangeText(char16_t const* text);

private:
    template <class>
    friend class CReadItem;
    friend class CContentReader;
    friend class CElementCol;

    CElement(CSharedText name, CSharedText ns, CSmartPtr<CWildcard const> wildcard);

    CAttributeCol& Attributes() const;
    CElementCol& ChildElements() const;
    static void ThrowIfNoName(char16_t const* name);
    void ShareTexts(CElement const& sibling);
    void TestRestrictions(std::u16string_view namespaceRestriction, std::u16string_view targetNamespace,
                          int depth) const;

    CSharedText m_name;
    wstring m_text;
    CSharedText m_namespace;
    CSmartPtr<CWildcard const> m_wildcard;
    CMadeOnce<CAttributeCol> m_attributes;
    CMadeOnce<CElementCol> m_childElements;
};

}  // namespace BxXmlLib5
