#include "emit/OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "common/RemovedOnSignal.h"
#include "xml/File.h"
#include "xml/QName.h"

namespace BxGen {

namespace {

bool HasContent(OutputFile const& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file.m_path, error)) return false;
    try {
        return ReadFile(file.m_path) == file.m_content;
    } catch (std::system_error const&) {
        return false;
    }
}

/// @return zero, or the number of the system's error
int WriteOctets(std::string const& path, std::string const& octets) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    if (!file) return errno;
    if (std::fwrite(octets.data(), 1, octets.size(), file.get()) != octets.size()) return errno;
    return std::fclose(file.release()) == 0 ? 0 : errno;
}

/// By way of a file beside it, so that a full disk leaves the old one. What is no regular file, such as a device, is
/// written itself.
int Replace(OutputFile const& file) {
    std::error_code error;
    auto const status = std::filesystem::status(file.m_path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        return WriteOctets(file.m_path, file.m_content);
    std::string const temporary = file.m_path + ".tmp";
    CommandLine::RemovedOnSignal const removed(temporary);
    int failure = WriteOctets(temporary, file.m_content);
    if (failure == 0 && std::rename(temporary.c_str(), file.m_path.c_str()) != 0) failure = errno;
    if (failure != 0) std::remove(temporary.c_str());
    return failure;
}

bool Write(OutputFile const& file, Diagnostics& diagnostics) {
    std::error_code error;
    auto const folder = std::filesystem::path(file.m_path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, error);
    int const failure = Replace(file);
    if (failure == 0) return true;
    diagnostics.FileError(
        {}, Quoted(file.m_path) + " cannot be written: " + std::generic_category().message(failure));
    return false;
}

}  // namespace

void WriteFiles(std::vector<OutputFile> const& files, Diagnostics& diagnostics) {
    for (OutputFile const& file : files) {
        if (HasContent(file)) continue;
        if (!Write(file, diagnostics)) return;
    }
}

void Touch(std::string const& path, Diagnostics& diagnostics) {
    Write({path, ""}, diagnostics);
}

}  // namespace BxGen
