// The open elements of a writer, each with its namespace scope.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "BxXmlLib5/writers/CXmlWriter.h"
#include "core/Limits.h"
#include "core/NestingDepth.h"
#include "writers/CNamespaceScopes.h"

namespace BxXmlLib5 {

class BXXMLLIB5_LOCAL CXmlWriter::CXmlWriterContext : public CInstanceMonitor {
public:
    struct Element {
        unsigned m_childCount = 0;
        bool m_startTagOpen = true;
        std::size_t m_changesOutside = 0;  // of the scopes
        std::size_t m_tagName = 0;         // where it begins
    };

    CXmlWriterContext();
    ~CXmlWriterContext();

    bool IsOpen() const { return !m_elements.empty(); }
    bool IsRoot() const { return m_elements.size() == 1; }

    /// How many elements are open.
    std::size_t Depth() const { return m_elements.size(); }

    /// @throws CBxException if another element would be nested too deeply
    void TestDepth() const {
        if (Depth() >= kMaxElementDepth) ThrowNestedTooDeeply();
    }

    /// The element, and all references to others, last until the next start.
    Element& Start();
    void End() {
        Element const& element = m_elements.back();
        m_scopes.UndoTo(element.m_changesOutside);
        m_tagNames.resize(element.m_tagName);
        m_elements.pop_back();
    }

    /// Sets, once, what stands in the tags of the innermost element.
    /// @param prefix empty for none
    void SetTagName(std::u16string_view prefix, std::u16string_view name);
    /// It lasts until the next start.
    std::u16string_view TagName() const {
        return std::u16string_view(m_tagNames).substr(m_elements.back().m_tagName);
    }

    /// The innermost one.
    /// @throws CBxInvalidStateException if none is open
    Element& Innermost() {
        if (!IsOpen()) ThrowNoElement();
        return m_elements.back();
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

    std::vector<Element> m_elements;
    wstring m_tagNames;  // of the open elements, each behind the other
};

}  // namespace BxXmlLib5
