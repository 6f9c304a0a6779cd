// The classes of GPX are those that its schema gives, wherever bxgen runs.

#include "support/TemporaryFolder.h"

namespace {

using namespace BxTest;

TEST(Generated, IsWhatIsCommitted) {
    TemporaryFolder const made;
    std::string const folder = made.m_path;
    std::string const options = " -q -n Gpx --strip-suffix Type ";
    std::string const commands[] = {
        "cd '" BX_GPX "' && LC_ALL=C '" BXGEN "'" + options + "-o '" + folder + "' gpx.xsd",
        "cd '" + folder + "' && LC_ALL=tr_TR.UTF-8 TZ=Asia/Tokyo '" BXGEN "'" + options +
            "'" BX_GPX "/gpx.xsd'",
    };
    for (std::string const& command : commands) {
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
        for (char const* const name : {"/GpxFwd.h", "/Gpx.h", "/Gpx.cpp"}) {
            std::string const committed = Content(BX_GPX + std::string(name));
            EXPECT_FALSE(committed.empty()) << name;
            EXPECT_EQ(Content(folder + name), committed) << command;
            std::filesystem::remove(folder + name);
        }
    }
}

}  // namespace
