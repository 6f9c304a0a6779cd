// A text that many objects hold.
#pragma once

#include <cstddef>
#include <string_view>

#include "BxXmlLib5/core/CCounted.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A constant text, shared by the copies of this object: a name or a namespace, which every object of a tree
/// has to hold. It reads as a wstring does; it is changed by assigning another text.
class BXXMLLIB5_API CSharedText {
public:
    /// The empty text, which takes no memory.
    CSharedText() = default;
    /// A copy of the text.
    explicit CSharedText(std::u16string_view text);

    /// As Set().
    CSharedText& operator=(std::u16string_view text) {
        Set(text);
        return *this;
    }
    /// Takes another text, unless it has it already.
    void Set(std::u16string_view text);

    /// @{
    /// The text, as long as this object or a copy has it.
    wstring const& Get() const;
    operator wstring const&() const { return Get(); }
    operator std::u16string_view() const { return Get(); }
    /// @}

    /// @{
    /// As those of wstring.
    char16_t const* c_str() const { return Get().c_str(); }
    std::size_t size() const { return Get().size(); }
    bool empty() const { return !m_text; }
    /// @}
    /// Whether it is this text, unit for unit.
    bool Is(std::u16string_view text) const;

    /// @{
    /// Whether both are the same text, unit for unit.
    friend bool operator==(CSharedText const& a, std::u16string_view b) { return a.Is(b); }
    friend bool operator==(CSharedText const& a, CSharedText const& b) { return a.Is(b); }
    /// @}
    /// @{
    /// The two texts, one behind the other.
    friend wstring operator+(CSharedText const& a, std::u16string_view b) {
        return wstring(a.Get()).append(b);
    }
    friend wstring operator+(std::u16string_view a, CSharedText const& b) {
        return wstring(a).append(b.Get());
    }
    friend wstring operator+(CSharedText const& a, CSharedText const& b) { return a + b.Get(); }
    /// @}

private:
    struct Text : CCounted<Text> {
        explicit Text(std::u16string_view text) : m_text(text) {}

        wstring const m_text;
    };

    CSmartPtr<Text const> m_text;  // null for the empty text
};

}  // namespace BxXmlLib5
