// Trees of documents as text, and the ways to load one.
#pragma once

#include <zlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "BxXmlLib5/document/CXmlDocument.h"
#include "support/Expect.h"

namespace BxTest {

using namespace BxXmlLib5;

inline std::string Name(wstring const& namespaceUri, wstring const& localName) {
    if (namespaceUri.empty()) return ToUtf8(localName);
    return std::string("{").append(ToUtf8(namespaceUri)).append("}").append(ToUtf8(localName));
}

/// The tree below an element on one line: {namespace}name@attribute=value'text'(children).
inline std::string Dump(CXmlElement const* element) {
    if (element == nullptr) return "nothing";
    std::string line = Name(element->GetNamespaceURI(), element->GetLocalName());
    for (CXmlAttribute const* attribute : element->GetAttributes()) {
        line += '@';
        line += Name(attribute->GetNamespaceURI(), attribute->GetLocalName());
        line += '=';
        line += ToUtf8(attribute->GetValue());
    }
    if (!element->GetText().empty()) line.append("'").append(ToUtf8(element->GetText())).append("'");
    for (auto* child = element->GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        line.append(child == element->GetFirstElement() ? "(" : " ").append(Dump(child));
    return element->GetFirstElement() == nullptr ? line : line + ")";
}

/// A folder that goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder() : m_path(testing::TempDir() + "bxtestXXXXXX") { EXPECT_TRUE(mkdtemp(m_path.data())); }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }

    std::string Path(std::string const& name) const { return m_path + "/" + name; }
    /// The path of a new file with this content.
    std::string Write(std::string const& name, std::string_view content) const {
        std::ofstream(Path(name), std::ios::binary).write(content.data(), std::ssize(content));
        return Path(name);
    }

private:
    std::string m_path;
};

inline void LoadFile(CXmlDocument& document, std::string const& path) {
    document.Load(FromUtf8(path).c_str());
}

/// From memory of just that size, so that the sanitizer sees a read beyond the end.
inline void LoadOctets(CXmlDocument& document, std::string_view octets) {
    std::vector<unsigned char> const data(octets.begin(), octets.end());
    document.LoadXmlStream(data.data(), data.size());
}

enum Way { kOctets, kNarrow, kWide, kFile };
inline constexpr Way kEveryWay[] = {kOctets, kNarrow, kWide, kFile};

inline void Load(Way way, CXmlDocument& document, std::string const& text) {
    if (way == kOctets) LoadOctets(document, text);
    if (way == kNarrow) document.LoadXml(text.c_str());
    if (way == kWide) document.LoadXml(FromUtf8(text).c_str());
    if (way == kFile) LoadFile(document, TemporaryFolder().Write("document.xml", text));
}

inline constexpr int kGZip = 31;
inline constexpr int kZLib = 15;

inline std::string Deflate(std::string content, int windowBits, std::string_view dictionary = {}) {
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    if (!dictionary.empty())
        deflateSetDictionary(&stream, reinterpret_cast<Bytef const*>(dictionary.data()),
                             static_cast<uInt>(dictionary.size()));
    std::string output(deflateBound(&stream, content.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(content.data());
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
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
