#include "BxXmlLib5/binding/CRecordReader.h"

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <map>
#include <random>
#include <stdexcept>

#include "BxXmlLib5/BxXmlLib5.h"
#include "document/Trees.h"
#include "fastinfoset/Reading.h"
#include "support/Inert.h"

#ifndef __has_feature
#define __has_feature(name) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
#define BX_HAS_SANITIZER
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

using namespace BxTest;
using namespace BxXmlLib5;

namespace {

std::span<unsigned char const> Octets(std::string const& text) {
    return {reinterpret_cast<unsigned char const*>(text.data()), text.size()};
}

std::string Xml(CElement const& element) {
    return ToUtf8(element.ToXml(false, false, eol_LF, CXmlSerializationContext()));
}

/// The record that comes next, its place, or what is thrown.
std::string Next(CRecordReader& reader) {
    CElement record(u"");
    try {
        if (!reader.Read(record)) return "end";
    } catch (CBxException const& failure) {
        return ToUtf8(failure.GetReport());
    }
    return ToUtf8(reader.GetLocation().ToString()) + " " + Xml(record);
}

/// All of them, up to the end or a failure of the document.
std::vector<std::string> All(CRecordReader& reader) {
    std::vector<std::string> all;
    do all.push_back(Next(reader));
    while (all.back() != "end" && (all.size() < 2 || all.back() != all[all.size() - 2]));
    return all;
}

std::vector<std::string> All(std::string const& document, char16_t const* path,
                             RecordReaderSettings const& settings = {}) {
    try {
        CRecordReader reader(Octets(document), path, settings);
        return All(reader);
    } catch (CBxException const& failure) {  // of the beginning, which the reader looks at first
        return {ToUtf8(failure.GetReport())};
    }
}

using Lines = std::vector<std::string>;

// Random documents, and what is to be read of them.

class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    int Below(int end) { return static_cast<int>(m_engine() % static_cast<unsigned>(end)); }
    std::string Of(std::vector<std::string> const& texts) {
        return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
    }

private:
    std::mt19937 m_engine;
};

CSmartPtr<CElement> RandomElement(Random& random, int depth) {
    CSmartPtr<CElement> const element =
        new CElement(FromUtf8(random.Of({"a", "a", "a", "b"})).c_str(),
                     FromUtf8(random.Of({"", "N", "N", "M"})).c_str(), u"##any", u"");
    if (random.Below(3) == 0)
        element->GetAttributes()->Add(u"k", FromUtf8(random.Of({"", "v", "\xF0\x9D\x84\x9E&"})).c_str(), u"");
    if (random.Below(3) == 0)
        element->SetText(FromUtf8(random.Of({"x", "1 < 2", std::string(500, 'y')})).c_str());
    for (int i = depth == 0 ? 0 : random.Below(5) + depth / 2; i > 0; --i)
        element->GetChildElements()->Add(RandomElement(random, depth - 1));
    return element;
}

struct ModelStep {
    std::string m_namespace, m_name;  // "*" for any
    bool IsOf(CElement const& element) const {
        return (m_namespace == "*" || m_namespace == ToUtf8(element.GetNamespace())) &&
               (m_name == "*" || m_name == ToUtf8(element.GetName()));
    }
};

/// The records below an element as Next() gives them without lines, and what stands around them.
CSmartPtr<CElement> ModelRead(CElement const& element, std::span<ModelStep const> steps,
                              std::string const& path, Lines& records) {
    CSmartPtr<CElement> const around =
        new CElement(element.GetName().c_str(), element.GetNamespace().c_str(), u"##any", u"");
    around->SetText(element.GetText().c_str());
    for (CAttribute const* const attribute : *element.GetAttributes())
        around->GetAttributes()->Add(attribute->GetName().c_str(), attribute->GetValue().c_str(), u"");
    std::map<wstring, int> positions;
    int last = -1;
    for (CElement const* const child : *element.GetChildElements()) {
        std::string const step =
            path + "/" + ToUtf8(child->GetName()) + "[" + std::to_string(++positions[child->GetName()]) + "]";
        if (!steps[0].IsOf(*child)) {
            around->GetChildElements()->Add(const_cast<CElement*>(child));
        } else if (steps.size() == 1) {
            records.push_back(step + " " + Xml(*child));
        } else {
            CSmartPtr<CElement> const inner = ModelRead(*child, steps.subspan(1), step, records);
            if (last >= 0) around->GetChildElements()->Remove(last);
            last = around->GetChildElements()->GetCount();
            around->GetChildElements()->Add(inner);
        }
    }
    return around;
}

