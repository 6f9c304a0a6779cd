// The document that bxconvert writes.
#pragma once

#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "Options.h"
#include "Statistics.h"

namespace BxConvert {

/// A whole document as untyped content. Unlike its base, it reads the root, and it writes the namespaces as a
/// person would: that of the root as the default namespace, if nothing stands in its way, and that of XML
/// Schema instance under its usual prefix.
class CUntypedDocument : public BxXmlLib5::CElement {
public:
    /// @param statistics those of the document
    CUntypedDocument(BxXmlLib5::CXmlDocument const& document, Statistics const& statistics,
                     Options const& options);

protected:
    void ToXml_Int(BxXmlLib5::CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   BxXmlLib5::CXmlSerializationContext const& context, bool allowEmptyChoice) const override;

private:
    bool m_declaresDefaultNamespace;
    bool m_declaresXsi;
};

}  // namespace BxConvert
