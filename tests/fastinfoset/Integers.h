// The boundaries of each kind of integer with their octets (ITU-T X.891, C.21 to C.28), for reading and for
// writing.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>

#include "fastinfoset/IntegerForms.h"
#include "fastinfoset/Octets.h"

namespace BxTest {

struct Boundary {
    std::uint64_t m_value;
    char const* m_octets;  // the bits before the one on which the integer starts being 0
};

/// Calls test(forms, boundary) for each boundary of each kind.
template <class Test>
void ForEachBoundary(Test test) {
    using namespace BxXmlLib5::FastInfoset;
    auto const kind = [&test](char const* name, auto const& forms,
                              std::initializer_list<Boundary> boundaries) {
        for (Boundary const& boundary : boundaries) {
            SCOPED_TRACE(std::string(name) + ' ' + std::to_string(boundary.m_value));
            test(forms, boundary);
        }
    };
    kind("C.21", kSequenceLength, {{128, "7F"}, {129, "80 00 00"}, {1'048'704, "8F FF FF"}});
    kind("C.22", kLengthOnSecondBit, {{64, "3F"}, {65, "40 00"}, {320, "40 FF"}, {321, "60 00 00 00 00"}});
    kind("C.23", kLengthOnFifthBit, {{8, "07"}, {9, "08 00"}, {264, "08 FF"}, {265, "0C 00 00 00 00"}});
    kind("C.24", kLengthOnSeventhBit, {{2, "01"}, {3, "02 00"}, {258, "02 FF"}, {259, "03 00 00 00 00"}});
    kind("C.25", kIndexOnSecondBit, {{64, "3F"}, {65, "40 00"}, {8'256, "5F FF"}, {8'257, "60 00 00"}});
    kind("C.27", kIndexOnThirdBit, {{32, "1F"}, {33, "20 00"}, {2'080, "27 FF"}, {2'081, "28 00 00"}});
    kind("C.27", kIndexOnThirdBit, {{526'368, "2F FF FF"}, {526'369, "30 00 00 00"}});
    kind("C.28", kIndexOnFourthBit, {{16, "0F"}, {17, "10 00"}, {1'040, "13 FF"}, {1'041, "14 00 00"}});
    kind("C.28", kIndexOnFourthBit, {{263'184, "17 FF FF"}, {263'185, "18 00 00 00"}});
}

}  // namespace BxTest
