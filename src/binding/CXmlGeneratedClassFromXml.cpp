// How generated classes are read.

#include <cstdint>
#include <optional>
#include <vector>

#include "BxXmlLib5/binding/CAttributeInfo.h"
#include "BxXmlLib5/binding/CElementInfo.h"
#include "BxXmlLib5/binding/CXmlGeneratedClass.h"
#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/values/BxVariant.h"
#include "binding/IgnoredContent.h"
#include "binding/SiblingSearch.h"
#include "core/NestingDepth.h"
#include "document/ReadPlace.h"

namespace BxXmlLib5 {

using namespace BxXmlLib5Data;

namespace {

/// A flag for each entry of a table. Few tables have more entries than the flags that need no allocation.
class CEntryFlags {
public:
    bool Get(std::size_t index) const {
        return index < kInPlace ? (m_first >> index & 1) != 0
                                : index - kInPlace < m_more.size() && m_more[index - kInPlace];
    }

    void Set(std::size_t index) {
        if (index < kInPlace) {
            m_first |= std::uint64_t{1} << index;
            return;
        }
        if (m_more.size() <= index - kInPlace) m_more.resize(index - kInPlace + 1);
        m_more[index - kInPlace] = true;
    }

private:
    static constexpr std::size_t kInPlace = 64;

    std::uint64_t m_first = 0;
    std::vector<bool> m_more;
};

/// @return child
/// @throws CBxValidationException if a child is left over that nothing excuses
CXmlElement* EndOfElement(CXmlElement const* element, CXmlElement* child,
                          CXmlSerializationContext const& context) {
    if (child == nullptr || context.GetIgnoreUnknownElements()) return child;
    throw FailureAt(
        child,
        CBxValidationException(FormatString(
            u"Failed read all the elements held within the element [%s]. The unexpected element [%s] remains un processed",
            element->GetLocalName().c_str(), child->GetLocalName().c_str())));
}

[[noreturn]] void ThrowEmptyChoice(CXmlElement const* element) {
    throw CBxValidationException(FormatString(
        u"No child elements within the element [%s] were populated. The element represents a choice, so one and only one element should be populated. The element contained no sutable child elements",
        element->GetLocalName().c_str()));
}

}  // namespace

CXmlElement* CXmlGeneratedClass::FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                                             CXmlSerializationContext const& context, bool allowEmptyChoice) {
    CNestingLevel const level;
    std::optional<CSiblingSearches> searches;
    if (context.GetIgnoreUnknownElements()) searches.emplace(element, context);
    return ReadAt(element, [&] { return ReadFrom(element, firstChild, context, allowEmptyChoice); });
}

void CXmlGeneratedClass::TestRoot(CXmlElement const& root, CXmlSerializationContext const& context) const {
    if (GetClassInfo()->m_elementType != et_Element || m_elementName.empty()) return;
    wstring const ns = GetTargetNamespace();
    bool const isExpected = root.GetLocalName() == m_elementName &&
                            (context.GetIgnoreNamespaces() || root.GetNamespaceURI() == ns);
    if (!isExpected) ThrowUnexpectedRoot(root, m_elementName, ns);
}

CXmlElement* CXmlGeneratedClass::ReadFrom(CXmlElement* element, CXmlElement* firstChild,
                                          CXmlSerializationContext const& context, bool allowEmptyChoice) {
    CParentElementInfo const& info = *GetClassInfo();
    CTakenContent taken(element, context);
    ResetContent();
    if (info.m_elementType == et_Element) m_elementName = element->GetLocalName();
    ProcessAttributesFromXml(context, element, info.m_failIfAttributeUnknown);
    CXmlElement* next = nullptr;
    switch (info.m_groupType) {
        case egt_Sequence:
            next = ProcessElementSeqFromXml(context, element, firstChild, info.m_elementType);
            break;
        case egt_Choice:
            next = ProcessElementChoiceFromXml(context, element, firstChild, info.m_elementType,
                                               allowEmptyChoice);
            break;
        case egt_All:
            next = ProcessElementAllFromXml(context, element, firstChild, info.m_elementType);
            break;
        default:
            throw CBxException(u"Unknow Group Type");
    }
    if (info.m_textPropertyIndex != -1) {
        BxVariant text;
        text.SetString(wstring(element->GetTextView()));
        AccessProperty(info.m_textPropertyIndex, false, text);
        if (context.GetFailOnIgnoredContent()) CTakenContent::TakeText(element);
    }
    taken.End();
    return next;
}

