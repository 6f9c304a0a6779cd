// The operations of objects that are no business of programs.
#pragma once

#include "BxXmlLib5/generated/CObject.h"
#include "generated/KeptTypes.h"

namespace BxXmlLib5::Generated {

struct ObjectAccess {
    static Class const& ClassOf(CObject const& object) { return object.Describe(); }
    static Model const& ModelOf(CObject const& object) { return object.Describe().GetModel(); }

    static void ReadAttributes(CObject& object, CXmlElement& element,
                               CXmlSerializationContext const& context) {
        object.ProcessAttributesFromXml(context, &element, true);
    }

    static KeptTypes& KeptOf(CObject& object) {
        if (!object.m_kept) object.m_kept = std::make_unique<KeptTypes>();
        return *object.m_kept;
    }
    /// Null for none.
    static KeptTypes const* KeptIn(CObject const& object) { return object.m_kept.get(); }

    static void Reset(CObject& object, wstring const& name) {
        object.ResetContent();
        object.m_elementName = name;
    }

    static wstring const& NameOf(CObject const& object) { return object.m_elementName; }
    static void SetName(CObject& object, wstring const& name) { object.m_elementName = name; }

    /// @name Untyped elements
    /// @{
    static void ReadAny(CXmlObjectBase* object, CXmlElement* parent, CXmlElement* child,
                        CXmlSerializationContext const& context) {
        CObject::FromXml_Int(object, parent, child, context);
    }
    static void WriteAny(CXmlObjectBase const* object, CXmlWriter* writer, wstring const& namespaceUri,
                         CXmlSerializationContext const& context) {
        CObject::ToXml_Int(object, writer, false, namespaceUri.c_str(), context, false);
    }
    /// @}
};

}  // namespace BxXmlLib5::Generated
