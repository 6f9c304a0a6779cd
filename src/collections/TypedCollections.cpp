#include "BxXmlLib5/collections/TypedCollections.h"

#include <type_traits>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "collections/FacetKinds.h"
#include "core/IndexRange.h"
#include "values/CleanText.h"

namespace BxXmlLib5 {

// The kinds and their types of value.
#define BX_FOR_EACH_KIND(ROW)      \
    ROW(i1, std::int8_t)           \
    ROW(i2, std::int16_t)          \
    ROW(i4, std::int32_t)          \
    ROW(i8, std::int64_t)          \
    ROW(ui1, std::uint8_t)         \
    ROW(ui2, std::uint16_t)        \
    ROW(ui4, std::uint32_t)        \
    ROW(ui8, std::uint64_t)        \
    ROW(r4, float)                 \
    ROW(r8, double)                \
    ROW(boolean, bool)             \
    ROW(string, wstring)           \
    ROW(decimal, CDecimal)         \
    ROW(integer, CBigInteger)      \
    ROW(hexBinary, CBinaryData)    \
    ROW(base64Binary, CBinaryData) \
    ROW(duration, CDateTimeSpan)   \
    ROW(day, std::uint8_t)         \
    ROW(month, std::uint8_t)       \
    ROW(year, std::uint16_t)

// The kinds of dates and times, the types of CDateTime that they require, and what others are refused with.
#define BX_FOR_EACH_DATE_KIND(ROW)                                                                 \
    ROW(datetime, dt_dateTime, u"Dates added to this collection must be of type dt_dateTime")      \
    ROW(date, dt_date, u"Dates added to this collection must be of type dt_date")                  \
    ROW(time, dt_time, u"Dates added to this collection must be of type dt_time")                  \
    ROW(yearMonth, dt_gYearMonth, u"Dates added to this collection must be of type dt_gYearMonth") \
    ROW(monthDay, dt_gMonthDay, u"Dates added to this collection must be of type dt_gMonthDay")

namespace {

template <ItemType Kind>
struct Conversions;

#define BX_CONVERSIONS(kind, ...)                                                              \
    template <>                                                                                \
    struct Conversions<it_##kind> {                                                            \
        static constexpr auto s_toString = &CConversions::kind##ToString;                      \
        [[maybe_unused]] static constexpr auto s_fromString = &CConversions::kind##FromString; \
    };
BX_FOR_EACH_KIND(BX_CONVERSIONS)
BX_FOR_EACH_DATE_KIND(BX_CONVERSIONS)

template <ItemType Kind, class T>
decltype(auto) TextOfValue(T const& value, char16_t const* format) {
    constexpr auto toString = Conversions<Kind>::s_toString;
    if constexpr (Kind == it_string) {
        return value;
    } else if constexpr (std::is_invocable_v<decltype(toString), T const&, char16_t const*>) {
        return toString(value, format);
    } else {
        return toString(value);
    }
}

template <ItemType Kind>
auto ValueOfText(wstring&& text, CWhitespaceUtils::WhitespaceRule rule) {
    if constexpr (Kind == it_string) {
        return CleanText::Of(rule, std::move(text));
    } else {
        return Conversions<Kind>::s_fromString(text, rule);
    }
}

template <ItemType Kind>
struct DateType;

#define BX_DATE_TYPE(kind, type, message)                     \
    template <>                                               \
    struct DateType<it_##kind> {                              \
        static constexpr auto s_type = CDateTime::type;       \
        static constexpr char16_t const* s_message = message; \
    };
BX_FOR_EACH_DATE_KIND(BX_DATE_TYPE)

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
    AddAt(this->GetCount(), std::forward<Argument>(value));
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
        return TextOfValue<Kind>(value, this->m_format);
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
    if (value.GetType() != DateType<Kind>::s_type) throw CBxInvalidParamException(DateType<Kind>::s_message);
    CheckValue<Kind>(m_restrictions, m_elementName.c_str(), value);
    BaseAddAt(index, value);
}

template <ItemType Kind>
void CTypedDateCol<Kind>::AddFromString(wstring text) {
    Add(ValueOfText<Kind>(std::move(text), m_whitespaceRule));
}

template <ItemType Kind>
wstring CTypedDateCol<Kind>::ItemToString(CDateTime const& value) {
    return Conversions<Kind>::s_toString(value);
}

#define BX_INSTANTIATE(kind, T) template class CTypedCol<it_##kind, T>;
#define BX_INSTANTIATE_DATES(kind, ...) template class CTypedDateCol<it_##kind>;
BX_FOR_EACH_KIND(BX_INSTANTIATE)
BX_FOR_EACH_DATE_KIND(BX_INSTANTIATE_DATES)

}  // namespace BxXmlLib5
