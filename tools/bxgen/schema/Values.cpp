#include "schema/Values.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "schema/Text.h"
#include "xml/XmlNames.h"

namespace BxGen {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool AreDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, IsDigit);
}

std::string_view WithoutSign(std::string_view text) {
    return text.starts_with('+') || text.starts_with('-') ? text.substr(1) : text;
}

bool IsInteger(std::string_view text) {
    return AreDigits(WithoutSign(text));
}

bool IsDecimal(std::string_view text) {
    text = WithoutSign(text);
    std::size_t const point = text.find('.');
    if (point == text.npos) return AreDigits(text);
    std::string_view const whole = text.substr(0, point);
    std::string_view const fraction = text.substr(point + 1);
    return (AreDigits(whole) && (fraction.empty() || AreDigits(fraction))) ||
           (whole.empty() && AreDigits(fraction));
}

bool IsFloat(std::string_view text) {
    if (text == "INF" || text == "-INF" || text == "NaN") return true;
    std::size_t const exponent = text.find_first_of("eE");
    if (exponent == text.npos) return IsDecimal(text);
    return IsDecimal(text.substr(0, exponent)) && IsInteger(text.substr(exponent + 1));
}

// ---------------------------------------------------------------------------------------------------------
// dates

/// Days from 1970-01-01 of the proleptic Gregorian calendar.
std::int64_t DaysOf(std::int64_t year, std::int64_t month, std::int64_t day) {
    year -= month <= 2 ? 1 : 0;
    std::int64_t const era = (year >= 0 ? year : year - 399) / 400;
    std::int64_t const yearOfEra = year - era * 400;
    std::int64_t const dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

std::int64_t DaysInMonth(std::int64_t year, std::int64_t month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    bool const isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return kDays[month - 1] + (month == 2 && isLeap ? 1 : 0);
}

/// Takes the parts of a date off a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_rest(text) {}

    bool IsAtEnd() const { return m_rest.empty(); }

    bool Take(std::string_view start) {
        if (!m_rest.starts_with(start)) return false;
        m_rest.remove_prefix(start.size());
        return true;
    }

    /// A number of so many digits.
    std::optional<std::int64_t> Digits(std::size_t least, std::size_t most) {
        std::size_t const size = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
        if (size < least || size > most) return std::nullopt;
        std::int64_t number = 0;
        auto const result = std::from_chars(m_rest.data(), m_rest.data() + size, number);
        if (result.ec != std::errc()) number = std::numeric_limits<std::int64_t>::max() / 1'000'000;
        m_rest.remove_prefix(size);
        return std::min(number, std::numeric_limits<std::int64_t>::max() / 1'000'000);
    }

    std::optional<std::int64_t> Between(std::size_t digits, std::int64_t least, std::int64_t most) {
        auto const number = Digits(digits, digits);
        return number && *number >= least && *number <= most ? number : std::nullopt;
    }

    /// A fraction of a second behind its point.
    std::optional<double> Fraction() {
        std::size_t const size = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
        if (size == 0) return std::nullopt;
        std::string const text = "0." + std::string(m_rest.substr(0, std::min<std::size_t>(size, 30)));
        double fraction = 0;
        std::from_chars(text.data(), text.data() + text.size(), fraction);
        m_rest.remove_prefix(size);
        return fraction;
    }

private:
    std::string_view m_rest;
};

/// A point in time; parts that a type does not have are those of 1972-12-31T00:00:00, so that any day fits.
struct Moment {
    std::int64_t m_year = 1972;
    std::int64_t m_month = 12;
    std::int64_t m_day = 31;
    double m_seconds = 0;                ///< of the day
    std::optional<std::int64_t> m_zone;  ///< minutes

    double Seconds(std::int64_t zone) const {
        return static_cast<double>(DaysOf(m_year, m_month, m_day)) * 86400 + m_seconds -
               static_cast<double>(zone) * 60;
    }
};

bool TakeYear(Scanner& scanner, Moment& moment) {
    bool const isNegative = scanner.Take("-");
    Scanner probe = scanner;
    bool const startsWithZero = probe.Take("0");
    auto const year = scanner.Digits(4, std::numeric_limits<std::size_t>::max());
    // No year 0, and no zeros ahead of more than four digits.
    if (!year || *year == 0 || (startsWithZero && *year > 999)) return false;
    moment.m_year = isNegative ? -*year : *year;
    return true;
}

