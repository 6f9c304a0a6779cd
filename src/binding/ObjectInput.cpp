// The entry points of CXmlObjectBase that read a document.

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "binding/CContextDocument.h"
#include "binding/IgnoredContent.h"
#include "document/ReadPlace.h"

namespace BxXmlLib5 {

void CXmlObjectBase::FromXml(char const* text, CXmlSerializationContext const& context) {
    CContextDocument document(context);
    document.LoadXml(text);
    FromDocument(document, context);
}

void CXmlObjectBase::FromXml(char16_t const* text, CXmlSerializationContext const& context) {
    CContextDocument document(context);
    document.LoadXml(text);
    FromDocument(document, context);
}

void CXmlObjectBase::FromXmlFile(char16_t const* fileName, CXmlSerializationContext const& context) {
    CContextDocument document(context);
    document.Load(fileName);
    FromDocument(document, context);
}

void CXmlObjectBase::FromXmlFile(std::string_view fileName, CXmlSerializationContext const& context) {
    CContextDocument document(context);
    document.Load(fileName);
    FromDocument(document, context);
}

void CXmlObjectBase::FromXmlStream(unsigned char const* data, std::size_t size,
                                   CXmlSerializationContext const& context) {
    CContextDocument document(context);
    document.LoadXmlStream(data, size);
    FromDocument(document, context);
}

void CXmlObjectBase::FromXmlStream(CBinaryData const& data, CXmlSerializationContext const& context) {
    FromXmlStream(data.GetData(), data.GetLength(), context);
}

void CXmlObjectBase::FromXmlElement(CXmlElement const* element, CXmlSerializationContext& context) {
    ReadTree(*element, [&] {
        FromXml_Int(const_cast<CXmlElement*>(element), element->GetFirstElement(), context, false);
    });
}

void CXmlObjectBase::FromDocument(CXmlDocument const& document, CXmlSerializationContext const& context) {
    CXmlElement* const root = document.GetDocumentElement();
    ReadTree(*root, [&] {
        if (context.GetFailOnIgnoredContent()) {
            auto const* const generated = dynamic_cast<CXmlGeneratedClass const*>(this);
            generated != nullptr ? generated->TestRoot(*root, context)
                                 : TestRootOfChildren(*this, *root, context);
        }
        TestRest(FromXml_Int(root, root->GetFirstElement(), context, false), *root, context);
    });
}

}  // namespace BxXmlLib5
