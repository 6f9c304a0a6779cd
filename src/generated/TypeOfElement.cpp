#include "generated/TypeOfElement.h"

#include <algorithm>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/generated/BuiltInTypes.h"
#include "BxXmlLib5/generated/Xs.h"
#include "generated/Model.h"
#include "generated/ObjectAccess.h"
#include "generated/Reading.h"
#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

namespace {

/// Null if there is no such attribute.
CXmlAttribute const* FindXsi(CXmlElement const& element, std::u16string_view name) {
    for (CXmlAttribute const& attribute : element.GetAttributeView()) {
        if (BxXmlLib5::Equal(attribute.GetLocalName(), name) &&
            BxXmlLib5::Equal(attribute.GetNamespaceURI(), kXsiNamespace)) {
            return &attribute;
        }
    }
    return nullptr;
}

bool IsNamed(Class const& type, std::u16string_view name) {
    return !type.GetFacts().isRoot && BxXmlLib5::Equal(type.GetFacts().name, name);
}

/// Looks for types by name and namespace; by the name alone if that gives nothing and one type has it, since the tree
/// of a document knows one namespace for each prefix only.
class Search {
public:
    Search(NamedType& named) : m_named(named) {}

    void Look(char16_t const* name, char16_t const* namespaceUri, NamedType const& found) {
        if (m_isExact || !BxXmlLib5::Equal(name, m_named.name)) return;
        m_isExact = BxXmlLib5::Equal(namespaceUri, m_named.namespaceUri);
        ++m_count;
        m_found = found;
        m_found.namespaceUri = namespaceUri;
    }

    void End() {
        if (!m_isExact && m_count != 1) return;
        m_found.literal = std::move(m_named.literal);
        m_found.name = std::move(m_named.name);
        m_named = std::move(m_found);
    }

private:
    NamedType& m_named;
    NamedType m_found;
    bool m_isExact = false;
    int m_count = 0;
};

void Find(Set const& set, NamedType& named) {
    Search search(named);
    NamedType found;
    for (Class const* const type : set.types) {
        if (!IsNamed(*type, named.name)) continue;
        found.type = type;
        search.Look(type->GetFacts().name, type->GetFacts().namespaceUri, found);
    }
    for (TypeName const& other : set.typeNames) {
        found.type = other.type;
        found.derivation = other.derivation;
        search.Look(other.name, other.namespaceUri, found);
    }
    found = {};
    for (auto const types : {set.simpleTypes, set.builtInTypes}) {
        for (SimpleTypeName const& other : types) {
            found.simple = other.type;
            search.Look(other.name, other.namespaceUri, found);
        }
    }
    search.End();
}

/// XML Schema Part 1, 3.14.6: by restriction in any number of steps, or from a member of a union.
bool IsDerived(SimpleType const& type, SimpleType const& base, Set const& set) {
    if (&type == &base) return true;
    if (std::ranges::any_of(base.members, [&](auto const* member) { return IsDerived(type, *member, set); }))
        return true;
    for (auto const types : {set.simpleTypes, set.builtInTypes}) {
        for (SimpleTypeName const& step : types) {
            // Another name of a type has that itself for its base.
            if (step.type == &type && step.base != &type) return IsDerived(*step.base, base, set);
        }
    }
    return false;
}

[[noreturn]] void Refuse(CXmlElement const& element, NamedType const& named) {
    throw CBxValidationException(
        FormatString(u"The type [%s] of the element [%s] is none that may stand there", named.literal.c_str(),
                     element.GetLocalName().c_str()));
}

CObject* Make(CXmlElement const& element, Class const& type) {
    if (type.GetFacts().make == nullptr || type.GetModel().IsAbstract())
        ThrowAbstract(element, TypeClass(type));
    return type.GetFacts().make();
}

CSmartPtr<CObject> ReadAs(CXmlElement& element, Class const& type, bool mayBeNil,
                          CXmlSerializationContext const& context) {
    CSmartPtr<CObject> const object = Make(element, type);
    ReadElement(*object, element, mayBeNil, context);
    return object;
}

/// Reads the attributes of an element that is nil. The object does not say that it is: its owner does.
CSmartPtr<CObject> ReadNil(CXmlElement& element, Class const& type, CXmlSerializationContext const& context) {
    CSmartPtr<CObject> const object = Make(element, type);
    Model const& model = type.GetModel();
    ThrowIfNotSimple(element, true, context, &model);
    CXmlSerializationContext own(context);
    own.SetIgnoreUnknownAttributes(true);
    ObjectAccess::ReadAttributes(*object, element, own);
    if (model.nil != nullptr) *static_cast<Nil*>(model.nil->Of(*object)) = false;
    return object;
}

void TestSimple(CXmlElement const& element, std::u16string_view text, SimpleType const& type) {
    try {
        type.test(text);
    } catch (CBxException const& failure) {
        throw CBxInvalidValueException(
            FormatString(u"Invalid Value for %s [%s]", element.GetLocalName().c_str(), wstring(text).c_str()),
            failure);
    }
}

}  // namespace

