#include "BxXmlLib5/collections/CXmlCollection.h"

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include "collections/Objects.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;

namespace {

/// A collection that says what it likes of its count.
struct Counting : Collection {
    using Collection::Collection;
    int GetCount() const override { return m_says; }
    int m_says = 9;
};

}  // namespace

TEST(CXmlCollection, OperationsAgainstAModel) {
    std::string const notFound = "CBxInvalidParamException: The object was not found in the collection";
    std::mt19937 random(7);
    for (int round = 0; round < 100; ++round) {
        CSmartPtr<Object> const objects[] = {new Object('a'), new Object('b'), new Object('c'), nullptr};
        Object listener;
        Collection collection;
        collection.AddEventListener(&listener);
        std::string model;  // the letters, '-' for null
        for (int step = 0; step < 60; ++step) {
            auto const letter = [](Object const* object) { return object ? object->m_letter : '-'; };
            Object* const item = objects[random() % 4];
            Object* const other = objects[random() % 4];
            int const index = static_cast<int>(random() % (model.size() + 4)) - 2;
            int const size = static_cast<int>(model.size());
            std::size_t const found = other == nullptr ? model.npos : model.find(letter(other));
            auto const with = [&](std::size_t at) {
                return at > model.size() ? model : std::string(model).insert(at, 1, letter(item));
            };
            auto const without = [&](std::size_t at) {
                return at >= model.size() ? model : std::string(model).erase(at, 1);
            };
            std::string const none = "nothing", absent = found == model.npos ? notFound : none;
            auto const at = static_cast<std::size_t>(index);
            struct {
                std::function<void()> m_operation;
                std::string m_after, m_thrown;
            } const rows[] = {
                {[&] { collection.AppendItem(item); }, with(model.size()), none},
                {[&] { collection.PrependItem(item); }, with(0), none},
                {[&] { collection.AddAfterItem(other, item); }, with(other == nullptr ? 0 : found + 1),
                 other == nullptr ? none : absent},
                {[&] { collection.AddBeforeItem(other, item); },
                 with(other == nullptr ? model.size() : found), other == nullptr ? none : absent},
                {[&] { collection.AddItemAt(index, item); }, with(at),
                 at > model.size() ? "CBxInvalidParamException: Index out of range" : none},
                {[&] { collection.Remove(index); }, without(at),
                 at >= model.size() ? "CBxInvalidParamException: Index " + std::to_string(index) +
                                          " is out of range, use 0 - " + std::to_string(size - 1)
                                    : none},
                {[&] { collection.RemoveNode(collection.GetNodeForItem(other)); }, without(found), absent},
                {[&] { collection.Clear(); }, "", none}};
            std::size_t const verb = random() % 57 / 8;  // seldom the last
            auto const& [operation, after, thrown] = rows[verb];
            std::string events, told;
            if (verb < 6 && thrown == none) events = std::to_string(after.size());
            for (int count = size; verb == 7 && count > 0;) events += std::to_string(--count);
            if (thrown == none) model = after;
            listener.m_onEvent = [&](auto*) { told += std::to_string(collection.GetCount()); };
            EXPECT_EQ(Thrown(operation), thrown);
            EXPECT_EQ(told, events);
            listener.m_onEvent = nullptr;
            EXPECT_EQ(collection.Letters(), model);
            for (Object* const object : {&*objects[0], &*objects[1], &*objects[2]}) {
                EXPECT_EQ(object->AddRef() - 2, std::ranges::count(model, object->m_letter));
                object->Release();
            }
        }
        collection.RemoveEventListener(&listener);
    }
    EXPECT_EQ(Object::s_alive, 0);
}

