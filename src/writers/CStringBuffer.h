// The text of a document as it grows.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "fastinfoset/COctetBuffer.h"

namespace BxXmlLib5 {

/// @throws CBxException if the type is not one of the two
std::u16string_view LineEnd(EOLType eolType);

/// Text in chunks that are never moved, so that appending copies each unit once however long the document
/// gets. Or it is converted to UTF-8 chunk by chunk, so that no more than one is held as it stands.
class CStringBuffer : public CInstanceMonitor {
public:
    CStringBuffer();
    virtual ~CStringBuffer();

    /// Copies the text as it stands.
    void Append(std::u16string_view text) {
        if (text.size() > m_capacity - m_used) return AppendAcrossChunks(text);
        if (text.empty()) return;
        std::memcpy(m_current + m_used, text.data(), text.size() * sizeof(char16_t));
        m_used += text.size();
    }
    void Append(char16_t c) { Append(std::u16string_view(&c, 1)); }
    void Append(std::size_t count, char16_t c);

    /// Copies the text with markup escaped, CR dropped and each LF as the line end.
    /// @throws CBxException at an LF if eolType is not one of the two
    void AppendEscaped(std::u16string_view text, EOLType eolType);

    /// The same, but so that a parser gives back what was appended: a character reference stands for each CR of
    /// content, and for each CR, LF and tab of the value of an attribute.
    void AppendExactContent(std::u16string_view text, EOLType eolType);
    void AppendExactValue(std::u16string_view value);

    void Clear();

    /// To be called first where the text is wanted as UTF-8 alone. TakeUtf8() gives it then and nothing else, and
    /// what is appended may throw as that does.
    void ConvertAsItGrows() { m_isConverted = true; }

    /// Text that is UTF-8 already, then.
    void AppendOctets(std::string_view octets);

    /// What is converted already, and may be dropped: the rest follows it.
    std::span<unsigned char const> Octets() const { return m_converted.Octets(); }
    void DropOctets() { m_converted.Truncate(0); }

    /// The whole text as UTF-8, which is gone from the buffer.
    /// @throws CBxInvalidValueException if it has no such form; then it is of no use any more
    CBinaryData TakeUtf8();

    /// The whole text, which stays, joined in one chunk. The view lasts until the buffer changes.
    std::u16string_view View();
    wstring ToString() { return wstring(View()); }

    /// The whole text, which is gone from the buffer.
    wstring TakeString();

    /// Calls back with the text in pieces, none of which ends between the halves of a surrogate pair.
    template <class Out>
    void ForEachChunk(Out out) const {
        for (Chunk const& chunk : m_chunks) {
            bool const isLast = &chunk == &m_chunks.back();
            out(std::u16string_view(chunk.m_units.get(), isLast ? m_used : chunk.m_capacity));
        }
    }

    /// Units, or octets where they are UTF-8 already.
    std::size_t Size() const;

    std::size_t ChunkCount() const { return m_chunks.size(); }

private:
    struct Chunk {
        std::unique_ptr<char16_t[]> m_units;
        std::size_t m_capacity;  // all of it is used, but in the last chunk
    };

    template <class IsSpecial, class Replacement>
    void AppendReplaced(std::u16string_view text, IsSpecial isSpecial, Replacement replacement);
    void AppendAcrossChunks(std::u16string_view text);
    void StartChunk();
    void ConvertChunk();
    void AppendUtf8(std::u16string_view text);
    void Adopt(Chunk chunk, std::size_t used);

    bool m_isConverted = false;
    COctetBuffer m_converted;
    std::vector<Chunk> m_chunks;
    std::size_t m_used = 0;
    std::size_t m_capacity = 0;
    char16_t* m_current = nullptr;
};

}  // namespace BxXmlLib5
