#include "schema/Components.h"

#include <algorithm>

namespace BxGen {

bool Type::IsDerivedFrom(Type const& base) const {
    Type const* type = this;
    while (type != nullptr && type != &base) type = type->m_base;
    return type != nullptr;
}

BuiltIn SimpleType::NearestBuiltIn() const {
    Type const* type = this;
    while (type->m_builtIn == BuiltIn::kNone) type = type->m_base;
    return type->m_builtIn;
}

bool Wildcard::Allows(std::string_view namespaceUri) const {
    bool const isListed = std::ranges::find(m_namespaces, namespaceUri) != m_namespaces.end();
    switch (m_kind) {
        case Kind::kAny:
            return true;
        case Kind::kOther:
            return !isListed && !namespaceUri.empty();
        default:
            return isListed;
    }
}

namespace {

/// The ways of derivation between a type and a base of it.
DerivationSet StepsBetween(Type const* type, Type const* base) {
    DerivationSet steps = 0;
    for (; type != base && type != nullptr; type = type->m_base) steps |= type->m_derivation;
    return steps;
}

bool MayReplace(ElementDeclaration const& member, ElementDeclaration const& head) {
    ComplexType const* const type = head.m_type->AsComplex();
    DerivationSet const blocked = head.m_block | (type != nullptr ? type->m_block : DerivationSet{0});
    return (StepsBetween(member.m_type, head.m_type) & blocked) == 0;
}

void AddSubstitutes(ElementDeclaration const& element, ElementDeclaration const& head,
                    std::vector<ElementDeclaration const*>& members) {
    for (ElementDeclaration const* const member : element.m_substitutes) {
        if (!member->m_isAbstract && MayReplace(*member, head)) members.push_back(member);
        AddSubstitutes(*member, head, members);
    }
}

}  // namespace

std::vector<ElementDeclaration const*> SubstitutionGroupOf(ElementDeclaration const& head) {
    std::vector<ElementDeclaration const*> members;
    if (!head.m_isAbstract) members.push_back(&head);
    if ((head.m_block & kSubstitution) == 0) AddSubstitutes(head, head, members);
    return members;
}

}  // namespace BxGen
