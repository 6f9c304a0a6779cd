// Makes the objects that the library asks for while it reads.
#pragma once

#include "BxXmlLib5/BxXmlLib5.h"

namespace Gpx {

using namespace BxXmlLib5;

/// No type of GPX derives from another, so xsi:type has no say, and the class is known by its number alone.
class CGpxFactory : public CClassfactoryBase {
public:
    enum ClassId { kMetadata, kPerson, kEmail, kLink, kCopyright, kBounds, kExtensions };

    static CSmartPtr<CXmlObjectBase> Create(int classId, char16_t const* elementName);
};

}  // namespace Gpx
