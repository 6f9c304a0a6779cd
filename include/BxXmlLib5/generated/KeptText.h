// A text that is seldom there.
#pragma once

#include <memory>
#include <string_view>

#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

/// A text, or none in the room of a pointer.
class KeptText {
public:
    KeptText() = default;
    explicit KeptText(std::u16string_view text) : m_text(std::make_unique<wstring const>(text)) {}
    KeptText(KeptText const& other)
        : m_text(other.m_text ? std::make_unique<wstring const>(*other.m_text) : nullptr) {}
    KeptText(KeptText&&) noexcept = default;
    KeptText& operator=(KeptText other) noexcept {
        m_text.swap(other.m_text);
        return *this;
    }
    ~KeptText() = default;

    explicit operator bool() const { return m_text != nullptr; }
    /// There must be a text.
    wstring const& operator*() const { return *m_text; }

private:
    std::unique_ptr<wstring const> m_text;
};

}  // namespace BxXmlLib5::Generated
