// A reader of Fast Infoset as strict as the standard lets one be, for what the tests' subjects write.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace BxTest {

/// Where names may have prefixes that nothing declares, and bring their namespaces along.
enum class Undeclared { kRefused, kTaken };

/// Takes elements, attributes, namespace attributes and UTF-8 chunks, with neither declaration nor optional
/// components. Prefixes and namespaces of names are indices, of what a namespace attribute in scope binds; a name
/// without a namespace stands where there is no default one. It prints the document as
///
///     <{ns}name{ns}k=v ...>text</>      with each xsi:type that has a prefix as {ns}type
class CStrictFastInfoset {
public:
    /// The document as text, or what is wrong with it behind "! ".
    static std::string Read(std::span<unsigned char const> octets,
                            Undeclared undeclared = Undeclared::kRefused) {
        CStrictFastInfoset reader(octets, undeclared);
        try {
            reader.ReadDocument();
            return reader.m_text;
        } catch (std::runtime_error const& failure) {
            return "! " + std::string(failure.what()) + " at octet " + std::to_string(reader.m_at);
        }
    }

private:
    using Strings = std::vector<std::string>;
    /// Prefix, namespace and local name as indices, 0 for none.
    using Name = std::array<std::size_t, 3>;
    using Scope = std::map<std::size_t, std::size_t>;  // prefix, 0 for the default, to namespace

    CStrictFastInfoset(std::span<unsigned char const> octets, Undeclared undeclared)
        : m_octets(octets), m_undeclared(undeclared) {}

    static void Require(bool holds, char const* what) {
        if (!holds) throw std::runtime_error(what);
    }

    unsigned Peek() const {
        Require(m_at < m_octets.size(), "the end comes early");
        return m_octets[m_at];
    }
    unsigned Octet() {
        unsigned const octet = Peek();
        ++m_at;
        return octet;
    }
    std::size_t Octets(int count, std::size_t start = 0) {
        for (; count > 0; --count) start = start << 8 | Octet();
        return start;
    }

    /// C.25, C.27, C.28: an index whose form starts behind so many bits of its first octet.
    std::size_t Index(int bits) {
        unsigned const first = Octet() & (0xFFU >> bits);
        unsigned const small = 0x80U >> bits;  // the bit that is 0 in an index of one octet
        if ((first & small) == 0) return first + 1;
        unsigned const form = first & (small - 1);
        unsigned const half = small >> 1;
        std::size_t const base1 = small + 1;
        if (bits == 1) {
            return (form & half) == 0 ? Octets(1, form) + base1 : Octets(2, form & (half / 2 - 1)) + 8'257;
        }
        unsigned const quarter = half >> 1;
        if ((form & half) != 0) return Octets(3) + (bits == 2 ? 526'369 : 263'185);
        return (form & quarter) == 0 ? Octets(1, form) + base1
                                     : Octets(2, form & (quarter - 1)) + (bits == 2 ? 2'081 : 1'041);
    }

    /// C.22 to C.24: a length whose form starts behind so many bits.
    std::size_t Length(int bits) {
        unsigned const first = Octet() & (0xFFU >> bits);
        unsigned const small = 0x80U >> bits;
        if ((first & small) == 0) return first + 1;
        bool const isLong = (first & (small >> 1)) != 0;
        Require((first & (small - 1) & ~(small >> 1)) == 0, "a form of a length that there is not");
        return isLong ? Octets(4) + small + 257 : Octets(1) + small + 1;
    }

    std::string Text(std::size_t length) {
        Require(length <= m_octets.size() - m_at, "a string is longer than the document");
        std::string const text(m_octets.begin() + static_cast<std::ptrdiff_t>(m_at),
                               m_octets.begin() + static_cast<std::ptrdiff_t>(m_at + length));
        m_at += length;
        return text;
    }

    static std::string const& At(Strings const& table, std::size_t index) {
        Require(index <= table.size(), "an index beyond its table");
        return table[index - 1];
    }

    /// C.13: a literal enters the table.
    std::size_t Identifying(Strings& table) {
        if (Peek() < 0x80) {
            table.push_back(Text(Length(1)));
            return table.size();
        }
        std::size_t const index = Index(1);
        At(table, index);
        return index;
    }

    /// C.14
    std::string Value() {
        unsigned const first = Peek();
        if (first == 0xFF) return ++m_at, "";
        if (first >= 0x80) return At(m_values, Index(1));
        Require((first & 0x30) == 0, "a value that is not in UTF-8");
        std::string const text = Text(Length(4));
        if ((first & 0x40) != 0) m_values.push_back(text);
        return text;
    }

    /// C.7
    std::string Chunk() {
        unsigned const first = Peek();
        if ((first & 0x20) != 0) return At(m_chunks, Index(3));
        Require((first & 0x0C) == 0, "a chunk that is not in UTF-8");
        std::string const text = Text(Length(6));
        if ((first & 0x10) != 0) m_chunks.push_back(text);
        return text;
    }

