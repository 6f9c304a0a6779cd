// The namespaces of C++, and those of XML.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "mapping/Mapping.h"

namespace BxGen {

class Units {
public:
    explicit Units(Mapping const& mapping);

    /// Where the components of an XML namespace go.
    Unit& Of(std::string_view namespaceUri);

    /// Notes that generated code names a namespace, by a constant that NameConstants makes.
    void Need(std::string_view namespaceUri);

    /// Gives the namespaces their constants and prefixes.
    void NameConstants();

    /// Reports units that need each other's headers.
    void CheckOrder() const;

private:
    Unit& Make(std::string const& name);
    std::map<std::string_view, std::string_view> PrefixesOfSchemas() const;

    Mapping m_mapping;
    std::map<std::string, Unit*, std::less<>> m_unitsByName;
    std::map<std::string, std::string, std::less<>> m_names;  ///< of C++, by namespace of XML
    std::map<std::string, bool, std::less<>> m_needed;
    std::vector<std::string> m_order;
    std::string m_default;
};

}  // namespace BxGen
