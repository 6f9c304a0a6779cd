// The shared library as an application sees it: one header, and what is exported.
namespace BxXmlLib5 {
class Ci4Col;
class CdateCol;
}  // namespace BxXmlLib5

#include "BxXmlLib5/BxXmlLib5.h"

#include <gtest/gtest.h>

#include <memory>

using namespace BxXmlLib5;

namespace {

CXmlSerializationContext const& Defaults() {
    return CXmlSerializationContext::GetDefaultContext();
}

#include "users-guide/02.inc"

/// The order of the guide under another name, which counts events.
struct Book : Order {
    void OnEvent(CXmlObjectBase*, MsgType, void*) override { ++m_events; }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool isEmpty) override {
        if (element->GetLocalName() != u"book") throw CBxValidationException(u"no book");
        return Order::FromXml_Int(element, firstChild, context, isEmpty);
    }

    int m_events = 0;
};

/// The message of a failure of that class or one derived from it.
template <class Failure>
std::string MessageOf(auto statement) {
    try {
        statement();
    } catch (Failure const& failure) {
        return ToUtf8(failure.GetMessage());
    }
    return "nothing";
}

/// Whether values count up from 0, as callers that pass numbers take them.
template <auto... values>
constexpr bool AreNumbered = [](int number) { return ((number++ == int{values}) && ...); }(0);

static_assert(
    AreNumbered<it_invalid, it_hexBinary, it_base64Binary, it_i1, it_i2, it_i4, it_i8, it_ui1, it_ui2, it_ui4,
                it_ui8, it_r4, it_r8, it_duration, it_yearMonth, it_monthDay, it_year, it_month, it_day,
                it_date, it_datetime, it_time, it_char, it_string, it_boolean, it_decimal, it_integer,
                it_xmlObject, it_xmlCollection> &&
    AreNumbered<be_Text, be_Hex, be_Base64, be_Short, be_Int, be_Long, be_Boolean, be_Float, be_Double,
                be_UUID> &&
    AreNumbered<cmp_None, cmp_GZip, cmp_ZLib> && AreNumbered<eol_CRLF, eol_LF> &&
    AreNumbered<enc_Unspecified, enc_UTF8, enc_UTF16, enc_UTF16NoDeclaration> &&
    AreNumbered<fi_None, fi_Plain, fi_StandaloneYes, fi_StandaloneNo, fi_Version10, fi_Version10StandaloneYes,
                fi_Version10StandaloneNo, fi_Version11, fi_Version11StandaloneYes,
                fi_Version11StandaloneNo> &&
    st_Default == 0 && st_NoNamespaces == 2 && AreNumbered<CElement::msg_CollectionChanged> &&
    AreNumbered<BxXmlLib5Data::et_Element, BxXmlLib5Data::et_PseudoElement> &&
    AreNumbered<BxXmlLib5Data::egt_Sequence, BxXmlLib5Data::egt_Choice, BxXmlLib5Data::egt_All> &&
    AreNumbered<CWhitespaceUtils::ws_Preserve, CWhitespaceUtils::ws_Replace, CWhitespaceUtils::ws_Collapse> &&
    AreNumbered<CDateTime::dt_yearZero, CDateTime::dt_dateTime, CDateTime::dt_date, CDateTime::dt_gYearMonth,
                CDateTime::dt_gYear, CDateTime::dt_time, CDateTime::dt_gDay, CDateTime::dt_gMonth,
                CDateTime::dt_gMonthDay> &&
    AreNumbered<CDateTime::dtc_equal, CDateTime::dtc_lessThan, CDateTime::dtc_greaterThan,
                CDateTime::dtc_indeterminate>);

}  // namespace

TEST(PublicInterface, ADerivedObjectReadsAndWrites) {
    Book book;
    book.m_items->AddEventListener(&book);
    book.FromXml("<b:book xmlns:b='urn:orders' number='Äpfel'><note>one</note><b:note/></b:book>",
                 Defaults());
    EXPECT_EQ(ToUtf8(book.ToXml(false, false, eol_LF, Defaults())),
              "<AA:order xmlns:AA=\"urn:orders\" number=\"Äpfel\"><note>one</note><AA:note/></AA:order>");
    EXPECT_EQ(book.m_events, 4);
    book.m_items->RemoveEventListener(&book);
}

