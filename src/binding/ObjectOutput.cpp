// The entry points of CXmlObjectBase that write a document.

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "values/ByteOrderMark.h"
#include "writers/CFastInfosetWriter.h"
#include "writers/CPathWriter.h"
#include "writers/CWellFormedWriter.h"
#include "writers/CXmlTextWriter.h"
#include "writers/WrittenPlace.h"

namespace BxXmlLib5 {

namespace {

void ThrowIfNotForFiles(CompressionType compression) {
    if (compression == cmp_ZLib)
        throw CBxException(u"ZLIB Compression only available for To Stream methods.");
}

}  // namespace

wstring CXmlObjectBase::ToXml(bool includeDeclaration, bool formatted, EOLType eol,
                              CXmlSerializationContext const& context) const {
    CXmlTextWriter writer;
    WriteDocument(writer, includeDeclaration, formatted, enc_Unspecified, eol, context);
    return writer.TakeString();
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDeclaration, bool formatted, XmlEncoding encoding,
                                        EOLType eol, CXmlSerializationContext const& context,
                                        CompressionType compression) const {
    CBinaryData data;
    {
        CXmlTextWriter writer;
        if (encoding == enc_UTF8) writer.ConvertAsItGrows();
        WriteDocument(writer, includeDeclaration, formatted, encoding, eol, context);
        data = writer.TakeBinaryData(encoding);
    }
    return data.CompressData(compression);
}

void CXmlObjectBase::ToXmlFile(char16_t const* fileName, bool includeDeclaration, bool formatted,
                               XmlEncoding encoding, EOLType eol, CXmlSerializationContext const& context,
                               CompressionType compression) const {
    ThrowIfNotForFiles(compression);
    auto const mark = ByteOrderMark(encoding);
    if (compression != cmp_GZip || mark.empty()) {
        CBinaryData const data =
            ToXmlStream(includeDeclaration, formatted, encoding, eol, context, compression);
        return data.ToFile(fileName, encoding);
    }
    // The mark goes inside, so that the file is a gzip stream from its first octet.
    CBinaryData data;
    data.Append(mark);
    data.Append(ToXmlStream(includeDeclaration, formatted, encoding, eol, context, cmp_None));
    data.CompressData(compression).ToFile(fileName, enc_Unspecified);
}

void CXmlObjectBase::WriteDocument(CXmlTextWriter& writer, bool includeDeclaration, bool formatted,
                                   XmlEncoding encoding, EOLType eol,
                                   CXmlSerializationContext const& context) const {
    writer.SetFormatting(formatted);
    writer.SetEOLType(eol);
    if (context.GetCheckWellFormed()) writer.WriteExactly();
    if (includeDeclaration) writer.WriteStartDocument(encoding);
    WriteRoot(writer, Unprefixed::kIsDefault, context);
    if (includeDeclaration) writer.WriteEndDocument();
}

/// @param unprefixed what an element without prefix is in this format
void CXmlObjectBase::WriteRoot(CXmlWriter& writer, Unprefixed unprefixed,
                               CXmlSerializationContext const& context) const {
    try {
        wstring const namespaceUri = GetTargetNamespace();
        if (!context.GetCheckWellFormed())
            return ToXml_Int(&writer, true, namespaceUri.c_str(), context, false);
        CWellFormedWriter checked(writer, unprefixed);
        ToXml_Int(&checked, true, namespaceUri.c_str(), context, false);
        checked.TestEnd();
    } catch (CBxException& failure) {
        FindPlace(failure, unprefixed, context);
        throw;
    }
}

/// Writes once more and nowhere, to see where that ends.
void CXmlObjectBase::FindPlace(CBxException& failure, Unprefixed unprefixed,
                               CXmlSerializationContext const& context) const {
    CPathWriter nowhere(nullptr);
    CWellFormedWriter checked(nowhere, unprefixed);
    CPathWriter path(context.GetCheckWellFormed() ? &checked : nullptr);
    LocateWritten(failure, path,
                  [&] { ToXml_Int(&path, true, GetTargetNamespace().c_str(), context, false); });
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration,
                                                CXmlSerializationContext const& context,
                                                CompressionType compression) const {
    CFastInfosetWriter writer;
    writer.WriteStartDocument(declaration);
    WriteRoot(writer, Unprefixed::kIsInNoNamespace, context);
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
