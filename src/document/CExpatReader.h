// The Expat adapter: XML text into the tree of a document.
#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <span>
#include <string_view>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/platform/Text.h"
#include "document/CLineCounter.h"

struct XML_ParserStruct;

namespace BxXmlLib5 {

class CDocumentBuilder;
struct CXmlName;

/// Parses one text into a tree. The callbacks run inside Expat, whose frames no exception may cross: a
/// failure in one stops the parser, further callbacks do nothing, and Parse() throws it on.
class CExpatReader : public CInstanceMonitor {
public:
    CExpatReader(CDocumentBuilder& builder, SchemaType schemaType);
    virtual ~CExpatReader();

    /// An input that ends inside an element, or has none, is no failure here.
    /// @throws CBxException for text that is not well-formed or breaks a limit
    void Parse(std::span<unsigned char const> input);

private:
    struct Callbacks;

    using Parser = std::unique_ptr<XML_ParserStruct, void (*)(XML_ParserStruct*)>;

    /// @param encoding null for what the input says
    void ParseAs(char16_t const* encoding, std::span<unsigned char const> input);
    /// Starts anew.
    /// @return the parser that m_parser refers to
    Parser MakeParser(char16_t const* encoding, std::span<unsigned char const> input);
    /// @return false if Expat refuses the input, as it does one that breaks off
    bool ParseWhole(char16_t const* encoding, std::span<unsigned char const> input);
    void ParseOpen(char16_t const* encoding, std::span<unsigned char const> input);
    bool ParseInSlices(std::span<unsigned char const> input);
    std::size_t Line();
    CXmlName const& SplitName(std::u16string_view expanded);

    void CountDefaulted(std::u16string_view value);
    void StartElement(char16_t const* name, char16_t const* const* attributes);
    void EndElement();
    void DeclareNamespace(char16_t const* prefix, char16_t const* namespaceUri);
    void AddText(std::u16string_view text);
    void DeclareEntity(std::u16string_view value);

    CDocumentBuilder& m_builder;
    SchemaType m_schemaType;
    XML_ParserStruct* m_parser = nullptr;
    CLineCounter m_lines;
    wstring const* m_lastNamespace = nullptr;
    wstring const* m_noNamespace = nullptr;
    int m_nestingEntities = 0;
    int m_mostNestingEntities = 0;
    std::size_t m_defaultedUnits = 0;
    std::size_t m_mostDefaultedUnits = 0;
    std::exception_ptr m_failure;
};

}  // namespace BxXmlLib5
