#include "document/CFailurePlace.h"

#include <vector>

#include "BxXmlLib5/document/CXmlElement.h"
#include "core/FailurePlace.h"

namespace BxXmlLib5 {

namespace {

using Branch = std::vector<CXmlElement const*>;

/// The elements from the root to one below it.
/// @return empty if it is not there
Branch BranchTo(void const* element, CXmlElement const& root) {
    Branch branch{&root};
    while (branch.back() != element) {
        CXmlElement const* next = branch.back()->GetFirstElement();
        while (next == nullptr) {
            next = branch.back()->GetNextSiblingElement();
            branch.pop_back();
            if (branch.empty()) return {};
        }
        branch.push_back(next);
    }
    return branch;
}

/// Among the children of one parent with this local name, from 1; 0 for the only one.
std::size_t PositionOf(CXmlElement const& element, CXmlElement const& parent) {
    std::size_t position = 0, count = 0;
    for (CXmlElement const* child = parent.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement()) {
        if (child->GetLocalName() == element.GetLocalName()) ++count;
        if (child == &element) position = count;
    }
    return count > 1 ? position : 0;
}

wstring PathOf(Branch const& branch) {
    wstring path;
    for (std::size_t i = 0; i < branch.size(); ++i) {
        AddPathStep(path, branch[i]->GetLocalName(), i == 0 ? 0 : PositionOf(*branch[i], *branch[i - 1]));
    }
    return path;
}

}  // namespace

void CFailurePlace::Mark(CBxException& failure, CXmlElement const* element, CXmlAttribute const* attribute) {
    CXmlDocument const* const document = element->GetDocument();
    // A document that was read on the way is of no interest to who reads this one.
    if (failure.m_place && failure.m_place->m_document == document) return;
    CSmartPtr<CBxException::Place> const place = new CBxException::Place;
    place->m_document = document;
    place->m_element = element;
    place->m_attribute = attribute;
    failure.m_place = place;
}

void CFailurePlace::Locate(CBxException& failure, CXmlElement const& root) {
    Mark(failure, &root);
    Branch branch = BranchTo(failure.m_place->m_element, root);
    CSmartPtr<CBxException::Place> const place = new CBxException::Place(*failure.m_place);
    if (branch.empty()) branch = {&root};
    wstring path = PathOf(branch);
    for (CXmlAttribute const* const attribute : branch.back()->GetAttributes()) {
        if (attribute == place->m_attribute) AddPathAttribute(path, attribute->GetLocalName());
    }
    place->m_location = CBxLocation(std::move(path), branch.back()->GetLine());
    failure.m_place = place;
}

}  // namespace BxXmlLib5
