// The entry points that exchange a document as octets or as a file.

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "document/Inflate.h"
#include "document/Trees.h"

using namespace BxTest;
using namespace std::string_literals;

namespace {

std::string TextOf(CBinaryData const& data) {
    return {data.GetOctets().begin(), data.GetOctets().end()};
}

std::string Content(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Inflated(std::string const& octets) {
    auto const content = Inflate({reinterpret_cast<unsigned char const*>(octets.data()), octets.size()});
    return content ? std::string(content->begin(), content->end()) : "no stream";
}

/// UTF-16, low octet first, of a text in UTF-8.
std::string Wide(std::string const& text) {
    std::string octets;
    for (char16_t const unit : FromUtf8(text))
        octets.append({static_cast<char>(unit), static_cast<char>(unit >> 8)});
    return octets;
}

/// Writes untyped content under its own target namespace, and notes what it is asked to read.
struct Echo : CXmlObjectBase {
    explicit Echo(std::string const& content = "<a/>") : m_content(u"") {
        m_content.FromXml(FromUtf8(content).c_str());
    }
    CXmlObjectBase* GetBase() override { return this; }
    wstring GetNamespace() const override { return u"other"; }
    wstring GetTargetNamespace() const override { return u"urn:target"; }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char16_t const* namespaceUri,
                   CXmlSerializationContext const& context, bool allowEmptyChoice) const override {
        ++m_writes;
        m_context = &context;
        EXPECT_TRUE(isRoot && !allowEmptyChoice);
        if (m_failure != nullptr) throw CBxValidationException(m_failure);
        writer->WriteStartElement(u"echo", namespaceUri);
        CXmlObjectBase::ToXml_Int(&m_content, writer, false, u"", context, false);
        if (!m_staysOpen) writer->WriteEndElement();
    }
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* firstChild,
                             CXmlSerializationContext const& context, bool allowEmptyChoice) override {
        EXPECT_TRUE(firstChild == element->GetFirstElement() && !allowEmptyChoice);
        if (element->GetLocalName() == u"bad") throw CBxInvalidValueException(u"no value");
        m_read = Dump(element);
        m_context = &context;
        return firstChild;
    }

    CElement m_content;
    char16_t const* m_failure = nullptr;
    bool m_staysOpen = false;
    mutable int m_writes = 0;
    std::string m_read = "unread";
    mutable CXmlSerializationContext const* m_context = nullptr;
};

CXmlSerializationContext const kContext;

/// A document that shrinks, with what an encoding can get wrong, and its tree.
std::string const kText = "<p:b xmlns:p='u' p:k='é&amp;' l=''>" + Repeat("€𝄞 &lt; ", 20) + "</p:b>";
std::string const kTree = "{urn:target}echo({u}b@{u}k=é&@l='" + Repeat("€𝄞 < ", 20) + "')";

constexpr XmlEncoding kEncodings[] = {enc_UTF8, enc_UTF16, enc_UTF16NoDeclaration};

}  // namespace

TEST(EntryPoints, ToXmlStreamEncodesTheText) {
    std::string const text = "<AA:echo xmlns:AA=\"urn:target\"><a>é€𝄞</a></AA:echo>";
    std::string const broken = "<AA:echo xmlns:AA=\"urn:target\">\r\n\t<a>é€𝄞</a>\r\n</AA:echo>\r\n";
    auto const declared = [](std::string const& encoding) {
        return "<?xml version=\"1.0\"" + encoding + "?>";
    };
    struct {
        bool m_declaration, m_formatted;
        XmlEncoding m_encoding;
        EOLType m_eol;
        std::string m_octets;
    } const rows[] = {
        {false, false, enc_UTF8, eol_LF, text},
        {true, false, enc_UTF8, eol_LF, declared(" encoding=\"UTF-8\"") + "\n" + text},
        {true, true, enc_UTF8, eol_CRLF, declared(" encoding=\"UTF-8\"") + "\r\n" + broken},
        {false, false, enc_UTF16, eol_LF, Wide(text)},
        {true, false, enc_UTF16, eol_LF, Wide(declared(" encoding=\"UTF-16\"") + "\n" + text)},
        {true, true, enc_UTF16NoDeclaration, eol_CRLF, Wide(declared("") + "\r\n" + broken)},
    };
    for (auto const& row : rows) {
        Echo const object("<a>é€𝄞</a>");
        EXPECT_EQ(TextOf(object.ToXmlStream(row.m_declaration, row.m_formatted, row.m_encoding, row.m_eol,
                                            kContext, cmp_None)),
                  row.m_octets);
        EXPECT_EQ(object.m_context, &kContext);
    }
}

