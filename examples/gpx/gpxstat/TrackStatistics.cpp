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

/// The metres along a great circle, by the haversine formula.
double Survey::Distance(Position const& from, Position const& to) {
    double const upward = std::sin((to.m_latitude - from.m_latitude) / 2);
    double const sideways = std::sin((to.m_longitude - from.m_longitude) / 2);
    double const haversine =
        upward * upward + std::cos(from.m_latitude) * std::cos(to.m_latitude) * sideways * sideways;
    return 2 * kEarthRadius * std::asin(std::min(1.0, std::sqrt(haversine)));
}

void Survey::Include(CWpt const& point) {
    ++m_statistics.m_points;
    m_statistics.m_latitudes.Include(*point.Lat);
    m_statistics.m_longitudes.Include(*point.Lon);
    if (point.Time) m_statistics.m_seconds.Include(point.Time->GetTime());
    Position const position{Radians(*point.Lat), Radians(*point.Lon)};
    if (m_before) m_statistics.m_metres += Distance(*m_before, position);
    m_before = position;
    if (!point.Ele) return;
    if (m_height && *point.Ele > *m_height) m_statistics.m_ascent += *point.Ele - *m_height;
    m_height = *point.Ele;
}

void Survey::EndSegment() {
    m_before.reset();
    m_height.reset();
}

std::string Text(TrackStatistics const& statistics) {
    return "  points: " + std::to_string(statistics.m_points) +
           Line("\n  length: %.3f km", statistics.m_metres / 1000) +
           "\n  duration: " + DurationText(statistics.m_seconds) +
           "\n  ascent: " + ToUtf8(statistics.m_ascent.ToString()) +
           " m\n  bounds: " + BoundsText(statistics) + "\n";
}

}  // namespace GpxStat
