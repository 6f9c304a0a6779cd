#include "BxXmlLib5/collections/CXmlCollection.h"

#include <climits>

#include "collections/Objects.h"

using namespace BxTest;

TEST(CXmlCollection, OperationsAndTheirEvents) {
    using C = Collection&;
    std::string const outOfRange = "CBxInvalidParamException: Index out of range";
    std::string const notFound = "CBxInvalidParamException: The object was not found in the collection";
    struct {
        char const* m_before;
        std::function<void(Collection&, Object*)> m_step;
        char const* m_after;
        char const* m_events;  // the count at each
        std::string m_thrown = "nothing";
    } const rows[] = {
        {"", [](C c, Object* x) { c.AppendItem(x); }, "x", "1"},
        {"ab", [](C c, Object* x) { c.AppendItem(x); }, "abx", "3"},
        {"ab", [](C c, Object*) { c.AppendItem(c.Find('a')); }, "aba", "3"},
        {"a", [](C c, Object*) { c.AppendItem(nullptr); }, "a-", "2"},
        {"", [](C c, Object* x) { c.PrependItem(x); }, "x", "1"},
        {"ab", [](C c, Object* x) { c.PrependItem(x); }, "xab", "3"},
        {"abc", [](C c, Object* x) { c.AddAfterItem(c.Find('a'), x); }, "axbc", "4"},
        {"abc", [](C c, Object* x) { c.AddAfterItem(c.Find('c'), x); }, "abcx", "4"},
        {"baca", [](C c, Object* x) { c.AddAfterItem(c.Find('a'), x); }, "baxca", "5"},
        {"-a", [](C c, Object* x) { c.AddAfterItem(c.Find('a'), x); }, "-ax", "3"},
        {"ab", [](C c, Object* x) { c.AddAfterItem(nullptr, x); }, "xab", "3"},
        {"", [](C c, Object* x) { c.AddAfterItem(nullptr, x); }, "x", "1"},
        {"ab", [](C c, Object* x) { c.AddAfterItem(x, x); }, "ab", "", notFound},
        {"", [](C c, Object* x) { c.AddAfterItem(x, x); }, "", "", notFound},
        {"abc", [](C c, Object* x) { c.AddBeforeItem(c.Find('c'), x); }, "abxc", "4"},
        {"abc", [](C c, Object* x) { c.AddBeforeItem(c.Find('a'), x); }, "xabc", "4"},
        {"baca", [](C c, Object* x) { c.AddBeforeItem(c.Find('a'), x); }, "bxaca", "5"},
        {"ab", [](C c, Object* x) { c.AddBeforeItem(nullptr, x); }, "abx", "3"},
        {"ab", [](C c, Object* x) { c.AddBeforeItem(x, x); }, "ab", "", notFound},
        {"", [](C c, Object* x) { c.AddItemAt(0, x); }, "x", "1"},
        {"abc", [](C c, Object* x) { c.AddItemAt(0, x); }, "xabc", "4"},
        {"abc", [](C c, Object* x) { c.AddItemAt(2, x); }, "abxc", "4"},
        {"abc", [](C c, Object* x) { c.AddItemAt(3, x); }, "abcx", "4"},
        {"abc", [](C c, Object* x) { c.AddItemAt(4, x); }, "abc", "", outOfRange},
        {"abc", [](C c, Object* x) { c.AddItemAt(-1, x); }, "abc", "", outOfRange},
        {"", [](C c, Object* x) { c.AddItemAt(INT_MAX, x); }, "", "", outOfRange},
        {"abc", [](C c, Object*) { c.Remove(0); }, "bc", "2"},
        {"abc", [](C c, Object*) { c.Remove(1); }, "ac", "2"},
        {"abc", [](C c, Object*) { c.Remove(2); }, "ab", "2"},
        {"a", [](C c, Object*) { c.Remove(0); }, "", "0"},
        {"abc", [](C c, Object*) { c.Remove(3); }, "abc", "",
         "CBxInvalidParamException: Index 3 is out of range, use 0 - 2"},
        {"abc", [](C c, Object*) { c.Remove(INT_MIN); }, "abc", "",
         "CBxInvalidParamException: Index -2147483648 is out of range, use 0 - 2"},
        {"", [](C c, Object*) { c.GetNodeAtIndex(0); }, "", "",
         "CBxInvalidParamException: Index 0 is out of range, use 0 - -1"},
        {"abc", [](C c, Object*) { c.RemoveNode(c.GetNodeAtIndex(1)); }, "ac", ""},
        {"aba", [](C c, Object*) { c.RemoveNode(c.GetNodeForItem(c.Find('a'))); }, "ba", ""},
        {"ab", [](C c, Object* x) { c.GetNodeForItem(x); }, "ab", "", notFound},
        {"a-a", [](C c, Object*) { c.Clear(); }, "", "210"},
        {"", [](C c, Object*) { c.Clear(); }, "", ""},
    };
    int number = 0;
    for (auto const& row : rows) {
        SCOPED_TRACE(testing::Message() << "row " << ++number << " on " << row.m_before);
        {
            Collection collection(row.m_before);
            CSmartPtr<Object> const object = new Object('x');
            std::string events;
            Object listener('l');
            listener.m_onEvent = [&](CXmlObjectBase* source) {
                EXPECT_EQ(source, &collection);
                events += std::to_string(collection.GetCount());
            };
            collection.AddEventListener(&listener);
            EXPECT_EQ(Thrown([&] { row.m_step(collection, object); }), row.m_thrown);
            collection.RemoveEventListener(&listener);
            EXPECT_EQ(events, row.m_events);
            EXPECT_EQ(collection.Letters(), row.m_after);
            EXPECT_EQ(object->AddRef() - 2, collection.Find('x') != nullptr);
            object->Release();
        }
        EXPECT_EQ(Object::s_alive, 0);
    }
}

