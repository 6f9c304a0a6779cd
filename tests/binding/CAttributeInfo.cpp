#include "BxXmlLib5/binding/CAttributeInfo.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

TEST(AttributeInfo, ReadsAndWrites) {
    std::string const ns = "<r xmlns:AA=\"n\" AA:K=\"one\"/>";
    std::string const notAttributes =
        "CBxException: Serialization Data Error : The collection should be a CAttributeCol, it was not!";
    ExpectRows({
        {"s-(@Pk? @Rl! @Sm? @Ee? @Sq?)", "", "<r q='' e='two' m=' a  b ' l='1' k=' 7 '/>",
         "<r k=\"7\" l=\"1.00\" m=\"a b\" e=\"two\" q=\"\"/>"},
        {"s-(@Pk?)", "", "<r/>"},
        {"s-(@Pk?)", "", "<r k='x'/>",
         "CBxInvalidValueException: The value [x] can not be converted to a i4"},
        {"s-(@Ek?)", "", "<r k='one '/>", "CBxInvalidValueException: Invalid Value for k [3]"},
        {"s-(@SK?)", "", ns.c_str()},
        {"s-(@EK?)", "", ns.c_str()},
        {"s-(@SK?)", "", "<r K='one'/>", UnknownAttribute("K")},
        {"s-(@EK?)", "", "<r K='one'/>", UnknownAttribute("K")},
        {"s-(@SK?)", "N", "<r K='one'/>", UnknownAttribute("K")},
        {"s-(@SK?)", "2", "<r K='one'/>", UnknownAttribute("K")},
        {"s-(@EK?)", "N", "<r K='one'/>", ns},
        {"s-(@EK?)", "2", "<r K='one'/>", ns},
        {"s-(@Ek!)", "N", "<r xmlns:q='u' q:k='one'/>", "<r k=\"one\"/>"},
        {"s-(@Sk?)", "N", "<r xmlns:q='u' q:k='one'/>", UnknownAttribute("k")},
        {"s-(@El?)", "N", "<r k='one'/>", UnknownAttribute("k")},
        {"s(@Ek!)", "", "<r/>", MissingAttribute("k")},
        {"s(@Pk!)", "", nullptr, "CBxException: Invalid Type 0 to convert to string"},
        {"s(@Ek!)", "", nullptr, "<r k=\"zero\"/>"},
        // Defaults.
        {"s(@Sk?=x @El?=two)", "", "<r k=\"x\" l=\"two\"/>"},
        {"s(@Sk?=x @El?=two)", "D", "<r k=\"x\" l=\"two\"/>", ""},
        {"s(@Sk?=x @El?=two)", "D", "<r/>"},
        {"s(@Sk?=x @El?=two)", "D", "<r k=\"X\" l=\"one\"/>"},
        {"s(@Sk!=x @El!=two)", "D", "<r k=\"x\" l=\"two\"/>"},
        {"s(@Rk?=1.50 @Rl?=1.5)", "D", "<r k='1.5' l='1.5'/>", "<r l=\"1.50\"/>"},
        {"s(@Sk?)", "D", "<r k=\"\"/>"},
        {"s(@Fk?=abc)", "D", "<r k='abc'/>", ""},
        // Wildcards take what no entry ahead of them takes.
        {"s-(@Sk? @U_?)", "", "<r j='0' k='1' l='2' m='3'/>", "<r k=\"1\" j=\"0\" l=\"2\" m=\"3\"/>"},
        {"s-(@U_? @Sk!)", "", "<r k='1'/>", MissingAttribute("k")},
        {"s-(@U_!)", "", "<r/>"},
        {"s-(@U_?[##other|t])", "", "<r xmlns:AA=\"u\" AA:k=\"1\"/>"},
        {"s(@U_?[##other|t])", "A", "<r xmlns:AA='t' AA:k='1'/>", NotAllowed("t", "##other", "t")},
        {"s(@U_?[##targetNamespace|t])", "N", "<r k='1'/>", NotAllowed("", "##targetNamespace", "t")},
        {"s(@U_?%)", "", "<r k='1'/>", notAttributes},
        {"s(@U_?&)", "", "<r k='1'/>", notAttributes},
        {"s(@U_?%)", "", nullptr, kNothingInPlace},
        {"s(@U_?$)", "", nullptr, WrongKind(it_xmlCollection, it_i4)},
        {"s(@U_?-)", "", "<r k='1'/>", ""},
        {"s(@Ek?$)", "", nullptr, WrongKind(it_i4, it_string)},
    });
}

TEST(AttributeInfo, TestsTheFacetsOfWhatIsWritten) {
    TestObject object(Class("s(@Fk?=abc)"));
    object["k"].SetString(u"abc");
    LogWriter writer;
    EXPECT_EQ(Thrown([&] { object.ToXml_Int(&writer, true, u"", Settings(""), false); }).substr(0, 13),
              "CBxException:");
    EXPECT_EQ(writer.m_calls, "start [r] []\n");
    auto const& entry = dynamic_cast<CAttributeInfoPrimitive&>(*object.m_class.m_attributes[0]);
    EXPECT_EQ(Thrown([&] { entry.CheckRestriction(object["k"]); }).substr(0, 13), "CBxException:");
}

TEST(AttributeInfo, HandsTheTargetNamespaceToAWildcard) {
    TestObject object(Class("s(@U_?&)"));
    object.m_target = u"target";
    t_log.clear();
    object.Text();
    EXPECT_EQ(t_log, "[target]");
}

}  // namespace
