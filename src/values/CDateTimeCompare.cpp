#include "BxXmlLib5/values/CDateTime.h"
#include "values/WideDate.h"

namespace BxXmlLib5 {

CDateTime::DTCompareResult CDateTime::CompareTo(CDateTime const& other) const {
    return Compare(Wide(), other.Wide());
}

std::partial_ordering AsOrdering(CDateTime::DTCompareResult result) {
    switch (result) {
        case CDateTime::dtc_equal:
            return std::partial_ordering::equivalent;
        case CDateTime::dtc_lessThan:
            return std::partial_ordering::less;
        case CDateTime::dtc_greaterThan:
            return std::partial_ordering::greater;
        default:
            return std::partial_ordering::unordered;
    }
}

std::partial_ordering CDateTime::Order(CDateTime const& other) const {
    return AsOrdering(CompareTo(other));
}

bool CDateTime::operator==(CDateTime const& other) const {
    return CompareTo(other) == dtc_equal;
}

bool CDateTime::operator!=(CDateTime const& other) const {
    return CompareTo(other) != dtc_equal;
}

bool CDateTime::operator<(CDateTime const& other) const {
    return CompareTo(other) == dtc_lessThan;
}

bool CDateTime::operator<=(CDateTime const& other) const {
    DTCompareResult const result = CompareTo(other);
    return result == dtc_lessThan || result == dtc_equal;
}

bool CDateTime::operator>(CDateTime const& other) const {
    return CompareTo(other) == dtc_greaterThan;
}

bool CDateTime::operator>=(CDateTime const& other) const {
    DTCompareResult const result = CompareTo(other);
    return result == dtc_greaterThan || result == dtc_equal;
}

}  // namespace BxXmlLib5
