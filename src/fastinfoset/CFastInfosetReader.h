// The reader of Fast Infoset: a document in the format of ITU-T X.891 into the tree.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "fastinfoset/CStringReader.h"
#include "fastinfoset/CVocabularyTable.h"

namespace BxXmlLib5 {

class CDocumentBuilder;
class CXmlElement;
struct CXmlName;

/// Parses one input into a tree. Elements, attributes, texts and the aliases of namespace attributes are
/// kept; everything else, an initial vocabulary included, is read and dropped.
///
/// Where the octet with which an item begins has been read already, it is the argument.
class CFastInfosetReader : public CInstanceMonitor {
public:
    explicit CFastInfosetReader(CDocumentBuilder& builder);
    virtual ~CFastInfosetReader();

    /// What follows the root is not looked at. A document whose first item is another has no root.
    /// @return false if the input does not begin as Fast Infoset does; nothing has changed then
    /// @throws CBxException for octets that are not in the format or break a limit
    bool Parse(std::span<unsigned char const> input);

private:
    using Strings = FastInfoset::CVocabularyTable<std::u16string_view>;
    using NameParts = FastInfoset::CVocabularyTable<wstring const*>;
    using Names = FastInfoset::CVocabularyTable<CXmlName const*>;

    /// A prefix, a namespace or a local name, of the name table.
    struct NamePart {
        wstring const& m_text;
        bool m_hasIndex = true;
    };

    void SkipOptionalComponents();
    void SkipAdditionalData();
    void SkipInitialVocabulary();
    void SkipOctetString();
    void SkipEncodedString();
    void SkipNameSurrogate();
    void SkipNotations();
    void SkipUnparsedEntities();
    /// A system and a public identifier.
    /// @param present the octet whose bits say which of them are there
    void SkipIdentifiers(unsigned char present);
    void SkipProcessingInstruction();
    void SkipComment();

    void ReadDocumentChild();
    void ReadItem(unsigned char first);
    void ReadElement(unsigned char first);
    void ReadAttributes(CXmlElement* element);
    void ReadAttribute(CXmlElement* element, unsigned char first);
    void ReadNamespaceAttribute(unsigned char first);
    void ReadCharacterChunk(unsigned char first);

    CXmlName const& ReadLiteralName(unsigned char first, Names& names);
    CXmlName const& FindName(Names const& names, std::uint64_t index);
    NamePart ReadNamePart(NameParts& table);
    NamePart ReadNamespaceName();
    NamePart NoNamePart() const;

    /// The string that is meant; a new one is kept, in the table too if it says so.
    std::u16string_view Resolve(FastInfoset::StringOrIndex const& string, Strings& table);
    void CountName(CXmlName const& name);
    void CountRepeated(std::size_t units);

    CDocumentBuilder& m_builder;
    FastInfoset::CStringReader m_input;
    std::size_t m_repeatableUnits = 0;
    Names m_attributeNames;
    Strings m_attributeValues;
    Strings m_characterChunks;
    Names m_elementNames;
    NameParts m_localNames;
    NameParts m_namespaceNames;
    NameParts m_prefixes;
};

}  // namespace BxXmlLib5
