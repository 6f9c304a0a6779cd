// What is left when memory runs out in the middle of an operation.
#include "collections/Objects.h"
#include "support/FailingNew.h"
#include "writers/CNamespaceScopes.h"

using namespace BxTest;

namespace {

/// Calls test with operations that fail at their first allocation, at their second and so on, until one
/// succeeds. The operation tells whether it failed.
void FailAtEach(std::function<void(std::function<bool(std::function<void()>)>)> const& test) {
    bool hasFailed = true;
    for (int allocations = 0; hasFailed; ++allocations) {
        test([&](std::function<void()> const& operation) {
            t_allocationsLeft = allocations;
            try {
                operation();
                hasFailed = false;
            } catch (std::bad_alloc const&) {
                hasFailed = true;
            }
            t_allocationsLeft = -1;
            return hasFailed;
        });
        ASSERT_LT(allocations, 1000);
    }
}

}  // namespace

TEST(FailingAllocations, AnAssignmentKeepsTheOldItems) {
    FailAtEach([](auto const& run) {
        {
            Object listener('l');
            Collection source("abc"), target("xy");
            source.AddEventListener(&listener);
            bool const failed = run([&] { target = source; });
            EXPECT_EQ(target.Letters(), failed ? "xy" : "abc");
            EXPECT_EQ(source.Letters(), "abc");
            for (Collection* each : {&source, &target}) each->RemoveEventListener(&listener);
        }
        EXPECT_EQ(Object::s_alive, 0);
    });
}

TEST(FailingAllocations, ARefusedItemIsAsItWas) {
    FailAtEach([](auto const& run) {
        CSmartPtr<Object> const object = new Object('o');
        Collection items("ab");
        bool const failed = run([&] { items.AppendItem(object); });
        EXPECT_EQ(object->AddRef(), failed ? 2 : 3);
        object->Release();
        EXPECT_EQ(items.Letters(), failed ? "ab" : "abo");
    });
    FailAtEach([](auto const& run) {
        CElement* const element = new CElement(u"e");
        CElementCol elements(u"", u"##any", u"", 0, -1);
        if (run([&] { elements.Add(element); })) CSmartPtr<CElement>{element};
    });
}

TEST(FailingAllocations, ATreeIsCopiedOrNot) {
    CXmlDocument document;
    document.LoadXml(
        "<r xmlns='urn:n' k='a value'><some-name l='1'><a/>some longer text</some-name><b/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    FailAtEach([&](auto const& run) {
        Element element(u"none");
        if (!run([&] { element.FromXml_Int(root, root, Defaults(), false); })) {
            EXPECT_EQ(element.GetChildElements()->GetCount(), 2);
        }
    });
    FailAtEach([&](auto const& run) {
        Element element(u"none");
        if (!run([&] { element.CopyXmlElement(root); })) {
            EXPECT_EQ(element.GetChildElements()->Item(0)->GetText(), u"some longer text");
        }
    });
    FailAtEach([](auto const& run) {
        CElement const source(u"a name of some length", u"urn:n");
        run([&] { CElement const copy(source); });
    });
}

TEST(FailingAllocations, AScopeEndsWithTheAliasesThatItBeganWith) {
    FailAtEach([](auto const& run) {
        CNamespaceScopes scopes;
        scopes.AddNamespace(u"AA", u"urn:n", true);
        run([&] {
            scopes.AddNamespace(u"AB", u"urn:n", false);
            scopes.UndoTo(1);
        });
        scopes.UndoTo(1);
        EXPECT_FALSE(scopes.TakePrefix(u"urn:n").m_isNew);
        EXPECT_EQ(scopes.TakePrefix(u"urn:other").m_alias, u"AB");
    });
}
