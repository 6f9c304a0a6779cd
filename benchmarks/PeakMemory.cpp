#include "PeakMemory.h"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace BxBench {

namespace {

/// A line of the kernel's account of this process, in octets.
std::size_t Status(std::string const& key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key + ":")) return std::stoul(line.substr(key.size() + 1)) * 1024;
    }
    return 0;
}

}  // namespace

std::size_t PeakMemoryOf(std::function<void()> const& work) {
    malloc_trim(0);
    int ends[2];
    if (pipe(ends) != 0) return 0;
    pid_t const child = fork();
    if (child == 0) {
        std::size_t const before = Status("VmRSS");
        work();
        std::size_t const rise = Status("VmHWM") - before;
        bool const written = write(ends[1], &rise, sizeof rise) == sizeof rise;
        _exit(written ? 0 : 1);
    }
    close(ends[1]);
    std::size_t rise = 0;
    if (child < 0 || read(ends[0], &rise, sizeof rise) != sizeof rise) rise = 0;
    close(ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return rise;
}

}  // namespace BxBench
