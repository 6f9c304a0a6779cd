#include "generated/FixedValue.h"

#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "generated/Model.h"
#include "generated/ObjectAccess.h"

namespace BxXmlLib5::Generated {

namespace {

[[noreturn]] void ThrowOther(std::u16string_view fixed) {
    throw CBxInvalidValueException(
        FormatString(u"The element has not the fixed value [%s]", wstring(fixed).c_str()));
}

bool HasChildren(CObject const& object, Model const& model) {
    if (model.content == nullptr) return false;
    for (std::size_t i = 0; i < model.properties.size(); ++i) {
        if (model.content->properties.Has(i) && model.properties[i].Count(object) > 0) return true;
    }
    return false;
}

}  // namespace

void TestFixed(CObject const& object, std::u16string_view fixed) {
    Model const& model = ObjectAccess::ModelOf(object);
    if (model.text == nullptr || model.IsNil(object) || HasChildren(object, model)) ThrowOther(fixed);
    // Values are compared, not their texts: what has the value is made.
    CSmartPtr<CObject> const wanted = model.type.GetFacts().make();
    PropertyModel const& text = *model.text;
    text.actions->read(text.Of(*wanted), fixed);
    if (!text.actions->equals(text.Of(object), text.Of(*wanted))) ThrowOther(fixed);
}

void TestFixed(CElement const& element, std::u16string_view fixed) {
    wstring const text = element.GetText();
    if (element.GetChildElements()->GetCount() > 0 || (!text.empty() && text != fixed)) ThrowOther(fixed);
}

}  // namespace BxXmlLib5::Generated
