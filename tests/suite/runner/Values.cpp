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

/// Whether a number is the nearest one of a binary type to another, in the fewest digits that tell it.
template <class Real>
bool IsNearest(std::string const& written, std::string const& original) {
    Real value = 0;
    auto const result = std::from_chars(original.data(), original.data() + original.size(), value);
    if (result.ec != std::errc() || result.ptr != original.data() + original.size()) return false;
    char buffer[64];
    auto const end = std::to_chars(buffer, buffer + sizeof buffer, value);
    return ParseNumber(written) == ParseNumber({buffer, end.ptr});
}

/// Months and seconds of a duration, the seconds with their fraction.
std::optional<std::pair<long, Number>> ParseDuration(std::string_view text) {
    bool const isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    if (!TakeCharacter(text, "P") || text.empty()) return {};
    long months = 0;
    long seconds = 0;
    std::string fraction;
    bool isTime = false;
    while (!text.empty()) {
        if (TakeCharacter(text, "T")) isTime = true;
        std::string const digits = TakeDigits(text);
        if (TakeCharacter(text, ".")) fraction = TakeDigits(text);
        if (digits.empty() || digits.size() > 9 || text.empty()) return {};
        long const count = std::stol(digits);
        switch (text.front()) {
            case 'Y':
                months += 12 * count;
                break;
            case 'D':
                seconds += 86400 * count;
                break;
            case 'H':
                seconds += 3600 * count;
                break;
            case 'M':
                (isTime ? seconds : months) += (isTime ? 60 : 1) * count;
                break;
            case 'S':
                seconds += count;
                break;
            default:
                return {};
        }
        text.remove_prefix(1);
    }
    std::string const sign = isNegative ? "-" : "";
    return {{isNegative ? -months : months, *ParseNumber(sign + std::to_string(seconds) + '.' + fraction)}};
}

bool IsEqualWord(std::string const& original, std::string const& written) {
    if (original == written || Canonical(original) == Canonical(written)) return true;
    if (auto const number = ParseNumber(original)) {
        return number == ParseNumber(written) || IsNearest<float>(written, original) ||
               IsNearest<double>(written, original);
    }
    auto const duration = ParseDuration(original);
    return duration && duration == ParseDuration(written);
}

}  // namespace

bool AreEqualValues(std::u16string_view original, std::u16string_view written) {
    return original == written || std::ranges::equal(Words(original), Words(written), IsEqualWord);
}

}  // namespace Suite
