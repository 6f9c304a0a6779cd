// An element of untyped content.
#pragma once

#include <cstddef>
#include <string_view>

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CNamedElements.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/CMadeOnce.h"
#include "BxXmlLib5/core/CSharedText.h"
#include "BxXmlLib5/core/CSmartPtr.h"

namespace BxXmlLib5 {

class CAttribute;
class CAttributeCol;
class CElementCol;
struct CWildcard;

/// One element that no generated class describes: name, namespace, text, attributes, children. It holds any
/// document, which Load() and LoadXml() read and Save() writes; its text stands behind its children.
///
/// The namespace restriction of a schema wildcard applies to the element alone: its attributes and children
/// may be in any namespace. A copy shares the attributes and the children with its source, and several threads
/// may copy one element that none of them changes. Elements that were read together lie in blocks of memory, up
/// to 64 KiB, and a block goes with the last of them; in a document of more than a megabyte of elements, once no
/// more than four are left of its two megabytes. A null text is the empty text, except where a constructor refuses
/// it.
///
/// Of whole documents, the element is the root, unlike for what FromXmlFile(), FromXmlStream() and the like
/// read. A new one is made by each Load, of all that is below it, and a document that breaks off is refused.
///
///     CSmartPtr<CElement> const feed = CElement::Load("feed.xml");
///     for (CElement* entry : feed->Children(u"entry")) Use(entry->Find(u"title"), entry->GetAttribute(u"id"));
///     feed->Save("feed.xml");
class BXXMLLIB5_API CElement : public CXmlObjectBase, public CInstanceMonitor {
public:
    /// An element in no namespace.
    /// @throws CBxInvalidNamespaceException if name is null
    explicit CElement(char16_t const* name);

    /// @param ns a concrete namespace, which is also the restriction
    /// @throws CBxInvalidNamespaceException if name or ns is null or ns is one of `##any`, `##other`, `##local`,
    ///        `##targetNamespace`
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

    /// @{
    /// Copies name, text, namespace and restriction, and shares the two collections: what is added to those
    /// of one is in the other.
    CElement(CElement const& other);
    CElement& operator=(CElement const& other);
    /// @}
    ~CElement() override;

    // Whole documents.

    /// @{
    /// Reads a file: XML text in any encoding that CXmlDocument reads, or Fast Infoset, either as such or
    /// compressed.
    /// @param path as the system has it, which is UTF-8 as a rule, if it is one of octets
    /// @param context its SchemaType, limits and encodings count
    /// @throws CBxException if the file cannot be read, is not well-formed or ends early
    static CSmartPtr<CElement> Load(std::string_view path, CXmlSerializationContext const& context =
                                                               CXmlSerializationContext::GetDefaultContext());
    static CSmartPtr<CElement> Load(char16_t const* path, CXmlSerializationContext const& context =
                                                              CXmlSerializationContext::GetDefaultContext());
    /// @}

    /// @{
    /// Reads a document in memory: octets as from a file, or a zero-terminated UTF-16 text.
    static CSmartPtr<CElement> LoadXml(
        std::string_view document,
        CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext());
    static CSmartPtr<CElement> LoadXml(
        char16_t const* text,
        CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext());
    static CSmartPtr<CElement> LoadXmlStream(
        CBinaryData const& data,
        CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext());
    static CSmartPtr<CElement> LoadXmlStream(
        unsigned char const* data, std::size_t size,
        CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext());
    /// @}

    /// @{
    /// Writes a file of XML text in UTF-8. One of that name is replaced, but only once the new one is whole
    /// (CFileReplacement): whatever fails leaves it as it was. Without a context, what no parser would read is
    /// refused (CXmlSerializationContext::SetCheckWellFormed).
    /// @param path as the system has it, which is UTF-8 as a rule, if it is one of octets
    /// @throws CBxException if the file cannot be written, and what ToXmlStream() throws
    void Save(std::string_view path, Layout layout = Layout::Compact) const;
    void Save(std::string_view path, Layout layout, CXmlSerializationContext const& context) const;
    void Save(char16_t const* path, Layout layout = Layout::Compact) const;
    void Save(char16_t const* path, Layout layout, CXmlSerializationContext const& context) const;
    /// @}

