// The classes of GPX are those that its schema gives, wherever bxgen runs.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string Content(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Generated, IsWhatIsCommitted) {
    std::string folder = testing::TempDir() + "bx-gpx-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    std::string const options = " -q -n Gpx --strip-suffix Type ";
    std::string const commands[] = {
        "cd " BX_GPX " && LC_ALL=C '" BXGEN "'" + options + "-o '" + folder + "' gpx.xsd",
        "cd '" + folder + "' && LC_ALL=tr_TR.UTF-8 TZ=Asia/Tokyo '" BXGEN "'" + options + BX_GPX "/gpx.xsd",
    };
    for (std::string const& command : commands) {
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
        for (char const* const name : {"/GpxFwd.h", "/Gpx.h", "/Gpx.cpp"}) {
            std::string const committed = Content(BX_GPX + std::string(name));
            EXPECT_FALSE(committed.empty()) << name;
            EXPECT_EQ(Content(folder + name), committed) << command;
            std::remove((folder + name).c_str());
        }
    }
    EXPECT_EQ(std::remove(folder.c_str()), 0);
}

}  // namespace
