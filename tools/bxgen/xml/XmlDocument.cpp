#include "xml/XmlDocument.h"

#include <expat.h>

#include <algorithm>
#include <exception>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace BxGen {

namespace {

static_assert(sizeof(XML_Char) == 1, "the schema compiler needs Expat's narrow build");

/// Stands between namespace and name in what Expat hands out; no namespace name holds it.
constexpr char kSeparator = '\n';

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == text.npos;
}

}  // namespace

/// Builds the elements from Expat's events.
class XmlParser {
public:
    XmlParser(XmlDocument& document, std::string_view file, std::span<QName const> verbatim, StringPool& pool,
              Diagnostics& diagnostics)
        : m_document(document),
          m_file(file),
          m_verbatim(verbatim),
          m_pool(pool),
          m_diagnostics(diagnostics),
          m_parser(XML_ParserCreateNS(nullptr, kSeparator)) {
        if (!m_parser) throw std::bad_alloc();
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(m_parser.get(), Call<&XmlParser::Start>, CallEnd);
        XML_SetCharacterDataHandler(m_parser.get(), Call<&XmlParser::Text>);
        XML_SetNamespaceDeclHandler(m_parser.get(), Call<&XmlParser::Declare>, [](void*, char const*) {});
        XML_SetSkippedEntityHandler(m_parser.get(), Call<&XmlParser::Skipped>);
        XML_SetStartDoctypeDeclHandler(m_parser.get(), Call<&XmlParser::StartDocumentType>);
        XML_SetEntityDeclHandler(m_parser.get(), Call<&XmlParser::DeclareEntity>);
        XML_SetUnknownEncodingHandler(
            m_parser.get(), [](void*, char const*, XML_Encoding*) -> int { return XML_STATUS_ERROR; },
            nullptr);
    }

    bool Parse(std::string_view octets) {
        constexpr std::size_t kPiece = 1u << 24;
        XML_Status status = XML_STATUS_OK;
        bool isLast = false;
        while (status == XML_STATUS_OK && !isLast) {
            std::string_view const piece = octets.substr(0, kPiece);
            octets.remove_prefix(piece.size());
            isLast = octets.empty();
            status = XML_Parse(m_parser.get(), piece.data(), static_cast<int>(piece.size()), isLast);
        }
        if (m_failure) std::rethrow_exception(m_failure);
        if (status != XML_STATUS_OK && !m_isRefused)
            Refuse(XML_ErrorString(XML_GetErrorCode(m_parser.get())));
        return !m_isRefused;
    }

private:
    struct Deleter {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    /// A handler of Expat that calls a member. No exception crosses Expat: it is kept, and the parse ends.
    template <auto Member, class... Arguments>
    static void Call(void* self, Arguments... arguments) {
        auto& parser = *static_cast<XmlParser*>(self);
        if (parser.m_isRefused || parser.m_failure) return;
        try {
            (parser.*Member)(arguments...);
        } catch (...) {
            parser.m_failure = std::current_exception();
            XML_StopParser(parser.m_parser.get(), XML_FALSE);
        }
    }

    static void CallEnd(void* self, char const*) { Call<&XmlParser::End>(self); }

    Place Here() const {
        auto const clamp = [](XML_Size number) {
            return static_cast<std::uint32_t>(
                std::min<XML_Size>(number, std::numeric_limits<std::uint32_t>::max()));
        };
        return {m_file, clamp(XML_GetCurrentLineNumber(m_parser.get())),
                clamp(XML_GetCurrentColumnNumber(m_parser.get()) + 1)};
    }