    CXmlObjectBase* GetBase() override;
    using CXmlObjectBase::GetBase;
    /// The namespace; empty for none.
    wstring GetNamespace() const override;

    /// The local name.
    wstring GetName() const { return m_name.Get(); }
    /// Sets the local name, without testing it.
    void SetName(char16_t const* name);
    /// The text beside the children, in one piece.
    wstring GetText() const { return m_text; }
    /// Sets the text, which is written behind the children.
    void SetText(char16_t const* text);
    /// Sets the namespace; empty for none.
    /// Tests nothing.
    void SetNamespace(char16_t const* ns);

    /// @{
    /// The collections themselves, never null.
    CSmartPtr<CAttributeCol> GetAttributes();
    CSmartPtr<CElementCol> GetChildElements();
    /// @}

    /// @{
    /// The same for an element that is not to be changed. Where nobody has asked for the collection itself,
    /// it is an empty one that such elements share.
    CAttributeCol const* GetAttributes() const;
    CElementCol const* GetChildElements() const;
    /// @}

    // What has a name.

    /// @{
    /// The first child of this name, null if there is none; in the namespace of the element itself if none is
    /// told.
    CElement* Find(char16_t const* name);
    CElement const* Find(char16_t const* name) const;
    CElement* Find(char16_t const* name, char16_t const* ns);
    CElement const* Find(char16_t const* name, char16_t const* ns) const;
    /// @}

    /// @{
    /// The children of this name, for a loop; in the namespace of the element itself if none is told. They may be
    /// changed meanwhile, but not taken out.
    CNamedElements<CElement> Children(char16_t const* name);
    CNamedElements<CElement const> Children(char16_t const* name) const;
    CNamedElements<CElement> Children(char16_t const* name, char16_t const* ns);
    CNamedElements<CElement const> Children(char16_t const* name, char16_t const* ns) const;
    /// @}

    /// @{
    /// The attribute of this name, null if there is none.
    CAttribute* FindAttribute(char16_t const* name, char16_t const* ns = u"");
    CAttribute const* FindAttribute(char16_t const* name, char16_t const* ns = u"") const;
    /// @}

    /// The value of an attribute, or another one if it is not there.
    wstring GetAttribute(char16_t const* name, char16_t const* missing = u"", char16_t const* ns = u"") const;

    /// Whether the element has this local name and this namespace.
    bool HasName(std::u16string_view name, std::u16string_view ns) const;

    /// Tests the element, its attributes and all below against a restriction; stores nothing.
    /// @throws CBxInvalidNamespaceException at the first offence
    /// @throws CBxException if elements are nested more than 1,024 levels deep
    void SetNamespaceRestrictions(char16_t const* namespaceRestriction, char16_t const* targetNamespace);

    /// Reads the root of a document into this element, beside the attributes and children that it has. A root
    /// that the restriction does not allow leaves the element as it is. LoadXml() has none of this.
    /// @throws CBxException if the text is empty or no well-formed document
    void FromXml(char16_t const* text);

    /// Note that these, and FromXmlFile() and FromXmlStream(), read the first child of the root, as a member
    /// of an object would be read. For the root itself there are Load(), LoadXml() and LoadXmlStream().
    using CXmlObjectBase::FromXml;

protected:
    /// Takes name, namespace and restriction as the constructor does, and drops the rest.
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

    /// @{
    /// Do nothing: an element has no listeners.
    void FireOnChangeName(char16_t const* name);
    void FireOnChangeNamespace(char16_t const* ns);
    void FireOnChangeText(char16_t const* text);
    /// @}

private:
    template <class>
    friend class CReadItem;
    friend class CContentReader;
    friend class CElementCol;

    CElement(CSharedText name, CSharedText ns, CSmartPtr<CWildcard const> wildcard);

    CAttributeCol& Attributes() const;
    CElementCol& ChildElements() const;
    template <class T>
    CNamedElements<T> Named(std::u16string_view name, std::u16string_view ns) const;
    CElement const* FindNamed(std::u16string_view name, std::u16string_view ns) const;
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
