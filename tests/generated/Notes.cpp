// Groups, choices and their arms, by the notes of a score.

#include <string>

#include "Score.h"
#include "support/Expect.h"

namespace {

using namespace Score;

std::string Document(std::string const& content) {
    return "<note xmlns=\"urn:score\">" + content + "</note>";
}

std::string Written(CNote const& note) {
    std::string const text = note.ToText();
    return text.substr(text.find("<note"));
}

CNote Read(std::string const& content) {
    CNote note;
    note.Parse(Document(content));
    return note;
}

std::string const kPitch = "<pitch><step>C</step><octave>4</octave></pitch>";
std::string const kDuration = "<duration>4</duration>";

TEST(Notes, OfEachArmRoundTrip) {
    std::string const rows[] = {
        "<grace/>" + kPitch + "<tie type=\"start\"/><tie type=\"stop\"/><voice>1</voice>",
        "<grace/><chord/><rest/>",
        "<grace/><cue/><chord/><rest/><voice>1</voice>",
        "<cue/>" + kPitch + kDuration,
        "<chord/>" + kPitch + kDuration + "<tie type=\"start\"/><voice>1</voice>",
        "<rest/>" + kDuration,
        "<rest/>" + kDuration + "<verse><word>a</word></verse><verse><humming>m</humming><end-line/></verse>",
        "<rest/>" + kDuration +
            "<verse><elision>x</elision><elision>y</elision><word>a</word><word>b</word><elision>z</elision>"
            "<word>c</word><end-line/><end-paragraph/></verse>",
    };
    for (std::string const& row : rows) {
        CNote const note = Read(row);
        EXPECT_EQ(Written(note), Document(row));
        EXPECT_TRUE(note.Validate().empty()) << row;
        EXPECT_TRUE(note.Clone()->Equals(note)) << row;
    }
}

TEST(Notes, ThatFitNoArmAreNotRead) {
    struct Row {
        std::string content;
        std::string message;
    };
    Row const rows[] = {
        {"", "Failed to find one of the elements [grace] [cue] [chord] [pitch] [rest] in the element [note]"},
        {"<rest/>", "Failed to find the element [duration] in the element [note]"},
        {"<grace/>" + kPitch + kDuration, "Unexpected element [duration] found in the element [note]"},
        {"<grace/><voice>1</voice>",
         "Failed to find one of the elements [chord] [pitch] [rest] [cue] in the element [note], where [voice] stands"},
        {"<rest/>" + kPitch + kDuration,
         "Failed to find the element [duration] in the element [note], where [pitch] stands"},
        {"<rest/>" + kDuration + "<tie type='stop'/><tie type='stop'/><tie type='stop'/>",
         "Unexpected element [tie] found in the element [note]"},
        {"<rest/>" + kDuration + "<verse/>",
         "Failed to find one of the elements [elision] [word] [humming] in the element [verse]"},
        {"<rest/>" + kDuration + "<verse><elision>x</elision></verse>",
         "Failed to find the element [word] in the element [verse]"},
        {"<rest/>" + kDuration + "<verse><word>a</word><humming>m</humming></verse>",
         "Unexpected element [humming] found in the element [verse]"},
        {"<rest/>" + kDuration + "<verse><word>a</word><end-paragraph/></verse>",
         "Unexpected element [end-paragraph] found in the element [verse]"},
    };
    for (Row const& row : rows) {
        EXPECT_BX_THROW(Read(row.content), CBxValidationException, row.message) << row.content;
    }
}

TEST(Notes, FindTheirArmByWhatIsSet) {
    CNote note;
    note.Pitch.Make().Step = Step::D;
    note.Pitch->Octave = 3;
    note.Duration = CDecimal(u"0.5");
    note.Tie.Add().Type = StartStop::Start;
    std::string const pitch = "<pitch><step>D</step><octave>3</octave></pitch>";
    EXPECT_EQ(Written(note), Document(pitch + "<duration>0.5</duration><tie type=\"start\"/>"));

    note.Cue.Make();
    EXPECT_BX_THROW(Written(note), CBxValidationException,
                    "/note: No member of the choice has all that is set: [pitch] [tie] [cue] [duration]");
    note.Tie.Clear();
    EXPECT_EQ(Written(note), Document("<cue/>" + pitch + "<duration>0.5</duration>"));
    note.Duration.Clear();
    EXPECT_BX_THROW(Written(note), CBxValidationException, "/note: The element [grace] is not set");
    note.Grace.Make();
    EXPECT_EQ(Written(note), Document("<grace/><cue/>" + pitch));
    note.Rest.Make();
    EXPECT_BX_THROW(Written(note), CBxValidationException,
                    "/note: No member of the choice has all that is set: [pitch] [rest]");
}

TEST(Notes, TellAllThatWritingWouldRefuse) {
    CNote note = Read("<rest/>" + kDuration);
    note.Rest.Clear();
    note.Tie.Add();
    note.Tie.Add().Type = StartStop::Stop;
    note.Verse.Add();
    note.Verse.Add().Text.Add().Elision = {u"a", u"b", u"c"};
    note.Verse[1].EndParagraph.Make();
    std::string complaints;
    for (wstring const& one : note.Validate()) complaints += ToUtf8(one) + "\n";
    EXPECT_EQ(complaints,
              "/note: Nothing is set of one of the elements [pitch] [rest]\n"
              "/note/tie[1]: The attribute [type] is not set\n"
              "/note/verse[1]: Nothing is set of one of the elements [elision] [word] [humming]\n"
              "/note/verse[2]: There are 3 of [elision], there must be at most 2\n"
              "/note/verse[2]: The element [word] is not set\n"
              "/note/verse[2]: The element [end-line] is not set\n");
}

}  // namespace
