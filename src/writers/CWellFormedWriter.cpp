#include "writers/CWellFormedWriter.h"

#include <algorithm>
#include <set>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "core/Limits.h"
#include "platform/StandardNamespaces.h"
#include "platform/TextView.h"
#include "platform/UnitScan.h"
#include "platform/Utf.h"
#include "platform/XmlCharacters.h"

namespace BxXmlLib5 {

namespace {

[[noreturn]] void ThrowCharacter(wstring const& where, char32_t c) {
    throw CBxInvalidValueException(FormatString(u"The %s has the character U+%04X, which cannot stand there",
                                                where.c_str(), static_cast<unsigned>(c)));
}

/// The code point at a position, which moves behind it; half of a surrogate pair stands for itself.
char32_t NextCharacter(std::u16string_view text, std::size_t& at) {
    char16_t const first = text[at];
    char32_t const c = Utf::Next(text, at);
    return c == Utf::kMalformed ? first : c;
}

/// Calls back with each character that is not accepted.
template <class Accepts, class Refuse>
void ForEachOther(std::u16string_view text, Accepts accepts, Refuse refuse) {
    for (std::size_t at = 0; at < text.size();) {
        char32_t const c = NextCharacter(text, at);
        if (!accepts(c)) refuse(c);
    }
}

/// @param where tells where the text stands
template <class Where>
void TestCharacters(std::u16string_view text, Where where) {
    auto const isUnusual = [](std::uint64_t units) {
        return UnitsBelow(units, 0x20) | UnitsFrom(units, 0xD800);
    };
    if (!HasUnit(text, isUnusual)) return;
    ForEachOther(text, IsXmlCharacter, [&where](char32_t c) { ThrowCharacter(where(), c); });
}

/// For text in which nothing can stand for a CR.
void TestVerbatim(std::u16string_view text, char16_t const* what) {
    auto const accepts = [](char32_t c) { return IsXmlCharacter(c) && c != '\r'; };
    ForEachOther(text, accepts, [what](char32_t c) { ThrowCharacter(what, c); });
}

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\n';
}

wstring Named(char16_t const* what, std::u16string_view name) {
    return FormatString(u"%s [%s]", what, wstring(name).c_str());
}

[[noreturn]] void ThrowMarkup(char16_t const* what, wstring const& text) {
    throw CBxInvalidStateException(
        FormatString(u"The %s [%s] would not leave the document well-formed", what, text.c_str()));
}

}  // namespace

CWellFormedWriter::CWellFormedWriter(CXmlWriter& writer, Unprefixed unprefixed)
    : CXmlWriter(u"CWellFormedWriter"), m_writer(writer), m_unprefixed(unprefixed) {}
CWellFormedWriter::~CWellFormedWriter() = default;

void CWellFormedWriter::TestEnd() const {
    if (!m_hasRoot) throw CBxInvalidStateException(u"The document has no root");
    ThrowIfOpen();
}

void CWellFormedWriter::ThrowIfOpen() const {
    if (m_open.empty()) return;
    throw CBxInvalidStateException(u"The " + Element() + u" is still open");
}

wstring CWellFormedWriter::Element() const {
    return Named(u"element", std::u16string_view(m_names).substr(m_open.empty() ? 0 : m_open.back()));
}

// Namespaces.

void CWellFormedWriter::SetDefaultNamespace(wstring const& namespaceUri) {
    ThrowIfOpen();  // it would not be declared
    if (!namespaceUri.empty()) TestNamespace(namespaceUri);
    m_defaultNamespace = Equal(namespaceUri, kXmlNamespace) ? wstring() : namespaceUri;
    m_writer.SetDefaultNamespace(namespaceUri);
}

void CWellFormedWriter::AddNamespace(wstring const& alias, wstring const& namespaceUri) {
    ThrowIfOpen();
    TestNamespace(namespaceUri);
    m_aliases.erase(namespaceUri);
    if (!alias.empty() && !Equal(namespaceUri, kXmlNamespace)) {
        TestName(alias, u"prefix");
        if (namespaceUri.empty() || alias == u"xml" || alias == u"xmlns") {
            throw CBxInvalidNamespaceException(FormatString(
                u"The prefix [%s] cannot stand for the namespace [%s]", alias.c_str(), namespaceUri.c_str()));
        }
        m_aliases[namespaceUri] = alias;
    }
    m_writer.AddNamespace(alias, namespaceUri);
}

