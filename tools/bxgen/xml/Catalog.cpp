#include "xml/Catalog.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "xml/File.h"
#include "xml/Uri.h"
#include "xml/XmlDocument.h"

namespace BxGen {

namespace {

constexpr std::string_view kCatalogNamespace = "urn:oasis:names:tc:entity:xmlns:xml:catalog";

enum class EntryKind { kExact, kRewrite, kSuffix, kNext, kGroup, kDelegate };

/// The elements of a catalog (OASIS XML Catalogs 1.1, section 6) with the attributes for the key and the target.
struct EntryRule {
    std::string_view m_element;
    EntryKind m_kind;
    std::string_view m_key;
    std::string_view m_target;
};

// clang-format off
constexpr EntryRule kEntryRules[] = {
    {"group",          EntryKind::kGroup,    "",                    ""},
    {"public",         EntryKind::kExact,    "publicId",            "uri"},
    {"system",         EntryKind::kExact,    "systemId",            "uri"},
    {"rewriteSystem",  EntryKind::kRewrite,  "systemIdStartString", "rewritePrefix"},
    {"systemSuffix",   EntryKind::kSuffix,   "systemIdSuffix",      "uri"},
    {"delegatePublic", EntryKind::kDelegate, "publicIdStartString", "catalog"},
    {"delegateSystem", EntryKind::kDelegate, "systemIdStartString", "catalog"},
    {"uri",            EntryKind::kExact,    "name",                "uri"},
    {"rewriteURI",     EntryKind::kRewrite,  "uriStartString",      "rewritePrefix"},
    {"uriSuffix",      EntryKind::kSuffix,   "uriSuffix",           "uri"},
    {"delegateURI",    EntryKind::kDelegate, "uriStartString",      "catalog"},
    {"nextCatalog",    EntryKind::kNext,     "",                    "catalog"},
};
// clang-format on

}  // namespace

/// Reads a catalog and those that follow it.
class CatalogReader {
public:
    CatalogReader(Catalog& catalog, Diagnostics& diagnostics)
        : m_catalog(catalog), m_diagnostics(diagnostics) {}

    void Read(std::string const& first) {
        std::vector<std::pair<std::string, Place>> open{{first, {}}};
        std::set<std::string> seen;
        for (std::size_t i = 0; i < open.size(); ++i) {
            auto const [file, place] = open[i];
            if (!seen.insert(file).second) continue;
            m_next.clear();
            ReadOne(file, place);
            open.insert(open.end(), m_next.begin(), m_next.end());
        }
    }

private:
    void ReadOne(std::string const& file, Place const& namedAt) {
        std::string_view const name = m_pool.Intern(file);
        std::string octets;
        try {
            octets = ReadFile(file);
        } catch (std::system_error const& failure) {
            std::string const text =
                "catalog " + Quoted(file) + " cannot be read: " + failure.code().message();
            return m_diagnostics.FileError(namedAt, text);
        }
        m_catalog.m_files.push_back(file);
        auto const document = XmlDocument::Parse(octets, name, {}, m_pool, m_diagnostics);
        if (!document) return;
        XmlElement const& root = document->Root();
        if (root.m_name != QName{kCatalogNamespace, "catalog"}) {
            return m_diagnostics.Error(root.m_place, "catalog",
                                       "the root of a catalog is 'catalog' of " + Quoted(kCatalogNamespace));
        }
        ReadEntries(root, UriOfPath(file));
    }

    void ReadEntries(XmlElement const& parent, std::string const& outerBase) {
        std::string const base = BaseOf(parent, outerBase);
        for (XmlElement::Node const& node : parent.m_content) {
            auto const* const child = std::get_if<XmlElement const*>(&node);
            if (child == nullptr || (*child)->m_name.m_namespace != kCatalogNamespace) continue;
            auto const* const rule =
                std::ranges::find(kEntryRules, (*child)->m_name.m_local, &EntryRule::m_element);
            if (rule != std::end(kEntryRules)) ReadEntry(**child, *rule, base);
        }
    }

    static std::string BaseOf(XmlElement const& element, std::string const& outer) {
        for (XmlAttribute const& attribute : element.m_attributes) {
            if (attribute.m_name == QName{kXmlNamespace, "base"}) return ResolveUri(outer, attribute.m_value);
        }
        return outer;
    }

    void ReadEntry(XmlElement const& element, EntryRule const& rule, std::string const& outerBase) {
        if (rule.m_kind == EntryKind::kGroup) return ReadEntries(element, outerBase);
        std::string_view const* const key = rule.m_key.empty() ? nullptr : element.Find(rule.m_key);
        std::string_view const* const target = element.Find(rule.m_target);
        bool const isWhole = target != nullptr && (key != nullptr || rule.m_key.empty());
        if (!isWhole) {
            return m_diagnostics.Error(element.m_place, "catalog",
                                       Quoted(rule.m_element) + " lacks an attribute that it must have");
        }
        std::string const uri = ResolveUri(BaseOf(element, outerBase), *target);
        switch (rule.m_kind) {
            case EntryKind::kExact:
                m_catalog.m_exact.emplace(*key, uri);
                break;
            case EntryKind::kRewrite:
                m_catalog.m_rewrites.push_back({std::string(*key), uri});
                break;
            case EntryKind::kSuffix:
                m_catalog.m_suffixes.push_back({std::string(*key), uri});
                break;
            case EntryKind::kNext:
                Follow(uri, element.m_place);
                break;
            default:
                m_diagnostics.Warning(element.m_place, "catalog",
                                      Quoted(rule.m_element) + " is passed over; use 'nextCatalog'");
        }
    }

    void Follow(std::string const& uri, Place const& place) {
        if (auto path = PathOfUri(uri)) {
            m_next.emplace_back(*std::move(path), place);
        } else {
            m_diagnostics.Warning(place, "catalog",
                                  "the catalog " + Quoted(uri) + " is no file and is passed over");
        }
    }

    Catalog& m_catalog;
    Diagnostics& m_diagnostics;
    StringPool m_pool;
    std::vector<std::pair<std::string, Place>> m_next;
};

void Catalog::Add(std::string uri, std::string const& file) {
    m_exact.insert_or_assign(std::move(uri), UriOfPath(file));
}

void Catalog::Load(std::string const& file, Diagnostics& diagnostics) {
    CatalogReader(*this, diagnostics).Read(file);
}

std::optional<std::string> Catalog::Find(std::string_view uri) const {
    if (auto const exact = m_exact.find(std::string(uri)); exact != m_exact.end())
        return PathOfUri(exact->second);
    Rule const* best = nullptr;
    auto const longer = [&best](Rule const& rule) { return !best || rule.m_key.size() > best->m_key.size(); };
    for (Rule const& rule : m_rewrites) {
        if (uri.starts_with(rule.m_key) && longer(rule)) best = &rule;
    }
    if (best != nullptr) return PathOfUri(best->m_target + std::string(uri.substr(best->m_key.size())));
    for (Rule const& rule : m_suffixes) {
        if (uri.ends_with(rule.m_key) && longer(rule)) best = &rule;
    }
    if (best != nullptr) return PathOfUri(best->m_target);
    return std::nullopt;
}

}  // namespace BxGen
