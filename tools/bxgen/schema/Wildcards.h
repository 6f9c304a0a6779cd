// Sets of namespaces that wildcards stand for.
#pragma once

#include <optional>

#include "schema/Components.h"

namespace BxGen {

/// The namespaces that both allow (XML Schema Part 1, section 3.10.6); the rest is that of the first. Nothing if no
/// wildcard can say it.
std::optional<Wildcard> Intersection(Wildcard const& first, Wildcard const& second);

/// The namespaces that one of them allows; the rest is that of the first. Nothing if no wildcard can say it.
std::optional<Wildcard> Union(Wildcard const& first, Wildcard const& second);

/// True if all that the first allows is allowed by the second.
bool IsSubset(Wildcard const& first, Wildcard const& second);

}  // namespace BxGen
