#include "fastinfoset/CVocabularyIndex.h"

#include <chrono>

namespace BxXmlLib5::FastInfoset {

namespace {

__extension__ using Product = unsigned __int128;

constexpr int kPrimeBits = 61;
constexpr std::uint64_t kPrime = (std::uint64_t{1} << kPrimeBits) - 1;
constexpr std::uint64_t kMix = 0x9E37'79B9'7F4A'7C15;

/// One more coefficient, of fewer than 61 bits.
std::uint64_t Step(std::uint64_t hash, std::uint64_t next, std::uint64_t point) {
    Product const product = Product{hash + next} * point;
    std::uint64_t const sum =
        (static_cast<std::uint64_t>(product) & kPrime) + static_cast<std::uint64_t>(product >> kPrimeBits);
    return (sum & kPrime) + (sum >> kPrimeBits);
}

}  // namespace

CVocabularyHash::CVocabularyHash() {
    auto const now = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    m_point = ((now ^ reinterpret_cast<std::uintptr_t>(this)) * kMix >> 4 | 1) % kPrime;
}

std::uint32_t CVocabularyHash::operator()(std::u16string_view text) const {
    std::uint64_t hash = text.size() & kPrime;
    std::size_t at = 0;
    for (; at + 3 <= text.size(); at += 3) {
        hash = Step(hash, std::uint64_t{text[at]} << 32 | std::uint64_t{text[at + 1]} << 16 | text[at + 2],
                    m_point);
    }
    std::uint64_t rest = 0;
    for (; at < text.size(); ++at) rest = rest << 16 | text[at];
    return static_cast<std::uint32_t>(Step(hash, rest, m_point) >> 8);
}

std::uint32_t CVocabularyHash::operator()(ShortText const& text) const {
    auto const three = [&units = text.m_units](std::size_t at) {
        return std::uint64_t{units[at]} << 32 | std::uint64_t{units[at + 1]} << 16 | units[at + 2];
    };
    return static_cast<std::uint32_t>(Step(Step(three(0), 0, m_point), three(3), m_point) >> 8);
}

std::uint32_t CVocabularyHash::operator()(NameSurrogate const& name) const {
    std::uint64_t const prefixes = std::uint64_t{name.m_prefix} << 32 | name.m_namespace;
    return static_cast<std::uint32_t>(Step(Step(name.m_localName, 0, m_point), prefixes, m_point) >> 8);
}

}  // namespace BxXmlLib5::FastInfoset
