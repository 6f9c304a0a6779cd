// Whole documents as Fast Infoset.

#include <benchmark/benchmark.h>

#include <map>

#include "ChildProcess.h"
#include "Content.h"
#include "GpxDocument.h"
#include "Report.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

constexpr std::size_t kMegabyte = 1'000'000;

CBinaryData Write(CXmlObjectBase const& object, CompressionType compression = cmp_None) {
    return object.ToFastInfosetStream(fi_None, CXmlSerializationContext::GetDefaultContext(), compression);
}

std::string_view OctetsOf(CBinaryData const& data) {
    return {reinterpret_cast<char const*>(data.GetData()), data.GetLength()};
}

Content const& GpxContent(std::size_t megabytes) {
    static std::map<std::size_t, Content> s_contents;
    auto const [entry, isNew] = s_contents.try_emplace(megabytes);
    if (isNew) entry->second.Read(GpxDocument(megabytes * kMegabyte));
    return entry->second;
}

Content const& GpxContent(benchmark::State const& state) {
    return GpxContent(static_cast<std::size_t>(state.range(0)));
}

void LoadFastInfosetTree(benchmark::State& state) {
    CBinaryData const input = Write(GpxContent(state));
    for (auto _ : state) {
        CXmlDocument document;
        LoadStream(document, OctetsOf(input));
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
}

void ReadFastInfosetElement(benchmark::State& state) {
    CBinaryData const input = Write(GpxContent(state));
    for (auto _ : state) {
        Content content;
        content.Read(OctetsOf(input));
        benchmark::DoNotOptimize(&content);
    }
}

void WriteFastInfoset(benchmark::State& state) {
    Content const& content = GpxContent(state);
    for (auto _ : state) {
        CBinaryData const document = Write(content);
        benchmark::DoNotOptimize(document.GetData());
    }
}

#define BX_FAST_INFOSET_BENCHMARK(Function) \
    BENCHMARK(Function)->Arg(10)->Unit(benchmark::kMillisecond)->Repetitions(5)

BX_FAST_INFOSET_BENCHMARK(LoadFastInfosetTree);
BX_FAST_INFOSET_BENCHMARK(ReadFastInfosetElement);
BX_FAST_INFOSET_BENCHMARK(WriteFastInfoset);

Aims const s_aims({
    {"LoadFastInfosetTree/10", "Floor/10", 0.35},
    {"ReadFastInfosetElement/10", "ReadElement/10", 0},
    {"WriteFastInfoset/10", "WriteElement/10", 1.0},
});

std::size_t XmlSize(CompressionType compression) {
    return GpxContent(10)
        .ToXmlStream(true, false, enc_UTF8, eol_LF, CXmlSerializationContext::GetDefaultContext(),
                     compression)
        .GetLength();
}

void LoadOnce(std::string const& input) {
    CXmlDocument document;
    LoadStream(document, input);
}

PeakAims const s_peaks({{"PeakOfLoadFastInfosetTree", 0, LoadOnce, true}});
Growths const s_growths({{"GrowthOfLoadFastInfosetTree", LoadOnce, true}});

Sizes const s_sizes({
    {"XML", [] { return XmlSize(cmp_None); }},
    {"XML, gzip", [] { return XmlSize(cmp_GZip); }},
    {"Fast Infoset", [] { return Write(GpxContent(10)).GetLength(); }},
    {"Fast Infoset, gzip", [] { return Write(GpxContent(10), cmp_GZip).GetLength(); }},
});

}  // namespace

std::string const& BxBench::GpxAsFastInfoset(std::size_t octets) {
    static std::map<std::size_t, std::string> s_documents;
    auto const [known, isNew] = s_documents.try_emplace(octets);
    if (isNew) {
        std::string const& document = GpxDocument(octets);
        known->second = MadeInChild([&] {
            Content content;
            content.Read(document);
            return std::string(OctetsOf(Write(content)));
        });
    }
    return known->second;
}
