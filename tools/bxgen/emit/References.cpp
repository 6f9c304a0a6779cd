#include "emit/References.h"

#include <algorithm>

#include "emit/Literals.h"

namespace BxGen {

std::string FullName(Symbol const& symbol) {
    return symbol.m_unit->m_name + "::" + symbol.m_name;
}

std::string References::Name(Symbol const& symbol) {
    if (symbol.m_unit == &m_unit) return symbol.m_name;
    m_needed.insert(symbol.m_unit);
    return "::" + FullName(symbol);
}

std::string References::Type(TypeExpression const& type) {
    std::string text = type.m_symbol != nullptr ? Name(*type.m_symbol) : type.m_text;
    if (type.m_arguments.empty() && !type.m_literal) return text;
    std::string arguments;
    for (TypeExpression const& argument : type.m_arguments)
        arguments += (arguments.empty() ? "" : ", ") + Type(argument);
    if (type.m_literal) arguments += (arguments.empty() ? "" : ", ") + TextLiteral(*type.m_literal);
    return text + '<' + arguments + '>';
}

std::string References::Namespace(std::string const& uri) {
    auto const found = std::ranges::find(m_plan.m_namespaces, uri, &NamespacePlan::m_uri);
    if (uri.empty() || found == m_plan.m_namespaces.end()) return TextLiteral(uri);
    return Name({found->m_unit, found->m_constant});
}

}  // namespace BxGen
