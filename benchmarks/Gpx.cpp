// Typed objects: the generated classes of GPX 1.1.

#include "Gpx.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <span>
#include <string_view>
#include <thread>

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

constexpr char16_t kPoints[] = u"gpx/trk/trkseg/trkpt";

std::span<unsigned char const> Octets(std::string const& text) {
    return {reinterpret_cast<unsigned char const*>(text.data()), text.size()};
}

void ReadRecordsOnce(std::string const& input) {
    for (Gpx::CWpt& point : Gpx::Bx::Records<Gpx::CWpt>(Octets(input), kPoints))
        benchmark::DoNotOptimize(&point);
}

void ReadRecordsGpx(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) ReadRecordsOnce(input);
}

void ReadFastInfosetRecordsGpx(benchmark::State& state) {
    std::string const& input = GpxAsFastInfoset(kGpxOctets);
    for (auto _ : state) ReadRecordsOnce(input);
}

void ReadRecordsElement(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        for (CElement& point : Gpx::Bx::Records<CElement>(Octets(input), kPoints))
            benchmark::DoNotOptimize(&point);
    }
}

/// A document of 1 GB that nobody holds: the points of one of 10 MB, a hundred times.
class LargeDocument {
public:
    std::size_t Read(std::span<unsigned char> room) {
        while (m_left.empty() && m_round <= kRounds + 1) Begin(m_round++);
        std::size_t const count = std::min(room.size(), m_left.size());
        std::copy_n(m_left.begin(), count, room.begin());
        m_left.remove_prefix(count);
        return count;
    }

private:
    static constexpr int kRounds = 100;

    void Begin(int round) {
        std::string_view const document = GpxDocument(kGpxOctets);
        std::size_t const first = document.find("      <trkpt"), end = document.find("    </trkseg>");
        m_left = round == 0         ? document.substr(0, first)
                 : round <= kRounds ? document.substr(first, end - first)
                                    : document.substr(end);
    }

    int m_round = 0;
    std::string_view m_left;
};

void FloorOfSlices(benchmark::State& state) {
    std::string const& input = Input(state);
    for (auto _ : state) {
        std::string_view left = input;
        auto const source = [&](std::span<unsigned char> room) {
            std::size_t const count = std::min(room.size(), left.size());
            std::copy_n(left.begin(), count, room.begin());
            left.remove_prefix(count);
            return count;
        };
        if (!ParseSlicesWithEmptyHandlers(source)) state.SkipWithError("refused");
    }
}

void LargeFloor(benchmark::State& state) {
    for (auto _ : state) {
        LargeDocument document;
        if (!ParseSlicesWithEmptyHandlers([&](auto room) { return document.Read(room); }))
            state.SkipWithError("refused");
    }
}

