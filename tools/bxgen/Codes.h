// What messages are about, a word each.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

namespace BxGen {

/// All codes that messages may end with. docs/mapping.md says of each what to do.
inline constexpr std::string_view kCodes[] = {
    // Files
    "file",
    "xml",
    "catalog",
    "location",
    "limit",
    // What is no schema, or not as the standard demands
    "syntax",
    "version",
    "unresolved",
    "duplicate",
    "cycle",
    "namespace",
    "redefine",
    "derivation",
    "final",
    "facet",
    "pattern",
    "value",
    "type",
    "all",
    "occurs",
    "ambiguous",
    "wildcard",
    "check",
    // What classes do not express
    "mixed",
    "qname",
    "restriction",
    "twice",
    "runs",
    "same-name",
    "open-subst",
    "default",
    "lax",
    "identity",
    // Names and roots
    "renamed",
    "root",
    "names",
};

/// One of them. What is none does not compile.
class Code {
public:
    consteval Code(char const* text) : m_text(text) {
        if (std::ranges::find(kCodes, m_text) == std::end(kCodes)) throw "no such code";
    }

    operator std::string_view() const { return m_text; }

private:
    std::string_view m_text;
};

}  // namespace BxGen
