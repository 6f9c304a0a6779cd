#include "check/ChildProcess.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <system_error>

// A sanitizer's takes more than any limit.
#if defined(__SANITIZE_ADDRESS__)
#define BX_SHADOW_MEMORY
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BX_SHADOW_MEMORY
#endif
#endif

namespace BxGen {

namespace {

constexpr rlim_t kSeconds = 60;
constexpr rlim_t kOctets = rlim_t{4} << 30;

void Limit(decltype(RLIMIT_CPU) what, rlim_t most) {
    rlimit const limit{most, most};
    setrlimit(what, &limit);
}

void LimitAll() {
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_CPU, kSeconds);
    alarm(2 * kSeconds);
#ifndef BX_SHADOW_MEMORY
    Limit(RLIMIT_AS, kOctets);
#endif
}

void WriteAll(int file, std::string const& text) {
    for (std::size_t done = 0; done < text.size();) {
        ssize_t const count = write(file, text.data() + done, text.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) _exit(EXIT_FAILURE);
        done += static_cast<std::size_t>(count);
    }
}

std::string ReadAll(int file) {
    std::string text;
    for (char piece[4096];;) {
        ssize_t const count = read(file, piece, sizeof piece);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return text;
        text.append(piece, static_cast<std::size_t>(count));
    }
}

std::string FailureOf(int status) {
    if (WIFSIGNALED(status)) {
        int const signal = WTERMSIG(status);
        bool const isLate = signal == SIGXCPU || signal == SIGALRM || signal == SIGKILL;
        return isLate ? "did not end in time" : std::string("crashed: ") + strsignal(signal);
    }
    return WEXITSTATUS(status) == EXIT_SUCCESS ? "" : "ended before its time, for want of memory or the like";
}

}  // namespace

ChildOutcome RunInChild(
    std::function<void(std::function<void(std::string const&)> const& write)> const& work) {
    int ends[2];
    if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category());
    pid_t const child = fork();
    if (child < 0) {
        std::system_error const failure(errno, std::generic_category());
        close(ends[0]);
        close(ends[1]);
        throw failure;
    }
    if (child == 0) {
        // Nothing of the parent may be done twice: no buffers written, no destructors run.
        close(ends[0]);
        LimitAll();
        try {
            work([&ends](std::string const& text) { WriteAll(ends[1], text); });
        } catch (...) {
            _exit(EXIT_FAILURE);
        }
        _exit(EXIT_SUCCESS);
    }
    close(ends[1]);
    ChildOutcome outcome;
    outcome.m_output = ReadAll(ends[0]);
    close(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    outcome.m_failure = FailureOf(status);
    return outcome;
}

}  // namespace BxGen
