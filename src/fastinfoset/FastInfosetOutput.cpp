// The entry points of CXmlObjectBase that write Fast Infoset.

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "fastinfoset/CFastInfosetWriter.h"
#include "writers/ObjectOutput.h"

namespace BxXmlLib5 {

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration,
                                                CXmlSerializationContext const& context,
                                                CompressionType compression) const {
    CFastInfosetWriter writer;
    writer.WriteStartDocument(declaration);
    ToXml_Int(&writer, true, GetTargetNamespace().c_str(), context, false);
    writer.WriteEndDocument();
    return writer.TakeBinaryData().CompressData(compression);
}

void CXmlObjectBase::ToFastInfosetFile(char16_t const* fileName, FInfoDecl declaration,
                                       CXmlSerializationContext const& context,
                                       CompressionType compression) const {
    ThrowIfNotForFiles(compression);
    ToFastInfosetStream(declaration, context, compression).ToFile(fileName, enc_Unspecified);
}

}  // namespace BxXmlLib5
