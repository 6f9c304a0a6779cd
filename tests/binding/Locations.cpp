// Where a failure lies.

#include <array>

#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

TEST(Locations, AreThoseOfWhatCannotBeReadOrWritten) {
    // A class, a document or "-" for none, and the path of the failure.
    std::array<std::string, 3> const rows[] = {
        {"a:number", "<a>x</a>", "/r/a"},
        {"a:number*", "<a>1</a><a>x</a><a>2</a>", "/r/a[2]"},
        {"a:number*", "<a>x</a>", "/r/a"},
        {"a:{b:number?}*", "<a/><a><b>x</b></a>", "/r/a[2]/b"},
        {"g:(a:number, b:text)*", "<a>1</a><b/><a>x</a><b/>", "/r/a[2]"},
        {"| a:number? | b:{c:number}?", "<b><c>x</c></b>", "/r/b/c"},
        {"& a:number & b:number", "<b>x</b><a>1</a>", "/r/b"},
        {"A:number, a:number", "<A xmlns='n'>1</A><a>x</a>", "/r/a"},
        // Local names alone count.
        {"A:number, _:any, a:{b:number}", "<A xmlns='n'>1</A><A/><a><b>x</b></a>", "/r/a/b"},
        {"a:{@k:number}*", "<a k='1'/><a k='x'/>", "/r/a[2]/@k"},
        {"g:(@k:number)~", "<r k='x'/>", "/r/@k"},
        {"strict a:text?", "<r k='x'/>", "/r/@k"},
        {"a:{@k:text}*", "<a k='1'/><a/>", "/r/a[2]"},
        // What is missing has its parent's place, what is unexpected its own.
        {"a:{b:text}*", "<a><b/></a><a/>", "/r/a[2]"},
        {"a:text*2-3", "<a/>", "/r"},
        {"a:{b:text?}*", "<a/><a><b/><c/><c/></a>", "/r/a[2]/c[1]"},
        {"a:{| b:text? | c:text?}", "<a/>", "/r/a"},
        {"| a:text? | b:text?", "<a/><b/>", "/r/b"},
        {"a:any?[##other;]", "<a/>", "/r"},
        // Values of which reading knows nothing cannot be written.
        {"a:short<long>", "-", "/r/a"},
        {"| a:short?<long>", "-", "/r/a"},
        {"& a:short?<long>", "-", "/r/a"},
        {"@k:short<long>", "-", "/r/@k"},
        {"=T a:short<long>", "-", "/r/a"},  // its xsi:type is written by then
        {"@k:enum<other>", "-", "/r/@k"},
        // Items are numbered if there are several, and others from the second one on.
        {"a:{b:short?<long>}*", "<a/>", "/r/a/b"},
        {"a:{b:short?<long>}*", "<a/><a/>", "/r/a[1]/b"},
        {"a:{b:short?<long>}*", "<a><b/></a><a/>", "/r/a[2]/b"},
        {"a:{@c:short?<long>}*", "<a c=''/><a/>", "/r/a[2]/@c"},
        {"p:(a:text, b:short?<long>)*, b:{}?", "<a/>", "/r/b"},
        {"p:(a:text, b:short?<long>)*, b:{}?", "<a/><b/><a/>", "/r/b[2]"},
        // A choice with no member has no child to blame.
        {"a:{| b:text?}", "-", "/r/a"},
    };
    for (auto const& row : rows) {
        TestObject object(Class(row[0]));
        auto const exchange = [&] {
            if (row[1] != "-") Read(object, row[1]);
            Written(object);
        };
        EXPECT_EQ(PathOf(exchange), row[2]) << row[0] << " " << row[1];
    }
    // The place is the same in all formats, and where something else is counted too.
    TestObject const object(Class("@k:enum<other>"));
    EXPECT_EQ(PathOf([&] { object.ToFastInfosetStream(fi_None, Settings(), cmp_None); }), "/r/@k");
}

