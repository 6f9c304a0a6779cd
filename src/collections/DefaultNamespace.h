// The default namespace of a collection of untyped content.
#pragma once

#include <string_view>

namespace BxXmlLib5 {

/// The namespace that a collection was given or, if that is empty, the first token of its restriction where
/// that is a concrete namespace; empty for none.
std::u16string_view DefaultNamespace(std::u16string_view ns, std::u16string_view namespaceRestriction);

}  // namespace BxXmlLib5
