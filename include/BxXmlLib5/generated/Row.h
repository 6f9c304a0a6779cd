// The rows by which a class describes itself. They read like the schema:
//
//     constexpr Bx::Row kNoteRows[] = {
//         Bx::Sequence,
//             Bx::Element<&CNote::Chord>(u"chord"),
//             Bx::Choice,
//                 Bx::Element<&CNote::Pitch>(u"pitch", 1, 1),
//                 Bx::Element<&CNote::Rest>(u"rest", 1, 1),
//             Bx::End,
//             Bx::Element<&CNote::Tie>(u"tie", 0, 2),
//         Bx::End,
//         Bx::Attribute<&CNote::DefaultX>(u"default-x"),
//     };
#pragma once

#include <type_traits>

#include "BxXmlLib5/generated/Actions.h"

namespace BxXmlLib5::Generated {

class Class;
class CObject;

/// No maximum of occurrences.
inline constexpr int kMany = -1;

/// The default or fixed value of an element that is an object, or untyped. A property of simple type has its own.
struct ElementValue {
    char16_t const* text = nullptr;  ///< null for none
    bool isFixed = false;            ///< whether the element may have no other
};

/// One line of a class's description.
struct Row {
    /// What the row says; named for the function or constant that makes it.
    enum class Kind : unsigned char {
        Element,       ///< Element()
        Any,           ///< Any()
        Items,         ///< Items()
        Attribute,     ///< Attribute()
        AnyAttribute,  ///< AnyAttribute()
        Text,          ///< Text()
        Sequence,      ///< the start of a sequence
        Choice,        ///< the start of a choice
        All,           ///< the start of an all group
        End,           ///< the end of a group
        Inherit,       ///< Inherit()
        Restrict,      ///< Restrict()
        Prohibited,    ///< Prohibited()
        Nil,           ///< NilMark()
        MayBeNil,      ///< MayBeNil
        Block,         ///< Blocks()
        OwnType,       ///< OwnType
        RootValue,     ///< RootValue
    };

