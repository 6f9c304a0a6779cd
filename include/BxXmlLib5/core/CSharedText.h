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
    CSharedText() = default;
    explicit CSharedText(std::u16string_view text);

    CSharedText& operator=(std::u16string_view text) {
        Set(text);
        return *this;
    }
    /// Takes another text, unless it has it already.
    void Set(std::u16string_view text);

    wstring const& Get() const;
    operator wstring const&() const { return Get(); }
    operator std::u16string_view() const { return Get(); }

    char16_t const* c_str() const { return Get().c_str(); }
    std::size_t size() const { return Get().size(); }
    bool empty() const { return !m_text; }
    bool Is(std::u16string_view text) const;

    friend bool operator==(CSharedText const& a, std::u16string_view b) { return a.Is(b); }
    friend bool operator==(CSharedText const& a, CSharedText const& b) { return a.Is(b); }
    friend wstring operator+(CSharedText const& a, std::u16string_view b) {
        return wstring(a.Get()).append(b);
    }
    friend wstring operator+(std::u16string_view a, CSharedText const& b) {
        return wstring(a).append(b.Get());
    }
    friend wstring operator+(CSharedText const& a, CSharedText const& b) { return a + b.Get(); }

private:
    struct Text : CCounted<Text> {
        explicit Text(std::u16string_view text) : m_text(text) {}

        wstring const m_text;
    };

    CSmartPtr<Text const> m_text;  // null for the empty text
};

}  // namespace BxXmlLib5
