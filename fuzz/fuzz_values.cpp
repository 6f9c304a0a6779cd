// A text as a value of each simple type: what it is written as reads as the same value, and is written alike.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "BxXmlLib5/BxXmlLib5.h"
#include "BxXmlLib5/generated/Generated.h"

using namespace BxXmlLib5;

namespace {

void Fail(char const* type, wstring const& first, wstring const& second) {
    std::fprintf(stderr, "%s: [%s] [%s]\n", type, ToUtf8(first).c_str(), ToUtf8(second).c_str());
    std::abort();
}

/// What a kind writes of a text, empty if it refuses it.
wstring Written(std::u16string_view text, ItemType kind) {
    try {
        BxVariant value;
        value.FromString(text, kind, CWhitespaceUtils::ws_Collapse);
        return value.ToString(nullptr);
    } catch (CBxException const&) {
        return {};
    }
}

/// The kinds of BxVariant. Their texts may round, and some are not read (a year of one digit), so this only expects what
/// is read to be written alike.
void TryKinds(std::u16string_view text) {
    for (int kind = it_hexBinary; kind <= it_integer; ++kind) {
        wstring const written = Written(text, static_cast<ItemType>(kind));
        if (written.empty()) continue;
        wstring const again = Written(written, static_cast<ItemType>(kind));
        if (!again.empty() && again != written) Fail(std::to_string(kind).c_str(), written, again);
    }
}

template <class Type>
void TryType(std::u16string_view text) {
    wstring written;
    try {
        written = Generated::TextOf<Type>(Generated::ValueOf<Type>(text));
    } catch (CBxException const&) {
        return;
    }
    wstring const again = Generated::TextOf<Type>(Generated::ValueOf<Type>(written));
    if (again != written) Fail(__PRETTY_FUNCTION__, written, again);
}

template <class... Types>
void TryTypes(std::u16string_view text) {
    (TryType<Types>(text), ...);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    // Octets as characters of Latin-1, so that each input is a text.
    wstring const text(data, data + size);
    TryKinds(text);
    namespace Xs = Generated::Xs;
    TryTypes<Xs::boolean, Xs::decimal, Xs::integer, Xs::long_, Xs::int_, Xs::unsignedLong, Xs::float_,
             Xs::double_, Xs::duration, Xs::dateTime, Xs::date, Xs::time, Xs::gYearMonth, Xs::gYear,
             Xs::gMonthDay, Xs::gDay, Xs::gMonth, Xs::hexBinary, Xs::base64Binary, Xs::token, Xs::Name,
             Xs::NCName, Xs::language, Xs::anyURI, Xs::NMTOKENS>(text);
    return 0;
}
