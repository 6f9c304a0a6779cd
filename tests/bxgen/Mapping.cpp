// How components are mapped: the plan's types, properties and rows.

#include <gtest/gtest.h>

#include <string>

#include "PlanText.h"

namespace BxGen {
namespace {

struct Row {
    std::string m_body;
    std::string m_plan;
    std::string m_attributes = "";
};

void Check(std::initializer_list<Row> rows) {
    Folder const folder;
    for (Row const& row : rows) {
        folder.Put("a.xsd", Schema(row.m_body, row.m_attributes));
        EXPECT_EQ('\n' + PlanOf(folder), row.m_plan) << row.m_body;
    }
}

// clang-format off
TEST(Mapping, Bounds) {
    Check({
        {"<xs:complexType name='T'><xs:sequence><xs:element name='a' type='xs:int'/>"
         "<xs:element name='b' type='xs:int' minOccurs='0'/>"
         "<xs:element name='c' type='xs:int' minOccurs='0' maxOccurs='unbounded'/>"
         "<xs:element name='d' type='xs:int' minOccurs='2' maxOccurs='3'/>"
         "<xs:element name='e' type='t:T' minOccurs='0'/><xs:element name='f' type='t:T'/>"
         "<xs:element name='g' type='t:T' maxOccurs='unbounded'/>"
         "<xs:element name='h' type='t:T' maxOccurs='9999999999'/></xs:sequence></xs:complexType>", R"(
)"},
        {"<xs:complexType name='T'><xs:sequence><xs:element name='a' type='xs:int' default='1'/>"
         "<xs:element name='b' type='xs:int' fixed='2' minOccurs='0'/>"
         "<xs:element name='c' type='xs:int' default='3' maxOccurs='unbounded'/></xs:sequence></xs:complexType>", R"(
)"},
        // Forms and namespaces
        {"<xs:complexType name='T'><xs:sequence><xs:element name='a' type='xs:int'/><xs:element ref='t:b'/>"
         "<xs:element name='c' type='xs:int' form='qualified'/></xs:sequence></xs:complexType>"
         "<xs:element name='b' type='xs:int'/>", R"(
)"},
        {"<xs:complexType name='T'><xs:sequence><xs:any/><xs:element name='a' type='xs:int'/>"
         "<xs:any namespace='##other' minOccurs='0' maxOccurs='2' processContents='skip'/></xs:sequence>"
         "<xs:anyAttribute namespace='v ##local ##targetNamespace' processContents='skip'/></xs:complexType>", R"(
)"},
        {"<xs:complexType name='T'><xs:sequence><xs:element name='a'/><xs:element name='b' maxOccurs='2'/></xs:sequence>"
         "</xs:complexType>", R"(
)"},
        {"<xs:complexType name='T'><xs:all minOccurs='0'><xs:element name='a' type='xs:int'/>"
         "<xs:element name='b' type='xs:int' minOccurs='0'/></xs:all></xs:complexType>", R"(
)"},
    });
}

TEST(Mapping, Groups) {
    Check({
        // Groups of one kind are one, those of one member are gone
        {"<xs:complexType name='T'><xs:sequence><xs:sequence><xs:element name='a' type='xs:int'/><xs:sequence>"
         "<xs:element name='b' type='xs:int'/></xs:sequence></xs:sequence><xs:choice>"
         "<xs:element name='c' type='xs:int'/></xs:choice><xs:choice minOccurs='0'><xs:element name='d' type='xs:int'/>"
         "<xs:element name='e' type='xs:int'/></xs:choice><xs:sequence></xs:sequence></xs:sequence></xs:complexType>", R"(
)"},
        // Bounds of a member and its group
        {"<xs:complexType name='T'><xs:sequence><xs:sequence maxOccurs='unbounded'>"
         "<xs:element name='a' type='xs:int' minOccurs='0' maxOccurs='unbounded'/></xs:sequence>"
         "<xs:sequence minOccurs='0'><xs:element name='b' type='xs:int' minOccurs='2' maxOccurs='3'/></xs:sequence>"
         "<xs:sequence minOccurs='2' maxOccurs='4'><xs:element name='c' type='xs:int'/></xs:sequence>"
         "<xs:choice minOccurs='0'><xs:sequence maxOccurs='unbounded'><xs:element name='d' type='xs:int'/></xs:sequence>"
         "</xs:choice></xs:sequence></xs:complexType>", R"(
)"},
        // A choice within a choice, an empty arm
        {"<xs:complexType name='T'><xs:choice><xs:element name='a' type='xs:int'/><xs:choice minOccurs='0'>"
         "<xs:element name='b' type='xs:int'/><xs:element name='c' type='xs:int'/></xs:choice><xs:sequence>"
         "</xs:sequence></xs:choice></xs:complexType>", R"(
)"},
        // Properties of arms that exclude each other
        {"<xs:complexType name='T'><xs:choice><xs:sequence><xs:element name='a' type='xs:int'/>"
         "<xs:element name='b' type='xs:int'/></xs:sequence><xs:sequence><xs:element name='b' type='xs:int'/>"
         "<xs:element name='a' type='xs:int' maxOccurs='unbounded'/></xs:sequence></xs:choice></xs:complexType>", R"(
)"},
        {"<xs:complexType name='T'><xs:sequence><xs:element name='a' type='xs:int'/><xs:element name='b' type='xs:int'/>"
         "<xs:element name='a' type='xs:int'/><xs:choice><xs:sequence><xs:element name='c' type='xs:int'/>"
         "<xs:element name='a' type='xs:int'/></xs:sequence><xs:sequence><xs:element name='d' type='xs:int'/>"
         "<xs:element name='a' type='xs:int'/></xs:sequence></xs:choice></xs:sequence></xs:complexType>", R"(
)"},
        // Items
        {"<xs:complexType name='T'><xs:sequence><xs:sequence minOccurs='0' maxOccurs='unbounded'>"
         "<xs:element name='a' type='xs:int'/><xs:element name='b' type='xs:int'/></xs:sequence>"
         "<xs:choice maxOccurs='5'><xs:element name='a' type='xs:int'/><xs:element name='c' type='xs:int'/></xs:choice>"
         "</xs:sequence></xs:complexType>", R"(
)"},
        {"<xs:complexType name='T'><xs:choice maxOccurs='unbounded'><xs:element name='a' type='xs:int'/>"
         "<xs:element name='b' type='xs:int'/></xs:choice></xs:complexType>", R"(
)"},
        // A named group has one class
        {"<xs:group name='g'><xs:sequence><xs:element name='a' type='xs:int'/><xs:element name='b' type='xs:int'/>"
         "</xs:sequence></xs:group><xs:complexType name='T'><xs:sequence><xs:group ref='t:g' maxOccurs='unbounded'/>"
         "</xs:sequence></xs:complexType><xs:complexType name='U'><xs:sequence><xs:element name='c' type='xs:int'/>"
         "<xs:group ref='t:g' minOccurs='0' maxOccurs='unbounded'/></xs:sequence></xs:complexType>"
         "<xs:complexType name='V'><xs:sequence><xs:group ref='t:g'/></xs:sequence></xs:complexType>", R"(
)"},
    });
}

TEST(Mapping, AttributesAndText) {
    Check({
        {"<xs:complexType name='T'><xs:attribute name='a' type='xs:int'/><xs:attribute name='b' use='required'/>"
         "<xs:attribute name='c' type='xs:int' default='1'/>"
         "<xs:attribute name='d' type='xs:int' fixed='1' use='required'/><xs:attribute name='e' use='prohibited'/>"
         "<xs:attribute ref='xml:lang'/><xs:attribute ref='t:f'/><xs:anyAttribute/></xs:complexType>"
         "<xs:attribute name='f' type='xs:boolean'/>", R"(
)"},
        {"<xs:complexType name='T'><xs:simpleContent><xs:extension base='xs:decimal'><xs:attribute name='value'/>"
         "</xs:extension></xs:simpleContent></xs:complexType>", R"(
)"},
        {"<xs:complexType name='T' mixed='true'><xs:sequence><xs:element name='text' type='xs:int'/></xs:sequence>"
         "<xs:attribute name='text'/></xs:complexType>", R"(
)"},
        {"<xs:complexType name='T'><xs:attribute name='q' type='xs:QName'/></xs:complexType>", R"(
)"},
    });
}

TEST(Mapping, Derivation) {
    Check({
        {"<xs:complexType name='B'><xs:sequence><xs:element name='a' type='xs:int'/></xs:sequence></xs:complexType>"
         "<xs:complexType name='D'><xs:complexContent><xs:extension base='t:B'><xs:sequence>"
         "<xs:element name='b' type='xs:int'/><xs:element name='a' type='xs:int'/></xs:sequence>"
         "<xs:attribute name='x' type='xs:int'/></xs:extension></xs:complexContent></xs:complexType>", R"(
)"},
        // Nothing is added
        {"<xs:complexType name='B'><xs:sequence><xs:element name='a' type='xs:int'/></xs:sequence></xs:complexType>"
         "<xs:complexType name='D'><xs:complexContent><xs:extension base='t:B'></xs:extension></xs:complexContent>"
         "</xs:complexType><xs:complexType name='E'><xs:complexContent><xs:extension base='t:D'></xs:extension>"
         "</xs:complexContent></xs:complexType><xs:element name='e' type='t:D'/>", R"(
)"},
        {"<xs:complexType abstract='true' name='B'><xs:sequence><xs:element name='a' type='xs:int'/></xs:sequence>"
         "</xs:complexType><xs:complexType name='D'><xs:complexContent><xs:extension base='t:B'></xs:extension>"
         "</xs:complexContent></xs:complexType>", R"(
)"},
        {"<xs:complexType name='B'><xs:sequence><xs:element name='a' type='xs:int' minOccurs='0'/>"
         "<xs:element name='b' type='xs:int' maxOccurs='unbounded'/><xs:element name='c' type='t:B' minOccurs='0'/>"
         "</xs:sequence><xs:attribute name='x' type='xs:int'/><xs:attribute name='y' type='xs:int'/></xs:complexType>"
         "<xs:complexType name='D'><xs:complexContent><xs:restriction base='t:B'><xs:sequence>"
         "<xs:element name='b' type='xs:int' maxOccurs='2'/><xs:element name='c' type='t:B'/></xs:sequence>"
         "<xs:attribute name='x' type='xs:int' use='required'/><xs:attribute name='y' use='prohibited'/>"
         "</xs:restriction></xs:complexContent></xs:complexType>", R"(
)"},
        {"<xs:complexType name='B'><xs:sequence><xs:any processContents='skip'/></xs:sequence></xs:complexType>"
         "<xs:complexType name='D'><xs:complexContent><xs:restriction base='t:B'><xs:sequence>"
         "<xs:element name='a' type='xs:int'/></xs:sequence></xs:restriction></xs:complexContent></xs:complexType>", R"(
)"},
        {"<xs:complexType name='B'><xs:simpleContent><xs:extension base='xs:int'><xs:attribute name='a'/></xs:extension>"
         "</xs:simpleContent></xs:complexType><xs:complexType name='D'><xs:simpleContent><xs:restriction base='t:B'>"
         "<xs:maxInclusive value='9'/></xs:restriction></xs:simpleContent></xs:complexType><xs:complexType name='E'>"
         "<xs:simpleContent><xs:extension base='t:B'/></xs:simpleContent></xs:complexType>", R"(
)"},
        {"<xs:complexType name='B'><xs:sequence></xs:sequence>"
         "<xs:anyAttribute namespace='##local' processContents='skip'/></xs:complexType><xs:complexType name='D'>"
         "<xs:complexContent><xs:extension base='t:B'><xs:anyAttribute namespace='v' processContents='skip'/>"
         "</xs:extension></xs:complexContent></xs:complexType>", R"(
)"},
        {"<xs:element name='r'><xs:complexType><xs:complexContent><xs:extension base='t:B'><xs:sequence>"
         "<xs:element name='b' type='xs:int'/></xs:sequence></xs:extension></xs:complexContent></xs:complexType>"
         "</xs:element><xs:complexType name='B'><xs:sequence><xs:element name='a' type='xs:int'/></xs:sequence>"
         "</xs:complexType>", R"(
)"},
    });
}

TEST(Mapping, Substitution) {
    Check({
        {"<xs:complexType name='B'></xs:complexType><xs:complexType name='D'><xs:complexContent>"
         "<xs:extension base='t:B'><xs:sequence><xs:element name='x' type='xs:int'/></xs:sequence></xs:extension>"
         "</xs:complexContent></xs:complexType><xs:element name='h' type='t:B'/>"
         "<xs:element name='d' type='t:D' substitutionGroup='t:h'/><xs:element name='e' substitutionGroup='t:h'/>"
         "<xs:complexType name='T'><xs:sequence><xs:element ref='t:h' minOccurs='0' maxOccurs='unbounded'/>"
         "</xs:sequence></xs:complexType><xs:complexType name='U'><xs:choice><xs:element ref='t:h'/>"
         "<xs:element name='z' type='xs:int'/></xs:choice></xs:complexType>", R"(
)"},
        // Members of simple type have classes of their own
        {"<xs:element name='h' abstract='true'/><xs:element name='i' type='xs:int' substitutionGroup='t:h'/>"
         "<xs:element name='n' type='xs:int' nillable='true' substitutionGroup='t:h'/><xs:complexType name='T'>"
         "<xs:sequence><xs:element ref='t:h'/></xs:sequence></xs:complexType>", R"(
)"},
        // No member
        {"<xs:element name='h' abstract='true'/><xs:complexType name='T'><xs:sequence><xs:element ref='t:h'/>"
         "<xs:element name='a' type='xs:int'/></xs:sequence></xs:complexType>", R"(
)"},
    });
}

TEST(Mapping, NilAndRoots) {
    Check({
        {"<xs:complexType name='T'><xs:sequence><xs:element name='a' type='xs:int' nillable='true'/>"
         "<xs:element name='b' type='xs:int' nillable='true' maxOccurs='unbounded'/>"
         "<xs:element name='c' type='t:N' nillable='true'/></xs:sequence></xs:complexType><xs:complexType name='N'>"
         "<xs:attribute name='x'/></xs:complexType>", R"(
)"},
        {"<xs:element name='r' type='xs:int' nillable='true'/><xs:element name='s' type='t:T'/><xs:element name='u'/>"
         "<xs:element name='v'><xs:complexType><xs:sequence><xs:element ref='t:w'/></xs:sequence></xs:complexType>"
         "</xs:element><xs:element name='w'><xs:complexType/></xs:element><xs:complexType name='T'></xs:complexType>", R"(
)"},
    });
}

TEST(Mapping, SimpleTypes) {
    Check({
        {"<xs:simpleType name='s'><xs:restriction base='xs:decimal'><xs:maxInclusive value='9.5'/>"
         "<xs:minExclusive value='-1'/><xs:totalDigits value='3'/></xs:restriction></xs:simpleType>"
         "<xs:simpleType name='plain'><xs:restriction base='xs:long'></xs:restriction></xs:simpleType>"
         "<xs:simpleType name='Type'><xs:restriction base='xs:float'><xs:minInclusive value='INF'/></xs:restriction>"
         "</xs:simpleType><xs:simpleType name='len'><xs:restriction base='xs:string'><xs:maxLength value='99999999999'/>"
         "</xs:restriction></xs:simpleType>", R"(
)"},
        {"<xs:simpleType name='fixType'><xs:restriction base='xs:token'><xs:enumeration value='none'/>"
         "<xs:enumeration value=' 2d '/><xs:enumeration value='a'/><xs:enumeration value='A'/>"
         "<xs:enumeration value='+'/><xs:enumeration value=''/><xs:enumeration value='none'/></xs:restriction>"
         "</xs:simpleType><xs:simpleType name='some'><xs:restriction base='t:fixType'><xs:enumeration value='a'/>"
         "</xs:restriction></xs:simpleType><xs:simpleType name='short'><xs:restriction base='t:fixType'>"
         "<xs:maxLength value='1'/></xs:restriction></xs:simpleType>", R"(
)"},
        {"<xs:simpleType name='e'><xs:restriction base='xs:string'><xs:enumeration value=' a'/></xs:restriction>"
         "</xs:simpleType><xs:simpleType name='n'><xs:restriction base='xs:decimal'><xs:enumeration value=' 1.0 '/>"
         "<xs:enumeration value='2'/></xs:restriction></xs:simpleType><xs:simpleType name='q'>"
         "<xs:restriction base='xs:QName'><xs:length value='3'/></xs:restriction></xs:simpleType>", R"(
)"},
        {"<xs:simpleType name='p'><xs:restriction base='xs:string'><xs:pattern value='\\d+'/><xs:pattern value='[a-z]'/>"
         "</xs:restriction></xs:simpleType><xs:simpleType name='w'><xs:restriction base='t:p'>"
         "<xs:whiteSpace value='collapse'/><xs:pattern value='x*'/><xs:maxLength value='3'/></xs:restriction>"
         "</xs:simpleType>", R"(
)"},
        {"<xs:simpleType name='l'><xs:list itemType='xs:int'/></xs:simpleType><xs:simpleType name='two'>"
         "<xs:restriction base='t:l'><xs:length value='2'/></xs:restriction></xs:simpleType><xs:simpleType name='u'>"
         "<xs:union memberTypes='xs:int t:l'><xs:simpleType><xs:restriction base='xs:token'><xs:enumeration value='x'/>"
         "</xs:restriction></xs:simpleType></xs:union></xs:simpleType>", R"(
)"},
        {"<xs:complexType name='T'><xs:attribute name='kind'><xs:simpleType><xs:restriction base='xs:token'>"
         "<xs:enumeration value='x'/></xs:restriction></xs:simpleType></xs:attribute><xs:attribute name='ids'>"
         "<xs:simpleType><xs:list itemType='xs:ID'/></xs:simpleType></xs:attribute>"
         "<xs:attribute name='lineType' type='t:line'/></xs:complexType><xs:simpleType name='line'>"
         "<xs:restriction base='xs:token'><xs:enumeration value='x'/></xs:restriction></xs:simpleType>", R"(
)"},
    });
}

TEST(Mapping, Names) {
    Check({
        {"<xs:element name='order' type='t:order'/><xs:complexType name='order'><xs:sequence>"
         "<xs:element name='release' type='xs:int'/><xs:element name='Clone' type='xs:int'/>"
         "<xs:element name='bx' type='xs:int'/><xs:element name='class' type='xs:int'/>"
         "<xs:element name='a-b' type='xs:int'/><xs:element name='a.b' type='xs:int'/>"
         "<xs:element name='_' type='xs:int'/><xs:element name='é1x' type='xs:int'/></xs:sequence></xs:complexType>"
         "<xs:simpleType name='order2'><xs:restriction base='xs:int'></xs:restriction></xs:simpleType>", R"(
)"},
        {"<xs:complexType name='T'><xs:sequence><xs:element name='e'><xs:complexType><xs:sequence><xs:element name='e'>"
         "<xs:complexType/></xs:element></xs:sequence></xs:complexType></xs:element></xs:sequence></xs:complexType>"
         "<xs:complexType name='T.e'></xs:complexType>", R"(
)"},
    });
}

// clang-format on

}  // namespace
}  // namespace BxGen
