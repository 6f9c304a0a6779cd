#include "binding/IgnoredContent.h"

#include <algorithm>

#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/collections/CXmlCollectionBase.h"
#include "BxXmlLib5/core/FormatString.h"
#include "document/InputLimits.h"
#include "document/ReadPlace.h"
#include "values/CleanText.h"

namespace BxXmlLib5 {

namespace {

wstring Collapsed(CXmlElement const& element) {
    return CleanText(CWhitespaceUtils::ws_Collapse, element.GetTextView()).Take();
}

}  // namespace

void ThrowUnexpectedElement(CXmlElement const& child, CXmlElement const& element) {
    throw FailureAt(&child, CBxValidationException(
                                FormatString(u"Unexpected element [%s] found in the element [%s]",
                                             child.GetLocalName().c_str(), element.GetLocalName().c_str())));
}

void ThrowUnexpectedAttribute(CXmlAttribute const& attribute, CXmlElement const& element) {
    throw FailureAt(&element,
                    CBxValidationException(
                        FormatString(u"Unexpected Attribute [%s] found.", attribute.GetLocalName().c_str())),
                    &attribute);
}

void ThrowUnexpectedText(CXmlElement const& element) {
    throw FailureAt(&element, CBxValidationException(
                                  FormatString(u"Unexpected text [%s] found in the element [%s]",
                                               Collapsed(element).c_str(), element.GetLocalName().c_str())));
}

void ThrowUnexpectedRoot(CXmlElement const& root, wstring const& name, wstring const& namespaceUri) {
    CXmlName const found{root.GetNamespaceURI(), root.GetLocalName()};
    throw FailureAt(&root, CBxValidationException(WrongRoot(found, name.c_str(), &namespaceUri)));
}

namespace {

bool HasText(CXmlElement const& element) {
    std::u16string_view const text = element.GetTextView();
    return !std::all_of(text.begin(), text.end(), CWhitespaceUtils::IsWhiteSpace);
}

/// Whether the object reads the children of an element, and nothing else of it.
bool TakesOnlyChildren(CXmlObjectBase const& object) {
    if (dynamic_cast<CElement const*>(&object) != nullptr) return true;
    return dynamic_cast<CXmlCollectionBase const*>(&object) != nullptr &&
           dynamic_cast<CAttributeCol const*>(&object) == nullptr;
}

/// @param taken what a reader took, in the order of its addresses
void TestAttributes(CXmlElement const& element, std::vector<CXmlAttribute const*> const& taken,
                    CXmlSerializationContext const& context) {
    if (context.GetIgnoreUnknownAttributes()) return;
    for (CXmlAttribute const& attribute : element.GetAttributeView()) {
        bool const isTaken = std::ranges::binary_search(taken, &attribute);
        if (!isTaken && !attribute.IsNamespaceAttribute()) ThrowUnexpectedAttribute(attribute, element);
    }
}

thread_local CTakenContent* t_taken = nullptr;

}  // namespace

void ThrowIfHasChildren(CXmlElement const& element, CXmlSerializationContext const& context) {
    CXmlElement const* const child = element.GetFirstElement();
    if (child != nullptr && !context.GetIgnoreUnknownElements()) ThrowUnexpectedElement(*child, element);
}

void TestSimpleElement(CXmlElement const& element, CXmlSerializationContext const& context) {
    ThrowIfHasChildren(element, context);
    TestAttributes(element, {}, context);
}

void TestRest(CXmlElement const* rest, CXmlElement const& element, CXmlSerializationContext const& context) {
    if (rest == nullptr || !context.GetFailOnIgnoredContent() || context.GetIgnoreUnknownElements()) return;
    ThrowUnexpectedElement(*rest, element);
}

void TestRootOfChildren(CXmlObjectBase const& object, CXmlElement const& root,
                        CXmlSerializationContext const& context) {
    if (!TakesOnlyChildren(object)) return;
    TestAttributes(root, {}, context);
    if (HasText(root)) ThrowUnexpectedText(root);
}

CTakenContent::CTakenContent(CXmlElement const* element, CXmlSerializationContext const& context)
    : m_outer(t_taken), m_context(context) {
    if (!context.GetFailOnIgnoredContent() || Of(element) != nullptr) return;
    m_element = element;
    t_taken = this;
}

CTakenContent::~CTakenContent() {
    if (m_element != nullptr) t_taken = m_outer;
}

CTakenContent* CTakenContent::Of(CXmlElement const* element) {
    return t_taken != nullptr && t_taken->m_element == element ? t_taken : nullptr;
}

void CTakenContent::TakeAttribute(CXmlElement const* element, CXmlAttribute const* attribute) {
    if (CTakenContent* const taken = Of(element)) taken->m_attributes.push_back(attribute);
}

void CTakenContent::TakeText(CXmlElement const* element) {
    if (CTakenContent* const taken = Of(element)) taken->m_hasText = true;
}

CTakenContent::State CTakenContent::Save(CXmlElement const* element) {
    CTakenContent const* const taken = Of(element);
    return taken == nullptr ? State() : State{taken->m_attributes.size(), taken->m_hasText};
}

void CTakenContent::Restore(CXmlElement const* element, State const& state) {
    CTakenContent* const taken = Of(element);
    if (taken == nullptr) return;
    taken->m_attributes.resize(state.m_attributes);
    taken->m_hasText = state.m_hasText;
}

void CTakenContent::End() {
    if (m_element == nullptr) return;
    std::ranges::sort(m_attributes);
    TestAttributes(*m_element, m_attributes, m_context);
    if (!m_hasText && HasText(*m_element)) ThrowUnexpectedText(*m_element);
}

}  // namespace BxXmlLib5
