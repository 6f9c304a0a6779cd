#include <set>

#include "document/Trees.h"

using namespace BxTest;

namespace {

constexpr SchemaType kSomeOther = static_cast<SchemaType>(1);

class Attribute : public CXmlAttribute {
public:
    Attribute(CXmlName const& name, std::u16string_view value) : CXmlAttribute(name, CXmlText(value)) {}
};

class Element : public CXmlElement {
public:
    explicit Element(CXmlName const& name) : CXmlElement(nullptr, name) {}
    using CXmlElement::AddAttribute;
};

}  // namespace

TEST(Tree, Shape) {
    struct {
        char const* m_text;
        char const* m_tree;
        SchemaType m_schemaType = st_Default;
    } const rows[] = {
        {"<a/>", "a"},
        {"<a></a>", "a"},
        {"<a><b/><c><d/><e/></c><f/></a>", "a(b c(d e) f)"},
        {"<a z='1' b='2' m=''/>", "a@z=1@b=2@m="},
        {"<é ö='ü'>𝄞</é>", "é@ö=ü'𝄞'"},
        {"<!DOCTYPE a><a/> <!-- end --> <?p?>\n", "a"},

        {"<a>x<b>y</b>z</a>", "a'xz'(b'y')"},
        {"<a>\n\t<b/>\n</a>", "a'\n\t\n'(b)"},
        {"<a> x </a>", "a' x '"},
        {"<?p?><!--c--><a>x<!--c-->y<?p?>z</a><!--d-->", "a'xyz'"},
        {"<a>x<![CDATA[<y>]]>z</a>", "a'x<y>z'"},
        {"<a><![CDATA[]]><![CDATA[]]]]><![CDATA[>]]></a>", "a']]>'"},
        {"<a k='&lt;&gt;&amp;&quot;&apos;'>&lt;&gt;&amp;&quot;&apos;&#65;&#x1D11E;</a>",
         "a@k=<>&\"''<>&\"'A𝄞'"},

        {"<a>&#13;</a>", "a"},
        {"<a>&#13;&#xD;x&#13;y&#xD;&#xA;z&#13;</a>", "a'xy\nz'"},
        {"<a>x\r\ny\rz</a>", "a'x\ny\nz'"},
        {"<a k='&#13;x&#13;' l='1\r\n2\t3'/>", "a@k=\rx\r@l=1 2 3"},

        {"<!DOCTYPE a [<!ATTLIST a k CDATA 'd' l NMTOKENS #IMPLIED>]><a l=' 1  2 '/>", "a@l=1 2@k=d"},
        {"<!DOCTYPE a [<!ENTITY e 'x<b/>y'><!ENTITY f '&e;&e;'><!ENTITY g 'v'>]><a k='&g;'>1&f;2</a>",
         "a@k=v'1xyxy2'(b b)"},
        {"<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><a>1&e;2</a>", "a'12'"},
        {"<!DOCTYPE a SYSTEM 'none.dtd'><a>1&e;2</a>", "a'12'"},

        {"<a xmlns='u'><b/></a>", "{u}a({u}b)"},
        {"<a xmlns='u' xmlns:p='v' k='1' p:k='2'/>", "{u}a@k=1@{v}k=2"},
        {"<p:a xmlns:p='u'><p:b xmlns:p='v'/><p:c/></p:a>", "{u}a({v}b {u}c)"},
        {"<a xmlns='u'><b xmlns=''><c/></b></a>", "{u}a(b(c))"},
        {"<a xml:lang='en' xml:space='preserve'/>",
         "a@{http://www.w3.org/XML/1998/namespace}lang=en@{http://www.w3.org/XML/1998/"
         "namespace}space=preserve"},
        {"<p:a xmlns:p='u' p:x='1'/>", "{u}a@{u}x=1", kSomeOther},

        {"<p:a xmlns:p='u' xmlns='v' p:x='1'><p:b/></p:a>", "p:a@xmlns:p=u@xmlns=v@p:x=1(p:b)",
         st_NoNamespaces},
        {"<p:a q:k='1' k='2'>x|y</p:a>", "p:a@q:k=1@k=2'x|y'", st_NoNamespaces},

        {"<a><b>", "a(b)"},
        {"<a>text", "a'text'"},
        {"<a><b>x</b><c k='1'>y<d l='2", "a(b'x' c@k=1'y')"},
    };
    for (auto const& row : rows) {
        for (Way const way : kEveryWay) {
            CXmlDocument document(row.m_schemaType);
            EXPECT_EQ(Thrown([&] { Load(way, document, row.m_text); }), "nothing") << row.m_text;
            EXPECT_EQ(Dump(document.GetDocumentElement()), row.m_tree) << row.m_text << way;
            EXPECT_EQ(document.GetDocumentElement()->GetDocument(), &document);
        }
    }
}

