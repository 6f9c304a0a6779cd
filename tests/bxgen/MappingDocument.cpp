// docs/mapping.md: what it shows is what the tool makes, and it knows every code.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Codes.h"
#include "Folder.h"

namespace BxGen {
namespace {

std::string Content(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string const kSchema =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" xmlns:t=\"urn:example\" "
    "targetNamespace=\"urn:example\" elementFormDefault=\"qualified\">";

/// The declarations of a generated header, without what all of them have.
std::string Declarations(std::string const& header) {
    std::istringstream lines(header.substr(header.find('\n', header.find("Bx::Set const kSet;")) + 1));
    std::string text;
    bool isWithinDescription = false;
    for (std::string line; std::getline(lines, line) && !line.starts_with("}  // namespace");) {
        if (line == "protected:") isWithinDescription = true;
        if (line == "};") isWithinDescription = false;
        bool const isLeftOut = isWithinDescription || line.empty() || line == "public:" ||
                               line.starts_with("///") ||
                               line.find("static Bx::Class const kClass;") != line.npos;
        if (!isLeftOut) text += line + '\n';
        if (line == "};" && text.ends_with(" {\n};\n")) text.erase(text.size() - 4, 1);
    }
    return text;
}

/// The other names for classes, which stand in the header of their names.
std::string Aliases(std::string const& header) {
    std::istringstream lines(header);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("using ")) text += line + '\n';
    }
    return text;
}

std::string Block(std::string const& language, std::string const& text) {
    return text.empty() ? "" : "```" + language + '\n' + text + "```\n";
}

/// The blocks that show what becomes of an example.
/// @param arguments options, with blanks between
std::string Shown(std::string const& example, std::string const& arguments) {
    Folder const folder;
    folder.Put("example.xsd", kSchema + '\n' + example + "</xs:schema>\n");
    std::vector<std::string> command = {"--all-warnings", "-n", "Example"};
    std::istringstream words(arguments);
    command.insert(command.end(), std::istream_iterator<std::string>(words), {});
    command.push_back("@example.xsd");
    Outcome const outcome = folder.Run(command);
    std::string declarations;
    if (outcome.m_status == 0) {
        declarations = Aliases(Content(folder.Path("out/ExampleFwd.h"))) +
                       Declarations(Content(folder.Path("out/Example.h")));
    }
    return Block("cpp", declarations) + Block("text", outcome.m_messages);
}

/// The document with the blocks behind its examples made anew.
std::string MadeAnew(std::string const& document) {
    std::istringstream lines(document);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```cpp") || line.starts_with("```text")) {
            while (std::getline(lines, line) && line != "```") continue;
            continue;
        }
        text += line + '\n';
        if (!line.starts_with("```xml")) continue;
        std::string const arguments = line.substr(6);
        std::string example;
        while (std::getline(lines, line) && line != "```") example += line + '\n';
        text += example + "```\n" + Shown(example, arguments);
    }
    return text;
}

/// With BX_UPDATE set in the environment, the document is written anew instead.
TEST(MappingDocument, ShowsWhatIsMade) {
    std::string const document = Content(BX_MAPPING);
    ASSERT_NE(document.find(kSchema), document.npos);
    std::string const made = MadeAnew(document);
    if (std::getenv("BX_UPDATE") != nullptr) std::ofstream(BX_MAPPING, std::ios::binary) << made;
    EXPECT_EQ(document, made);
}

TEST(MappingDocument, KnowsEveryCode) {
    std::istringstream lines(Content(BX_MAPPING));
    std::multiset<std::string> described;
    bool isInMessages = false;
    for (std::string line; std::getline(lines, line);) {
        isInMessages |= line == "## Messages";
        if (isInMessages && line.starts_with("| `")) described.insert(line.substr(3, line.find('`', 3) - 3));
    }
    EXPECT_EQ(described, std::multiset<std::string>(std::begin(kCodes), std::end(kCodes)));
}

}  // namespace
}  // namespace BxGen
