// A text that many objects hold.
#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// A constant text, shared by the copies of this object: a namespace, which every object of a tree has to
/// hold.
class BXXMLLIB5_API CSharedText {
public:
    CSharedText() = default;
    explicit CSharedText(std::u16string_view text);

    wstring const& Get() const;
    operator wstring const&() const { return Get(); }
    CSharedText& operator=(std::u16string_view text) {
        Set(text);
        return *this;
    }
    bool Is(std::u16string_view text) const;

    /// Takes another text, unless it has it already.
    void Set(std::u16string_view text);

private:
    struct Counted {
        void AddRef() { m_refCount.fetch_add(1, std::memory_order_relaxed); }
        void Release() {
            if (m_refCount.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
        }

        wstring m_text;
        std::atomic<std::int32_t> m_refCount = 0;
    };

    CSmartPtr<Counted> m_counted;  // null for the empty text
};

}  // namespace BxXmlLib5
