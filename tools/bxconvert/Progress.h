// What a terminal shows of work that takes long.
#pragma once

#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>

#include "OneLine.h"

namespace BxConvert {

/// While it lives, and beyond the first two seconds, tells on standard error how long the work has taken and how much
/// was read, if that is a terminal. The line is gone at the end.
class Progress {
public:
    /// @param name of what is worked on
    explicit Progress(std::string const& name) {
        if (isatty(STDERR_FILENO) == 0) return;
        try {
            m_teller = std::jthread(Tell, "bxconvert: " + OneLine(name), OctetsRead());
        } catch (std::system_error const&) {
            // No thread to be had: it is the work that counts.
        }
    }

private:
    /// By this process so far.
    static std::uint64_t OctetsRead() {
        std::ifstream counters("/proc/self/io");
        std::string name;
        std::uint64_t count = 0;
        counters >> name >> count;
        return count;
    }

    static void Tell(std::stop_token const& stop, std::string const& what, std::uint64_t readBefore) {
        auto const start = std::chrono::steady_clock::now();
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any stopped;
        auto const wait = [&](std::chrono::seconds time) {
            stopped.wait_for(lock, stop, time, [] { return false; });
            return !stop.stop_requested();
        };
        if (!wait(std::chrono::seconds(2))) return;
        do {
            std::chrono::duration<double> const passed = std::chrono::steady_clock::now() - start;
            std::fprintf(stderr, "\r%s: %.0f s, %.1f MB read\033[K", what.c_str(), passed.count(),
                         static_cast<double>(OctetsRead() - readBefore) / 1e6);
        } while (wait(std::chrono::seconds(1)));
        std::fputs("\r\033[K", stderr);
    }

    std::jthread m_teller;
};

}  // namespace BxConvert
