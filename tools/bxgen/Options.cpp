#include "Options.h"

#include <charconv>
#include <string_view>

#include "common/CommandLine.h"
#include "names/Identifiers.h"

namespace BxGen {

namespace {

using CommandLine::UsageError;
using Option = CommandLine::Option<Options>;

template <auto Member, bool value>
constexpr auto Set = CommandLine::Set<Options, Member, value>;

template <bool Diagnostics::Options::*Member>
bool SetMessages(Options& options, std::string_view) {
    options.m_diagnostics.*Member = true;
    return true;
}

template <auto Member>
bool Put(Options& options, std::string_view value) {
    options.*Member = std::string(value);
    return !value.empty();
}

template <auto Member>
bool PutAny(Options& options, std::string_view value) {
    options.*Member = std::string(value);
    return true;
}

template <auto Member>
bool Append(Options& options, std::string_view value) {
    (options.*Member).emplace_back(value);
    return !value.empty();
}

/// KEY=VALUE; the last sign of equality divides, as URIs may have some.
template <auto Member>
bool AppendPair(Options& options, std::string_view value) {
    std::size_t const equals = value.rfind('=');
    if (equals == value.npos || equals + 1 == value.size()) return false;
    (options.*Member).emplace_back(value.substr(0, equals), value.substr(equals + 1));
    return true;
}

bool PutNamespace(Options& options, std::string_view value) {
    options.m_name = value;
    return IsNamespaceName(value);
}

bool AppendNamespace(Options& options, std::string_view value) {
    return AppendPair<&Options::m_namespaces>(options, value) &&
           IsNamespaceName(options.m_namespaces.back().second);
}

bool SetSources(Options& options, std::string_view value) {
    constexpr std::size_t kMost = 1000;
    auto const result = std::from_chars(value.data(), value.data() + value.size(), options.m_sources);
    bool const isNumber = result.ec == std::errc() && result.ptr == value.data() + value.size();
    return isNumber && options.m_sources >= 1 && options.m_sources <= kMost;
}

// clang-format off
constexpr Option kOptions[] = {
    {"-o",              "DIR",       "where files go (default .)",                                    Put<&Options::m_folder>},
    {"--out-dir",       "DIR",       "the same",                                                      Put<&Options::m_folder>},
    {"-n",              "NAME",      "C++ namespace and file name of what is not mapped (default: from the first schema)", PutNamespace},
    {"--name",          "NAME",      "the same",                                                      PutNamespace},
    {"--namespace-map", "URI=NS",    "C++ namespace of an XML namespace, NS may be A::B; repeatable", AppendNamespace},
    {"--root-element",  "NAME",      "name or {uri}name of a root, or all, or none; repeatable (default: those not referred to)", Append<&Options::m_roots>},
    {"--prefix",        "TEXT",      "ahead of names of classes (default C)",                         PutAny<&Options::m_prefix>},
    {"--strip-suffix",  "TEXT",      "taken off names of types, such as Type",                        Put<&Options::m_strippedSuffix>},
    {"--names",         "FILE",      "names to use instead, one a line",                              Put<&Options::m_namesFile>},
    {"--catalog",       "FILE",      "OASIS XML catalog for locations and namespaces; repeatable",    Append<&Options::m_catalogs>},
    {"--location",      "URI=FILE",  "one entry of a catalog; repeatable",                            AppendPair<&Options::m_locations>},
    {"--sources",       "N",         "source files for each C++ namespace (default 1)",               SetSources},
    {"--doc-element",   "{uri}NAME", "element within documentation that holds the text",              Put<&Options::m_docElement>},
    {"--no-docs",       "",          "leave documentation out",                                       Set<&Options::m_withDocs, false>},
    {"--no-aliases",    "",          "a class also for types that add nothing to their base",         Set<&Options::m_withAliases, false>},
    {"--ascii",         "",          "spell letters beyond ASCII in names",                           Set<&Options::m_ascii, true>},
    {"--program",       "",          "add a program that reads and writes documents",                 Set<&Options::m_program, true>},
    {"--check",         "",          "check the schemas by all rules of the standard, if built with Xerces-C", Set<&Options::m_check, true>},
    {"--depfile",       "FILE",      "write what was read as a rule for make",                        Put<&Options::m_depfile>},
    {"--stamp",         "FILE",      "touch this file last; it is then the target of the rule",       Put<&Options::m_stamp>},
    {"--dump",          "",          "print the components of the schemas, write nothing",            Set<&Options::m_dump, true>},
    {"--list",          "",          "print names of files, and what was renamed; write nothing",     Set<&Options::m_list, true>},
    {"--dry-run",       "",          "the same",                                                      Set<&Options::m_list, true>},
    {"--werror",        "",          "a warning makes the run fail",                                  SetMessages<&Diagnostics::Options::m_warningsAreErrors>},
    {"--all-warnings",  "",          "show every warning, not one of each kind",                      SetMessages<&Diagnostics::Options::m_allWarnings>},
    {"-q",              "",          "show errors only",                                              SetMessages<&Diagnostics::Options::m_quiet>},
    {"-V",              "",          "print the version",                                             Set<&Options::m_version, true>},
    {"--version",       "",          "the same",                                                      Set<&Options::m_version, true>},
    {"-h",              "",          "print this text",                                               Set<&Options::m_help, true>},
    {"--help",          "",          "the same",                                                      Set<&Options::m_help, true>},
};
// clang-format on

constexpr char kIntroduction[] =
    "Usage: bxgen [options] SCHEMA...\n"
    "\n"
    "Makes C++ classes from XML schemas. Nothing is fetched from the net: a location\n"
    "that is no file must be in a catalog.\n"
    "\n";

constexpr char kNotes[] =
    "\n"
    "Exit status: 0 for success, 1 for a wrong command line, 2 for something wrong\n"
    "with a schema, 3 for a file that cannot be read or written.\n";

void TakeSchema(Options& options, std::string_view name) {
    if (name.empty()) throw UsageError("SCHEMA is empty");
    if (name == "-")
        throw UsageError("SCHEMA is '-', but what a schema includes is looked for beside its file");
    options.m_schemas.emplace_back(name);
}

}  // namespace

Options ParseOptions(std::span<char const* const> arguments) {
    Options const options = CommandLine::Read<Options>(arguments, kOptions, TakeSchema);
    bool const needsSchema = !options.m_help && !options.m_version;
    if (needsSchema && options.m_schemas.empty()) throw UsageError("SCHEMA is missing");
    return options;
}

std::string HelpText() {
    return kIntroduction + CommandLine::HelpOn<Options>(kOptions) + kNotes;
}

}  // namespace BxGen
