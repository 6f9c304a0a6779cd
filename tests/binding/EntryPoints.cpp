// The entry points that exchange a document.

#include "BxXmlLib5/binding/CXmlSerializationContext.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "BxXmlLib5/values/CBinaryData.h"
#include "BxXmlLib5/writers/CXmlWriter.h"
#include "document/Inflate.h"
#include "document/Trees.h"
#include "support/Inert.h"
#include "support/Octets.h"

using namespace BxTest;
using namespace std::string_literals;

namespace {

std::string Inflated(std::string const& octets) {
    auto const content = Inflate(AsOctets(octets));
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
struct Echo : Inert {
    explicit Echo(std::string const& content = "<a/>") : m_content(u"") {
        m_content.FromXml(FromUtf8(content).c_str());
    }
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
        EXPECT_EQ(AsText(object.ToXmlStream(row.m_declaration, row.m_formatted, row.m_encoding, row.m_eol,
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
            mark + AsText(object.ToXmlStream(true, true, encoding, eol_CRLF, kContext, cmp_None));
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
    EXPECT_EQ(Inflated(Content(path)), AsText(large.ToFastInfosetStream(fi_None, kContext, cmp_None)));
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
            file.FromXmlFile(FromUtf8(folder.Write("file", AsText(data))).c_str(), kContext);
            for (Echo const* copy : {&stream, &file}) {
                EXPECT_EQ(copy->m_read, kTree) << compression << AsText(data).substr(0, 40);
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
    std::string const isOpen = "CBxException: An Element has not been closed.";
    EOLType const unknown = EOLType(9);
    enum { kNone, kThrows, kStaysOpen };
    struct {
        bool m_isText, m_declares;
        XmlEncoding m_encoding;
        EOLType m_eol;
        CompressionType m_compression;
        int m_trouble;
        std::string m_thrown;
    } const rows[] = {
        {true, true, enc_UTF8, unknown, cmp_ZLib, kNone, noZLib},
        {false, true, enc_UTF8, eol_LF, cmp_ZLib, kNone, noZLib},
        {true, true, enc_UTF8, unknown, cmp_None, kNone, "CBxException: Invalid EOL type."},
        {true, true, enc_Unspecified, eol_LF, cmp_None, kNone, noEncoding},
        {true, false, XmlEncoding(4), eol_LF, cmp_None, kNone, noEncoding},
        {true, false, enc_UTF8, eol_LF, cmp_GZip, kNone,
         "CBxException: Failed to compress data. [Error Code: 0]"},
        {true, false, enc_UTF8, eol_LF, cmp_None, kThrows, fromObject},
        {false, true, enc_UTF8, eol_LF, cmp_None, kThrows, fromObject},
        {true, true, enc_UTF8, eol_LF, cmp_None, kStaysOpen, isOpen},
        {false, true, enc_UTF8, eol_LF, cmp_None, kStaysOpen, isOpen},
    };
    for (auto const& row : rows) {
        std::string const path = folder.Write("old", "old");
        Echo object;
        if (row.m_trouble == kThrows) object.m_failure = u"from the object";
        object.m_staysOpen = row.m_trouble == kStaysOpen;
        EXPECT_EQ(Thrown([&] {
                      if (row.m_isText)
                          object.ToXmlFile(FromUtf8(path).c_str(), row.m_declares, false, row.m_encoding,
                                           row.m_eol, kContext, row.m_compression);
                      else
                          object.ToFastInfosetFile(FromUtf8(path).c_str(), fi_None, kContext,
                                                   row.m_compression);
                  }),
                  row.m_thrown);
        EXPECT_EQ(Content(path), "old") << row.m_thrown;
    }
    Echo object;
    EXPECT_BX_THROW((object.ToFastInfosetFile(u"/none/f", fi_None, kContext, cmp_None), 0), CBxException,
                    "Failed to write data to the file [/none/f] error [0x00000002]");
    object.m_staysOpen = true;  // without the declaration nobody asks
    EXPECT_EQ(object.ToXmlStream(false, false, enc_UTF8, eol_LF, kContext, cmp_None).GetLength(), 35U);
}

TEST(EntryPoints, ReadTheRoot) {
    TemporaryFolder const folder;
    CXmlSerializationContext context;
    context.SetSchemaType(st_NoNamespaces);
    auto const expect = [&](std::string const& text, std::string const& read, std::string const& thrown) {
        std::function<void(Echo&)> const ways[] = {
            [&](Echo& object) { object.FromXml(text.c_str(), context); },
            [&](Echo& object) { object.FromXml(FromUtf8(text).c_str(), context); },
            [&](Echo& object) { object.FromXmlStream(AsOctets(text).data(), text.size(), context); },
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
    expect("<a>1<b", "a'1'", "nothing");
    context.SetRequireWholeDocument(true);
    expect("<a>1<b", "unread",
           "CBxException: The document ends inside the element [/a], which begins on line 1");
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
