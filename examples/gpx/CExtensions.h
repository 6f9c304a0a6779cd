// The extensions of GPX: elements of other namespaces.
#pragma once

#include "CGpxClass.h"

namespace Gpx {

/// The element extensions (extensionsType): untyped elements of any namespace but that of GPX. Of elements
/// with children, text that is only whitespace is dropped on reading, so formatted output stays what it is.
class CExtensions : public CGpxClass<CExtensions> {
public:
    explicit CExtensions(char16_t const* elementName = u"extensions");

    /// The elements themselves, never null.
    CSmartPtr<CElementCol> GetElements() const { return m_elements; }

    static MetaData Describe();

protected:
    /// @throws CBxInvalidNamespaceException for an element in the namespace of GPX
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override;
    using CXmlObjectBase::FromXml_Int;

    void AccessProperty(int propertyIndex, bool read, BxVariant& value) override;
    void ResetContent() override;

private:
    enum Property { kElements };

    void TestNamespaces(CXmlElement const* child) const;

    CSmartPtr<CElementCol> m_elements;
};

}  // namespace Gpx
