#include "BxXmlLib5/binding/CNamespaceAliasMap.h"

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// "uri=alias" of all entries in order, read without adding any.
std::string Entries(CNamespaceAliasMap const& map) {
    std::string entries;
    for (int i = 0; i < map.GetNamespaceCount(); ++i) {
        wstring const uri = map.GetNamespaceAt(i);
        entries += ToUtf8(uri + u"=" + map.GetAliasFromNamespace(uri.c_str())) + ";";
    }
    return entries;
}

TEST(CNamespaceAliasMap, IsOrderedByUnitsOfTheUri) {
    CNamespaceAliasMap map;
    map.Add(u"a", u"n");
    map.Add(u"b", u"\uFFFD");
    map.Add(u"c", u"\U00010000");  // begins with D800, so it comes before FFFD
    map.Add(u"d", u"M");
    map.Add(u"e", u"n/x");
    EXPECT_EQ(Entries(map), "M=d;n=a;n/x=e;\U00010000=c;\uFFFD=b;");
}

TEST(CNamespaceAliasMap, HoldsOneAliasForANamespace) {
    CNamespaceAliasMap map;
    map.Add(u"old", u"n");
    map.Add(u"new", u"n");
    map.Add(u"shared", u"y");
    map.Add(u"shared", u"x");
    EXPECT_EQ(Entries(map), "n=new;x=shared;y=shared;");
    EXPECT_EQ(map.GetNamespaceFromAlias(u"new"), u"n");
    EXPECT_EQ(map.GetNamespaceFromAlias(u"shared"), u"x");
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(u"old"), CBxException, "Namespace alias [old] not found");
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(u"n"), CBxException, "Namespace alias [n] not found");
    EXPECT_TRUE(map.DoesAliasExist(u"new"));
    EXPECT_FALSE(map.DoesAliasExist(u"old"));
    EXPECT_FALSE(map.DoesAliasExist(u"n"));
    EXPECT_TRUE(map.DoesNamespaceExist(u"n"));
    EXPECT_FALSE(map.DoesNamespaceExist(u"new"));
}

TEST(CNamespaceAliasMap, RemovesANamespaceIfItIsThere) {
    CNamespaceAliasMap map;
    map.Add(u"a", u"n");
    map.Add(u"b", u"m");
    map.RemoveNamespace(u"a");
    map.RemoveNamespace(u"absent");
    EXPECT_EQ(Entries(map), "m=b;n=a;");
    map.RemoveNamespace(u"m");
    EXPECT_EQ(Entries(map), "n=a;");
}

TEST(CNamespaceAliasMap, GivesAnAbsentNamespaceAnEmptyAlias) {
    CNamespaceAliasMap const map;
    EXPECT_FALSE(map.DoesAliasExist(u""));
    EXPECT_EQ(map.GetAliasFromNamespace(u"n"), u"");
    EXPECT_EQ(map.GetNamespaceCount(), 1);
    EXPECT_TRUE(map.DoesNamespaceExist(u"n"));
    EXPECT_TRUE(map.DoesAliasExist(u""));
    EXPECT_EQ(map.GetNamespaceFromAlias(u""), u"n");
}

TEST(CNamespaceAliasMap, TakesNullForTheEmptyText) {
    CNamespaceAliasMap map;
    map.Add(nullptr, nullptr);
    EXPECT_EQ(Entries(map), "=;");
    EXPECT_TRUE(map.DoesAliasExist(nullptr) && map.DoesNamespaceExist(nullptr));
    EXPECT_EQ(map.GetNamespaceFromAlias(nullptr) + map.GetAliasFromNamespace(nullptr), u"");
    map.RemoveNamespace(nullptr);
    EXPECT_EQ(Entries(map), "");
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(nullptr), CBxException, "Namespace alias [] not found");
}

TEST(CNamespaceAliasMap, RefusesAnIndexOutOfRange) {
    CNamespaceAliasMap map;
    EXPECT_BX_THROW(map.GetNamespaceAt(0), CBxInvalidParamException, "Index 0 is out of range, use 0 - -1");
    map.Add(u"a", u"n");
    map.Add(u"b", u"m");
    EXPECT_BX_THROW(map.GetNamespaceAt(-1), CBxInvalidParamException, "Index -1 is out of range, use 0 - 1");
    EXPECT_BX_THROW(map.GetNamespaceAt(2), CBxInvalidParamException, "Index 2 is out of range, use 0 - 1");
    EXPECT_EQ(map.GetNamespaceAt(1), u"n");
}

TEST(CNamespaceAliasMap, CopiesByValue) {
    CNamespaceAliasMap source;
    source.Add(u"a", u"n");
    CNamespaceAliasMap copy = source;
    copy.Add(u"b", u"m");
    EXPECT_EQ(Entries(source), "n=a;");
    source = copy;
    copy.RemoveNamespace(u"n");
    EXPECT_EQ(Entries(source), "m=b;n=a;");
}

}  // namespace
