// References to files as they stand in documents.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BxGen {

/// True if a reference begins with a scheme ("http:"). A single letter is none.
bool HasScheme(std::string_view uri);

/// Resolves a reference against a base (RFC 3986, section 5.2), both with or without a scheme.
std::string ResolveUri(std::string_view base, std::string_view reference);

/// The path that a reference without a scheme or with the scheme "file" means: without a fragment, escapes replaced.
/// Nothing if it leads elsewhere.
std::optional<std::string> PathOfUri(std::string_view uri);

/// A path as a reference that PathOfUri leads back.
std::string UriOfPath(std::string_view path);

}  // namespace BxGen
