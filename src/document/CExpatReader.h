// The Expat adapter: XML text to a receiver.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "document/CAttributeDefaults.h"
#include "document/CDocumentReader.h"
#include "document/CEntities.h"
#include "document/CLineCounter.h"
#include "document/CTagNames.h"
#include "document/ExpatParser.h"

namespace BxXmlLib5 {

class COctetSource;
class CPeekedSource;

/// Parses one text, that is given whole or comes in slices. The callbacks run inside Expat, whose frames no
/// exception may cross: a failure in one stops the parser, further callbacks do nothing, and the caller gets what
/// was thrown.
class CExpatReader : public CInstanceMonitor, public CDocumentReader {
public:
    CExpatReader(CDocumentReceiver& receiver, DocumentMemory const& memory, SchemaType schemaType,
                 DocumentDetails details = {});
    ~CExpatReader() override;

    /// A whole text. One that ends inside an element, or has none, is no failure here.
    /// @throws CBxException for text that is not well-formed or breaks a limit
    void Parse(std::span<unsigned char const> input);

    /// Begins with a text that comes in slices. Read() throws what Parse() does, and refuses one that breaks off.
    /// @param source outlives the reader
    void Start(CPeekedSource& source);
    bool Read() override;
    void Pause() override { m_isPauseAsked = true; }
    bool PauseBehindSlice() override;
    DocumentPlace Place() const override;

private:
    struct Callbacks;

    struct ExpandedName {
        CXmlName const& m_name;
        std::u16string_view m_prefix;
    };

    void CheckDeclaration(std::span<unsigned char const> beginning) const;
    /// @param encoding null for what the input says
    void ParseAs(char16_t const* encoding, std::span<unsigned char const> input);
    /// Starts anew.
    void MakeParser(char16_t const* encoding);
    void ParseOpen(char16_t const* encoding, std::span<unsigned char const> input);
    bool ParseSlice(COctetSource& source);
    void KeepProlog(std::span<unsigned char const> octets);
    void TellOctets(std::span<unsigned char const> octets);
    void FinishStream();
    void PauseOutsideEntity();
    void CheckParsed(bool parsed);
    std::string_view Utf32Of(std::span<unsigned char const> beginning) const;
    void ParseConverted(std::string_view encoding, std::span<unsigned char const> input);
    std::unique_ptr<COctetSource> NewConvertedSource(std::string_view encoding, COctetSource& source,
                                                     std::span<unsigned char const> beginning);
    std::string DeclaredEncoding(std::span<unsigned char const> beginning);
    void ConvertLatin1(char16_t const* encoding);
    void PrepareOctets(std::span<unsigned char const> beginning);
    bool FindEncoding(wstring const& name, std::span<int, 256> map);
    ExpandedName SplitName(std::u16string_view expanded);
    ExpandedName SplitLocalName(wstring const& namespaceUri, std::u16string_view local);

    std::string_view InputFromHere() const;
    ExpandedName ElementName(char16_t const* expanded);
    std::size_t Line();
    std::uint64_t ByteIndex() const;
    void CountDefaulted(std::u16string_view value);
    void PassElement(char16_t const* const* attributes);
    void StartElement(char16_t const* name, char16_t const* const* attributes);
    void EndElement();
    void DeclareNamespace(char16_t const* prefix, char16_t const* namespaceUri);
    void AddText(std::u16string_view text);
    void FindSkippedInTag();
    void FindSkippedInDefaults(CAttributeDefaults::Defaults const& defaults,
                               std::vector<std::u16string_view>& specified, std::size_t line);
    bool IsDeclaration(std::u16string_view name) const;
    std::size_t CountSkipped(std::u16string_view literal, std::size_t line);
    void SkipReference(std::u16string_view name);
    void SkipEntity(std::u16string_view name, std::size_t line, std::size_t times = 1);
    void EndDocumentType();

    SchemaType m_schemaType;
    ExpatParser m_parser;
    std::unique_ptr<COctetSource> m_utf8;
    bool m_isUtf16 = false;
    bool m_hasMark = false;  // ahead of the text
    wstring m_unknownEncoding;
    std::string m_convertedEncoding;
    COctetSource* m_source = nullptr;  // if the text comes in slices
    CLineCounter m_lines;              // if it does not
    std::size_t m_mostOctetsOfToken = 0;
    std::uint64_t m_octets = 0;
    bool m_hasRoot = false;
    bool m_hasDocumentType = false;
    bool m_standsAlone = false;  // by its declaration, where markup is asked for
    CEntities m_entities;
    CAttributeDefaults m_defaults;
    wstring m_tag;
    bool m_hasDeclarations = false;  // the tag that comes next
    std::vector<AttributeLiteral> m_literals;
    std::optional<DocumentPlace> m_tagPlace;  // of the tag that is told, after Expat was asked for its text
    bool m_isInDocumentType = false;
    std::vector<unsigned char> m_prolog;  // what is ahead of the root, where markup is asked for
    std::size_t m_untoldOctets = 0;       // that still come, ahead of those that are told
    bool m_isPauseAsked = false;
    bool m_isPaused = false;
    bool m_isPausedBehindSlice = false;
    bool m_isAtEnd = false;
    CTagNames m_tagNames;
    wstring const* m_lastNamespace = nullptr;
    wstring const* m_noNamespace = nullptr;
    std::vector<DocumentAttribute> m_attributes;
    std::size_t m_defaultedUnits = 0;
    std::size_t m_mostDefaultedUnits = 0;
    std::exception_ptr m_failure;
    DocumentPlace m_failurePlace;
};

}  // namespace BxXmlLib5
