// White space of elements that hold nothing but elements.
#pragma once

#include <deque>
#include <string_view>
#include <vector>

#include "document/CDocumentReceiver.h"

namespace BxConvert {

/// Drops white space beside the children of elements that have no other text, and puts line breaks and indentation
/// there if asked to. Elements with other text stay as they are, those whose xml:space says preserve, and those for
/// which this cannot be seen within a bounded stretch of the document.
class LayoutFilter : public BxXmlLib5::CDocumentReceiver {
public:
    /// @param receiver gets what is left; it outlives the filter
    LayoutFilter(BxXmlLib5::CDocumentReceiver& receiver, bool indents)
        : m_receiver(receiver), m_indents(indents) {}

    void DeclareNamespace(BxXmlLib5::wstring const& prefix, BxXmlLib5::wstring const& namespaceUri) override;
    void StartElement(BxXmlLib5::DocumentElement const& element) override;
    void AddText(std::u16string_view text) override;
    void EndElement() override;
    void AddComment(std::u16string_view text) override;
    void AddInstruction(std::u16string_view target, std::u16string_view content) override;
    void AddDocumentType(std::u16string_view text) override;
    void AddEntityReference(std::u16string_view name) override;
    void LoseEntityReference() override { m_receiver.LoseEntityReference(); }
    void LoseDocumentType() override { m_receiver.LoseDocumentType(); }

private:
    static constexpr std::size_t kDocument = 0;

    enum class Decision : unsigned char { kNone, kAsItIs, kLaidOut };
    enum class Kind : unsigned char {
        kNamespace,
        kStart,
        kText,
        kEnd,
        kComment,
        kInstruction,
        kDocumentType,
        kReference
    };

    struct Element {
        Decision m_decision = Decision::kNone;
        bool m_hasChildren = false;
        bool m_isPreserved = false;  // as it is, and what is inside
    };

    /// Texts are where they begin in m_units, and their sizes.
    struct Text {
        std::size_t m_start;
        std::size_t m_size;
    };
    struct Attribute {
        BxXmlLib5::CXmlName const* m_name;
        Text m_prefix;
        Text m_value;
        bool m_isSpecified;
    };
    struct Literal {
        std::size_t m_attribute;
        Text m_text;
        std::size_t m_references;
    };
    struct Event {
        Kind m_kind;
        std::size_t m_element;  // that it is directly in, or ends
        Text m_first{};
        Text m_second{};
        BxXmlLib5::CXmlName const* m_name = nullptr;
        BxXmlLib5::wstring const* m_prefix = nullptr;  // of a namespace, and its name
        BxXmlLib5::wstring const* m_namespace = nullptr;
        std::size_t m_attributes = 0;  // how many
        std::size_t m_literals = 0;    // the same
        std::size_t m_line = 0;
    };

    std::size_t Innermost() const { return m_open.empty() ? kDocument : m_open.back(); }
    std::size_t NewElement();
    Text Keep(std::u16string_view text);
    std::u16string_view View(Text text) const {
        return std::u16string_view(m_units).substr(text.m_start - m_unitsStart, text.m_size);
    }
    void AddChild();
    void Queue(Event const& event);
    void Flush();
    void GiveUpOutermost();
    void Forward(Event const& event);
    void ForwardStart(Event const& event);
    void BreakLine(std::size_t depth);

    BxXmlLib5::CDocumentReceiver& m_receiver;
    bool m_indents;
    std::deque<Event> m_events;
    std::deque<Attribute> m_attributes;  // of the starts among the events
    std::deque<Literal> m_literals;      // the same
    BxXmlLib5::wstring m_units;
    std::size_t m_unitsStart = 0;
    std::vector<Element> m_elements{
        {Decision::kAsItIs}};           // the document, and those whose end is not forwarded
    std::vector<std::size_t> m_unused;  // of them
    std::vector<std::size_t> m_open;
    std::size_t m_depth = 0;  // of what is forwarded
    std::vector<BxXmlLib5::DocumentAttribute> m_forwarded;
    std::vector<BxXmlLib5::AttributeLiteral> m_forwardedLiterals;
    BxXmlLib5::wstring m_lineBreak;
};

}  // namespace BxConvert
