#include "Output.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

#include "Options.h"
#include "SystemError.h"

namespace BxConvert {

namespace fs = std::filesystem;

namespace {

/// A file open for writing, complete only once Close() has returned.
class OpenFile {
public:
    explicit OpenFile(std::FILE* file) : m_file(file, std::fclose) {
        if (!m_file) ThrowSystemError();
    }

    void Write(std::span<unsigned char const> octets) {
        if (std::fwrite(octets.data(), 1, octets.size(), m_file.get()) != octets.size()) ThrowSystemError();
    }

    void Close() {
        if (std::fclose(m_file.release()) != 0) ThrowSystemError();
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_file;
};

/// A new file beside the one that it is to replace; it is gone at the end unless it did.
class Replacement {
public:
    explicit Replacement(fs::path target) : m_target(std::move(target)), m_file(Create()) {}
    Replacement(Replacement const&) = delete;
    Replacement& operator=(Replacement const&) = delete;

    ~Replacement() {
        std::error_code ignored;
        if (!m_path.empty()) fs::remove(m_path, ignored);
    }

    void TakePermissions(fs::perms permissions) { fs::permissions(m_path, permissions); }
    void Write(std::span<unsigned char const> octets) { m_file.Write(octets); }

    void Finish() {
        m_file.Close();
        fs::rename(m_path, m_target);
        m_path.clear();
    }

private:
    std::FILE* Create() {
        for (std::random_device random;;) {
            m_path = m_target.parent_path() / (".bxconvert-" + std::to_string(random()) + ".tmp");
            std::FILE* const file = std::fopen(m_path.c_str(), "wbx");
            if (file != nullptr || errno != EEXIST) return file;
        }
    }

    fs::path m_target;
    fs::path m_path;
    OpenFile m_file;
};

/// What a path names once no symbolic link is left at its end.
fs::path FollowLinks(fs::path path) {
    constexpr int kMaxLinks = 40;
    std::error_code notThere;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, notThere)); ++links) {
        if (links == kMaxLinks) ThrowSystemError(ELOOP);
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

bool NamesStandardOutput(std::string_view name) {
    constexpr std::string_view kNames[] = {kStandardStream, "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"};
    return std::ranges::find(kNames, name) != std::end(kNames);
}

/// Whether a name stands for what a process has open, which is no place in a folder.
bool NamesOpenFile(std::string_view name) {
    constexpr std::string_view kPrefixes[] = {"/dev/stderr", "/dev/fd/", "/proc/"};
    return std::ranges::any_of(kPrefixes, [name](auto prefix) { return name.starts_with(prefix); });
}

void WriteDirectly(std::FILE* stream, std::span<unsigned char const> octets) {
    OpenFile file(stream);
    file.Write(octets);
    file.Close();
}

}  // namespace

void WriteOutput(std::string const& name, std::span<unsigned char const> octets) {
    if (NamesStandardOutput(name)) return WriteDirectly(stdout, octets);
    std::error_code notThere;
    fs::file_status const status = fs::status(name, notThere);
    bool const isThere = fs::exists(status);
    if (isThere && (NamesOpenFile(name) || !fs::is_regular_file(status))) {
        // Appending, so that what an open file has stays; devices and pipes do not care.
        return WriteDirectly(std::fopen(name.c_str(), "ab"), octets);
    }
    Replacement replacement(FollowLinks(name));
    if (isThere) replacement.TakePermissions(status.permissions() & fs::perms::all);
    replacement.Write(octets);
    replacement.Finish();
}

}  // namespace BxConvert
