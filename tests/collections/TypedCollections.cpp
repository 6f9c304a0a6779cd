#include "BxXmlLib5/collections/TypedCollections.h"

#include <sstream>

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
    T m_a, m_b;
    std::string m_textOfA, m_textOfB;
    Facets m_facets;                  // admit a and b
    T m_refused;                      // by the facets
    std::string m_shown;              // of it in the message
    std::string m_invalid;            // text
    char const *m_class, *m_message;  // thrown for that text
};

CBinaryData Octets(char16_t const* hexadecimal) {
    CBinaryData data;
    data.SetAsHexString(hexadecimal);
    return data;
}

constexpr char kInvalid[] = "CBxInvalidValueException: ";
constexpr char kOtherType[] = "CBxInvalidParamException: Dates added to this collection must be of type ";

/// The row of a collection.
template <class Collection>
constexpr int kRow = 0;

// clang-format off
template <> Row<std::int8_t> const kRow<Ci1Col> = {
    it_i1, -128, 7, "-128", "7", {.maxInclusive = u"7"}, 8, "8",
    "128", kInvalid, "The value [128] is to large to fit in a i1"};
template <> Row<std::int16_t> const kRow<Ci2Col> = {
    it_i2, -32767, 300, "-32767", "300", {.minInclusive = u"-32767"}, -32768, "-32768",
    "32768", kInvalid, "The value [32768] is to large to fit in a i2"};
template <> Row<std::int32_t> const kRow<Ci4Col> = {
    it_i4, -2147483647 - 1, 70000, "-2147483648", "70000", {.maxExclusive = u"70001"}, 70001, "70001",
    "7x", kInvalid, "The value [7x] can not be converted to a i4"};
template <> Row<std::int64_t> const kRow<Ci8Col> = {
    it_i8, 9223372036854775807, 0, "9223372036854775807", "0", {.minExclusive = u"-1"}, -1, "-1",
    "7x", kInvalid, "The value [7x] can not be converted to a i8"};
template <> Row<std::uint8_t> const kRow<Cui1Col> = {
    it_ui1, 255, 10, "255", "10", {.minInclusive = u"10"}, 9, "9",
    "256", kInvalid, "The value [256] is to large to fit in a ui1"};
template <> Row<std::uint16_t> const kRow<Cui2Col> = {
    it_ui2, 65535, 1, "65535", "1", {.minExclusive = u"0"}, 0, "0",
    "65536", kInvalid, "The value [65536] is to large to fit in a ui2"};
template <> Row<std::uint32_t> const kRow<Cui4Col> = {
    it_ui4, 4294967294, 0, "4294967294", "0", {.maxExclusive = u"4294967295"}, 4294967295, "4294967295",
    "7x", kInvalid, "The value [7x] can not be converted to a ui4"};
template <> Row<std::uint64_t> const kRow<Cui8Col> = {
    it_ui8, 18446744073709551614u, 6, "18446744073709551614", "6",
    {.maxInclusive = u"18446744073709551614"}, 18446744073709551615u, "18446744073709551615",
    "7x", kInvalid, "The value [7x] can not be converted to a ui8"};
template <> Row<float> const kRow<Cr4Col> = {
    it_r4, 1.5f, -0.25f, "1.5", "-0.25", {.maxInclusive = u"1.5"}, 2, "2.000000",
    "x", kInvalid, "The value [x] can not be converted to a r8"};
template <> Row<double> const kRow<Cr8Col> = {
    it_r8, 0.1, -1e300, "0.1", "-1e+300", {.maxExclusive = u"2.5"}, 2.5, "2.500000",
    "x", kInvalid, "The value [x] can not be converted to a r8"};
template <> Row<bool> const kRow<CbooleanCol> = {
    it_boolean, true, false, "true", "false", {u"x", 9, 0, u"x", u"x", u"x", u"x", 9}, false, "",
    "yes", kInvalid, "A Boolean Value read from an XML document was invalid [yes]. "
                     "Valid values are 'true', 'false', '1', or '0'"};
template <> Row<wstring> const kRow<CstringCol> = {
    it_string, u"longer than <most>", u"z", "longer than &lt;most&gt;", "z",
    {.pattern = u"[^X]*", .minLength = 1}, u"X1", "X1",
    "", "CBxException: ", "Invalid Value for v []"};