std::string InForm(CElement const& root, int form) {
    CXmlSerializationContext const context;
    auto const text = [](CBinaryData const& data) {
        return std::string(data.GetOctets().begin(), data.GetOctets().end());
    };
    std::string const octets = form % 3 == 0
                                   ? text(root.ToFastInfosetStream(fi_None, context, cmp_None))
                                   : text(root.ToXmlStream(true, false, form % 3 == 1 ? enc_UTF8 : enc_UTF16,
                                                           eol_LF, context, cmp_None));
    return form / 3 == 0 ? octets : Deflate(octets, form / 3 == 1 ? kGZip : kZLib);
}

TEST(CRecordReader, GivesWhatTheWholeDocumentHas) {
    std::size_t records = 0, refused = 0;
    for (unsigned seed = 1; seed <= 500; ++seed) {
        Random random(seed);
        CSmartPtr<CElement> const root = RandomElement(random, 4);
        std::vector<ModelStep> steps;
        std::string path;
        for (int i = random.Below(8) / 2; i >= 0; --i) {
            steps.push_back({random.Of({"*", "*", "*", "*", "N", ""}), random.Of({"*", "*", "a", "a"})});
            if (steps.back().m_namespace != "*") path += "{" + steps.back().m_namespace + "}";
            path += steps.back().m_name + (i == 0 ? "" : "/");
        }
        std::string const document = InForm(*root, static_cast<int>(seed % 9));
        std::size_t at = 0;
        CRecordReader reader(
            [&](std::span<unsigned char> room) {
                std::size_t const most = static_cast<std::size_t>(random.Below(3) == 0 ? 1 : 10'000);
                std::size_t const count = std::min({room.size(), most, document.size() - at});
                std::copy_n(document.begin() + static_cast<std::ptrdiff_t>(at), count, room.begin());
                at += count;
                return count;
            },
            FromUtf8(path).c_str());
        Lines expected;
        std::string const rootPath = "/" + ToUtf8(root->GetName());
        CSmartPtr<CElement> around;
        if (!steps[0].IsOf(*root)) {
            EXPECT_NE(Next(reader).find("The root is the element ["), std::string::npos) << seed;
            ++refused;
            continue;
        }
        if (steps.size() == 1) {
            expected.push_back(rootPath + " " + Xml(*root));
        } else {
            around = ModelRead(*root, std::span(steps).subspan(1), rootPath, expected);
        }
        Lines found;
        CElement record(u"");
        while (reader.Read(record)) {
            EXPECT_EQ(reader.GetLocation().GetLine(), seed % 3 == 0 ? 0 : reader.GetLocation().GetLine());
            found.push_back(ToUtf8(reader.GetLocation().GetPath()) + " " + Xml(record));
        }
        EXPECT_EQ(found, expected) << seed << " " << path;
        records += found.size();
        if (steps.size() == 1) {
            EXPECT_EQ(reader.GetSurroundings(), nullptr);
        } else {
            CElement read(u"");
            reader.ReadSurroundings(read);
            EXPECT_EQ(Xml(read), Xml(*around)) << seed << " " << path;
        }
    }
    EXPECT_GT(records, 1500U);
    EXPECT_GT(refused, 10U);
}

TEST(CRecordReader, Paths) {
    std::string const document = "<a xmlns='N'><b/><b xmlns=''><b/></b><p:c xmlns:p='M'><b/></p:c></a>";
    struct {
        char16_t const* m_path;
        Lines m_records;
    } const rows[] = {
        {u"a/b", {"1: /a/b[1] <AA:b xmlns:AA=\"N\"/>", "1: /a/b[2] <b><b/></b>", "end"}},
        {u"/a/b", {"1: /a/b[1] <AA:b xmlns:AA=\"N\"/>", "1: /a/b[2] <b><b/></b>", "end"}},
        {u"{N}a/{}b", {"1: /a/b[2] <b><b/></b>", "end"}},
        {u"*/*/b", {"1: /a/b[2]/b[1] <b/>", "1: /a/c[1]/b[1] <AA:b xmlns:AA=\"N\"/>", "end"}},
        {u"a/{M}*/{N}*", {"1: /a/c[1]/b[1] <AA:b xmlns:AA=\"N\"/>", "end"}},
        {u"a/b/x/y", {"end"}},
    };
    for (auto const& row : rows) EXPECT_EQ(All(document, row.m_path), row.m_records) << ToUtf8(row.m_path);
    for (std::string const path : {"", "/", "a//b", "a/", "{N}/a", "{N", "a/{N}"}) {
        EXPECT_BX_THROW(CRecordReader(Octets(document), FromUtf8(path).c_str()), CBxInvalidParamException,
                        "[" + path + "] is no path from a root to records");
    }
    EXPECT_BX_THROW(
        CRecordReader(Octets(document), u"a/p:b"), CBxInvalidParamException,
        "[a/p:b] is no path from a root to records: prefixes mean nothing in it, and a namespace stands in "
        "braces, {uri}name");
    RecordReaderSettings prefixed;
    prefixed.m_context.SetSchemaType(st_NoNamespaces);
    EXPECT_EQ(All(document, u"a/p:c/b", prefixed), Lines({"1: /a/p:c[1]/b[1] <b/>", "end"}));
    for (auto const& [path, message] :
         {std::pair(u"x/b", "it must be [x]"), std::pair(u"{M}*/b", "it must be [*] in [M]")}) {
        std::string const thrown =
            std::string("1: /a: The root is the element [a] in the namespace [N], ") + message;
        EXPECT_EQ(All(document, path), Lines({thrown, thrown}));
    }
}

TEST(CRecordReader, ReadsFilesAndPipes) {
    TemporaryFolder const folder;
    std::string const path = folder.Write("f\xE9", "<a><r/></a>");  // no UTF-8
    Lines const records = {"1: /a/r[1] <r/>", "end"};
    auto const all = [](std::string const& name) {
        CRecordReader reader(name, u"a/r");
        return All(reader);
    };
    EXPECT_EQ(all(path), records);
    int const file = open(path.c_str(), O_RDONLY);
    EXPECT_EQ(all("/dev/fd/" + std::to_string(file)), records);
    EXPECT_EQ(lseek(file, 0, SEEK_CUR), 11);  // it stays open
    close(file);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "<a><r/></a>", 11), 11);
    close(ends[1]);
    EXPECT_EQ(all("/dev/fd/" + std::to_string(ends[0])), records);
    close(ends[0]);
    EXPECT_BX_THROW(all("/nowhere"), CBxException, "Failed to open the file [/nowhere] Error [0x00000002]");
    EXPECT_BX_THROW(all("/"), CBxException, "Failed to open the file [/] Error [0x00000015]");
}

