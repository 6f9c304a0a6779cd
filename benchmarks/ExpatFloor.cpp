#include "ExpatFloor.h"

#include <expat.h>

namespace BxBench {

bool ParseWithEmptyHandlers(std::string const& document) {
    XML_Parser const parser = XML_ParserCreateNS(nullptr, u'|');
    XML_SetElementHandler(
        parser, [](void*, XML_Char const*, XML_Char const**) {}, [](void*, XML_Char const*) {});
    XML_SetNamespaceDeclHandler(
        parser, [](void*, XML_Char const*, XML_Char const*) {}, [](void*, XML_Char const*) {});
    XML_SetCharacterDataHandler(parser, [](void*, XML_Char const*, int) {});
    XML_Status const status = XML_Parse(parser, document.data(), static_cast<int>(document.size()), XML_TRUE);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK;
}

}  // namespace BxBench
