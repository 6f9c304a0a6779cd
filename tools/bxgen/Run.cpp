#include "Run.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "Depfile.h"
#include "Diagnostics.h"
#include "Options.h"
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

void WriteFile(std::string const& path, std::string const& octets, Diagnostics& diagnostics) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    bool const isWritten = file && std::fwrite(octets.data(), 1, octets.size(), file.get()) == octets.size();
    bool const isClosed = file && std::fclose(file.release()) == 0;
    if (isWritten && isClosed) return;
    diagnostics.FileError({}, Quoted(path) + " cannot be written: " + std::generic_category().message(errno));
}

void Work(Options const& options, std::string& output, Diagnostics& diagnostics) {
    Catalog const catalog = MakeCatalog(options, diagnostics);
    if (diagnostics.HasErrors()) return;
    SchemaSet const set = LoadSchemas(options.m_schemas, catalog, diagnostics);
    if (diagnostics.HasFailed()) return;
    if (options.m_dump) output = Dump(set);
    if (options.m_depfile)
        WriteFile(*options.m_depfile, DepfileText({*options.m_depfile}, set.Files()), diagnostics);
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
    } catch (UsageError const& error) {
        messages = "bxgen: error: " + std::string(error.what()) + "; see bxgen --help\n";
        return kWrongUsage;
    }
}

}  // namespace BxGen
