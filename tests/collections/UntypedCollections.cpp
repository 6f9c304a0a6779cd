#include "collections/Objects.h"

using namespace BxTest;

namespace {

std::string const kNotFound = "CBxInvalidParamException: The object was not found in the collection";

std::string NotAllowed(std::string const& ns, std::string const& restriction) {
    return "CBxInvalidNamespaceException: Invalid namespace [" + ns + "]. The namespace must be one of [" +
           restriction + "] where the target namespace is [t]";
}

template <class Item>
std::string Named(Item const& item) {
    return ToUtf8(item.GetName() + u"@" + item.GetNamespace());
}

struct Step {
    std::function<void()> m_step;
    std::string m_items;
    int m_events;
    std::string m_thrown = "nothing";
};

/// Takes steps on a collection; after each, expects its items and how often it told of a change.
void ExpectSteps(auto& collection, std::vector<Step> const& steps) {
    int events = 0;
    Object listener;
    listener.m_onEvent = [&](CXmlObjectBase* source) { events += source == &collection; };
    collection.AddEventListener(&listener);
    for (Step const& step : steps) {
        events = 0;
        EXPECT_EQ(Thrown(step.m_step), step.m_thrown);
        std::string items;
        for (auto const* item : collection) items.append(Named(*item)).append(" ");
        EXPECT_EQ(items, step.m_items.empty() ? "" : step.m_items + " ");
        EXPECT_EQ(events, step.m_events) << items;
    }
    collection.RemoveEventListener(&listener);
}

}  // namespace

TEST(UntypedCollections, DefaultNamespace) {
    // Namespace, restriction, default of attributes, default of elements or the failure.
    std::string const rows[][4] = {{"", "##local uu", "", "!set"}, {"", "", "", "!set"},
                                   {"", "u", "", "!set"},          {"", "#u", "", "!set"},
                                   {"", "u#", "", "!set"},         {"", " uu", "", "!set"},
                                   {"", "uu vv", "uu", "uu"},      {"", "uu#", "uu#", "uu#"},
                                   {"n", "##any", "n", "n"},       {"n", "uu", "n", "!allowed"}};
    for (auto const& [ns, restriction, ofAttributes, ofElements] : rows) {
        SCOPED_TRACE(ns + ";" + restriction);
        std::string outcome;
        wstring const wideNs = FromUtf8(ns), wideRestriction = FromUtf8(restriction);
        AttributeCol const attributes(wideNs.c_str(), wideRestriction.c_str(), u"t");
        EXPECT_EQ(ToUtf8(attributes.GetNamespace()), ofAttributes);
        EXPECT_EQ(attributes.GetTargetNamespace(), attributes.GetNamespace());
        std::string const thrown = Thrown([&] {
            ElementCol elements(wideNs.c_str(), wideRestriction.c_str(), u"t", 2, 5);
            EXPECT_EQ(elements.GetNamespace() + elements.GetTargetNamespace(), u"tt");
            EXPECT_EQ(elements.GetMinOccurs() * 10 + elements.GetMaxOccurs(), 25);
            outcome = ToUtf8(elements.Add(u"a")->GetNamespace());
        });
        EXPECT_EQ(thrown == "nothing" ? outcome : thrown,
                  ofElements == "!set"
                      ? "CBxInvalidStateException: A Namespace has not been set for this Collection"
                  : ofElements == "!allowed" ? NotAllowed(ns, restriction)
                                             : ofElements);
    }
}

TEST(UntypedCollections, AddingAttributes) {
    CAttributeCol attributes(u"", u"uu ww", u"t"), other(u"", u"##any", u""), notOwn(u"nn", u"uu", u"t");
    CSmartPtr<CAttribute> const f = other.Add(u"f", u"0", u"vv");
    ExpectSteps(
        attributes,
        {
            {[&] { attributes.Add(u"a", u"1", u"ww")->SetName(u"A"); }, "A@ww", 1},
            {[&] { EXPECT_EQ(attributes.Add(u"b", u"2")->GetValue(), u"2"); }, "A@ww b@uu", 1},
            {[&] { EXPECT_EQ(attributes.Add(u"c")->GetValue(), u""); }, "A@ww b@uu c@uu", 1},
            {[&] { attributes.Add(u"e", u"4", u"vv"); }, "A@ww b@uu c@uu", 0, NotAllowed("vv", "uu ww")},
            {[&] { attributes.Clear(); }, "", 3},
            {[&] { EXPECT_EQ(attributes.Add(f), f); }, "f@vv", 1},
            {[&] { attributes.AddAfter(f, other.Add(u"g")); }, "f@vv g@", 1},
            {[&] { attributes.AddBefore(f, other.Add(u"h")); }, "h@ f@vv g@", 1},
            {[&] { EXPECT_EQ(attributes.Item(1), f); }, "h@ f@vv g@", 0},
        });
    EXPECT_EQ(Thrown([&] { notOwn.Add(u"a"); }), NotAllowed("nn", "uu"));
}

