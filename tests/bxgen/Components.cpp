// What is read, shown by the dump.

#include <gtest/gtest.h>

#include <string>

#include "Folder.h"

namespace BxGen {
namespace {

std::string const kHead = "schema a.xsd of \"u\"\n";

/// The dump without what stands behind the sign at: up to a blank or the end of the line.
std::string WithoutPlaces(std::string text) {
    for (std::size_t at = text.find(" @"); at != text.npos; at = text.find(" @", at)) {
        text.erase(at, text.find_first_of(" \n", at + 1) - at);
    }
    return text;
}

struct Row {
    std::string m_body;
    std::string m_dump;
    std::string m_attributes = "";
};

void Check(std::initializer_list<Row> rows) {
    Folder const folder;
    for (Row const& row : rows) {
        Outcome const outcome = folder.Dump(Schema(row.m_body, row.m_attributes));
        EXPECT_EQ(outcome.m_messages, "") << row.m_body;
        std::string const head = row.m_attributes.empty() ? kHead : "";
        EXPECT_EQ(WithoutPlaces(outcome.m_output), head + row.m_dump) << row.m_body;
    }
}

// clang-format off
TEST(Components, ElementsAndAttributes) {
    Check({
        {"<xs:element name='e'/>", "element {u}e type xs:anyType\n"},
        {"<xs:element name='e' type='xs:int' default=' 7 ' nillable='1' abstract=' true ' block='#all' final='extension'/>",
         "element {u}e type xs:int default \" 7 \" nillable abstract block extension,restriction,substitution final extension\n"},
        {"<xs:element name='e' type='xs:int'/><xs:element name='f' substitutionGroup='t:e'/>",
         "element {u}e type xs:int\nelement {u}f type xs:int head {u}e\n"},
        {"<xs:element name='e'><xs:key name='k'><xs:selector xpath='a'/><xs:field xpath='@b'/></xs:key>"
         "<xs:keyref name='r' refer='t:k'><xs:selector xpath='c'/><xs:field xpath='d'/></xs:keyref></xs:element>",
         "element {u}e type xs:anyType\n  key {u}k selector \"a\" fields \"@b\"\n  keyref {u}r refer {u}k selector \"c\" fields \"d\"\n"},
        {"<xs:attribute name='a'/><xs:attribute name='b' type='xs:QName' fixed='t:x'/>",
         "attribute {u}a type xs:anySimpleType\nattribute {u}b type xs:QName fixed \"t:x\"\n"},
        {"<xs:notation name='n' public='p'/>", "notation {u}n public \"p\" system \"\"\n"},
        // Forms, with the defaults of the schema
        {"<xs:complexType name='T'><xs:sequence><xs:element name='e'/><xs:element name='f' form='unqualified'/></xs:sequence>"
         "<xs:attribute name='a'/><xs:attribute name='b' form='unqualified'/></xs:complexType>",
         "schema a.xsd of \"u\" elements-qualified attributes-qualified\ncomplexType {u}T restricts xs:anyType element-only\n  sequence 1..1\n"
         "    element {u}e 1..1 type xs:anyType\n    element f 1..1 type xs:anyType\n  attribute {u}a type xs:anySimpleType\n"
         "  attribute b type xs:anySimpleType\n  attributes {u}a b\n",
         "elementFormDefault='qualified' attributeFormDefault='qualified'"},
        {"<xs:complexType name='T'/><xs:element name='e'/><xs:simpleType name='S'><xs:list itemType='xs:int'/></xs:simpleType>",
         "schema a.xsd of \"u\"\nelement {u}e type xs:anyType block restriction final extension\n"
         "complexType {u}T restricts xs:anyType empty block restriction final extension\nsimpleType {u}S list of xs:int final list\n",
         "blockDefault='restriction' finalDefault='extension list'"},
    });
}

TEST(Components, ContentAndGroups) {
    Check({
        {"<xs:group name='g'><xs:choice><xs:element name='c'/><xs:any namespace='##other' processContents='lax'/></xs:choice></xs:group>"
         "<xs:complexType name='T' mixed='true'><xs:sequence minOccurs='0'><xs:group ref='t:g' maxOccurs='unbounded'/><xs:sequence maxOccurs='18446744073709551616'>"
         "<xs:element ref='t:r' maxOccurs='4294967296'/></xs:sequence><xs:element name='never' minOccurs='0' maxOccurs='0'/></xs:sequence></xs:complexType><xs:element name='r'/>",
         "element {u}r type xs:anyType\ncomplexType {u}T restricts xs:anyType mixed\n  sequence 0..1\n    group ref {u}g 1..*\n    sequence 1..*\n"
         "      element ref {u}r 1..4294967296\ngroup {u}g\n  choice\n    element c 1..1 type xs:anyType\n    any 1..1 lax other than \"u\"\n"},
        {"<xs:complexType name='T'><xs:all minOccurs='0'><xs:element name='a'/></xs:all><xs:anyAttribute namespace='##local ##targetNamespace v' processContents='skip'/></xs:complexType>",
         "complexType {u}T restricts xs:anyType element-only\n  all 0..1\n    element a 1..1 type xs:anyType\n  anyAttribute skip of \"\" \"u\" \"v\"\n  attributes and skip of \"\" \"u\" \"v\"\n"},
        {"<xs:attributeGroup name='g'><xs:attribute name='a'/><xs:attributeGroup ref='t:h'/><xs:anyAttribute namespace='v w'/></xs:attributeGroup>"
         "<xs:attributeGroup name='h'><xs:attribute name='b' use='required'/><xs:anyAttribute namespace='w x'/></xs:attributeGroup>"
         "<xs:complexType name='T'><xs:attributeGroup ref='t:g'/><xs:attribute name='c'/></xs:complexType>",
         "complexType {u}T restricts xs:anyType empty\n  attributeGroup ref {u}g\n  attribute c type xs:anySimpleType\n  attributes a b! c and strict of \"w\"\n"
         "attributeGroup {u}g\n  attribute a type xs:anySimpleType\n  attributeGroup ref {u}h\n  anyAttribute strict of \"v\" \"w\"\n"
         "attributeGroup {u}h\n  attribute b required type xs:anySimpleType\n  anyAttribute strict of \"w\" \"x\"\n"},
        // Groups without members are no content
        {"<xs:complexType name='T'><xs:sequence><xs:choice minOccurs='0'/></xs:sequence></xs:complexType>", "complexType {u}T restricts xs:anyType empty\n"},
    });
}

TEST(Components, Derivation) {
    std::string const base = "<xs:complexType name='B'><xs:sequence><xs:element name='a'/></xs:sequence><xs:attribute name='x'/><xs:attribute name='y'/></xs:complexType>";
    std::string const baseDump = "complexType {u}B restricts xs:anyType element-only\n  sequence 1..1\n    element a 1..1 type xs:anyType\n"
                                 "  attribute x type xs:anySimpleType\n  attribute y type xs:anySimpleType\n  attributes x y\n";
    std::string const complex = "<xs:complexType name='D'><xs:complexContent>", end = "</xs:complexContent></xs:complexType>";
    Check({
        {base + complex + "<xs:extension base='t:B'><xs:sequence><xs:element name='b'/></xs:sequence><xs:attribute name='w'/></xs:extension>" + end,
         baseDump + "complexType {u}D extends {u}B element-only\n  sequence 1..1\n    element b 1..1 type xs:anyType\n  attribute w type xs:anySimpleType\n  attributes x y w\n"},
        {base + complex + "<xs:extension base='t:B'/>" + end, baseDump + "complexType {u}D extends {u}B element-only\n  attributes x y\n"},
        {base + complex + "<xs:restriction base='t:B'><xs:sequence><xs:element name='a' type='xs:int'/></xs:sequence>"
         "<xs:attribute name='y' use='required'/><xs:attribute name='x' use='prohibited'/></xs:restriction>" + end,
         baseDump + "complexType {u}D restricts {u}B element-only\n  sequence 1..1\n    element a 1..1 type xs:int\n"
         "  attribute y required type xs:anySimpleType\n  attribute x prohibited type xs:anySimpleType\n  attributes y!\n"},
        {"<xs:complexType name='D'><xs:simpleContent><xs:extension base='xs:int'><xs:attribute name='a'/></xs:extension></xs:simpleContent></xs:complexType>"
         "<xs:complexType name='E'><xs:simpleContent><xs:restriction base='t:D'><xs:maxInclusive value='9'/></xs:restriction></xs:simpleContent></xs:complexType>",
         "complexType {u}D extends xs:int simple\n  content type xs:int\n  attribute a type xs:anySimpleType\n  attributes a\n"
         "complexType {u}E restricts {u}D simple\n  content type anonymous\n    simpleType restricts xs:int\n      maxInclusive \"9\"\n  attributes a\n"},
    });
}

TEST(Components, SimpleTypes) {
    Check({
        {"<xs:simpleType name='S'><xs:restriction base='xs:token'><xs:pattern value='[a-z]*'/><xs:enumeration value='b'/><xs:enumeration value='a \"'/>"
         "<xs:maxLength value=' +5 ' fixed='true'/></xs:restriction></xs:simpleType>",
         "simpleType {u}S restricts xs:token\n  pattern \"[a-z]*\"\n  enumeration \"b\"\n  enumeration \"a \\\"\"\n  maxLength \"+5\" fixed\n"},
        {"<xs:simpleType name='L'><xs:list><xs:simpleType><xs:restriction base='xs:int'/></xs:simpleType></xs:list></xs:simpleType>",
         "simpleType {u}L list of anonymous\n  simpleType restricts xs:int\n"},
        // Unlike a complex type, one without a name may be final, which means nothing
        {"<xs:element name='e'><xs:simpleType final='#all'><xs:list itemType='xs:int'/></xs:simpleType></xs:element>",
         "element {u}e type anonymous\n  simpleType list of xs:int final restriction,list,union\n"},
        {"<xs:simpleType name='U'><xs:union memberTypes='xs:int t:V'><xs:simpleType><xs:restriction base='xs:NMTOKENS'/></xs:simpleType></xs:union></xs:simpleType>"
         "<xs:simpleType name='V'><xs:restriction><xs:simpleType><xs:restriction base='xs:date'/></xs:simpleType></xs:restriction></xs:simpleType>",
         "simpleType {u}U union of xs:int {u}V anonymous\n  simpleType restricts xs:NMTOKENS\nsimpleType {u}V restricts anonymous\n  simpleType restricts xs:date\n"},
        {"<xs:simpleType name='Q'><xs:restriction base='xs:QName'><xs:enumeration value='t:x'/></xs:restriction></xs:simpleType>",
         "simpleType {u}Q restricts xs:QName\n  enumeration \"t:x\" is {u}x\n"},
    });
}

TEST(Components, DocumentationOfDeclarationsAndReferences) {
    auto const doc = [](std::string const& text) { return "<xs:annotation><xs:documentation xml:lang='en'>" + text + "</xs:documentation></xs:annotation>"; };
    Check({
        {doc(" of\n the <b>schema</b> ") + "<xs:element name='e' f:foreign='1' xmlns:f='f'>" + doc("of e") + "</xs:element><xs:complexType name='T'>" + doc("of T") +
         "<xs:sequence>" + doc("of the sequence") + "<xs:element ref='t:e'>" + doc("of the reference") + "</xs:element><xs:group ref='t:g'>" + doc("of the other") +
         "</xs:group></xs:sequence><xs:attribute ref='t:a'>" + doc("of the use") + "</xs:attribute></xs:complexType><xs:group name='g'><xs:sequence/></xs:group>"
         "<xs:attribute name='a'><xs:annotation><xs:appinfo>\nx</xs:appinfo></xs:annotation></xs:attribute>",
         "  doc \"of the schema\"\nelement {u}e type xs:anyType\n  doc \"of e\"\nattribute {u}a type xs:anySimpleType\n  appinfo \"x\"\ncomplexType {u}T restricts xs:anyType element-only\n"
         "  doc \"of T\"\n  sequence 1..1\n    doc \"of the sequence\"\n    element ref {u}e 1..1\n      doc \"of the reference\"\n    group ref {u}g 1..1\n"
         "      doc \"of the other\"\n  attribute ref {u}a\n    doc \"of the use\"\n  attributes {u}a\ngroup {u}g\n  sequence\n"},
    });
}
// clang-format on

TEST(Components, PlacesAndEncodings) {
    Folder const folder;
    std::string const schema =
        "<?xml version='1.0' encoding='ISO-8859-1'?>\n<!DOCTYPE xs:schema [<!ENTITY n 'e'>]>\n"
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>\n  <xs:element name='&n;\xE9'/>\n</xs:schema>";
    EXPECT_EQ(folder.Dump(schema),
              (Outcome{0, "schema a.xsd of \"\"\nelement e\xC3\xA9 type xs:anyType @a.xsd:4:3\n", ""}));
}

}  // namespace
}  // namespace BxGen
