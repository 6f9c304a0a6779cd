// What parsers tell of a document, in its order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "BxXmlLib5/document/CXmlAttribute.h"

namespace BxXmlLib5 {

/// An attribute of an element that starts.
struct DocumentAttribute {
    CXmlName const* m_name;
    std::u16string_view m_prefix;  ///< empty for none, and where prefixes are not asked for
    std::u16string_view m_value;
    /// False for one that the document type adds; not if the document is standalone="yes": without that, what the type
    /// declares need not count.
    bool m_isSpecified = true;
};

/// The value of an attribute as its tag has it, with quotes and references.
struct AttributeLiteral {
    std::size_t m_attribute;  ///< which one
    std::u16string_view m_text;
    std::size_t m_references;  ///< to entities whose declarations are not in the document
};

/// An element that starts.
struct DocumentElement {
    CXmlName const& m_name;
    std::u16string_view m_prefix;  ///< as that of an attribute
    /// Without the declarations of namespaces, unless namespaces are not processed.
    std::span<DocumentAttribute const> m_attributes;
    std::size_t m_line;  ///< from 1; 0 in Fast Infoset, and where lines are not asked for
    /// Of attributes, in their order, whose values refer to entities whose declarations are not in the document:
    /// there the values have nothing. Only where markup is asked for.
    std::span<AttributeLiteral const> m_literals{};
};

/// Takes what a parser tells of a document: the tree, a converter, a reader of records.
///
/// Names, and the texts of namespaces, live as long as the table that the parser was given. Any other text lives
/// until the operation returns, unless the parser was told to keep texts (DocumentMemory). Operations may throw:
/// the parser ends then, and its caller gets what was thrown.
class CDocumentReceiver {
public:
    virtual ~CDocumentReceiver() = default;

    /// Drops all that came so far: it comes anew. Only a document that is given whole may do that.
    virtual void Restart() {}

    /// Comes ahead of the element that declares it.
    /// @param prefix empty for the default namespace
    /// @param namespaceUri empty for none
    virtual void DeclareNamespace(wstring const& prefix, wstring const& namespaceUri) = 0;

    virtual void StartElement(DocumentElement const& element) = 0;

    /// Text of the innermost open element, a part of it: a text may come in any number of parts. A CR, which
    /// was written as a reference, comes by itself. Fast Infoset may have any unit: a zero comes at the beginning of a
    /// part.
    /// @param text not empty
    virtual void AddText(std::u16string_view text) = 0;

    /// The same from a parser that keeps texts, for a text that is kept already, without CR.
    /// @return how many units the receiver copied
    virtual std::size_t AddKeptText(std::u16string_view text) {
        AddText(text);
        return 0;
    }

    virtual void EndElement() = 0;

    // What follows comes only where markup is asked for (DocumentDetails), inside of elements and outside.

    virtual void AddComment(std::u16string_view /*text*/) {}

    virtual void AddInstruction(std::u16string_view /*target*/, std::u16string_view /*content*/) {}

    /// @param text as the document has it, from <!DOCTYPE to >
    virtual void AddDocumentType(std::u16string_view /*text*/) {}

    /// A reference to an entity, in an element, whose declaration is not in the document.
    virtual void AddEntityReference(std::u16string_view /*name*/) {}

    /// The same in a declaration of a namespace, whose name has nothing in its place.
    virtual void LoseEntityReference() {}

    /// A document type of Fast Infoset, which is read and dropped.
    virtual void LoseDocumentType() {}

    /// The document itself, a part of it, where that is asked for and the input lets it (DocumentDetails):
    /// nothing else is told then. The parser has checked what came before, and checks this next.
    /// @param octets not empty; those of the byte order mark and the XML declaration do not come
    virtual void AddOctets(std::span<unsigned char const> /*octets*/) {}
};

}  // namespace BxXmlLib5
