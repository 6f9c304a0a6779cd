#include "ChildProcess.h"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>
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

double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

Taken RunInChild(std::function<void()> const& work) {
    malloc_trim(0);
    int ends[2];
    if (pipe(ends) != 0) return {};
    pid_t const child = fork();
    if (child == 0) {
        std::size_t const before = Status("VmRSS");
        double const start = ProcessorTime();
        work();
        double const seconds = ProcessorTime() - start;
        Taken const taken{Status("VmHWM") - before, seconds};
        bool const written = write(ends[1], &taken, sizeof taken) == sizeof taken;
        _exit(written ? 0 : 1);
    }
    close(ends[1]);
    Taken taken;
    if (child < 0 || read(ends[0], &taken, sizeof taken) != sizeof taken) taken = {};
    close(ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return taken;
}

}  // namespace BxBench
