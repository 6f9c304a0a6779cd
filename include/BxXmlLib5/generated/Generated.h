// Everything that generated code stands on. Generated code says
//
//     namespace Bx = BxXmlLib5::Generated;
//     namespace Xs = Bx::Xs;
#pragma once

#include "BxXmlLib5/generated/BuiltInTypes.h"
#include "BxXmlLib5/generated/CNillable.h"
#include "BxXmlLib5/generated/CObject.h"
#include "BxXmlLib5/generated/Class.h"
#include "BxXmlLib5/generated/Objects.h"
#include "BxXmlLib5/generated/Property.h"
#include "BxXmlLib5/generated/Records.h"
#include "BxXmlLib5/generated/Root.h"
#include "BxXmlLib5/generated/Row.h"
#include "BxXmlLib5/generated/SimpleTypes.h"
#include "BxXmlLib5/generated/Utf8.h"
#include "BxXmlLib5/generated/Xs.h"

namespace BxXmlLib5::Generated {

/// The version of the agreement between generated code and this header. Generated sources begin with
///
///     static_assert(BxXmlLib5::Generated::kVersion == 1, "generated for another version of BxXmlLib5: run bxgen again");
inline constexpr int kVersion = 1;

}  // namespace BxXmlLib5::Generated
