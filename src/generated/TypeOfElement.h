// The types that xsi:type names (XML Schema Part 1, 2.6.1).
#pragma once

#include <optional>

#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/generated/CObject.h"

namespace BxXmlLib5::Generated {

/// What an element names by xsi:type.
struct NamedType {
    wstring literal;
    wstring name;
    wstring namespaceUri;
    Class const* type = nullptr;   ///< Of a complex type.
    unsigned char derivation = 0;  ///< The ways of derivation between that type and the one of the class.
    SimpleType const* simple = nullptr;  ///< Of a simple one. Both are null if the set has no such type.
};

/// The ways of derivation from one class to another one, or with null to where it begins; nothing if it does not derive
/// from that.
std::optional<unsigned char> WaysBetween(Class const* type, Class const* base);

/// Whether the element says that it is nil (XML Schema Part 1, 2.6.2).
/// @throws CBxInvalidValueException if what it says is no boolean
bool IsNil(CXmlElement const& element);

/// @throws CBxValidationException if the element is nil and has content, or may say nothing of nil and does
void TestNil(CXmlElement const& element, bool mayBeNil);

/// Nothing if the element names none.
std::optional<NamedType> NamedTypeOf(CXmlElement const& element, Set const& set);

/// A new object for an element: of the class that it names, or of the one that the schema gives.
/// @param blocked ways of derivation that it may not name
/// @throws CBxValidationException if it names none that derives from that, or the class is abstract
CObject* MakeFor(CXmlElement const& element, Class const& declared, std::optional<NamedType> const& named,
                 unsigned char blocked);

/// Reads what an element of simple type names.
/// @param text of the element, or its default
/// @param isNil that there is no text to test, since the element is nil
/// @return the object of a complex type of simple content, null for a simple type
/// @throws CBxValidationException if it is no type that derives from the declared one, or the element does not fit it
CSmartPtr<CObject> ReadNamed(CXmlElement& element, std::u16string_view text, bool isNil,
                             SimpleType const& declared, NamedType const& named, Set const& set,
                             unsigned char blocked, CXmlSerializationContext const& context);

/// Tests an element of any type against the one that it names, if the set has that.
/// @throws CBxValidationException if it may not stand there, or the element does not fit it
void TestNamed(CXmlElement& element, NamedType const& named, unsigned char blocked,
               CXmlSerializationContext const& context);

/// @throws CBxValidationException always: the element is nil, and may not be
[[noreturn]] void ThrowNil(CXmlElement const& element);

/// @throws CBxValidationException always: the element names no type, and its own is abstract
[[noreturn]] void ThrowAbstract(CXmlElement const& element, Class const& type);

/// The class whose name stands in xsi:type for an object of a class: that of its type.
Class const& TypeClass(Class const& of);

}  // namespace BxXmlLib5::Generated
