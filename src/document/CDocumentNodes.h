// What the tree of a document is made of.
#pragma once

#include <map>

#include "BxXmlLib5/document/CNodeAttributes.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "document/CBlockStore.h"
#include "document/CNameTable.h"
#include "document/CNodePool.h"
#include "document/CTextStore.h"

namespace BxXmlLib5 {

/// The nodes, with their names and texts.
class CDocumentNodes {
public:
    void Clear() {
        m_elements.Clear();
        m_attributes.Clear();
        m_attributeLists.Clear();
        m_namespaceAliases.clear();
        m_names.Clear();
        m_texts.Clear();
        m_blocks.Clear();
    }

    CBlockStore m_blocks;
    CNameTable m_names;
    CTextStore m_texts;
    CNodePool<CXmlElement> m_elements{m_blocks};
    CNodePool<CXmlAttribute> m_attributes{m_blocks};
    CNodePool<CNodeAttributes> m_attributeLists{m_blocks};
    CNodeAttributes m_noAttributes;                               // the list of elements that have none
    std::map<wstring const*, wstring const*> m_namespaceAliases;  // alias to URI, both of the name table
};

}  // namespace BxXmlLib5
