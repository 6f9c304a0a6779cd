// Eight threads at once, each on objects of its own, with all that they share: tables of classes, compiled
// patterns, a context, parts of untyped content. The preset threads builds it for ThreadSanitizer.

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Gpx.h"
#include "binding/TestBinding.h"

namespace {

using namespace BxXmlLib5;
using namespace BxTest;

constexpr int kThreads = 8;
constexpr int kRounds = 3;

/// Lets all threads do the same at once, and expects the same of each.
void ExpectAlike(std::function<std::string()> const& work) {
    std::latch start(kThreads);
    std::vector<std::string> results(kThreads);
    {
        std::vector<std::jthread> threads;
        for (std::string& result : results) {
            threads.emplace_back([&] {
                start.arrive_and_wait();
                for (int round = 0; round < kRounds; ++round) result = work();
            });
        }
    }
    ASSERT_FALSE(results[0].empty());
    for (std::string const& result : results) EXPECT_EQ(result, results[0]);
}

TEST(Threads, ReadAndWriteGeneratedClasses) {
    ExpectAlike([] {
        Gpx::CGpx gpx, again;
        gpx.Load(BX_TRACK);
        CXmlSerializationContext const& shared = CXmlSerializationContext::GetDefaultContext();
        CBinaryData const packed = gpx.ToFastInfosetStream(fi_None, shared, cmp_GZip);
        again.FromXmlStream(packed, shared);
        EXPECT_EQ(again.ToText(), gpx.ToText());
        return gpx.ToText();
    });
}

TEST(Threads, AreToldWhatDoesNotFit) {
    ExpectAlike([] {
        try {
            Gpx::CGpx().Parse(
                "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='c'>"
                "<wpt lat='1' lon='2'/><wpt lat='91' lon='2'/></gpx>");
            return std::string();
        } catch (CBxException const& failure) {
            return ToUtf8(failure.GetReport());
        }
    });
}

TEST(Threads, ReadAndWriteClassesWithTablesOfTheirOwn) {
    TestClass const& type = Class("@k:text, a:number, b:{x:enum, y:text?}*, c:any?");
    ExpectAlike([&type] {
        TestObject object(type);
        Read(object, "<r k='1'><a>2.50</a><b><x>one</x></b><b><x>two</x><y>t</y></b></r>");
        return Written(object);
    });
}

TEST(Threads, ShareUntypedContent) {
    CElement source(u"e");
    source.FromXml(u"<e a='1'><f>text that has an allocation of its own</f><g xmlns='n'><h/></g></e>");
    ExpectAlike([&source] {
        CElement copy(source);
        return ToUtf8(copy.ToXml(true, false, eol_LF, CXmlSerializationContext::GetDefaultContext()));
    });
}

TEST(Threads, ShareCompiledPatterns) {
    CCompiledPattern const pattern(u"([a-z]+-)*[0-9]{2}", u"", u"code");
    ExpectAlike(
        [&pattern] { return std::string(pattern.MatchesWhole(u"ab-cd-12") ? "matches" : "does not match"); });
}

}  // namespace
