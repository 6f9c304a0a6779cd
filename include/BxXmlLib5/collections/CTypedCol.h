// The templates of the typed collections.
#pragma once

#include <type_traits>
#include <vector>

#include "BxXmlLib5/collections/CXmlTypeCollection.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"

namespace BxXmlLib5 {

/// The values of a typed collection.
template <class T>
class BXXMLLIB5_API CTypedValues : public CXmlTypeCollection {
public:
    /// The number of values.
    int GetCount() const override;
    /// Tells nobody.
    void Clear() override;
    /// Removes the value at a position, and tells the listeners.
    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    void Remove(int index) override;

    /// A value that is written through an iterator passes no test, and nobody is told.
    typename std::vector<T>::iterator begin() { return m_items.begin(); }
    /// Behind the last value.
    typename std::vector<T>::iterator end() { return m_items.end(); }
    /// The values in order.
    typename std::vector<T>::const_iterator begin() const { return m_items.begin(); }
    /// Behind the last value.
    typename std::vector<T>::const_iterator end() const { return m_items.end(); }

protected:
    /// Copies the values, the facets and the listeners.
    CTypedValues(CTypedValues const& other);
    /// Copies the values, the facets and the listeners.
    CTypedValues& operator=(CTypedValues const& other);
    ~CTypedValues() override;

private:
    friend class CdatetimeBaseCol;
    template <ItemType, class>
    friend class CTypedCol;

    using CXmlTypeCollection::CXmlTypeCollection;

    void Insert(int index, T&& value);
    T ValueAt(int index) const;
    template <class TextOf>
    void WriteValues(CXmlWriter* writer, CXmlSerializationContext const& context, TextOf textOf) const;

    std::vector<T> m_items;
};

/// The typed collection of a kind. TypedCollections.h describes all of them.
template <ItemType Kind, class T>
class BXXMLLIB5_API CTypedCol : public CTypedValues<T>, public CInstanceMonitor {
public:
    /// How a value is handed over: a value class by reference, a number or a text by value.
    using Argument = std::conditional_t<std::is_arithmetic_v<T> || std::is_same_v<T, wstring>, T, T const&>;

    /// The arguments are those of CXmlTypeCollection.
    CTypedCol(char16_t const* elementName, char16_t const* ns, int minOccurs, int maxOccurs,
              char16_t const* pattern, int minLength, int maxLength, char16_t const* minInclusive,
              char16_t const* maxInclusive, char16_t const* minExclusive, char16_t const* maxExclusive,
              int length, CWhitespaceUtils::WhitespaceRule rule, char16_t const* format);
    /// Copies the values, the facets and the listeners.
    CTypedCol(CTypedCol const& other);
    /// Copies the values, the facets and the listeners.
    CTypedCol& operator=(CTypedCol const& other);
    ~CTypedCol() override;

    /// Adds a value at the end.
    /// @throws CBxException if a facet refuses it
    void Add(Argument value);

    /// Inserts a value so that it has this position.
    /// @param index 0 to GetCount()
    /// @throws CBxInvalidParamException for any other index, and then CBxException if a facet refuses the
    ///         value
    void AddAt(int index, Argument value);

    /// A copy of the value at a position.
    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    T Item(int index) const requires std::is_arithmetic_v<T>;
    /// As above.
    T Item(int index) requires std::is_class_v<T>;

protected:
    /// Writes an element for each value, after the count is tested.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override;
    /// Adds the value of a text at the end, as Add() does.
    void AddFromString(wstring text) override;
    using CXmlObjectBase::ToXml_Int;

private:
    void InsertTested(int index, T&& value);
};

}  // namespace BxXmlLib5
