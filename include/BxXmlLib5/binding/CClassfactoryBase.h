// What a generated class factory needs to pick a class.
#pragma once

#include "BxXmlLib5/platform/Export.h"
#include "BxXmlLib5/platform/Text.h"

namespace BxXmlLib5 {

class CXmlElement;

/// The base of generated factories, whose functions stand in the metadata of elements (CElementInfo): it
/// reads the xsi:type attribute (XML Schema Part 1, 2.6.1) of a document's element for them.
class BXXMLLIB5_API CClassfactoryBase {
public:
    /// @{
    /// A factory has no state.
    CClassfactoryBase() = default;
    CClassfactoryBase(CClassfactoryBase const&) = default;
    CClassfactoryBase& operator=(CClassfactoryBase const&) = default;
    /// @}
    virtual ~CClassfactoryBase();

protected:
    /// The local name of the type that the element says it has, empty if it says none.
    /// @param element not null
    static wstring GetElementType(CXmlElement* element);

    /// The namespace of that type: what its prefix stands for or, without a known prefix, the namespace of
    /// the element. A document keeps one namespace for each prefix, that of the last declaration.
    /// @param element not null
    static wstring GetElementTypeNamespaceUri(CXmlElement* element);
};

}  // namespace BxXmlLib5
