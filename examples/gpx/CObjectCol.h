// The collections of the binding.
#pragma once

#include "BxXmlLib5/BxXmlLib5.h"
#include "MetaData.h"

namespace Gpx {

/// A repeated element of class T, any number of them.
template <class T>
class CObjectCol : public CXmlCollection {
public:
    explicit CObjectCol(char16_t const* elementName) : CXmlCollection(elementName, u"", 0, -1) {
        // One text for all collections.
        static CSharedText const s_namespace(kNamespace);
        m_namespace = s_namespace;
    }

    /// Appends a new object.
    CSmartPtr<T> Add() { return Add(new T(m_elementName.c_str())); }

    /// Append an object, or insert it so that it has this position, 0 to GetCount().
    /// @throws CBxInvalidParamException for a null, an element of another name and another position; the
    ///         object stays the caller's
    CSmartPtr<T> Add(T* item) { return AddAt(GetCount(), item); }
    CSmartPtr<T> AddAt(int index, T* item) {
        Throw_IfPropertyIsNull(item, m_elementName.c_str());
        Throw_IfElementNameDiffers(item, m_elementName.c_str());
        // A listener may remove the object again; a refusal must not delete one that nobody else holds.
        bool const isRefused = index < 0 || index > GetCount();
        CSmartPtr<T> held = isRefused ? nullptr : item;
        AddItemAt(index, item);
        return held;
    }

    /// @param index 0 to GetCount() - 1
    /// @throws CBxInvalidParamException for any other index
    CSmartPtr<T> Item(int index) { return *CBxIterator<T>(GetNodeAtIndex(index)); }

    CBxIterator<T> begin() { return CBxIterator<T>(FirstNode()); }
    CBxIterator<T> end() { return CBxIterator<T>(nullptr); }
    CBxIterator<T const> begin() const { return CBxIterator<T const>(FirstNode()); }
    CBxIterator<T const> end() const { return CBxIterator<T const>(nullptr); }

protected:
    void ToXml_Int(CXmlWriter* writer, bool, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool) const override {
        ValidateCount(context);
        ItemsToXml(writer, namespaceUri, context);
    }

    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, CXmlSerializationContext const& context,
                             bool) override {
        CXmlElement* child = firstChild;
        for (; IsItem(child, context); child = child->GetNextSiblingElement()) {
            CSmartPtr<T> const item = new T(m_elementName.c_str());
            CXmlObjectBase::FromXml_Int(item, child, child->GetFirstElement(), context);
            AppendItem(item);
        }
        return child;
    }

private:
    bool IsItem(CXmlElement const* child, CXmlSerializationContext const& context) const {
        return child != nullptr &&
               DoesElementNameMatch(context, child, m_elementName.c_str(), m_namespace.c_str());
    }
};

}  // namespace Gpx
