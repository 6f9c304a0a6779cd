#include "generated/ForeignNamespaces.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "core/NestingDepth.h"
#include "generated/Model.h"
#include "generated/ObjectAccess.h"
#include "generated/Untyped.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5::Generated {

namespace {

class CSurvey {
public:
    explicit CSurvey(Set const& set) : m_set(set) {}

    ForeignNamespaces m_found;

    void Walk(CObject const& object) {
        CNestingLevel const level;
        Model const& model = ObjectAccess::ModelOf(object);
        for (AttributeModel const& attribute : model.attributes) {
            if (attribute.constraint == nullptr) Enter(attribute.namespaceUri);
        }
        if (KeptTypes const* const types = ObjectAccess::KeptIn(object)) {
            Enter(wstring(kXsiNamespace));
            for (auto const& [unused, kept] : *types) {
                Enter(kept.namespaceUri);
                if (kept.content) Walk(*kept.content);
            }
        }
        for (PropertyModel const& property : model.properties) {
            Walk(property.actions->shape, property.Of(object));
        }
    }

private:
    Set const& m_set;

    void Walk(Actions::Shape shape, void const* property) {
        using enum Actions::Shape;
        switch (shape) {
            case Object:
            case AnyElement:
                return WalkHeld(static_cast<ObjectHolder const*>(property)->Held(), shape == AnyElement);
            case Objects:
            case AnyElements: {
                auto const& objects = *static_cast<ObjectsHolder const*>(property);
                for (int i = 0; i < objects.Count(); ++i) WalkHeld(objects.HeldAt(i), shape == AnyElements);
                return;
            }
            case AnyAttributes:
                return WalkAttributes(*static_cast<Generated::AnyAttributes const*>(property));
            case Value:
            case Values:
            case Nil:
                return;
        }
    }

    void WalkHeld(CXmlObjectBase const* held, bool isUntyped) {
        if (held == nullptr) return;
        if (isUntyped) {
            Walk(static_cast<CElement const&>(*held));
        } else {
            Walk(static_cast<CObject const&>(*held));
        }
    }

    void Walk(CElement const& element) {
        CNestingLevel const level;
        m_found.m_hasElementInNone |= element.GetNamespace().empty();
        Enter(element.GetNamespace());
        WalkAttributes(*element.GetAttributes());
        if (char16_t const* const uri = NamespaceOfType(element, m_set)) Enter(uri);
        for (CElement const* const child : *element.GetChildElements()) Walk(*child);
    }

    template <class Attributes>
    void WalkAttributes(Attributes const& attributes) {
        for (CAttribute const* const attribute : attributes) Enter(attribute->GetNamespace());
    }

    void Enter(wstring const& namespaceUri) {
        if (!namespaceUri.empty() && namespaceUri != kXmlNamespace) m_found.m_namespaces.insert(namespaceUri);
    }
};

}  // namespace

ForeignNamespaces FindForeignNamespaces(CObject const& object) {
    CSurvey survey(*ObjectAccess::ClassOf(object).GetFacts().set);
    survey.Walk(object);
    return survey.m_found;
}

}  // namespace BxXmlLib5::Generated
