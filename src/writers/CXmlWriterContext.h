// The open elements of a writer, each with its namespace scope.
#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "BxXmlLib5/writers/CXmlWriter.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"
#include "writers/CNamespaceScopes.h"

namespace BxXmlLib5 {

class BXXMLLIB5_LOCAL CXmlWriter::CXmlWriterContext : public CInstanceMonitor {
public:
    struct Element {
        wstring m_name;
        wstring m_namespace;
        wstring m_prefix;  // in its tags, empty for none
        unsigned m_childCount = 0;
        bool m_startTagOpen = true;
        std::size_t m_changesOutside = 0;  // of the scopes
    };

    CXmlWriterContext();
    ~CXmlWriterContext();

    bool IsOpen() const { return m_depth > 0; }
    bool IsRoot() const { return m_depth == 1; }

    /// How many elements are open.
    std::size_t Depth() const { return m_depth; }

    /// @throws CBxException if another element would be nested too deeply
    void TestDepth() const {
        if (m_depth >= kMaxElementDepth) ThrowNestedTooDeeply();
    }

    /// The element, and all references to others, last until the next start.
    Element& Start(wstring const& name, wstring const& namespaceUri);
    void End();

    /// The innermost one.
    /// @throws CBxInvalidStateException if none is open
    Element& Innermost() {
        if (m_depth == 0) ThrowNoElement();
        return m_elements[m_depth - 1];
    }

    /// @throws CBxException if the innermost one takes no attributes any more
    Element& OpenForAttributes() {
        Element& element = Innermost();
        if (!element.m_startTagOpen) ThrowTagClosed();
        return element;
    }

    CNamespaceScopes m_scopes;

private:
    [[noreturn]] static void ThrowNoElement();
    [[noreturn]] static void ThrowTagClosed();

    std::vector<Element> m_elements;  // the open ones, and behind them others for the memory of their texts
    std::size_t m_depth = 0;
};

}  // namespace BxXmlLib5
