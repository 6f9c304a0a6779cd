// How generated classes read their content.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "BxXmlLib5/generated/CObject.h"
#include "generated/Model.h"
#include "generated/TypeOfElement.h"

namespace BxXmlLib5::Generated {

/// Sets or adds the value of a literal.
/// @throws CBxInvalidValueException if it is none, with the name of the element or attribute
/// @param narrowed null, or another type of the literal
void ReadValue(CObject& object, PropertyModel const& property, wstring const& name, std::u16string_view text,
               SimpleType const* narrowed = nullptr);

/// Reads the children of one element into one object. The content models of a schema tell from the next child
/// what is to be read, so nothing is ever read in vain and taken back.
class Reading {
public:
    Reading(CObject& object, CXmlElement& element, CXmlElement* child,
            CXmlSerializationContext const& context);

    /// All content of the object.
    /// @throws CBxValidationException for what is missing or unexpected, and for an element that is nil and may
    ///         not be
    /// @param value of the element; if it has none, that of the class counts
    void Content(bool mayBeNil, ElementValue value = {});

private:
    /// Where an item stands among those of its group.
    struct Round {
        std::int64_t needed;  ///< how many must follow it
        std::int64_t left;    ///< how many may follow it
        std::int64_t run =
            0;  ///< how many elements of a particle that goes on have been counted and not read
    };

    Reading(CObject& object, Reading& outer, Round* round);

    void Read(Particle const& particle);
    void ReadElements(Particle const& particle);
    int MostOf(Particle const& particle);
    void ReadItems(Particle const& particle);
    void ReadSequence(Particle const& sequence);
    void ReadChoice(Particle const& choice);
    void ReadAll(Particle const& all);
    void ReadChild(Particle const& particle);
    void ReadSimple(Particle const& particle);
    CSmartPtr<CXmlObjectBase> ReadObject(Particle const& particle);
    CSmartPtr<CXmlObjectBase> ReadUntyped(Particle const& particle);
    void ReadText(bool isNil, ElementValue value);

    bool Matches(Particle const& particle) const;
    Particle const* Started(Particle const& particle) const;
    bool IsKnown(CXmlElement const* child) const;
    Reading& Outermost() { return m_outer == nullptr ? *this : m_outer->Outermost(); }
    void SkipUnknown();
    bool SkipTo(Particle const& particle);
    [[noreturn]] void ThrowMissing(Particle const& particle) const;

    CXmlSerializationContext const& m_context;
    CXmlElement& m_element;
    CXmlElement* m_child;
    CObject& m_object;
    Model const& m_model;
    Reading* m_outer = nullptr;
    Round* m_round = nullptr;                     ///< Of an item.
    std::vector<Particle const*> m_soughtInVain;  ///< Of the outermost one.
    bool const m_ignoreNamespaces;
    bool const m_skipsUnknown;
};

/// @throws CBxValidationException if an element has children, or attributes but for xsi:nil if it may have that
/// @param type of a type whose attributes it may have too, null for none
void ThrowIfNotSimple(CXmlElement const& element, bool mayBeNil, CXmlSerializationContext const& context,
                      Model const* type = nullptr);

/// Reads a root that names a type by xsi:type.
void ReadRootAs(CObject& root, CXmlElement& element, NamedType const& named,
                CXmlSerializationContext const& context);

/// Reads an object from its element.
void ReadElement(CObject& object, CXmlElement& element, bool mayBeNil,
                 CXmlSerializationContext const& context, ElementValue value = {});

}  // namespace BxXmlLib5::Generated
