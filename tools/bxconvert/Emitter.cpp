#include "Emitter.h"

namespace BxConvert {

std::string Losses::ToText() const {
    struct {
        std::size_t m_count;
        char const* m_name;
    } const rows[] = {
        {m_comments, "comment"},
        {m_instructions, "processing instruction"},
        {m_documentTypes, "document type"},
        {m_references, "entity reference"},
    };
    std::string text;
    for (auto const& [count, name] : rows) {
        if (count == 0) continue;
        if (!text.empty()) text += ", ";
        text += std::to_string(count) + ' ' + name + (count == 1 ? "" : "s");
    }
    return text;
}

}  // namespace BxConvert
