// What --check does where the tool was built without Xerces-C.

#include "check/FullCheck.h"

namespace BxGen {

void CheckFully(std::vector<std::string> const&, SchemaSet const&, Diagnostics& diagnostics) {
    diagnostics.Error({}, "check", "--check was not built in; build bxgen where Xerces-C is installed");
}

bool HasFullCheck() {
    return false;
}

}  // namespace BxGen
