// bxconvert as its users run it: by its command line.

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <regex>
#include <sstream>
#include <string>
#include <utility>

#include "support/StrictFastInfoset.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace BxTest;
using namespace std::string_literals;

struct Folder : TemporaryFolder {
    Ending Run(std::string const& lines, std::string const& input = {}) const {
        return TemporaryFolder::Run(BXCONVERT, lines, input);
    }
};

std::string const kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
std::string const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

std::string Repeat(std::string const& text, int times) {
    std::string repeated;
    for (; times > 0; --times) repeated += text;
    return repeated;
}

TEST(Convert, WritesWhatItReads) {
    struct Row {
        std::string m_options;
        std::string m_input;
        std::string m_output;
        std::string m_warning;
    };
    std::string const lost = "bxconvert: standard input: warning: Fast Infoset does not keep ";
    std::string const
        external = "<!DOCTYPE a SYSTEM 'x' [<!ENTITY e '1'>]>\n",
        defaults = "<!DOCTYPE a SYSTEM 'x' [<!ATTLIST a k CDATA '1&u;2&v;'><!ATTLIST b k CDATA '&w;'>]>\n",
        start = "<!--c--><?p?><!DOCTYPE a><a x=\"1\">",
        outside = "<!--c-->\n<?p?>\n<!DOCTYPE a>\n<a x=\"1\">",
        subset =
            "<!DOCTYPE a SYSTEM 'x' [<!--c--><?p q?><!ATTLIST a k CDATA 'd'><!ENTITY e '1'> <!ENTITY f SYSTEM 'y'>]>\n";
    std::string attributes;
    for (int i = 0; i < 64; ++i) attributes += " a" + std::to_string(i) + "=\"\"";
    std::string const mostAttributes = Repeat("<b" + attributes + "/>", 4096);
    std::string const mostSeen =
        Repeat("<b/>", 8191);  // with the start of their parent and a text 16,384 events
    std::string const latin1 = "<?xml version='1.0' encoding='iso-8859-1'?>";
    // clang-format off
    Row const rows[] = {
        // Form
        {"", latin1 + start + "\n <b>t</b> <c></c>\n</a><!--d--><?q r?>", kDeclaration + outside + "\n <b>t</b> <c/>\n</a>\n<!--d-->\n<?q r?>\n", ""},
        {"--format", start + "<b>t</b> <c></c>\n</a>", kDeclaration + outside + "\n\t<b>t</b>\n\t<c/>\n</a>\n", ""},
        {"--compact", "<a>\n <b>t</b>\n <!--c-->\n <c/>\n</a>", kDeclaration + "<a><b>t</b><!--c--><c/></a>", ""},
        {"", latin1 + "<!DOCTYPE a SYSTEM 'x'\r\n[\r]>\r\n<a k='\r\n&f;'>\xE4</a>", kDeclaration + "<!DOCTYPE a SYSTEM 'x'\n[\n]>\n<a k='\n&f;'>\xC3\xA4</a>\n", ""},
        {"", "<?xml version='1.0' standalone='yes'?><!DOCTYPE a [<!ENTITY % p SYSTEM 'x'>%p;<!ENTITY e '1'>]><a>&e;</a>",
            kDeclaration + "<!DOCTYPE a [<!ENTITY % p SYSTEM 'x'>%p;<!ENTITY e '1'>]>\n<a>1</a>\n", ""},
        {"", "<?xml version='1.0' standalone='yes'?><!DOCTYPE a [<!ENTITY % p SYSTEM 'x'>%p;<!ATTLIST a k CDATA '1'>]><a/>",
            kDeclaration + "<!DOCTYPE a [<!ENTITY % p SYSTEM 'x'>%p;<!ATTLIST a k CDATA '1'>]>\n<a k=\"1\"/>\n", ""},
        // Text in UTF-8 as it stands
        {"", "\xEF\xBB\xBF<?xml version='1.0' encoding='Us-Ascii' standalone='no'?>\r\n " + subset + "<a k = '1'></a >\n<!--c-->",
            kDeclaration + subset + "<a k = '1'></a >\n<!--c-->\n", ""},
        {"", "\xEF\xBB\xBF" + external + "<a xmlns:p='u&f;'>&e;&f;\xE2\x82\xAC</a>", kDeclaration + external + "<a xmlns:p='u&f;'>&e;&f;\xE2\x82\xAC</a>\n", ""},
        {"--no-namespaces --strict", "<?xml-p?><p:a><![CDATA[<]]></p:a>\n\n", kDeclaration + "<?xml-p?><p:a><![CDATA[<]]></p:a>\n\n", ""},
        {"--declaration=no", "<?xml version='1.0'?>\n<a/>", "<a/>\n", ""},
        {"--compact --format --keep-whitespace --declaration no --declaration yes --encoding utf-16 --encoding utf-8 --to finf --to xml --eol=crlf --eol=lf",
            "<?xml version='1.0'?><a> <b/></a>", kDeclaration + "<a> <b/></a>\n", ""},
        {"--eol crlf", latin1 + "<a>1\n2<!--\n--><b/></a>", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>1\r\n2<!--\r\n--><b/></a>\r\n", ""},
        // Encodings, and the forms that are not text
        {"--encoding utf-16 --declaration no --compact", "<a>\xF0\x9F\x98\x80</a>", "\xFF\xFE<\0a\0>\0\x3D\xD8\x00\xDE<\0/\0a\0>\0"s, ""},
        {"--to finf --compact", "<a>\n<b/></a>", "\xE0\0\0\1\0\x3C\0a\x3C\0b\xFF\xF0"s, ""},
        {"--to finf", "<a> <b/></a>", "\xE0\0\0\1\0\x3C\0a\x90 \x3C\0b\xFF\xF0"s, ""},
        {"--to finf", "\xE0\0\0\1\0\x3C\0a\x97\0\1\xFE\xFD"s + Repeat("\0x"s, 65535) + "\xD8\x3D\x95\xDE\0\xFF"s,
            "\xE0\0\0\1\0\x3C\0a\x83\0\0\xFE\xFC"s + Repeat("x", 65535) + "\x92\1\xF0\x9F\x98\x80\xFF", ""},
        {"--compact --no-namespaces", "\xE0\0\0\1\0\x3F\0p\0u\0a\xFF"s, kDeclaration + "<p:a xmlns:p=\"u\"/>", ""},
        {"--to finf", "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, ""},
        {"--to finf", subset + "<a><!--c--></a>", "\xE0\0\0\1\0\x7C\0a\x78\0k\x40" "d\xF0\xFF"s, lost + "1 comment, 1 document type\n"},
        {"--to finf", "<?p?><?q?><!DOCTYPE a SYSTEM 'x'><a>&e;</a>", "\xE0\0\0\1\0\x3C\0a\xFF"s, lost + "2 processing instructions, 1 document type, 1 entity reference\n"},
        {"--to finf", defaults + "<a><b k='' /></a>", "\xE0\0\0\1\0\x7C\0a\x78\0k\x41" "12\xF0\x7C\0b\0\xFF\xF0\xFF\xF0"s, lost + "1 document type, 2 entity references\n"},
        {"", latin1 + defaults + "<a/>", kDeclaration + defaults + "<a/>\n", ""},
        {"", "\xE0\0\0\1\0\x3C\0a\xFF\xE2\0c"s, kDeclaration + "<a/>\n", ""},
        {"", "\xE0\0\0\1\0\xE2\0c\x3C\0a\xC8\0e\xFF"s, kDeclaration + "<!--c-->\n<a/>\n", "bxconvert: standard input: warning: XML text does not keep 1 entity reference\n"},
        {"", "\xE0\0\0\1\0\xC6\0s\xE1\0p\0q\xF0\x3C\0a\xF0\xE2\0c\xFF\xE2\0d"s, kDeclaration + "<a/>\n<!--c-->\n", "bxconvert: standard input: warning: XML text does not keep 1 document type\n"},
        {"", "\xE0\0\0\1\x20\3\xFF\0\0p\0\0u\1\0a\0k\0\0o\0\0x\0\0v\0\0t\0\0s\0\3\1\1\0\0\0\1\x40\0\x80\xF0\xA0\xE2\x80\xE1\x80\x80\xFF"s,
            kDeclaration + "<p:a xmlns:p=\"u\" k=\"v\">t<!--s--><?o s?></p:a>\n", ""},
        // What is in an element
        {"", latin1 + "<a>1<b>2<c/>3</b>4<b>5</b> </a>", kDeclaration + "<a>1<b>2<c/>3</b>4<b>5</b> </a>\n", ""},
        {"", latin1 + "<a k='&#13;&#10;&#9;&lt;&quot;&amp;' l=''>&#13;&amp;<![CDATA[<&]]>&#10;</a>", kDeclaration + "<a k=\"&#13;&#10;&#9;&lt;&quot;&amp;\" l=\"\">&#13;&amp;&lt;&amp;\n</a>\n", ""},
        {"", latin1 + subset + "<a>&e;&f;&g;</a>", kDeclaration + subset + "<a>1&f;&g;</a>\n", ""},
        {"", latin1 + external + "<a k='&e;&lt;&#65;'><b xmlns:p='u' j='=&amp;' p:k\n = '1\"&f;2&g;&e;' l='&#0038;f;'/></a>",
            kDeclaration + external + "<a k=\"1&lt;A\"><b xmlns:p=\"u\" j=\"=&amp;\" p:k='1\"&f;2&g;&e;' l=\"&amp;f;\"/></a>\n", ""},
        {"--format", external + "<a j='' k=\"&f;'\"><b/></a>", kDeclaration + external + "<a j=\"\" k=\"&f;'\">\n\t<b/>\n</a>\n", ""},
        {"--no-namespaces", latin1 + external + "<a xmlns:p='&f;' k='&g;'/>", kDeclaration + external + "<a xmlns:p='&f;' k='&g;'/>\n", ""},
        {"", latin1 + external + "<a xmlns:p='u&f;'/>", kDeclaration + external + "<a xmlns:p=\"u\"/>\n", "bxconvert: standard input: warning: XML text does not keep 1 entity reference\n"},
        {"--to finf", external + "<a xmlns='&f;u' k='1&f;2&g;'/>", "\xE0\0\0\1\0\x78\xCD\0u\xF0\x3D\x81\0a\x78\0k\x41" "12\xF0\xFF"s, lost + "1 document type, 3 entity references\n"},
        {"--compact", "<a> <b> </b>\xC2\xA0</a>", kDeclaration + "<a> <b> </b>\xC2\xA0</a>", ""},
        {"--format", "<a><b>1<c/></b><d><e> </e>\n</d></a>", kDeclaration + "<a>\n\t<b>1<c/></b>\n\t<d>\n\t\t<e> </e>\n\t</d>\n</a>\n", ""},
        {"--compact", "<a> <b xml:space=\"preserve\"> <c> <d xml:space=\"default\"> <f/></d></c></b> <e xml:space=\"default\"> <f/></e></a>",
            kDeclaration + "<a><b xml:space=\"preserve\"> <c> <d xml:space=\"default\"><f/></d></c></b><e xml:space=\"default\"><f/></e></a>", ""},
        {"--compact --no-namespaces", "<a xml:space='preserve'> <b/></a>", kDeclaration + "<a xml:space=\"preserve\"> <b/></a>", ""},
        {"--compact", "<a> " + mostSeen + "</a>", kDeclaration + "<a>" + mostSeen + "</a>", ""},
        {"--compact", "<a> " + mostSeen + "<b/></a>", kDeclaration + "<a> " + mostSeen + "<b/></a>", ""},
        {"--compact", "<a> " + mostAttributes + "</a>", kDeclaration + "<a>" + mostAttributes + "</a>", ""},
        {"--compact", "<a> " + mostAttributes + "<b k=\"\"/></a>", kDeclaration + "<a> " + mostAttributes + "<b k=\"\"/></a>", ""},
        {"--compact", "<!DOCTYPE a SYSTEM 'x'><a> <b/>&e;</a>", kDeclaration + "<!DOCTYPE a SYSTEM 'x'>\n<a> <b/>&e;</a>", ""},
        // Namespaces
        {"", latin1 + "<p:a xmlns:p=\"u\" p:x=\"1\" x=\"2\"><p:b/></p:a>", kDeclaration + "<p:a xmlns:p=\"u\" p:x=\"1\" x=\"2\"><p:b/></p:a>\n", ""},
        {"", latin1 + "<a xmlns=\"u\"><b xmlns=\"v\" xmlns:q=\"q\"><c xmlns=\"\" k=\"q:T\"/></b><c/></a>",
            kDeclaration + "<a xmlns=\"u\"><b xmlns=\"v\" xmlns:q=\"q\"><c xmlns=\"\" k=\"q:T\"/></b><c/></a>\n", ""},
        {"", latin1 + "<a xml:lang='en' xmlns='&lt;&quot;&amp;&#10;'/>", kDeclaration + "<a xmlns=\"&lt;&quot;&amp;&#10;\" xml:lang=\"en\"/>\n", ""},
        {"--compact --no-namespaces", "<p:a xmlns:p='u?1&amp;2' p:x='1'> <b xmlns='v'/> <undeclared:c/></p:a>",
            kDeclaration + "<p:a xmlns:p=\"u?1&amp;2\" p:x=\"1\"><b xmlns=\"v\"/><undeclared:c/></p:a>", ""},
        {"--to finf", "<a xmlns='u&amp;'><b xmlns=''/></a>", "\xE0\0\0\1\0\x38\xCD\1u&\xF0\x3D\x81\0a\x38\xCC\xF0\x3C\0b\xFF\xF0"s, ""},
        // Fast Infoset that leaves declarations out, or has none that fits
        {"", "\xE0\0\0\1\0\x7D\0u\0a\x79\x81\0k\xFF\xF0\x3C\0b\xF0\0\xFF"s, kDeclaration + "<a xmlns=\"u\" xmlns:ns1=\"u\" ns1:k=\"\"><b xmlns=\"\"/><a/></a>\n", ""},
        {"", "\xE0\0\0\1\0\x38\xCF\0p\0u\xCF\x81\0v\xF0\x3F\x81\x81\0a"
             "\x78\xCF\x81\x82\xF0\x3F\x81\x82\0b\x7B\x81\x81\0k\xFF\xF0\x3F\x81\x81\0c\xFF\x3F\x81\x81\0d\xFF"s,
            kDeclaration + "<p:a xmlns:p=\"u\"><p:b xmlns:p=\"v\" xmlns:ns1=\"u\" ns1:k=\"\"><ns1:c/></p:b><p:d/></p:a>\n", ""},
        {"", "\xE0\0\0\1\0\x38\xCF\0p\0u\xF0\x3F\x81\x81\0a\x38\xCF\x81\0v\xF0\x3C\0b\x3F\x81\x81\0c\xFF\xFF"s,
            kDeclaration + "<p:a xmlns:p=\"u\"><b xmlns:p=\"v\"><p:c xmlns:p=\"u\"/></b></p:a>\n", ""},
        {"", "\xE0\0\0\1\0\x78\xCF\2xml\0u\xCE\0p\xCF\4xmlns\0v\xCF\0q\x80\xF0\x3F\x80\x81\0a\x7B\x81\x80\3lang\xFF\xF0\xFF"s,
            kDeclaration + "<ns1:a xmlns:ns1=\"u\" xml:lang=\"\"/>\n", ""},
        {"", "\xE0\0\0\1\0\x38\xCF\0p\0u\xF0\x3F\x81\x81\0a\x7F\0q\x81\0b\x7B\x81\0v\0k\xFF\xFF\x41\0\xFF\xFF\xF0"s,
            kDeclaration + "<p:a xmlns:p=\"u\"><p:b xmlns:ns1=\"v\" ns1:k=\"\"/><p:b xmlns:ns1=\"v\" ns1:k=\"\"/></p:a>\n", ""},
        {"", "\xE0\0\0\1\0\x38\xCF\0p\0u\xF0\x3F\x81\x81\0a\x38\xCF\0q\x81\xF0\x3C\0b\x78\xCF\x82\0v\xF0\x3C\0c\x79\x81\0k\xFF\xFF\xF0"
             "\x78\xCF\0r\x82\xF0\2\0\xFF\xFF\xF0"s,
            kDeclaration + "<p:a xmlns:p=\"u\"><b xmlns:q=\"u\"><c xmlns:q=\"v\" p:k=\"\"/></b><c xmlns:r=\"v\" p:k=\"\"/></p:a>\n", ""},
        {"", "\xE0\0\0\1\0\x3C\0a\x7C\0b\x79\0u\0k\xFF\xF0\x7C\0c\x79\0v\0k\xFF\xFF\xF0\x41\0\xFF\xFF\xF0"s,
            kDeclaration + "<a><b xmlns:ns1=\"u\" ns1:k=\"\"><c xmlns:ns2=\"v\" ns2:k=\"\"/></b><b xmlns:ns1=\"u\" ns1:k=\"\"/></a>\n", ""},
        {"", "\xE0\0\0\1\0\x38\xCF\2ns1\0v\xF0\x3C\0a\x7C\0b\x79\0u\0k\x44ns1:T\xF0\xFF"s,
            kDeclaration + "<a xmlns:ns1=\"v\"><b xmlns:ns2=\"u\" ns2:k=\"ns1:T\"/></a>\n", ""},
        // Facts instead of the document
        {"--info", "<p:a xmlns:p='u&#10;v' x='1' p:y='2'> <b/>m<b><c/></b></p:a>",
            "form: XML text\nroot: a\nnamespace: u v\nelements: 4\nattributes: 2\ndepth: 3\noctets: 60\n", ""},
        {"--info --no-namespaces", "<p:a xmlns:p='u'/>", "form: XML text\nroot: p:a\nnamespace: (none)\nelements: 1\nattributes: 1\ndepth: 1\noctets: 18\n", ""},
    };
    // clang-format on
    Folder const folder;
    for (auto const& row : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + row.m_options + " -", row.m_input),
                  (Ending{0, row.m_output, row.m_warning}))
            << row.m_options << ' ' << row.m_input.substr(0, 100);
    }
}