template <> Row<CDecimal> const kRow<CdecimalCol> = {
    it_decimal, u"-1.50", u"12345678901234567890.5", "-1.5", "12345678901234567890.5",
    {.maxInclusive = u"12345678901234567890.5"}, u"12345678901234567890.6", "12345678901234567890.6",
    "x", kInvalid, "The string representing a Decimal, contained an invalid char at position 0 [x]"};
template <> Row<CBigInteger> const kRow<CintegerCol> = {
    it_integer, u"1000000000000000000000", u"-7", "1000000000000000000000", "-7",
    {.minExclusive = u"-8"}, u"-8", "-8",
    "7-", kInvalid, "The string representing a Decimal, contained an invalid char at position 1 [7-]"};
template <> Row<CBinaryData> const kRow<ChexBinaryCol> = {
    it_hexBinary, Octets(u"AB01"), Octets(u"00"), "AB01", "00", {.minLength = 1, .maxLength = 2},
    Octets(u"010203"), "010203",
    "0g", "CBxException: ", "Invalid char in hex string [g]"};
template <> Row<CBinaryData> const kRow<Cbase64BinaryCol> = {
    it_base64Binary, Octets(u"AB01"), Octets(u"0000"), "qwE=", "AAA=", {.length = 2}, Octets(u"FF"), "FF",
    "*", "CBxException: ", "Invalid Value for v []"};
template <> Row<CDateTimeSpan> const kRow<CdurationCol> = {
    it_duration, Span("P1Y"), Span("-PT1.5S"), "P1Y", "-PT1.5S", {.maxInclusive = u"P1Y"}, Span("P2Y"), "P2Y",
    "1Y", kInvalid, "Invalid XSD Duration [1Y] expected [-]P[nY][nM][nD][T[nH][nM][nS.ff]]"};
template <> Row<std::uint8_t> const kRow<CdayCol> = {
    it_day, 7, 31, "---07", "---31", {.minInclusive = u"---07"}, 6, "6",
    "---32", kInvalid, "Invalid Day [32] (1 <= day <= 31)"};
template <> Row<std::uint8_t> const kRow<CmonthCol> = {
    it_month, 5, 12, "--05", "--12", {.minExclusive = u"--04"}, 4, "4",
    "--13", kInvalid, "Invalid Month [13] (1 <= month <= 12)"};
template <> Row<std::uint16_t> const kRow<CyearCol> = {
    it_year, 2026, 1999, "2026", "1999", {.maxExclusive = u"2027"}, 2027, "2027",
    "26", kInvalid, "Invalid XSD Date [26] expected CCYY-MM-DD[Z|[+|-]hh:mm]"};
template <> Row<CDateTime> const kRow<CdatetimeCol> = {
    it_datetime, Date("2026-11-22T10:20:30Z"), Date("2026-11-22T10:20:29.5Z"),
    "2026-11-22T10:20:30Z", "2026-11-22T10:20:29.5Z",
    {.maxInclusive = u"2026-11-22T10:20:30Z"}, Date("2026-11-22T10:20:31Z"), "2026-11-22T10:20:31Z",
    "2026-11-22", kInvalid, "Invalid XSD DateTime [2026-11-22]"};
template <> Row<CDateTime> const kRow<CdateCol> = {
    it_date, Date("2026-11-22"), Date("2026-11-23Z"), "2026-11-22", "2026-11-23Z",
    {.minInclusive = u"2026-11-22"}, Date("2026-11-21"), "2026-11-21",
    "2026-11", kOtherType, "dt_date"};
template <> Row<CDateTime> const kRow<CtimeCol> = {
    it_time, Date("10:20:30"), Date("23:59:59"), "10:20:30", "23:59:59",
    {.minExclusive = u"10:20:29"}, Date("10:20:29"), "10:20:29",
    "10:20", kInvalid, "Invalid XSD Time [10:20] expected hh:mm:ss[.ff]"};
template <> Row<CDateTime> const kRow<CyearMonthCol> = {
    it_yearMonth, Date("2026-11"), Date("1999-01"), "2026-11", "1999-01",
    {.maxExclusive = u"2026-12"}, Date("2026-12"), "2026-12",
    "2026", kOtherType, "dt_gYearMonth"};
