// What all readers refuse in the same words.
#pragma once

#include <cstddef>
#include <string_view>

#include "BxXmlLib5/core/CBxLocation.h"
#include "core/Limits.h"

namespace BxXmlLib5 {

/// @throws CBxException if a document of this size exceeds kMaxInputSize, or less
void ThrowIfInputTooLarge(std::size_t size, std::size_t most = kMaxInputSize);

/// @throws CBxException if the name of a namespace exceeds kMaxNamespaceLength
void ThrowIfNamespaceTooLong(std::u16string_view namespaceUri);

/// @throws CBxException always, for a document without a root
[[noreturn]] void ThrowNoRoot();

/// @throws CBxException always, for a document that breaks off
[[noreturn]] void ThrowEndsInElement(CBxLocation const& end);

}  // namespace BxXmlLib5