TEST(Locations, AreTheSameWhateverTheEntryPoint) {
    TestObject object(Class("a:{b:number}*"));
    std::string const text = "<r><a><b>1</b></a><a><b>x</b></a></r>";
    auto const* const octets = reinterpret_cast<unsigned char const*>(text.data());
    CXmlSerializationContext context;
    EXPECT_EQ(PathOf([&] { object.FromXml(text.c_str(), context); }), "/r/a[2]/b");
    EXPECT_EQ(PathOf([&] { object.FromXmlStream(octets, text.size(), context); }), "/r/a[2]/b");
    CXmlDocument document;
    document.LoadXml(text.c_str());
    CXmlElement* const root = document.GetDocumentElement();
    EXPECT_EQ(PathOf([&] { object.FromXmlElement(root, context); }), "/r/a[2]/b");
    // A path begins at the element that was handed over.
    TestObject item(Class("b:number"));
    CXmlElement* const second = root->GetFirstElement()->GetNextSiblingElement();
    EXPECT_EQ(PathOf([&] { item.FromXmlElement(second, context); }), "/a/b");
    // A document that is none has no place in a tree.
    EXPECT_EQ(PathOf([&] { object.FromXml("", context); }), "");
}

/// Reads another document, or part of the same one, on the way.
struct Including : TestObject {
    using TestObject::TestObject;

    void AccessProperty(int, bool, BxVariant&) override {
        TestObject other(Class("x:number"));
        CXmlSerializationContext context;
        try {
            m_element == nullptr ? other.FromXml(u"<o><x>bad</x></o>", context)
                                 : other.FromXmlElement(m_element, context);
        } catch (CBxException const& failure) {
            m_inner = failure.GetLocation().GetPath();
            if (m_wraps) throw CBxValidationException(u"outer", failure);
            throw;
        }
    }

    CXmlElement* m_element = nullptr;
    bool m_wraps = false;
    wstring m_inner;
};

TEST(Locations, AreInTheDocumentThatTheCallerReads) {
    for (bool const wraps : {false, true}) {
        for (bool const isSame : {false, true}) {
            Including object(Class("a:text, b:text?"));
            CXmlDocument document;
            document.LoadXml("<r><a><x>1</x><x>bad</x></a></r>");
            CXmlElement* const root = document.GetDocumentElement();
            object.m_wraps = wraps;
            if (isSame) object.m_element = root->GetFirstElement();
            CXmlSerializationContext context;
            try {
                object.FromXmlElement(root, context);
                ADD_FAILURE();
            } catch (CBxException const& failure) {
                EXPECT_EQ(failure.GetLocation().GetPath(), isSame ? u"/r/a/x[2]" : u"/r/a");
                EXPECT_EQ(failure.GetInnerException() != nullptr, wraps);
            }
            EXPECT_EQ(object.m_inner, isSame ? u"/a/x[2]" : u"/o/x");
        }
    }
}

TEST(Locations, OfUntypedContent) {
    CElement element(u"e", u"", u"##other", u"t");
    EXPECT_EQ(PathOf([&] { element.FromXml(u"<a/>"); }), "nothing");
    CAttributeCol attributes(u"", u"##other", u"");
    struct Reader : CAttributeCol {
        using CAttributeCol::CAttributeCol;
        using CAttributeCol::FromXml_Int;
    } reader(u"", u"##other", u"");
    CXmlSerializationContext context;
    EXPECT_EQ(PathOf([&] { reader.FromXml("<r k='1'/>", context); }), "/r/@k");
}

TEST(Locations, OfWhatIsNotWellFormed) {
    CXmlSerializationContext context;
    context.SetCheckWellFormed(true);
    CElement element(u"r");
    CSmartPtr<CElement> const child = element.GetChildElements()->Add(u"a", u"");
    CSmartPtr<CElement> const second = element.GetChildElements()->Add(u"a", u"");
    auto const path = [&] {
        return PathOf([&] { element.ToXmlStream(true, true, enc_UTF8, eol_LF, context, cmp_None); });
    };
    EXPECT_EQ(path(), "nothing");
    second->SetText(u"\x1");
    EXPECT_EQ(path(), "/r/a[2]");
    second->SetText(u"");
    second->GetAttributes()->Add(u"k", u"\x1", u"");
    EXPECT_EQ(path(), "/r/a[2]/@k");
    child->SetName(u"-");
    EXPECT_EQ(path(), "/r/-");
}

/// What fails in another way when it is tried again has no place that could be told.
TEST(Locations, AreNotGuessed) {
    struct Fickle : TestObject {
        using TestObject::TestObject;
        void AccessProperty(int, bool, BxVariant&) override {
            throw CBxException(FromUtf8(std::to_string(++m_count)));
        }
        int m_count = 0;
    } object(Class("a:text"));
    EXPECT_EQ(PathOf([&] { Written(object); }), "");
}

}  // namespace