bool TakeMonth(Scanner& scanner, Moment& moment) {
    auto const month = scanner.Between(2, 1, 12);
    moment.m_month = month.value_or(1);
    return month.has_value();
}

bool TakeDay(Scanner& scanner, Moment& moment) {
    auto const day = scanner.Between(2, 1, DaysInMonth(moment.m_year, moment.m_month));
    moment.m_day = day.value_or(1);
    return day.has_value();
}

bool TakeTime(Scanner& scanner, Moment& moment) {
    auto const hour = scanner.Between(2, 0, 24);
    if (!hour || !scanner.Take(":")) return false;
    auto const minute = scanner.Between(2, 0, 59);
    if (!minute || !scanner.Take(":")) return false;
    auto const second = scanner.Between(2, 0, 59);
    if (!second) return false;
    auto const fraction = scanner.Take(".") ? scanner.Fraction() : 0.0;
    if (!fraction) return false;
    moment.m_seconds = static_cast<double>(*hour * 3600 + *minute * 60 + *second) + *fraction;
    return moment.m_seconds <= 86400;
}

bool TakeZone(Scanner& scanner, Moment& moment) {
    if (scanner.IsAtEnd()) return true;
    if (scanner.Take("Z")) {
        moment.m_zone = 0;
        return scanner.IsAtEnd();
    }
    int const sign = scanner.Take("-") ? -1 : 1;
    if (sign > 0 && !scanner.Take("+")) return false;
    auto const hours = scanner.Between(2, 0, 14);
    if (!hours || !scanner.Take(":")) return false;
    auto const minutes = scanner.Between(2, 0, 59);
    if (!minutes || *hours * 60 + *minutes > 14 * 60) return false;
    moment.m_zone = sign * (*hours * 60 + *minutes);
    return scanner.IsAtEnd();
}

/// The parts of the types of dates and times: y, m, d, t, and the marks between them.
constexpr std::string_view FormOf(BuiltIn type) {
    switch (type) {
        case BuiltIn::kDateTime:
            return "y-m-dTt";
        case BuiltIn::kDate:
            return "y-m-d";
        case BuiltIn::kTime:
            return "t";
        case BuiltIn::kGYearMonth:
            return "y-m";
        case BuiltIn::kGYear:
            return "y";
        case BuiltIn::kGMonthDay:
            return "--m-d";
        case BuiltIn::kGDay:
            return "---d";
        case BuiltIn::kGMonth:
            return "--m";
        default:
            return {};
    }
}

std::optional<Moment> ParseMoment(std::string_view form, std::string_view text) {
    Scanner scanner(text);
    Moment moment;
    for (char const part : form) {
        bool const isThere = part == 'y'   ? TakeYear(scanner, moment)
                             : part == 'm' ? TakeMonth(scanner, moment)
                             : part == 'd' ? TakeDay(scanner, moment)
                             : part == 't' ? TakeTime(scanner, moment)
                                           : scanner.Take({&part, 1});
        if (!isThere) return std::nullopt;
        // A month without a day is its first.
        if (part == 'm') moment.m_day = 1;
    }
    // The form "--MM--" of the first edition stays allowed.
    if (form == "--m") scanner.Take("--");
    if (!TakeZone(scanner, moment)) return std::nullopt;
    return moment;
}

std::partial_ordering Compare(Moment const& left, Moment const& right) {
    constexpr std::int64_t kMostZone = 14 * 60;
    if (left.m_zone.has_value() == right.m_zone.has_value()) {
        return left.Seconds(left.m_zone.value_or(0)) <=> right.Seconds(right.m_zone.value_or(0));
    }
    if (left.m_zone) {
        double const seconds = left.Seconds(*left.m_zone);
        if (seconds < right.Seconds(kMostZone)) return std::partial_ordering::less;
        if (seconds > right.Seconds(-kMostZone)) return std::partial_ordering::greater;
        return std::partial_ordering::unordered;
    }
    return 0 <=> Compare(right, left);
}

struct Duration {
    std::int64_t m_months = 0;
    double m_seconds = 0;
};

