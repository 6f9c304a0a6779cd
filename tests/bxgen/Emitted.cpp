// What generated code looks like.

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>

#include "Folder.h"
#include "emit/Lines.h"

namespace BxGen {
namespace {

std::string Content(Folder const& folder, std::string const& name) {
    return BxTest::Content(folder.Path(name));
}

/// The lines of a text from the one that begins so to the first empty one.
std::string Block(std::string const& text, std::string const& begin) {
    std::size_t const first = text.find('\n' + begin);
    if (first == text.npos) return {};
    return text.substr(first + 1, text.find("\n\n", first + 1) - first);
}

TEST(Emitted, LinesAreBroken) {
    std::string const longName(60, 'x');
    std::string const digits(106, '7');
    struct Row {
        std::string m_line;
        std::string m_broken;
    };
    Row const rows[] = {
        {"int a = 1;", "int a = 1;"},
        {"// " + digits + " b", "// " + digits + " b"},
        {"  int " + longName + " = f(a, " + longName + ");",
         "  int " + longName + " =\n      f(a, " + longName + ");"},
        {"  F(" + longName + ", u\"a b\", " + longName + ");",
         "  F(" + longName + ", u\"a b\",\n      " + longName + ");"},
        {"F(a, u\"" + digits + "\\\"\\\\" + digits + "\");",
         "F(a,\n    u\"" + digits.substr(0, 103) + "\"\n    u\"777\\\"\\\\" + digits.substr(0, 96) +
             "\"\n    u\"" + digits.substr(0, 10) + "\");"},
        {"F(a, u\"" + digits.substr(0, 102) + "\\012\xC3\x84\");",
         "F(a,\n    u\"" + digits.substr(0, 102) + "\"\n    u\"\\012\xC3\x84\");"},
    };
    for (Row const& row : rows) EXPECT_EQ(Broken(row.m_line + '\n'), row.m_broken + '\n');
}

TEST(Emitted, LinesFit) {
    std::string values;
    std::string elements;
    for (int i = 0; i < 30; ++i) {
        values += "<xs:enumeration value='value-" + std::to_string(i) + "'/>";
        if (i < 4)
            elements += "<xs:element name='an-element-of-long-name" + std::to_string(i) + "' type='xs:int'/>";
    }
    Folder const folder;
    folder.Put(
        "a.xsd",
        Schema("<xs:simpleType name='few'><xs:restriction base='xs:string'><xs:enumeration value='a'/>"
               "<xs:enumeration value='b'/></xs:restriction></xs:simpleType><xs:simpleType name='many'>"
               "<xs:restriction base='xs:string'>" +
               values + "</xs:restriction></xs:simpleType><xs:complexType name='one'><xs:choice>" + elements +
               "</xs:choice><xs:attribute name='a' fixed='" + std::string(300, '?') +
               "'/></xs:complexType>"));
    ASSERT_EQ(folder.Run({"-q", "@a.xsd"}).m_status, 0);
    std::string const header = Content(folder, "out/A.h");
    EXPECT_EQ(Block(header, "/// (few"), "/// (few, a.xsd:1)\nenum class Few { A, B };\n");
    EXPECT_EQ(Block(header, "enum class Many").substr(0, 34), "enum class Many {\n    Value0,\n    ");
    EXPECT_NE(header.find("    /// one of AnElementOfLongName0, "), header.npos);
    for (std::string const name : {"A.h", "A.cpp", "AFwd.h"}) {
        std::istringstream lines(Content(folder, "out/" + name));
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), kColumns) << line;
    }
}

TEST(Emitted, OnlyPrefixesThatDocumentsNeedAreNamed) {
    struct Row {
        char const* m_attributes;
        char const* m_aliases;
    };
    for (Row const& row :
         {Row{"xmlns='u' elementFormDefault='qualified'", ""},
          {"xmlns='u'", "constexpr Bx::Alias kAliases[] = {\n    {u\"ns\", kNamespace},\n};\n"},
          {"xmlns:p='u' elementFormDefault='qualified'",
           "constexpr Bx::Alias kAliases[] = {\n    {u\"p\", kNamespace},\n};\n"}}) {
        Folder const folder;
        folder.Put(
            "a.xsd",
            "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='u' " +
                std::string(row.m_attributes) +
                "><xs:element name='r'><xs:complexType><xs:sequence>"
                "<xs:element name='e' type='xs:int'/></xs:sequence></xs:complexType></xs:element></xs:schema>");
        ASSERT_EQ(folder.Run({"@a.xsd"}).m_status, 0);
        EXPECT_EQ(Block(Content(folder, "out/A.cpp"), "constexpr Bx::Alias"), row.m_aliases)
            << row.m_attributes;
    }
}

}  // namespace
}  // namespace BxGen
