// Work on small stacks.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>
#include <ucontext.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#else
inline void __sanitizer_start_switch_fiber(void**, void const*, std::size_t) {}
inline void __sanitizer_finish_switch_fiber(void*, void const**, std::size_t*) {}
#endif

namespace BxTest {

using Work = std::function<void()>;

/// Runs the work on a thread with a stack of so many octets.
inline void OnThread(std::size_t size, Work const& work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    auto const run = [](void* argument) -> void* {
        (*static_cast<Work const*>(argument))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<Work*>(&work)), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// What runs on a stack that no thread knows of.
struct OwnStack {
    Work const* m_work;
    ucontext_t m_outside{};
    void const* m_outerBottom = nullptr;
    std::size_t m_outerSize = 0;

    void Run() {
        __sanitizer_finish_switch_fiber(nullptr, &m_outerBottom, &m_outerSize);
        (*m_work)();
        __sanitizer_start_switch_fiber(nullptr, m_outerBottom, m_outerSize);
    }
};

inline thread_local OwnStack* t_ownStack = nullptr;

/// Runs the work on a stack of so many octets that no thread knows of, and expects that it kept to it.
inline void OnOwnStack(std::size_t size, Work const& work) {
    constexpr std::size_t kBelow = 16 * 1024;
    constexpr char kUnused = 0x5A;
    std::vector<char> memory(kBelow + size, kUnused);
    OwnStack stack{&work};
    ucontext_t inside;
    getcontext(&inside);
    inside.uc_stack.ss_sp = memory.data() + kBelow;
    inside.uc_stack.ss_size = size;
    inside.uc_link = &stack.m_outside;
    t_ownStack = &stack;
    makecontext(
        &inside, [] { t_ownStack->Run(); }, 0);
    void* fakeStack = nullptr;
    __sanitizer_start_switch_fiber(&fakeStack, inside.uc_stack.ss_sp, size);
    swapcontext(&stack.m_outside, &inside);
    __sanitizer_finish_switch_fiber(fakeStack, nullptr, nullptr);
    EXPECT_TRUE(std::all_of(memory.begin(), memory.begin() + kBelow, [](char c) { return c == kUnused; }));
}

/// Runs the work on stacks of 64 to 512 KiB, of a thread and of the program's own.
inline void OnSmallStacks(Work const& work) {
    for (std::size_t const size : {64U, 128U, 512U}) {
        SCOPED_TRACE(size);
        OnThread(size * 1024, work);
        OnOwnStack(size * 1024, work);
    }
}

inline constexpr char const* kNoStackLeft =
    "CBxException: Elements or objects are nested too deeply for what is left of the stack";

}  // namespace BxTest