/// Adds the parts of a duration that stand before (years, months, days) or behind T (hours, minutes, seconds).
bool TakeDurationParts(Scanner& scanner, std::string_view units, Duration& duration, bool& isAny) {
    for (std::size_t next = 0; !scanner.IsAtEnd();) {
        Scanner ahead = scanner;
        auto const number = ahead.Digits(1, std::numeric_limits<std::size_t>::max());
        if (!number) return true;
        std::optional<double> const fraction = ahead.Take(".") ? ahead.Fraction() : 0.0;
        if (!fraction) return false;
        while (next < units.size() && !ahead.Take(units.substr(next, 1))) ++next;
        if (next == units.size() || (*fraction > 0 && units[next] != 'S')) return false;
        auto const amount = static_cast<double>(*number);
        switch (units[next++] + (units.size() == 3 && units[0] == 'H' ? 0x100 : 0)) {
            case 'Y':
                duration.m_months += *number * 12;
                break;
            case 'M':
                duration.m_months += *number;
                break;
            case 'D':
                duration.m_seconds += amount * 86400;
                break;
            case 'H' + 0x100:
                duration.m_seconds += amount * 3600;
                break;
            case 'M' + 0x100:
                duration.m_seconds += amount * 60;
                break;
            default:
                duration.m_seconds += amount + *fraction;
        }
        isAny = true;
        scanner = ahead;
    }
    return true;
}

std::optional<Duration> ParseDuration(std::string_view text) {
    Scanner scanner(text);
    bool const isNegative = scanner.Take("-");
    Duration duration;
    bool isAny = false;
    if (!scanner.Take("P") || !TakeDurationParts(scanner, "YMD", duration, isAny)) return std::nullopt;
    if (scanner.Take("T")) {
        isAny = false;
        if (!TakeDurationParts(scanner, "HMS", duration, isAny)) return std::nullopt;
    }
    if (!isAny || !scanner.IsAtEnd()) return std::nullopt;
    if (isNegative) duration = {-duration.m_months, -duration.m_seconds};
    return duration;
}

/// Part 2, section 3.2.6.2: one is less if it is so from each of four days on.
std::partial_ordering Compare(Duration const& left, Duration const& right) {
    constexpr std::pair<std::int64_t, std::int64_t> kStarts[] = {{1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};
    static constexpr std::int64_t kMostMonths = 1'000'000'000'000;
    std::optional<std::partial_ordering> order;
    for (auto const& [year, month] : kStarts) {
        auto const end = [start = year * 12 + month - 1](Duration const& duration) {
            std::int64_t const months = start + std::clamp(duration.m_months, -kMostMonths, kMostMonths);
            std::int64_t const years = months >= 0 ? months / 12 : (months - 11) / 12;
            return static_cast<double>(DaysOf(years, months - years * 12 + 1, 1)) * 86400 +
                   duration.m_seconds;
        };
        std::partial_ordering const here = end(left) <=> end(right);
        if (order && *order != here) return std::partial_ordering::unordered;
        order = here;
    }
    return *order;
}

// --------------------------------------------------------------------------------------------------------
// others

bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsHexBinary(std::string_view text) {
    return text.size() % 2 == 0 && std::ranges::all_of(text, IsHexDigit);
}

/// Groups of four characters, blanks anywhere between them, at most two equals signs at the end.
bool IsBase64Binary(std::string_view text) {
    std::string characters;
    for (char const c : text) {
        if (c != ' ') characters += c;
    }
    if (characters.size() % 4 != 0) return false;
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::size_t const end = std::min(characters.find('='), characters.size());
    if (characters.find_first_not_of(kDigits) < end) return false;
    std::string_view const padding = std::string_view(characters).substr(end);
    if (padding == "=") return kDigits.find(characters[end - 1]) % 4 == 0;
    if (padding == "==") return kDigits.find(characters[end - 1]) % 16 == 0;
    return padding.empty();
}

/// What no escaping makes a reference (RFC 2396): a per cent sign without its digits, more than one number sign.
bool IsUriReference(std::string_view text) {
    if (std::ranges::count(text, '#') > 1 || text.starts_with(':')) return false;
    for (std::size_t i = text.find('%'); i != text.npos; i = text.find('%', i + 1)) {
        if (text.size() - i < 3 || !IsHexDigit(text[i + 1]) || !IsHexDigit(text[i + 2])) return false;
    }
    return true;
}

bool IsLanguage(std::string_view text) {
    bool isFirst = true;
    while (true) {
        std::size_t const size = std::min(text.find('-'), text.size());
        bool const isTag =
            size >= 1 && size <= 8 && std::ranges::all_of(text.substr(0, size), [isFirst](char c) {
                bool const isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
                return isLetter || (!isFirst && IsDigit(c));
            });
        if (!isTag) return false;
        if (size == text.size()) return true;
        text.remove_prefix(size + 1);
        isFirst = false;
    }
}

bool IsWithin(std::string_view text, std::string_view least, std::string_view most) {
    if (!IsInteger(text)) return false;
    bool const isLess = !least.empty() && CompareValues(BuiltIn::kDecimal, text, least) < 0;
    bool const isMore = !most.empty() && CompareValues(BuiltIn::kDecimal, text, most) > 0;
    return !isLess && !isMore;
}

double FloatOf(BuiltIn type, std::string_view text) {
    if (text == "INF") return std::numeric_limits<double>::infinity();
    if (text == "-INF") return -std::numeric_limits<double>::infinity();
    if (text == "NaN") return std::numeric_limits<double>::quiet_NaN();
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
        // Too great or too small; which, the sign of the exponent tells.
        std::size_t const exponent = text.find_first_of("eE");
        bool const isSmall = exponent != text.npos && text.substr(exponent + 1).starts_with('-');
        number = isSmall ? 0 : std::numeric_limits<double>::infinity();
        if (text.starts_with('-')) number = -number;
    }
    return type == BuiltIn::kFloat ? static_cast<double>(static_cast<float>(number)) : number;
}

