#include "BxXmlLib5/collections/TypedCollections.h"

#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "collections/FacetKinds.h"
#include "core/IndexRange.h"
#include "values/CleanText.h"
#include "values/ValueKinds.h"

namespace BxXmlLib5 {

namespace {

template <ItemType kType>
auto ValueOfText(wstring&& text, CWhitespaceUtils::WhitespaceRule rule) {
    if constexpr (kType == it_string) {
        return CleanText::Of(rule, std::move(text));
    } else {
        return ValueKind<kType>::kFromString(text, rule);
    }
}

/// The type of CDateTime that a collection requires, and what others are refused with.
struct DateType {
    CDateTime::DTType m_type;
    char16_t const* m_message;
};

constexpr DateType DateTypeOf(ItemType type) {
    switch (type) {
        case it_datetime:
            return {CDateTime::dt_dateTime, u"Dates added to this collection must be of type dt_dateTime"};
        case it_date:
            return {CDateTime::dt_date, u"Dates added to this collection must be of type dt_date"};
        case it_time:
            return {CDateTime::dt_time, u"Dates added to this collection must be of type dt_time"};
        case it_yearMonth:
            return {CDateTime::dt_gYearMonth,
                    u"Dates added to this collection must be of type dt_gYearMonth"};
        default:
            return {CDateTime::dt_gMonthDay, u"Dates added to this collection must be of type dt_gMonthDay"};
    }
}

}  // namespace

template <class T>
CTypedValues<T>::CTypedValues(CTypedValues const&) = default;
template <class T>
CTypedValues<T>& CTypedValues<T>::operator=(CTypedValues const&) = default;
template <class T>
CTypedValues<T>::~CTypedValues() = default;

template <class T>
int CTypedValues<T>::GetCount() const {
    return static_cast<int>(m_items.size());
}

template <class T>
void CTypedValues<T>::Clear() {
    m_items.clear();
}

template <class T>
void CTypedValues<T>::Remove(int index) {
    ThrowIfIndexOutOfRange(index, this->GetCount());
    m_items.erase(m_items.begin() + index);
    this->FireOnCollectionChange();
}

template <class T>
void CTypedValues<T>::Insert(int index, T&& value) {
    m_items.insert(m_items.begin() + index, std::move(value));
    this->FireOnCollectionChange();
}

template <class T>
T CTypedValues<T>::ValueAt(int index) const {
    ThrowIfIndexOutOfRange(index, this->GetCount());
    return m_items[static_cast<std::size_t>(index)];
}

template <class T>
template <class TextOf>
void CTypedValues<T>::WriteValues(CXmlWriter* writer, CXmlSerializationContext const& context,
                                  TextOf textOf) const {
    this->ValidateCount(context);
    for (T const& value : m_items) {
        writer->WriteStartElement(this->m_elementName, this->m_namespace);
        writer->WriteText(textOf(value));
        writer->WriteEndElement();
    }
}

template <ItemType Kind, class T>
CTypedCol<Kind, T>::CTypedCol(char16_t const* elementName, char16_t const* ns, int minOccurs, int maxOccurs,
                              char16_t const* pattern, int minLength, int maxLength,
                              char16_t const* minInclusive, char16_t const* maxInclusive,
                              char16_t const* minExclusive, char16_t const* maxExclusive, int length,
                              CWhitespaceUtils::WhitespaceRule rule, char16_t const* format)
    : CTypedValues<T>(Kind, elementName, ns, minOccurs, maxOccurs, pattern, minLength, maxLength,
                      minInclusive, maxInclusive, minExclusive, maxExclusive, length, rule, format),
      CInstanceMonitor(u"CTypedCol") {}

template <ItemType Kind, class T>
CTypedCol<Kind, T>::CTypedCol(CTypedCol const&) = default;
template <ItemType Kind, class T>
CTypedCol<Kind, T>& CTypedCol<Kind, T>::operator=(CTypedCol const&) = default;
template <ItemType Kind, class T>
CTypedCol<Kind, T>::~CTypedCol() = default;

template <ItemType Kind, class T>
void CTypedCol<Kind, T>::Add(Argument value) {
    CheckValue<Kind>(this->m_restrictions, this->m_elementName.c_str(), value);
    this->m_items.push_back(std::forward<Argument>(value));
    this->FireOnCollectionChange();
}

template <ItemType Kind, class T>
void CTypedCol<Kind, T>::AddAt(int index, Argument value) {
    InsertTested(index, T(std::forward<Argument>(value)));
}

template <ItemType Kind, class T>
T CTypedCol<Kind, T>::Item(int index) const requires std::is_arithmetic_v<T> {
    return this->ValueAt(index);
}
template <ItemType Kind, class T>
T CTypedCol<Kind, T>::Item(int index) requires std::is_class_v<T> {
    return this->ValueAt(index);
}

template <ItemType Kind, class T>
void CTypedCol<Kind, T>::ToXml_Int(CXmlWriter* writer, bool, char16_t const*,
                                   CXmlSerializationContext const& context, bool) const {
    this->WriteValues(writer, context, [this](T const& value) -> decltype(auto) {
        return LexicalForm<Kind>(value, this->m_format);
    });
}

template <ItemType Kind, class T>
void CTypedCol<Kind, T>::AddFromString(wstring text) {
    InsertTested(this->GetCount(), ValueOfText<Kind>(std::move(text), this->m_whitespaceRule));
}

template <ItemType Kind, class T>
void CTypedCol<Kind, T>::InsertTested(int index, T&& value) {
    ThrowIfInsertionIndexOutOfRange(index, this->GetCount());
    CheckValue<Kind>(this->m_restrictions, this->m_elementName.c_str(), value);
    this->Insert(index, std::move(value));
}

CdatetimeBaseCol::CdatetimeBaseCol(ItemType itemType, char16_t const* elementName, char16_t const* ns,
                                   int minOccurs, int maxOccurs, char16_t const* pattern, int minLength,
                                   int maxLength, char16_t const* minInclusive, char16_t const* maxInclusive,
                                   char16_t const* minExclusive, char16_t const* maxExclusive, int length,
                                   CWhitespaceUtils::WhitespaceRule rule, char16_t const* format)
    : CTypedValues(itemType, elementName, ns, minOccurs, maxOccurs, pattern, minLength, maxLength,
                   minInclusive, maxInclusive, minExclusive, maxExclusive, length, rule, format) {}

CdatetimeBaseCol::CdatetimeBaseCol(CdatetimeBaseCol const&) = default;
CdatetimeBaseCol& CdatetimeBaseCol::operator=(CdatetimeBaseCol const&) = default;
CdatetimeBaseCol::~CdatetimeBaseCol() = default;

void CdatetimeBaseCol::Add(CDateTime const& value) {
    AddAt(GetCount(), value);
}

CDateTime CdatetimeBaseCol::Item(int index) {
    return ValueAt(index);
}

void CdatetimeBaseCol::BaseAddAt(int index, CDateTime const& value) {
    ThrowIfInsertionIndexOutOfRange(index, GetCount());
    Insert(index, CDateTime(value));
}

void CdatetimeBaseCol::ToXml_Int(CXmlWriter* writer, bool, char16_t const*,
                                 CXmlSerializationContext const& context, bool) const {
    // Derived classes override ItemToString as it is, not const.
    auto* const self = const_cast<CdatetimeBaseCol*>(this);
    WriteValues(writer, context, [self](CDateTime const& value) { return self->ItemToString(value); });
}

template <ItemType Kind>
CTypedDateCol<Kind>::CTypedDateCol(char16_t const* elementName, char16_t const* ns, int minOccurs,
                                   int maxOccurs, char16_t const* pattern, int minLength, int maxLength,
                                   char16_t const* minInclusive, char16_t const* maxInclusive,
                                   char16_t const* minExclusive, char16_t const* maxExclusive, int length,
                                   CWhitespaceUtils::WhitespaceRule rule, char16_t const* format)
    : CdatetimeBaseCol(Kind, elementName, ns, minOccurs, maxOccurs, pattern, minLength, maxLength,
                       minInclusive, maxInclusive, minExclusive, maxExclusive, length, rule, format),
      CInstanceMonitor(u"CTypedDateCol") {}

template <ItemType Kind>
CTypedDateCol<Kind>::CTypedDateCol(CTypedDateCol const&) = default;
template <ItemType Kind>
CTypedDateCol<Kind>& CTypedDateCol<Kind>::operator=(CTypedDateCol const&) = default;
template <ItemType Kind>
CTypedDateCol<Kind>::~CTypedDateCol() = default;

template <ItemType Kind>
void CTypedDateCol<Kind>::AddAt(int index, CDateTime const& value) {
    constexpr DateType kRequired = DateTypeOf(Kind);
    if (value.GetType() != kRequired.m_type) throw CBxInvalidParamException(kRequired.m_message);
    CheckValue<Kind>(m_restrictions, m_elementName.c_str(), value);
    BaseAddAt(index, value);
}

template <ItemType Kind>
void CTypedDateCol<Kind>::AddFromString(wstring text) {
    Add(ValueOfText<Kind>(std::move(text), m_whitespaceRule));
}

template <ItemType Kind>
wstring CTypedDateCol<Kind>::ItemToString(CDateTime const& value) {
    return ValueKind<Kind>::kToString(value);
}

#define BX_INSTANTIATE(kind, member) template class CTypedCol<it_##kind, ValueKind<it_##kind>::Value>;
#define BX_INSTANTIATE_DATES(kind, member) template class CTypedDateCol<it_##kind>;
BX_FOR_EACH_KIND_BUT_DATES(BX_INSTANTIATE)
BX_FOR_EACH_DATE_KIND(BX_INSTANTIATE_DATES)

}  // namespace BxXmlLib5
