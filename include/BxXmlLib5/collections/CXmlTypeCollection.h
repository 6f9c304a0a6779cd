// What the collections of plain values have in common.
#pragma once

#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "BxXmlLib5/values/ItemType.h"

namespace BxXmlLib5 {

/// A repeated element of a simple type: the facets of the type, and how its text is read and written.
///
/// The elements of the collection's name are read one after the other, up to the first of another name; the
/// values before one that fails stay. On writing, the count is tested before anything is written, the values
/// are not tested again.
class BXXMLLIB5_API CXmlTypeCollection : public CXmlCollectionBase {
public:
    /// @{
    /// Takes the facets and all that CXmlCollectionBase copies.
    CXmlTypeCollection(CXmlTypeCollection const&) = default;
    CXmlTypeCollection& operator=(CXmlTypeCollection const&) = default;
    /// @}

protected:
    /// @param elementName,ns of each element
    /// @param minOccurs,maxOccurs the bounds of the count, -1 for no maximum
    /// @param pattern,minLength,maxLength,minInclusive,maxInclusive,minExclusive,maxExclusive,length the
    ///        facets, as CPrimitiveRestrictions takes them
    /// @param rule applied to text that becomes a value
    /// @param format as CConversions takes it, null for the default; only numbers with a fraction look at it.
    ///        The text is not copied and must outlive the collection.
    CXmlTypeCollection(ItemType itemType, char16_t const* elementName, char16_t const* ns, int minOccurs,
                       int maxOccurs, char16_t const* pattern, int minLength, int maxLength,
                       char16_t const* minInclusive, char16_t const* maxInclusive,
                       char16_t const* minExclusive, char16_t const* maxExclusive, int length,
                       CWhitespaceUtils::WhitespaceRule rule, char16_t const* format);
    ~CXmlTypeCollection() override;

    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlObjectBase::FromXml_Int;

    /// Adds the value of a text at the end.
    /// @throws what CConversions throws for the text, and Add for the value
    virtual void AddFromString(wstring text) = 0;

    CPrimitiveRestrictions m_restrictions;              ///< the facets
    ItemType m_itemType;                                ///< the kind of the values
    char16_t const* m_format;                           ///< not owned; null for the default
    CWhitespaceUtils::WhitespaceRule m_whitespaceRule;  ///< for text that becomes a value
};

}  // namespace BxXmlLib5
