// What a generated class tells of itself.
#pragma once

#include <atomic>
#include <cstddef>
#include <span>
#include <type_traits>

#include "BxXmlLib5/generated/Row.h"
#include "BxXmlLib5/platform/Export.h"

namespace BxXmlLib5::Generated {

class CGroup;
class CObject;
class RootTag;

/// A prefix that documents declare for a namespace.
struct Alias {
    char16_t const* prefix;        ///< not empty
    char16_t const* namespaceUri;  ///< not empty
};

/// Another name of a class: that of a type which adds nothing to the one that the class is for.
struct TypeName {
    char16_t const* name;          ///< the local name of the type
    char16_t const* namespaceUri;  ///< empty for none
    Class const* type;             ///< the class that stands for it
    unsigned char derivation = 0;  ///< The ways of derivation between the two, as bits.
};

/// What the classes that were generated together have in common. It is a constant:
///
///     constinit Bx::Set const kSet{.types = kTypes, .aliases = kAliases};
struct Set {
    /// The classes of all named types, to find the one that an xsi:type names.
    std::span<Class const* const> types = {};
    /// Named types that have no class of their own, for the same.
    std::span<TypeName const> typeNames = {};
    /// The simple types that have names, for the same; and kBuiltInTypes.
    std::span<SimpleTypeName const> simpleTypes = {};
    /// kBuiltInTypes, or nothing where no document may name one of them.
    std::span<SimpleTypeName const> builtInTypes = {};
    /// The prefixes that documents declare at their root.
    std::span<Alias const> aliases = {};
    /// The namespace of the root is declared as the default one, so elements have no prefix. False where
    /// elements of the set are in no namespace.
    bool hasDefaultNamespace = true;
};

struct Model;

/// The description of a class: a constant, which the library prepares for use when it is first needed.
class BXXMLLIB5_API Class {
public:
    /// What Describe() gathers. All that it points to is constant.
    struct Facts {
        Set const* set;                    ///< the set that the class is of
        char16_t const* name;              ///< of the type or, for a root, of the element
        char16_t const* namespaceUri;      ///< of the same
        std::span<Row const> rows;         ///< the content, in the order of the schema
        char16_t const* elementNamespace;  ///< of elements whose rows name none
        CObject* (*make)();                ///< Null for an abstract class.
        bool isRoot;                       ///< documents may begin with it
        bool isGroup;                      ///< a model group that repeats, so it has no tag
        /// Where a root has the object of a derived type; null if there is none.
        void* (*xsiTyped)(CObject&) = nullptr;
    };

    /// Keeps the facts. Generated code calls Describe() instead.
    constexpr explicit Class(Facts const& facts) : m_facts(facts) {}
    /// @{
    /// A class has one description, which is known by its address.
    Class(Class const&) = delete;
    Class& operator=(Class const&) = delete;
    /// @}
    /// Trivial, so that the constant is there as long as the program runs.
    constexpr ~Class() = default;

    /// The facts as they were given.
    Facts const& GetFacts() const { return m_facts; }

    /// The rows prepared for use; made by the first thread that comes by, and never freed.
    Model const& GetModel() const {
        Model const* const model = m_model.load(std::memory_order_acquire);
        return model != nullptr ? *model : MakeModel();
    }

private:
    Model const& MakeModel() const;

    Facts m_facts;
    mutable std::atomic<Model const*> m_model = nullptr;
};

/// Where an object of class T has its XsiTyped, null if it has none.
template <class T>
constexpr auto PlaceOfXsiTyped() -> void* (*)(CObject&) {
    if constexpr (requires { &T::XsiTyped; }) {
        return &PlaceOf<&T::XsiTyped>;
    } else {
        return nullptr;
    }
}

/// A new object of class T, which the caller owns.
template <class T>
CObject* New() {
    return new T;
}

/// The description of class T.
/// @param name of its type or, for a root, of its element
/// @param namespaceUri of its type or, for a root, of its element
/// @param elementNamespace of the elements whose rows name none
template <class T, std::size_t kRows>
constexpr Class Describe(Set const& set, char16_t const* name, char16_t const* namespaceUri,
                         Row const (&rows)[kRows], char16_t const* elementNamespace) {
    CObject* (*make)() = nullptr;
    if constexpr (!std::is_abstract_v<T>) make = &New<T>;
    return Class({&set, name, namespaceUri, rows, elementNamespace, make, std::is_base_of_v<RootTag, T>,
                  std::is_base_of_v<CGroup, T>, PlaceOfXsiTyped<T>()});
}
/// The description of class T, whose elements are in its own namespace.
template <class T, std::size_t kRows>
constexpr Class Describe(Set const& set, char16_t const* name, char16_t const* namespaceUri,
                         Row const (&rows)[kRows]) {
    return Describe<T>(set, name, namespaceUri, rows, namespaceUri);
}

}  // namespace BxXmlLib5::Generated
