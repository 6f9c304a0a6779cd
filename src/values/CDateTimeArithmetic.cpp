#include <cstdlib>

#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "values/WideDate.h"

namespace BxXmlLib5 {

WideDate CDateTime::Wide() const {
    WideDate date{m_dtType, Fields(), m_isUTC};
    if (m_hasTimeZone) {
        CDateTimeSpan offset(static_cast<std::uint32_t>(std::abs(m_zoneHour)), m_zoneMinute, 0);
        if (m_zoneHour >= 0) offset.Negate();
        date.Add(offset);
    }
    return date;
}

CDateTime CDateTime::GetNormalized() const {
    CDateTime result = *this;
    if (!m_hasTimeZone) return result;
    result.SetFields(Narrow(Wide().fields));
    result.SetTimeZone(0, 0);
    return result;
}

void CDateTime::AddDateTimeSpan(CDateTimeSpan const& span) {
    WideDate date{m_dtType, Fields(), m_isUTC};
    date.Add(span);
    SetFields(Narrow(date.fields));
}

CDateTime CDateTime::operator+(CDateTimeSpan const& span) const {
    CDateTime result = *this;
    return result += span;
}

CDateTime const& CDateTime::operator+=(CDateTimeSpan const& span) {
    AddDateTimeSpan(span);
    return *this;
}

CDateTime CDateTime::operator-(CDateTimeSpan const& span) const {
    return *this + span.GetAsNegative();
}

CDateTime const& CDateTime::operator-=(CDateTimeSpan const& span) {
    return *this += span.GetAsNegative();
}

CDateTimeSpan CDateTime::operator-(CDateTime const&) const {
    return {};
}

}  // namespace BxXmlLib5
