#include "CGpxFactory.h"

#include "CExtensions.h"
#include "CLink.h"
#include "CMetadata.h"
#include "CPerson.h"

namespace Gpx {

CSmartPtr<CXmlObjectBase> CGpxFactory::Create(int classId, char16_t const* elementName) {
    switch (classId) {
        case kMetadata:
            return new CMetadata(elementName);
        case kPerson:
            return new CPerson(elementName);
        case kEmail:
            return new CEmail(elementName);
        case kLink:
            return new CLink(elementName);
        case kCopyright:
            return new CCopyright(elementName);
        case kBounds:
            return new CBounds(elementName);
        case kExtensions:
            return new CExtensions(elementName);
        default:
            return nullptr;
    }
}

}  // namespace Gpx
