#include "writers/CStringBuffer.h"

#include "support/Expect.h"

using namespace BxXmlLib5;
using namespace std::string_literals;

namespace {

constexpr std::size_t kChunk = 65'535;

/// A text that is no repetition of one unit, so that a lost or doubled piece shows.
wstring Sample(std::size_t size) {
    wstring text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char16_t>(u'\u0100' + i % 30'011);
    return text;
}

wstring Escaped(std::u16string_view text, EOLType eol) {
    CStringBuffer buffer;
    buffer.AppendEscaped(text, eol);
    return buffer.ToString();
}

TEST(CStringBuffer, StartsAChunkWhenTheLastIsFull) {
    struct Row {
        std::size_t m_size;
        std::size_t m_chunks;
    };
    for (Row const& row : {Row{0, 0},
                           {1, 1},
                           {kChunk - 1, 1},
                           {kChunk, 1},
                           {kChunk + 1, 2},
                           {2 * kChunk, 2},
                           {2 * kChunk + 1, 3}}) {
        wstring const text = Sample(row.m_size);
        CStringBuffer whole;
        whole.Append(text);
        EXPECT_EQ(whole.ChunkCount(), row.m_chunks) << row.m_size;
        CStringBuffer units;
        for (char16_t const unit : text) units.Append(unit);
        EXPECT_EQ(units.ChunkCount(), row.m_chunks) << row.m_size;
        CStringBuffer escaped;
        escaped.AppendEscaped(text, eol_LF);
        EXPECT_EQ(escaped.ChunkCount(), row.m_chunks) << row.m_size;
        CStringBuffer run;
        run.Append(row.m_size, u'\t');
        EXPECT_EQ(run.ChunkCount(), row.m_chunks) << row.m_size;
        EXPECT_TRUE(whole.ToString() == text && units.ToString() == text && escaped.ToString() == text);
        EXPECT_TRUE(run.ToString() == wstring(row.m_size, u'\t'));
    }
}

TEST(CStringBuffer, CarriesAnyAppendAcrossAChunkBorder) {
    wstring const straddling = u"&<\n\r>\"&x";
    for (std::size_t before = kChunk - 9; before <= kChunk + 1; ++before) {
        wstring const head = Sample(before);
        CStringBuffer buffer;
        buffer.Append(head);
        buffer.Append(u"plain");
        buffer.AppendEscaped(straddling, eol_CRLF);
        buffer.Append(3, u'\t');
        EXPECT_TRUE(buffer.ToString() == head + u"plain&amp;&lt;\r\n&gt;&quot;&amp;x\t\t\t") << before;
    }
}

TEST(CStringBuffer, JoinsItsChunksOnceAndGoesOn) {
    wstring expected = Sample(3 * kChunk + 100);
    CStringBuffer buffer;
    buffer.Append(expected);
    EXPECT_EQ(buffer.ChunkCount(), 4U);
    EXPECT_TRUE(buffer.ToString() == expected);
    EXPECT_EQ(buffer.ChunkCount(), 1U);
    EXPECT_TRUE(buffer.ToString() == expected);
    for (char16_t const* more : {u"more", u"", u"&"}) {
        buffer.AppendEscaped(more, eol_LF);
        expected += *more == u'&' ? u"&amp;" : more;
        EXPECT_EQ(buffer.ChunkCount(), 2U);
    }
    wstring const tail = Sample(kChunk);
    buffer.Append(tail);
    EXPECT_EQ(buffer.ChunkCount(), 3U);
    EXPECT_TRUE(buffer.ToString() == expected + tail);
    EXPECT_EQ(buffer.ChunkCount(), 1U);
}

TEST(CStringBuffer, GoesOnInASingleChunkAfterARead) {
    CStringBuffer buffer;
    buffer.Append(u"ab");
    EXPECT_EQ(buffer.ToString(), u"ab");
    buffer.Append(u'c');
    EXPECT_EQ(buffer.ChunkCount(), 1U);
    EXPECT_EQ(buffer.ToString(), u"abc");
}

TEST(CStringBuffer, IsEmptiedAndUsedAgain) {
    for (std::size_t size : {std::size_t{0}, std::size_t{5}, kChunk, 2 * kChunk + 7}) {
        wstring const text = Sample(size);
        CStringBuffer buffer;
        buffer.Append(text);
        EXPECT_TRUE(buffer.TakeString() == text) << size;
        EXPECT_EQ(buffer.ChunkCount(), 0U);
        EXPECT_EQ(buffer.ToString(), u"");
        buffer.Append(text);
        buffer.Clear();
        EXPECT_EQ(buffer.ChunkCount(), 0U);
        buffer.Append(u"again");
        EXPECT_EQ(buffer.ToString(), u"again");
    }
}

TEST(CStringBuffer, EscapesMarkupAndConvertsLineEnds) {
    struct Row {
        wstring m_text;
        wstring m_lf;
        wstring m_crlf;
    };
    Row const rows[] = {
        {u"&<>\"'", u"&amp;&lt;&gt;&quot;'", u"&amp;&lt;&gt;&quot;'"},
        {u"a&b<c>d\"e", u"a&amp;b&lt;c&gt;d&quot;e", u"a&amp;b&lt;c&gt;d&quot;e"},
        {u"&amp;&&", u"&amp;amp;&amp;&amp;", u"&amp;amp;&amp;&amp;"},
        {u"a\r\nb", u"a\nb", u"a\r\nb"},
        {u"\n\n", u"\n\n", u"\r\n\r\n"},
        {u"a\rb\r", u"ab", u"ab"},
        {u"\n\r\r\n", u"\n\n", u"\r\n\r\n"},
        {u"\r", u"", u""},
        {u"\0a\0<\0"s, u"\0a\0&lt;\0"s, u"\0a\0&lt;\0"s},
        {u"\u0126\u013C\u0A0D\u3C26\xD800\xFFFF", u"", u""},  // units whose low octets are special
    };
    for (Row const& row : rows) {
        bool const plain = row.m_text.back() == u'\uFFFF';
        EXPECT_EQ(Escaped(row.m_text, eol_LF), plain ? row.m_text : row.m_lf);
        EXPECT_EQ(Escaped(row.m_text, eol_CRLF), plain ? row.m_text : row.m_crlf);
    }
    for (char16_t unit = 0; unit < 0x100; ++unit) {
        if (std::u16string_view(u"&<>\"\r\n").find(unit) != std::u16string_view::npos) continue;
        EXPECT_EQ(Escaped(wstring(2, unit), eol_CRLF), wstring(2, unit)) << unsigned{unit};
    }
}

TEST(CStringBuffer, MissesALineEndOnlyAtALineFeed) {
    for (int type : {-1, 2}) {
        auto const eol = static_cast<EOLType>(type);
        CStringBuffer buffer;
        buffer.AppendEscaped(u"a\r<", eol);
        EXPECT_BX_THROW((buffer.AppendEscaped(u"b&\nc", eol), 0), CBxException, "Invalid EOL type.");
        EXPECT_EQ(buffer.ToString(), u"a&lt;b&amp;");
        buffer.AppendEscaped(u"d\n", eol_LF);
        EXPECT_EQ(buffer.ToString(), u"a&lt;b&amp;d\n");
    }
}

TEST(CStringBuffer, KeepsUnitsOfValueZero) {
    wstring const text = u"\0a\0"s;
    CStringBuffer buffer;
    buffer.Append(text);
    EXPECT_EQ(buffer.ToString(), text);
    buffer.Append(wstring(kChunk, u'\0'));
    EXPECT_TRUE(buffer.ToString() == text + wstring(kChunk, u'\0'));
}

}  // namespace