template <> Row<CDateTime> const kRow<CmonthDayCol> = {
    it_monthDay, Date("--11-22"), Date("--02-29"), "--11-22", "--02-29",
    {.maxInclusive = u"--11-22"}, Date("--11-23"), "--11-23",
    "--11", kOtherType, "dt_gMonthDay"};
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
    std::string Written(CXmlSerializationContext const& context = Defaults()) const {
        CXmlTextWriter writer;
        writer.SetFormatting(false);
        writer.SetDefaultNamespace(u"urn:n");
        writer.WriteStartElement(u"r", u"urn:n");
        wstring const before = writer.GetString();
        std::string const thrown = Thrown([&] { this->ToXml_Int(&writer, false, nullptr, context, false); });
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

/// Counts the events of a collection, and may fail on them.
struct Listener : Object {
    explicit Listener(CXmlCollectionBase& collection) : m_collection(collection) {
        m_onEvent = [this](CXmlObjectBase* source) {
            EXPECT_EQ(source, &m_collection);
            m_counts += std::to_string(m_collection.GetCount());
            if (m_fails) throw CBxInvalidStateException(u"no more");
        };
        collection.AddEventListener(this);
    }
    ~Listener() override { m_collection.RemoveEventListener(this); }

    CXmlCollectionBase& m_collection;
    std::string m_counts;  // at each event
    bool m_fails = false;
};

template <class Collection>
class TypedCollections : public testing::Test {
protected:
    using Col = Open<Collection>;
    using T = decltype(kRow<Collection>.m_a);
    static constexpr auto const& kRow = ::kRow<Collection>;
    static constexpr bool kIsDate = std::is_same_v<T, CDateTime>;
    static constexpr bool kHasTest = !std::is_same_v<T, bool>;

    /// The values as letters.
    static std::string Letters(Col const& collection) {
        std::string letters;
        for (T const& value : collection) letters += value == kRow.m_a ? 'a' : value == kRow.m_b ? 'b' : '?';
        EXPECT_EQ(collection.GetCount(), std::ssize(letters));
        return letters;
    }
    static T const& Value(char letter) { return letter == 'a' ? kRow.m_a : kRow.m_b; }
    static void Add(Col& collection, std::string_view letters) {
        for (char const letter : letters) collection.Add(Value(letter));
    }
    static std::string Elements(std::string_view letters) {
        std::string elements;
        for (char const letter : letters)
            elements += "<v>" + (letter == 'a' ? kRow.m_textOfA : kRow.m_textOfB) + "</v>";
        return elements;
    }
    static std::string Refusal() { return "CBxException: Invalid Value for v [" + kRow.m_shown + "]"; }
};

TYPED_TEST_SUITE(TypedCollections, Collections);

std::string const kIndex = "CBxInvalidParamException: Index out of range";

template <class Col, class Argument>
Argument ArgumentOf(void (Col::*)(Argument));

}  // namespace

TYPED_TEST(TypedCollections, Signatures) {
    using Value = typename TestFixture::T;
    constexpr bool kIsNumber = std::is_arithmetic_v<Value>;
    using Argument = std::conditional_t<kIsNumber || std::is_same_v<Value, wstring>, Value, Value const&>;
    static_assert(std::is_same_v<decltype(ArgumentOf(&TypeParam::Add)), Argument>);
    static_assert(std::is_same_v<decltype(std::declval<TypeParam&>().Item(0)), Value>);
    static_assert(requires(TypeParam const& constant) { constant.Item(0); } == kIsNumber);
    static_assert(
        std::is_same_v<decltype(std::declval<TypeParam&>().begin()), typename std::vector<Value>::iterator>);
    static_assert(std::is_base_of_v<CInstanceMonitor, TypeParam>);
    static_assert(std::is_base_of_v<CXmlTypeCollection, TypeParam>);
    static_assert(std::is_copy_assignable_v<TypeParam> && !std::is_copy_assignable_v<CTypedValues<Value>>);
    static_assert(std::is_base_of_v<CdatetimeBaseCol, TypeParam> == TestFixture::kIsDate);
    EXPECT_EQ(typename TestFixture::Col().m_itemType, TestFixture::kRow.m_kind);
}

