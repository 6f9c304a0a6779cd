// Runs the benchmarks and prints, below them, their least times as ratios to the floors of the same run.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

#include "GpxDocument.h"
#include "PeakMemory.h"
#include "Report.h"

namespace BxBench {

namespace {

std::vector<Ratio>& Ratios() {
    static std::vector<Ratio> s_rows;
    return s_rows;
}

std::vector<Peak>& Peaks() {
    static std::vector<Peak> s_rows;
    return s_rows;
}

std::vector<Size>& SizeRows() {
    static std::vector<Size> s_rows;
    return s_rows;
}

/// Prints as usual and keeps the least CPU time of each benchmark: the machine's noise only ever adds.
class Reporter : public benchmark::ConsoleReporter {
public:
    Reporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(std::vector<Run> const& runs) override {
        for (Run const& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            double const time = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            std::string const name =
                run.run_name.function_name + (run.run_name.args.empty() ? "" : "/") + run.run_name.args;
            auto const [entry, isNew] = m_least.emplace(name, time);
            if (!isNew) entry->second = std::min(entry->second, time);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios() const {
        std::printf("\nLeast CPU time as a ratio to a floor\n");
        for (Ratio const& row : Ratios()) {
            auto const time = m_least.find(row.m_benchmark);
            auto const floor = m_least.find(row.m_floor);
            if (time == m_least.end() || floor == m_least.end()) continue;
            PrintRow(row.m_benchmark + " : " + row.m_floor, time->second / floor->second, row.m_aim);
        }
    }

    static void PrintRow(std::string const& name, double ratio, double aim) {
        std::printf("  %-52s %8.2f", name.c_str(), ratio);
        if (aim > 0) std::printf("   aim: at most %.2f%s", aim, ratio <= aim ? "" : "   MISSED");
        std::printf("\n");
    }

private:
    std::map<std::string, double> m_least;  // in seconds
};

void PrintPeaks() {
    std::printf("Peak memory as a ratio to the octets of the input\n");
    for (Peak const& row : Peaks()) {
        std::string const& input = GpxDocument(row.m_octets);
        std::size_t const rise = PeakMemoryOf([&] { row.m_work(input); });
        auto const octets = static_cast<double>(input.size());
        Reporter::PrintRow(row.m_name, static_cast<double>(rise) / octets + 1, row.m_aim);
    }
    std::printf("\n");
    std::fflush(stdout);
}

void PrintSizes() {
    std::printf("\nOctets of one document, and as a ratio to the first\n");
    double first = 0;
    for (Size const& row : SizeRows()) {
        auto const octets = static_cast<double>(row.m_octets());
        if (first == 0) first = octets;
        std::printf("  %-40s %11.0f %8.2f\n", row.m_name.c_str(), octets, octets / first);
    }
}

}  // namespace

Aims::Aims(std::vector<Ratio> const& rows) {
    Ratios().insert(Ratios().end(), rows.begin(), rows.end());
}
PeakAims::PeakAims(std::vector<Peak> const& rows) {
    Peaks().insert(Peaks().end(), rows.begin(), rows.end());
}
Sizes::Sizes(std::vector<Size> const& rows) {
    SizeRows().insert(SizeRows().end(), rows.begin(), rows.end());
}

}  // namespace BxBench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    BxBench::PrintPeaks();
    BxBench::Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    BxBench::PrintSizes();
}
