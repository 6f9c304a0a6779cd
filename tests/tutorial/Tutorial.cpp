// The examples of docs/tutorial.md, in its order.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Tutorial.h"
#include "support/TemporaryFolder.h"

namespace Bx = BxXmlLib5::Generated;
using namespace BxXmlLib5;
using namespace Tutorial;

namespace {

using BxTest::Content;

/// A document of one root, with its attributes and its content.
std::string Document(std::string const& name, std::string const& attributes,
                     std::string const& content = "") {
    std::string const head =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<" + name +
        " xmlns=\"urn:tutorial\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"" + attributes;
    return head + (content.empty() ? "/>" : '>' + content + "</" + name + '>');
}

TEST(Tutorial, Program) {
    BxTest::TemporaryFolder const folder;
    auto const run = [&](std::string const& items) {
        folder.Write("order.xml", "<order xmlns=\"urn:shop\">" + items + "</order>");
        auto const ending = folder.Run(BX_TUTORIAL_PROGRAM, "'" BX_TUTORIAL_PROGRAM "' 2>&1");
        return std::to_string(ending.m_status != 0) + ' ' + ending.m_out;
    };
    EXPECT_EQ(run("<item sku=\"A-17\"><price>2.25</price></item>"), "0 A-17: 2.25\n");
    EXPECT_EQ(
        Content(folder.Path("order.xml")),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<order xmlns=\"urn:shop\">\n\t<item sku=\"A-17\">\n\t\t"
        "<price>2.25</price>\n\t</item>\n\t<item sku=\"B-3\">\n\t\t<price>9.5</price>\n\t</item>\n</order>\n");
    std::string const failure = run("<item sku=\"A-17\"><price>cheap</price></item>");
    std::string const end = failure.substr(failure.find('\n') + 1);
    EXPECT_EQ(failure.substr(0, 2), "1 ");
    for (std::string const& line : {failure.substr(2, failure.find('\n') - 2) + '\n', end})
        EXPECT_NE(Content(BX_TUTORIAL).find("\n    " + line), std::string::npos) << line;
}

/// The example of a page between two lines, from the first one like `begin` on.
std::string Example(std::string const& page, std::string const& begin, std::string const& end) {
    std::size_t const first = page.find(begin) + begin.size();
    return page.substr(first, page.find(end, first) - first);
}

TEST(Readme, ProgramAndSchema) {
    std::string const page = Content(BX_README);
    EXPECT_NE(Content(BX_TUTORIAL).find(Example(page, "```xml\n", "```")), std::string::npos);
    BxTest::TemporaryFolder const folder;
    folder.Write("order.xml", Example(page, "Given\n\n    ", "\n"));
    auto const ending = folder.Run(BX_README_PROGRAM, "'" BX_README_PROGRAM "' 2>&1");
    EXPECT_EQ(ending.m_out, Example(page, "it prints\n\n```xml\n", "```"));
}

/// The lines of a text without those that all classes have, without comments on their place, and without indentation.
std::string Plain(std::string const& text) {
    std::istringstream lines(text);
    std::string plain = "\n";
    for (std::string line; std::getline(lines, line);) {
        line.erase(0, line.find_first_not_of(' '));
        bool const isOfAll = line.empty() || line == "protected:" ||
                             line == "static Bx::Class const kClass;" ||
                             line.starts_with("Bx::Class const& Describe()");
        bool const isPlace = line.starts_with("///") && line.ends_with(')');
        if (!isOfAll && !isPlace) plain += line + '\n';
    }
    return plain;
}

TEST(Tutorial, ClassesAreThoseOfThePages) {
    std::string const page = Content(BX_README) + Content(BX_TUTORIAL);
    std::string const classes = Plain(Content(BX_TUTORIAL_CLASSES "/tutorial_shop/Shop.h")) +
                                Plain(Content(BX_TUTORIAL_CLASSES "/tutorial_tests/Tutorial.h"));
    std::string const begin = "```c++\n";
    int count = 0;
    for (std::size_t at = page.find(begin); at != page.npos; at = page.find(begin, at + 1)) {
        std::size_t const first = at + begin.size();
        std::string const block = Plain(page.substr(first, page.find("```", first) - first));
        EXPECT_NE(classes.find(block), classes.npos) << block;
        ++count;
    }
    EXPECT_EQ(count, 17);
}

TEST(Tutorial, Values) {
#include "tutorial/02.inc"
    EXPECT_EQ(title, u"Geschichte der Tontechnik");
    EXPECT_EQ(text, "Geschichte der Tontechnik, Anna Groß");
    EXPECT_FALSE(book.Published);
    EXPECT_EQ(Bx::Utf8(book.Pages), "312");
    EXPECT_TRUE(book.Validate().empty());
}

TEST(Tutorial, Objects) {
#include "tutorial/03.inc"
    EXPECT_TRUE(isSame);
    EXPECT_EQ(library.Book.Count(), 2);
    EXPECT_EQ(library.Book[0].Title, u"Geschichte der Tontechnik");
    EXPECT_EQ(library.Address->Street, u"Am Ufer 3");
}

TEST(Tutorial, DefaultsAndFixedValues) {
#include "tutorial/04.inc"
    EXPECT_EQ(days, 28);
    EXPECT_FALSE(isGiven);
    EXPECT_EQ(version, CDecimal(1));
    EXPECT_THROW(loan.Version = CDecimal(2), CBxInvalidValueException);
    EXPECT_EQ(loan.ToText(), Document("loan", " currency=\"CHF\""));
}

TEST(Tutorial, SimpleTypes) {
    testing::internal::CaptureStderr();
#include "tutorial/05.inc"
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
    EXPECT_EQ(copy.ToText(),
              Document("copy", " shelf=\"K12\" format=\"e-book\" grades=\"1 2\" size=\"e-book\""));
    EXPECT_THROW(copy.Grades = std::vector<CDecimal>{7}, CBxInvalidValueException);
}

TEST(Tutorial, SimpleContent) {
#include "tutorial/06.inc"
    EXPECT_EQ(weight.ToText(), Document("weight", " unit=\"lb\"", "350"));
}

TEST(Tutorial, Choices) {
    testing::internal::CaptureStderr();
#include "tutorial/07.inc"
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
    EXPECT_EQ(contact.ToText(), Document("contact", "", "<name>Anna Groß</name><phone>0316 4711</phone>"));
    contact.Address.Make();
    EXPECT_THROW(contact.ToText(), CBxValidationException);
}

TEST(Tutorial, GroupsThatRepeat) {
#include "tutorial/08.inc"
    EXPECT_EQ(diary.ToText(),
              Document("diary", "", "<lent>A12</lent><returned>K12</returned><lent>A04</lent>"));
}

TEST(Tutorial, DerivedTypes) {
#include "tutorial/09.inc"
    EXPECT_EQ(catalogue.ToText(), Document("catalogue", "",
                                           "<medium xsi:type=\"filmType\"><title>Metropolis (1927)</title>"
                                           "<length>PT2H33M</length></medium>"));
}

TEST(Tutorial, SubstitutionGroups) {
#include "tutorial/10.inc"
    EXPECT_EQ(calendar.ToText(),
              Document("calendar", "",
                       "<reading day=\"2026-05-01\" author=\"Anna Groß\"/><sale day=\"2026-05-02\"/>"));
}

TEST(Tutorial, Nil) {
#include "tutorial/11.inc"
    EXPECT_EQ(unknown, Document("reader", "", "<born xsi:nil=\"true\"/>"));
    EXPECT_EQ(reader.ToText(), Document("reader", "", "<born>1971-08-23</born>"));
}

TEST(Tutorial, Wildcards) {
#include "tutorial/12.inc"
    EXPECT_EQ(*loan.Currency, u"CHF");
    EXPECT_TRUE(extensible.ToText().ends_with(" xml:lang=\"de\"><loan currency=\"CHF\"/></extensible>"));
}

TEST(Tutorial, MixedContent) {
#include "tutorial/13.inc"
    EXPECT_EQ(text, "See below.");
}

TEST(Tutorial, OtherForms) {
#include "tutorial/14.inc"
    EXPECT_FALSE(loan.Days);
#include "tutorial/15.inc"
    EXPECT_THROW(loan.Parse("<loan xmlns='urn:tutorial'><new/></loan>"), CBxValidationException);
}

TEST(Tutorial, LargeDocuments) {
    BxTest::TemporaryFolder const folder;
    auto const before = std::filesystem::current_path();
    std::filesystem::current_path(folder.m_path);
#include "tutorial/16.inc"
#include "tutorial/17.inc"
    EXPECT_EQ(pages, CBigInteger(25'005'000));
    EXPECT_TRUE(around.Book.IsEmpty());
    std::string text = Content("library.xml");
    text.insert(text.find("<book"), "<book isbn=\"0\"/>");
    folder.Write("library.xml", text);
    testing::internal::CaptureStderr();
#include "tutorial/18.inc"
    EXPECT_TRUE(testing::internal::GetCapturedStderr().starts_with("library.xml:2: /library/book[1]: "));
    CLibrary shorter;
    shorter.Load("shorter.xml");
    EXPECT_EQ(shorter.Book.Count(), 5'000);
    std::filesystem::current_path(before);
}

}  // namespace
