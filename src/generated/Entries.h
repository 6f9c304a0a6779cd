// The entries of the metadata tables of a generated class.
#pragma once

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CElementInfo.h"
#include "generated/Model.h"

namespace BxXmlLib5::Generated {

/// All of the content of a class in one entry: groups inside it need no objects that stand for them.
class CContentEntry : public BxXmlLib5Data::CElementInfo {
public:
    explicit CContentEntry(Model const& model);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        BxXmlLib5Data::XmlElementType ownerType) override;
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// An attribute, or a wildcard for attributes.
class CAttributeEntry : public BxXmlLib5Data::CAttributeInfo {
public:
    explicit CAttributeEntry(AttributeModel const& model);

protected:
    void AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(CXmlSerializationContext const& context, bool found) const override;

private:
    AttributeModel const& m_model;
};

/// The attribute xsi:nil (XML Schema Part 1, 2.6.2). Whether it may stand there is the reader's to say.
class CNilEntry : public BxXmlLib5Data::CAttributeInfo {
public:
    explicit CNilEntry(PropertyModel const& property);

protected:
    void AttributeToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                          CXmlAttribute* attribute) override;
    void Validate(CXmlSerializationContext const& context, bool found) const override;

private:
    PropertyModel const& m_property;
};

}  // namespace BxXmlLib5::Generated