TEST(CRecordReader, ShowsWhatStandsAround) {
    std::string const document =
        "<g v='1'>ahead <m>x</m>\n<t n='1'> <s>\n<r>1</r>\n<r>2</r> after</s><e/></t>\n<t><s/><s/></t>"
        "<t n='3'><s><r>3</r></s></t><u/> </g>";
    for (bool const isKept : {true, false}) {
        for (auto const form : {kGZip, 0}) {
            RecordReaderSettings settings;
            settings.m_keepsSurroundings = isKept;
            Lines ends;
            settings.m_onEnd = [&](CXmlElement const& element) { ends.push_back(Dump(&element)); };
            std::string const octets = form == 0 ? document : Deflate(document, form);
            CRecordReader reader(Octets(octets), u"g/t/s/r", settings);
            auto const around = [&] { return Dump(reader.GetSurroundings()); };
            auto const either = [isKept](std::string const& kept, std::string const& bare) {
                return isKept ? kept : bare;
            };
            std::string const first = either("g@v=1'ahead '(m'x' t@n=1(s))", "g@v=1(t@n=1(s))");
            EXPECT_EQ(around(), first);
            EXPECT_EQ(around(), first);
            EXPECT_FALSE(reader.GetLocation().IsKnown());
            EXPECT_EQ(Next(reader), "3: /g/t[1]/s[1]/r[1] <r>1</r>");
            EXPECT_EQ(around(), first);
            EXPECT_EQ(reader.GetSurroundings()->GetText(), either("ahead ", "") == "" ? u"" : u"ahead ");
            EXPECT_EQ(Next(reader), "4: /g/t[1]/s[1]/r[2] <r>2</r>");
            EXPECT_EQ(Next(reader), "5: /g/t[3]/s[1]/r[1] <r>3</r>");
            EXPECT_EQ(around(), either("g@v=1'ahead '(m'x' t@n=3(s))", "g@v=1(t@n=3(s))"));
            EXPECT_EQ(Next(reader), "end");
            std::string const whole = either("g@v=1'ahead '(m'x' t@n=3(s) u)", "g@v=1(t@n=3(s))");
            EXPECT_EQ(around(), whole);
            EXPECT_EQ(Next(reader), "end");
            EXPECT_EQ(ends,
                      either("y", "n") == "y"
                          ? Lines({"s'after'", "t@n=1(s'after' e)", "s", "s", "t(s)", "s", "t@n=3(s)", whole})
                          : Lines({"s", "t@n=1(s)", "s", "s", "t(s)", "s", "t@n=3(s)", whole}));
        }
    }
    CRecordReader none(Octets("<g><m/></g>"), u"g/t");
    EXPECT_EQ(Dump(none.GetSurroundings()), "g(m)");
    EXPECT_EQ(Next(none), "end");
    CRecordReader root(Octets("<g><m/></g>"), u"g");
    EXPECT_EQ(root.GetSurroundings(), nullptr);
    CElement object(u"");
    EXPECT_BX_THROW((root.ReadSurroundings(object), 0), CBxInvalidStateException,
                    "Nothing stands around the records");
    EXPECT_EQ(Next(root), "1: /g <g><m/></g>");
}