TEST(UntypedCollections, AddingElements) {
    CElementCol elements(u"uu", u"uu", u"t", 0, -1);
    CSmartPtr<CElement> const f = new CElement(u"f", u"vv"), absent = new CElement(u"x");
    ExpectSteps(
        elements,
        {
            {[&] { elements.Add(u"a", u"ww")->SetName(u"A"); }, "A@ww", 2},
            {[&] { elements.Add(u"b"); }, "A@ww b@uu", 2},
            {[&] { EXPECT_EQ(elements.Add(f), f); }, "A@ww b@uu f@vv", 2},
            {[&] { elements.AddAfter(elements.Item(0), new CElement(u"c")); }, "A@ww c@ b@uu f@vv", 1},
            {[&] { elements.AddBefore(elements.Item(0), new CElement(u"d")); }, "d@ A@ww c@ b@uu f@vv", 1},
            {[&] { elements.Clear(); }, "", 5},
            {[&] { elements.AddBefore(absent, f); }, "", 0, kNotFound},
            {[&] { elements.Add(nullptr, u""); }, "", 0,
             "CBxInvalidNamespaceException: Element Name must have a value"},
        });
    // A new element takes the target namespace, and ##any.
    CSmartPtr<CElement> const added = elements.Add(u"e", u"ww");
    EXPECT_EQ(added->GetChildElements()->GetNamespace(), u"t");
    Read(*added, "<f xmlns='elsewhere'/>");
    EXPECT_EQ(added->GetName(), u"f");
}

TEST(UntypedCollections, ARefusedItemIsAsItWas) {
    CElement element(u"e");
    CAttribute attribute(*CAttributeCol(u"", u"##any", u"").Add(u"k"));
    CElementCol elements(u"", u"##any", u"", 0, -1);
    CAttributeCol attributes(u"", u"##any", u"");
    for (auto const& add : std::vector<std::function<void()>>{
             [&] { elements.AddAfter(&element, &element); }, [&] { elements.AddBefore(&element, &element); },
             [&] { attributes.AddAfter(&attribute, &attribute); },
             [&] { attributes.AddBefore(&attribute, &attribute); }}) {
        EXPECT_EQ(Thrown(add), kNotFound);
    }
    EXPECT_EQ(element.AddRef() + attribute.AddRef(), 2);
}

TEST(UntypedCollections, GiveBackWhatAListenerRemoved) {
    CElementCol elements(u"u", u"##any", u"", 0, -1);
    CAttributeCol attributes(u"", u"##any", u"");
    Object clearing;
    clearing.m_onEvent = [&](CXmlObjectBase* source) { static_cast<CXmlCollection*>(source)->Clear(); };
    elements.AddEventListener(&clearing);
    attributes.AddEventListener(&clearing);
    EXPECT_EQ(elements.Add(u"a")->GetName() + elements.Add(new CElement(u"b"))->GetName(), u"ab");
    EXPECT_EQ(attributes.Add(u"c")->GetName(), u"c");
    EXPECT_EQ(elements.GetCount() + attributes.GetCount(), 0);
    elements.RemoveEventListener(&clearing);
    attributes.RemoveEventListener(&clearing);
}

