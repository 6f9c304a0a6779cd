#include "document/RecordPath.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"

namespace BxXmlLib5 {

std::vector<RecordStep> ParseRecordPath(std::u16string_view path, bool hasPrefixes) {
    auto const refuse = [path](char16_t const* reason = u"") {
        throw CBxInvalidParamException(
            FormatString(u"[%s] is no path from a root to records%s", wstring(path).c_str(), reason));
    };
    std::vector<RecordStep> steps;
    std::u16string_view rest = path;
    if (rest.starts_with(u'/')) rest.remove_prefix(1);
    for (bool goesOn = true; goesOn;) {
        RecordStep& step = steps.emplace_back();
        if (rest.starts_with(u'{')) {
            std::size_t const end = rest.find(u'}');
            if (end == rest.npos) refuse();
            step.m_namespaceUri = rest.substr(1, end - 1);
            rest.remove_prefix(end + 1);
        }
        std::size_t const end = rest.find(u'/');
        std::u16string_view const name = rest.substr(0, end);
        if (name.empty()) refuse();
        if (!hasPrefixes && name.find(u':') != name.npos)
            refuse(u": prefixes mean nothing in it, and a namespace stands in braces, {uri}name");
        if (name != u"*") step.m_name = name;
        goesOn = end != rest.npos;
        if (goesOn) rest.remove_prefix(end + 1);
    }
    return steps;
}

}  // namespace BxXmlLib5
