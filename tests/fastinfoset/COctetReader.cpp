#include "fastinfoset/COctetReader.h"

#include <bit>

#include "fastinfoset/Integers.h"
#include "support/Expect.h"

using namespace BxTest;
using BxXmlLib5::FastInfoset::COctetReader;

TEST(COctetReader, Integers) {
    ForEachBoundary([](auto const& forms, Boundary const& boundary) {
        Octets octets = FromHex(boundary.m_octets);
        unsigned own = 0;  // the bits that the integer has of its first octet
        for (auto const& form : forms) own |= form.m_markMask | form.m_valueMask;
        unsigned const others = 0xFF & ~(std::bit_ceil(own + 1) - 1);
        for (unsigned const before : {0U, others}) {
            COctetReader reader{octets};
            auto const first = static_cast<unsigned char>(reader.ReadOctet() | before);
            EXPECT_EQ(reader.ReadInteger(first, forms), boundary.m_value);
            EXPECT_BX_THROW(reader.ReadOctet(), CBxException,
                            "Failed to parse FastInfoset. Unexpected End of File.");
        }
        for (; octets.size() > 1; octets.pop_back()) {
            COctetReader reader{std::span(octets).first(octets.size() - 1)};
            EXPECT_THROW(reader.ReadInteger(reader.ReadOctet(), forms), BxXmlLib5::CBxException);
        }
    });
}

TEST(COctetReader, OctetsThatBeginNoInteger) {
    using namespace BxXmlLib5::FastInfoset;
    auto const invalid = [](auto const& forms, unsigned bits) {
        int count = 0;
        for (unsigned first = 0; first < 1U << bits; ++first) {
            Octets const more(4);
            count += COctetReader(more).ReadInteger(static_cast<unsigned char>(first), forms) == 0;
        }
        return count;
    };
    EXPECT_EQ(invalid(kSequenceLength, 8), 0);
    EXPECT_EQ(invalid(kLengthOnSecondBit, 7), 62);
    EXPECT_EQ(invalid(kLengthOnFifthBit, 4), 6);
    EXPECT_EQ(invalid(kLengthOnSeventhBit, 2), 0);
    EXPECT_EQ(invalid(kIndexOnSecondBit, 7), 0);
    EXPECT_EQ(invalid(kIndexOnThirdBit, 6), 8);
    EXPECT_EQ(invalid(kIndexOnFourthBit, 5), 4);
}
