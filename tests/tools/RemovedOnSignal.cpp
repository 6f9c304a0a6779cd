// An unfinished file is gone where a signal ends the process, and its name is free once the file is complete.

#include "common/RemovedOnSignal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace CommandLine {

namespace {

TEST(RemovedOnSignalDeathTest, LeavesNothingOfAnUnfinishedFile) {
    std::string const path = testing::TempDir() + "unfinished.tmp";
    for (int const number : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(
            {
                signal(number, SIG_DFL);
                RemovedOnSignal const removed(path);
                std::ofstream(path) << "half";
                raise(number);
            },
            testing::KilledBySignal(number), "");
        EXPECT_FALSE(std::filesystem::exists(path)) << number;
    }
}

TEST(RemovedOnSignalDeathTest, LeavesACompleteFile) {
    std::string const path = testing::TempDir() + "complete.tmp";
    EXPECT_EXIT(
        {
            {
                RemovedOnSignal const removed(path);
                std::ofstream(path) << "whole";
            }
            raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST(RemovedOnSignalDeathTest, LetsIgnoredSignalsBeIgnored) {
    std::string const path = testing::TempDir() + "ignored.tmp";
    EXPECT_EXIT(
        {
            signal(SIGHUP, SIG_IGN);
            RemovedOnSignal const removed(path);
            std::ofstream(path) << "whole";
            raise(SIGHUP);
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_TRUE(std::filesystem::remove(path));
}

}  // namespace

}  // namespace CommandLine
