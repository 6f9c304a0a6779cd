// A family of classes with one of each construct that the notes have not.
#pragma once

#include "BxXmlLib5/generated/Generated.h"

namespace Parcels {

namespace Bx = BxXmlLib5::Generated;
namespace Xs = Bx::Xs;
using namespace BxXmlLib5;

inline constexpr char16_t kNamespace[] = u"urn:parcel";
inline constexpr char16_t kExtra[] = u"urn:extra";

extern Bx::Set const kSet;

struct PercentType : Bx::Restriction<Xs::decimal> {
    static constexpr Bx::Facets kFacets{.minInclusive = u"0", .maxInclusive = u"100", .fractionDigits = 2};
};
struct TopPercentType : Bx::Restriction<PercentType> {
    static constexpr Bx::Facets kFacets{.minExclusive = u"90"};
};
struct CodeType : Bx::Restriction<Xs::token> {
    static constexpr Bx::Facets kFacets{.pattern = u"A|[A-Z]{2}[0-9]+", .maxLength = 6};
};
enum class Speed { Slow, Fast, N2 };
struct SpeedType : Bx::Enumeration<Speed> {
    static constexpr char16_t const* kTexts[] = {u"slow", u"fast", u"2"};
};
struct SizeType : Bx::Restriction<Xs::decimal> {
    static constexpr char16_t const* kValues[] = {u"1.0", u"2.5"};
    static constexpr Bx::Facets kFacets{.values = kValues};
};
struct SizesType : Bx::List<SizeType> {};
struct TwoSizesType : Bx::Restriction<SizesType> {
    static constexpr Bx::Facets kFacets{.length = 2};
};
struct WeightType : Bx::Union<Xs::decimal, SpeedType, CodeType> {};

class CNoteText;

/// An address, of which a foreign one is a kind.
class CAddress : public Bx::CObject {
public:
    Bx::Required<Xs::string> City;
    Bx::Optional<Xs::NMTOKEN> Kind;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// An address with a country.
class CForeignAddress : public CAddress {
public:
    Bx::Required<Xs::string> Country;
    Bx::Optional<Xs::boolean> Overseas;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// An address whose kind is not given.
class CPlainAddress : public CAddress {
public:
    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// Something inside; abstract.
class CThing : public Bx::CObject {
public:
    Bx::Optional<Xs::int_> Count;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override = 0;
};

class CBook : public CThing {
public:
    Bx::Required<Xs::string> Title;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

class CToy : public CThing {
public:
    Bx::Optional<Xs::int_> Age;
    Bx::Object<CToy> Inner;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// The type of the root.
class CParcelType : public Bx::CObject {
public:
    Bx::Object<CAddress> From;
    Bx::Object<CAddress> To;
    Bx::Optional<WeightType> Weight;
    Bx::Values<PercentType> Filled;        ///< 2 to 3
    Bx::WithDefault<Xs::int_, u"7"> Days;  ///< mandatory
    Bx::Collection<CThing> Thing;          ///< a book, a toy or a thing of another type
    Bx::Object<CNoteText> Note;
    Bx::Object<Bx::CNillable<Xs::date>> Due;
    Bx::AnyElements Any;
    Bx::AnyElement Open;
    Bx::Required<CodeType> Code;
    Bx::WithDefault<SpeedType, u"slow"> Speed;
    Bx::Fixed<Xs::string, u"1.0"> Version;  ///< mandatory
    Bx::Optional<TwoSizesType> Sizes;
    Bx::Optional<Xs::language> Lang;
    Bx::AnyAttributes Attributes;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// The element parcel.
class CParcel : public Bx::Root<CParcelType> {
public:
    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// Mixed content.
class CNoteText : public Bx::CObject {
public:
    Bx::Values<Xs::token> B;
    Bx::Optional<Xs::string> Text_;
    Bx::Nil Nil;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// Simple content, as a root of its own.
class CPrice : public Bx::Root<Bx::CObject> {
public:
    Bx::Required<PercentType> Value;
    Bx::Optional<Xs::token> Currency;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// A root whose type is abstract, so that documents name another one; not a toy.
class CThingRoot : public Bx::Root<CThing> {
public:
    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// One thing under one of several names.
class CWrap : public Bx::Root<Bx::CObject> {
public:
    Bx::Object<CThing> Thing;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// An all group, whose elements are in no namespace.
class CBox : public Bx::Root<Bx::CObject> {
public:
    Bx::Required<Xs::double_> Width;
    Bx::Optional<Xs::double_> Height;
    Bx::Object<CAddress> Owner;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

/// A choice that may be empty.
class CLabel : public Bx::Root<Bx::CObject> {
public:
    Bx::Optional<Xs::string> Name;
    Bx::Values<Xs::dateTime> Time;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

}  // namespace Parcels
