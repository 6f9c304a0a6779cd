// Files of a test, and commands that are run among them.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

namespace BxTest {

/// The octets of a file, none if there is none.
inline std::string Content(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The status with which a command ended, what it printed, and its errors.
struct Ending {
    int m_status;
    std::string m_out, m_errors;
    bool operator==(Ending const&) const = default;
    friend void PrintTo(Ending const& ending, std::ostream* out) {
        *out << "status " << ending.m_status << "\n--- out\n"
             << ending.m_out << "\n--- errors\n"
             << ending.m_errors;
    }
};

/// A folder that goes with the object.
struct TemporaryFolder {
    TemporaryFolder() { EXPECT_TRUE(mkdtemp(m_path.data())); }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    std::string Path(std::string const& name) const { return m_path + "/" + name; }
    /// The path of a new file with this content.
    std::string Write(std::string const& name, std::string_view content) const {
        std::ofstream(Path(name), std::ios::binary).write(content.data(), std::ssize(content));
        return Path(name);
    }

    /// Runs lines of shell in the folder, for which a program is a command.
    Ending Run(std::string const& program, std::string const& lines, std::string const& input = {}) const {
        TemporaryFolder const outside;
        outside.Write("in", input);
        outside.Write("run", "PATH='" + std::filesystem::path(program).parent_path().string() +
                                 "':$PATH\ncd '" + m_path + "'\n" + lines + "\n");
        std::string const command = "cd '" + outside.m_path + "' && sh ./run <in >out 2>err";
        int const status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Content(outside.Path("out")),
                Content(outside.Path("err"))};
    }

    std::string m_path = testing::TempDir() + "bxtestXXXXXX";
};

}  // namespace BxTest