void CWellFormedWriter::TestNamespace(std::u16string_view namespaceUri) {
    if (namespaceUri.empty() || Equal(namespaceUri, m_lastNamespace)) return;
    // Namespaces are not escaped, and Expat takes the bar for the end of one.
    auto const accepts = [](char32_t c) {
        constexpr std::u32string_view kOthers = U"&<\"|\t\n\r";
        return IsXmlCharacter(c) && kOthers.find(c) == kOthers.npos;
    };
    ForEachOther(namespaceUri, accepts,
                 [namespaceUri](char32_t c) { ThrowCharacter(Named(u"namespace", namespaceUri), c); });
    if (Equal(namespaceUri, kXmlnsNamespace) || namespaceUri.size() > kMaxNamespaceLength) {
        throw CBxInvalidNamespaceException(u"The " + Named(u"namespace", namespaceUri) +
                                           u" cannot be declared");
    }
    m_lastNamespace = namespaceUri;
}

void CWellFormedWriter::TestDeclarations() {
    std::set<std::u16string_view> aliases;
    for (auto const& [namespaceUri, alias] : m_aliases) {
        if (aliases.insert(alias).second) continue;
        throw CBxInvalidNamespaceException(
            FormatString(u"The prefix [%s] stands for more than one namespace", alias.c_str()));
    }
}

// Names.

/// @param what in messages
void CWellFormedWriter::TestName(std::u16string_view name, char16_t const* what) {
    if (IsAsciiNCName(name)) return;
    for (std::size_t at = 0; at < name.size();) {
        bool const isFirst = at == 0;
        char32_t const c = NextCharacter(name, at);
        if (c == u':' || !(isFirst ? IsNameStart(c) : IsNameCharacter(c)))
            ThrowCharacter(Named(what, name), c);
    }
    if (name.empty() || !IsReadAsName(name)) {
        throw CBxInvalidValueException(u"The " + Named(what, name) + u" is not read as a name");
    }
}

bool CWellFormedWriter::IsReadAsName(std::u16string_view name) {
    std::size_t const spread = name.size() + 3u * name.front() + 7u * name.back();
    wstring& known = m_readableNames[spread % m_readableNames.size()];
    if (Equal(known, name)) return true;
    CXmlDocument document;
    try {
        document.LoadXml((u"<" + wstring(name) + u"/>").c_str());
    } catch (CBxException const&) {
        return false;
    }
    known = name;
    return true;
}

// Elements and attributes.

void CWellFormedWriter::WriteStartElement(wstring const& name, wstring const& namespaceUri) {
    TestName(name, u"element");
    TestNamespace(namespaceUri);
    if (m_unprefixed == Unprefixed::kIsDefault && namespaceUri.empty() && !m_defaultNamespace.empty()) {
        throw CBxInvalidNamespaceException(u"The " + Named(u"element", name) +
                                           u" is in no namespace, but would come back in the default one");
    }
    if (m_open.empty()) {
        if (m_hasRoot)
            throw CBxInvalidStateException(u"The " + Named(u"element", name) + u" is a second root");
        TestDeclarations();
        m_hasRoot = true;
    }
    TestAttributes();
    m_writer.WriteStartElement(name, namespaceUri);
    m_open.push_back(m_names.size());
    m_names += name;
}

void CWellFormedWriter::WriteEndElement() {
    TestAttributes();
    m_writer.WriteEndElement();
    m_names.resize(m_open.back());
    m_open.pop_back();
}

void CWellFormedWriter::WriteText(wstring const& text) {
    TestCharacters(text, [this] { return u"text of the " + Element(); });
    m_writer.WriteText(text);
}

void CWellFormedWriter::WriteAttribute(wstring const& name, wstring const& namespaceUri,
                                       wstring const& value) {
    TestName(name, u"attribute");
    TestNamespace(namespaceUri);
    TestCharacters(value, [this, &name] { return Named(u"attribute", name) + u" of the " + Element(); });
    if (namespaceUri.empty() && name == u"xmlns") {
        throw CBxInvalidValueException(u"The " + Named(u"attribute", name) +
                                       u" would come back as a declaration");
    }
    m_writer.WriteAttribute(name, namespaceUri, value);
    AddAttribute(name, namespaceUri);
}

void CWellFormedWriter::WriteXsiType(wstring const& namespaceUri, wstring const& typeName) {
    TestName(typeName, u"type");
    TestNamespace(namespaceUri);
    if (namespaceUri.empty() && !m_defaultNamespace.empty()) {
        throw CBxInvalidNamespaceException(u"The " + Named(u"type", typeName) +
                                           u" is in no namespace, but would come back in the default one");
    }
    m_writer.WriteXsiType(namespaceUri, typeName);
    AddAttribute(u"type", kXsiNamespace);
}

