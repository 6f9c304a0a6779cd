#include "Output.h"

#include "BxXmlLib5/platform/CFileReplacement.h"
#include "Options.h"
#include "SystemError.h"
#include "common/RemovedOnSignal.h"

namespace BxConvert {

void WriteOutput(std::string const& name, std::span<unsigned char const> octets) {
    BxXmlLib5::CFileReplacement file(name == kStandardStream ? std::string_view("/dev/stdout") : name);
    file.Write(octets);
    if (int const error = file.Finish()) ThrowSystemError(error);
}

}  // namespace BxConvert