TEST(Convert, WritesFastInfosetThatAStrictReaderTakes) {
    std::string const xsi = " xmlns:xsi='" + kXsi + "' ", type = " {" + kXsi + "}type=";
    std::pair<std::string, std::string> const rows[] = {
        {"<a xmlns='u' xmlns:p='v' p:k='1' l='2'><p:b xml:lang='en'/><c xmlns='w'>t</c><d/></a>",
         "<{u}a {v}k=1 l=2><{v}b {http://www.w3.org/XML/1998/namespace}lang=en></><{w}c>t</><{u}d></></>"},
        {"<a xmlns='u'><b xmlns=''/></a>", "<{u}a><b></></>"},
        {"<a><b xmlns='u'><c xmlns=''/></b></a>", "<a><{u}b><c></></></>"},
        {"<a xmlns='&lt;&amp;'/>", "<{<&}a></>"},
        // What a type says stays what it means, and no alias is used twice.
        {"<a" + xsi + "xmlns:ns1='u'><b xsi:type=' ns1:T' xmlns='v'/></a>",
         "<a><{v}b" + type + "{u}T></></>"},
        {"<a" + xsi + "xmlns='u' xsi:type='T'/>", "<{u}a" + type + "T></>"},
        {"<a" + xsi + "xmlns:p='u' xmlns:q='u' xsi:type='p:T'><b xsi:type='q:T'/></a>",
         "<a" + type + "{u}T><b" + type + "{u}T></></>"},
        {"<a" + xsi + "><b xmlns:p='u' xsi:type='p:T'/></a>", "<a><b" + type + "{u}T></></>"},
        {"<a" + xsi + "xsi:type='unbound:T'/>", "! a type whose prefix is not in scope at octet 76"},
    };
    Folder const folder;
    auto const read = [&folder](std::string const& name, std::string const& input = {}) {
        auto const [status, out, errors] = folder.Run("bxconvert --to finf " + name, input);
        return BxTest::CStrictFastInfoset::Read(
            {reinterpret_cast<unsigned char const*>(out.data()), out.size()});
    };
    for (auto const& [input, expected] : rows) EXPECT_EQ(read("-", input), expected) << input;
    for (std::string const file :
         {BX_TRACK, BX_TEST_DATA "/drawing.xml", BX_TEST_DATA "/envelope.xml", BX_TEST_DATA "/feed.xml"}) {
        EXPECT_EQ(read("'" + file + "'").substr(0, 2), "<{") << file;
    }
}

