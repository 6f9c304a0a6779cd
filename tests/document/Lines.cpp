#include <random>

#include "document/CLineCounter.h"
#include "document/Trees.h"
#include "fastinfoset/Reading.h"
#include "support/Octets.h"

using namespace BxTest;

namespace {

/// name:line of each element, in document order.
std::string Lines(CXmlElement const* element) {
    std::string lines;
    for (; element != nullptr; element = element->GetNextSiblingElement()) {
        lines += ToUtf8(element->GetLocalName()) + ":" + std::to_string(element->GetLine()) + " ";
        lines += Lines(element->GetFirstElement());
    }
    return lines;
}

std::string LinesOf(Way way, std::string const& text) {
    CXmlDocument document;
    Load(way, document, text);
    return Lines(document.GetDocumentElement());
}

std::size_t LineByDefinition(wstring const& text, std::size_t place) {
    std::size_t line = 1;
    for (std::size_t i = 0; i < place; ++i) {
        bool const isFirstOfTwo = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if ((text[i] == u'\r' && !isFirstOfTwo) || text[i] == u'\n') ++line;
    }
    return line;
}

}  // namespace

TEST(Lines, OfElements) {
    for (auto const& [text, lines] : std::vector<std::pair<std::string, std::string>>{
             {"<a/>", "a:1 "},
             {"\n\r\n\r<a\n\n><b\n/> <c/>\r\n\r\r<d>\n</d>\n\n<e>\n", "a:4 b:6 c:7 d:10 e:13 "},
             {"<?xml version='1.0'?>\n<!-- \n -->\n<é>𝄞\n<b k='\n𝄞'/><c>x\ny", "é:4 b:5 c:6 "},
             // Of the reference, for what an entity stands for.
             {"<!DOCTYPE a [\n<!ENTITY e '<b/>\n<c/>'>\n<!ENTITY f '\n&e;'>]>\n<a>\n&f;\n<d/></a>",
              "a:6 b:7 c:7 d:8 "}}) {
        for (Way const way : {kOctets, kNarrow, kWide}) EXPECT_EQ(LinesOf(way, text), lines) << text;
    }
    // Beyond what goes to the parser at once.
    std::string const many = Repeat("<b>\n</b>\r", 30000);
    EXPECT_TRUE(LinesOf(kOctets, "<a>" + many + "<c/><").ends_with(" b:59999 c:60001 "));
    EXPECT_EQ(LinesOf(kOctets, OctetsOf("E0 00 00 01 00 3C 00 'a' 3C 00 'b' FF F0")), "a:0 b:0 ");
    static_assert(sizeof(CXmlElement) <= 8 * sizeof(void*));
}

TEST(Lines, OfFailures) {
    for (auto const& [text, place] : std::vector<std::pair<std::string, std::string>>{
             {"<a>\n<b>é</c>", "2:7: mismatched tag at line 2"},
             {"<a/>\r\n\t<b/>", "2:2: junk after document element at line 2"},
             {"<a></b>", "1:6: mismatched tag at line 1"},
             {"\uFEFF<a></b>", "1:6: mismatched tag at line 1"},
             {"\uFEFF \n<a></b>", "2:6: mismatched tag at line 2"}}) {
        for (Way const way : {kOctets, kFile, kNarrow, kWide}) {
            if (way == kWide && text[0] != '<') continue;  // a string has no mark
            CXmlDocument document;
            EXPECT_EQ(Report(document, way, text), place) << way;
        }
    }
}

TEST(Lines, CountedAtRandom) {
    std::mt19937 random(7);
    constexpr std::u16string_view kUnits = u"\n\rxy\x0A0A\x0D0D\x0A00\x0D00";
    for (int round = 0; round < 3000; ++round) {
        bool const isWide = round % 3 != 0;
        std::size_t const highOctet = round % 3 == 1;
        wstring text;
        std::string octets;
        for (std::size_t left = random() % 40; left > 0; --left) {
            text += kUnits[random() % (isWide ? kUnits.size() : 4)];
            char const pair[] = {static_cast<char>(text.back() >> 8), static_cast<char>(text.back())};
            if (isWide) octets += pair[highOctet];
            octets += pair[isWide ? 1 - highOctet : 1];
        }
        if (isWide && round % 5 == 0) octets += '\n';  // half of a unit
        std::size_t const unit = isWide ? 2 : 1;
        CLineCounter lines(AsOctets(octets), isWide ? std::optional(highOctet) : std::nullopt);
        for (std::size_t place = 0; place < text.size(); place += 1 + random() % 4)
            ASSERT_EQ(lines.LineAt(place * unit), LineByDefinition(text, place)) << round;
    }
}
