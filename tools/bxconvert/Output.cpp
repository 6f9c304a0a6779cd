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
class Replacement : public Sink {
public:
    explicit Replacement(fs::path target) : m_target(std::move(target)), m_file(Create()) {}
    Replacement(Replacement const&) = delete;
    Replacement& operator=(Replacement const&) = delete;

    ~Replacement() override {
        std::error_code ignored;
        if (!m_path.empty()) fs::remove(m_path, ignored);
    }

    void TakePermissions(fs::perms permissions) { fs::permissions(m_path, permissions); }
    void Write(std::span<unsigned char const> octets) override { m_file.Write(octets); }

    void Finish() override {
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

class DirectOutput : public Sink {
public:
    explicit DirectOutput(std::FILE* stream) : m_file(stream) {}
    void Write(std::span<unsigned char const> octets) override { m_file.Write(octets); }
    void Finish() override { m_file.Close(); }

private:
    OpenFile m_file;
};

std::unique_ptr<Sink> Open(std::string const& name) {
    if (NamesStandardOutput(name)) return std::make_unique<DirectOutput>(stdout);
    std::error_code notThere;
    fs::file_status const status = fs::status(name, notThere);
    bool const isThere = fs::exists(status);
    if (isThere && (NamesOpenFile(name) || !fs::is_regular_file(status))) {
        // Appending, so that what an open file has stays; devices and pipes do not care.
        return std::make_unique<DirectOutput>(std::fopen(name.c_str(), "ab"));
    }
    auto replacement = std::make_unique<Replacement>(FollowLinks(name));
    if (isThere) replacement->TakePermissions(status.permissions() & fs::perms::all);
    return replacement;
}

/// Runs a step whose failures are those of the output.
template <class Step>
void Try(Step step) {
    try {
        step();
    } catch (std::system_error const& failure) {
        throw OutputFailure(failure.code());
    }
}

}  // namespace

Output::Output(std::string name) : m_name(std::move(name)) {}
Output::~Output() = default;

void Output::Write(std::span<unsigned char const> octets) {
    Try([&] {
        if (!m_file) m_file = Open(m_name);
        m_file->Write(octets);
    });
}

void Output::Finish() {
    Write({});
    Try([this] { m_file->Finish(); });
}

}  // namespace BxConvert
