#include <algorithm>
#include <cstdlib>

#include "BxXmlLib5/values/CDateTime.h"
#include "platform/TextView.h"
#include "values/DateTimeFields.h"
#include "values/DigitText.h"

namespace BxXmlLib5 {

namespace {

/// Writes the fields of a form, each filled with zeros to the number of its letters.
void PutForm(CDigitText& out, std::u16string_view form, DateTimeFields const& fields) {
    for (std::size_t at = 0; at < form.size();) {
        char16_t const letter = form[at];
        std::size_t const start = at++;
        if (auto const member = FieldOf(letter)) {
            while (at < form.size() && form[at] == letter) ++at;
            out.PutNumber(static_cast<std::uint64_t>(std::abs(fields.*member)), at - start);
        } else {
            out.Put(letter);
        }
    }
}

}  // namespace

wstring CDateTime::ToString() const {
    return ToString(u"s");
}

wstring CDateTime::ToString(char16_t const* format) const {
    if (m_dtType == dt_yearZero) return kInvalidYearZero;
    std::u16string_view const wanted = TextOf(format);
    if (wanted.empty() || wanted == u"G") return {};
    if (wanted != u"s") return wstring(u"Unknown Format: ").append(wanted);

    DateTimeType const& type = TypeOf(m_dtType);
    CDigitText out;
    if (type.Uses(kYear) && m_year < 0) out.Put(u'-');
    PutForm(out, type.form, Fields());
    if (type.Uses(kTime)) out.PutFraction({m_milli, m_micro, m_nano});
    if (m_hasTimeZone) {
        out.Put(m_zoneHour < 0 ? u'-' : u'+');
        PutForm(out, kZoneForm, {.hour = m_zoneHour, .minute = m_zoneMinute});
    } else if (m_isUTC) {
        out.Put(u'Z');
    }
    return out.Text();
}

}  // namespace BxXmlLib5
