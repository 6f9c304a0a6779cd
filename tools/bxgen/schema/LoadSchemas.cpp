#include "schema/LoadSchemas.h"

#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

#include "schema/BuiltInTypes.h"
#include "schema/ComponentReader.h"
#include "schema/Resolver.h"
#include "schema/SchemaStore.h"
#include "schema/Syntax.h"
#include "schema/Text.h"
#include "xml/File.h"
#include "xml/Uri.h"

namespace BxGen {

namespace {

namespace fs = std::filesystem;

constexpr std::array<QName, 2> kVerbatim = {QName{kXsdNamespace, "documentation"},
                                            QName{kXsdNamespace, "appinfo"}};

/// Where a document is, and what it was called: the file, and the URI that a catalog led here from, or none.
struct Source {
    std::string m_path;
    std::string m_uri;
};

/// A file that was read.
struct LoadedFile {
    std::string_view m_name;
    Source m_source;
    XmlElement const* m_root = nullptr;  ///< null if it is no schema
};

/// Finds and reads documents.
class Loader {
public:
    Loader(SchemaStore& store, Catalog const& catalog, Diagnostics& diagnostics)
        : m_store(store), m_catalog(catalog), m_diagnostics(diagnostics) {}

    void Load(std::vector<std::string> const& files) {
        for (std::string const& file : files) {
            if (LoadedFile const* const loaded = Read({file, {}}, {}))
                Add(*loaded, TargetOf(*loaded->m_root), false);
        }
        // Grows while it is walked: documents come in the order in which they are named.
        for (std::size_t i = 0; i < m_store.m_documents.size(); ++i) Follow(m_store.m_documents[i]);
        AddBuiltInSchemas();
        for (SchemaDocument const& document : m_store.m_documents) {
            ComponentReader(m_store, document, m_diagnostics).Read();
        }
    }

private:
    static std::string_view TargetOf(XmlElement const& schema) {
        std::string_view const* const target = schema.Find("targetNamespace");
        return target != nullptr ? Trimmed(*target) : std::string_view();
    }

    // ------------------------------------------------------------------------------------------------------
    // files

    /// Reads a file once, however it is called; null after an error.
    /// @param place of the reference; of no file for one of the command line
    LoadedFile const* Read(Source source, Place const& place) {
        std::error_code ignored;
        std::string identity = fs::weakly_canonical(source.m_path, ignored).string();
        if (identity.empty()) identity = source.m_path;
        auto const [entry, isNew] = m_loaded.try_emplace(std::move(identity));
        LoadedFile& file = entry->second;
        if (isNew) {
            file.m_name = m_store.m_pool.Intern(source.m_path);
            file.m_source = std::move(source);
            try {
                std::string const octets = ReadFile(file.m_source.m_path);
                m_store.m_files.push_back(file.m_source.m_path);
                file.m_root = Parse(octets, file.m_name);
            } catch (std::system_error const& failure) {
                m_diagnostics.FileError(place,
                                        Quoted(file.m_name) + " cannot be read: " + failure.code().message());
            }
        }
        return file.m_root != nullptr ? &file : nullptr;
    }

    XmlElement const* Parse(std::string_view octets, std::string_view name) {
        auto document = XmlDocument::Parse(octets, name, kVerbatim, m_store.m_pool, m_diagnostics);
        if (!document || !CheckSyntax(document->Root(), m_diagnostics)) return nullptr;
        m_store.m_xmlDocuments.push_back(std::move(document));
        return &m_store.m_xmlDocuments.back()->Root();
    }

    SchemaDocument const& Add(LoadedFile const& file, std::string_view target, bool isChameleon) {
        auto const [entry, isNew] = m_documentsByTarget.try_emplace({&file, target}, nullptr);
        if (isNew) {
            entry->second = &AddDocument(*file.m_root, file.m_name, target);
            entry->second->m_isChameleon = isChameleon;
            m_store.m_listedDocuments.push_back(entry->second);
            m_filesByDocument.emplace(entry->second, &file);
        }
        return *entry->second;
    }

