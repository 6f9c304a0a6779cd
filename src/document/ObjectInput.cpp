// The entry points of CXmlObjectBase that read a document.

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/document/CXmlDocument.h"

namespace BxXmlLib5 {

void CXmlObjectBase::FromXml(char const* text, CXmlSerializationContext const& context) {
    CXmlDocument document(context.GetSchemaType());
    document.LoadXml(text);
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXml(char16_t const* text, CXmlSerializationContext const& context) {
    CXmlDocument document(context.GetSchemaType());
    document.LoadXml(text);
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root->GetFirstElement(), context, false);
}

void CXmlObjectBase::FromXmlElement(CXmlElement const* element, CXmlSerializationContext& context) {
    FromXml_Int(const_cast<CXmlElement*>(element), element->GetFirstElement(), context, false);
}

}  // namespace BxXmlLib5
