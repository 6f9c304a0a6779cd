#include "generated/Reading.h"

#include <algorithm>
#include <utility>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "core/NestingDepth.h"
#include "generated/Expected.h"
#include "generated/ObjectAccess.h"
#include "generated/TypeOfElement.h"
#include "generated/Untyped.h"

namespace BxXmlLib5::Generated {

void ReadValue(CObject& object, PropertyModel const& property, wstring const& name,
               std::u16string_view text) {
    try {
        property.actions->read(property.Of(object), text);
    } catch (CBxException const& failure) {
        throw CBxInvalidValueException(
            FormatString(u"Invalid Value for %s [%s]", name.c_str(), wstring(text).c_str()), failure);
    }
}

void ReadElement(CObject& object, CXmlElement& element, bool mayBeNil,
                 CXmlSerializationContext const& context) {
    CNestingLevel const level;
    ObjectAccess::ReadAttributes(object, element, context);
    Reading(object, element, element.GetFirstElement(), context).Content(mayBeNil);
}

Reading::Reading(CObject& object, CXmlElement& element, CXmlElement* child,
                 CXmlSerializationContext const& context)
    : m_context(context),
      m_element(element),
      m_child(child),
      m_object(object),
      m_model(ObjectAccess::ModelOf(object)),
      m_ignoreNamespaces(context.GetIgnoreNamespaces()),
      m_skipsUnknown(context.GetIgnoreUnknownElements()) {}

Reading::Reading(CObject& object, Reading& outer)
    : Reading(object, outer.m_element, outer.m_child, outer.m_context) {
    m_outer = &outer;
}

void Reading::Content(bool mayBeNil) {
    bool const isNil = m_model.IsNil(m_object);
    if (isNil && !mayBeNil) {
        throw CBxValidationException(
            FormatString(u"The element [%s] is nil, which it may not be", m_element.GetLocalName().c_str()));
    }
    if (m_model.content != nullptr && !isNil) Read(*m_model.content);
    if (m_child != nullptr && !m_skipsUnknown) {
        throw CBxValidationException(FormatString(u"Unexpected element [%s] found in the element [%s]",
                                                  m_child->GetLocalName().c_str(),
                                                  m_element.GetLocalName().c_str()));
    }
    ReadText(isNil);
}

void Reading::ReadText(bool isNil) {
    std::u16string_view const text = m_element.GetTextView();
    bool const isSimple = m_model.text != nullptr && m_model.content == nullptr;
    if ((!isSimple || isNil) && Trimmed(text).empty()) return;
    if (m_model.text != nullptr && !isNil) {
        ReadValue(m_object, *m_model.text, m_element.GetLocalName(), text);
    } else if (!m_skipsUnknown) {
        throw CBxValidationException(FormatString(u"Unexpected text [%s] found in the element [%s]",
                                                  wstring(Trimmed(text)).c_str(),
                                                  m_element.GetLocalName().c_str()));
    }
}

bool Reading::Matches(Particle const& particle) const {
    return m_child != nullptr && particle.Matches(m_child, m_ignoreNamespaces);
}

Particle const* Reading::Started(Particle const& particle) const {
    return particle.Started(m_child, m_ignoreNamespaces);
}

void Reading::Read(Particle const& particle) {
    if (m_skipsUnknown) SkipUnknown();
    switch (particle.kind) {
        case Row::Kind::Sequence:
            return ReadSequence(particle);
        case Row::Kind::Choice:
            return ReadChoice(particle);
        case Row::Kind::All:
            return ReadAll(particle);
        case Row::Kind::Items:
            return ReadItems(particle);
        default:
            return ReadElements(particle);
    }
}

void Reading::ReadElements(Particle const& particle) {
    int count = 0;
    while (particle.max < 0 || count < particle.max) {
        if (m_skipsUnknown) SkipUnknown();
        if (!Matches(particle) && (count >= particle.min || !SkipTo(particle))) break;
        ReadChild(particle);
        m_child = m_child->GetNextSiblingElement();
        ++count;
    }
    if (count >= particle.min) return;
    bool const isTolerated = IsRepeated(particle) ? m_context.GetIgnoreInvalidCollectionCounts()
                                                  : m_context.GetIgnoreMissingMandatoryElements();
    if (!isTolerated) ThrowMissing(particle);
}

void Reading::ReadItems(Particle const& particle) {
    auto& items = *static_cast<ObjectsHolder*>(particle.model->Of(m_object));
    int count = 0;
    while ((particle.max < 0 || count < particle.max) &&
           (Started(particle) != nullptr || count < particle.min)) {
        if (Started(particle) == nullptr && particle.canBeEmpty) return;
        CSmartPtr<CXmlObjectBase> const item = particle.type->GetFacts().make();
        Reading inner(static_cast<CObject&>(*item), *this);
        if (inner.m_model.content != nullptr) inner.Read(*inner.m_model.content);
        if (std::exchange(m_child, inner.m_child) == inner.m_child) return;
        items.Append(item);
        ++count;
        if (m_skipsUnknown) SkipUnknown();
    }
}

/// Whether an element that may be missing is, as far as a glance tells: most of them are, in most objects.
bool Reading::IsAbsent(Particle const& particle) const {
    if (particle.kind != Row::Kind::Element || particle.min > 0 || m_skipsUnknown) return false;
    if (m_child == nullptr) return true;
    std::u16string_view const name = m_child->GetLocalName();
    return name.size() != particle.name.size() || (!name.empty() && name[0] != particle.name[0]);
}

void Reading::ReadSequence(Particle const& sequence) {
    if (sequence.min == 0 && Started(sequence) == nullptr) return;
    for (Particle const* const member : sequence.members) {
        if (!IsAbsent(*member)) Read(*member);
    }
}

void Reading::ReadChoice(Particle const& choice) {
    int count = 0;
    while (choice.max < 0 || count < choice.max) {
        Particle const* member = Started(choice);
        if (member == nullptr && count < choice.min && !choice.canBeEmpty && SkipTo(choice))
            member = Started(choice);
        if (member == nullptr) break;
        CXmlElement const* const before = m_child;
        Read(*member);
        if (m_child == before) break;
        ++count;
        if (m_skipsUnknown) SkipUnknown();
    }
    if (count < choice.min && !choice.canBeEmpty && !m_context.GetIgnoreMissingChoice()) ThrowMissing(choice);
}

void Reading::ReadAll(Particle const& all) {
    std::vector<Particle const*> missing = all.members;
    while (Particle const* const member = Started(all)) {
        auto const found = std::ranges::find(missing, member);
        if (found == missing.end()) break;
        missing.erase(found);
        Read(*member);
        if (m_skipsUnknown) SkipUnknown();
    }
    if (all.min == 0 && missing.size() == all.members.size()) return;
    for (Particle const* const member : missing) {
        if (!member->canBeEmpty && !m_context.GetIgnoreMissingMandatoryElements()) ThrowMissing(*member);
    }
}

void Reading::ReadChild(Particle const& particle) {
    void* const property = particle.model->Of(m_object);
    switch (particle.model->actions->shape) {
        case Actions::Shape::Object:
            return static_cast<ObjectHolder*>(property)->Hold(ReadObject(particle));
        case Actions::Shape::Objects:
            return static_cast<ObjectsHolder*>(property)->Append(ReadObject(particle));
        case Actions::Shape::AnyElement:
            return static_cast<ObjectHolder*>(property)->Hold(ReadUntyped(particle));
        case Actions::Shape::AnyElements:
            return static_cast<ObjectsHolder*>(property)->Append(ReadUntyped(particle));
        default:
            return ReadSimple(particle);
    }
}

void Reading::ReadSimple(Particle const& particle) {
    if (CXmlElement const* const inside = m_child->GetFirstElement(); inside != nullptr && !m_skipsUnknown) {
        throw CBxValidationException(FormatString(u"Unexpected element [%s] found in the element [%s]",
                                                  inside->GetLocalName().c_str(), particle.name.c_str()));
    }
    if (!m_context.GetIgnoreUnknownAttributes()) {
        for (CXmlAttribute const* const attribute : m_child->GetAttributes()) {
            if (attribute->IsNamespaceAttribute()) continue;
            throw CBxValidationException(
                FormatString(u"Unexpected Attribute [%s] found.", attribute->GetLocalName().c_str()));
        }
    }
    std::u16string_view text = m_child->GetTextView();
    if (text.empty() && particle.model->actions->defaultText != nullptr) {
        text = particle.model->actions->defaultText();
    }
    ReadValue(m_object, *particle.model, particle.name, text);
}

CSmartPtr<CXmlObjectBase> Reading::ReadObject(Particle const& particle) {
    CObject* const made = MakeFor(*m_child, *particle.type);
    CSmartPtr<CXmlObjectBase> object = made;
    // The name tells later which of several rows the object belongs to.
    if (particle.isSubstitution) ObjectAccess::SetName(*made, particle.name);
    ReadElement(*made, *m_child, particle.isNillable, m_context);
    return object;
}

CSmartPtr<CXmlObjectBase> Reading::ReadUntyped(Particle const&) {
    CSmartPtr<CElement> const element = new CElement(u"", u"", u"##any", u"");
    ObjectAccess::ReadAny(element, &m_element, m_child, m_context);
    DropLayout(*element, *m_child);
    return element;
}

bool Reading::IsKnown(CXmlElement const* child) const {
    return m_model.Knows(child, m_ignoreNamespaces) || (m_outer != nullptr && m_outer->IsKnown(child));
}

/// Moves past children that fit nowhere in the element.
void Reading::SkipUnknown() {
    while (m_child != nullptr && !IsKnown(m_child)) m_child = m_child->GetNextSiblingElement();
}

/// Where unknown elements are skipped, moves on to the next child that a mandatory particle may begin with.
/// @return whether there is one
bool Reading::SkipTo(Particle const& particle) {
    if (!m_skipsUnknown) return false;
    // What was sought in vain once need not be sought again from a later child.
    std::vector<Particle const*>& vain = Outermost().m_soughtInVain;
    if (std::ranges::find(vain, &particle) != vain.end()) return false;
    for (CXmlElement* child = m_child; child != nullptr; child = child->GetNextSiblingElement()) {
        if (particle.Started(child, m_ignoreNamespaces) == nullptr) continue;
        m_child = child;
        return true;
    }
    vain.push_back(&particle);
    return false;
}

void Reading::ThrowMissing(Particle const& particle) const {
    if (m_child == nullptr) {
        throw CBxValidationException(FormatString(u"Failed to find %s in the element [%s]",
                                                  Expected(particle).c_str(),
                                                  m_element.GetLocalName().c_str()));
    }
    throw CBxValidationException(FormatString(u"Failed to find %s in the element [%s], where [%s] stands",
                                              Expected(particle).c_str(), m_element.GetLocalName().c_str(),
                                              m_child->GetLocalName().c_str()));
}

}  // namespace BxXmlLib5::Generated
