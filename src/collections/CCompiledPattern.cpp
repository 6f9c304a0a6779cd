#include "BxXmlLib5/collections/CCompiledPattern.h"

#include <pcre2.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <new>
#include <optional>
#include <string_view>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "platform/Stack.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5 {

namespace {

/// None for a text with an unpaired surrogate.
std::optional<std::string> Utf8Of(std::u16string_view text) {
    std::string octets(Utf8Size(text), '\0');
    if (octets.empty() && !text.empty()) return std::nullopt;
    WriteUtf8(text, {reinterpret_cast<unsigned char*>(octets.data()), octets.size()});
    return octets;
}

PCRE2_SPTR Octets(std::string const& text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
}

template <auto kFree>
struct Free {
    template <class T>
    void operator()(T* object) const {
        kFree(object);
    }
};

/// An object of PCRE2, which gives null where memory ends.
template <auto kFree, class T>
std::unique_ptr<T, Free<kFree>> Own(T* object) {
    if (object == nullptr) throw std::bad_alloc();
    return std::unique_ptr<T, Free<kFree>>(object);
}

/// Whether compiling may not go on. It recurses into groups.
/// @param outermost where the stack stands in the outermost group, 0 before it
int LacksStack(std::uint32_t, void* outermost) {
    if (auto const left = StackLeft()) return *left < kStackForGroup;
    auto& start = *static_cast<std::uintptr_t*>(outermost);
    if (start == 0) start = StackAddress();
    return start - StackAddress() > kUnknownStack;
}

/// @param options besides PCRE2_UTF
/// @param[out] error PCRE2's number, if the result is null
pcre2_code* Compile(std::string const& pattern, std::uint32_t options, int& error) {
    auto const context = Own<pcre2_compile_context_free>(pcre2_compile_context_create(nullptr));
    pcre2_set_compile_extra_options(context.get(), PCRE2_EXTRA_ALLOW_LOOKAROUND_BSK);
    std::uintptr_t outermost = 0;
    pcre2_set_compile_recursion_guard(context.get(), LacksStack, &outermost);
    PCRE2_SIZE at = 0;
    return pcre2_compile(Octets(pattern), pattern.size(), PCRE2_UTF | PCRE2_NO_UTF_CHECK | options, &error,
                         &at, context.get());
}

wstring ErrorText(int error) {
    unsigned char text[256];
    pcre2_get_error_message(error, text, sizeof text);
    return FromUtf8(reinterpret_cast<char const*>(text));
}

/// The work of a search, as PCRE2's callouts tell of it.
struct WorkMeter {
    std::size_t left = kMaxMatchWork;
    std::size_t ofItem;  ///< Of each item, besides the octets that the search moves over.
    std::size_t place = 0;
};

/// Called before each item of the pattern.
int CountWork(pcre2_callout_block* callout, void* data) {
    auto& meter = *static_cast<WorkMeter*>(data);
    std::size_t const place = callout->current_position;
    std::size_t const work = meter.ofItem + std::max(place, meter.place) - std::min(place, meter.place);
    if (work > meter.left) return PCRE2_ERROR_MATCHLIMIT;
    meter.left -= work;
    meter.place = place;
    return 0;
}

struct Search {
    int result;  ///< Negative without a match.
    bool isWhole;
};

/// @param meter null if nothing is counted
Search Run(pcre2_code const& code, std::string const& value, std::size_t steps, WorkMeter* meter) {
    auto const context = Own<pcre2_match_context_free>(pcre2_match_context_create(nullptr));
    pcre2_set_match_limit(context.get(), static_cast<std::uint32_t>(steps));
    pcre2_set_heap_limit(context.get(), kMaxMatchMemory / 1024);
    if (meter != nullptr) pcre2_set_callout(context.get(), CountWork, meter);
    auto const data = Own<pcre2_match_data_free>(pcre2_match_data_create(1, nullptr));
    int const result = pcre2_match(&code, Octets(value), value.size(), 0, PCRE2_ANCHORED | PCRE2_NO_UTF_CHECK,
                                   data.get(), context.get());
    PCRE2_SIZE const* const match = pcre2_get_ovector_pointer(data.get());
    return {result, result >= 0 && match[0] == 0 && match[1] == value.size()};
}

/// The greatest number behind a brace, but for those of \x{...}. That often an item may be demanded, and the value
/// be looked at in vain.
std::size_t GreatestRepetition(std::string_view pattern) {
    std::size_t greatest = 0;
    for (std::size_t at = 0; (at = pattern.find('{', at)) != pattern.npos;) {
        bool const isCharacter = pattern.substr(0, at).ends_with("\\x");
        std::size_t number = 0;
        std::from_chars(pattern.data() + ++at, pattern.data() + pattern.size(), number);
        if (!isCharacter) greatest = std::max(greatest, number);
    }
    return greatest;
}

bool MatchesCounted(std::string const& pattern, std::string const& value) {
    int error = 0;
    pcre2_code* const code = Compile(pattern, PCRE2_AUTO_CALLOUT, error);
    if (code == nullptr) return false;  // too large with callouts
    auto const owner = Own<pcre2_code_free>(code);
    std::uint32_t references = 0;
    pcre2_pattern_info(code, PCRE2_INFO_BACKREFMAX, &references);
    std::size_t const unseen = references > 0 ? value.size() : GreatestRepetition(pattern);
    WorkMeter meter{.ofItem = kWorkOfStep + std::min(unseen, value.size())};
    return Run(*code, value, kMaxMatchWork / kWorkOfStep, &meter).isWhole;
}

}  // namespace

CCompiledPattern::CCompiledPattern(wstring const& pattern, wstring const& asGiven, char16_t const* name) {
    auto const refuse = [&](wstring const& error) {
        throw CBxException(FormatString(u"Invalid Regular Expression: %s Error: '%s' for '%s'",
                                        asGiven.c_str(), error.c_str(), name));
    };
    std::optional<std::string> octets = Utf8Of(pattern);
    if (!octets) refuse(u"invalid UTF-16 string");
    m_pattern = std::move(*octets);
    int error = 0;
    m_code.reset(Compile(m_pattern, 0, error));
    if (m_code == nullptr) refuse(ErrorText(error));
}

CCompiledPattern::CCompiledPattern(CCompiledPattern&& other) noexcept = default;
CCompiledPattern& CCompiledPattern::operator=(CCompiledPattern&& other) noexcept = default;
CCompiledPattern::~CCompiledPattern() = default;

void CCompiledPattern::FreeCode::operator()(pcre2_real_code_8* code) const {
    pcre2_code_free(code);
}

bool CCompiledPattern::MatchesWhole(wstring const& value) const {
    std::optional<std::string> const octets = Utf8Of(value);
    if (!octets) return false;
    std::size_t const steps = std::min(kMaxUncountedSteps, kMaxUncountedWork / (octets->size() + 1));
    Search const search = Run(*m_code, *octets, steps, nullptr);
    if (search.result != PCRE2_ERROR_MATCHLIMIT) return search.isWhole;
    return MatchesCounted(m_pattern, *octets);
}

}  // namespace BxXmlLib5
