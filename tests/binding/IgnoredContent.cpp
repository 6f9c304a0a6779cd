// Content that nothing takes.

#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

/// Every row is read without the setting too, and then nothing is said of what is lost.
TEST(IgnoredContent, FailsIfTheContextSaysSo) {
    struct Loss {
        std::string m_class;
        std::string m_document;
        std::string m_failure;      ///< "" if nothing is lost.
        std::string m_pardon = "";  ///< The setting that lets it pass all the same.
    } const losses[] = {
        {"a:text", "<a b='1'>x</a>", "!unexpected b", "A"},
        {"a:text", "<a>x<b/></a>", "!element b a", "E"},
        {"a:enum?", "<a><b/>one</a>", "!element b a", "E"},
        {"| a:number?", "<a b='1'>1</a>", "!unexpected b", "A"},
        {"a:number*", "<a>1</a><a>2<b/></a>", "!element b a", "E"},
        {"a:number*", "<a>1</a><a b='1'>2</a>", "!unexpected b", "A"},
        {"a:text*", "<a b='1'/>", "!unexpected b", "A"},
        {"| a:enum*", "<a b='1'/>", "!unexpected b", "A"},
        {"& a:enum*", "<a b='1'/>", "!unexpected b", "A"},
        {"a:{}*", "x<a/> y", "!stray x,y r"},
        {"a:{}", "<a> x </a>", "!stray x a"},
        {"a:text?", "<r b='1'/>", "!unexpected b", "A"},
        {"a:{@b:text?}", "<a b='1' c='2'/>", "!unexpected c", "A"},
        // What pseudo elements take of their owner's tag is not lost.
        {"p:(@b:text?, #)~, @c:text?", "<r b='1' c='2'>x</r>", ""},
        {"p:(@b:text?)~, @c:text?", "<r b='1' c='2' d='3'/>", "!unexpected d", "A"},
        {"p:(@b:text?, x:text)?, q:(@c:text?, y:text)?", "<r b='1' c='2'><x/><y/></r>", ""},
        {"p:(@b:text?, x:text)*, a:{}", "<r b='1'><x/><x/><a b='2'/></r>", "!unexpected b", "A"},
        {"p:(x:text?, y:{#})~", "x<y>z</y>", "!stray x r"},
        // Nor what is taken behind a child with a tag.
        {"a:{}, #", "x<a/>", ""},
        {"a:{}, p:(@b:text?, x:text)~, @c:text?", "<r b='1' c='2'><a/><x/></r>", ""},
        // An optional group that is not there takes nothing, whatever it has looked at.
        {"p:(@b:text?, #, x:text?)?, a:text", "<r b='1'><a/></r>", "!unexpected b", "A"},
        {"| p:(@b:text?, #, x:text?)? | a:text?", "<r b='1'><a/></r>", "!unexpected b", "A"},
        {"| p:(#, x:text?)? | a:text?", "x<a/>", "!stray x r"},
        {"@_:any", "<r b='1'/>", ""},
        {"_:any", "<b c='1'>x<d/></b>", ""},
        {"a:text",
         "<r xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:schemaLocation='x'> <a i:type='t'/>\n</r>",
         ""},
        {"a:text", "<r xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:nil='1'><a/></r>",
         "!unexpected nil", "A"},
        {"#", "<rest>x</rest>", "!root rest  r "},
        {"#", "<r xmlns='n'>x</r>", "!root r n r ", "N"},
        {"(a:text)", "<rest><a/></rest>", ""},
        {"(a:text)", "<a/><b/>", "!element b r", "E"},
        // Unknown elements that are ignored take what is in them along.
        {"a:text", "<r><u v='1'>w</u><a/></r>", "!missing a", "E"},
    };
    for (Loss const& loss : losses) {
        SCOPED_TRACE(loss.m_class + " " + loss.m_document);
        auto const read = [&](std::string const& settings) {
            TestObject object(Class(loss.m_class));
            std::string failure = Thrown([&] { Read(object, loss.m_document, settings); });
            return std::regex_replace(failure, std::regex("x y"), "x,y");
        };
        bool const isLost = loss.m_failure != "" && loss.m_failure != "!missing a";
        EXPECT_TRUE(!isLost || read("") == "nothing");
        EXPECT_EQ(read("F"), loss.m_failure.empty() ? "nothing" : Failure(loss.m_failure));
        for (char const setting : {'E', 'A', 'N'}) {
            bool const isPardoned = loss.m_failure.empty() || loss.m_pardon == std::string(1, setting);
            EXPECT_EQ(read(std::string("F") + setting) == "nothing", isPardoned) << setting;
        }
    }
}

/// In a time that does not grow with their square, which the limit of a test's time shows.
TEST(IgnoredContent, OfAnyNumberOfAttributes) {
    std::string attributes;
    for (int i = 0; i < 500'000; ++i) attributes += " a" + std::to_string(i) + "=''";
    TestObject object(Class("@_:any"));
    EXPECT_EQ(Thrown([&] { Read(object, "<r" + attributes + "/>", "F"); }), "nothing");
}

TEST(IgnoredContent, OfARootThatIsReadForItsChildren) {
    CXmlSerializationContext const plain = Settings(), strict = Settings("F");
    auto const read = [](char const* text, CXmlSerializationContext const& context) {
        CElementCol all(u"", u"##any", u"", 0, -1);
        CElement first(u"e");
        Cr8Col numbers(u"n", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1, CWhitespaceUtils::ws_Collapse,
                       nullptr);
        std::string outcome;
        for (CXmlObjectBase* const object : std::initializer_list<CXmlObjectBase*>{&all, &first, &numbers}) {
            // CElement hides the entry point.
            outcome += Thrown([&] { object->FromXml(text, context); }) == "nothing" ? "1" : "0";
        }
        return outcome;
    };
    EXPECT_EQ(read("<r k='1'>x<n>1</n><n>2</n><m/></r>", plain), "111");
    EXPECT_EQ(read("<r><n>1</n></r>", strict), "111");
    EXPECT_EQ(read("<r><n>1</n><n>2</n></r>", strict), "101");
    EXPECT_EQ(read("<r><n>1</n><m/></r>", strict), "100");
    EXPECT_EQ(read("<r k='1'><n>1</n></r>", strict), "000");
    EXPECT_EQ(read("<r>x<n>1</n></r>", strict), "000");
}

}  // namespace
