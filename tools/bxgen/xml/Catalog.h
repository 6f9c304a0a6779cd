// Where locations and namespaces lead: OASIS XML catalogs and the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Diagnostics.h"

namespace BxGen {

/// A map from URIs to files. It holds the entries of OASIS XML Catalogs 1.1 that lead to files: system, uri, public,
/// rewriteSystem, rewriteURI, systemSuffix, uriSuffix, group, nextCatalog with xml:base; delegation is refused.
/// system and uri entries are used alike, and so are namespaces: a uri entry whose name is a namespace leads an import
/// without a location to its file.
class Catalog {
public:
    /// Maps one URI: a location or a namespace. Goes before what the catalogs say.
    void Add(std::string uri, std::string const& file);

    /// Reads a catalog and those that it names.
    /// @param diagnostics is told what is wrong with them
    void Load(std::string const& file, Diagnostics& diagnostics);

    /// The file that a URI leads to; nothing if no entry fits. Exact entries go before rewriting, longer starts before
    /// shorter ones, the first of equal ones before later ones.
    std::optional<std::string> Find(std::string_view uri) const;

    /// The catalogs that were read.
    std::vector<std::string> const& Files() const { return m_files; }

private:
    friend class CatalogReader;

    /// What begins (or ends) with the key is mapped to the target (and what follows the key).
    struct Rule {
        std::string m_key;
        std::string m_target;
    };

    std::unordered_map<std::string, std::string> m_exact;
    std::vector<Rule> m_rewrites;
    std::vector<Rule> m_suffixes;
    std::vector<std::string> m_files;
};

}  // namespace BxGen
