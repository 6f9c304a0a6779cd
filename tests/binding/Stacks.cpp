// Typed objects on small stacks.
#include "support/Stacks.h"

#include "TestBinding.h"

namespace {

using namespace BxTest;

/// So many objects inside each other, each the property "a" of the next.
CSmartPtr<TestObject> Nest(TestClass const& outermost, int levels) {
    TestClass const& inner = *outermost.m_fields[0].m_class;
    CSmartPtr<TestObject> object = new TestObject(inner, u"a");
    for (int i = 1; i < levels; ++i) {
        CSmartPtr<TestObject> const owner = new TestObject(i == levels - 1 ? outermost : inner, u"a");
        (*owner)[u"a"].SetXmlObject(object);
        object = owner;
    }
    return object;
}

std::string NestedText(int levels) {
    std::string text = "<a/>";
    for (int i = 2; i < levels; ++i) text = "<a>" + text + "</a>";
    return InRoot(text);
}

TEST(Stacks, TypedObjectsEndInTime) {
    for (char const* const description : {"a:self?", "| a:self?", "& a:self?", "a:self*"}) {
        SCOPED_TRACE(description);
        TestClass const& type = Class(description);
        OnSmallStacks([&] {
            TestObject object(type);
            EXPECT_EQ(Thrown([&] { Read(object, NestedText(4)); }), "nothing");
            EXPECT_EQ(Written(object), NestedText(4));
            std::string const outcome = Thrown([&] { Read(object, NestedText(1000)); });
            EXPECT_TRUE(outcome == kNoStackLeft || outcome == "nothing") << outcome;
        });
    }
}

TEST(Stacks, DeepObjectsAreWrittenAndDestroyedInTime) {
    // The attributes of pseudo elements are written at the tag of their owner, ahead of everything else.
    for (char const* const description : {"a:self?", "a:(@k:number?, a:self?)?"}) {
        SCOPED_TRACE(description);
        TestClass const& type = Class(description);
        OnSmallStacks([&] {
            EXPECT_EQ(Thrown([&] { Written(*Nest(type, 4)); }), "nothing");
            EXPECT_NE(Thrown([&] { Written(*Nest(type, 100'000)); }), "nothing");
        });
    }
}

}  // namespace
