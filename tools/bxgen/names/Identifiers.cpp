#include "names/Identifiers.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "xml/XmlNames.h"

namespace BxGen {

namespace {

struct Range {
    char32_t m_first;
    char32_t m_last;
};

/// Letters that every compiler takes in a name and every editor shows.
constexpr Range kLetters[] = {
    {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x24F},    {0x370, 0x373},   {0x386, 0x386},
    {0x388, 0x3CE},   {0x400, 0x481},   {0x48A, 0x52F},   {0x531, 0x556},   {0x561, 0x587},
    {0x5D0, 0x5EA},   {0x620, 0x64A},   {0x904, 0x939},   {0xE01, 0xE30},   {0x10D0, 0x10FA},
    {0x1E00, 0x1EFF}, {0x3041, 0x3096}, {0x30A1, 0x30FA}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3},
};

constexpr std::string_view kKeywords[] = {
    "alignas",     "alignof",  "and",        "and_eq",    "asm",       "auto",         "bitand",
    "bitor",       "bool",     "break",      "case",      "catch",     "char",         "char16_t",
    "char32_t",    "char8_t",  "class",      "co_await",  "co_return", "co_yield",     "compl",
    "concept",     "const",    "const_cast", "consteval", "constexpr", "constinit",    "continue",
    "decltype",    "default",  "delete",     "do",        "double",    "dynamic_cast", "else",
    "enum",        "explicit", "export",     "extern",    "false",     "float",        "for",
    "friend",      "goto",     "if",         "inline",    "int",       "long",         "mutable",
    "namespace",   "new",      "noexcept",   "not",       "not_eq",    "nullptr",      "operator",
    "or",          "or_eq",    "private",    "protected", "public",    "register",     "reinterpret_cast",
    "requires",    "return",   "short",      "signed",    "sizeof",    "static",       "static_assert",
    "static_cast", "struct",   "switch",     "template",  "this",      "thread_local", "throw",
    "true",        "try",      "typedef",    "typeid",    "typename",  "union",        "unsigned",
    "using",       "virtual",  "void",       "volatile",  "wchar_t",   "while",        "xor",
    "xor_eq",
};

constexpr bool IsDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

constexpr bool IsAsciiLetter(char32_t c) {
    return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

bool IsForeignLetter(char32_t c) {
    return std::ranges::any_of(kLetters, [c](Range const& r) { return c >= r.m_first && c <= r.m_last; });
}

std::string Spelt(char32_t c) {
    std::array<char, 12> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "u%04X", static_cast<unsigned>(c));
    return buffer.data();
}

NameScope MakeScope(std::initializer_list<char const*> names) {
    NameScope scope;
    for (char const* const name : names) scope.Add(name);
    return scope;
}

}  // namespace

std::string Camel(std::string_view name, bool onlyAscii) {
    std::string camel;
    bool startsWord = true;
    while (!name.empty()) {
        std::string_view const rest = name;
        char32_t const c = TakeCharacter(name);
        std::string_view const octets = rest.substr(0, rest.size() - name.size());
        if (IsDigit(c)) {
            if (camel.empty()) camel = "N";
            camel += octets;
            startsWord = false;
        } else if (IsAsciiLetter(c)) {
            bool const isSmall = c >= U'a';
            camel += startsWord && isSmall ? static_cast<char>(c - U'a' + U'A') : static_cast<char>(c);
            startsWord = false;
        } else if (c >= 0x80 && !onlyAscii && IsForeignLetter(c)) {
            camel += octets;
            startsWord = false;
        } else if (c >= 0x80 && IsNameStart(c)) {
            camel += Spelt(c);
            startsWord = false;
        } else {
            startsWord = true;
        }
    }
    // Names that begin with u and a number of four digits must not meet those that are spelt.
    return !camel.empty() && IsDigit(static_cast<unsigned char>(camel[0])) ? 'N' + camel : camel;
}

bool IsIdentifier(std::string_view name) {
    bool isFirst = true;
    for (std::string_view rest = name; !rest.empty(); isFirst = false) {
        char32_t const c = TakeCharacter(rest);
        bool const isLetter = IsAsciiLetter(c) || c == U'_' || IsForeignLetter(c);
        if (!isLetter && (isFirst || !IsDigit(c))) return false;
    }
    return !name.empty() && std::ranges::find(kKeywords, name) == std::end(kKeywords);
}

