#include "BxXmlLib5/collections/TypedCollections.h"

#include <random>
#include <set>

#include "collections/Objects.h"
#include "values/Dates.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;

namespace {

/// The facets as the constructors take them.
struct Facets {
    char16_t const* pattern = u"";
    int minLength = -1, maxLength = -1;
    char16_t const *minInclusive = u"", *maxInclusive = u"", *minExclusive = u"", *maxExclusive = u"";
    int length = -1;
};

/// What a collection is tested with.
template <class T>
struct Row {
    ItemType m_kind;
    T m_a;
    std::string m_textOfA, m_textOfB;
    Facets m_facets;                  // admit a and b
    std::string m_refused;            // by the facets
    std::string m_shown = m_refused;  // of it in the message
};

CBinaryData Octets(char16_t const* hexadecimal) {
    CBinaryData data;
    data.SetAsHexString(hexadecimal);
    return data;
}

/// The row of a collection.
template <class Collection>
constexpr int kRow = 0;

// clang-format off
template <> Row<std::int8_t> const kRow<Ci1Col> = {it_i1, -128, "-128", "7", {.maxInclusive = u"7"}, "8"};
template <> Row<std::int16_t> const kRow<Ci2Col> = {
    it_i2, -32767, "-32767", "300", {.minInclusive = u"-32767"}, "-32768"};
template <> Row<std::int32_t> const kRow<Ci4Col> = {
    it_i4, -2147483647 - 1, "-2147483648", "70000", {.maxExclusive = u"70001"}, "70001"};
template <> Row<std::int64_t> const kRow<Ci8Col> = {
    it_i8, 9223372036854775807, "9223372036854775807", "0", {.minExclusive = u"-1"}, "-1"};
template <> Row<std::uint8_t> const kRow<Cui1Col> = {it_ui1, 255, "255", "10", {.minInclusive = u"10"}, "9"};
template <> Row<std::uint16_t> const kRow<Cui2Col> = {
    it_ui2, 65535, "65535", "1", {.minExclusive = u"0"}, "0"};
template <> Row<std::uint32_t> const kRow<Cui4Col> = {
    it_ui4, 4294967294, "4294967294", "0", {.maxExclusive = u"4294967295"}, "4294967295"};
template <> Row<std::uint64_t> const kRow<Cui8Col> = {
    it_ui8, 18446744073709551614u, "18446744073709551614", "6",
    {.maxInclusive = u"18446744073709551614"}, "18446744073709551615"};
template <> Row<float> const kRow<Cr4Col> = {
    it_r4, 1.5f, "1.5", "-0.25", {.maxInclusive = u"1.5"}, "2", "2.000000"};
template <> Row<double> const kRow<Cr8Col> = {
    it_r8, 0.1, "0.1", "-1e+300", {.maxExclusive = u"2.5"}, "2.5", "2.500000"};
template <> Row<bool> const kRow<CbooleanCol> = {
    it_boolean, true, "true", "false", {u"x", 9, 0, u"x", u"x", u"x", u"x", 9}, ""};
template <> Row<wstring> const kRow<CstringCol> = {
    it_string, u"longer than <most>", "longer than &lt;most&gt;", "z", {.pattern = u"[^X]*"}, "X1"};
template <> Row<CDecimal> const kRow<CdecimalCol> = {
    it_decimal, u"-1.50", "-1.5", "12345678901234567890.5",
    {.maxInclusive = u"12345678901234567890.5"}, "12345678901234567890.6"};
template <> Row<CBigInteger> const kRow<CintegerCol> = {
    it_integer, u"1000000000000000000000", "1000000000000000000000", "-7", {.minExclusive = u"-8"}, "-8"};
template <> Row<CBinaryData> const kRow<ChexBinaryCol> = {
    it_hexBinary, Octets(u"AB01"), "AB01", "00", {.minLength = 1, .maxLength = 2}, "010203"};
template <> Row<CBinaryData> const kRow<Cbase64BinaryCol> = {
    it_base64Binary, Octets(u"AB01"), "qwE=", "AAA=", {.minLength = 1, .length = 2}, "/w==", "FF"};
template <> Row<CDateTimeSpan> const kRow<CdurationCol> = {
    it_duration, Span("P1Y"), "P1Y", "-PT1.5S", {.maxInclusive = u"P1Y"}, "P2Y"};
template <> Row<std::uint8_t> const kRow<CdayCol> = {
    it_day, 7, "---07", "---31", {.minInclusive = u"---07"}, "---06", "6"};
template <> Row<std::uint8_t> const kRow<CmonthCol> = {
    it_month, 5, "--05", "--12", {.minExclusive = u"--04"}, "--04", "4"};
template <> Row<std::uint16_t> const kRow<CyearCol> = {
    it_year, 2026, "2026", "1999", {.maxExclusive = u"2027"}, "2027"};
template <> Row<CDateTime> const kRow<CdatetimeCol> = {
    it_datetime, Date("2026-11-22T10:20:30Z"), "2026-11-22T10:20:30Z", "2026-11-22T10:20:29.5Z",
    {.maxInclusive = u"2026-11-22T10:20:30Z"}, "2026-11-22T10:20:31Z"};
template <> Row<CDateTime> const kRow<CdateCol> = {
    it_date, Date("2026-11-22"), "2026-11-22", "2026-11-23Z", {.minInclusive = u"2026-11-22"}, "2026-11-21"};
template <> Row<CDateTime> const kRow<CtimeCol> = {
    it_time, Date("10:20:30"), "10:20:30", "23:59:59", {.minExclusive = u"10:20:29"}, "10:20:29"};
template <> Row<CDateTime> const kRow<CyearMonthCol> = {
    it_yearMonth, Date("2026-11"), "2026-11", "1999-01", {.maxExclusive = u"2026-12"}, "2026-12"};
template <> Row<CDateTime> const kRow<CmonthDayCol> = {
    it_monthDay, Date("--11-22"), "--11-22", "--02-29", {.maxInclusive = u"--11-22"}, "--11-23"};
// clang-format on

using Collections = testing::Types<Ci1Col, Ci2Col, Ci4Col, Ci8Col, Cui1Col, Cui2Col, Cui4Col, Cui8Col, Cr4Col,
                                   Cr8Col, CbooleanCol, CstringCol, CdecimalCol, CintegerCol, ChexBinaryCol,
                                   Cbase64BinaryCol, CdurationCol, CdayCol, CmonthCol, CyearCol, CdatetimeCol,
                                   CdateCol, CtimeCol, CyearMonthCol, CmonthDayCol>;

/// A collection of elements {urn:n}v.
template <class Collection>
struct Open : Collection {
    explicit Open(Facets const& f = {}, int minOccurs = 0, int maxOccurs = -1,
                  CWhitespaceUtils::WhitespaceRule rule = CWhitespaceUtils::ws_Collapse,
                  char16_t const* format = nullptr)
        : Collection(u"v", u"urn:n", minOccurs, maxOccurs, f.pattern, f.minLength, f.maxLength,
                     f.minInclusive, f.maxInclusive, f.minExclusive, f.maxExclusive, f.length, rule, format) {
    }
    using Collection::FromXml_Int, Collection::m_itemType;

