#include "Options.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace BxConvert {

namespace {

struct Option {
    std::string_view m_name;
    std::string_view m_value;  // what its value may be, for --help; empty if it takes none
    std::string_view m_help;
    /// False if the value is none of those that the option takes.
    bool (*m_apply)(Options& options, std::string_view value);
};

/// Sets a member to the one of two results that a value names.
template <class T>
bool Choose(T& member, std::string_view value, std::string_view name1, T result1, std::string_view name2,
            T result2) {
    if (value != name1 && value != name2) return false;
    member = value == name1 ? result1 : result2;
    return true;
}

template <bool Options::*Member, bool value>
bool Set(Options& options, std::string_view) {
    options.*Member = value;
    return true;
}

bool SetEol(Options& options, std::string_view value) {
    return Choose(options.m_eol, value, "lf", BxXmlLib5::eol_LF, "crlf", BxXmlLib5::eol_CRLF);
}

bool SetDeclaration(Options& options, std::string_view value) {
    return Choose(options.m_declaration, value, "yes", true, "no", false);
}

bool SetOutput(Options& options, std::string_view value) {
    options.m_output = value;
    return true;
}

// clang-format off
constexpr Option kOptions[] = {
    {"-o",                "OUTPUT",  "write to this file, - for standard output (default)",            SetOutput},
    {"--format",          "",        "break lines and indent by tabs (default)",                       Set<&Options::m_formatted, true>},
    {"--compact",         "",        "neither line breaks nor indentation",                            Set<&Options::m_formatted, false>},
    {"--eol",             "lf|crlf", "line end of the output (default lf)",                            SetEol},
    {"--declaration",     "yes|no",  "begin with an XML declaration (default yes)",                    SetDeclaration},
    {"--no-namespaces",   "",        "leave prefixes and xmlns attributes as they are",                Set<&Options::m_namespaces, false>},
    {"--keep-whitespace", "",        "keep text that is only whitespace beside children",              Set<&Options::m_keepWhitespace, true>},
    {"--strict",          "",        "refuse a document with mixed content",                           Set<&Options::m_strict, true>},
    {"--info",            "",        "print facts about the document instead of the document",         Set<&Options::m_info, true>},
    {"--help",            "",        "print this text",                                                Set<&Options::m_help, true>},
    {"--version",         "",        "print the version",                                              Set<&Options::m_version, true>},
};
// clang-format on

constexpr char kUsage[] = "Usage: bxconvert [options] INPUT [-o OUTPUT]\n";

constexpr char kIntroduction[] =
    "\n"
    "Reads an XML document and writes it again, in UTF-8. INPUT is a file or - for\n"
    "standard input; it may be compressed by gzip or zlib. OUTPUT is replaced as a\n"
    "whole: after a failure it is what it was before.\n"
    "\n";

constexpr char kNotes[] =
    "\n"
    "What a document loses:\n"
    "  Comments, processing instructions, the document type and external entities are\n"
    "  not kept.\n"
    "  Prefixes are made anew. Where values hold names with prefixes (xsi:type, say),\n"
    "  use --no-namespaces, which keeps all prefixes.\n"
    "  The text of an element stands as one piece behind its children. Where an\n"
    "  element has other text than whitespace beside children (mixed content), a\n"
    "  warning says so; --strict refuses the document instead.\n"
    "  Text that is only whitespace is dropped from elements that have children,\n"
    "  unless --keep-whitespace is given.\n"
    "  Carriage returns are dropped, and a line break in an attribute value is read\n"
    "  as a blank the next time.\n"
    "\n"
    "Exit status: 0 for success, 1 for a document that cannot be read or written,\n"
    "2 for a wrong command line.\n";

Option const& FindOption(std::string_view name) {
    auto const* const option = std::ranges::find(kOptions, name, &Option::m_name);
    if (option == std::end(kOptions)) throw UsageError("unknown option '" + std::string(name) + "'");
    return *option;
}

/// Walks the command line.
class Parser {
public:
    explicit Parser(std::span<char const* const> arguments) : m_arguments(arguments) {}

    Options Parse() {
        bool onlyOperands = false;
        while (!m_arguments.empty()) {
            std::string_view const argument = Next();
            bool const isOption = !onlyOperands && argument.starts_with('-') && argument != kStandardStream;
            if (!isOption) {
                TakeInput(argument);
            } else if (argument == "--") {
                onlyOperands = true;
            } else {
                TakeOption(argument);
            }
        }
        if (!m_hasInput && !m_options.m_help && !m_options.m_version) throw UsageError("INPUT is missing");
        return m_options;
    }

private:
    std::string_view Next() {
        std::string_view const argument = m_arguments.front();
        m_arguments = m_arguments.subspan(1);
        return argument;
    }

    void TakeInput(std::string_view name) {
        if (m_hasInput) throw UsageError("more than one INPUT: '" + std::string(name) + "'");
        m_options.m_input = name;
        m_hasInput = true;
    }

    void TakeOption(std::string_view argument) {
        std::size_t const equals = argument.starts_with("--") ? argument.find('=') : argument.npos;
        Option const& option = FindOption(argument.substr(0, equals));
        std::string const name(option.m_name);
        std::optional<std::string_view> value;
        if (equals != argument.npos) value = argument.substr(equals + 1);
        bool const takesValue = !option.m_value.empty();
        if (!takesValue && value) throw UsageError("option '" + name + "' takes no value");
        if (takesValue && !value) {
            if (m_arguments.empty()) throw UsageError("option '" + name + "' needs a value");
            value = Next();
        }
        if (!option.m_apply(m_options, value.value_or(""))) {
            throw UsageError("'" + std::string(*value) + "' is no value of option '" + name +
                             "', which takes " + std::string(option.m_value));
        }
    }

    std::span<char const* const> m_arguments;
    Options m_options;
    bool m_hasInput = false;
};

}  // namespace

Options ParseOptions(std::span<char const* const> arguments) {
    return Parser(arguments).Parse();
}

std::string HelpText() {
    constexpr std::size_t kColumn = 25;
    std::string text = std::string(kUsage) + kIntroduction;
    for (Option const& option : kOptions) {
        std::string line = "  " + std::string(option.m_name);
        if (!option.m_value.empty()) line += ' ' + std::string(option.m_value);
        line.resize(kColumn, ' ');
        text += line + std::string(option.m_help) + '\n';
    }
    return text + kNotes;
}

}  // namespace BxConvert
