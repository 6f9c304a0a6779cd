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

using Names = std::map<wstring, wstring>;

/// The aliases that the root declares, by namespace.
Names Aliases(CXmlDocument const& document, Statistics const& statistics, Form form) {
    Names aliases;
    std::set<wstring> used = statistics.m_typePrefixes;
    if (statistics.m_hasXsiAttribute && document.LookupNamespaceFromAlias(u"xsi") == kXsiNamespace) {
        used.insert(u"xsi");
    }
    for (wstring const& prefix : used) {
        wstring const ns = document.LookupNamespaceFromAlias(prefix.c_str());
        if (!prefix.empty() && !ns.empty()) aliases.try_emplace(ns, prefix);
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

/// The aliases that stand for prefixes of types: a writer declares one of those that a namespace has.
Names OtherPrefixes(CXmlDocument const& document, Statistics const& statistics, Names const& aliases) {
    Names others;
    for (wstring const& prefix : statistics.m_typePrefixes) {
        auto const alias = aliases.find(document.LookupNamespaceFromAlias(prefix.c_str()));
        if (!prefix.empty() && alias != aliases.end() && alias->second != prefix)
            others[prefix] = alias->second;
    }
    return others;
}

void RenamePrefixes(CElement& element, Names const& others) {
    CSmartPtr<CAttributeCol> const attributes = element.GetAttributes();
    for (CAttribute* const attribute : *attributes) {
        if (attribute->GetNamespace() != kXsiNamespace || attribute->GetName() != u"type") continue;
        wstring value = attribute->GetValue();
        wstring const prefix = PrefixOf(value);
        auto const other = others.find(prefix);
        if (other == others.end()) continue;
        attribute->SetValue(value.replace(value.find(prefix), prefix.size(), other->second).c_str());
    }
    CSmartPtr<CElementCol> const children = element.GetChildElements();
    for (CElement* const child : *children) RenamePrefixes(*child, others);
}

/// Whether elements may be in a default namespace. One without a namespace is written without a prefix, and so
/// is a type of no namespace: that would take them in.
bool MayDeclareDefaultNamespace(CXmlDocument const& document, Statistics const& statistics) {
    return !statistics.m_hasElementWithoutNamespace &&
           !(statistics.m_typePrefixes.contains(u"") && document.LookupNamespaceFromAlias(u"").empty());
}

}  // namespace

CUntypedDocument::CUntypedDocument(CXmlDocument const& document, Statistics const& statistics,
                                   Options const& options)
    : CElement(u""),
      m_declaresDefaultNamespace(MayDeclareDefaultNamespace(document, statistics) &&
                                 (options.m_form == Form::kXml || statistics.m_typePrefixes.contains(u""))) {
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, CXmlSerializationContext::GetDefaultContext(), false);
    if (!options.m_keepWhitespace) DropWhitespace(*root, *this);
    Names const aliases = Aliases(document, statistics, options.m_form);
    Names const others = OtherPrefixes(document, statistics, aliases);
    if (!others.empty()) RenamePrefixes(*this, others);
    if (statistics.m_hasNamespaceToEscape && options.m_form == Form::kXml) EscapeNamespaces(*this);
    for (auto const& [ns, alias] : aliases) {
        m_aliases.emplace(options.m_form == Form::kXml ? Escaped(ns) : ns, alias);
    }
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