    /// C.3, C.4: a name, whose form starts behind so many bits.
    Name QualifiedName(int bits, std::vector<Name>& names, bool isAttribute) {
        unsigned const literal = bits == 1 ? 0x78 : 0x3C;
        if ((Peek() & 0xFFU >> bits & ~3U) == literal) {
            unsigned const parts = Octet();
            Require((parts & 3) != 2, "a prefix without a namespace");
            Name name{};
            if ((parts & 2) != 0) name[0] = Part(m_prefixes);
            if ((parts & 1) != 0) name[1] = Part(m_namespaces);
            name[2] = Identifying(m_locals);
            names.push_back(name);
            return Checked(name, isAttribute);
        }
        std::size_t const index = Index(bits);
        Require(index <= names.size(), "an index of a name beyond its table");
        return Checked(names[index - 1], isAttribute);
    }

    std::size_t Part(Strings& table) {
        Require(Peek() >= 0x80 || m_undeclared == Undeclared::kTaken,
                "a prefix or namespace that is no index");
        return Identifying(table);
    }

    Name Checked(Name const& name, bool isAttribute) const {
        if (m_undeclared == Undeclared::kTaken) return name;
        if (isAttribute && name[0] == 0) {
            Require(name[1] == 0, "an attribute in a namespace without a prefix");
            return name;
        }
        auto const bound = m_scopes.back().find(name[0]);
        std::size_t const meant = bound == m_scopes.back().end() ? 0 : bound->second;
        Require(meant == name[1],
                name[0] == 0 ? "a default namespace that is not meant" : "a prefix not in scope");
        return name;
    }

    std::string Print(Name const& name) const {
        return (name[1] == 0 ? "" : "{" + At(m_namespaces, name[1]) + "}") + At(m_locals, name[2]);
    }

    std::string PrintValue(Name const& name, std::string const& value) const {
        std::size_t const colon = value.find(':'),
                          start = std::min(value.find_first_not_of(' '), value.size());
        bool const isType = Print(name) == "{http://www.w3.org/2001/XMLSchema-instance}type";
        if (!isType || colon == value.npos) return value;
        for (auto const& [prefix, uri] : m_scopes.back()) {
            if (prefix != 0 && At(m_prefixes, prefix) == value.substr(start, colon - start)) {
                return "{" + At(m_namespaces, uri) + "}" + value.substr(colon + 1);
            }
        }
        throw std::runtime_error("a type whose prefix is not in scope");
    }

    /// C.12
    void NamespaceAttributes() {
        Scope declared;
        for (; Peek() != 0xF0;) {
            unsigned const first = Octet();
            Require(first == 0xCC || first == 0xCD || first == 0xCF, "what is no namespace attribute");
            std::size_t const prefix = first == 0xCF ? Identifying(m_prefixes) : 0;
            std::size_t const uri = first == 0xCC ? 0 : Identifying(m_namespaces);
            Require(declared.emplace(prefix, uri).second, "a prefix is declared twice");
            for (auto const& [other, ignored] : declared) {
                Require(other == prefix || other == 0 || prefix == 0 ||
                            At(m_prefixes, other) != At(m_prefixes, prefix),
                        "a prefix is declared twice");
            }
        }
        ++m_at;
        for (auto const& [prefix, uri] : declared) m_scopes.back()[prefix] = uri;
    }

    /// C.3
    void Element() {
        m_scopes.push_back(m_scopes.back());
        unsigned const first = Peek();
        if ((first & 0x3F) == 0x38) {
            ++m_at;
            NamespaceAttributes();
            Require((Peek() & 0xC0) == 0, "bits ahead of a name");
        }
        m_text += '<' + Print(QualifiedName(2, m_elements, false));
        if ((first & 0x40) != 0) Attributes();
        m_text += '>';
        for (;;) {
            if (m_isTerminated) {
                m_isTerminated = false;
                break;
            }
            unsigned const next = Peek();
            if (next == 0xF0 || next == 0xFF) {
                ++m_at;
                m_isTerminated = next == 0xFF;
                break;
            }
            if (next < 0x80) {
                Element();
            } else {
                Require(next < 0xC0, "neither an element nor text");
                m_text += Chunk();
            }
        }
        m_text += "</>";
        m_scopes.pop_back();
    }

    void Attributes() {
        std::map<std::string, int> seen;
        Require(Peek() < 0x80, "no attribute where there should be one");
        while (Peek() < 0x80) {
            Name const name = QualifiedName(1, m_attributes, true);
            Require(++seen[Print(name)] == 1 || m_undeclared == Undeclared::kTaken,
                    "an attribute stands twice");
            std::string const value = Value();
            m_text += ' ' + Print(name) + '=' + PrintValue(name, value);
        }
        Require(Octet() == 0xF0, "the attributes do not end");
    }

    void ReadDocument() {
        for (unsigned const octet : {0xE0U, 0x00U, 0x00U, 0x01U, 0x00U})
            Require(Octet() == octet, "another header");
        Require(Peek() < 0x80, "no root");
        Element();
        if (!m_isTerminated) Require(Octet() == 0xF0, "the document does not end");
        Require(m_at == m_octets.size(), "octets behind the end");
    }

    std::span<unsigned char const> m_octets;
    Undeclared m_undeclared;
    std::size_t m_at = 0;
    bool m_isTerminated = false;  // the second half of an octet of two terminators is still to be taken
    std::string m_text;
    Strings m_prefixes{"xml"};
    Strings m_namespaces{"http://www.w3.org/XML/1998/namespace"};
    Strings m_locals, m_values, m_chunks;
    std::vector<Name> m_elements, m_attributes;
    std::vector<Scope> m_scopes{{{1, 1}}};
};

}  // namespace BxTest
