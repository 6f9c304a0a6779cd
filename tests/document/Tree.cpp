#include <set>

#include "document/CDocumentBuilder.h"
#include "fastinfoset/Reading.h"

using namespace BxTest;

TEST(Tree, Shape) {
    ExpectLoads(
        {"<a><b/><c><d/><e/></c><f/></a> => a(b c(d e) f)", "<é ö='ü' b='2' m=''>𝄞</é> => é@ö=ü@b=2@m='𝄞'",
         "<!DOCTYPE a><?p?><!--c--><a>x<!--c-->y<?p?>z</a> <!--d--> => a'xyz'",
         "<a>x<b>y</b>z</a> => a'xz'(b'y')", "<a>x<![CDATA[<y>]]>&amp;&#x1D11E;</a> => a'x<y>&𝄞'",
         "<a>&#13;&#xD;x&#13;y&#xD;&#xA;z&#13;</a> => a'xy\nz'", "<a>x\r\ny\rz</a> => a'x\ny\nz'",
         "<a k='&#13;x&#13;' l='1\r\n2\t3'/> => a@k=\rx\r@l=1 2 3",
         "<!DOCTYPE a [<!ATTLIST a k CDATA 'd'>]><a l=' 1  2 '/> => a@l= 1  2 @k=d",
         "<!DOCTYPE a [<!ENTITY e 'x<b/>y'>]><a>1&e;2</a> => a'1xy2'(b)",
         "<!DOCTYPE a [<!ENTITY e 'x&#13;y&#38;#13;z'>]><a>&#13;&e;<b/>&#13;&e;</a> => a'xyzxyz'(b)",
         "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><a>1&e;2</a> => a'12'",
         // Namespaces.
         "<a xmlns='u' xmlns:p='v' k='1' p:k='2'><b xmlns=''/><c/></a> => {u}a@k=1@{v}k=2(b {u}c)",
         "<p:a xmlns:p='u'><p:b xmlns:p='v'/><p:c/></p:a> => {u}a({v}b {u}c)",
         "<p:a xmlns:p='u'><p:b/><p:a xmlns:p='v'><p:b/></p:a><p:b/></p:a> => {u}a({u}b {v}a({v}b) {u}b)",
         "<a xml:lang='en'/> => a@{http://www.w3.org/XML/1998/namespace}lang=en",
         // Documents that stop.
         "<a>text => a'text'", "<a><b>x</b><c k='1'>y<d l='2 => a(b'x' c@k=1'y')"});
    ExpectLoads({"<p:a xmlns:p='u' p:x='1'/> => {u}a@{u}x=1"}, {kNarrow}, static_cast<SchemaType>(1));
    ExpectLoads({"<p:a xmlns:p='u' xmlns='v' q:x='1'>x|y</p:a> => p:a@xmlns:p=u@xmlns=v@q:x=1'x|y'"},
                {kNarrow}, st_NoNamespaces);
}

TEST(Tree, NamesOfAnyLength) {
    std::string tags, names;
    for (int round = 0; round < 2; ++round) {
        for (std::size_t size = 1; size <= 40; ++size) {
            std::string const name = std::string(size / 2, 'x') + "é" + std::string((size - 1) / 2, 'y');
            tags += '<' + name + "/><" + name + " /><" + name + "\n></" + name + ">";
            for (int time = 0; time < 3; ++time) names += (names.empty() ? "" : " ") + name;
        }
    }
    ExpectLoads({"<a>" + tags + "</a> => a(" + names + ")"});
}

