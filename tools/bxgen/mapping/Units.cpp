#include "mapping/Units.h"

#include <algorithm>
#include <functional>
#include <set>

#include "schema/BuiltIn.h"

namespace BxGen {

namespace {

/// The name of a file without folders and extension.
std::string_view StemOf(std::string_view path) {
    path.remove_prefix(path.rfind('/') + 1);
    return path.substr(0, path.find('.', 1));
}

std::string FileNameOf(std::string name) {
    for (std::size_t at = name.find("::"); at != name.npos; at = name.find("::")) name.replace(at, 2, "_");
    return name;
}

}  // namespace

Units::Units(Mapping const& mapping) : m_mapping(mapping) {
    Options const& options = mapping.m_options;
    for (auto const& [uri, name] : options.m_namespaces) m_names[uri] = name;
    if (options.m_name) {
        m_default = *options.m_name;
    } else if (!options.m_schemas.empty()) {
        m_default = Camel(StemOf(options.m_schemas[0]), true);
    }
    if (m_default.empty()) m_default = "Schema";
    for (SchemaDocument const* const document : mapping.m_set.Documents()) {
        if (!document->m_isBuiltIn) Of(document->m_targetNamespace);
    }
    // Build systems know the files from the command line, whatever the schemas hold.
    if (options.m_name) Make(m_default);
    for (auto const& [uri, name] : options.m_namespaces) Make(name);
    mapping.m_plan.m_program = FileNameOf(m_default) + "Main";
}

Unit& Units::Of(std::string_view namespaceUri) {
    auto const found = m_names.find(namespaceUri);
    Unit& unit = Make(found == m_names.end() ? m_default : found->second);
    if (std::ranges::find(unit.m_namespaces, namespaceUri) == unit.m_namespaces.end())
        unit.m_namespaces.emplace_back(namespaceUri);
    return unit;
}

Unit& Units::Make(std::string const& name) {
    Unit*& unit = m_unitsByName[name];
    if (unit == nullptr) {
        unit = &m_mapping.m_plan.m_units.emplace_back();
        unit->m_name = name;
        unit->m_file = FileNameOf(name);
        for (Unit const& other : m_mapping.m_plan.m_units) {
            if (&other == unit || other.m_file != unit->m_file) continue;
            m_mapping.m_diagnostics.Error({}, "namespace",
                                          "the C++ namespaces " + Quoted(other.m_name) + " and " +
                                              Quoted(name) + " would have the same files");
        }
        // A type of the same name would hide the namespace.
        unit->m_scope.Add(name.substr(name.rfind(':') + 1));
    }
    return *unit;
}

void Units::Need(std::string_view namespaceUri) {
    if (namespaceUri.empty() || !m_needed.try_emplace(std::string(namespaceUri), true).second) return;
    m_order.emplace_back(namespaceUri);
}

std::map<std::string_view, std::string_view> Units::PrefixesOfSchemas() const {
    std::map<std::string_view, std::string_view> prefixes = {{kXmlNamespace, "xml"}, {kXsiNamespace, "xsi"}};
    for (SchemaDocument const* const document : m_mapping.m_set.Documents()) {
        if (document->m_root == nullptr || document->m_root->m_scope == nullptr) continue;
        for (NamespaceScope::Declaration const& declaration : document->m_root->m_scope->m_declarations) {
            if (!declaration.m_prefix.empty()) prefixes.try_emplace(declaration.m_uri, declaration.m_prefix);
        }
    }
    return prefixes;
}

void Units::NameConstants() {
    std::map<std::string_view, std::string_view> const prefixes = PrefixesOfSchemas();
    std::set<std::string, std::less<>> taken = {"xml", "xsi", "xmlns"};
    std::set<Unit const*> named;
    // The only namespace of elements is the default one of documents.
    auto const ofElements = std::ranges::count_if(
        m_order, [](std::string const& uri) { return uri != kXmlNamespace && uri != kXsiNamespace; });
    bool const needsPrefix = ofElements > 1 || !m_mapping.m_plan.m_hasDefaultNamespace;
    for (std::string const& uri : m_order) {
        auto const known = prefixes.find(uri);
        std::string const wanted = known == prefixes.end() ? "ns" : std::string(known->second);
        std::string prefix = wanted;
        for (int number = 2; uri != kXmlNamespace && uri != kXsiNamespace && !taken.insert(prefix).second;
             ++number)
            prefix = wanted + std::to_string(number);
        Unit& unit = Of(uri);
        bool const isFirst = named.insert(&unit).second && uri != kXmlNamespace && uri != kXsiNamespace;
        // That of XML is declared by itself.
        if (uri == kXmlNamespace || (known == prefixes.end() && !needsPrefix)) prefix.clear();
        std::string const constant = isFirst ? "kNamespace" : 'k' + Camel(wanted, true);
        m_mapping.m_plan.m_namespaces.push_back({uri, unit.m_scope.Take(constant), prefix, &unit});
    }
}

namespace {

void AddUnits(TypeExpression const& expression, std::set<Unit const*>& units) {
    // The classes of objects are declared ahead.
    bool const isHolder = expression.m_text == "Bx::Object" || expression.m_text == "Bx::Collection";
    if (expression.m_symbol != nullptr) units.insert(expression.m_symbol->m_unit);
    for (TypeExpression const& argument : expression.m_arguments) {
        if (isHolder && argument.m_symbol != nullptr) continue;
        AddUnits(argument, units);
    }
}

}  // namespace

void Units::CheckOrder() const {
    std::map<Unit const*, std::set<Unit const*>> needs;
    for (Unit const& unit : m_mapping.m_plan.m_units) {
        std::set<Unit const*>& needed = needs[&unit];
        for (SimplePlan const* const simple : unit.m_simples) AddUnits(simple->m_base, needed);
        for (ClassPlan const* const one : unit.m_classes) {
            AddUnits(one->m_base, needed);
            for (PropertyPlan const& property : one->m_properties) AddUnits(property.m_type, needed);
        }
        needed.erase(&unit);
    }
    std::set<Unit const*> done, open;
    std::function<void(Unit const&)> const visit = [&](Unit const& unit) {
        if (done.contains(&unit)) return;
        open.insert(&unit);
        for (Unit const& other : m_mapping.m_plan.m_units) {
            if (!needs[&unit].contains(&other)) continue;
            if (open.contains(&other)) {
                m_mapping.m_diagnostics.Error(
                    {}, "namespace",
                    "the C++ namespaces " + Quoted(unit.m_name) + " and " + Quoted(other.m_name) +
                        " need each other's types; give their XML namespaces one name: --namespace-map " +
                        (unit.m_namespaces.empty() ? "" : unit.m_namespaces[0]) + '=' + other.m_name);
            } else {
                visit(other);
            }
        }
        open.erase(&unit);
        done.insert(&unit);
    };
    for (Unit const& unit : m_mapping.m_plan.m_units) visit(unit);
}

}  // namespace BxGen
