#include "mapping/Comments.h"

#include <algorithm>

#include "schema/Text.h"

namespace BxGen {

namespace {

/// Up to the first blank line, whitespace collapsed.
std::string FirstParagraph(std::string_view text) {
    text = Trimmed(text);
    for (std::size_t line = text.find('\n'); line != text.npos; line = text.find('\n', line + 1)) {
        std::size_t const next = text.find_first_not_of(" \t\r", line + 1);
        if (next == text.npos || text[next] != '\n') continue;
        text = text.substr(0, line);
        break;
    }
    return Collapsed(text);
}

XmlElement const* Find(XmlElement const& element, std::string_view name) {
    if (ToString(element.m_name) == name) return &element;
    for (XmlElement::Node const& node : element.m_content) {
        auto const* const child = std::get_if<XmlElement const*>(&node);
        XmlElement const* const found = child != nullptr ? Find(**child, name) : nullptr;
        if (found != nullptr) return found;
    }
    return nullptr;
}

bool IsNamed(TypeExpression const& expression) {
    return expression.m_symbol != nullptr || std::ranges::any_of(expression.m_arguments, IsNamed);
}

std::string TextIn(Options const& options, Annotation const& annotation) {
    for (XmlElement const* const element : annotation.m_documentation) {
        XmlElement const* const part = options.m_docElement ? Find(*element, *options.m_docElement) : element;
        if (part == nullptr) continue;
        std::string text = FirstParagraph(TextOf(*part));
        if (!text.empty()) return text;
    }
    return {};
}

}  // namespace

Annotation const* AnnotationOf(Type const& type, TypeExpression const& expression) {
    return IsNamed(expression) ? nullptr : &type.m_annotation;
}

Documentation DocumentationOf(Options const& options, std::vector<Annotation const*> const& annotations,
                              std::string_view name, Place const& place) {
    Documentation documentation{{}, std::string(name), place};
    if (!options.m_withDocs) return documentation;
    for (Annotation const* const annotation : annotations) {
        if (annotation == nullptr) continue;
        documentation.m_text = TextIn(options, *annotation);
        if (!documentation.m_text.empty()) break;
    }
    return documentation;
}

}  // namespace BxGen
