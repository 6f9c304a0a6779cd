#include "BxXmlLib5/generated/Root.h"

#include <set>

#include "BxXmlLib5/generated/BuiltInTypes.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "generated/ForeignNamespaces.h"
#include "generated/ObjectAccess.h"
#include "platform/StandardNamespaces.h"

namespace BxXmlLib5::Generated {

namespace {

/// Nothing is lost unseen of what an object of the kit is loaded from.
CXmlSerializationContext WholeContext(CXmlSerializationContext const& context) {
    CXmlSerializationContext whole(context);
    whole.SetRequireWholeDocument(true);
    return whole;
}

CBinaryData Written(CObject const& root, Layout layout, CXmlSerializationContext const& context) {
    return root.ToXmlStream(true, layout == Layout::Indented, enc_UTF8, eol_LF, context, cmp_None);
}

}  // namespace

void LoadRoot(CObject& root, std::string_view path, CXmlSerializationContext const& context) {
    root.FromXmlFile(path, WholeContext(context));
}

void ParseRoot(CObject& root, std::string_view octets, CXmlSerializationContext const& context) {
    root.FromXmlStream(reinterpret_cast<unsigned char const*>(octets.data()), octets.size(),
                       WholeContext(context));
}

void SaveRoot(CObject const& root, std::string_view path, Layout layout,
              CXmlSerializationContext const& context) {
    Written(root, layout, context).SaveTo(path);
}

std::string RootText(CObject const& root, Layout layout, CXmlSerializationContext const& context) {
    CBinaryData const octets = Written(root, layout, context);
    return {reinterpret_cast<char const*>(octets.GetData()), octets.GetLength()};
}

namespace {

/// Prefixes for the namespaces of untyped content that have none yet.
void AddForeign(CNamespaceAliasMap& aliases, std::set<wstring> const& namespaces) {
    int number = 0;
    for (wstring const& foreign : namespaces) {
        if (aliases.DoesNamespaceExist(foreign.c_str())) continue;
        // The two that have usual prefixes keep those.
        wstring alias = foreign == kXsNamespace    ? wstring(kXsPrefix)
                        : foreign == kXsiNamespace ? wstring(u"xsi")
                                                   : u"";
        while (alias.empty() || aliases.DoesAliasExist(alias.c_str()))
            alias = FromUtf8("ns" + std::to_string(++number));
        aliases.Add(alias.c_str(), foreign.c_str());
    }
}

}  // namespace

CXmlSerializationContext RootContext(CObject const& root, RootForm form) {
    Class::Facts const& facts = ObjectAccess::ClassOf(root).GetFacts();
    ForeignNamespaces foreign = FindForeignNamespaces(root);
    CXmlSerializationContext context;
    CNamespaceAliasMap& aliases = context.GetNamespaceAliases();
    for (Alias const& alias : facts.set->aliases) aliases.Add(alias.prefix, alias.namespaceUri);
    wstring const own = facts.namespaceUri;
    if (form == RootForm::FastInfoset) {
        if (!own.empty()) foreign.m_namespaces.insert(own);
    } else if (facts.set->hasDefaultNamespace && !foreign.m_hasElementInNone) {
        context.SetDefaultNamespaceURI(own.c_str());
        // Only attributes need a prefix beside it.
        if (!foreign.m_namespaces.contains(own)) aliases.RemoveNamespace(own.c_str());
    }
    AddForeign(aliases, foreign.m_namespaces);
    return context;
}

}  // namespace BxXmlLib5::Generated
