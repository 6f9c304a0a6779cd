#include "Output.h"

#include "Options.h"

namespace BxConvert {

namespace {

void ThrowFailure(int error) {
    if (error != 0) throw OutputFailure(error, std::generic_category());
}

}  // namespace

void Output::Open() {
    CommandLine::HeldSignals const untilItIsKnown;
    m_file.emplace(m_name == kStandardStream ? std::string_view("/dev/stdout") : m_name);
    if (!m_file->GetUnfinished().empty()) m_removed.emplace(m_file->GetUnfinished());
}

void Output::Write(std::span<unsigned char const> octets) {
    if (!m_file) Open();
    m_file->Write(octets);
    ThrowFailure(m_file->Error());
}

void Output::Finish() {
    Write({});
    CommandLine::HeldSignals const untilItIsInPlace;
    ThrowFailure(m_file->Finish());
    m_removed.reset();
}

}  // namespace BxConvert
