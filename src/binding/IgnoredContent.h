// Content of a document that nothing takes.
#pragma once

#include <cstddef>
#include <vector>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/document/CXmlElement.h"

namespace BxXmlLib5 {

class CXmlObjectBase;

/// Each throws CBxValidationException with the place of what is unexpected.
/// @{
[[noreturn]] void ThrowUnexpectedElement(CXmlElement const& child, CXmlElement const& element);
[[noreturn]] void ThrowUnexpectedAttribute(CXmlAttribute const& attribute, CXmlElement const& element);
[[noreturn]] void ThrowUnexpectedText(CXmlElement const& element);
[[noreturn]] void ThrowUnexpectedRoot(CXmlElement const& root, wstring const& name,
                                      wstring const& namespaceUri);
/// @}

/// @throws CBxValidationException if the element has children that the context does not ignore
void ThrowIfHasChildren(CXmlElement const& element, CXmlSerializationContext const& context);

/// Tests an element that gives its text alone, if the context fails on ignored content.
/// @throws CBxValidationException if it has children or attributes that the context does not ignore
void TestSimpleElement(CXmlElement const& element, CXmlSerializationContext const& context);
inline void TestSimpleContent(CXmlElement const& element, CXmlSerializationContext const& context) {
    if (context.GetFailOnIgnoredContent()) TestSimpleElement(element, context);
}

/// Tests the children that an object left over, null for none, if the context fails on ignored content.
/// @throws CBxValidationException if the context does not ignore them
void TestRest(CXmlElement const* rest, CXmlElement const& element, CXmlSerializationContext const& context);

/// Tests a root that untyped content or a collection is read from, which take no more of it than its children.
/// @throws CBxValidationException if it has attributes that the context does not ignore, or text
void TestRootOfChildren(CXmlObjectBase const& object, CXmlElement const& root,
                        CXmlSerializationContext const& context);

/// What is taken of one element, while an object and the pseudo elements inside it read it on this thread.
///
/// All of them look at the same attributes and the same text, so only at the end is it known what nobody took.
class CTakenContent {
public:
    /// Goes on with the account of the element that is open.
    CTakenContent(CXmlElement const* element, CXmlSerializationContext const& context);
    CTakenContent(CTakenContent const&) = delete;
    CTakenContent& operator=(CTakenContent const&) = delete;
    ~CTakenContent();

    static void TakeAttribute(CXmlElement const* element, CXmlAttribute const* attribute);
    static void TakeText(CXmlElement const* element);

    /// What is taken so far, for an object that may be dropped again.
    struct State {
        std::size_t m_attributes = 0;
        bool m_hasText = false;
    };
    static State Save(CXmlElement const* element);
    static void Restore(CXmlElement const* element, State const& state);

    /// @throws CBxValidationException for what nobody took, once the object that has the tag is read
    void End();

private:
    static CTakenContent* Of(CXmlElement const* element);

    CTakenContent* m_outer;
    CXmlElement const* m_element = nullptr;  // null where the account is another one's or none is kept
    CXmlSerializationContext const& m_context;
    std::vector<CXmlAttribute const*> m_attributes;
    bool m_hasText = false;
};

}  // namespace BxXmlLib5
