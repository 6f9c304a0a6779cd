// Where bxconvert writes to.
#pragma once

#include <optional>
#include <string>
#include <system_error>

#include "BxXmlLib5/platform/CFileReplacement.h"
#include "Sink.h"
#include "common/RemovedOnSignal.h"

namespace BxConvert {

/// What went wrong where bxconvert writes to.
class OutputFailure : public std::system_error {
public:
    using std::system_error::system_error;
};

/// Standard output or a file, as CFileReplacement has it: after a failure, or a signal that
/// ends the process, it is as it was. It is opened when the first
/// octets come.
///
/// All operations throw OutputFailure.
class Output : public Sink {
public:
    /// @param name as given on the command line
    explicit Output(std::string name) : m_name(std::move(name)) {}

    void Write(std::span<unsigned char const> octets) override;
    void Finish() override;

private:
    void Open();

    std::string m_name;
    std::optional<CommandLine::RemovedOnSignal> m_removed;
    std::optional<BxXmlLib5::CFileReplacement> m_file;
};

}  // namespace BxConvert
