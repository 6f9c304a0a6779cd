// Reads documents with the generated classes that are linked in, writes them, and compares.
//
// Standard input has a line for each document: the name of its group, "valid" or "invalid", and its path,
// with tabulators between. Standard output tells of each: group, valid or invalid, what came of it, path, and
// why. Each is read in a process of its own, so that a crash or an endless run ends with it.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

#include "BxXmlLib5/BxXmlLib5.h"
#include "Suite.h"
#include "Trees.h"

namespace {

using namespace BxXmlLib5;
namespace Bx = BxXmlLib5::Generated;

constexpr unsigned kSeconds = 20;

struct Document {
    std::string m_group;
    bool m_isValid;
    std::string m_path;
};

struct Outcome {
    std::string m_what;
    std::string m_why;
};

struct ParsedDocument {
    explicit ParsedDocument(std::string_view octets) {
        m_document.LoadXmlStream(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
    }
    CXmlElement const& Root() const { return *m_document.GetDocumentElement(); }

    CXmlDocument m_document;
};

/// An object of the class of a document's root.
class Object {
public:
    explicit Object(Bx::Class const& type) : m_object(type.GetFacts().make()) {}

    void Load(std::string const& path) {
        Bx::LoadRoot(*m_object, path, CXmlSerializationContext::GetDefaultContext());
    }
    void Parse(std::string const& text) {
        Bx::ParseRoot(*m_object, text, CXmlSerializationContext::GetDefaultContext());
    }
    std::string Text() const {
        return Bx::RootText(*m_object, Bx::Layout::Compact, Bx::RootContext(*m_object, Bx::RootForm::Text));
    }
    /// What is wrong with an object that was read, as the object itself tells it; empty for nothing.
    std::string Complaint() const {
        std::vector<wstring> const wrong = m_object->Validate();
        if (!wrong.empty()) return "validating: " + ToUtf8(wrong.front());
        return m_object->Clone()->Equals(*m_object) ? "" : "the copy differs";
    }

private:
    CSmartPtr<Bx::CObject> m_object;
};

/// Reads and writes a document that is valid, and what was written once more.
Outcome Compare(Bx::Class const& root, std::string const& path, CXmlElement const& original) {
    Object object(root);
    try {
        object.Load(path);
    } catch (CBxException const& failure) {
        return {"refused", ToUtf8(failure.GetFullMessage())};
    }
    char const* stage = "writing: ";
    try {
        std::string const complaint = object.Complaint();
        if (!complaint.empty()) return {"unequal", complaint};
        std::string const text = object.Text();
        stage = "reading what was written: ";
        std::string const difference = Suite::Difference(original, ParsedDocument(text).Root());
        if (!difference.empty()) return {"unequal", difference};
        Object again(root);
        again.Parse(text);
        if (again.Text() != text) return {"unequal", "what was written, read and written again, differs"};
        return {"equal", ""};
    } catch (CBxException const& failure) {
        return {"unequal", stage + ToUtf8(failure.GetFullMessage())};
    }
}

Outcome Run(Document const& document) {
    Suite::Group const* const group = Suite::Group::Find(document.m_group);
    if (group == nullptr) return {"broken", "the program has no group " + document.m_group};
    CXmlDocument tree;
    try {
        tree.Load(FromUtf8(document.m_path).c_str());
    } catch (CBxException const& failure) {
        return {"refused", ToUtf8(failure.GetFullMessage())};
    }
    CXmlElement const& element = *tree.GetDocumentElement();
    Bx::Class const* const root = group->FindRoot(element.GetLocalName(), element.GetNamespaceURI());
    if (root == nullptr)
        return {document.m_isValid ? "not taken" : "refused", "no class for the root [root]"};
    if (document.m_isValid) return Compare(*root, document.m_path, element);
    try {
        Object(*root).Load(document.m_path);
    } catch (CBxException const& failure) {
        return {"refused", ToUtf8(failure.GetFullMessage())};
    }
    return {"accepted", ""};
}

/// What the other side of a pipe writes until it closes.
std::string ReadAll(int file) {
    std::string text;
    char buffer[4096];
    for (ssize_t size = 0; (size = read(file, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(size));
    return text;
}

[[noreturn]] void RunAsChild(Document const& document, int output) {
    alarm(kSeconds);
    std::string text;
    try {
        Outcome const outcome = Run(document);
        text = outcome.m_what + '\n' + outcome.m_why;
    } catch (std::exception const& failure) {
        text = std::string("broken\n") + failure.what();
    }
    if (write(output, text.data(), text.size()) != static_cast<ssize_t>(text.size())) _exit(1);
    _exit(0);
}

Outcome RunAlone(Document const& document) {
    int ends[2];
    if (pipe(ends) != 0) return {"broken", std::strerror(errno)};
    pid_t const child = fork();
    if (child == 0) {
        close(ends[0]);
        RunAsChild(document, ends[1]);
    }
    close(ends[1]);
    std::string const text = child < 0 ? "" : ReadAll(ends[0]);
    close(ends[0]);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) return {"broken", std::strerror(errno)};
    if (WIFSIGNALED(status))
        return {"broken", WTERMSIG(status) == SIGALRM ? "no end in sight" : strsignal(WTERMSIG(status))};
    std::size_t const end = text.find('\n');
    if (WEXITSTATUS(status) != 0 || end == text.npos) return {"broken", "the process ended early"};
    return {text.substr(0, end), text.substr(end + 1)};
}

std::optional<Document> Parse(std::string const& line) {
    std::istringstream fields(line);
    std::string group;
    std::string kind;
    std::string path;
    std::getline(fields, group, '\t');
    std::getline(fields, kind, '\t');
    if (!std::getline(fields, path, '\t') || (kind != "valid" && kind != "invalid")) return {};
    return Document{group, kind == "valid", path};
}

std::string OneLine(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return text;
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        auto const document = Parse(line);
        if (!document) {
            std::cerr << "not a document: " << line << '\n';
            return 2;
        }
        Outcome const outcome = RunAlone(*document);
        std::cout << document->m_group << '\t' << (document->m_isValid ? "valid" : "invalid") << '\t'
                  << outcome.m_what << '\t' << document->m_path << '\t' << OneLine(outcome.m_why)
                  << std::endl;
    }
    return 0;
}