TYPED_TEST(TypedCollections, OperationsAndTheirEvents) {
    // Before, the step, after, and the count at each event or the failure; '.' is nothing.
    for (char const* const row :
         {". add 0 b b 1", "ab add 0 b abb 3", "ab at 0 b bab 3", "aa at 1 b aba 3", "ab at 2 a aba 3",
          ". at 0 a a 1", "ab at 3 a ab !at", "ab at -1 a ab !at", "ab remove 0 - b 1", "aba remove 1 - aa 2",
          "ab remove 1 - a 1", "ab remove 2 - ab !2", "ab remove -1 - ab !-1", ". remove 0 - . !0",
          "ab item 2 - ab !2", "ab item -1 - ab !-1", "ab clear 0 - . .", "ab item 1 b ab .",
          "ab item 0 a ab ."}) {
        SCOPED_TRACE(row);
        std::istringstream words(row);
        std::string before, verb, after, outcome;
        char letter;
        int index;
        words >> before >> verb >> index >> letter >> after >> outcome;
        typename TestFixture::Col collection;
        this->Add(collection, before == "." ? "" : before);
        Listener listener(collection);
        std::string const thrown = Thrown([&] {
            if (verb == "add") collection.Add(this->Value(letter));
            if (verb == "at") collection.AddAt(index, this->Value(letter));
            if (verb == "remove") collection.Remove(index);
            if (verb == "clear") collection.Clear();
            if (verb == "item") {
                EXPECT_EQ(collection.Item(index), this->Value(letter));
            }
        });
        bool const fails = outcome[0] == '!';
        EXPECT_EQ(thrown, !fails ? "nothing"
                          : outcome == "!at"
                              ? kIndex
                              : "CBxInvalidParamException: Index " + outcome.substr(1) +
                                    " is out of range, use 0 - " + std::to_string(collection.GetCount() - 1));
        EXPECT_EQ(this->Letters(collection), after == "." ? "" : after);
        EXPECT_EQ(listener.m_counts, fails || outcome == "." ? "" : outcome);
    }
}

TYPED_TEST(TypedCollections, WritesAndReads) {
    typename TestFixture::Col collection, copy;
    this->Add(collection, "abba");
    EXPECT_EQ(collection.Written(), ">" + this->Elements("abba"));
    Listener listener(copy);
    EXPECT_EQ(copy.Read(this->Elements("abb") + "<v>\n " + this->kRow.m_textOfA + "\t</v><w/><v/>"), "w");
    EXPECT_EQ(this->Letters(copy), "abba");
    EXPECT_EQ(copy.Read(this->Elements("b")), "end");
    EXPECT_EQ(copy.Read(""), "end");
    EXPECT_EQ(copy.Read("<v xmlns='urn:m'/>"), "v");
    EXPECT_EQ(listener.m_counts, "12345");
    EXPECT_EQ(typename TestFixture::Col().Written(), "");
}

TYPED_TEST(TypedCollections, RefusesValues) {
    auto const& row = this->kRow;
    typename TestFixture::Col collection(row.m_facets), unrestricted;
    this->Add(collection, "ab");
    unrestricted.Add(row.m_refused);
    Listener listener(collection);
    if constexpr (TestFixture::kHasTest) {
        EXPECT_EQ(Thrown([&] { collection.Add(row.m_refused); }), this->Refusal());
        EXPECT_EQ(Thrown([&] { collection.AddAt(0, row.m_refused); }), this->Refusal());
        for (int const index : {-1, 3})
            EXPECT_EQ(Thrown([&] { collection.AddAt(index, row.m_refused); }),
                      this->kIsDate ? this->Refusal() : kIndex);
        EXPECT_EQ(collection.Read(unrestricted.Written().substr(1)), this->Refusal());
    } else {
        collection.Add(row.m_refused);
        collection.Remove(2);
        listener.m_counts.clear();
    }
    EXPECT_EQ(listener.m_counts, "");
    // What comes before a value that fails stays.
    EXPECT_EQ(collection.Read(this->Elements("ba") + "<v>" + row.m_invalid + "</v>" + this->Elements("b")),
              std::string(row.m_class) + row.m_message);
    EXPECT_EQ(this->Letters(collection), "abba");
}

