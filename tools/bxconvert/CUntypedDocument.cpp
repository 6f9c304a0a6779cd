#include "CUntypedDocument.h"

#include <set>
#include <string>

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "NamespaceText.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

/// Empties the text of elements that have children and only whitespace beside them.
/// @param source what the copy was read from; it says where there are no children, so that no leaf is asked
///        for its collection, which would make one
void DropWhitespace(CXmlElement const& source, CElement& copy) {
    CXmlElement const* sourceChild = source.GetFirstElement();
    if (sourceChild == nullptr) return;
    if (IsWhitespace(source.GetTextView())) copy.SetText(u"");
    CSmartPtr<CElementCol> const children = copy.GetChildElements();
    for (CElement* const child : *children) {
        DropWhitespace(*sourceChild, *child);
        sourceChild = sourceChild->GetNextSiblingElement();
    }
}

/// The writer of XML text puts namespace names down as they stand, so they are escaped beforehand.
void EscapeNamespaces(CElement& element) {
    element.SetNamespace(Escaped(element.GetNamespace()).c_str());
    CSmartPtr<CAttributeCol> const attributes = element.GetAttributes();
    for (CAttribute* const attribute : *attributes) {
        attribute->SetNamespace(Escaped(attribute->GetNamespace()).c_str());
    }
    CSmartPtr<CElementCol> const children = element.GetChildElements();
    for (CElement* const child : *children) EscapeNamespaces(*child);
}

std::map<wstring, wstring> Aliases(CXmlDocument const& document, Statistics const& statistics, Form form) {
    std::map<wstring, wstring> aliases;
    std::set<wstring> used = statistics.m_typePrefixes;
    if (statistics.m_hasXsiAttribute && document.LookupNamespaceFromAlias(u"xsi") == kXsiNamespace) {
        used.insert(u"xsi");
    }
    for (wstring const& prefix : used) {
        wstring const ns = document.LookupNamespaceFromAlias(prefix.c_str());
        if (!prefix.empty() && !ns.empty()) aliases[form == Form::kXml ? Escaped(ns) : ns] = prefix;
    }
    if (form == Form::kXml) return aliases;
    std::size_t number = 0;
    for (wstring const& ns : statistics.m_namespaces) {
        auto const [alias, isNew] = aliases.try_emplace(ns);
        while (isNew && !used.insert(alias->second = FromUtf8("ns" + std::to_string(++number))).second) {
        }
    }
    return aliases;
}

}  // namespace

CUntypedDocument::CUntypedDocument(CXmlDocument const& document, Statistics const& statistics,
                                   Options const& options)
    : CElement(u""),
      // An element without a namespace is written without a prefix, so a default namespace would take it in.
      m_declaresDefaultNamespace(!statistics.m_hasElementWithoutNamespace &&
                                 (options.m_form == Form::kXml || statistics.m_typePrefixes.contains(u""))),
      m_aliases(Aliases(document, statistics, options.m_form)) {
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, CXmlSerializationContext::GetDefaultContext(), false);
    if (!options.m_keepWhitespace) DropWhitespace(*root, *this);
    if (statistics.m_hasNamespaceToEscape && options.m_form == Form::kXml) EscapeNamespaces(*this);
}

void CUntypedDocument::ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                                 CXmlSerializationContext const& context, bool allowEmptyChoice) const {
    if (isRoot && m_declaresDefaultNamespace) writer->SetDefaultNamespace(GetNamespace());
    if (isRoot) {
        for (auto const& [ns, alias] : m_aliases) writer->AddNamespace(alias, ns);
    }
    CElement::ToXml_Int(writer, isRoot, namespaceUri, context, allowEmptyChoice);
}

}  // namespace BxConvert
