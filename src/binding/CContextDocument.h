// A document that is read for an object.
#pragma once

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/document/CXmlDocument.h"

namespace BxXmlLib5 {

/// A document that loads as a context asks for.
class CContextDocument final : public CXmlDocument {
public:
    explicit CContextDocument(CXmlSerializationContext const& context)
        : CXmlDocument(context.GetSchemaType()) {
        SetRequireWholeDocument(context.GetRequireWholeDocument());
        SetSystemEncodings(context.GetSystemEncodings());
        SetLimits(context.GetDocumentLimits());
    }
};

}  // namespace BxXmlLib5
