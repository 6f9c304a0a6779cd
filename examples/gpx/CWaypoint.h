// Points: waypoints, and those that routes and tracks are made of.
#pragma once

#include <cstdint>

#include "CExtensions.h"
#include "CGpxClass.h"
#include "CLink.h"
#include "CObjectCol.h"

namespace Gpx {

/// How a position was found (fixType).
enum class Fix : std::int32_t { None, TwoD, ThreeD, Dgps, Pps };

/// The elements wpt, rtept and trkpt (wptType). Everything but the position is optional. The setters of values
/// that have a range throw CBxException outside of it.
class CWaypoint : public CGpxClass<CWaypoint> {
public:
    explicit CWaypoint(char16_t const* elementName = u"wpt") : CGpxClass(elementName) {}

    /// In degrees of WGS 84, -90 to 90.
    CDecimal const& GetLatitude() const { return m_latitude; }
    void SetLatitude(CDecimal const& latitude) { Store(kLatitude, latitude); }

    /// In degrees of WGS 84, -180 to below 180.
    CDecimal const& GetLongitude() const { return m_longitude; }
    void SetLongitude(CDecimal const& longitude) { Store(kLongitude, longitude); }

    /// In metres.
    bool HasElevation() const { return m_elevation.Has(); }
    CDecimal const& GetElevation() const { return m_elevation.Get(); }
    void SetElevation(CDecimal elevation) { m_elevation.Set(std::move(elevation)); }
    void ClearElevation() { m_elevation.Clear(); }

    bool HasTime() const { return m_time.Has(); }
    CDateTime const& GetTime() const { return m_time.Get(); }
    void SetTime(CDateTime time) { m_time.Set(std::move(time)); }
    void ClearTime() { m_time.Clear(); }

    /// In degrees, 0 to below 360.
    bool HasMagneticVariation() const { return m_magneticVariation.Has(); }
    CDecimal const& GetMagneticVariation() const { return m_magneticVariation.Get(); }
    void SetMagneticVariation(CDecimal const& magneticVariation) {
        Store(kMagneticVariation, magneticVariation);
    }
    void ClearMagneticVariation() { m_magneticVariation.Clear(); }

    /// The height of the geoid above the ellipsoid, in metres.
    bool HasGeoidHeight() const { return m_geoidHeight.Has(); }
    CDecimal const& GetGeoidHeight() const { return m_geoidHeight.Get(); }
    void SetGeoidHeight(CDecimal geoidHeight) { m_geoidHeight.Set(std::move(geoidHeight)); }
    void ClearGeoidHeight() { m_geoidHeight.Clear(); }

    bool HasName() const { return m_name.Has(); }
    wstring const& GetName() const { return m_name.Get(); }
    void SetName(wstring name) { m_name.Set(std::move(name)); }
    void ClearName() { m_name.Clear(); }

    bool HasComment() const { return m_comment.Has(); }
    wstring const& GetComment() const { return m_comment.Get(); }
    void SetComment(wstring comment) { m_comment.Set(std::move(comment)); }
    void ClearComment() { m_comment.Clear(); }

    bool HasDescription() const { return m_description.Has(); }
    wstring const& GetDescription() const { return m_description.Get(); }
    void SetDescription(wstring description) { m_description.Set(std::move(description)); }
    void ClearDescription() { m_description.Clear(); }

    /// Where the data come from.
    bool HasSource() const { return m_source.Has(); }
    wstring const& GetSource() const { return m_source.Get(); }
    void SetSource(wstring source) { m_source.Set(std::move(source)); }
    void ClearSource() { m_source.Clear(); }

    /// The collection itself, never null.
    CSmartPtr<CLinkCol> GetLinks();

    /// The name of a symbol for maps.
    bool HasSymbol() const { return m_symbol.Has(); }
    wstring const& GetSymbol() const { return m_symbol.Get(); }
    void SetSymbol(wstring symbol) { m_symbol.Set(std::move(symbol)); }
    void ClearSymbol() { m_symbol.Clear(); }

    bool HasType() const { return m_type.Has(); }
    wstring const& GetType() const { return m_type.Get(); }
    void SetType(wstring type) { m_type.Set(std::move(type)); }
    void ClearType() { m_type.Clear(); }

