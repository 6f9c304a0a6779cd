// A tree of a part of a document.
#pragma once

#include <memory>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "document/CDocumentNodes.h"

namespace BxXmlLib5 {

/// A document that owns the tree of a part of another one, which is read piece by piece, and shares its names.
class CPartDocument final : public CXmlDocument {
public:
    /// @param names outlive the document
    explicit CPartDocument(CNameTable& names, SchemaType schemaType) : CXmlDocument(schemaType) {
        m_nodes = std::make_unique<CDocumentNodes>(names);
    }

    CDocumentNodes& Nodes() { return *m_nodes; }
};

}  // namespace BxXmlLib5
