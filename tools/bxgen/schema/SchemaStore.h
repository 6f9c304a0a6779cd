// The components of a schema set while they are made, and what owns them.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "schema/Components.h"
#include "xml/StringPool.h"
#include "xml/XmlDocument.h"

namespace BxGen {

/// A complex type with what only resolving needs: how its derivation is written.
struct WrittenComplexType : ComplexType {
    bool m_hasSimpleContent = false;
    bool m_isMixed = false;
    SimpleType* m_restrictedContent = nullptr;  ///< the type that a restriction of simple content makes
    std::size_t m_ownCount = 0;                 ///< particles of m_ownParticle, groups put in their place
    std::size_t m_count = 0;                    ///< of m_particle
};

/// Global components of one kind.
template <class T>
struct GlobalTable {
    std::vector<T*> m_written;       ///< all, in order, also those that are redefined
    std::vector<T const*> m_listed;  ///< those of the documents that a name leads to, in order
    std::unordered_map<QName, T*> m_byName;

    T* Find(QName const& name) const {
        auto const found = m_byName.find(name);
        return found != m_byName.end() ? found->second : nullptr;
    }
};

/// A name that leads to a global component, not looked up yet.
struct Reference {
    enum class Kind { kType, kSimpleType, kElement, kAttribute, kGroup, kAttributeGroup, kIdentity };

    Kind m_kind = Kind::kType;
    QName m_name;
    Place m_place;
    SchemaDocument const* m_document = nullptr;
    /// The redefinition within which it stands, if it has the same kind and name: it means what is redefined then.
    Component const* m_redefinition = nullptr;
    std::function<void(Component const&)> m_set;
};

/// A location that led nowhere.
struct MissingDocument {
    Place m_place;
    std::string m_location;  ///< empty for an import by namespace alone
    std::string_view m_namespace;
};

/// Owns documents, components and texts. Components are changed by those who make them, until the set is given out.
class SchemaStore {
public:
    template <class T>
    T& Make() {
        return std::get<std::deque<T>>(m_arenas).emplace_back();
    }

    /// A component to change. All belong to the store, which holds none as a constant.
    template <class T>
    static T& Mutable(T const& component) {
        return const_cast<T&>(component);
    }

    template <class T>
    std::deque<T>& All() {
        return std::get<std::deque<T>>(m_arenas);
    }

    StringPool m_pool;
    std::deque<SchemaDocument> m_documents;
    std::vector<SchemaDocument const*> m_listedDocuments;
    std::vector<std::unique_ptr<XmlDocument>> m_xmlDocuments;
    std::vector<std::string> m_files;

    GlobalTable<Type> m_types;
    GlobalTable<ElementDeclaration> m_elements;
    GlobalTable<AttributeDeclaration> m_attributes;
    GlobalTable<NamedGroup> m_groups;
    GlobalTable<AttributeGroup> m_attributeGroups;
    GlobalTable<Notation> m_notations;
    GlobalTable<IdentityConstraint> m_identities;

    std::unordered_map<BuiltIn, Type const*> m_builtIns;
    std::vector<Type const*> m_anonymousTypes;
    std::unordered_set<ElementDeclaration const*> m_referencedElements;

    std::vector<Reference> m_references;
    std::vector<MissingDocument> m_missing;
    /// Components written in xs:redefine, with the document that they redefine.
    std::unordered_map<Component const*, SchemaDocument const*> m_redefinitions;

private:
    std::tuple<std::deque<SimpleType>, std::deque<WrittenComplexType>, std::deque<ElementDeclaration>,
               std::deque<AttributeDeclaration>, std::deque<AttributeUse>, std::deque<AttributeGroup>,
               std::deque<AttributeGroupReference>, std::deque<NamedGroup>, std::deque<ModelGroup>,
               std::deque<Particle>, std::deque<Wildcard>, std::deque<Facet>, std::deque<IdentityConstraint>,
               std::deque<Notation>>
        m_arenas;
};

}  // namespace BxGen