TEST(CXmlCollection, GoesThroughItsVirtualOperations) {
    Collection collection("abc");
    collection.m_claimedCount = 2;
    EXPECT_BX_THROW(collection.GetNodeAtIndex(2), CBxInvalidParamException,
                    "Index 2 is out of range, use 0 - 1");
    collection.m_claimedCount = -1;

    struct CountsRemovals : Collection {
        using Collection::Collection;
        int m_removals = 0;
        void Remove(int index) override {
            EXPECT_EQ(index, 0);
            ++m_removals;
            Collection::Remove(index);
        }
    } counting("abc");
    counting.Clear();
    EXPECT_EQ(counting.m_removals, 3);

    // An object is the one that GetBase gives.
    Object part('p');
    part.m_base = collection.Find('b');
    EXPECT_EQ(collection.GetNodeForItem(&part), collection.GetNodeAtIndex(1));
    EXPECT_EQ(Compact(Collection("-b-a")).substr(0, 18), "<items b=\"1\" a=\"1\"");
}

TEST(CXmlCollection, AnItemDiesWhenTheListHasItsNewState) {
    Collection collection("abc");
    std::string log;
    Object listener('l');
    listener.m_onEvent = [&](auto*) { log += "event "; };
    collection.AddEventListener(&listener);
    collection.Find('b')->m_onEnd = [&] { log += collection.Letters() + " "; };
    collection.RemoveEventListener(&listener);
    collection.RemoveNode(collection.GetNodeAtIndex(1));
    EXPECT_EQ(log, "ac ");
}

