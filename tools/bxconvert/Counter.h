// What bxconvert finds out about a document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "document/CDocumentReceiver.h"

namespace BxConvert {

/// Counts what it is told.
class Counter : public BxXmlLib5::CDocumentReceiver {
public:
    void DeclareNamespace(BxXmlLib5::wstring const&, BxXmlLib5::wstring const&) override {}
    void StartElement(BxXmlLib5::DocumentElement const& element) override;
    void AddText(std::u16string_view) override {}
    void EndElement() override { --m_open; }

    /// What --info prints: a line `name: value` for each fact.
    /// @param octets the size of the input
    std::string ToText(bool isFastInfoset, bool isCompressed, std::uintmax_t octets) const;

private:
    std::string m_root;
    std::string m_namespace;
    std::size_t m_elements = 0;
    std::size_t m_attributes = 0;
    std::size_t m_open = 0;
    std::size_t m_depth = 0;
};

}  // namespace BxConvert
