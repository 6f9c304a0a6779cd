// The prefixes of a document and where they are declared.
#pragma once

#include <deque>
#include <string_view>
#include <vector>

#include "document/CDocumentReceiver.h"

namespace BxConvert {

/// What is written with which prefix: as the document has it. XML text always has it right; Fast Infoset may leave
/// declarations out, which are added where they are missing.
class Prefixes {
public:
    struct Declaration {
        std::u16string_view m_prefix;  // empty for the default namespace
        std::u16string_view m_namespace;
    };

    /// For the element that comes next. Both live as long as the object.
    void Declare(std::u16string_view prefix, std::u16string_view namespaceUri);

    /// An element starts. A prefix that no declaration has said lives as long as the object. What the next three give lasts until another one starts.
    void Start(BxXmlLib5::DocumentElement const& element);
    std::u16string_view OfElement() const { return m_ofElement; }
    /// In the order of the attributes.
    std::vector<std::u16string_view> const& OfAttributes() const { return m_ofAttributes; }
    std::vector<Declaration> const& Declarations() const { return m_declarations; }

    void End();

private:
    struct Binding {
        Declaration m_declaration;
        std::size_t m_depth;
    };

    std::u16string_view NamespaceOf(std::u16string_view prefix) const;
    std::u16string_view Find(std::u16string_view prefix, BxXmlLib5::wstring const& namespaceUri,
                             bool isAttribute);
    bool IsDeclaredHere(std::u16string_view prefix) const;
    void Bind(std::u16string_view prefix, std::u16string_view namespaceUri);

    std::size_t m_depth = 0;
    std::vector<Declaration> m_pending;
    std::vector<Declaration> m_declarations;
    std::vector<Binding> m_bindings;
    std::u16string_view m_ofElement;
    std::vector<std::u16string_view> m_ofAttributes;
    std::deque<BxXmlLib5::wstring> m_made;  // prefixes, to be used anywhere
};

}  // namespace BxConvert
