#include <set>

#include "document/Trees.h"

using namespace BxTest;

namespace {

struct Attribute : CXmlAttribute {
    Attribute(CXmlName const& name, std::u16string_view value) : CXmlAttribute(name, CXmlText(value)) {}
};

struct Element : CXmlElement {
    explicit Element(CXmlName const& name) : CXmlElement(nullptr, name) {}
    using CXmlElement::AddAttribute;
};

}  // namespace

TEST(Tree, Shape) {
    ExpectLoads(
        {"<a></a> => a", "<a><b/><c><d/><e/></c><f/></a> => a(b c(d e) f)",
         "<a z='1' b='2' m=''/> => a@z=1@b=2@m=", "<é ö='ü'>𝄞</é> => é@ö=ü'𝄞'",
         "<!DOCTYPE a><a/> <!-- end --> <?p?>\n => a",
         // Text.
         "<a>x<b>y</b>z</a> => a'xz'(b'y')", "<a>\n\t<b/>\n</a> => a'\n\t\n'(b)",
         "<?p?><!--c--><a>x<!--c-->y<?p?>z</a><!--d--> => a'xyz'", "<a>x<![CDATA[<y>]]>z</a> => a'x<y>z'",
         "<a k='&lt;&amp;&quot;&apos;'>&lt;&amp;&#65;&#x1D11E;</a> => a@k=<&\"''<&A𝄞'", "<a>&#13;</a> => a",
         "<a>&#13;&#xD;x&#13;y&#xD;&#xA;z&#13;</a> => a'xy\nz'", "<a>x\r\ny\rz</a> => a'x\ny\nz'",
         "<a k='&#13;x&#13;' l='1\r\n2\t3'/> => a@k=\rx\r@l=1 2 3",
         // Document types.
         "<!DOCTYPE a [<!ATTLIST a k CDATA 'd' l NMTOKENS #IMPLIED>]><a l=' 1  2 '/> => a@l=1 2@k=d",
         "<!DOCTYPE a [<!ENTITY e 'x<b/>y'><!ENTITY f '&e;&e;'><!ENTITY g 'v'>]><a k='&g;'>1&f;2</a> => "
         "a@k=v'1xyxy2'(b b)",
         "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/hostname'>]><a>1&e;2</a> => a'12'",
         // Namespaces.
         "<a xmlns='u'><b/></a> => {u}a({u}b)", "<a xmlns='u' xmlns:p='v' k='1' p:k='2'/> => {u}a@k=1@{v}k=2",
         "<p:a xmlns:p='u'><p:b xmlns:p='v'/><p:c/></p:a> => {u}a({v}b {u}c)",
         "<a xmlns='u'><b xmlns=''/></a> => {u}a(b)",
         "<a xml:lang='en'/> => a@{http://www.w3.org/XML/1998/namespace}lang=en",
         // Documents that stop.
         "<a><b> => a(b)", "<a>text => a'text'", "<a><b>x</b><c k='1'>y<d l='2 => a(b'x' c@k=1'y')"});
    ExpectLoads({"<p:a xmlns:p='u' p:x='1'/> => {u}a@{u}x=1"}, {kNarrow}, static_cast<SchemaType>(1));
    ExpectLoads({"<p:a xmlns:p='u' xmlns='v' p:x='1'><p:b/></p:a> => p:a@xmlns:p=u@xmlns=v@p:x=1(p:b)",
                 "<p:a q:k='1'>x|y</p:a> => p:a@q:k=1'x|y'"},
                {kNarrow, kWide}, st_NoNamespaces);
}

TEST(Tree, NamespaceOfAlias) {
    auto const look = [](char const* text, char16_t const* alias, SchemaType schemaType = st_Default) {
        CXmlDocument document(schemaType);
        document.LoadXml(text);
        EXPECT_EQ(document.GetDocumentElement()->GetDocument(), &document);
        return document.LookupNamespaceFromAlias(alias);
    };
    EXPECT_EQ(look("<a xmlns='u'/>", u""), u"u");
    EXPECT_EQ(look("<a xmlns='u'/>", nullptr), u"u");
    EXPECT_EQ(look("<a xmlns='u' xml:lang='en'/>", u"xml"), u"");
    EXPECT_EQ(look("<a><b><c xmlns:p='u'/></b></a>", u"p"), u"u");
    EXPECT_EQ(look("<a xmlns:p='u'><b xmlns:p='v'/><p:c/></a>", u"p"), u"v");
    EXPECT_EQ(look("<a xmlns='u'><b xmlns='v'/></a>", u""), u"v");
    EXPECT_EQ(look("<a xmlns='u'><b xmlns=''/></a>", u""), u"");
    EXPECT_EQ(look("<a xmlns:p='u'/>", u"p", st_NoNamespaces), u"");
}

TEST(Tree, GetAttribute) {
    wstring const k = u"k", u = u"u", none;
    CXmlName const kOfU{u, k}, kOfNone{none, k}, uOfNone{none, u};
    Attribute inNamespace(kOfU, u"1"), first(kOfNone, u"2"), second(kOfNone, u"3"), empty(uOfNone, u"");
    Element element(kOfU), other(kOfU);
    for (Attribute* attribute : {&inNamespace, &first, &second, &empty}) element.AddAttribute(attribute);
    EXPECT_EQ(element.GetAttribute(k, u) + element.GetAttribute(k, none) + element.GetAttribute(u, none),
              u"12");
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
            bool const isMark = (ns == xsi || ns == xmlns) && marks.contains(name);
            EXPECT_EQ(Attribute(CXmlName{ns, name}, u"v").IsNamespaceAttribute(), isMark) << Name(ns, name);
        }
    }
}
