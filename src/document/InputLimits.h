// The limits of a document that all readers share, as far as they are failures of their own.
#pragma once

#include <cstddef>
#include <string_view>

namespace BxXmlLib5 {

/// @throws CBxException if a document of this size exceeds kMaxInputSize
void ThrowIfInputTooLarge(std::size_t size);

/// @throws CBxException if the name of a namespace exceeds kMaxNamespaceLength
void ThrowIfNamespaceTooLong(std::u16string_view namespaceUri);

}  // namespace BxXmlLib5
