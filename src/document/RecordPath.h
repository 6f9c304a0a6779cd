// The path of the records of a document.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

struct RecordStep {
    std::optional<wstring> m_name;          ///< a local name; nothing for any
    std::optional<wstring> m_namespaceUri;  ///< empty for none; nothing for any
};

/// From the root to the records.
/// @param path as CRecordReader takes it
/// @param hasPrefixes whether names keep their prefixes
/// @throws CBxInvalidParamException if it is none
std::vector<RecordStep> ParseRecordPath(std::u16string_view path, bool hasPrefixes);

}  // namespace BxXmlLib5
