#include "BxXmlLib5/document/CNodeAttributes.h"

#include <utility>

namespace BxXmlLib5 {

std::vector<CXmlAttribute*> const& CNodeAttributes::Vector() const {
    if (!m_vector) {
        auto vector = std::make_unique<std::vector<CXmlAttribute*>>();
        vector->reserve(m_attributes.size());
        for (CXmlAttribute& attribute : m_attributes) vector->push_back(&attribute);
        m_vector = std::move(vector);
    }
    return *m_vector;
}

}  // namespace BxXmlLib5
