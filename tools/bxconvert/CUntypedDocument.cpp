#include "CUntypedDocument.h"

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "NamespaceText.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

/// Empties the text of elements that have children and only whitespace beside them.
/// @param source what the copy was read from; it says where there are no children, so that no leaf is asked
///        for its collection, which would make one
void DropWhitespace(CXmlElement const& source, CElement& copy) {
    CXmlElement const* sourceChild = source.GetFirstElement();
    if (sourceChild == nullptr) return;
    if (IsWhitespace(source.GetTextView())) copy.SetText(u"");
    CSmartPtr<CElementCol> const children = copy.GetChildElements();
    for (CElement* const child : *children) {
        DropWhitespace(*sourceChild, *child);
        sourceChild = sourceChild->GetNextSiblingElement();
    }
}

/// The writer of XML text puts namespace names down as they stand, so they are escaped beforehand.
void EscapeNamespaces(CElement& element) {
    element.SetNamespace(Escaped(element.GetNamespace()).c_str());
    CSmartPtr<CAttributeCol> const attributes = element.GetAttributes();
    for (CAttribute* const attribute : *attributes) {
        attribute->SetNamespace(Escaped(attribute->GetNamespace()).c_str());
    }
    CSmartPtr<CElementCol> const children = element.GetChildElements();
    for (CElement* const child : *children) EscapeNamespaces(*child);
}

}  // namespace

CUntypedDocument::CUntypedDocument(CXmlDocument const& document, Statistics const& statistics,
                                   Options const& options)
    : CElement(u""),
      m_declaresDefaultNamespace(!statistics.m_hasElementWithoutNamespace),
      m_declaresXsi(statistics.m_hasXsiAttribute &&
                    document.LookupNamespaceFromAlias(u"xsi") == kXsiNamespace) {
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, CXmlSerializationContext::GetDefaultContext(), false);
    if (!options.m_keepWhitespace) DropWhitespace(*root, *this);
    if (statistics.m_hasNamespaceToEscape && options.m_form == Form::kXml) EscapeNamespaces(*this);
}

void CUntypedDocument::ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                                 CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    // An element without a namespace is written without a prefix, so a default namespace would take it in.
    if (isRoot && m_declaresDefaultNamespace) writer->SetDefaultNamespace(GetNamespace());
    if (isRoot && m_declaresXsi) writer->AddNamespace(u"xsi", kXsiNamespace);
    CElement::ToXml_Int(writer, isRoot, namespaceUri, context, allowEmptyChoice);
}

}  // namespace BxConvert
