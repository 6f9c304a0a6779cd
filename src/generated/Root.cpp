#include "BxXmlLib5/generated/Root.h"

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "generated/Model.h"
#include "generated/ObjectAccess.h"

namespace BxXmlLib5::Generated {

namespace {

void FromDocument(CObject& root, CXmlDocument const& document, CXmlSerializationContext const& context) {
    if (!document.IsComplete()) throw CBxException(u"The document ends before its root does");
    CXmlSerializationContext own(context);
    root.FromXmlElement(document.GetDocumentElement(), own);
}

}  // namespace

void LoadRoot(CObject& root, std::string_view path, CXmlSerializationContext const& context) {
    CXmlDocument document(context.GetSchemaType());
    document.Load(FromUtf8(path).c_str());
    FromDocument(root, document, context);
}

void ParseRoot(CObject& root, std::string_view octets, CXmlSerializationContext const& context) {
    CXmlDocument document(context.GetSchemaType());
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
    FromDocument(root, document, context);
}

void SaveRoot(CObject const& root, std::string_view path, Layout layout,
              CXmlSerializationContext const& context) {
    root.ToXmlFile(FromUtf8(path).c_str(), true, layout == Layout::Indented, enc_UTF8, eol_LF, context,
                   cmp_None);
}

std::string RootText(CObject const& root, Layout layout, CXmlSerializationContext const& context) {
    CBinaryData const octets =
        root.ToXmlStream(true, layout == Layout::Indented, enc_UTF8, eol_LF, context, cmp_None);
    return {reinterpret_cast<char const*>(octets.GetData()), octets.GetLength()};
}

CXmlSerializationContext RootContext(Class const& root) {
    Class::Facts const& facts = root.GetFacts();
    CXmlSerializationContext context;
    if (facts.set->hasDefaultNamespace) context.SetDefaultNamespaceURI(facts.namespaceUri);
    for (Alias const& alias : facts.set->aliases)
        context.GetNamespaceAliases().Add(alias.prefix, alias.namespaceUri);
    return context;
}

}  // namespace BxXmlLib5::Generated
