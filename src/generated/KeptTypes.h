// What documents name by xsi:type for values that have no object of their own.
#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/generated/CObject.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// The types that a document names for the values of one object. Each goes with its value as long as that is what was
/// read: a program that changes the value does not know that there is a type.
class KeptTypes {
public:
    using Place = void* (*)(CObject& object);

    struct Kept {
        wstring text;     ///< The value that was read.
        wstring literal;  ///< As it was read: the type may not take another one for it.
        wstring name;
        wstring namespaceUri;
        /// Of a complex type, its attributes; null for a simple one. Nobody changes it, so copies share it.
        CSmartPtr<CObject> content;
    };

    /// @param place of the property, null for the element itself
    /// @param index of the value
    void Add(Place place, int index, Kept kept) {
        m_kept.insert_or_assign({reinterpret_cast<std::uintptr_t>(place), index}, std::move(kept));
    }

    /// Null if there is none, or the value is another one than was read.
    Kept const* Find(Place place, int index, wstring const& text) const {
        auto const found = m_kept.find({reinterpret_cast<std::uintptr_t>(place), index});
        return found != m_kept.end() && found->second.text == text ? &found->second : nullptr;
    }

    auto begin() const { return m_kept.begin(); }
    auto end() const { return m_kept.end(); }

private:
    std::map<std::pair<std::uintptr_t, int>, Kept> m_kept;
};

}  // namespace BxXmlLib5::Generated
