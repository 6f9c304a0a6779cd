// Calls of a writer, told in a line.
#pragma once

#include <sstream>
#include <string>
#include <utility>

#include "BxXmlLib5/platform/Text.h"
#include "BxXmlLib5/writers/CXmlWriter.h"

namespace BxTest {

inline std::string Replaced(std::string text, std::string const& what, std::string const& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

/// XSI and XMLNS replaced by the namespaces of XML Schema instances and of XML.
inline std::string Expand(std::string const& text) {
    return Replaced(Replaced(text, "XSI", "http://www.w3.org/2001/XMLSchema-instance"), "XMLNS",
                    "http://www.w3.org/XML/1998/namespace");
}

/// Before and behind a separator; all is behind it if there is none.
inline std::pair<std::string, std::string> Split(std::string const& text, char separator) {
    std::size_t const at = text.find(separator);
    return {text.substr(0, at == std::string::npos ? 0 : at), text.substr(at + 1)};
}

/// Calls the operations that a script names, which are separated by blanks:
///
///     <ns|name  WriteStartElement    @ns|name=value  WriteAttribute    +alias=ns  AddNamespace
///     >         WriteEndElement      ^ns|name        WriteXsiType      *ns        SetDefaultNamespace
///     'text     WriteText            !text  WriteComment    ?text  WriteProcessingInstruction
///     .         WriteEndDocument     #text  WriteInLineSchema
inline void Write(BxXmlLib5::CXmlWriter& writer, std::string const& script) {
    using namespace BxXmlLib5;
    std::istringstream tokens(Expand(script));
    for (std::string token; tokens >> token;) {
        auto const [nsOctets, rest] = Split(token.substr(1), '|');
        auto const [name, value] = Split(rest, '=');
        wstring const ns = FromUtf8(nsOctets);
        wstring const text = FromUtf8(rest);
        char const operation = token[0];
        if (operation == '<') writer.WriteStartElement(text, ns);
        if (operation == '>') writer.WriteEndElement();
        if (operation == '@') writer.WriteAttribute(FromUtf8(name), ns, FromUtf8(value));
        if (operation == '^') writer.WriteXsiType(ns, text);
        if (operation == '\'') writer.WriteText(text);
        if (operation == '+') writer.AddNamespace(FromUtf8(name), FromUtf8(value));
        if (operation == '*') writer.SetDefaultNamespace(text);
        if (operation == '!') writer.WriteComment(text);
        if (operation == '?') writer.WriteProcessingInstruction(text);
        if (operation == '#') writer.WriteInLineSchema(text);
        if (operation == '.') writer.WriteEndDocument();
    }
}

}  // namespace BxTest
