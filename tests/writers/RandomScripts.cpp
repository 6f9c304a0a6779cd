// Random calls of the writers against a small model of their rules.

#include <map>
#include <random>

#include "support/Expect.h"
#include "support/StrictFastInfoset.h"
#include "support/WriterScript.h"
#include "writers/CFastInfosetWriter.h"
#include "writers/CXmlTextWriter.h"

using namespace BxTest;
using namespace BxXmlLib5;

namespace {

std::string const kXml = Expand("XMLNS");
std::string const kXsi = Expand("XSI");

/// The rules, with whole maps of aliases for each element instead of changes.
class Model {
public:
    /// The document as text, and as the tree that Fast Infoset tells.
    std::string m_text, m_tree;

    bool IsOpen() const { return !m_open.empty(); }
    std::size_t Depth() const { return m_open.size(); }
    bool TakesAttributes() const { return IsOpen() && m_open.back().m_startTagOpen; }

    void SetDefaultNamespace(std::string const& uri) {
        (IsOpen() ? m_open.back().m_scope : m_root).m_default = uri;
    }
    void AddNamespace(std::string const& alias, std::string const& uri) {
        (IsOpen() ? m_open.back().m_scope : m_root).m_aliases[FromUtf8(uri)] = alias;
    }

    void Start(std::string const& uri, std::string const& name) {
        bool const isRoot = !IsOpen();
        if (!isRoot) {
            ++m_open.back().m_children;
            Close("\n");
        }
        m_open.push_back({isRoot ? m_root : m_open.back().m_scope, "", true, 0});
        std::string declared;
        std::string const prefix = IsDefault(uri) ? "" : Take(uri, declared) + ":";
        m_open.back().m_tag = prefix + name;
        m_text += Indentation() + "<" + m_open.back().m_tag + declared;
        if (isRoot && !m_root.m_default.empty() && m_root.m_default != kXml)
            Declare(m_text, "", m_root.m_default);
        if (isRoot) {
            for (auto const& [key, alias] : m_root.m_aliases) {
                if (!alias.empty() && ToUtf8(key) != kXml) Declare(m_text, ":" + alias, ToUtf8(key));
            }
        }
        m_tree += "<" + Expanded(uri, name);
        m_treeTagOpen = true;
    }
    void Attribute(std::string const& uri, std::string const& name, std::string const& value) {
        Attribute(uri, name, value, value);
    }
    void XsiType(std::string const& uri, std::string const& type) {
        if (IsDefault(uri)) return Attribute(kXsi, "type", type);
        std::string declared;
        std::string const prefix = Take(uri, declared);
        m_text += declared.empty() ? "" : declared + " ";
        Attribute(kXsi, "type", prefix + ":" + type, Expanded(uri, type));
    }
    void Text(std::string const& text) {
        if (IsOpen()) CloseInTree();
        if (text.empty()) return;
        Close("");
        m_text += text;
        m_tree += text;
    }
    void End() {
        Element const& element = m_open.back();
        m_text += element.m_startTagOpen
                      ? "/>\n"
                      : (element.m_children > 0 ? Indentation() : "") + "</" + element.m_tag + ">\n";
        CloseInTree();
        m_tree += "</>";
        m_open.pop_back();
    }

private:
    struct Scope {
        std::map<wstring, std::string> m_aliases;
        std::string m_default;
    };
    struct Element {
        Scope m_scope;
        std::string m_tag;
        bool m_startTagOpen;
        int m_children;
    };

    static std::string Expanded(std::string const& uri, std::string const& name) {
        return uri.empty() ? name : "{" + uri + "}" + name;
    }
    static void Declare(std::string& text, std::string const& prefix, std::string const& uri) {
        text += " xmlns" + prefix + "=\"" + uri + "\"";
    }

    std::string Indentation() const { return std::string(m_open.size() - 1, '\t'); }
    bool IsDefault(std::string const& uri) const {
        return uri.empty() || (uri == m_open.back().m_scope.m_default && uri != kXml);
    }
    std::string Take(std::string const& uri, std::string& declared) {
        if (uri == kXml) return "xml";
        auto& aliases = m_open.back().m_scope.m_aliases;
        std::string& alias = aliases[FromUtf8(uri)];
        auto const isUsed = [&aliases](std::string const& prefix) {
            for (auto const& entry : aliases) {
                if (entry.second == prefix) return true;
            }
            return false;
        };
        if (alias.empty()) {
            std::string made = "AA";
            while (isUsed(made)) ++made[1];
            alias = made;
            Declare(declared, ":" + alias, uri);
        }
        return alias;
    }
    void Attribute(std::string const& uri, std::string const& name, std::string const& value,
                   std::string const& meant) {
        std::string declared;
        std::string const prefix = uri.empty() ? "" : Take(uri, declared) + ":";
        m_text += declared + " " + prefix + name + "=\"" + value + "\"";
        m_tree += " " + Expanded(uri, name) + "=" + meant;
    }
    void Close(std::string const& lineEnd) {
        CloseInTree();
        if (m_open.back().m_startTagOpen) m_text += ">" + lineEnd;
        m_open.back().m_startTagOpen = false;
    }
    void CloseInTree() {
        if (m_treeTagOpen) m_tree += ">";
        m_treeTagOpen = false;
    }

