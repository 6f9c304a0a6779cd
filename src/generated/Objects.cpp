#include "BxXmlLib5/generated/Objects.h"

#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/generated/CObject.h"
#include "generated/Untyped.h"

namespace BxXmlLib5::Generated {

namespace {

/// Properties hold generated objects or untyped elements.
CSmartPtr<CXmlObjectBase> CloneHeld(CXmlObjectBase const* object) {
    if (auto const* const element = dynamic_cast<CElement const*>(object)) return CloneElement(*element);
    return static_cast<CObject const*>(object)->Clone();
}

void ThrowIfNull(CXmlObjectBase const* object) {
    if (object == nullptr) throw CBxInvalidParamException(u"A null cannot be added to a collection");
}

}  // namespace

ObjectHolder::ObjectHolder(ObjectHolder const& other) {
    if (other.m_object) m_object = CloneHeld(other.m_object);
}

ObjectHolder::~ObjectHolder() = default;

ObjectsHolder::ObjectsHolder(ObjectsHolder const& other) {
    if (other.IsEmpty()) return;
    m_objects = std::make_unique<std::vector<CSmartPtr<CXmlObjectBase>>>();
    m_objects->reserve(other.m_objects->size());
    for (CXmlObjectBase const* const object : *other.m_objects) m_objects->push_back(CloneHeld(object));
}

ObjectsHolder::~ObjectsHolder() = default;

void ObjectsHolder::Append(CSmartPtr<CXmlObjectBase> object) {
    ThrowIfNull(object);
    if (!m_objects) m_objects = std::make_unique<std::vector<CSmartPtr<CXmlObjectBase>>>();
    m_objects->push_back(std::move(object));
}

void ObjectsHolder::Insert(int index, CSmartPtr<CXmlObjectBase> object) {
    ThrowIfNull(object);
    if (index < 0 || index > Count()) ThrowNoIndex(index);
    if (index == Count()) return Append(std::move(object));
    m_objects->insert(m_objects->begin() + index, std::move(object));
}

void ObjectsHolder::Remove(int index) {
    if (index < 0 || index >= Count()) ThrowNoIndex(index);
    m_objects->erase(m_objects->begin() + index);
}

CXmlObjectBase* ObjectsHolder::At(int index) const {
    if (index < 0 || index >= Count()) ThrowNoIndex(index);
    return HeldAt(index);
}

CElement& AnyElement::operator*() const {
    if (!*this) ThrowNotSet();
    return static_cast<CElement&>(*Held());
}

CElement& AnyElement::Make(char16_t const* name, char16_t const* namespaceUri) {
    if (!*this) Hold(new CElement(name, namespaceUri, u"##any", u""));
    return **this;
}

AnyElement& AnyElement::operator=(CSmartPtr<CElement> element) {
    Hold(element);
    return *this;
}

CElement& AnyElements::Add(char16_t const* name, char16_t const* namespaceUri) {
    return Add(CSmartPtr<CElement>(new CElement(name, namespaceUri, u"##any", u"")));
}

CElement& AnyElements::Add(CSmartPtr<CElement> element) {
    CElement* const added = element;
    Append(added);
    return *added;
}

AnyAttributes::AnyAttributes(AnyAttributes const& other) {
    if (!other.IsEmpty()) m_attributes = CloneAttributes(*other.m_attributes);
}

CAttributeCol& AnyAttributes::All() {
    if (!m_attributes) m_attributes = new CAttributeCol(u"", u"##any", u"");
    return *m_attributes;
}

void AnyAttributes::Set(char16_t const* name, char16_t const* value, char16_t const* namespaceUri) {
    if (CAttribute const* const attribute = Find(name, namespaceUri)) {
        const_cast<CAttribute*>(attribute)->SetValue(value);
    } else {
        All().Add(name, value, namespaceUri);
    }
}

CAttribute const* AnyAttributes::Find(char16_t const* name, char16_t const* namespaceUri) const {
    for (CAttribute const* const attribute : *this) {
        if (attribute->GetName() == name && attribute->GetNamespace() == namespaceUri) return attribute;
    }
    return nullptr;
}

}  // namespace BxXmlLib5::Generated
