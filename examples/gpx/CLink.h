// Links to pages about something.
#pragma once

#include "CGpxClass.h"
#include "CObjectCol.h"

namespace Gpx {

/// The element link (linkType).
class CLink : public CGpxClass<CLink> {
public:
    explicit CLink(char16_t const* elementName = u"link") : CGpxClass(elementName) {}

    /// The address, a URI.
    wstring const& GetHref() const { return m_href; }
    void SetHref(wstring href) { m_href = std::move(href); }

    /// The text to show.
    bool HasText() const { return m_text.Has(); }
    wstring const& GetText() const { return m_text.Get(); }
    void SetText(wstring text) { m_text.Set(std::move(text)); }
    void ClearText() { m_text.Clear(); }

    /// The MIME type of the content.
    bool HasType() const { return m_type.Has(); }
    wstring const& GetType() const { return m_type.Get(); }
    void SetType(wstring type) { m_type.Set(std::move(type)); }
    void ClearType() { m_type.Clear(); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kText, kType, kHref };

    wstring m_href;
    Optional<wstring> m_text;
    Rare<wstring> m_type;
};

class CLinkCol : public CObjectCol<CLink> {
public:
    using CObjectCol::CObjectCol;
};

}  // namespace Gpx
