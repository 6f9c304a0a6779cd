// What is left behind of an unfinished file when Ctrl-C ends a tool: nothing.
#pragma once

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <string_view>

namespace CommandLine {

constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// While it lives, SIGINT, SIGTERM and SIGHUP wait.
class HeldSignals {
public:
    HeldSignals() {
        sigset_t held;
        sigemptyset(&held);
        for (int const number : kEndingSignals) sigaddset(&held, number);
        pthread_sigmask(SIG_BLOCK, &held, &m_before);
    }

    HeldSignals(HeldSignals const&) = delete;
    HeldSignals& operator=(HeldSignals const&) = delete;

    ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }

private:
    sigset_t m_before;
};

/// While it lives, SIGINT, SIGTERM and SIGHUP remove a file before they end the process as they would without. One at a
/// time; make it before the file,
/// or while signals are held, and destroy it once the file is complete or removed. A signal that the process was
/// started to ignore stays ignored.
class RemovedOnSignal {
public:
    /// @param path of the file; the current folder must stay if it is relative
    explicit RemovedOnSignal(std::string_view path) {
        if (path.size() >= s_path.size()) return;  // longer than what can be opened
        *std::ranges::copy(path, s_path.begin()).out = '\0';
        s_isSet = true;
        for (int const number : kEndingSignals) Watch(number);
    }

    RemovedOnSignal(RemovedOnSignal const&) = delete;
    RemovedOnSignal& operator=(RemovedOnSignal const&) = delete;

    ~RemovedOnSignal() { s_isSet = false; }

private:
    static void Watch(int number) {
        struct sigaction action = {};
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
        action = {};
        action.sa_handler = Remove;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }

    static void Remove(int number) {
        if (s_isSet) unlink(s_path.data());
        raise(number);
    }

    static inline std::array<char, PATH_MAX> s_path;
    static inline std::atomic<bool> s_isSet = false;
    static_assert(std::atomic<bool>::is_always_lock_free);
};

}  // namespace CommandLine