    /// What it writes inside of an element, or the failure.
    std::string Written() const {
        CXmlTextWriter writer;
        writer.SetFormatting(false);
        writer.SetDefaultNamespace(u"urn:n");
        writer.WriteStartElement(u"r", u"urn:n");
        wstring const before = writer.GetString();
        std::string const thrown =
            Thrown([&] { this->ToXml_Int(&writer, false, nullptr, Defaults(), false); });
        std::string const text = ToUtf8(writer.GetString().substr(before.size()));
        return thrown == "nothing" ? text : text + thrown;
    }

    /// Reads the children of the root of a document.
    /// @return the name of the child at which it stopped, "end", or the failure
    std::string Read(std::string const& children, CXmlSerializationContext const& context = Defaults()) {
        CXmlDocument document;
        document.LoadXml(FromUtf8("<r xmlns='urn:n'>" + children + "</r>").c_str());
        CXmlElement* const root = document.GetDocumentElement();
        std::string stopped;
        std::string const thrown = Thrown([&] {
            CXmlElement const* const next = FromXml_Int(nullptr, root->GetFirstElement(), context, false);
            stopped = next == nullptr ? "end" : ToUtf8(next->GetLocalName());
        });
        return thrown == "nothing" ? stopped : thrown;
    }
};

/// The events of a collection.
struct Listener : Object {
    explicit Listener(CXmlCollectionBase& collection) : m_collection(collection) {
        m_onEvent = [this](CXmlObjectBase*) { m_counts += std::to_string(m_collection.GetCount()); };
        collection.AddEventListener(this);
    }
    ~Listener() override { m_collection.RemoveEventListener(this); }

    CXmlCollectionBase& m_collection;
    std::string m_counts;  // at each event
};

template <class Collection>
class TypedCollections : public testing::Test {
protected:
    using Col = Open<Collection>;
    using T = decltype(kRow<Collection>.m_a);
    static constexpr auto const& kRow = ::kRow<Collection>;
    static constexpr bool kIsDate = std::is_same_v<T, CDateTime>;

