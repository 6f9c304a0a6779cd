#include "writers/CStringBuffer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "platform/Utf.h"
#include "values/Utf8Conversion.h"

namespace BxXmlLib5 {

namespace {

constexpr std::size_t kChunkSize = 0xFFFF;

/// Of a chunk that is converted and used again: it stays in the fastest memory.
constexpr std::size_t kConvertedChunkSize = 4096;

/// The units that are replaced.
constexpr auto TableOf(std::u16string_view special) {
    std::array<bool, 64> table{};
    for (char16_t const c : special) table[c] = true;
    return table;
}

constexpr auto kInContent = TableOf(u"&<>\"\r\n");
constexpr auto kInExactValue = TableOf(u"&<>\"\r\n\t");

/// What looks for the units of a table.
template <auto const& kTable>
constexpr auto kIsIn = [](char16_t c) { return c < kTable.size() && kTable[c]; };

std::u16string_view Replacement(char16_t special, EOLType eolType) {
    switch (special) {
        case u'&':
            return u"&amp;";
        case u'<':
            return u"&lt;";
        case u'>':
            return u"&gt;";
        case u'"':
            return u"&quot;";
        case u'\n':
            return LineEnd(eolType);
        default:
            return {};  // CR
    }
}

/// Line ends and tabs, which an XML processor would normalise (XML 1.0, 2.11 and 3.3.3).
std::u16string_view ExactReplacement(char16_t special) {
    switch (special) {
        case u'\r':
            return u"&#13;";
        case u'\n':
            return u"&#10;";
        case u'\t':
            return u"&#9;";
        default:
            return Replacement(special, eol_LF);
    }
}

}  // namespace

std::u16string_view LineEnd(EOLType eolType) {
    switch (eolType) {
        case eol_CRLF:
            return u"\r\n";
        case eol_LF:
            return u"\n";
    }
    throw CBxException(u"Invalid EOL type.");
}

CStringBuffer::CStringBuffer() : CInstanceMonitor(u"CStringBuffer") {}
CStringBuffer::~CStringBuffer() = default;

void CStringBuffer::Append(std::size_t count, char16_t c) {
    for (; count > 0; --count) Append(c);
}

template <class IsSpecial, class Replacement>
void CStringBuffer::AppendReplaced(std::u16string_view text, IsSpecial isSpecial, Replacement replacement) {
    for (;;) {
        auto const special = std::find_if(text.begin(), text.end(), isSpecial);
        auto const plain = static_cast<std::size_t>(special - text.begin());
        Append(text.substr(0, plain));
        if (plain == text.size()) return;
        Append(replacement(*special));
        text.remove_prefix(plain + 1);
    }
}

void CStringBuffer::AppendEscaped(std::u16string_view text, EOLType eolType) {
    AppendReplaced(text, kIsIn<kInContent>, [eolType](char16_t c) { return Replacement(c, eolType); });
}

void CStringBuffer::AppendExactContent(std::u16string_view text, EOLType eolType) {
    AppendReplaced(text, kIsIn<kInContent>, [eolType](char16_t c) {
        return c == u'\r' ? ExactReplacement(c) : Replacement(c, eolType);
    });
}

void CStringBuffer::AppendExactValue(std::u16string_view value) {
    AppendReplaced(value, kIsIn<kInExactValue>, ExactReplacement);
}

void CStringBuffer::AppendAcrossChunks(std::u16string_view text) {
    while (!text.empty()) {
        if (m_used == m_capacity) StartChunk();
        std::size_t const fits = std::min(text.size(), m_capacity - m_used);
        Append(text.substr(0, fits));
        text.remove_prefix(fits);
    }
}

void CStringBuffer::StartChunk() {
    if (m_isConverted && m_used > 0) return ConvertChunk();
    std::size_t const size = m_isConverted ? kConvertedChunkSize : kChunkSize;
    auto units = std::make_unique_for_overwrite<char16_t[]>(size);
    bool const takesHalf = m_used > 0 && Utf::IsHighSurrogate(m_current[m_used - 1]);
    if (takesHalf) units[0] = m_current[m_used - 1];
    Adopt({std::move(units), size}, takesHalf ? 1 : 0);
    if (takesHalf) --m_chunks[m_chunks.size() - 2].m_capacity;
}

/// Makes room in the only chunk, where half of a surrogate pair stays for the other one.
void CStringBuffer::ConvertChunk() {
    char16_t const last = m_current[m_used - 1];
    bool const staysHalf = Utf::IsHighSurrogate(last);
    AppendUtf8({m_current, m_used - (staysHalf ? 1 : 0)});
    m_current[0] = last;
    m_used = staysHalf ? 1 : 0;
}

void CStringBuffer::AppendOctets(std::string_view octets) {
    if (m_used > 0) ConvertChunk();
    std::ranges::copy(octets, m_converted.Extend(octets.size()));
}

void CStringBuffer::AppendUtf8(std::u16string_view text) {
    std::size_t const size = CheckedUtf8Size(text);
    WriteUtf8(text, {m_converted.Extend(size), size});
}

CBinaryData CStringBuffer::TakeUtf8() {
    ForEachChunk([this](std::u16string_view chunk) { AppendUtf8(chunk); });
    CBinaryData octets = m_converted.Take();
    Clear();
    return octets;
}

void CStringBuffer::Adopt(Chunk chunk, std::size_t used) {
    Chunk const& last = m_chunks.emplace_back(std::move(chunk));
    m_current = last.m_units.get();
    m_capacity = last.m_capacity;
    m_used = used;
}

void CStringBuffer::Clear() {
    m_converted.Truncate(0);
    m_chunks.clear();
    m_used = 0;
    m_capacity = 0;
    m_current = nullptr;
}

std::size_t CStringBuffer::Size() const {
    std::size_t size = m_converted.Size();
    for (Chunk const& chunk : m_chunks) size += chunk.m_capacity;
    return size - (m_capacity - m_used);
}

std::u16string_view CStringBuffer::View() {
    if (m_chunks.size() > 1) {
        std::size_t const size = Size();
        auto joined = std::make_unique_for_overwrite<char16_t[]>(size);
        ForEachChunk([at = joined.get()](std::u16string_view chunk) mutable {
            at = std::copy(chunk.begin(), chunk.end(), at);
        });
        Clear();
        Adopt({std::move(joined), size}, size);
    }
    return {m_current, m_used};
}

wstring CStringBuffer::TakeString() {
    wstring result;
    result.reserve(Size());
    ForEachChunk([&result](std::u16string_view chunk) { result.append(chunk); });
    Clear();
    return result;
}

}  // namespace BxXmlLib5
