// Names of C++, patterns of PCRE2, documentation, and the options that choose what is generated.

#include "names/Identifiers.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "PlanText.h"
#include "mapping/Patterns.h"

namespace BxGen {
namespace {

// clang-format off
TEST(Names, AreInCamelCase) {
    std::pair<char const*, char const*> const rows[] = {
        {"note", "Note"}, {"part-list", "PartList"}, {"MIDI.device_x", "MIDIDeviceX"}, {"2d", "N2d"}, {"a1b", "A1b"},
        {"-", ""}, {"\xC3\xA9t\xC3\xA9", "\xC3\xA9t\xC3\xA9"}, {"a\xCC\x81", "A"}, {"\xF0\x90\x80\x80x", "u10000x"},
    };
    for (auto const& [name, camel] : rows) EXPECT_EQ(Camel(name, false), camel) << name;
    EXPECT_EQ(Camel("\xC3\xA9t\xC3\xA9", true), "u00E9tu00E9");
}

TEST(Names, NamespacesAreNamesOfCpp) {
    for (char const* const name : {"A", "a::b_1::_C", "Stra\xC3\x9F" "e"}) EXPECT_TRUE(IsNamespaceName(name)) << name;
    for (char const* const name : {"", "1a", "a-b", "A::", "::A", "A:B", "xor", "A::int", "a b"}) EXPECT_FALSE(IsNamespaceName(name)) << name;
}

TEST(Names, AreTakenOnce) {
    NameScope const base = [] { NameScope scope; scope.Add("A"); return scope; }();
    NameScope scope(&NamesOfObjects(), &base);
    std::pair<std::pair<char const*, char const*>, char const*> const rows[] = {
        {{"B", ""}, "B"}, {{"B", ""}, "B2"}, {{"B", ""}, "B3"}, {{"B", "Attribute"}, "BAttribute"}, {{"B", "Attribute"}, "B4"},
        {{"A", ""}, "A2"}, {{"Release", "Attribute"}, "Release_"}, {{"EOF", ""}, "EOF_"},
    };
    for (auto const& [wanted, taken] : rows) EXPECT_EQ(scope.Take(wanted.first, wanted.second), taken);
}

TEST(Names, PatternsAreTranslated) {
    std::pair<std::vector<std::string_view>, char const*> const rows[] = {
        {{"a|b"}, "a|b"}, {{"a", "b"}, "(?:a)|(?:b)"}, {{"(^a$)."}, "(?:\\^a\\$)[^\\n\\r]"},
        {{"[a-z-[aeiou]]"}, "(?:(?![aeiou])[a-z])"}, {{"[^\\d\\S]"}, R"((?:(?![\p{Nd}]|[^\x20\t\n\r])(?s:.)))"},
        {{"\\P{IsBasicLatin}\\p{Lu}"}, R"([^\x{0}-\x{7F}][\p{Lu}])"}, {{"[a\\-]{2,99999}"}, "[a\\-]{2,}"},
        {{"[:[]"}, "[\\:\\[]"},
    };
    for (auto const& [patterns, translated] : rows) EXPECT_EQ(TranslatePatterns(patterns), translated) << patterns[0];
}

TEST(Names, OptionsChoose) {
    Folder const folder;
    std::string const import = "<xs:import namespace='v' schemaLocation='v.xsd'/>";
    folder.Put("a.xsd", Schema(import + "<xs:element name='e' type='v:t-type' xmlns:v='v'/><xs:element name='r'><xs:complexType><xs:sequence>"
                               "<xs:element ref='t:e'/></xs:sequence></xs:complexType></xs:element>"));
    folder.Put("v.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='v'><xs:complexType name='t-type'/></xs:schema>");
    std::string const type = "CTType : Bx::CObject\n", unreferenced = "CR : Bx::Root<Bx::CObject>\n  Bx::Object<CTType> E  // required\n  Sequence Element(E e 1 1) End\n";
    EXPECT_EQ(PlanOf(folder), unreferenced + type);
    EXPECT_EQ(PlanOf(folder, {"--root-element", "{u}e"}), "CTType : Bx::CObject\nCR : Bx::CObject\n  Bx::Object<CTType> E  // required\n  Sequence Element(E e 1 1) End\nCE : Bx::Root<CTType>\n  Inherit(<CTType>)\n");
    EXPECT_EQ(PlanOf(folder, {"--root-element", "e"}), PlanOf(folder, {"--root-element", "{u}e"}));
    EXPECT_EQ(PlanOf(folder, {"--root-element", "x"}), "bxgen: error: --root-element 'x': the schemas have no such element [root]\n");
    EXPECT_EQ(PlanOf(folder, {"--namespace-map", "v=V::W", "--prefix", "", "--strip-suffix", "-type"}),
              "namespace A\nR : Bx::Root<Bx::CObject>\n  Bx::Object<T> E  // required\n  Sequence Element(E e 1 1) End\nnamespace V::W\nT : Bx::CObject\n");
    folder.Put("names", "# of types\ntype {v}t-type Thing\nelement {u}r Top\nproperty {u}e Entry\n");
    EXPECT_EQ(PlanOf(folder, {"--names", "@names"}), "Top : Bx::Root<Bx::CObject>\n  Bx::Object<Thing> Entry  // required\n  Sequence Element(Entry e 1 1) End\nThing : Bx::CObject\n");
    folder.Put("names", "\ntype {v}t-tipe Thing\n");
    EXPECT_EQ(PlanOf(folder, {"--names", "@names"}), unreferenced + type + "names:2:1: warning: 'type {v}t-tipe' is nothing that gets a name here [names]\n");
    EXPECT_EQ(PlanOf(folder, {"--names", "."}), "bxgen: error: '.' cannot be read: Is a directory [file]\n");
    folder.Put("names", "type {v}t-type a-b\n");
    EXPECT_EQ(PlanOf(folder, {"--names", "@names"}), "names:1:1: error: a line must be: type|element|group|property {namespace}name NAME [names]\n");
}

TEST(Names, NamespacesThatNeedEachOtherAreAnError) {
    Folder const folder;
    auto const derived = [](std::string const& name, std::string const& base) {
        return "<xs:complexType name='" + name + "'><xs:complexContent><xs:extension base='" + base + "'><xs:attribute name='a'/></xs:extension></xs:complexContent></xs:complexType>";
    };
    folder.Put("a.xsd", Schema("<xs:import namespace='v' schemaLocation='v.xsd'/><xs:complexType name='T'/>" + derived("U", "v:T"), "xmlns:v='v'"));
    folder.Put("v.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='u' targetNamespace='v'><xs:import namespace='u' schemaLocation='a.xsd'/><xs:complexType name='T'/>" +
                            derived("V", "t:T") + "</xs:schema>");
    std::string const plan = PlanOf(folder, {"--namespace-map", "v=V"});
    EXPECT_EQ(plan, "bxgen: error: the C++ namespaces 'V' and 'A' need each other's types; give their XML namespaces one name: --namespace-map v=A [namespace]\n");
}

TEST(Names, DocumentationIsTheNearest) {
    Folder const folder;
    auto const doc = [](std::string const& text) { return "<xs:annotation><xs:documentation>" + text + "</xs:documentation></xs:annotation>"; };
    folder.Put("a.xsd", Schema("<xs:complexType name='T'>" + doc(" First\n line.\n \n More.") + "<xs:sequence><xs:element name='a' type='t:T'/><xs:element name='b' type='t:T'>" + doc("Own") +
                               "</xs:element></xs:sequence><xs:attribute ref='t:c'>" + doc("<x xmlns='x'>of the use</x>") + "</xs:attribute></xs:complexType><xs:attribute name='c'>" + doc("of c") + "</xs:attribute>"));
    auto const texts = [&](std::vector<std::string> const& arguments) {
        Options const options = OptionsFor(folder, arguments);
        Diagnostics diagnostics;
        SchemaSet const set = LoadSchemas(options.m_schemas, Catalog(), diagnostics);
        Plan const plan = MakePlan(set, options, diagnostics);
        std::vector<std::string> all = {plan.m_classes.at(0).m_documentation.m_text};
        for (PropertyPlan const& property : plan.m_classes.at(0).m_properties) all.push_back(property.m_documentation.m_text);
        return all;
    };
    EXPECT_EQ(texts({}), (std::vector<std::string>{"First line.", "", "Own", "of the use"}));
    EXPECT_EQ(texts({"--doc-element", "{x}x"}), (std::vector<std::string>{"", "", "", "of the use"}));
    EXPECT_EQ(texts({"--no-docs"}), (std::vector<std::string>{"", "", "", ""}));
}
// clang-format on

}  // namespace
}  // namespace BxGen