TEST(CXmlCollection, ListenersComeAndGo) {
    std::string log;
    Collection collection;
    Object a('a'), b('b'), c('c');
    for (Object* listener : {&a, &b, &c})
        listener->m_onEvent = [&log, listener](auto*) { log += listener->m_letter; };
    auto const logOfChange = [&] {
        log.clear();
        collection.AppendItem(nullptr);
        return log;
    };
    for (Object* listener : {&a, &b, &a, &c}) collection.AddEventListener(listener);
    EXPECT_EQ(logOfChange(), "abac");
    collection.RemoveEventListener(&a);
    EXPECT_EQ(logOfChange(), "bc");
    collection.RemoveEventListener(&a);
    b.m_onEvent = [&](auto*) {
        log += 'b';
        collection.RemoveEventListener(&b);
        collection.RemoveEventListener(&c);
        for (int i = 0; i < 100; ++i) collection.AddEventListener(&a);
    };
    EXPECT_EQ(logOfChange(), "b");
    EXPECT_EQ(logOfChange(), std::string(100, 'a'));
    collection.RemoveEventListener(&a);

    a.m_onEvent = [](auto*) { throw CBxInvalidStateException(u"no more"); };
    collection.AddEventListener(&a);
    Collection raising("ab");
    raising.AddEventListener(&a);
    EXPECT_BX_THROW(raising.AppendItem(new Object('x')), CBxInvalidStateException, "no more");
    EXPECT_BX_THROW(raising.Remove(0), CBxInvalidStateException, "no more");
    raising.RemoveEventListener(&a);
    collection.RemoveEventListener(&a);
    EXPECT_EQ(raising.Letters(), "bx");
}

TEST(CXmlCollection, TellsItsListenersWhileItIsDestroyed) {
    std::string counts;
    Object listener('l');
    listener.m_onEvent = [&](CXmlObjectBase* source) {
        CSmartPtr<CXmlObjectBase> const reference = source;
        counts += std::to_string(dynamic_cast<CXmlCollectionBase&>(*source).GetCount());
    };
    {
        CSmartPtr<Collection> const counted = new Collection("abc");
        counted->AddEventListener(&listener);
    }
    EXPECT_EQ(counts, "210");
    {
        Collection onTheStack("ab");
        onTheStack.AddEventListener(&listener);
    }
    EXPECT_EQ(counts, "21010");
}

TEST(CXmlCollection, CopiesShareTheItemsAndTellNobody) {
    {
        std::string log;
        Object listener('l');
        Collection source("a-b", 1, 7), target("xyz");
        listener.m_onEvent = [&](CXmlObjectBase* changed) { log += changed == &source ? 's' : 'c'; };
        source.AddEventListener(&listener);
        Collection copy(source);
        target = source;
        target = *&target;
        EXPECT_EQ(log, "");
        EXPECT_EQ(Object::s_alive, 3);
        for (Collection* each : {&copy, &target}) {
            EXPECT_EQ(ToUtf8(each->GetElementName() + u" " + each->GetNamespace()), "item urn:items");
            EXPECT_EQ(each->GetMinOccurs() * 10 + each->GetMaxOccurs(), 17);
            EXPECT_EQ(each->Find('b'), source.Find('b'));
            each->Remove(0);
            source.AppendItem(nullptr);
            EXPECT_EQ(each->AddRef(), 1);
        }
        EXPECT_EQ(log, "cscs");
        for (Collection* each : {&source, &copy, &target}) each->RemoveEventListener(&listener);
        EXPECT_EQ(copy.Letters() + " " + target.Letters() + " " + source.Letters(), "-b -b a-b--");
    }
    EXPECT_EQ(Object::s_alive, 0);
}

