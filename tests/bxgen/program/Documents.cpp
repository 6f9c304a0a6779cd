// Documents through classes that bxgen makes when the tests are built: what reads comes out again, or is
// refused.

#include <string>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Score.h"
#include "Tools.h"
#include "support/Expect.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace BxXmlLib5;
using namespace Score;
using BxTest::Reported;

std::string const kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

std::string Document(std::string const& content, std::string const& attributes = " id=\"a\"") {
    return kHead + "<s:score xmlns:s=\"urn:score\" xmlns:t=\"urn:tools\"" + attributes +
           "><s:title>t</s:title>" + content + "</s:score>";
}
std::string Note(std::string const& content) {
    return Document("<s:note>" + content + "</s:note>");
}
std::string Names(std::string const& content, std::string const& attributes = {}) {
    return Document("<s:names" + attributes + '>' + content + "</s:names>");
}

std::string Verse(std::string const& content) {
    return Note("<s:rest/><s:duration>1</s:duration><s:verse>" + content + "</s:verse>");
}

std::string const kPitch = "<s:pitch><s:step>C</s:step><s:octave>4</s:octave></s:pitch>";
std::string const kTie = "<s:tie type=\"start\"/>";
std::string const kDuration = "<s:duration>1.5</s:duration>";

TEST(Program, DocumentsComeBackEqual) {
    std::string const rows[] = {
        // Each arm of the choices of a note, with what follows them
        Note("<s:grace/><s:chord/>" + kPitch + kTie + kTie),
        Note("<s:grace/><s:rest/>"),
        Note("<s:grace/><s:cue/><s:chord/><s:rest/>"),
        Note("<s:cue/>" + kPitch + kDuration),
        Note("<s:chord/><s:rest/>" + kDuration + kTie + "<s:voice>1</s:voice><s:dot/><s:dot/>"),
        Note("<s:rest/>" + kDuration + "<s:lyric> a </s:lyric><s:lyric/><s:lyric>b</s:lyric>"),
        Verse("<s:syllable>a</s:syllable></s:verse><s:verse><s:humming>m</s:humming><s:end-line/>"),
        Verse(
            "<s:elision>x</s:elision><s:elision>y</s:elision><s:syllable>a</s:syllable><s:syllable>b</s:syllable>"
            "<s:elision>z</s:elision><s:syllable>c</s:syllable><s:end-line/><s:end-paragraph/>"),
        // A repeated choice keeps its order
        Document("<s:backup>2</s:backup><s:key>-7</s:key><s:clef line=\"2\">F</s:clef><s:note><s:rest/>" +
                 kDuration + "</s:note><s:key>0</s:key><s:backup>0.25</s:backup>"),
        // Recursion, and a repeated named group
        Document("<s:part id=\"b\"><s:label>x</s:label><s:part id=\"c\" color=\"#00FF0080\">"
                 "<s:label>bcd Ä</s:label></s:part></s:part><s:part id=\"d\"><s:label>y</s:label></s:part>"),
        Document("<s:role>r</s:role><s:person>1</s:person><s:person>2</s:person><s:role/><s:person/>"),
        // Unqualified elements beside qualified ones, attributes of a namespace
        Document(
            "<t:tool t:since=\"2000\" t:until=\"2001Z\"><name>n</name><t:tip><text>x</text></t:tip></t:tool>"),
        Document("<t:tool><name/><t:tip><data>AQID</data></t:tip><any a=\"1\"><b>c</b></any></t:tool>"),
        // Wildcards
        Document("<ns1:e><f g=\"1\"/></ns1:e><ns1:e/>", " xmlns:ns1=\"urn:x\" id=\"a\""),
        Document("", " id=\"a\" color=\"#12ABEF\" t:more=\"1\" xml:lang=\"de\""),
        // A union
        Document("<s:note size=\"1.5\"><s:rest/>" + kDuration + "</s:note><s:note size=\"large\"><s:rest/>" +
                 kDuration + "</s:note>"),
        // Names
        Names(
            "<s:class>1</s:class><s:Release>2</s:Release><s:describe>3</s:describe><s:names>4</s:names>"
            "<s:a-b>5</s:a-b><s:a.b>6</s:a.b><s:aB>7</s:aB><s:_1>8</s:_1><s:step>D</s:step><s:Straße>9</s:Straße>"
            "<s:日付>2024-02-29</s:日付><s:word>new</s:word><s:word>New</s:word><s:word>NULL</s:word>"
            "<s:word>1/2</s:word><s:word>+</s:word><s:word/><s:word>zwölf</s:word>",
            " class=\"c\" names=\"n\" ключ=\"k\""),
    };
    for (std::string const& row : rows) {
        SCOPED_TRACE(row);
        CScore score;
        ASSERT_NO_THROW(score.Parse(row));
        EXPECT_EQ(score.ToText(), row);
        EXPECT_TRUE(score.Validate().empty() && score.Clone()->Equals(score));
        CBinaryData const infoset = score.ToFastInfosetStream(fi_None, score.FastInfosetContext(), cmp_None);
        CScore read;
        read.FromXmlStream(infoset, CXmlSerializationContext());
        EXPECT_TRUE(read.Equals(score));
        EXPECT_EQ(read.ToText(), row);
    }
}