    /// The values as letters; Written() tells whether b is right.
    static std::string Letters(Col const& collection) {
        std::string letters;
        for (T const& value : collection) letters += value == kRow.m_a ? 'a' : 'b';
        EXPECT_EQ(collection.GetCount(), std::ssize(letters));
        return letters;
    }
    static std::string Elements(std::string_view letters) {
        std::string elements;
        for (char const letter : letters)
            elements += "<v>" + (letter == 'a' ? kRow.m_textOfA : kRow.m_textOfB) + "</v>";
        return elements;
    }
    static T ValueOf(std::string const& element) {
        Col collection;
        EXPECT_EQ(collection.Read(element), "end");
        return collection.Item(0);
    }
    static void Add(Col& collection, std::string_view letters) {
        for (char const letter : letters) collection.Add(ValueOf(Elements({&letter, 1})));
    }
    static std::string Refused() { return "<v>" + kRow.m_refused + "</v>"; }
    static std::string Refusal() { return "CBxException: Invalid Value for v [" + kRow.m_shown + "]"; }
};

TYPED_TEST_SUITE(TypedCollections, Collections);

std::string const kIndex = "CBxInvalidParamException: Index out of range";

}  // namespace

TYPED_TEST(TypedCollections, OperationsAgainstAModel) {
    std::mt19937 random(3);
    typename TestFixture::Col collection, values;
    this->Add(values, "ab");
    Listener listener(collection);
    std::string model;
    for (int step = 0; step < 100; ++step) {
        std::size_t const which = random() % 2;
        int const size = static_cast<int>(model.size());
        int const index = static_cast<int>(random() % (model.size() + 4)) - 2;
        auto const& value = values.Item(static_cast<int>(which));
        auto const at = static_cast<std::size_t>(std::clamp(index, 0, size));
        std::string const none = "nothing", outside = "CBxInvalidParamException: Index " +
                                                      std::to_string(index) + " is out of range, use 0 - " +
                                                      std::to_string(size - 1);
        bool const isInside = index >= 0 && index < size;
        std::string const inserted = std::string(model).insert(at, 1, "ab"[which]);
        struct {
            std::function<void()> m_operation;
            std::string m_after, m_thrown;
        } const rows[] = {
            {[&] { collection.Add(value); }, model + "ab"[which], none},
            {[&] { collection.AddAt(index, value); }, inserted, isInside || index == size ? none : kIndex},
            {[&] { collection.Remove(index); }, std::string(model).erase(at, 1), isInside ? none : outside},
            {[&] { EXPECT_EQ(collection.Item(index) == values.Item(0), model[at] == 'a'); }, model,
             isInside ? none : outside},
            {[&] { collection.Clear(); }, "", none}};
        std::size_t const verb = random() % 17 / 4;  // seldom the last
        auto const& [operation, after, thrown] = rows[verb];
        listener.m_counts.clear();
        if (thrown == none) model = after;
        EXPECT_EQ(Thrown(operation), thrown);
        EXPECT_EQ(this->Letters(collection), model);
        EXPECT_EQ(listener.m_counts, verb < 3 && thrown == none ? std::to_string(model.size()) : "");
    }
}

TYPED_TEST(TypedCollections, WritesAndReads) {
    typename TestFixture::Col collection({}, 1, 9);
    Listener listener(collection);
    EXPECT_EQ(collection.Written(),
              "CBxValidationException: The Minimum number of [v] elements allowed in this collection is 1");
    EXPECT_EQ(collection.Read(this->Elements("abb") + "<v>\n " + this->kRow.m_textOfA + "\t</v><w/><v/>"),
              "w");
    EXPECT_EQ(this->Letters(collection), "abba");
    EXPECT_EQ(collection.Written(), ">" + this->Elements("abba"));
    EXPECT_EQ(collection.Read(""), "end");
    EXPECT_EQ(collection.Read("<v xmlns='urn:m'/>"), "v");
    EXPECT_EQ(listener.m_counts, "1234");
}

TYPED_TEST(TypedCollections, RefusesValues) {
    typename TestFixture::Col collection(this->kRow.m_facets);
    this->Add(collection, "ab");
    if (this->kRow.m_refused.empty()) return;
    auto const refused = this->ValueOf(this->Refused());
    Listener listener(collection);
    EXPECT_EQ(Thrown([&] { collection.Add(refused); }), this->Refusal());
    EXPECT_EQ(Thrown([&] { collection.AddAt(-1, refused); }), this->kIsDate ? this->Refusal() : kIndex);
    // What comes before a value that fails stays.
    EXPECT_EQ(collection.Read(this->Elements("ba") + this->Refused() + this->Elements("b")), this->Refusal());
    EXPECT_EQ(this->Letters(collection), "abba");
    EXPECT_EQ(listener.m_counts, "34");
}

