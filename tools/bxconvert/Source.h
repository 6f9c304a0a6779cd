// Where bxconvert reads from.
#pragma once

#include <cstdint>
#include <string>

#include "document/COctetSource.h"

namespace BxConvert {

/// The octets of a file, a device, a pipe or standard input.
class Source : public BxXmlLib5::COctetSource {
public:
    /// @param name as given on the command line
    /// @throws std::system_error if it cannot be opened
    explicit Source(std::string const& name);
    Source(Source const&) = delete;
    Source& operator=(Source const&) = delete;
    ~Source() override;

    /// @throws std::system_error
    std::size_t Read(std::span<unsigned char> room) override;

    /// How many octets were read so far.
    std::uintmax_t Count() const { return m_count; }

private:
    int m_file;
    std::uintmax_t m_count = 0;
};

}  // namespace BxConvert
