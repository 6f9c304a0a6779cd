// The command lines of the tools, by tables of their options.
#pragma once

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace CommandLine {

/// The command line makes no sense; what() says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

template <class Options>
struct Option {
    std::string_view m_name;
    std::string_view m_value;  ///< what it takes, for --help and for errors; empty if it takes nothing
    std::string_view m_help;
    /// False if the value is none that the option takes.
    bool (*m_apply)(Options& options, std::string_view value);
};

/// For an option that takes nothing.
template <class Options, auto Member, auto value = true>
bool Set(Options& options, std::string_view) {
    options.*Member = value;
    return true;
}

/// Reads a command line, without the name of the program: --option=value or --option value, and - and all that
/// stands behind -- is no option.
/// @param takeOperand called with the options and each argument that is no option
/// @throws UsageError
template <class Options>
Options Read(std::span<char const* const> arguments, std::span<Option<Options> const> table,
             void (*takeOperand)(Options& options, std::string_view operand)) {
    Options options;
    bool onlyOperands = false;
    for (auto at = arguments.begin(); at != arguments.end(); ++at) {
        std::string_view const argument = *at;
        if (onlyOperands || !argument.starts_with('-') || argument == "-") {
            takeOperand(options, argument);
            continue;
        }
        onlyOperands = argument == "--";
        if (onlyOperands) continue;
        std::size_t const equals = argument.starts_with("--") ? argument.find('=') : argument.npos;
        std::string const name(argument.substr(0, equals));
        auto const option = std::ranges::find(table, name, &Option<Options>::m_name);
        if (option == table.end()) throw UsageError("unknown option '" + name + "'");
        std::optional<std::string_view> value;
        if (equals != argument.npos) value = argument.substr(equals + 1);
        bool const takesValue = !option->m_value.empty();
        if (!takesValue && value) throw UsageError("option '" + name + "' takes no value");
        if (takesValue && !value) {
            if (std::next(at) == arguments.end()) throw UsageError("option '" + name + "' needs a value");
            value = *++at;
        }
        if (!option->m_apply(options, value.value_or(""))) {
            throw UsageError("'" + std::string(*value) + "' is no value of option '" + name +
                             "', which takes " + std::string(option->m_value));
        }
    }
    return options;
}

/// The lines of --help that tell the options, none longer than 80 columns.
template <class Options>
std::string HelpOn(std::span<Option<Options> const> table) {
    constexpr std::size_t kColumn = 28, kColumns = 80;
    std::string text;
    for (Option<Options> const& option : table) {
        std::string line = "  " + std::string(option.m_name);
        if (!option.m_value.empty()) line.append(" ").append(option.m_value);
        if (line.size() > kColumn) {
            text += line + '\n';
            line.clear();
        }
        line.resize(kColumn, ' ');
        std::istringstream words{std::string(option.m_help)};
        for (std::string word; words >> word; line += ' ' + word) {
            if (line.size() + 1 + word.size() <= kColumns) continue;
            text += line + '\n';
            line.assign(kColumn, ' ');
        }
        text += line + '\n';
    }
    return text;
}

}  // namespace CommandLine
