// What the suite's program takes for equal.

#include <gtest/gtest.h>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "runner/Trees.h"

namespace {

TEST(SuiteValues, Equal) {
    struct Row {
        char16_t const* a;
        char16_t const* b;
        bool areEqual;
    };
    Row const rows[] = {
        {u"", u" \n", true},
        {u" a  b ", u"a b", true},
        {u"a b", u"ab", false},
        {u"a", u"a b", false},
        {u"é", u"e", false},
        {u"é", u"é", true},
        {u"1", u"+01.00", true},
        {u"-0", u"0.0", true},
        {u"1", u"-1", false},
        {u".5", u"0.5", true},
        {u"100", u"1E2", true},
        {u"100", u"1.e+2", true},
        {u"0.001", u"1e-3", true},
        {u"10", u"1", false},
        {u"12345678901234567890.1", u"12345678901234567890.10", true},
        {u"12345678901234567890.1", u"12345678901234567890.2", false},
        {u"1e", u"1", false},
        {u"1e99999999999", u"1e99999999998", false},
        {u".", u"0", false},
        {u"1", u"true", true},
        {u"0", u"true", false},
        {u"1 2.0 x", u"1.0 2 x", true},
        {u"12:00:00.500", u"12:00:00.5", true},
        {u"12:00:00.000Z", u"12:00:00+00:00", true},
        {u"12:00:00.5", u"12:00:00.05", false},
        {u"12:00:00", u"12:00:00Z", false},
        {u"2026-05-01T12:00:00-00:00", u"2026-05-01T12:00:00.0Z", true},
        {u"x:a.0", u"x:a", false},
        {u"P1Y", u"P12M", true},
        {u"P1DT1H", u"PT25H0.0S", true},
        {u"P1M", u"PT1M", false},
        {u"PT0.5S", u"PT0S", false},
        {u"-P1D", u"P1D", false},
        {u"P", u"P0D", false},
        {u"P1", u"P1D", false},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Suite::AreEqualValues(row.a, row.b), row.areEqual) << std::u16string(row.a).size();
        EXPECT_EQ(Suite::AreEqualValues(row.b, row.a), row.areEqual) << std::u16string(row.b).size();
    }
}

TEST(SuiteValues, Nearest) {
    EXPECT_TRUE(Suite::AreEqualValues(u"1267.43233E12", u"1.2674324e+15"));
    EXPECT_TRUE(Suite::AreEqualValues(u"3.14159265358979323846", u"3.141592653589793"));
    EXPECT_FALSE(Suite::AreEqualValues(u"3.14159265358979323846", u"3.14159265358979"));
    EXPECT_FALSE(Suite::AreEqualValues(u"3.141592653589793", u"3.14159265358979323846"));
}

TEST(SuiteTrees, Difference) {
    struct Row {
        char const* original;
        char const* written;
        char const* difference;
    };
    Row const rows[] = {
        {"<a x='1' y='2'> <b/>t </a>", "<a y='2.0' x='1'><b></b> t</a>", ""},
        {"<p:a xmlns:p='u'/>", "<a xmlns='u'/>", ""},
        {"<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='b'/>", "<a/>",
         " is of the type '', not 'b'"},
        {"<a xmlns='u' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='b'/>",
         "<p:a xmlns:p='u' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:type='p:b'/>", ""},
        {"<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:noNamespaceSchemaLocation='b'/>", "<a/>",
         ""},
        {"<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:nil='false'/>", "<a/>", ""},
        {"<a xmlns:i='http://www.w3.org/2001/XMLSchema-instance' i:nil='1'/>", "<a/>", " is nil no more"},
        {"<a/>", "<b/>", ": a became b"},
        {"<a xmlns='u'/>", "<a/>", ": {u}a became a"},
        {"<a x='1'/>", "<a/>", "/@x is lost"},
        {"<a/>", "<a x='1'/>", "/@x was added"},
        {"<a xmlns:p='u' p:x='1'/>", "<a x='1'/>", "/@{u}x is lost"},
        {"<a x='1'/>", "<a x='2'/>", "/@x: '1' became '2'"},
        {"<a>t</a>", "<a>u</a>", " (a): 't' became 'u'"},
        {"<a><b/><c/></a>", "<a><c/><b/></a>", "/*[1]: b became c"},
        {"<a><b/><b/></a>", "<a><b/></a>", "/*[2]: b is lost"},
        {"<a><b/></a>", "<a><b/><c/></a>", "/*[2]: c was added"},
        {"<a><b/><b>1</b></a>", "<a><b/><b/></a>", "/*[2] (b): '1' became ''"},
    };
    for (Row const& row : rows) {
        BxXmlLib5::CXmlDocument original;
        BxXmlLib5::CXmlDocument written;
        original.LoadXml(row.original);
        written.LoadXml(row.written);
        EXPECT_EQ(Suite::Difference(*original.GetDocumentElement(), *written.GetDocumentElement()),
                  row.difference)
            << row.original;
    }
}

}  // namespace
