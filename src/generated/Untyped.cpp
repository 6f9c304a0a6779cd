#include "generated/Untyped.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/generated/SimpleTypes.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5::Generated {

namespace {

void AddCopies(CAttributeCol& target, CAttributeCol const& source) {
    for (CAttribute const* const attribute : source) {
        target.Add(attribute->GetName().c_str(), attribute->GetValue().c_str(),
                   attribute->GetNamespace().c_str());
    }
}

}  // namespace

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
    if (a.GetCount() != b.GetCount()) return false;
    for (CAttribute const* const mine : a) {
        bool found = false;
        for (CAttribute const* const theirs : b) {
            found = found ||
                    (mine->GetName() == theirs->GetName() && mine->GetNamespace() == theirs->GetNamespace() &&
                     mine->GetValue() == theirs->GetValue());
        }
        if (!found) return false;
    }
    return true;
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
