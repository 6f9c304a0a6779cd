// The entry points that exchange a document.

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

unsigned char const* Data(std::string const& text) {
    return reinterpret_cast<unsigned char const*>(text.data());
}

std::string Inflated(std::string const& octets) {
    auto const content = Inflate({Data(octets), octets.size()});
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
    struct {
        bool m_declaration, m_formatted;
        XmlEncoding m_encoding;
        EOLType m_eol;
        std::string m_octets;
    } const rows[] = {
        {false, false, enc_UTF8, eol_LF, text},
        {false, true, enc_UTF8, eol_CRLF, broken},
        {true, false, enc_UTF16, eol_LF, Wide("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n" + text)},
        {true, true, enc_UTF16NoDeclaration, eol_CRLF, Wide("<?xml version=\"1.0\"?>\r\n" + broken)},
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
            mark + TextOf(object.ToXmlStream(true, true, encoding, eol_CRLF, kContext, cmp_None));
        object.ToXmlFile(path.c_str(), true, true, encoding, eol_CRLF, kContext, cmp_None);
        EXPECT_EQ(Content(ToUtf8(path)), octets);
        object.ToXmlFile(path.c_str(), true, true, encoding, eol_CRLF, kContext, cmp_GZip);
        EXPECT_EQ(Inflated(Content(ToUtf8(path))), octets);
    }
}

TEST(EntryPoints, FastInfosetBeginsWithItsDeclaration) {
    // A root with prefix and namespace as literals, and a child without, up to the end of the document.
    std::string const document =
        "<?xml version='1.0' encoding='finf'?>\xE0\0\0\1\0\x3F\1AA\x09urn:target\3echo\x3C\0a\xFF\xF0"s;
    TemporaryFolder const folder;
    std::string const path = folder.Path("file");
    Echo const object, large(kText);
    object.ToFastInfosetFile(FromUtf8(path).c_str(), fi_Version10, kContext, cmp_None);
    EXPECT_EQ(Content(path), document);
    EXPECT_EQ(object.m_context, &kContext);
    large.ToFastInfosetFile(FromUtf8(path).c_str(), fi_None, kContext, cmp_GZip);
    EXPECT_EQ(Inflated(Content(path)), TextOf(large.ToFastInfosetStream(fi_None, kContext, cmp_None)));
}

TEST(EntryPoints, WhatWasWrittenReadsBack) {
    TemporaryFolder const folder;
    Echo const object(kText);
    for (CompressionType const compression : {cmp_None, cmp_GZip, cmp_ZLib}) {
        std::vector<CBinaryData> written = {object.ToFastInfosetStream(fi_None, kContext, compression),
                                            object.ToFastInfosetStream(fi_Version11, kContext, compression)};
        for (XmlEncoding const encoding : kEncodings)
            written.push_back(object.ToXmlStream(true, false, encoding, eol_CRLF, kContext, compression));
        for (CBinaryData const& data : written) {
            Echo stream, file;
            stream.FromXmlStream(data, kContext);
            file.FromXmlFile(FromUtf8(folder.Write("file", TextOf(data))).c_str(), kContext);
            for (Echo const* copy : {&stream, &file}) {
                EXPECT_EQ(copy->m_read, kTree) << compression << TextOf(data).substr(0, 40);
                EXPECT_EQ(copy->m_context, &kContext);
            }
        }
    }
}