TEST(CXmlCollection, ItsVirtualOperationsDoTheWork) {
    struct Derived : Counting {
        using Counting::Counting;
        CXmlObjectBase* GetBase() override { return m_base; }
        void Remove(int index) override {
            EXPECT_EQ(index, 0);
            m_says = CXmlCollection::GetCount();
            CXmlCollection::Remove(index);
            ++m_removed;
        }
        CXmlObjectBase* m_base = this;
        int m_removed = 0;
    } collection("abc", 0, 8);
    Object listener, base;
    EXPECT_EQ(
        Thrown([&] { collection.ValidateCount(Defaults()); }),
        "CBxValidationException: The Maximum number of [one-item] elements allowed in this collection is 8");
    collection.m_base = &base;
    listener.m_onEvent = [&](CXmlObjectBase* source) { EXPECT_EQ(source, &base); };
    collection.AddEventListener(&listener);
    collection.Clear();
    EXPECT_EQ(collection.m_removed, 3);
    collection.RemoveEventListener(&listener);
}

TEST(CXmlCollection, Items) {
    Collection collection("abc");
    {  // An object is the one that GetBase gives.
        CSmartPtr<Object> const part = new Object('p'), whole = collection.Find('b');
        part->m_base = whole;
        EXPECT_EQ(collection.GetNodeForItem(part), collection.GetNodeAtIndex(1));
        Collection parts("-a-");
        parts.AppendItem(part);
        EXPECT_EQ(parts.GetNodeForItem(whole), parts.GetNodeAtIndex(3));
        CXmlTextWriter writer;
        writer.WriteStartElement(u"owner", u"");
        parts.AttributesToXml_Int(&writer, Defaults());
        parts.ItemsToXml(&writer, u"", Defaults());
        EXPECT_EQ(writer.GetString(), u"<owner a=\"1\" b=\"1\">ab");
    }
    // It dies when the list has its new state.
    std::string atEnd;
    collection.Find('b')->m_onEnd = [&] { atEnd = collection.Letters(); };
    collection.Remove(1);
    EXPECT_EQ(atEnd, "ac");
    EXPECT_BX_THROW(Compact(collection), CBxException,
                    "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
                    "(program logic error)");
}

TEST(CXmlCollection, ListenersAgainstAModel) {
    struct Entry {
        Object* m_listener;
        bool m_isGone = false;
    };
    struct Walk {
        std::size_t m_next, m_end;
    };
    std::mt19937 random(20);
    for (int round = 0; round < 300; ++round) {
        Object listeners[4];
        Collection collection;
        std::vector<Entry> model;  // all that were ever added
        std::vector<Walk> walks;   // inside each other
        auto const skipGone = [&] {
            Walk& walk = walks.back();
            while (walk.m_next < walk.m_end && model[walk.m_next].m_isGone) ++walk.m_next;
        };
        auto const change = [&] {
            walks.push_back({0, model.size()});
            collection.AppendItem(nullptr);
            skipGone();
            EXPECT_EQ(walks.back().m_next, walks.back().m_end);
            walks.pop_back();
        };
        auto const comeOrGo = [&] {
            Object* const listener = &listeners[random() % 4];
            if (random() % 2 == 0) {
                collection.AddEventListener(listener);
                model.push_back({listener});
            } else {
                collection.RemoveEventListener(listener);
                for (Entry& entry : model) entry.m_isGone |= entry.m_listener == listener;
            }
        };
        for (Object& listener : listeners) {
            listener.m_onEvent = [&](CXmlObjectBase* source) {
                EXPECT_EQ(source, &collection);
                skipGone();
                ASSERT_LT(walks.back().m_next, walks.back().m_end);
                EXPECT_EQ(model[walks.back().m_next++].m_listener, &listener);
                if (random() % 2 == 0) comeOrGo();
                if (walks.size() < 3 && random() % 4 == 0) change();
            };
        }
        for (int i = 0; i < 8; ++i) comeOrGo();
        for (int i = 0; i < 4; ++i) change();
        for (Object& listener : listeners) collection.RemoveEventListener(&listener);
    }
}

