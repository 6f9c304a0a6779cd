// The example of docs/binding-by-hand.md, in its words.

#include <gtest/gtest.h>

#include "BxXmlLib5/BxXmlLib5.h"
#include "BxXmlLib5/generated/Generated.h"
#include "support/Expect.h"
#include "support/GuideText.h"

namespace {

using namespace BxXmlLib5;
namespace Bx = BxXmlLib5::Generated;
namespace Xs = Bx::Xs;

constexpr char16_t kShelves[] = u"urn:shelves";

struct PriceType : Bx::Restriction<Xs::decimal> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"0", .fractionDigits = 2};
};

enum class Cover { Paper, Linen };
struct CoverType : Bx::Enumeration<Cover> {
    static constexpr char16_t const* kTexts[] = {u"paper", u"linen"};
};

class CBook : public Bx::CObject {
public:
    Bx::Required<Xs::string> Title;
    Bx::Optional<Xs::string> Author;
    Bx::Optional<Xs::string> Editor;
    Bx::Optional<PriceType> Price;
    Bx::Required<Xs::token> Isbn;
    Bx::WithDefault<CoverType, u"paper"> Cover;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

class CShelf : public Bx::Root<Bx::CObject> {
public:
    Bx::Collection<CBook> Book;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

// clang-format off
constexpr Bx::Row kBookRows[] = {
    Bx::Sequence,
        Bx::Element<&CBook::Title>(u"title"),
        Bx::Choice,
            Bx::Element<&CBook::Author>(u"author", 1, 1),
            Bx::Element<&CBook::Editor>(u"editor", 1, 1),
        Bx::End,
        Bx::Element<&CBook::Price>(u"price"),
    Bx::End,
    Bx::Attribute<&CBook::Isbn>(u"isbn"),
    Bx::Attribute<&CBook::Cover>(u"cover"),
};

constexpr Bx::Row kShelfRows[] = {
    Bx::Sequence,
        Bx::Element<&CShelf::Book>(u"book", 1, Bx::kMany),
    Bx::End,
};
// clang-format on

constinit Bx::Set const kSet{};

constinit Bx::Class const CBook::kClass = Bx::Describe<CBook>(kSet, u"bookType", kShelves, kBookRows);
Bx::Class const& CBook::Describe() const {
    return kClass;
}

constinit Bx::Class const CShelf::kClass = Bx::Describe<CShelf>(kSet, u"shelf", kShelves, kShelfRows);
Bx::Class const& CShelf::Describe() const {
    return kClass;
}

TEST(BindingByHand, WritesAndReadsWithTheKit) {
    std::string const path = testing::TempDir() + "bx-shelf.xml";
    CDecimal total;
    std::string titles;
    CShelf shelf;
    CBook& book = shelf.Book.Add();
    book.Title = "Down the River";
    book.Author = u8"Zoë Müller";
    book.Price = CDecimal(u"12.50");
    book.Isbn = u"978-3-16-148410-0";
    shelf.Save(path);

    CShelf read;
    read.Load(path);
    for (CBook const& each : read.Book) {
        if (each.Price) total += *each.Price;
        if (*each.Cover == Cover::Paper) titles += Bx::Utf8(each.Title);
    }
    EXPECT_EQ(total, CDecimal(u"12.5"));
    EXPECT_EQ(titles, "Down the River");
    EXPECT_EQ(read.ToText(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<shelf xmlns=\"urn:shelves\">"
              "<book isbn=\"978-3-16-148410-0\"><title>Down the River</title><author>Zoë Müller</author>"
              "<price>12.5</price></book></shelf>");
    EXPECT_BX_THROW(book.Price = -1, CBxInvalidValueException, "The value [-1] is less than [0]");
    book.Editor = "E";
    EXPECT_BX_THROW(shelf.Save(path), CBxValidationException,
                    "/shelf/book[1]: No member of the choice has all that is set: [author] [editor]");
    EXPECT_TRUE(read.Equals(*read.Clone()));
    read.Load(path);
    EXPECT_EQ(read.Book.Count(), 1);
    EXPECT_BX_THROW(read.Parse("<shelf xmlns='urn:shelves'><book"), CBxException,
                    "The document ends before its root does");
}

using namespace BxXmlLib5Data;

class Book : public CXmlGeneratedClass {
public:
    explicit Book(char16_t const* elementName = u"book") { SetElementName(elementName); }

    wstring const& GetTitle() const { return m_title; }
    void SetTitle(wstring title) { m_title = std::move(title); }

    bool HasPrice() const { return m_hasPrice; }
    CDecimal const& GetPrice() const { return m_price; }
    void SetPrice(CDecimal const& price) {
        BxVariant value;
        value.SetDecimal(price);
        AccessProperty(kPrice, false, value);
    }

    wstring const& GetIsbn() const { return m_isbn; }
    void SetIsbn(wstring isbn) { m_isbn = std::move(isbn); }

    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return kShelves; }

protected:
    wstring GetTargetNamespace() const override { return kShelves; }
    CParentElementInfo* GetClassInfo() const override { return Tables().m_class; }
    CElementInfo** GetClassElementInfo() const override { return Tables().m_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().m_attributes; }

    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override {
        switch (propertyIndex) {
            case kTitle:
                if (read) {
                    value.SetString(m_title);
                } else {
                    m_title = std::move(value).GetString();
                }
                break;
            case kPrice:
                if (!read) {
                    Tables().m_elements[kPrice]->CheckRestriction(value);
                    m_price = std::move(value).GetDecimal();
                    m_hasPrice = true;
                } else if (m_hasPrice) {
                    value.SetDecimal(m_price);
                }
                break;
            case kIsbn:
                if (read) {
                    value.SetString(m_isbn);
                } else {
                    m_isbn = std::move(value).GetString();
                }
                break;
        }
    }

    void ResetContent() override {
        m_title.clear();
        m_hasPrice = false;
        m_isbn.clear();
    }

private:
    enum Property { kTitle, kPrice, kIsbn };

    struct MetaData {
        MetaData() {
            CPrimitiveRestrictions const anything;
            CPrimitiveRestrictions const fromZero(u"", -1, -1, u"0", u"", u"", u"", -1);
            m_class = new CParentElementInfo(egt_Sequence, et_Element, u"book", kShelves, -1, true, false);
            m_elements = new CElementInfo* [] {
                new CElementInfoSeqPrimMnd(u"title", kShelves, kTitle, it_string, nullptr,
                                           CWhitespaceUtils::ws_Preserve, anything),
                    new CElementInfoSeqPrimOpt(u"price", kShelves, kPrice, it_decimal, nullptr,
                                               CWhitespaceUtils::ws_Collapse, fromZero),
                    nullptr,
            };
            m_attributes = new CAttributeInfo* [] {
                new CAttributeInfoPrimitive(u"isbn", u"", kIsbn, false, it_string, nullptr,
                                            CWhitespaceUtils::ws_Collapse, anything, u""),
                    nullptr,
            };
        }
        ~MetaData() { CleanMetaData(m_class, m_elements, m_attributes); }

        CParentElementInfo* m_class;
        CElementInfo** m_elements;
        CAttributeInfo** m_attributes;
    };

    static MetaData const& Tables() {
        static MetaData s_tables;
        return s_tables;
    }

    wstring m_title;
    CDecimal m_price;
    bool m_hasPrice = false;
    wstring m_isbn;
};

class BookCol : public CXmlCollection {
public:
    BookCol() : CXmlCollection(u"book", kShelves, 1, -1) {}

