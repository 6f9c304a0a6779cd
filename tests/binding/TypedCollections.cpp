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

constexpr Row kRows[] = {{u"i4", New<Ci4Col>, "-2147483648", "2147483647"},
                         {u"string", New<CstringCol>, "two words", ""},
                         {u"date", New<CdateCol>, "2026-11-23", "1999-12-31"}};

/// A class with a collection of a number, of a text and of a date.
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
