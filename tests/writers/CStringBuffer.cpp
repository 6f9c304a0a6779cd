#include "writers/CStringBuffer.h"

#include <random>

#include "support/Expect.h"
#include "support/FailingNew.h"
#include "support/Octets.h"

using namespace BxXmlLib5;

namespace {

constexpr std::size_t kChunk = 65'535;

/// A text that repeats late, so that a lost or doubled piece shows, with units of value 0 and none that is
/// escaped.
wstring Sample(std::size_t size) {
    wstring text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char16_t>(i % 7 == 0 ? 0 : 0x100 + i % 30'011);
    return text;
}

/// Appends in one of the ways that there are, to the buffer and to what it should hold.
void AppendByChance(std::mt19937& random, CStringBuffer& buffer, wstring& expected) {
    // Mostly up to the border of a chunk, or a little beside it.
    std::size_t const space = kChunk - expected.size() % kChunk;
    wstring const text =
        Sample(random() % 3 == 0 ? random() % 9 : space - std::min<std::size_t>(space, random() % 9));
    std::size_t const way = random() % 4;
    if (way == 0) buffer.Append(text);
    if (way == 1) buffer.AppendEscaped(text, eol_LF);
    for (char16_t const unit : way == 2 ? text : u"") buffer.Append(unit);
    if (way == 3) buffer.AppendEscaped(u"&<\n\r>\"x", eol_CRLF), buffer.Append(3, u'\t');
    expected += way == 3 ? u"&amp;&lt;\r\n&gt;&quot;x\t\t\t" : text;
}

TEST(CStringBuffer, HoldsWhatWasAppended) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::mt19937 random(seed);
        CStringBuffer buffer;
        wstring expected;
        for (int i = 0; i < 30; ++i) {
            AppendByChance(random, buffer, expected);
            std::size_t const what = random() % 12;
            if (what == 0) {
                EXPECT_TRUE(buffer.TakeString() == expected) << seed;
            } else if (what == 1) {
                buffer.Clear();
            } else if (what < 5) {
                EXPECT_TRUE(buffer.ToString() == expected) << seed;
                EXPECT_LE(buffer.ChunkCount(), 1U);  // they are joined
            }
            if (what > 1) continue;
            EXPECT_EQ(buffer.ChunkCount(), 0U);
            expected.clear();
        }
        EXPECT_TRUE(buffer.ToString() == expected) << seed;
    }
}

TEST(CStringBuffer, ConvertsWhatWasAppended) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::mt19937 random(seed);
        CStringBuffer buffer;
        buffer.ConvertAsItGrows();
        for (int document = 0; document < 2; ++document) {
            wstring expected;
            for (int i = 0; i < 300; ++i) {
                // The halves of a pair in two texts.
                wstring const first = Sample(random() % 90) + u'\xD83D';
                wstring const second = u'\xDE00' + wstring(random() % 99, u'x');
                buffer.Append(first);
                buffer.Append(second);
                expected += first + second;
                EXPECT_EQ(buffer.ChunkCount(), 1U);
            }
            EXPECT_TRUE(FromUtf8(BxTest::AsText(buffer.TakeUtf8())) == expected) << seed;
        }
    }
}

TEST(CStringBuffer, HoldsABeginningIfMemoryRunsOut) {
    wstring const expected = Sample(6 * kChunk + 7);
    bool isComplete = false;
    for (int allocations = 0; !isComplete; ++allocations) {
        CStringBuffer buffer;
        BxTest::t_allocationsLeft = allocations;
        try {
            buffer.Append(std::u16string_view(expected).substr(0, 2 * kChunk));
            buffer.View();
            buffer.Append(std::u16string_view(expected).substr(2 * kChunk));
            buffer.View();
            isComplete = true;
        } catch (std::bad_alloc const&) {
        }
        BxTest::t_allocationsLeft = -1;
        wstring const held = buffer.ToString();
        EXPECT_TRUE(expected.starts_with(held)) << allocations;
        buffer.Append(std::u16string_view(expected).substr(held.size()));
        EXPECT_TRUE(buffer.TakeString() == expected) << allocations;
        ASSERT_LT(allocations, 30);
    }
}

TEST(CStringBuffer, EscapesMarkupAndConvertsLineEnds) {
    wstring text = u"&<>\"'&amp;\r\n\r\n";
    wstring expected = u"&amp;&lt;&gt;&quot;'&amp;amp;\r\n\r\n";
    for (char16_t unit = 0; unit < 0xFFFF; ++unit) {
        if (wstring(u"&<>\"\r\n").find(unit) == wstring::npos) text += unit, expected += unit;
    }
    CStringBuffer buffer;
    buffer.AppendEscaped(text, eol_CRLF);
    EXPECT_TRUE(buffer.ToString() == expected);
}

TEST(CStringBuffer, MissesALineEndOnlyAtALineFeed) {
    CStringBuffer buffer;
    buffer.AppendEscaped(u"a\r<", static_cast<EOLType>(2));
    EXPECT_BX_THROW((buffer.AppendEscaped(u"b&\nc", static_cast<EOLType>(2)), 0), CBxException,
                    "Invalid EOL type.");
    EXPECT_EQ(buffer.ToString(), u"a&lt;b&amp;");
}

}  // namespace
