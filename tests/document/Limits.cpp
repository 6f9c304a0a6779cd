#include <gmock/gmock.h>

#include <sstream>

#include "document/Trees.h"

using namespace BxTest;
using namespace std::string_literals;

namespace {

std::string const kTooDeep = " => Elements are nested more than 1024 levels deep, which is the limit";
std::string const kTooManyEntities = " => More than 1024 entities refer to others, which is the limit";
std::string const kTooMuch =
    " => limit on input amplification factor (from DTD and entities) breached at line 1";

/// Entities e0 to e<count>; e0 is a text, each of the others refers to the one before, so many times.
std::string Entities(int count, std::string const& ampersand, int times, std::string const& content) {
    std::ostringstream text;
    text << "<!DOCTYPE a [<!ENTITY e0 'x'>";
    for (int i = 1; i <= count; ++i)
        text << "<!ENTITY e" << i << " '" << Repeat(ampersand + "e" + std::to_string(i - 1) + ";", times)
             << "'>";
    return text.str() + "]>" + content;
}

}  // namespace

TEST(Limits, Depth) {
    std::string const full = Repeat("<a>", 1024), ends = Repeat("</a>", 1023);
    std::string const above = Repeat("a(", 1023), below = Repeat(")", 1023);
    ExpectLoads({full + " => " + above + "a" + below,
                 full + "</a><b/><b></b>" + ends + " => " + above + "a b b" + below, full + "<a>" + kTooDeep,
                 "<!DOCTYPE a [<!ENTITY e '<a/>'>]>" + full + "&e;" + kTooDeep});
    // What was open in one document does not count for the next.
    CXmlDocument document;
    for (int i = 0; i < 2; ++i) EXPECT_EQ(Thrown([&] { document.LoadXml(full.c_str()); }), "nothing");
}

TEST(Limits, OfTheCaller) {
    std::string const binary = "\xE0\0\0\1\0\x3C\0a\x3C\0b\xFF\xF0"s;
    std::string const three = "<a>\n<b/>\n<b>\n</b></a>";
    auto const outcome = [](CDocumentLimits const& limits, std::string const& text, Way way = kOctets) {
        CXmlDocument document;
        document.SetLimits(limits);
        return Report(document, way, text);
    };
    std::string const whole = "a'\n\n'(b b'\n')";
    for (Way const way : {kOctets, kFile, kNarrow})
        EXPECT_EQ(outcome({.m_octets = three.size(), .m_elements = 3, .m_depth = 2}, three, way), whole);
    EXPECT_EQ(outcome({.m_octets = 2 * three.size() + 2}, three, kWide), whole);
    for (Way const way : {kOctets, kFile, kNarrow, kWide}) {
        EXPECT_EQ(outcome({.m_octets = 10}, three, way),
                  "The document has more than 10 octets, which is the limit");
        EXPECT_EQ(outcome({.m_elements = 2}, three, way),
                  "3:1: The document has more than 2 elements, which is the limit");
        EXPECT_EQ(outcome({.m_depth = 1}, three, way),
                  "2:1: Elements are nested more than 1 levels deep, which is the limit");
    }
    EXPECT_EQ(outcome({.m_elements = 2, .m_depth = 2}, binary), "a(b)");
    EXPECT_THAT(outcome({.m_elements = 1}, binary),
                testing::EndsWith("more than 1 elements, which is the limit"));
    EXPECT_THAT(outcome({.m_depth = 1}, binary),
                testing::EndsWith("more than 1 levels deep, which is the limit"));
    // Before anything of that size stands in memory.
    std::string bomb(compressBound(1 << 20), '\0');
    uLongf size = bomb.size();
    std::string const large(1 << 20, ' ');
    compress(reinterpret_cast<Bytef*>(bomb.data()), &size, reinterpret_cast<Bytef const*>(large.data()),
             large.size());
    bomb.resize(size);
    EXPECT_EQ(outcome({.m_octets = 100000}, bomb),
              "The document has more than 100000 octets, which is the limit");
}

TEST(Limits, Entities) {
    ExpectLoads({Entities(1024, "&", 1, "<a k='&e1024;'>&e1024;</a>") + " => a@k=x'x'",
                 Entities(1025, "&#38;", 1, "<a>&e1;</a>") + kTooManyEntities,
                 Entities(30, "&", 10, "<a k='&e30;'/>") + kTooMuch});
}

