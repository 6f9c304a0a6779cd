#include "LayoutFilter.h"

#include <algorithm>

#include "platform/StandardNamespaces.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

constexpr std::size_t kMostUnits = 256 * 1024;
constexpr std::size_t kMostEvents = 16 * 1024;

bool IsWhitespace(std::u16string_view text) {
    return std::ranges::all_of(
        text, [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; });
}

/// Whether the name is xml:space, also where prefixes are left as they are.
bool IsSpace(CXmlName const& name) {
    if (name.m_namespaceUri.empty()) return name.m_localName == u"xml:space";
    return name.m_localName == u"space" && name.m_namespaceUri == kXmlNamespace;
}

}  // namespace

void LayoutFilter::DeclareNamespace(wstring const& prefix, wstring const& namespaceUri) {
    m_events.push_back({.m_kind = Kind::kNamespace,
                        .m_element = Innermost(),
                        .m_first = Keep({}),
                        .m_prefix = &prefix,
                        .m_namespace = &namespaceUri});
}

void LayoutFilter::StartElement(DocumentElement const& element) {
    AddChild();
    Event const event{.m_kind = Kind::kStart,
                      .m_element = Innermost(),
                      .m_first = Keep(element.m_prefix),
                      .m_name = &element.m_name,
                      .m_attributes = element.m_attributes.size(),
                      .m_literals = element.m_literals.size(),
                      .m_line = element.m_line};
    bool isPreserved = m_elements[Innermost()].m_isPreserved;
    for (DocumentAttribute const& attribute : element.m_attributes) {
        m_attributes.push_back(
            {attribute.m_name, Keep(attribute.m_prefix), Keep(attribute.m_value), attribute.m_isSpecified});
        if (IsSpace(*attribute.m_name)) isPreserved = attribute.m_value == u"preserve";
    }
    for (auto const& [attribute, text, references] : element.m_literals)
        m_literals.push_back({attribute, Keep(text), references});
    m_open.push_back(NewElement());
    m_elements[m_open.back()] = {isPreserved ? Decision::kAsItIs : Decision::kNone, false, isPreserved};
    Queue(event);
}

std::size_t LayoutFilter::NewElement() {
    if (m_unused.empty()) {
        m_elements.emplace_back();
        return m_elements.size() - 1;
    }
    std::size_t const element = m_unused.back();
    m_unused.pop_back();
    return element;
}

void LayoutFilter::AddText(std::u16string_view text) {
    if (!IsWhitespace(text)) m_elements[Innermost()].m_decision = Decision::kAsItIs;
    Queue({.m_kind = Kind::kText, .m_element = Innermost(), .m_first = Keep(text)});
}

void LayoutFilter::EndElement() {
    Element& element = m_elements[m_open.back()];
    if (element.m_decision == Decision::kNone)
        element.m_decision = element.m_hasChildren ? Decision::kLaidOut : Decision::kAsItIs;
    Event const event{.m_kind = Kind::kEnd, .m_element = m_open.back(), .m_first = Keep({})};
    m_open.pop_back();
    Queue(event);
}

void LayoutFilter::AddComment(std::u16string_view text) {
    AddChild();
    Queue({.m_kind = Kind::kComment, .m_element = Innermost(), .m_first = Keep(text)});
}

void LayoutFilter::AddInstruction(std::u16string_view target, std::u16string_view content) {
    AddChild();
    Text const first = Keep(target);
    Queue({.m_kind = Kind::kInstruction,
           .m_element = Innermost(),
           .m_first = first,
           .m_second = Keep(content)});
}

void LayoutFilter::AddDocumentType(std::u16string_view text) {
    Queue({.m_kind = Kind::kDocumentType, .m_element = Innermost(), .m_first = Keep(text)});
}

void LayoutFilter::AddEntityReference(std::u16string_view name) {
    m_elements[Innermost()].m_decision = Decision::kAsItIs;  // what it stands for may be text
    Queue({.m_kind = Kind::kReference, .m_element = Innermost(), .m_first = Keep(name)});
}

