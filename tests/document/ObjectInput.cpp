#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "document/Trees.h"

using namespace BxTest;

namespace {

/// Notes what it is asked to read.
class Recorder : public CXmlObjectBase {
public:
    CXmlObjectBase* GetBase() override { return this; }
    using CXmlObjectBase::GetBase;
    wstring GetNamespace() const override { return u"own"; }

    /// The element, " first" if reading starts at its first child, " empty" if a choice may be empty.
    std::string m_read = "unread";
    CXmlSerializationContext const* m_context = nullptr;
    bool m_fail = false;

protected:
    wstring GetTargetNamespace() const override { return u"own"; }
    void ToXml_Int(CXmlWriter*, bool, char16_t const*, CXmlSerializationContext const&, bool) const override {
    }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override {
        m_read = Dump(element);
        if (firstChild == element->GetFirstElement()) m_read += " first";
        if (allowEmptyChoice) m_read += " empty";
        m_context = &context;
        if (m_fail) throw CBxInvalidValueException(u"no value");
        return firstChild;
    }
};

}  // namespace

TEST(ObjectInput, ReadsTheRootWhateverItsName) {
    struct {
        char const* m_text;
        char const* m_read;
        SchemaType m_schemaType = st_Default;
    } const rows[] = {
        {"<a/>", "a first"},
        {"<other xmlns='u' k='1'>é𝄞<b/><c/></other>", "{u}other@k=1'é𝄞'({u}b {u}c) first"},
        {"<p:a xmlns:p='u'><p:b/></p:a>", "p:a@xmlns:p=u(p:b) first", st_NoNamespaces},
        {"<a><b>", "a(b) first"},
    };
    for (auto const& row : rows) {
        CXmlSerializationContext context;
        context.SetSchemaType(row.m_schemaType);
        Recorder narrow, wide;  // on the stack: never counted
        narrow.FromXml(row.m_text, context);
        wide.FromXml(FromUtf8(row.m_text).c_str(), context);
        for (Recorder const* recorder : {&narrow, &wide}) {
            EXPECT_EQ(recorder->m_read, row.m_read);
            EXPECT_EQ(recorder->m_context, &context);
        }
    }
}

TEST(ObjectInput, FailuresPassAndLeaveTheObjectUsable) {
    CXmlSerializationContext const& context = CXmlSerializationContext::GetDefaultContext();
    Recorder object;
    EXPECT_BX_THROW(object.FromXml("", context), CBxException, "XML String is empty!");
    EXPECT_BX_THROW(object.FromXml(u"", context), CBxException, "XML String is empty!");
    EXPECT_BX_THROW(object.FromXml(u"<a>\n</b>", context), CBxException, "mismatched tag at line 2");
    EXPECT_EQ(object.m_read, "unread");
    object.m_fail = true;
    EXPECT_BX_THROW(object.FromXml(u"<a/>", context), CBxInvalidValueException, "no value");
    object.m_fail = false;
    object.FromXml(u"<b/>", context);
    EXPECT_EQ(object.m_read, "b first");
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
