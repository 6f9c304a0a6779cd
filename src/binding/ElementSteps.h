// What the entries of elements share, whatever their family.
#pragma once

#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "binding/IgnoredContent.h"

namespace BxXmlLib5Data {

using BxXmlLib5::CXmlCollectionBase;

/// The operations that read a child which the entry takes move on to its next sibling.
struct CElementInfo::Steps {
    static void ReadPrim(CElementInfo& entry, CXmlGeneratedClass* owner, CXmlElement** child,
                         CXmlSerializationContext const& context);
    static void ReadEnum(CElementInfo& entry, CXmlGeneratedClass* owner, CXmlElement** child,
                         Detail::StringToEnum stringToEnum, CXmlSerializationContext const& context);
    static void ReadTag(CXmlObjectBase* object, CXmlElement** child, CXmlSerializationContext const& context,
                        bool allowEmptyChoice = false);

    /// Reads an object without a tag that may stand there.
    /// @return whether it consumed a child
    static bool ReadGroup(CXmlObjectBase* object, CXmlElement* element, CXmlElement** child,
                          CXmlSerializationContext const& context);

    /// The untyped element or the collection of them reads the child if the entry admits its name.
    /// @return the first child that was not consumed
    static CXmlElement* ReadUntyped(CElementInfo const& entry, CXmlObjectBase* object, CXmlElement* element,
                                    CXmlElement* child, CXmlSerializationContext const& context);
    static CXmlElement* ReadUntypedRun(CElementInfo const& entry, CXmlCollectionBase* collection,
                                       CXmlElement* element, CXmlElement* child,
                                       CXmlSerializationContext const& context);

    /// What the property holds, as the owner's ResetContent() has put it there.
    /// @throws CBxException if it holds nothing
    static CSmartPtr<CXmlObjectBase> ObjectInPlace(CElementInfo const& entry,
                                                   CXmlGeneratedClass const* owner);
    static CSmartPtr<CXmlCollectionBase> CollectionInPlace(CElementInfo const& entry,
                                                           CXmlGeneratedClass const* owner);

    /// Tests what a collection has read, as TestSimpleContent does, if its entry is of one of these classes.
    /// @param next the first child that it did not consume
    template <class... Simple>
    static void TestItems(CElementInfo const& entry, CXmlElement const* first, CXmlElement const* next,
                          CXmlSerializationContext const& context) {
        if (!context.GetFailOnIgnoredContent() || !(... || (dynamic_cast<Simple const*>(&entry) != nullptr)))
            return;
        for (; first != nullptr && first != next; first = first->GetNextSiblingElement())
            BxXmlLib5::TestSimpleContent(*first, context);
    }

    /// @throws CBxValidationException if a bound is broken that the context does not ignore
    static void ValidateCount(CXmlCollectionBase const& collection, CXmlSerializationContext const& context);

    /// Takes note of what a collection that is a member of a choice has read.
    /// @param next the first child that it did not consume
    /// @return whether it consumed any
    static bool Advance(CXmlCollectionBase const& collection, CXmlElement** child, CXmlElement* next,
                        CXmlSerializationContext const& context);

    static void StoreObject(CElementInfo& entry, CXmlGeneratedClass* owner, CXmlObjectBase* object);
    static CSmartPtr<CXmlObjectBase> Create(CElementInfo const& entry, Detail::CreateByClass createByClass,
                                            int classId);
    static CSmartPtr<CXmlObjectBase> CreateUntyped(CElementInfo const& entry,
                                                   wstring const& allowedNamespaces,
                                                   char16_t const* namespaceUri,
                                                   wstring const& targetNamespace);

    /// Write the attributes of the object, or of the items, behind the property.
    static void ObjectAttributesToXml(CElementInfo const& entry, CXmlSerializationContext const& context,
                                      CXmlGeneratedClass const* owner, CXmlWriter* writer);
    static void ItemsAttributesToXml(CElementInfo const& entry, CXmlSerializationContext const& context,
                                     CXmlGeneratedClass const* owner, CXmlWriter* writer);

    /// @throws CBxException always
    [[noreturn]] static void ThrowIsNeverValidated();
};

}  // namespace BxXmlLib5Data
