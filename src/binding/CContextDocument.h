// A document that is read for an object.
#pragma once

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/document/CXmlDocument.h"

namespace BxXmlLib5 {

/// A document that loads as a context asks for.
class CContextDocument final : public CXmlDocument {
public:
    explicit CContextDocument(CXmlSerializationContext const& context)
        : CContextDocument(context, context.GetSchemaType()) {}
    /// The same, but of another schema type.
    CContextDocument(CXmlSerializationContext const& context, SchemaType schemaType)
        : CXmlDocument(schemaType) {
        SetRequireWholeDocument(context.GetRequireWholeDocument());
        SetSystemEncodings(context.GetSystemEncodings());
        SetLimits(context.GetDocumentLimits());
    }
};

}  // namespace BxXmlLib5