    void Refuse(std::string const& text) {
        m_diagnostics.Error(Here(), "xml", text);
        m_isRefused = true;
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    QName NameOf(std::string_view name) {
        std::size_t const separator = name.find(kSeparator);
        if (separator == name.npos) return {{}, m_pool.Intern(name)};
        return {m_pool.Intern(name.substr(0, separator)), m_pool.Intern(name.substr(separator + 1))};
    }

    void Declare(char const* prefix, char const* uri) {
        std::string_view const uriText = uri != nullptr ? uri : "";
        if (uriText.size() > XmlDocument::kMaxNamespace)
            return Refuse("namespace name of more than 4096 octets");
        m_declarations.push_back({m_pool.Intern(prefix != nullptr ? prefix : ""), m_pool.Intern(uriText)});
    }

    NamespaceScope const* Scope() {
        NamespaceScope const* const outer = m_open.empty() ? nullptr : m_open.back()->m_scope;
        if (m_declarations.empty() && outer != nullptr) return outer;
        return &m_document.m_scopes.emplace_back(NamespaceScope{std::exchange(m_declarations, {}), outer});
    }

    void StartDocumentType(char const*, char const* system, char const*, int) {
        m_hasOtherDeclarations = system != nullptr;
    }

    void DeclareEntity(char const* name, int isParameterEntity, char const*, int, char const*, char const*,
                       char const*, char const*) {
        if (isParameterEntity == 0) m_entities.insert(name);
    }

    /// Expat leaves out of attributes, without a word, entities that declarations it did not read may hold.
    void CheckEntitiesOfTag() {
        int offset = 0;
        int size = 0;
        char const* const context = XML_GetInputContext(m_parser.get(), &offset, &size);
        if (context == nullptr) return;
        std::string_view tag(context + offset, static_cast<std::size_t>(size - offset));
        tag = tag.substr(0, static_cast<std::size_t>(std::max(XML_GetCurrentByteCount(m_parser.get()), 0)));
        for (std::size_t start = tag.find('&'); start != tag.npos; start = tag.find('&', start + 1)) {
            std::string const name(tag.substr(start + 1, tag.find(';', start) - start - 1));
            if (!name.starts_with('#') && !m_entities.contains(name)) return Skipped(name.c_str(), 0);
        }
    }

    void Start(char const* name, char const** attributes) {
        if (m_hasOtherDeclarations) CheckEntitiesOfTag();
        if (m_isRefused) return;
        if (m_open.size() >= XmlDocument::kMaxDepth)
            return Refuse("more than 1024 elements within each other");
        FlushText();
        XmlElement& element = m_document.m_elements.emplace_back();
        element.m_name = NameOf(name);
        element.m_place = Here();
        element.m_scope = Scope();
        for (; *attributes != nullptr; attributes += 2) {
            element.m_attributes.push_back({NameOf(attributes[0]), m_pool.Intern(attributes[1])});
        }
        if (!m_open.empty()) m_open.back()->m_content.emplace_back(&element);
        m_open.push_back(&element);
        if (m_verbatimDepth > 0 || std::ranges::find(m_verbatim, element.m_name) != m_verbatim.end()) {
            ++m_verbatimDepth;
        }
    }

    void End() {
        FlushText();
        m_open.pop_back();
        if (m_verbatimDepth > 0) --m_verbatimDepth;
    }

    void Text(char const* text, int size) { m_text.append(text, static_cast<std::size_t>(size)); }

    void FlushText() {
        if (m_text.empty()) return;
        if (m_verbatimDepth > 0 || !IsBlank(m_text))
            m_open.back()->m_content.emplace_back(m_pool.Intern(m_text));
        m_text.clear();
    }

    void Skipped(char const* name, int isParameterEntity) {
        if (isParameterEntity == 0)
            Refuse("entity " + Quoted(name) + " is not declared in the document itself");
    }

    XmlDocument& m_document;
    std::string_view m_file;
    std::span<QName const> m_verbatim;
    StringPool& m_pool;
    Diagnostics& m_diagnostics;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Deleter> m_parser;
    std::vector<XmlElement*> m_open;
    std::vector<NamespaceScope::Declaration> m_declarations;
    std::string m_text;
    std::size_t m_verbatimDepth = 0;
    std::set<std::string> m_entities{"lt", "gt", "amp", "apos", "quot"};
    bool m_hasOtherDeclarations = false;  ///< the document type names a file, which is not read
    bool m_isRefused = false;
    std::exception_ptr m_failure;
};

std::unique_ptr<XmlDocument> XmlDocument::Parse(std::string_view octets, std::string_view file,
                                                std::span<QName const> verbatim, StringPool& pool,
                                                Diagnostics& diagnostics) {
    auto document = std::make_unique<XmlDocument>();
    if (!XmlParser(*document, file, verbatim, pool, diagnostics).Parse(octets)) return nullptr;
    return document;
}

}  // namespace BxGen
