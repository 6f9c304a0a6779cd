// The in-memory tree and the front door of reading.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/Enumerations.h"
#include "BxXmlLib5/document/CDocumentLimits.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

class CDocumentNodes;

/// Loads a document into a tree of elements, which it owns.
///
/// A file or a stream of octets is taken for what it is: zlib or gzip data around a document, or a document
/// as such, in Fast Infoset (ITU-T X.891) or as text. A string is always text. Each load drops the tree of the
/// one before, even if it fails. Encodings of text are those of Expat: UTF-8, UTF-16, ISO-8859-1 and US-ASCII,
/// told by a byte order mark or the XML declaration; and others if SetSystemEncodings() allows them.
///
/// Limits: 2,147,483,647 octets of input, before or after decompression, 1,024 levels of elements, 1,024
/// entities that refer to others, 4,096 characters of a namespace; 8,388,608 characters, or 100 for each octet
/// if that is more, that a document repeats without spelling them out. A document and its tree belong to one
/// thread at a time, even for reading.
///
/// All loads throw CBxException, with a message that says what is wrong, for input that is empty, too large
/// or no well-formed document. Text that ends inside an element is not refused unless SetRequireWholeDocument()
/// asks for it: the tree holds what was complete, and IsComplete() tells. Fast Infoset that does is
/// refused in any case. Its initial vocabulary is not applied, and its root must come first: what else the
/// document has is not looked at.
class BXXMLLIB5_API CXmlDocument : public CInstanceMonitor {
public:
    /// Nothing is loaded.
    /// @param schemaType st_NoNamespaces switches the processing of namespaces off: names keep their
    ///        prefixes, and xmlns attributes are attributes like any other
    explicit CXmlDocument(SchemaType schemaType = st_Default);
    /// @{
    /// A document cannot be copied: its tree points into it.
    CXmlDocument(CXmlDocument const&) = delete;
    CXmlDocument& operator=(CXmlDocument const&) = delete;
    /// @}
    virtual ~CXmlDocument();

    /// @{
    /// Whether loads refuse an input of which something would be lost unseen: one that breaks off inside an
    /// element, and one that refers to entities that it does not declare, as it may where its document type
    /// lies in another file. They do not at first. The tree of what is refused is there nevertheless.
    bool GetRequireWholeDocument() const { return m_requireWholeDocument; }
    void SetRequireWholeDocument(bool value) { m_requireWholeDocument = value; }
    /// @}

    /// @{
    /// Whether text may be in any encoding that the system's iconv knows, besides those of Expat. It may not
    /// at first. What those encodings are, and how safe it is to have octets of strangers converted, is the
    /// system's business.
    bool GetSystemEncodings() const { return m_systemEncodings; }
    void SetSystemEncodings(bool value) { m_systemEncodings = value; }
    /// @}

    /// @{
    /// Of the loads to come.
    CDocumentLimits const& GetLimits() const { return m_limits; }
    void SetLimits(CDocumentLimits const& limits) { m_limits = limits; }
    /// @}

    /// @{
    /// Loads a regular file.
    /// @param path as the system has it, which is UTF-8 as a rule, if it is one of octets
    /// @throws CBxException also if it cannot be opened or read
    void Load(char16_t const* path);
    void Load(std::string_view path);
    /// @}

    /// Loads octets, which are not needed afterwards.
    void LoadXmlStream(unsigned char const* data, std::size_t size);

    /// Loads a zero-terminated text of octets.
    void LoadXml(char const* text);

    /// Loads a zero-terminated UTF-16 text. Its declaration must not name an encoding of one octet for a
    /// character.
    void LoadXml(char16_t const* text);

    /// The root, null if nothing is loaded. The tree is the document's, until its next load or its end.
    CXmlElement* GetDocumentElement() const { return m_documentElement; }

    /// Whether the input of the last load went on to the end of the root, or broke off inside an element.
    bool IsComplete() const { return m_isComplete; }
    /// The elements in which the input of the last load broke off, from the root to the innermost one.
    std::vector<CXmlElement const*> const& GetOpenElements() const { return m_openElements; }

    /// How many references of the last load stand for nothing, since their entities are declared in another
    /// file, or lie in one: no other file is ever read.
    std::size_t GetSkippedEntityCount() const { return m_skippedEntityCount; }
    /// The name of the first such entity, empty if there is none.
    wstring const& GetFirstSkippedEntity() const { return m_firstSkippedEntity; }

    /// @{
    /// What the last load took its input for: a zlib or gzip stream, and Fast Infoset, in that stream or as
    /// such.
    bool IsCompressed() const { return m_isCompressed; }
    bool IsFastInfoset() const { return m_isFastInfoset; }
    /// @}

    /// The namespace that was last declared under this alias, anywhere in the document, or the empty text.
    /// The empty alias is the default namespace.
    wstring LookupNamespaceFromAlias(char16_t const* alias) const;

protected:
    /// Drops the tree and all that came with it.
    virtual void Cleanup();

private:
    friend class CPartDocument;

    void Parse(std::span<unsigned char const> input, bool isText);
    void ThrowIfNotWhole() const;
    void ThrowIfEntitiesAreSkipped() const;

    CXmlElement* m_documentElement = nullptr;
    SchemaType m_schemaType;
    CDocumentLimits m_limits;
    bool m_requireWholeDocument = false;
    bool m_systemEncodings = false;
    bool m_isComplete = false;
    bool m_isCompressed = false;
    bool m_isFastInfoset = false;
    std::vector<CXmlElement const*> m_openElements;
    std::size_t m_skippedEntityCount = 0;
    wstring m_firstSkippedEntity;
    std::size_t m_skippedEntityLine = 0;
    std::unique_ptr<CDocumentNodes> m_nodes;
};

}  // namespace BxXmlLib5