    CSmartPtr<Book> Add(Book* book) {
        Throw_IfPropertyIsNull(book, u"book");
        Throw_IfElementNameDiffers(book, u"book");
        CSmartPtr<Book> held = book;  // not earlier: a book that is refused stays the caller's
        AppendItem(book);
        return held;
    }
    CSmartPtr<Book> Item(int index) { return *CBxIterator<Book>(GetNodeAtIndex(index)); }
    CBxIterator<Book> begin() { return CBxIterator<Book>(FirstNode()); }
    CBxIterator<Book> end() { return CBxIterator<Book>(nullptr); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool) const override {
        ValidateCount(context);
        ItemsToXml(writer, namespaceUri, context);
    }

    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, CXmlSerializationContext const& context,
                             bool) override {
        CXmlElement* child = firstChild;
        while (child != nullptr && DoesElementNameMatch(context, child, u"book", kShelves)) {
            CSmartPtr<Book> const book = new Book;
            CXmlObjectBase::FromXml_Int(book, child, child->GetFirstElement(), context);
            AppendItem(book);
            child = child->GetNextSiblingElement();
        }
        return child;
    }
};

class Shelf : public CXmlGeneratedClass {
public:
    Shelf() { SetElementName(u"shelf"); }

    CSmartPtr<BookCol> GetBooks() const { return m_books; }

    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return kShelves; }

protected:
    wstring GetTargetNamespace() const override { return kShelves; }
    CParentElementInfo* GetClassInfo() const override { return Tables().m_class; }
    CElementInfo** GetClassElementInfo() const override { return Tables().m_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().m_attributes; }

    void AccessProperty(int, bool read, BxVariant& value) override {
        if (read) value.SetXmlCollection(m_books);
    }
    void ResetContent() override { m_books = new BookCol; }

private:
    struct MetaData {
        ~MetaData() { CleanMetaData(m_class, m_elements, m_attributes); }

        CParentElementInfo* m_class =
            new CParentElementInfo(egt_Sequence, et_Element, u"shelf", kShelves, -1, true, false);
        CElementInfo** m_elements =
            new CElementInfo* [] { new CElementInfoSeqClsCol(u"book", kShelves, 0, et_Element), nullptr };
        CAttributeInfo** m_attributes = new CAttributeInfo* [] { nullptr };
    };

    static MetaData const& Tables() {
        static MetaData s_tables;
        return s_tables;
    }

    CSmartPtr<BookCol> m_books = new BookCol;
};

std::string Written() {
    Shelf shelf;
    CSmartPtr<Book> const book = shelf.GetBooks()->Add(new Book);
    book->SetTitle(u"Down the River");
    book->SetPrice(CDecimal(u"12.50"));
    book->SetIsbn(u"978-3-16-148410-0");

    CXmlSerializationContext context;
    context.SetDefaultNamespaceURI(kShelves);
    return ToUtf8(shelf.ToXml(false, true, eol_LF, context));
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

TEST(BindingByHand, TextHasTheExamplesOfThisSource) {
    BxTest::ExpectExamplesOf(BX_BINDING_BY_HAND, BX_BINDING_BY_HAND_SOURCE, 11);
}

}  // namespace
