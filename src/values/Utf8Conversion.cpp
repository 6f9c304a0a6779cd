#include "values/Utf8Conversion.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "platform/UnitScan.h"
#include "platform/Utf.h"

namespace BxXmlLib5 {

namespace {

bool IsAscii(std::u16string_view text) {
    return !HasUnit(text, [](std::uint64_t units) { return units & kEachUnit * 0xFF80; });
}

/// Looks at all of them, without a branch for each, so that the compiler can look at many at once.
bool IsAscii(std::span<unsigned char const> octets) {
    unsigned char all = 0;
    for (unsigned char const octet : octets) all |= octet;
    return all < 0x80;
}

/// Calls back with each block of a text that is ASCII as a whole, and with each code point of the others.
/// @return false if a code point is malformed
template <class PutAscii, class PutOther>
bool ForEachBlock(std::u16string_view text, PutAscii putAscii, PutOther putOther) {
    constexpr std::size_t kBlockSize = 64;
    for (std::size_t at = 0; at < text.size();) {
        auto const block = text.substr(at, kBlockSize);
        std::size_t const end = at + block.size();
        if (IsAscii(block)) {
            putAscii(block);
            at = end;
        }
        while (at < end) {
            char32_t const c = Utf::Next(text, at);
            if (c == Utf::kMalformed) return false;
            putOther(c);
        }
    }
    return true;
}

/// How many units well-formed octets make: one for each first octet of a sequence, two if it has four octets.
std::size_t CountUnits(std::span<unsigned char const> octets) {
    std::size_t count = 0;
    for (unsigned char const octet : octets) count += ((octet & 0xC0) != 0x80) + (octet >= 0xF0);
    return count;
}

/// @return how many units were put; 0 for octets that are not well-formed
std::size_t PutWide(std::span<unsigned char const> octets, char16_t* out) {
    std::string_view const text(reinterpret_cast<char const*>(octets.data()), octets.size());
    char16_t* end = out;
    for (std::size_t at = 0; at < text.size();) {
        char32_t const c = Utf::Next(text, at);
        if (c == Utf::kMalformed) return 0;
        Utf::PutUtf16(c, [&end](char32_t unit) { *end++ = static_cast<char16_t>(unit); });
    }
    return static_cast<std::size_t>(end - out);
}

}  // namespace

std::size_t Utf8Size(std::u16string_view text) {
    if (IsAscii(text)) return text.size();
    std::size_t size = 0;
    bool const isWellFormed = ForEachBlock(
        text, [&size](auto block) { size += block.size(); },
        [&size](char32_t c) { Utf::PutUtf8(c, [&size](char32_t) { ++size; }); });
    return isWellFormed ? size : 0;
}

std::size_t CheckedUtf8Size(std::u16string_view text) {
    std::size_t const size = Utf8Size(text);
    if (size == 0 && !text.empty()) {
        throw CBxInvalidValueException(u"A text with half of a surrogate pair has no UTF-8 form");
    }
    return size;
}

void WriteUtf8(std::u16string_view text, std::span<unsigned char> out) {
    auto const narrow = [](auto unit) { return static_cast<unsigned char>(unit); };
    if (out.size() == text.size()) {
        std::ranges::transform(text, out.begin(), narrow);
        return;
    }
    auto at = out.begin();
    ForEachBlock(
        text, [&](auto block) { at = std::ranges::transform(block, at, narrow).out; },
        [&](char32_t c) { Utf::PutUtf8(c, [&](char32_t octet) { *at++ = narrow(octet); }); });
}

CBinaryData WideToUtf8(std::u16string_view text) {
    std::size_t const size = Utf8Size(text);
    if (size == 0) return {};
    auto octets = std::make_unique_for_overwrite<unsigned char[]>(size);
    WriteUtf8(text, {octets.get(), size});
    return {std::move(octets), size};
}

wstring Utf8ToWide(std::span<unsigned char const> octets) {
    if (IsAscii(octets)) return {octets.begin(), octets.end()};
    wstring result(CountUnits(octets), u'\0');
    return PutWide(octets, result.data()) == 0 ? wstring() : result;
}

std::size_t Utf8ToWide(std::span<unsigned char const> octets, char16_t* out) {
    if (!IsAscii(octets)) return PutWide(octets, out);
    std::ranges::copy(octets, out);
    return octets.size();
}

}  // namespace BxXmlLib5
