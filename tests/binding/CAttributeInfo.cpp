#include "BxXmlLib5/binding/CAttributeInfo.h"

#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

TEST(AttributeInfo, ReadsAndWrites) {
    std::string const ns = "<r xmlns:AA=\"n\" AA:K=\"one\"/>";
    ExpectRows({
        {"strict @k:number?, @l:number, @m:text?, @e:enum?, @q:text?", "",
         "<r q='' e='two' m=' a  b ' l='1' k=' 7 '/>",
         "<r k=\"7.00\" l=\"1.00\" m=\"a b\" e=\"two\" q=\"\"/>"},
        {"strict @k:enum?", "", "<r k='one '/>", "!no-enum k"},
        {"strict @K:text?", "", ns},
        {"strict @K:text?", "", "<r K='one'/>", "!unexpected K"},
        {"strict @K:enum?", "", "<r K='one'/>", "!unexpected K"},
        {"strict @K:text?", "N", "<r K='one'/>", "!unexpected K"},
        {"strict @K:enum?", "N", "<r K='one'/>", ns},
        {"strict @k:enum", "N", "<r xmlns:q='u' q:k='one'/>", "<r k=\"one\"/>"},
        {"@k:enum", "", "-", "!not-set"},
        // Defaults.
        {"@k:text=x, @l:enum=two", "D", "<r k=\"x\" l=\"two\"/>"},
        {"@k:number?=1.50, @l:number?=1.5", "D", "<r k='1.5' l='1.5'/>", "<r l=\"1.50\"/>"},
        {"@k:short?=abc", "D", "<r k='abc'/>", ""},
        // Wildcards take what no entry ahead of them takes.
        {"strict @_:any?, @k:text", "", "<r k='1'/>", "!no-attribute k"},
        {"@_:any?[##other;t]", "A", "<r xmlns:AA='t' AA:k='1'/>", "!namespace t ##other t"},
        {"@_:any?[##targetNamespace;t]", "N", "<r k='1'/>", "!namespace  ##targetNamespace t"},
        {"@_:any?<nothing>", "", "<r k='1'/>", "!other-collection CAttributeCol"},
        {"@_:any?<nothing>", "", "-", "!nothing-there"},
        {"@_:any?<other>", "", "-", "!other-kind 28 5"},
    });
}

TEST(AttributeInfo, HandsTheTargetNamespaceToAWildcard) {
    TestObject object(Class("@_:any?<list>"));
    object.m_target = u"target";
    t_log.clear();
    Written(object);
    EXPECT_EQ(t_log, "[target]#");
}

}  // namespace
