#include "writers/CStringBuffer.h"

#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

constexpr std::size_t kChunk = 65'535;

/// A text that repeats late, so that a lost or doubled piece shows, with units of value 0 and none that is
/// escaped.
wstring Sample(std::size_t size) {
    wstring text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char16_t>(i % 7 == 0 ? 0 : 0x100 + i % 30'011);
    return text;
}

TEST(CStringBuffer, StartsAChunkWhenTheLastIsFull) {
    for (std::size_t size : {std::size_t{0}, kChunk, kChunk + 1, 2 * kChunk + 1}) {
        wstring const text = Sample(size);
        CStringBuffer whole, units, escaped, run;
        whole.Append(text);
        for (char16_t const unit : text) units.Append(unit);
        escaped.AppendEscaped(text, eol_LF);
        run.Append(size, u'\t');
        for (CStringBuffer* buffer : {&whole, &units, &escaped, &run}) {
            EXPECT_EQ(buffer->ChunkCount(), (size + kChunk - 1) / kChunk) << size;
            EXPECT_TRUE(buffer->ToString() == (buffer == &run ? wstring(size, u'\t') : text)) << size;
            EXPECT_TRUE(buffer->TakeString() == (buffer == &run ? wstring(size, u'\t') : text)) << size;
            EXPECT_EQ(buffer->ChunkCount(), 0U);
        }
    }
}

TEST(CStringBuffer, CarriesAnyAppendAcrossAChunkBorder) {
    for (std::size_t before = kChunk - 40; before <= kChunk; ++before) {
        wstring const head = Sample(before);
        CStringBuffer buffer;
        buffer.Append(head);
        buffer.Append(u"plain");
        buffer.AppendEscaped(u"&<\n\r>\"&x", eol_CRLF);
        buffer.Append(3, u'\t');
        EXPECT_TRUE(buffer.ToString() == head + u"plain&amp;&lt;\r\n&gt;&quot;&amp;x\t\t\t") << before;
    }
}

TEST(CStringBuffer, JoinsItsChunksOnceAndGoesOn) {
    wstring expected = Sample(2 * kChunk + 100);
    CStringBuffer buffer;
    buffer.Append(expected);
    for (wstring const& more : {Sample(5), Sample(kChunk), wstring()}) {
        EXPECT_TRUE(buffer.ToString() == expected && buffer.ToString() == expected);
        EXPECT_EQ(buffer.ChunkCount(), 1U);
        buffer.AppendEscaped(more, eol_LF);
        expected += more;
        EXPECT_EQ(buffer.ChunkCount(), more.empty() ? 1U : 2U);
    }
    buffer.Clear();
    EXPECT_EQ(buffer.ChunkCount(), 0U);
    buffer.Append(u"again");
    EXPECT_EQ(buffer.ToString(), u"again");
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
