// The document that bxconvert writes.
#pragma once

#include <map>

#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "Options.h"
#include "Statistics.h"

namespace BxConvert {

/// A whole document as untyped content. Unlike its base, it reads the root, and its root declares namespaces. In
/// text it does so as a person would: that of the root as the default namespace, if no element is without one. In
/// Fast Infoset it declares each of the document, with an alias, since other readers want that; a default namespace
/// only where the value of an xsi:type needs it. The prefixes of such values, and xsi, stay what they were, but for
/// the second of two that stand for one namespace.
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
    std::map<BxXmlLib5::wstring, BxXmlLib5::wstring> m_aliases;  // by namespace
};

}  // namespace BxConvert