/// In a time that does not grow with their square or cube, which the limit of a test's time shows.
TEST(Convert, MakesAnyNumberOfPrefixes) {
    constexpr int kCount = 50'000;
    std::string bare, named, declarations, attributes;
    for (int i = 1; i <= kCount; ++i) {
        std::string const prefix = "ns" + std::to_string(i), name = "a" + std::to_string(100'000 + i);
        bare += "\x79\6" + name + "\6" + name + "\xFF";
        named += "\xCF" + std::string(1, static_cast<char>(prefix.size() - 1)) + prefix + "\6" + name;
        declarations += " xmlns:" + prefix + "=\"" + name + "\"";
        attributes += " " + prefix + ":" + name + "=\"\"";
    }
    std::string const one = "<b xmlns:ns50001=\"v\" ns50001:k=\"\"/>";
    std::pair<std::string, std::string> const rows[] = {
        {"\x7C\0a"s + bare + "\xF0", "<a" + declarations + attributes + "/>"},
        {"\x38"s + named + "\xF0\x3C\0a\x7C\0b\x79\0v\0k\xFF\xFF"s + Repeat("\x41\0\xFF\xFF"s, kCount) +
             "\xF0",
         "<a" + declarations + ">" + one + Repeat(one, kCount) + "</a>"},
    };
    Folder const folder;
    for (auto const& [infoset, text] : rows) {
        Ending const ending = folder.Run("bxconvert --declaration no -", "\xE0\0\0\1\0"s + infoset + "\xF0");
        EXPECT_TRUE(ending.m_out == text + "\n") << ending.m_errors << ending.m_out.substr(0, 1000);
    }
}

TEST(Convert, BoundsTheTablesOfFastInfoset) {
    std::string input = "<a>";
    auto const add = [&input](int i) {
        std::string const number = std::to_string(i);
        input += "<b k='" + number + "'>" + number + "</b>";
    };
    for (int i = 0; i <= 65'536; ++i) add(i);
    add(65'535);
    add(65'536);
    Ending const ending = Folder().Run("bxconvert - --to finf | tail -c 29", input + "</a>");
    EXPECT_EQ(ending.m_out,
              "\xF0\x41\0\xE0\xDF\xBF\xF0\xB4\xFB\xEF\xF0\x41\0\4"
              "65536\xF0\x82\2"
              "65536\xFF\xF0"s);
}

/// As XML 1.0, 2.11 has it.
std::string WithLineEnds(std::string const& text, std::string const& end) {
    return std::regex_replace(text, std::regex("\r\n?|\n"), end);
}

TEST(Convert, KeepsTextInUtf8AsItStands) {
    std::string const start = "<!DOCTYPE a [\r\n<!ENTITY e '<b>\r</b>'>\r]>\r<a>", end = "</a>\r\n\n";
    char const* const pieces[] = {"\r",        "\r\n",    "\n",       "t",
                                  "&e;",       "&amp;",   "&#13;",    "<![CDATA[<\r\n]]>",
                                  "<!--\r-->", "<?p q?>", "\xC3\xA4", "<c k = '\"'\r\n/>",
                                  "<c></c >"};
    std::minstd_rand random;
    std::string input = start;
    while (input.size() < 300'000) input += pieces[random() % std::size(pieces)];
    input += end;
    Folder const folder;
    EXPECT_EQ(folder.Run("bxconvert -", input), (Ending{0, kDeclaration + WithLineEnds(input, "\n"), ""}));
    EXPECT_EQ(folder.Run("bxconvert --declaration no --eol crlf -", input),
              (Ending{0, WithLineEnds(input, "\r\n"), ""}));
    EXPECT_EQ(
        folder.Run(
            "cat >in; f() { bxconvert --to finf \"$@\" 2>/dev/null; }; bxconvert in | f - >1; f in | cmp - 1",
            input),
        (Ending{0, "", ""}));
}

TEST(Convert, RefusesTextInUtf8AsAnyOther) {
    std::string const entities = "<!DOCTYPE a [<!ENTITY e '&e;'><!ENTITY f '<b>'><!ATTLIST b k CDATA '" +
                                 std::string(10'000, 'x') + "'>]>";
    std::string const rows[] = {
        "<a b='' b=''/>",
        "<p:a/>",
        "<a xmlns:p=''/>",
        "<a>&e;</a>",
        "<a>&#0;</a>",
        "<a>\xED\xA0\x80</a>",
        "<a>]]></a>",
        "<a>\n</b>",
        "<a/><a/>",
        "<a/>t",
        "<?xml version='1.0' encoding='x'?><a/>",
        "<?xml version='1.0' encoding='utf-8' x=''?><a/>",
        " <?xml version='1.0'?><a/>",
        "<?xml version='1.0' encoding='us-ascii'?><a>\xC3\xA4</a>",
        entities + "<a>&e;</a>",
        entities + "<a>&f;</a>",
        entities + "<a>" + Repeat("<b/>", 20'000) + "</a>",
        "<a xmlns='" + std::string(70'000, 'x') + "'/>",
        Repeat("<a>", 70'000),
    };
    Folder const folder;
    for (std::string const& row : rows) {
        Ending const other = folder.Run("bxconvert --compact - -o out", row);
        EXPECT_EQ(other.m_status, 1) << row.substr(0, 100);
        EXPECT_EQ(folder.Run("bxconvert - -o out", row), other);
    }
}

TEST(Convert, WritesTheDeclarationOfFastInfoset) {
    std::pair<char const*, char const*> const rows[] = {
        {"none", ""},
        {"plain", "<?xml encoding='finf'?>"},
        {"yes", "<?xml encoding='finf' standalone='yes'?>"},
        {"no", "<?xml encoding='finf' standalone='no'?>"},
        {"1.0", "<?xml version='1.0' encoding='finf'?>"},
        {"1.0-yes", "<?xml version='1.0' encoding='finf' standalone='yes'?>"},
        {"1.0-no", "<?xml version='1.0' encoding='finf' standalone='no'?>"},
        {"1.1", "<?xml version='1.1' encoding='finf'?>"},
        {"1.1-yes", "<?xml version='1.1' encoding='finf' standalone='yes'?>"},
        {"1.1-no", "<?xml version='1.1' encoding='finf' standalone='no'?>"},
    };
    Folder const folder;
    for (auto const& [name, declaration] : rows) {
        EXPECT_EQ(folder.Run("bxconvert - --to finf --finf-declaration "s + name, "<a/>"),
                  (Ending{0, declaration + "\xE0\0\0\1\0\x3C\0a\xFF"s, ""}));
    }
}

TEST(Convert, ReadsBackTheFormsThatItWrites) {
    struct Row {
        std::string m_options;
        std::string m_form;
        std::string m_start;
    };
    Row const rows[] = {
        {"", "XML text", kDeclaration + "<gpx"},
        {"--encoding utf-16", "XML text", "\xFF\xFE<\0?\0x\0"s},
        {"--encoding utf-16 --compress gzip", "XML text, compressed", "\x1F\x8B\x08"},
        {"--to finf --compress zlib", "Fast Infoset, compressed", "\x78\x01"},
        {"--to finf --finf-declaration 1.1", "Fast Infoset", "<?xml version='1.1' encoding='finf'?>\xE0"},
    };
    Folder const folder;
    for (auto const& [options, form, start] : rows) {
        auto const [status, out, errors] = folder.Run(
            "grep -v '^<!--' '" BX_TRACK
            "' >in; bxconvert in --encoding utf-16 | bxconvert - -o expected; bxconvert in -o form " +
            options +
            "; bxconvert form --encoding utf-16 | bxconvert - | cmp - expected; bxconvert --info form | head -n 1; cat form");
        EXPECT_EQ(out.substr(0, out.find('\n') + 1 + start.size()), "form: " + form + "\n" + start);
        EXPECT_EQ(errors, "") << options;
    }
}

TEST(Convert, RefusesBadDocuments) {
    struct Row {
        std::string m_options;
        std::string m_input;
        std::string m_message;
    };
    std::string const unwritable = "a name or a text has characters that XML text cannot have, before octet ";
    Row const rows[] = {
        {"", "", "Invalid or empty XML document"},
        {"", "\xE0\0\0\1\0\xE2\1--\x3C\0a\xFF"s, unwritable + "9"},
        {"", "\xE0\0\0\1\0\xE2\0-\x3C\0a\xFF"s, unwritable + "8"},
        {"", "\xE0\0\0\1\0\xE2\0\r\x3C\0a\xFF"s, unwritable + "8"},
        {"", "\xE0\0\0\1\0\xE1\0p\0\r\x3C\0a\xFF"s, unwritable + "10"},
        {"", "\xE0\0\0\1\0\xE1\0<\0q\x3C\0a\xFF"s, unwritable + "10"},
        {"", "\xE0\0\0\1\0\xE1\0p\1?>\x3C\0a\xFF"s, unwritable + "11"},
        {"", "\xE0\0\0\1\0\x3F\0<\0u\0a\xFF"s, unwritable + "12"},
        {"", "\xE0\0\0\1\0\x3D\34http://www.w3.org/2000/xmlns/\0a\xFF"s, unwritable + "38"},
        {"", "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, unwritable + "10"},
        {"", "\xE0\0\0\1\0\x3C\0r\x3C\4b/><c\xFF"s, unwritable + "15"},
        {"", "\xE0\0\0\1\0\x3C\1a \xFF"s, unwritable + "9"},
        {"", "\xE0\0\0\1\0\x7C\0a\x78\5k='' l\xFF\xF0\xFF"s, unwritable + "18"},
        {"", "\xE0\0\0\1\0\x3C\0a\x95\xD8\0\xF0\xFF"s, unwritable + "11"},
        {"", "\xE0\0\0\1\0\xE1\2xMl\0q\x3C\0a\xFF"s, unwritable + "12"},
        {"", "\xE0\0\0\1\0\x7C\0a\x78\4xmlns\x40u\xF0\xFF"s, unwritable + "18"},
        {"--to finf", "\xE0\0\0\1\0\x7F\0p\0u\0a\x7B\x81\x81\0k\x40v\x7B\0q\x81\x81\x40w\xF0\xFF"s,
         "An element has two attributes of the same name, before octet 27"},
        {"", "\xE0\0\0\1\0\x3C\0\xC3\xFF"s, "Failed to parse FastInfoset. Invalid UTF-8 string."},
        {"", "\xE0\0\0\1\0\x3C\0a\xF0\x3C\0b\xFF"s,
         "Failed to parse FastInfoset. Invalid Encoding of Element type."},
        {"", "\xE0\0\0\1\x20\x10\0\0x\x3C\0a\xFF"s,
         "Failed to parse FastInfoset. The document needs an external vocabulary."},
        {"--to finf", "\xE0\0\0\1\0\x3C\0a\x95\xD8\0\xF0\xFF"s,
         "A text with half of a surrogate pair has no UTF-8 form, before octet 12"},
        {"--strict --to finf", "<a><!--c--></a><?p?>",
         "Fast Infoset does not keep 1 comment, 1 processing instruction"},
        {"--max-size 16", "<a>          </a>", "The document has more than 16 octets, which is the limit"},
    };
    Folder const folder;
    for (auto const& row : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + row.m_options + " - -o out.xml", row.m_input),
                  (Ending{1, "", "bxconvert: standard input: " + row.m_message + "\n"}))
            << row.m_options << ' ' << row.m_input.substr(0, 100);
    }
    EXPECT_EQ(folder.Run("bxconvert - -o out.xml", "<a>\n<b>"),
              (Ending{1, "", "bxconvert: standard input:2:4: The document ends inside an element\n"}));
    EXPECT_EQ(folder.Run("bxconvert - -o out.xml", "<?xml version='1.0' encoding='Iso-8859-1'?>\n<a\xAA/>"),
              (Ending{1, "", "bxconvert: standard input:2:3: not well-formed (invalid token) at line 2\n"}));
    std::string const marked = "\xEF\xBB\xBF<?xml version='1.0' encoding='Iso-8859-1'?><a>\xC3\xA9</a>";
    EXPECT_EQ(
        folder.Run("bxconvert - -o out.xml", marked),
        (Ending{1, "",
                "bxconvert: standard input:1:1: The text is UTF-8 by its byte order mark, but declares the "
                "encoding [Iso-8859-1]\n"}));
    EXPECT_EQ(folder.Run("bxconvert - -o out.xml", "<a/><!--"),
              (Ending{1, "", "bxconvert: standard input:1:5: unclosed token at line 1\n"}));
    EXPECT_EQ(folder.Run("ls -A"), (Ending{0, "", ""}));
}

TEST(CommandLine, UsageErrors) {
    std::pair<std::string, std::string> const rows[] = {
        {"", "INPUT is missing"},
        {"--nothing in.xml", "unknown option '--nothing'"},
        {"in.xml -o=x", "unknown option '-o=x'"},
        {"- -- --help", "more than one INPUT: '--help'"},
        {"--output-dir= a.xml", "'' is no value of option '--output-dir', which takes DIR"},
        {"--output-dir out a.xml -o b.xml", "option '-o' is not for '--output-dir'"},
        {"--output-dir out --info a.xml", "option '--info' is not for '--output-dir'"},
        {"--output-dir out -", "'-' names no file in '--output-dir'"},
        {"--output-dir out b/a.xml a.xml", "two INPUTs are 'a.xml' in '--output-dir'"},
        {"in.xml -o", "option '-o' needs a value"},
        {"in.xml -o ''", "'' is no value of option '-o', which takes OUTPUT"},
        {"--eol in.xml", "'in.xml' is no value of option '--eol', which takes lf|crlf"},
        {"--declaration= in.xml", "'' is no value of option '--declaration', which takes yes|no"},
        {"--no-namespaces in.xml --to finf",
         "option '--no-namespaces' is not for '--to finf', which knows no prefixes as such"},
        {"--max-size 1KB in.xml", "'1KB' is no value of option '--max-size', which takes OCTETS"},
        {"--compact=yes in.xml", "option '--compact' takes no value"},
        {"'--two\nlines'", "unknown option '--two lines'"},
    };
    Folder const folder;
    folder.Write("in.xml", "<a/>");
    for (auto const& [arguments, message] : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + arguments),
                  (Ending{2, "", "bxconvert: " + message + ". Try 'bxconvert --help'.\n"}))
            << arguments;
    }
}

TEST(CommandLine, HelpAndVersion) {
    Folder const folder;
    EXPECT_EQ(folder.Run("bxconvert --version"), (Ending{0, "bxconvert " BX_VERSION "\n", ""}));
    EXPECT_EQ(folder.Run("bxconvert -V"), folder.Run("bxconvert --version"));
    EXPECT_EQ(folder.Run("bxconvert -h"), folder.Run("bxconvert --help"));
    auto const [status, help, errors] = folder.Run("bxconvert --help");
    EXPECT_EQ(status, 0);
    for (char const* const text :
         {"Usage: bxconvert", "-o OUTPUT", "--eol lf|crlf", "--to xml|finf", "--encoding utf-8|utf-16",
          "--declaration yes|no", "--compress none|gzip|zlib", "|1.1-no\n", "--keep-whitespace",
          "--max-size OCTETS", "xml:space"}) {
        EXPECT_NE(help.find(text), std::string::npos) << text;
    }
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
}

TEST(Files, AreReadAndWritten) {
    std::string const a = "<a/>\n";
    auto const fails = [](std::string const& message, std::string const& out = {}) {
        return Ending{1, out, "bxconvert: " + message + "\n"};
    };
    // Each runs in a folder with in.xml, bad.xml and old.xml. A last command that succeeds hides the status
    // before it.
    // clang-format off
    std::pair<std::string, Ending> const rows[] = {
        // Input
        {"B in.xml", {0, a, ""}},
        {"mv in.xml ./-x; B -- -x", {0, a, ""}},
        {"f=$(printf '\\303\\244\\360\\237\\230\\200'); cp in.xml $f; B $f", {0, a, ""}},
        {"f=$(printf 'x\\377y'); cp in.xml $f; B $f", {0, a, ""}},
        {"B --info in.xml | grep octets", {0, "octets: 25\n", ""}},
        {"mkfifo f; cat in.xml >f & B f", {0, a, ""}},
        {"B in.xml <&-; B - <&-", fails("standard input: Bad file descriptor", a)},
        {"B none.xml", fails("none.xml: No such file or directory")},
        {"B .", fails(".: Is a directory")},
        {"B --compress gzip in.xml | gunzip", {0, a, ""}},
        {"(echo '<a>'; yes ' ' | head -c 3000000; echo '</a>') | gzip >bomb; B --max-size 2M bomb -o old.xml; cat old.xml",
            {0, "old", "bxconvert: bomb: The document has more than 2000000 octets, which is the limit\n"}},
        // Output
        {"B in.xml -o new.xml; ls -A; cat new.xml", {0, "bad.xml\nin.xml\nnew.xml\nold.xml\n" + a, ""}},
        {"B in.xml -o -; B in.xml -o /dev/stdout; echo end", {0, a + a + "end\n", ""}},
        {"mkfifo f; cat f & B in.xml -o f; wait; test -p f", {0, a, ""}},
        {"B in.xml -o /dev/fd/3 3>>old.xml; cat old.xml", {0, "old" + a, ""}},
        {"chmod 640 old.xml; B in.xml -o old.xml; stat -c %a old.xml; umask 27; B in.xml -o new.xml; stat -c %a new.xml", {0, "640\n640\n", ""}},
        {"mkdir d; mv old.xml d; ln -s old.xml d/l; ln -s d/l ll; B in.xml -o ll; test -L d/l -a -L ll; ls -A . d; cat d/old.xml",
            {0, ".:\nbad.xml\nd\nin.xml\nll\n\nd:\nl\nold.xml\n" + a, ""}},
        {"ln -s new.xml l; B in.xml -o l; readlink l; cat new.xml", {0, "new.xml\n" + a, ""}},
        {"cp in.xml b.xml; B in.xml b.xml --output-dir d/e; ls -A . d/e; cat d/e/*",
            {0, ".:\nb.xml\nbad.xml\nd\nin.xml\nold.xml\n\nd/e:\nb.xml\nin.xml\n" + a + a, ""}},
        {"B bad.xml in.xml --output-dir d || cat d/*", {0, a, "bxconvert: bad.xml:1:6: mismatched tag at line 1\n"}},
        {"B in.xml --output-dir old.xml", fails("old.xml: Not a directory")},
        // Progress on a terminal: the document ends once it is there, and then the line is erased
        {"mkfifo f; (printf '<a>'; until grep -q ' s, ' shown; do sleep 0.1; done; printf '</a>') >f & "
            "script -qefc 'bxconvert f -o out.xml' shown >/dev/null; grep -c '<a></a>' out.xml; tr '\\r\\033' '.!' <shown | grep -c 'bxconvert: f: .* MB read.*[.]![[]K$'",
            {0, "1\n1\n", ""}},
        // A signal while the document is half written leaves nothing of it
        {"mkfifo f; bxconvert f -o old.xml & (echo '<a>'; yes '<b/>' | head -n 100000; until ls -l /proc/$!/fd | grep -qE '#[0-9]+ [(]deleted|[.]bx-'; do sleep 0.1; done; "
            "kill $!) >f; exec 2>&-; wait $!; echo $?; rm f; ls -A; cat old.xml", {0, "143\nbad.xml\nin.xml\nold.xml\nold", ""}},
        // Failures leave things as they were
        {"B bad.xml -o old.xml || cat old.xml; ls -A", {0, "oldbad.xml\nin.xml\nold.xml\n", "bxconvert: bad.xml:1:6: mismatched tag at line 1\n"}},
        {"B in.xml -o none/new.xml", fails("none/new.xml: No such file or directory")},
        {"ln -s l l; B in.xml -o l", fails("l: Too many levels of symbolic links")},
        {"B in.xml >/dev/full", fails("standard output: No space left on device")},
        {"B in.xml >&-", fails("standard output: Bad file descriptor")},
        {"(ulimit -f 1; B '" BX_TRACK "' -o old.xml) || cat old.xml; ls -A", {0, "oldbad.xml\nin.xml\nold.xml\n", "bxconvert: old.xml: File too large\n"}},
    };
    // clang-format on
    for (auto const& [command, outcome] : rows) {
        Folder const folder;
        folder.Write("in.xml", "<?xml version='1.0'?><a/>");
        folder.Write("bad.xml", "<a></b>");
        folder.Write("old.xml", "old");
        EXPECT_EQ(folder.Run("B() { bxconvert --declaration=no \"$@\"; }\n" + command), outcome) << command;
    }
}

}  // namespace
