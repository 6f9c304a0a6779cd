// The elements of an all group.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/ElementInfoKinds.h"

namespace BxXmlLib5Data {

/// An entry of an all group: it is asked about each child, so it never tells that its element is missing
/// before Validate().
class BXXMLLIB5_API CElementInfoAll : public CElementInfo {
protected:
    using CElementInfo::CElementInfo;
};

/// For entries that occur once at most; no entry of the library needs it.
class BXXMLLIB5_API CElementInfoAllNonCol : public CElementInfoAll {
public:
    /// The arguments are those of CElementInfo.
    CElementInfoAllNonCol(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex);
};

namespace Detail {

/// What must have been found.
class BXXMLLIB5_API AllRequired : public CElementInfoAll {
protected:
    using CElementInfoAll::CElementInfoAll;
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// What need not have been found.
class BXXMLLIB5_API AllOptional : public CElementInfoAll {
protected:
    using CElementInfoAll::CElementInfoAll;
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// An object whose class the document picks. It can be written; reading it is not available.
template <class Family>
class BXXMLLIB5_API AllAbsClsEntry : public AbsClsEntry<Family> {
public:
    using AbsClsEntry<Family>::AbsClsEntry;

protected:
    /// @throws CBxException for every child
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

}  // namespace Detail

/// A collection. It is asked about each child again, so its elements may stand apart; its count is tested at
/// the end.
class BXXMLLIB5_API CElementInfoAllCol : public CElementInfoAll {
public:
    /// The arguments are those of CElementInfo.
    CElementInfoAllCol(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// A value of simple type: a collection of them.
class BXXMLLIB5_API CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;
};

/// A value of an enumeration: a collection of them.
class BXXMLLIB5_API CElementInfoAllEnumCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;
};

/// Takes every element that the collection takes, whatever its own name.
class BXXMLLIB5_API CElementInfoAllUntpdCol : public CElementInfoAllCol {
public:
    using CElementInfoAllCol::CElementInfoAllCol;
};

/// An object of a generated class: a collection of them.
class BXXMLLIB5_API CElementInfoAllClsCol : public Detail::ClsColEntry<CElementInfoAllCol> {
public:
    using ClsColEntry::ClsColEntry;
};

/// An object whose class the document picks: a collection of them.
class BXXMLLIB5_API CElementInfoAllAbsClsCol : public Detail::ClsColEntry<CElementInfoAllCol> {
public:
    using ClsColEntry::ClsColEntry;
};

/// A value of simple type: exactly one.
class BXXMLLIB5_API CElementInfoAllPrimMnd : public Detail::PrimEntry<Detail::AllRequired> {
public:
    using PrimEntry::PrimEntry;
};

/// A value of simple type: at most one.
class BXXMLLIB5_API CElementInfoAllPrimOpt : public Detail::PrimEntry<Detail::AllOptional> {
public:
    using PrimEntry::PrimEntry;
};

/// A value of an enumeration: exactly one.
class BXXMLLIB5_API CElementInfoAllEnumMnd : public Detail::EnumEntry<Detail::AllRequired> {
public:
    using EnumEntry::EnumEntry;
};

/// A value of an enumeration: at most one.
class BXXMLLIB5_API CElementInfoAllEnumOpt : public Detail::EnumEntry<Detail::AllOptional> {
public:
    using EnumEntry::EnumEntry;
};

/// An object of a generated class: exactly one.
class BXXMLLIB5_API CElementInfoAllClsMnd : public Detail::ClsMndEntry<CElementInfoAll> {
public:
    using ClsMndEntry::ClsMndEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// An object of a generated class: at most one.
class BXXMLLIB5_API CElementInfoAllClsOpt : public Detail::ClsOptEntry<Detail::AllOptional> {
public:
    using ClsOptEntry::ClsOptEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An object whose class the document picks: exactly one.
class BXXMLLIB5_API CElementInfoAllAbsClsMnd : public Detail::AllAbsClsEntry<Detail::AllRequired> {
public:
    /// @param classId kept, not used
    CElementInfoAllAbsClsMnd(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex,
                             XmlElementType elementType, Detail::CreateFromElement createFromElement,
                             int classId);

protected:
    int m_classId;  ///< kept, not used
};

/// An object whose class the document picks: at most one.
class BXXMLLIB5_API CElementInfoAllAbsClsOpt : public Detail::AllAbsClsEntry<Detail::AllOptional> {
public:
    using AllAbsClsEntry::AllAbsClsEntry;
};

/// An untyped element: exactly one.
class BXXMLLIB5_API CElementInfoAllUntpdMnd : public Detail::UntpdEntry<Detail::AllRequired> {
public:
    using UntpdEntry::UntpdEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An untyped element: at most one.
class BXXMLLIB5_API CElementInfoAllUntpdOpt : public Detail::UntpdEntry<Detail::AllOptional> {
public:
    using UntpdEntry::UntpdEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

}  // namespace BxXmlLib5Data
