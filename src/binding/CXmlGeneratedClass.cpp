#include "BxXmlLib5/binding/CXmlGeneratedClass.h"

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/CElementInfoChoice.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/core/CBxException.h"
#include "binding/PropertyValues.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

using namespace BxXmlLib5Data;

CXmlGeneratedClass::CXmlGeneratedClass() = default;
CXmlGeneratedClass::CXmlGeneratedClass(CXmlGeneratedClass const& other) = default;
CXmlGeneratedClass& CXmlGeneratedClass::operator=(CXmlGeneratedClass const& other) = default;
CXmlGeneratedClass::~CXmlGeneratedClass() = default;

void CXmlGeneratedClass::ReadProperty(int propertyIndex, BxVariant& value) const {
    const_cast<CXmlGeneratedClass*>(this)->AccessProperty(propertyIndex, true, value);
}

bool CXmlGeneratedClass::IsElementInList(CXmlSerializationContext const& context,
                                         CXmlElement* element) const {
    for (CElementInfo** entry = GetClassElementInfo(); *entry != nullptr; ++entry) {
        if ((*entry)->IsThisElement(context, element)) return true;
    }
    return false;
}

namespace {

/// Whether an entry is of one of these classes, or of one derived from them.
template <class... Classes>
bool IsOneOf(CElementInfo const* entry) {
    return ((dynamic_cast<Classes const*>(entry) != nullptr) || ...);
}

}  // namespace

bool CXmlGeneratedClass::DoesElementContainOptionalElementCollections() const {
    for (CElementInfo** entry = GetClassElementInfo(); *entry != nullptr; ++entry) {
        if (!IsOneOf<CElementInfoChoicePrimCol, CElementInfoChoiceClsCol, CElementInfoChoiceAbsClsCol,
                     CElementInfoChoiceEnumCol, CElementInfoChoiceUntpdCol>(*entry)) {
            continue;
        }
        BxVariant value;
        ReadProperty((*entry)->GetPropertyIndex(), value);
        if (PresentCollectionIn(value).GetMinOccurs() == 0) return true;
    }
    return false;
}

namespace {

template <class Entry>
void DeleteTable(Entry**& table) {
    if (table == nullptr) return;
    for (Entry** entry = table; *entry != nullptr; ++entry) delete *entry;
    delete[] table;
    table = nullptr;
}

}  // namespace

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& parent, CElementInfo**& elements,
                                       CAttributeInfo**& attributes) {
    delete parent;
    parent = nullptr;
    DeleteTable(elements);
    DeleteTable(attributes);
}

}  // namespace BxXmlLib5
