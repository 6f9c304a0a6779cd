#include "emit/Lines.h"

#include <algorithm>

namespace BxGen {

namespace {

constexpr std::string_view kContinued = "    ";

/// How many octets a letter or an escape within a literal has.
std::size_t LengthOfUnit(std::string_view text) {
    std::size_t length = 1;
    if (text[0] == '\\') {
        bool const isOctal = text.size() > 1 && text[1] >= '0' && text[1] <= '7';
        length = isOctal ? 4 : 2;
    } else {
        while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) ++length;
    }
    return std::min(length, text.size());
}

/// Breaks one line.
class Breaker {
public:
    Breaker(std::string_view line, std::string& code)
        : m_indent(line.substr(0, line.find_first_not_of(' '))), m_code(code) {
        line.remove_prefix(m_indent.size());
        Put(m_indent);
        std::size_t const sign = SignOfEquality(line);
        if (sign != line.npos &&
            m_indent.size() + kContinued.size() + WidthOf(line.substr(sign)) <= kColumns) {
            Put(line.substr(0, sign - 1));
            NewLine();
            Put(line.substr(sign));
        } else {
            Fill(line);
        }
    }

private:
    /// Where the value begins that the line gives something.
    static std::size_t SignOfEquality(std::string_view line) {
        std::size_t const sign = line.find(" = ");
        return sign < line.find_first_of("({\"") ? sign + 3 : line.npos;
    }

    void Fill(std::string_view line) {
        while (!line.empty()) {
            std::string_view const word = line.substr(0, EndOfWord(line));
            line.remove_prefix(std::min(word.size() + 1, line.size()));
            std::size_t const width = WidthOf(word);
            if (m_isBegun && m_column + 1 + width > kColumns) {
                NewLine();
            } else if (m_isBegun) {
                Put(" ");
            }
            if (m_column + width > kColumns) {
                PutInParts(word);
            } else {
                Put(word);
            }
            m_isBegun = true;
        }
    }

    /// The next blank that stands in no literal.
    static std::size_t EndOfWord(std::string_view line) {
        bool isLiteral = false;
        std::size_t at = 0;
        while (at < line.size() && (isLiteral || line[at] != ' ')) {
            if (line[at] == '"') isLiteral = !isLiteral;
            at += LengthOfUnit(line.substr(at));
        }
        return at;
    }

    /// Literals that follow each other are one.
    void PutInParts(std::string_view word) {
        bool isLiteral = false;
        while (!word.empty()) {
            std::string_view const unit = word.substr(0, LengthOfUnit(word));
            if (unit == "\"") {
                isLiteral = !isLiteral;
            } else if (isLiteral && m_column + WidthOf(unit) >= kColumns) {
                Put("\"");
                NewLine();
                Put("u\"");
            }
            Put(unit);
            word.remove_prefix(unit.size());
        }
    }

    void Put(std::string_view text) {
        m_code += text;
        m_column += WidthOf(text);
    }

    void NewLine() {
        m_code += '\n';
        m_column = 0;
        Put(m_indent);
        Put(kContinued);
    }

    std::string_view m_indent;
    std::string& m_code;
    std::size_t m_column = 0;
    bool m_isBegun = false;
};

}  // namespace

std::size_t WidthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string Table(std::string const& head, std::vector<std::string> const& items, std::string_view blank) {
    std::string line;
    for (std::string const& item : items) line += (line.empty() ? "" : ", ") + item;
    line = head + '{' + std::string(blank) + line + std::string(blank) + "};\n";
    if (WidthOf(line) <= kColumns + 1) return line;
    std::string const indent(head.find_first_not_of(' '), ' ');
    std::string table = head + "{\n";
    for (std::string const& item : items) table += indent + "    " + item + ",\n";
    return table + indent + "};\n";
}

std::string Broken(std::string_view text) {
    std::string code;
    while (!text.empty()) {
        std::string_view const line = text.substr(0, text.find('\n'));
        std::size_t const first = std::min(line.find_first_not_of(' '), line.size());
        bool const isWhole = line.substr(first).starts_with("//") || line.substr(first).starts_with('#');
        if (isWhole || WidthOf(line) <= kColumns) {
            code += line;
        } else {
            Breaker(line, code);
        }
        code += '\n';
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return code;
}

}  // namespace BxGen