TEST(EntryPoints, FilesOfUtf16BeginWithAByteOrderMark) {
    TemporaryFolder const folder;
    wstring const path = FromUtf8(folder.Path("é𝄞.xml"));
    Echo const object(kText);
    for (XmlEncoding const encoding : kEncodings) {
        std::string const mark = encoding == enc_UTF8 ? "" : "\xFF\xFE";
        std::string const octets =
            mark + TextOf(object.ToXmlStream(true, true, encoding, eol_LF, kContext, cmp_None));
        object.ToXmlFile(path.c_str(), true, true, encoding, eol_LF, kContext, cmp_None);
        EXPECT_EQ(Content(ToUtf8(path)), octets);
        object.ToXmlFile(path.c_str(), true, true, encoding, eol_LF, kContext, cmp_GZip);
        EXPECT_TRUE(Content(ToUtf8(path)).starts_with("\x1F\x8B"));
        EXPECT_EQ(Inflated(Content(ToUtf8(path))), octets);
    }
}

TEST(EntryPoints, FastInfosetBeginsWithItsDeclaration) {
    std::string const declarations[] = {
        "",
        "<?xml encoding='finf'?>",
        "<?xml encoding='finf' standalone='yes'?>",
        "<?xml encoding='finf' standalone='no'?>",
        "<?xml version='1.0' encoding='finf'?>",
        "<?xml version='1.0' encoding='finf' standalone='yes'?>",
        "<?xml version='1.0' encoding='finf' standalone='no'?>",
        "<?xml version='1.1' encoding='finf'?>",
        "<?xml version='1.1' encoding='finf' standalone='yes'?>",
        "<?xml version='1.1' encoding='finf' standalone='no'?>",
    };
    // A root with prefix and namespace as literals, and a child without, up to the end of the document.
    std::string const document = "\xE0\0\0\1\0\x3F\1AA\x09urn:target\3echo\x3C\0a\xFF\xF0"s;
    TemporaryFolder const folder;
    std::string const path = folder.Path("file");
    for (int i = 0; i < 10; ++i) {
        Echo object;
        auto const declaration = static_cast<FInfoDecl>(i);
        std::string const octets = TextOf(object.ToFastInfosetStream(declaration, kContext, cmp_None));
        EXPECT_EQ(octets, declarations[i] + document);
        EXPECT_EQ(object.m_context, &kContext);
        object.ToFastInfosetFile(FromUtf8(path).c_str(), declaration, kContext, cmp_None);
        EXPECT_EQ(Content(path), octets);
    }
    Echo large(kText);
    large.ToFastInfosetFile(FromUtf8(path).c_str(), fi_None, kContext, cmp_GZip);
    EXPECT_TRUE(Content(path).starts_with("\x1F\x8B"));
    EXPECT_EQ(Inflated(Content(path)), TextOf(large.ToFastInfosetStream(fi_None, kContext, cmp_None)));
}

TEST(EntryPoints, WhatWasWrittenReadsBack) {
    TemporaryFolder const folder;
    wstring const path = FromUtf8(folder.Path("file"));
    Echo const object(kText);
    auto const expectFile = [&](std::string const& what) {
        Echo copy;
        copy.FromXmlFile(path.c_str(), kContext);
        EXPECT_EQ(copy.m_read, kTree) << what;
        EXPECT_EQ(copy.m_context, &kContext);
    };
    auto const expectStream = [&](CBinaryData const& data, std::string const& what) {
        Echo copy, copyOfOctets;
        copy.FromXmlStream(data, kContext);
        copyOfOctets.FromXmlStream(data.GetData(), data.GetLength(), kContext);
        EXPECT_EQ(copy.m_read, kTree) << what;
        EXPECT_EQ(copyOfOctets.m_read, kTree) << what;
    };
    for (CompressionType const compression : {cmp_None, cmp_GZip, cmp_ZLib}) {
        std::string const compressed = "compression " + std::to_string(compression);
        for (XmlEncoding const encoding : kEncodings) {
            std::string const what = compressed + ", encoding " + std::to_string(encoding);
            for (bool const declared : {false, true})
                expectStream(object.ToXmlStream(declared, false, encoding, eol_CRLF, kContext, compression),
                             what);
            if (compression == cmp_ZLib) continue;
            object.ToXmlFile(path.c_str(), true, false, encoding, eol_CRLF, kContext, compression);
            expectFile(what);
        }
        for (int i = 0; i < 10; ++i) {
            std::string const what = compressed + ", declaration " + std::to_string(i);
            auto const declaration = static_cast<FInfoDecl>(i);
            expectStream(object.ToFastInfosetStream(declaration, kContext, compression), what);
            if (compression == cmp_ZLib) continue;
            object.ToFastInfosetFile(path.c_str(), declaration, kContext, compression);
            expectFile(what);
        }
    }
}

