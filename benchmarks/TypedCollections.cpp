// Typed collections: values one by one against a bare vector, and a document of integers.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "ExpatFloor.h"
#include "Report.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

constexpr std::int32_t kCount = 1'000'000;

/// A collection of elements v without facets.
template <class Collection>
struct Values : Collection {
    Values()
        : Collection(u"v", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1, CWhitespaceUtils::ws_Collapse,
                     nullptr) {}
    using Collection::FromXml_Int, Collection::ToXml_Int;
};

/// The root of a document; its elements go to and come from a collection.
template <class Collection>
struct Root : CXmlObjectBase {
    Root() { SetElementName(u"r"); }
    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return {}; }
    wstring GetTargetNamespace() const override { return {}; }
    void ToXml_Int(CXmlWriter* writer, bool, char16_t const*, CXmlSerializationContext const& context,
                   bool) const override {
        writer->WriteStartElement(m_elementName, {});
        m_values.ToXml_Int(writer, false, nullptr, context, false);
        writer->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* child,
                             CXmlSerializationContext const& context, bool) override {
        return m_values.FromXml_Int(element, child, context, false);
    }
    void Read(CXmlDocument const& document) {
        CXmlElement* const root = document.GetDocumentElement();
        FromXml_Int(root, root->GetFirstElement(), CXmlSerializationContext::GetDefaultContext(), false);
    }
    wstring Write() const {
        return ToXml(true, false, eol_LF, CXmlSerializationContext::GetDefaultContext());
    }

    Values<Collection> m_values;
};

std::int32_t Integer(std::int32_t index) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(index) * 2'654'435'761u);
}

template <class T>
void PushBack(benchmark::State& state, T const& value) {
    for (auto _ : state) {
        std::vector<T> values;
        for (std::int32_t i = 0; i < kCount; ++i) values.push_back(value);
        benchmark::DoNotOptimize(values.data());
    }
}

template <class Collection, class T>
void Add(benchmark::State& state, T const& value) {
    for (auto _ : state) {
        Values<Collection> values;
        for (std::int32_t i = 0; i < kCount; ++i) values.Add(value);
        benchmark::DoNotOptimize(&values);
    }
}

CDecimal const kDecimal = u"47.6445480";
wstring const kText = u"a value of some length";

void PushBackIntegers(benchmark::State& state) {
    PushBack(state, std::int32_t{7});
}
void PushBackDecimals(benchmark::State& state) {
    PushBack(state, kDecimal);
}
void PushBackStrings(benchmark::State& state) {
    PushBack(state, kText);
}
void AddIntegers(benchmark::State& state) {
    Add<Ci4Col>(state, std::int32_t{7});
}
void AddDecimals(benchmark::State& state) {
    Add<CdecimalCol>(state, kDecimal);
}
void AddStrings(benchmark::State& state) {
    Add<CstringCol>(state, kText);
}

/// A document of a million integers of up to ten digits.
std::string const& Document() {
    static std::string const s_document = [] {
        std::string document = "<r>";
        for (std::int32_t i = 0; i < kCount; ++i) document += "<v>" + std::to_string(Integer(i)) + "</v>";
        return document + "</r>";
    }();
    return s_document;
}

void Load(CXmlDocument& document) {
    std::string const& input = Document();
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(input.data()), input.size());
}

void ParseIntegers(benchmark::State& state) {
    for (auto _ : state) {
        if (!ParseWithEmptyHandlers(Document())) state.SkipWithError("refused");
    }
}

void LoadIntegers(benchmark::State& state) {
    for (auto _ : state) {
        CXmlDocument document;
        Load(document);
        benchmark::DoNotOptimize(document.GetDocumentElement());
    }
}

/// From the octets on, through the tree.
template <class Collection>
void ReadInto(benchmark::State& state) {
    for (auto _ : state) {
        CXmlDocument document;
        Load(document);
        Root<Collection> root;
        root.Read(document);
        if (root.m_values.GetCount() != kCount) state.SkipWithError("not all were read");
    }
}
void ReadIntegers(benchmark::State& state) {
    ReadInto<Ci4Col>(state);
}
void ReadStrings(benchmark::State& state) {
    ReadInto<CstringCol>(state);
}

void WriteIntegers(benchmark::State& state) {
    CXmlDocument document;
    Load(document);
    Root<Ci4Col> root;
    root.Read(document);
    for (auto _ : state) {
        wstring const text = root.Write();
        benchmark::DoNotOptimize(text.data());
    }
}

#define BX_COLLECTION_BENCHMARK(Function) BENCHMARK(Function)->Unit(benchmark::kMillisecond)->Repetitions(5)

BX_COLLECTION_BENCHMARK(PushBackIntegers);
BX_COLLECTION_BENCHMARK(PushBackDecimals);
BX_COLLECTION_BENCHMARK(PushBackStrings);
BX_COLLECTION_BENCHMARK(AddIntegers);
BX_COLLECTION_BENCHMARK(AddDecimals);
BX_COLLECTION_BENCHMARK(AddStrings);
BX_COLLECTION_BENCHMARK(ParseIntegers);
BX_COLLECTION_BENCHMARK(LoadIntegers);
BX_COLLECTION_BENCHMARK(ReadIntegers);
BX_COLLECTION_BENCHMARK(ReadStrings);
BX_COLLECTION_BENCHMARK(WriteIntegers);

Aims const s_aims({
    {"AddIntegers", "PushBackIntegers", 2},
    {"AddDecimals", "PushBackDecimals", 1.5},
    {"AddStrings", "PushBackStrings", 1.5},
    {"LoadIntegers", "ParseIntegers", 0},
    {"ReadIntegers", "ParseIntegers", 2.5},
    {"ReadIntegers", "LoadIntegers", 1.4},
    {"ReadStrings", "LoadIntegers", 0},
    {"WriteIntegers", "ParseIntegers", 1.2},
});

}  // namespace
