// The settings of one read or write.
#pragma once

#include <vector>

#include "BxXmlLib5/binding/CNamespaceAliasMap.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/document/CDocumentLimits.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

class CAttributeCol;
class CXmlGeneratedClass;

/// What a read tolerates and what the root carries on writing. A new context tolerates nothing and adds
/// nothing.
///
/// A copy has values of its own, but shares the additional root attributes with its source once those were
/// asked for. A context must not be changed while an entry point on another thread uses it. A null text is
/// the empty text.
class BXXMLLIB5_API CXmlSerializationContext {
public:
    /// The settings as this class describes them.
    CXmlSerializationContext();
    /// @{
    /// Takes all settings, and shares the additional root attributes.
    CXmlSerializationContext(CXmlSerializationContext const& other);
    CXmlSerializationContext& operator=(CXmlSerializationContext const& other);
    /// @}
    ~CXmlSerializationContext();

    /// The one instance that callers without settings of their own pass. It can be changed, for all of them.
    static CXmlSerializationContext& GetDefaultContext();

    /// @{
    /// Reading skips attributes that fit nowhere.
    bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
    void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }
    /// @}

    /// Reading skips elements that fit nowhere.
    bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
    /// @throws CBxInvalidStateException if missing mandatory elements are ignored and value is true; nothing
    ///        changes
    void SetIgnoreUnknownElements(bool value);

    /// Reading of a sequence passes over mandatory elements that are not there.
    bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
    /// @throws CBxInvalidStateException if unknown elements are ignored and value is true; nothing changes
    void SetIgnoreMissingMandatoryElements(bool value);

    /// @{
    /// A choice with no member is no failure, on reading and on writing.
    bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
    void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }
    /// @}

    /// @{
    /// Reading fails for what it would drop in silence otherwise: attributes that no entry takes, text but
    /// whitespace in an element whose object has no place for it, children and attributes of an element that
    /// gives its text alone, children that an object leaves over, and a document's root of another name or
    /// namespace than the object would be written under. Unknown elements and attributes that are ignored are
    /// no failure; text in an element that has no place for it always is.
    /// The failure is a CBxValidationException.
    bool GetFailOnIgnoredContent() const { return m_failOnIgnoredContent; }
    void SetFailOnIgnoredContent(bool value) { m_failOnIgnoredContent = value; }
    /// @}

    /// @{
    /// The number of items of a collection is not tested.
    bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
    void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }
    /// @}

    /// @{
    /// Reading compares local names only. Always true under st_NoNamespaces.
    bool GetIgnoreNamespaces() const { return m_ignoreNamespaces || m_schemaType == st_NoNamespaces; }
    void SetIgnoreNamespaces(bool value) { m_ignoreNamespaces = value; }
    /// @}

    /// @{
    /// Reading refuses an input of which something would be lost unseen: text that breaks off inside an
    /// element, and references to entities that only another file declares
    /// (CXmlDocument::SetRequireWholeDocument).
    bool GetRequireWholeDocument() const { return m_requireWholeDocument; }
    void SetRequireWholeDocument(bool value) { m_requireWholeDocument = value; }
    /// @}

    /// @{
    /// Reading takes text in all encodings that the system knows (CXmlDocument::SetSystemEncodings).
    bool GetSystemEncodings() const { return m_systemEncodings; }
    void SetSystemEncodings(bool value) { m_systemEncodings = value; }
    /// @}

    /// @{
    /// Reading refuses documents beyond these limits, which are none at first.
    CDocumentLimits const& GetDocumentLimits() const { return m_documentLimits; }
    void SetDocumentLimits(CDocumentLimits const& limits) { m_documentLimits = limits; }
    /// @}

    /// @{
    /// Writing leaves out an optional attribute whose value is its default.
    bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaultOutput; }
    void SetNoOptionalAttributeDefaultOutput(bool value) { m_noOptionalAttributeDefaultOutput = value; }
    /// @}

    /// @{
    /// Writing refuses what no parser would read or what would come back as something else, instead of
    /// writing it as it is: in text and in values, characters outside XML 1.0 (control characters, halves of
    /// surrogate pairs); names and prefixes that are none; two attributes of one name on an element;
    /// namespaces that cannot be declared, two of them under one prefix, and what is in no namespace under a
    /// default one; instructions, comments and an in-line schema that would break the markup; more than one
    /// root. The failure is a CBxInvalidValueException for a character or a name, a
    /// CBxInvalidNamespaceException for a namespace, a CBxInvalidStateException for the rest, and names the
    /// element or attribute.
    ///
    /// In XML text character references stand for the line ends and tabs of attribute values then, and for
    /// each CR in text. What CXmlDocument reads leaves CR out of text all the same; other parsers give it. A
    /// formatted document has line breaks and tabs beside the children of an element, also where it has text
    /// of its own.
    bool GetCheckWellFormed() const { return m_checkWellFormed; }
    void SetCheckWellFormed(bool value) { m_checkWellFormed = value; }
    /// @}

    /// @{
    /// The default namespace that the root declares; empty for none.
    wstring GetDefaultNamespaceURI() const { return m_defaultNamespaceUri; }
    void SetDefaultNamespaceURI(char16_t const* namespaceUri);
    /// @}

    /// @{
    /// How reading matches names; st_Default at first.
    SchemaType GetSchemaType() const { return m_schemaType; }
    void SetSchemaType(SchemaType value) { m_schemaType = value; }
    /// @}

    /// @{
    /// Markup written inside the root, as it stands; empty for none.
    wstring GetInLineSchema() const { return m_inLineSchema; }
    void SetInLineSchema(char16_t const* schema);
    /// @}

    /// @{
    /// The aliases that the root declares.
    CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
    CNamespaceAliasMap const& GetNamespaceAliases() const { return m_namespaceAliases; }
    /// @}

    /// @{
    /// Processing instructions ahead of the root, each complete with its delimiters.
    std::vector<wstring>& GetProcessingInstructions() { return m_processingInstructions; }
    std::vector<wstring> const& GetProcessingInstructions() const { return m_processingInstructions; }
    /// @}

    /// Attributes that the root carries beside its own. The first call makes the collection, so it is a write
    /// as far as threads go; every call gives the same one, and what is added to it stays in the context.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

private:
    friend class CXmlGeneratedClass;

    wstring m_defaultNamespaceUri;
    CNamespaceAliasMap m_namespaceAliases;
    mutable CSmartPtr<CAttributeCol> m_additionalRootAttributes;
    std::vector<wstring> m_processingInstructions;
    wstring m_inLineSchema;
    bool m_ignoreInvalidCollectionCounts = false;
    bool m_ignoreMissingChoice = false;
    bool m_ignoreMissingMandatoryElements = false;
    bool m_ignoreUnknownElements = false;
    bool m_ignoreUnknownAttributes = false;
    bool m_ignoreNamespaces = false;
    bool m_requireWholeDocument = false;
    bool m_systemEncodings = false;
    CDocumentLimits m_documentLimits;
    bool m_failOnIgnoredContent = false;
    SchemaType m_schemaType = st_Default;
    bool m_noOptionalAttributeDefaultOutput = false;
    bool m_checkWellFormed = false;
};

}  // namespace BxXmlLib5
