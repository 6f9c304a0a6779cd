// What all readers refuse in the same words.
#pragma once

#include <cstddef>
#include <string_view>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "core/Limits.h"

namespace BxXmlLib5 {

/// @throws CBxException if a document of this size exceeds kMaxInputSize, or less
void ThrowIfInputTooLarge(std::size_t size, std::size_t most = kMaxInputSize);

/// @throws CBxException if the name of a namespace exceeds kMaxNamespaceLength
void ThrowIfNamespaceTooLong(std::u16string_view namespaceUri);

/// @throws CBxException always, for a document without a root
[[noreturn]] void ThrowNoRoot();

/// The message for a root that is another one than it must be.
/// @param namespaceUri null for any
wstring WrongRoot(CXmlName const& root, char16_t const* name, wstring const* namespaceUri);

/// A document breaks off.
class CEndsInElement : public CBxException {
public:
    explicit CEndsInElement(CBxLocation const& end);
};

/// @param open where the innermost element begins that the end lies in
CBxException EndsInside(CBxLocation const& open);

/// @param name of an entity that the document refers to and does not declare
/// @param line of the reference
CBxException EntityIsSkipped(wstring const& name, std::size_t line);

}  // namespace BxXmlLib5
