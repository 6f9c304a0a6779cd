#include "Run.h"

#include <algorithm>

#include "Depfile.h"
#include "Diagnostics.h"
#include "Options.h"
#include "check/FullCheck.h"
#include "common/CommandLine.h"
#include "emit/Emit.h"
#include "mapping/MakePlan.h"
#include "schema/Dump.h"
#include "schema/LoadSchemas.h"
#include "xml/Catalog.h"

namespace BxGen {

namespace {

Catalog MakeCatalog(Options const& options, Diagnostics& diagnostics) {
    Catalog catalog;
    for (auto const& [uri, file] : options.m_locations) catalog.Add(uri, file);
    for (std::string const& file : options.m_catalogs) catalog.Load(file, diagnostics);
    return catalog;
}

/// What --list prints: the files, then what could not keep its name.
std::string ListText(std::vector<OutputFile> const& files, Plan const& plan) {
    std::string text;
    for (OutputFile const& file : files) text += file.m_path + '\n';
    for (Renamed const& renamed : plan.m_renamed)
        text += ToString(renamed.m_place) + ": " + renamed.m_from + " -> " + renamed.m_to + '\n';
    return text;
}

/// What --depfile holds.
std::string RuleFor(std::vector<OutputFile> const& files, SchemaSet const& set, Options const& options) {
    std::vector<std::string> targets;
    if (options.m_stamp) {
        targets.push_back(*options.m_stamp);
    } else {
        for (OutputFile const& file : files) targets.push_back(file.m_path);
    }
    std::vector<std::string> read = set.Files();
    if (options.m_namesFile) read.push_back(*options.m_namesFile);
    return DepfileText(targets, read);
}

void Generate(SchemaSet const& set, Options const& options, std::string& output, Diagnostics& diagnostics) {
    Plan const plan = MakePlan(set, options, diagnostics);
    bool const hasRoots = std::ranges::any_of(
        plan.m_classes, [](ClassPlan const& root) { return root.m_isRoot && !root.m_isAbstract; });
    if (options.m_program && !hasRoots)
        diagnostics.Error({}, "root", "a program needs a root element; name one by --root-element");
    if (diagnostics.HasFailed()) return;
    std::vector<OutputFile> files = Emit(plan, options);
    if (options.m_list) {
        output = ListText(files, plan);
        return;
    }
    if (options.m_depfile) files.push_back({*options.m_depfile, RuleFor(files, set, options)});
    WriteFiles(files, diagnostics);
    if (options.m_stamp && !diagnostics.HasFailed()) Touch(*options.m_stamp, diagnostics);
}

void Work(Options const& options, std::string& output, Diagnostics& diagnostics) {
    Catalog const catalog = MakeCatalog(options, diagnostics);
    if (diagnostics.HasErrors()) return;
    SchemaSet const set = LoadSchemas(options.m_schemas, catalog, diagnostics);
    if (options.m_check && !diagnostics.HasErrors()) CheckFully(options.m_schemas, set, diagnostics);
    if (diagnostics.HasFailed()) return;
    if (options.m_dump) {
        output = Dump(set);
    } else {
        Generate(set, options, output, diagnostics);
    }
}

}  // namespace

ExitStatus Run(std::span<char const* const> arguments, std::string& output, std::string& messages) {
    try {
        Options const options = ParseOptions(arguments);
        if (options.m_help || options.m_version) {
            output = options.m_help ? HelpText() : "bxgen " BXGEN_VERSION "\n";
            return kSuccess;
        }
        Diagnostics diagnostics(options.m_diagnostics);
        Work(options, output, diagnostics);
        messages = diagnostics.Text();
        if (diagnostics.HasFileErrors()) return kFileTrouble;
        return diagnostics.HasFailed() ? kWrongSchema : kSuccess;
    } catch (CommandLine::UsageError const& error) {
        messages = "bxgen: error: " + std::string(error.what()) + "; see bxgen --help\n";
        return kWrongUsage;
    }
}

}  // namespace BxGen
