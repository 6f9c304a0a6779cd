#include "BxXmlLib5/collections/CElement.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "binding/CContextDocument.h"
#include "binding/NamespaceRules.h"
#include "collections/CContentReader.h"
#include "collections/ReadItems.h"
#include "collections/Wildcards.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"
#include "core/NeverDestroyed.h"
#include "document/ReadPlace.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CElement::CElement(char16_t const* name) : CInstanceMonitor(u"CElement") {
    Init(name, u"", u"##any", u"");
}

CElement::CElement(char16_t const* name, char16_t const* ns) : CInstanceMonitor(u"CElement") {
    constexpr std::u16string_view kWildcards[] = {u"##any", u"##other", u"##local", u"##targetNamespace"};
    if (std::find(std::begin(kWildcards), std::end(kWildcards), TextOf(ns)) != std::end(kWildcards)) {
        throw CBxInvalidNamespaceException(FormatString(u"Invalid Namespace [%s]", ns));
    }
    Init(name, ns, ns, u"");
}

CElement::CElement(char16_t const* name, char16_t const* ns, char16_t const* namespaceRestriction,
                   char16_t const* targetNamespace)
    : CInstanceMonitor(u"CElement") {
    Init(name, ns, namespaceRestriction, targetNamespace);
}

CElement::CElement(CXmlObjectBase* object) : CInstanceMonitor(u"CElement") {
    Init(u"", u"", u"##any", u"");
    CXmlSerializationContext const context;
    CBinaryData const data = object->ToXmlStream(false, false, enc_UTF8, eol_LF, context, cmp_None);
    CXmlDocument document(context.GetSchemaType());
    document.LoadXmlStream(data.GetData(), data.GetLength());
    CopyXmlElement(document.GetDocumentElement());
}

CElement::CElement(CSharedText name, CSharedText ns, CSmartPtr<CWildcard const> wildcard)
    : CInstanceMonitor(u"CElement"),
      m_name(std::move(name)),
      m_namespace(std::move(ns)),
      m_wildcard(std::move(wildcard)) {}

CElement::CElement(CElement const& other)
    : CXmlObjectBase(other),
      CInstanceMonitor(other),
      m_name(other.m_name),
      m_text(other.m_text),
      m_namespace(other.m_namespace),
      m_wildcard(other.m_wildcard),
      m_attributes(other.Attributes()),
      m_childElements(other.ChildElements()) {}

CElement& CElement::operator=(CElement const& other) {
    // The other element may hang on this one's children, so those go last.
    CSmartPtr<CElementCol> const oldChildElements = m_childElements.Get();
    CXmlObjectBase::operator=(other);
    m_attributes.Set(&other.Attributes());
    m_childElements.Set(&other.ChildElements());
    m_name = other.m_name;
    m_text = other.m_text;
    m_namespace = other.m_namespace;
    m_wildcard = other.m_wildcard;
    return *this;
}

CElement::~CElement() = default;

void CElement::Init(char16_t const* name, char16_t const* ns, char16_t const* namespaceRestriction,
                    char16_t const* targetNamespace) {
    ThrowIfNoName(name);
    if (namespaceRestriction == nullptr)
        throw CBxInvalidNamespaceException(u"Namespace Restriction must have a value");
    if (targetNamespace == nullptr) throw CBxInvalidNamespaceException(u"Target Namespace must have a value");
    BxXmlLib5::TestNamespace(TextOf(ns), namespaceRestriction, targetNamespace);
    m_name.Set(name);
    m_namespace.Set(TextOf(ns));
    m_wildcard = MakeWildcard(m_namespace, namespaceRestriction, targetNamespace);
    m_childElements.Set(nullptr);
    m_attributes.Set(nullptr);
}

void CElement::ThrowIfNoName(char16_t const* name) {
    if (name == nullptr) throw CBxInvalidNamespaceException(u"Element Name must have a value");
}

void CElement::ShareTexts(CElement const& sibling) {
    auto const share = [](CSharedText& text, CSharedText const& other) {
        if (text == other) text = other;
    };
    share(m_name, sibling.m_name);
    share(m_namespace, sibling.m_namespace);
    if (m_wildcard->Equals(*sibling.m_wildcard)) m_wildcard = sibling.m_wildcard;
}

CAttributeCol& CElement::Attributes() const {
    return m_attributes.GetOrMake([this] { return new CAttributeCol(m_wildcard->OfContent()); });
}

CElementCol& CElement::ChildElements() const {
    return m_childElements.GetOrMake([this] { return new CElementCol(m_wildcard->OfContent(), 0, -1); });
}

CXmlObjectBase* CElement::GetBase() {
    return this;
}
wstring CElement::GetNamespace() const {
    return m_namespace.Get();
}
wstring CElement::GetTargetNamespace() const {
    return m_namespace.Get();
}

void CElement::SetName(char16_t const* name) {
    m_name.Set(TextOf(name));
}
void CElement::SetText(char16_t const* text) {
    m_text = TextOf(text);
}
void CElement::SetNamespace(char16_t const* ns) {
    m_namespace.Set(TextOf(ns));
}

