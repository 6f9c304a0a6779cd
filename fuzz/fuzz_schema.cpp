// Any octets as schemas: up to the first zero octet a.xsd, behind it b.xsd, which the first may refer to.
// Read, and printed, mapped and generated if they are good.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "Diagnostics.h"
#include "Options.h"
#include "emit/Emit.h"
#include "mapping/MakePlan.h"
#include "schema/Dump.h"
#include "schema/LoadSchemas.h"
#include "xml/Catalog.h"

using namespace BxGen;

namespace {

/// A folder in memory, if there is such, for the schemas of this process.
std::string MakeFolder() {
    std::string const parent = std::filesystem::is_directory("/dev/shm")
                                   ? "/dev/shm"
                                   : std::filesystem::temp_directory_path().string();
    std::string folder = parent + "/fuzz-schema-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) std::abort();
    return folder;
}

void Put(std::string const& path, std::string_view octets) {
    std::ofstream(path, std::ios::binary) << octets;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    static std::string const s_folder = MakeFolder();
    std::string_view const octets(reinterpret_cast<char const*>(data), size);
    std::size_t const end = std::min(octets.find('\0'), size);
    Put(s_folder + "/a.xsd", octets.substr(0, end));
    Put(s_folder + "/b.xsd", octets.substr(std::min(end + 1, size)));
    Diagnostics diagnostics;
    SchemaSet const set = LoadSchemas({s_folder + "/a.xsd"}, Catalog(), diagnostics);
    if (diagnostics.HasErrors()) return 0;
    if (Dump(set).empty()) std::abort();
    Options options;
    options.m_schemas = {s_folder + "/a.xsd"};
    Plan const plan = MakePlan(set, options, diagnostics);
    if (!diagnostics.HasErrors() && Emit(plan, options).empty()) std::abort();
    return 0;
}
