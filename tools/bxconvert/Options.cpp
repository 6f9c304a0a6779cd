#include "Options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <limits>
#include <set>
#include <string_view>

#include "common/CommandLine.h"

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

using CommandLine::UsageError;
using Option = CommandLine::Option<Options>;

template <auto const& choices>
constexpr auto kJoinedNames = [] {
    constexpr std::size_t kSize = [] {
        std::size_t size = 0;
        for (auto const& choice : choices) size += choice.m_name.size() + 1;
        return size;
    }();
    std::array<char, kSize> joined{};
    auto at = joined.begin();
    for (auto const& choice : choices) {
        at = std::ranges::copy(choice.m_name, at).out;
        *at++ = '|';
    }
    return joined;
}();

/// The names of choices, with | between them.
template <auto const& choices>
constexpr std::string_view kNamesOf(kJoinedNames<choices>.data(), kJoinedNames<choices>.size() - 1);

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

template <auto Member, auto value = true>
constexpr auto Set = CommandLine::Set<Options, Member, value>;

bool SetMaxSize(Options& options, std::string_view value) {
    constexpr std::string_view kUnits = "KMG";
    std::uint64_t size = 0;
    auto const [end, error] = std::from_chars(value.data(), value.data() + value.size(), size);
    std::string_view const unit(end, value.data() + value.size());
    bool const hasUnit = unit.size() == 1 && kUnits.find(unit[0]) != kUnits.npos;
    if (error != std::errc() || !(unit.empty() || hasUnit)) return false;
    for (std::size_t i = 0; hasUnit && i <= kUnits.find(unit[0]); ++i) {
        if (size > std::numeric_limits<std::uint64_t>::max() / 1000) return false;
        size *= 1000;
    }
    options.m_maxSize = size;
    return true;
}

bool SetOutput(Options& options, std::string_view value) {
    options.m_output = value;
    return !value.empty();
}

bool SetOutputDir(Options& options, std::string_view value) {
    options.m_outputDir = value;
    return !value.empty();
}

// clang-format off
constexpr Option kOptions[] = {
    {"-o",                 "OUTPUT",                    "write to this file, - for standard output (default)",  SetOutput},
    {"--output-dir",       "DIR",                       "write each INPUT to a file of its name in this folder, which is made if it is not there", SetOutputDir},
    {"--to",               kNamesOf<kForms>,            "XML text or Fast Infoset (default xml)",               Choose<&Options::m_form, kForms>},
    {"--encoding",         kNamesOf<kEncodings>,        "encoding of XML text (default utf-8)",                 Choose<&Options::m_encoding, kEncodings>},
    {"--declaration",      kNamesOf<kYesOrNo>,          "begin XML text with a declaration (default yes)",      Choose<&Options::m_declaration, kYesOrNo>},
    {"--format",           "",                          "break lines of XML text and indent",                   Set<&Options::m_layout, Layout::kFormatted>},
    {"--compact",          "",                          "neither line breaks nor indentation",                  Set<&Options::m_layout, Layout::kCompact>},
    {"--eol",              kNamesOf<kEols>,             "line end of XML text (default lf)",                    Choose<&Options::m_eol, kEols>},
    {"--finf-declaration", kNamesOf<kFinfDeclarations>, "declaration ahead of Fast Infoset (default none)",     Choose<&Options::m_finfDeclaration, kFinfDeclarations>},
    {"--compress",         kNamesOf<kCompressions>,     "compression of what is written (default none)",        Choose<&Options::m_compression, kCompressions>},
    {"--no-namespaces",    "",                          "leave prefixes and xmlns attributes as they are",      Set<&Options::m_namespaces, false>},
    {"--keep-whitespace",  "",                          "leave white space as it is (default)",                 Set<&Options::m_layout, Layout::kAsItIs>},
    {"--max-size",         "OCTETS",                    "refuse a document of more octets, after decompression; with K, M or G for 1000 and so on (default 1G for compressed input, no limit else)", SetMaxSize},
    {"--strict",           "",                          "refuse a document that the form cannot hold whole",     Set<&Options::m_strict, true>},
    {"--info",             "",                          "print facts about the document instead",               Set<&Options::m_info, true>},
    {"-h",                 "",                          "print this text",                                      Set<&Options::m_help, true>},
    {"--help",             "",                          "the same",                                             Set<&Options::m_help, true>},
    {"-V",                 "",                          "print the version",                                    Set<&Options::m_version, true>},
    {"--version",          "",                          "the same",                                             Set<&Options::m_version, true>},
};
// clang-format on

