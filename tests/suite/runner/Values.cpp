#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "Trees.h"

namespace Suite {

namespace {

/// A number as digits without zeros around them, and the power of ten of the last: exact, however long.
struct Number {
    bool m_isNegative = false;
    std::string m_digits;
    long m_exponent = 0;

    bool operator==(Number const&) const = default;
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes the digits that the text begins with.
std::string TakeDigits(std::string_view& text) {
    auto const end = std::ranges::find_if_not(text, IsDigit);
    std::string const digits(text.begin(), end);
    text.remove_prefix(digits.size());
    return digits;
}

bool TakeCharacter(std::string_view& text, std::string_view set) {
    if (text.empty() || set.find(text.front()) == set.npos) return false;
    text.remove_prefix(1);
    return true;
}

std::optional<Number> ParseNumber(std::string_view text) {
    Number number;
    number.m_isNegative = text.starts_with('-');
    TakeCharacter(text, "+-");
    number.m_digits = TakeDigits(text);
    if (TakeCharacter(text, ".")) {
        std::string const fraction = TakeDigits(text);
        number.m_digits += fraction;
        number.m_exponent = -static_cast<long>(fraction.size());
    }
    if (number.m_digits.empty()) return {};
    if (TakeCharacter(text, "eE")) {
        if (text.starts_with('+')) text.remove_prefix(1);
        int exponent = 0;
        auto const result = std::from_chars(text.data(), text.data() + text.size(), exponent);
        if (result.ec != std::errc()) return {};
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
        number.m_exponent += exponent;
    }
    if (!text.empty()) return {};
    number.m_digits.erase(0, std::min(number.m_digits.find_first_not_of('0'), number.m_digits.size()));
    if (number.m_digits.empty()) return Number{};
    std::size_t const last = number.m_digits.find_last_not_of('0');
    number.m_exponent += static_cast<long>(number.m_digits.size() - last - 1);
    number.m_digits.resize(last + 1);
    return number;
}

std::vector<std::string> Words(std::u16string_view text) {
    std::vector<std::string> words;
    bool isInside = false;
    for (char16_t const unit : text) {
        bool const isBlank = unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
        if (!isBlank) {
            if (!isInside) words.emplace_back();
            // Each unit as two octets would do; this keeps ASCII as it is.
            if (unit < 0x80) {
                words.back() += static_cast<char>(unit);
            } else {
                words.back() += {'\xFF', static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
            }
        }
        isInside = !isBlank;
    }
    return words;
}

/// One form for what XML Schema writes in several.
std::string Canonical(std::string word) {
    if (word == "1") return "true";
    if (word == "0") return "false";
    // Times have a colon between digits.
    std::size_t const colon = word.find(':');
    if (colon == word.npos || colon == 0 || !IsDigit(word[colon - 1])) return word;
    for (std::string_view const utc : {"+00:00", "-00:00"})
        if (word.ends_with(utc)) word.replace(word.size() - utc.size(), utc.size(), "Z");
    std::size_t const point = word.find('.');
    if (point != word.npos) {
        std::size_t const end = std::min(word.find_first_not_of("0123456789", point + 1), word.size());
        std::size_t last = end;
        while (word[last - 1] == '0') --last;
        if (last == point + 1) --last;
        word.erase(last, end - last);
    }
    return word;
}

bool IsEqualWord(std::string const& a, std::string const& b) {
    if (a == b || Canonical(a) == Canonical(b)) return true;
    auto const number = ParseNumber(a);
    return number && number == ParseNumber(b);
}

}  // namespace

bool AreEqualValues(std::u16string_view a, std::u16string_view b) {
    return a == b || std::ranges::equal(Words(a), Words(b), IsEqualWord);
}

}  // namespace Suite
