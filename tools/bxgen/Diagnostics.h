// What the tool has to say about its input.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Codes.h"
#include "xml/Place.h"

namespace BxGen {

enum class Severity { kNote, kWarning, kError };

/// Collects messages `file:line:column: error|warning|note: text [code]`, in the order in which they come.
///
/// Of warnings, the first of each code is kept and the others are counted, unless all are wanted. Of errors, the first
/// hundred are kept.
class Diagnostics {
public:
    struct Options {
        bool m_allWarnings = false;        ///< keep every warning
        bool m_warningsAreErrors = false;  ///< a warning makes the run fail; its text stays a warning's
        bool m_quiet = false;              ///< keep errors only
    };

    Diagnostics() = default;
    explicit Diagnostics(Options options) : m_options(options) {}

    /// @param code one of kCodes: "unresolved"
    void Error(Place const& place, Code code, std::string_view text);
    /// A file that cannot be read or written, with the code "file".
    void FileError(Place const& place, std::string_view text);
    void Warning(Place const& place, Code code, std::string_view text);
    /// Says more about the message before it, and is dropped with it.
    void Note(Place const& place, std::string_view text);

    /// True if the run fails: after an error, or a warning that counts as one.
    bool HasFailed() const { return m_errors > 0 || (m_options.m_warningsAreErrors && m_warnings > 0); }
    bool HasErrors() const { return m_errors > 0; }
    bool HasFileErrors() const { return m_hasFileErrors; }
    std::size_t Errors() const { return m_errors; }

    /// All messages, a line each, and what was counted.
    std::string Text() const;

private:
    void Add(Place const& place, Severity severity, std::string_view code, std::string_view text);

    Options m_options;
    std::vector<std::string> m_lines;
    std::map<std::string, std::size_t, std::less<>> m_warningsByCode;
    std::size_t m_errors = 0;
    std::size_t m_warnings = 0;
    bool m_hasFileErrors = false;
    bool m_lastIsKept = false;
};

}  // namespace BxGen