TEST(UntypedCollections, ReadingElements) {
    CXmlDocument document;
    document.LoadXml("<r><b k='1'/><b>x</b><c/><b xmlns='uu'/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* const b = root->GetFirstElement();
    CXmlElement* const c = b->GetNextSiblingElement()->GetNextSiblingElement();
    ElementCol elements(u"uu", u"uu", u"t", 0, 1);
    EXPECT_EQ(elements.FromXml_Int(root, nullptr, Defaults(), false), nullptr);
    EXPECT_EQ(elements.FromXml_Int(root, c, Defaults(), false), nullptr);
    EXPECT_EQ(elements.GetCount(), 2);
    auto const run = [&](wstring const& name, wstring const& ns, CXmlElement* start) {
        return elements.FromXmlLockElementName_Int(name, ns, root, start, Defaults());
    };
    EXPECT_TRUE(run(u"b", u"uu", b) == b && run(u"c", u"", b) == b && run(u"b", u"", nullptr) == nullptr);
    EXPECT_EQ(run(u"b", u"", b), c);
    EXPECT_EQ(run(u"b", u"uu", c->GetNextSiblingElement()), nullptr);
    EXPECT_EQ(elements.Item(3)->GetChildElements()->GetNamespace(), u"t");

    EXPECT_BX_THROW(Compact(elements), CBxValidationException,
                    "The Maximum number of [] elements allowed in this collection is 1");
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    elements.AddAfter(nullptr, nullptr);
    EXPECT_EQ(elements.ToXml(false, false, eol_LF, ignoring),
              u"<c/><AA:b xmlns:AA=\"uu\"/><b k=\"1\"/><b>x</b><AA:b xmlns:AA=\"uu\"/>");
}

TEST(UntypedCollections, ReadingAttributes) {
    CXmlDocument document;
    document.LoadXml("<r k='1' a:l='2' b:m='3' xmlns:a='aa' xmlns:b='bb'><c/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    // A wildcard's namespaces, where the target is aa, the attributes read, and the one that is refused.
    char const* const rows[][3] = {
        {"##any", "k1l2m3", ""}, {"bb aa", "k1l2m3", ""},        {"##local", "k1", "l"},
        {"##other", "k1", "l"},  {"##targetNamespace", "", "k"}, {"##local ##targetNamespace", "k1l2", "m"},
        {"aa", "k1l2", "m"},     {"##local ##other", "k1", "l"}};
    for (auto const& [restriction, items, refused] : rows) {
        // Copies have the same items, and refuse the same.
        AttributeCol original(u"", FromUtf8(restriction).c_str(), u"aa");
        original.Add(CAttributeCol(u"", u"##any", u"").Add(u"h", u"0"));
        AttributeCol collections[] = {original, original, AttributeCol(u"", u"##any", u"")};
        collections[2] = original;
        for (AttributeCol& attributes : collections) {
            std::string const thrown = Thrown([&] {
                EXPECT_EQ(attributes.FromXml_Int(root, root->GetFirstElement(), Defaults(), false),
                          root->GetFirstElement());
            });
            std::string const message = "CBxInvalidNamespaceException: Invalid Attribute [" +
                                        std::string(refused) +
                                        "]. The attributes namespace is Inappropriate.";
            EXPECT_EQ(thrown, *refused == 0 ? "nothing" : message) << restriction;
            wstring read;
            for (CAttribute const* const attribute : attributes)
                read += attribute->GetName() + attribute->GetValue();
            EXPECT_EQ(ToUtf8(read), std::string("h0") + items) << restriction;
        }
    }
}

TEST(UntypedCollections, AnAttribute) {
    CSmartPtr<CAttribute> const attribute = CAttributeCol(u"", u"##any", u"").Add(u"k", u"v", u"u");
    CAttribute copy(*attribute);
    attribute->SetName(u"l");
    attribute->SetValue(nullptr);
    attribute->SetNamespace(u"w");
    EXPECT_EQ(attribute->GetName() + attribute->GetValue() + attribute->GetNamespace(), u"lw");
    EXPECT_EQ(copy.GetName() + copy.GetValue() + copy.GetNamespace(), u"kvu");
    EXPECT_BX_THROW(copy.FromXml(u"<a/>", Defaults()), CBxException, "This should be done by the collection");
}

TEST(UntypedCollections, TakeOverACollectionThatHangsOnThem) {
    ElementCol elements(u"", u"##any", u"old", 0, -1);
    CSmartPtr<CElement> item = new CElement(u"x", u"n", u"##any", u"new");
    item->GetChildElements()->Add(u"y", u"n");
    elements.Add(item);
    CElementCol const& below = *item->GetChildElements();
    item = nullptr;
    static_cast<CElementCol&>(elements) = below;
    EXPECT_EQ(elements.GetCount(), 1);
    EXPECT_EQ(Named(*elements.Item(0)), "y@n");
    EXPECT_EQ(Named(*elements.Add(u"z")), "z@n");
    EXPECT_EQ(elements.GetNamespace(), u"new");
}
