#include "writers/WrittenPlace.h"

#include "core/FailurePlace.h"
#include "writers/CPathWriter.h"

namespace BxXmlLib5 {

void MarkNext(CBxException& failure, std::u16string_view name, Step step) {
    auto const place = CFailurePlace::Copy(failure);
    if (!place->m_next.empty()) return;
    place->m_next = name;
    place->m_isNextAttribute = step == Step::Attribute;
    CFailurePlace::Set(failure, place);
}

void MarkRepeated(CBxException& failure, std::u16string_view name) {
    auto const place = CFailurePlace::Copy(failure);
    place->m_repeated.emplace_back(name);
    CFailurePlace::Set(failure, place);
}

void LocateWritten(CBxException& failure, CPathWriter const& path) {
    auto const place = CFailurePlace::Copy(failure);
    place->m_location = CBxLocation(path.Path({place->m_next, place->m_isNextAttribute}, place->m_repeated));
    place->m_next.clear();
    place->m_repeated.clear();
    CFailurePlace::Set(failure, place);
}

}  // namespace BxXmlLib5
