#include "platform/UnitScan.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace BxXmlLib5;

// A unit below the bound is found wherever it stands, and no other is, whatever it stands beside.
TEST(UnitScan, FindsUnitsBelowABound) {
    for (char16_t const other : {u'!', u'0', u'\x7F', u'\x8000', u'\xD800', u'\xFFFF'}) {
        for (std::size_t size = 0; size < 14; ++size) {
            auto const hasBlank = [](std::u16string const& text) {
                return HasUnit(text, [](std::uint64_t units) { return UnitsBelow(units, u' ' + 1); });
            };
            std::u16string const text(size, other);
            EXPECT_FALSE(hasBlank(text)) << size << ' ' << int{other};
            for (std::size_t at = 0; at < size; ++at) {
                for (char16_t const unit : {u'\0', u'\r', u' '}) {
                    std::u16string with = text;
                    with[at] = unit;
                    EXPECT_TRUE(hasBlank(with)) << size << ' ' << at << ' ' << int{other} << ' ' << int{unit};
                }
            }
        }
    }
}

}  // namespace
