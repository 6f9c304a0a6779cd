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

/// A peak of memory of a piece of work, without its input, as the ratio to the octets of the GPX document of
/// 10 MB, and what it should be at most; 0 for no aim.
struct Peak {
    std::string m_name;
    double m_aim;
    /// @param input the document as XML, or as Fast Infoset if that is asked for
    std::function<void(std::string const& input)> m_work;
    bool m_takesFastInfoset = false;
};

/// The time of a piece of work on a document of 50 MB, as the ratio to that on one of 1 MB, each in a process of
/// its own: one that reads many small documents has memory to reuse, which it could not for a large one.
struct Growth {
    std::string m_name;
    /// @param input the document as XML, or as Fast Infoset if that is asked for
    std::function<void(std::string const& input)> m_work;
    bool m_takesFastInfoset = false;
};

/// A program that works on the GPX document of 10 MB in a file, or on that of 1 GB where "Gigabyte" is asked for: its
/// time as the ratio to the floor, and its memory as that to 20 MB.
struct Command {
    std::string m_name;
    /// The program and its arguments, where kTextFile and kFastInfosetFile stand for the document.
    std::vector<std::string> m_words;
    double m_aim = 0;
    bool m_isOfAnySize = true;  ///< false if it holds the whole document
};
inline constexpr char kTextFile[] = "{text}";
inline constexpr char kFastInfosetFile[] = "{Fast Infoset}";

/// The octets of a document in one form; the report gives them as a ratio to those of the first row, too.
struct Size {
    std::string m_name;
    std::function<std::size_t()> m_octets;
};

/// The GPX document of this many octets in another form, which stays.
std::string const& GpxAsFastInfoset(std::size_t octets);

/// A static object of these in any source adds its rows to the report.
struct Aims {
    explicit Aims(std::vector<Ratio> const& rows);
};
struct PeakAims {
    explicit PeakAims(std::vector<Peak> const& rows);
};
struct Growths {
    explicit Growths(std::vector<Growth> const& rows);
};
struct Commands {
    explicit Commands(std::vector<Command> const& rows);
};
struct Sizes {
    explicit Sizes(std::vector<Size> const& rows);
};

}  // namespace BxBench
