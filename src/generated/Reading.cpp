#include "generated/Reading.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/IgnoredContent.h"
#include "core/NestingDepth.h"
#include "document/ReadPlace.h"
#include "generated/Expected.h"
#include "generated/FixedValue.h"
#include "generated/ObjectAccess.h"
#include "generated/Untyped.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5::Generated {

void ReadValue(CObject& object, PropertyModel const& property, wstring const& name, std::u16string_view text,
               SimpleType const* narrowed) {
    try {
        if (narrowed != nullptr) narrowed->test(text);
        property.actions->read(property.Of(object), text);
    } catch (CBxException const& failure) {
        throw CBxInvalidValueException(
            FormatString(u"Invalid Value for %s [%s]", name.c_str(), wstring(text).c_str()), failure);
    }
}

void ReadElement(CObject& object, CXmlElement& element, bool mayBeNil,
                 CXmlSerializationContext const& context, ElementValue value) {
    CNestingLevel const level;
    ObjectAccess::ReadAttributes(object, element, context);
    Reading(object, element, element.GetFirstElement(), context).Content(mayBeNil, value);
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

Reading::Reading(CObject& object, Reading& outer, Round* round)
    : Reading(object, outer.m_element, outer.m_child, outer.m_context) {
    m_outer = &outer;
    m_round = round;
}

void Reading::Content(bool mayBeNil, ElementValue value) {
    if (value.text == nullptr) value = m_model.value;
    bool const isNil = m_model.IsNil(m_object);
    if (isNil && !mayBeNil) {
        ThrowNil(m_element);
    }
    if (m_model.content != nullptr && !isNil) Read(*m_model.content);
    if (m_child != nullptr && !m_skipsUnknown) ThrowUnexpectedElement(*m_child, m_element);
    ReadText(isNil, value);
    if (value.isFixed) TestFixed(m_object, value.text);
}

namespace {

/// An empty element stands for its default.
/// @param property of its text, null for none
std::u16string_view TextOrDefault(CXmlElement const& element, PropertyModel const* property,
                                  ElementValue value) {
    std::u16string_view const text = element.GetTextView();
    if (!text.empty() || element.GetFirstElement() != nullptr) return text;
    if (value.text != nullptr) return value.text;
    return property != nullptr && property->actions->defaultText != nullptr ? property->actions->defaultText()
                                                                            : text;
}

}  // namespace

void Reading::ReadText(bool isNil, ElementValue value) {
    if (m_context.GetFailOnIgnoredContent()) CTakenContent::TakeText(&m_element);
    bool const isSimple = m_model.text != nullptr && m_model.content == nullptr;
    std::u16string_view const text =
        isNil ? m_element.GetTextView() : TextOrDefault(m_element, isSimple ? m_model.text : nullptr, value);
    if ((!isSimple || isNil) && Trimmed(text).empty()) return;
    if (m_model.text != nullptr && !isNil) {
        ReadValue(m_object, *m_model.text, m_element.GetLocalName(), text, m_model.narrowedText);
    } else if (!m_skipsUnknown || m_context.GetFailOnIgnoredContent()) {
        ThrowUnexpectedText(m_element);
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
    int const most = particle.goesOn ? MostOf(particle) : particle.max;
    while (most < 0 || count < most) {
        if (m_skipsUnknown) SkipUnknown();
        if (!Matches(particle) && (count >= particle.min || !SkipTo(particle))) break;
        ReadAt(m_child, [&] { ReadChild(particle); });
        m_child = m_child->GetNextSiblingElement();
        ++count;
    }
    if (count >= particle.min) return;
    bool const isTolerated = IsRepeated(particle) ? m_context.GetIgnoreInvalidCollectionCounts()
                                                  : m_context.GetIgnoreMissingMandatoryElements();
    if (!isTolerated) ThrowMissing(particle);
}

/// How many elements of a run belong to this item, for a particle with which the next one may begin too: so many
/// that what is left makes items, and as many items as there must be.
int Reading::MostOf(Particle const& particle) {
    if (m_round == nullptr || m_skipsUnknown) return particle.max;
    std::int64_t& run = m_round->run;
    if (run == 0) {
        for (CXmlElement* child = m_child;
             child != nullptr && particle.Started(child, m_ignoreNamespaces) != nullptr;
             child = child->GetNextSiblingElement())
            ++run;
    }
    std::int64_t const least = std::max(particle.min, 1);
    std::int64_t const most = particle.max < 0 ? std::max(run, least) : particle.max;
    std::int64_t const fewestItems = (run + most - 1) / most;
    std::int64_t const mostItems = std::min(run / least, m_round->left + 1);
    if (run == 0) return particle.max;
    if (fewestItems > mostItems) {
        // What is left stays counted as far as it is known how many the item takes.
        auto const isElement = [](Particle const* member) { return !member->IsGroup() && member->max == 1; };
        bool const isKnown = !particle.IsGroup() || std::ranges::all_of(particle.members, isElement);
        run = isKnown ? run - std::min(most, run) : 0;
        return particle.max;
    }
    std::int64_t const items = std::clamp(m_round->needed + 1, fewestItems, mostItems);
    std::int64_t const now = std::min(most, run - (items - 1) * least);
    run -= now;
    return static_cast<int>(now);
}

void Reading::ReadItems(Particle const& particle) {
    Round round{};
    auto& items = *static_cast<ObjectsHolder*>(particle.model->Of(m_object));
    int count = 0;
    while ((particle.max < 0 || count < particle.max) &&
           (Started(particle) != nullptr || count < particle.min)) {
        if (Started(particle) == nullptr && particle.canBeEmpty) return;
        CSmartPtr<CXmlObjectBase> const item = particle.type->GetFacts().make();
        round.needed = std::max(particle.min - count - 1, 0);
        round.left = particle.max < 0 ? std::numeric_limits<int>::max() : particle.max - count - 1;
        Reading inner(static_cast<CObject&>(*item), *this, &round);
        if (inner.m_model.content != nullptr) inner.Read(*inner.m_model.content);
        if (std::exchange(m_child, inner.m_child) == inner.m_child) return;
        items.Append(item);
        ++count;
        if (m_skipsUnknown) SkipUnknown();
    }
}

void Reading::ReadSequence(Particle const& sequence) {
    if (sequence.min == 0 && Started(sequence) == nullptr) return;
    auto const glance = [this] { return m_child == nullptr ? 0 : GlanceAt(m_child->GetLocalName()); };
    std::uint32_t next = glance();
    for (Particle const* const member : sequence.members) {
        // Most of the elements that may be missing are, in most objects.
        if (member->glance != 0 && member->glance != next && !m_skipsUnknown) continue;
        Read(*member);
        next = glance();
    }
}

void Reading::ReadChoice(Particle const& choice) {
    int count = 0;
    int const most = choice.goesOn ? MostOf(choice) : choice.max;
    while (most < 0 || count < most) {
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

void ThrowIfNotSimple(CXmlElement const& element, bool mayBeNil, CXmlSerializationContext const& context,
                      Model const* type) {
    ThrowIfHasChildren(element, context);
    if (context.GetIgnoreUnknownAttributes()) return;
    for (CXmlAttribute const& attribute : element.GetAttributeView()) {
        bool const isNil = attribute.GetLocalName() == u"nil" && attribute.GetNamespaceURI() == kXsiNamespace;
        if (attribute.IsNamespaceAttribute() || (isNil && mayBeNil)) continue;
        if (type != nullptr && type->KnowsAttribute(attribute, context.GetIgnoreNamespaces())) continue;
        ThrowUnexpectedAttribute(attribute, element);
    }
}

namespace {

/// Keeps the type that an element names for the value that was read from it last.
void Keep(CObject& owner, PropertyModel const& property, std::u16string_view literal, NamedType const& named,
          CSmartPtr<CObject> content) {
    // What is nil has no value.
    int const count = property.Count(owner);
    int const index = std::max(count - 1, 0);
    wstring room, text;
    if (count > 0) text = property.actions->text(property.Of(owner), index, room);
    ObjectAccess::KeptOf(owner).Add(
        property.place, index, {text, wstring(literal), named.name, named.namespaceUri, std::move(content)});
}

/// Reads the object of an element of simple type that names another type.
void ReadSimpleAs(CObject& object, CXmlElement& element, bool mayBeNil, NamedType const& named,
                  Set const& set, unsigned char blocked, CXmlSerializationContext const& context,
                  ElementValue value) {
    PropertyModel const& text = *ObjectAccess::ModelOf(object).text;
    PropertyModel const* const nil = ObjectAccess::ModelOf(object).nil;
    bool const isNil = mayBeNil && nil != nullptr && IsNil(element);
    std::u16string_view const literal = isNil ? std::u16string_view() : TextOrDefault(element, &text, value);
    CSmartPtr<CObject> content =
        ReadNamed(element, literal, isNil, *text.actions->type, named, set, blocked, context);
    if (content) {
        if (isNil) *static_cast<Nil*>(nil->Of(object)) = true;
        Reading(object, element, nullptr, context).Content(mayBeNil, value);
    } else {
        ReadElement(object, element, mayBeNil, context, value);
    }
    Keep(object, text, literal, named, std::move(content));
}

/// Keeps the type that an element names for its object.
void KeepOwn(CObject& object, NamedType const& named) {
    ObjectAccess::KeptOf(object).Add(nullptr, 0, {{}, {}, named.name, named.namespaceUri, nullptr});
}

/// Reads the object of an element of any type that names another type.
void ReadAnythingAs(CObject& object, CXmlElement& element, bool mayBeNil, NamedType const& named,
                    unsigned char blocked, CXmlSerializationContext const& context) {
    TestNamed(element, named, blocked, context);
    ReadElement(object, element, mayBeNil, context);
    KeepOwn(object, named);
}

}  // namespace

void ReadRootAs(CObject& root, CXmlElement& element, NamedType const& named,
                CXmlSerializationContext const& context) {
    Model const& model = ObjectAccess::ModelOf(root);
    Class::Facts const& facts = model.type.GetFacts();
    ObjectAccess::Reset(root, element.GetLocalName());
    if (model.IsSimple())
        return ReadSimpleAs(root, element, model.isNillable, named, *facts.set, model.blocked, context, {});
    if (model.IsAnything())
        return ReadAnythingAs(root, element, model.isNillable, named, model.blocked, context);
    CSmartPtr<CObject> const content = MakeFor(element, model.type, named, model.blocked);
    bool const isOwn = &ObjectAccess::ClassOf(*content) == &model.type;
    if (isOwn || model.xsiTyped == nullptr) {
        ReadElement(root, element, model.isNillable, context);
        return KeepOwn(root, named);
    }
    static_cast<ObjectHolder*>(model.xsiTyped->Of(root))->Hold(static_cast<CObject*>(content));
    ReadElement(*content, element, model.isNillable, context, model.value);
}

void Reading::ReadSimple(Particle const& particle) {
    PropertyModel const& property = *particle.model;
    std::u16string_view const text = TextOrDefault(*m_child, &property, {});
    if (!m_child->GetAttributeView().empty()) {
        Set const& set = *m_model.type.GetFacts().set;
        if (auto const named = NamedTypeOf(*m_child, set)) {
            CSmartPtr<CObject> content = ReadNamed(*m_child, text, false, *property.actions->type, *named,
                                                   set, particle.blocked, m_context);
            if (!content) ThrowIfNotSimple(*m_child, false, m_context);
            ReadValue(m_object, property, particle.name, text, particle.narrowed);
            return Keep(m_object, property, text, *named, std::move(content));
        }
    }
    ThrowIfNotSimple(*m_child, false, m_context);
    ReadValue(m_object, property, particle.name, text, particle.narrowed);
}

CSmartPtr<CXmlObjectBase> Reading::ReadObject(Particle const& particle) {
    Set const& set = *m_model.type.GetFacts().set;
    std::optional<NamedType> const named = NamedTypeOf(*m_child, set);
    bool const isSimple = named && particle.type->GetModel().IsSimple();
    bool const isAnything = named && particle.type->GetModel().IsAnything();
    CObject* const made =
        MakeFor(*m_child, *particle.type, isSimple || isAnything ? std::nullopt : named, particle.blocked);
    CSmartPtr<CXmlObjectBase> object = made;
    // The name tells later which of several rows the object belongs to.
    if (particle.isSubstitution) ObjectAccess::SetName(*made, particle.name);
    if (isSimple) {
        ReadSimpleAs(*made, *m_child, particle.isNillable, *named, set, particle.blocked, m_context,
                     particle.value);
    } else if (isAnything) {
        ReadAnythingAs(*made, *m_child, particle.isNillable, *named, particle.blocked, m_context);
    } else {
        ReadElement(*made, *m_child, particle.isNillable, m_context, particle.value);
        if (named && &ObjectAccess::ClassOf(*made) == particle.type) KeepOwn(*made, *named);
    }
    return object;
}

CSmartPtr<CXmlObjectBase> Reading::ReadUntyped(Particle const& particle) {
    if (!particle.constraint) {
        TestNil(*m_child, particle.isNillable || m_context.GetIgnoreUnknownAttributes());
        // XML Schema Part 1, 3.3.4, 4: an element of any type may say which it is.
        if (auto const named = NamedTypeOf(*m_child, *m_model.type.GetFacts().set))
            TestNamed(*m_child, *named, particle.blocked, m_context);
    }
    CSmartPtr<CElement> const element = new CElement(u"", u"", u"##any", u"");
    ObjectAccess::ReadAny(element, &m_element, m_child, m_context);
    DropLayout(*element, *m_child);
    SettleTypes(*element, *m_child, *m_model.type.GetFacts().set);
    if (particle.value.isFixed) {
        if (IsNil(*m_child)) ThrowNil(*m_child);
        TestFixed(*element, particle.value.text);
    }
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