TEST(Program, DocumentsAreRefused) {
    std::string const part = "<s:part id=\"b\"><s:label>";
    // Documents, each with a part of the message.
    std::pair<std::string, std::string> const rows[] = {
        {"<score/>", "it must be [score] in [urn:score]"},
        {Document("", ""), "[id]"},
        {Document("", " id=\"1\""), "id [1]"},
        {Document("", " id=\"a\" color=\"#12abef\""), "color [#12abef]"},
        {Document("", " id=\"a\" more=\"1\""), "[more]"},
        {Document("<s:x/>"), "[x]"},
        {Document("<title/>"), "[title]"},
        {Document("<s:backup>0</s:backup>"), "backup [0]"},
        {Document("<s:backup>1.234</s:backup>"), "backup [1.234]"},
        {Document("<s:backup>123456</s:backup>"), "backup [123456]"},
        {Document("<s:key>128</s:key>"), "key [128]"},
        {Document("<s:key>1</s:key><s:clef line=\"3\">F</s:clef>"), "line [3]"},
        {Document("<s:key>1</s:key><s:clef line=\"1\">H</s:clef>"), "[H]"},
        {Document("<s:clef line=\"1\">F</s:clef>"), "[clef]"},
        {Document(part + "1</s:label></s:part>"), "label [1]"},
        {Document(part + "a Ä</s:label></s:part>"), "label [a Ä]"},
        {Document("<s:role/>"), "[person]"},
        {Document("<t:tool><t:name/></t:tool>"), "[name]"},
        {Document("<t:tool><name/><t:tip/></t:tool>"), "[tip]"},
        {Document("<t:tool since=\"2000\"><name/></t:tool>"), "[since]"},
        {Document("<e xmlns='urn:z'/>"), "[e]"},
        {Document("<s:note size=\"huge\"><s:rest/>" + kDuration + "</s:note>"), "size [huge]"},
        {Note(""),
         "Failed to find one of the elements [grace] [cue] [chord] [pitch] [rest] in the element [note]"},
        {Note("<s:rest/>"), "Failed to find the element [duration] in the element [note]"},
        {Note("<s:rest/>" + kPitch),
         "Failed to find the element [duration] in the element [note], where [pitch] stands"},
        {Note("<s:grace/><s:voice>1</s:voice>"),
         "Failed to find one of the elements [chord] [pitch] [rest] [cue] in the element [note], where [voice] stands"},
        {Note("<s:grace/>" + kPitch + kDuration),
         "Unexpected element [duration] found in the element [note]"},
        {Note("<s:grace/><s:cue/><s:rest/>" + kTie), "[tie]"},
        {Note("<s:rest/>" + kDuration + kTie + kTie + kTie),
         "Unexpected element [tie] found in the element [note]"},
        {Verse(""),
         "Failed to find one of the elements [elision] [syllable] [humming] in the element [verse]"},
        {Verse("<s:elision>x</s:elision>"), "Failed to find the element [syllable] in the element [verse]"},
        {Verse("<s:syllable>a</s:syllable><s:humming>m</s:humming>"),
         "Unexpected element [humming] found in the element [verse]"},
        {Verse("<s:humming>m</s:humming><s:end-paragraph/>"),
         "Unexpected element [end-paragraph] found in the element [verse]"},
        {Note("<s:grace/><s:pitch><s:step>C</s:step><s:octave>10</s:octave></s:pitch>"), "octave [10]"},
        {Names("<s:word>NEW</s:word>"), "word [NEW]"},
        {Names("<s:aB>1</s:aB><s:a-b>1</s:a-b>"), "[a-b]"},
    };
    CScore score;
    for (auto const& row : rows) {
        std::string const report = Reported([&] { return score.Parse(row.first), std::string(); });
        EXPECT_NE(report.find(row.second), std::string::npos) << report << "\n" << row.first;
        // What the failure left behind is no part of the next document.
        score.Parse(Document(""));
        EXPECT_EQ(score.ToText(), Document("")) << row.first;
    }
}