void CWellFormedWriter::AddAttribute(std::u16string_view name, std::u16string_view namespaceUri) {
    if (m_attributeCount == m_attributes.size()) m_attributes.emplace_back();
    Attribute& attribute = m_attributes[m_attributeCount++];
    attribute.m_name = name;
    attribute.m_namespace = namespaceUri;
}

/// The attributes of the start tag that is open are complete.
void CWellFormedWriter::TestAttributes() {
    if (m_attributeCount > 1) {
        auto const end = m_attributes.begin() + static_cast<std::ptrdiff_t>(m_attributeCount);
        std::sort(m_attributes.begin(), end, [](Attribute const& a, Attribute const& b) {
            LessBySize const less;
            return less(a.m_name, b.m_name) ||
                   (!less(b.m_name, a.m_name) && less(a.m_namespace, b.m_namespace));
        });
        auto const twice =
            std::adjacent_find(m_attributes.begin(), end, [](Attribute const& a, Attribute const& b) {
                return Equal(a.m_name, b.m_name) && Equal(a.m_namespace, b.m_namespace);
            });
        if (twice != end) {
            throw CBxInvalidStateException(u"The " + Element() + u" has more than one attribute [" +
                                           twice->m_name + u"]");
        }
    }
    m_attributeCount = 0;
}

// What is written as it is.

void CWellFormedWriter::WriteComment(wstring const& text) {
    TestVerbatim(text, u"comment");
    if (text.find(u"--") != text.npos || text.ends_with(u'-')) ThrowMarkup(u"comment", text);
    m_writer.WriteComment(text);
}

void CWellFormedWriter::WriteProcessingInstruction(wstring const& text) {
    constexpr std::u16string_view kStart = u"<?", kEnd = u"?>";
    constexpr auto kWhat = u"processing instruction";
    TestVerbatim(text, kWhat);
    if (text.size() <= kStart.size() + kEnd.size() || !text.starts_with(kStart) ||
        text.find(kEnd) != text.size() - kEnd.size()) {
        ThrowMarkup(kWhat, text);
    }
    std::u16string_view const inside =
        std::u16string_view(text).substr(kStart.size(), text.size() - kStart.size() - kEnd.size());
    std::u16string_view const target(inside.begin(), std::find_if(inside.begin(), inside.end(), IsBlank));
    TestName(target, u"target of a processing instruction");
    bool const isXml = std::ranges::equal(target, std::u16string_view(u"xml"),
                                          [](char16_t a, char16_t b) { return (a | 0x20) == b; });
    if (isXml) ThrowMarkup(kWhat, text);
    m_writer.WriteProcessingInstruction(text);
}

void CWellFormedWriter::WriteInLineSchema(wstring const& text) {
    TestCharacters(text, [] { return wstring(u"in-line schema"); });
    TestInLineSchema(text);
    m_writer.WriteInLineSchema(text);
}

/// It stands in the root's start tag, so it has to be attributes, which are tried on one with the same declarations
/// and attributes.
void CWellFormedWriter::TestInLineSchema(wstring const& text) const {
    constexpr auto kWhat = u"in-line schema";
    wstring tag = u"<a";
    if (!m_defaultNamespace.empty()) tag += u" xmlns=\"" + m_defaultNamespace + u'"';
    for (auto const& [namespaceUri, alias] : m_aliases)
        tag += u" xmlns:" + alias + u"=\"" + namespaceUri + u'"';
    for (std::size_t i = 0; i < m_attributeCount; ++i) {
        Attribute const& attribute = m_attributes[i];
        auto const alias = m_aliases.find(attribute.m_namespace);
        wstring const prefix = alias == m_aliases.end() ? wstring() : alias->second + u':';
        if (attribute.m_namespace.empty() || !prefix.empty())
            tag += u' ' + prefix + attribute.m_name + u"=\"\"";
    }
    CXmlDocument document;
    try {
        document.LoadXml((tag + u' ' + text + u"/>").c_str());
    } catch (CBxException const& failure) {
        throw CBxInvalidStateException(
            u"The in-line schema, which stands in the root's start tag, would not leave it well-formed",
            failure);
    }
    bool const isSame =
        document.IsComplete() && Equal(document.GetDocumentElement()->GetNamespaceURI(), m_defaultNamespace);
    if (!isSame) ThrowMarkup(kWhat, text);
}

void CWellFormedWriter::WriteEndDocument() {
    m_writer.WriteEndDocument();
}

}  // namespace BxXmlLib5
