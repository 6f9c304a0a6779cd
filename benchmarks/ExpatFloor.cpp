#include "ExpatFloor.h"

#include <expat.h>

#include <memory>

namespace BxBench {

namespace {

using Parser = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

Parser WithEmptyHandlers() {
    Parser parser(XML_ParserCreateNS(nullptr, u'|'), &XML_ParserFree);
    XML_SetElementHandler(
        parser.get(), [](void*, XML_Char const*, XML_Char const**) {}, [](void*, XML_Char const*) {});
    XML_SetNamespaceDeclHandler(
        parser.get(), [](void*, XML_Char const*, XML_Char const*) {}, [](void*, XML_Char const*) {});
    XML_SetCharacterDataHandler(parser.get(), [](void*, XML_Char const*, int) {});
    return parser;
}

}  // namespace

bool ParseWithEmptyHandlers(std::string const& document) {
    Parser const parser = WithEmptyHandlers();
    return XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE) ==
           XML_STATUS_OK;
}

bool ParseSlicesWithEmptyHandlers(std::function<std::size_t(std::span<unsigned char>)> const& source) {
    constexpr int kSlice = 64 * 1024;
    Parser const parser = WithEmptyHandlers();
    for (bool goesOn = true; goesOn;) {
        void* const room = XML_GetBuffer(parser.get(), kSlice);
        std::size_t const count = source({static_cast<unsigned char*>(room), kSlice});
        goesOn = count > 0;
        if (XML_ParseBuffer(parser.get(), static_cast<int>(count), !goesOn) != XML_STATUS_OK) return false;
    }
    return true;
}

}  // namespace BxBench
