#include "Diagnostics.h"

namespace BxGen {

namespace {

constexpr std::size_t kMaxErrors = 100;
constexpr std::string_view kSeverities[] = {"note", "warning", "error"};

}  // namespace

void Diagnostics::Error(Place const& place, Code code, std::string_view text) {
    m_lastIsKept = ++m_errors <= kMaxErrors;
    if (m_lastIsKept) Add(place, Severity::kError, code, text);
}

void Diagnostics::FileError(Place const& place, std::string_view text) {
    m_hasFileErrors = true;
    Error(place, "file", text);
}

void Diagnostics::Warning(Place const& place, Code code, std::string_view text) {
    ++m_warnings;
    std::size_t& count = m_warningsByCode.try_emplace(std::string(std::string_view(code))).first->second;
    ++count;
    m_lastIsKept = !m_options.m_quiet && (m_options.m_allWarnings || count == 1);
    if (m_lastIsKept) Add(place, Severity::kWarning, code, text);
}

void Diagnostics::Note(Place const& place, std::string_view text) {
    if (m_lastIsKept) Add(place, Severity::kNote, {}, text);
}

void Diagnostics::Add(Place const& place, Severity severity, std::string_view code, std::string_view text) {
    std::string line = ToString(place) + ": ";
    line.append(kSeverities[static_cast<int>(severity)]).append(": ").append(text);
    if (!code.empty()) line.append(" [").append(code).append("]");
    m_lines.push_back(std::move(line));
}

std::string Diagnostics::Text() const {
    std::string text;
    for (std::string const& line : m_lines) text.append(line).append("\n");
    if (m_errors > kMaxErrors) {
        text += "bxgen: note: " + std::to_string(m_errors - kMaxErrors) + " more errors\n";
    }
    if (m_options.m_allWarnings || m_options.m_quiet) return text;
    for (auto const& [code, count] : m_warningsByCode) {
        if (count == 1) continue;
        text +=
            "bxgen: note: " + std::to_string(count - 1) + " more [" + code + "]; --all-warnings shows them\n";
    }
    return text;
}

}  // namespace BxGen
