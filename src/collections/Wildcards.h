// What the collections of untyped content take from a schema wildcard.
#pragma once

#include <string_view>

#include "BxXmlLib5/core/CSharedText.h"

namespace BxXmlLib5 {

/// The namespace that a collection was given or, if that is empty, the first token of its restriction where
/// that is a concrete namespace; empty for none.
std::u16string_view DefaultNamespace(std::u16string_view ns, std::u16string_view namespaceRestriction);

/// The restriction that allows every namespace.
CSharedText const& AnyNamespace();

}  // namespace BxXmlLib5
