// What the collections of dates and times have in common.
#pragma once

#include "BxXmlLib5/collections/CTypedCol.h"
#include "BxXmlLib5/values/CDateTime.h"

namespace BxXmlLib5 {

/// A typed collection of one of the types of CDateTime. TypedCollections.h describes all of them.
class BXXMLLIB5_API CdatetimeBaseCol : public CTypedValues<CDateTime> {
public:
    /// The arguments are those of CXmlTypeCollection.
    CdatetimeBaseCol(ItemType itemType, char16_t const* elementName, char16_t const* ns, int minOccurs,
                     int maxOccurs, char16_t const* pattern, int minLength, int maxLength,
                     char16_t const* minInclusive, char16_t const* maxInclusive, char16_t const* minExclusive,
                     char16_t const* maxExclusive, int length, CWhitespaceUtils::WhitespaceRule rule,
                     char16_t const* format);
    /// @{
    /// Copies the values, the facets and the listeners.
    CdatetimeBaseCol(CdatetimeBaseCol const&);
    CdatetimeBaseCol& operator=(CdatetimeBaseCol const&);
    /// @}
    ~CdatetimeBaseCol() override;

    /// Adds a value at the end, through AddAt().
    virtual void Add(CDateTime const& value);

    /// Inserts a value so that it has this position.
    /// @param index 0 to GetCount()
    /// @throws CBxInvalidParamException for a value of another type, then CBxException if a facet refuses the
    ///         value, then CBxInvalidParamException for any other index
    virtual void AddAt(int index, CDateTime const& value) = 0;

    /// A copy of the value at a position.
    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    virtual CDateTime Item(int index);

protected:
    /// The text of a value in documents.
    virtual wstring ItemToString(CDateTime const& value) = 0;

    /// Inserts a value without testing it, and tells the listeners.
    /// @throws CBxInvalidParamException unless index is 0 to GetCount()
    void BaseAddAt(int index, CDateTime const& value);

    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    using CXmlObjectBase::ToXml_Int;
};

/// The typed collection of a kind of date or time.
template <ItemType Kind>
class BXXMLLIB5_API CTypedDateCol : public CdatetimeBaseCol, public CInstanceMonitor {
public:
    /// The arguments are those of CXmlTypeCollection.
    CTypedDateCol(char16_t const* elementName, char16_t const* ns, int minOccurs, int maxOccurs,
                  char16_t const* pattern, int minLength, int maxLength, char16_t const* minInclusive,
                  char16_t const* maxInclusive, char16_t const* minExclusive, char16_t const* maxExclusive,
                  int length, CWhitespaceUtils::WhitespaceRule rule, char16_t const* format);
    /// Copies the values, the facets and the listeners.
    CTypedDateCol(CTypedDateCol const&);
    /// Copies the values, the facets and the listeners.
    CTypedDateCol& operator=(CTypedDateCol const&);
    ~CTypedDateCol() override;

    /// As CdatetimeBaseCol::AddAt().
    void AddAt(int index, CDateTime const& value) override;

protected:
    /// Adds the value of a text at the end, as Add() does.
    void AddFromString(wstring text) override;
    /// The text of a value in documents.
    wstring ItemToString(CDateTime const& value) override;
};

}  // namespace BxXmlLib5
