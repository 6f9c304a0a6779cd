#include "emit/Emit.h"

#include <span>

#include "emit/HeaderEmitter.h"
#include "emit/References.h"
#include "emit/SourceEmitter.h"

namespace BxGen {

namespace {

std::vector<OutputFile> SourcesOf(Plan const& plan, Unit const& unit, std::string const& path,
                                  std::size_t count) {
    std::vector<ClassPlan const*> const classes(unit.m_classes.begin(), unit.m_classes.end());
    std::vector<OutputFile> files;
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t const first = classes.size() * i / count;
        std::size_t const last = classes.size() * (i + 1) / count;
        std::string const number = count == 1 ? "" : '-' + std::to_string(i + 1);
        std::span const part = std::span(classes).subspan(first, last - first);
        files.push_back({path + number + ".cpp", SourceEmitter(plan, unit).Source(part, i == 0)});
    }
    return files;
}

std::string Program(Plan const& plan) {
    std::string includes;
    for (Unit const& unit : plan.m_units) includes += "#include \"" + unit.m_file + ".h\"\n";
    std::string roots;
    for (ClassPlan const& root : plan.m_classes)
        if (root.m_isRoot && !root.m_isAbstract) roots += "        &" + FullName(root) + "::kClass,\n";
    return Banner(plan) + "#include \"BxXmlLib5/generated/Program.h\"\n\n" + includes +
           "\nint main(int argc, char** argv) {\n"
           "    static constexpr BxXmlLib5::Generated::Class const* kRoots[] = {\n" +
           roots + "    };\n    return BxXmlLib5::Generated::RunProgram(argc, argv, kRoots);\n}\n";
}

}  // namespace

std::vector<OutputFile> Emit(Plan const& plan, Options const& options) {
    std::string folder = options.m_folder;
    if (!folder.empty() && !folder.ends_with('/')) folder += '/';
    if (folder == "./") folder.clear();
    std::vector<OutputFile> files;
    for (Unit const& unit : plan.m_units) {
        std::string const path = folder + unit.m_file;
        HeaderEmitter const headers(plan, unit);
        files.push_back({path + "Fwd.h", headers.Forward()});
        files.push_back({path + ".h", headers.Header()});
        for (OutputFile& file : SourcesOf(plan, unit, path, options.m_sources))
            files.push_back(std::move(file));
    }
    if (options.m_program) files.push_back({folder + plan.m_program + ".cpp", Program(plan)});
    return files;
}

}  // namespace BxGen
