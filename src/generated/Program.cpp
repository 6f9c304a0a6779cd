#include "BxXmlLib5/generated/Program.h"

#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/CSmartPtr.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "BxXmlLib5/generated/Root.h"
#include "BxXmlLib5/values/CBinaryData.h"

namespace BxXmlLib5::Generated {

namespace {

enum Status { kSuccess, kWrongUsage, kUnfit, kNoFile };

struct Wish {
    std::string m_input;
    std::string m_output;
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

std::string ReadAll(std::FILE* file) {
    std::string octets;
    char buffer[65536];
    while (std::size_t const count = std::fread(buffer, 1, sizeof buffer, file)) octets.append(buffer, count);
    return octets;
}

void LoadInput(CXmlDocument& document, std::string const& input) {
    if (input != "-") return document.Load(FromUtf8(input).c_str());
    std::string const octets = ReadAll(stdin);
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(octets.data()), octets.size());
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

CBinaryData Written(CObject const& root, Class const& type, Wish const& wish) {
    CXmlSerializationContext const context = RootContext(type);
    if (wish.m_isFastInfoset) return root.ToFastInfosetStream(fi_None, context, cmp_None);
    return root.ToXmlStream(true, !wish.m_isCompact, enc_UTF8, eol_LF, context, cmp_None);
}

Status Convert(Wish const& wish, std::span<Class const* const> roots) {
    CXmlDocument document(st_Default);
    LoadInput(document, wish.m_input);
    if (!document.IsComplete()) throw CBxException(u"The document ends before its root does");
    Class const& type = RootOf(*document.GetDocumentElement(), roots);
    CSmartPtr<CObject> const root = type.GetFacts().make();
    CXmlSerializationContext context;
    root->FromXmlElement(document.GetDocumentElement(), context);
    if (wish.m_onlyCheck) return kSuccess;
    CBinaryData const octets = Written(*root, type, wish);
    if (!wish.m_output.empty()) {
        octets.ToFile(FromUtf8(wish.m_output).c_str(), enc_Unspecified);
        return kSuccess;
    }
    bool const isWritten = std::fwrite(octets.GetData(), 1, octets.GetLength(), stdout) == octets.GetLength();
    return isWritten && std::fflush(stdout) == 0 ? kSuccess : kNoFile;
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
        std::fprintf(stderr, "%s: %s\n", wish->m_input.c_str(), ToUtf8(failure.GetFullMessage()).c_str());
    } catch (std::bad_alloc const&) {
        std::fprintf(stderr, "%s: not enough memory\n", wish->m_input.c_str());
    }
    return kUnfit;
}

}  // namespace BxXmlLib5::Generated
