#include "BxXmlLib5/binding/CNamespaceAliasMap.h"

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// A map made by adding "alias=uri" in this order.
CNamespaceAliasMap MapOf(std::initializer_list<wstring> entries) {
    CNamespaceAliasMap map;
    for (wstring const& entry : entries) {
        std::size_t const at = entry.find(u'=');
        map.Add(entry.substr(0, at).c_str(), entry.substr(at + 1).c_str());
    }
    return map;
}

/// "alias=uri" of all entries in order, read without adding any.
std::string Entries(CNamespaceAliasMap const& map) {
    std::string entries;
    for (int i = 0; i < map.GetNamespaceCount(); ++i) {
        wstring const uri = map.GetNamespaceAt(i);
        entries += ToUtf8(map.GetAliasFromNamespace(uri.c_str()) + u"=" + uri) + " ";
    }
    return entries;
}

TEST(CNamespaceAliasMap, HoldsOneAliasForANamespaceOrderedByUnitsOfTheUri) {
    // U+10000 begins with D800, so it comes before U+FFFD.
    CNamespaceAliasMap map = MapOf({u"old=n", u"b=\uFFFD", u"two=x", u"c=\U00010000", u"two=M", u"new=n"});
    EXPECT_EQ(Entries(map), "two=M new=n two=x c=\U00010000 b=\uFFFD ");
    EXPECT_EQ(map.GetNamespaceFromAlias(u"new") + map.GetNamespaceFromAlias(u"two"), u"nM");
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(u"old"), CBxException, "Namespace alias [old] not found");
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(u"n"), CBxException, "Namespace alias [n] not found");
    EXPECT_TRUE(map.DoesAliasExist(u"new") && !map.DoesAliasExist(u"old") && !map.DoesAliasExist(u"n"));
    EXPECT_TRUE(map.DoesNamespaceExist(u"n") && !map.DoesNamespaceExist(u"new"));
}

TEST(CNamespaceAliasMap, RemovesANamespaceIfItIsThere) {
    CNamespaceAliasMap const source = MapOf({u"a=n", u"b=m"});
    CNamespaceAliasMap map = source;
    for (char16_t const* uri : {u"a", u"absent", u"m"}) map.RemoveNamespace(uri);
    EXPECT_EQ(Entries(map), "a=n ");
    EXPECT_EQ(Entries(source), "b=m a=n ");
}

TEST(CNamespaceAliasMap, GivesAnAbsentNamespaceAnEmptyAlias) {
    CNamespaceAliasMap const map;
    EXPECT_FALSE(map.DoesNamespaceExist(u"n") || map.DoesAliasExist(u""));
    EXPECT_EQ(map.GetNamespaceCount(), 0);
    EXPECT_EQ(map.GetAliasFromNamespace(u"n"), u"");
    EXPECT_TRUE(map.DoesNamespaceExist(u"n") && map.DoesAliasExist(u""));
    EXPECT_EQ(map.GetNamespaceFromAlias(u""), u"n");
}

TEST(CNamespaceAliasMap, TakesNullForTheEmptyText) {
    CNamespaceAliasMap map;
    map.Add(nullptr, nullptr);
    EXPECT_EQ(Entries(map), "= ");
    EXPECT_TRUE(map.DoesAliasExist(nullptr) && map.DoesNamespaceExist(nullptr));
    EXPECT_EQ(map.GetNamespaceFromAlias(nullptr) + map.GetAliasFromNamespace(nullptr), u"");
    map.RemoveNamespace(nullptr);
    EXPECT_BX_THROW(map.GetNamespaceFromAlias(nullptr), CBxException, "Namespace alias [] not found");
}

TEST(CNamespaceAliasMap, RefusesAnIndexOutOfRange) {
    CNamespaceAliasMap const map = MapOf({u"a=n", u"b=m"});
    EXPECT_BX_THROW(map.GetNamespaceAt(-1), CBxInvalidParamException, "Index -1 is out of range, use 0 - 1");
    EXPECT_BX_THROW(map.GetNamespaceAt(2), CBxInvalidParamException, "Index 2 is out of range, use 0 - 1");
    EXPECT_BX_THROW(MapOf({}).GetNamespaceAt(0), CBxInvalidParamException,
                    "Index 0 is out of range, use 0 - -1");
}

}  // namespace