TEST(EntryPoints, ReadingTakesTheKindOfSchemaFromTheContext) {
    CXmlSerializationContext context;
    context.SetSchemaType(st_NoNamespaces);
    std::string const text = "<p:a xmlns:p='u'/>";
    TemporaryFolder const folder;
    Echo stream, file;
    stream.FromXmlStream(reinterpret_cast<unsigned char const*>(text.data()), text.size(), context);
    file.FromXmlFile(FromUtf8(folder.Write("file", text)).c_str(), context);
    for (Echo const* object : {&stream, &file}) EXPECT_EQ(object->m_read, "p:a@xmlns:p=u");
}

TEST(EntryPoints, FailuresOfWritingTouchNoFile) {
    TemporaryFolder const folder;
    struct {
        std::function<void(Echo&, char16_t const*)> m_call;
        std::string m_thrown;
        int m_writes;
    } const rows[] = {
        {[](auto& o, auto* f) { o.ToXmlFile(f, true, true, enc_UTF8, eol_LF, kContext, cmp_ZLib); },
         "CBxException: ZLIB Compression only available for To Stream methods.", 0},
        {[](auto& o, auto* f) {
             o.ToXmlFile(f, true, true, enc_Unspecified, EOLType(9), kContext, cmp_ZLib);
         },
         "CBxException: ZLIB Compression only available for To Stream methods.", 0},
        {[](auto& o, auto* f) { o.ToXmlFile(f, true, true, enc_UTF8, EOLType(9), kContext, cmp_None); },
         "CBxException: Invalid EOL type.", 0},
        {[](auto& o, auto* f) { o.ToXmlFile(f, true, true, enc_Unspecified, eol_LF, kContext, cmp_None); },
         "CBxException: Unknown Encoding, select UTF-8 or ask the vendor's support", 1},
        {[](auto& o, auto* f) { o.ToXmlFile(f, false, true, XmlEncoding(4), eol_LF, kContext, cmp_GZip); },
         "CBxException: Unknown Encoding, select UTF-8 or ask the vendor's support", 1},
        {[](auto& o, auto*) { o.ToXmlStream(false, true, enc_Unspecified, eol_LF, kContext, cmp_None); },
         "CBxException: Unknown Encoding, select UTF-8 or ask the vendor's support", 1},
        {[](auto& o, auto*) { o.ToXmlStream(true, true, enc_Unspecified, eol_LF, kContext, cmp_ZLib); },
         "CBxException: Unknown Encoding, select UTF-8 or ask the vendor's support", 1},
        {[](auto& o, auto* f) { o.ToXmlFile(f, false, false, enc_UTF8, eol_LF, kContext, cmp_GZip); },
         "CBxException: Failed to compress data. [Error Code: 0]", 1},
        {[](auto& o, auto*) { o.ToXmlStream(false, false, enc_UTF8, eol_LF, kContext, cmp_ZLib); },
         "CBxException: Failed to compress data. [Error Code: 0]", 1},
        {[](auto& o, auto* f) {
             o.m_content.SetText(u"\xD800");
             o.ToXmlFile(f, false, false, enc_UTF8, eol_LF, kContext, cmp_None);
         },
         "CBxInvalidValueException: A text with half of a surrogate pair has no UTF-8 form", 1},
        {[](auto& o, auto* f) {
             o.m_failure = u"from the object";
             o.ToXmlFile(f, false, false, enc_UTF8, eol_LF, kContext, cmp_None);
         },
         "CBxValidationException: from the object", 1},
        {[](auto& o, auto* f) {
             o.m_staysOpen = true;
             o.ToXmlFile(f, true, false, enc_UTF8, eol_LF, kContext, cmp_None);
         },
         "CBxException: An Element has not been closed.", 1},
        {[](auto& o, auto* f) { o.ToFastInfosetFile(f, fi_None, kContext, cmp_ZLib); },
         "CBxException: ZLIB Compression only available for To Stream methods.", 0},
        {[](auto& o, auto* f) { o.ToFastInfosetFile(f, fi_None, kContext, cmp_GZip); },
         "CBxException: Failed to compress data. [Error Code: 0]", 1},
        {[](auto& o, auto* f) {
             o.m_content.SetText(u"\xD800");
             o.ToFastInfosetFile(f, fi_None, kContext, cmp_None);
         },
         "CBxInvalidValueException: A text with half of a surrogate pair has no UTF-8 form", 1},
        {[](auto& o, auto* f) {
             o.m_failure = u"from the object";
             o.ToFastInfosetFile(f, fi_None, kContext, cmp_None);
         },
         "CBxValidationException: from the object", 1},
        {[](auto& o, auto*) {
             o.m_staysOpen = true;
             o.ToFastInfosetStream(fi_None, kContext, cmp_None);
         },
         "CBxException: An Element has not been closed.", 1},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        std::string const old = folder.Write("old", "old");
        std::string const none = folder.Path("none");
        for (std::string const& path : {old, none}) {
            Echo object;
            EXPECT_EQ(Thrown([&] { rows[i].m_call(object, FromUtf8(path).c_str()); }), rows[i].m_thrown) << i;
            EXPECT_EQ(object.m_writes, rows[i].m_writes) << i;
        }
        EXPECT_EQ(Content(old), "old") << i;
        EXPECT_FALSE(std::filesystem::exists(none)) << i;
    }
    EXPECT_BX_THROW(Echo().ToXmlFile(u"/none/file", true, true, enc_UTF8, eol_LF, kContext, cmp_None),
                    CBxException, "Failed to write data to the file [/none/file] error [0x00000002]");
}

