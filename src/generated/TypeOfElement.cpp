#include "generated/TypeOfElement.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "generated/Model.h"
#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

namespace {

/// Null if there is no such attribute.
CXmlAttribute const* FindXsiType(CXmlElement const& element) {
    for (CXmlAttribute const* const attribute : element.GetAttributes()) {
        if (BxXmlLib5::Equal(attribute->GetLocalName(), u"type") &&
            BxXmlLib5::Equal(attribute->GetNamespaceURI(), kXsiNamespace)) {
            return attribute;
        }
    }
    return nullptr;
}

bool IsNamed(Class const& type, std::u16string_view name) {
    return !type.GetFacts().isRoot && BxXmlLib5::Equal(type.GetFacts().name, name);
}

/// By name and namespace; by the name alone if that gives nothing and one class has it, since the tree of a
/// document knows one namespace for each prefix only.
Class const* Find(Set const& set, std::u16string_view name, std::u16string_view namespaceUri) {
    Class const* byName = nullptr;
    Class const* exact = nullptr;
    int named = 0;
    auto const look = [&](Class const& type, char16_t const* typeNamespace) {
        if (exact == nullptr && BxXmlLib5::Equal(typeNamespace, namespaceUri)) exact = &type;
        byName = &type;
        ++named;
    };
    for (Class const* const type : set.types) {
        if (IsNamed(*type, name)) look(*type, type->GetFacts().namespaceUri);
    }
    for (TypeName const& other : set.typeNames) {
        if (BxXmlLib5::Equal(other.name, name)) look(*other.type, other.namespaceUri);
    }
    if (exact != nullptr) return exact;
    return named == 1 ? byName : nullptr;
}

}  // namespace

CObject* MakeFor(CXmlElement const& element, Class const& declared) {
    Class const* type = &declared;
    CXmlAttribute const* const attribute = element.GetAttributes().empty() ? nullptr : FindXsiType(element);
    if (attribute != nullptr) {
        std::u16string_view name = Trimmed(attribute->GetValueView());
        std::size_t const colon = name.find(u':');
        wstring const prefix(colon == name.npos ? std::u16string_view() : name.substr(0, colon));
        if (colon != name.npos) name.remove_prefix(colon + 1);
        wstring const namespaceUri = element.GetDocument()->LookupNamespaceFromAlias(prefix.c_str());
        Class const* const named = Find(*declared.GetFacts().set, name, namespaceUri);
        bool const isDeclared = IsNamed(TypeClass(declared), name);
        if (named != nullptr && named->GetModel().Is(TypeClass(declared))) {
            if (!isDeclared) type = named;
        } else if (!isDeclared) {
            throw CBxValidationException(
                FormatString(u"The type [%s] of the element [%s] is none that may stand there",
                             attribute->GetValue().c_str(), element.GetLocalName().c_str()));
        }
    }
    if (type->GetFacts().make == nullptr) {
        throw CBxValidationException(FormatString(u"The type [%s] of the element [%s] is abstract",
                                                  type->GetFacts().name, element.GetLocalName().c_str()));
    }
    return type->GetFacts().make();
}

Class const& TypeClass(Class const& of) {
    if (!of.GetFacts().isRoot) return of;
    Class const* const base = of.GetModel().base;
    return base == nullptr ? of : *base;
}

}  // namespace BxXmlLib5::Generated