TEST(CXmlCollection, ValidateCount) {
    constexpr char const* kMaximum =
        "CBxValidationException: The Maximum number of [item] elements allowed in this collection is ";
    constexpr char const* kMinimum =
        "CBxValidationException: The Minimum number of [item] elements allowed in this collection is ";
    struct {
        int m_minOccurs, m_maxOccurs, m_count;
        std::string m_thrown = "nothing";
    } const rows[] = {
        {0, -1, 0},
        {0, -1, 1000000},
        {0, 0, 0},
        {2, 3, 2},
        {2, 3, 3},
        {1, -1, 1},
        {INT_MIN, INT_MAX, INT_MAX},
        {0, 0, 1, kMaximum + std::to_string(0)},
        {2, 3, 4, kMaximum + std::to_string(3)},
        {2, 3, 1, kMinimum + std::to_string(2)},
        {1, -1, 0, kMinimum + std::to_string(1)},
        {5, 2, 3, kMaximum + std::to_string(2)},
        {5, 2, 2, kMinimum + std::to_string(5)},
        {0, -2, 0, kMaximum + std::to_string(-2)},
    };
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    for (auto const& row : rows) {
        Collection collection("", row.m_minOccurs, row.m_maxOccurs);
        collection.m_claimedCount = row.m_count;
        EXPECT_EQ(Thrown([&] { collection.ValidateCount(Defaults()); }), row.m_thrown);
        EXPECT_EQ(Thrown([&] { collection.ValidateCount(ignoring); }), "nothing");
    }
}

TEST(CXmlCollection, IsNoRoot) {
    EXPECT_BX_THROW(Compact(Collection()), CBxException,
                    "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
                    "(program logic error)");
}

TEST(CXmlCollection, ChoiceReadsItOnce) {
    CXmlDocument document;
    document.LoadXml("<a><b/><c/><d/></a>");
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* const first = root->GetFirstElement();
    CXmlElement* const third = first->GetNextSiblingElement()->GetNextSiblingElement();
    std::string const tooFew =
        "CBxValidationException: The Minimum number of [item] elements allowed in this collection is 3";
    struct {
        std::int32_t m_count;
        int m_consumes, m_minOccurs;
        CXmlElement* m_childAfter;
        std::int32_t m_countAfter;
        int m_reads;
        std::string m_thrown = "nothing";
    } const rows[] = {
        {0, 2, 2, third, 1, 1},   {1, 2, 2, first, 1, 0}, {2, 2, 2, first, 2, 0},
        {-1, 2, 0, third, 0, 1},  {0, 0, 3, first, 0, 1}, {0, 2, 3, third, 0, 1, tooFew},
        {0, 3, 3, nullptr, 1, 1},
    };
    for (auto const& row : rows) {
        Object choice('o');
        Collection collection("", row.m_minOccurs);
        collection.m_consumes = row.m_consumes;
        CXmlElement* child = first;
        std::int32_t count = row.m_count;
        EXPECT_EQ(Thrown([&] { choice.Choice_Read_Collection(&collection, root, child, count, Defaults()); }),
                  row.m_thrown);
        EXPECT_EQ(child, row.m_childAfter);
        EXPECT_EQ(count, row.m_countAfter);
        EXPECT_EQ(collection.m_reads, row.m_reads);
    }
}

TEST(CBxIterator, WalksAndCompares) {
    auto const walk = [](Collection& collection) {
        std::string letters;
        for (CBxIterator<Object> at(collection.FirstNode()); at != CBxIterator<Object>(nullptr); ++at)
            letters += *at == nullptr ? '-' : at->m_letter;
        return letters;
    };
    Collection none, one("a"), more("ab-a");
    EXPECT_EQ(walk(none) + "," + walk(one) + "," + walk(more), ",a,ab-a");
    auto const at = [&](int index) { return CBxIterator<Object>(more.GetNodeAtIndex(index)); };
    EXPECT_FALSE(at(0) != at(0));
    EXPECT_FALSE(at(0) != at(3));
    EXPECT_TRUE(at(0) == at(3));
    EXPECT_TRUE(at(0) != at(1));
    EXPECT_TRUE(at(2) != at(1));
    EXPECT_TRUE(at(0) != CBxIterator<Object>(nullptr));
    EXPECT_EQ(*CBxIterator<CElement>(more.GetNodeAtIndex(0)), nullptr);
}
