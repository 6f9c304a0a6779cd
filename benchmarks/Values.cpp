// Single values against the plainest code that does the same for a simpler purpose.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <memory>
#include <string>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Report.h"
#include "values/Utf8Conversion.h"

namespace {

using namespace BxXmlLib5;
using namespace BxBench;

constexpr auto kRule = CWhitespaceUtils::ws_Collapse;

/// Runs a step on one argument after the other.
template <class Values, class Step>
void Each(benchmark::State& state, Values const& values, Step step) {
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(step(values[next]));
        next = (next + 1) % values.size();
    }
}

template <class T>
T FromChars(std::string const& text) {
    T value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::array<wstring, 4> Wide(std::array<std::string, 4> const& texts) {
    std::array<wstring, 4> wide;
    std::ranges::transform(texts, wide.begin(), [](std::string const& text) { return FromUtf8(text); });
    return wide;
}

std::array<std::string, 4> const kIntegers{"1234567890", "-987654321", "1904", "2147483647"};
std::array<std::string, 4> const kDoubles{"47.6445480", "-122.326897", "6.02214076e23", "4321.09"};
std::array<std::string, 4> const kDecimals{"47.6445480", "-12.326897", "4321.01975", "0.12345678"};

void IntegerFromChars(benchmark::State& state) {
    Each(state, kIntegers, FromChars<std::int32_t>);
}
void IntegerFromString(benchmark::State& state) {
    Each(state, Wide(kIntegers), [](wstring const& text) { return CConversions::i4FromString(text, kRule); });
}

std::array<std::int32_t, 4> const kNumbers{1234567890, -987654321, 1904, 2147483647};

void IntegerToChars(benchmark::State& state) {
    Each(state, kNumbers, [](std::int32_t value) {
        char text[16];
        return wstring(text, std::to_chars(text, text + sizeof text, value).ptr);
    });
}
void IntegerToString(benchmark::State& state) {
    Each(state, kNumbers, CConversions::i4ToString);
}

void DoubleFromChars(benchmark::State& state) {
    Each(state, kDoubles, FromChars<double>);
}
void DoubleFromString(benchmark::State& state) {
    Each(state, Wide(kDoubles), [](wstring const& text) { return CConversions::r8FromString(text, kRule); });
}

void TenDigitsFromChars(benchmark::State& state) {
    Each(state, kDecimals, FromChars<double>);
}
void DecimalFromText(benchmark::State& state) {
    Each(state, Wide(kDecimals), [](wstring const& text) { return CDecimal(text.c_str()); });
}

/// Two operands for each step: a number and the next one.
template <class T, class Operator>
void Combine(benchmark::State& state, std::array<T, 4> const& values, Operator apply) {
    std::array<int, 4> const places{0, 1, 2, 3};
    Each(state, places, [&](int place) {
        auto const index = static_cast<std::size_t>(place);
        return apply(values[index], values[(index + 1) % values.size()]);
    });
}

template <class T>
std::array<T, 4> Numbers() {
    std::array<T, 4> numbers;
    std::ranges::transform(kDecimals, numbers.begin(),
                           [](std::string const& text) { return T(FromUtf8(text).c_str()); });
    return numbers;
}

void BigIntegerSum(benchmark::State& state) {
    Combine(state, Numbers<CBigInteger>(), std::plus());
}
void DecimalSum(benchmark::State& state) {
    Combine(state, Numbers<CDecimal>(), std::plus());
}
void DecimalDifference(benchmark::State& state) {
    Combine(state, Numbers<CDecimal>(), std::minus());
}
void DecimalProduct(benchmark::State& state) {
    Combine(state, Numbers<CDecimal>(), std::multiplies());
}

std::array<double, 4> const kCoordinates{47.6445480, -122.326897, 4321.09, 0.000123};

void ThirteenPlacesToChars(benchmark::State& state) {
    Each(state, kCoordinates, [](double value) {
        std::array<char, 32> text;
        std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed, 13);
        return text;
    });
}
void DecimalFromDouble(benchmark::State& state) {
    Each(state, kCoordinates, [](double value) { return CDecimal(value); });
}

std::array<wstring, 1> const kDateTime{u"2026-11-22T10:20:30Z"};

/// The text copied to the heap, and its six fields read by std::from_chars.
void DateTimeCopyAndScan(benchmark::State& state) {
    Each(state, kDateTime, [](wstring const& text) {
        auto const copy = std::make_unique<wstring>(text);
        char digits[20];
        std::ranges::transform(*copy, digits, [](char16_t c) { return static_cast<char>(c); });
        std::array<int, 6> fields;
        constexpr std::array<int, 7> kStarts{0, 5, 8, 11, 14, 17, 20};
        for (std::size_t i = 0; i < fields.size(); ++i) {
            std::from_chars(digits + kStarts[i], digits + kStarts[i + 1] - 1, fields[i]);
        }
        return fields;
    });
}
void DateTimeParse(benchmark::State& state) {
    CDateTime value;
    Each(state, kDateTime, [&value](wstring const& text) {
        value.ParseXSDDateTime(text.c_str());
        return value.GetSecond();
    });
}

constexpr std::size_t kOctets = 1 << 20;

CBinaryData MegabyteOfOctets() {
    CBinaryData data;
    for (std::size_t i = 0; i < kOctets; ++i) data.Append(static_cast<unsigned char>(i * 31 + i / 256));
    return data;
}

template <class Step>
void Megabyte(benchmark::State& state, Step step) {
    for (auto _ : state) benchmark::DoNotOptimize(step());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kOctets));
}