std::partial_ordering CompareDecimals(std::string_view left, std::string_view right) {
    DecimalDigits const l = DigitsOf(left);
    DecimalDigits const r = DigitsOf(right);
    if (l.m_isNegative != r.m_isNegative) {
        return l.m_isNegative ? std::partial_ordering::less : std::partial_ordering::greater;
    }
    std::strong_ordering order = l.m_whole.size() <=> r.m_whole.size();
    if (order == 0) order = l.m_whole <=> r.m_whole;
    if (order == 0) order = l.m_fraction <=> r.m_fraction;
    return l.m_isNegative ? 0 <=> order : order;
}

/// Binary data without blanks, and hexadecimal digits in capitals.
std::string Folded(BuiltIn type, std::string_view text) {
    std::string folded;
    for (char const c : text) {
        bool const isSmall = type == BuiltIn::kHexBinary && c >= 'a';
        if (c != ' ') folded += isSmall ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return folded;
}

std::string TextOf(double number) {
    char digits[32];
    auto const result = std::to_chars(digits, digits + sizeof digits, number == 0 ? 0.0 : number);
    return {digits, result.ptr};
}

std::string DecimalKey(std::string_view text) {
    DecimalDigits const digits = DigitsOf(text);
    return (digits.m_isNegative ? "-" : "") + std::string(digits.m_whole) + '.' +
           std::string(digits.m_fraction);
}

}  // namespace

DecimalDigits DigitsOf(std::string_view decimal) {
    DecimalDigits digits;
    digits.m_isNegative = decimal.starts_with('-');
    decimal = WithoutSign(decimal);
    std::size_t const point = std::min(decimal.find('.'), decimal.size());
    std::string_view const whole = decimal.substr(0, point);
    std::size_t const start = whole.find_first_not_of('0');
    if (start != whole.npos) digits.m_whole = whole.substr(start);
    if (point < decimal.size()) digits.m_fraction = decimal.substr(point + 1);
    digits.m_fraction = digits.m_fraction.substr(0, digits.m_fraction.find_last_not_of('0') + 1);
    if (digits.m_whole.empty() && digits.m_fraction.empty()) digits.m_isNegative = false;
    return digits;
}

