// The elements of a sequence.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/ElementInfoKinds.h"

namespace BxXmlLib5Data {

/// An entry of a sequence: it is asked in its turn, so it can tell that its element is missing.
class BXXMLLIB5_API CElementInfoSeq : public CElementInfo {
public:
    using CElementInfo::CElementInfo;

protected:
    /// @throws CBxException always: the entries of a sequence raise while they read
    bool Validate(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner, bool found,
                  bool isElement) const override;
};

/// For entries that occur once at most; no entry of the library needs it.
class BXXMLLIB5_API CElementInfoSeqNonCol : public CElementInfoSeq {
public:
    /// The arguments are those of CElementInfo.
    CElementInfoSeqNonCol(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex);
};

/// A collection, which reads the run of its elements.
class BXXMLLIB5_API CElementInfoSeqCol : public CElementInfoSeq {
public:
    /// The arguments are those of CElementInfo.
    CElementInfoSeqCol(char16_t const* elementName, char16_t const* elementNamespace, int propertyIndex);

protected:
    bool ElementToXml(CXmlSerializationContext const& context, CXmlGeneratedClass const* owner,
                      CXmlWriter* writer) const override;
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of simple type: a collection of them.
class BXXMLLIB5_API CElementInfoSeqPrimCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
};

/// A value of an enumeration: a collection of them.
class BXXMLLIB5_API CElementInfoSeqEnumCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;
};

/// An object of a generated class: a collection of them.
class BXXMLLIB5_API CElementInfoSeqClsCol : public Detail::ClsColEntry<CElementInfoSeqCol> {
public:
    using ClsColEntry::ClsColEntry;
};

/// An object whose class the document picks: a collection of them.
class BXXMLLIB5_API CElementInfoSeqAbsClsCol : public Detail::ClsColEntry<CElementInfoSeqCol> {
public:
    using ClsColEntry::ClsColEntry;
};

/// Takes any element if its name is "AnyElement", otherwise the run of its local name in one
/// namespace.
class BXXMLLIB5_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    using CElementInfoSeqCol::CElementInfoSeqCol;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of simple type: exactly one.
class BXXMLLIB5_API CElementInfoSeqPrimMnd : public Detail::PrimEntry<CElementInfoSeq> {
public:
    using PrimEntry::PrimEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of simple type: at most one.
class BXXMLLIB5_API CElementInfoSeqPrimOpt : public Detail::PrimEntry<CElementInfoSeq> {
public:
    using PrimEntry::PrimEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of an enumeration: exactly one.
class BXXMLLIB5_API CElementInfoSeqEnumMnd : public Detail::EnumEntry<CElementInfoSeq> {
public:
    using EnumEntry::EnumEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// A value of an enumeration: at most one.
class BXXMLLIB5_API CElementInfoSeqEnumOpt : public Detail::EnumEntry<CElementInfoSeq> {
public:
    using EnumEntry::EnumEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An object of a generated class: exactly one.
class BXXMLLIB5_API CElementInfoSeqClsMnd : public Detail::ClsMndEntry<CElementInfoSeq> {
public:
    using ClsMndEntry::ClsMndEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An object of a generated class: at most one.
class BXXMLLIB5_API CElementInfoSeqClsOpt : public Detail::ClsOptEntry<CElementInfoSeq> {
public:
    using ClsOptEntry::ClsOptEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An object whose class the document picks: exactly one.
class BXXMLLIB5_API CElementInfoSeqAbsClsMnd : public Detail::AbsClsEntry<CElementInfoSeq> {
public:
    using AbsClsEntry::AbsClsEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An object whose class the document picks: at most one.
class BXXMLLIB5_API CElementInfoSeqAbsClsOpt : public Detail::AbsClsEntry<CElementInfoSeq> {
public:
    using AbsClsEntry::AbsClsEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An untyped element: exactly one.
class BXXMLLIB5_API CElementInfoSeqUntpdMnd : public Detail::UntpdEntry<CElementInfoSeq> {
public:
    using UntpdEntry::UntpdEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

/// An untyped element: at most one.
class BXXMLLIB5_API CElementInfoSeqUntpdOpt : public Detail::UntpdEntry<CElementInfoSeq> {
public:
    using UntpdEntry::UntpdEntry;

protected:
    bool ElementFromXml(CXmlSerializationContext const& context, CXmlGeneratedClass* owner,
                        CXmlElement* element, CXmlElement** child, char16_t const* namespaceUri,
                        XmlElementType ownerType) override;
};

}  // namespace BxXmlLib5Data
