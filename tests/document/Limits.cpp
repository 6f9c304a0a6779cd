#include <sstream>

#include "document/Trees.h"

using namespace BxTest;

namespace {

std::string const kTooDeep =
    "CBxException: Elements are nested more than 1024 levels deep, which is the limit";
std::string const kTooManyEntities =
    "CBxException: More than 1024 entities refer to others, which is the limit";
std::string const kTooMuchExpansion =
    "CBxException: limit on input amplification factor (from DTD and entities) breached at line 1";

std::string LoadAnd(CXmlDocument& document, std::string const& text) {
    return Thrown([&] { document.LoadXml(text.c_str()); });
}

/// Entities e0 to e<count>; e0 is a text, each of the others refers to the one before, so many times.
std::string EntityChain(int count, std::string const& ampersand, int times, std::string const& content) {
    std::ostringstream text;
    text << "<!DOCTYPE a [<!ENTITY e0 'x'>";
    for (int i = 1; i <= count; ++i)
        text << "<!ENTITY e" << i << " '" << Repeat(ampersand + "e" + std::to_string(i - 1) + ";", times)
             << "'>";
    text << "]>" << content;
    return text.str();
}

}  // namespace

TEST(Limits, Depth) {
    CXmlDocument document;
    for (Way const way : kEveryWay) {
        EXPECT_EQ(Thrown([&] { Load(way, document, Repeat("<a>", 1024) + Repeat("</a>", 1024)); }),
                  "nothing");
        EXPECT_EQ(Thrown([&] { Load(way, document, Repeat("<a>", 1025) + Repeat("</a>", 1025)); }), kTooDeep);
    }
    int depth = 0;
    LoadAnd(document, Repeat("<a>", 1024));
    for (auto* element = document.GetDocumentElement(); element != nullptr;
         element = element->GetFirstElement())
        ++depth;
    EXPECT_EQ(depth, 1024);
    // What was open in one document does not count for the next.
    EXPECT_EQ(LoadAnd(document, Repeat("<a>", 1024)), "nothing");
    EXPECT_EQ(LoadAnd(document, Repeat("<a>", 1023) + Repeat("<b></b>", 3)), "nothing");
    EXPECT_EQ(LoadAnd(document, Repeat("<a>", 200000)), kTooDeep);
    EXPECT_EQ(LoadAnd(document, "<!DOCTYPE a [<!ENTITY e '<a/>'>]>" + Repeat("<a>", 1024) + "&e;"), kTooDeep);
    EXPECT_EQ(LoadAnd(document, "<a/>"), "nothing");
    EXPECT_EQ(Dump(document.GetDocumentElement()), "a");
}

TEST(Limits, Entities) {
    CXmlDocument document;
    struct {
        std::string m_text;
        std::string m_outcome;
    } const rows[] = {
        {EntityChain(1024, "&", 1, "<a k='&e1024;'>&e1024;</a>"), "nothing"},
        {EntityChain(1025, "&", 1, "<a>&e1;</a>"), kTooManyEntities},
        {EntityChain(2000, "&", 1, "<a>&e2000;</a>"), kTooManyEntities},
        {EntityChain(2000, "&", 1, "<a k='&e2000;'/>"), kTooManyEntities},
        {EntityChain(2000, "&#38;", 1, "<a>&e2000;</a>"), kTooManyEntities},
        {EntityChain(2000, "&#x26;", 1, "<a k='&e2000;'/>"), kTooManyEntities},
        {EntityChain(100000, "&", 1, "<a>&e100000;</a>"), kTooManyEntities},
        {EntityChain(30, "&", 10, "<a>&e30;</a>"), kTooMuchExpansion},
        {EntityChain(30, "&", 10, "<a k='&e30;'/>"), kTooMuchExpansion},
        {"<a/>", "nothing"},
    };
    for (auto const& row : rows) EXPECT_EQ(LoadAnd(document, row.m_text), row.m_outcome) << row.m_text.size();
}

TEST(Limits, ManyNodes) {
    std::ostringstream text;
    text << "<a";
    for (int i = 0; i < 100000; ++i) text << " k" << i << "='" << i << "'";
    text << ">" << Repeat("<b>x</b>\n", 200000) << "</a>";
    CXmlDocument document;
    ASSERT_EQ(LoadAnd(document, text.str()), "nothing");
    CXmlElement const* const root = document.GetDocumentElement();
    EXPECT_EQ(root->GetAttributes().size(), 100000U);
    EXPECT_EQ(root->GetAttribute(u"k99999", u""), u"99999");
    EXPECT_EQ(root->GetText(), wstring(200000, u'\n'));
    int children = 0;
    for (auto* child = root->GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        children += Dump(child) == "b'x'";
    EXPECT_EQ(children, 200000);
}

TEST(Limits, LongNamesAndTexts) {
    std::string const name(4000000, 'n'), text = Repeat("some text&#13; é", 400000);
    CXmlDocument document;
    ASSERT_EQ(LoadAnd(document, "<" + name + " k='" + text + "'>" + text + "</" + name + ">"), "nothing");
    EXPECT_EQ(Dump(document.GetDocumentElement()),
              name + "@k=" + Repeat("some text\r é", 400000) + "'" + Repeat("some text é", 400000) + "'");
}
