// Untyped content among objects of any kind.
#pragma once

#include <typeinfo>

#include "BxXmlLib5/collections/CElement.h"

namespace BxXmlLib5 {

/// Tells whether objects, one after another, are untyped elements. The question is a dear one, and the answer mostly that
/// of the object before.
class CUntypedTest {
public:
    bool operator()(CXmlObjectBase const& object) {
        std::type_info const& type = typeid(object);
        if (m_lastType != &type) m_isUntyped = dynamic_cast<CElement const*>(&object) != nullptr;
        m_lastType = &type;
        return m_isUntyped;
    }

private:
    std::type_info const* m_lastType = nullptr;
    bool m_isUntyped = false;  // objects of that type
};

}  // namespace BxXmlLib5
