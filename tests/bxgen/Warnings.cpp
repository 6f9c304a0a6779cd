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
// clang-format on

}  // namespace
}  // namespace BxGen