TEST(PublicInterface, FailuresAreCaughtByTheirClass) {
    Book book;
    auto const anyAsNamespace = [] { CElement(u"a", u"##any"); };
    auto const mismatch = [&] { book.FromXml(u"<book></shelf>", Defaults()); };
    EXPECT_EQ(MessageOf<CBxException>(mismatch), "mismatched tag at line 1");
    EXPECT_THROW(MessageOf<CBxValidationException>(mismatch), CBxException);
    EXPECT_EQ(MessageOf<CBxValidationException>([&] { book.FromXml(u"<shelf/>", Defaults()); }), "no book");
    EXPECT_EQ(MessageOf<CBxValidationException>(anyAsNamespace), "Invalid Namespace [##any]");
    EXPECT_EQ(MessageOf<CBxInvalidStateException>([&] { book.m_items->Add(u"a"); }),
              "A Namespace has not been set for this Collection");
}

TEST(PublicInterface, DocumentsAndTheDefaultContext) {
    CXmlDocument document;
    document.LoadXml(u"<a xmlns:p='u' p:k='1'>x<b/></a>");
    CXmlElement const* const root = document.GetDocumentElement();
    EXPECT_EQ(root->GetAttribute(u"k", u"u") + root->GetText() + root->GetFirstElement()->GetLocalName(),
              u"1xb");
    EXPECT_FALSE(root->GetAttributes()[0]->IsNamespaceAttribute());
    EXPECT_EQ(document.LookupNamespaceFromAlias(u"p"), u"u");

    auto const bounds = [] { CElementCol(u"", u"##any", u"", 1, 1).ToXml(false, false, eol_LF, Defaults()); };
    EXPECT_EQ(MessageOf<CBxValidationException>(bounds),
              "The Minimum number of [] elements allowed in this collection is 1");
    CXmlSerializationContext::GetDefaultContext().SetIgnoreInvalidCollectionCounts(true);
    EXPECT_EQ(MessageOf<CBxValidationException>(bounds), "nothing");
    CXmlSerializationContext::GetDefaultContext().SetIgnoreInvalidCollectionCounts(false);
}

namespace {

template <class Collection>
std::unique_ptr<Collection> Made() {
    return std::make_unique<Collection>(u"v", u"", 0, -1, u"", -1, -1, u"", u"", u"", u"", -1,
                                        CWhitespaceUtils::ws_Collapse, nullptr);
}

/// Uses what every typed collection has.
template <class... Collections>
int CountOf() {
    auto const count = [](auto collection, auto value) {
        collection->Add(value);
        collection->AddAt(0, collection->Item(0));
        auto const copy = *collection;
        *collection = copy;
        collection->Remove(0);
        return collection->GetCount() + copy.GetCount();
    };
    return (count(Made<Collections>(), decltype(Made<Collections>()->Item(0))()) + ...);
}

struct Days : CdateCol {
    using CdateCol::CdateCol;
    void AddAt(int index, CDateTime const& value) override { BaseAddAt(index, value); }
};

}  // namespace

TEST(PublicInterface, TypedCollections) {
    EXPECT_EQ((CountOf<Ci1Col, Ci2Col, Ci4Col, Ci8Col, Cui1Col, Cui2Col, Cui4Col, Cui8Col, Cr4Col, Cr8Col,
                       CbooleanCol, CstringCol, CdecimalCol, CintegerCol, ChexBinaryCol, Cbase64BinaryCol,
                       CdurationCol, CdayCol, CmonthCol, CyearCol>()),
              20 * 3);
    Made<Days>()->Add(CDateTime());
    EXPECT_EQ(MessageOf<CBxInvalidParamException>([] { Made<CtimeCol>()->Add(CDateTime()); }),
              "Dates added to this collection must be of type dt_time");
}
