#include "TrackStatistics.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace GpxStat {

using namespace BxXmlLib5;
using Gpx::CWpt;

namespace {

constexpr double kEarthRadius = 6'371'008.8;  // in metres, the mean of the ellipsoid of WGS 84

double Radians(CDecimal const& degrees) {
    return degrees.ToDouble() * std::numbers::pi / 180;
}

/// The metres along a great circle, by the haversine formula.
double Distance(CWpt const& from, CWpt const& to) {
    double const latitude1 = Radians(*from.Lat);
    double const latitude2 = Radians(*to.Lat);
    double const upward = std::sin((latitude2 - latitude1) / 2);
    double const sideways = std::sin((Radians(*to.Lon) - Radians(*from.Lon)) / 2);
    double const haversine =
        upward * upward + std::cos(latitude1) * std::cos(latitude2) * sideways * sideways;
    return 2 * kEarthRadius * std::asin(std::min(1.0, std::sqrt(haversine)));
}

void IncludePoint(TrackStatistics& statistics, CWpt const& point) {
    ++statistics.m_points;
    statistics.m_latitudes.Include(*point.Lat);
    statistics.m_longitudes.Include(*point.Lon);
    if (point.Time) statistics.m_seconds.Include(point.Time->GetTime());
}

void IncludeSegment(TrackStatistics& statistics, Gpx::CTrkseg const& segment) {
    CWpt const* before = nullptr;
    CWpt const* lower = nullptr;  // the last point with an elevation
    for (CWpt const& point : segment.Trkpt) {
        IncludePoint(statistics, point);
        if (before != nullptr) statistics.m_metres += Distance(*before, point);
        before = &point;
        if (!point.Ele) continue;
        if (lower != nullptr && *point.Ele > *lower->Ele) statistics.m_ascent += *point.Ele - *lower->Ele;
        lower = &point;
    }
}

template <class... Values>
std::string Line(char const* format, Values... values) {
    std::array<char, 256> line;
    std::snprintf(line.data(), line.size(), format, values...);
    return line.data();
}

std::string DurationText(Range<std::int64_t> const& seconds) {
    if (!seconds) return "unknown";
    std::int64_t const count = seconds.Greatest() - seconds.Least();
    return Line("%" PRId64 ":%02d:%02d", count / 3600, static_cast<int>(count / 60 % 60),
                static_cast<int>(count % 60));
}

std::string BoundsText(TrackStatistics const& statistics) {
    if (!statistics.m_latitudes) return "none";
    auto const position = [](CDecimal const& latitude, CDecimal const& longitude) {
        return ToUtf8(latitude.ToString() + u' ' + longitude.ToString());
    };
    return position(statistics.m_latitudes.Least(), statistics.m_longitudes.Least()) + " to " +
           position(statistics.m_latitudes.Greatest(), statistics.m_longitudes.Greatest());
}

}  // namespace

TrackStatistics Survey(Gpx::CTrk const& track) {
    TrackStatistics statistics;
    for (Gpx::CTrkseg const& segment : track.Trkseg) IncludeSegment(statistics, segment);
    return statistics;
}

std::string Text(TrackStatistics const& statistics) {
    return "  points: " + std::to_string(statistics.m_points) +
           Line("\n  length: %.3f km", statistics.m_metres / 1000) +
           "\n  duration: " + DurationText(statistics.m_seconds) +
           "\n  ascent: " + ToUtf8(statistics.m_ascent.ToString()) +
           " m\n  bounds: " + BoundsText(statistics) + "\n";
}

}  // namespace GpxStat
