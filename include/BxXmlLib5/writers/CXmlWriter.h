// The output interface that an object tree sees.
#pragma once

#include <map>
#include <memory>

#include "BxXmlLib5/core/CInstanceMonitor.h"
#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

/// Writes one document in some format. A writer belongs to one call of an entry point; an object that writes
/// itself is handed a pointer to it.
///
/// Order of calls: instructions, namespaces and default namespace first; then for each element its start, its
/// attributes, its children or text, its end. The XML namespace is always bound to the prefix xml and never
/// declared. A call that needs an open element and finds none throws CBxInvalidStateException.
class BXXMLLIB5_API CXmlWriter : public CInstanceMonitor {
public:
    /// @param className ignored
    explicit CXmlWriter(char16_t const* className);
    /// A copy takes the namespaces for the root, and no open element.
    CXmlWriter(CXmlWriter const& other);
    /// As the copy does; elements that are open here are forgotten.
    CXmlWriter& operator=(CXmlWriter const& other);
    virtual ~CXmlWriter();

    /// Before the root: the default namespace that the root declares. Later: the default of the open
    /// element's scope, which is not declared.
    virtual void SetDefaultNamespace(wstring const& namespaceUri);

    /// Before the root: an alias that the root declares. Later: an alias of the open element's scope, which
    /// is not declared. An alias already held for the namespace is replaced. The empty alias is none: it is
    /// not declared, and a prefix is generated where one is needed. The open element's own tags keep the
    /// prefix that they have.
    virtual void AddNamespace(wstring const& alias, wstring const& namespaceUri);

    /// @throws CBxException if an element is open
    virtual void WriteEndDocument();

    /// @param text without the delimiters; XML text has it with the escapes of text, Fast Infoset not at all
    virtual void WriteComment(wstring const& text) = 0;
    /// @param text the complete instruction with its delimiters
    virtual void WriteProcessingInstruction(wstring const& text) = 0;
    /// @param text written as it stands, inside the open start tag
    virtual void WriteInLineSchema(wstring const& text) = 0;

    /// Opens an element inside the one that is open.
    /// @throws CBxException if elements are nested too deeply
    virtual void WriteStartElement(wstring const& name, wstring const& namespaceUri) = 0;
    /// Adds text to the open element.
    /// @param text the empty text needs no open element
    virtual void WriteText(wstring const& text) = 0;
    /// Ends the open element. @throws CBxInvalidStateException if there is none
    virtual void WriteEndElement() = 0;

    /// Adds an attribute to the open start tag.
    /// @throws CBxException if the open element has text or a child already
    virtual void WriteAttribute(wstring const& name, wstring const& namespaceUri, wstring const& value) = 0;

    /// Writes the xsi:type attribute for a type of this name and namespace.
    /// @throws CBxException if the open element has text or a child already
    virtual void WriteXsiType(wstring const& namespaceUri, wstring const& typeName) = 0;

protected:
    /// The first generated prefix that is not an alias of this map.
    wstring GetUniquePrefix(std::map<wstring, wstring> const& aliases);

    /// The generated prefix of an index: "AA" to "ZZ" for 0 to 675, then "AAA" on.
    /// @param index 0 or more
    wstring NsIntToString(int index);

private:
    class CXmlWriterContext;
    friend class CElementWriter;

    wstring m_defaultNamespace;
    std::unique_ptr<CXmlWriterContext> m_context;  // the open elements
    std::map<wstring, wstring> m_namespaces;
};

}  // namespace BxXmlLib5
