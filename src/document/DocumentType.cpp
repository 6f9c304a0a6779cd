#include "document/DocumentType.h"

#include <cstddef>
#include <exception>
#include <string_view>

namespace BxXmlLib5 {

namespace {

/// Puts down the text of a document type.
struct Text {
    explicit Text(XML_Parser parser) : m_parser(parser) {
        XML_SetUserData(parser, this);
        XML_SetDefaultHandler(parser, Add);
        XML_SetXmlDeclHandler(parser, [](void*, XML_Char const*, XML_Char const*, int) {});
        XML_SetCommentHandler(parser, [](void*, XML_Char const*) {});
        XML_SetProcessingInstructionHandler(parser, [](void*, XML_Char const*, XML_Char const*) {});
        XML_SetEndDoctypeDeclHandler(parser, [](void* userData) {
            XML_StopParser(static_cast<Text*>(userData)->m_parser, XML_FALSE);
        });
    }

    static void Add(void* userData, XML_Char const* units, int length) noexcept {
        auto& self = *static_cast<Text*>(userData);
        std::u16string_view const text(Units(units), static_cast<std::size_t>(length));
        if (self.m_text.empty()) {
            if (text != u"<!DOCTYPE") return;
            // Those inside belong to it.
            XML_SetCommentHandler(self.m_parser, nullptr);
            XML_SetProcessingInstructionHandler(self.m_parser, nullptr);
        }
        try {
            self.m_text += text;
        } catch (...) {
            self.m_failure = std::current_exception();
            XML_StopParser(self.m_parser, XML_FALSE);
        }
    }

    XML_Parser m_parser;
    wstring m_text;
    std::exception_ptr m_failure;
};

}  // namespace

wstring DocumentTypeOf(XML_Parser parser, std::span<unsigned char const> prolog) {
    Text type(parser);
    ParsePart(parser, prolog, kNotFinal);
    if (type.m_failure) std::rethrow_exception(type.m_failure);
    type.m_text += u'>';
    NormalizeLineEnds(type.m_text);
    return std::move(type.m_text);
}

}  // namespace BxXmlLib5
