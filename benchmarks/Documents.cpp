// Whole documents: the tree, untyped content, text output.

#include <benchmark/benchmark.h>

#include <optional>

#include "Content.h"
#include "ExpatFloor.h"
#include "GpxDocument.h"
#include "Report.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

constexpr std::size_t kMegabyte = 1'000'000;

std::string const& Input(benchmark::State const& state) {
    return GpxDocument(static_cast<std::size_t>(state.range(0)) * kMegabyte);
}

wstring Write(CXmlObjectBase const& object) {
    return object.ToXml(true, false, eol_LF, CXmlSerializationContext::GetDefaultContext());
}

void Floor(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        if (!ParseWithEmptyHandlers(input)) state.SkipWithError("refused");
    }
}

void LoadTree(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        CXmlDocument document;
        LoadStream(document, input);
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
}

void ReadElement(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        Content content;
        content.Read(input);
        benchmark::DoNotOptimize(&content);
    }
}

void DestroyElement(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        state.PauseTiming();
        std::optional<Content> content(std::in_place);
        content->Read(input);
        state.ResumeTiming();
        content.reset();
    }
}

void WriteElement(benchmark::State& state) {
    Content content;
    content.Read(Input(state));
    for (auto _ : state) {
        wstring const text = Write(content);
        benchmark::DoNotOptimize(text.data());
    }
}

#define BX_DOCUMENT_BENCHMARK(Function) \
    BENCHMARK(Function)->Arg(10)->Unit(benchmark::kMillisecond)->Repetitions(5)

BX_DOCUMENT_BENCHMARK(Floor);
BX_DOCUMENT_BENCHMARK(LoadTree);
BX_DOCUMENT_BENCHMARK(ReadElement);
BX_DOCUMENT_BENCHMARK(DestroyElement);
BX_DOCUMENT_BENCHMARK(WriteElement);

Aims const s_aims({
    {"LoadTree/10", "Floor/10", 1.5},
    {"ReadElement/10", "Floor/10", 2.6},
    {"DestroyElement/10", "Floor/10", 0.3},
    {"WriteElement/10", "Floor/10", 1.0},
});

void LoadOnce(std::string const& input) {
    CXmlDocument document;
    LoadStream(document, input);
}

void ReadOnce(std::string const& input) {
    Content content;
    content.Read(input);
}

void ReadAndWriteOnce(std::string const& input) {
    Content content;
    content.Read(input);
    Write(content);
}

PeakAims const s_peaks({
    {"PeakOfLoadTree", 5.0, LoadOnce},
    {"PeakOfReadElement", 0, ReadOnce},
});

Growths const s_growths({
    {"GrowthOfFloor", ParseWithEmptyHandlers},
    {"GrowthOfLoadTree", LoadOnce},
    {"GrowthOfReadElement", ReadOnce},
    {"GrowthOfReadAndWriteElement", ReadAndWriteOnce},
});

}  // namespace
