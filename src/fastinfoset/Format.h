// The octets of Fast Infoset (ITU-T X.891) that the reader and the writer share.
#pragma once

#include <array>
#include <string_view>

#include "BxXmlLib5/core/Enumerations.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5::FastInfoset {

/// An octet by its bits, written as in the standard: 0 and 1 are fixed, a dot is any bit.
struct OctetPattern {
    unsigned char m_octet = 0;  // the fixed bits, the others being 0
    unsigned char m_mask = 0;   // where they are

    consteval OctetPattern(std::string_view bits) {
        if (bits.size() != 8) throw "an octet has eight bits";
        for (char const bit : bits) {
            m_octet = static_cast<unsigned char>(m_octet << 1 | (bit == '1'));
            m_mask = static_cast<unsigned char>(m_mask << 1 | (bit != '.'));
        }
    }

    constexpr bool Matches(unsigned octet) const { return (octet & m_mask) == m_octet; }
};

/// 12.3: what may stand ahead of a document, in UTF-8, by its FInfoDecl.
inline constexpr std::array<std::string_view, 10> kDeclarations = {
    "",
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};
static_assert(kDeclarations[fi_Version11StandaloneNo].ends_with("'1.1' encoding='finf' standalone='no'?>"));

// 12: the identification and the version of the format, then the document (C.2).
inline constexpr std::array<unsigned char, 4> kIdentification = {0xE0, 0x00, 0x00, 0x01};
inline constexpr unsigned char kNoOptionalComponents = 0x00;

// 7.2: built-in entries of the vocabulary tables, which have index 1, the alphabets 1 and 2.
inline constexpr std::u16string_view kBuiltInPrefix = u"xml";
inline constexpr std::u16string_view kBuiltInNamespace = kXmlNamespace;
inline constexpr std::array<std::u16string_view, 2> kBuiltInAlphabets = {
    u"0123456789-+.E ",  // 9.1: numeric
    u"0123456789-:TZ ",  // 9.2: date and time
};

// C.2 and C.3: the first octet of each item of a document or an element.
inline constexpr OctetPattern kElement{"0......."};
inline constexpr OctetPattern kCharacterChunk{"10......"};
inline constexpr OctetPattern kNotation{"110000.."};
inline constexpr OctetPattern kDocumentType{"110001.."};
inline constexpr OctetPattern kUnexpandedEntityReference{"110010.."};
inline constexpr OctetPattern kNamespaceAttribute{"110011.."};
inline constexpr OctetPattern kUnparsedEntity{"1101000."};
inline constexpr OctetPattern kProcessingInstruction{"11100001"};
inline constexpr OctetPattern kComment{"11100010"};

// A terminator has four bits. One that stands alone is padded to the octet; where two meet they share it.
inline constexpr unsigned char kTerminator = 0xF0;
inline constexpr unsigned char kTwoTerminators = 0xFF;

// C.3: an element's first octet, which goes on with its name unless namespace attributes come first.
inline constexpr unsigned char kHasAttributes = 0x40;
inline constexpr OctetPattern kNamespaceAttributesFollow{"..1110.."};

// C.3 and C.4: a name given in full, and an attribute. Any other element's name, on the third bit, or
// attribute's, on the second, is an index.
inline constexpr OctetPattern kLiteralElementName{"..1111.."};
inline constexpr OctetPattern kAttribute{"0......."};
inline constexpr OctetPattern kLiteralAttributeName{"01111..."};

// C.12, C.17, C.18: what a name that is given in full, or a namespace attribute, consists of.
inline constexpr unsigned char kHasPrefix = 0x02;
inline constexpr unsigned char kHasNamespace = 0x01;

// C.13, C.14: a string that starts on the first bit.
inline constexpr unsigned char kIndexOnFirstBit = 0x80;
inline constexpr unsigned char kAddToTableOnFirstBit = 0x40;  // C.14 alone; C.13 always adds
inline constexpr unsigned char kEmptyString = 0xFF;           // C.26: index zero

// C.15: a string that starts on the third bit.
inline constexpr unsigned char kIndexOnThirdBitFollows = 0x20;
inline constexpr unsigned char kAddToTableOnThirdBit = 0x10;

/// C.19, C.20: the two bits that tell how a string is encoded.
enum StringEncoding : unsigned char {
    se_Utf8 = 0,
    se_Utf16 = 1,
    se_RestrictedAlphabet = 2,
    se_Algorithm = 3,
};

}  // namespace BxXmlLib5::FastInfoset
