// The typed collections as properties of a class.
#include "BxXmlLib5/collections/TypedCollections.h"

#include <gtest/gtest.h>

#include "BxXmlLib5/binding/CElementInfoSeq.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/values/BxVariant.h"
#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace BxXmlLib5Data;

namespace {

template <class Col>
CXmlTypeCollection* New(char16_t const* elementName) {
    return new Col(elementName, u"", 0, 2, u"", -1, -1, u"", u"", u"", u"", -1, CWhitespaceUtils::ws_Collapse,
                   nullptr);
}

struct Row {
    char16_t const* m_name;
    CXmlTypeCollection* (*m_new)(char16_t const* elementName);
    char const* m_first;
    char const* m_second;
};

// clang-format off
constexpr Row kRows[] = {
    {u"i1",           New<Ci1Col>,           "-128", "127"},
    {u"i2",           New<Ci2Col>,           "-32768", "32767"},
    {u"i4",           New<Ci4Col>,           "-2147483648", "2147483647"},
    {u"i8",           New<Ci8Col>,           "-9223372036854775808", "9223372036854775807"},
    {u"ui1",          New<Cui1Col>,          "0", "255"},
    {u"ui2",          New<Cui2Col>,          "0", "65535"},
    {u"ui4",          New<Cui4Col>,          "0", "4294967295"},
    {u"ui8",          New<Cui8Col>,          "0", "18446744073709551615"},
    {u"r4",           New<Cr4Col>,           "-1.5", "0.25"},
    {u"r8",           New<Cr8Col>,           "-1.5", "0.0009765625"},
    {u"boolean",      New<CbooleanCol>,      "true", "false"},
    {u"string",       New<CstringCol>,       "two words", ""},
    {u"decimal",      New<CdecimalCol>,      "-0.1", "12345678901234567890.5"},
    {u"integer",      New<CintegerCol>,      "-1", "123456789012345678901234567890"},
    {u"hexBinary",    New<ChexBinaryCol>,    "00FF", "0A"},
    {u"base64Binary", New<Cbase64BinaryCol>, "AP8=", "Cg=="},
    {u"duration",     New<CdurationCol>,     "P1Y", "-PT1.5S"},
    {u"day",          New<CdayCol>,          "---01", "---31"},
    {u"month",        New<CmonthCol>,        "--01", "--12"},
    {u"year",         New<CyearCol>,         "1999", "2026"},
    {u"datetime",     New<CdatetimeCol>,     "2026-11-23T01:02:03Z", "1999-12-31T23:59:59"},
    {u"date",         New<CdateCol>,         "2026-11-23", "1999-12-31"},
    {u"time",         New<CtimeCol>,         "01:02:03", "23:59:59Z"},
    {u"yearMonth",    New<CyearMonthCol>,    "2026-11", "1999-12"},
    {u"monthDay",     New<CmonthDayCol>,     "--11-23", "--12-31"},
};
// clang-format on

/// A class with a collection of each kind.
class Everything : public CXmlGeneratedClass {
public:
    Everything() {
        SetElementName(u"everything");
        Everything::ResetContent();
    }

    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return u""; }

protected:
    wstring GetTargetNamespace() const override { return u""; }
    CParentElementInfo* GetClassInfo() const override { return Tables().m_class; }
    CElementInfo** GetClassElementInfo() const override { return Tables().m_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().m_attributes; }

    void AccessProperty(int propertyIndex, bool, BxVariant& value) override {
        value.SetXmlCollection(m_collections[static_cast<std::size_t>(propertyIndex)]);
    }
    void ResetContent() override {
        m_collections.clear();
        for (Row const& row : kRows) m_collections.emplace_back(row.m_new(row.m_name));
    }

private:
    struct MetaData {
        MetaData() {
            int index = 0;
            for (Row const& row : kRows) {
                m_elements[index] = new CElementInfoSeqPrimCol(row.m_name, u"", index);
                ++index;
            }
        }
        ~MetaData() { CleanMetaData(m_class, m_elements, m_attributes); }

        CParentElementInfo* m_class =
            new CParentElementInfo(egt_Sequence, et_Element, u"everything", u"", -1, true, false);
        CElementInfo** m_elements = new CElementInfo*[std::size(kRows) + 1]();
        CAttributeInfo** m_attributes = new CAttributeInfo*[1]();
    };

    static MetaData const& Tables() {
        static MetaData s_tables;
        return s_tables;
    }

    std::vector<CSmartPtr<CXmlTypeCollection>> m_collections;
};

std::string Element(Row const& row, std::string const& text) {
    std::string const name = ToUtf8(row.m_name);
    return text.empty() ? "<" + name + "/>" : "<" + name + ">" + text + "</" + name + ">";
}

std::string WrittenBack(std::string const& children) {
    Everything object;
    CXmlSerializationContext const context;
    object.FromXml(("<everything>" + children + "</everything>").c_str(), context);
    return ToUtf8(object.ToXml(false, false, eol_LF, context));
}

TEST(TypedCollectionsOfAClass, AreReadAndWritten) {
    std::string children;
    for (Row const& row : kRows) children += Element(row, row.m_first) + Element(row, row.m_second);
    EXPECT_EQ(WrittenBack(children), "<everything>" + children + "</everything>");
    EXPECT_EQ(WrittenBack(""), "<everything/>");
}

TEST(TypedCollectionsOfAClass, KeepTheirBounds) {
    for (Row const& row : kRows) {
        std::string const element = Element(row, row.m_first);
        EXPECT_BX_THROW(
            WrittenBack(element + element + element), CBxValidationException,
            "The Maximum number of [" + ToUtf8(row.m_name) + "] elements allowed in this collection is 2");
    }
}

}  // namespace
