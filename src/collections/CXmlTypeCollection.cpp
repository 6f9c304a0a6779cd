#include "BxXmlLib5/collections/CXmlTypeCollection.h"

#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/IgnoredContent.h"
#include "document/ReadPlace.h"

namespace BxXmlLib5 {

CXmlTypeCollection::CXmlTypeCollection(ItemType itemType, char16_t const* elementName, char16_t const* ns,
                                       int minOccurs, int maxOccurs, char16_t const* pattern, int minLength,
                                       int maxLength, char16_t const* minInclusive,
                                       char16_t const* maxInclusive, char16_t const* minExclusive,
                                       char16_t const* maxExclusive, int length,
                                       CWhitespaceUtils::WhitespaceRule rule, char16_t const* format)
    : CXmlCollectionBase(elementName, ns, minOccurs, maxOccurs),
      m_restrictions(pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive,
                     length),
      m_itemType(itemType),
      m_format(format),
      m_whitespaceRule(rule) {}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* firstChild,
                                             CXmlSerializationContext const& context, bool) {
    CXmlElement* child = firstChild;
    while (child != nullptr &&
           DoesElementNameMatch(context, child, m_elementName.c_str(), m_namespace.c_str())) {
        ReadAt(child, [&] {
            TestSimpleContent(*child, context);
            AddFromString(wstring(child->GetTextView()));
        });
        child = child->GetNextSiblingElement();
    }
    return child;
}

}  // namespace BxXmlLib5
