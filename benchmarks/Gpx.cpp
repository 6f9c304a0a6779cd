// Typed objects: the generated classes of GPX 1.1.

#include "Gpx.h"

#include <benchmark/benchmark.h>

#include "GpxDocument.h"
#include "Report.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

constexpr std::size_t kMegabyte = 1'000'000;

std::string const& Input(benchmark::State const& state) {
    return GpxDocument(static_cast<std::size_t>(state.range(0)) * kMegabyte);
}

void Read(Gpx::CGpx& gpx, std::string const& input) {
    gpx.Parse(input);
}

void ReadGpx(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        Gpx::CGpx gpx;
        Read(gpx, input);
        benchmark::DoNotOptimize(&gpx);
    }
}

void ReadFastInfosetGpx(benchmark::State& state) {
    Gpx::CGpx gpx;
    Read(gpx, Input(state));
    CBinaryData const input = gpx.ToFastInfosetStream(fi_None, gpx.FastInfosetContext(), cmp_None);
    for (auto _ : state) {
        Gpx::CGpx read;
        read.FromXmlStream(input, CXmlSerializationContext::GetDefaultContext());
        benchmark::DoNotOptimize(&read);
    }
}

void WriteGpx(benchmark::State& state) {
    Gpx::CGpx gpx;
    Read(gpx, Input(state));
    CXmlSerializationContext const context = gpx.WritingContext();
    for (auto _ : state) {
        wstring const text = gpx.ToXml(true, false, eol_LF, context);
        benchmark::DoNotOptimize(text.data());
    }
}

#define BX_GPX_BENCHMARK(Function) \
    BENCHMARK(Function)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->Repetitions(5)

BX_GPX_BENCHMARK(ReadGpx);
BX_GPX_BENCHMARK(ReadFastInfosetGpx);
BX_GPX_BENCHMARK(WriteGpx);

Aims const s_aims({
    {"ReadGpx/10", "Floor/10", 2.2},
    {"ReadFastInfosetGpx/10", "Floor/10", 0},
    {"WriteGpx/10", "Floor/10", 1.4},
    {"ReadGpx/50", "ReadGpx/1", 0},
    {"WriteGpx/50", "WriteGpx/1", 0},
});

PeakAims const s_peaks({
    {"read into the GPX classes, the input included", 10 * kMegabyte, 10.0,
     [](std::string const& input) {
         Gpx::CGpx gpx;
         Read(gpx, input);
     }},
});

}  // namespace
