#include "BxXmlLib5/binding/CAttributeInfo.h"

#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

TEST(AttributeInfo, ReadsAndWrites) {
    std::string const ns = "<r xmlns:AA=\"n\" AA:K=\"one\"/>";
    ExpectRows({
        {"s-(@Pk? @Pl! @Sm? @Ee? @Sq?)", "", "<r q='' e='two' m=' a  b ' l='1' k=' 7 '/>",
         "<r k=\"7.00\" l=\"1.00\" m=\"a b\" e=\"two\" q=\"\"/>"},
        {"s-(@Pk?)", "", "<r k='x'/>", "!no-double x"},
        {"s-(@Ek?)", "", "<r k='one '/>", "!no-enum k"},
        {"s-(@SK?)", "", ns},
        {"s-(@SK?)", "", "<r K='one'/>", "!unexpected K"},
        {"s-(@EK?)", "", "<r K='one'/>", "!unexpected K"},
        {"s-(@SK?)", "N", "<r K='one'/>", "!unexpected K"},
        {"s-(@EK?)", "N", "<r K='one'/>", ns},
        {"s-(@Ek!)", "N", "<r xmlns:q='u' q:k='one'/>", "<r k=\"one\"/>"},
        {"s(@Ek!)", "", "<r/>", "!no-attribute k"},
        {"s(@Ek!)", "", "-", "!not-set"},
        // Defaults.
        {"s(@Sk?=x @El?=two)", "", "<r k=\"x\" l=\"two\"/>"},
        {"s(@Sk?=x @El?=two)", "D", "<r k=\"x\" l=\"two\"/>", ""},
        {"s(@Sk?=x @El?=two)", "D", "<r/>"},
        {"s(@Sk?=x @El?=two)", "D", "<r k=\"X\" l=\"one\"/>"},
        {"s(@Sk!=x @El!=two)", "D", "<r k=\"x\" l=\"two\"/>"},
        {"s(@Pk?=1.50 @Pl?=1.5)", "D", "<r k='1.5' l='1.5'/>", "<r l=\"1.50\"/>"},
        {"s(@Fk?=abc)", "D", "<r k='abc'/>", ""},
        // Wildcards take what no entry ahead of them takes.
        {"s-(@Sk? @U_?)", "", "<r j='0' k='1' l='2' m='3'/>", "<r k=\"1\" j=\"0\" l=\"2\" m=\"3\"/>"},
        {"s-(@U_? @Sk!)", "", "<r k='1'/>", "!no-attribute k"},
        {"s(@U_?[##other|t])", "A", "<r xmlns:AA='t' AA:k='1'/>", "!namespace t ##other t"},
        {"s(@U_?[##targetNamespace|t])", "N", "<r k='1'/>", "!namespace  ##targetNamespace t"},
        {"s(@U_?%)", "", "<r k='1'/>", "!other-collection CAttributeCol"},
        {"s(@U_?%)", "", "-", "!nothing-there"},
        {"s(@U_?$)", "", "-", "!other-kind 28 5"},
    });
}

TEST(AttributeInfo, HandsTheTargetNamespaceToAWildcard) {
    TestObject object(Class("s(@U_?&)"));
    object.m_target = u"target";
    t_log.clear();
    Written(object);
    EXPECT_EQ(t_log, "[target]#");
}

}  // namespace