    SchemaDocument& AddDocument(XmlElement const& root, std::string_view file, std::string_view target) {
        SchemaDocument& document = m_store.m_documents.emplace_back();
        document.m_file = file;
        document.m_targetNamespace = target;
        document.m_root = &root;
        std::string_view const* const elements = root.Find("elementFormDefault");
        std::string_view const* const attributes = root.Find("attributeFormDefault");
        document.m_elementsQualified = elements != nullptr && Trimmed(*elements) == "qualified";
        document.m_attributesQualified = attributes != nullptr && Trimmed(*attributes) == "qualified";
        if (root.Find("targetNamespace") != nullptr && TargetOf(root).empty()) {
            m_diagnostics.Error(root.m_place, "syntax",
                                "a target namespace must not be empty; leave the attribute out");
        }
        return document;
    }

    /// Schemas that come with the tool serve imports that found nothing else.
    void AddBuiltInSchemas() {
        for (std::string_view const uri : m_wantedBuiltIns) {
            std::string_view const name = m_store.m_pool.Intern("(built in) " + std::string(uri));
            XmlElement const* const root = Parse(BuiltInSchema(uri), name);
            SchemaDocument& document = AddDocument(*root, name, uri);
            document.m_isBuiltIn = true;
        }
    }

    // -------------------------------------------------------------------------------------------------
    // references

    void Follow(SchemaDocument& document) {
        constexpr std::pair<std::string_view, SchemaReference::Kind> kKinds[] = {
            {"include", SchemaReference::Kind::kInclude},
            {"import", SchemaReference::Kind::kImport},
            {"redefine", SchemaReference::Kind::kRedefine},
        };
        for (XmlElement::Node const& node : document.m_root->m_content) {
            XmlElement const& child = *std::get<XmlElement const*>(node);
            if (child.m_name.m_local == "annotation") AddAnnotation(document, child);
            for (auto const& [name, kind] : kKinds) {
                if (child.m_name.m_local != name) continue;
                document.m_references.push_back(ReadReference(child, kind));
                SchemaReference& reference = document.m_references.back();
                reference.m_document = kind == SchemaReference::Kind::kImport ? Import(document, reference)
                                                                              : Include(document, reference);
            }
        }
    }

    static void AddAnnotation(SchemaDocument& document, XmlElement const& element) {
        Annotation& annotation = document.m_annotations.emplace_back();
        for (XmlElement::Node const& node : element.m_content) {
            XmlElement const* const part = std::get<XmlElement const*>(node);
            bool const isDocumentation = part->m_name.m_local == "documentation";
            (isDocumentation ? annotation.m_documentation : annotation.m_appInfo).push_back(part);
        }
    }

    static SchemaReference ReadReference(XmlElement const& element, SchemaReference::Kind kind) {
        SchemaReference reference;
        reference.m_kind = kind;
        reference.m_place = element.m_place;
        if (std::string_view const* const uri = element.Find("namespace"))
            reference.m_namespace = Trimmed(*uri);
        if (std::string_view const* const location = element.Find("schemaLocation")) {
            reference.m_location = Trimmed(*location);
        }
        return reference;
    }

    SchemaDocument const* Include(SchemaDocument const& from, SchemaReference const& reference) {
        auto const source = Locate(from, *reference.m_location);
        if (!source) {
            m_store.m_missing.push_back(
                {reference.m_place, std::string(*reference.m_location), from.m_targetNamespace});
            return nullptr;
        }
        LoadedFile const* const file = Read(*source, reference.m_place);
        if (file == nullptr) return nullptr;
        std::string_view const target = TargetOf(*file->m_root);
        if (target.empty()) return &Add(*file, from.m_targetNamespace, !from.m_targetNamespace.empty());
        if (target == from.m_targetNamespace) return &Add(*file, target, false);
        m_diagnostics.Error(reference.m_place, "namespace",
                            Quoted(file->m_name) + " has the target namespace " + Quoted(target) +
                                ", which is not that of the schema that includes it");
        return nullptr;
    }

