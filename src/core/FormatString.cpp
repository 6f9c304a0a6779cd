#include "BxXmlLib5/core/FormatString.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "core/FormatSpec.h"
#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

using Size = FormatSpec::Size;

/// The arguments, in an object of its own so that functions can take it by reference.
struct Arguments {
    va_list list;
};

/// Appends sign or base prefix and digits, filled to the width.
void Fill(wstring& out, FormatSpec const& spec, std::u16string_view prefix, std::u16string_view body) {
    std::size_t const length = prefix.size() + body.size();
    auto const width = static_cast<std::size_t>(spec.width);
    std::size_t const fill = width > length ? width - length : 0;
    if (!spec.left && !spec.zeros) out.append(fill, u' ');
    out.append(prefix);
    if (!spec.left && spec.zeros) out.append(fill, u'0');
    out.append(body);
    if (spec.left) out.append(fill, u' ');
}

/// The digits of a conversion, in upper case if its letter is.
wstring Widen(std::string_view digits, char16_t letter) {
    bool const isUpper = letter < u'a';
    wstring result(digits.begin(), digits.end());
    for (char16_t& c : result) {
        if (isUpper && c >= u'a') c = static_cast<char16_t>(c - u'a' + u'A');
    }
    return result;
}

std::u16string_view SignPrefix(FormatSpec const& spec, bool negative) {
    return negative ? u"-" : spec.plus ? u"+" : spec.blank ? u" " : u"";
}

/// Digits of at least the precision; the flag for zeros does not hold beside a precision.
void FormatInteger(wstring& out, FormatSpec spec, std::u16string_view prefix, std::uint64_t value, int base) {
    char digits[20];
    char* const end = std::to_chars(digits, digits + sizeof digits, value, base).ptr;
    wstring body = value == 0 && spec.precision == 0 ? wstring() : Widen({digits, end}, spec.letter);
    if (spec.precision >= 0) {
        spec.zeros = false;
        auto const least = static_cast<std::size_t>(spec.precision);
        if (body.size() < least) body.insert(0, least - body.size(), u'0');
    }
    Fill(out, spec, prefix, body);
}

std::int64_t TakeSigned(Size size, Arguments& arguments) {
    if (size == Size::Bits64) return va_arg(arguments.list, std::int64_t);
    if (size == Size::Long) return va_arg(arguments.list, long);
    int const value = va_arg(arguments.list, int);
    return size == Size::Short ? static_cast<short>(value) : value;
}

std::uint64_t TakeUnsigned(Size size, Arguments& arguments) {
    if (size == Size::Bits64) return va_arg(arguments.list, std::uint64_t);
    if (size == Size::Long) return va_arg(arguments.list, unsigned long);
    unsigned const value = va_arg(arguments.list, unsigned);
    return size == Size::Short ? static_cast<unsigned short>(value) : value;
}

void FormatSigned(wstring& out, FormatSpec const& spec, Arguments& arguments) {
    std::int64_t const value = TakeSigned(spec.size, arguments);
    auto const bits = static_cast<std::uint64_t>(value);
    FormatInteger(out, spec, SignPrefix(spec, value < 0), value < 0 ? 0 - bits : bits, 10);
}

void FormatHex(wstring& out, FormatSpec const& spec, Arguments& arguments) {
    std::uint64_t const value = TakeUnsigned(spec.size, arguments);
    bool const hasPrefix = spec.alternate && value != 0;
    FormatInteger(out, spec, !hasPrefix ? u"" : spec.letter == u'x' ? u"0x" : u"0X", value, 16);
}

std::string ToChars(double value, std::chars_format form, int precision) {
    std::string buffer(64, '\0');
    for (;;) {
        char* const end = buffer.data() + buffer.size();
        auto const result = std::to_chars(buffer.data(), end, value, form, precision);
        if (result.ec == std::errc()) {
            buffer.resize(static_cast<std::size_t>(result.ptr - buffer.data()));
            return buffer;
        }
        buffer.resize(buffer.size() * 2);
    }
}

