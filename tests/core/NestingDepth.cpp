#include "core/NestingDepth.h"

#include "platform/Stack.h"
#include "support/Expect.h"
#include "support/Stacks.h"

namespace {

using namespace BxXmlLib5;
using namespace BxTest;

/// About so much of the stack is taken at each level.
constexpr std::size_t kTaken = 256;

__attribute__((noinline)) int Descend(int level, int& deepest) {
    CNestingLevel const guard;
    deepest = level;
    char volatile taken[kTaken] = {};
    return level == 1'000'000 ? 0 : Descend(level + 1, deepest) + taken[0];
}

int Depth() {
    int deepest = 0;
    EXPECT_EQ(Thrown([&] { Descend(1, deepest); }), kNoStackLeft);
    return deepest;
}

TEST(NestingDepth, RecursionEndsWhileStackIsLeft) {
    int const onMain = Depth();
    for (std::size_t const size : {std::size_t{64 * 1024}, std::size_t{512 * 1024}}) {
        OnThread(size, [&] {
            int const depth = Depth();
            EXPECT_GE(depth, 10);
            EXPECT_LE(depth, static_cast<int>((size - kStackForLevel) / kTaken));
            EXPECT_EQ(Depth(), depth);
        });
        OnOwnStack(size, [&] {
            EXPECT_FALSE(HasStackForLevel());
            int const depth = Depth();
            EXPECT_GE(depth, 10);
            EXPECT_LE(depth, static_cast<int>(kUnknownStack / kTaken));
            EXPECT_EQ(Depth(), depth);
        });
    }
    EXPECT_EQ(Depth(), onMain);
}

TEST(NestingDepth, EachStackHasItsOwn) {
    CNestingLevel const onMain;
    OnOwnStack(64 * 1024, [] {
        CNestingLevel const onFirst;
        OnOwnStack(64 * 1024, [] { EXPECT_GE(Depth(), 10); });
        EXPECT_GE(Depth(), 10);
    });
    EXPECT_TRUE(HasStackForLevel());
}

TEST(NestingDepth, EachCallMayTakeItAnew) {
    OnOwnStack(128 * 1024, [] {
        int const depth = Depth();
        auto const deeper = [depth] {
            char volatile taken[2 * kUnknownStack] = {};
            EXPECT_GE(Depth() + taken[0], depth - 1);
        };
        deeper();
    });
}

TEST(NestingDepth, AStackIsNotTakenForEndless) {
    constexpr std::size_t kMiB = 1024 * 1024;
    OnThread(128 * kMiB, [] {
        EXPECT_GT(StackLeft().value(), 63 * kMiB);
        EXPECT_LE(StackLeft().value(), 64 * kMiB);
    });
}

}  // namespace
