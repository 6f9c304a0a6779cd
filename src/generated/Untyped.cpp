#include "generated/Untyped.h"

#include <algorithm>
#include <array>
#include <vector>

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/generated/BuiltInTypes.h"
#include "BxXmlLib5/generated/SimpleTypes.h"
#include "core/NestingDepth.h"
#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"

namespace BxXmlLib5::Generated {

namespace {

void AddCopies(CAttributeCol& target, CAttributeCol const& source) {
    for (CAttribute const* const attribute : source) {
        target.Add(attribute->GetName().c_str(), attribute->GetValue().c_str(),
                   attribute->GetNamespace().c_str());
    }
}

/// Null if there is none.
CAttribute const* FindXsiType(CElement const& element) {
    for (CAttribute const* const attribute : *element.GetAttributes()) {
        if (attribute->GetName() == u"type" && attribute->GetNamespace() == kXsiNamespace) return attribute;
    }
    return nullptr;
}

std::u16string_view PrefixOf(std::u16string_view name) {
    std::size_t const colon = name.find(u':');
    return colon == name.npos ? std::u16string_view() : name.substr(0, colon);
}

/// Null if documents of the set do not declare the namespace.
char16_t const* PrefixFor(std::u16string_view namespaceUri, Set const& set) {
    for (Alias const& alias : set.aliases) {
        if (BxXmlLib5::Equal(alias.namespaceUri, namespaceUri)) return alias.prefix;
    }
    return BxXmlLib5::Equal(namespaceUri, kXsNamespace) ? kXsPrefix : nullptr;
}

}  // namespace

void SettleTypes(CElement& element, CXmlElement const& source, Set const& set) {
    CNestingLevel const level;
    if (!source.GetAttributeView().empty()) {
        if (CAttribute const* const attribute = FindXsiType(element)) {
            wstring const value = attribute->GetValue();
            std::u16string_view name = Trimmed(value);
            wstring const prefix(PrefixOf(name));
            if (!prefix.empty()) name.remove_prefix(prefix.size() + 1);
            wstring const uri = source.GetDocument()->LookupNamespaceFromAlias(prefix.c_str());
            char16_t const* const settled = uri.empty() ? nullptr : PrefixFor(uri, set);
            if (settled != nullptr)
                const_cast<CAttribute*>(attribute)->SetValue(
                    (wstring(settled) + u':' + wstring(name)).c_str());
        }
    }
    CXmlElement const* child = source.GetFirstElement();
    if (child == nullptr) return;
    for (CElement* const copy : *element.GetChildElements()) {
        SettleTypes(*copy, *child, set);
        child = child->GetNextSiblingElement();
    }
}

char16_t const* NamespaceOfType(CElement const& element, Set const& set) {
    CAttribute const* const attribute = FindXsiType(element);
    wstring const value = attribute == nullptr ? wstring() : attribute->GetValue();
    std::u16string_view const prefix = PrefixOf(value);
    if (prefix.empty()) return nullptr;
    for (Alias const& alias : set.aliases) {
        if (prefix == alias.prefix) return alias.namespaceUri;
    }
    return prefix == kXsPrefix ? kXsNamespace : nullptr;
}

CSmartPtr<CAttributeCol> CloneAttributes(CAttributeCol const& attributes) {
    CSmartPtr<CAttributeCol> const copy = new CAttributeCol(u"", u"##any", u"");
    AddCopies(*copy, attributes);
    return copy;
}

CSmartPtr<CElement> CloneElement(CElement const& element) {
    CNestingLevel const level;
    CSmartPtr<CElement> copy =
        new CElement(element.GetName().c_str(), element.GetNamespace().c_str(), u"##any", u"");
    copy->SetText(element.GetText().c_str());
    if (element.GetAttributes()->GetCount() > 0) AddCopies(*copy->GetAttributes(), *element.GetAttributes());
    for (CElement const* const child : *element.GetChildElements()) {
        copy->GetChildElements()->Add(CloneElement(*child));
    }
    return copy;
}

bool EqualAttributes(CAttributeCol const& a, CAttributeCol const& b) {
    auto const sorted = [](CAttributeCol const& attributes) {
        std::vector<std::array<wstring, 3>> texts;
        for (CAttribute const* const attribute : attributes)
            texts.push_back({attribute->GetName(), attribute->GetNamespace(), attribute->GetValue()});
        std::ranges::sort(texts);
        return texts;
    };
    return a.GetCount() == b.GetCount() && sorted(a) == sorted(b);
}

bool EqualElements(CElement const& a, CElement const& b) {
    CNestingLevel const level;
    CElementCol const& mine = *a.GetChildElements();
    CElementCol const& theirs = *b.GetChildElements();
    if (a.GetName() != b.GetName() || a.GetNamespace() != b.GetNamespace() || a.GetText() != b.GetText() ||
        mine.GetCount() != theirs.GetCount() || !EqualAttributes(*a.GetAttributes(), *b.GetAttributes())) {
        return false;
    }
    auto other = theirs.begin();
    for (CElement const* const child : mine) {
        if (!EqualElements(*child, **other)) return false;
        ++other;
    }
    return true;
}

void DropLayout(CElement& element, CXmlElement const& source) {
    CNestingLevel const level;
    CXmlElement const* child = source.GetFirstElement();
    if (child == nullptr) return;
    if (Trimmed(source.GetTextView()).empty()) element.SetText(u"");
    for (CElement* const copy : *element.GetChildElements()) {
        DropLayout(*copy, *child);
        child = child->GetNextSiblingElement();
    }
}

}  // namespace BxXmlLib5::Generated
