#include "generated/Model.h"

#include <algorithm>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "generated/Entries.h"
#include "generated/TypeOfElement.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

using namespace BxXmlLib5Data;

namespace {

constexpr std::u16string_view OrEmpty(char16_t const* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

}  // namespace

bool Particle::Matches(CXmlElement const* child, bool ignoreNamespaces) const {
    if (constraint) return ignoreNamespaces || constraint->Admits(child->GetNamespaceURI());
    return BxXmlLib5::Equal(child->GetLocalName(), name) &&
           (ignoreNamespaces || BxXmlLib5::Equal(child->GetNamespaceURI(), namespaceUri));
}

Particle const* Particle::Started(CXmlElement const* child, bool ignoreNamespaces) const {
    if (child == nullptr) return nullptr;
    for (Start const& start : starts) {
        if (start.particle->Matches(child, ignoreNamespaces)) return start.member;
    }
    return nullptr;
}

Model::Model(Class const& described)
    : type(described), name(described.GetFacts().name), namespaceUri(described.GetFacts().namespaceUri) {
    std::vector<Particle*> top;
    Add(described, top);
    if (auto* const place = described.GetFacts().xsiTyped) {
        xsiTyped = &properties.emplace_back(PropertyModel{&kObjectActions, place, u"xsi:type"});
    }
    if (top.size() > 1) {
        Particle& whole = particles.emplace_back();
        whole.kind = Row::Kind::Sequence;
        whole.members.assign(top.begin(), top.end());
        top.assign(1, &whole);
    }
    if (!top.empty()) {
        Finish(*top[0]);
        content = top[0];
        if (described.GetFacts().isGroup) MarkLast(*top[0]);
    }
    for (AttributeModel const& attribute : attributes) {
        if (!attribute.constraint) attributeTable.push_back(new CAttributeEntry(attribute));
    }
    if (nil != nullptr) attributeTable.push_back(new CNilEntry(*nil));
    // A wildcard takes what no other attribute does.
    for (AttributeModel const& attribute : attributes) {
        if (attribute.constraint) attributeTable.push_back(new CAttributeEntry(attribute));
    }
    attributeTable.push_back(nullptr);
    elementTable[0] = new CContentEntry(*this);
    info = std::make_unique<CParentElementInfo>(
        egt_Sequence, described.GetFacts().isGroup ? et_PseudoElement : et_Element, name.c_str(),
        namespaceUri.c_str(), -1, !described.GetFacts().isGroup, false);
}

Model::~Model() {
    for (CAttributeInfo* const entry : attributeTable) delete entry;
    delete elementTable[0];
}

void Model::Add(Class const& described, std::vector<Particle*>& top) {
    Class::Facts const& facts = described.GetFacts();
    std::vector<Particle*> open;
    for (Row const& row : facts.rows) {
        switch (row.kind) {
            case Row::Kind::Inherit:
                Add(*row.type, top);
                [[fallthrough]];
            case Row::Kind::Restrict:
                if (&described == &type) {
                    base = row.type;
                    derivation = row.derivation;
                }
                break;
            case Row::Kind::Attribute:
            case Row::Kind::AnyAttribute:
                AddAttribute(row, facts);
                break;
            case Row::Kind::Text: {
                int index = 0;
                text = &Property(row, index);
                isTextMandatory = row.min > 0;
                narrowedText = row.narrowed;
                break;
            }
            case Row::Kind::Nil: {
                int index = 0;
                nil = &Property(row, index);
                break;
            }
            case Row::Kind::Prohibited: {
                int index = 0;
                PropertyModel const* const property = &Property(row, index);
                if (std::ranges::find(prohibited, property) == prohibited.end())
                    prohibited.push_back(property);
                break;
            }
            case Row::Kind::MayBeNil:
                isNillable = true;
                break;
            case Row::Kind::OwnType:
                isOwnType = true;
                break;
            case Row::Kind::RootValue:
                value = row.value;
                break;
            case Row::Kind::Block:
                blocked = row.derivation;
                break;
            case Row::Kind::End:
                if (open.empty()) throw CBxException(u"The rows of a class end a group that has not begun");
                open.pop_back();
                break;
            default: {
                Particle& particle = AddParticle(row, facts);
                if (open.empty()) {
                    top.push_back(&particle);
                } else {
                    open.back()->members.push_back(&particle);
                }
                if (particle.IsGroup()) open.push_back(&particle);
            }
        }
    }
    if (!open.empty()) throw CBxException(u"The rows of a class do not end a group");
}

PropertyModel const& Model::Property(Row const& row, int& index) {
    auto found = std::ranges::find(properties, row.place, &PropertyModel::place);
    if (found == properties.end()) {
        properties.push_back({row.actions, row.place, row.name == nullptr ? u"group" : row.name});
        found = properties.end() - 1;
    }
    index = static_cast<int>(found - properties.begin());
    return *found;
}

Particle& Model::AddParticle(Row const& row, Class::Facts const& facts) {
    Particle& particle = particles.emplace_back();
    particle.kind = row.kind;
    particle.min = row.min;
    particle.max = row.max;
    particle.type = row.type;
    particle.isNillable = row.isNillable;
    particle.blocked = row.derivation;
    particle.narrowed = row.narrowed;
    particle.value = row.value;
    particle.name = OrEmpty(row.name);
    if (row.kind == Row::Kind::Element && row.min == 0) particle.glance = GlanceAt(particle.name);
    if (row.place != nullptr) particle.model = &Property(row, particle.property);
    if (row.kind == Row::Kind::Any) {
        particle.constraint =
            std::make_unique<NamespaceConstraint>(OrEmpty(row.namespaceUri), OrEmpty(facts.namespaceUri));
    } else {
        particle.namespaceUri =
            OrEmpty(row.namespaceUri == nullptr ? facts.elementNamespace : row.namespaceUri);
    }
    return particle;
}

void Model::AddAttribute(Row const& row, Class::Facts const& facts) {
    int index = 0;
    if (row.kind == Row::Kind::AnyAttribute) {
        // That of a derived class takes what that of its base takes too.
        std::erase_if(attributes, [](AttributeModel const& other) { return other.constraint != nullptr; });
    }
    AttributeModel& attribute = attributes.emplace_back();
    attribute.name = OrEmpty(row.name);
    attribute.min = row.min;
    attribute.narrowed = row.narrowed;
    attribute.property = &Property(row, index);
    if (row.kind == Row::Kind::AnyAttribute) {
        attribute.constraint =
            std::make_unique<NamespaceConstraint>(OrEmpty(row.namespaceUri), OrEmpty(facts.namespaceUri));
    } else {
        attribute.namespaceUri = OrEmpty(row.namespaceUri);
    }
}

/// Computes what may come first in a particle, and which properties are in it.
void Model::Finish(Particle& particle) {
    if (particle.property >= 0) particle.properties.Add(static_cast<std::size_t>(particle.property));
    if (particle.kind == Row::Kind::Items) {
        Particle const* const inside = particle.type->GetModel().content;
        particle.canBeEmpty = particle.min == 0 || inside == nullptr || inside->canBeEmpty;
        if (inside == nullptr) return;
        for (Particle::Start const& start : inside->starts)
            particle.starts.push_back({start.particle, &particle});
        return;
    }
    if (!particle.IsGroup()) {
        particle.canBeEmpty = particle.min == 0;
        particle.starts.push_back({&particle, &particle});
        return;
    }
    bool const isChoice = particle.kind == Row::Kind::Choice;
    bool reachesNext = true;
    bool allEmpty = true;
    bool anyEmpty = particle.members.empty();
    for (Particle const* const constMember : particle.members) {
        auto& member = const_cast<Particle&>(*constMember);
        Finish(member);
        if (isChoice && member.property >= 0 && !member.constraint) {
            for (Particle const* const other : particle.members) {
                if (other == constMember) break;
                if (other->property != member.property) continue;
                const_cast<Particle*>(other)->isSubstitution = true;
                member.isSubstitution = true;
            }
        }
        particle.properties.Add(member.properties);
        allEmpty = allEmpty && member.canBeEmpty;
        anyEmpty = anyEmpty || member.canBeEmpty;
        if (particle.kind == Row::Kind::Sequence && !reachesNext) continue;
        for (Particle::Start const& start : member.starts)
            particle.starts.push_back({start.particle, &member});
        reachesNext = member.canBeEmpty;
    }
    particle.canBeEmpty = particle.min == 0 || (isChoice ? anyEmpty : allEmpty);
}

/// Marks the elements that may come last in the content and first too.
void Model::MarkLast(Particle& particle) {
    if (!particle.IsGroup()) {
        particle.goesOn = particle.kind != Row::Kind::Items && particle.max != 1 &&
                          std::ranges::find(content->starts, &particle, &Particle::Start::particle) !=
                              content->starts.end();
        return;
    }
    if (particle.max != 1) {
        // Members of a substitution group stand for one element.
        Particle const* const first = particle.members.empty() ? &particle : particle.members[0];
        particle.goesOn =
            std::ranges::find(content->starts, first, &Particle::Start::particle) != content->starts.end();
        return;
    }
    for (auto member = particle.members.rbegin(); member != particle.members.rend(); ++member) {
        MarkLast(const_cast<Particle&>(**member));
        if (particle.kind == Row::Kind::Sequence && !(*member)->canBeEmpty) return;
    }
}

bool Model::Knows(CXmlElement const* child, bool ignoreNamespaces) const {
    return std::ranges::any_of(particles, [&](Particle const& particle) {
        if (particle.IsGroup()) return false;
        if (particle.kind == Row::Kind::Items)
            return particle.type->GetModel().Knows(child, ignoreNamespaces);
        return particle.Matches(child, ignoreNamespaces);
    });
}

bool Model::KnowsAttribute(CXmlAttribute const& attribute, bool ignoreNamespaces) const {
    return std::ranges::any_of(attributes, [&](AttributeModel const& one) {
        if (one.constraint) return ignoreNamespaces || one.constraint->Admits(attribute.GetNamespaceURI());
        return attribute.GetLocalName() == one.name &&
               (ignoreNamespaces || attribute.GetNamespaceURI() == one.namespaceUri);
    });
}

bool Model::IsAnything() const {
    auto const isOpen = [](auto const& one) { return one.constraint && one.constraint->Admits(u""); };
    return base == nullptr && text != nullptr && std::ranges::any_of(particles, isOpen) &&
           std::ranges::any_of(attributes, isOpen);
}

bool Model::IsAbstract() const {
    return type.GetFacts().isRoot && TypeClass(type).GetFacts().make == nullptr;
}

CObject* Model::XsiTyped(CObject const& object) const {
    if (xsiTyped == nullptr) return nullptr;
    return static_cast<CObject*>(static_cast<ObjectHolder const*>(xsiTyped->Of(object))->Held());
}

bool Model::Is(Class const& other) const {
    return &type == &other || (base != nullptr && base->GetModel().Is(other));
}

Model const& Class::MakeModel() const {
    auto made = std::make_unique<Model>(*this);
    Model const* expected = nullptr;
    if (m_model.compare_exchange_strong(expected, made.get(), std::memory_order_acq_rel)) {
        return *made.release();
    }
    return *expected;
}

}  // namespace BxXmlLib5::Generated
