// The command line of bxconvert.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "BxXmlLib5/core/Enumerations.h"

namespace BxConvert {

/// The name that stands for standard input or standard output.
inline constexpr char kStandardStream[] = "-";

enum class Form { kXml, kFastInfoset };

/// What becomes of white space beside the children of elements without other text.
enum class Layout { kAsItIs, kFormatted, kCompact };

struct Options {
    std::vector<std::string> m_inputs;
    std::string m_outputDir;  ///< empty if m_output is where to write
    std::string m_input;
    std::string m_output = kStandardStream;
    Form m_form = Form::kXml;
    BxXmlLib5::XmlEncoding m_encoding = BxXmlLib5::enc_UTF8;
    BxXmlLib5::FInfoDecl m_finfDeclaration = BxXmlLib5::fi_None;
    BxXmlLib5::CompressionType m_compression = BxXmlLib5::cmp_None;
    Layout m_layout = Layout::kAsItIs;
    std::optional<std::uint64_t> m_maxSize;  // octets of the input, after decompression
    bool m_declaration = true;
    bool m_namespaces = true;
    bool m_strict = false;
    bool m_info = false;
    bool m_help = false;
    bool m_version = false;
    BxXmlLib5::EOLType m_eol = BxXmlLib5::eol_LF;
};

/// @param arguments without the name of the program
/// @throws CommandLine::UsageError
Options ParseOptions(std::span<char const* const> arguments);

/// The options for each of the inputs, with m_input and m_output.
std::vector<Options> ForEachInput(Options const& options);

/// What --help prints.
std::string HelpText();

}  // namespace BxConvert
