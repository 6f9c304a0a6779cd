// What properties do, without their types.
#pragma once

#include <concepts>
#include <memory>
#include <string_view>
#include <type_traits>

#include "BxXmlLib5/generated/NamedTypes.h"
#include "BxXmlLib5/generated/Objects.h"
#include "BxXmlLib5/generated/Property.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5::Generated {

// Stands behind the rows: generated code names none of it.
/// @cond

/// What the rows of a class need to know of a property, one constant for each type of property.
struct Actions {
    enum class Shape : unsigned char {
        Value,
        Values,
        Object,
        Objects,
        AnyElement,
        AnyElements,
        AnyAttributes,
        Nil,
    };

    Shape shape;
    /// The number of values or objects; 0 for a property that is not set.
    int (*count)(void const* property);
    void (*clear)(void* property);
    /// A deep copy.
    void (*copy)(void* property, void const* source);
    bool (*equals)(void const* a, void const* b);

    // For simple types, null for others.

    /// Sets or adds the value of a literal.
    void (*read)(void* property, std::u16string_view text) = nullptr;
    /// The literal of a value: in the property itself, or in the room given, whatever was there.
    wstring const& (*text)(void const* property, int index, wstring& room) = nullptr;
    /// Reads and writes as the empty text.
    std::u16string_view (*defaultText)() = nullptr;
    SimpleType const* type = nullptr;
};

BXXMLLIB5_API extern Actions const kObjectActions;
BXXMLLIB5_API extern Actions const kCollectionActions;
BXXMLLIB5_API extern Actions const kAnyElementActions;
BXXMLLIB5_API extern Actions const kAnyElementsActions;
BXXMLLIB5_API extern Actions const kAnyAttributesActions;
BXXMLLIB5_API extern Actions const kNilActions;

template <class P>
concept IsValues = std::derived_from<P, Values<typename P::Type>>;

/// The actions of a property of simple type.
template <class P>
struct ValueActions {
    using S = typename P::Type;

    static P& Of(void* property) { return *static_cast<P*>(property); }
    static P const& Of(void const* property) { return *static_cast<P const*>(property); }

    static int Count(void const* property) {
        if constexpr (IsValues<P>) {
            return Of(property).Count();
        } else {
            return Of(property) ? 1 : 0;
        }
    }
    static void Clear(void* property) { Of(property).Clear(); }
    static void Copy(void* property, void const* source) {
        static_cast<P&>(Of(property)).P::operator=(Of(source));
    }
    static bool Equals(void const* a, void const* b) { return Of(a) == Of(b); }
    static void Read(void* property, std::u16string_view text) {
        if constexpr (IsValues<P>) {
            Of(property).AddText(text);
        } else {
            Of(property).SetText(text);
        }
    }
    static wstring const& Text(void const* property, [[maybe_unused]] int index, wstring& room) {
        if constexpr (!HasText<S>) {
            room.clear();
            if constexpr (IsValues<P>) {
                if (wstring const* const literal = Of(property).GetLiteral(index)) return *literal;
                AppendText<S>(room, Of(property)[index]);
            } else {
                if (wstring const* const literal = Of(property).GetLiteral()) return *literal;
                AppendText<S>(room, *Of(property));
            }
            return room;
        } else if constexpr (IsValues<P>) {
            return Of(property)[index];
        } else {
            return *Of(property);
        }
    }
    static std::u16string_view DefaultText() {
        if constexpr (requires { P::kDefault; }) {
            return P::kDefault;
        } else {
            return {};
        }
    }

    static constexpr Actions Table() {
        Actions table{IsValues<P> ? Actions::Shape::Values : Actions::Shape::Value,
                      &Count,
                      &Clear,
                      &Copy,
                      &Equals,
                      &Read,
                      &Text};
        if constexpr (requires { P::kDefault; }) table.defaultText = &DefaultText;
        table.type = &SimpleTypeOf<S>::kType;
        return table;
    }
};

template <class P>
inline constexpr Actions kValueActions = ValueActions<P>::Table();

/// The actions of a property of type P.
template <class P>
constexpr Actions const* ActionsOf() {
    if constexpr (requires { typename P::Type; }) {
        return &kValueActions<P>;
    } else if constexpr (std::same_as<P, AnyElement>) {
        return &kAnyElementActions;
    } else if constexpr (std::same_as<P, AnyElements>) {
        return &kAnyElementsActions;
    } else if constexpr (std::same_as<P, AnyAttributes>) {
        return &kAnyAttributesActions;
    } else if constexpr (std::same_as<P, Nil>) {
        return &kNilActions;
    } else if constexpr (std::derived_from<P, ObjectHolder>) {
        return &kObjectActions;
    } else {
        return &kCollectionActions;
    }
}

/// @endcond

}  // namespace BxXmlLib5::Generated
