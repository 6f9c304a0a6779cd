// Runs the benchmarks and prints one table below them: their least times, and peaks of memory, as ratios to
// the floors of the same run. Arguments without a hyphen name those that are wanted; their floors run with
// them.

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "ChildProcess.h"
#include "GpxDocument.h"
#include "Report.h"

namespace BxBench {

namespace {

template <class Row>
std::vector<Row>& Rows() {
    static std::vector<Row> s_rows;
    return s_rows;
}

template <class Row>
void AddRows(std::vector<Row> const& rows) {
    Rows<Row>().insert(Rows<Row>().end(), rows.begin(), rows.end());
}

std::string FunctionOf(std::string const& benchmark) {
    return benchmark.substr(0, benchmark.find('/'));
}

constexpr char kGigabyte[] = "Gigabyte";
constexpr char kFloor[] = "Floor/10";

/// What the command line asks for.
class Choice {
public:
    explicit Choice(std::vector<std::string> names) : m_names(std::move(names)) {}

    bool Has(std::string const& benchmark) const { return m_names.empty() || Names(benchmark); }
    bool Names(std::string const& benchmark) const {
        return std::ranges::find(m_names, FunctionOf(benchmark)) != m_names.end();
    }

    /// A filter for those chosen, and for their floors in the same sizes.
    std::string Filter() const {
        if (m_names.empty()) {
            // Those on documents of 1 GB run only if they are named.
            std::string const given = benchmark::GetBenchmarkFilter();
            return given.empty() || given == "." || given == "all" ? "-^Large" : given;
        }
        std::string filter = "^(-";  // so that there is no name but those that follow
        for (std::string const& name : m_names) filter += '|' + name;
        filter += ")(/|$)";
        for (Ratio const& row : Rows<Ratio>()) {
            if (Has(row.m_benchmark)) filter += "|^" + row.m_floor + "(/|$)";
        }
        bool const hasCommands =
            Names(kGigabyte) ||
            std::ranges::any_of(Rows<Command>(), [this](Command const& row) { return Has(row.m_name); });
        if (hasCommands) filter += "|^" + FunctionOf(kFloor) + "(/|$)";
        return filter;
    }

private:
    std::vector<std::string> m_names;
};

/// Whether a benchmark gave up. Google Benchmark 1.8 tells it by another member than those before.
template <class Run>
bool GaveUp(Run const& run) {
    if constexpr (requires { run.skipped; }) {
        return static_cast<bool>(run.skipped);
    } else {
        return run.error_occurred;
    }
}

/// Prints as usual and keeps the least time of each benchmark: the machine's noise only ever adds.
class Reporter : public benchmark::ConsoleReporter {
public:
    Reporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(std::vector<Run> const& runs) override {
        for (Run const& run : runs) {
            if (run.run_type != Run::RT_Iteration || GaveUp(run)) continue;
            // CPU time, unless the benchmark asks for the other, since it has threads of its own.
            bool const isReal = run.run_name.time_type == "real_time";
            double const time = (isReal ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime()) /
                                benchmark::GetTimeUnitMultiplier(run.time_unit);
            std::string const name =
                run.run_name.function_name + (run.run_name.args.empty() ? "" : "/") + run.run_name.args;
            auto const [entry, isNew] = m_least.emplace(name, time);
            if (!isNew) entry->second = std::min(entry->second, time);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    /// In seconds.
    std::optional<double> LeastTime(std::string const& benchmark) const {
        auto const known = m_least.find(benchmark);
        return known == m_least.end() ? std::nullopt : std::optional(known->second);
    }

private:
    std::map<std::string, double> m_least;
};

std::string TimeText(double seconds) {
    bool const isLong = seconds >= 1e-3;
    char text[32];
    std::snprintf(text, sizeof text, "%.*f %s", isLong ? 1 : 2, seconds * (isLong ? 1e3 : 1e6),
                  isLong ? "ms" : "us");
    return text;
}

std::string MegabytesText(double octets) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MB", octets / 1e6);
    return text;
}

using Text = std::string (*)(double);

void PrintRow(std::string const& name, double figure, std::string const& floorName, double floor, Text text,
              double aim) {
    double const ratio = figure / floor;
    std::printf("  %-32s %11s   %-28s %11s %8.2f", name.c_str(), text(figure).c_str(), floorName.c_str(),
                text(floor).c_str(), ratio);
    if (aim > 0) std::printf(" %8.2f   %s", aim, ratio <= aim ? "met" : "MISSED");
    std::printf("\n");
}

template <class Row>
std::string const& InputOf(Row const& row, std::size_t octets) {
    return row.m_takesFastInfoset ? GpxAsFastInfoset(octets) : GpxDocument(octets);
}

/// @return the rises of memory, in octets, by name
std::map<std::string, double> MeasurePeaks(Choice const& choice) {
    std::map<std::string, double> peaks;
    for (Peak const& row : Rows<Peak>()) {
        if (!choice.Has(row.m_name)) continue;
        std::string const& input = InputOf(row, kGpxOctets);
        peaks[row.m_name] = static_cast<double>(RunInChild([&] { row.m_work(input); }).m_octets);
    }
    return peaks;
}

double LeastTimeOf(Growth const& row, std::size_t octets, int times) {
    std::string const& input = InputOf(row, octets);
    double least = std::numeric_limits<double>::infinity();
    for (; times > 0; --times) least = std::min(least, RunInChild([&] { row.m_work(input); }).m_seconds);
    return least;
}

constexpr std::size_t kSmall = 1'000'000;
constexpr std::size_t kLarge = 50 * kSmall;

/// @return the times of the small document and of the large one, by name
std::map<std::string, std::pair<double, double>> MeasureGrowths(Choice const& choice) {
    std::map<std::string, std::pair<double, double>> growths;
    for (Growth const& row : Rows<Growth>()) {
        if (choice.Has(row.m_name))
            growths[row.m_name] = {LeastTimeOf(row, kSmall, 50), LeastTimeOf(row, kLarge, 5)};
    }
    return growths;
}

struct MeasuredCommand {
    std::string m_name;
    Taken m_taken;
    double m_documents;  // of the size that the floor is measured for
    double m_aim;
    double m_peakAim;
};

/// The GPX document in files, made in processes of their own so that this one stays small.
class DocumentFiles {
public:
    explicit DocumentFiles(std::size_t octets) {
        if (mkdtemp(m_folder.data()) == nullptr) return;
        pid_t const child = fork();
        if (child == 0) {
            std::string const& document = GpxDocument(octets);
            std::ofstream(Text(), std::ios::binary) << document;
            _exit(0);
        }
        waitpid(child, nullptr, 0);
        RunProgram({BXCONVERT, "--to", "finf", Text(), "-o", FastInfoset()});
    }
    DocumentFiles(DocumentFiles const&) = delete;
    DocumentFiles& operator=(DocumentFiles const&) = delete;
    ~DocumentFiles() { std::filesystem::remove_all(m_folder); }

