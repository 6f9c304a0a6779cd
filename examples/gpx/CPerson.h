// Persons and organisations.
#pragma once

#include "CGpxClass.h"
#include "CLink.h"

namespace Gpx {

/// An address of electronic mail in two parts (emailType): id@domain.
class CEmail : public CGpxClass<CEmail> {
public:
    explicit CEmail(char16_t const* elementName = u"email") : CGpxClass(elementName) {}

    wstring const& GetId() const { return m_id; }
    void SetId(wstring id) { m_id = std::move(id); }

    wstring const& GetDomain() const { return m_domain; }
    void SetDomain(wstring domain) { m_domain = std::move(domain); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kId, kDomain };

    wstring m_id;
    wstring m_domain;
};

/// A person or organisation (personType).
class CPerson : public CGpxClass<CPerson> {
public:
    explicit CPerson(char16_t const* elementName = u"author") : CGpxClass(elementName) {}

    bool HasName() const { return m_name.Has(); }
    wstring const& GetName() const { return m_name.Get(); }
    void SetName(wstring name) { m_name.Set(std::move(name)); }
    void ClearName() { m_name.Clear(); }

    /// Null for none, here and below.
    CSmartPtr<CEmail> GetEmail() const { return m_email; }
    void SetEmail(CEmail* email) { StoreObject(m_email, email, u"email"); }

    CSmartPtr<CLink> GetLink() const { return m_link; }
    void SetLink(CLink* link) { StoreObject(m_link, link, u"link"); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kName, kEmail, kLink };

    Optional<wstring> m_name;
    CSmartPtr<CEmail> m_email;
    CSmartPtr<CLink> m_link;
};

}  // namespace Gpx