/// Asks for the namespace of a prefix, as an object does that reads an xsi:type.
struct CAsking : Inert {
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement*, CXmlSerializationContext const&,
                             bool) override {
        m_found += ToUtf8(element->GetDocument()->LookupNamespaceFromAlias(u"p")) + " ";
        return nullptr;
    }
    std::string m_found;
};

TEST(CRecordReader, KnowsAPrefixByItsScope) {
    std::string const document =
        "<a xmlns:p='1'><m xmlns:p='2'/><r/><r xmlns:p='3'><c xmlns:p='4' xmlns:q='5'/></r><r/>"
        "<r><c xmlns:p='6'/></r><r/></a>";
    CAsking records, around;
    CRecordReader reader(Octets(document), u"a/r");
    while (reader.Read(records)) {
    }
    reader.ReadSurroundings(around);
    EXPECT_EQ(records.m_found + around.m_found, "1 4 1 6 1 2 ");
    CAsking inner;
    CRecordReader deeper(Octets("<a><b xmlns:p='1'><r/></b><b><r/></b><b xmlns:p='2'><r/></b></a>"),
                         u"a/b/r");
    while (deeper.Read(inner)) {
    }
    EXPECT_EQ(inner.m_found, "1  2 ");
    // What a record declares that is passed over counts for no other.
    CAsking small;
    RecordReaderSettings settings;
    settings.m_maxRecord = 1000;
    std::string const octets = "<a><r>" + std::string(1000, 'x') + "<c xmlns:p='1'/></r><r/></a>";
    CRecordReader large(Octets(octets), u"a/r", settings);
    EXPECT_THROW(large.Read(small), CBxException);
    EXPECT_TRUE(large.Read(small));
    EXPECT_EQ(small.m_found, " ");
}

/// In a time that does not grow with the product of both numbers, which the limit of a test's time shows.
TEST(CRecordReader, KnowsAnyNumberOfPrefixesAroundAnyNumberOfRecords) {
    constexpr int kCount = 50'000;
    std::string document = "<a";
    for (int i = 0; i < kCount; ++i) document += " xmlns:n" + std::to_string(i) + "='u'";
    document += ">" + Repeat("<b xmlns:q='1'><r xmlns:p='1'/><r/></b>", kCount);
    CRecordReader reader(Octets(document), u"a/b/r");
    CAsking records;
    for (int i = 0; i < 2 * kCount; ++i) ASSERT_TRUE(reader.Read(records));
    EXPECT_TRUE(records.m_found == Repeat("1  ", kCount));
}

/// What the reader tells with each record.
Lines Steps(std::string const& document, RecordReaderSettings settings) {
    Lines steps;
    settings.m_onEnd = [&](CXmlElement const& element) { steps.push_back("ends " + Dump(&element)); };
    CRecordReader reader(Octets(document), u"a/b/r", settings);
    auto const read = [&](bool isAsking) {
        if (!isAsking) return Next(reader);
        CAsking asking;
        try {
            return (reader.Read(asking) ? ToUtf8(reader.GetLocation().ToString()) : "end") + asking.m_found;
        } catch (CBxException const& failure) {
            return ToUtf8(failure.GetReport());
        }
    };
    for (bool isAsking = false; steps.size() < 100; isAsking = !isAsking) {
        std::string const step = read(isAsking);
        bool const hasFailed = reader.HasFailed();
        steps.push_back(step + (hasFailed ? " failed " : " ") + Dump(reader.GetSurroundings()));
        if (step == "end" || hasFailed) break;
    }
    return steps;
}