TEST(CXmlCollection, AListenerMayDropTheCollection) {
    Object listener, second;
    CSmartPtr<Collection> collection = new Collection("a");
    int events = 0;
    listener.m_onEvent = [&](auto*) { collection = nullptr; };
    second.m_onEvent = [&](auto*) { ++events; };
    // The one that drops it hears of the items that go with it, the second one of nothing but those.
    collection->AddEventListener(&listener);
    collection->AddEventListener(&second);
    Collection* const dropped = collection;
    dropped->AppendItem(nullptr);
    EXPECT_EQ(events, 2);
}

TEST(CXmlCollection, AnOverriddenCountMayBeWrong) {
    Counting collection("ab");
    collection.m_says = 3;
    EXPECT_EQ(Thrown([&] { collection.Remove(2); }),
              "CBxInvalidParamException: Index 2 is out of range, use 0 - 1");
    collection.m_says = 1;
    EXPECT_EQ(Thrown([&] { collection.Remove(1); }),
              "CBxInvalidParamException: Index 1 is out of range, use 0 - 0");
}

TEST(CXmlCollection, TellsItsListenersWhileItIsDestroyed) {
    std::string counts;
    Object listener;
    listener.m_onEvent = [&](CXmlObjectBase* source) {
        CSmartPtr<CXmlObjectBase> const reference = source;
        counts += std::to_string(dynamic_cast<CXmlCollectionBase&>(*source).GetCount());
    };
    {
        CSmartPtr<Collection> const counted = new Collection("abc");
        Collection onTheStack("ab");
        for (Collection* each : {static_cast<Collection*>(counted), &onTheStack})
            each->AddEventListener(&listener);
    }
    EXPECT_EQ(counts, "10210");
    // A failure has nowhere to go.
    listener.m_onEvent = [](auto*) { throw CBxInvalidStateException(u"no more"); };
    Collection("a").AddEventListener(&listener);
    EXPECT_EQ(Object::s_alive, 1);
}

TEST(CXmlCollection, CopiesShareTheItemsAndTellNobody) {
    {
        std::string log;
        Object listener('l');
        Collection source("a-b", 1, 7), target("xyz");
        listener.m_onEvent = [&](CXmlObjectBase* changed) { log += changed == &source ? 's' : 'c'; };
        source.AddEventListener(&listener);
        target.AddEventListener(&listener);
        Collection copy(source);
        target = source;
        target = *&target;
        EXPECT_EQ(log, "");
        EXPECT_EQ(Object::s_alive, 3);
        for (Collection* each : {&copy, &target}) {
            EXPECT_EQ(each->GetElementName() + each->GetNamespace(), u"one-itemurn:items");
            EXPECT_EQ(each->GetMinOccurs() * 10 + each->GetMaxOccurs(), 17);
            EXPECT_EQ(each->Find('b'), source.Find('b'));
            each->Remove(0);
            source.AppendItem(nullptr);
            EXPECT_EQ(each->AddRef(), 1);
            EXPECT_EQ(each->Letters(), "-b");
        }
        EXPECT_EQ(source.Letters(), "a-b--");
        EXPECT_EQ(log.substr(0, 2), "cs");
        for (Collection* each : {&source, &copy, &target}) each->RemoveEventListener(&listener);
    }
    EXPECT_EQ(Object::s_alive, 0);
}

TEST(CXmlCollection, ValidateCount) {
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    std::string const allowed = " number of [one-item] elements allowed in this collection is ";
    struct {
        int m_minOccurs, m_maxOccurs;
        std::string m_items, m_broken;
    } const rows[] = {{0, -1, "--", ""},
                      {2, 3, "--", ""},
                      {2, 3, "---", ""},
                      {0, 0, "-", "Maximum" + allowed + "0"},
                      {2, 3, "----", "Maximum" + allowed + "3"},
                      {2, 3, "-", "Minimum" + allowed + "2"},
                      {5, 2, "---", "Maximum" + allowed + "2"},
                      {0, -2, "", "Maximum" + allowed + "-2"}};
    for (auto const& row : rows) {
        Collection const collection(row.m_items, row.m_minOccurs, row.m_maxOccurs);
        EXPECT_EQ(Thrown([&] { collection.ValidateCount(Defaults()); }),
                  row.m_broken.empty() ? "nothing" : "CBxValidationException: The " + row.m_broken);
        EXPECT_EQ(Thrown([&] { collection.ValidateCount(ignoring); }), "nothing");
    }
}

