#include "CPerson.h"

#include "CGpxFactory.h"

namespace Gpx {

MetaData CEmail::Describe() {
    return {u"emailType", {}, {Attribute(u"id", kId, it_string), Attribute(u"domain", kDomain, it_string)}};
}

void CEmail::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kId:
            return Exchange(read, value, m_id);
        case kDomain:
            return Exchange(read, value, m_domain);
    }
}

void CEmail::ResetContent() {
    m_id.clear();
    m_domain.clear();
}

MetaData CPerson::Describe() {
    return {u"personType",
            {Element(u"name", kName, it_string), ObjectElement(u"email", kEmail, CGpxFactory::kEmail),
             ObjectElement(u"link", kLink, CGpxFactory::kLink)},
            {}};
}

void CPerson::AccessProperty(int propertyIndex, bool read, BxVariant& value) {
    switch (propertyIndex) {
        case kName:
            return Exchange(read, value, m_name);
        case kEmail:
            return ExchangeObject(read, value, m_email);
        case kLink:
            return ExchangeObject(read, value, m_link);
    }
}

void CPerson::ResetContent() {
    m_name.Clear();
    m_email = nullptr;
    m_link = nullptr;
}

}  // namespace Gpx
