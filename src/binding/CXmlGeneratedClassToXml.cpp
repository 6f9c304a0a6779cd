// How generated classes are written.

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "binding/PropertyValues.h"
#include "binding/RootDecoration.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5 {

using namespace BxXmlLib5Data;

void CXmlGeneratedClass::ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                                   CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    CNestingLevel const level;
    CParentElementInfo const& info = *GetClassInfo();
    bool const hasTag = info.m_elementType == et_Element;
    if (hasTag) StartElementToXml(writer, isRoot, namespaceUri, context, allowEmptyChoice);
    switch (info.m_groupType) {
        case egt_Sequence:
            ProcessElementSeqToXml(context, GetClassElementInfo(), writer);
            break;
        case egt_Choice:
            ProcessElementChoiceToXml(context, GetClassElementInfo(), writer, allowEmptyChoice);
            break;
        case egt_All:
            ProcessElementAllToXml(context, GetClassElementInfo(), writer);
            break;
        default:
            throw CBxException(u"Unknown XML Group Type");
    }
    if (info.m_textPropertyIndex != -1) TextToXml(info.m_textPropertyIndex, writer);
    if (hasTag) writer->WriteEndElement();
}

void CXmlGeneratedClass::StartElementToXml(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                                           CXmlSerializationContext const& context,
                                           bool allowEmptyChoice) const {
    if (isRoot) WriteAheadOfRoot(context, writer);
    writer->WriteStartElement(m_elementName, namespaceUri);
    if (isRoot && context.m_additionalRootAttributes) {
        CXmlObjectBase::ToXml_Int(context.m_additionalRootAttributes, writer, false, namespaceUri, context,
                                  allowEmptyChoice);
    }
    AttributesToXml_Int(writer, context);
    if (!isRoot) return;
    wstring const schema = context.GetInLineSchema();
    if (!schema.empty()) writer->WriteInLineSchema(schema);
}

void CXmlGeneratedClass::AttributesToXml_Int(CXmlWriter* writer,
                                             CXmlSerializationContext const& context) const {
    CNestingLevel const level;
    CParentElementInfo const& info = *GetClassInfo();
    if (info.m_hasBaseClasses && m_elementName != info.m_elementName) {
        writer->WriteXsiType(info.m_elementNamespace, info.m_elementName);
    }
    ProcessAttributesToXml(context, GetClassElementInfo(), GetClassAttributeInfo(), writer);
}

void CXmlGeneratedClass::ProcessAttributesToXml(CXmlSerializationContext const& context,
                                                CElementInfo** elements, CAttributeInfo** attributes,
                                                CXmlWriter* writer) const {
    for (; *attributes != nullptr; ++attributes) (*attributes)->AttributeToXml(context, this, writer);
    for (; *elements != nullptr; ++elements) (*elements)->PseudoChildAttributeToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementSeqToXml(CXmlSerializationContext const& context,
                                                CElementInfo** elements, CXmlWriter* writer) const {
    for (; *elements != nullptr; ++elements) (*elements)->ElementToXml(context, this, writer);
}

void CXmlGeneratedClass::ProcessElementAllToXml(CXmlSerializationContext const& context,
                                                CElementInfo** elements, CXmlWriter* writer) const {
    ProcessElementSeqToXml(context, elements, writer);
}

void CXmlGeneratedClass::ProcessElementChoiceToXml(CXmlSerializationContext const& context,
                                                   CElementInfo** elements, CXmlWriter* writer,
                                                   bool allowEmptyChoice) const {
    for (; *elements != nullptr; ++elements) {
        if ((*elements)->ElementToXml(context, this, writer)) return;
    }
    if (DoesElementContainOptionalElementCollections() || allowEmptyChoice ||
        context.GetIgnoreMissingChoice()) {
        return;
    }
    throw CBxValidationException(
        u"This element is a choice, and as such must have at one (and only one) valid item, currently there are none set");
}

void CXmlGeneratedClass::TextToXml(int textPropertyIndex, CXmlWriter* writer) const {
    BxVariant value;
    ReadProperty(textPropertyIndex, value);
    ThrowIfKindDiffers(value, it_string);
    writer->WriteText(std::move(value).GetString());
}

}  // namespace BxXmlLib5
