#include "binding/PropertyValues.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5Data {

using namespace BxXmlLib5;

void ThrowIfKindDiffers(BxVariant const& value, ItemType kind) {
    if (value.m_type == kind || !value.IsValid()) return;
    throw CBxException(
        FormatString(u"Serialization Data Error : The property should hold a value of type %d, it holds %d!",
                     int{kind}, int{value.m_type}));
}

void ThrowNothingInPlace() {
    throw CBxException(
        u"Serialization Data Error : The property should hold an object or a collection, it holds none!");
}

CXmlObjectBase* ObjectIn(BxVariant const& value) {
    ThrowIfKindDiffers(value, it_xmlObject);
    return value.m_value.m_xmlObject;
}

CXmlCollectionBase* CollectionIn(BxVariant const& value) {
    ThrowIfKindDiffers(value, it_xmlCollection);
    return value.m_value.m_xmlCollection;
}

CXmlCollectionBase& PresentCollectionIn(BxVariant const& value) {
    CXmlCollectionBase* const collection = CollectionIn(value);
    if (collection == nullptr) ThrowNothingInPlace();
    return *collection;
}

wstring EnumText(Detail::EnumToString enumToString, BxVariant const& value, wstring const& name) {
    ThrowIfKindDiffers(value, it_i4);
    char16_t const* const text = enumToString(value.GetI4());
    if (text == nullptr) {
        throw CBxInvalidValueException(
            FormatString(u"Invalid Value for %s [%d]", name.c_str(), value.GetI4()));
    }
    return text;
}

BxVariant EnumValue(Detail::StringToEnum stringToEnum, std::u16string_view text, wstring const& name) {
    if (text.find(u'\0') != text.npos) {
        throw CBxInvalidValueException(
            FormatString(u"Invalid Value for %s, it has a unit of value 0", name.c_str()));
    }
    BxVariant value;
    value.SetI4(stringToEnum(wstring(text).c_str()));
    return value;
}

}  // namespace BxXmlLib5Data
