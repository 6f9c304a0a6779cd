// Namespace names that the W3C's recommendations give.
#pragma once

#include <string_view>

namespace BxXmlLib5 {

/// Namespaces in XML 1.0, 3: bound to the prefix xml.
inline constexpr std::u16string_view kXmlNamespace = u"http://www.w3.org/XML/1998/namespace";

/// Namespaces in XML 1.0, 3: bound to the prefix xmlns.
inline constexpr std::u16string_view kXmlnsNamespace = u"http://www.w3.org/2000/xmlns/";

/// XML Schema Part 1, 2.6.
inline constexpr std::u16string_view kXsiNamespace = u"http://www.w3.org/2001/XMLSchema-instance";

}  // namespace BxXmlLib5
