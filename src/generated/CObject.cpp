#include "BxXmlLib5/generated/CObject.h"

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/IgnoredContent.h"
#include "core/NestingDepth.h"
#include "generated/Model.h"
#include "generated/ObjectAccess.h"
#include "generated/Reading.h"
#include "generated/TypeOfElement.h"
#include "generated/Writing.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

using namespace BxXmlLib5Data;

CObject::CObject() = default;
CObject::CObject(CObject const& other)
    : CXmlGeneratedClass(other),
      m_kept(other.m_kept ? std::make_unique<KeptTypes>(*other.m_kept) : nullptr) {}
CObject& CObject::operator=(CObject const& other) {
    CXmlGeneratedClass::operator=(other);
    m_kept = other.m_kept ? std::make_unique<KeptTypes>(*other.m_kept) : nullptr;
    return *this;
}
CObject::~CObject() = default;

CGroup::CGroup() = default;
CGroup::CGroup(CGroup const& other) = default;
CGroup& CGroup::operator=(CGroup const& other) = default;
CGroup::~CGroup() = default;

CXmlObjectBase* CObject::GetBase() {
    return this;
}
wstring CObject::GetNamespace() const {
    return Describe().GetModel().namespaceUri;
}
wstring CObject::GetTargetNamespace() const {
    return Describe().GetModel().namespaceUri;
}
CParentElementInfo* CObject::GetClassInfo() const {
    return Describe().GetModel().info.get();
}
CElementInfo** CObject::GetClassElementInfo() const {
    return const_cast<CElementInfo**>(Describe().GetModel().elementTable);
}
CAttributeInfo** CObject::GetClassAttributeInfo() const {
    return const_cast<CAttributeInfo**>(Describe().GetModel().attributeTable.data());
}

void CObject::AccessProperty(int, bool, BxVariant&) {
    // The entries of these classes have the properties themselves, so nothing crosses in a variant.
    throw CBxException(u"The properties of a generated class have no indexes");
}

void CObject::ResetContent() {
    m_kept = nullptr;
    for (PropertyModel const& property : Describe().GetModel().properties) {
        property.actions->clear(property.Of(*this));
    }
}

CXmlElement* CObject::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                  CXmlSerializationContext const& context, bool allowEmptyChoice) {
    Model const& model = Describe().GetModel();
    bool const isExpected =
        !model.type.GetFacts().isRoot ||
        (BxXmlLib5::Equal(element->GetLocalName(), model.name) &&
         (context.GetIgnoreNamespaces() || BxXmlLib5::Equal(element->GetNamespaceURI(), model.namespaceUri)));
    if (!isExpected) {
        ThrowUnexpectedRoot(*element, model.name, model.namespaceUri);
    }
    if (model.type.GetFacts().isRoot) {
        if (auto const named = NamedTypeOf(*element, *model.type.GetFacts().set)) {
            ReadRootAs(*this, *element, *named, context);
            return nullptr;
        }
        if (model.IsAbstract()) ThrowAbstract(*element, TypeClass(model.type));
    }
    return CXmlGeneratedClass::FromXml_Int(element, firstChild, context, allowEmptyChoice);
}

void CObject::AttributesToXml_Int(CXmlWriter* writer, CXmlSerializationContext const& context) const {
    if (CObject const* const typed = Describe().GetModel().XsiTyped(*this)) {
        WriteXsiType(*typed, writer);
        return typed->AttributesToXml_Int(writer, context);
    }
    if (m_kept) WriteKeptType(*this, writer, context);
    CXmlGeneratedClass::AttributesToXml_Int(writer, context);
}

void CObject::ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                        CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    if (m_elementName.empty()) const_cast<CObject*>(this)->m_elementName = Describe().GetModel().name;
    CXmlGeneratedClass::ToXml_Int(writer, isRoot, namespaceUri, context, allowEmptyChoice);
}

CSmartPtr<CObject> CObject::Clone() const {
    CNestingLevel const level;
    Class const& type = Describe();
    CSmartPtr<CObject> copy = type.GetFacts().make();
    copy->m_elementName = m_elementName;
    if (m_kept) copy->m_kept = std::make_unique<KeptTypes>(*m_kept);
    for (PropertyModel const& property : type.GetModel().properties) {
        if (property.Count(*this) > 0) property.actions->copy(property.Of(*copy), property.Of(*this));
    }
    return copy;
}

bool CObject::Equals(CObject const& other) const {
    CNestingLevel const level;
    if (&Describe() != &other.Describe()) return false;
    for (PropertyModel const& property : Describe().GetModel().properties) {
        if (!property.actions->equals(property.Of(*this), property.Of(other))) return false;
    }
    return true;
}

std::vector<wstring> CObject::Validate() const {
    std::vector<wstring> complaints;
    CXmlSerializationContext const context;
    auto const list = [&](CPathWriter* path) {
        complaints.clear();
        Writing writing(*this, context, path, &complaints, path);
        writing.Attributes();
        writing.Content(Describe().GetModel().isNillable);
    };
    list(nullptr);
    if (complaints.empty()) return complaints;
    // Only what is wrong somewhere is worth the account of where.
    CPathWriter path(nullptr);
    path.WriteStartElement(Describe().GetModel().name, {});
    list(&path);
    return complaints;
}

}  // namespace BxXmlLib5::Generated
