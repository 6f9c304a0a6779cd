#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "platform/TextView.h"
#include "values/DateTimeFields.h"
#include "values/DigitText.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

/// The types without a time by the length of their form, from the first hyphen or digit to the zone.
struct DateForm {
    std::ptrdiff_t length;
    bool isHyphened;
    CDateTime::DTType type;
};

constexpr DateForm kDateForms[] = {
    {4, true, CDateTime::dt_gMonth},      {5, true, CDateTime::dt_gDay},
    {6, true, CDateTime::dt_gMonth},  // --MM--, as the first edition of XML Schema Part 2 writes it
    {7, true, CDateTime::dt_gMonthDay},   {4, false, CDateTime::dt_gYear},
    {7, false, CDateTime::dt_gYearMonth}, {10, false, CDateTime::dt_date},
};

/// Reads the fields of a form, which are 0 before, from the front of a text that is no shorter; false if the
/// text does not have the form.
bool ReadForm(std::u16string_view form, std::u16string_view text, DateTimeFields& fields) {
    for (std::size_t i = 0; i < form.size();) {
        char16_t const letter = form[i];
        auto const member = FieldOf(letter);
        if (!member) {
            if (text[i++] != letter) return false;
            continue;
        }
        std::int64_t value = 0;
        for (; i < form.size() && form[i] == letter; ++i) {
            if (!IsDigit(text[i])) return false;
            value = value * 10 + (text[i] - u'0');
        }
        fields.*member = value;
    }
    return true;
}

/// @param message with a %s for the text
[[noreturn]] void Throw(char16_t const* message, std::u16string_view text) {
    throw CBxInvalidValueException(FormatString(message, wstring(text).c_str()));
}

/// Parts of a text may be ignored, but a unit of value 0 is no text at all.
bool HasZeroUnit(std::u16string_view text) {
    return text.find(u'\0') != text.npos;
}

/// The form of a date text, null if there is none of that length.
DateForm const* FindForm(bool isHyphened, std::ptrdiff_t length) {
    for (DateForm const& row : kDateForms) {
        if (row.isHyphened == isHyphened && row.length == length) return &row;
    }
    return nullptr;
}

}  // namespace

void CDateTime::ParseXSDDateTime(char16_t const* text) {
    if (text == nullptr) throw CBxInvalidValueException(u"Invalid DateTime (Null String)");
    ParseXSDDateTime(std::u16string_view(text));
}

void CDateTime::ParseXSDDateTime(std::u16string_view text) {
    std::size_t const separator = text.find(u'T');
    if (separator == text.npos) Throw(u"Invalid XSD DateTime [%s]", text);
    Clear();
    SetXSDDate(text.substr(0, separator));
    if (m_dtType != dt_date) {
        Throw(u"Invalid XSD DateTime [%s] expected CCYY-MM-DDThh:mm:ss[.ff]", text);
    }
    SetXSDTime(text.substr(separator + 1));
    m_dtType = dt_dateTime;
    Validate();
}

void CDateTime::ParseXSDDate(char16_t const* text) {
    Clear();
    if (text == nullptr) throw CBxInvalidValueException(u"Invalid Date (Null String)");
    ParseXSDDate(std::u16string_view(text));
}

void CDateTime::ParseXSDDate(std::u16string_view text) {
    Clear();
    if (text.find(u'T') != text.npos) throw CBxInvalidValueException(u"Invalid Date ('T' not allowed)");
    SetXSDDate(text);
    Validate();
}

void CDateTime::ParseXSDTime(char16_t const* text) {
    Clear();
    if (text == nullptr) throw CBxInvalidValueException(u"Invalid Time (Null String)");
    ParseXSDTime(std::u16string_view(text));
}

void CDateTime::ParseXSDTime(std::u16string_view text) {
    Clear();
    SetXSDTime(text);
    Validate();
}

void CDateTime::SetXSDDate(std::u16string_view text) {
    if (text.empty()) throw CBxInvalidValueException(u"Invalid Date (Empty String)");
    bool const endsWithZ = text.back() == u'Z';
    bool const hasColon = text.find(u':') != text.npos;
    if (endsWithZ && hasColon) throw CBxInvalidValueException(u"Invalid Date (Bad Zone value)");

    bool const isHyphened = text.starts_with(u"--");
    bool const isNegative = !isHyphened && text[0] == u'-';
    std::u16string_view const body = text.substr(isNegative ? 1 : 0);
    std::ptrdiff_t const zoneLength = endsWithZ ? 1 : hasColon ? 6 : 0;
    DateForm const* const form = FindForm(isHyphened, std::ssize(body) - zoneLength);
    DateTimeFields fields;
    if (form == nullptr || !ReadForm(TypeOf(form->type).form, body, fields) || HasZeroUnit(text)) {
        Throw(u"Invalid XSD Date [%s] expected CCYY-MM-DD[Z|[+|-]hh:mm]", text);
    }
    if (isNegative) fields.year = -fields.year;
    SetFields(fields);
    m_dtType = form->type;
    SetZone(body.substr(static_cast<std::size_t>(form->length)));
}

void CDateTime::SetXSDTime(std::u16string_view text) {
    if (text.empty()) throw CBxInvalidValueException(u"Invalid XSD Time (Empty String)");
    std::u16string_view const form = TypeOf(dt_time).form;
    DateTimeFields fields = Fields();
    if (text.size() < form.size() || !ReadForm(form, text, fields) || fields.hour > 23 ||
        fields.minute > 59 || fields.second > 59 || HasZeroUnit(text.substr(form.size()))) {
        Throw(u"Invalid XSD Time [%s] expected hh:mm:ss[.ff]", text);
    }
    std::u16string_view rest = text.substr(form.size());
    if (rest.starts_with(u'.')) {
        rest.remove_prefix(1);
        auto const [milli, micro, nano] = TakeFraction(rest);
        if (!rest.empty() && IsDigit(rest[0])) Throw(u"Invalid XSD Time [%s] Fraction part too long", text);
        fields.milli = milli;
        fields.micro = micro;
        fields.nano = nano;
    }
    SetFields(fields);
    SetZone(rest);
    m_dtType = dt_time;
}

void CDateTime::SetZone(std::u16string_view text) {
    if (text.starts_with(u'Z')) return SetUTC();
    if (text.empty() || !IsSign(text[0])) return;
    bool const isNegative = text[0] == u'-';
    DateTimeFields fields;
    if (text.size() != kZoneForm.size() + 1 || !ReadForm(kZoneForm, text.substr(1), fields)) {
        Throw(u"Invalid XSD Time Zone [%s]", text);
    }
    std::int64_t const hour = fields.hour == 24 ? 0 : fields.hour;
    SetTimeZone(static_cast<std::int16_t>(isNegative ? -hour : hour),
                static_cast<std::uint8_t>(fields.minute));
}

}  // namespace BxXmlLib5
