// The test of what is written.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

#include "BxXmlLib5/writers/CXmlWriter.h"

namespace BxXmlLib5 {

/// What an element without prefix is in a format.
enum class Unprefixed {
    kIsDefault,        // in the default namespace, if there is one
    kIsInNoNamespace,  // whatever the default namespace is
};

/// Hands all that is written on to another writer, unless no parser would read it or it would come back as something
/// else. Then it throws CBxInvalidValueException for a character or a name, CBxInvalidNamespaceException for a
/// namespace, CBxInvalidStateException for the rest, and what was written is of no use any more.
///
/// Names are those of XML 1.0, fifth edition, less what Expat, which knows the fourth one, does not read.
class CWellFormedWriter final : public CXmlWriter {
public:
    /// @param writer it must not be written to by anybody else meanwhile
    CWellFormedWriter(CXmlWriter& writer, Unprefixed unprefixed);
    ~CWellFormedWriter() override;

    /// To be called at the end.
    void TestEnd() const;

    void SetDefaultNamespace(wstring const& namespaceUri) override;
    void AddNamespace(wstring const& alias, wstring const& namespaceUri) override;
    void WriteEndDocument() override;
    void WriteComment(wstring const& text) override;
    void WriteProcessingInstruction(wstring const& text) override;
    void WriteInLineSchema(wstring const& text) override;
    void WriteStartElement(wstring const& name, wstring const& namespaceUri) override;
    void WriteText(wstring const& text) override;
    void WriteEndElement() override;
    void WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) override;
    void WriteXsiType(wstring const& namespaceUri, wstring const& typeName) override;

private:
    struct Attribute {
        wstring m_name;
        wstring m_namespace;
    };

    void TestName(std::u16string_view name, char16_t const* what);
    bool IsReadAsName(std::u16string_view name);
    void TestNamespace(std::u16string_view namespaceUri);
    void TestDeclarations();
    void TestAttributes();
    void TestInLineSchema(wstring const& text) const;
    void AddAttribute(std::u16string_view name, std::u16string_view namespaceUri);
    void ThrowIfOpen() const;
    wstring Element() const;

    CXmlWriter& m_writer;
    Unprefixed m_unprefixed;
    bool m_hasRoot = false;
    wstring m_defaultNamespace;
    std::map<wstring, wstring> m_aliases;  // by namespace
    wstring m_names;                       // of the open elements, each behind the other
    std::vector<std::size_t> m_open;       // where each begins

    // Of the start tag that is open.
    std::size_t m_attributeCount = 0;
    std::vector<Attribute> m_attributes;  // more than there are, for the memory of their texts

    wstring m_lastNamespace;                  // that passed the test
    std::array<wstring, 64> m_readableNames;  // that Expat reads, each in a place that depends on its text
};

}  // namespace BxXmlLib5
