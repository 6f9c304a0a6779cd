// Facets, which are converted anew for each value, against the least that such a conversion can do.

#include <benchmark/benchmark.h>
#include <pcre2.h>

#include <charconv>
#include <string_view>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Report.h"
#include "collections/FacetKinds.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

template <class T>
T FromChars(std::string_view text) {
    T value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Two bounds read by std::from_chars.
template <class T>
void TwoBounds(benchmark::State& state, T value, std::string_view low, std::string_view high) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(low);
        benchmark::DoNotOptimize(high);
        benchmark::DoNotOptimize(value >= FromChars<T>(low) && value <= FromChars<T>(high));
    }
}

template <ItemType kType, class T>
void Check(benchmark::State& state, CPrimitiveRestrictions const& facets, T const& value) {
    for (auto _ : state) {
        CheckValue<kType>(facets, u"name", value);
        benchmark::ClobberMemory();
    }
}

CPrimitiveRestrictions Range(char16_t const* low, char16_t const* high) {
    return CPrimitiveRestrictions(u"", -1, -1, low, high, u"", u"", -1);
}

void IntegerFacetsFromChars(benchmark::State& state) {
    TwoBounds<std::int32_t>(state, 512, "0", "1023");
}
void IntegerFacets(benchmark::State& state) {
    Check<it_i4>(state, Range(u"0", u"1023"), 512);
}

void DecimalFacetsFromChars(benchmark::State& state) {
    TwoBounds(state, 47.644548, "-180.0", "179.999999");
}
void DecimalFacets(benchmark::State& state) {
    Check<it_decimal>(state, Range(u"-180.0", u"179.999999"), CDecimal(u"47.6445480"));
}

constexpr std::string_view kPattern = R"(\d{4}(-\d\d){2}(?:[\w.\-:]*([\w.\-:]))?)";
constexpr std::string_view kValue = "2026-11-22.draft:5";

PCRE2_SPTR Octets(std::string_view text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
}

pcre2_code* CompileByHand() {
    int error = 0;
    PCRE2_SIZE at = 0;
    return pcre2_compile(Octets(kPattern), kPattern.size(), PCRE2_UTF, &error, &at, nullptr);
}

void MatchByHand(pcre2_code const* code) {
    pcre2_match_data* const data = pcre2_match_data_create(1, nullptr);
    benchmark::DoNotOptimize(
        pcre2_match(code, Octets(kValue), kValue.size(), 0, PCRE2_ANCHORED, data, nullptr));
    pcre2_match_data_free(data);
}

/// The pattern, rewritten by hand, compiled, matched and freed.
void PatternByHand(benchmark::State& state) {
    for (auto _ : state) {
        pcre2_code* const code = CompileByHand();
        MatchByHand(code);
        pcre2_code_free(code);
    }
}
void PatternFacets(benchmark::State& state) {
    CPrimitiveRestrictions facets;
    facets.m_pattern = uR"(\d{4}(-\d\d){2}\c*)";
    Check<it_string>(state, facets, wstring(u"2026-11-22.draft:5"));
}

void PreparedPatternByHand(benchmark::State& state) {
    pcre2_code* const code = CompileByHand();
    for (auto _ : state) MatchByHand(code);
    pcre2_code_free(code);
}
void PreparedPattern(benchmark::State& state) {
    CCompiledPattern const pattern(FromUtf8(kPattern), u"", u"name");
    wstring const value = FromUtf8(kValue);
    for (auto _ : state) benchmark::DoNotOptimize(pattern.MatchesWhole(value));
}

#define BX_FACET_BENCHMARK(Function) BENCHMARK(Function)->Repetitions(5)

BX_FACET_BENCHMARK(IntegerFacetsFromChars);
BX_FACET_BENCHMARK(IntegerFacets);
BX_FACET_BENCHMARK(DecimalFacetsFromChars);
BX_FACET_BENCHMARK(DecimalFacets);
BX_FACET_BENCHMARK(PatternByHand);
BX_FACET_BENCHMARK(PatternFacets);
BX_FACET_BENCHMARK(PreparedPatternByHand);
BX_FACET_BENCHMARK(PreparedPattern);

Aims const s_aims({
    {"IntegerFacets", "IntegerFacetsFromChars", 3},
    {"DecimalFacets", "DecimalFacetsFromChars", 12},
    {"PatternFacets", "PatternByHand", 1.5},
    {"PreparedPattern", "PreparedPatternByHand", 2.25},  // which has its text in UTF-8
});

}  // namespace
