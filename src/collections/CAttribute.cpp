#include "BxXmlLib5/collections/CAttribute.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CAttribute::CAttribute(char16_t const* name, char16_t const* value, char16_t const* ns)
    : CAttribute(CSharedText(TextOf(name)), TextOf(value), CSharedText(TextOf(ns))) {}

CAttribute::CAttribute(CSharedText name, std::u16string_view value, CSharedText ns)
    : CInstanceMonitor(u"CAttribute"), m_name(std::move(name)), m_value(value), m_namespace(std::move(ns)) {}

CAttribute::~CAttribute() = default;

CXmlObjectBase* CAttribute::GetBase() {
    return this;
}
wstring CAttribute::GetNamespace() const {
    return m_namespace.Get();
}
wstring CAttribute::GetTargetNamespace() const {
    return m_namespace.Get();
}

void CAttribute::SetName(char16_t const* name) {
    m_name.Set(TextOf(name));
}
void CAttribute::SetValue(char16_t const* value) {
    m_value = TextOf(value);
}
void CAttribute::SetNamespace(char16_t const* ns) {
    m_namespace.Set(TextOf(ns));
}

void CAttribute::ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CXmlSerializationContext const&,
                           bool) const {
    writer->WriteAttribute(m_name, m_namespace, m_value);
}

CXmlElement* CAttribute::FromXml_Int(CXmlElement*, CXmlElement*, CXmlSerializationContext const&, bool) {
    throw CBxException(u"This should be done by the collection");
}

void CAttribute::FireOnChangeName(char16_t const*) {}
void CAttribute::FireOnChangeNamespace(char16_t const*) {}

}  // namespace BxXmlLib5
