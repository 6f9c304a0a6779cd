// What a context adds to a document.
#pragma once

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/writers/CXmlWriter.h"

namespace BxXmlLib5 {

/// Writes the instructions, and hands the writer what the root is to declare.
inline void WriteAheadOfRoot(CXmlSerializationContext const& context, CXmlWriter* writer) {
    for (wstring const& instruction : context.GetProcessingInstructions()) {
        writer->WriteProcessingInstruction(instruction);
    }
    for (auto const& [namespaceUri, alias] : context.GetNamespaceAliases().GetAll()) {
        // Asking for the alias of a namespace is enough to enter it without one.
        if (!alias.empty()) writer->AddNamespace(alias, namespaceUri);
    }
    wstring const defaultNamespace = context.GetDefaultNamespaceURI();
    if (!defaultNamespace.empty()) writer->SetDefaultNamespace(defaultNamespace);
}

}  // namespace BxXmlLib5