// Where there is a document type, no record is read ahead of others.
TEST(CRecordReader, TellsTheSameWhereItReadsAhead) {
    std::vector<std::string> const pieces = {"<r/>",
                                             "<r>1</r>",
                                             "<r>1</r>",
                                             "<r\n k='>'>2</r >\n",
                                             " <r><r>3</r></r> ",
                                             "<r><c xmlns:p='4'/></r>",
                                             "<r xmlns:p='5'>6</r>",
                                             "<r xmlns='N'>7</r>",
                                             "<r k=\"'>\" xmlns:p='8'/>",
                                             "<r>" + std::string(150, 'x') + "</r>",
                                             "<rr/>",
                                             "<r.>9</r.>",
                                             "text",
                                             " ",
                                             "<!-- -->",
                                             "<c>10</c>",
                                             "</b><b xmlns:p='11' n='1'>",
                                             "</b><c/><b>",
                                             "<p:r xmlns:p='12'/>",
                                             "<q:r>13</q:r>",
                                             "<q:r xmlns:q='M'>14</q:r>",
                                             "<r>",
                                             "<r k='1' k='2'/>",
                                             "&#32;"};
    Random random(3);
    for (int round = 0; round < 3000; ++round) {
        std::string document = "<a xmlns:q='Q' xmlns:p='0'><b>";
        for (int i = random.Below(12); i > 0; --i)
            document +=
                random.Below(3) > 0 ? pieces[static_cast<std::size_t>(random.Below(6))] : random.Of(pieces);
        if (random.Below(9) > 0) document += "</b></a>";
        RecordReaderSettings settings;
        if (random.Below(2) == 0) settings.m_maxRecord = 400;
        if (random.Below(4) == 0) settings.m_maxSurroundings = 400;
        // Of one size, for the columns of failures.
        EXPECT_EQ(Steps("<?x       ?>" + document, settings), Steps("<!DOCTYPE a>" + document, settings))
            << document;
    }
}

TEST(CRecordReader, RefusesWhatIsWrongWithTheDocument) {
    auto const twice = [](Lines lines) {
        lines.push_back(lines.back());
        return lines;
    };
    std::string const one = "1: /a/r[1] <r>1</r>";
    struct {
        std::string m_document;
        Lines m_lines;
    } const rows[] = {
        {"", {"Invalid or empty XML document"}},
        {" ", {"Invalid or empty XML document"}},
        {"<a><r>1</r></b>", {one, "1:14: mismatched tag at line 1"}},
        {"<a><r>1</r>\n<r><x>",
         {one, "2: The document ends inside the element [/a/r[2]/x], which begins on line 2"}},
        {"<a><r>1</r><r", {one, "1: The document ends inside the element [/a], which begins on line 1"}},
        {"<a><r>1</r>\n<n><m/><m>",
         {one, "2: The document ends inside the element [/a/n/m[2]], which begins on line 2"}},
        {"<a><r>1</r></a>x", {one, "1:16: junk after document element at line 1"}},
        {"<!DOCTYPE a SYSTEM 'd'><a><r>1</r>\n<r k='&e;'/><r/></a>",
         {one, "2: The entity [e], to which line 2 refers, is not declared in the document itself"}},
    };
    for (auto const& row : rows) EXPECT_EQ(All(row.m_document, u"a/r"), twice(row.m_lines)) << row.m_document;
    std::string const packed = Deflate("<a>" + Repeat("<r/>", 3) + "</a>");
    EXPECT_EQ(All(packed.substr(0, packed.size() - 9), u"a/r"), Lines({"The compressed data breaks off"}));
    std::string const binary = OctetsOf("E0 00 00 01 00 3C 00 'a' 3C 00 'r' 90 '1' F0 3C");
    EXPECT_EQ(All(binary, u"a/r"),
              twice({"/a/r[1] <r>1</r>", "Failed to parse FastInfoset. Unexpected End of File."}));
    RecordReaderSettings settings;
    settings.m_context.SetRequireWholeDocument(false);
    EXPECT_EQ(All("<!DOCTYPE a SYSTEM 'd'><a><r>1&e;</r></a>", u"a/r", settings), Lines({one, "end"}));
}

