#include "generated/Entries.h"

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "generated/Reading.h"
#include "generated/Writing.h"

namespace BxXmlLib5::Generated {

using namespace BxXmlLib5Data;

CContentEntry::CContentEntry(Model const& model)
    : CElementInfo(model.name.c_str(), model.namespaceUri.c_str(), 0) {}

bool CContentEntry::ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                                 CXmlWriter* writer) const {
    Writing(static_cast<CObject const&>(*owner), context, writer).Content();
    return true;
}

bool CContentEntry::ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                                   CXmlElement* element, CXmlElement** child, char16_t const*,
                                   XmlElementType) {
    Reading(static_cast<CObject&>(*owner), *element, *child, context).Content();
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
        if (!context.GetIgnoreNamespaces() && !m_model.constraint->Admits(attribute->GetNamespaceURI()))
            return false;
        static_cast<AnyAttributes*>(m_model.property->Of(object))
            ->All()
            .Add(attribute->GetLocalName().c_str(), attribute->GetValue().c_str(),
                 attribute->GetNamespaceURI().c_str());
        return true;
    }
    if (!IsThisAttribute(context, attribute)) return false;
    ReadValue(object, *m_model.property, m_model.name, attribute->GetValueView());
    return true;
}

void CAttributeEntry::Validate(CXmlSerializationContext const&, bool found) const {
    ValidateFound(found);
}

}  // namespace BxXmlLib5::Generated
