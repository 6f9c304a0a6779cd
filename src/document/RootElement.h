// The root of a whole document.
#pragma once

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlDocument.h"

namespace BxXmlLib5 {

/// @throws CBxException for a document that breaks off, which loading alone accepts
inline CXmlElement* RootElement(CXmlDocument const& document) {
    if (!document.IsComplete()) throw CBxException(u"The document ends before its root does");
    return document.GetDocumentElement();
}

}  // namespace BxXmlLib5