    Scope m_root;
    std::vector<Element> m_open;
    bool m_treeTagOpen = false;
};

enum class Format { kText, kFastInfoset };

/// Calls by chance, applied to the model as well. Fast Infoset has a single root, and a prefix for each namespace,
/// since it declares more of them.
class Script {
public:
    Script(unsigned seed, Format format) : m_random(seed), m_isText(format == Format::kText) {
        for (int i = Below(4); i > 0; --i) Namespace();
        Start();
        for (int i = 0; i < 40 && (m_isText || m_model.IsOpen()); ++i) Step();
        while (m_model.IsOpen()) End();
        Add(".");
    }

    std::string m_calls;
    Model m_model;

private:
    int Below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    std::string OneOf(std::vector<std::string> const& texts) {
        return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
    }
    std::string Uri() { return OneOf({"", "N", "N", "M", "L", "\uFFFD", "\U00010000", kXml, kXsi}); }
    void Add(std::string const& call) { m_calls += call + " "; }

    void Namespace() {
        std::string const uri = OneOf({"N", "M", "L", "\uFFFD", "\U00010000", kXml, kXsi});
        if (Below(3) == 0) {
            Add("*" + uri);
            return m_model.SetDefaultNamespace(uri);
        }
        std::string const alias = m_isText ? OneOf({"p", "q", "AA", "AB", ""})
                                           : OneOf({"p" + std::to_string(uri.size()) + uri[0], ""});
        Add("+" + alias + "=" + uri);
        m_model.AddNamespace(alias, uri);
    }
    void Start() {
        std::string const uri = Uri(), name = OneOf({"a", "b"});
        Add("<" + uri + "|" + name);
        m_model.Start(uri, name);
        m_takesAttributes = true;
    }
    void Attribute() {
        std::string const uri = Uri(), name = OneOf({"k", "l"}), value = OneOf({"v", ""});
        Add("@" + uri + "|" + name + "=" + value);
        m_model.Attribute(uri, name, value);
    }
    void Type() {
        std::string const uri = Uri();
        Add("^" + uri + "|T");
        m_model.XsiType(uri, "T");
    }
    void Text() {
        std::string const text = m_model.IsOpen() ? OneOf({"", "x", "longer"}) : "";
        Add("'" + text);
        m_model.Text(text);
        m_takesAttributes = m_takesAttributes && m_isText && text.empty();
    }
    void End() {
        Add(">");
        m_model.End();
        m_takesAttributes = false;
    }
    void Step() {
        int const what = Below(10);
        if (what < 2 && m_takesAttributes) return Attribute();
        if (what == 2 && m_takesAttributes) return Type();
        if (what == 3) return Text();
        if (what == 4) return Namespace();
        if (what < 8 && m_model.Depth() < 5) return Start();
        if (m_model.IsOpen()) End();
    }

    std::mt19937 m_random;
    bool m_isText;
    bool m_takesAttributes = false;
};

TEST(RandomScripts, GiveTheTextOfTheModel) {
    for (unsigned seed = 0; seed < 1'000; ++seed) {
        Script const script(seed, Format::kText);
        for (bool const formatting : {false, true}) {
            CXmlTextWriter writer;
            writer.SetFormatting(formatting);
            Write(writer, script.m_calls);
            std::string const& text = script.m_model.m_text;
            ASSERT_EQ(ToUtf8(writer.GetString()),
                      formatting ? text : Replaced(Replaced(text, "\n", ""), "\t", ""))
                << script.m_calls;
        }
    }
}

TEST(RandomScripts, GiveTheTreeOfTheModelAsFastInfoset) {
    for (unsigned seed = 0; seed < 1'000; ++seed) {
        Script const script(seed, Format::kFastInfoset);
        CFastInfosetWriter writer;
        writer.WriteStartDocument(fi_None);
        Write(writer, script.m_calls);
        CBinaryData const document = writer.TakeBinaryData();
        ASSERT_EQ(CStrictFastInfoset::Read(document.GetOctets(), Undeclared::kTaken), script.m_model.m_tree)
            << script.m_calls;
    }
}

}  // namespace
