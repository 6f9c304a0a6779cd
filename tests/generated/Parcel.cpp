#include "Parcel.h"

namespace Parcels {

static_assert(Bx::kVersion == 1);

namespace {

constexpr Bx::Class const* kTypes[] = {
    &CAddress::kClass, &CForeignAddress::kClass, &CPlainAddress::kClass, &CThing::kClass, &CBook::kClass,
    &CToy::kClass,     &CParcelType::kClass,
};

constexpr Bx::Alias kAliases[] = {
    {u"e", kExtra},
    {u"xsi", u"http://www.w3.org/2001/XMLSchema-instance"},
};

// clang-format off
constexpr Bx::Row kAddressRows[] = {
    Bx::Sequence,
        Bx::Element<&CAddress::City>(u"city"),
    Bx::End,
    Bx::Attribute<&CAddress::Kind>(u"kind"),
};

constexpr Bx::Row kForeignAddressRows[] = {
    Bx::Inherit<CAddress>(),
    Bx::Sequence,
        Bx::Element<&CForeignAddress::Country>(u"country"),
    Bx::End,
    Bx::Attribute<&CForeignAddress::Overseas>(u"overseas"),
};

constexpr Bx::Row kPlainAddressRows[] = {
    Bx::Restrict<CAddress>(),
    Bx::Sequence,
        Bx::Element<&CPlainAddress::City>(u"city"),
    Bx::End,
    Bx::Prohibited<&CPlainAddress::Kind>(u"kind"),
};

constexpr Bx::Row kThingRows[] = {
    Bx::Attribute<&CThing::Count>(u"count"),
};

constexpr Bx::Row kBookRows[] = {
    Bx::Inherit<CThing>(),
    Bx::Sequence,
        Bx::Element<&CBook::Title>(u"title"),
    Bx::End,
};

constexpr Bx::Row kToyRows[] = {
    Bx::Inherit<CThing>(),
    Bx::Sequence,
        Bx::Element<&CToy::Age>(u"age"),
        Bx::Element<&CToy::Inner>(u"inner"),
    Bx::End,
};

constexpr Bx::Row kParcelTypeRows[] = {
    Bx::Sequence,
        Bx::Element<&CParcelType::From>(u"from"),
        Bx::Element<&CParcelType::To>(u"to", 1, 1),
        Bx::Element<&CParcelType::Weight>(u"weight"),
        Bx::Element<&CParcelType::Filled>(u"filled", 2, 3),
        Bx::Element<&CParcelType::Days>(u"days", 1, 1),
        Bx::Choice(0, Bx::kMany),
            Bx::Element<&CParcelType::Thing>(u"thing", 1, 1),
            Bx::Element<&CParcelType::Thing, CBook>(u"book", 1, 1),
            Bx::Element<&CParcelType::Thing, CToy>(u"toy", kExtra, 1, 1),
        Bx::End,
        Bx::Element<&CParcelType::Note>(u"note"),
        Bx::Nillable(Bx::Element<&CParcelType::Due>(u"due")),
        Bx::Element<&CParcelType::Open>(u"open"),
        Bx::Any<&CParcelType::Any>(u"##other", 0, 3),
    Bx::End,
    Bx::Attribute<&CParcelType::Code>(u"code"),
    Bx::Attribute<&CParcelType::Speed>(u"speed"),
    Bx::Attribute<&CParcelType::Version>(u"version", u"", 1),
    Bx::Attribute<&CParcelType::Sizes>(u"sizes"),
    Bx::Attribute<&CParcelType::Lang>(u"lang", u"http://www.w3.org/XML/1998/namespace"),
    Bx::AnyAttribute<&CParcelType::Attributes>(u"##other"),
};

constexpr Bx::Row kParcelRows[] = {
    Bx::Inherit<CParcelType>(),
};

constexpr Bx::Row kNoteTextRows[] = {
    Bx::Sequence,
        Bx::Element<&CNoteText::B>(u"b"),
    Bx::End,
    Bx::Text<&CNoteText::Text_>(),
    Bx::NilMark<&CNoteText::Nil>(),
};

constexpr Bx::Row kPriceRows[] = {
    Bx::Text<&CPrice::Value>(),
    Bx::Attribute<&CPrice::Currency>(u"currency"),
};

constexpr Bx::Row kThingRootRows[] = {
    Bx::Inherit<CThing>(),
    Bx::Blocks(Bx::kRestriction),
};

constexpr Bx::SimpleTypeName kSimpleTypes[] = {
    Bx::Simple<PercentType, Xs::decimal>(u"percent", kNamespace),
    Bx::Simple<TopPercentType, PercentType>(u"topPercent", kNamespace),
};

constexpr Bx::Row kWrapRows[] = {
    Bx::Choice,
        Bx::Element<&CWrap::Thing, CBook>(u"book", 1, 1),
        Bx::Element<&CWrap::Thing, CBook>(u"novel", 1, 1),
        Bx::Element<&CWrap::Thing, CToy>(u"toy", kExtra, 1, 1),
    Bx::End,
};

constexpr Bx::Row kBoxRows[] = {
    Bx::All,
        Bx::Element<&CBox::Width>(u"width"),
        Bx::Element<&CBox::Height>(u"height"),
        Bx::Element<&CBox::Owner>(u"owner", 1, 1),
    Bx::End,
};

constexpr Bx::Row kLabelRows[] = {
    Bx::Choice(0),
        Bx::Element<&CLabel::Name>(u"name", 1, 1),
        Bx::Element<&CLabel::Time>(u"time", 2, 3),
    Bx::End,
};
// clang-format on

}  // namespace

constinit Bx::Set const kSet{
    .types = kTypes, .simpleTypes = kSimpleTypes, .builtInTypes = Bx::kBuiltInTypes<>, .aliases = kAliases};

constinit Bx::Class const CAddress::kClass =
    Bx::Describe<CAddress>(kSet, u"address", kNamespace, kAddressRows);
Bx::Class const& CAddress::Describe() const {
    return kClass;
}

constinit Bx::Class const CForeignAddress::kClass =
    Bx::Describe<CForeignAddress>(kSet, u"foreignAddress", kNamespace, kForeignAddressRows);
Bx::Class const& CForeignAddress::Describe() const {
    return kClass;
}

constinit Bx::Class const CPlainAddress::kClass =
    Bx::Describe<CPlainAddress>(kSet, u"plainAddress", kNamespace, kPlainAddressRows);
Bx::Class const& CPlainAddress::Describe() const {
    return kClass;
}

constinit Bx::Class const CThing::kClass = Bx::Describe<CThing>(kSet, u"thing", kNamespace, kThingRows);

constinit Bx::Class const CBook::kClass = Bx::Describe<CBook>(kSet, u"book", kNamespace, kBookRows);
Bx::Class const& CBook::Describe() const {
    return kClass;
}

constinit Bx::Class const CToy::kClass = Bx::Describe<CToy>(kSet, u"toy", kNamespace, kToyRows);
Bx::Class const& CToy::Describe() const {
    return kClass;
}

constinit Bx::Class const CParcelType::kClass =
    Bx::Describe<CParcelType>(kSet, u"parcelType", kNamespace, kParcelTypeRows);
Bx::Class const& CParcelType::Describe() const {
    return kClass;
}

constinit Bx::Class const CParcel::kClass = Bx::Describe<CParcel>(kSet, u"parcel", kNamespace, kParcelRows);
Bx::Class const& CParcel::Describe() const {
    return kClass;
}

constinit Bx::Class const CNoteText::kClass =
    Bx::Describe<CNoteText>(kSet, u"noteText", kNamespace, kNoteTextRows);
Bx::Class const& CNoteText::Describe() const {
    return kClass;
}

constinit Bx::Class const CPrice::kClass = Bx::Describe<CPrice>(kSet, u"price", kNamespace, kPriceRows);
Bx::Class const& CPrice::Describe() const {
    return kClass;
}

constinit Bx::Class const CThingRoot::kClass =
    Bx::Describe<CThingRoot>(kSet, u"thing", kNamespace, kThingRootRows);
Bx::Class const& CThingRoot::Describe() const {
    return kClass;
}

constinit Bx::Class const CWrap::kClass = Bx::Describe<CWrap>(kSet, u"wrap", kNamespace, kWrapRows);
Bx::Class const& CWrap::Describe() const {
    return kClass;
}

constinit Bx::Class const CBox::kClass = Bx::Describe<CBox>(kSet, u"box", kNamespace, kBoxRows, u"");
Bx::Class const& CBox::Describe() const {
    return kClass;
}

constinit Bx::Class const CLabel::kClass = Bx::Describe<CLabel>(kSet, u"label", kNamespace, kLabelRows);
Bx::Class const& CLabel::Describe() const {
    return kClass;
}

}  // namespace Parcels
