// The rows of a class, prepared for reading and writing.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "BxXmlLib5/binding/CParentElementInfo.h"
#include "BxXmlLib5/generated/CObject.h"
#include "BxXmlLib5/generated/Class.h"
#include "BxXmlLib5/platform/Text.h"
#include "generated/NamespaceConstraint.h"
#include "generated/PropertySet.h"

namespace BxXmlLib5Data {
class CAttributeInfo;
class CElementInfo;
}  // namespace BxXmlLib5Data

namespace BxXmlLib5::Generated {

/// A property as several rows may have it.
struct PropertyModel {
    Actions const* actions;
    void* (*place)(CObject& object);
    char16_t const* name;

    void* Of(CObject& object) const { return place(object); }
    void const* Of(CObject const& object) const { return place(const_cast<CObject&>(object)); }
    int Count(CObject const& object) const { return actions->count(Of(object)); }
    /// As Count(), but what is demanded and not set is written with its default.
    int CountToWrite(CObject const& object, int min) const {
        int const count = Count(object);
        bool const hasDefault = actions->shape == Actions::Shape::Value && actions->defaultText != nullptr;
        return count == 0 && min > 0 && hasDefault ? 1 : count;
    }
};

/// Tells most names apart: the size of one and its first unit. 0 for no name.
inline std::uint32_t GlanceAt(std::u16string_view name) {
    return name.empty() ? 0 : static_cast<std::uint32_t>(name.size()) << 16 | name[0];
}

/// An element, a wildcard or a group of the content.
struct Particle {
    /// An element or wildcard that may come first, and the member that it belongs to.
    struct Start {
        Particle const* particle;
        Particle const* member;
    };

    Row::Kind kind;
    /// At the name of an element that may be missing; 0 for all else.
    std::uint32_t glance = 0;
    int min = 1;
    int max = 1;
    bool canBeEmpty = false;
    /// Two members of a choice are rows of this property, so the object itself says which it is.
    bool isSubstitution = false;
    /// The last of an item may be this particle, and so may the first of the next item.
    bool goesOn = false;
    bool isNillable = false;
    unsigned char blocked = 0;  ///< Ways of derivation, as bits.
    SimpleType const* narrowed = nullptr;
    ElementValue value = {};
    int property = -1;
    PropertyModel const* model = nullptr;
    Class const* type = nullptr;
    wstring name;
    wstring namespaceUri;
    std::unique_ptr<NamespaceConstraint> constraint;
    std::vector<Particle const*> members;
    std::vector<Start> starts;
    PropertySet properties;

    bool IsGroup() const {
        return kind == Row::Kind::Sequence || kind == Row::Kind::Choice || kind == Row::Kind::All;
    }
    /// Whether there may be so many of it.
    bool Admits(int count) const { return count >= min && (max < 0 || count <= max); }
    bool Matches(CXmlElement const* child, bool ignoreNamespaces) const;
    /// The member that a child starts, null for none.
    Particle const* Started(CXmlElement const* child, bool ignoreNamespaces) const;
};

struct AttributeModel {
    wstring name;
    wstring namespaceUri;
    int min;
    PropertyModel const* property;
    SimpleType const* narrowed;
    std::unique_ptr<NamespaceConstraint> constraint;  ///< Of a wildcard.
};

/// All that reading and writing need to know of a class. It never changes once it is made.
struct Model {
    explicit Model(Class const& described);
    Model(Model const&) = delete;
    Model& operator=(Model const&) = delete;
    ~Model();

    bool IsNil(CObject const& object) const { return nil != nullptr && nil->Count(object) > 0; }

    /// Whether the class is that of a complex type of simple content, or of an element of simple type.
    bool HasSimpleContent() const { return text != nullptr && content == nullptr && isTextMandatory; }
    /// Whether the class is that of an element of simple type.
    bool IsSimple() const {
        return text != nullptr && content == nullptr && base == nullptr && attributes.empty();
    }
    /// Whether the class is that of a root of any type.
    bool IsAnything() const;

    /// Whether the class is that of a root whose type is abstract.
    bool IsAbstract() const;
    /// Of a root, what it holds of a derived type; else null.
    CObject* XsiTyped(CObject const& object) const;

    /// Whether some row of the class, or of its repeated groups, takes the child.
    bool Knows(CXmlElement const* child, bool ignoreNamespaces) const;

    /// Whether it is an attribute of the class.
    bool KnowsAttribute(CXmlAttribute const& attribute, bool ignoreNamespaces) const;

    /// Whether the class is another one or derives from it.
    bool Is(Class const& other) const;

    Class const& type;
    wstring name;
    wstring namespaceUri;
    Class const* base = nullptr;
    unsigned char derivation = 0;  ///< From the base.
    unsigned char blocked = 0;     ///< As a root.
    std::deque<PropertyModel> properties;
    std::deque<Particle> particles;
    std::deque<AttributeModel> attributes;
    Particle const* content = nullptr;
    PropertyModel const* text = nullptr;
    bool isTextMandatory = false;
    SimpleType const* narrowedText = nullptr;
    bool isNillable = false;  ///< As a root.
    bool isOwnType = false;   ///< As a root.
    ElementValue value = {};  ///< As a root.
    PropertyModel const* nil = nullptr;
    PropertyModel const* xsiTyped = nullptr;
    std::vector<PropertyModel const*> prohibited;

    /// @name The tables of the contract
    /// @{
    std::unique_ptr<BxXmlLib5Data::CParentElementInfo> info;
    BxXmlLib5Data::CElementInfo* elementTable[2] = {};
    std::vector<BxXmlLib5Data::CAttributeInfo*> attributeTable;
    /// @}

private:
    void Add(Class const& described, std::vector<Particle*>& top);
    PropertyModel const& Property(Row const& row, int& index);
    Particle& AddParticle(Row const& row, Class::Facts const& facts);
    void AddAttribute(Row const& row, Class::Facts const& facts);
    void Finish(Particle& particle);
    void MarkLast(Particle& particle);
};

}  // namespace BxXmlLib5::Generated