std::optional<unsigned char> WaysBetween(Class const* type, Class const* base) {
    unsigned char ways = 0;
    for (; type != base; type = type->GetModel().base) {
        if (type == nullptr) return std::nullopt;
        ways |= type->GetModel().derivation;
    }
    return ways;
}

bool IsNil(CXmlElement const& element) {
    if (element.GetAttributeView().empty()) return false;
    CXmlAttribute const* const attribute = FindXsi(element, u"nil");
    return attribute != nullptr && Xs::boolean::FromText(attribute->GetValueView());
}

void TestNil(CXmlElement const& element, bool mayBeNil) {
    if (element.GetAttributeView().empty() || FindXsi(element, u"nil") == nullptr) return;
    if (!mayBeNil) ThrowNil(element);
    if (IsNil(element) && (element.GetFirstElement() != nullptr || !Trimmed(element.GetTextView()).empty())) {
        throw CBxValidationException(
            FormatString(u"The element [%s] is nil and has content", element.GetLocalName().c_str()));
    }
}

std::optional<NamedType> NamedTypeOf(CXmlElement const& element, Set const& set) {
    if (element.GetAttributeView().empty()) return std::nullopt;
    CXmlAttribute const* const attribute = FindXsi(element, u"type");
    if (attribute == nullptr) return std::nullopt;
    NamedType named;
    named.literal = attribute->GetValue();
    std::u16string_view name = Trimmed(named.literal);
    std::size_t const colon = name.find(u':');
    wstring const prefix(colon == name.npos ? std::u16string_view() : name.substr(0, colon));
    if (colon != name.npos) name.remove_prefix(colon + 1);
    named.name = name;
    named.namespaceUri = element.GetDocument()->LookupNamespaceFromAlias(prefix.c_str());
    Find(set, named);
    return named;
}

CObject* MakeFor(CXmlElement const& element, Class const& declared, std::optional<NamedType> const& named,
                 unsigned char blocked) {
    if (!named) return Make(element, declared);
    Class const& base = TypeClass(declared);
    auto const ways = named->type == nullptr ? std::nullopt : WaysBetween(named->type, &base);
    if (ways) {
        if (((*ways | named->derivation) & blocked) != 0) Refuse(element, *named);
        if (*ways != 0) return Make(element, *named->type);
    } else if (!IsNamed(base, named->name)) {
        Refuse(element, *named);
    }
    return Make(element, declared);
}

CSmartPtr<CObject> ReadNamed(CXmlElement& element, std::u16string_view text, bool isNil,
                             SimpleType const& declared, NamedType const& named, Set const& set,
                             unsigned char blocked, CXmlSerializationContext const& context) {
    if (named.simple != nullptr) {
        bool const isBlocked = named.simple != &declared && (blocked & kRestriction) != 0;
        if (isBlocked || !IsDerived(*named.simple, declared, set)) Refuse(element, named);
        if (!isNil) TestSimple(element, text, *named.simple);
        return nullptr;
    }
    if (named.type == nullptr) Refuse(element, named);
    Model const& model = named.type->GetModel();
    if (!model.HasSimpleContent() || !IsDerived(*model.text->actions->type, declared, set))
        Refuse(element, named);
    unsigned char ways = kExtension | named.derivation | WaysBetween(named.type, nullptr).value();
    if (model.text->actions->type != &declared) ways |= kRestriction;
    if ((ways & blocked) != 0) Refuse(element, named);
    return isNil ? ReadNil(element, *named.type, context) : ReadAs(element, *named.type, false, context);
}

void TestNamed(CXmlElement& element, NamedType const& named, unsigned char blocked,
               CXmlSerializationContext const& context) {
    if (named.name == u"anyType" && named.namespaceUri == kXsNamespace) return;
    bool const isKnown = named.simple != nullptr || named.type != nullptr;
    if (!isKnown) return;
    // All types restrict anyType in the end.
    unsigned char ways = kRestriction | named.derivation;
    if (named.type != nullptr) ways |= WaysBetween(named.type, nullptr).value();
    if ((ways & blocked) != 0) Refuse(element, named);
    if (named.type == nullptr) ThrowIfNotSimple(element, true, context);
    bool const isNil = IsNil(element);
    if (isNil && named.type != nullptr) ReadNil(element, *named.type, context);
    if (isNil) return;
    if (named.type == nullptr) return TestSimple(element, element.GetTextView(), *named.simple);
    ReadAs(element, *named.type, false, context);
}

void ThrowNil(CXmlElement const& element) {
    throw CBxValidationException(
        FormatString(u"The element [%s] is nil, which it may not be", element.GetLocalName().c_str()));
}

void ThrowAbstract(CXmlElement const& element, Class const& type) {
    throw CBxValidationException(FormatString(u"The type [%s] of the element [%s] is abstract",
                                              type.GetFacts().name, element.GetLocalName().c_str()));
}

Class const& TypeClass(Class const& of) {
    if (!of.GetFacts().isRoot) return of;
    Class const* const base = of.GetModel().base;
    return base == nullptr || of.GetModel().isOwnType ? of : *base;
}

}  // namespace BxXmlLib5::Generated
