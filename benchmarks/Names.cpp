// What the cache of the table of names saves: the names of a document in its order, with it and past it.

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
    std::vector<wstring const*> namespaces;  // of the names, which a parser has in the table already
    for (Name const& name : names) namespaces.push_back(&table.InternText(name.m_namespaceUri));
    for (auto _ : state) {
        for (std::size_t i = 0; i < names.size(); ++i)
            benchmark::DoNotOptimize(&intern(table, *namespaces[i], names[i].m_localName));
    }
}

void InternNames(benchmark::State& state) {
    InternAll(state, [](CNameTable& table, wstring const& ns, wstring const& localName) -> CXmlName const& {
        return table.Intern(ns, localName);
    });
}

void InternNamesPastTheCache(benchmark::State& state) {
    InternAll(state, [](CNameTable& table, wstring const& ns, wstring const& localName) -> CXmlName const& {
        return table.Combine(ns, table.InternText(localName));
    });
}

BENCHMARK(InternNames)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(InternNamesPastTheCache)->Unit(benchmark::kMillisecond)->Repetitions(5);

Aims const s_aims({{"InternNames", "InternNamesPastTheCache", 0.5}});

}  // namespace
