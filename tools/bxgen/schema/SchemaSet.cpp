#include "schema/SchemaSet.h"

#include "schema/SchemaStore.h"

namespace BxGen {

SchemaSet::SchemaSet(std::unique_ptr<SchemaStore> store) : m_store(std::move(store)) {}
SchemaSet::SchemaSet(SchemaSet&&) noexcept = default;
SchemaSet& SchemaSet::operator=(SchemaSet&&) noexcept = default;
SchemaSet::~SchemaSet() = default;

std::vector<SchemaDocument const*> const& SchemaSet::Documents() const {
    return m_store->m_listedDocuments;
}

std::vector<ElementDeclaration const*> const& SchemaSet::Elements() const {
    return m_store->m_elements.m_listed;
}

std::vector<AttributeDeclaration const*> const& SchemaSet::Attributes() const {
    return m_store->m_attributes.m_listed;
}

std::vector<Type const*> const& SchemaSet::Types() const {
    return m_store->m_types.m_listed;
}

std::vector<NamedGroup const*> const& SchemaSet::Groups() const {
    return m_store->m_groups.m_listed;
}

std::vector<AttributeGroup const*> const& SchemaSet::AttributeGroups() const {
    return m_store->m_attributeGroups.m_listed;
}

std::vector<Notation const*> const& SchemaSet::Notations() const {
    return m_store->m_notations.m_listed;
}

std::vector<Type const*> const& SchemaSet::AnonymousTypes() const {
    return m_store->m_anonymousTypes;
}

bool SchemaSet::IsReferenced(ElementDeclaration const& element) const {
    return m_store->m_referencedElements.contains(&element);
}

std::vector<std::string> const& SchemaSet::Files() const {
    return m_store->m_files;
}

}  // namespace BxGen