TEST(CRecordReader, KeepsToItsLimits) {
    RecordReaderSettings settings;
    settings.m_maxRecord = 3000;
    settings.m_maxSurroundings = 2000;
    std::string const small = "<r>" + std::string(1000, 'x') + "</r>";
    std::string const tooLarge = "The record takes more than 3000 octets, which is the limit (m_maxRecord)";
    std::string const around =
        "What stands around the records takes more than 2000 octets, which is the limit (m_maxSurroundings; without "
        "m_keepsSurroundings it is left out)";
    for (std::string const& large :
         {std::string(2000, 'x'), Repeat("<x/>", 1000), "<x k='" + std::string(2000, 'x') + "'/>"}) {
        std::string const document = "<a>" + small + "<r>" + large + "</r>" + small + small + "</a>";
        EXPECT_EQ(All(document, u"a/r", settings),
                  Lines({"1: /a/r[1] " + small, "1: /a/r[2]: " + tooLarge, "1: /a/r[3] " + small,
                         "1: /a/r[4] " + small, "end"}));
        EXPECT_EQ(All("<r>" + large + "</r>", u"r", settings), Lines({"1: /r: " + tooLarge, "end"}));
        std::string const cut = "<a><b>" + small + "</b><n>" + large;
        EXPECT_NE(All(cut, u"a/b/r", settings)[1].find(around), std::string::npos);
        settings.m_keepsSurroundings = false;
        EXPECT_EQ(All(cut + "</n></a>", u"a/b/r", settings), Lines({"1: /a/b[1]/r[1] " + small, "end"}));
        settings.m_keepsSurroundings = true;
    }
    // Just what is allowed, and an octet less than that.
    std::string const ten = "<a><n>0123456789</n><r>0123456789</r></a>";
    for (std::size_t const less : {0U, 1U}) {
        RecordReaderSettings exact;
        exact.m_maxRecord = sizeof(CXmlElement) + 20 - less;
        EXPECT_EQ(All(ten, u"a/r", exact)[0].find("m_maxRecord") == std::string::npos, less == 0);
        exact.m_maxRecord = 1000;
        exact.m_maxSurroundings = 2 * sizeof(CXmlElement) + 20 - less;
        EXPECT_EQ(All(ten, u"a/r", exact)[0].find("m_maxSurroundings") == std::string::npos, less == 0);
    }
    // What has ended counts no more.
    std::string const parent = "<b><n>" + std::string(500, 'x') + "</n>" + small + "</b>";
    EXPECT_EQ(All("<a>" + Repeat(parent, 9) + "</a>", u"a/b/r", settings).size(), 10U);
    settings.m_maxInflatedSize = 100;
    EXPECT_EQ(All(Deflate("<a>" + small + "</a>"), u"a/r", settings)[0],
              "The document has more than 100 octets, which is the limit");
    settings.m_context.SetDocumentLimits({.m_octets = 50, .m_elements = 2, .m_depth = 3});
    EXPECT_EQ(All("<a>" + small + "</a>", u"a/r", settings)[0],
              "The document has more than 50 octets, which is the limit");
    EXPECT_EQ(All("<a><r/><r/></a>", u"a/r", settings)[1],
              "1:8: The document has more than 2 elements, which is the limit");
}

TEST(CRecordReader, TakesWhatEntitiesStandFor) {
    std::string const document =
        "<!DOCTYPE a [<!ENTITY e '<b n=\"1\"><r>1</r></b><b n=\"2\"><r>2</r><r>3</r></b><b n=\"3\"/>'>]>"
        "<a><b><r>0</r></b>&e;&e;</a>";
    RecordReaderSettings settings;
    Lines ends;
    settings.m_onEnd = [&](CXmlElement const& element) { ends.push_back(Dump(&element)); };
    CRecordReader reader(Octets(document), u"a/b/r", settings);
    EXPECT_EQ(All(reader),
              Lines({"1: /a/b[1]/r[1] <r>0</r>", "1: /a/b[2]/r[1] <r>1</r>", "1: /a/b[3]/r[1] <r>2</r>",
                     "1: /a/b[3]/r[2] <r>3</r>", "1: /a/b[5]/r[1] <r>1</r>", "1: /a/b[6]/r[1] <r>2</r>",
                     "1: /a/b[6]/r[2] <r>3</r>", "end"}));
    EXPECT_EQ(ends, Lines({"b", "b@n=1", "b@n=2", "b@n=3", "b@n=1", "b@n=2", "b@n=3", "a(b@n=3)"}));
}

