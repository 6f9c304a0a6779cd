// Where bxconvert writes to.
#pragma once

#include <memory>
#include <string>
#include <system_error>

#include "Sink.h"

namespace BxConvert {

/// What went wrong where bxconvert writes to.
class OutputFailure : public std::system_error {
public:
    using std::system_error::system_error;
};

/// A file or a stream, opened when the first octets come. A regular file is replaced by a new one once that is
/// complete; after a failure it is as it was. A symbolic link stays, and the file behind it is replaced. A device, a
/// pipe or an open file under /dev/fd is written to as it is.
///
/// All operations throw OutputFailure.
class Output : public Sink {
public:
    /// @param name as given on the command line
    explicit Output(std::string name);
    ~Output() override;

    void Write(std::span<unsigned char const> octets) override;
    void Finish() override;

private:
    std::string m_name;
    std::unique_ptr<Sink> m_file;
};

}  // namespace BxConvert