TEST(CXmlCollection, ChoiceReadsItOnce) {
    CXmlDocument document;
    document.LoadXml("<a><b/><c/></a>");
    CXmlElement* const b = document.GetDocumentElement()->GetFirstElement();
    CXmlElement* const c = b->GetNextSiblingElement();
    struct {
        std::int32_t m_count;
        int m_consumes, m_minOccurs;
        CXmlElement* m_childAfter;
        std::int32_t m_countAfter;
        bool m_fails = false;
    } const rows[] = {
        {0, 1, 1, c, 1}, {1, 1, 1, b, 1}, {-1, 1, 0, c, 0}, {0, 0, 3, b, 0}, {0, 1, 2, c, 0, true}};
    for (auto const& row : rows) {
        Collection collection("", row.m_minOccurs);
        collection.m_consumes = row.m_consumes;
        CXmlElement* child = b;
        std::int32_t count = row.m_count;
        auto const read = [&] {
            Object().Choice_Read_Collection(&collection, nullptr, child, count, Defaults());
        };
        EXPECT_EQ(Thrown(read) != "nothing", row.m_fails);
        EXPECT_EQ(child, row.m_childAfter);
        EXPECT_EQ(count, row.m_countAfter);
    }
}

TEST(CXmlCollection, ItsNamespaceWorksAsAText) {
    Collection collection;
    CSharedText& ns = collection.m_namespace;
    wstring const text = ns, assigned(ns);
    EXPECT_EQ(text, u"urn:items");
    EXPECT_TRUE(ns == text && ns == u"urn:items" && assigned == ns && ns != u"urn:item");
    EXPECT_EQ((ns + u"/a") + (u"b:" + ns) + (ns + ns) + (text + ns) + ns.c_str(),
              u"urn:items/ab:urn:itemsurn:itemsurn:itemsurn:itemsurn:itemsurn:items");
    EXPECT_EQ(std::u16string_view(ns).size(), ns.size());
    EXPECT_FALSE(ns.empty());
    CSharedText const copy = ns;
    ns = u"other";
    EXPECT_EQ(collection.GetNamespace(), u"other");
    EXPECT_EQ(copy, text);
    ns = wstring();
    EXPECT_TRUE(ns.empty() && ns == u"" && ns == CSharedText());
}

TEST(CBxIterator, WalksAndCompares) {
    using Iterator = CBxIterator<Object>;
    static_assert(std::forward_iterator<Iterator> && std::forward_iterator<CBxIterator<Object const>>);
    static_assert(std::ranges::forward_range<CElementCol> && std::ranges::forward_range<CAttributeCol const>);
    static_assert(std::is_same_v<std::iter_value_t<CBxIterator<Object const>>, Object const*>);
    Collection collection("ab-a");
    std::string letters;
    for (Iterator at(collection.FirstNode()); at != Iterator(); at++) letters += *at ? at->m_letter : '-';
    EXPECT_EQ(letters, "ab-a");
    auto const at = [&](int index) { return Iterator(collection.GetNodeAtIndex(index)); };
    EXPECT_TRUE(at(0) == at(3) && at(0) != at(1) && at(2) != at(1));
    EXPECT_EQ(*CBxIterator<CElement>(collection.GetNodeAtIndex(0)), nullptr);
    CBxIterator<Object const> const b =
        std::find_if(at(0), Iterator(), [](Object const* object) { return object->m_letter == 'b'; });
    EXPECT_EQ(b, at(1));
}
