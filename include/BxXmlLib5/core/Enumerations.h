// The enumerations that the entry points take. Callers pass them as numbers, so the values are fixed; a value
// outside an enumeration is legal input.
#pragma once

#include <cstdint>

namespace BxXmlLib5 {

/// How names are matched on reading. A value that is not listed behaves like st_Default.
enum SchemaType : std::int32_t {
    st_Default = 0,       ///< Namespaces are honoured.
    st_NoNamespaces = 2,  ///< Documents are parsed without namespaces, and no comparison looks at one.
};

/// The line end of text output.
enum EOLType : std::int32_t {
    eol_CRLF = 0,  ///< carriage return and line feed
    eol_LF = 1,    ///< line feed
};

/// The encoding of text output.
enum XmlEncoding : std::int32_t {
    enc_Unspecified = 0,         ///< The declaration names no encoding; octets cannot be made.
    enc_UTF8 = 1,                ///< "UTF-8"
    enc_UTF16 = 2,               ///< "UTF-16", 16-bit units, low octet first.
    enc_UTF16NoDeclaration = 3,  ///< As enc_UTF16, but the declaration names no encoding.
};

/// How the text of a document is laid out. Line breaks would change the text of mixed content.
enum class Layout {
    Compact,   ///< as it stands, on one line
    Indented,  ///< a line for each element, indented by tabs
};

/// Compression of output octets.
enum CompressionType : std::int32_t {
    cmp_None = 0,  ///< the octets as they are
    cmp_GZip = 1,  ///< The gzip wrapper (RFC 1952).
    cmp_ZLib = 2,  ///< The zlib wrapper (RFC 1950); for streams only.
};

/// The XML declaration ahead of a Fast Infoset document (ITU-T X.891, 12.3).
enum FInfoDecl : std::int32_t {
    fi_None = 0,                    ///< none
    fi_Plain = 1,                   ///< `<?xml encoding='finf'?>`
    fi_StandaloneYes = 2,           ///< `<?xml encoding='finf' standalone='yes'?>`
    fi_StandaloneNo = 3,            ///< `<?xml encoding='finf' standalone='no'?>`
    fi_Version10 = 4,               ///< `<?xml version='1.0' encoding='finf'?>`
    fi_Version10StandaloneYes = 5,  ///< `<?xml version='1.0' encoding='finf' standalone='yes'?>`
    fi_Version10StandaloneNo = 6,   ///< `<?xml version='1.0' encoding='finf' standalone='no'?>`
    fi_Version11 = 7,               ///< `<?xml version='1.1' encoding='finf'?>`
    fi_Version11StandaloneYes = 8,  ///< `<?xml version='1.1' encoding='finf' standalone='yes'?>`
    fi_Version11StandaloneNo = 9,   ///< `<?xml version='1.1' encoding='finf' standalone='no'?>`
};

}  // namespace BxXmlLib5
