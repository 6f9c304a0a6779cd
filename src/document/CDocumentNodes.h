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
    CDocumentNodes() : m_names(m_ownNames) {}
    /// @param names of others too, which stay; they outlive the nodes
    explicit CDocumentNodes(CNameTable& names) : m_names(names) {}

    void Clear() {
        ClearTree();
        m_namespaceAliases.clear();
        m_ownNames.Clear();
    }

    /// Drops nodes and texts. The memory of a small tree is kept for the one that comes next.
    void Empty() {
        if (!m_blocks.IsSmall()) return ClearTree();
        m_elements.Empty();
        m_attributes.Empty();
        m_attributeLists.Empty();
        m_texts.Empty();
    }

    CNameTable m_ownNames;  // empty if there are those of others
    CNameTable& m_names;
    CBlockStore m_blocks;
    CTextStore m_texts;
    CNodePool<CXmlElement> m_elements{m_blocks};
    CNodePool<CXmlAttribute> m_attributes{m_blocks};
    CNodePool<CNodeAttributes> m_attributeLists{m_blocks};
    CNodeAttributes m_noAttributes;                               // the list of elements that have none
    std::map<wstring const*, wstring const*> m_namespaceAliases;  // alias to URI, both of the name table

private:
    void ClearTree() {
        m_elements.Clear();
        m_attributes.Clear();
        m_attributeLists.Clear();
        m_texts.Clear();
        m_blocks.Clear();
    }
};

}  // namespace BxXmlLib5