bool IsLexical(BuiltIn type, std::string_view text) {
    switch (type) {
        case BuiltIn::kBoolean:
            return text == "true" || text == "false" || text == "1" || text == "0";
        case BuiltIn::kDecimal:
            return IsDecimal(text);
        case BuiltIn::kFloat:
        case BuiltIn::kDouble:
            return IsFloat(text);
        case BuiltIn::kDuration:
            return ParseDuration(text).has_value();
        case BuiltIn::kDateTime:
        case BuiltIn::kTime:
        case BuiltIn::kDate:
        case BuiltIn::kGYearMonth:
        case BuiltIn::kGYear:
        case BuiltIn::kGMonthDay:
        case BuiltIn::kGDay:
        case BuiltIn::kGMonth:
            return ParseMoment(FormOf(type), text).has_value();
        case BuiltIn::kHexBinary:
            return IsHexBinary(text);
        case BuiltIn::kBase64Binary:
            return IsBase64Binary(text);
        case BuiltIn::kAnyUri:
            return IsUriReference(text);
        case BuiltIn::kQName:
        case BuiltIn::kNotation:
            return IsQName(text);
        case BuiltIn::kLanguage:
            return IsLanguage(text);
        case BuiltIn::kNmToken:
        case BuiltIn::kNmTokens:
            return IsNmToken(text);
        case BuiltIn::kName:
            return IsName(text);
        case BuiltIn::kNcName:
        case BuiltIn::kId:
        case BuiltIn::kIdRef:
        case BuiltIn::kIdRefs:
        case BuiltIn::kEntity:
        case BuiltIn::kEntities:
            return IsNcName(text);
        case BuiltIn::kInteger:
            return IsInteger(text);
        case BuiltIn::kNonPositiveInteger:
            return IsWithin(text, "", "0");
        case BuiltIn::kNegativeInteger:
            return IsWithin(text, "", "-1");
        case BuiltIn::kLong:
            return IsWithin(text, "-9223372036854775808", "9223372036854775807");
        case BuiltIn::kInt:
            return IsWithin(text, "-2147483648", "2147483647");
        case BuiltIn::kShort:
            return IsWithin(text, "-32768", "32767");
        case BuiltIn::kByte:
            return IsWithin(text, "-128", "127");
        case BuiltIn::kNonNegativeInteger:
            return IsWithin(text, "0", "");
        case BuiltIn::kUnsignedLong:
            return IsWithin(text, "0", "18446744073709551615");
        case BuiltIn::kUnsignedInt:
            return IsWithin(text, "0", "4294967295");
        case BuiltIn::kUnsignedShort:
            return IsWithin(text, "0", "65535");
        case BuiltIn::kUnsignedByte:
            return IsWithin(text, "0", "255");
        case BuiltIn::kPositiveInteger:
            return IsWithin(text, "1", "");
        default:
            return true;
    }
}

std::string KeyOfValue(BuiltIn primitive, std::string_view text) {
    switch (primitive) {
        case BuiltIn::kDecimal:
            return DecimalKey(text);
        case BuiltIn::kFloat:
        case BuiltIn::kDouble:
            return TextOf(FloatOf(primitive, text));
        case BuiltIn::kBoolean:
            return text == "true" || text == "1" ? "true" : "false";
        case BuiltIn::kHexBinary:
        case BuiltIn::kBase64Binary:
            return Folded(primitive, text);
        case BuiltIn::kDuration: {
            Duration const duration = ParseDuration(text).value_or(Duration());
            return std::to_string(duration.m_months) + ' ' + TextOf(duration.m_seconds);
        }
        default:
            break;
    }
    std::string_view const form = FormOf(primitive);
    if (form.empty()) return std::string(text);
    Moment const moment = ParseMoment(form, text).value_or(Moment());
    return TextOf(moment.Seconds(moment.m_zone.value_or(0))) + (moment.m_zone ? "Z" : "");
}

std::partial_ordering CompareValues(BuiltIn primitive, std::string_view left, std::string_view right) {
    if (primitive == BuiltIn::kDecimal) return CompareDecimals(left, right);
    if (primitive == BuiltIn::kFloat || primitive == BuiltIn::kDouble) {
        return FloatOf(primitive, left) <=> FloatOf(primitive, right);
    }
    if (primitive == BuiltIn::kDuration) {
        auto const l = ParseDuration(left);
        auto const r = ParseDuration(right);
        return l && r ? Compare(*l, *r) : std::partial_ordering::unordered;
    }
    std::string_view const form = FormOf(primitive);
    if (form.empty()) return std::partial_ordering::unordered;
    auto const l = ParseMoment(form, left);
    auto const r = ParseMoment(form, right);
    return l && r ? Compare(*l, *r) : std::partial_ordering::unordered;
}

}  // namespace BxGen
