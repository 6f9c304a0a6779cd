#include "document/ReadPlace.h"

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

wstring PathOf(Branch const& branch, PlaceOfTree const& tree) {
    wstring path = tree.m_rootPath;
    if (path.empty()) AddPathStep(path, branch[0]->GetLocalName(), 0);
    for (std::size_t i = 1; i < branch.size(); ++i) {
        std::size_t position = tree.m_positionOf ? tree.m_positionOf(*branch[i]) : 0;
        if (position == 0) position = PositionOf(*branch[i], *branch[i - 1]);
        AddPathStep(path, branch[i]->GetLocalName(), position);
    }
    return path;
}

}  // namespace

void MarkRead(CBxException& failure, CXmlElement const* element, CXmlAttribute const* attribute) {
    CXmlDocument const* const document = element->GetDocument();
    // A document that was read on the way is of no interest to who reads this one.
    auto const* const known = CFailurePlace::Of(failure);
    if (known != nullptr && known->m_document == document) return;
    CSmartPtr<CFailurePlace::Place> const place = new CFailurePlace::Place;
    place->m_document = document;
    place->m_element = element;
    place->m_attribute = attribute;
    CFailurePlace::Set(failure, place);
}

void LocateRead(CBxException& failure, CXmlElement const& root, PlaceOfTree const& tree) {
    MarkRead(failure, &root);
    auto const place = CFailurePlace::Copy(failure);
    Branch branch = BranchTo(place->m_element, root);
    if (branch.empty()) branch = {&root};
    wstring path = PathOf(branch, tree);
    for (CXmlAttribute const& attribute : branch.back()->GetAttributeView()) {
        if (&attribute == place->m_attribute) AddPathAttribute(path, attribute.GetLocalName());
    }
    place->m_location = CBxLocation(std::move(path), branch.back()->GetLine());
    CFailurePlace::Set(failure, place);
}

}  // namespace BxXmlLib5
