// What all parts of the mapping work on.
#pragma once

#include "Diagnostics.h"
#include "Options.h"
#include "mapping/Plan.h"
#include "schema/SchemaSet.h"

namespace BxGen {

struct Mapping {
    SchemaSet const& m_set;
    Options const& m_options;
    Diagnostics& m_diagnostics;
    Plan& m_plan;
};

/// The namespace that a component's schema is for.
inline std::string_view TargetNamespaceOf(Component const& component) {
    return component.m_document != nullptr ? component.m_document->m_targetNamespace : std::string_view();
}

/// The ways of derivation, as bits, in which no type may stand for the one of an element.
inline int BlockedWays(ElementDeclaration const& element) {
    auto const* const complex = element.m_type->AsComplex();
    int const blocked = element.m_block | (complex != nullptr ? complex->m_block : 0);
    return element.m_type->IsAnonymous() && complex != nullptr ? 0 : blocked & (kExtension | kRestriction);
}

}  // namespace BxGen
