#include "BxXmlLib5/platform/Text.h"

#include "platform/Utf.h"

namespace BxXmlLib5 {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] < 0x80) {
            result.push_back(static_cast<char>(text[at++]));
            continue;
        }
        char32_t const c = Utf::Next(text, at);
        Utf::Append(result, c == Utf::kMalformed ? kReplacement : c);
    }
    return result;
}

wstring FromUtf8(std::string_view octets) {
    wstring result;
    result.reserve(octets.size());
    for (std::size_t at = 0; at < octets.size();) {
        if (static_cast<unsigned char>(octets[at]) < 0x80) {
            result.push_back(static_cast<unsigned char>(octets[at++]));
            continue;
        }
        char32_t const c = Utf::Next(octets, at);
        Utf::Append(result, c == Utf::kMalformed ? kReplacement : c);
    }
    return result;
}

}  // namespace BxXmlLib5