TEST(Tree, ManyAttributesOfOneElement) {
    constexpr std::size_t kMany = 70'000;  // more than a chunk of nodes holds
    std::string tag = "<b";
    for (std::size_t i = 0; i < kMany; ++i) tag += " k" + std::to_string(i) + "='" + std::to_string(i) + '\'';
    CXmlDocument document;
    document.LoadXml(("<a>" + Repeat("<c l='1'/>", 20'000) + tag + "/><c l='1'/></a>").c_str());
    CXmlElement const* element = document.GetDocumentElement()->GetFirstElement();
    for (; element->GetNextSiblingElement() != nullptr; element = element->GetNextSiblingElement()) {
        auto const& attributes = element->GetAttributes();
        std::size_t const count = element->GetLocalName() == u"b" ? kMany : 1;
        ASSERT_EQ(attributes.size(), count);
        ASSERT_EQ(&attributes, &element->GetAttributes());
        for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(attributes[i], &element->GetAttributeView()[i]);
        ASSERT_EQ(ToUtf8(attributes.back()->GetValueView()), count == 1 ? "1" : std::to_string(kMany - 1));
    }
    EXPECT_TRUE(document.GetDocumentElement()->GetAttributes().empty());
}

TEST(Tree, NamespaceOfAlias) {
    auto const look = [](char const* text, char16_t const* alias, SchemaType schemaType = st_Default) {
        CXmlDocument document(schemaType);
        document.LoadXml(text);
        EXPECT_EQ(document.GetDocumentElement()->GetDocument(), &document);
        return document.LookupNamespaceFromAlias(alias);
    };
    EXPECT_EQ(look("<a xmlns='u' xml:lang='en'/>", nullptr), u"u");
    EXPECT_EQ(look("<a xmlns='u' xml:lang='en'/>", u"xml"), u"");
    EXPECT_EQ(look("<a xmlns:p='u'><b xmlns:p='v'/><p:c/></a>", u"p"), u"v");
    EXPECT_EQ(look("<a xmlns='u'><b xmlns=''/></a>", u""), u"");
    EXPECT_EQ(look("<a xmlns:p='u'/>", u"p", st_NoNamespaces), u"");
}

TEST(Tree, GetAttribute) {
    CXmlDocument document;
    document.LoadXml("<a xmlns:u='u' u:k='1' k='2' u=''>x</a>");
    CXmlElement const& element = *document.GetDocumentElement();
    EXPECT_EQ(element.GetAttribute(u"k", u"u") + element.GetAttribute(u"k", u""), u"12");
    EXPECT_EQ(&element.GetText(), &element.GetText());
    EXPECT_EQ(&element.GetAttribute(u"k", u""), &element.GetAttribute(u"k", u""));
    EXPECT_EQ(element.GetAttribute(u"u", u"") + element.GetAttribute(u"K", u""), u"");
}

TEST(Tree, IsNamespaceAttribute) {
    std::set<wstring> const namespaces = {u"http://www.w3.org/2001/XMLSchema-instance",
                                          u"http://www.w3.org/2000/xmlns/"};
    std::set<wstring> const marks = {u"xmlns", u"type", u"schemaLocation", u"noNamespaceSchemaLocation"};
    for (wstring const ns : {u"http://www.w3.org/2001/XMLSchema-instance", u"http://www.w3.org/2000/xmlns/",
                             u"http://www.w3.org/XML/1998/namespace", u""}) {
        for (wstring const name :
             {u"xmlns", u"type", u"schemaLocation", u"noNamespaceSchemaLocation", u"nil", u"typ"}) {
            // Not from XML text, in which xmlns is no namespace of attributes.
            std::string const start = ns.empty() ? "78 " : "79 " + LiteralOf(ns);
            CXmlDocument document;
            Load(kOctets, document,
                 OctetsOf("E0 00 00 01 00 7C 00 'a' " + start + LiteralOf(name) + " FF F0 FF"));
            EXPECT_EQ(document.GetDocumentElement()->GetAttributes().front()->IsNamespaceAttribute(),
                      namespaces.contains(ns) && marks.contains(name))
                << Name(ns, name);
        }
    }
}

TEST(Tree, HoldsEachNameOnce) {
    constexpr int kNames = 3000;  // far beyond what the tables of names begin with
    std::string children;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < kNames; ++i) {
            std::string const name = "n" + std::to_string(i);
            children += "<" + name + " " + name + "='' xmlns='urn:" + std::to_string(i % 3) + "'/>";
        }
    }
    CXmlDocument document;
    document.LoadXml(("<a>" + children + "</a>").c_str());
    std::vector<CXmlElement*> elements;
    for (auto* child = document.GetDocumentElement()->GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        elements.push_back(child);
    ASSERT_EQ(elements.size(), 2u * kNames);
    for (std::size_t i = 0; i < kNames; ++i) {
        CXmlElement const &first = *elements[i], &second = *elements[i + kNames];
        EXPECT_EQ(Name(first.GetNamespaceURI(), first.GetLocalName()),
                  "{urn:" + std::to_string(i % 3) + "}n" + std::to_string(i));
        EXPECT_EQ(&first.GetLocalName(), &second.GetLocalName());
        EXPECT_EQ(&first.GetLocalName(), &first.GetAttributes()[0]->GetLocalName());
        EXPECT_EQ(&first.GetNamespaceURI(), &second.GetNamespaceURI());
    }
}