TYPED_TEST(TypedCollections, Copies) {
    typename TestFixture::Col source(this->kRow.m_facets, 1, 3), target;
    this->Add(source, "aab");
    this->Add(target, "b");
    typename TestFixture::Col const copy(source);
    target = source;
    source.Remove(1);
    for (auto const* each : {&copy, const_cast<decltype(&copy)>(&target)}) {
        EXPECT_EQ(this->Letters(*each), "aab");
        EXPECT_EQ(each->GetMinOccurs() * 10 + each->GetMaxOccurs(), 13);
        EXPECT_EQ(each->m_itemType, this->kRow.m_kind);
        EXPECT_EQ(each->Written(), ">" + this->Elements("aab"));
        typename TestFixture::Col again(*each);
        EXPECT_EQ(Thrown([&] { again.Add(this->kRow.m_refused); }),
                  this->kHasTest ? this->Refusal() : "nothing");
    }
}

TYPED_TEST(TypedCollections, CopiesShareTheListeners) {
    typename TestFixture::Col source, target;
    Object listener;
    std::string log;
    listener.m_onEvent = [&](CXmlObjectBase* changed) { log += changed == &source ? 's' : 'c'; };
    source.AddEventListener(&listener);
    typename TestFixture::Col copy(source);
    target = source;
    EXPECT_EQ(log, "");
    for (auto* each : {&source, &copy, &target}) this->Add(*each, "a");
    EXPECT_EQ(log, "scc");
}

TYPED_TEST(TypedCollections, AListenerThatThrowsUndoesNothing) {
    typename TestFixture::Col collection;
    Listener listener(collection);
    listener.m_fails = true;
    std::string const failure = "CBxInvalidStateException: no more";
    EXPECT_EQ(Thrown([&] { this->Add(collection, "b"); }), failure);
    EXPECT_EQ(Thrown([&] { collection.AddAt(0, this->Value('a')); }), failure);
    EXPECT_EQ(collection.Read(this->Elements("aa")), failure);
    EXPECT_EQ(this->Letters(collection), "aba");
    EXPECT_EQ(Thrown([&] { collection.Remove(1); }), failure);
    EXPECT_EQ(this->Letters(collection), "aa");
    collection.Clear();
    EXPECT_EQ(listener.m_counts, "1232");
}

TYPED_TEST(TypedCollections, TheCountIsTestedOnWriting) {
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    std::string const message =
        "CBxValidationException: The % number of [v] elements allowed in this collection is ";
    auto const failure = [&](char const* bound) {
        return std::string(message).replace(message.find('%'), 1, bound);
    };
    typename TestFixture::Col collection({}, 1, 2);
    EXPECT_EQ(collection.Written(), failure("Minimum") + "1");
    EXPECT_EQ(collection.Written(ignoring), "");
    EXPECT_EQ(collection.Read(this->Elements("aba")), "end");
    EXPECT_EQ(collection.Written(), failure("Maximum") + "2");
    EXPECT_EQ(collection.Written(ignoring), ">" + this->Elements("aba"));
}

TYPED_TEST(TypedCollections, IteratorsPassByTheTests) {
    typename TestFixture::Col collection(this->kRow.m_facets);
    this->Add(collection, "aba");
    Listener listener(collection);
    *(collection.begin() + 1) = this->kRow.m_refused;
    *(collection.end() - 1) = this->kRow.m_b;
    EXPECT_EQ(this->Letters(collection), this->kHasTest ? "a?b" : "abb");
    EXPECT_EQ(listener.m_counts, "");
}

