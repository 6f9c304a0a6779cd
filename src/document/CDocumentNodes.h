// What the tree of a document is made of.
#pragma once

#include <set>

#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "document/CNodePool.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

/// The nodes, and the names that they share.
class CDocumentNodes {
public:
    CNodePool<CXmlElement> m_elements;
    CNodePool<CXmlAttribute> m_attributes;
    std::set<wstring, LessBySize> m_names;
};

}  // namespace BxXmlLib5
