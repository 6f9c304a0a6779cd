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

    /// Takes the next piece of a document type as Expat gives it: each token by itself, a long one in pieces.
    /// @param entities that are declared ahead of it
    void Add(std::u16string_view piece, CEntities& entities);

    /// @param element with its prefix
    /// @return null if there is none with such references
    Defaults const* Of(std::u16string_view element) const;

private:
    void Declare(CEntities& entities);

    wstring m_declaration;     // so far; empty outside of one
    bool m_isRestRead = true;  // if not, Expat takes no further declaration
    std::map<wstring, Defaults, LessBySize> m_defaults;
    bool m_hasUndeclared = false;
};

}  // namespace BxXmlLib5
