#include "BxXmlLib5/binding/CNamespaceAliasMap.h"

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// "alias=uri" of all entries in order, read without adding any.
std::string Entries(CNamespaceAliasMap const& map) {
    wstring entries;
    for (int i = 0; i < map.GetNamespaceCount(); ++i) {
        wstring const uri = map.GetNamespaceAt(i);
        entries += map.GetAliasFromNamespace(uri.c_str()) + u"=" + uri + u" ";
    }
    return ToUtf8(entries);
}

TEST(CNamespaceAliasMap, HoldsOneAliasForANamespaceOrderedByUnitsOfTheUri) {
    CNamespaceAliasMap map;
    map.Add(u"old", u"n");
    map.Add(u"b", u"\uFFFD");
    map.Add(u"two", u"x");
    map.Add(u"c", u"\U00010000");  // begins with D800, so it comes before U+FFFD
    map.Add(u"two", u"M");
    map.Add(u"new", u"n");
    EXPECT_EQ(Entries(map), "two=M new=n two=x c=\U00010000 b=\uFFFD ");
    EXPECT_EQ(map.GetNamespaceFromAlias(u"new") + map.GetNamespaceFromAlias(u"two"), u"nM");
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(u"old"), CBxException, "Namespace alias [old] not found");
    EXPECT_TRUE(map.DoesAliasExist(u"new") && !map.DoesAliasExist(u"old") && !map.DoesAliasExist(u"n"));
    EXPECT_TRUE(map.DoesNamespaceExist(u"n") && !map.DoesNamespaceExist(u"new"));
    for (char16_t const* uri : {u"two", u"absent", u"M", u"\uFFFD", u"\U00010000"}) map.RemoveNamespace(uri);
    EXPECT_EQ(Entries(map), "new=n two=x ");
    EXPECT_BX_THROW(map.GetNamespaceAt(-1), CBxInvalidParamException, "Index -1 is out of range, use 0 - 1");
    EXPECT_BX_THROW(map.GetNamespaceAt(2), CBxInvalidParamException, "Index 2 is out of range, use 0 - 1");
}

TEST(CNamespaceAliasMap, GivesAnAbsentNamespaceAnEmptyAlias) {
    CNamespaceAliasMap const map;
    EXPECT_EQ(map.GetAliasFromNamespace(u"n"), u"");
    EXPECT_TRUE(map.DoesNamespaceExist(u"n") && map.DoesAliasExist(u""));
    EXPECT_EQ(Entries(map), "=n ");
}

TEST(CNamespaceAliasMap, TakesNullForTheEmptyText) {
    CNamespaceAliasMap map;
    map.Add(nullptr, nullptr);
    EXPECT_EQ(Entries(map), "= ");
    EXPECT_TRUE(map.DoesAliasExist(nullptr) && map.DoesNamespaceExist(nullptr));
    map.RemoveNamespace(nullptr);
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(nullptr), CBxException, "Namespace alias [] not found");
}

}  // namespace
