#include "BxXmlLib5/generated/Actions.h"

#include "BxXmlLib5/generated/CObject.h"
#include "generated/Untyped.h"

namespace BxXmlLib5::Generated {

namespace {

bool EqualHeld(CXmlObjectBase* a, CXmlObjectBase* b) {
    if (a == nullptr || b == nullptr) return a == b;
    auto* const element = dynamic_cast<CElement*>(a);
    auto* const other = dynamic_cast<CElement*>(b);
    if (element != nullptr || other != nullptr) {
        return element != nullptr && other != nullptr && EqualElements(*element, *other);
    }
    return static_cast<CObject const*>(a)->Equals(*static_cast<CObject const*>(b));
}

/// @tparam P as PlaceOf() gives it
template <class P>
struct HolderActions {
    static P& Of(void* property) { return *static_cast<P*>(property); }
    static P const& Of(void const* property) { return *static_cast<P const*>(property); }

    static int Count(void const* property) {
        if constexpr (std::same_as<P, ObjectHolder> || std::same_as<P, Nil>) {
            return Of(property) ? 1 : 0;
        } else {
            return Of(property).Count();
        }
    }
    static void Clear(void* property) { Of(property) = P(); }
    static void Copy(void* property, void const* source) { Of(property) = P(Of(source)); }
    static bool Equals(void const* a, void const* b) {
        if (Count(a) != Count(b)) return false;
        if constexpr (std::same_as<P, ObjectHolder>) {
            return EqualHeld(Of(a).Held(), Of(b).Held());
        } else if constexpr (std::same_as<P, ObjectsHolder>) {
            for (int i = 0; i < Count(a); ++i) {
                if (!EqualHeld(Of(a).HeldAt(i), Of(b).HeldAt(i))) return false;
            }
            return true;
        } else if constexpr (std::same_as<P, Nil>) {
            return true;
        } else {
            return Count(a) == 0 || EqualAttributes(const_cast<P&>(Of(a)).All(), const_cast<P&>(Of(b)).All());
        }
    }

    static constexpr Actions Table(Actions::Shape shape) { return {shape, &Count, &Clear, &Copy, &Equals}; }
};

}  // namespace

constinit Actions const kObjectActions = HolderActions<ObjectHolder>::Table(Actions::Shape::Object);
constinit Actions const kCollectionActions = HolderActions<ObjectsHolder>::Table(Actions::Shape::Objects);
constinit Actions const kAnyElementActions = HolderActions<ObjectHolder>::Table(Actions::Shape::AnyElement);
constinit Actions const kAnyElementsActions =
    HolderActions<ObjectsHolder>::Table(Actions::Shape::AnyElements);
constinit Actions const kAnyAttributesActions =
    HolderActions<AnyAttributes>::Table(Actions::Shape::AnyAttributes);

constinit Actions const kNilActions = HolderActions<Nil>::Table(Actions::Shape::Nil);

}  // namespace BxXmlLib5::Generated
