// The prefixes of Fast Infoset and where they are declared.
#pragma once

#include <set>
#include <string_view>
#include <vector>

#include "PrefixScopes.h"
#include "document/CDocumentReceiver.h"
#include "document/CNameTable.h"

namespace BxConvert {

/// Fast Infoset may leave declarations out, and give names without the prefixes that they need. Adds both where
/// they are missing, so that what it tells is as XML text has it. Throws CBxInvalidValueException at two attributes of the
/// same name.
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
    void LoseDocumentType() override { m_receiver.LoseDocumentType(); }

private:
    std::u16string_view Take(std::u16string_view prefix, BxXmlLib5::wstring const& namespaceUri,
                             bool isAttribute);
    std::u16string_view Find(std::u16string_view prefix, BxXmlLib5::wstring const& namespaceUri,
                             bool isAttribute);
    std::u16string_view WithoutDefault(BxXmlLib5::wstring const& noNamespace);
    void TestThatEachDiffers();
    bool IsDeclarable(PrefixDeclaration const& declaration) const;
    bool IsTaken(std::u16string_view prefix);
    void Bind(PrefixDeclaration const& declaration);

    BxXmlLib5::CDocumentReceiver& m_receiver;
    BxXmlLib5::CNameTable& m_names;
    BxXmlLib5::wstring const* m_xmlNamespace;
    PrefixScopes m_scopes;
    std::vector<PrefixDeclaration> m_pending;
    // Of the element that starts:
    std::vector<PrefixDeclaration> m_declarations;
    std::vector<std::u16string_view> m_taken;  // prefixes that it declares or uses
    std::size_t m_ordered = 0;                 // how many of them are also in
    std::set<std::u16string_view, BxXmlLib5::LessBySize> m_takenInOrder;
    std::vector<BxXmlLib5::DocumentAttribute> m_attributes;
    std::vector<BxXmlLib5::CXmlName const*> m_attributeNames;
};

}  // namespace BxConvert
