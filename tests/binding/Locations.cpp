// Where a failure lies.

#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

/// The path of the failure of an action.
template <class Action>
std::string PathOf(Action action) {
    try {
        action();
    } catch (CBxException const& failure) {
        return ToUtf8(failure.GetLocation().GetPath());
    }
    return "nothing";
}

TEST(Locations, AreThoseOfWhatCannotBeRead) {
    struct {
        std::string type;
        std::string document;
        std::string path;
    } const rows[] = {
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
    };
    for (auto const& row : rows) {
        TestObject object(Class(row.type));
        EXPECT_EQ(PathOf([&] { Read(object, row.document); }), row.path) << row.type << " " << row.document;
    }
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

}  // namespace
