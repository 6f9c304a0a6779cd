// bxgen: makes C++ classes from XML schemas.

#include <cstdio>
#include <new>
#include <string>

#include "Run.h"

int main(int argc, char** argv) {
    std::string output;
    std::string messages;
    BxGen::ExitStatus status = BxGen::kFileTrouble;
    try {
        status = BxGen::Run({argv + 1, argv + argc}, output, messages);
    } catch (std::bad_alloc const&) {
        messages = "bxgen: error: not enough memory\n";
    }
    std::fwrite(messages.data(), 1, messages.size(), stderr);
    std::fwrite(output.data(), 1, output.size(), stdout);
    bool const isWritten = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    return isWritten ? status : BxGen::kFileTrouble;
}
