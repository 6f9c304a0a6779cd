#include "generated/Entries.h"

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/generated/Xs.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "generated/ObjectAccess.h"
#include "generated/Reading.h"
#include "generated/Writing.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5::Generated {

using namespace BxXmlLib5Data;

CContentEntry::CContentEntry(Model const& model)
    : CElementInfo(model.name.c_str(), model.namespaceUri.c_str(), 0) {}

bool CContentEntry::ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                 CXmlWriter* writer) const {
    auto const& object = static_cast<CObject const&>(*owner);
    Writing(object, context, writer).Content(ObjectAccess::ModelOf(object).isNillable);
    return true;
}

bool CContentEntry::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                   CXmlElement* element, CXmlElement** child, char16_t const*,
                                   XmlElementType) {
    auto& object = static_cast<CObject&>(*owner);
    Reading(object, *element, *child, context).Content(ObjectAccess::ModelOf(object).isNillable);
    *child = nullptr;
    return true;
}

bool CContentEntry::Validate(CXmlSerializationContext const&, CXmlGeneratedClass const*, bool, bool) const {
    return true;
}

CAttributeEntry::CAttributeEntry(AttributeModel const& model)
    : CAttributeInfo(model.name.c_str(), model.namespaceUri.c_str(), 0, model.min == 0, nullptr),
      m_model(model) {}

void CAttributeEntry::AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                     CXmlWriter* writer) const {
    Writing(static_cast<CObject const&>(*owner), context, writer).Attribute(m_model);
}

bool CAttributeEntry::AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                       CXmlAttribute* attribute) {
    auto& object = static_cast<CObject&>(*owner);
    if (m_model.constraint) {
        // No wildcard is asked for xsi:nil (XML Schema Part 1, 3.4.4); what is of any type has no other place
        // for it.
        if (attribute->GetNamespaceURI() == kXsiNamespace && !ObjectAccess::ModelOf(object).IsAnything())
            return false;
        if (!context.GetIgnoreNamespaces() && !m_model.constraint->Admits(attribute->GetNamespaceURI()))
            return false;
        static_cast<AnyAttributes*>(m_model.property->Of(object))
            ->All()
            .Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                 attribute->GetNamespaceURI().c_str());
        return true;
    }
    if (!IsThisAttribute(context, attribute)) return false;
    ReadValue(object, *m_model.property, m_model.name, attribute->GetValueView(), m_model.narrowed);
    return true;
}

void CAttributeEntry::Validate(CXmlSerializationContext const&, bool found) const {
    if (found || m_model.min == 0) return;
    throw CBxValidationException(
        FormatString(u"Failed to find the required Attribute [%s]", m_model.name.c_str()));
}

CNilEntry::CNilEntry(PropertyModel const& property)
    : CAttributeInfo(u"nil", wstring(kXsiNamespace).c_str(), 0, true, nullptr), m_property(property) {}

void CNilEntry::AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                               CXmlWriter* writer) const {
    Writing(static_cast<CObject const&>(*owner), context, writer).NilAttribute();
}

bool CNilEntry::AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                 CXmlAttribute* attribute) {
    if (!IsThisAttribute(context, attribute)) return false;
    *static_cast<Nil*>(m_property.Of(static_cast<CObject&>(*owner))) =
        Xs::boolean::FromText(attribute->GetValueView());
    return true;
}

void CNilEntry::Validate(CXmlSerializationContext const&, bool) const {}

}  // namespace BxXmlLib5::Generated
