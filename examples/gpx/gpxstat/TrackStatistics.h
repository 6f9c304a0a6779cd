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

/// What is to be told of a track.
struct TrackStatistics {
    int m_points = 0;
    double m_metres = 0;            // on a sphere; the gaps between segments do not count
    Range<std::int64_t> m_seconds;  // since 1970
    BxXmlLib5::CDecimal m_ascent;   // the metres between points that go up, summed
    Range<BxXmlLib5::CDecimal> m_latitudes;
    Range<BxXmlLib5::CDecimal> m_longitudes;
};

/// Makes the statistics of a track, point by point.
class Survey {
public:
    void Include(Gpx::CWpt const& point);
    void EndSegment();

    TrackStatistics const& Result() const { return m_statistics; }

private:
    /// In radians.
    struct Position {
        double m_latitude;
        double m_longitude;
    };

    static double Distance(Position const& from, Position const& to);

    TrackStatistics m_statistics;
    std::optional<Position> m_before;
    std::optional<BxXmlLib5::CDecimal> m_height;  // of the last point with an elevation
};

/// The lines that gpxstat prints, indented.
std::string Text(TrackStatistics const& statistics);

}  // namespace GpxStat
