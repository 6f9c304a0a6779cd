#include "BxXmlLib5/core/CBxLocation.h"

#include <string>
#include <utility>

namespace BxXmlLib5 {

CBxLocation::CBxLocation() = default;

CBxLocation::CBxLocation(wstring path, std::size_t line, std::size_t column)
    : m_path(std::move(path)), m_line(line), m_column(column) {}

bool CBxLocation::IsKnown() const {
    return m_line != 0 || !m_path.empty();
}

wstring CBxLocation::GetPath() const {
    return m_path;
}

std::size_t CBxLocation::GetLine() const {
    return m_line;
}

std::size_t CBxLocation::GetColumn() const {
    return m_column;
}

wstring CBxLocation::ToString() const {
    wstring text;
    if (m_line != 0) text += FromUtf8(std::to_string(m_line));
    if (m_line != 0 && m_column != 0) text += u':' + FromUtf8(std::to_string(m_column));
    if (!text.empty() && !m_path.empty()) text += u": ";
    return text += m_path;
}

}  // namespace BxXmlLib5
