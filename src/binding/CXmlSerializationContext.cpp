#include "BxXmlLib5/binding/CXmlSerializationContext.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "core/NeverDestroyed.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

CXmlSerializationContext::CXmlSerializationContext() = default;
CXmlSerializationContext::CXmlSerializationContext(CXmlSerializationContext const& other) = default;
CXmlSerializationContext& CXmlSerializationContext::operator=(CXmlSerializationContext const& other) =
    default;
CXmlSerializationContext::~CXmlSerializationContext() = default;

CXmlSerializationContext& CXmlSerializationContext::GetDefaultContext() {
    static NeverDestroyed<CXmlSerializationContext> s_defaultContext;
    return *s_defaultContext;
}

void CXmlSerializationContext::SetIgnoreUnknownElements(bool value) {
    if (value && m_ignoreMissingMandatoryElements) {
        throw CBxInvalidStateException(
            u"The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    }
    m_ignoreUnknownElements = value;
}

void CXmlSerializationContext::SetIgnoreMissingMandatoryElements(bool value) {
    if (value && m_ignoreUnknownElements) {
        throw CBxInvalidStateException(
            u"The parser can only ignore additional elements, or ignore the fact that some required ones are missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    }
    m_ignoreMissingMandatoryElements = value;
}

void CXmlSerializationContext::SetDefaultNamespaceURI(char16_t const* namespaceUri) {
    m_defaultNamespaceUri = TextOf(namespaceUri);
}

void CXmlSerializationContext::SetInLineSchema(char16_t const* schema) {
    m_inLineSchema = TextOf(schema);
}

CSmartPtr<CAttributeCol> CXmlSerializationContext::GetAdditionalRootAttributes() const {
    if (!m_additionalRootAttributes) m_additionalRootAttributes = new CAttributeCol(u"", u"##any", u"");
    return m_additionalRootAttributes;
}

}  // namespace BxXmlLib5
