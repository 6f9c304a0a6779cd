// The failure of a tree that is too deep, which readers, writers and walks share.
#pragma once

namespace BxXmlLib5 {

/// @throws CBxException always, for elements nested more than kMaxElementDepth levels deep
[[noreturn]] void ThrowNestedTooDeeply();

}  // namespace BxXmlLib5
