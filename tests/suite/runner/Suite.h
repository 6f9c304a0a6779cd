// What the program that runs a suite knows of the generated classes that are linked into it.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "BxXmlLib5/generated/Generated.h"

namespace Suite {

/// The roots of the classes of one group of schemas. A constant of this type beside them makes the group known.
class Group {
public:
    Group(std::string_view name, std::initializer_list<BxXmlLib5::Generated::Class const*> roots);

    /// Null if the program has no such group.
    static Group const* Find(std::string_view name);

    /// Null if the group has no such root.
    BxXmlLib5::Generated::Class const* FindRoot(std::u16string_view name,
                                                std::u16string_view namespaceUri) const;

private:
    std::vector<BxXmlLib5::Generated::Class const*> m_roots;
};

}  // namespace Suite