constexpr char kUsage[] =
    "Usage: bxconvert [options] INPUT [-o OUTPUT]\n"
    "       bxconvert [options] INPUT... --output-dir DIR\n";

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
    "\n"
    "What a document keeps:\n"
    "  Elements, attributes and text, in their order; prefixes, and where they are\n"
    "  declared. In XML text also comments, processing instructions, the document\n"
    "  type and references to entities that the document does not declare. What Fast\n"
    "  Infoset does not keep of these, a warning counts; --strict refuses the\n"
    "  document instead.\n"
    "  --format and --compact leave elements alone that have text beside children,\n"
    "  or xml:space=\"preserve\", or so much content that this cannot be seen early\n"
    "  enough.\n"
    "\n"
    "A document of any size takes some megabytes of memory. Standard output may have\n"
    "got the beginning of a document when it turns out to be bad.\n"
    "\n"
    "Exit status: 0 for success, 1 for a document that cannot be read or written,\n"
    "2 for a wrong command line.\n";

void TakeInput(Options& options, std::string_view name) {
    options.m_inputs.emplace_back(name);
}

/// @throws CommandLine::UsageError unless each input has a name of its own in the folder of outputs
void CheckInputs(Options const& options) {
    if (options.m_output != kStandardStream) throw UsageError("option '-o' is not for '--output-dir'");
    if (options.m_info) throw UsageError("option '--info' is not for '--output-dir'");
    std::set<std::filesystem::path> names;
    for (std::string const& name : options.m_inputs) {
        std::filesystem::path const input = name;
        if (input == kStandardStream || !input.has_filename()) {
            throw UsageError("'" + input.string() + "' names no file in '--output-dir'");
        }
        if (!names.insert(input.filename()).second) {
            throw UsageError("two INPUTs are '" + input.filename().string() + "' in '--output-dir'");
        }
    }
}

}  // namespace

Options ParseOptions(std::span<char const* const> arguments) {
    Options const options = CommandLine::Read<Options>(arguments, kOptions, TakeInput);
    if (options.m_help || options.m_version) return options;
    if (options.m_inputs.empty()) throw UsageError("INPUT is missing");
    if (!options.m_outputDir.empty()) {
        CheckInputs(options);
    } else if (options.m_inputs.size() > 1) {
        throw UsageError("more than one INPUT: '" + options.m_inputs[1] + "'");
    }
    if (!options.m_namespaces && options.m_form == Form::kFastInfoset)
        throw UsageError("option '--no-namespaces' is not for '--to finf', which knows no prefixes as such");
    return options;
}

std::vector<Options> ForEachInput(Options const& options) {
    std::vector<Options> each(std::max<std::size_t>(options.m_inputs.size(), 1), options);
    for (std::size_t i = 0; i < options.m_inputs.size(); ++i) {
        std::filesystem::path const input = each[i].m_input = options.m_inputs[i];
        if (!options.m_outputDir.empty())
            each[i].m_output = std::filesystem::path(options.m_outputDir) / input.filename();
    }
    return each;
}

std::string HelpText() {
    return std::string(kUsage) + kIntroduction + CommandLine::HelpOn<Options>(kOptions) + kNotes;
}

}  // namespace BxConvert
