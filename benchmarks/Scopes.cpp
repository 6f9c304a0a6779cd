// What namespaces cost the writers: elements with an attribute, many of them beside each other.

#include <benchmark/benchmark.h>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Report.h"
#include "writers/CFastInfosetWriter.h"
#include "writers/CXmlTextWriter.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

constexpr int kElements = 10'000;

wstring const kNone;
wstring const kDeclared = u"urn:example:declared:on:the:root";
wstring const kUndeclared = u"urn:example:declared:where:it:is:used";

template <class Writer>
void WriteElements(Writer& writer, wstring const& ns) {
    wstring const root = u"root", child = u"child", grandchild = u"grandchild", name = u"name",
                  value = u"value";
    writer.AddNamespace(u"d", kDeclared);
    writer.WriteStartElement(root, kNone);
    for (int i = 0; i < kElements; ++i) {
        writer.WriteStartElement(child, ns);
        writer.WriteAttribute(name, ns, value);
        writer.WriteStartElement(grandchild, ns);
        writer.WriteEndElement();
        writer.WriteEndElement();
    }
    writer.WriteEndElement();
}

template <class Writer>
void WriteIn(benchmark::State& state, wstring const& ns) {
    for (auto _ : state) {
        Writer writer;
        WriteElements(writer, ns);
        benchmark::DoNotOptimize(&writer);
    }
}

void TextInNoNamespace(benchmark::State& state) {
    WriteIn<CXmlTextWriter>(state, kNone);
}
void TextInADeclaredNamespace(benchmark::State& state) {
    WriteIn<CXmlTextWriter>(state, kDeclared);
}
void TextInAnUndeclaredNamespace(benchmark::State& state) {
    WriteIn<CXmlTextWriter>(state, kUndeclared);
}
void InfosetInNoNamespace(benchmark::State& state) {
    WriteIn<CFastInfosetWriter>(state, kNone);
}
void InfosetInADeclaredNamespace(benchmark::State& state) {
    WriteIn<CFastInfosetWriter>(state, kDeclared);
}

#define BX_SCOPE_BENCHMARK(Function) BENCHMARK(Function)->Unit(benchmark::kMillisecond)->Repetitions(5)

BX_SCOPE_BENCHMARK(TextInNoNamespace);
BX_SCOPE_BENCHMARK(TextInADeclaredNamespace);
BX_SCOPE_BENCHMARK(TextInAnUndeclaredNamespace);
BX_SCOPE_BENCHMARK(InfosetInNoNamespace);
BX_SCOPE_BENCHMARK(InfosetInADeclaredNamespace);

Aims const s_aims({
    {"TextInADeclaredNamespace", "TextInNoNamespace", 2.0},
    {"TextInAnUndeclaredNamespace", "TextInNoNamespace", 4.0},
    {"InfosetInADeclaredNamespace", "InfosetInNoNamespace", 2.0},
});

}  // namespace