    /// What the row says.
    Kind kind;
    /// How often it must occur.
    int min = 1;
    /// How often it may occur, kMany for no bound.
    int max = 1;
    /// The local name in documents, or what messages call the row.
    char16_t const* name = nullptr;
    /// Null for the namespace that the class has for its elements; of a wildcard, what it admits.
    char16_t const* namespaceUri = nullptr;
    /// Where the property is in an object.
    void* (*place)(CObject& object) = nullptr;
    /// What the property can do.
    Actions const* actions = nullptr;
    /// The class of the objects; of Inherit and Restrict, the base.
    Class const* type = nullptr;
    /// Set by Nillable().
    bool isNillable = false;
    /// Ways of derivation, as bits: that of Inherit and Restrict; those that Block and an element refuse.
    unsigned char derivation = 0;
    /// A type that restricts the one of the property: values are tested against it too.
    SimpleType const* narrowed = nullptr;
    /// Set by Defaulting() and Fixing().
    ElementValue value = {};
};

/// The start of a model group, which goes on to the End that belongs to it. As it stands it occurs once;
/// `Bx::Choice(0, 1)` may be missing. A group that may occur more often is a class of its own, or holds
/// nothing but rows of one collection.
struct GroupRow : Row {
    /// A group that occurs once.
    constexpr explicit GroupRow(Kind group) : Row{group} {}
    /// The start of a group with these bounds.
    constexpr Row operator()(int minimum, int maximum = 1) const {
        Row row = *this;
        row.min = minimum;
        row.max = maximum;
        return row;
    }
};

/// @{
/// The start of a group: `Bx::Sequence, ..., Bx::End`.
inline constexpr GroupRow Sequence{Row::Kind::Sequence};
inline constexpr GroupRow Choice{Row::Kind::Choice};
inline constexpr GroupRow All{Row::Kind::All};
/// @}
/// The end of the group that began last.
inline constexpr Row End{Row::Kind::End};

/// Says of the class of a root that its element is nillable.
inline constexpr Row MayBeNil{Row::Kind::MayBeNil};

/// An element that is nillable: `Bx::Nillable(Bx::Element<&COrder::Due>(u"due"))`. Its class has a NilMark; one
/// of simple type is an Object<CNillable<S>>.
constexpr Row Nillable(Row row) {
    row.isNillable = true;
    return row;
}

/// An element whose types in documents may not be derived in some ways from the one that it is declared with:
/// `Bx::Blocking(Bx::Element<&COrder::Item>(u"item"), Bx::kExtension)`.
/// @param ways bits of Derivation
constexpr Row Blocking(Row row, int ways) {
    row.derivation = static_cast<unsigned char>(ways);
    return row;
}

/// Says the same of the class of a root.
constexpr Row Blocks(int ways) {
    return Blocking(Row{Row::Kind::Block}, ways);
}

/// An element, attribute or text of a class that restricts another, whose values are of a narrower type S
/// than the property takes: `Bx::Narrowed<DayType>(Bx::Element<&COrder::Day>(u"day"))`.
template <class S>
constexpr Row Narrowed(Row row) {
    row.narrowed = &SimpleTypeOf<S>::kType;
    return row;
}

/// An element that stands for a text where it is there and empty, whose property is an object or untyped:
/// `Bx::Defaulting(Bx::Element<&COrder::Note>(u"note"), u"none")`.
constexpr Row Defaulting(Row row, char16_t const* text) {
    row.value = {text, false};
    return row;
}

/// The same for a text that is the only one that the element may have; nor may it be nil.
constexpr Row Fixing(Row row, char16_t const* text) {
    row.value = {text, true};
    return row;
}

/// Says the same of the class of a root: `Bx::Fixing(Bx::RootValue, u"1.0")`.
inline constexpr Row RootValue{Row::Kind::RootValue};

/// Says of the class of a root that it is its own type, which derives from that of its base: without, the
/// type is that of its base.
inline constexpr Row OwnType{Row::Kind::OwnType};

// What stands behind the templates of rows.
/// @cond
template <class M>
struct MemberOf;
template <class P, class C>
struct MemberOf<P C::*> {
    using Property = P;
    using Owner = C;
};

template <auto kMember>
using PropertyOf = typename MemberOf<decltype(kMember)>::Property;

template <auto kMember>
void* PlaceOf(CObject& object) {
    using P = PropertyOf<kMember>;
    P& property = static_cast<typename MemberOf<decltype(kMember)>::Owner&>(object).*kMember;
    if constexpr (std::is_base_of_v<ObjectHolder, P>) {
        return static_cast<ObjectHolder*>(&property);
    } else if constexpr (std::is_base_of_v<ObjectsHolder, P>) {
        return static_cast<ObjectsHolder*>(&property);
    } else {
        return &property;
    }
}

template <auto kMember>
inline constexpr Actions const* kActionsOf = ActionsOf<PropertyOf<kMember>>();

/// The class of the objects in a property, null if it holds none of a generated class.
template <class P>
constexpr Class const* TypeOf() {
    if constexpr (requires { P::Class::kClass; }) {
        return &P::Class::kClass;
    } else {
        return nullptr;
    }
}

template <class P>
inline constexpr bool kIsRepeated = std::is_base_of_v<ObjectsHolder, P> || IsValues<P>;

template <class P>
inline constexpr bool kIsRequired = false;
template <class S>
inline constexpr bool kIsRequired<Required<S>> = true;
/// @endcond

/// An element. Without bounds it is mandatory for a Required, repeated for Values, a Collection or
/// AnyElements, and optional for all others.
/// @tparam T the class of its objects, if that is not the one of the property but derives from it
/// @param namespaceUri null for the namespace that the class has for its elements, u"" for none
template <auto kMember, class T = void>
constexpr Row Element(char16_t const* name, char16_t const* namespaceUri, int min, int max) {
    Class const* type = TypeOf<PropertyOf<kMember>>();
    if constexpr (!std::is_void_v<T>) type = &T::kClass;
    return {Row::Kind::Element, min, max, name, namespaceUri, &PlaceOf<kMember>, kActionsOf<kMember>, type};
}
/// An element in the namespace that the class has for its elements.
template <auto kMember, class T = void>
constexpr Row Element(char16_t const* name, int min, int max = kIsRepeated<PropertyOf<kMember>> ? kMany : 1) {
    return Element<kMember, T>(name, nullptr, min, max);
}
/// An element with the bounds that the property gives it.
template <auto kMember, class T = void>
constexpr Row Element(char16_t const* name, char16_t const* namespaceUri = nullptr) {
    using P = PropertyOf<kMember>;
    return Element<kMember, T>(name, namespaceUri, kIsRequired<P> ? 1 : 0, kIsRepeated<P> ? kMany : 1);
}

/// A wildcard for elements.
/// @param namespaces the namespace attribute of the schema: `##any`, `##other`, or a list of `##local`,
///        `##targetNamespace` and namespaces; `##other` ahead of one of these is everything but it, and no
///        namespace
template <auto kMember>
constexpr Row Any(char16_t const* namespaces = u"##any", int min = 0,
                  int max = kIsRepeated<PropertyOf<kMember>> ? kMany : 1) {
    return {Row::Kind::Any, min, max, u"AnyElement", namespaces, &PlaceOf<kMember>, kActionsOf<kMember>};
}

/// A group that may occur more often, as a Collection of a class that derives from CGroup.
template <auto kMember>
constexpr Row Items(int min = 0, int max = kMany) {
    using P = PropertyOf<kMember>;
    return {Row::Kind::Items,    min,        max, nullptr, nullptr, &PlaceOf<kMember>,
            kActionsOf<kMember>, TypeOf<P>()};
}

/// An attribute: mandatory for a Required, unless the minimum says otherwise.
/// @param namespaceUri u"" for none
template <auto kMember>
constexpr Row Attribute(char16_t const* name, char16_t const* namespaceUri = u"",
                        int min = kIsRequired<PropertyOf<kMember>> ? 1 : 0) {
    return {Row::Kind::Attribute, min, 1, name, namespaceUri, &PlaceOf<kMember>, kActionsOf<kMember>};
}

/// A wildcard for attributes. That of a derived class stands for the one of its base too.
/// @param namespaces as for Any()
template <auto kMember>
constexpr Row AnyAttribute(char16_t const* namespaces = u"##any") {
    return {Row::Kind::AnyAttribute, 0, kMany, u"AnyAttribute", namespaces, &PlaceOf<kMember>,
            kActionsOf<kMember>};
}

/// The text of the element: the value of simple content, or the text among the children of mixed content.
template <auto kMember>
constexpr Row Text(int min = kIsRequired<PropertyOf<kMember>> ? 1 : 0) {
    return {Row::Kind::Text, min, 1, u"text()", nullptr, &PlaceOf<kMember>, kActionsOf<kMember>};
}

/// All rows of a base class, ahead of the class's own.
/// @param way in which the type derives: by restriction too where rows of its own cannot say what it restricts
template <class T>
constexpr Row Inherit(Derivation way = kExtension) {
    return {Row::Kind::Inherit, 1, 1, nullptr, nullptr, nullptr, nullptr, &T::kClass, false, way};
}

/// A base class whose rows the class's own replace.
template <class T>
constexpr Row Restrict() {
    return {Row::Kind::Restrict, 1, 1, nullptr, nullptr, nullptr, nullptr, &T::kClass, false, kRestriction};
}

/// The property that says whether the element is nil, of a class that is the type of a nillable element.
template <auto kMember>
constexpr Row NilMark() {
    return {Row::Kind::Nil, 0, 1, u"nil", nullptr, &PlaceOf<kMember>, kActionsOf<kMember>};
}

/// A property of a base class that must not be set.
template <auto kMember>
constexpr Row Prohibited(char16_t const* name) {
    return {Row::Kind::Prohibited, 0, 0, name, nullptr, &PlaceOf<kMember>, kActionsOf<kMember>};
}

}  // namespace BxXmlLib5::Generated