void CXmlGeneratedClass::ProcessAttributesFromXml(CXmlSerializationContext const& context,
                                                  CXmlElement* element, bool failIfUnknown) {
    CAttributeInfo** const entries = GetClassAttributeInfo();
    bool const refuses = failIfUnknown && !context.GetIgnoreUnknownAttributes();
    // Each of many pseudo elements in one tag looks at all its attributes.
    if (entries[0] == nullptr && !refuses) return;
    CEntryFlags found;
    for (CXmlAttribute& attribute : element->GetAttributeView()) {
        if (attribute.IsNamespaceAttribute()) continue;
        std::size_t i = 0;
        auto const take = [&] {
            while (entries[i] != nullptr && !entries[i]->AttributeFromXml(context, this, &attribute)) ++i;
        };
        ReadAt(element, take, &attribute);
        if (entries[i] != nullptr) {
            found.Set(i);
            if (context.GetFailOnIgnoredContent()) CTakenContent::TakeAttribute(element, &attribute);
        } else if (refuses) {
            ThrowUnexpectedAttribute(attribute, *element);
        }
    }
    for (std::size_t i = 0; entries[i] != nullptr; ++i) entries[i]->Validate(context, found.Get(i));
}

CXmlElement* CXmlGeneratedClass::ProcessElementSeqFromXml(CXmlSerializationContext const& context,
                                                          CXmlElement* element, CXmlElement* child,
                                                          XmlElementType elementType) {
    CXmlElement* const start = child;
    wstring const ns = GetNamespace();
    for (CElementInfo** entry = GetClassElementInfo(); *entry != nullptr; ++entry) {
        CSiblingSearch search(*entry, elementType);
        for (;;) {
            CXmlElement* const candidate = child;
            if ((*entry)->ElementFromXml(context, this, element, &child, ns.c_str(), elementType)) {
                search.End(candidate);
                break;
            }
            if (!context.GetIgnoreUnknownElements() || child == nullptr) {
                search.End(nullptr);
                return start;
            }
            child = search.After(child);
        }
    }
    return elementType == et_Element ? EndOfElement(element, child, context) : child;
}

CXmlElement* CXmlGeneratedClass::ProcessElementChoiceFromXml(CXmlSerializationContext const& context,
                                                             CXmlElement* element, CXmlElement* child,
                                                             XmlElementType elementType,
                                                             bool allowEmptyChoice) {
    CXmlElement* const start = child;
    wstring const ns = GetNamespace();
    bool const isElement = elementType == et_Element;
    bool found = false;
    for (;;) {
        CElementInfo** entry = GetClassElementInfo();
        while (!found && *entry != nullptr) {
            found = (*entry++)->ElementFromXml(context, this, element, &child, ns.c_str(), elementType);
        }
        if (found || !isElement || !context.GetIgnoreUnknownElements() || child == nullptr) break;
        child = child->GetNextSiblingElement();
        if (child == nullptr) break;
    }
    if (!isElement) return found || allowEmptyChoice ? child : start;
    if (!found && !allowEmptyChoice && !DoesElementContainOptionalElementCollections() &&
        !context.GetIgnoreMissingChoice()) {
        ThrowEmptyChoice(element);
    }
    return EndOfElement(element, child, context);
}

CXmlElement* CXmlGeneratedClass::ProcessElementAllFromXml(CXmlSerializationContext const& context,
                                                          CXmlElement* element, CXmlElement* child,
                                                          XmlElementType elementType) {
    CXmlElement* const start = child;
    wstring const ns = GetNamespace();
    CElementInfo** const entries = GetClassElementInfo();
    bool const isElement = elementType == et_Element;
    CEntryFlags found;
    CXmlElement const* before = nullptr;
    while (child != nullptr && child != before) {
        before = child;
        for (std::size_t i = 0; entries[i] != nullptr; ++i) {
            if (!found.Get(i) &&
                entries[i]->ElementFromXml(context, this, element, &child, ns.c_str(), elementType)) {
                found.Set(i);
            }
        }
    }
    for (std::size_t i = 0; entries[i] != nullptr; ++i) {
        if (!entries[i]->Validate(context, this, found.Get(i), isElement)) return start;
    }
    return isElement ? EndOfElement(element, child, context) : child;
}

}  // namespace BxXmlLib5