TEST(TypedCollection, Formats) {
    struct {
        char16_t const* m_format;
        std::string m_r4, m_r8, m_decimal;
    } const rows[] = {{nullptr, "2.5", "2.5", "2.5"}, {u"%.2f", "2.50", "2.50", "3."}};
    Facets const none;
    constexpr auto kRule = CWhitespaceUtils::ws_Collapse;
    for (auto const& row : rows) {
        Open<Cr4Col> r4(none, 0, -1, kRule, row.m_format);
        Open<Cr8Col> r8(none, 0, -1, kRule, row.m_format);
        Open<CdecimalCol> decimal(none, 0, -1, kRule, row.m_format);
        r4.Add(2.5f);
        r8.Add(2.5);
        decimal.Add(u"2.5");
        EXPECT_EQ(r4.Written(), "><v>" + row.m_r4 + "</v>");
        EXPECT_EQ(r8.Written(), "><v>" + row.m_r8 + "</v>");
        EXPECT_EQ(decimal.Written(), "><v>" + row.m_decimal + "</v>");
    }
    Open<CdecimalCol> decimal(none, 0, -1, kRule, u"2");
    Open<Ci4Col> i4(none, 0, -1, kRule, u"%.2f");
    decimal.Add(u"2.345");
    i4.Add(2);
    EXPECT_EQ(decimal.Written() + i4.Written(), "><v>2.35</v>><v>2</v>");
}

TEST(TypedCollection, WhitespaceRules) {
    wstring const values[] = {u" a\t b ", u" a  b ", u"a b"}, trailing[] = {u"a ", u"a ", u"a"};
    for (auto const rule :
         {CWhitespaceUtils::ws_Preserve, CWhitespaceUtils::ws_Replace, CWhitespaceUtils::ws_Collapse}) {
        Open<CstringCol> collection({}, 0, -1, rule);
        EXPECT_EQ(collection.Read("<v> a\t b </v><v>a </v>"), "end");
        EXPECT_EQ(collection.Item(0), values[rule]);
        EXPECT_EQ(collection.Item(1), trailing[rule]);
    }
    Open<Ci4Col> numbers({}, 0, -1, CWhitespaceUtils::ws_Preserve);
    EXPECT_EQ(numbers.Read("<v>7 </v>"),
              std::string(kInvalid) + "The value [7 ] can not be converted to a i4");
    Open<Ci4Col> unknown({}, 0, -1, static_cast<CWhitespaceUtils::WhitespaceRule>(3));
    EXPECT_EQ(unknown.Read("<v>7</v>"), "CBxException: Unknown WhitespaceRule");
}

TEST(TypedCollection, IgnoresNamespacesIfTheContextDoes) {
    CXmlSerializationContext ignoring;
    ignoring.SetIgnoreNamespaces(true);
    Open<Ci4Col> collection;
    EXPECT_EQ(collection.Read("<v xmlns='urn:m'>7</v><v xmlns=''>8</v><V>9</V>", ignoring), "V");
    EXPECT_EQ(collection.Written(), "><v>7</v><v>8</v>");
    EXPECT_BX_THROW(Compact(collection), CBxException,
                    "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection "
                    "(program logic error)");
}

TEST(TypedCollection, DatesOfAnotherType) {
    // In the order of their types.
    CDateTime const dates[] = {CDateTime(),        Date("2026-11-22T10:20:30Z"),
                               Date("2026-11-22"), Date("2026-11"),
                               Date("2026"),       Date("10:20:30"),
                               Date("---22"),      Date("--11"),
                               Date("--11-22")};
    Facets const refusing{.maxInclusive = u"no date"};
    auto const expect = [&](auto collection, CDateTime::DTType own, std::string const& name) {
        for (CDateTime const& date : dates) {
            bool const isOwn = date.GetType() == own;
            std::string const message =
                "CBxInvalidParamException: Dates added to this collection must be of type dt_";
            // The type is tested first, then the facets, the index last.
            std::string const thrown = Thrown([&] { collection.AddAt(-1, date); });
            EXPECT_EQ(thrown == message + name, !isOwn) << thrown;
            EXPECT_NE(thrown, kIndex);
        }
        EXPECT_EQ(collection.GetCount(), 0);
    };
    expect(Open<CdatetimeCol>(refusing), CDateTime::dt_dateTime, "dateTime");
    expect(Open<CdateCol>(refusing), CDateTime::dt_date, "date");
    expect(Open<CtimeCol>(refusing), CDateTime::dt_time, "time");
    expect(Open<CyearMonthCol>(refusing), CDateTime::dt_gYearMonth, "gYearMonth");
    expect(Open<CmonthDayCol>(refusing), CDateTime::dt_gMonthDay, "gMonthDay");
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
