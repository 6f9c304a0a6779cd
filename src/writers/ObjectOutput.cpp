// The entry points of CXmlObjectBase that write a document.

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "writers/CXmlTextWriter.h"

namespace BxXmlLib5 {

wstring CXmlObjectBase::ToXml(bool includeDeclaration, bool formatted, EOLType eol,
                              CXmlSerializationContext const& context) const {
    CXmlTextWriter writer;
    writer.SetFormatting(formatted);
    writer.SetEOLType(eol);
    if (includeDeclaration) writer.WriteStartDocument(enc_Unspecified);
    ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    if (includeDeclaration) writer.WriteEndDocument();
    return writer.TakeString();
}

}  // namespace BxXmlLib5
