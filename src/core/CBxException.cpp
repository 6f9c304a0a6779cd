#include "BxXmlLib5/core/CBxException.h"

#include <utility>

#include "core/FailurePlace.h"

namespace BxXmlLib5 {

CBxException::CBxException() = default;

CBxException::CBxException(wstring message) : m_message(std::move(message)) {}

CBxException::CBxException(wstring message, CBxException const& inner)
    : m_place(inner.m_place), m_message(std::move(message)), m_innerException(inner.Clone()) {}

CBxException::CBxException(CBxException const& other)
    : m_place(other.m_place),
      m_message(other.m_message),
      m_innerException(other.m_innerException ? other.m_innerException->Clone() : nullptr) {}

CBxException& CBxException::operator=(CBxException const& other) {
    CBxException copy(other);
    m_message.swap(copy.m_message);
    m_innerException.swap(copy.m_innerException);
    std::swap(m_place, copy.m_place);
    return *this;
}

CBxException::~CBxException() = default;

wstring CBxException::GetMessage() const {
    return m_message;
}

wstring CBxException::GetFullMessage() const {
    wstring result = m_message;
    for (CBxException const* inner = GetInnerException(); inner != nullptr;
         inner = inner->GetInnerException()) {
        result += u'\n';
        result += inner->m_message;
    }
    return result;
}

CBxException const* CBxException::GetInnerException() const {
    return m_innerException.get();
}

CBxLocation CBxException::GetLocation() const {
    return m_place ? m_place->m_location : CBxLocation();
}

void CBxException::SetLocation(CBxLocation const& location) {
    CSmartPtr<Place> const place = CFailurePlace::Copy(*this);
    place->m_location = location;
    m_place = place;
}

wstring CBxException::GetReport(std::u16string_view source) const {
    CBxLocation const location = GetLocation();
    wstring report(source);
    // A line belongs to the source as terminals show it; a path is a text of its own.
    if (!report.empty()) report += location.GetLine() != 0 ? u":" : u": ";
    report += location.ToString();
    if (location.IsKnown()) report += u": ";
    return report += GetFullMessage();
}

CBxException* CBxException::Clone() const {
    return new CBxException(*this);
}

// The six kinds add their type alone.
#define BX_EXCEPTION_KIND(Class, Base)                                                            \
    Class::Class() = default;                                                                     \
    Class::Class(wstring message) : Base(std::move(message)) {}                                   \
    Class::Class(wstring message, CBxException const& inner) : Base(std::move(message), inner) {} \
    Class::Class(CBxException const& other) : Base(other) {}                                      \
    CBxException* Class::Clone() const {                                                          \
        return new Class(*this);                                                                  \
    }

BX_EXCEPTION_KIND(CBxValidationException, CBxException)
BX_EXCEPTION_KIND(CBxInvalidValueException, CBxValidationException)
BX_EXCEPTION_KIND(CBxInvalidNamespaceException, CBxValidationException)
BX_EXCEPTION_KIND(CBxInvalidStateException, CBxException)
BX_EXCEPTION_KIND(CBxInvalidParamException, CBxException)
BX_EXCEPTION_KIND(CBxOverFlowException, CBxException)

#undef BX_EXCEPTION_KIND

}  // namespace BxXmlLib5
