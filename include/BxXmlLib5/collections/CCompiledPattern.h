// A regular expression, compiled once for many values.
#pragma once

#include <memory>
#include <string>

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

struct pcre2_real_code_8;

namespace BxXmlLib5 {

/// A regular expression in the language of PCRE2, not in XML Schema's; CPrimitiveRestrictions takes the latter
/// and compiles it for each value. Any number of threads may match with one object at the same time.
class BXXMLLIB5_API CCompiledPattern {
public:
    /// @param pattern taken as it stands, with UTF on; groups nest as deep as what is left of the stack allows,
    ///     250 levels at most, and some twenty on a stack that the program made for itself
    /// @param asGiven for the message: the text that a schema has in place of the pattern
    /// @param name for the message: of the element, the attribute or the type
    /// @throws CBxException if the pattern is no regular expression
    CCompiledPattern(wstring const& pattern, wstring const& asGiven, char16_t const* name);
    /// @{
    /// Leaves an object that can only be assigned to.
    CCompiledPattern(CCompiledPattern&& other) noexcept;
    CCompiledPattern& operator=(CCompiledPattern&& other) noexcept;
    /// @}
    /// Frees the compiled expression.
    ~CCompiledPattern();

    /// Whether the first match at the start of a value spans all of it; a longer one is not sought. There is none
    /// in a value with an unpaired surrogate. A search that takes about a second or more than 128 MiB of heap is
    /// given up, and nothing matches then; what is left of the stack makes no difference.
    bool MatchesWhole(wstring const& value) const;

private:
    struct FreeCode {
        void operator()(pcre2_real_code_8* code) const;
    };

    std::string m_pattern;
    std::unique_ptr<pcre2_real_code_8, FreeCode> m_code;
};

}  // namespace BxXmlLib5
