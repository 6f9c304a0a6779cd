// From the elements of a schema document to components.
#pragma once

#include "Diagnostics.h"
#include "schema/SchemaStore.h"

namespace BxGen {

/// Makes the components that a document writes. Names that lead to others are noted in the store as references.
class ComponentReader {
public:
    /// @param document whose root has passed CheckSyntax; the documents of its references are known
    ComponentReader(SchemaStore& store, SchemaDocument const& document, Diagnostics& diagnostics);

    void Read();

private:
    using Element = XmlElement const;

    // Values
    std::string_view Value(Element& element, std::string_view attribute) const;
    bool Flag(Element& element, std::string_view attribute) const;
    QName Resolve(Element& element, std::string_view name);
    QName NameHere(Element& element, std::string_view attribute) const;
    QName LocalName(Element& element, bool isQualifiedByDefault) const;
    DerivationSet Set(Element& element, std::string_view attribute, std::string_view schemaDefault,
                      DerivationSet all) const;
    Occurs Bounds(Element& element);
    std::optional<ValueConstraint> Constraint(Element& element);

    // Help
    void Fill(Component& component, Element& element) const;
    Annotation AnnotationOf(Element& element) const;
    void Refer(Reference::Kind kind, Element& element, std::string_view name,
               std::function<void(Component const&)> set, Component const* redefinition = nullptr);
    Component const* RedefinitionOf(std::string_view element) const;
    void Report(Element& element, std::string const& text);

    template <class T>
    T& Register(Element& element, GlobalTable<T>& table, T& component);
    void ReadGlobal(Element& element, SchemaDocument const* redefined);

    // Declarations
    ElementDeclaration& ReadElementDeclaration(Element& element, bool isGlobal);
    void ReadElementType(Element& element, ElementDeclaration& declaration);
    IdentityConstraint& ReadIdentity(Element& element);
    AttributeDeclaration& ReadAttributeDeclaration(Element& element, bool isGlobal);
    AttributeUse& ReadAttributeUse(Element& element);
    void ReadAttributes(Element& parent, std::vector<AttributeItem>& items, Wildcard const*& wildcard,
                        AttributeGroup const* group);
    Wildcard& ReadWildcard(Element& element);
    void ReadNotation(Element& element);

    // Groups
    void ReadNamedGroup(Element& element, SchemaDocument const* redefined);
    void ReadAttributeGroup(Element& element, SchemaDocument const* redefined);
    Particle const* ReadParticle(Element& element);
    void ReadElementParticle(Element& element, Particle& particle);
    ModelGroup& ReadModelGroup(Element& element);
    Particle const* ReadContentParticle(Element& parent);

    // Types
    ComplexType& ReadComplexType(Element& element, Component const* owner);
    void ReadDerivation(Element& content, WrittenComplexType& type);
    void ReadRestrictedContent(Element& restriction, WrittenComplexType& type);
    SimpleType& ReadSimpleType(Element& element, Component const* owner);
    void ReadRestriction(Element& restriction, SimpleType& type);
    void ReadList(Element& list, SimpleType& type);
    void ReadUnion(Element& element, SimpleType& type);
    void ReadFacets(Element& parent, SimpleType& type);

    SchemaStore& m_store;
    SchemaDocument const& m_document;
    Diagnostics& m_diagnostics;
    /// The redefinition that is being read, with its kind and name: a reference to its own name, where one may stand,
    /// means what it redefines.
    Component const* m_redefinition = nullptr;
    std::string_view m_redefinedElement;
    QName m_redefinedName;
};

}  // namespace BxGen
