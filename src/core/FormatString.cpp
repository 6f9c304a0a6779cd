#include "BxXmlLib5/core/FormatString.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/TextView.h"

namespace BxXmlLib5 {

namespace {

enum class Size { Plain, Short, Long, Bits64, LongDouble };

/// What stands between the percent sign and the letter of a conversion.
struct Spec {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    bool zeros = false;
    std::size_t width = 0;
    int precision = -1;  // -1 for none
    Size size = Size::Plain;
};

/// The arguments, in an object of its own so that functions can take it by reference.
struct Arguments {
    va_list list;
};

bool IsUpper(char16_t letter) {
    return letter >= u'A' && letter <= u'Z';
}

/// Appends sign or base prefix and digits, filled to the width.
void Fill(wstring& out, Spec const& spec, std::u16string_view prefix, std::u16string_view body) {
    std::size_t const length = prefix.size() + body.size();
    std::size_t const fill = spec.width > length ? spec.width - length : 0;
    if (!spec.left && !spec.zeros) out.append(fill, u' ');
    out.append(prefix);
    if (!spec.left && spec.zeros) out.append(fill, u'0');
    out.append(body);
    if (spec.left) out.append(fill, u' ');
}

wstring Widen(std::string_view ascii, bool upper) {
    wstring result(ascii.begin(), ascii.end());
    for (char16_t& c : result) {
        if (upper && c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - u'a' + u'A');
    }
    return result;
}

std::u16string_view SignPrefix(Spec const& spec, bool negative) {
    return negative ? u"-" : spec.plus ? u"+" : spec.blank ? u" " : u"";
}

/// Digits of at least the precision; the flag for zeros does not hold beside a precision.
void FillDigits(wstring& out, Spec spec, std::u16string_view prefix, std::uint64_t value, int base,
                bool upper) {
    char digits[64];
    char* const end = std::to_chars(digits, digits + sizeof digits, value, base).ptr;
    auto const count = static_cast<std::size_t>(end - digits);
    wstring body;
    if (spec.precision >= 0) {
        spec.zeros = false;
        auto const least = static_cast<std::size_t>(spec.precision);
        if (count < least) body.assign(least - count, u'0');
    }
    if (value != 0 || spec.precision != 0) body += Widen({digits, count}, upper);
    if (prefix == u"0" && body.starts_with(u'0')) prefix = {};  // of an octal number: one zero is enough
    Fill(out, spec, prefix, body);
}

void FormatSigned(wstring& out, Spec const& spec, Arguments& arguments) {
    std::int64_t value = 0;
    switch (spec.size) {
        case Size::Long:
            value = va_arg(arguments.list, long);
            break;
        case Size::Bits64:
            value = va_arg(arguments.list, std::int64_t);
            break;
        case Size::Short:
            value = static_cast<short>(va_arg(arguments.list, int));
            break;
        default:
            value = va_arg(arguments.list, int);
    }
    std::uint64_t const magnitude =
        value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    FillDigits(out, spec, SignPrefix(spec, value < 0), magnitude, 10, false);
}

void FormatUnsigned(wstring& out, Spec const& spec, Arguments& arguments, char16_t letter) {
    std::uint64_t value = 0;
    switch (spec.size) {
        case Size::Long:
            value = va_arg(arguments.list, unsigned long);
            break;
        case Size::Bits64:
            value = va_arg(arguments.list, std::uint64_t);
            break;
        case Size::Short:
            value = static_cast<unsigned short>(va_arg(arguments.list, unsigned));
            break;
        default:
            value = va_arg(arguments.list, unsigned);
    }
    std::u16string_view prefix;
    if (spec.alternate && letter == u'o') prefix = u"0";
    if (spec.alternate && value != 0 && letter == u'x') prefix = u"0x";
    if (spec.alternate && value != 0 && letter == u'X') prefix = u"0X";
    FillDigits(out, spec, prefix, value, letter == u'u' ? 10 : letter == u'o' ? 8 : 16, letter == u'X');
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

void FormatFloat(wstring& out, Spec spec, Arguments& arguments, char16_t letter) {
    double const value = spec.size == Size::LongDouble
                             ? static_cast<double>(va_arg(arguments.list, long double))
                             : va_arg(arguments.list, double);
    double const magnitude = std::fabs(value);
    bool const finite = std::isfinite(value);
    bool const general = letter == u'g' || letter == u'G';
    int precision = spec.precision < 0 ? 6 : spec.precision;
    if (general && precision == 0) precision = 1;

    std::string digits;
    if (general && spec.alternate && finite) {
        digits = ToCharsGeneralWithZeros(magnitude, precision);
    } else {
        auto const form = general          ? std::chars_format::general
                          : letter == u'f' ? std::chars_format::fixed
                                           : std::chars_format::scientific;
        digits = ToChars(magnitude, form, precision);
    }
    if (spec.alternate && finite && digits.find('.') == digits.npos) {
        std::size_t const exponent = digits.find('e');
        digits.insert(exponent == digits.npos ? digits.size() : exponent, 1, '.');
    }
    if (!finite) spec.zeros = false;
    Fill(out, spec, SignPrefix(spec, std::signbit(value)), Widen(digits, IsUpper(letter)));
}

void FormatText(wstring& out, Spec const& spec, Arguments& arguments, bool narrow) {
    void const* const text = va_arg(arguments.list, void const*);
    wstring const converted =
        narrow && text != nullptr ? FromUtf8(static_cast<char const*>(text)) : wstring();
    std::u16string_view view = converted;
    if (text == nullptr) {
        view = u"(null)";
    } else if (!narrow) {
        // With a precision, the text need not have a terminator behind that many units.
        auto const* const units = static_cast<char16_t const*>(text);
        std::size_t length = 0;
        auto const limit = static_cast<std::size_t>(spec.precision);  // no precision: the greatest limit
        while (length < limit && units[length] != 0) ++length;
        view = {units, length};
    }
    if (spec.precision >= 0) view = view.substr(0, static_cast<std::size_t>(spec.precision));
    Fill(out, spec, {}, view);
}

void FormatPointer(wstring& out, Spec const& spec, Arguments& arguments) {
    auto const value = reinterpret_cast<std::uintptr_t>(va_arg(arguments.list, void*));
    FillDigits(out, spec, u"0x", value, 16, false);
}

/// Reads one format from the left.
class Walker {
public:
    explicit Walker(std::u16string_view rest) : m_rest(rest) {}

    bool AtEnd() const { return m_rest.empty(); }
    std::u16string_view Rest() const { return m_rest; }
    std::u16string_view TakeTo(char16_t stop) { return Take(std::min(m_rest.find(stop), m_rest.size())); }

    std::u16string_view Take(std::size_t count) {
        auto const taken = m_rest.substr(0, count);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    bool Skip(std::u16string_view wanted) {
        bool const found = m_rest.starts_with(wanted);
        if (found) m_rest.remove_prefix(wanted.size());
        return found;
    }

    char16_t TakeLetter() { return AtEnd() ? u'\0' : Take(1)[0]; }

    Spec TakeSpec(Arguments& arguments) {
        Spec spec;
        while (TakeFlag(spec)) continue;
        std::int64_t const width = TakeNumber(arguments);
        if (width < 0) spec.left = true;
        spec.width = static_cast<std::size_t>(std::abs(width));
        if (Skip(u".")) spec.precision = static_cast<int>(std::max<std::int64_t>(TakeNumber(arguments), -1));
        while (TakeSize(spec)) continue;
        return spec;
    }

private:
    bool TakeFlag(Spec& spec) {
        if (Skip(u"-")) return spec.left = true;
        if (Skip(u"+")) return spec.plus = true;
        if (Skip(u" ")) return spec.blank = true;
        if (Skip(u"#")) return spec.alternate = true;
        if (Skip(u"0")) return spec.zeros = true;
        return false;
    }

    std::int64_t TakeNumber(Arguments& arguments) {
        if (Skip(u"*")) return va_arg(arguments.list, int);
        std::int64_t number = 0;
        while (!AtEnd() && m_rest[0] >= u'0' && m_rest[0] <= u'9') {
            number = std::min<std::int64_t>(number * 10 + (TakeLetter() - u'0'), INT_MAX);
        }
        return number;
    }

    bool TakeSize(Spec& spec) {
        if (Skip(u"I64") || Skip(u"ll")) return spec.size = Size::Bits64, true;
        if (Skip(u"h")) return spec.size = Size::Short, true;
        if (Skip(u"l")) return spec.size = Size::Long, true;
        if (Skip(u"L")) return spec.size = Size::LongDouble, true;
        return Skip(u"F") || Skip(u"N");
    }

    std::u16string_view m_rest;
};

/// Formats one conversion; false if there is none with this letter.
bool FormatConversion(wstring& out, Spec const& spec, char16_t letter, Arguments& arguments) {
    switch (letter) {
        case u'd':
        case u'i':
            FormatSigned(out, spec, arguments);
            return true;
        case u'u':
        case u'o':
        case u'x':
        case u'X':
            FormatUnsigned(out, spec, arguments, letter);
            return true;
        case u'e':
        case u'E':
        case u'f':
        case u'g':
        case u'G':
            FormatFloat(out, spec, arguments, letter);
            return true;
        case u's':
            FormatText(out, spec, arguments, spec.size == Size::Short);
            return true;
        case u'S':
            FormatText(out, spec, arguments, spec.size != Size::Long);
            return true;
        case u'c':
        case u'C': {
            auto const unit = static_cast<char16_t>(va_arg(arguments.list, int));
            Fill(out, spec, {}, {&unit, 1});
            return true;
        }
        case u'p':
            FormatPointer(out, spec, arguments);
            return true;
        case u'%':
            out += u'%';
            return true;
        default:
            return false;
    }
}

wstring Format(std::u16string_view format, Arguments& arguments) {
    wstring out;
    Walker walker(format);
    for (;;) {
        out += walker.TakeTo(u'%');
        if (walker.AtEnd()) break;
        std::u16string_view const conversion = walker.Rest();
        walker.Take(1);
        Spec const spec = walker.TakeSpec(arguments);
        if (!FormatConversion(out, spec, walker.TakeLetter(), arguments)) {
            out += conversion.substr(0, conversion.size() - walker.Rest().size());
        }
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
