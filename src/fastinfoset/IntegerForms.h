// How integers are encoded at the bit positions of an octet at which they can start (ITU-T X.891, C.21 to
// C.28). The reader and the writer both follow these tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace BxXmlLib5::FastInfoset {

/// One form of an integer. The bits of its first octet are written as in the standard: 0 and 1 tell the form, v
/// begins the value less m_base, most significant bit first, - is neither. More octets continue the value.
struct IntegerForm {
    unsigned char m_mark = 0;       // the bits that tell the form
    unsigned char m_markMask = 0;   // where they are
    unsigned char m_valueMask = 0;  // where the value begins; these are the lowest bits if there are any
    int m_moreOctets = 0;
    std::uint32_t m_base = 0;  // the lowest integer of the form

    consteval IntegerForm(std::string_view bits, int moreOctets, std::uint32_t base)
        : m_moreOctets(moreOctets), m_base(base) {
        for (char const bit : bits) {
            if (std::string_view("01v-").find(bit) == std::string_view::npos) throw "no such bit";
            m_mark = static_cast<unsigned char>(m_mark << 1 | (bit == '1'));
            m_markMask = static_cast<unsigned char>(m_markMask << 1 | (bit == '0' || bit == '1'));
            m_valueMask = static_cast<unsigned char>(m_valueMask << 1 | (bit == 'v'));
        }
    }

    constexpr bool Matches(unsigned octet) const { return (octet & m_markMask) == m_mark; }
};

/// The forms of one kind of integer, by ascending base: an integer takes the last one that begins at or below
/// it. An octet that matches none is no integer of the kind.
template <std::size_t kCount>
using IntegerForms = std::array<IntegerForm, kCount>;

/// The indices of vocabulary tables end here (C.25). A table that is full takes nothing more, and a string
/// stays without an index then; a qualified name takes none either if a part of it has none.
inline constexpr std::uint32_t kMaxIndex = 1 << 20;

// C.21: number of items of a sequence.
inline constexpr IntegerForms<2> kSequenceLength{{
    {"0vvvvvvv", 0, 1},
    {"1---vvvv", 2, 129},
}};

// C.22: octets of a string, starting on the second bit.
inline constexpr IntegerForms<3> kLengthOnSecondBit{{
    {"0vvvvvv", 0, 1},
    {"1000000", 1, 65},
    {"1100000", 4, 321},
}};

// C.23: starting on the fifth bit.
inline constexpr IntegerForms<3> kLengthOnFifthBit{{
    {"0vvv", 0, 1},
    {"1000", 1, 9},
    {"1100", 4, 265},
}};

// C.24: starting on the seventh bit.
inline constexpr IntegerForms<3> kLengthOnSeventhBit{{
    {"0v", 0, 1},
    {"10", 1, 3},
    {"11", 4, 259},
}};

// C.25: index, starting on the second bit. C.26 has 1111111 besides, for zero, which no form here writes.
inline constexpr IntegerForms<3> kIndexOnSecondBit{{
    {"0vvvvvv", 0, 1},
    {"10vvvvv", 1, 65},
    {"11-vvvv", 2, 8'257},
}};

// C.27: starting on the third bit.
inline constexpr IntegerForms<4> kIndexOnThirdBit{{
    {"0vvvvv", 0, 1},
    {"100vvv", 1, 33},
    {"101vvv", 2, 2'081},
    {"110---", 3, 526'369},
}};

// C.28: starting on the fourth bit.
inline constexpr IntegerForms<4> kIndexOnFourthBit{{
    {"0vvvv", 0, 1},
    {"100vv", 1, 17},
    {"101vv", 2, 1'041},
    {"110--", 3, 263'185},
}};

/// Whether each form begins where the one below it ends, so that no integer has two forms or none.
template <std::size_t kCount>
consteval bool Continuous(IntegerForms<kCount> const& forms) {
    std::uint64_t next = 1;
    for (IntegerForm const& form : forms) {
        if (form.m_base != next) return false;
        next += (std::uint64_t{form.m_valueMask} + 1) << 8 * form.m_moreOctets;
    }
    return true;
}

static_assert(Continuous(kSequenceLength));
static_assert(Continuous(kLengthOnSecondBit));
static_assert(Continuous(kLengthOnFifthBit));
static_assert(Continuous(kLengthOnSeventhBit));
static_assert(Continuous(kIndexOnSecondBit));
static_assert(Continuous(kIndexOnThirdBit));
static_assert(Continuous(kIndexOnFourthBit));

}  // namespace BxXmlLib5::FastInfoset
