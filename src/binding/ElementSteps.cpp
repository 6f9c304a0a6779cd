#include "binding/ElementSteps.h"

#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "binding/PropertyValues.h"
#include "document/ReadPlace.h"
#include "platform/TextView.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

namespace {

/// The element name of untyped content that may have any.
constexpr std::u16string_view kAnyElement = u"AnyElement";

}  // namespace

void CElementInfo::Steps::ObjectAttributesToXml(CElementInfo const& entry,
                                                CXmlSerializationContext const& context,
                                                CXmlGeneratedClass const* owner, CXmlWriter* writer) {
    BxVariant value;
    entry.ReadProperty(owner, value);
    CXmlObjectBase const* const object = ObjectIn(value);
    if (object != nullptr) CElementInfo::AttributesToXml_Int(object, writer, context);
}

void CElementInfo::Steps::ItemsAttributesToXml(CElementInfo const& entry,
                                               CXmlSerializationContext const& context,
                                               CXmlGeneratedClass const* owner, CXmlWriter* writer) {
    BxVariant value;
    entry.ReadProperty(owner, value);
    CElementInfo::AttributesToXml_Int(&PresentCollectionIn(value), writer, context);
}

void CElementInfo::Steps::ReadPrim(CElementInfo& entry, CXmlGeneratedClass* owner, CXmlElement** child,
                                   CXmlSerializationContext const& context) {
    ReadAt(*child, [&] {
        TestSimpleContent(**child, context);
        BxVariant value;
        value.FromString((*child)->GetTextView(), entry.m_itemType, entry.m_whitespaceRule);
        entry.AccessProperty(owner, false, value);
    });
    *child = (*child)->GetNextSiblingElement();
}

void CElementInfo::Steps::ReadEnum(CElementInfo& entry, CXmlGeneratedClass* owner, CXmlElement** child,
                                   Detail::StringToEnum stringToEnum,
                                   CXmlSerializationContext const& context) {
    ReadAt(*child, [&] {
        TestSimpleContent(**child, context);
        BxVariant value = EnumValue(stringToEnum, (*child)->GetTextView(), entry.m_elementName);
        entry.AccessProperty(owner, false, value);
    });
    *child = (*child)->GetNextSiblingElement();
}

void CElementInfo::Steps::ReadTag(CXmlObjectBase* object, CXmlElement** child,
                                  CXmlSerializationContext const& context, bool allowEmptyChoice) {
    CXmlElement const* const rest =
        CElementInfo::FromXml_Int(object, *child, (*child)->GetFirstElement(), context, allowEmptyChoice);
    TestRest(rest, **child, context);
    *child = (*child)->GetNextSiblingElement();
}

bool CElementInfo::Steps::ReadGroup(CXmlObjectBase* object, CXmlElement* element, CXmlElement** child,
                                    CXmlSerializationContext const& context) {
    auto const before = CTakenContent::Save(element);
    CXmlElement* const next = CElementInfo::FromXml_Int(object, element, *child, context, false);
    if (next == *child) {
        CTakenContent::Restore(element, before);
        return false;
    }
    *child = next;
    return true;
}

CXmlElement* CElementInfo::Steps::ReadUntyped(CElementInfo const& entry, CXmlObjectBase* object,
                                              CXmlElement* element, CXmlElement* child,
                                              CXmlSerializationContext const& context) {
    if (entry.m_elementName != kAnyElement && child->GetLocalName() != entry.m_elementName) return child;
    return CElementInfo::FromXml_Int(object, element, child, context, false);
}

CXmlElement* CElementInfo::Steps::ReadUntypedRun(CElementInfo const& entry, CXmlCollectionBase* collection,
                                                 CXmlElement* element, CXmlElement* child,
                                                 CXmlSerializationContext const& context) {
    if (entry.m_elementName == kAnyElement)
        return CElementInfo::FromXml_Int(collection, element, child, context, false);
    if (child == nullptr || child->GetLocalName() != entry.m_elementName) return child;
    auto* const untyped = dynamic_cast<CElementCol*>(collection);
    if (untyped == nullptr) {
        throw CBxException(u"Serialization Data Error : The collection should be a CElementCol, it was not!");
    }
    return untyped->FromXmlLockElementName_Int(entry.m_elementName, child->GetNamespaceURI(), element, child,
                                               context);
}

CSmartPtr<CXmlObjectBase> CElementInfo::Steps::ObjectInPlace(CElementInfo const& entry,
                                                             CXmlGeneratedClass const* owner) {
    BxVariant value;
    entry.ReadProperty(owner, value);
    CXmlObjectBase* const object = ObjectIn(value);
    if (object == nullptr) ThrowNothingInPlace();
    return object;
}

CSmartPtr<CXmlCollectionBase> CElementInfo::Steps::CollectionInPlace(CElementInfo const& entry,
                                                                     CXmlGeneratedClass const* owner) {
    BxVariant value;
    entry.ReadProperty(owner, value);
    return &PresentCollectionIn(value);
}

void CElementInfo::Steps::ValidateCount(CXmlCollectionBase const& collection,
                                        CXmlSerializationContext const& context) {
    if (!context.GetIgnoreInvalidCollectionCounts()) collection.ValidateCount(context);
}

bool CElementInfo::Steps::Advance(CXmlCollectionBase const& collection, CXmlElement** child,
                                  CXmlElement* next, CXmlSerializationContext const& context) {
    if (next == *child) return false;
    *child = next;
    ValidateCount(collection, context);
    return true;
}

void CElementInfo::Steps::StoreObject(CElementInfo& entry, CXmlGeneratedClass* owner,
                                      CXmlObjectBase* object) {
    BxVariant value;
    value.SetXmlObject(object);
    entry.AccessProperty(owner, false, value);
}

CSmartPtr<CXmlObjectBase> CElementInfo::Steps::Create(CElementInfo const& entry,
                                                      Detail::CreateByClass createByClass, int classId) {
    return createByClass(classId, entry.m_elementName.c_str());
}

CSmartPtr<CXmlObjectBase> CElementInfo::Steps::CreateUntyped(CElementInfo const& entry,
                                                             wstring const& allowedNamespaces,
                                                             char16_t const* namespaceUri,
                                                             wstring const& targetNamespace) {
    wstring const ns =
        GetAnyDefaultNamespace(allowedNamespaces.c_str(), namespaceUri, targetNamespace.c_str());
    return CSmartPtr<CElement>(new CElement(entry.m_elementName.c_str(), ns.c_str(),
                                            allowedNamespaces.c_str(), targetNamespace.c_str()));
}

void CElementInfo::Steps::ThrowIsNeverValidated() {
    throw CBxException(u"Not implemented, should never be called");
}

}  // namespace BxXmlLib5Data
