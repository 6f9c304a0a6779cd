// Untyped content as properties hold it.
#pragma once

#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/generated/Class.h"

namespace BxXmlLib5 {
class CAttributeCol;
class CXmlElement;
}  // namespace BxXmlLib5

namespace BxXmlLib5::Generated {

/// A copy of an element with all below it: a copy of CElement shares what is below.
/// @throws CBxException if elements are nested too deeply
CSmartPtr<CElement> CloneElement(CElement const& element);
CSmartPtr<CAttributeCol> CloneAttributes(CAttributeCol const& attributes);

/// Names, namespaces, texts, attributes in any order and children.
bool EqualElements(CElement const& a, CElement const& b);
bool EqualAttributes(CAttributeCol const& a, CAttributeCol const& b);

/// Empties the texts of elements that have children and nothing but whitespace among them: it is layout, which
/// would come to stand behind the children.
/// @param source what the element was read from
void DropLayout(CElement& element, CXmlElement const& source);

/// Gives the types that elements name by xsi:type the prefixes under which documents of the set declare their
/// namespaces: those of the source are lost.
void SettleTypes(CElement& element, CXmlElement const& source, Set const& set);

/// The namespace of the type that an element names by xsi:type, as SettleTypes() leaves it; null for none.
char16_t const* NamespaceOfType(CElement const& element, Set const& set);

}  // namespace BxXmlLib5::Generated
