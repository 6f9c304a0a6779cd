#include "generated/Writing.h"

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "core/NestingDepth.h"
#include "core/NeverDestroyed.h"
#include "generated/Expected.h"
#include "generated/FixedValue.h"
#include "generated/ObjectAccess.h"
#include "generated/TypeOfElement.h"
#include "platform/StandardNamespaces.h"
#include "writers/WrittenPlace.h"

namespace BxXmlLib5::Generated {

Writing::Writing(CObject const& object, CXmlSerializationContext const& context, CXmlWriter* writer,
                 std::vector<wstring>* complaints, CPathWriter const* path)
    : m_object(object),
      m_model(ObjectAccess::ModelOf(object)),
      m_context(context),
      m_writer(writer),
      m_complaints(complaints),
      m_path(path),
      m_room(m_ownRoom) {}

Writing::Writing(CObject const& object, Writing const& outer)
    : m_object(object),
      m_model(ObjectAccess::ModelOf(object)),
      m_context(outer.m_context),
      m_writer(outer.m_writer),
      m_complaints(outer.m_complaints),
      m_outer(&outer),
      m_path(outer.m_path),
      m_room(outer.m_room) {}

void WriteXsiType(CObject const& object, CXmlWriter* writer) {
    Class::Facts const& facts = TypeClass(ObjectAccess::ClassOf(object)).GetFacts();
    writer->WriteXsiType(facts.namespaceUri, facts.name);
}

namespace {

/// The type that was kept for a value, null if it is not the value that was read.
KeptTypes::Kept const* FindKept(CObject const& object, KeptTypes::Place place, int index,
                                wstring const& text) {
    KeptTypes const* const types = ObjectAccess::KeptIn(object);
    return types == nullptr ? nullptr : types->Find(place, index, text);
}

/// Whether an untyped element may stand for a particle.
bool Fits(Particle const& particle, CElement const& element) {
    if (particle.constraint) return particle.constraint->Admits(element.GetNamespace());
    return element.GetName() == particle.name && element.GetNamespace() == particle.namespaceUri;
}

void WriteKept(KeptTypes::Kept const* kept, CXmlWriter* writer, CXmlSerializationContext const& context) {
    if (kept == nullptr) return;
    writer->WriteXsiType(kept->namespaceUri, kept->name);
    if (kept->content) Writing(*kept->content, context, writer).Attributes();
}

}  // namespace

void WriteKeptType(CObject const& object, CXmlWriter* writer, CXmlSerializationContext const& context) {
    WriteKept(FindKept(object, nullptr, 0, {}), writer, context);
    PropertyModel const* const text = ObjectAccess::ModelOf(object).text;
    if (text == nullptr) return;
    wstring room;
    wstring const none;
    wstring const& value = text->Count(object) == 0 ? none : text->actions->text(text->Of(object), 0, room);
    WriteKept(FindKept(object, text->place, 0, value), writer, context);
}

void Writing::TypedContent(CObject const& typed, bool mayBeNil, ElementValue value) {
    for (PropertyModel const& property : m_model.properties) {
        if (&property != m_model.xsiTyped && property.Count(m_object) > 0) {
            Refuse(FormatString(u"[%s] is set beside the object of a derived type", property.name));
        }
    }
    if (!ObjectAccess::ModelOf(typed).Is(TypeClass(m_model.type)))
        Refuse(u"The object of a derived type is of a type that is none");
    Writing inner(typed, *this);
    // The writer of a document has them already.
    if (m_complaints != nullptr) inner.Attributes();
    inner.Content(mayBeNil, value);
}

void Writing::Content(bool mayBeNil, ElementValue value) {
    if (value.text == nullptr) value = m_model.value;
    if (CObject const* const typed = m_model.XsiTyped(m_object)) return TypedContent(*typed, mayBeNil, value);
    if (m_model.IsAbstract())
        Refuse(u"The type of the element is abstract: XsiTyped must have the object of another");
    if (value.isFixed) TestFixedValue(value.text);
    if (m_model.IsNil(m_object)) return NilContent(mayBeNil);
    if (m_model.content != nullptr) Write(*m_model.content);
    for (PropertyModel const* const property : m_model.prohibited) {
        if (property->Count(m_object) > 0) Refuse(FormatString(u"[%s] must not be set", property->name));
    }
    if (m_model.text != nullptr) WriteText();
}

void Writing::NilContent(bool mayBeNil) {
    if (!mayBeNil) Refuse(u"The element must not be nil");
    bool const isEmpty = (m_model.content == nullptr || !IsSet(*m_model.content)) &&
                         (m_model.text == nullptr || m_model.text->Count(m_object) == 0);
    if (!isEmpty) Refuse(u"The element is nil and has content");
}

void Writing::WriteText() {
    if (m_model.text->Count(m_object) == 0) {
        if (m_model.isTextMandatory) Refuse(u"The text of the element is not set");
    } else if (m_writer != nullptr || m_model.narrowedText != nullptr) {
        wstring const& text = m_model.text->actions->text(m_model.text->Of(m_object), 0, m_room);
        TestNarrowed(m_model.narrowedText, m_model.name, text);
        if (m_writer == nullptr) return;
        auto const* const kept = FindKept(m_object, m_model.text->place, 0, text);
        m_writer->WriteText(kept == nullptr ? text : kept->literal);
    }
}

void Writing::TestNarrowed(SimpleType const* narrowed, wstring const& name, wstring const& text,
                           CPathWriter::Next next) {
    if (narrowed == nullptr) return;
    try {
        narrowed->test(text);
    } catch (CBxException const& failure) {
        Refuse(FormatString(u"Invalid Value for %s [%s]: %s", name.c_str(), text.c_str(),
                            failure.GetMessage().c_str()),
               next);
    }
}

void Writing::TestFixedValue(std::u16string_view fixed) {
    try {
        TestFixed(m_object, fixed);
    } catch (CBxException const& failure) {
        Refuse(failure.GetMessage());
    }
}

void Writing::Attributes() {
    if (m_model.XsiTyped(m_object) != nullptr) return;
    if (m_writer != nullptr && !m_isTypeWritten && ObjectAccess::KeptIn(m_object) != nullptr)
        WriteKeptType(m_object, m_writer, m_context);
    for (AttributeModel const& attribute : m_model.attributes) {
        if (!attribute.constraint) Attribute(attribute);
    }
    NilAttribute();
    for (AttributeModel const& attribute : m_model.attributes) {
        if (attribute.constraint) OpenAttributes(attribute);
    }
}

void Writing::NilAttribute() {
    if (m_writer == nullptr || !m_model.IsNil(m_object)) return;
    static NeverDestroyed<wstring> const s_name(u"nil"), s_xsiNamespace(kXsiNamespace), s_true(u"true");
    m_writer->WriteAttribute(*s_name, *s_xsiNamespace, *s_true);
}

void Writing::Attribute(AttributeModel const& attribute) {
    if (attribute.constraint) return OpenAttributes(attribute);
    if (attribute.property->CountToWrite(m_object, attribute.min) == 0) {
        if (attribute.min > 0) Refuse(FormatString(u"The attribute [%s] is not set", attribute.name.c_str()));
        return;
    }
    if (m_writer == nullptr && attribute.narrowed == nullptr) return;
    Actions const& actions = *attribute.property->actions;
    wstring const& text = actions.text(attribute.property->Of(m_object), 0, m_room);
    bool const isLeftOut = attribute.min == 0 && m_context.GetNoOptionalAttributeDefaultOutput() &&
                           actions.defaultText != nullptr && text == actions.defaultText();
    TestNarrowed(attribute.narrowed, attribute.name, text, {attribute.name, true});
    if (m_writer != nullptr && !isLeftOut)
        m_writer->WriteAttribute(attribute.name, attribute.namespaceUri, text);
}

void Writing::OpenAttributes(AttributeModel const& wildcard) {
    for (CAttribute const* const one : *static_cast<AnyAttributes const*>(wildcard.property->Of(m_object))) {
        if (!wildcard.constraint->Admits(one->GetNamespace())) {
            Refuse(FormatString(u"The namespace [%s] of the attribute [%s] is not admitted",
                                one->GetNamespace().c_str(), one->GetName().c_str()),
                   {one->GetName(), true});
        } else if (m_writer != nullptr) {
            m_writer->WriteAttribute(one->GetName(), one->GetNamespace(), one->GetValue());
        }
    }
}

void Writing::Write(Particle const& particle) {
    switch (particle.kind) {
        case Row::Kind::Choice:
            return WriteChoice(particle);
        case Row::Kind::Sequence:
        case Row::Kind::All:
            if (particle.min == 0 && !IsSet(particle)) return;
            for (Particle const* const member : particle.members) Write(*member);
            return;
        case Row::Kind::Items:
            return WriteItems(particle);
        default:
            // Most rows of most objects are not set.
            if (int const count = particle.model->CountToWrite(m_object, particle.min);
                count > 0 || particle.min > 0)
                WriteElements(particle, count);
    }
}

void Writing::WriteElements(Particle const& particle, int count) {
    if (!particle.Admits(count)) RefuseCount(particle, count);
    if (count > 1) m_repeated = &particle.name;
    for (int i = 0; i < count; ++i) {
        switch (particle.model->actions->shape) {
            case Actions::Shape::Object:
            case Actions::Shape::Objects:
                WriteObject(particle, i);
                break;
            case Actions::Shape::AnyElement:
            case Actions::Shape::AnyElements:
                WriteUntyped(particle, i);
                break;
            default:
                WriteValue(particle, i);
        }
    }
    m_repeated = nullptr;
}

/// @param count one that the particle does not admit
void Writing::RefuseCount(Particle const& particle, int count) {
    bool const isMissing = count < particle.min;
    bool const isRepeated = IsRepeated(particle);
    if (isMissing && !isRepeated ? m_context.GetIgnoreMissingMandatoryElements()
                                 : m_context.GetIgnoreInvalidCollectionCounts())
        return;
    if (isMissing && !isRepeated)
        return Refuse(FormatString(u"The element [%s] is not set", particle.name.c_str()));
    Refuse(FormatString(u"There are %d of [%s], there must be at %s %d", count, particle.model->name,
                        isMissing ? u"least" : u"most", isMissing ? particle.min : particle.max));
}

void Writing::WriteValue(Particle const& particle, int index) {
    if (m_writer == nullptr && particle.narrowed == nullptr) return;
    wstring const& text = particle.model->actions->text(particle.model->Of(m_object), index, m_room);
    TestNarrowed(particle.narrowed, particle.name, text, {particle.name});
    if (m_writer == nullptr) return;
    m_writer->WriteStartElement(particle.name, particle.namespaceUri);
    auto const* const kept = FindKept(m_object, particle.model->place, index, text);
    WriteKept(kept, m_writer, m_context);
    m_writer->WriteText(kept == nullptr ? text : kept->literal);
    m_writer->WriteEndElement();
}

CXmlObjectBase* Writing::HeldBy(PropertyModel const& property, int index) const {
    void const* const place = property.Of(m_object);
    Actions::Shape const shape = property.actions->shape;
    if (shape == Actions::Shape::Object || shape == Actions::Shape::AnyElement) {
        return static_cast<ObjectHolder const*>(place)->Held();
    }
    return static_cast<ObjectsHolder const*>(place)->HeldAt(index);
}

void Writing::WriteObject(Particle const& particle, int index) {
    CNestingLevel const level;
    auto const& object = static_cast<CObject const&>(*HeldBy(*particle.model, index));
    Writing inner(object, *this);
    Class const& type = TypeClass(inner.m_model.type);
    auto const ways = WaysBetween(&type, &TypeClass(*particle.type));
    if (!ways || (*ways & particle.blocked) != 0) {
        return Refuse(
            FormatString(u"An object of the type [%s] may not stand there", inner.m_model.name.c_str()),
            {particle.name});
    }
    if (m_writer != nullptr) {
        m_writer->WriteStartElement(particle.name, particle.namespaceUri);
        inner.m_isTypeWritten = *ways != 0;
        if (inner.m_isTypeWritten) WriteXsiType(object, m_writer);
    }
    inner.Attributes();
    inner.Content(particle.isNillable, particle.value);
    if (m_writer != nullptr) m_writer->WriteEndElement();
}

void Writing::WriteUntyped(Particle const& particle, int index) {
    auto& element = static_cast<CElement&>(*HeldBy(*particle.model, index));
    if (!Fits(particle, element)) {
        return Refuse(
            FormatString(u"The element [%s] in the namespace [%s] does not fit [%s]",
                         element.GetName().c_str(), element.GetNamespace().c_str(), particle.name.c_str()),
            {element.GetName()});
    }
    if (particle.value.isFixed) {
        try {
            TestFixed(element, particle.value.text);
        } catch (CBxException const& failure) {
            return Refuse(failure.GetMessage(), {element.GetName()});
        }
    }
    if (m_writer != nullptr) ObjectAccess::WriteAny(&element, m_writer, particle.namespaceUri, m_context);
}

void Writing::WriteItems(Particle const& particle) {
    int const count = particle.model->Count(m_object);
    if (!particle.Admits(count) && !(particle.canBeEmpty && count < particle.min))
        RefuseCount(particle, count);
    for (int i = 0; i < count; ++i) {
        CNestingLevel const level;
        Writing(static_cast<CObject const&>(*HeldBy(*particle.model, i)), *this).Content(false);
    }
}

void Writing::WriteChoice(Particle const& choice) {
    if (!choice.members.empty() && choice.members[0]->isSubstitution && choice.max != 1)
        return WriteSubstitutes(choice);
    if (!IsSet(choice)) {
        if (choice.canBeEmpty || m_context.GetIgnoreMissingChoice()) return;
        return Refuse(FormatString(u"Nothing is set of %s", Expected(choice).c_str()));
    }
    if (Particle const* const member = Chosen(choice)) return Write(*member);
    wstring names;
    for (std::size_t i = 0; i < m_model.properties.size(); ++i) {
        if (choice.properties.Has(i) && Set().Has(i))
            names += wstring(u" [") + m_model.properties[i].name + u"]";
    }
    Refuse(FormatString(u"No member of the choice has all that is set:%s", names.c_str()));
}

/// The objects of one collection, each under the name of its member.
void Writing::WriteSubstitutes(Particle const& choice) {
    Particle const& first = *choice.members[0];
    int const count = first.model->Count(m_object);
    if (!choice.Admits(count) && !m_context.GetIgnoreInvalidCollectionCounts()) {
        Refuse(FormatString(u"There are %d of [%s], which is out of bounds", count, first.model->name));
    }
    for (int i = 0; i < count; ++i) {
        auto const& object = static_cast<CObject const&>(*HeldBy(*first.model, i));
        if (Particle const* const member = MemberFor(choice, object)) {
            m_repeated = count > 1 ? &member->name : nullptr;
            WriteObject(*member, i);
        } else {
            Refuse(FormatString(u"An object of the type [%s] fits no member of [%s]",
                                ObjectAccess::ModelOf(object).name.c_str(), first.model->name));
        }
    }
}

/// The member of a choice that an object belongs to: of those with its name, or else of all, the one whose class is
/// nearest to its own.
Particle const* Writing::MemberFor(Particle const& choice, CObject const& object) const {
    Particle const* best = nullptr;
    bool isNamed = false;
    Class const& type = ObjectAccess::ClassOf(object);
    for (Particle const* const member : choice.members) {
        if (!member->isSubstitution || !type.GetModel().Is(*member->type)) continue;
        bool const hasName = ObjectAccess::NameOf(object) == member->name;
        bool const isNearer =
            best == nullptr || (member->type != best->type && member->type->GetModel().Is(*best->type));
        if (hasName == isNamed ? !isNearer : isNamed) continue;
        best = member;
        isNamed = hasName;
    }
    return best;
}

PropertySet const& Writing::Set() {
    if (m_set) return *m_set;
    m_set.emplace();
    for (std::size_t i = 0; i < m_model.properties.size(); ++i) {
        if (m_model.properties[i].Count(m_object) > 0) m_set->Add(i);
    }
    return *m_set;
}

/// Whether the particle can be written with what is set of it.
bool Writing::IsSatisfied(Particle const& particle) {
    if (!particle.IsGroup()) {
        int const count = particle.model->CountToWrite(m_object, particle.min);
        return (particle.canBeEmpty && count == 0) || (particle.Admits(count) && FitAll(particle, count));
    }
    if (!IsSet(particle)) return particle.canBeEmpty;
    if (particle.kind == Row::Kind::Choice) {
        for (Particle const* const member : particle.members) {
            if (Covers(*member, particle) && IsSatisfied(*member)) return true;
        }
        return false;
    }
    for (Particle const* const member : particle.members) {
        if (!IsSatisfied(*member)) return false;
    }
    return true;
}

/// Whether all untyped elements of a property fit the particle: wildcards of several arms have one property.
bool Writing::FitAll(Particle const& particle, int count) const {
    Actions::Shape const shape = particle.model->actions->shape;
    if (shape != Actions::Shape::AnyElement && shape != Actions::Shape::AnyElements) return true;
    for (int i = 0; i < count; ++i) {
        if (!Fits(particle, static_cast<CElement const&>(*HeldBy(*particle.model, i)))) return false;
    }
    return true;
}

/// Whether a member has all that is set of its choice.
bool Writing::Covers(Particle const& member, Particle const& choice) {
    if (!Set().SharesOnly(choice.properties, member.properties)) return false;
    if (!member.isSubstitution) return true;
    return MemberFor(choice, static_cast<CObject const&>(*HeldBy(*member.model, 0))) == &member;
}

/// The first member that has all that is set and misses nothing; else the first that has it, whose own rows
/// say what is missing. Null if none has.
Particle const* Writing::Chosen(Particle const& choice) {
    Particle const* covering = nullptr;
    for (Particle const* const member : choice.members) {
        if (!Covers(*member, choice)) continue;
        if (IsSatisfied(*member)) return member;
        if (covering == nullptr) covering = member;
    }
    return covering;
}

void Writing::Refuse(wstring message, CPathWriter::Next next) {
    std::vector<wstring> repeated;
    for (Writing const* outer = this; outer != nullptr; outer = outer->m_outer) {
        if (outer->m_repeated != nullptr) repeated.push_back(*outer->m_repeated);
    }
    if (m_complaints != nullptr) {
        if (m_path != nullptr) message = m_path->Path(next, repeated) + u": " + message;
        m_complaints->push_back(std::move(message));
        return;
    }
    CBxValidationException failure(std::move(message));
    if (!next.m_name.empty())
        MarkNext(failure, next.m_name, next.m_isAttribute ? Step::Attribute : Step::Element);
    for (wstring const& name : repeated) MarkRepeated(failure, name);
    throw failure;
}

}  // namespace BxXmlLib5::Generated
