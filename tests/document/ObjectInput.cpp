#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "document/Trees.h"

using namespace BxTest;

namespace {

/// Notes what it is asked to read: the element, " first" if reading starts at its first child, " empty" if a
/// choice may be empty.
struct Recorder : CXmlObjectBase {
    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return u""; }
    wstring GetTargetNamespace() const override { return u""; }
    void ToXml_Int(CXmlWriter*, bool, char16_t const*, CXmlSerializationContext const&, bool) const override {
    }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override {
        if (element->GetLocalName() == u"bad") throw CBxInvalidValueException(u"no value");
        m_read = Dump(element) + (firstChild == element->GetFirstElement() ? " first" : "") +
                 (allowEmptyChoice ? " empty" : "");
        m_context = &context;
        return firstChild;
    }

    std::string m_read = "unread";
    CXmlSerializationContext const* m_context = nullptr;
};

}  // namespace

TEST(ObjectInput, ReadsTheRoot) {
    struct {
        char const* m_text;
        char const* m_read;
        SchemaType m_schemaType = st_Default;
        char const* m_thrown = "nothing";
    } const rows[] = {
        {"<a/>", "a first"},
        {"<other xmlns='u' k='1'>é𝄞<b/><c/></other>", "{u}other@k=1'é𝄞'({u}b {u}c) first"},
        {"<p:a xmlns:p='u'><p:b/></p:a>", "p:a@xmlns:p=u(p:b) first", st_NoNamespaces},
        {"<a><b>", "a(b) first"},
        {"", "unread", st_Default, "CBxException: XML String is empty!"},
        {"<a>\n</b>", "unread", st_Default, "CBxException: mismatched tag at line 2"},
        {"<bad/>", "unread", st_Default, "CBxInvalidValueException: no value"},
    };
    for (auto const& row : rows) {
        CXmlSerializationContext context;
        context.SetSchemaType(row.m_schemaType);
        Recorder narrow, wide;  // on the stack: never counted
        EXPECT_EQ(Thrown([&] { narrow.FromXml(row.m_text, context); }), row.m_thrown);
        EXPECT_EQ(Thrown([&] { wide.FromXml(FromUtf8(row.m_text).c_str(), context); }), row.m_thrown);
        for (Recorder* recorder : {&narrow, &wide}) {
            EXPECT_EQ(recorder->m_read, row.m_read);
            EXPECT_EQ(recorder->m_context, row.m_thrown == std::string("nothing") ? &context : nullptr);
            recorder->FromXml(u"<again/>", context);
            EXPECT_EQ(recorder->m_read, "again first");
        }
    }
}

TEST(ObjectInput, ReadsAnElementOfATree) {
    CXmlDocument document;
    document.LoadXml("<a><b><c/></b></a>");
    CXmlElement const* const b = document.GetDocumentElement()->GetFirstElement();
    CXmlSerializationContext context;
    Recorder object;
    object.FromXmlElement(b, context);
    EXPECT_EQ(object.m_read, "b(c) first");
    EXPECT_EQ(object.m_context, &context);
}
