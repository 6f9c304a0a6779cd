#include "values/DecimalText.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "platform/TextView.h"
#include "values/NumberText.h"

namespace BxXmlLib5 {

namespace {

/// Reads a text from the left, stage by stage. Each stops at the first character that is not its own.
class Scanner {
public:
    explicit Scanner(std::u16string_view text) : m_text(text) { m_result.m_digits.resize(text.size()); }

    DecimalText Scan() {
        ScanInteger();
        if (Skip(u'.')) ScanFraction();
        if (Skip(u'e') || Skip(u'E')) ScanExponent();
        if (!AtEnd()) ThrowInvalidDecimal(m_text, m_at);
        m_result.m_digits.resize(m_count);
        return std::move(m_result);
    }

private:
    bool AtEnd() const { return m_at == m_text.size(); }

    bool Skip(char16_t wanted) {
        bool const found = !AtEnd() && m_text[m_at] == wanted;
        if (found) ++m_at;
        return found;
    }

    void ScanInteger() {
        for (; !AtEnd(); ++m_at) {
            if (!TakeDigit() && !TakeSign(m_result.m_negative) &&
                !CWhitespaceUtils::IsWhiteSpace(m_text[m_at]))
                break;
        }
        m_result.m_integerDigits = m_count;
    }

    void ScanFraction() {
        for (; !AtEnd(); ++m_at) {
            if (!TakeDigit() && !CWhitespaceUtils::IsWhiteSpace(m_text[m_at])) break;
        }
    }

    void ScanExponent() {
        for (; !AtEnd(); ++m_at) {
            if (!TakeSign(m_result.m_exponentNegative) && !CWhitespaceUtils::IsWhiteSpace(m_text[m_at]))
                break;
        }
        for (; !AtEnd() && IsDigit(m_text[m_at]); ++m_at) {
            std::int64_t const exponent = m_result.m_exponent.value_or(0) * 10 + (m_text[m_at] - u'0');
            m_result.m_exponent = std::min<std::int64_t>(exponent, INT32_MAX);
        }
    }

    bool TakeDigit() {
        char16_t const c = m_text[m_at];
        if (!IsDigit(c)) return false;
        m_result.m_digits[m_count++] = static_cast<char>(c);
        return true;
    }

    bool TakeSign(bool& negative) const {
        bool const isSign = IsSign(m_text[m_at]);
        if (isSign) negative = m_text[m_at] == u'-';
        return isSign;
    }

    std::u16string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_count = 0;  // digits before and behind the point
    DecimalText m_result;
};

}  // namespace

DecimalText ScanDecimal(std::u16string_view text) {
    return Scanner(text).Scan();
}

void ThrowInvalidDecimal(std::u16string_view text, std::size_t at) {
    throw CBxInvalidValueException(
        FormatString(u"The string representing a Decimal, contained an invalid char at position %d [%s]",
                     static_cast<int>(at), std::u16string(text).c_str()));
}

}  // namespace BxXmlLib5