bool IsNamespaceName(std::string_view name) {
    for (std::size_t end = name.find("::"); end != name.npos; end = name.find("::")) {
        if (!IsIdentifier(name.substr(0, end))) return false;
        name.remove_prefix(end + 2);
    }
    return IsIdentifier(name);
}

bool IsMacro(std::string_view name) {
    static constexpr std::string_view kMacros[] = {
        "NULL",     "EOF",       "NAN",     "INFINITY", "TRUE",    "FALSE",  "DOMAIN",   "SING",
        "OVERFLOW", "UNDERFLOW", "PLOSS",   "TLOSS",    "BUFSIZ",  "EDOM",   "ERANGE",   "EILSEQ",
        "ERROR",    "CHAR_BIT",  "I",       "M_PI",     "M_E",     "HUGE",   "MAXFLOAT", "SIGINT",
        "SIGTERM",  "SIGILL",    "SIGABRT", "SIGFPE",   "SIGSEGV", "SIGHUP", "SIGKILL",  "SIGPIPE",
        "EPERM",    "ENOENT",    "EINTR",   "EIO",      "EBADF",   "EAGAIN", "ENOMEM",   "EACCES",
        "EBUSY",    "EEXIST",    "EINVAL",  "ENFILE",   "EMFILE",  "EFBIG",  "ENOSPC",   "EPIPE",
    };
    return std::ranges::find(kMacros, name) != std::end(kMacros);
}

std::string NameScope::Take(std::string const& name, std::string_view suffix) {
    auto const isFree = [this](std::string const& candidate) {
        return !Has(candidate) && !IsMacro(candidate);
    };
    std::string taken = name;
    if (!isFree(taken) && ((m_outer != nullptr && m_outer->Has(name)) || IsMacro(name))) taken = name + '_';
    if (!isFree(taken) && !suffix.empty()) taken = name + std::string(suffix);
    if (!isFree(taken)) {
        int& number = m_numbers.try_emplace(name, 2).first->second;
        do {
            taken = name + std::to_string(number++);
        } while (!isFree(taken));
    }
    Add(taken);
    return taken;
}

NameScope const& NamesOfObjects() {
    static NameScope const s_names = MakeScope({"AddRef",
                                                "Release",
                                                "ToXml",
                                                "ToXmlStream",
                                                "ToXmlFile",
                                                "ToFastInfosetStream",
                                                "ToFastInfosetFile",
                                                "FromXml",
                                                "FromXmlFile",
                                                "FromXmlStream",
                                                "FromXmlElement",
                                                "MsgType",
                                                "GetBase",
                                                "GetNamespace",
                                                "GetTargetNamespace",
                                                "OnEvent",
                                                "AttributesToXml_Int",
                                                "ToXml_Int",
                                                "FromXml_Int",
                                                "SetElementName",
                                                "GetElementName",
                                                "AccessProperty",
                                                "ResetContent",
                                                "GetClassInfo",
                                                "GetClassElementInfo",
                                                "GetClassAttributeInfo",
                                                "TestNamespace",
                                                "IsNamespaceValid",
                                                "DoesElementNameMatch",
                                                "ReadProperty",
                                                "CleanMetaData",
                                                "IsElementInList",
                                                "ProcessAttributesFromXml",
                                                "DoesElementContainOptionalElementCollections",
                                                "FireOnCollectionChangeEvent",
                                                "Clone",
                                                "Equals",
                                                "Validate",
                                                "Describe",
                                                "Load",
                                                "Parse",
                                                "Save",
                                                "ToText",
                                                "WritingContext",
                                                "FastInfosetContext",
                                                "XsiTyped",
                                                "CObject",
                                                "CGroup",
                                                "Bx",
                                                "Xs"});
    return s_names;
}

NameScope const& NamesOfNamespaces() {
    static NameScope const s_names =
        MakeScope({"Bx", "Xs", "BxXmlLib5", "kSet", "kTypes", "kAliases", "kTypeNames", "kSimpleTypes",
                   "kValues", "kFacets", "kTexts", "CObject", "CGroup"});
    return s_names;
}

}  // namespace BxGen
