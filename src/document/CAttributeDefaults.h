// Default values of attributes that a document type declares.
#pragma once

#include <cstddef>
#include <map>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"
#include "document/CEntities.h"

namespace BxXmlLib5 {

/// Knows which default values refer to entities without declaration: Expat leaves such references out, and says nothing.
class CAttributeDefaults {
public:
    struct Default {
        std::size_t m_undeclared = 0;  ///< references
        wstring m_first;               ///< the entity of the first one
        wstring m_literal;             ///< with quotes; empty if there are no such references, as the name
    };
    /// By the names of attributes, with their prefixes.
    using Defaults = std::map<wstring, Default, LessBySize>;

    /// From now on no value can have such references, or Expat takes no further declaration.
    void ReadNoValues() { m_areValuesRead = false; }

    /// Takes the next piece of a document type as Expat gives it: each token by itself, a long one in pieces.
    /// @param entities that are declared ahead of it
    /// @throws CBxException if an element has too many attributes
    void Add(std::u16string_view piece, CEntities& entities);

    /// @param element with its prefix
    /// @return null if there is none with such references
    Defaults const* Of(std::u16string_view element) const;

private:
    struct Element {
        Defaults m_defaults;
        std::size_t m_attributes = 0;  // in all declarations
    };

    void CountAttribute(std::u16string_view piece);
    void Declare(CEntities& entities);

    wstring m_declaration;         // so far; empty outside of one
    std::size_t m_attributes = 0;  // in it
    char16_t m_openQuote = 0;      // of the literal in it that has not ended
    bool m_areValuesRead = true;
    std::map<wstring, Element, LessBySize> m_elements;
    bool m_hasUndeclared = false;
};

}  // namespace BxXmlLib5
