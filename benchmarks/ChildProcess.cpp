#include "ChildProcess.h"

#include <fcntl.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <string>
#include <string_view>

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

std::string MadeInChild(std::function<std::string()> const& make) {
    int ends[2];
    if (pipe(ends) != 0) return {};
    pid_t const child = fork();
    if (child == 0) {
        std::string const made = make();
        std::size_t const size = made.size();
        bool isWritten = write(ends[1], &size, sizeof size) == sizeof size;
        for (std::string_view left = made; isWritten && !left.empty();) {
            ssize_t const count = write(ends[1], left.data(), left.size());
            isWritten = count > 0;
            if (isWritten) left.remove_prefix(static_cast<std::size_t>(count));
        }
        _exit(isWritten ? 0 : 1);
    }
    close(ends[1]);
    std::string made;
    std::size_t size = 0;
    if (child > 0 && read(ends[0], &size, sizeof size) == sizeof size) made.resize(size);
    for (std::size_t got = 0; got < made.size();) {
        ssize_t const count = read(ends[0], made.data() + got, made.size() - got);
        if (count <= 0) made.clear();
        got += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    close(ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return made;
}

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

std::optional<Taken> RunProgram(std::vector<std::string> const& words) {
    std::vector<char*> arguments;
    for (std::string const& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t const child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0) return std::nullopt;
    auto const seconds = [](timeval const& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return Taken{static_cast<std::size_t>(usage.ru_maxrss) * 1024,
                 seconds(usage.ru_utime) + seconds(usage.ru_stime)};
}

}  // namespace BxBench