TEST(Tree, NamespaceOfAlias) {
    struct {
        char const* m_text;
        char16_t const* m_alias;
        char16_t const* m_namespaceUri;
        SchemaType m_schemaType = st_Default;
    } const rows[] = {
        {"<a xmlns='u'/>", u"", u"u"},
        {"<a xmlns='u'/>", nullptr, u"u"},
        {"<a xmlns='u'/>", u"p", u""},
        {"<a/>", u"", u""},
        {"<a xml:lang='en'/>", u"xml", u""},
        {"<a><b><c xmlns:p='u'/></b></a>", u"p", u"u"},
        {"<a xmlns:p='u'><b xmlns:p='v'/><p:c/></a>", u"p", u"v"},
        {"<a xmlns:p='u' xmlns:P='v'/>", u"p", u"u"},
        {"<a xmlns='u'><b xmlns='v'/></a>", u"", u"v"},
        {"<a xmlns='u'><b xmlns=''/></a>", u"", u""},
        {"<a xmlns:p='u' xmlns='v'/>", u"p", u"", st_NoNamespaces},
        {"<a xmlns:p='u' xmlns='v'/>", u"", u"", st_NoNamespaces},
    };
    for (auto const& row : rows) {
        CXmlDocument document(row.m_schemaType);
        document.LoadXml(row.m_text);
        EXPECT_EQ(document.LookupNamespaceFromAlias(row.m_alias), row.m_namespaceUri) << row.m_text;
    }
}

TEST(Tree, GetAttribute) {
    wstring const k = u"k", u = u"u", none;
    CXmlName const kOfU{u, k}, kOfNone{none, k}, uOfNone{none, u};
    Attribute inNamespace(kOfU, u"1"), first(kOfNone, u"2"), second(kOfNone, u"3"), empty(uOfNone, u"");
    Element element(kOfU), other(kOfU);
    for (Attribute* attribute : {&inNamespace, &first, &second, &empty}) element.AddAttribute(attribute);
    EXPECT_EQ(element.GetAttribute(k, u), u"1");
    EXPECT_EQ(element.GetAttribute(k, none), u"2");
    EXPECT_EQ(element.GetAttribute(u, none), u"");
    EXPECT_EQ(element.GetAttribute(u"K", none), u"");
    EXPECT_EQ(&element.GetAttribute(k, k), &other.GetAttribute(u, u));
}

TEST(Tree, IsNamespaceAttribute) {
    wstring const xsi = u"http://www.w3.org/2001/XMLSchema-instance",
                  xmlns = u"http://www.w3.org/2000/xmlns/";
    std::set<wstring> const marks = {u"xmlns", u"type", u"schemaLocation", u"noNamespaceSchemaLocation"};
    std::set<wstring> names = {u"nil", u"", u"Type", u"typ", u"types", u"p", u"xml"};
    names.insert(marks.begin(), marks.end());
    for (wstring const& ns :
         {xsi, xmlns, xsi + u"/", wstring(), wstring(u"http://www.w3.org/XML/1998/namespace")}) {
        for (wstring const& name : names) {
            EXPECT_EQ(Attribute(CXmlName{ns, name}, u"v").IsNamespaceAttribute(),
                      (ns == xsi || ns == xmlns) && marks.contains(name))
                << Name(ns, name);
        }
    }
}