    std::vector<std::string> WordsOf(Command const& command) const {
        std::vector<std::string> words = command.m_words;
        std::ranges::replace(words, kTextFile, Text());
        std::ranges::replace(words, kFastInfosetFile, FastInfoset());
        return words;
    }

private:
    std::string Text() const { return m_folder + "/text"; }
    std::string FastInfoset() const { return m_folder + "/finf"; }

    std::string m_folder = std::filesystem::temp_directory_path() / "bxbenchXXXXXX";
};

void MeasureCommands(Choice const& choice, std::vector<MeasuredCommand>& measured, bool isGigabyte) {
    auto const isAsked = [&](Command const& row) {
        return isGigabyte ? row.m_isOfAnySize : choice.Has(row.m_name);
    };
    if (std::ranges::none_of(Rows<Command>(), isAsked)) return;
    double const documents = isGigabyte ? 100 : 1;
    DocumentFiles const files(static_cast<std::size_t>(documents) * kGpxOctets);
    for (Command const& row : Rows<Command>()) {
        if (!isAsked(row)) continue;
        std::optional<Taken> least;
        for (int times = isGigabyte ? 1 : 10; times > 0; --times) {
            auto const taken = RunProgram(files.WordsOf(row));
            if (taken && (!least || taken->m_seconds < least->m_seconds)) least = taken;
        }
        // A program that is not there has no row.
        if (least)
            measured.push_back({row.m_name + (isGigabyte ? kGigabyte : ""), *least, documents, row.m_aim,
                                row.m_words[0] == BXCONVERT ? 1. : 0.});
    }
}

void PrintCommands(std::vector<MeasuredCommand> const& commands, std::optional<double> floor) {
    constexpr double kMostOctets = 20e6;
    for (auto const& [name, taken, documents, aim, peakAim] : commands) {
        if (floor) {
            std::string const floorName = documents == 1 ? kFloor : std::string("100 times ") + kFloor;
            PrintRow(name, taken.m_seconds, floorName, *floor * documents, TimeText, aim);
        }
        PrintRow("PeakOf" + name, static_cast<double>(taken.m_octets), "what is aimed at", kMostOctets,
                 MegabytesText, peakAim);
    }
}

void PrintTable(Reporter const& reporter, std::map<std::string, double> const& peaks,
                std::map<std::string, std::pair<double, double>> const& growths,
                std::vector<MeasuredCommand> const& commands) {
    // What the noise of a machine and its caches may add to the fifty times.
    constexpr double kLinear = 52.5;
    std::printf("\n  %-32s %11s   %-28s %11s %8s %8s   %s\n", "figure", "", "floor", "", "ratio", "aim", "");
    for (Ratio const& row : Rows<Ratio>()) {
        auto const time = reporter.LeastTime(row.m_benchmark);
        auto const floor = reporter.LeastTime(row.m_floor);
        if (time && floor) PrintRow(row.m_benchmark, *time, row.m_floor, *floor, TimeText, row.m_aim);
    }
    for (Peak const& row : Rows<Peak>()) {
        auto const peak = peaks.find(row.m_name);
        if (peak == peaks.end()) continue;
        auto const document = static_cast<double>(GpxDocument(kGpxOctets).size());
        PrintRow(row.m_name, peak->second, "octets of the document", document, MegabytesText, row.m_aim);
    }
    for (auto const& [name, times] : growths)
        PrintRow(name, times.second, "a fiftieth of it", times.first, TimeText, kLinear);
    PrintCommands(commands, reporter.LeastTime(kFloor));
}

void PrintSizes() {
    std::printf("\nOctets of one document, and as a ratio to the first\n");
    double first = 0;
    for (Size const& row : Rows<Size>()) {
        auto const octets = static_cast<double>(row.m_octets());
        if (first == 0) first = octets;
        std::printf("  %-40s %11.0f %8.2f\n", row.m_name.c_str(), octets, octets / first);
    }
}

}  // namespace

Aims::Aims(std::vector<Ratio> const& rows) {
    AddRows(rows);
}
PeakAims::PeakAims(std::vector<Peak> const& rows) {
    AddRows(rows);
}
Growths::Growths(std::vector<Growth> const& rows) {
    AddRows(rows);
}
Commands::Commands(std::vector<Command> const& rows) {
    AddRows(rows);
}
Sizes::Sizes(std::vector<Size> const& rows) {
    AddRows(rows);
}

}  // namespace BxBench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::vector<std::string> const names(argv + 1, argv + argc);
    if (std::ranges::any_of(names, [](auto const& name) { return name.starts_with('-'); })) {
        benchmark::ReportUnrecognizedArguments(argc, argv);
        return 1;
    }
    BxBench::Choice const choice(names);
    std::vector<BxBench::MeasuredCommand> commands;
    BxBench::MeasureCommands(choice, commands, false);
    if (choice.Names(BxBench::kGigabyte)) BxBench::MeasureCommands(choice, commands, true);
    // First, since a process that has worked has memory to reuse.
    auto const peaks = BxBench::MeasurePeaks(choice);
    auto const growths = BxBench::MeasureGrowths(choice);
    BxBench::Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter, choice.Filter());
    BxBench::PrintTable(reporter, peaks, growths, commands);
    if (choice.Has("Sizes")) BxBench::PrintSizes();
}
