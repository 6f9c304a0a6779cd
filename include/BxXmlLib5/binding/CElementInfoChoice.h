// The members of a choice.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/ElementInfoKinds.h"

namespace BxXmlLib5Data {

/// An entry of a choice: it is asked about a child that may be another member's, so it never tells that its
/// element is missing. No member is mandatory.
class BXXMLLIB5_API CElementInfoChoice : public CElementInfo {
public:
    using CElementInfo::CElementInfo;

protected:
    /// @throws CBxException always: a choice takes one member, and there is nothing to test afterwards
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// A collection, which is the member if there is an item of it.
class BXXMLLIB5_API CElementInfoChoiceCol : public CElementInfoChoice {
public:
    /// The arguments are those of CElementInfo.
    CElementInfoChoiceCol(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of simple type: a collection of them.
class BXXMLLIB5_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol {
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;
};

/// A value of an enumeration: a collection of them.
class BXXMLLIB5_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol {
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;
};

/// An object of a generated class: a collection of them.
class BXXMLLIB5_API CElementInfoChoiceClsCol : public Detail::ClsColEntry<CElementInfoChoiceCol> {
public:
    using ClsColEntry::ClsColEntry;
};

/// An object whose class the document picks: a collection of them.
class BXXMLLIB5_API CElementInfoChoiceAbsClsCol : public Detail::ClsColEntry<CElementInfoChoiceCol> {
public:
    using ClsColEntry::ClsColEntry;
};

/// Takes any element if its name is "AnyElement", otherwise the run of its local name in one
/// namespace.
class BXXMLLIB5_API CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol {
public:
    using CElementInfoChoiceCol::CElementInfoChoiceCol;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of simple type: at most one.
class BXXMLLIB5_API CElementInfoChoicePrimOpt : public Detail::PrimEntry<CElementInfoChoice> {
public:
    using PrimEntry::PrimEntry;
};

/// A value of an enumeration: at most one.
class BXXMLLIB5_API CElementInfoChoiceEnumOpt : public Detail::EnumEntry<CElementInfoChoice> {
public:
    using EnumEntry::EnumEntry;
};

/// An object, which is stored before it is read: its owner has the member selected meanwhile.
class BXXMLLIB5_API CElementInfoChoiceClsOpt : public Detail::ClsOptEntry<CElementInfoChoice> {
public:
    using ClsOptEntry::ClsOptEntry;

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An object, which is stored before it is read.
class BXXMLLIB5_API CElementInfoChoiceAbsClsOpt : public Detail::AbsClsEntry<CElementInfoChoice> {
public:
    using AbsClsEntry::AbsClsEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An untyped element: at most one.
class BXXMLLIB5_API CElementInfoChoiceUntpdOpt : public Detail::UntpdEntry<CElementInfoChoice> {
public:
    using UntpdEntry::UntpdEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

}  // namespace BxXmlLib5Data
