// The objects in a variant, which counts their references without knowing their classes.

#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "values/VariantSlot.h"

namespace BxXmlLib5 {

void AddReference(CXmlObjectBase* object) {
    object->AddRef();
}
void AddReference(CXmlCollectionBase* collection) {
    collection->AddRef();
}
void DropReference(CXmlObjectBase* object) {
    object->Release();
}
void DropReference(CXmlCollectionBase* collection) {
    collection->Release();
}

void BxVariant::SetXmlObject(CXmlObjectBase* value) {
    if (value != nullptr) value->AddRef();
    Start(it_xmlObject).m_xmlObject = value;
}
void BxVariant::SetXmlCollection(CXmlCollectionBase* value) {
    if (value != nullptr) value->AddRef();
    Start(it_xmlCollection).m_xmlCollection = value;
}
CSmartPtr<CXmlObjectBase> BxVariant::GetXmlObject() const {
    return m_value.m_xmlObject;
}
CSmartPtr<CXmlCollectionBase> BxVariant::GetXmlCollection() const {
    return m_value.m_xmlCollection;
}

}  // namespace BxXmlLib5
