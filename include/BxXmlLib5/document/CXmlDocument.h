// The in-memory tree and the front door of reading.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/core/Enumerations.h"
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
/// told by a byte order mark or the XML declaration.
///
/// Limits: 2,147,483,647 octets of input, before or after decompression, 1,024 levels of elements, 1,024
/// entities that refer to others, 4,096 characters of a namespace; 8,388,608 characters, or 100 for each octet
/// if that is more, that a document repeats without spelling them out. A document and its tree belong to one
/// thread at a time, even for reading.
///
/// All loads throw CBxException, with a message that says what is wrong, for input that is empty, too large
/// or no well-formed document. Text that ends inside an element is not refused: the tree holds what was
/// complete, and IsComplete() tells. Fast Infoset is refused then. Its initial vocabulary is not applied, and its
/// root must come first: what else the document has is not looked at.
class BXXMLLIB5_API CXmlDocument : public CInstanceMonitor {
public:
    /// Nothing is loaded.
    /// @param schemaType st_NoNamespaces switches the processing of namespaces off: names keep their
    ///        prefixes, and xmlns attributes are attributes like any other
    explicit CXmlDocument(SchemaType schemaType = st_Default);
    CXmlDocument(CXmlDocument const&) = delete;
    CXmlDocument& operator=(CXmlDocument const&) = delete;
    virtual ~CXmlDocument();

    /// Loads a regular file.
    /// @throws CBxException also if it cannot be opened or read
    void Load(char16_t const* path);

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

    /// What the last load took its input for: a zlib or gzip stream, and Fast Infoset, in that stream or as
    /// such.
    bool IsCompressed() const { return m_isCompressed; }
    bool IsFastInfoset() const { return m_isFastInfoset; }

    /// The namespace that was last declared under this alias, anywhere in the document, or the empty text.
    /// The empty alias is the default namespace.
    wstring LookupNamespaceFromAlias(char16_t const* alias) const;

protected:
    /// Drops the tree and all that came with it.
    virtual void Cleanup();

private:
    friend class CExpatReader;
    friend class CFastInfosetReader;

    void Parse(std::span<unsigned char const> input, bool isText);

    /// The document's copy of a name; it lives as long as the tree.
    CXmlName const& InternName(std::u16string_view namespaceUri, std::u16string_view localName);

    /// The document's copy of a text; it lives as long as the tree.
    std::u16string_view StoreText(std::u16string_view text);

    /// The root, or a child of the innermost open element.
    /// @throws CBxException if elements are nested too deeply
    CXmlElement* AddElement(CXmlName const& name);
    CXmlElement* AddDocElement(CXmlName const& name);
    CXmlElement* AddChildElement(CXmlName const& name);
    /// Makes room for attributes that are about to be added.
    static void ReserveElementAttributes(CXmlElement* element, std::size_t count);
    /// @param value in the document's store
    void AddElementAttribute(CXmlElement* element, CXmlName const& name, std::u16string_view value);
    /// Adds to the text of the innermost open element.
    void AppendTextExcludingCR(std::u16string_view text);
    /// The same for a text in the document's store, without CR. If nothing joins it, it is not copied.
    /// @return how many units were copied
    std::size_t AppendStoredText(std::u16string_view text);
    void CloseElement();
    void CloseAllElements();
    CXmlElement* Open(CXmlElement* element);

    /// An element that the parser is inside of. Its text so far stands in m_openText, from m_textStart to
    /// that of the element inside it: children give theirs away when they close, so every text is allocated
    /// once, at its size. A text that was in the store from the beginning stays there as long as it is the
    /// only one.
    struct OpenElement {
        CXmlElement* m_element;
        CXmlElement* m_lastChild;
        std::size_t m_textStart;
        std::u16string_view m_storedText;
    };

    CXmlElement* m_documentElement = nullptr;
    std::vector<OpenElement> m_elementStack;
    wstring m_openText;
    std::map<wstring, wstring, std::less<>> m_namespaceAliases;
    SchemaType m_schemaType;
    bool m_isComplete = false;
    bool m_isCompressed = false;
    bool m_isFastInfoset = false;
    std::unique_ptr<CDocumentNodes> m_nodes;
};

}  // namespace BxXmlLib5