void LayoutFilter::AddChild() {
    m_elements[Innermost()].m_hasChildren = true;
}

LayoutFilter::Text LayoutFilter::Keep(std::u16string_view text) {
    Text const kept{m_unitsStart + m_units.size(), text.size()};
    m_units += text;
    return kept;
}

void LayoutFilter::Queue(Event const& event) {
    m_events.push_back(event);
    Flush();
    while (m_units.size() > kMostUnits || m_attributes.size() > kMostUnits || m_events.size() > kMostEvents)
        GiveUpOutermost();
}

/// Of the elements that hold the others up.
void LayoutFilter::GiveUpOutermost() {
    auto const outermost = std::ranges::find_if(
        m_open, [this](std::size_t element) { return m_elements[element].m_decision == Decision::kNone; });
    if (outermost != m_open.end()) m_elements[*outermost].m_decision = Decision::kAsItIs;
    Flush();
    if (m_events.empty()) return;
    m_units.erase(0, m_events.front().m_first.m_start - m_unitsStart);
    m_unitsStart = m_events.front().m_first.m_start;
}

/// Forwards what does not depend on what is still to come.
void LayoutFilter::Flush() {
    while (!m_events.empty() && m_elements[m_events.front().m_element].m_decision != Decision::kNone) {
        Forward(m_events.front());
        m_events.pop_front();
    }
    if (m_events.empty()) m_units.clear();
}

void LayoutFilter::Forward(Event const& event) {
    bool const isLaidOut = m_elements[event.m_element].m_decision == Decision::kLaidOut;
    std::u16string_view const first = View(event.m_first);
    // The declarations of an element stand in its tag.
    bool const isOnLine = event.m_kind != Kind::kText && event.m_kind != Kind::kNamespace;
    if (isLaidOut && m_indents && isOnLine) BreakLine(m_depth - (event.m_kind == Kind::kEnd ? 1 : 0));
    switch (event.m_kind) {
        case Kind::kNamespace:
            return m_receiver.DeclareNamespace(*event.m_prefix, *event.m_namespace);
        case Kind::kStart:
            return ForwardStart(event);
        case Kind::kText:
            if (!isLaidOut) m_receiver.AddText(first);
            return;
        case Kind::kEnd:
            --m_depth;
            m_unused.push_back(event.m_element);
            return m_receiver.EndElement();
        case Kind::kComment:
            return m_receiver.AddComment(first);
        case Kind::kInstruction:
            return m_receiver.AddInstruction(first, View(event.m_second));
        case Kind::kDocumentType:
            return m_receiver.AddDocumentType(first);
        case Kind::kReference:
            return m_receiver.AddEntityReference(first);
    }
}

void LayoutFilter::ForwardStart(Event const& event) {
    m_forwarded.clear();
    for (std::size_t i = 0; i < event.m_attributes; ++i) {
        Attribute const& attribute = m_attributes[i];
        m_forwarded.push_back(
            {attribute.m_name, View(attribute.m_prefix), View(attribute.m_value), attribute.m_isSpecified});
    }
    m_attributes.erase(m_attributes.begin(),
                       m_attributes.begin() + static_cast<std::ptrdiff_t>(event.m_attributes));
    m_forwardedLiterals.clear();
    for (std::size_t i = 0; i < event.m_literals; ++i) {
        auto const& [attribute, text, references] = m_literals.front();
        m_forwardedLiterals.push_back({attribute, View(text), references});
        m_literals.pop_front();
    }
    ++m_depth;
    m_receiver.StartElement(
        {*event.m_name, View(event.m_first), m_forwarded, event.m_line, m_forwardedLiterals});
}

void LayoutFilter::BreakLine(std::size_t depth) {
    m_lineBreak.assign(1, u'\n').append(depth, u'\t');
    m_receiver.AddText(m_lineBreak);
}

}  // namespace BxConvert
