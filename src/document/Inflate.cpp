#include "document/Inflate.h"

#include "document/CInflatingSource.h"

namespace BxXmlLib5 {

std::optional<std::vector<unsigned char>> Inflate(std::span<unsigned char const> octets) {
    if (!CInflatingSource::Recognises(octets)) return std::nullopt;
    CMemorySource compressed(octets);
    CInflatingSource content(compressed);
    try {
        return ReadAll(content);
    } catch (CDamagedStream const&) {
        return std::nullopt;
    }
}

}  // namespace BxXmlLib5
