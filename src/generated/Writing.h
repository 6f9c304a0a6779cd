// How generated classes write their content, and tell what would be refused.
#pragma once

#include <optional>
#include <vector>

#include "BxXmlLib5/generated/CObject.h"
#include "generated/Model.h"
#include "writers/CPathWriter.h"

namespace BxXmlLib5::Generated {

/// Writes the name of an object's type into the element that is open.
void WriteXsiType(CObject const& object, CXmlWriter* writer);

/// Writes the type that was kept for the text of an object, with the attributes of it.
void WriteKeptType(CObject const& object, CXmlWriter* writer, CXmlSerializationContext const& context);

/// Writes one object. Without a writer nothing is written; what is wrong is either thrown or listed.
class Writing {
public:
    /// @param writer null to test only
    /// @param complaints takes a message for all that is wrong; null to throw the first
    /// @param path the writer, if it knows the path that complaints begin with
    Writing(CObject const& object, CXmlSerializationContext const& context, CXmlWriter* writer,
            std::vector<wstring>* complaints = nullptr, CPathWriter const* path = nullptr);

    /// @throws CBxValidationException for what is missing or does not fit
    /// @param value of the element; if it has none, that of the class counts
    void Content(bool mayBeNil, ElementValue value = {});
    void Attribute(AttributeModel const& attribute);
    void NilAttribute();
    /// In the order in which those of a root are written.
    void Attributes();

private:
    Writing(CObject const& object, Writing const& outer);

    void Write(Particle const& particle);
    void WriteElements(Particle const& particle, int count);
    void WriteItems(Particle const& particle);
    void WriteChoice(Particle const& choice);
    void WriteSubstitutes(Particle const& choice);
    void TypedContent(CObject const& typed, bool mayBeNil, ElementValue value);
    void NilContent(bool mayBeNil);
    void WriteText();
    void OpenAttributes(AttributeModel const& wildcard);
    void WriteValue(Particle const& particle, int index);
    void WriteObject(Particle const& particle, int index);
    void WriteUntyped(Particle const& particle, int index);

    PropertySet const& Set();
    bool IsSet(Particle const& particle) { return Set().Meets(particle.properties); }
    bool IsSatisfied(Particle const& particle);
    bool FitAll(Particle const& particle, int count) const;
    bool Covers(Particle const& member, Particle const& choice);
    Particle const* Chosen(Particle const& choice);
    Particle const* MemberFor(Particle const& choice, CObject const& object) const;
    CXmlObjectBase* HeldBy(PropertyModel const& property, int index) const;

    void TestNarrowed(SimpleType const* narrowed, wstring const& name, wstring const& text,
                      CPathWriter::Next next = {});
    void TestFixedValue(std::u16string_view fixed);
    void Refuse(wstring message, CPathWriter::Next next = {});
    void RefuseCount(Particle const& particle, int count);

    CObject const& m_object;
    Model const& m_model;
    CXmlSerializationContext const& m_context;
    CXmlWriter* m_writer;
    std::vector<wstring>* m_complaints;
    Writing const* m_outer = nullptr;
    CPathWriter const* m_path = nullptr;
    wstring const* m_repeated =
        nullptr;  // the name of the elements that are being written, if there are several
    bool m_isTypeWritten = false;
    std::optional<PropertySet> m_set;
    wstring m_ownRoom;
    wstring& m_room;  // for the text of a value, that of the outermost one
};

}  // namespace BxXmlLib5::Generated
