// What gpxstat finds out about a track.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Gpx.h"

namespace GpxStat {

/// The least and the greatest of what it was shown.
template <class T>
class Range {
public:
    void Include(T const& value) {
        if (!m_least || value < *m_least) m_least = value;
        if (!m_greatest || value > *m_greatest) m_greatest = value;
    }
    explicit operator bool() const { return m_least.has_value(); }
    T const& Least() const { return *m_least; }
    T const& Greatest() const { return *m_greatest; }

private:
    std::optional<T> m_least;
    std::optional<T> m_greatest;
};

struct TrackStatistics {
    int m_points = 0;
    double m_metres = 0;            // on a sphere; the gaps between segments do not count
    Range<std::int64_t> m_seconds;  // since 1970
    BxXmlLib5::CDecimal m_ascent;   // the metres between points that go up, summed
    Range<BxXmlLib5::CDecimal> m_latitudes;
    Range<BxXmlLib5::CDecimal> m_longitudes;
};

TrackStatistics Survey(Gpx::CTrk const& track);

/// The lines that gpxstat prints, indented.
std::string Text(TrackStatistics const& statistics);

}  // namespace GpxStat