    SchemaDocument const* Import(SchemaDocument const& from, SchemaReference const& reference) {
        if (reference.m_namespace == from.m_targetNamespace) {
            m_diagnostics.Error(reference.m_place, "namespace",
                                "a schema must not import its own target namespace");
            return nullptr;
        }
        auto source = reference.m_location ? Locate(from, *reference.m_location) : std::nullopt;
        if (!source) source = Mapped(reference.m_namespace);
        if (!source) {
            if (!BuiltInSchema(reference.m_namespace).empty()) {
                Want(reference.m_namespace);
            } else if (reference.m_namespace != kXsdNamespace) {
                m_store.m_missing.push_back({reference.m_place,
                                             std::string(reference.m_location.value_or("")),
                                             reference.m_namespace});
            }
            return nullptr;
        }
        LoadedFile const* const file = Read(*source, reference.m_place);
        if (file == nullptr) return nullptr;
        std::string_view const target = TargetOf(*file->m_root);
        if (target == reference.m_namespace) return &Add(*file, target, false);
        m_diagnostics.Error(reference.m_place, "namespace",
                            Quoted(file->m_name) + " has the target namespace " + Quoted(target) + ", not " +
                                Quoted(reference.m_namespace));
        return nullptr;
    }

    void Want(std::string_view namespaceUri) {
        auto const found = std::ranges::find(m_wantedBuiltIns, namespaceUri);
        if (found == m_wantedBuiltIns.end()) m_wantedBuiltIns.push_back(namespaceUri);
    }

    std::optional<Source> Mapped(std::string_view uri) const {
        if (uri.empty()) return std::nullopt;
        if (auto path = m_catalog.Find(uri)) return Source{*std::move(path), std::string(uri)};
        return std::nullopt;
    }

    /// The file that a location means: what the catalog maps, else a file that is there.
    std::optional<Source> Locate(SchemaDocument const& from, std::string_view location) const {
        if (auto mapped = Mapped(location)) return mapped;
        Source const& base = m_filesByDocument.at(&from)->m_source;
        if (!base.m_uri.empty()) {
            if (auto mapped = Mapped(ResolveUri(base.m_uri, location))) return mapped;
        }
        if (location.empty() || location.find('\0') != location.npos) return std::nullopt;
        std::string const besideBase = ResolveUri(UriOfPath(base.m_path), location);
        if (auto const path = PathOfUri(besideBase); path && fs::exists(*path, m_ignored))
            return Source{*path, {}};
        // A name with a percent sign or the like that is meant as it stands.
        std::string const literal =
            (fs::path(base.m_path).parent_path() / fs::path(location)).lexically_normal().string();
        if (!HasScheme(location) && fs::exists(literal, m_ignored)) return Source{literal, {}};
        return std::nullopt;
    }

    SchemaStore& m_store;
    Catalog const& m_catalog;
    Diagnostics& m_diagnostics;
    std::map<std::string, LoadedFile> m_loaded;
    std::map<std::pair<LoadedFile const*, std::string_view>, SchemaDocument*> m_documentsByTarget;
    std::map<SchemaDocument const*, LoadedFile const*> m_filesByDocument;
    std::vector<std::string_view> m_wantedBuiltIns;
    mutable std::error_code m_ignored;
};

}  // namespace

SchemaSet LoadSchemas(std::vector<std::string> const& files, Catalog const& catalog,
                      Diagnostics& diagnostics) {
    auto store = std::make_unique<SchemaStore>();
    store->m_files = catalog.Files();
    AddBuiltInTypes(*store);
    Loader(*store, catalog, diagnostics).Load(files);
    if (!diagnostics.HasErrors()) ResolveComponents(*store, diagnostics);
    return SchemaSet(std::move(store));
}

}  // namespace BxGen
