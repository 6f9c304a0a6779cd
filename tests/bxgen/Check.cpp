// The check of schemas by all rules of the standard.

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>
#include <string>

#include "Folder.h"
#include "check/ChildProcess.h"
#include "check/FullCheck.h"

namespace BxGen {
namespace {

std::string Restriction(std::string const& base, std::string const& own) {
    return "<xs:complexType name='B'>" + base +
           "</xs:complexType>\n<xs:complexType name='D'><xs:complexContent><xs:restriction base='t:B'>" +
           own + "</xs:restriction></xs:complexContent></xs:complexType>";
}

/// The first message, and behind it the status.
std::string FirstOf(Outcome const& outcome) {
    return outcome.m_messages.substr(0, outcome.m_messages.find('\n')) + ' ' +
           std::to_string(outcome.m_status);
}

// clang-format off
TEST(Check, FindsWhatTheReaderPassesOver) {
    if (!HasFullCheck()) GTEST_SKIP() << "bxgen was built without Xerces-C";
    struct Row {
        std::string m_body;
        std::string m_message;
    };
    std::string const key = "<xs:element name='e'>\n  <xs:key name='k'>\n    <xs:selector xpath='1a'/><xs:field xpath='@b'/></xs:key></xs:element>";
    for (Row const& row : {
        Row{"<xs:complexType name='T'><xs:sequence><xs:element name='a'/></xs:sequence></xs:complexType>", " 0"},
        {Restriction("<xs:sequence><xs:element name='a'/><xs:element name='b'/></xs:sequence>",
                     "<xs:sequence><xs:element name='b'/><xs:element name='a'/></xs:sequence>"),
         "a.xsd:2:1: error: no complete functional mapping between particles [check] 2"},
        {key, "a.xsd:3:5: error: unsupported XPath token [check] 2"},
        {"<xs:simpleType name='S'><xs:restriction base='xs:string'><xs:pattern value='a'/></xs:restriction></xs:simpleType>\n"
         "<xs:element name='e' type='t:S' default='b'/>", "a.xsd:2:1: error: value 'b' does not match regular expression facet 'a' [check] 2"},
        // What makes checkers run out of memory
        {"<xs:complexType name='T'><xs:sequence minOccurs='5000' maxOccurs='9000000'><xs:element name='a' maxOccurs='8000'/>"
         "<xs:element name='b'/></xs:sequence></xs:complexType>",
         "a.xsd:1:1: warning: there are bounds of 1000 and more, so content models are not checked [check] 0"},
    }) {
        Folder const folder;
        folder.Put("a.xsd", Schema(row.m_body));
        EXPECT_EQ(FirstOf(folder.Run({"--check", "--dry-run", "@a.xsd"})), row.m_message) << row.m_body;
    }
}

TEST(Check, GoesTheWaysOfTheReader) {
    if (!HasFullCheck()) GTEST_SKIP() << "bxgen was built without Xerces-C";
    Folder const folder;
    folder.Put("a.xsd", Schema("<xs:include schemaLocation='d/../c.xsd'/><xs:import namespace='v' schemaLocation='http://far/v.xsd'/>"
                               "<xs:import namespace='w'/><xs:import namespace='http://www.w3.org/XML/1998/namespace' schemaLocation='http://far/xml.xsd'/>"
                               "<xs:import namespace='&amp;&quot;unused' schemaLocation='none.xsd'/>"
                               "<xs:complexType name='T'><xs:sequence><xs:element ref='v:e'/><xs:element ref='w:e'/><xs:element name='c' type='t:C'/></xs:sequence>"
                               "<xs:attribute ref='xml:lang'/></xs:complexType>", "xmlns:v='v' xmlns:w='w'"));
    folder.Put("c.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:complexType name='C'/></xs:schema>");
    for (std::string const uri : {"v", "w"}) {
        folder.Put(uri + ".xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='" + uri + "'>\n<xs:element name='e'>\n"
                                 "<xs:key name='k'><xs:selector xpath='" + (uri == "w" ? "1a" : "a") + "'/><xs:field xpath='b'/></xs:key></xs:element></xs:schema>");
    }
    folder.Put("d/x", "");
    EXPECT_EQ(FirstOf(folder.Run({"-q", "--check", "--dry-run", "--location", "http://far/v.xsd=@v.xsd", "--location", "w=@w.xsd", "@a.xsd"})),
              "w.xsd:3:18: error: unsupported XPath token [check] 2");
}

TEST(Check, SaysThatItWasNotBuiltIn) {
    if (HasFullCheck()) GTEST_SKIP() << "bxgen was built with Xerces-C";
    Folder const folder;
    folder.Put("a.xsd", Schema(""));
    EXPECT_EQ(FirstOf(folder.Run({"--check", "@a.xsd"})),
              "bxgen: error: --check was not built in; build bxgen where Xerces-C is installed [check] 2");
}

TEST(Check, OutlivesWhatCrashes) {
    auto const run = [](void (*end)()) {
        ChildOutcome const outcome = RunInChild([end](auto const& write) {
            write(std::string(100'000, 'x'));
            end();
        });
        EXPECT_EQ(outcome.m_output, std::string(100'000, 'x'));
        return outcome.m_failure;
    };
    EXPECT_EQ(run([] {}), "");
    EXPECT_EQ(run([] { raise(SIGKILL); }), "did not end in time");
    EXPECT_EQ(run([] { raise(SIGXCPU); }), "did not end in time");
    EXPECT_EQ(run([] { throw std::runtime_error("x"); }), "ended before its time, for want of memory or the like");
    EXPECT_EQ(run([] {
        signal(SIGSEGV, SIG_DFL);
        raise(SIGSEGV);
    }), "crashed: Segmentation fault");
}
// clang-format on

}  // namespace
}  // namespace BxGen
