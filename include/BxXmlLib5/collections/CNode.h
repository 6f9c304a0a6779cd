// An entry of a collection of objects.
#pragma once

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/core/CSmartPtr.h"

namespace BxXmlLib5 {

/// Holds one reference on its item, which may be null.
struct CNode {
    CSmartPtr<CXmlObjectBase> m_item;  ///< the item
    CNode* m_next = nullptr;           ///< null at the end
    CNode* m_prev = nullptr;           ///< null at the front
};

}  // namespace BxXmlLib5
