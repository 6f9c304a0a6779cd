#include "xml/Uri.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace BxGen {

namespace {

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The parts of a reference; queries and fragments belong to the path here.
struct Parts {
    std::string_view m_scheme;     ///< with its colon
    std::string_view m_authority;  ///< with its slashes
    std::string_view m_path;
};

Parts Split(std::string_view uri) {
    Parts parts;
    if (HasScheme(uri)) {
        std::size_t const end = uri.find(':') + 1;
        parts.m_scheme = uri.substr(0, end);
        uri.remove_prefix(end);
    }
    if (uri.starts_with("//")) {
        std::size_t const end = std::min(uri.find('/', 2), uri.size());
        parts.m_authority = uri.substr(0, end);
        uri.remove_prefix(end);
    }
    parts.m_path = uri;
    return parts;
}

/// Takes `.` and `..` out of a path. Those at the start of a relative path stay.
std::string WithoutDots(std::string_view path) {
    bool const isRooted = path.starts_with('/');
    std::vector<std::string_view> segments;
    bool endsInFolder = false;
    for (std::size_t start = isRooted ? 1 : 0; start <= path.size();) {
        std::size_t const end = std::min(path.find('/', start), path.size());
        std::string_view const segment = path.substr(start, end - start);
        start = end + 1;
        endsInFolder = segment == "." || segment == ".." || segment.empty();
        if (segment == "..") {
            if (!segments.empty() && segments.back() != "..") {
                segments.pop_back();
            } else if (!isRooted) {
                segments.push_back(segment);
            }
        } else if (segment != "." && !segment.empty()) {
            segments.push_back(segment);
        }
    }
    std::string result = isRooted ? "/" : "";
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (i > 0) result += '/';
        result += segments[i];
    }
    if (endsInFolder && !segments.empty()) result += '/';
    return result;
}

std::string Unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned octet = 0;
        char const* const digits = text.data() + i + 1;
        if (text[i] == '%' && text.size() - i > 2 &&
            std::from_chars(digits, digits + 2, octet, 16).ptr == digits + 2) {
            result += static_cast<char>(octet);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

}  // namespace

bool HasScheme(std::string_view uri) {
    std::size_t const colon = uri.find(':');
    if (colon == uri.npos || colon < 2 || !IsLetter(uri[0])) return false;
    return std::ranges::all_of(uri.substr(0, colon), [](char c) {
        return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.';
    });
}

std::string ResolveUri(std::string_view base, std::string_view reference) {
    if (HasScheme(reference)) return std::string(reference);
    Parts const from = Split(base);
    Parts const to = Split(reference);
    std::string result(from.m_scheme);
    if (!to.m_authority.empty()) return result.append(reference);
    result += from.m_authority;
    if (to.m_path.empty()) return result.append(from.m_path);
    if (to.m_path.starts_with('/')) return result + WithoutDots(to.m_path);
    std::string_view const folder = from.m_path.substr(0, from.m_path.rfind('/') + 1);
    return result + WithoutDots(std::string(folder).append(to.m_path));
}

std::optional<std::string> PathOfUri(std::string_view uri) {
    Parts const parts = Split(uri.substr(0, uri.find('#')));
    bool const isHere = parts.m_authority.size() <= 2 || parts.m_authority == "//localhost";
    bool const isFile =
        parts.m_scheme.empty() ? parts.m_authority.empty() : parts.m_scheme == "file:" && isHere;
    if (!isFile || parts.m_path.empty()) return std::nullopt;
    return Unescaped(parts.m_path);
}

std::string UriOfPath(std::string_view path) {
    std::string uri;
    for (char const c : path) {
        switch (c) {
            case '%':
                uri += "%25";
                break;
            case '#':
                uri += "%23";
                break;
            case '?':
                uri += "%3F";
                break;
            default:
                uri += c;
        }
    }
    return uri;
}

}  // namespace BxGen
