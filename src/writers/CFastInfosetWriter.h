// The writer of Fast Infoset.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "document/CDocumentReceiver.h"
#include "fastinfoset/COctetBuffer.h"
#include "fastinfoset/CVocabularyIndex.h"
#include "fastinfoset/Format.h"
#include "writers/CElementWriter.h"

namespace BxXmlLib5 {

/// Writes one document of ITU-T X.891: elements, attributes and text, all strings in UTF-8. Comments and the
/// in-line schema are left out, an instruction too, but it closes a start tag that is open. So does any text,
/// even the empty one.
///
/// Namespace attributes declare what the root declares; elsewhere a prefix stands in names alone. The one that
/// WriteXsiType() puts into a value is declared too, on its element.
///
/// A name, alias or namespace with an unpaired surrogate, which has no UTF-8 form, throws
/// CBxInvalidValueException, and so does text; an attribute value with one is written as the empty value.
/// After a throw for what was half written the document is of no use.
class CFastInfosetWriter : public CElementWriter {
public:
    CFastInfosetWriter();
    ~CFastInfosetWriter() override;

    /// Begins the document; one that was written before is dropped.
    /// @param declaration the XML declaration ahead of it, none for a value outside the enumeration
    void WriteStartDocument(FInfoDecl declaration);

    /// The document so far, up to the last start tag that is closed.
    CBinaryData GetBinaryData() const;

    /// The document so far, which is gone from the writer.
    CBinaryData TakeBinaryData() { return m_output.Take(); }

    /// The document since the last DropOctets(): for one that is written piece by piece.
    std::span<unsigned char const> Octets() const { return m_output.Octets(); }
    void DropOctets() { m_output.Truncate(0); }

    /// For a document of any size: from now on the tables of values and of text take some 65,000 entries at most, so
    /// that who writes it and who reads it need little memory.
    void LimitTables() { m_mostShortTexts = 1 << 16; }

    /// Writes a start tag with its attributes, in place of WriteStartElement() and WriteAttribute(), with prefixes and
    /// namespace attributes as the caller has them.
    /// @param declarations prefixes and namespaces
    /// @throws CBxInvalidValueException for an attribute value with an unpaired surrogate, too
    template <class Declarations>
    void WriteStartTag(DocumentElement const& element, Declarations const& declarations) {
        BeginTag(element, !declarations.empty());
        for (auto const& [alias, namespaceUri] : declarations) WriteNamespaceAttribute(alias, namespaceUri);
        FinishTag(element, !declarations.empty());
    }

    void WriteEndDocument() override;
    void WriteComment(wstring const& text) override;
    void WriteProcessingInstruction(wstring const& text) override;
    void WriteInLineSchema(wstring const& text) override;
    void WriteStartElement(wstring const& name, wstring const& namespaceUri) override;
    void WriteText(wstring const& text) override;
    void WriteEndElement() override;
    void WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) override;

private:
    /// A name in a namespace, both of which may be empty, and what it has been written with.
    struct Name {
        wstring m_namespace;
        wstring m_localName;
        CNamespaceScopes::Handle m_scope = nullptr;  // of the namespace, null if it is not known
        wstring m_prefix;
        std::uint32_t m_index = 0;  // 0 if it is not known
    };
    /// The names that were written last, each in a place that depends on its text.
    using RecentNames = std::array<Name, 32>;

    struct Attribute {
        Name m_name;  // without the texts if there is an index
        wstring m_value;
    };

    void BeginTag(DocumentElement const& element, bool declares);
    void FinishTag(DocumentElement const& element, bool declares);
    void WriteNamespaceAttribute(std::u16string_view alias, std::u16string_view namespaceUri);
    static Name& Recall(RecentNames& names, CXmlName const& name, std::u16string_view prefix);

    wstring DeclaredPrefix(wstring const& namespaceUri) override;
    void CloseStartTag();
    void TakeElementPrefix();
    static Name& Recall(RecentNames& names, std::u16string_view namespaceUri, std::u16string_view localName);
    void TakePrefix(Name& name);
    bool WriteNamespaceAttributes(unsigned first);
    void PadTerminator();

    template <class IndexForms>
    void WriteName(FastInfoset::CNameIndex& names, FastInfoset::OctetPattern const& literal, unsigned first,
                   IndexForms const& indexForms, Name& name);
    void WriteAttributeName(Name& name);
    std::uint32_t WriteIdentifyingString(FastInfoset::CTextIndex& table, std::u16string_view text);
    std::uint32_t WriteLiteral(FastInfoset::CTextIndex& table, std::u16string_view text);
    void WriteValue(std::u16string_view value);
    void WriteChunk(std::u16string_view text);
    template <class LengthForms>
    void WriteUtf8String(unsigned first, LengthForms const& lengthForms, std::u16string_view text,
                         std::size_t size);

    COctetBuffer m_output;
    std::size_t m_mostShortTexts = FastInfoset::kMaxIndex;
    bool m_pendingTerminator = false;  // a terminator waits for another one to share its octet

    RecentNames m_recentElements;
    RecentNames m_recentAttributes;

    // Of the start tag that is open.
    Name* m_element = nullptr;
    bool m_hasElementPrefix = false;
    std::size_t m_attributeCount = 0;
    std::vector<Attribute> m_attributes;  // more than there are, for the memory of their texts
    std::vector<std::pair<wstring, wstring>> m_declarations;  // alias and URI, beside those of the root

    FastInfoset::CNameIndex m_attributeNames;
    FastInfoset::CShortTextIndex m_attributeValues;
    FastInfoset::CShortTextIndex m_characterChunks;
    FastInfoset::CNameIndex m_elementNames;
    FastInfoset::CTextIndex m_localNames;
    FastInfoset::CTextIndex m_namespaceNames;
    FastInfoset::CTextIndex m_prefixes;
};

}  // namespace BxXmlLib5
