// The reader of Fast Infoset: a document in the format of ITU-T X.891 to a receiver.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "document/CDocumentReader.h"
#include "fastinfoset/CStringReader.h"
#include "fastinfoset/CVocabularyTable.h"

namespace BxXmlLib5 {

class CPeekedSource;

/// Parses one document, that is given whole or comes in slices. Elements, attributes, texts and namespace attributes
/// are told, and comments, instructions and references to entities where they are asked for; everything else, an
/// initial vocabulary included unless exactness is asked for, is read and dropped.
///
/// Where the octet with which an item begins has been read already, it is the argument.
class CFastInfosetReader : public CInstanceMonitor, public CDocumentReader {
public:
    CFastInfosetReader(CDocumentReceiver& receiver, DocumentMemory const& memory,
                       DocumentDetails details = {});
    ~CFastInfosetReader() override;

    /// Whether a document begins as Fast Infoset does.
    static bool Recognises(std::span<unsigned char const> beginning);

    /// A whole document. What follows the root is not looked at. A document whose first item is another has no
    /// root.
    /// @return false if the input does not begin as Fast Infoset does; nothing has changed then
    /// @throws CBxException for octets that are not in the format or break a limit
    bool Parse(std::span<unsigned char const> input);

    /// Begins with a document that comes in slices, which was recognised. Read() throws what Parse() does. It takes
    /// items ahead of the root, and comments and instructions behind it.
    /// @param source outlives the reader
    void Start(CPeekedSource& source);
    bool Read() override;
    void Pause() override { m_isPaused = true; }
    DocumentPlace Place() const override { return {.m_octet = m_input.Position()}; }

private:
    using Strings = FastInfoset::CVocabularyTable<std::u16string_view>;
    using NameParts = FastInfoset::CVocabularyTable<wstring const*>;
    struct PrefixedName {
        CXmlName const* m_name;
        wstring const* m_prefix;
    };
    using Names = FastInfoset::CVocabularyTable<PrefixedName>;

    /// A prefix, a namespace or a local name, of the name table.
    struct NamePart {
        wstring const& m_text;
        bool m_hasIndex = true;
    };

    void ReadStart();
    void SkipOptionalComponents();
    void SkipAdditionalData();
    void ReadInitialVocabulary();
    void SkipExternalVocabulary();
    void SkipOctetString();
    void ReadInitialName(NameParts& table);
    void ReadInitialString(Strings& table);
    void ReadInitialSurrogate(Names& names);
    void SkipNotations();
    void SkipUnparsedEntities();
    /// A system and a public identifier.
    /// @param present the octet whose bits say which of them are there
    void SkipIdentifiers(unsigned char present);

    void ReadDocumentChild();
    bool ReadItemOfDocument();
    void ReadItem(unsigned char first);
    bool ReadMarkup(unsigned char first);
    void ReadProcessingInstruction();
    void ReadComment();
    void ReadEntityReference(unsigned char first);
    void SkipDocumentType(unsigned char first);
    void ReadElement(unsigned char first);
    bool ReadAttributes();
    void ReadAttribute(unsigned char first);
    void ReadNamespaceAttribute(unsigned char first);
    void ReadCharacterChunk(unsigned char first);

    PrefixedName ReadLiteralName(unsigned char first, Names& names);
    PrefixedName FindName(Names const& names, std::uint64_t index);
    NamePart ReadNamePart(NameParts& table);
    NamePart ReadNamespaceName();
    NamePart ReadOtherName();
    std::u16string_view ReadOtherString();
    std::u16string_view ReadStringOnFirstBit(Strings& table);
    NamePart NoNamePart() const;

    /// The string that is meant; a new one is kept, in the table too if it says so.
    std::u16string_view Resolve(FastInfoset::StringOrIndex const& string, Strings& table);
    std::u16string_view PrefixOf(PrefixedName const& name) const;
    void CountName(PrefixedName const& name);
    void CountName(std::u16string_view name);
    std::u16string_view KeepInVocabulary(std::u16string_view text);
    void CountRepeated(std::size_t units);

    FastInfoset::CStringReader m_input;
    bool m_isPaused = false;
    bool m_hasRoot = false;
    bool m_isAtEnd = false;
    std::size_t m_repeatedUnits = 0;
    std::size_t m_repeatableUnits = 0;
    std::vector<DocumentAttribute> m_attributes;  // of the element that starts
    CTextStore m_vocabularyTexts;                 // that the tables refer to, unless texts are kept anyway
    std::size_t m_vocabularyOctets = 0;
    Names m_attributeNames;
    Strings m_attributeValues;
    Strings m_characterChunks;
    Names m_elementNames;
    NameParts m_localNames;
    NameParts m_namespaceNames;
    NameParts m_prefixes;
    NameParts m_otherNames;  // this and the next one only where markup is asked for
    Strings m_otherStrings;
};

}  // namespace BxXmlLib5
