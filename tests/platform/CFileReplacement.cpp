#include "BxXmlLib5/platform/CFileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

#include "support/TemporaryFolder.h"

using namespace BxTest;
using BxXmlLib5::CFileReplacement;

namespace {

/// Whether the file systems have files without names.
bool g_hasUnnamed = true;

}  // namespace

// By its symbol, since headers may define a function of that name.
extern "C" int OpenAsTold(char const* path, int flags, ...) __asm__("open");
extern "C" int OpenAsTold(char const* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    mode_t const mode = va_arg(rest, mode_t);
    va_end(rest);
    if (g_hasUnnamed || (flags & O_TMPFILE) != O_TMPFILE) return openat(AT_FDCWD, path, flags, mode);
    errno = EOPNOTSUPP;
    return -1;
}

namespace {

int Save(std::string_view path, std::string const& content) {
    CFileReplacement file(path);
    file.Write({reinterpret_cast<unsigned char const*>(content.data()), content.size()});
    return file.Finish();
}

std::size_t FilesIn(TemporaryFolder const& folder) {
    namespace fs = std::filesystem;
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.m_path), {}));
}

mode_t Rights(std::string const& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

class FileReplacement : public testing::TestWithParam<bool> {
protected:
    FileReplacement() { g_hasUnnamed = GetParam(); }
    ~FileReplacement() override { g_hasUnnamed = true; }
};

INSTANTIATE_TEST_SUITE_P(Unnamed, FileReplacement, testing::Bool());

TEST_P(FileReplacement, TakesThePlaceAtTheEnd) {
    TemporaryFolder const folder;
    std::string const path = folder.Write("f", "old");
    chmod(path.c_str(), 0640);
    {
        CFileReplacement first(path), second(path);
        first.Write({});
        // Not each file system can do without names.
        EXPECT_TRUE(GetParam() || !first.GetUnfinished().empty());
        EXPECT_EQ(FilesIn(folder), first.GetUnfinished().empty() ? 1u : 3u);
        EXPECT_EQ(Content(path), "old");
        EXPECT_EQ(second.Finish(), 0);
        EXPECT_EQ(Content(path), "");
    }
    EXPECT_EQ(FilesIn(folder), 1u);
    EXPECT_EQ(Save(path, "new"), 0);
    EXPECT_EQ(Content(path), "new");
    EXPECT_EQ(Rights(path), 0640u);
    mode_t const mask = umask(022);
    EXPECT_EQ(Save(folder.Path("g"), "g"), 0);
    umask(mask);
    EXPECT_EQ(Rights(folder.Path("g")), 0644u);
}

TEST(CFileReplacement, KeepsLinks) {
    TemporaryFolder const folder;
    std::filesystem::create_directory(folder.Path("d"));
    folder.Write("d/f", "old");
    std::filesystem::create_symlink("f", folder.Path("d/l"));
    std::filesystem::create_symlink("d/l", folder.Path("l"));
    std::filesystem::create_symlink("new", folder.Path("dangling"));
    EXPECT_EQ(Save(folder.Path("l"), "new"), 0);
    EXPECT_EQ(Save(folder.Path("dangling"), "made"), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("l")) &&
                std::filesystem::is_symlink(folder.Path("d/l")));
    EXPECT_EQ(Content(folder.Path("d/f")), "new");
    EXPECT_EQ(Content(folder.Path("new")), "made");
}

TEST(CFileReplacement, WritesToWhatIsNoFileAsItIs) {
    TemporaryFolder const folder;
    std::string const path = folder.Write("open", "old");
    int const file = open(path.c_str(), O_WRONLY);
    for (std::string const& prefix : {std::string("/dev/fd/"), std::string("/proc/self/fd/"),
                                      "/proc/" + std::to_string(getpid()) + "/fd/"})
        EXPECT_EQ(Save(prefix + std::to_string(file), "+"), 0);
    close(file);
    EXPECT_EQ(Content(path), "++d+");  // the last one is the same file, but not the same opening of it
    EXPECT_EQ(Save("/dev/null", "x"), 0);
    EXPECT_EQ(FilesIn(folder), 1u);
}

TEST_P(FileReplacement, LeavesThingsAsTheyWereAfterAFailure) {
    TemporaryFolder const folder;
    std::filesystem::create_symlink("l", folder.Path("l"));
    std::pair<std::string, int> const rows[] = {
        {folder.Path("none/f"), ENOENT},
        {folder.m_path, EISDIR},
        {folder.Path("l"), ELOOP},
        {folder.Path("f") + '\0' + "g", EINVAL},
        {"/dev/full", ENOSPC},
        {"/dev/fd/999", EBADF},
        {"", ENOENT},
    };
    for (auto const& [path, error] : rows) EXPECT_EQ(Save(path, "x"), error) << path;
    EXPECT_EQ(FilesIn(folder), 1u);
    std::string const path = folder.Write("f", "old");
    CFileReplacement file(path);
    // Something else takes the place.
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(file.Finish(), EISDIR);
    EXPECT_EQ(file.Error(), EISDIR);
    EXPECT_EQ(file.Finish(), EISDIR);
}

}  // namespace