TEST(Program, ClassesAreBuilt) {
    CScore score;
    score.Id = "a";
    score.Title = "t";
    EXPECT_THROW(score.Title = "too long for it", CBxInvalidValueException);
    CNote& note = score.Items.Add().Note.Make();
    auto const written = [&] { return Reported([&] { return score.ToText(); }); };
    std::string const noArm = "/score/note: No member of the choice has all that is set: ";
    note.Pitch.Make().Step = Step::C;
    note.Pitch->Octave = 4;
    note.Duration = CDecimal(u"1.5");
    note.Tie.Add().Type = StartStop::Start;
    EXPECT_EQ(written(), Note(kPitch + kDuration + kTie));
    note.Cue.Make();
    EXPECT_EQ(written(), noArm + "[pitch] [tie] [cue] [duration]");
    note.Tie.Clear();
    EXPECT_EQ(written(), Note("<s:cue/>" + kPitch + kDuration));
    note.Duration.Clear();
    EXPECT_EQ(written(), "/score/note: The element [grace] is not set");
    note.Grace.Make();
    EXPECT_EQ(written(), Note("<s:grace/><s:cue/>" + kPitch));
    note.Rest.Make();
    EXPECT_EQ(written(), noArm + "[pitch] [rest]");
}

TEST(Program, ClassesTellAllThatWritingWouldRefuse) {
    CScore score;
    score.Parse(Note("<s:rest/>" + kDuration));
    CNote& note = *score.Items[0].Note;
    note.Rest.Clear();
    note.Tie.Add().Type = StartStop::Stop;
    for (int const index : {0, 2}) note.Tie.Insert(index);
    note.Tie.Remove(2);
    EXPECT_THROW(note.Tie.Insert(3), CBxInvalidParamException);
    EXPECT_THROW(note.Tie.Remove(2), CBxInvalidParamException);
    note.Verse.Add();
    note.Verse.Add().Items.Add().Elision = {u"a", u"b", u"c"};
    note.Verse[1].EndParagraph.Make();
    std::string complaints;
    for (wstring const& one : score.Validate()) complaints += ToUtf8(one) + "\n";
    EXPECT_EQ(complaints,
              "/score/note: Nothing is set of one of the elements [pitch] [rest]\n"
              "/score/note/tie[1]: The attribute [type] is not set\n"
              "/score/note/verse[1]: Nothing is set of one of the elements [elision] [syllable] [humming]\n"
              "/score/note/verse[2]: There are 3 of [elision], there must be at most 2\n"
              "/score/note/verse[2]: The element [syllable] is not set\n"
              "/score/note/verse[2]: The element [end-line] is not set\n");
}

TEST(Program, ReadsAndWritesFiles) {
    BxTest::TemporaryFolder const folder;
    folder.Write("in.xml", Note("<s:cue/>" + kPitch + kDuration));
    folder.Write("bad.xml", Note("<s:cue/>"));
    folder.Write("other.xml", "<other/>");
    std::pair<std::string, int> const rows[] = {
        {"P --check in.xml && P --compact in.xml -o out.xml && cmp in.xml out.xml", 0},
        {"P --to finf in.xml -o out.finf && P --compact - <out.finf | cmp - in.xml", 0},
        {"P bad.xml -o out.xml", 2},
        {"P bad.xml 2>&1 | grep -q '^bad.xml:2: /score/note: Failed' && cmp in.xml out.xml", 0},
        {"P other.xml 2>&1 | grep -q \"The root .* is 'other' .* that this program knows\"", 0},
        {"P none.xml", 3},
        {"P none.xml 2>&1 | grep -q '^none.xml: No such file'", 0},
        {"P .", 3},
        {"P in.xml -o none/out.xml", 3},
        {"P in.xml >/dev/full", 3},
        {"P --compact in.xml -o - | cmp - in.xml", 0},
        {"P", 1},
        {"P --to text in.xml", 1},
        {"P --no in.xml", 1},
    };
    for (auto const& [lines, status] : rows) {
        EXPECT_EQ(folder.Run(BX_PROGRAM, "P() { score_program \"$@\"; }\n" + lines).m_status, status)
            << lines;
    }
}

}  // namespace
