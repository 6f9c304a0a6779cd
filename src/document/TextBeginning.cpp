#include "document/TextBeginning.h"

#include <algorithm>
#include <string_view>

#include "document/COctetSource.h"

namespace BxXmlLib5 {

bool HasByteOrderMark(std::span<unsigned char const> input) {
    constexpr std::string_view kMarks[] = {"\xEF\xBB\xBF", "\xFE\xFF", "\xFF\xFE",
                                           std::string_view("\0\0\xFE\xFF", 4)};
    std::string_view const beginning(reinterpret_cast<char const*>(input.data()), input.size());
    return std::ranges::any_of(kMarks, [=](std::string_view mark) { return beginning.starts_with(mark); });
}

std::span<unsigned char const> DeclarationOf(std::span<unsigned char const> beginning) {
    auto const some = beginning.first(std::min(beginning.size(), CPeekedSource::kSize));
    auto const end = std::ranges::find(some, '>');
    return some.first(static_cast<std::size_t>(end - some.begin()) + (end == some.end() ? 0 : 1));
}

bool IsNamed(std::u16string_view encoding, std::u16string_view name) {
    auto const upper = [](char16_t c) {
        return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
    };
    return std::ranges::equal(encoding, name, {}, upper);
}

namespace {

/// Whether all that an encoding of that name has is UTF-8.
bool IsUtf8(std::u16string_view encoding) {
    return IsNamed(encoding, u"UTF-8") || IsNamed(encoding, u"US-ASCII");
}

}  // namespace

std::optional<std::size_t> BehindDeclaration(XML_Parser parser, std::span<unsigned char const> beginning) {
    struct Declaration {
        XML_Parser m_parser;
        bool m_isNeeded;
        std::size_t m_end;
    } declaration{parser, false, 0};
    XML_SetUserData(parser, &declaration);
    XML_SetXmlDeclHandler(
        parser, [](void* userData, XML_Char const*, XML_Char const* encoding, int standalone) {
            auto& [self, isNeeded, end] = *static_cast<Declaration*>(userData);
            isNeeded = standalone == 1 || (encoding != nullptr && !IsUtf8(Units(encoding)));
            end = static_cast<std::size_t>(XML_GetCurrentByteIndex(self) + XML_GetCurrentByteCount(self));
        });
    ParsePart(parser, DeclarationOf(beginning), kNotFinal);
    if (declaration.m_end > 0)
        return declaration.m_isNeeded ? std::nullopt : std::optional(declaration.m_end);
    std::string_view text(reinterpret_cast<char const*>(beginning.data()), beginning.size());
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF", kStart = "<?xml", kSpace = " \t\r\n";
    std::size_t const start = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    text.remove_prefix(start);
    bool const isDeclared = text.starts_with(kStart) && text.find_first_of(kSpace) == kStart.size();
    return isDeclared ? std::nullopt : std::optional(start);  // one that Expat refuses, or a very long one
}

}  // namespace BxXmlLib5
