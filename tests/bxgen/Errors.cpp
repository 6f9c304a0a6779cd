// Schemas that are refused, and what is said of them.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "Folder.h"

namespace BxGen {
namespace {

struct Row {
    std::string m_body;
    std::string m_start;  ///< of the first message behind the file's name
    std::string m_code;
};

void Check(std::initializer_list<Row> rows) {
    Folder const folder;
    for (Row const& row : rows) {
        Outcome const outcome = folder.Dump(Schema(row.m_body));
        EXPECT_EQ(outcome.m_status, 2) << row.m_body;
        EXPECT_EQ(outcome.m_output, "") << row.m_body;
        std::string const line = outcome.m_messages.substr(0, outcome.m_messages.find('\n'));
        EXPECT_NE(line.find(row.m_start), line.npos) << row.m_body << '\n' << line;
        EXPECT_TRUE(line.ends_with(" [" + row.m_code + "]")) << row.m_body << '\n' << line;
    }
}

std::string Complex(std::string const& content) {
    return "<xs:complexType name='T'>" + content + "</xs:complexType>";
}

std::string Simple(std::string const& base, std::string const& facets) {
    return "<xs:simpleType name='S'><xs:restriction base='" + base + "'>" + facets +
           "</xs:restriction></xs:simpleType>";
}

// clang-format off
TEST(Errors, Syntax) {
    Check({
        {"<xs:element/>", "a.xsd:1:89: error: 'element' lacks its attribute 'name'", "syntax"},
        {"<xs:element name='1'/>", "'1' is no value of 'name', which takes a name without a colon", "syntax"},
        {"<xs:element name='e' minOccurs='1'/>", "an 'element' here has no attribute 'minOccurs'", "syntax"},
        {"<xs:element name='e' type='a:b:c'/>", "'a:b:c' is no value of 'type'", "syntax"},
        {"<xs:element name='e' xs:type='x'/>", "'type' of 'http://www.w3.org/2001/XMLSchema' is no attribute of 'element'", "syntax"},
        {"<xs:element name='e' nillable='yes'/>", "'yes' is no value of 'nillable', which takes true, false, 1 or 0", "syntax"},
        {"<xs:element name='e' block='list'/>", "'list' is no value of 'block'", "syntax"},
        {"<xs:element name='e' id='1'/>", "'1' is no value of 'id'", "syntax"},
        {"<xs:element name='e' id='i'/><xs:element name='f' id='i'/>", "the id 'i' is given twice", "syntax"},
        {"<xs:element name='e' default='1' fixed='1'/>", "'default' and 'fixed' must not stand together", "syntax"},
        {"<xs:element name='e' type='xs:int'><xs:simpleType><xs:list itemType='xs:int'/></xs:simpleType></xs:element>", "'type' and a type within the element", "syntax"},
        {"<xs:elemental name='e'/>", "XML Schema has no element 'elemental'", "syntax"},
        {"<other/>", "the element 'other' is not of XML Schema", "syntax"},
        {"text", "text 'text' must not stand in 'schema'", "syntax"},
        {"<xs:element name='e'/><xs:include schemaLocation='b'/>", "'include' must not stand at this place in 'schema'", "syntax"},
        {Complex("<xs:attribute name='a'/><xs:sequence/>"), "'sequence' must not stand at this place in 'complexType'", "syntax"},
        {Complex("<xs:sequence/><xs:choice/>"), "'choice' must not stand at this place", "syntax"},
        {Complex("<xs:complexContent/>"), "'complexContent' lacks its extension or restriction", "syntax"},
        {Complex("<xs:simpleContent><xs:extension base='xs:int'/></xs:simpleContent><xs:attribute name='a'/>"), "'attribute' must not stand beside the content of 'complexType'", "syntax"},
        {Complex("<xs:sequence><xs:element ref='t:e' nillable='true'/></xs:sequence>"), "an 'element' here has no attribute 'nillable'", "syntax"},
        {Complex("<xs:sequence minOccurs='-1'/>"), "'-1' is no value of 'minOccurs', which takes a whole number from 0", "syntax"},
        {Complex("<xs:sequence maxOccurs='1.0'/>"), "'1.0' is no value of 'maxOccurs'", "syntax"},
        {Complex("<xs:all maxOccurs='2'/>"), "'2' is no value of 'maxOccurs', which takes 1", "syntax"},
        {Complex("<xs:anyAttribute namespace='##any ##local'/>"), "is no value of 'namespace'", "syntax"},
        {Complex("<xs:attribute name='a' use='required' default='1'/>"), "an attribute with a default must be optional", "syntax"},
        {Complex("<xs:attribute name='xmlns'/>"), "no attribute may be named 'xmlns'", "syntax"},
        {"<xs:group name='g'/>", "'group' lacks its all or choice or sequence", "syntax"},
        {"<xs:group name='g'><xs:sequence maxOccurs='2'/></xs:group>", "has no attribute 'maxOccurs'", "syntax"},
        {"<xs:simpleType name='S'><xs:list/></xs:simpleType>", "a list has either 'itemType' or a type within it", "syntax"},
        {"<xs:simpleType name='S'><xs:union/></xs:simpleType>", "a union has no members", "syntax"},
        {"<xs:simpleType name='S'><xs:restriction/></xs:simpleType>", "a restriction has either 'base' or a type within it", "syntax"},
        {"<xs:notation name='n'/>", "a notation needs 'public' or 'system'", "syntax"},
        // What version 1.1 brings
        {Complex("<xs:assert test='1'/>"), "'assert' belongs to XML Schema 1.1", "version"},
        {"<xs:override schemaLocation='b'/>", "'override' belongs to XML Schema 1.1", "version"},
        {"<xs:defaultOpenContent/>", "'defaultOpenContent' belongs to XML Schema 1.1", "version"},
        {Complex("<xs:sequence><xs:any notQName='a'/></xs:sequence>"), "'notQName' belongs to XML Schema 1.1", "version"},
        {"<xs:element name='e'><xs:alternative/></xs:element>", "'alternative' belongs to XML Schema 1.1", "version"},
        // Documents that are none
        {"<xs:element name='e'>", "mismatched tag", "xml"},
        {"<xs:annotation><xs:documentation>&undeclared;</xs:documentation></xs:annotation>", "undefined entity", "xml"},
    });
}

TEST(Errors, NamesAndCycles) {
    Check({
        {"<xs:element name='e' type='t:T'/>", "there is no type 'T' of 'u'", "unresolved"},
        {"<xs:element name='e' type='T'/>", "there is no type 'T'", "unresolved"},
        {"<xs:element name='e' type='x:T'/>", "the prefix of 'x:T' is not declared", "unresolved"},
        {"<xs:element name='e' type='xs:integr'/>", "there is no type 'integr' of 'http://www.w3.org/2001/XMLSchema'", "unresolved"},
        {"<xs:element name='e' substitutionGroup='t:f'/>", "there is no element 'f' of 'u'", "unresolved"},
        {Complex("<xs:group ref='t:g'/>"), "there is no group 'g' of 'u'", "unresolved"},
        {Complex("<xs:attributeGroup ref='t:g'/>"), "there is no attribute group 'g' of 'u'", "unresolved"},
        {"<xs:element name='e'><xs:keyref name='k' refer='t:l'><xs:selector xpath='a'/><xs:field xpath='b'/></xs:keyref></xs:element>", "there is no identity constraint 'l' of 'u'", "unresolved"},
        {"<xs:element name='e'/>\n<xs:element name='e'/>", "a.xsd:2:1: error: the element 'e' of 'u' is defined twice", "duplicate"},
        {"<xs:simpleType name='T'><xs:list itemType='xs:int'/></xs:simpleType>" + Complex(""), "the type 'T' of 'u' is defined twice", "duplicate"},
        {Complex("<xs:attribute name='a'/><xs:attribute name='a'/>"), "the attribute 'a' comes twice", "duplicate"},
        {Complex("<xs:attribute name='a' type='xs:ID'/><xs:attribute name='b' type='xs:ID'/>"), "more than one attribute of the type ID", "duplicate"},
        {Complex("<xs:complexContent><xs:extension base='t:T'/></xs:complexContent>"), "'T' of 'u' derives from itself", "cycle"},
        {"<xs:simpleType name='S'><xs:union memberTypes='xs:int t:R'/></xs:simpleType><xs:simpleType name='R'><xs:restriction base='t:S'/></xs:simpleType>", "derives from itself", "cycle"},
        {"<xs:group name='g'><xs:sequence><xs:choice><xs:group ref='t:h'/></xs:choice></xs:sequence></xs:group><xs:group name='h'><xs:all/></xs:group>"
         "<xs:group name='i'><xs:choice><xs:group ref='t:i' minOccurs='0'/></xs:choice></xs:group>", "'i' of 'u' refers to itself", "cycle"},
        {"<xs:attributeGroup name='g'><xs:attributeGroup ref='t:g'/></xs:attributeGroup>", "'g' of 'u' refers to itself", "cycle"},
        {"<xs:element name='e' substitutionGroup='t:f'/><xs:element name='f' substitutionGroup='t:e'/>", "may be substituted for itself", "cycle"},
    });
}

TEST(Errors, SimpleTypesAndValues) {
    auto const facet = [](std::string const& name, std::string const& value) { return "<xs:" + name + " value='" + value + "'/>"; };
    std::string const twoDigits = "<xs:simpleType name='B'><xs:restriction base='xs:decimal'><xs:totalDigits value='2' fixed='1'/><xs:minExclusive value='5'/></xs:restriction></xs:simpleType>";
    Check({
        {Simple("xs:int", facet("length", "1")), "'length' is no facet of the type that is restricted", "facet"},
        {Simple("xs:boolean", facet("enumeration", "true")), "'enumeration' is no facet", "facet"},
        {Simple("xs:string", facet("length", "1") + facet("length", "1")), "'length' is given twice", "facet"},
        {Simple("xs:string", facet("length", "-1")), "'-1' is no value of 'value'", "syntax"},
        {Simple("xs:string", facet("minLength", "3") + facet("maxLength", "2")), "'minLength' '3' does not go with 'maxLength' '2'", "facet"},
        {Simple("xs:string", facet("length", "3") + facet("maxLength", "3")), "'length' and 'maxLength' must not stand together", "facet"},
        {Simple("xs:decimal", facet("totalDigits", "2") + facet("fractionDigits", "3")), "'fractionDigits' '3' does not go with 'totalDigits' '2'", "facet"},
        {Simple("xs:int", facet("minInclusive", "2") + facet("maxExclusive", "2.0")), "'2.0' is no value", "facet"},
        {Simple("xs:int", facet("minInclusive", "2") + facet("maxExclusive", "+2")), "'minInclusive' '2' does not go with 'maxExclusive' '+2'", "facet"},
        {Simple("xs:int", facet("minInclusive", "2") + facet("minExclusive", "3")), "'minInclusive' and 'minExclusive' must not stand together", "facet"},
        {Simple("xs:byte", facet("maxInclusive", "128")), "'maxInclusive' '128' does not go with 'maxInclusive' '127' of the type that is restricted", "facet"},
        {Simple("xs:integer", facet("fractionDigits", "1")), "'fractionDigits' is fixed to '0'", "facet"},
        {Simple("xs:token", facet("whiteSpace", "preserve")), "'whiteSpace' must not be 'preserve'", "facet"},
        {Simple("xs:int", facet("enumeration", "1.5")), "'1.5' is no value of the type that is restricted: it is no int", "facet"},
        {Simple("xs:string", facet("pattern", "a{2,1}")), "'a{2,1}' is no pattern of XML Schema: it has a quantity whose end is below its start", "pattern"},
        {twoDigits + Simple("t:B", facet("totalDigits", "1")), "'totalDigits' is fixed to '2'", "facet"},
        {twoDigits + Simple("t:B", facet("enumeration", "5.0")), "it is not more than 5", "facet"},
        {twoDigits + Simple("t:B", facet("enumeration", "123")), "it has more than 2 digits", "facet"},
        {Simple("t:B", facet("enumeration", "3.0") + facet("enumeration", "3.1")) + "<xs:simpleType name='B'><xs:restriction base='xs:float'>" + facet("enumeration", "3") + "</xs:restriction></xs:simpleType>",
         "'3.1' is no value of the type that is restricted: it is none of the enumerated values", "facet"},
        {Simple("xs:anySimpleType", ""), "'anySimpleType' must not be restricted", "derivation"},
        {Simple("t:T", "") + Complex(""), "the type 'T' of 'u' is no simple type", "derivation"},
        {"<xs:simpleType name='L'><xs:list itemType='xs:NMTOKENS'/></xs:simpleType>", "the items of a list must not be lists", "derivation"},
        {"<xs:simpleType name='B' final='list'><xs:restriction base='xs:int'/></xs:simpleType><xs:simpleType name='L'><xs:list itemType='t:B'/></xs:simpleType>", "'B' of 'u' is final", "final"},
        {"<xs:element name='e' type='xs:int' default='x'/>", "'x' is no value of the type: it is no int", "value"},
        {"<xs:element name='e' type='xs:NMTOKENS' default=''/>", "it is shorter than 1", "value"},
        {"<xs:element name='e' type='xs:ID' default='x'/>", "must have neither default nor fixed value", "value"},
        {"<xs:element name='e' type='xs:QName' default='p:x'/>", "its prefix is not declared", "value"},
        {"<xs:element name='e' type='xs:NOTATION'/>", "a type of NOTATION must enumerate its values", "value"},
        {Simple("xs:NOTATION", facet("enumeration", "t:n")), "there is no such notation", "facet"},
        {"<xs:element name='e' default='x' type='t:T'/>" + Complex("<xs:sequence/>"), "needs simple content, or mixed content that may be empty", "value"},
        {"<xs:simpleType name='S'><xs:union memberTypes='xs:int xs:date'/></xs:simpleType><xs:attribute name='a' type='t:S' fixed='2001-02-29'/>", "no member of its union takes it", "value"},
        {"<xs:simpleType name='S'><xs:list itemType='xs:int'/></xs:simpleType><xs:attribute name='a' type='t:S' default='1 b'/>", "of its item 'b': it is no int", "value"},
        {"<xs:attribute name='a' fixed='1'/>" + Complex("<xs:attribute ref='t:a' fixed='2'/>"), "the attribute is declared with the fixed value '1'", "value"},
    });
}

TEST(Errors, ComplexTypes) {
    std::string const plain = "<xs:complexType name='B'><xs:sequence><xs:element name='a'/></xs:sequence></xs:complexType>";
    std::string const simple = "<xs:complexType name='B'><xs:simpleContent><xs:extension base='xs:int'/></xs:simpleContent></xs:complexType>";
    auto const derive = [](std::string const& base, std::string const& step, std::string const& own) {
        return "<xs:complexType name='B' " + base + "</xs:complexType>" + Complex("<xs:complexContent><xs:" + step + " base='t:B'>" + own + "</xs:" + step + "></xs:complexContent>");
    };
    auto const any = [](std::string const& namespaces) {
        return "><xs:sequence><xs:any namespace='" + namespaces + "' maxOccurs='3'/></xs:sequence>";
    };
    std::string const a = "><xs:sequence><xs:element name='a'/></xs:sequence>";
    Check({
        {Complex("<xs:complexContent><xs:extension base='xs:int'/></xs:complexContent>"), "the base of complex content must be a complex type", "derivation"},
        {Complex("<xs:simpleContent><xs:restriction base='xs:int'/></xs:simpleContent>"), "simple content is restricted from a complex type", "derivation"},
        {derive("final='extension'>", "extension", ""), "'B' of 'u' is final and must not be extended", "final"},
        {derive(a, "extension", "<xs:all><xs:element name='b'/></xs:all>"), "content of 'all' must not be extended", "all"},
        {Complex("<xs:simpleContent><xs:extension base='t:B'/></xs:simpleContent>") + plain, "the base 'B' of 'u' has no simple content", "derivation"},
        {Complex("<xs:simpleContent><xs:restriction base='t:B'/></xs:simpleContent>") + plain, "the base 'B' of 'u' has no simple content", "derivation"},
        {Complex("<xs:complexContent><xs:extension base='t:B'><xs:sequence><xs:element name='b'/></xs:sequence></xs:extension></xs:complexContent>") + simple, "the base 'B' of 'u' has simple content", "derivation"},
        {Complex("<xs:simpleContent><xs:restriction base='t:B'><xs:simpleType><xs:restriction base='xs:string'/></xs:simpleType></xs:restriction></xs:simpleContent>") + simple, "the type of the content does not derive from that of the base", "derivation"},
        {"<xs:complexType name='T' mixed='true'><xs:complexContent><xs:restriction base='t:B'><xs:sequence><xs:element name='a'/></xs:sequence></xs:restriction></xs:complexContent></xs:complexType>" + plain, "the base 'B' of 'u' is not mixed, so a restriction of it must not be", "derivation"},
        {derive("><xs:attribute name='x' fixed='1'/>", "restriction", "<xs:attribute name='x' fixed='2'/>"), "the attribute 'x' is fixed to '1' in the base", "derivation"},
        {derive("mixed='true'" + a, "extension", "<xs:sequence><xs:element name='b'/></xs:sequence>"), "an extension must be mixed if and only if its base is", "derivation"},
        {derive(a, "restriction", ""), "must not be empty, so a restriction of it must not be", "derivation"},
        {derive(">", "restriction", "<xs:sequence><xs:element name='b'/></xs:sequence>"), "has no elements that could be restricted", "derivation"},
        {derive("><xs:attribute name='x'/>", "extension", "<xs:attribute name='x'/>"), "the base has the attribute 'x' already", "duplicate"},
        {derive("><xs:attribute name='x'/>", "restriction", "<xs:attribute name='y'/>"), "the attribute 'y' is none of the base", "derivation"},
        {derive("><xs:attribute name='x' use='required'/>", "restriction", "<xs:attribute name='x'/>"), "the attribute 'x' is required by the base", "derivation"},
        {derive("><xs:attribute name='x' type='xs:int'/>", "restriction", "<xs:attribute name='x' type='xs:long'/>"), "has a type that does not derive from that in the base", "derivation"},
        {derive("><xs:anyAttribute namespace='##other'/>", "extension", "<xs:anyAttribute namespace='##local'/>"), "no wildcard can say what that of the base and that of the extension allow together", "wildcard"},
        {derive("><xs:anyAttribute namespace='##other'/>", "restriction", "<xs:anyAttribute namespace='v ##local'/>"), "allows more than that of the base", "derivation"},
        {derive(any("urn:v"), "restriction", "<xs:sequence><xs:any namespace='urn:v urn:w' maxOccurs='3'/></xs:sequence>"), "this wildcard allows more than the base 'B' of 'u', so it is no restriction", "derivation"},
        {derive(any("##other"), "restriction", "<xs:sequence><xs:element ref='t:E' maxOccurs='3'/></xs:sequence>") + "<xs:element name='E'/>", "the element 'E' of 'u' has no place in the base 'B' of 'u'", "derivation"},
        {derive(a, "restriction", "<xs:sequence><xs:element name='b'/></xs:sequence>"), "the element 'b' has no place in the base", "derivation"},
        {derive("><xs:sequence><xs:element name='a' type='xs:int'/></xs:sequence>", "restriction", "<xs:sequence><xs:element name='a' type='xs:long'/></xs:sequence>"), "the element 'a' has a type that does not derive from that in the base", "derivation"},
        {derive("><xs:sequence><xs:element ref='t:E'/></xs:sequence>", "restriction", "<xs:sequence><xs:element ref='t:F'/></xs:sequence>") + "<xs:element name='E' final='#all'/><xs:element name='F'/>", "the element 'F' of 'u' has no place in the base", "derivation"},
        {Complex("<xs:sequence><xs:element name='a' minOccurs='3' maxOccurs='2'/></xs:sequence>"), "minOccurs is 3, which is more than maxOccurs, 2", "occurs"},
        {Complex("<xs:all><xs:element name='a' maxOccurs='2'/></xs:all>"), "an element of 'all' must not occur more than once", "occurs"},
        {"<xs:group name='g'><xs:all><xs:element name='a'/></xs:all></xs:group>" + Complex("<xs:sequence><xs:group ref='t:g'/></xs:sequence>"), "a group of 'all' must be the whole content", "all"},
        {"<xs:group name='g'><xs:all/></xs:group>" + Complex("<xs:group ref='t:g' maxOccurs='2'/>"), "a group of 'all' must not occur more than once", "all"},
        {"<xs:element name='h' type='xs:int'/><xs:element name='m' type='xs:string' substitutionGroup='t:h'/>", "does not derive from that of 'h' of 'u'", "derivation"},
        {"<xs:element name='h' final='restriction' type='xs:int'/><xs:element name='m' type='xs:short' substitutionGroup='t:h'/>", "'h' of 'u' is final", "final"},
        {Complex("<xs:sequence><xs:element name='a' type='xs:int'/><xs:element name='a' type='xs:string'/></xs:sequence>"), "elements 'a' of one content model must have one type", "type"},
    });
}

TEST(Errors, Limits) {
    std::string chain = "<xs:complexType name='T0'/>", nested, doubled = "<xs:group name='g0'><xs:sequence><xs:any/></xs:sequence></xs:group>";
    std::string twice = "<xs:attributeGroup name='a0'><xs:attribute name='x'/></xs:attributeGroup>";
    for (int i = 1; i <= 1100; ++i) {
        std::string const n = std::to_string(i), last = std::to_string(i - 1);
        chain += "<xs:complexType name='T" + n + "'><xs:complexContent><xs:extension base='t:T" + last + "'/></xs:complexContent></xs:complexType>";
        nested += "<xs:sequence>";
        if (i < 40) twice += "<xs:attributeGroup name='a" + n + "'><xs:attributeGroup ref='t:a" + last + "'/><xs:attributeGroup ref='t:a" + last + "'/></xs:attributeGroup>";
        if (i < 40) doubled += "<xs:group name='g" + n + "'><xs:sequence><xs:group ref='t:g" + last + "'/><xs:group ref='t:g" + last + "'/></xs:sequence></xs:group>";
    }
    std::string const longName(100'000, 'n');
    Check({
        {chain, "stands at the end of a chain of more than 1024 components", "limit"},
        {twice, "the attribute 'x' comes twice", "duplicate"},
        {doubled, "more than 100000 particles in the content", "limit"},
        {Complex(nested), "more than 1024 elements within each other", "xml"},
        {"<xs:element name='e' type='t:" + longName + "'/>", "there is no type '" + std::string(100, 'n') + "...'", "unresolved"},
        {"<xs:element name='e' xmlns:p='" + longName + "'/>", "namespace name of more than 4096 octets", "xml"},
        {Simple("xs:string", "<xs:pattern value='" + std::string(100'000, '(') + "'/>"), "more than 256 groups within each other", "pattern"},
    });
}

TEST(Errors, FirstHundredAreShown) {
    std::string body;
    for (int i = 0; i < 103; ++i) body += "<xs:element name='e" + std::to_string(i) + "' type='T'/>";
    std::string const messages = Folder().Dump(Schema(body)).m_messages;
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 101);
    EXPECT_TRUE(messages.ends_with("bxgen: note: 3 more errors\n")) << messages.substr(messages.size() - 200);
}

TEST(Errors, EntitiesMustNotBlowUp) {
    std::string declarations = "<!ENTITY a0 'aaaaaaaaaa'>";
    for (int i = 1; i < 12; ++i) {
        declarations += "<!ENTITY a" + std::to_string(i) + " '";
        for (int k = 0; k < 10; ++k) declarations += "&a" + std::to_string(i - 1) + ";";
        declarations += "'>";
    }
    Outcome const outcome = Folder().Dump("<!DOCTYPE xs:schema [" + declarations + "]>" +
                                          Schema("<xs:annotation><xs:documentation>&a11;</xs:documentation></xs:annotation>"));
    EXPECT_EQ(outcome.m_status, 2);
    EXPECT_NE(outcome.m_messages.find("amplification"), std::string::npos) << outcome.m_messages;
}

TEST(Errors, EntitiesThatOnlyAnotherFileDeclares) {
    Folder const folder;
    std::string const type = "<!DOCTYPE xs:schema SYSTEM 'no.dtd' [<!ENTITY known 'e'>]>";
    std::string const rows[] = {"<xs:element name='a&far;'/>", "<xs:annotation><xs:documentation>&far;</xs:documentation></xs:annotation>"};
    for (std::string const& row : rows) {
        EXPECT_NE(folder.Dump(type + Schema(row)).m_messages.find("entity 'far' is not declared in the document itself [xml]"), std::string::npos) << row;
    }
    EXPECT_EQ(folder.Dump(type + Schema("<xs:element name='&known;&lt;&#65;'/>")).m_status, 2);
    EXPECT_EQ(folder.Dump(type + Schema("<xs:element name='&known;&#65;'/>")).m_messages, "");
}
// clang-format on

}  // namespace
}  // namespace BxGen