/// The general form with the zeros that it drops (C17, 7.21.6.1: the flag # with g).
std::string ToCharsGeneralWithZeros(double value, int precision) {
    std::string scientific = ToChars(value, std::chars_format::scientific, precision - 1);
    int const exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
    if (exponent < -4 || exponent >= precision) return scientific;
    auto const decimals = std::min<std::int64_t>(std::int64_t{precision} - 1 - exponent, INT_MAX);
    return ToChars(value, std::chars_format::fixed, static_cast<int>(decimals));
}

/// The digits of a value of at least 0.
std::string FloatDigits(FormatSpec const& spec, double value) {
    int const precision = spec.precision < 0 ? 6 : spec.precision;
    bool const isAlternate = spec.alternate && std::isfinite(value);
    std::string digits;
    switch (spec.letter) {
        case u'g':
        case u'G':
            digits = isAlternate ? ToCharsGeneralWithZeros(value, std::max(precision, 1))
                                 : ToChars(value, std::chars_format::general, std::max(precision, 1));
            break;
        case u'f':
            digits = ToChars(value, std::chars_format::fixed, precision);
            break;
        default:
            digits = ToChars(value, std::chars_format::scientific, precision);
    }
    if (isAlternate && digits.find('.') == digits.npos) {
        digits.insert(std::min(digits.find('e'), digits.size()), 1, '.');
    }
    return digits;
}

void FormatFloat(wstring& out, FormatSpec spec, Arguments& arguments) {
    double const value = spec.size == Size::LongDouble
                             ? static_cast<double>(va_arg(arguments.list, long double))
                             : va_arg(arguments.list, double);
    std::string const digits = FloatDigits(spec, std::fabs(value));
    if (!std::isfinite(value)) spec.zeros = false;
    Fill(out, spec, SignPrefix(spec, std::signbit(value)), Widen(digits, spec.letter));
}

void FormatText(wstring& out, FormatSpec const& spec, Arguments& arguments) {
    char16_t const* text = va_arg(arguments.list, char16_t const*);
    if (text == nullptr) text = u"(null)";
    // With a precision, the text need not have a terminator behind that many units.
    auto const limit = static_cast<std::size_t>(spec.precision);  // no precision: the greatest limit
    std::size_t length = 0;
    while (length < limit && text[length] != 0) ++length;
    Fill(out, spec, {}, {text, length});
}

/// Formats one conversion; false if there is none with this letter.
bool FormatConversion(wstring& out, FormatSpec const& spec, Arguments& arguments) {
    switch (spec.letter) {
        case u'd':
        case u'i':
            FormatSigned(out, spec, arguments);
            return true;
        case u'u':
            FormatInteger(out, spec, {}, TakeUnsigned(spec.size, arguments), 10);
            return true;
        case u'x':
        case u'X':
            FormatHex(out, spec, arguments);
            return true;
        case u'e':
        case u'E':
        case u'f':
        case u'g':
        case u'G':
            FormatFloat(out, spec, arguments);
            return true;
        case u's':
            FormatText(out, spec, arguments);
            return true;
        case u'c': {
            auto const unit = static_cast<char16_t>(va_arg(arguments.list, int));
            Fill(out, spec, {}, {&unit, 1});
            return true;
        }
        case u'%':
            out += u'%';
            return true;
        default:
            return false;
    }
}

wstring Format(std::u16string_view format, Arguments& arguments) {
    wstring out;
    for (;;) {
        std::size_t const percent = std::min(format.find(u'%'), format.size());
        out += format.substr(0, percent);
        if (percent == format.size()) break;
        std::u16string_view rest = format.substr(percent + 1);
        FormatSpec const spec = TakeFormatSpec(rest);
        if (!FormatConversion(out, spec, arguments)) {
            out += format.substr(percent, format.size() - percent - rest.size());
        }
        format = rest;
    }
    out.resize(std::min(out.find(u'\0'), out.size()));
    return out;
}

}  // namespace

wstring FormatString(char16_t const* format, ...) {
    Arguments arguments;
    va_start(arguments.list, format);
    try {
        wstring result = Format(TextOf(format), arguments);
        va_end(arguments.list);
        return result;
    } catch (...) {
        va_end(arguments.list);
        throw;
    }
}

}  // namespace BxXmlLib5
