#include "document/Inflate.h"

#include "document/CInflatingSource.h"

namespace BxXmlLib5 {

std::optional<std::vector<unsigned char>> Inflate(std::span<unsigned char const> octets, std::size_t most) {
    if (!CInflatingSource::Recognises(octets)) return std::nullopt;
    CMemorySource compressed(octets);
    CInflatingSource content(compressed);
    try {
        return ReadAll(content, most);
    } catch (CDamagedStream const&) {
        return std::nullopt;
    }
}

}  // namespace BxXmlLib5
