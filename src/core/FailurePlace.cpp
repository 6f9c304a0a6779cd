#include "core/FailurePlace.h"

#include <string>

namespace BxXmlLib5 {

void AddPathStep(wstring& path, std::u16string_view name, std::size_t position) {
    path += u'/';
    path += name;
    if (position != 0) path += u'[' + FromUtf8(std::to_string(position)) + u']';
}

void AddPathAttribute(wstring& path, std::u16string_view name) {
    path += u"/@";
    path += name;
}

}  // namespace BxXmlLib5