void LargeReadRecordsGpx(benchmark::State& state) {
    for (auto _ : state) {
        LargeDocument document;
        auto const source = [&](std::span<unsigned char> room) { return document.Read(room); };
        for (Gpx::CWpt& point : Gpx::Bx::Records<Gpx::CWpt>(source, kPoints))
            benchmark::DoNotOptimize(&point);
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

template <auto kRead>
void InThreads(benchmark::State& state, std::string const& input) {
    std::vector<std::string> const inputs(static_cast<std::size_t>(state.range(0)), input);
    for (auto _ : state) {
        std::vector<std::jthread> threads;
        for (std::string const& own : inputs) threads.emplace_back([&own] { kRead(own); });
    }
}

void ReadOnce(std::string const& input) {
    Gpx::CGpx gpx;
    Read(gpx, input);
}

void LoadOnce(std::string const& input) {
    CXmlDocument document;
    LoadStream(document, input);
}

void FloorInThreads(benchmark::State& state) {
    InThreads<ParseWithEmptyHandlers>(state, GpxDocument(kGpxOctets));
}
void LoadTreeInThreads(benchmark::State& state) {
    InThreads<LoadOnce>(state, GpxDocument(kGpxOctets));
}
void ReadGpxInThreads(benchmark::State& state) {
    InThreads<ReadOnce>(state, GpxDocument(kGpxOctets));
}
void LoadFastInfosetTreeInThreads(benchmark::State& state) {
    InThreads<LoadOnce>(state, GpxAsFastInfoset(kGpxOctets));
}
void ReadFastInfosetGpxInThreads(benchmark::State& state) {
    InThreads<ReadOnce>(state, GpxAsFastInfoset(kGpxOctets));
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

void WriteUtf8(benchmark::State& state, std::string const& input, bool formatted, bool checked = false) {
    Gpx::CGpx gpx;
    Read(gpx, input);
    CXmlSerializationContext context = gpx.WritingContext();
    context.SetCheckWellFormed(checked);
    for (auto _ : state) {
        CBinaryData const document = gpx.ToXmlStream(true, formatted, enc_UTF8, eol_LF, context, cmp_None);
        benchmark::DoNotOptimize(document.GetData());
    }
}

void WriteGpxUtf8(benchmark::State& state) {
    WriteUtf8(state, Input(state), false);
}
void WriteGpxUtf8Checked(benchmark::State& state) {
    WriteUtf8(state, Input(state), false, true);
}
void WriteGpxUtf8Formatted(benchmark::State& state) {
    WriteUtf8(state, Input(state), true);
}

void WriteFastInfosetGpx(benchmark::State& state) {
    Gpx::CGpx gpx;
    Read(gpx, Input(state));
    CXmlSerializationContext const context = gpx.WritingContext();
    for (auto _ : state) {
        CBinaryData const document = gpx.ToFastInfosetStream(fi_None, context, cmp_None);
        benchmark::DoNotOptimize(document.GetData());
    }
}

constexpr std::size_t kMessage = 1600;

void MessageFloor(benchmark::State& state) {
    std::string const& input = GpxDocument(kMessage);
    for (auto _ : state) {
        if (!ParseWithEmptyHandlers(input)) state.SkipWithError("refused");
    }
}

void ReadGpxMessage(benchmark::State& state) {
    std::string const& input = GpxDocument(kMessage);
    for (auto _ : state) {
        Gpx::CGpx gpx;
        Read(gpx, input);
        benchmark::DoNotOptimize(&gpx);
    }
}

void WriteGpxMessage(benchmark::State& state) {
    WriteUtf8(state, GpxDocument(kMessage), false);
}

#define BX_GPX_BENCHMARK(Function) BENCHMARK(Function)->Unit(benchmark::kMillisecond)->Repetitions(5)

BX_GPX_BENCHMARK(ReadGpx)->Arg(10);
BX_GPX_BENCHMARK(ReadFastInfosetGpx)->Arg(10);
BX_GPX_BENCHMARK(ReadRecordsGpx)->Arg(10);
BX_GPX_BENCHMARK(ReadFastInfosetRecordsGpx)->Arg(10);
BX_GPX_BENCHMARK(ReadRecordsElement)->Arg(10);
BX_GPX_BENCHMARK(FloorOfSlices)->Arg(10);
BENCHMARK(LargeFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(LargeReadRecordsGpx)->Unit(benchmark::kMillisecond);
BX_GPX_BENCHMARK(FloorInThreads)->Arg(1)->Arg(2)->UseRealTime();
BX_GPX_BENCHMARK(LoadTreeInThreads)->Arg(1)->Arg(2)->UseRealTime();
BX_GPX_BENCHMARK(ReadGpxInThreads)->Arg(1)->Arg(2)->UseRealTime();
BX_GPX_BENCHMARK(LoadFastInfosetTreeInThreads)->Arg(1)->Arg(2)->UseRealTime();
BX_GPX_BENCHMARK(ReadFastInfosetGpxInThreads)->Arg(1)->Arg(2)->UseRealTime();
BX_GPX_BENCHMARK(WriteGpx)->Arg(10);
BX_GPX_BENCHMARK(WriteGpxUtf8)->Arg(10);
BX_GPX_BENCHMARK(WriteGpxUtf8Checked)->Arg(10);
BX_GPX_BENCHMARK(WriteGpxUtf8Formatted)->Arg(10);
BX_GPX_BENCHMARK(WriteFastInfosetGpx)->Arg(10);
BENCHMARK(MessageFloor)->Repetitions(5);
BENCHMARK(ReadGpxMessage)->Repetitions(5);
BENCHMARK(WriteGpxMessage)->Repetitions(5);

/// Two threads do 1.98 times the work of one. The floor's row says what the machine lets them do.
constexpr double kTwoThreads = 2 / 1.98;

Aims const s_aims({
    {"ReadGpx/10", "Floor/10", 2.0},
    {"ReadFastInfosetGpx/10", "Floor/10", 0.85},
    {"FloorOfSlices/10", "Floor/10", 0},
    {"ReadRecordsGpx/10", "Floor/10", 1.7},
    {"ReadFastInfosetRecordsGpx/10", "Floor/10", 0},
    {"ReadRecordsElement/10", "Floor/10", 0},
    {"LargeReadRecordsGpx", "LargeFloor", 0},
    {"WriteGpx/10", "Floor/10", 0},
    {"WriteGpxUtf8/10", "Floor/10", 0.9},
    {"WriteGpxUtf8Checked/10", "Floor/10", 1.0},
    {"WriteGpxUtf8Formatted/10", "Floor/10", 1.0},
    {"WriteFastInfosetGpx/10", "Floor/10", 0.8},
    {"ReadGpxMessage", "MessageFloor", 1.9},
    {"WriteGpxMessage", "MessageFloor", 0.6},
    {"FloorInThreads/2", "FloorInThreads/1", 0},
    {"LoadTreeInThreads/2", "LoadTreeInThreads/1", kTwoThreads},
    {"ReadGpxInThreads/2", "ReadGpxInThreads/1", kTwoThreads},
    {"LoadFastInfosetTreeInThreads/2", "LoadFastInfosetTreeInThreads/1", kTwoThreads},
    {"ReadFastInfosetGpxInThreads/2", "ReadFastInfosetGpxInThreads/1", kTwoThreads},
});

void ReadAndWriteOnce(std::string const& input) {
    Gpx::CGpx gpx;
    Read(gpx, input);
    gpx.ToXml(true, false, eol_LF, gpx.WritingContext());
}

PeakAims const s_peaks({
    {"PeakOfReadGpx", 6.0, ReadOnce},
    {"PeakOfReadFastInfosetGpx", 0, ReadOnce, true},
    {"PeakOfReadRecordsGpx", 1.0, ReadRecordsOnce},
    {"PeakOfReadFastInfosetRecordsGpx", 1.0, ReadRecordsOnce, true},
});

Growths const s_growths({
    {"GrowthOfReadGpx", ReadOnce},
    {"GrowthOfReadAndWriteGpx", ReadAndWriteOnce},
    {"GrowthOfReadFastInfosetGpx", ReadOnce, true},
});

}  // namespace
