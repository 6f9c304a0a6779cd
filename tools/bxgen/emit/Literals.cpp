#include "emit/Literals.h"

#include <cstdio>

namespace BxGen {

std::string TextLiteral(std::string_view text) {
    std::string literal = "u\"";
    for (char const c : text) {
        switch (c) {
            case '"':
            case '\\':
                literal += '\\';
                literal += c;
                break;
            case '?':
                // Compilers warn of two in a row, which may begin a trigraph.
                literal += literal.ends_with('?') ? "\\?" : "?";
                break;
            case '\n':
                literal += "\\n";
                break;
            case '\t':
                literal += "\\t";
                break;
            case '\r':
                literal += "\\r";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
                    // Three octal digits end by themselves, whatever follows.
                    char buffer[8];
                    std::snprintf(buffer, sizeof buffer, "\\%03o", static_cast<unsigned>(c));
                    literal += buffer;
                } else {
                    literal += c;
                }
        }
    }
    return literal + '"';
}

}  // namespace BxGen