TEST(CRecordReader, TakesBoundedMemoryForAnEntity) {
    auto const document = [](std::string const& entity) {
        return "<!DOCTYPE a [<!ENTITY e '" + entity + "'>]><a><b><r/></b>&e;<b><r>z</r></b></a>";
    };
    RecordReaderSettings settings;
    settings.m_maxRecord = 1000;
    // One failure for all that goes beyond the limit, and the positions go on.
    Lines const found = All(document("<b>" + Repeat("<r/>", 1000) + "</b>"), u"a/b/r", settings);
    ASSERT_GT(found.size(), 4U);
    EXPECT_LT(found.size(), 20U);
    EXPECT_NE(found[found.size() - 3].find("(m_maxRecord)"), std::string::npos);
    EXPECT_EQ(found[found.size() - 2], "1: /a/b[3]/r[1] <r>z</r>");
    // Parents that are told later take more than their nodes; others are not kept.
    settings.m_maxSurroundings = 100'000;
    std::string const parents = document(Repeat("<b/>", 100));
    EXPECT_EQ(All(parents, u"a/b/r", settings).size(), 3U);
    settings.m_onEnd = [](CXmlElement const&) {};
    EXPECT_NE(All(parents, u"a/b/r", settings)[1].find("(m_maxSurroundings;"), std::string::npos);
    // Those that were told count no more.
    EXPECT_EQ(All("<!DOCTYPE a [<!ENTITY e '" + Repeat("<b/>", 20) + "'>]><a>" + Repeat("&e;<b><r/></b>", 9) +
                      "</a>",
                  u"a/b/r", settings)
                  .size(),
              10U);
}

TEST(CRecordReader, DoesNotReadOnWithinWhatItCalls) {
    std::string const busy = "The reader cannot read on before it is back from what it called";
    std::string const document = "<a><b><r>1</r></b><b><r>2</r></b></a>";
    CRecordReader* inner = nullptr;
    RecordReaderSettings settings;
    settings.m_onEnd = [&](CXmlElement const&) { Next(*inner), inner->Read(*CElement::LoadXml("<x/>")); };
    CRecordReader ends(Octets(document), u"a/b/r", settings);
    inner = &ends;
    EXPECT_EQ(All(ends), Lines({"1: /a/b[1]/r[1] <r>1</r>", "1: /a/b[1]: " + busy, "1: /a/b[2]/r[1] <r>2</r>",
                                "1: /a/b[2]: " + busy, "1: /a: " + busy, "end"}));
    struct CReading : CAsking {
        CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, CXmlSerializationContext const&, bool) override {
            return m_reader->Read(*this), nullptr;
        }
        CRecordReader* m_reader = nullptr;
    } object;
    CRecordReader records(Octets(document), u"a/b/r");
    object.m_reader = &records;
    EXPECT_BX_THROW(records.Read(object), CBxInvalidStateException, busy);
    EXPECT_EQ(Next(records), "1: /a/b[2]/r[1] <r>2</r>");
    bool isFirst = true;
    CRecordReader source(
        [&](std::span<unsigned char> room) -> std::size_t {
            if (!std::exchange(isFirst, false)) return inner->GetSurroundings(), 0;
            std::size_t const count = std::min<std::size_t>(room.size(), 5000);
            std::fill_n(room.begin(), count, ' ');
            return count;
        },
        u"a");
    inner = &source;
    EXPECT_EQ(Next(source), busy);
}

TEST(CRecordReader, TellsWhatIsWrongWithARecordAheadOfTheDocument) {
    struct CRefusing : CAsking {
        CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, CXmlSerializationContext const&, bool) override {
            throw CBxValidationException(u"refused");
        }
    } refusing;
    CRecordReader reader(Octets("<!DOCTYPE a [<!ENTITY e '<r/><r/><x>'>]><a>&e;"), u"a/r");
    for (int i = 0; i < 2; ++i) {
        EXPECT_THROW(reader.Read(refusing), CBxValidationException);
        EXPECT_FALSE(reader.HasFailed());
    }
    EXPECT_THROW(reader.Read(refusing), CBxException);
    EXPECT_TRUE(reader.HasFailed());
}

