#include "collections/PatternFacet.h"

#include <pcre.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "platform/Stack.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5 {

namespace {

struct Rewriting {
    std::string_view search;
    std::string_view replacement;
};

/// The multi-character escapes for names (XML Schema Part 2, F.1.1), which PCRE lacks or gives another
/// meaning. Each row is applied to the whole pattern before the next; the first and the last keep an escaped
/// backslash apart from the letter behind it.
// clang-format off
constexpr Rewriting kRewritings[] = {
    {R"(\\)", "\x01"},
    {R"(\i)", R"(([^\W\d]|:))"},
    {R"(\I)", R"(([\W\d]))"},
    {R"(\c)", R"((\w|\.|-|:))"},
    {R"(\C)", R"(([^\w\.\-\:]))"},
    {"\x01",  R"(\\)"},
};
// clang-format on

void Rewrite(std::string& pattern, Rewriting const& row) {
    for (std::size_t at = 0; (at = pattern.find(row.search, at)) != pattern.npos;
         at += row.replacement.size()) {
        pattern.replace(at, row.search.size(), row.replacement);
    }
}

/// None for a text with an unpaired surrogate.
std::optional<std::string> Utf8Of(std::u16string_view text) {
    std::string octets(Utf8Size(text), '\0');
    if (octets.empty() && !text.empty()) return std::nullopt;
    WriteUtf8(text, {reinterpret_cast<unsigned char*>(octets.data()), octets.size()});
    return octets;
}

struct FreeRegex {
    void operator()(pcre* regex) const { pcre_free(regex); }
};
using Regex = std::unique_ptr<pcre, FreeRegex>;

/// @param[out] error PCRE's text, if the result is null
Regex Compile(wstring const& pattern, char const*& error) {
    std::optional<std::string> octets = Utf8Of(pattern);
    if (!octets) {
        error = "invalid UTF-16 string";
        return nullptr;
    }
    for (Rewriting const& row : kRewritings) Rewrite(*octets, row);
    int offset = 0;
    return Regex(pcre_compile(octets->c_str(), PCRE_UTF8, &error, &offset, nullptr));
}

/// How far pcre_exec may go on a value: it recurses on the stack, and each of its calls may look at all of
/// the value.
pcre_extra Limits(std::size_t valueSize) {
    // Called like this, pcre_exec gives the size of its stack frame as a negative number.
    int const frame = std::max(-pcre_exec(nullptr, nullptr, nullptr, -999, -999, 0, nullptr, 0), 512);
    pcre_extra limits{};
    limits.flags = PCRE_EXTRA_MATCH_LIMIT | PCRE_EXTRA_MATCH_LIMIT_RECURSION;
    limits.match_limit = std::min(kMaxMatchSteps, kMaxMatchWork / (valueSize + 1));
    unsigned long const stack = std::min<unsigned long>(kMaxMatchStack, StackLeft().value_or(0) / 2);
    limits.match_limit_recursion = stack / static_cast<unsigned long>(frame);
    return limits;
}

bool MatchesWhole(pcre const& regex, std::string const& value) {
    if (value.size() > INT_MAX) return false;
    auto const size = static_cast<int>(value.size());
    int groups = 0;
    pcre_fullinfo(&regex, nullptr, PCRE_INFO_CAPTURECOUNT, &groups);
    std::vector<int> offsets(3 * static_cast<std::size_t>(groups) + 3);
    pcre_extra const limits = Limits(value.size());
    int const result = pcre_exec(&regex, &limits, value.data(), size, 0, PCRE_ANCHORED, offsets.data(),
                                 static_cast<int>(offsets.size()));
    return result > 0 && offsets[0] == 0 && offsets[1] == size;
}

}  // namespace

bool MatchesPattern(wstring const& pattern, wstring const& value, char16_t const* name) {
    char const* error = nullptr;
    Regex const regex = Compile(pattern, error);
    if (regex == nullptr) {
        throw CBxException(FormatString(u"Invalid Regular Expression: %s Error: '%s' for '%s'",
                                        pattern.c_str(), FromUtf8(error).c_str(), name));
    }
    std::optional<std::string> const octets = Utf8Of(value);
    return octets && MatchesWhole(*regex, *octets);
}

}  // namespace BxXmlLib5
