// The namespace attribute of a schema wildcard (XML Schema Part 1, 3.10).
#pragma once

#include <string_view>

namespace BxXmlLib5 {

/// @param allowed tokens separated by single blanks, each ##any, ##other, ##local, ##targetNamespace or a URI
bool IsNamespaceValid(std::u16string_view namespaceUri, std::u16string_view allowed,
                      std::u16string_view targetNamespace);

/// @throws CBxInvalidNamespaceException if IsNamespaceValid() is false
void TestNamespace(std::u16string_view namespaceUri, std::u16string_view allowed,
                   std::u16string_view targetNamespace);

}  // namespace BxXmlLib5
