// Everything that an application or generated code may include.
#pragma once

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CClassfactoryBase.h"
#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/CElementInfoAll.h"
#include "BxXmlLib5/binding/CElementInfoChoice.h"
#include "BxXmlLib5/binding/CElementInfoSeq.h"
#include "BxXmlLib5/binding/CNamespaceAliasMap.h"
#include "BxXmlLib5/binding/CParentElementInfo.h"
#include "BxXmlLib5/binding/CRecordReader.h"
#include "BxXmlLib5/binding/CRecordWriter.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlObjectBase.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttribute.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CBxIterator.h"
#include "BxXmlLib5/collections/CCompiledPattern.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/collections/CNamedElements.h"
#include "BxXmlLib5/collections/CNode.h"
#include "BxXmlLib5/collections/CPrimitiveRestrictions.h"
#include "BxXmlLib5/collections/CTypedCol.h"
#include "BxXmlLib5/collections/CXmlCollection.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/collections/CXmlTypeCollection.h"
#include "BxXmlLib5/collections/CdatetimeBaseCol.h"
#include "BxXmlLib5/collections/TypedCollections.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/CBxLocation.h"
#include "BxXmlLib5/core/CCounted.h"
#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/CMadeOnce.h"
#include "BxXmlLib5/core/CSharedText.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/core/Count.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CDocumentLimits.h"
#include "BxXmlLib5/document/CXmlAttribute.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/platform/CFileReplacement.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/platform/WindowsTime.h"
#include "BxXmlLib5/values/BxVariant.h"
#include "BxXmlLib5/values/CBigInteger.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/values/CConversions.h"
#include "BxXmlLib5/values/CDateTime.h"
#include "BxXmlLib5/values/CDateTimeSpan.h"
#include "BxXmlLib5/values/CDecimal.h"
#include "BxXmlLib5/values/CWhitespaceUtils.h"
#include "BxXmlLib5/values/ItemType.h"
#include "BxXmlLib5/writers/CXmlWriter.h"

/// @mainpage
/// The public headers of BxXmlLib5. Where to begin: generated classes are CObject and Root, with the
/// properties Required, Optional, Values, Object and Collection; any document without a class is a CElement;
/// CXmlDocument is the tree to look at; CXmlSerializationContext has the settings of a read or write, and
/// CBxException is what it throws.

/// @namespace BxXmlLib5
/// The library: values, documents, untyped content, writers, and the base of all that can be written and read.

/// @namespace BxXmlLib5::Generated
/// The kit that generated classes are made of.

/// @namespace BxXmlLib5::Generated::Xs
/// The built-in types of XML Schema (Part 2, 3), by their names there.

/// @namespace BxXmlLib5Data
/// The tables by which classes of CXmlGeneratedClass describe themselves.
