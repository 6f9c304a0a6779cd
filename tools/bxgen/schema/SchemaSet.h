// All components of a set of schemas, and how they are found.
#pragma once

#include <memory>
#include <vector>

#include "schema/Components.h"

namespace BxGen {

class SchemaStore;

/// The global components of all documents of a set, in the order of the documents, and within each as written. The
/// documents are in the order in which they were named: those of the command line, then those that they refer to.
/// Components that come with the tool (types of XML Schema, attributes of the XML, XLink and XSI namespaces) are found
/// by name, but stand in no list.
class SchemaSet {
public:
    explicit SchemaSet(std::unique_ptr<SchemaStore> store);
    SchemaSet(SchemaSet&&) noexcept;
    SchemaSet& operator=(SchemaSet&&) noexcept;
    ~SchemaSet();

    std::vector<SchemaDocument const*> const& Documents() const;
    std::vector<ElementDeclaration const*> const& Elements() const;
    std::vector<AttributeDeclaration const*> const& Attributes() const;
    std::vector<Type const*> const& Types() const;
    std::vector<NamedGroup const*> const& Groups() const;
    std::vector<AttributeGroup const*> const& AttributeGroups() const;
    std::vector<Notation const*> const& Notations() const;

    /// Types without a name, in the order in which they are written; besides, those that a redefinition hides.
    std::vector<Type const*> const& AnonymousTypes() const;

    /// True if some element or attribute refers to the element: it need not be a root of documents.
    bool IsReferenced(ElementDeclaration const& element) const;

    /// Every file that was read, catalogs too, as opened, for --depfile.
    std::vector<std::string> const& Files() const;

private:
    std::unique_ptr<SchemaStore> m_store;
};

}  // namespace BxGen
