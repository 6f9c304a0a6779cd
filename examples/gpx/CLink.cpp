#include "CLink.h"

namespace Gpx {

MetaData CLink::Describe() {
    return {u"linkType",
            {Element(u"text", kText, it_string), Element(u"type", kType, it_string)},
            {UriAttribute(u"href", kHref)}};
}

void CLink::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kText:
            return Exchange(read, value, m_text);
        case kType:
            return Exchange(read, value, m_type);
        case kHref:
            return Exchange(read, value, m_href);
    }
}

void CLink::ResetContent() {
    m_href.clear();
    m_text.Clear();
    m_type.Clear();
}

}  // namespace Gpx
