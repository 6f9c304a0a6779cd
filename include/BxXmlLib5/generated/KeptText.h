// A text that is seldom there.
#pragma once

#include <memory>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// A text, or none in the room of a pointer.
class KeptText {
public:
    /// No text.
    KeptText() = default;
    /// A copy of the text, which may be empty.
    explicit KeptText(std::u16string_view text) : m_text(std::make_unique<wstring const>(text)) {}
    /// Has a text of its own.
    KeptText(KeptText const& other)
        : m_text(other.m_text ? std::make_unique<wstring const>(*other.m_text) : nullptr) {}
    /// Leaves the other object without a text.
    KeptText(KeptText&&) noexcept = default;
    /// Takes a copy of the text, or none.
    KeptText& operator=(KeptText const& other) { return *this = KeptText(other); }
    /// Leaves the other object without a text.
    KeptText& operator=(KeptText&&) noexcept = default;
    ~KeptText() = default;

    /// Whether there is a text.
    explicit operator bool() const { return m_text != nullptr; }
    /// There must be a text.
    wstring const& operator*() const { return *m_text; }

private:
    std::unique_ptr<wstring const> m_text;
};

}  // namespace BxXmlLib5::Generated
