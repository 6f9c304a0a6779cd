#include "generated/Untyped.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/document/CXmlElement.h"
#include "BxXmlLib5/generated/SimpleTypes.h"
#include "core/NestingDepth.h"

namespace BxXmlLib5::Generated {

CSmartPtr<CAttributeCol> CloneAttributes(CAttributeCol& attributes) {
    CSmartPtr<CAttributeCol> const copy = new CAttributeCol(u"", u"##any", u"");
    for (CAttribute const* const attribute : attributes) {
        copy->Add(attribute->GetName().c_str(), attribute->GetValue().c_str(),
                  attribute->GetNamespace().c_str());
    }
    return copy;
}

CSmartPtr<CElement> CloneElement(CElement const& element) {
    CObjectLevel const level;
    auto& source = const_cast<CElement&>(element);
    CSmartPtr<CElement> copy =
        new CElement(source.GetName().c_str(), source.GetNamespace().c_str(), u"##any", u"");
    copy->SetText(source.GetText().c_str());
    for (CAttribute const* const attribute : *source.GetAttributes()) {
        copy->GetAttributes()->Add(attribute->GetName().c_str(), attribute->GetValue().c_str(),
                                   attribute->GetNamespace().c_str());
    }
    for (CElement const* const child : *source.GetChildElements()) {
        copy->GetChildElements()->Add(CloneElement(*child));
    }
    return copy;
}

bool EqualAttributes(CAttributeCol& a, CAttributeCol& b) {
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

bool EqualElements(CElement& a, CElement& b) {
    CObjectLevel const level;
    if (a.GetName() != b.GetName() || a.GetNamespace() != b.GetNamespace() || a.GetText() != b.GetText() ||
        !EqualAttributes(*a.GetAttributes(), *b.GetAttributes())) {
        return false;
    }
    CElementCol& mine = *a.GetChildElements();
    CElementCol& theirs = *b.GetChildElements();
    if (mine.GetCount() != theirs.GetCount()) return false;
    auto other = theirs.begin();
    for (CElement* const child : mine) {
        if (!EqualElements(*child, **other)) return false;
        ++other;
    }
    return true;
}

void DropLayout(CElement& element, CXmlElement const& source) {
    CXmlElement const* child = source.GetFirstElement();
    if (child == nullptr) return;
    if (Trimmed(source.GetTextView()).empty()) element.SetText(u"");
    for (CElement* const copy : *element.GetChildElements()) {
        DropLayout(*copy, *child);
        child = child->GetNextSiblingElement();
    }
}

}  // namespace BxXmlLib5::Generated