CSmartPtr<CAttributeCol> CElement::GetAttributes() {
    return &Attributes();
}
CSmartPtr<CElementCol> CElement::GetChildElements() {
    return &ChildElements();
}

CAttributeCol const* CElement::GetAttributes() const {
    static NeverDestroyed<CAttributeCol> const s_none(u"", u"##any", u"");
    CAttributeCol const* const attributes = m_attributes.Get();
    return attributes == nullptr ? &*s_none : attributes;
}
CElementCol const* CElement::GetChildElements() const {
    static NeverDestroyed<CElementCol> const s_none(u"", u"##any", u"", 0, -1);
    CElementCol const* const childElements = m_childElements.Get();
    return childElements == nullptr ? &*s_none : childElements;
}

void CElement::SetNamespaceRestrictions(char16_t const* namespaceRestriction,
                                        char16_t const* targetNamespace) {
    TestRestrictions(TextOf(namespaceRestriction), TextOf(targetNamespace), 1);
}

void CElement::TestRestrictions(std::u16string_view namespaceRestriction, std::u16string_view targetNamespace,
                                int depth) const {
    CNestingLevel const level;
    if (depth > kMaxElementDepth) ThrowNestedTooDeeply();
    auto const test = [&](CSharedText const& ns) {
        BxXmlLib5::TestNamespace(ns, namespaceRestriction, targetNamespace);
    };
    try {
        test(m_namespace);
    } catch (CBxException const& failure) {
        throw CBxInvalidNamespaceException(
            FormatString(u"The namespace %s in the class %s is invalid against restriction %s",
                         m_namespace.c_str(), m_name.c_str(), wstring(namespaceRestriction).c_str()),
            failure);
    }
    for (CAttribute const* const attribute : *GetAttributes()) {
        if (attribute != nullptr) test(attribute->m_namespace);
    }
    for (CElement const* const child : *GetChildElements()) {
        if (child != nullptr) child->TestRestrictions(namespaceRestriction, targetNamespace, depth + 1);
    }
}

void CElement::CopyXmlElement(CXmlElement* source) {
    m_name.Set(source->GetLocalName());
    m_namespace.Set(source->GetNamespaceURI());
    m_text = source->GetTextView();
    if (m_attributes.Get() != nullptr) m_attributes.Get()->Clear();
    if (m_childElements.Get() != nullptr) m_childElements.Get()->Clear();
    for (CXmlAttribute const& attribute : source->GetAttributeView()) {
        Attributes().Add(attribute);
    }
    CContentReader reader;
    for (CXmlElement* child = source->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement()) {
        ChildElements().AppendRead(*reader.Read(*child));
    }
}

void CElement::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                         CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    CNestingLevel const level;
    writer->WriteStartElement(m_name, m_namespace);
    if (CAttributeCol const* const attributes = m_attributes.Get()) {
        CXmlObjectBase::ToXml_Int(attributes, writer, false, namespaceUri, context, false);
    }
    if (CElementCol const* const childElements = m_childElements.Get()) {
        CXmlObjectBase::ToXml_Int(childElements, writer, false, namespaceUri, context, allowEmptyChoice);
    }
    writer->WriteText(m_text);
    writer->WriteEndElement();
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* firstChild,
                                   CXmlSerializationContext const& context, bool) {
    if (firstChild == nullptr ||
        !BxXmlLib5::IsNamespaceValid(firstChild->GetNamespaceURI(), m_wildcard->m_namespaceRestriction,
                                     m_wildcard->m_targetNamespace)) {
        return firstChild;
    }
    // Held, since a listener may assign to this element meanwhile.
    if (!firstChild->GetAttributeView().empty()) {
        CSmartPtr<CAttributeCol> const attributes = &Attributes();
        attributes->FromXml_Int(firstChild, nullptr, context, false);
    }
    if (CXmlElement* const grandchild = firstChild->GetFirstElement()) {
        CSmartPtr<CElementCol> const children = &ChildElements();
        if (children->FromXml_Int(firstChild, grandchild, context, false) != nullptr) {
            throw FailureAt(firstChild, CBxValidationException(FormatString(
                                            u"Invalid Element [%s] found in element [%s]",
                                            firstChild->GetLocalName().c_str(), m_name.c_str())));
        }
    }
    m_text = firstChild->GetTextView();
    m_name.Set(firstChild->GetLocalName());
    m_namespace.Set(firstChild->GetNamespaceURI());
    return firstChild->GetNextSiblingElement();
}

void CElement::FromXml(char16_t const* text) {
    CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext();
    CContextDocument document(context, st_Default);
    document.LoadXml(text);
    CXmlElement* const root = document.GetDocumentElement();
    ReadTree(*root, [&] { FromXml_Int(root, root, context, false); });
}

void CElement::FireOnChangeName(char16_t const*) {}
void CElement::FireOnChangeNamespace(char16_t const*) {}
void CElement::FireOnChangeText(char16_t const*) {}

// Here, because it begins by writing a CElement.
void CXmlObjectBase::FromXmlElement(CElement const* element, CXmlSerializationContext& context) {
    FromXml(element->ToXml(false, false, eol_LF, CXmlSerializationContext::GetDefaultContext()).c_str(),
            context);
}

}  // namespace BxXmlLib5
