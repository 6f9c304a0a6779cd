#include "GpxDocument.h"

#include <array>
#include <cstdio>
#include <map>
#include <random>

namespace BxBench {

namespace {

/// A number scaled by a power of ten, with trailing zeros dropped, as devices write positions.
std::string Scaled(long value, int decimals) {
    std::array<char, 32> text;
    long divisor = 1;
    for (int i = 0; i < decimals; ++i) divisor *= 10;
    std::snprintf(text.data(), text.size(), "%ld.%0*ld", value / divisor, decimals, value % divisor);
    std::string result = text.data();
    while (result.back() == '0') result.pop_back();
    if (result.back() == '.') result += '0';
    return result;
}

std::string Time(long second) {
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "2026-05-%02ldT%02ld:%02ld:%02ldZ", 1 + second / 86400 % 28,
                  second / 3600 % 24, second / 60 % 60, second % 60);
    return text.data();
}

std::string Generate(std::size_t octets) {
    std::string document =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" xmlns:s=\"urn:example:sensor\" version=\"1.1\" "
        "creator=\"bench\">\n  <trk>\n    <name>Track</name>\n    <trkseg>\n";
    document.reserve(octets + 1024);
    std::mt19937 random(42);
    long latitude = 476445480;
    long longitude = 91732604;
    long elevation = 43210;
    for (long i = 0; document.size() < octets; ++i) {
        latitude += static_cast<long>(random() % 2001) - 1000;
        longitude += static_cast<long>(random() % 2001) - 1000;
        elevation += static_cast<long>(random() % 101) - 50;
        document +=
            "      <trkpt lat=\"" + Scaled(latitude, 7) + "\" lon=\"" + Scaled(longitude, 7) + "\">\n";
        document += "        <ele>" + Scaled(elevation, 2) + "</ele>\n";
        document += "        <time>" + Time(i) + "</time>\n";
        document += "        <sat>" + std::to_string(5 + random() % 12) + "</sat>\n";
        document += "        <hdop>" + Scaled(static_cast<long>(70 + random() % 200), 2) + "</hdop>\n";
        if (i % 10 == 0) {
            document += "        <extensions>\n          <s:hr>" + std::to_string(90 + random() % 80) +
                        "</s:hr>\n          <s:cad>" + std::to_string(60 + random() % 40) +
                        "</s:cad>\n        </extensions>\n";
        }
        document += "      </trkpt>\n";
    }
    document += "    </trkseg>\n  </trk>\n</gpx>\n";
    return document;
}

}  // namespace

std::string const& GpxDocument(std::size_t octets) {
    static std::map<std::size_t, std::string> s_documents;
    auto const known = s_documents.find(octets);
    return known != s_documents.end() ? known->second
                                      : s_documents.emplace(octets, Generate(octets)).first->second;
}

}  // namespace BxBench
