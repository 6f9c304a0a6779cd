#include "BxXmlLib5/binding/CClassfactoryBase.h"

#include "BxXmlLib5/document/CXmlDocument.h"
#include "binding/TestBinding.h"

using namespace BxTest;

TEST(CClassfactoryBase, LooksATypeUp) {
    // Inside: <r xmlns='d' xmlns:i='...' xmlns:p='u'>, where the elements are in the namespace d.
    struct {
        char const* m_element;
        char16_t const* m_type;
        char16_t const* m_namespace;
        SchemaType m_schemaType = st_Default;
    } const rows[] = {
        {"<a i:type='T'/>", u"T", u"d"},
        {"<a i:type=''/>", u"", u"d"},
        {"<a i:type='p:T'/>", u"T", u"u"},
        {"<a i:type=':T'/>", u"T", u"d"},
        {"<p:a i:type='T'/>", u"T", u"u"},
        {"<a i:type='q:T'/>", u"T", u"d"},
        {"<a i:type='p:T:U'/>", u"T:U", u"u"},
        {"<a type='p:T' p:type='p:T'/>", u"", u"d"},
        {"<a i:type='p:T'><b xmlns:p='v'/></a>", u"T", u"v"},
        {"<a i:type='p:T'/>", u"", u"", st_NoNamespaces},
    };
    for (auto const& row : rows) {
        CXmlDocument document(row.m_schemaType);
        document.LoadXml(("<r xmlns='d' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' xmlns:p='u'>" +
                          std::string(row.m_element) + "</r>")
                             .c_str());
        CXmlElement* const element = document.GetDocumentElement()->GetFirstElement();
        EXPECT_EQ(Factory::GetElementType(element), row.m_type) << row.m_element;
        EXPECT_EQ(Factory::GetElementTypeNamespaceUri(element), row.m_namespace) << row.m_element;
    }
}
