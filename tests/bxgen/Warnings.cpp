// What is told of schemas whose documents classes do not give back as they were.

#include <gtest/gtest.h>

#include <string>

#include "Folder.h"

namespace BxGen {
namespace {

void ExpectMessages(Folder const& folder, std::string const& code) {
    Outcome const outcome = folder.Run({"--root-element", "{u}r", "@a.xsd"});
    EXPECT_EQ(outcome.m_status, 0) << outcome.m_messages;
    std::string const& messages = outcome.m_messages;
    EXPECT_EQ(messages.empty() ? "" : messages.substr(messages.rfind('[')), code) << messages;
}

// clang-format off
TEST(Warnings, OfMembersThatOnlyTheirOrderTellsApart) {
    struct Row {
        char const* m_first;
        char const* m_second;
        char const* m_code;
    };
    // Small letters must be there, capitals may be.
    for (Row const& row : {Row{"ab", "ba", "[twice]\n"}, {"abC", "bCa", "[twice]\n"}, {"ab", "bc", ""}, {"Ab", "cb", ""}, {"abC", "bcd", ""}, {"aC", "bC", ""}}) {
        std::string choice;
        for (std::string const member : {row.m_first, row.m_second}) {
            choice += "<xs:sequence>";
            for (char const c : member) {
                choice += std::string("<xs:element name='") + static_cast<char>(c | 0x20) + "' type='xs:int' minOccurs='" + (c < 'a' ? '0' : '1') + "'/>";
            }
            choice += "</xs:sequence>";
        }
        Folder const folder;
        folder.Put("a.xsd", Schema("<xs:element name='r'><xs:complexType><xs:choice>" + choice + "</xs:choice></xs:complexType></xs:element>"));
        ExpectMessages(folder, row.m_code);
    }
}

TEST(Warnings, OfSubstitutesOfOneNameInTwoNamespaces) {
    for (std::string const name : {"h", "i"}) {
        Folder const folder;
        folder.Put("b.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='v'><xs:element name='h' type='xs:int'/></xs:schema>");
        folder.Put("a.xsd", Schema("<xs:import namespace='v' schemaLocation='b.xsd'/><xs:element name='" + name + "' type='xs:int' substitutionGroup='v:h'/>"
                                   "<xs:element name='r'><xs:complexType><xs:sequence><xs:element ref='v:h'/></xs:sequence></xs:complexType></xs:element>", "xmlns:v='v'"));
        ExpectMessages(folder, name == "h" ? "[same-name]\n" : "");
    }
}

TEST(Warnings, OfRepeatedGroupsWhoseRoundsOnlyWhatFollowsTellsApart) {
    struct Row {
        std::string m_outer;
        std::string m_inner;
        std::string m_element;
        char const* m_last;  ///< of the outer one
        char const* m_code;
    };
    for (Row const& row : {Row{"", "2", "1", "0", "[runs]\n"}, {"2", "", "1", "0", "[runs]\n"}, {"", "", "3", "0", "[runs]\n"}, {"", "", "1", "0", ""}, {"2", "2", "3", "1", ""}}) {
        auto const bounds = [](std::string const& least) { return (least.empty() ? "" : " minOccurs='" + least + "'") + std::string(" maxOccurs='4'>"); };
        Folder const folder;
        folder.Put("a.xsd", Schema("<xs:element name='r'><xs:complexType><xs:sequence" + bounds(row.m_outer) + "<xs:sequence" + bounds(row.m_inner) +
                                   "<xs:element name='a' type='xs:int'" + bounds(row.m_element) + "</xs:element><xs:element name='b' type='xs:int' minOccurs='0'/></xs:sequence>"
                                   "<xs:element name='c' type='xs:int' minOccurs='" + row.m_last + "'/></xs:sequence></xs:complexType></xs:element>"));
        ExpectMessages(folder, row.m_code);
    }
}

TEST(Warnings, OfRestrictionsThatAreNone) {
    struct Row {
        std::string m_base;
        std::string m_own;
        bool m_isTold;
    };
    auto const some = [](char const* name, char const* more) {
        return std::string("<xs:element name='") + name + "' type='xs:int' " + more + "/>";
    };
    std::string const a = some("a", ""), b = some("b", ""), optional = some("a", "minOccurs='0'");
    std::string const few = some("a", "minOccurs='2' maxOccurs='4'");
    auto const choice = [&](char const* bounds) { return std::string("<xs:choice ") + bounds + ">" + a + b + "</xs:choice>"; };
    std::string const head = "<xs:element ref='t:h' maxOccurs='2'/>", member = "<xs:element ref='t:m'/>";
    for (Row const& row : {
             Row{few, some("a", "minOccurs='1' maxOccurs='4'"), true},
             {few, some("a", "minOccurs='2' maxOccurs='5'"), true},
             {few, some("a", "minOccurs='3' maxOccurs='3'"), false},
             {a + b, a + some("b", "minOccurs='0'"), true},
             {a + b, a + some("b", "nillable='true'"), true},
             {some("a", "fixed='1'"), some("a", "default='1'"), true},
             {some("a", "fixed='1'"), some("a", "fixed='01'"), false},
             {optional + b, b, false},
             {"<xs:sequence maxOccurs='3'>" + a + "</xs:sequence>", some("a", "maxOccurs='3'"), false},
             {choice("minOccurs='2' maxOccurs='2'"), choice("minOccurs='2' maxOccurs='2'"), false},
             {choice("minOccurs='2' maxOccurs='2'"), choice("minOccurs='2' maxOccurs='3'"), true},
             {choice(""), a, false},
             {head, member, false},
             {head, member + member, false},
             {head, member + member + member, true},
         }) {
        Folder const folder;
        std::string const type = "<xs:complexType name='", sequence = "<xs:sequence>";
        folder.Put("a.xsd", Schema(type + "B'>" + sequence + row.m_base + "</xs:sequence></xs:complexType>" +
                                   type + "T'><xs:complexContent><xs:restriction base='t:B'>" + sequence + row.m_own + "</xs:sequence></xs:restriction></xs:complexContent></xs:complexType>"
                                   "<xs:element name='h' type='xs:int'/><xs:element name='m' type='xs:int' substitutionGroup='t:h'/><xs:element name='r' type='t:T'/>"));
        Outcome const outcome = folder.Run({"--root-element", "{u}r", "@a.xsd"});
        bool const isTold = outcome.m_messages.find("so it is no restriction [restriction]") != std::string::npos;
        EXPECT_EQ(isTold, row.m_isTold) << row.m_base << " -> " << row.m_own << "\n" << outcome.m_messages;
    }
}
// clang-format on

}  // namespace
}  // namespace BxGen
