// What reading Fast Infoset gives.
#pragma once

#include "document/Trees.h"
#include "fastinfoset/Octets.h"

namespace BxTest {

inline std::string OctetsOf(std::string const& notation) {
    Octets const octets = FromHex(notation);
    return {octets.begin(), octets.end()};
}

/// A text of at most 64 octets behind its length.
inline std::string LiteralOf(BxXmlLib5::wstring const& text) {
    std::string const octets = ToUtf8(text);
    return ToHex(std::string(1, static_cast<char>(octets.size() - 1))) + "'" + octets + "' ";
}

inline std::string const kHeader = "E0 00 00 01 00 ";

/// The message without what all of them begin with, or the tree.
inline std::string Read(std::string const& octets) {
    std::string const outcome = Outcome([&](auto& document) { Load(kOctets, document, octets); });
    std::string const common = "Failed to parse FastInfoset. ";
    return outcome.starts_with(common) ? "! " + outcome.substr(common.size()) : outcome;
}

/// Expects the outcome of each row, "notation => outcome", behind a header.
inline void ExpectReads(std::vector<std::string> const& rows, std::string const& header = kHeader) {
    for (std::string const& row : rows) {
        std::size_t const arrow = row.rfind(" => ");
        EXPECT_EQ(Read(OctetsOf(header + row.substr(0, arrow))), row.substr(arrow + 4)) << row.substr(0, 200);
    }
}

}  // namespace BxTest
