#include "Output.h"

#include "Options.h"

namespace BxConvert {

namespace {

void ThrowFailure(int error) {
    if (error != 0) throw OutputFailure(error, std::generic_category());
}

}  // namespace

void Output::Write(std::span<unsigned char const> octets) {
    if (!m_file) m_file.emplace(m_name == kStandardStream ? std::string_view("/dev/stdout") : m_name);
    m_file->Write(octets);
    ThrowFailure(m_file->Error());
}

void Output::Finish() {
    Write({});
    ThrowFailure(m_file->Finish());
}

}  // namespace BxConvert
