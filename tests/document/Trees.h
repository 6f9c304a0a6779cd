// Trees of documents as text, and tables of what loads give.
#pragma once

#include <zlib.h>

#include <functional>
#include <vector>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "support/Expect.h"
#include "support/TemporaryFolder.h"

namespace BxTest {

using namespace BxXmlLib5;

inline std::string Name(wstring const& namespaceUri, wstring const& localName) {
    return ToUtf8(namespaceUri.empty() ? localName : u"{" + namespaceUri + u"}" + localName);
}

/// The tree below an element on one line: {namespace}name@attribute=value'text'(children).
inline std::string Dump(CXmlElement const* element) {
    if (element == nullptr) return "nothing";
    std::string line = Name(element->GetNamespaceURI(), element->GetLocalName());
    for (CXmlAttribute const* attribute : element->GetAttributes()) {
        line.append("@").append(Name(attribute->GetNamespaceURI(), attribute->GetLocalName()));
        line.append("=").append(ToUtf8(attribute->GetValue()));
    }
    if (!element->GetText().empty()) line.append("'").append(ToUtf8(element->GetText())).append("'");
    for (auto* child = element->GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        line.append(child == element->GetFirstElement() ? "(" : " ").append(Dump(child));
    return element->GetFirstElement() == nullptr ? line : line + ")";
}

enum Way { kOctets, kFile, kNarrow, kWide };

inline void Load(Way way, CXmlDocument& document, std::string const& text) {
    // From memory of just that size, so that the sanitizer sees a read beyond the end.
    std::vector<unsigned char> const octets(text.begin(), text.end());
    if (way == kOctets) document.LoadXmlStream(octets.data(), octets.size());
    if (way == kFile) document.Load(FromUtf8(TemporaryFolder().Write("x", text)).c_str());
    if (way == kNarrow) document.LoadXml(text.c_str());
    if (way == kWide) document.LoadXml(FromUtf8(text).c_str());
}

/// The message of the CBxException that a load throws, or the tree that it makes.
inline std::string Outcome(std::function<void(CXmlDocument&)> const& load,
                           SchemaType schemaType = st_Default) {
    CXmlDocument document(schemaType);
    std::string const thrown = Thrown([&] { load(document); });
    if (thrown == "nothing") return Dump(document.GetDocumentElement());
    return thrown.starts_with("CBxException: ") ? thrown.substr(14) : thrown;
}

/// Expects the outcome of each row, "text => outcome", by each way.
inline void ExpectLoads(std::vector<std::string> const& rows,
                        std::vector<Way> const& ways = {kOctets, kFile, kNarrow, kWide},
                        SchemaType schemaType = st_Default) {
    for (std::string const& row : rows) {
        std::size_t const arrow = row.rfind(" => ");
        for (Way const way : ways)
            EXPECT_EQ(Outcome([&](auto& d) { Load(way, d, row.substr(0, arrow)); }, schemaType),
                      row.substr(arrow + 4))
                << "way " << way << " of " << row.substr(0, 200);
    }
}

/// The tree that a document has once it is loaded, or the report of the failure.
inline std::string Report(CXmlDocument& document, Way way, std::string const& text) {
    return Reported([&] { return Load(way, document, text), Dump(document.GetDocumentElement()); });
}

inline constexpr int kGZip = 31, kZLib = 15;

inline std::string Deflate(std::string content, int windowBits = kGZip, std::string dictionary = {}) {
    auto const octets = [](std::string& text) { return reinterpret_cast<Bytef*>(text.data()); };
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    if (!dictionary.empty())
        deflateSetDictionary(&stream, octets(dictionary), static_cast<uInt>(dictionary.size()));
    std::string output(deflateBound(&stream, content.size()), '\0');
    stream.next_in = octets(content);
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = octets(output);
    stream.avail_out = static_cast<uInt>(output.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    output.resize(stream.total_out);
    deflateEnd(&stream);
    return output;
}

inline std::string Repeat(std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += piece;
    return text;
}

}  // namespace BxTest
