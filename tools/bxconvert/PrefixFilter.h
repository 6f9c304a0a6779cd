// The prefixes of Fast Infoset and where they are declared.
#pragma once

#include <string_view>
#include <vector>

#include "document/CDocumentReceiver.h"
#include "document/CNameTable.h"

namespace BxConvert {

/// Fast Infoset may leave declarations out, and give names without the prefixes that they need. Adds both where
/// they are missing, so that what it tells is as XML text has it.
class PrefixFilter : public BxXmlLib5::CDocumentReceiver {
public:
    /// @param receiver,names outlive the filter; the names of what it is told are in the table
    PrefixFilter(BxXmlLib5::CDocumentReceiver& receiver, BxXmlLib5::CNameTable& names);

    void DeclareNamespace(BxXmlLib5::wstring const& prefix, BxXmlLib5::wstring const& namespaceUri) override {
        m_pending.push_back({&prefix, &namespaceUri});
    }
    void StartElement(BxXmlLib5::DocumentElement const& element) override;
    void AddText(std::u16string_view text) override { m_receiver.AddText(text); }
    void EndElement() override;
    void AddComment(std::u16string_view text) override { m_receiver.AddComment(text); }
    void AddInstruction(std::u16string_view target, std::u16string_view content) override {
        m_receiver.AddInstruction(target, content);
    }
    void AddDocumentType(std::u16string_view text) override { m_receiver.AddDocumentType(text); }
    void AddEntityReference(std::u16string_view name) override { m_receiver.AddEntityReference(name); }

private:
    struct Declaration {
        BxXmlLib5::wstring const* m_prefix;  // empty for the default namespace
        BxXmlLib5::wstring const* m_namespace;
    };
    struct Binding {
        Declaration m_declaration;
        std::size_t m_depth;
    };

    BxXmlLib5::wstring const* NamespaceOf(std::u16string_view prefix) const;
    std::u16string_view Find(std::u16string_view prefix, BxXmlLib5::wstring const& namespaceUri,
                             bool isAttribute);
    bool IsDeclarable(Declaration const& declaration) const;
    bool IsDeclaredHere(std::u16string_view prefix) const;
    void Bind(Declaration const& declaration);

    BxXmlLib5::CDocumentReceiver& m_receiver;
    BxXmlLib5::CNameTable& m_names;
    BxXmlLib5::wstring const* m_xmlNamespace;
    std::size_t m_depth = 0;
    std::vector<Declaration> m_pending;
    std::vector<Declaration> m_declarations;  // of the element that starts
    std::vector<Binding> m_bindings;
    std::vector<BxXmlLib5::DocumentAttribute> m_attributes;
};

}  // namespace BxConvert
