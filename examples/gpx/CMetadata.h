// What a document says of itself.
#pragma once

#include <cstdint>

#include "CExtensions.h"
#include "CGpxClass.h"
#include "CLink.h"
#include "CPerson.h"

namespace Gpx {

/// Who has the rights in a document (copyrightType).
class CCopyright : public CGpxClass<CCopyright> {
public:
    explicit CCopyright(char16_t const* elementName = u"copyright") : CGpxClass(elementName) {}

    /// The holder.
    wstring const& GetAuthor() const { return m_author; }
    void SetAuthor(wstring author) { m_author = std::move(author); }

    /// Of the common era; what a document says of its time zone is not kept.
    bool HasYear() const { return m_year.Has(); }
    std::uint16_t GetYear() const { return m_year.Get(); }
    void SetYear(std::uint16_t year) { m_year.Set(year); }
    void ClearYear() { m_year.Clear(); }

    /// The address of the licence, a URI.
    bool HasLicense() const { return m_license.Has(); }
    wstring const& GetLicense() const { return m_license.Get(); }
    void SetLicense(wstring license) { m_license.Set(std::move(license)); }
    void ClearLicense() { m_license.Clear(); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kYear, kLicense, kAuthor };

    wstring m_author;
    Optional<std::uint16_t> m_year;
    Optional<wstring> m_license;
};

/// An area (boundsType), in degrees. The setters throw CBxException outside of -90 to 90 for latitudes, and
/// outside of -180 to below 180 for longitudes.
class CBounds : public CGpxClass<CBounds> {
public:
    explicit CBounds(char16_t const* elementName = u"bounds") : CGpxClass(elementName) {}

    CDecimal const& GetMinLatitude() const { return m_minLatitude; }
    void SetMinLatitude(CDecimal const& minLatitude) { Store(kMinLatitude, minLatitude); }

    CDecimal const& GetMinLongitude() const { return m_minLongitude; }
    void SetMinLongitude(CDecimal const& minLongitude) { Store(kMinLongitude, minLongitude); }

    CDecimal const& GetMaxLatitude() const { return m_maxLatitude; }
    void SetMaxLatitude(CDecimal const& maxLatitude) { Store(kMaxLatitude, maxLatitude); }

    CDecimal const& GetMaxLongitude() const { return m_maxLongitude; }
    void SetMaxLongitude(CDecimal const& maxLongitude) { Store(kMaxLongitude, maxLongitude); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kMinLatitude, kMinLongitude, kMaxLatitude, kMaxLongitude };

    CDecimal m_minLatitude;
    CDecimal m_minLongitude;
    CDecimal m_maxLatitude;
    CDecimal m_maxLongitude;
};

/// The element metadata (metadataType). Everything in it is optional.
class CMetadata : public CGpxClass<CMetadata> {
public:
    explicit CMetadata(char16_t const* elementName = u"metadata");

    bool HasName() const { return m_name.Has(); }
    wstring const& GetName() const { return m_name.Get(); }
    void SetName(wstring name) { m_name.Set(std::move(name)); }
    void ClearName() { m_name.Clear(); }

    bool HasDescription() const { return m_description.Has(); }
    wstring const& GetDescription() const { return m_description.Get(); }
    void SetDescription(wstring description) { m_description.Set(std::move(description)); }
    void ClearDescription() { m_description.Clear(); }

    /// Null for none, here and below.
    CSmartPtr<CPerson> GetAuthor() const { return m_author; }
    void SetAuthor(CPerson* author) { StoreObject(m_author, author, u"author"); }

    CSmartPtr<CCopyright> GetCopyright() const { return m_copyright; }
    void SetCopyright(CCopyright* copyright) { StoreObject(m_copyright, copyright, u"copyright"); }

    /// The collection itself, never null.
    CSmartPtr<CLinkCol> GetLinks() const { return m_links; }

    /// When the document was made.
    bool HasTime() const { return m_time.Has(); }
    CDateTime const& GetTime() const { return m_time.Get(); }
    void SetTime(CDateTime time) { m_time.Set(std::move(time)); }
    void ClearTime() { m_time.Clear(); }

    /// Separated by commas.
    bool HasKeywords() const { return m_keywords.Has(); }
    wstring const& GetKeywords() const { return m_keywords.Get(); }
    void SetKeywords(wstring keywords) { m_keywords.Set(std::move(keywords)); }
    void ClearKeywords() { m_keywords.Clear(); }

    CSmartPtr<CBounds> GetBounds() const { return m_bounds; }
    void SetBounds(CBounds* bounds) { StoreObject(m_bounds, bounds, u"bounds"); }

    CSmartPtr<CExtensions> GetExtensions() const { return m_extensions; }
    void SetExtensions(CExtensions* extensions) { StoreObject(m_extensions, extensions, u"extensions"); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property {
        kName,
        kDescription,
        kAuthor,
        kCopyright,
        kLinks,
        kTime,
        kKeywords,
        kBounds,
        kExtensions,
    };

    Optional<wstring> m_name;
    Optional<wstring> m_description;
    CSmartPtr<CPerson> m_author;
    CSmartPtr<CCopyright> m_copyright;
    CSmartPtr<CLinkCol> m_links;
    Optional<CDateTime> m_time;
    Optional<wstring> m_keywords;
    CSmartPtr<CBounds> m_bounds;
    CSmartPtr<CExtensions> m_extensions;
};

}  // namespace Gpx
