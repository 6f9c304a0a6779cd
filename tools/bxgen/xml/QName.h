// Names with a namespace.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace BxGen {

/// What the prefix xml stands for.
inline constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// A name with its namespace, empty for none. The text belongs to the pool of the schema set.
struct QName {
    std::string_view m_namespace;
    std::string_view m_local;

    bool IsEmpty() const { return m_local.empty(); }
    auto operator<=>(QName const&) const = default;
};

/// `{namespace}local`, or `local` without a namespace.
std::string ToString(QName const& name);

/// A text of a document as messages show it: in quotes, control characters escaped, cut after 100 characters.
std::string Quoted(std::string_view text);
/// The same for a name: `'local' of 'namespace'`.
std::string Quoted(QName const& name);

}  // namespace BxGen

template <>
struct std::hash<BxGen::QName> {
    std::size_t operator()(BxGen::QName const& name) const noexcept {
        std::hash<std::string_view> const hashOf;
        return hashOf(name.m_local) * 31 + hashOf(name.m_namespace);
    }
};