TYPED_TEST(TypedCollections, Copies) {
    typename TestFixture::Col source(this->kRow.m_facets, 1, 3), target;
    this->Add(source, "aab");
    this->Add(target, "b");
    typename TestFixture::Col copy(source);
    target = source;
    source.Remove(1);
    for (auto* each : {&copy, &target}) {
        EXPECT_EQ(this->Letters(*each), "aab");
        EXPECT_EQ(each->GetMinOccurs() * 10 + each->GetMaxOccurs(), 13);
        EXPECT_EQ(each->m_itemType, this->kRow.m_kind);
        EXPECT_EQ(each->Written(), ">" + this->Elements("aab"));
        EXPECT_NE(each->Read(this->Refused()), "end");
    }
}

namespace {

/// What a collection, a copy and one that was assigned write of an element that they read, if it is the same.
template <class Collection>
std::string WrittenByCopies(Collection const& original, std::string const& element) {
    Collection copies[] = {original, original, Collection()};
    copies[2] = original;
    std::set<std::string> results;
    for (Collection& each : copies) {
        std::string const read = each.Read(element);
        results.insert(read + each.Written());
    }
    return results.size() == 1 ? *results.begin() : "not the same";
}

}  // namespace

TEST(TypedCollection, Formats) {
    constexpr auto kRule = CWhitespaceUtils::ws_Collapse;
    auto const written = [](auto const& collection) { return WrittenByCopies(collection, "<v>2</v>"); };
    EXPECT_EQ(written(Open<Cr4Col>({}, 0, -1, kRule, u"%.2f")), "end><v>2.00</v>");
    EXPECT_EQ(written(Open<Cr8Col>({}, 0, -1, kRule, u"%.2f")), "end><v>2.00</v>");
    EXPECT_EQ(written(Open<CdecimalCol>({}, 0, -1, kRule, u"2")), "end><v>2.00</v>");
    EXPECT_EQ(written(Open<Ci4Col>({}, 0, -1, kRule, u"%.2f")), "end><v>2</v>");
}

TEST(TypedCollection, WhitespaceRules) {
    char const* const values[] = {" a\t b ", " a  b ", "a b"};
    for (auto const rule :
         {CWhitespaceUtils::ws_Preserve, CWhitespaceUtils::ws_Replace, CWhitespaceUtils::ws_Collapse}) {
        EXPECT_EQ(WrittenByCopies(Open<CstringCol>({}, 0, -1, rule), "<v> a\t b </v>"),
                  "end><v>" + std::string(values[rule]) + "</v>");
    }
    EXPECT_EQ(Open<Ci4Col>({}, 0, -1, CWhitespaceUtils::ws_Preserve).Read("<v>7 </v>"),
              "CBxInvalidValueException: The value [7 ] can not be converted to a i4");
    EXPECT_EQ(Open<CdateCol>({}, 0, -1, static_cast<CWhitespaceUtils::WhitespaceRule>(3)).Read("<v/>"),
              "CBxException: Unknown WhitespaceRule");
}

TEST(TypedCollection, DatesOfAnotherType) {
    // The type is tested before the facets, which these cannot be.
    auto const expect = [](auto collection, char const* other, std::string const& type) {
        EXPECT_EQ(Thrown([&] { collection.AddAt(0, Date(other)); }),
                  "CBxInvalidParamException: Dates added to this collection must be of type dt_" + type);
    };
    Facets const unreadable{.maxInclusive = u"no date"};
    expect(Open<CdatetimeCol>(unreadable), "2026-11-22", "dateTime");
    expect(Open<CdateCol>(unreadable), "2026-11-22T10:20:30", "date");
    expect(Open<CtimeCol>(unreadable), "2026-11-22", "time");
    expect(Open<CyearMonthCol>(unreadable), "2026", "gYearMonth");
    expect(Open<CmonthDayCol>(unreadable), "--11", "gMonthDay");
}

namespace {

/// Overrides what the collections of dates leave to derived classes.
struct Days : Open<CdateCol> {
    using Open::Open;
    void AddAt(int index, CDateTime const& value) override { BaseAddAt(index, value); }
    wstring ItemToString(CDateTime const& value) override { return value.GetTypeAsString(); }
};

}  // namespace

TEST(TypedCollection, DerivedCollectionsOfDates) {
    Days days({.maxInclusive = u"1999-01-01"});
    days.Add(Date("10:20:30"));
    EXPECT_EQ(days.Read("<v>2026-11-22</v><v>2026</v>"), "end");
    EXPECT_EQ(days.Written(), "><v>time</v><v>date</v><v>gYear</v>");
    EXPECT_EQ(Thrown([&] { days.AddAt(4, Date("2026")); }), kIndex);
}
