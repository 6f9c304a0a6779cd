// What the caches of the table of names save: the names of a document in its order, with them and past them.

#include <benchmark/benchmark.h>

#include <vector>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "GpxDocument.h"
#include "Report.h"
#include "document/CNameTable.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

struct Name {
    wstring m_namespaceUri, m_localName;
};

void Collect(CXmlElement const& element, std::vector<Name>& names) {
    names.push_back({element.GetNamespaceURI(), element.GetLocalName()});
    for (CXmlAttribute const* attribute : element.GetAttributes())
        names.push_back({attribute->GetNamespaceURI(), attribute->GetLocalName()});
    for (auto* child = element.GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        Collect(*child, names);
}

std::vector<Name> NamesOfADocument() {
    CXmlDocument document;
    document.LoadXml(GpxDocument(1'000'000).c_str());
    std::vector<Name> names;
    Collect(*document.GetDocumentElement(), names);
    return names;
}

template <class Intern>
void InternAll(benchmark::State& state, Intern intern) {
    std::vector<Name> const names = NamesOfADocument();
    CNameTable table;
    for (auto _ : state) {
        for (Name const& name : names) benchmark::DoNotOptimize(&intern(table, name));
    }
}

void InternNames(benchmark::State& state) {
    InternAll(state, [](CNameTable& table, Name const& name) -> CXmlName const& {
        return table.Intern(name.m_namespaceUri, name.m_localName);
    });
}

void InternNamesPastTheCaches(benchmark::State& state) {
    InternAll(state, [](CNameTable& table, Name const& name) -> CXmlName const& {
        return table.Combine(table.InternText(name.m_namespaceUri), table.InternText(name.m_localName));
    });
}

BENCHMARK(InternNames)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(InternNamesPastTheCaches)->Unit(benchmark::kMillisecond)->Repetitions(5);

Aims const s_aims({{"InternNames", "InternNamesPastTheCaches", 0.5}});

}  // namespace