TEST(Limits, LargeDocuments) {
    std::ostringstream manyAttributes, dump;
    for (int i = 0; i < 100000; ++i) {
        manyAttributes << " k" << i << "='" << i << "'";
        dump << "@k" << i << "=" << i;
    }
    ExpectLoads({"<a" + manyAttributes.str() + "/> => a" + dump.str(),
                 "<a>" + Repeat("<b>x&#13;</b>\n", 200000) + "</a> => a'" + Repeat("\n", 200000) + "'(b'x'" +
                     Repeat(" b'x'", 199999) + ")"},
                {kOctets, kWide});
    ExpectLoads({"<a>\n" + Repeat("<b/>\n", 100000) + "</b> => mismatched tag at line 100002"});
    // Tokens that end near the end of the input, wherever the reader may cut it.
    for (std::size_t const size : std::initializer_list<std::size_t>{60000, 300000}) {
        std::string const before(60000, 'x'), value(size, 'v');
        ExpectLoads({"<a>" + before + "<b k='" + value + "'/></a> => a'" + before + "'(b@k=" + value + ")"});
    }
}

TEST(Limits, WhatADocumentTypeAdds) {
    auto const document = [](int attributes, int elements) {
        std::string text = "<!DOCTYPE r [<!ATTLIST e";
        for (int i = 0; i < attributes; ++i) text += " a" + std::to_string(i) + " CDATA 'value'";
        text += ">]><r>";
        for (int i = 0; i < elements; ++i) text += "<e/>";
        return text + "</r>";
    };
    CXmlDocument loaded;
    loaded.LoadXml(document(100, 1000).c_str());
    EXPECT_EQ(loaded.GetDocumentElement()->GetFirstElement()->GetAttributes().size(), 100U);
    EXPECT_BX_THROW(
        loaded.LoadXml(document(1000, 1000).c_str()), CBxException,
        "The document type adds more attributes to the elements than a document of this size may have");
    // Expat's time for those of one element grows with the square of their number.
    std::string const alone = "<?xml version='1.0' standalone='yes'?>";
    for (std::string const& start : {alone + "<!DOCTYPE r [<!ENTITY % p SYSTEM 'x'>%p;", "<!DOCTYPE r ["s,
                                     "<!DOCTYPE r SYSTEM 'x' ["s}) {
        for (std::string const& declared :
             {" a CDATA #IMPLIED"s, " a (b|c) #REQUIRED"s, " a CDATA '>\"#'"s, " a CDATA #FIXED \"v' '\""s,
              " a CDATA '" + Repeat("\"#>", 1000) + "'", "><!ATTLIST e a CDATA 'v'"s}) {
            std::string const most = start + "<!ATTLIST e" + Repeat(declared, 1024);
            EXPECT_EQ(Thrown([&] { loaded.LoadXml((most + ">]><r/>").c_str()); }), "nothing") << declared;
            EXPECT_BX_THROW(
                loaded.LoadXml((most + declared + ">]><r/>").c_str()), CBxException,
                "The document type declares more than 1024 attributes of one element, which is the limit");
        }
    }
    // Each counts with 8 units besides its own.
    std::string text =
        "<!DOCTYPE r [<!ATTLIST e a CDATA '" + std::string(4088, 'v') + "'>]><r>" + Repeat("<e/>", 2048);
    EXPECT_EQ(Thrown([&] { loaded.LoadXml(text.c_str()); }), "nothing");
    EXPECT_THROW(loaded.LoadXml((text + "<e/>").c_str()), CBxException);
}

TEST(Limits, Namespaces) {
    auto const document = [](std::size_t length) { return "<a xmlns='" + std::string(length, 'n') + "'/>"; };
    CXmlDocument loaded;
    loaded.LoadXml(document(4096).c_str());
    // The first failure counts, also where another follows before the parser stops.
    for (std::string const& before : {std::string(), Repeat("<a>", 1024)}) {
        EXPECT_BX_THROW(loaded.LoadXml((before + document(4097)).c_str()), CBxException,
                        "A namespace has more than 4096 characters, which is the limit");
    }
}

TEST(Limits, HalvesOfSurrogatePairs) {
    CXmlDocument loaded;
    for (wstring const text : {u"<a>\xD800 </a>", u"<a k='\xD83D\xD83D'/>", u"<a>\xDC00</a>",
                               u"<a>\xD83D\xDE00<b>\xD800 ", u"<a>\xD83D\xDE00<b/>\xD83D\xD83D</a>"}) {
        EXPECT_THROW(loaded.LoadXml(text.c_str()), CBxException) << ToUtf8(text);
    }
}
