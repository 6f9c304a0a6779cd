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
#include "binding/NamespaceRules.h"
#include "collections/Wildcards.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"
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

CElement::CElement(std::u16string_view name, CSharedText ns, CSharedText namespaceRestriction,
                   CSharedText targetNamespace)
    : CInstanceMonitor(u"CElement"),
      m_name(name),
      m_namespace(std::move(ns)),
      m_namespaceRestriction(std::move(namespaceRestriction)),
      m_targetNamespace(std::move(targetNamespace)) {}

CElement::CElement(CElement const& other)
    : CXmlObjectBase(other),
      CInstanceMonitor(other),
      m_name(other.m_name),
      m_text(other.m_text),
      m_namespace(other.m_namespace),
      m_namespaceRestriction(other.m_namespaceRestriction),
      m_targetNamespace(other.m_targetNamespace),
      m_attributes(&other.Attributes()),
      m_childElements(&other.ChildElements()) {}

CElement& CElement::operator=(CElement const& other) {
    CXmlObjectBase::operator=(other);
    // The other element may hang on this one's children, so those go last.
    CSmartPtr<CElementCol> const oldChildElements = m_childElements;
    m_attributes = &other.Attributes();
    m_childElements = &other.ChildElements();
    m_name = other.m_name;
    m_text = other.m_text;
    m_namespace = other.m_namespace;
    m_namespaceRestriction = other.m_namespaceRestriction;
    m_targetNamespace = other.m_targetNamespace;
    return *this;
}

CElement::~CElement() = default;

void CElement::Init(char16_t const* name, char16_t const* ns, char16_t const* namespaceRestriction,
                    char16_t const* targetNamespace) {
    if (name == nullptr) throw CBxInvalidNamespaceException(u"Element Name must have a value");
    if (namespaceRestriction == nullptr)
        throw CBxInvalidNamespaceException(u"Namespace Restriction must have a value");
    if (targetNamespace == nullptr) throw CBxInvalidNamespaceException(u"Target Namespace must have a value");
    BxXmlLib5::TestNamespace(TextOf(ns), namespaceRestriction, targetNamespace);
    m_name = name;
    m_namespace.Set(TextOf(ns));
    m_namespaceRestriction.Set(namespaceRestriction);
    m_targetNamespace.Set(targetNamespace);
    m_attributes = nullptr;
    m_childElements = nullptr;
}

CAttributeCol& CElement::Attributes() const {
    if (!m_attributes) m_attributes = new CAttributeCol(m_namespace, AnyNamespace(), m_targetNamespace);
    return *m_attributes;
}

CElementCol& CElement::ChildElements() const {
    if (!m_childElements) m_childElements = new CElementCol(m_namespace, m_targetNamespace, 0, -1);
    return *m_childElements;
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
    m_name = TextOf(name);
}
void CElement::SetText(char16_t const* text) {
    m_text = TextOf(text);
}
void CElement::SetNamespace(char16_t const* ns) {
    ChangeNamespace(TextOf(ns));
}

void CElement::ChangeNamespace(std::u16string_view ns) {
    if (m_namespace.Is(ns)) return;
    // The collections keep the namespace that the element was made with as their default.
    Attributes();
    ChildElements();
    m_namespace.Set(ns);
}

CSmartPtr<CAttributeCol> CElement::GetAttributes() {
    return &Attributes();
}
CSmartPtr<CElementCol> CElement::GetChildElements() {
    return &ChildElements();
}

void CElement::SetNamespaceRestrictions(char16_t const* namespaceRestriction,
                                        char16_t const* targetNamespace) {
    TestRestrictions(namespaceRestriction, targetNamespace, 1);
}

void CElement::TestRestrictions(char16_t const* namespaceRestriction, char16_t const* targetNamespace,
                                int depth) const {
    CNestingLevel const level;
    if (depth > kMaxElementDepth) ThrowNestedTooDeeply();
    try {
        TestNamespace(m_namespace.Get().c_str(), namespaceRestriction, targetNamespace);
    } catch (CBxException const& failure) {
        throw CBxInvalidNamespaceException(
            FormatString(u"The namespace %s in the class %s is invalid against restriction %s",
                         m_namespace.Get().c_str(), m_name.c_str(),
                         wstring(TextOf(namespaceRestriction)).c_str()),
            failure);
    }
    if (m_attributes) {
        for (CAttribute const* const attribute : *m_attributes) {
            if (attribute == nullptr) continue;
            TestNamespace(attribute->GetNamespace().c_str(), namespaceRestriction, targetNamespace);
        }
    }
    if (m_childElements) {
        for (CElement const* const child : *m_childElements) {
            if (child != nullptr) child->TestRestrictions(namespaceRestriction, targetNamespace, depth + 1);
        }
    }
}

void CElement::CopyXmlElement(CXmlElement* source) {
    CNestingLevel const level;
    m_name = source->GetLocalName();
    ChangeNamespace(source->GetNamespaceURI());
    m_text = source->GetTextView();
    if (m_attributes) m_attributes->Clear();
    if (m_childElements) m_childElements->Clear();
    for (CXmlAttribute const* attribute : source->GetAttributes()) {
        Attributes().AddNew(attribute->GetLocalName(), attribute->GetValueView(),
                            attribute->GetNamespaceURI());
    }
    for (CXmlElement* child = source->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement()) {
        CSmartPtr<CElement> const copy = new CElement(child->GetLocalName().c_str());
        copy->CopyXmlElement(child);
        ChildElements().Add(copy);
    }
}

void CElement::ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                         CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    CNestingLevel const level;
    writer->WriteStartElement(m_name, m_namespace.Get());
    if (m_attributes) CXmlObjectBase::ToXml_Int(m_attributes, writer, false, namespaceUri, context, false);
    if (m_childElements) {
        CXmlObjectBase::ToXml_Int(m_childElements, writer, false, namespaceUri, context, allowEmptyChoice);
    }
    writer->WriteText(m_text);
    writer->WriteEndElement();
}

CXmlElement* CElement::FromXml_Int(CXmlElement*, CXmlElement* firstChild,
                                   CXmlSerializationContext const& context, bool) {
    CNestingLevel const level;
    if (firstChild == nullptr ||
        !BxXmlLib5::IsNamespaceValid(firstChild->GetNamespaceURI(), m_namespaceRestriction.Get(),
                                     m_targetNamespace.Get())) {
        return firstChild;
    }
    // Held, since a listener may assign to this element meanwhile.
    if (!firstChild->GetAttributes().empty()) {
        CSmartPtr<CAttributeCol> const attributes = &Attributes();
        attributes->FromXml_Int(firstChild, nullptr, context, false);
    }
    if (CXmlElement* const grandchild = firstChild->GetFirstElement()) {
        CSmartPtr<CElementCol> const children = &ChildElements();
        if (children->FromXml_Int(firstChild, grandchild, context, false) != nullptr) {
            throw CBxValidationException(FormatString(u"Invalid Element [%s] found in element [%s]",
                                                      firstChild->GetLocalName().c_str(), m_name.c_str()));
        }
    }
    m_text = firstChild->GetTextView();
    m_name = firstChild->GetLocalName();
    ChangeNamespace(firstChild->GetNamespaceURI());
    return firstChild->GetNextSiblingElement();
}

void CElement::FromXml(char16_t const* text) {
    CXmlDocument document(st_Default);
    document.LoadXml(text);
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, CXmlSerializationContext::GetDefaultContext(), false);
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
