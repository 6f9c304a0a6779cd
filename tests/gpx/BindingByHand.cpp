// The examples of docs/binding-by-hand.md, in its order.

#include <gtest/gtest.h>

#include "binding-by-hand/01.inc"
#include "support/Expect.h"

namespace {

#include "binding-by-hand/02.inc"
#include "binding-by-hand/03.inc"
#include "binding-by-hand/04.inc"
#include "binding-by-hand/05.inc"
#include "binding-by-hand/06.inc"

TEST(BindingByHand, WritesAndReadsWithTheKit) {
    std::string const path = testing::TempDir() + "bx-shelf.xml";
    CDecimal total;
    std::string titles;
#include "binding-by-hand/07.inc"
    EXPECT_EQ(total, CDecimal(u"12.5"));
    EXPECT_EQ(titles, "Down the River");
    EXPECT_EQ(read.ToText(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<shelf xmlns=\"urn:shelves\">"
              "<book isbn=\"978-3-16-148410-0\"><title>Down the River</title><author>Zoë Müller</author>"
              "<price>12.5</price></book></shelf>");
    EXPECT_BX_THROW(book.Price = -1, CBxInvalidValueException, "The value [-1] is less than [0]");
    book.Editor = "E";
    EXPECT_BX_THROW(shelf.Save(path), CBxValidationException,
                    "No member of the choice has all that is set: [author] [editor]");
    EXPECT_TRUE(read.Equals(*read.Clone()));
    read.Load(path);
    EXPECT_EQ(read.Book.Count(), 1);
    EXPECT_BX_THROW(read.Parse("<shelf xmlns='urn:shelves'><book"), CBxException,
                    "The document ends inside the element [/shelf], which begins on line 1");
}

#include "binding-by-hand/08.inc"
#include "binding-by-hand/09.inc"
#include "binding-by-hand/10.inc"
#include "binding-by-hand/11.inc"

std::string Written(){
#include "binding-by-hand/12.inc"
}

TEST(BindingByHand, WritesAndReads) {
    std::string const written = Written();
    EXPECT_EQ(written,
              "<shelf xmlns=\"urn:shelves\">\n\t<book isbn=\"978-3-16-148410-0\">\n"
              "\t\t<title>Down the River</title>\n\t\t<price>12.5</price>\n\t</book>\n</shelf>\n");
    CXmlSerializationContext const context;
    Shelf shelf;
    shelf.FromXml(written.c_str(), context);
    ASSERT_EQ(shelf.GetBooks()->GetCount(), 1);
    EXPECT_EQ(shelf.GetBooks()->Item(0)->GetTitle(), u"Down the River");
    EXPECT_EQ(shelf.GetBooks()->Item(0)->GetPrice(), CDecimal(u"12.5"));
    EXPECT_EQ(shelf.GetBooks()->Item(0)->GetIsbn(), u"978-3-16-148410-0");
    EXPECT_BX_THROW(shelf.FromXml("<shelf xmlns='urn:shelves'/>", context), CBxValidationException,
                    "The Minimum number of [book] elements allowed in this collection is 1");
    EXPECT_BX_THROW(shelf.GetBooks()->Add(new Book)->SetPrice(-1), CBxException,
                    "Invalid Value for price [-1]");
}

}  // namespace
