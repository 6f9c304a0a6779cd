// What a plan holds, in few words.
#pragma once

#include <string>

#include "Folder.h"
#include "mapping/MakePlan.h"
#include "schema/LoadSchemas.h"

namespace BxGen {

inline std::string TypeText(TypeExpression const& type) {
    std::string text = type.m_symbol != nullptr ? type.m_symbol->m_name : type.m_text;
    std::string arguments;
    for (TypeExpression const& argument : type.m_arguments)
        arguments += (arguments.empty() ? "" : ", ") + TypeText(argument);
    if (type.m_literal) arguments += ", \"" + *type.m_literal + '"';
    return arguments.empty() ? text : text + '<' + arguments + '>';
}

inline std::string SimpleText(SimplePlan const& plan) {
    std::string text = plan.m_name + (plan.m_isAlias ? " = " : " : ") + TypeText(plan.m_base);
    for (FacetPlan const& facet : plan.m_facets) text += ' ' + facet.m_name + '=' + facet.m_value;
    for (EnumeratorPlan const& enumerator : plan.m_enumerators)
        text += ' ' + enumerator.m_name + "='" + enumerator.m_text + '\'';
    for (std::string const& value : plan.m_values) text += " '" + value + '\'';
    return text + '\n';
}

inline std::string RowText(RowPlan const& row) {
    std::string text = row.m_kind;
    std::string arguments = row.m_property;
    auto const add = [&](std::string const& argument) {
        arguments += (arguments.empty() ? "" : " ") + argument;
    };
    if (row.m_class != nullptr) add('<' + row.m_class->m_name + '>');
    for (RowArgument const& argument : row.m_arguments) {
        if (auto const* const name = std::get_if<std::string>(&argument)) add(*name);
        if (auto const* const uri = std::get_if<NamespaceArgument>(&argument)) add('{' + uri->m_uri + '}');
        if (auto const* const number = std::get_if<int>(&argument))
            add(*number == kMany ? "*" : std::to_string(*number));
        if (auto const* const ways = std::get_if<WaysArgument>(&argument))
            add("ways=" + std::to_string(ways->m_ways));
    }
    if (row.m_isNillable) add("nillable");
    if (row.m_narrowed) add("narrowed=" + TypeText(*row.m_narrowed));
    if (row.m_value) add((row.m_value->m_isFixed ? "fixed='" : "default='") + row.m_value->m_text + '\'');
    if (row.m_blocked != 0) add("blocked=" + std::to_string(row.m_blocked));
    return arguments.empty() ? text : text + '(' + arguments + ')';
}

inline std::string ClassText(ClassPlan const& plan) {
    if (plan.m_isAlias) return plan.m_name + " = " + TypeText(plan.m_base) + '\n';
    std::string text = plan.m_name + (plan.m_isAbstract ? " abstract" : "") + " : " + TypeText(plan.m_base);
    for (PropertyPlan const& property : plan.m_properties) {
        text += "\n  " + TypeText(property.m_type) + ' ' + property.m_name;
        if (!property.m_occurrence.empty()) text += "  // " + property.m_occurrence;
    }
    if (!plan.m_rows.empty()) text += "\n ";
    for (RowPlan const& row : plan.m_rows) text += ' ' + RowText(row);
    return text + '\n';
}

inline std::string PlanText(Plan const& plan) {
    std::string text;
    for (Unit const& unit : plan.m_units) {
        if (plan.m_units.size() > 1) text += "namespace " + unit.m_name + '\n';
        for (SimplePlan const* const simple : unit.m_simples) text += SimpleText(*simple);
        for (ClassPlan const* const one : unit.m_classes) text += ClassText(*one);
    }
    return text;
}

/// The options of a command line for the schema a.xsd of a folder, which `@` in an argument stands for.
inline Options OptionsFor(Folder const& folder, std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--all-warnings", "@a.xsd"});
    std::vector<char const*> pointers;
    for (std::string& argument : arguments) {
        Folder::Replace(argument, "@", folder.Path(""));
        pointers.push_back(argument.c_str());
    }
    return ParseOptions(pointers);
}

/// The plan of the schema a.xsd of a folder, and what is said of it, in which the folder is not named.
inline std::string PlanOf(Folder const& folder, std::vector<std::string> arguments = {}) {
    Options const options = OptionsFor(folder, std::move(arguments));
    Diagnostics diagnostics(options.m_diagnostics);
    SchemaSet const set = LoadSchemas(options.m_schemas, Catalog(), diagnostics);
    std::string const text = diagnostics.HasErrors() ? "" : PlanText(MakePlan(set, options, diagnostics));
    std::string messages = diagnostics.Text();
    Folder::Replace(messages, folder.Path(""), "");
    return (diagnostics.HasErrors() ? "" : text) + messages;
}

}  // namespace BxGen
