#include "emit/Comments.h"

#include "emit/Lines.h"
#include "schema/Text.h"

namespace BxGen {

namespace {

/// Text that leaves the comment as it is: one line, no end of a comment, no backslash at the end of a line, no command
/// of Doxygen.
std::string Defused(std::string_view text) {
    std::string defused;
    for (char const c : text) {
        if (c == '/' && defused.ends_with('*')) defused += ' ';
        if (c == '\\' || c == '@') {
            defused += c == '\\' ? "&#92;" : "&#64;";
        } else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            defused += ' ';
        } else {
            defused += c;
        }
    }
    return defused;
}

std::string NameOfFile(std::string_view path) {
    return std::string(path.substr(path.find_last_of('/') + 1));
}

std::string Origin(Documentation const& documentation) {
    std::string origin = Defused(documentation.m_name);
    if (!documentation.m_place.m_file.empty()) {
        if (!origin.empty()) origin += ", ";
        origin += Defused(NameOfFile(documentation.m_place.m_file));
        if (documentation.m_place.m_line > 0) origin += ':' + std::to_string(documentation.m_place.m_line);
    }
    return origin.empty() ? origin : '(' + origin + ')';
}

/// @param last what stands behind the text, on one line
std::string Wrapped(std::string const& text, std::string_view indent, std::string const& last = {}) {
    std::string lines;
    std::string line;
    auto const flush = [&] {
        if (!line.empty()) lines += std::string(indent) + "///" + line + '\n';
        line.clear();
    };
    std::vector<std::string_view> words = Items(text);
    if (!last.empty()) words.push_back(last);
    for (std::string_view const word : words) {
        if (indent.size() + 3 + WidthOf(line) + 1 + WidthOf(word) > kColumns) flush();
        line += ' ';
        line += word;
    }
    flush();
    return lines;
}

}  // namespace

std::string Comment(Documentation const& documentation, std::string_view indent) {
    return Wrapped(Defused(documentation.m_text), indent, Origin(documentation));
}

std::string MemberComment(Documentation const& documentation, std::string_view indent) {
    return documentation.m_text.empty() ? "" : Wrapped(Defused(documentation.m_text), indent);
}

std::string WithComment(std::string const& member, std::string_view text) {
    if (text.empty()) return member + '\n';
    std::string const line = member + "  ///< " + Defused(text) + '\n';
    if (WidthOf(line) <= kColumns + 1) return line;
    return Wrapped(Defused(text), member.substr(0, member.find_first_not_of(' '))) + member + '\n';
}

}  // namespace BxGen
