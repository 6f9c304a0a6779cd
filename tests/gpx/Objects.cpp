// The classes of GPX 1.1 as an application uses them.

#include <thread>
#include <vector>

#include "Gpx.h"
#include "support/Expect.h"

namespace {

using namespace BxXmlLib5;
using namespace Gpx;

TEST(Objects, AreReadByManyThreads) {
    std::vector<std::thread> threads;
    std::vector<std::string> written(4);
    for (std::string& text : written) {
        threads.emplace_back([&text] {
            CGpx gpx;
            gpx.Load(BX_TRACK);
            text = gpx.ToText();
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::string const& text : written) EXPECT_EQ(text, written[0]);
    EXPECT_GT(written[0].size(), 40'000U);
}

}  // namespace
