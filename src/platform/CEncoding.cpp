#include "platform/CEncoding.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <new>
#include <string>

#include "platform/Utf.h"

namespace BxXmlLib5 {

namespace {

bool IsName(std::string_view name) {
    constexpr std::size_t kMostCharacters = 64;
    auto const isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    auto const isAllowed = [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-';
    };
    return !name.empty() && name.size() <= kMostCharacters && isLetter(name[0]) &&
           std::ranges::all_of(name, isAllowed);
}

void* Open(std::string_view name) {
    if (!IsName(name)) return nullptr;
    iconv_t const converter = iconv_open("UTF-8", std::string(name).c_str());
    if (converter != reinterpret_cast<iconv_t>(-1)) return converter;
    if (errno == ENOMEM) throw std::bad_alloc();
    return nullptr;
}

}  // namespace

CEncoding::CEncoding(std::string_view name) : m_converter(Open(name)) {}

CEncoding::~CEncoding() {
    if (IsKnown()) iconv_close(m_converter);
}

void CEncoding::Reset() {
    iconv(m_converter, nullptr, nullptr, nullptr, nullptr);
}

CEncoding::Progress CEncoding::Convert(std::span<unsigned char const> octets, std::span<unsigned char> room) {
    if (!IsKnown()) return {0, 0, true};
    auto* in = const_cast<char*>(reinterpret_cast<char const*>(octets.data()));
    auto* out = reinterpret_cast<char*>(room.data());
    std::size_t inLeft = octets.size(), outLeft = room.size();
    std::size_t const result = iconv(m_converter, octets.empty() ? nullptr : &in, &inLeft, &out, &outLeft);
    bool const isMalformed = result == static_cast<std::size_t>(-1) && errno != E2BIG && errno != EINVAL;
    return {octets.size() - inLeft, room.size() - outLeft, isMalformed};
}

std::optional<std::array<int, 256>> CEncoding::Octets() {
    std::array<int, 256> codePoints{};
    for (unsigned octet = 0; octet < codePoints.size(); ++octet) {
        auto const in = static_cast<unsigned char>(octet);
        unsigned char room[64];
        Reset();
        Progress const progress = Convert({&in, 1}, room);
        int codePoint = -1;
        if (!progress.m_isMalformed) {
            std::string_view const out(reinterpret_cast<char const*>(room), progress.m_written);
            // Nothing comes of what begins a longer character, or may be joined with the next one.
            if (out.empty()) return std::nullopt;
            std::size_t end = 0;
            char32_t const character = Utf::Next(out, end);
            if (end != out.size() || character > 0xFFFF) return std::nullopt;
            codePoint = static_cast<int>(character);
        }
        if (octet < 0x80 && codePoint != static_cast<int>(octet)) return std::nullopt;
        codePoints[octet] = codePoint;
    }
    Reset();
    return codePoints;
}

}  // namespace BxXmlLib5