    bool HasFix() const { return m_fix.Has(); }
    Gpx::Fix GetFix() const { return m_fix.Get(); }
    void SetFix(Gpx::Fix fix) { m_fix.Set(fix); }
    void ClearFix() { m_fix.Clear(); }

    /// The number of satellites, from 0.
    bool HasSatellites() const { return m_satellites.Has(); }
    CBigInteger const& GetSatellites() const { return m_satellites.Get(); }
    void SetSatellites(CBigInteger const& satellites) { Store(kSatellites, satellites); }
    void ClearSatellites() { m_satellites.Clear(); }

    /// The dilution of precision: horizontal, vertical, of the position.
    bool HasHdop() const { return m_hdop.Has(); }
    CDecimal const& GetHdop() const { return m_hdop.Get(); }
    void SetHdop(CDecimal hdop) { m_hdop.Set(std::move(hdop)); }
    void ClearHdop() { m_hdop.Clear(); }

    bool HasVdop() const { return m_vdop.Has(); }
    CDecimal const& GetVdop() const { return m_vdop.Get(); }
    void SetVdop(CDecimal vdop) { m_vdop.Set(std::move(vdop)); }
    void ClearVdop() { m_vdop.Clear(); }

    bool HasPdop() const { return m_pdop.Has(); }
    CDecimal const& GetPdop() const { return m_pdop.Get(); }
    void SetPdop(CDecimal pdop) { m_pdop.Set(std::move(pdop)); }
    void ClearPdop() { m_pdop.Clear(); }

    /// The seconds since the last update from a DGPS station, and the number of the station, 0 to 1023.
    bool HasAgeOfDgpsData() const { return m_ageOfDgpsData.Has(); }
    CDecimal const& GetAgeOfDgpsData() const { return m_ageOfDgpsData.Get(); }
    void SetAgeOfDgpsData(CDecimal ageOfDgpsData) { m_ageOfDgpsData.Set(std::move(ageOfDgpsData)); }
    void ClearAgeOfDgpsData() { m_ageOfDgpsData.Clear(); }

    bool HasDgpsId() const { return m_dgpsId.Has(); }
    std::uint16_t GetDgpsId() const { return m_dgpsId.Get(); }
    void SetDgpsId(std::uint16_t dgpsId) { Store(kDgpsId, dgpsId); }
    void ClearDgpsId() { m_dgpsId.Clear(); }

    /// Null for none.
    CSmartPtr<CExtensions> GetExtensions() const { return m_extensions; }
    void SetExtensions(CExtensions* extensions) { StoreObject(m_extensions, extensions, u"extensions"); }

    static MetaData Describe();

protected:
    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property {
        kElevation,
        kTime,
        kMagneticVariation,
        kGeoidHeight,
        kName,
        kComment,
        kDescription,
        kSource,
        kLinks,
        kSymbol,
        kType,
        kFix,
        kSatellites,
        kHdop,
        kVdop,
        kPdop,
        kAgeOfDgpsData,
        kDgpsId,
        kExtensions,
        kLatitude,
        kLongitude,
    };

    CDecimal m_latitude;
    CDecimal m_longitude;
    Optional<CDecimal> m_elevation;
    Optional<CDateTime> m_time;
    Rare<CDecimal> m_magneticVariation;
    Rare<CDecimal> m_geoidHeight;
    Rare<wstring> m_name;
    Rare<wstring> m_comment;
    Rare<wstring> m_description;
    Rare<wstring> m_source;
    CSmartPtr<CLinkCol> m_links;  // made when it is asked for
    Rare<wstring> m_symbol;
    Rare<wstring> m_type;
    Optional<Gpx::Fix> m_fix;
    Optional<CBigInteger> m_satellites;
    Optional<CDecimal> m_hdop;
    Rare<CDecimal> m_vdop;
    Rare<CDecimal> m_pdop;
    Rare<CDecimal> m_ageOfDgpsData;
    Optional<std::uint16_t> m_dgpsId;
    CSmartPtr<CExtensions> m_extensions;
};

class CWaypointCol : public CObjectCol<CWaypoint> {
public:
    using CObjectCol::CObjectCol;
};

}  // namespace Gpx
