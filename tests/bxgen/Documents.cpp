// Schemas of several documents, catalogs and the command line.

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "Folder.h"

namespace BxGen {
namespace {

std::string Plain(std::string_view target, std::string_view body) {
    std::string const attribute = target.empty() ? "" : "targetNamespace='" + std::string(target) + "' ";
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' " + attribute + ">" + std::string(body) +
           "</xs:schema>";
}

std::string Reference(std::string_view kind, std::string_view attributes) {
    return "<xs:" + std::string(kind) + ' ' + std::string(attributes) + "/>";
}

struct Row {
    std::vector<std::pair<std::string, std::string>> m_files;
    std::vector<std::string> m_arguments;
    Outcome m_outcome;
};

/// Places by line alone; all is on the first one here.
std::string WithoutColumns(std::string text) {
    for (std::size_t at = text.find(":1:"); at != text.npos; at = text.find(":1:", at + 1)) {
        std::size_t const column = at + 2;
        text.erase(column, text.find_first_not_of("0123456789", column + 1) - column);
    }
    return text;
}

void Check(std::initializer_list<Row> rows) {
    for (Row const& row : rows) {
        Folder const folder;
        for (auto const& [name, octets] : row.m_files) folder.Put(name, octets);
        Outcome outcome = folder.Run(row.m_arguments);
        for (std::string* const text : {&outcome.m_output, &outcome.m_messages})
            *text = WithoutColumns(*text);
        EXPECT_EQ(outcome.m_status, row.m_outcome.m_status) << row.m_files[0].second;
        EXPECT_EQ(outcome.m_output, row.m_outcome.m_output) << row.m_files[0].second;
        EXPECT_EQ(outcome.m_messages, row.m_outcome.m_messages) << row.m_files[0].second;
    }
}

std::string const kImport = Reference("import", "namespace='v' schemaLocation='http://far/v.xsd'");
std::string const kUse = "<xs:element name='e' type='v:T' xmlns:v='v'/>";
std::string const kOther =
    Plain("v", "<xs:simpleType name='T'><xs:restriction base='xs:int'/></xs:simpleType>");
std::string const kBoth =
    "schema a.xsd of \"u\"\nschema v.xsd of \"v\"\nelement {u}e type {v}T @a.xsd:1\nsimpleType {v}T restricts xs:int @v.xsd:1\n";

// clang-format off
TEST(Documents, IncludeImportAndRedefine) {
    Check({
        // A chameleon's components stand in each namespace that includes it; cycles end; what is named twice is read once.
        {{{"a.xsd", Schema(Reference("include", "schemaLocation='d/c.xsd'") + Reference("import", "namespace='v' schemaLocation='v.xsd'"))},
          {"v.xsd", Plain("v", Reference("include", "schemaLocation='./d/../d/c.xsd'") + Reference("import", "namespace='u' schemaLocation='a.xsd'"))},
          {"d/c.xsd", Plain("", Reference("include", "schemaLocation='c.xsd'") + "<xs:element name='e' type='T'/><xs:complexType name='T'/>")}},
         {"--dump", "@a.xsd", "@d/../a.xsd"},
         {0, "schema a.xsd of \"u\"\nschema c.xsd of \"u\" chameleon\nschema v.xsd of \"v\"\nschema c.xsd of \"v\" chameleon\n"
             "element {u}e type {u}T @c.xsd:1\nelement {v}e type {v}T @c.xsd:1\n"
             "complexType {u}T restricts xs:anyType empty @c.xsd:1\ncomplexType {v}T restricts xs:anyType empty @c.xsd:1\n", ""}},
        // What is redefined stays as the base of what takes its place, also in two steps; others mean the new one.
        {{{"a.xsd", Schema("<xs:redefine schemaLocation='b.xsd'><xs:complexType name='T'><xs:complexContent><xs:extension base='t:T'><xs:attribute name='a'/></xs:extension>"
                           "</xs:complexContent></xs:complexType></xs:redefine><xs:element name='e' type='t:T'/>")},
          {"b.xsd", Schema("<xs:redefine schemaLocation='c.xsd'><xs:complexType name='T'><xs:complexContent><xs:extension base='t:T'><xs:attribute name='b'/></xs:extension>"
                           "</xs:complexContent></xs:complexType></xs:redefine>")},
          {"c.xsd", Schema("<xs:complexType name='T'><xs:attribute name='c'/></xs:complexType>")}},
         {"--dump", "@a.xsd"},
         {0, "schema a.xsd of \"u\"\nschema b.xsd of \"u\"\nschema c.xsd of \"u\"\nelement {u}e type {u}T @a.xsd:1\n"
             "complexType {u}T extends {u}T empty redefines @a.xsd:1\n  attribute a type xs:anySimpleType @a.xsd:1\n  attributes c b a\n"
             "complexType {u}T extends {u}T empty redefines @b.xsd:1\n  attribute b type xs:anySimpleType @b.xsd:1\n  attributes c b\n"
             "complexType {u}T restricts xs:anyType empty @c.xsd:1\n  attribute c type xs:anySimpleType @c.xsd:1\n  attributes c\n", ""}},
        {{{"a.xsd", Schema("<xs:redefine schemaLocation='b.xsd'><xs:group name='g'><xs:sequence><xs:group ref='t:g'/></xs:sequence></xs:group></xs:redefine>")},
          {"b.xsd", Schema("<xs:group name='g'><xs:choice/></xs:group>")}},
         {"--dump", "@a.xsd"},
         {0, "schema a.xsd of \"u\"\nschema b.xsd of \"u\"\ngroup {u}g redefines @a.xsd:1\n  sequence @a.xsd:1\n    group ref {u}g 1..1 @a.xsd:1\n"
             "group {u}g @b.xsd:1\n  choice @b.xsd:1\n", ""}},
        {{{"a.xsd", Schema("<xs:redefine schemaLocation='b.xsd'><xs:simpleType name='S'><xs:restriction base='xs:int'/></xs:simpleType><xs:group name='h'><xs:all/></xs:group></xs:redefine>")},
          {"b.xsd", Schema("<xs:simpleType name='S'><xs:list itemType='xs:int'/></xs:simpleType>")}},
         {"@a.xsd"},
         {2, "", "a.xsd:1: error: 'b.xsd' has no group 'h' of 'u' to redefine [redefine]\n"}},
        {{{"a.xsd", Schema("<xs:redefine schemaLocation='b.xsd'><xs:simpleType name='S'><xs:restriction base='xs:int'/></xs:simpleType></xs:redefine>")},
          {"b.xsd", Schema("<xs:simpleType name='S'><xs:list itemType='xs:int'/></xs:simpleType>")}},
         {"@a.xsd"},
         {2, "", "a.xsd:1: error: the base of a type that is redefined must be itself [redefine]\n"}},
        // Namespaces that do not fit
        {{{"a.xsd", Schema(Reference("include", "schemaLocation='v.xsd'") + Reference("import", "namespace='w' schemaLocation='v.xsd'") + Reference("import", "namespace='u'"))}, {"v.xsd", kOther}},
         {"@a.xsd"},
         {2, "", "a.xsd:1: error: 'v.xsd' has the target namespace 'v', which is not that of the schema that includes it [namespace]\n"
                 "a.xsd:1: error: 'v.xsd' has the target namespace 'v', not 'w' [namespace]\n"
                 "a.xsd:1: error: a schema must not import its own target namespace [namespace]\n"}},
        // Import without a location of what another document brings
        {{{"a.xsd", Schema(Reference("import", "namespace='v'") + kUse)}, {"v.xsd", kOther}}, {"@a.xsd", "@v.xsd"}, {0, "", ""}},
    });
}

TEST(Documents, CatalogsAndLocations) {
    auto const catalog = [](std::string const& entries) {
        return "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'>" + entries + "</catalog>";
    };
    auto const with = [&](std::string const& entries) {
        return Row{{{"a.xsd", Schema(kImport + kUse)}, {"in/v.xsd", kOther}, {"c.xml", catalog(entries)},
                    {"in/next.xml", catalog("<uri name='http://far/v.xsd' uri='v.xsd'/>")}},
                   {"--dump", "--catalog=@c.xml", "@a.xsd"}, {0, kBoth, ""}};
    };
    Check({
        with("<system systemId='http://far/v.xsd' uri='in/v.xsd'/>"),
        with("<uri name='v' uri='in/v.xsd'/>"),
        with("<group xml:base='in/'><uri name='http://far/v.xsd' uri='v.xsd'/></group>"),
        with("<rewriteURI uriStartString='http://far/' rewritePrefix='in/'/><rewriteURI uriStartString='http://' rewritePrefix='out/'/>"),
        with("<rewriteSystem systemIdStartString='http://far/' rewritePrefix='in/'/>"),
        with("<uriSuffix uriSuffix='/v.xsd' uri='in/v.xsd'/>"),
        with("<nextCatalog catalog='in/next.xml'/><nextCatalog catalog='c.xml'/>"),
        {{{"a.xsd", Schema(kImport + kUse)}, {"v.xsd", kOther}}, {"--dump", "--location", "http://far/v.xsd=@v.xsd", "@a.xsd"}, {0, kBoth, ""}},
        {{{"a.xsd", Schema(Reference("import", "namespace='v'") + kUse)}, {"v.xsd", kOther}}, {"--location", "v=@v.xsd", "@a.xsd"}, {0, "", ""}},
        // What a catalog leads to keeps its own references
        {{{"a.xsd", Schema(kImport + kUse)}, {"in/v.xsd", Plain("v", Reference("include", "schemaLocation='t.xsd'"))}, {"in/t.xsd", kOther}},
         {"--location", "http://far/v.xsd=@in/v.xsd", "@a.xsd"}, {0, "", ""}},
        // Nothing found
        {{{"a.xsd", Schema(kImport + kUse)}}, {"@a.xsd"},
         {2, "", "a.xsd:1: error: there is no type 'T' of 'v' [unresolved]\n"
                 "a.xsd:1: error: the location 'http://far/v.xsd' is no file here and in no catalog; give --location URI=FILE or --catalog FILE [location]\n"}},
        {{{"a.xsd", Schema(kImport + Reference("include", "schemaLocation='b.xsd'"))}}, {"@a.xsd"},
         {0, "", "a.xsd:1: warning: the location 'http://far/v.xsd' is no file here and in no catalog; it is passed over, as nothing of it is needed [location]\n"
                 "bxgen: note: 1 more [location]; --all-warnings shows them\n"}},
        {{{"a.xsd", Schema("")}, {"c.xml", "<catalog/>"}}, {"--catalog", "@c.xml", "@a.xsd"},
         {2, "", "c.xml:1: error: the root of a catalog is 'catalog' of 'urn:oasis:names:tc:entity:xmlns:xml:catalog' [catalog]\n"}},
        {{{"a.xsd", Schema("")}}, {"--catalog", "@c.xml", "@a.xsd"},
         {3, "", "bxgen: error: catalog 'c.xml' cannot be read: No such file or directory [file]\n"}},
    });
}

TEST(Documents, SchemasThatComeWithTheTool) {
    std::string const xml = "http://www.w3.org/XML/1998/namespace", xlink = "http://www.w3.org/1999/xlink";
    Check({{{{"a.xsd", Schema(Reference("import", "namespace='" + xml + "' schemaLocation='http://www.w3.org/2001/xml.xsd'") + Reference("import", "namespace='" + xlink + "'") +
                              "<xs:complexType name='T' xmlns:xlink='" + xlink + "'><xs:attributeGroup ref='xml:specialAttrs'/><xs:attributeGroup ref='xlink:simpleAttrs'/></xs:complexType>")}},
            {"--dump", "@a.xsd"},
            {0, "schema a.xsd of \"u\"\ncomplexType {u}T restricts xs:anyType empty @a.xsd:1\n  attributeGroup ref {" + xml + "}specialAttrs @a.xsd:1\n"
                "  attributeGroup ref {" + xlink + "}simpleAttrs @a.xsd:1\n  attributes {" + xml + "}base {" + xml + "}lang {" + xml + "}space {" + xml + "}id {" + xlink + "}type {" + xlink +
                "}href {" + xlink + "}role {" + xlink + "}arcrole {" + xlink + "}title {" + xlink + "}show {" + xlink + "}actuate\n", ""}},
           {{{"a.xsd", Schema("<xs:complexType name='T'><xs:attribute ref='xml:lang'/></xs:complexType>")}}, {"@a.xsd"},
            {2, "", "a.xsd:1: error: there is no attribute 'lang' of '" + xml + "' [unresolved]\n"}}});
}

TEST(CommandLine, StatusAndMessages) {
    std::string const warns = Schema(Reference("include", "schemaLocation='b.xsd'") + Reference("include", "schemaLocation='c.xsd'"));
    auto const passedOver = [](std::string const& name) {
        return "a.xsd:1: warning: the location '" + name + "' is no file here and in no catalog; it is passed over, as nothing of it is needed [location]\n";
    };
    Check({
        {{{"a.xsd", warns}}, {"--all-warnings", "@a.xsd"}, {0, "", passedOver("b.xsd") + passedOver("c.xsd")}},
        {{{"a.xsd", warns}}, {"--werror", "--all-warnings", "--dump", "@a.xsd"}, {2, "", passedOver("b.xsd") + passedOver("c.xsd")}},
        {{{"a.xsd", warns}}, {"-q", "@a.xsd"}, {0, "", ""}},
        {{{"a.xsd", ""}}, {}, {1, "", "bxgen: error: SCHEMA is missing; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"-"}, {1, "", "bxgen: error: SCHEMA is '-', but what a schema includes is looked for beside its file; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"--nothing", "@a.xsd"}, {1, "", "bxgen: error: unknown option '--nothing'; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"--dump=1", "@a.xsd"}, {1, "", "bxgen: error: option '--dump' takes no value; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"@a.xsd", "--catalog"}, {1, "", "bxgen: error: option '--catalog' needs a value; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"--sources", "0", "@a.xsd"}, {1, "", "bxgen: error: '0' is no value of option '--sources', which takes N; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"-n", "a-b", "@a.xsd"}, {1, "", "bxgen: error: 'a-b' is no value of option '-n', which takes NAME; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"--namespace-map=u=A::class", "@a.xsd"}, {1, "", "bxgen: error: 'u=A::class' is no value of option '--namespace-map', which takes URI=NS; see bxgen --help\n"}},
        {{{"a.xsd", Schema("")}}, {"--namespace-map=u=A::B", "-n", "A_B", "@a.xsd"}, {2, "", "bxgen: error: the C++ namespaces 'A::B' and 'A_B' would have the same files [namespace]\n"}},
        {{{"a.xsd", ""}}, {"--location", "v=", "@a.xsd"}, {1, "", "bxgen: error: 'v=' is no value of option '--location', which takes URI=FILE; see bxgen --help\n"}},
        {{{"a.xsd", ""}}, {"@a.xsd"}, {2, "", "a.xsd:1: error: no element found [xml]\n"}},
        {{{"a.xsd", ""}}, {"@b.xsd", "@"}, {3, "", "bxgen: error: 'b.xsd' cannot be read: No such file or directory [file]\nbxgen: error: '' cannot be read: Is a directory [file]\n"}},
        {{{"a.xsd", Schema("")}}, {"--program", "@a.xsd"}, {2, "", "bxgen: error: a program needs a root element; name one by --root-element [root]\n"}},
        {{{"a.xsd", Schema("")}}, {"-n", "N", "-o", "@a.xsd", "@a.xsd"}, {3, "", "bxgen: error: 'a.xsd/NFwd.h' cannot be written: Not a directory [file]\n"}},
    });
    Folder const folder;
    EXPECT_EQ(folder.Run({"--version"}).m_output.substr(0, 6), "bxgen ");
    std::string const help = folder.Run({"--help"}).m_output;
    EXPECT_NE(help.find("--location URI=FILE        one entry of a catalog"), help.npos) << help;
}
// clang-format on

TEST(CommandLine, DepfileNamesWhatWasRead) {
    Folder const folder;
    folder.Put("a b.xsd", Schema(Reference("include", "schemaLocation='$c.xsd'")));
    folder.Put("$c.xsd", Schema(""));
    folder.Put("names", "");
    std::string const read = ": \\\n  " + folder.Path("a\\ b.xsd") + " \\\n  " + folder.Path("$$c.xsd");
    auto const rule = [&] { return BxTest::Content(folder.Path("d")); };
    EXPECT_EQ(folder.Run({"--depfile=@d", "-n", "N", "-o", "@o", "@a b.xsd"}).m_status, 0);
    EXPECT_EQ(rule(), folder.Path("o/NFwd.h") + ' ' + folder.Path("o/N.h") + ' ' + folder.Path("o/N.cpp") +
                          read + '\n');
    std::vector<std::string> const arguments = {"--depfile=@d", "--stamp=@s", "--names=@names",
                                                "-o",           "@o",         "@a b.xsd"};
    EXPECT_EQ(folder.Run(arguments).m_status, 0);
    EXPECT_EQ(rule(), folder.Path("s") + read + " \\\n  " + folder.Path("names") + '\n');
    auto const past = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(folder.Path("s"), past);
    EXPECT_EQ(folder.Run(arguments).m_status, 0);
    EXPECT_GT(std::filesystem::last_write_time(folder.Path("s")), past);
    folder.Put("a b.xsd", Schema("<xs:element name='e' type='t:none'/>"));
    std::filesystem::last_write_time(folder.Path("s"), past);
    EXPECT_EQ(folder.Run(arguments).m_status, 2);
    EXPECT_EQ(std::filesystem::last_write_time(folder.Path("s")), past);
}

TEST(CommandLine, FilesFollowFromTheNames) {
    Folder const folder;
    folder.Put("a.xsd", Schema("<xs:element name='e' type='xs:int'/>"));
    Outcome const outcome = folder.Run({"--list", "--program", "-n", "N", "--namespace-map=u=V::W",
                                        "--namespace-map=x=X", "-o", "o", "@a.xsd"});
    EXPECT_EQ(
        outcome.m_output,
        "o/V_WFwd.h\no/V_W.h\no/V_W.cpp\no/NFwd.h\no/N.h\no/N.cpp\no/XFwd.h\no/X.h\no/X.cpp\no/NMain.cpp\n");
}

}  // namespace
}  // namespace BxGen
