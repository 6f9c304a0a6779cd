// Where octets go to.
#pragma once

#include <span>

namespace BxConvert {

class Sink {
public:
    virtual ~Sink() = default;
    virtual void Write(std::span<unsigned char const> octets) = 0;
    /// To be called at the end: what was written is complete.
    virtual void Finish() = 0;
};

}  // namespace BxConvert
