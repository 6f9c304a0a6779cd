#include "Options.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

/// A value that an option takes, and what it stands for.
template <class T>
struct Choice {
    std::string_view m_name;
    T m_value;
};

constexpr Choice<Form> kForms[] = {{"xml", Form::kXml}, {"finf", Form::kFastInfoset}};
constexpr Choice<XmlEncoding> kEncodings[] = {{"utf-8", enc_UTF8}, {"utf-16", enc_UTF16}};
constexpr Choice<EOLType> kEols[] = {{"lf", eol_LF}, {"crlf", eol_CRLF}};
constexpr Choice<bool> kYesOrNo[] = {{"yes", true}, {"no", false}};
constexpr Choice<CompressionType> kCompressions[] = {
    {"none", cmp_None}, {"gzip", cmp_GZip}, {"zlib", cmp_ZLib}};
constexpr Choice<FInfoDecl> kFinfDeclarations[] = {
    {"none", fi_None},
    {"plain", fi_Plain},
    {"yes", fi_StandaloneYes},
    {"no", fi_StandaloneNo},
    {"1.0", fi_Version10},
    {"1.0-yes", fi_Version10StandaloneYes},
    {"1.0-no", fi_Version10StandaloneNo},
    {"1.1", fi_Version11},
    {"1.1-yes", fi_Version11StandaloneYes},
    {"1.1-no", fi_Version11StandaloneNo},
};

struct Option {
    std::string_view m_name;
    /// What its value may be, for --help and for errors; null if it takes none.
    std::string (*m_values)();
    std::string_view m_help;
    /// False if the value is none of those that the option takes.
    bool (*m_apply)(Options& options, std::string_view value);
};

template <auto const& choices>
std::string NamesOf() {
    std::string names;
    for (auto const& choice : choices) names.append(names.empty() ? "" : "|").append(choice.m_name);
    return names;
}

/// Sets a member to what a value stands for.
template <auto Member, auto const& choices>
bool Choose(Options& options, std::string_view value) {
    for (auto const& choice : choices) {
        if (choice.m_name != value) continue;
        options.*Member = choice.m_value;
        return true;
    }
    return false;
}

template <bool Options::*Member, bool value>
bool Set(Options& options, std::string_view) {
    options.*Member = value;
    return true;
}

std::string Output() {
    return "OUTPUT";
}

bool SetOutput(Options& options, std::string_view value) {
    options.m_output = value;
    return true;
}

// clang-format off
constexpr Option kOptions[] = {
    {"-o",                 Output,                     "write to this file, - for standard output (default)", SetOutput},
    {"--to",               NamesOf<kForms>,            "XML text or Fast Infoset (default xml)",              Choose<&Options::m_form, kForms>},
    {"--encoding",         NamesOf<kEncodings>,        "encoding of XML text (default utf-8)",                Choose<&Options::m_encoding, kEncodings>},
    {"--declaration",      NamesOf<kYesOrNo>,          "begin XML text with a declaration (default yes)",     Choose<&Options::m_declaration, kYesOrNo>},
    {"--format",           nullptr,                    "break lines of XML text and indent (default)",        Set<&Options::m_formatted, true>},
    {"--compact",          nullptr,                    "neither line breaks nor indentation",                 Set<&Options::m_formatted, false>},
    {"--eol",              NamesOf<kEols>,             "line end of XML text (default lf)",                   Choose<&Options::m_eol, kEols>},
    {"--finf-declaration", NamesOf<kFinfDeclarations>, "declaration ahead of Fast Infoset (default none)",    Choose<&Options::m_finfDeclaration, kFinfDeclarations>},
    {"--compress",         NamesOf<kCompressions>,     "compression of what is written (default none)",       Choose<&Options::m_compression, kCompressions>},
    {"--no-namespaces",    nullptr,                    "leave prefixes and xmlns attributes as they are",     Set<&Options::m_namespaces, false>},
    {"--keep-whitespace",  nullptr,                    "keep text that is only whitespace beside children",   Set<&Options::m_keepWhitespace, true>},
    {"--strict",           nullptr,                    "refuse a document with mixed content",                Set<&Options::m_strict, true>},
    {"--info",             nullptr,                    "print facts about the document instead",              Set<&Options::m_info, true>},
    {"--help",             nullptr,                    "print this text",                                     Set<&Options::m_help, true>},
    {"--version",          nullptr,                    "print the version",                                   Set<&Options::m_version, true>},
};
// clang-format on

constexpr char kUsage[] = "Usage: bxconvert [options] INPUT [-o OUTPUT]\n";

constexpr char kIntroduction[] =
    "\n"
    "Reads an XML document and writes it again. INPUT is a file or - for standard\n"
    "input: XML text or Fast Infoset, as it is or compressed by gzip or zlib, told by\n"
    "its octets. OUTPUT is replaced as a whole: after a failure it is what it was\n"
    "before.\n"
    "\n";

constexpr char kNotes[] =
    "\n"
    "Forms:\n"
    "  XML text in UTF-16 begins with a byte order mark.\n"
    "  The declaration ahead of Fast Infoset is <?xml encoding='finf'?> (plain), with\n"
    "  the version 1.0 or 1.1, with standalone='yes' or 'no', or with both.\n"
    "  A document of a few octets does not shrink, and then --compress fails.\n"
    "\n"
    "What a document loses:\n"
    "  Comments, processing instructions, the document type and external entities are\n"
    "  not kept.\n"
    "  Prefixes are made anew. Where values hold names with prefixes (xsi:type, say),\n"
    "  use --no-namespaces, which keeps all prefixes; from XML text to XML text only.\n"
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
        if (m_options.m_help || m_options.m_version) return m_options;
        if (!m_hasInput) throw UsageError("INPUT is missing");
        if (!m_options.m_namespaces && m_options.m_form == Form::kFastInfoset) {
            throw UsageError(
                "option '--no-namespaces' is not for '--to finf', which knows no prefixes as such");
        }
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
        bool const takesValue = option.m_values != nullptr;
        if (!takesValue && value) throw UsageError("option '" + name + "' takes no value");
        if (takesValue && !value) {
            if (m_arguments.empty()) throw UsageError("option '" + name + "' needs a value");
            value = Next();
        }
        if (!option.m_apply(m_options, value.value_or(""))) {
            throw UsageError("'" + std::string(*value) + "' is no value of option '" + name +
                             "', which takes " + option.m_values());
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
    constexpr std::size_t kColumn = 29;
    std::string text = std::string(kUsage) + kIntroduction;
    for (Option const& option : kOptions) {
        std::string line = "  " + std::string(option.m_name);
        if (option.m_values != nullptr) line += ' ' + option.m_values();
        if (line.size() >= kColumn) {
            text += line + '\n';
            line.clear();
        }
        line.resize(kColumn, ' ');
        text += line + std::string(option.m_help) + '\n';
    }
    return text + kNotes;
}

}  // namespace BxConvert
