// Untyped content as a whole document, and what it has by name.

#include <utility>

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "binding/CContextDocument.h"
#include "collections/CContentReader.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

/// @param load loads the document
template <class Load>
CSmartPtr<CElement> Loaded(CXmlSerializationContext const& context, Load load) {
    CContextDocument document(context);
    document.SetRequireWholeDocument(true);
    load(document);
    CSmartPtr<CReadItem<CElement>> const root =
        CContentReader(CSharedText()).Read(*document.GetDocumentElement());
    return &*root;
}

CXmlSerializationContext WithCheck() {
    CXmlSerializationContext context;
    context.SetCheckWellFormed(true);
    return context;
}

}  // namespace

CSmartPtr<CElement> CElement::Load(char16_t const* path, CXmlSerializationContext const& context) {
    return Loaded(context, [path](CXmlDocument& document) { document.Load(path); });
}

CSmartPtr<CElement> CElement::Load(std::string_view path, CXmlSerializationContext const& context) {
    return Loaded(context, [path](CXmlDocument& document) { document.Load(path); });
}

CSmartPtr<CElement> CElement::LoadXml(char16_t const* text, CXmlSerializationContext const& context) {
    return Loaded(context, [text](CXmlDocument& document) { document.LoadXml(text); });
}

CSmartPtr<CElement> CElement::LoadXml(std::string_view document, CXmlSerializationContext const& context) {
    return LoadXmlStream(reinterpret_cast<unsigned char const*>(document.data()), document.size(), context);
}

CSmartPtr<CElement> CElement::LoadXmlStream(CBinaryData const& data,
                                            CXmlSerializationContext const& context) {
    return LoadXmlStream(data.GetData(), data.GetLength(), context);
}

CSmartPtr<CElement> CElement::LoadXmlStream(unsigned char const* data, std::size_t size,
                                            CXmlSerializationContext const& context) {
    return Loaded(context, [=](CXmlDocument& document) { document.LoadXmlStream(data, size); });
}

void CElement::Save(std::string_view path, Layout layout, CXmlSerializationContext const& context) const {
    ToXmlStream(true, layout == Layout::Indented, enc_UTF8, eol_LF, context, cmp_None).SaveTo(path);
}

void CElement::Save(std::string_view path, Layout layout) const {
    Save(path, layout, WithCheck());
}

void CElement::Save(char16_t const* path, Layout layout, CXmlSerializationContext const& context) const {
    Save(ToUtf8(TextOf(path)), layout, context);
}

void CElement::Save(char16_t const* path, Layout layout) const {
    Save(path, layout, WithCheck());
}

bool CElement::HasName(std::u16string_view name, std::u16string_view ns) const {
    return m_name.Is(name) && m_namespace.Is(ns);
}

template <class T>
CNamedElements<T> CElement::Named(std::u16string_view name, std::u16string_view ns) const {
    CElementCol* const children = m_childElements.Get();
    return {children, children == nullptr ? nullptr : children->FirstNode(), name, ns};
}

CNamedElements<CElement> CElement::Children(char16_t const* name) {
    return Named<CElement>(TextOf(name), m_namespace);
}
CNamedElements<CElement const> CElement::Children(char16_t const* name) const {
    return Named<CElement const>(TextOf(name), m_namespace);
}
CNamedElements<CElement> CElement::Children(char16_t const* name, char16_t const* ns) {
    return Named<CElement>(TextOf(name), TextOf(ns));
}
CNamedElements<CElement const> CElement::Children(char16_t const* name, char16_t const* ns) const {
    return Named<CElement const>(TextOf(name), TextOf(ns));
}

CElement const* CElement::FindNamed(std::u16string_view name, std::u16string_view ns) const {
    for (CElement const* const child : *GetChildElements()) {
        if (child != nullptr && child->HasName(name, ns)) return child;
    }
    return nullptr;
}

CElement* CElement::Find(char16_t const* name) {
    return const_cast<CElement*>(FindNamed(TextOf(name), m_namespace));
}
CElement const* CElement::Find(char16_t const* name) const {
    return FindNamed(TextOf(name), m_namespace);
}
CElement* CElement::Find(char16_t const* name, char16_t const* ns) {
    return const_cast<CElement*>(FindNamed(TextOf(name), TextOf(ns)));
}
CElement const* CElement::Find(char16_t const* name, char16_t const* ns) const {
    return FindNamed(TextOf(name), TextOf(ns));
}

CAttribute const* CElement::FindAttribute(char16_t const* name, char16_t const* ns) const {
    for (CAttribute const* const attribute : *GetAttributes()) {
        if (attribute != nullptr && attribute->m_name.Is(TextOf(name)) &&
            attribute->m_namespace.Is(TextOf(ns)))
            return attribute;
    }
    return nullptr;
}
CAttribute* CElement::FindAttribute(char16_t const* name, char16_t const* ns) {
    return const_cast<CAttribute*>(std::as_const(*this).FindAttribute(name, ns));
}

wstring CElement::GetAttribute(char16_t const* name, char16_t const* missing, char16_t const* ns) const {
    CAttribute const* const attribute = FindAttribute(name, ns);
    return attribute == nullptr ? wstring(TextOf(missing)) : attribute->m_value;
}

}  // namespace BxXmlLib5
