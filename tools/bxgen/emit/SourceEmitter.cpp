#include "emit/SourceEmitter.h"

#include "emit/HeaderEmitter.h"
#include "emit/Lines.h"
#include "emit/Literals.h"
#include "schema/Components.h"

namespace BxGen {

namespace {

constexpr std::string_view kVersionTest =
    "static_assert(Bx::kVersion == 1, \"generated for another version of BxXmlLib5: run bxgen again\");\n\n";

std::string NameOfRows(ClassPlan const& plan) {
    return 'k' + plan.m_name + "Rows";
}

std::string WaysText(int ways) {
    std::string text;
    if ((ways & kExtension) != 0) text = "Bx::kExtension";
    if ((ways & kRestriction) != 0) text += (text.empty() ? "" : " | ") + std::string("Bx::kRestriction");
    return text;
}

}  // namespace

std::string SourceEmitter::Argument(RowArgument const& argument) {
    if (auto const* const text = std::get_if<std::string>(&argument)) return TextLiteral(*text);
    if (auto const* const uri = std::get_if<NamespaceArgument>(&argument))
        return m_references.Namespace(uri->m_uri);
    if (auto const* const ways = std::get_if<WaysArgument>(&argument)) return WaysText(ways->m_ways);
    int const number = std::get<int>(argument);
    return number == kMany ? "Bx::kMany" : std::to_string(number);
}

std::string SourceEmitter::Row(ClassPlan const& owner, RowPlan const& row) {
    std::string text = "Bx::" + row.m_kind;
    std::string parameters;
    if (!row.m_property.empty()) parameters = '&' + owner.m_name + "::" + row.m_property;
    if (row.m_class != nullptr)
        parameters += (parameters.empty() ? "" : ", ") + m_references.Name(*row.m_class);
    std::string arguments;
    for (RowArgument const& argument : row.m_arguments)
        arguments += (arguments.empty() ? "" : ", ") + Argument(argument);
    if (!parameters.empty()) {
        text += '<' + parameters + ">(" + arguments + ')';
    } else if (!arguments.empty()) {
        text += '(' + arguments + ')';
    }
    if (row.m_isNillable) text = "Bx::Nillable(" + text + ')';
    if (row.m_narrowed) text = "Bx::Narrowed<" + m_references.Type(*row.m_narrowed) + ">(" + text + ')';
    if (row.m_value) {
        text = (row.m_value->m_isFixed ? "Bx::Fixing(" : "Bx::Defaulting(") + text + ", " +
               TextLiteral(row.m_value->m_text) + ')';
    }
    if (row.m_blocked != 0) text = "Bx::Blocking(" + text + ", " + WaysText(row.m_blocked) + ')';
    return std::string(4 + 4 * static_cast<std::size_t>(row.m_depth), ' ') + text + ",\n";
}

std::string SourceEmitter::Class(ClassPlan const& plan) {
    std::string const rows = NameOfRows(plan);
    std::string text = "constexpr Bx::Row " + rows + "[] = {\n";
    for (RowPlan const& row : plan.m_rows) text += Row(plan, row);
    if (plan.m_rows.empty()) text += "    Bx::Sequence,\n    Bx::End,\n";
    return text + "};\n\n";
}

std::string SourceEmitter::NameOfSet() {
    return m_references.Name({&m_plan.m_units.front(), "kSet"});
}

std::string SourceEmitter::SetOfClasses() {
    std::string types;
    for (ClassPlan const& plan : m_plan.m_classes)
        if (plan.m_isNamedType && !plan.m_isAlias) types += "    &" + m_references.Name(plan) + "::kClass,\n";
    std::string names;
    for (ClassPlan const& plan : m_plan.m_classes)
        if (plan.m_isNamedType && plan.m_isAlias)
            names += "    {" + TextLiteral(plan.m_xmlName) + ", " +
                     m_references.Namespace(plan.m_xmlNamespace) + ", &" + m_references.Name(plan) +
                     "::kClass, " + WaysText(plan.m_derivation) + "},\n";
    std::string simples;
    for (SimpleNamePlan const& plan : m_plan.m_simpleNames)
        simples += "    Bx::Simple<" + m_references.Type(plan.m_type) + ", " +
                   m_references.Type(plan.m_base) + ">(" + TextLiteral(plan.m_name) + ", " +
                   m_references.Namespace(plan.m_namespace) + "),\n";
    std::string aliases;
    for (NamespacePlan const& plan : m_plan.m_namespaces)
        if (!plan.m_prefix.empty())
            aliases +=
                "    {" + TextLiteral(plan.m_prefix) + ", " + m_references.Namespace(plan.m_uri) + "},\n";
    std::string tables;
    std::string members;
    auto const add = [&](std::string_view name, std::string_view head, std::string const& lines) {
        if (lines.empty()) return;
        tables += "constexpr " + std::string(head) + " = {\n" + lines + "};\n\n";
        members += '.' + std::string(name) + ", ";
    };
    add("types = kTypes", "Bx::Class const* kTypes[]", types);
    add("typeNames = kTypeNames", "Bx::TypeName kTypeNames[]", names);
    add("simpleTypes = kSimpleTypes", "Bx::SimpleTypeName kSimpleTypes[]", simples);
    members += ".builtInTypes = Bx::kBuiltInTypes<>, ";
    add("aliases = kAliases", "Bx::Alias kAliases[]", aliases);
    if (!tables.empty()) tables = "namespace {\n\n" + tables + "}  // namespace\n\n";
    return tables + "constinit Bx::Set const kSet{" + members +
           ".hasDefaultNamespace = " + (m_plan.m_hasDefaultNamespace ? "true" : "false") + "};\n\n";
}

std::string SourceEmitter::Source(std::span<ClassPlan const* const> classes, bool isFirst) {
    std::string const set = isFirst && &m_unit == &m_plan.m_units.front() ? SetOfClasses() : "";
    std::string rows;
    std::string definitions;
    for (ClassPlan const* const plan : classes) {
        if (plan->m_isAlias) continue;
        rows += Class(*plan);
        std::string elementNamespace;
        if (plan->m_elementNamespace != plan->m_xmlNamespace)
            elementNamespace = ", " + m_references.Namespace(plan->m_elementNamespace);
        definitions += "constinit Bx::Class const " + plan->m_name + "::kClass = Bx::Describe<" +
                       plan->m_name + ">(" + NameOfSet() + ", " + TextLiteral(plan->m_xmlName) + ", " +
                       m_references.Namespace(plan->m_xmlNamespace) + ", " + NameOfRows(*plan) +
                       elementNamespace + ");\n";
        if (!plan->m_isAbstract)
            definitions += "Bx::Class const& " + plan->m_name + "::Describe() const { return kClass; }\n\n";
    }
    for (ClassPlan const* const plan : classes)
        for (PropertyPlan const& property : plan->m_properties) m_references.Type(property.m_type);
    std::string text = Banner(m_plan) + "#include \"" + m_unit.m_file + ".h\"\n";
    for (Unit const& unit : m_plan.m_units)
        if (m_references.Needed().contains(&unit)) text += "#include \"" + unit.m_file + ".h\"\n";
    text += "\nnamespace " + m_unit.m_name + " {\n\n" + std::string(kVersionTest) + set;
    if (!rows.empty()) text += "namespace {\n\n" + rows + "}  // namespace\n\n";
    return Broken(text + definitions + "}  // namespace " + m_unit.m_name + '\n');
}

}  // namespace BxGen
