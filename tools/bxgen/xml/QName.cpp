#include "xml/QName.h"

#include <cstdio>

#include "xml/Place.h"

namespace BxGen {

namespace {

constexpr std::size_t kLongestQuotation = 100;

bool IsContinuation(char octet) {
    return (static_cast<unsigned char>(octet) & 0xC0) == 0x80;
}

/// As much of a text as a message shows; never ends within a character.
std::string_view Start(std::string_view text) {
    if (text.size() <= kLongestQuotation) return text;
    std::size_t size = kLongestQuotation;
    while (size > 0 && IsContinuation(text[size])) --size;
    return text.substr(0, size);
}

}  // namespace

std::string ToString(QName const& name) {
    if (name.m_namespace.empty()) return std::string(name.m_local);
    return '{' + std::string(name.m_namespace) + '}' + std::string(name.m_local);
}

std::string Quoted(std::string_view text) {
    std::string_view const start = Start(text);
    std::string quoted = "'";
    for (char const c : start) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned char>(c));
            quoted += escaped;
        } else {
            quoted += c;
        }
    }
    return quoted + (start.size() < text.size() ? "...'" : "'");
}

std::string Quoted(QName const& name) {
    if (name.m_namespace.empty()) return Quoted(name.m_local);
    return Quoted(name.m_local) + " of " + Quoted(name.m_namespace);
}

std::string ToString(Place const& place) {
    if (place.m_file.empty()) return "bxgen";
    std::string text(place.m_file);
    if (place.m_line > 0) text += ':' + std::to_string(place.m_line) + ':' + std::to_string(place.m_column);
    return text;
}

}  // namespace BxGen
