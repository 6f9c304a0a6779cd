// Schemas in a folder of their own.
#pragma once

#include <algorithm>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "../support/TemporaryFolder.h"
#include "Run.h"

namespace BxGen {

/// What a run ended with, its output and its messages, in which the folder is not named.
struct Outcome {
    int m_status = 0;
    std::string m_output;
    std::string m_messages;

    bool operator==(Outcome const&) const = default;
};

/// A folder for files and runs.
class Folder : public BxTest::TemporaryFolder {
public:
    void Put(std::string const& name, std::string_view octets) const {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        Write(name, octets);
    }

    /// Runs the tool; `@` in an argument stands for the folder.
    /// What is generated goes into the folder too, unless the arguments say where.
    Outcome Run(std::vector<std::string> arguments) const {
        bool const saysWhere = std::find(arguments.begin(), arguments.end(), "-o") != arguments.end();
        if (!saysWhere && !arguments.empty()) arguments.insert(arguments.begin(), {"-o", "@out"});
        std::vector<char const*> pointers;
        for (std::string& argument : arguments) {
            Replace(argument, "@", Path(""));
            pointers.push_back(argument.c_str());
        }
        Outcome outcome;
        outcome.m_status = BxGen::Run(pointers, outcome.m_output, outcome.m_messages);
        Replace(outcome.m_messages, Path(""), "");
        return outcome;
    }

    /// Puts a schema and dumps it.
    Outcome Dump(std::string_view schema) const {
        Put("a.xsd", schema);
        return Run({"--dump", "@a.xsd"});
    }

    static void Replace(std::string& text, std::string_view what, std::string const& by) {
        for (std::size_t at = text.find(what); at != text.npos; at = text.find(what, at + by.size())) {
            text.replace(at, what.size(), by);
        }
    }
};

/// A schema of the namespace u, whose prefix is t, on one line.
inline std::string Schema(std::string_view body, std::string_view attributes = "") {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='u' targetNamespace='u' " +
           std::string(attributes) + ">" + std::string(body) + "</xs:schema>";
}

}  // namespace BxGen
