#include "BxXmlLib5/generated/Program.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/generated/Root.h"
#include "BxXmlLib5/platform/CFileReplacement.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "document/ReadPlace.h"

namespace BxXmlLib5::Generated {

namespace {

enum Status { kSuccess, kWrongUsage, kUnfit, kNoFile };

struct Wish {
    std::string m_input;
    std::string m_output = "-";
    bool m_onlyCheck = false;
    bool m_isFastInfoset = false;
    bool m_isCompact = false;
};

constexpr char kUsage[] = "[--check] [--to xml|finf] [--compact] INPUT [-o OUTPUT]";

std::optional<Wish> ReadCommandLine(std::span<char const* const> arguments) {
    Wish wish;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view const argument = arguments[i];
        bool const hasNext = i + 1 < arguments.size();
        if (argument == "--check") {
            wish.m_onlyCheck = true;
        } else if (argument == "--compact") {
            wish.m_isCompact = true;
        } else if (argument == "--to" && hasNext) {
            std::string_view const form = arguments[++i];
            if (form != "xml" && form != "finf") return std::nullopt;
            wish.m_isFastInfoset = form == "finf";
        } else if (argument == "-o" && hasNext) {
            wish.m_output = arguments[++i];
        } else if (wish.m_input.empty() && (argument == "-" || !argument.starts_with('-'))) {
            wish.m_input = argument;
        } else {
            return std::nullopt;
        }
    }
    return wish.m_input.empty() ? std::nullopt : std::optional(wish);
}

constexpr std::string_view kStandardStream = "-";

/// Reads a file, or standard input. @return false with errno if that fails
bool ReadInput(std::string const& name, std::string& octets) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(nullptr, std::fclose);
    std::FILE* file = stdin;
    if (name != kStandardStream) {
        opened.reset(std::fopen(name.c_str(), "rb"));
        if (!opened) return false;
        file = opened.get();
    }
    char buffer[65536];
    while (std::size_t const count = std::fread(buffer, 1, sizeof buffer, file)) octets.append(buffer, count);
    return std::ferror(file) == 0;
}

/// Writes a file, or to standard output. @return false with errno if that fails
bool WriteOutput(std::string const& name, CBinaryData const& octets) {
    CFileReplacement file(name == kStandardStream ? "/dev/stdout" : std::string_view(name));
    file.Write(octets.GetOctets());
    errno = file.Finish();
    return errno == 0;
}

/// @throws CBxValidationException if no class is that of the document's root
Class const& RootOf(CXmlElement const& element, std::span<Class const* const> roots) {
    for (Class const* const root : roots) {
        Class::Facts const& facts = root->GetFacts();
        if (element.GetLocalName() == facts.name && element.GetNamespaceURI() == facts.namespaceUri)
            return *root;
    }
    throw CBxValidationException(u"The root of the document is '" + element.GetLocalName() +
                                 u"' of the namespace '" + element.GetNamespaceURI() +
                                 u"', which is none that this program knows");
}

CBinaryData Written(CObject const& root, Wish const& wish) {
    auto const context = RootContext(root, wish.m_isFastInfoset ? RootForm::FastInfoset : RootForm::Text);
    if (wish.m_isFastInfoset) return root.ToFastInfosetStream(fi_None, context, cmp_None);
    return root.ToXmlStream(true, !wish.m_isCompact, enc_UTF8, eol_LF, context, cmp_None);
}

CSmartPtr<CObject> Parsed(std::string const& octets, std::span<Class const* const> roots) {
    CXmlDocument document;
    document.SetRequireWholeDocument(true);
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
    CXmlElement const* const element = document.GetDocumentElement();
    CSmartPtr<CObject> root;
    ReadTree(*element, [&] { root = RootOf(*element, roots).GetFacts().make(); });
    CXmlSerializationContext context;
    root->FromXmlElement(element, context);
    return root;
}

Status Failed(Status status, std::string const& report) {
    std::fprintf(stderr, "%s\n", report.c_str());
    return status;
}

Status NoFile(std::string const& name) {
    return Failed(kNoFile, name + ": " + std::generic_category().message(errno));
}

Status Convert(Wish const& wish, std::span<Class const* const> roots) {
    std::string octets;
    if (!ReadInput(wish.m_input, octets)) return NoFile(wish.m_input);
    CSmartPtr<CObject> const root = Parsed(octets, roots);
    octets = {};
    if (wish.m_onlyCheck) return kSuccess;
    return WriteOutput(wish.m_output, Written(*root, wish)) ? kSuccess : NoFile(wish.m_output);
}

}  // namespace

int RunProgram(int argc, char const* const* argv, std::span<Class const* const> roots) {
    std::string const name = argc > 0 ? argv[0] : "program";
    std::optional<Wish> const wish =
        ReadCommandLine({argv + (argc > 0 ? 1 : 0), static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)});
    if (!wish) {
        std::fprintf(stderr, "Usage: %s %s\n", name.c_str(), kUsage);
        return kWrongUsage;
    }
    try {
        return Convert(*wish, roots);
    } catch (CBxException const& failure) {
        return Failed(kUnfit, ToUtf8(failure.GetReport(FromUtf8(wish->m_input))));
    } catch (std::bad_alloc const&) {
        return Failed(kUnfit, wish->m_input + ": not enough memory");
    }
}

}  // namespace BxXmlLib5::Generated