TEST(EntryPoints, WithoutTheDeclarationNobodyAsksWhetherElementsAreClosed) {
    Echo object;
    object.m_staysOpen = true;
    EXPECT_EQ(TextOf(object.ToXmlStream(false, false, enc_UTF8, eol_LF, kContext, cmp_None)),
              "<AA:echo xmlns:AA=\"urn:target\"><a/>");
}

TEST(EntryPoints, FailuresOfReading) {
    TemporaryFolder const folder;
    struct {
        std::string m_octets, m_thrown;
    } const rows[] = {
        {" ", "CBxException: Invalid or empty XML document"},
        {"<a>\n</b>", "CBxException: mismatched tag at line 2"},
        {"<bad/>", "CBxInvalidValueException: no value"},
    };
    for (auto const& row : rows) {
        Echo object;
        auto const* const data = reinterpret_cast<unsigned char const*>(row.m_octets.data());
        std::size_t const size = row.m_octets.size();
        CBinaryData copy;
        copy.SetBuffer(data, size);
        wstring const path = FromUtf8(folder.Write("file", row.m_octets));
        EXPECT_EQ(Thrown([&] { object.FromXmlStream(data, size, kContext); }), row.m_thrown);
        EXPECT_EQ(Thrown([&] { object.FromXmlStream(copy, kContext); }), row.m_thrown);
        EXPECT_EQ(Thrown([&] { object.FromXmlFile(path.c_str(), kContext); }), row.m_thrown);
        EXPECT_EQ(object.m_read, "unread");
    }
    Echo object;
    unsigned char const octet = '<';
    EXPECT_BX_THROW((object.FromXmlStream(CBinaryData(), kContext), 0), CBxException, "XML Stream is empty!");
    EXPECT_BX_THROW((object.FromXmlStream(CBinaryData(u""), kContext), 0), CBxException,
                    "XML Stream is empty!");
    EXPECT_BX_THROW((object.FromXmlStream(&octet, 0, kContext), 0), CBxException, "XML Stream is empty!");
    EXPECT_BX_THROW((object.FromXmlFile(u"/none", kContext), 0), CBxException,
                    "Failed to open the file [/none] Error [0x00000002]");
    EXPECT_BX_THROW((object.FromXmlFile(FromUtf8(folder.Write("empty", "")).c_str(), kContext), 0),
                    CBxException, "Invalid or empty XML document");
}

TEST(EntryPoints, AnElementIsMadeOfAnObject) {
    Echo object(kText);
    CElement element(&object);
    EXPECT_NE(object.m_context, &CXmlSerializationContext::GetDefaultContext());
    Echo copy;
    copy.FromXml(element.ToXml(false, false, eol_LF, kContext).c_str(), kContext);
    EXPECT_EQ(copy.m_read, kTree);
    EXPECT_EQ(element.GetName() + u" " + element.GetNamespace(), u"echo urn:target");
    // Neither the element nor what hangs on it is bound to a namespace.
    element.GetAttributes()->Add(u"any", u"", u"v");
    element.GetChildElements()->Add(u"any", u"w");
    object.m_failure = u"from the object";
    EXPECT_BX_THROW(CElement(&object), CBxValidationException, "from the object");
}
