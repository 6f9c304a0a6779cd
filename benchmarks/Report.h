// The ratios that the benchmarks are for.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace BxBench {

/// A figure as the ratio of one benchmark to another of the same run, and what it should be at most; 0 for no
/// aim.
struct Ratio {
    std::string m_benchmark;
    std::string m_floor;
    double m_aim;
};

/// A peak of memory as the ratio to the octets of the input, and what it should be at most; 0 for no aim.
struct Peak {
    std::string m_name;
    std::size_t m_octets;
    double m_aim;
    std::function<void(std::string const& input)> m_work;
};

/// The octets of a document in one form; the report gives them as a ratio to those of the first row, too.
struct Size {
    std::string m_name;
    std::function<std::size_t()> m_octets;
};

/// A static object of these in any source adds its rows to the report.
struct Aims {
    explicit Aims(std::vector<Ratio> const& rows);
};
struct PeakAims {
    explicit PeakAims(std::vector<Peak> const& rows);
};
struct Sizes {
    explicit Sizes(std::vector<Size> const& rows);
};

}  // namespace BxBench