void HexTableLoop(benchmark::State& state) {
    CBinaryData const data = MegabyteOfOctets();
    Megabyte(state, [&data] {
        wstring text(2 * kOctets, u'\0');
        for (std::size_t i = 0; i < kOctets; ++i) {
            text[2 * i] = u"0123456789ABCDEF"[data.GetOctets()[i] >> 4];
            text[2 * i + 1] = u"0123456789ABCDEF"[data.GetOctets()[i] & 15];
        }
        return text;
    });
}
void HexEncode(benchmark::State& state) {
    CBinaryData const data = MegabyteOfOctets();
    Megabyte(state, [&data] { return data.GetAsHexString(); });
}
void HexDecode(benchmark::State& state) {
    wstring const text = MegabyteOfOctets().GetAsHexString();
    CBinaryData data;
    Megabyte(state, [&] { return data.SetAsHexString(text.c_str()), data.GetLength(); });
}
void Base64Encode(benchmark::State& state) {
    CBinaryData const data = MegabyteOfOctets();
    Megabyte(state, [&data] { return data.GetAsBase64(); });
}
void Base64Decode(benchmark::State& state) {
    wstring const text = MegabyteOfOctets().GetAsBase64();
    CBinaryData data;
    Megabyte(state, [&] { return data.SetAsBase64(text.c_str()), data.GetLength(); });
}

void OctetsCompared(benchmark::State& state) {
    CBinaryData const data = MegabyteOfOctets(), other(data.GetOctets());
    Megabyte(state, [&] { return data == other; });
}
void SharedOctetsCompared(benchmark::State& state) {
    CBinaryData const data = MegabyteOfOctets(), copy = data;
    Megabyte(state, [&] { return data == copy; });
}

void WideningLoop(benchmark::State& state) {
    std::string const octets(kOctets, 'x');
    Megabyte(state, [&octets] {
        wstring text(octets.size(), u'\0');
        for (std::size_t i = 0; i < octets.size(); ++i) text[i] = static_cast<unsigned char>(octets[i]);
        return text;
    });
}
void Utf8ToWideAscii(benchmark::State& state) {
    std::string const octets(kOctets, 'x');
    auto const* const data = reinterpret_cast<unsigned char const*>(octets.data());
    Megabyte(state, [&] { return Utf8ToWide({data, octets.size()}); });
}
void WideToUtf8Ascii(benchmark::State& state) {
    wstring const text(kOctets, u'x');
    Megabyte(state, [&text] { return WideToUtf8(text); });
}
void WideToUtf8WithALetter(benchmark::State& state) {
    wstring text(kOctets, u'x');
    text.front() = u'\xE9';
    Megabyte(state, [&text] { return WideToUtf8(text); });
}

#define BX_VALUE_BENCHMARK(Function) BENCHMARK(Function)->Repetitions(5)

BX_VALUE_BENCHMARK(IntegerFromChars);
BX_VALUE_BENCHMARK(IntegerFromString);
BX_VALUE_BENCHMARK(IntegerToChars);
BX_VALUE_BENCHMARK(IntegerToString);
BX_VALUE_BENCHMARK(DoubleFromChars);
BX_VALUE_BENCHMARK(DoubleFromString);
BX_VALUE_BENCHMARK(TenDigitsFromChars);
BX_VALUE_BENCHMARK(DecimalFromText);
BX_VALUE_BENCHMARK(BigIntegerSum);
BX_VALUE_BENCHMARK(DecimalSum);
BX_VALUE_BENCHMARK(DecimalDifference);
BX_VALUE_BENCHMARK(DecimalProduct);
BX_VALUE_BENCHMARK(ThirteenPlacesToChars);
BX_VALUE_BENCHMARK(DecimalFromDouble);
BX_VALUE_BENCHMARK(DateTimeCopyAndScan);
BX_VALUE_BENCHMARK(DateTimeParse);
BX_VALUE_BENCHMARK(HexTableLoop);
BX_VALUE_BENCHMARK(HexEncode);
BX_VALUE_BENCHMARK(HexDecode);
BX_VALUE_BENCHMARK(Base64Encode);
BX_VALUE_BENCHMARK(Base64Decode);
BX_VALUE_BENCHMARK(OctetsCompared);
BX_VALUE_BENCHMARK(SharedOctetsCompared);
BX_VALUE_BENCHMARK(WideningLoop);
BX_VALUE_BENCHMARK(Utf8ToWideAscii);
BX_VALUE_BENCHMARK(WideToUtf8Ascii);
BX_VALUE_BENCHMARK(WideToUtf8WithALetter);

Aims const s_aims({
    {"IntegerFromString", "IntegerFromChars", 3},
    {"IntegerToString", "IntegerToChars", 3},
    {"DoubleFromString", "DoubleFromChars", 3},
    {"DecimalFromText", "TenDigitsFromChars", 12},
    {"DecimalSum", "BigIntegerSum", 3},
    {"DecimalDifference", "BigIntegerSum", 3},
    {"DecimalProduct", "BigIntegerSum", 3},
    {"DecimalFromDouble", "ThirteenPlacesToChars", 1},
    {"SharedOctetsCompared", "OctetsCompared", 0.01},
    {"DateTimeParse", "DateTimeCopyAndScan", 4},
    {"HexEncode", "HexTableLoop", 0},
    {"HexDecode", "HexTableLoop", 0},
    {"Base64Encode", "HexTableLoop", 0},
    {"Base64Decode", "HexTableLoop", 0},
    {"Utf8ToWideAscii", "WideningLoop", 2},
    {"WideToUtf8Ascii", "WideningLoop", 2},
    {"WideToUtf8WithALetter", "WideningLoop", 3},
});

}  // namespace