TEST(EntryPoints, FailuresOfWritingTouchNoFile) {
    TemporaryFolder const folder;
    std::string const noZLib = "CBxException: ZLIB Compression only available for To Stream methods.";
    std::string const noEncoding = "CBxException: Unknown Encoding, select UTF-8 or ask the vendor's support";
    std::string const fromObject = "CBxValidationException: from the object";
    struct {
        std::function<void(Echo&, char16_t const*)> m_call;
        std::string m_thrown;
    } const rows[] = {
        {[](auto& o, auto* f) { o.ToXmlFile(f, true, true, enc_UTF8, EOLType(9), kContext, cmp_ZLib); },
         noZLib},
        {[](auto& o, auto* f) { o.ToFastInfosetFile(f, fi_None, kContext, cmp_ZLib); }, noZLib},
        {[](auto& o, auto* f) { o.ToXmlFile(f, true, true, enc_UTF8, EOLType(9), kContext, cmp_None); },
         "CBxException: Invalid EOL type."},
        {[](auto& o, auto* f) { o.ToXmlFile(f, true, true, enc_Unspecified, eol_LF, kContext, cmp_None); },
         noEncoding},
        {[](auto& o, auto*) { o.ToXmlStream(false, true, XmlEncoding(4), eol_LF, kContext, cmp_ZLib); },
         noEncoding},
        {[](auto& o, auto* f) { o.ToXmlFile(f, false, false, enc_UTF8, eol_LF, kContext, cmp_GZip); },
         "CBxException: Failed to compress data. [Error Code: 0]"},
        {[](auto& o, auto* f) {
             o.m_failure = u"from the object";
             o.ToXmlFile(f, false, false, enc_UTF8, eol_LF, kContext, cmp_None);
         },
         fromObject},
        {[](auto& o, auto* f) {
             o.m_failure = u"from the object";
             o.ToFastInfosetFile(f, fi_None, kContext, cmp_None);
         },
         fromObject},
        {[](auto& o, auto* f) {
             o.m_staysOpen = true;
             o.ToXmlFile(f, true, false, enc_UTF8, eol_LF, kContext, cmp_None);
         },
         "CBxException: An Element has not been closed."},
        {[](auto& o, auto*) {
             o.m_staysOpen = true;
             o.ToFastInfosetStream(fi_None, kContext, cmp_None);
         },
         "CBxException: An Element has not been closed."},
        {[](auto& o, auto*) {  // without the declaration nobody asks
             o.m_staysOpen = true;
             o.ToXmlStream(false, false, enc_UTF8, eol_LF, kContext, cmp_None);
         },
         "nothing"},
        {[](auto& o, auto*) { o.ToXmlFile(u"/none/f", true, true, enc_UTF8, eol_LF, kContext, cmp_None); },
         "CBxException: Failed to write data to the file [/none/f] error [0x00000002]"},
    };
    for (auto const& row : rows) {
        std::string const path = folder.Write("old", "old");
        Echo object;
        EXPECT_EQ(Thrown([&] { row.m_call(object, FromUtf8(path).c_str()); }), row.m_thrown);
        EXPECT_EQ(Content(path), "old") << row.m_thrown;
    }
}

TEST(EntryPoints, ReadTheRoot) {
    TemporaryFolder const folder;
    CXmlSerializationContext context;
    context.SetSchemaType(st_NoNamespaces);
    auto const expect = [&](std::string const& text, std::string const& read, std::string const& thrown) {
        std::function<void(Echo&)> const ways[] = {
            [&](Echo& object) { object.FromXml(text.c_str(), context); },
            [&](Echo& object) { object.FromXml(FromUtf8(text).c_str(), context); },
            [&](Echo& object) { object.FromXmlStream(Data(text), text.size(), context); },
            [&](Echo& object) { object.FromXmlFile(FromUtf8(folder.Write("file", text)).c_str(), context); }};
        for (auto const& way : ways) {
            Echo object;
            EXPECT_EQ(Thrown([&] { way(object); }), thrown);
            EXPECT_EQ(object.m_read, read);
            EXPECT_EQ(object.m_context == &context, thrown == "nothing");
        }
    };
    expect("<p:a xmlns:p='u'>é<b/></p:a>", "p:a@xmlns:p=u'é'(b)", "nothing");
    expect("<a>\n</b>", "unread", "CBxException: mismatched tag at line 2");
    expect("<bad/>", "unread", "CBxInvalidValueException: no value");
    Echo object;
    EXPECT_BX_THROW((object.FromXmlStream(CBinaryData(u""), context), 0), CBxException,
                    "XML Stream is empty!");
    CXmlDocument document;
    document.LoadXml("<a><b><c/></b></a>");
    object.FromXmlElement(document.GetDocumentElement()->GetFirstElement(), context);
    EXPECT_EQ(object.m_read, "b(c)");
    EXPECT_EQ(object.m_context, &context);
}

TEST(EntryPoints, AnElementIsMadeOfAnObject) {
    Echo object(kText), copy;
    CElement element(&object);
    EXPECT_NE(object.m_context, &CXmlSerializationContext::GetDefaultContext());
    copy.FromXml(element.ToXml(false, false, eol_LF, kContext).c_str(), kContext);
    EXPECT_EQ(copy.m_read, kTree);
    EXPECT_EQ(element.GetName() + u" " + element.GetNamespace(), u"echo urn:target");
    // Neither the element nor what hangs on it is bound to a namespace.
    element.GetAttributes()->Add(u"any", u"", u"v");
    element.GetChildElements()->Add(u"any", u"w");
    object.m_failure = u"from the object";
    EXPECT_BX_THROW(CElement(&object), CBxValidationException, "from the object");
}