TEST(CRecordReader, PassesOnWhatTheCallerThrows) {
    // The beginning comes first, which is more than the reader asks for before it reads a record.
    std::string const beginning = "<a><b><r/></b>" + std::string(5000, ' ');
    int calls = 0;
    auto const source = [&](std::span<unsigned char> room) -> std::size_t {
        if (calls++ > 1) throw std::runtime_error("source");
        std::size_t const from = calls == 1 ? 0 : 4000, to = calls == 1 ? 4000 : beginning.size();
        EXPECT_GE(room.size(), calls == 1 ? 4000U : 96U);
        std::size_t const count = std::min(room.size(), to - from);
        std::copy_n(beginning.begin() + static_cast<std::ptrdiff_t>(from), count, room.begin());
        return count;
    };
    RecordReaderSettings settings;
    settings.m_onEnd = [](CXmlElement const&) { throw std::logic_error("end"); };
    CRecordReader reader(source, u"a/b/r", settings);
    CElement record(u"");
    EXPECT_TRUE(reader.Read(record));
    EXPECT_THROW(reader.Read(record), std::logic_error);
    EXPECT_FALSE(reader.HasFailed());
    EXPECT_THROW(reader.Read(record), std::runtime_error);
    EXPECT_TRUE(reader.HasFailed());
    EXPECT_THROW(reader.Read(record), std::runtime_error);
    CRecordReader moved = std::move(reader);
    EXPECT_THROW(moved.Read(record), std::runtime_error);
    EXPECT_BX_THROW(reader.Read(record), CBxInvalidStateException, "The reader was moved");
    EXPECT_EQ(calls, 3);
    EXPECT_THROW(CRecordReader(source, u"a/b/r"), std::runtime_error);
    EXPECT_BX_THROW(CRecordReader(CRecordReader::Source(), u"a"), CBxInvalidParamException,
                    "There is no source");
    EXPECT_BX_THROW(CRecordReader([](auto room) { return room.size() + 1; }, u"a"), CBxInvalidStateException,
                    "The source gave more octets than there was room for");
}

TEST(CRecordReader, LeavesCopiesOfARecordAlone) {
    CRecordReader reader(Octets("<a><r k='1'><c>1</c></r><r><c>2</c></r></a>"), u"a/r");
    CElement record(u"");
    ASSERT_TRUE(reader.Read(record));
    CElement const copy = record;
    ASSERT_TRUE(reader.Read(record));
    EXPECT_EQ(Xml(copy), "<r k=\"1\"><c>1</c></r>");
    EXPECT_EQ(Xml(record), "<r><c>2</c></r>");
}

std::size_t AllocatedOctets() {
#ifdef BX_HAS_SANITIZER
    return __sanitizer_get_current_allocated_bytes();
#else
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

TEST(CRecordReader, TakesTheSameMemoryForAnyNumberOfRecords) {
    for (bool const isFastInfoset : {false, true}) {
        std::string text = "<a>";
        for (int i = 0; i < 100; ++i) {
            text += "<b n='" + std::to_string(i) + "'><n>some text</n>" +
                    Repeat("<r k='v'><c>text " + std::to_string(i) + "</c><c xmlns='N'/></r>\n", 100) +
                    "</b> ";
        }
        std::string const round = text.substr(3);
        int rounds = 0;
        std::string octets = text;
        std::size_t at = 0;
        auto const source = [&](std::span<unsigned char> room) {
            if (at == octets.size() && rounds < 10) octets = rounds++ == 9 ? "</a>" : round, at = 0;
            std::size_t const count = std::min(room.size(), octets.size() - at);
            std::copy_n(octets.begin() + static_cast<std::ptrdiff_t>(at), count, room.begin());
            at += count;
            return count;
        };
        if (isFastInfoset) {
            octets = InForm(*CElement::LoadXml(text + "</a>"), 0);
            rounds = 10;
        }
        CRecordReader reader(source, u"a/b/r");
        CElement record(u"");
        std::size_t count = 0, early = 0, most = 0;
        for (; reader.Read(record); ++count) {
            std::size_t const now = AllocatedOctets();
            (count < 500 ? early : most) = std::max(count < 500 ? early : most, now);
        }
        EXPECT_EQ(count, isFastInfoset ? 10'000U : 100'000U);
        EXPECT_LT(most, early + 50'000);
    }
}

TEST(CRecordReader, ReadsFewRecordsAhead) {
    std::string const text = "<g>" + Repeat("<r/>", 40'000) + "</g>";
    CRecordReader reader(Octets(text), u"g/r");
    CElement record(u"");
    std::size_t const before = AllocatedOctets();
    std::size_t most = before;
    for (int i = 0; reader.Read(record); ++i) {
        if (i % 500 == 0) most = std::max(most, AllocatedOctets());
    }
    EXPECT_LT(most, before + 1'000'000);
}

}  // namespace
