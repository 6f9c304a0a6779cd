// Reading a literal from its front.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "values/NumberText.h"

namespace BxXmlLib5::Generated {

class Scan {
public:
    explicit Scan(std::u16string_view text) : m_rest(text) {}

    bool AtEnd() const { return m_rest.empty(); }
    std::size_t Left() const { return m_rest.size(); }
    bool StartsWith(char16_t c) const { return m_rest.starts_with(c); }
    bool Take(char16_t c) {
        if (!StartsWith(c)) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool TakeSign() { return Take(u'-') || Take(u'+'); }
    std::u16string_view TakeDigits() {
        std::u16string_view const digits = m_rest.substr(0, SkipDigits(m_rest, 0));
        m_rest.remove_prefix(digits.size());
        return digits;
    }

    /// A number of two digits.
    std::optional<std::int64_t> TakeTwoDigits(std::int64_t least, std::int64_t most) {
        if (m_rest.size() < 2 || !IsDigit(m_rest[0]) || !IsDigit(m_rest[1])) return std::nullopt;
        std::int64_t const number = (m_rest[0] - u'0') * 10 + (m_rest[1] - u'0');
        m_rest.remove_prefix(2);
        return number >= least && number <= most ? std::optional(number) : std::nullopt;
    }

    /// A point with digits behind it, if there is one.
    /// @param digits those of the fraction, without zeros at the end
    /// @return false for a point alone
    bool TakeFraction(std::u16string_view& digits) {
        if (!Take(u'.')) return true;
        digits = TakeDigits();
        if (digits.empty()) return false;
        digits = digits.substr(0, digits.find_last_not_of(u'0') + 1);
        return true;
    }

private:
    std::u16string_view m_rest;
};

}  // namespace BxXmlLib5::Generated
