// What a generated class is as a whole.
#pragma once

#include <cstdint>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {
class CXmlGeneratedClass;
}

namespace BxXmlLib5Data {

using BxXmlLib5::wstring;

/// Whether a class has a tag. Generated code passes it as a number, so the values are fixed.
enum XmlElementType : std::int32_t {
    et_Element = 0,        ///< It has a start and an end tag of its own.
    et_PseudoElement = 1,  ///< A model group: its attributes and children stand in the tag of its owner.
};

/// How the children of a class are composed. Generated code passes it as a number, so the values are fixed.
enum XmlElementGroupType : std::int32_t {
    egt_Sequence = 0,  ///< in the order of the table
    egt_Choice = 1,    ///< one of them
    egt_All = 2,       ///< in any order
};

/// The one record of a generated class as a whole; elements and attributes have tables of their own. It never
/// changes once it is made, so all threads may use it.
class BXXMLLIB5_API CParentElementInfo {
public:
    /// A text that is null counts as empty.
    /// @param elementName the name of the class's element or, for a type, of the type
    /// @param textPropertyIndex the property that holds the text of the element, -1 for none
    /// @param failIfAttributeUnknown an attribute that no entry takes is an error. Must be false for a class
    ///        that is a pseudo element or has some, since owner and pseudo elements see the same attributes.
    /// @param hasBaseClasses the class takes part in the derivation of types: an object whose element has
    ///        another name is written with an xsi:type attribute
    CParentElementInfo(XmlElementGroupType groupType, XmlElementType elementType, char16_t const* elementName,
                       char16_t const* elementNamespace, int textPropertyIndex, bool failIfAttributeUnknown,
                       bool hasBaseClasses);

    /// @{
    /// What the constructor was given.
    XmlElementGroupType GetElementGroupType() const { return m_groupType; }
    XmlElementType GetElementType() const { return m_elementType; }
    wstring GetElementName() const { return m_elementName; }
    wstring GetElementNamespace() const { return m_elementNamespace; }
    int GetElementTextPropertyIndex() const { return m_textPropertyIndex; }
    bool GetFromXmlFailIfAttributeUnknown() const { return m_failIfAttributeUnknown; }
    bool GetHasBaseClasses() const { return m_hasBaseClasses; }
    /// @}

private:
    friend class BxXmlLib5::CXmlGeneratedClass;

    XmlElementGroupType m_groupType;
    XmlElementType m_elementType;
    wstring m_elementName;
    wstring m_elementNamespace;
    int m_textPropertyIndex;
    bool m_failIfAttributeUnknown;
    bool m_hasBaseClasses;
};

}  // namespace BxXmlLib5Data
