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
