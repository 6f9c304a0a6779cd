// What reading takes and refuses, and what comes out again, by one family of classes with each construct.

#include <string>

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "Parcels.h"
#include "support/Expect.h"
#include "support/Stacks.h"

namespace {

using namespace BxXmlLib5;
using namespace Parcels;

std::string const kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
std::string const kXsi = " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";

template <class T>
T Read(std::string const& document, CXmlSerializationContext const& context = {}) {
    T object;
    object.Parse(document, context);
    return object;
}

/// The document that an object makes, without what WritingContext() adds.
template <class T>
std::string Written(T const& object, char16_t const* defaultNamespace = kNamespace) {
    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(defaultNamespace);
    return object.ToText(Bx::Layout::Compact, context).substr(kHead.size());
}

std::string Parcel(std::string const& attributes, std::string const& ahead, std::string const& behind) {
    return "<parcel xmlns=\"urn:parcel\" code=\"AB1\"" + attributes + " version=\"1.0\"" + ">" + ahead +
           "<filled>1</filled><filled>100</filled><days>7</days>" + behind + "</parcel>";
}
std::string const kTo = "<to><city>x</city></to>";

TEST(Parcels, RoundTrip) {
    std::string const xmlLang = " xml:lang=\"en-GB\"";
    std::string const rows[] = {
        Parcel("", kTo, ""),
        Parcel(" speed=\"2\"", "<from kind=\"a\"><city/></from>" + kTo, ""),
        // The union: the first member that takes the text.
        Parcel("", kTo + "<weight>1.5</weight>", ""),
        Parcel("", kTo + "<weight>fast</weight>", ""),
        Parcel("", kTo + "<weight>AB123</weight>", ""),
        // Substitutes keep their order, and each its namespace.
        Parcel("", kTo,
               "<book count=\"1\"><title>a</title></book><AA:toy xmlns:AA=\"urn:toys\"><age>3</age></AA:toy>"
               "<book><title>b</title></book>"),
        Parcel("", kTo, "<note><b>1</b><b>2</b>text</note>"),
        Parcel("", kTo, "<due>2026-05-01</due>"),
        Parcel(
            "", kTo,
            "<open a=\"1\"><c>d</c></open><AA:x xmlns:AA=\"urn:extra\"><AA:y/></AA:x><AA:z xmlns:AA=\"urn:z\"/>"),
    };
    for (std::string const& row : rows) {
        CParcel const parcel = Read<CParcel>(row);
        EXPECT_EQ(Written(parcel), row);
        EXPECT_TRUE(parcel.Validate().empty()) << row;
        CParcel const copy = parcel;
        EXPECT_TRUE(copy.Equals(parcel) && parcel.Clone()->Equals(copy)) << row;
        EXPECT_EQ(Written(copy), row);
    }
}

TEST(Parcels, AreReadAs) {
    std::string const root = "<parcel xmlns='urn:parcel'" + kXsi;
    std::pair<std::string, std::string> const rows[] = {
        // Defaults stand for empty elements; what is fixed may be written in another form of the same value.
        {root + " code=' AB1 ' version='1.0'>" + kTo +
             "<filled> +001.00 </filled><filled>100</filled><days/></parcel>",
         Parcel("", kTo, "")},
        // Layout of open content goes.
        {Parcel("", kTo, "<x xmlns='urn:x'>\n <y>\n</y>\n</x>"),
         Parcel("", kTo, "<AA:x xmlns:AA=\"urn:x\"><AA:y>\n</AA:y></AA:x>")},
        // A type is named by any prefix of its namespace, or without one.
        {root + " xmlns:q='urn:parcel' code='AB1' version='1.0'>"
                "<to xsi:type='q:foreignAddress' overseas='1'><city>x</city><country>y</country></to>"
                "<filled>1</filled><filled>100</filled><days>7</days></parcel>",
         Parcel(
             "",
             "<to xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:type=\"foreignAddress\" overseas=\"true\">"
             "<city>x</city><country>y</country></to>",
             "")},
        {root + " code='AB1' version='1.0'><to xsi:type='address'><city>x</city></to>"
                "<filled>1</filled><filled>100</filled><days>7</days></parcel>",
         Parcel("",
                "<to xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:type=\"address\">"
                "<city>x</city></to>",
                "")},
        {root + " code='AB1' version='1.0'>" + kTo +
             "<filled>1</filled><filled>100</filled><days>7</days>"
             "<due xsi:nil='true'/></parcel>",
         Parcel("", kTo, "<due xmlns:AA=\"http://www.w3.org/2001/XMLSchema-instance\" AA:nil=\"true\"/>")},
    };
    for (auto const& [input, output] : rows) EXPECT_EQ(Written(Read<CParcel>(input)), output) << input;
    EXPECT_EQ(
        Written(
            Read<CBox>(
                "<p:box xmlns:p='urn:parcel'><height>INF</height><owner><city xmlns='urn:parcel'/></owner>"
                "<width>1e3</width></p:box>"),
            u""),
        "<AA:box xmlns:AA=\"urn:parcel\"><width>1000</width><height>INF</height><owner><AA:city/></owner></AA:box>");
    EXPECT_EQ(Written(Read<CPrice>("<price xmlns='urn:parcel' currency=' a  b '> 1.50 </price>")),
              "<price xmlns=\"urn:parcel\" currency=\"a b\">1.5</price>");
    EXPECT_EQ(Written(Read<CLabel>("<label xmlns='urn:parcel'> </label>")), "<label xmlns=\"urn:parcel\"/>");
}

TEST(Parcels, AreNotReadWithFaults) {
    std::string const days = "<filled>1</filled><filled>100</filled><days>7</days>";
    auto const parcel = [](std::string const& content) {
        return "<parcel xmlns='urn:parcel'" + kXsi + " code='AB1' version='1.0'>" + content + "</parcel>";
    };
    std::pair<std::string, std::string> const rows[] = {
        {"<parcel/>",
         "The root is the element [parcel] in the namespace [], it must be [parcel] in [urn:parcel]"},
        {"<box xmlns='urn:parcel'/>",
         "The root is the element [box] in the namespace [urn:parcel], it must be [parcel] in [urn:parcel]"},
        {parcel(""), "Failed to find the element [to] in the element [parcel]"},
        {parcel("<to><city/></to><filled>1</filled><days>7</days>"),
         "Failed to find the element [filled] in the element [parcel], where [days] stands"},
        {parcel(kTo + days + "text"), "Unexpected text [text] found in the element [parcel]"},
        {parcel(kTo + days + "<due>2026-05-01</due><due>2026-05-01</due>"),
         "Unexpected element [due] found in the element [parcel]"},
        {parcel(kTo + days + "<x/>"), "Unexpected element [x] found in the element [parcel]"},
        {parcel(kTo + days + "<note xsi:nil='true'/>"), "The element [note] is nil, which it may not be"},
        {parcel(kTo + days + "<due xsi:nil='1'>2026-05-01</due>"),
         "Unexpected text [2026-05-01] found in the element [due]"},
        {parcel("<to xsi:type='book'><title/></to>" + days),
         "The type [book] of the element [to] is none that may stand there"},
        {parcel(kTo + days + "<thing/>"), "The type [thing] of the element [thing] is abstract"},
        {parcel("<to a='1'><city/></to>" + days), "Unexpected Attribute [a] found."},
        {parcel("<to><city a='1'/></to>" + days), "Unexpected Attribute [a] found."},
        {parcel("<to><city><x/></city></to>" + days), "Unexpected element [x] found in the element [city]"},
        {"<parcel xmlns='urn:parcel' version='1.0'/>", "Failed to find the required Attribute [code]"},
    };
    for (auto const& row : rows)
        EXPECT_BX_THROW(Read<CParcel>(row.first), CBxValidationException, row.second) << row.first;
    EXPECT_BX_THROW(Read<CBox>("<p:box xmlns:p='urn:parcel'><width>1</width><width>2</width></p:box>"),
                    CBxValidationException,
                    "Failed to find the element [owner] in the element [box], where [width] stands");
    EXPECT_BX_THROW(Read<CLabel>("<label xmlns='urn:parcel'><time>2026-05-01T00:00:00</time></label>"),
                    CBxValidationException, "Failed to find the element [time] in the element [label]");
    EXPECT_BX_THROW(Read<CParcel>("<parcel xmlns='urn:parcel'><to>"), CBxException,
                    "The document ends inside the element [/parcel/to], which begins on line 1");
}

/// The location and the message of what an action throws.
template <class Action>
std::string Report(Action action) {
    try {
        action();
    } catch (CBxException const& failure) {
        return ToUtf8(failure.GetLocation().ToString() + u": " + failure.GetMessage());
    }
    return "nothing";
}

TEST(Parcels, SayWhereTheyCannotBeRead) {
    std::string const start = "<parcel xmlns='urn:parcel'" + kXsi + " code='AB1' version='1.0'>\n";
    std::string const days = "<filled>1</filled><filled>100</filled>\n<days>7</days>";
    std::pair<std::string, std::string> const rows[] = {
        {"<to><city/></to><filled>1</filled>\n<filled>x</filled>",
         "3: /parcel/filled[2]: Invalid Value for filled [x]"},
        {kTo + days + "<book><title/></book><book count='x'><title/></book>",
         "3: /parcel/book[2]/@count: Invalid Value for count [x]"},
        {kTo + days + "<book><title/>\n</book><book/>",
         "4: /parcel/book[2]: Failed to find the element [title] in the element [book]"},
        {"<to a='1'>\n<city/></to>", "2: /parcel/to/@a: Unexpected Attribute [a] found."},
        {"<to>\n<city a='1'/></to>", "3: /parcel/to/city/@a: Unexpected Attribute [a] found."},
        {"<to><city>\n<x/></city></to>",
         "3: /parcel/to/city/x: Unexpected element [x] found in the element [city]"},
        {"<to>x\n<city/></to>", "2: /parcel/to: Unexpected text [x] found in the element [to]"},
        {kTo + days + "<x/><x/>", "3: /parcel/x[1]: Unexpected element [x] found in the element [parcel]"},
        {"<to xsi:type='book'/>",
         "2: /parcel/to: The type [book] of the element [to] is none that may stand there"},
        {kTo + "<weight xsi:type='x'>1</weight>",
         "2: /parcel/weight: The type [x] of the element [weight] is none that may stand there"},
        {kTo + days + "<note><b>1</b><b><c/></b></note>",
         "3: /parcel/note/b[2]/c: Unexpected element [c] found in the element [b]"},
    };
    for (auto const& [content, report] : rows) {
        std::string const document = start + content + "</parcel>";
        EXPECT_EQ(Report([&] { Read<CParcel>(document); }), report) << document;
    }
    EXPECT_EQ(Report([] { Read<CParcel>("<box/>"); }).substr(0, 12), "1: /box: The");
    EXPECT_EQ(Report([] { Read<CBox>("\n<p:box xmlns:p='urn:parcel'>\n<width>1</width></p:box>"); }),
              "2: /box: Failed to find the element [owner] in the element [box]");
}

TEST(Parcels, SayWhereTheyCannotBeWritten) {
    CParcel parcel = Read<CParcel>(Parcel("", kTo, "<book><title/></book><book><title/></book>"));
    auto const report = [&] { return Report([&] { parcel.ToText(); }); };
    EXPECT_EQ(report(), "nothing");
    auto const& made = parcel.Thing.Add<CBook>();
    EXPECT_EQ(report(), "/parcel/book[3]: The element [title] is not set");
    EXPECT_EQ(ToUtf8(parcel.Validate().at(0)), report());
    parcel.Thing[0].SetElementName(u"novel");
    EXPECT_EQ(report(), "/parcel/book[2]: The element [title] is not set");
    EXPECT_EQ(ToUtf8(parcel.Validate().at(0)), report());
    EXPECT_EQ(made.Count.operator bool(), false);
    parcel.To->City.Clear();
    EXPECT_EQ(report(), "/parcel/to: The element [city] is not set");
    EXPECT_EQ(parcel.Validate().size(), 2u);
    EXPECT_EQ(Report([&] { parcel.ToFastInfosetStream(fi_None, CXmlSerializationContext(), cmp_None); }),
              report());
}

/// Text has no setting that lets it pass, so it stands where it is asked for.
TEST(Parcels, FailOnIgnoredTextBesideUnknownElements) {
    std::string const document = Parcel("", kTo, "<u>x</u>");
    CXmlSerializationContext context;
    context.SetIgnoreUnknownElements(true);
    EXPECT_EQ(Report([&] { Read<CParcel>(document + "", context); }), "nothing");
    std::string const stray = Parcel("", kTo + "stray", "<u>x</u>");
    EXPECT_EQ(Report([&] { Read<CParcel>(stray, context); }), "nothing");
    context.SetFailOnIgnoredContent(true);
    EXPECT_EQ(Report([&] { Read<CParcel>(document, context); }), "nothing");
    EXPECT_EQ(Report([&] { Read<CParcel>(stray, context); }),
              "1: /parcel: Unexpected text [stray] found in the element [parcel]");
    context.SetIgnoreUnknownElements(false);
    for (std::string const& good : {Parcel("", kTo, ""), Parcel("", kTo, "<note>a<b>1</b></note>")}) {
        CParcel parcel;
        EXPECT_EQ(Report([&] { parcel.FromXml(good.c_str(), context); }), "nothing") << good;
    }
}

TEST(Parcels, SayWhichValueIsNone) {
    EXPECT_EQ(
        BxTest::Reported([] { return Written(Read<CParcel>("<parcel xmlns='urn:parcel' code='ab1'/>")); }),
        "1: /parcel/@code: Invalid Value for code [ab1]\n"
        "The value [ab1] does not match the pattern [A|[A-Z]{2}[0-9]+]");
    EXPECT_BX_THROW(Read<CParcel>("<parcel xmlns='urn:parcel' code='AB1' version='2'/>"),
                    CBxInvalidValueException, "Invalid Value for version [2]");
    EXPECT_BX_THROW(Read<CPrice>("<price xmlns='urn:parcel'/>"), CBxInvalidValueException,
                    "Invalid Value for price []");
}

TEST(Parcels, AreReadWithTheTolerancesOfTheContext) {
    std::string const missing =
        "<parcel xmlns=\"urn:parcel\" code=\"AB1\" version=\"1.0\"><to/><days>7</days></parcel>";
    CXmlSerializationContext context;
    context.SetIgnoreMissingMandatoryElements(true);
    context.SetIgnoreInvalidCollectionCounts(true);
    CParcel const parcel = Read<CParcel>(missing, context);
    context.SetDefaultNamespaceURI(kNamespace);
    EXPECT_EQ(parcel.ToText(Bx::Layout::Compact, context), kHead + missing);

    CXmlSerializationContext unknown;
    unknown.SetIgnoreUnknownElements(true);
    unknown.SetIgnoreUnknownAttributes(true);
    std::string const document =
        "<parcel xmlns='urn:parcel' code='AB1' version='1.0' new='1'>text<new/><to new='1'><new/><city>x<new/></city></to>"
        "<weight><new/>1</weight><filled>1</filled><new/><filled>100</filled><to/><days>7</days><new/>"
        "<book><title>a</title></book><new/><book><title>b</title></book></parcel>";
    EXPECT_EQ(
        Written(Read<CParcel>(document, unknown)),
        Parcel("", kTo + "<weight>1</weight>", "<book><title>a</title></book><book><title>b</title></book>"));

    CXmlSerializationContext namespaces;
    namespaces.SetIgnoreNamespaces(true);
    EXPECT_EQ(
        Written(Read<CParcel>("<parcel code='AB1' version='1.0'><x:to xmlns:x='urn:x'><city>x</city></x:to>"
                              "<filled>1</filled><filled>100</filled><days>7</days></parcel>",
                              namespaces)),
        Parcel("", kTo, ""));
}

template <class T>
std::string Complaints(T const& object) {
    std::string complaints;
    for (wstring const& one : object.Validate()) complaints += ToUtf8(one) + "\n";
    return complaints;
}

TEST(Parcels, AreBuiltAndChecked) {
    CParcel parcel;
    parcel.Code = "AB1";
    EXPECT_EQ(*parcel.Days, 7);
    EXPECT_FALSE(parcel.Days);
    EXPECT_TRUE(parcel.Days == 7 && parcel.Version == u"1.0" && parcel.Weight != CDecimal(1));
    parcel.To.Make<CForeignAddress>().Country = u8"Öland";
    parcel.To->City = std::string("x");
    EXPECT_EQ(Bx::Utf8(parcel.To.Get<CForeignAddress>()->Country), "Öland");
    EXPECT_EQ(parcel.To.Get<CPlainAddress>(), nullptr);
    parcel.Filled = {CDecimal(1), CDecimal(2)};
    parcel.Weight = Speed::N2;
    EXPECT_EQ(Bx::Utf8(parcel.Weight), "2");
    parcel.Thing.Add<CToy>().Age = 3;
    parcel.Due = CDateTime(2026, 5, 1);
    EXPECT_BX_THROW(parcel.Due = CDateTime(u"2026-05-01T00:00:00"), CBxInvalidValueException,
                    "The value [2026-05-01T00:00:00] has not the form of its type");
    parcel.Any.Add(u"a", u"urn:extra").SetText(u"b");
    for (auto const* value : {u"x", u"d"}) parcel.AnyAttributes.Set(u"c", value, u"urn:extra");
    EXPECT_EQ(parcel.ToText(Bx::Layout::Compact).substr(kHead.size()),
              "<p:parcel xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:ns1=\"urn:extra\""
              " xmlns:p=\"urn:parcel\" xmlns:t=\"urn:toys\" code=\"AB1\" version=\"1.0\" ns1:c=\"d\">"
              "<p:to xsi:type=\"p:foreignAddress\"><p:city>x</p:city><p:country>Öland</p:country></p:to>"
              "<p:weight>2</p:weight><p:filled>1</p:filled><p:filled>2</p:filled><p:days>7</p:days>"
              "<t:toy><p:age>3</p:age></t:toy><p:due>2026-05-01</p:due><ns1:a>b</ns1:a></p:parcel>");

    parcel.Any.Add(u"a", kNamespace);
    parcel.AnyAttributes.Set(u"e", u"f");
    parcel.Due->Nil = true;
    parcel.To.Make<CPlainAddress>().Kind = "k";
    EXPECT_EQ(Complaints(parcel),
              "/parcel/@e: The namespace [] of the attribute [e] is not admitted\n"
              "/parcel/to: The element [city] is not set\n"
              "/parcel/to: [kind] must not be set\n"
              "/parcel/due: The element is nil and has content\n"
              "/parcel/a[2]: The element [a] in the namespace [urn:parcel] does not fit [AnyElement]\n");
}

TEST(Parcels, TellWhatMustNotStandWhereItIs) {
    CParcel parcel = Read<CParcel>(Parcel("", kTo, ""));
    parcel.From.Hold(new CBook);
    parcel.To.Make<CPlainAddress>().City = "x";
    parcel.Thing.Append(new CAddress);
    EXPECT_EQ(
        Complaints(parcel),
        "/parcel/from: An object of the type [book] may not stand there\n"
        "/parcel/to/city: Invalid Value for city [x]: The length of the value is 1, it must be at least 2\n"
        "/parcel: An object of the type [address] fits no member of [thing]\n");
    EXPECT_BX_THROW(parcel.Speed = static_cast<Speed>(3), CBxInvalidValueException,
                    "The enumerator 3 is none of the enumeration");
    CAnyThing root;
    root.XsiTyped.Hold(new CSeal);
    EXPECT_EQ(Complaints(root),
              "/any-thing: The object of a derived type is of a type that is none\n"
              "/any-thing: The text of the element is not set\n");
}

TEST(Parcels, HaveOneElementThatTheSchemaLeavesOpen) {
    CCrate crate;
    EXPECT_BX_THROW(crate.Any->GetText(), CBxInvalidStateException, "The property is not set");
    crate.Any.Make(u"a", u"urn:a");
    crate.Any.Make(u"b").SetText(u"c");
    EXPECT_EQ(Written(crate), "<crate xmlns=\"urn:parcel\"><AA:a xmlns:AA=\"urn:a\">c</AA:a></crate>");
    crate.Any = CSmartPtr<CElement>(new CElement(u"d", kNamespace, u"##any", u""));
    crate.Seal.Make().Value = u"no";
    EXPECT_EQ(Complaints(crate),
              "/crate/seal: The element has not the fixed value [yes]\n"
              "/crate/d: The element [d] in the namespace [urn:parcel] does not fit [AnyElement]\n");
    crate.Seal->Value = u"yes";
    crate.Any = nullptr;
    EXPECT_EQ(Written(crate), "<crate xmlns=\"urn:parcel\"><seal>yes</seal></crate>");
    EXPECT_EQ(Complaints(Read<CCrate>(Written(crate))), "");
    EXPECT_BX_THROW(Read<CCrate>("<crate xmlns='urn:parcel'><seal>no</seal></crate>"),
                    CBxInvalidValueException, "The element has not the fixed value [yes]");
}

TEST(Parcels, TakeSubstitutesUnderTheirNames) {
    std::string const novel = "<wrap xmlns=\"urn:parcel\"><novel><title>a</title></novel></wrap>";
    CWrap wrap = Read<CWrap>(novel);
    EXPECT_EQ(Written(wrap), novel);
    EXPECT_EQ(Written(CWrap(wrap)), novel);
    EXPECT_EQ(Bx::Utf8(wrap.Thing.Get<CBook>()->Title), "a");
    wrap.Thing = CSmartPtr<CThing>(new CToy);
    EXPECT_EQ(Written(wrap), "<wrap xmlns=\"urn:parcel\"><AA:toy xmlns:AA=\"urn:toys\"/></wrap>");
    wrap.Thing.Make<CBook>().Title = "b";
    EXPECT_EQ(Written(wrap), "<wrap xmlns=\"urn:parcel\"><book><title>b</title></book></wrap>");
    wrap.Thing->SetElementName(u"novel");
    EXPECT_EQ(Written(wrap), "<wrap xmlns=\"urn:parcel\"><novel><title>b</title></novel></wrap>");
    wrap.Thing.Clear();
    EXPECT_BX_THROW(Written(wrap), CBxValidationException,
                    "Nothing is set of one of the elements [thing] [book] [novel] [toy]");
    EXPECT_BX_THROW(
        Read<CWrap>("<wrap xmlns='urn:parcel'><toy/></wrap>"), CBxValidationException,
        "Failed to find one of the elements [thing] [book] [novel] [toy] in the element [wrap], where [toy] stands");

    CParcel parcel = Read<CParcel>(Parcel("", kTo, "<w:price xmlns:w='urn:w'>5</w:price>"));
    parcel.Any[0].SetNamespace(kNamespace);
    EXPECT_TRUE(Bx::Read<CPrice>(parcel.Any[0]).Value == CDecimal(5));
}

TEST(Parcels, MayBeDeepButNotWithoutEnd) {
    constexpr int kDepth = 1000;
    std::string inner;
    for (int i = 0; i < kDepth; ++i) inner = "<inner>" + inner + "</inner>";
    std::string const document =
        "<wrap xmlns='urn:parcel'><e:toy xmlns:e='urn:toys'>" + inner + "</e:toy></wrap>";
    CWrap const wrap = Read<CWrap>(document);
    EXPECT_TRUE(wrap.Validate().empty() && wrap.Clone()->Equals(wrap));
    BxTest::OnThread(128 * 1024, [&] {
        EXPECT_BX_THROW(Read<CWrap>(document), CBxException,
                        "Elements or objects are nested too deeply for what is left of the stack");
    });

    CSmartPtr<CToy> const first = new CToy;
    CSmartPtr<CToy> last = first;
    for (int i = 0; i < 100'000; ++i) last = &last->Inner.Make();
    EXPECT_NE(BxTest::Thrown([&] { (void)first->Validate(); }), "nothing");
    EXPECT_NE(BxTest::Thrown([&] { (void)first->Clone(); }), "nothing");
    EXPECT_NE(BxTest::Thrown([&] { (void)first->Equals(*first); }), "nothing");
    EXPECT_NE(BxTest::Thrown([&] { (void)first->ToXml(false, false, eol_LF, {}); }), "nothing");
}

/// In a time that does not grow with the square of their number, which the limit of a test's time shows.
TEST(Properties, CompareAnyNumberOfAttributes) {
    constexpr int kCount = 50'000;
    CParcel forward, backward;
    auto const add = [](CParcel& parcel, int i, char16_t const* value) {
        wstring const name = u"a" + FromUtf8(std::to_string(i));
        parcel.AnyAttributes.All().Add(name.c_str(), value, u"urn:extra");
    };
    for (int i = 0; i < kCount; ++i) {
        add(forward, i, u"v");
        add(backward, kCount - 1 - i, u"v");
    }
    EXPECT_TRUE(forward.Equals(backward));
    add(forward, kCount, u"v");
    EXPECT_FALSE(forward.Equals(backward));
    add(backward, kCount, u"w");
    EXPECT_FALSE(forward.Equals(backward));
}

TEST(Properties, AreSharedOrCopied) {
    CSmartPtr<CAddress> const address = new CAddress;
    address->City = "x";
    CParcel parcel;
    parcel.From = address;
    parcel.To = *address;
    address->City = "y";
    EXPECT_TRUE(parcel.From->City == u"y" && parcel.To->City == u"x");
    CParcel const copy = parcel;
    parcel.From->City = "z";
    EXPECT_TRUE(copy.From->City == u"y");
    EXPECT_FALSE(copy.Equals(parcel));
    parcel.From = nullptr;
    EXPECT_FALSE(parcel.From);
    EXPECT_BX_THROW(parcel.From->City, CBxInvalidStateException, "The property is not set");
    EXPECT_BX_THROW(*parcel.Code, CBxInvalidStateException, "The property is not set");
    EXPECT_BX_THROW(parcel.Thing[0], CBxInvalidParamException, "There is nothing at the index 0");
    EXPECT_BX_THROW(parcel.Filled.Remove(0), CBxInvalidParamException, "There is nothing at the index 0");
    EXPECT_BX_THROW(parcel.Thing.Add(CSmartPtr<CThing>()), CBxInvalidParamException,
                    "A null cannot be added to a collection");

    parcel.Filled = {CDecimal(1)};
    EXPECT_BX_THROW((parcel.Filled = {CDecimal(2), CDecimal(-1)}), CBxInvalidValueException,
                    "The value [-1] is less than [0]");
    EXPECT_EQ(parcel.Filled.Count(), 1);
    parcel.Filled.Set(0, CDecimal(5));
    EXPECT_EQ(parcel.Filled[0], CDecimal(5));
}

/// The text of a document without the prefix of its namespace.
std::string Bare(std::string text) {
    for (std::size_t at = 0; (at = text.find("p:", at)) != text.npos;) text.erase(at, 2);
    return text;
}

TEST(Parcels, RootsOfDerivedTypes) {
    CAnyThing root;
    EXPECT_EQ(root.Validate().size(), 1U);
    EXPECT_THROW(root.Parse("<any-thing xmlns='urn:parcel'/>"), CBxValidationException);
    EXPECT_THROW(root.Parse("<any-thing xmlns='urn:parcel'" + kXsi + " xsi:type='address'/>"),
                 CBxValidationException);
    root.Parse("<any-thing xmlns='urn:parcel'" + kXsi +
               " xsi:type='book' count='2'><title>t</title></any-thing>");
    ASSERT_NE(root.XsiTyped.Get<CBook>(), nullptr);
    EXPECT_EQ(Bx::Utf8(root.XsiTyped.Get<CBook>()->Title), "t");
    CAnyThing const copy(root);
    root.XsiTyped.Get<CBook>()->Title = "u";
    EXPECT_FALSE(copy.Equals(root));
    EXPECT_NE(Bare(copy.ToText()).find(" xsi:type=\"book\" count=\"2\"><title>t</title></any-thing>"),
              std::string::npos);
    EXPECT_TRUE(copy.Validate().empty());
    root.Count = 1;
    EXPECT_EQ(root.Validate().size(), 1U);
    root.Parse("<any-thing xmlns='urn:parcel'" + kXsi + " xsi:type='toy'/>");
    EXPECT_FALSE(root.Count);
    EXPECT_NE(root.XsiTyped.Get<CToy>(), nullptr);
}

TEST(Parcels, TypesOfValuesAreKeptWithThem) {
    CPrice price;
    auto const parse = [&](std::string const& type, std::string const& value) {
        price.Parse("<price xmlns='urn:parcel' xmlns:xs='http://www.w3.org/2001/XMLSchema'" + kXsi +
                    " xsi:type='" + type + "'>" + value + "</price>");
    };
    // Its type is an anonymous complex one, from which none derives.
    EXPECT_THROW(parse("topPercent", "95"), CBxValidationException);

    auto const write = [](std::string const& values) {
        CParcel parcel;
        std::string const type = " xsi:type='topPercent'";
        parcel.Parse(
            "<parcel xmlns='urn:parcel'" + kXsi + " code='AB1' version='1.0'>" + kTo + "<filled" + type +
            ">95.0</filled><filled>95</filled><filled" + type + ">" + values +
            "</filled><days xsi:type='xs:short' xmlns:xs='http://www.w3.org/2001/XMLSchema'/></parcel>");
        parcel.Filled.Set(1, CDecimal(u"7"));
        CParcel const copy(parcel);
        parcel.Filled.Set(0, CDecimal(u"96"));
        std::string const text = Bare(copy.ToText());
        EXPECT_EQ(text.find("topPercent"), text.rfind(">95.0<") - 11) << text;
        EXPECT_NE(text.find("<days xsi:type=\"xs:short\">7</days>"), std::string::npos) << text;
        return Bare(parcel.ToText());
    };
    std::string const text = write("99");
    EXPECT_NE(text.find("<filled>96</filled><filled>7</filled><filled xsi:type=\"topPercent\">99</filled>"),
              std::string::npos)
        << text;
    EXPECT_THROW(write("89"), CBxInvalidValueException);
}

}  // namespace
