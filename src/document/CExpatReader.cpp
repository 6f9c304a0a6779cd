#include "document/CExpatReader.h"

#include <algorithm>
#include <new>
#include <utility>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/core/FormatString.h"
#include "core/Limits.h"
#include "document/CConvertedSource.h"
#include "document/COctetSource.h"
#include "document/CUtf16Source.h"
#include "document/DocumentType.h"
#include "document/InputLimits.h"
#include "document/TextBeginning.h"
#include "platform/TextView.h"
#include "platform/XmlCharacters.h"

namespace BxXmlLib5 {

namespace {

constexpr char16_t const* kMarkDiffers =
    u"The text is UTF-8 by its byte order mark, but declares the encoding [%s]";

/// @param tag from its beginning
std::u16string_view ElementOf(std::u16string_view tag) {
    return tag.substr(1, tag.find_first_of(u" \t\r\n/>") - 1);
}

/// @param tag up to the equals sign of an attribute
std::u16string_view AttributeAtEnd(std::u16string_view tag) {
    tag = tag.substr(0, tag.find_last_not_of(kXmlSpace) + 1);
    return tag.substr(tag.find_last_of(kXmlSpace) + 1);
}

constexpr std::size_t kSlice = 64 * 1024;
constexpr std::size_t kRoomToConvert = 64;  // that sources of other encodings ask for

constexpr char16_t const* kUnknownEncoding = u"The system does not know the encoding [%s]";

}  // namespace

/// What Expat calls, with the reader as its user data.
struct CExpatReader::Callbacks {
    template <class Step>
    static void Run(void* userData, Step step) noexcept {
        auto* const reader = static_cast<CExpatReader*>(userData);
        if (reader->m_failure) return;
        try {
            step(*reader);
            if (reader->m_isPauseAsked) reader->PauseOutsideEntity();
        } catch (...) {
            reader->m_failure = std::current_exception();
            reader->m_failurePlace = reader->Place();
            XML_StopParser(reader->m_parser.get(), XML_FALSE);
        }
    }

    static void StartElement(void* userData, XML_Char const* name, XML_Char const** attributes) {
        Run(userData, [=](CExpatReader& reader) {
            reader.StartElement(Units(name), reinterpret_cast<char16_t const* const*>(attributes));
        });
    }

    static void EndElement(void* userData, XML_Char const*) {
        Run(userData, [](CExpatReader& reader) { reader.EndElement(); });
    }

    static void StartNamespace(void* userData, XML_Char const* prefix, XML_Char const* namespaceUri) {
        Run(userData,
            [=](CExpatReader& reader) { reader.DeclareNamespace(Units(prefix), Units(namespaceUri)); });
    }

    static void EndNamespace(void* userData, XML_Char const*) {
        static_cast<CExpatReader*>(userData)->m_tagNames.Forget();
    }

    static void Text(void* userData, XML_Char const* text, int length) {
        Run(userData, [=](CExpatReader& reader) {
            reader.AddText({Units(text), static_cast<std::size_t>(length)});
        });
    }

    static void Comment(void* userData, XML_Char const* text) {
        Run(userData, [=](CExpatReader& reader) {
            if (!reader.m_isInDocumentType) reader.m_receiver.AddComment(Units(text));
        });
    }

    static void Instruction(void* userData, XML_Char const* target, XML_Char const* content) {
        Run(userData, [=](CExpatReader& reader) {
            if (reader.m_isInDocumentType) return;
            reader.m_receiver.AddInstruction(Units(target), Units(content));
        });
    }

    static void SkippedEntity(void* userData, XML_Char const* name, int isParameterEntity) {
        if (isParameterEntity != 0) return;
        Run(userData, [=](CExpatReader& reader) { reader.SkipReference(Units(name)); });
    }

    static void XmlDeclaration(void* userData, XML_Char const*, XML_Char const*, int standalone) {
        static_cast<CExpatReader*>(userData)->m_standsAlone = standalone == 1;
    }

    static void DeclaredEncoding(void* userData, XML_Char const*, XML_Char const* encoding, int) {
        if (encoding == nullptr) return;
        Run(userData, [=](CExpatReader& reader) { reader.ConvertLatin1(Units(encoding)); });
    }

    static void StartDocumentType(void* userData, XML_Char const*, XML_Char const* systemId, XML_Char const*,
                                  int) {
        auto* const reader = static_cast<CExpatReader*>(userData);
        reader->m_hasDocumentType = true;
        reader->m_isInDocumentType = reader->m_details.m_markup;
        // Without another file, Expat refuses default values that refer to what is not declared.
        if (systemId == nullptr) reader->m_defaults.ReadNoValues();
        XML_SetDefaultHandlerExpand(reader->m_parser.get(), Declaration);
    }

    static void Declaration(void* userData, XML_Char const* text, int length) {
        Run(userData, [=](CExpatReader& reader) {
            reader.m_defaults.Add({Units(text), static_cast<std::size_t>(length)}, reader.m_entities);
        });
    }

    static void EndDocumentType(void* userData) {
        XML_SetDefaultHandlerExpand(static_cast<CExpatReader*>(userData)->m_parser.get(), nullptr);
        Run(userData, [](CExpatReader& reader) {
            if (reader.m_details.m_markup) reader.EndDocumentType();
        });
    }

    /// An entity in another file, which is not read.
    static int ExternalEntity(XML_Parser parser, XML_Char const*, XML_Char const*, XML_Char const*,
                              XML_Char const*) {
        XML_SetDefaultHandlerExpand(parser, Reference);
        XML_DefaultCurrent(parser);
        XML_SetDefaultHandlerExpand(parser, nullptr);
        return XML_STATUS_OK;
    }

    /// @param text from & to ;
    static void Reference(void* userData, XML_Char const* text, int length) {
        if (length < 3) return;
        Run(userData, [=](CExpatReader& reader) {
            reader.SkipReference({Units(text) + 1, static_cast<std::size_t>(length) - 2});
        });
    }

    static void Entity(void* userData, XML_Char const* name, int isParameterEntity, XML_Char const* value,
                       int length, XML_Char const*, XML_Char const*, XML_Char const*, XML_Char const*) {
        if (isParameterEntity != 0) return;
        Run(userData, [=](CExpatReader& reader) {
            std::u16string_view const text(Units(value),
                                           value == nullptr ? 0U : static_cast<std::size_t>(length));
            reader.m_entities.Declare(Units(name), text);
        });
    }

    static void Tag(void* userData, XML_Char const* text, int length) {
        Run(userData, [=](CExpatReader& reader) {
            reader.m_tag.append(Units(text), static_cast<std::size_t>(length));
        });
    }

    static int UnknownEncoding(void* userData, XML_Char const* name, XML_Encoding* encoding) {
        bool isFound = false;
        Run(userData, [=, &isFound](CExpatReader& reader) {
            isFound = reader.FindEncoding(Units(name), encoding->map);
        });
        encoding->data = nullptr;
        encoding->convert = nullptr;
        encoding->release = nullptr;
        return isFound ? XML_STATUS_OK : XML_STATUS_ERROR;
    }
};

CExpatReader::CExpatReader(CDocumentReceiver& receiver, DocumentMemory const& memory, SchemaType schemaType,
                           DocumentDetails details)
    : CInstanceMonitor(u"CExpatReader"),
      CDocumentReader(receiver, memory, details),
      m_schemaType(schemaType) {}
CExpatReader::~CExpatReader() = default;

void CExpatReader::Parse(std::span<unsigned char const> input) {
    m_mostOctetsOfToken = kMaxInputSize;
    m_octets = input.size();
    m_hasMark = HasByteOrderMark(input);
    auto const utf32 = Utf32Of(input);
    if (!utf32.empty()) return ParseConverted(utf32, input);
    auto const highOctet = CUtf16Source::HighOctet(input);
    m_isUtf16 = highOctet.has_value();
    if (!highOctet || !CUtf16Source::IsMisread(input, *highOctet)) return ParseAs(nullptr, input);
    // In UTF-16 Expat takes whatever unit follows the first half of a pair for the second, and some releases
    // lose the second half of one that ends a long text. It takes three signs for letters of names.
    CheckDeclaration(input);
    CMemorySource source(input);
    CUtf16Source utf8(source, *highOctet);
    std::vector<unsigned char> const octets = ReadAll(utf8);
    ParseAs(u"UTF-8", octets);
}

std::string_view CExpatReader::Utf32Of(std::span<unsigned char const> beginning) const {
    return m_details.m_systemEncodings ? CConvertedSource::Utf32(beginning) : std::string_view();
}

void CExpatReader::ParseConverted(std::string_view encoding, std::span<unsigned char const> input) {
    CMemorySource source(input);
    std::vector<unsigned char> const octets = ReadAll(*NewConvertedSource(encoding, source, input));
    ParseAs(u"UTF-8", octets);
}

/// @param beginning of the source
std::unique_ptr<COctetSource> CExpatReader::NewConvertedSource(std::string_view encoding,
                                                               COctetSource& source,
                                                               std::span<unsigned char const> beginning) {
    // Expat does not look at the declaration again, so that must be the same in both encodings.
    auto const declaration = DeclarationOf(beginning);
    std::vector<unsigned char> converted(4 * declaration.size() + 64);
    CEncoding known(encoding);
    if (!known.IsKnown()) {
        throw CBxException(MessageOf(XML_ERROR_UNKNOWN_ENCODING, 1),
                           CBxException(FormatString(kUnknownEncoding, FromUtf8(encoding).c_str())));
    }
    std::size_t const size = known.Convert(declaration, converted).m_written;
    if (Utf32Of(beginning).empty() && !std::ranges::equal(std::span(converted).first(size), declaration)) {
        throw CBxException(MessageOf(XML_ERROR_INCORRECT_ENCODING, 1));
    }
    return std::make_unique<CConvertedSource>(source, encoding);
}

/// The encoding from which a text has to be converted, by its declaration; empty if it need not be.
std::string CExpatReader::DeclaredEncoding(std::span<unsigned char const> beginning) {
    m_parser = NewParser(nullptr, m_schemaType);
    XML_SetUserData(m_parser.get(), this);
    XML_SetUnknownEncodingHandler(m_parser.get(), Callbacks::UnknownEncoding, this);
    if (m_details.m_exact) XML_SetXmlDeclHandler(m_parser.get(), Callbacks::DeclaredEncoding);
    ParsePart(m_parser.get(), DeclarationOf(beginning), kNotFinal);
    CheckParsed(true);
    return std::exchange(m_convertedEncoding, {});
}

/// In ISO-8859-1 Expat takes three signs for letters of names, which no other parser reads; and it believes the declaration
/// more than the mark.
void CExpatReader::ConvertLatin1(char16_t const* encoding) {
    if (!IsNamed(encoding, u"ISO-8859-1")) return;
    if (m_hasMark) throw CBxException(FormatString(kMarkDiffers, encoding));
    m_convertedEncoding = "ISO-8859-1";
}

/// Expat does not look at the declared encoding if it is told another one.
/// @param beginning of UTF-16
void CExpatReader::CheckDeclaration(std::span<unsigned char const> beginning) const {
    std::size_t const highOctet = *CUtf16Source::HighOctet(beginning);
    std::size_t end = 0;
    auto const isEnd = [&] {
        return beginning[end + highOctet] == 0 && beginning[end + 1 - highOctet] == '>';
    };
    while (end + 2 < beginning.size() && !isEnd()) end += 2;
    ExpatParser const parser = NewParser(nullptr, m_schemaType);
    if (!ParsePart(parser.get(), beginning.first(std::min(end + 2, beginning.size())), kNotFinal)) {
        ThrowError(parser.get(), m_hasMark);
    }
}

/// A final call is faster, since Expat counts the lines after any other. It refuses an input that breaks off, so
/// what it refuses is parsed anew.
void CExpatReader::ParseAs(char16_t const* encoding, std::span<unsigned char const> input) {
    MakeParser(encoding);
    std::optional const highOctet = encoding == nullptr ? CUtf16Source::HighOctet(input) : std::nullopt;
    m_lines = {input, highOctet};
    bool const parsed = ParsePart(m_parser.get(), input, kFinal);
    if (parsed || m_failure) return CheckParsed(parsed);
    if (!m_convertedEncoding.empty()) return ParseConverted(std::exchange(m_convertedEncoding, {}), input);
    Restart();
    m_lines = {input, highOctet};
    ParseOpen(encoding, input);
}

void CExpatReader::ParseOpen(char16_t const* encoding, std::span<unsigned char const> input) {
    MakeParser(encoding);
    CMemorySource source(input);
    m_octets = 0;
    while (ParseSlice(source)) {
    }
}

void CExpatReader::Start(CPeekedSource& source) {
    m_mostOctetsOfToken = kMaxOctetsOfToken;
    std::span const beginning = source.Beginning();
    m_hasMark = HasByteOrderMark(beginning);
    std::string encoding(Utf32Of(beginning));
    auto const highOctet = encoding.empty() ? CUtf16Source::HighOctet(beginning) : std::nullopt;
    m_isUtf16 = highOctet.has_value();
    if (highOctet) {
        CheckDeclaration(beginning);
        m_utf8 = std::make_unique<CUtf16Source>(source, *highOctet);
    } else {
        if (m_details.m_systemEncodings && encoding.empty()) encoding = DeclaredEncoding(beginning);
        if (!encoding.empty()) m_utf8 = NewConvertedSource(encoding, source, beginning);
    }
    m_source = m_utf8 ? m_utf8.get() : &source;
    if (m_details.m_octets) PrepareOctets(beginning);
    MakeParser(m_utf8 ? u"UTF-8" : nullptr);
}

void CExpatReader::PrepareOctets(std::span<unsigned char const> beginning) {
    auto const behind =
        m_utf8 ? std::nullopt : BehindDeclaration(NewParser(nullptr, m_schemaType).get(), beginning);
    m_details.m_octets = behind.has_value();
    if (!behind) return;
    m_untoldOctets = *behind;
    m_details.m_prefixes = m_details.m_markup = false;
}

bool CExpatReader::Read() {
    m_isPauseAsked = m_isPausedBehindSlice = false;
    if (std::exchange(m_isPaused, false)) CheckParsed(XML_ResumeParser(m_parser.get()) != XML_STATUS_ERROR);
    while (!m_isPaused && !m_isPausedBehindSlice && !m_isAtEnd) {
        if (!ParseSlice(*m_source)) FinishStream();
    }
    return m_isPaused || m_isPausedBehindSlice;
}

/// Inside of an entity, which only a document type has, there is no pausing.
bool CExpatReader::PauseBehindSlice() {
    (m_hasDocumentType ? m_isPauseAsked : m_isPausedBehindSlice) = true;
    return !m_hasDocumentType;
}

/// By the final call, whose failure can only mean that the input breaks off.
void CExpatReader::FinishStream() {
    m_isAtEnd = true;
    bool const parsed = ParsePart(m_parser.get(), {}, kFinal);
    if (m_failure) CheckParsed(false);
    if (!m_hasRoot) ThrowNoRoot();
    if (HasOpenElement()) throw CEndsInElement(CBxLocation({}, Place().m_line, Place().m_column));
    CheckParsed(parsed);
}

/// Expat, up to 2.6, forgets the rest of an entity that refers to the one in which it is stopped.
void CExpatReader::PauseOutsideEntity() {
    bool const isReference = XML_GetCurrentByteCount(m_parser.get()) > 0 && InputFromHere().starts_with('&');
    if (m_isPaused || isReference) return;
    m_isPaused = true;
    XML_StopParser(m_parser.get(), XML_TRUE);
}

DocumentPlace CExpatReader::Place() const {
    return m_tagPlace ? *m_tagPlace : PlaceIn(m_parser.get(), m_hasMark);
}

void CExpatReader::MakeParser(char16_t const* encoding) {
    m_parser = NewParser(encoding, m_schemaType);
    m_hasRoot = false;
    m_hasDocumentType = false;
    m_standsAlone = false;
    m_entities = CEntities();
    m_defaults = CAttributeDefaults();
    m_lastNamespace = nullptr;
    m_tagNames.Forget();
    m_noNamespace = &m_memory.m_names.InternText({});
    m_defaultedUnits = 0;
    m_mostDefaultedUnits = MaxRepeatedUnits(m_octets);
    XML_Parser const parser = m_parser.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Callbacks::StartElement, Callbacks::EndElement);
    XML_SetNamespaceDeclHandler(parser, Callbacks::StartNamespace, Callbacks::EndNamespace);
    if (!m_details.m_octets) XML_SetCharacterDataHandler(parser, Callbacks::Text);
    XML_SetEntityDeclHandler(parser, Callbacks::Entity);
    XML_SetSkippedEntityHandler(parser, Callbacks::SkippedEntity);
    XML_SetExternalEntityRefHandler(parser, Callbacks::ExternalEntity);
    XML_SetDoctypeDeclHandler(parser, Callbacks::StartDocumentType, Callbacks::EndDocumentType);
    XML_SetUnknownEncodingHandler(parser, Callbacks::UnknownEncoding, this);
    if (m_details.m_prefixes) XML_SetReturnNSTriplet(parser, XML_TRUE);
    if (m_details.m_markup) {
        XML_SetXmlDeclHandler(parser, Callbacks::XmlDeclaration);
        XML_SetCommentHandler(parser, Callbacks::Comment);
        XML_SetProcessingInstructionHandler(parser, Callbacks::Instruction);
    }
}

/// Expat copies what it is given, so it gets the input in slices. It scans a token that is not complete anew with the
/// next slice, which therefore is as long at least as what there is of the token.
/// @return false at the end of the input
bool CExpatReader::ParseSlice(COctetSource& source) {
    std::size_t const incomplete = static_cast<std::size_t>(m_octets - ByteIndex());
    if (incomplete > m_mostOctetsOfToken) {
        throw CBxException(
            FormatString(u"A tag, a comment or the like has more than %d octets, which is the limit",
                         static_cast<int>(m_mostOctetsOfToken)));
    }
    std::size_t const size = std::max(kSlice, incomplete + kRoomToConvert);
    XML_Parser const parser = m_parser.get();
    void* const room = XML_GetBuffer(parser, static_cast<int>(size));
    if (room == nullptr) throw std::bad_alloc();
    std::span const octets(static_cast<unsigned char*>(room), size);
    std::size_t count = source.Read(octets);
    for (std::size_t more = count; more > 0 && count < incomplete; count += more) {
        more = source.Read(octets.subspan(count));
    }
    if (count == 0) return false;
    m_octets += count;
    if (m_source != nullptr) KeepProlog(octets.first(count));
    if (m_details.m_octets) TellOctets(octets.first(count));
    m_mostDefaultedUnits = std::max(m_mostDefaultedUnits, MaxRepeatedUnits(m_octets));
    CheckParsed(XML_ParseBuffer(parser, static_cast<int>(count), kNotFinal) != XML_STATUS_ERROR);
    return true;
}

/// A document type makes Expat keep what it declares.
void CExpatReader::KeepProlog(std::span<unsigned char const> octets) {
    if (m_hasRoot) {
        if (!m_prolog.empty()) m_prolog = {};
    } else if (m_octets > m_mostOctetsOfToken) {
        throw CBxException(FormatString(u"The root does not come within %d octets, which is the limit",
                                        static_cast<int>(m_mostOctetsOfToken)));
    } else if (m_details.m_markup) {
        m_prolog.insert(m_prolog.end(), octets.begin(), octets.end());
    }
}

void CExpatReader::TellOctets(std::span<unsigned char const> octets) {
    std::size_t const untold = std::min(m_untoldOctets, octets.size());
    m_untoldOctets -= untold;
    if (untold < octets.size()) m_receiver.AddOctets(octets.subspan(untold));
}

void CExpatReader::CheckParsed(bool parsed) {
    if (!m_failure) {
        if (!parsed) ThrowError(m_parser.get(), m_hasMark, m_unknownEncoding);
        return;
    }
    try {
        std::rethrow_exception(m_failure);
    } catch (CBxException& failure) {
        SetPlace(failure, m_failurePlace);
        throw;
    }
}

CExpatReader::ExpandedName CExpatReader::SplitName(std::u16string_view expanded) {
    // A name is mostly in the namespace of the one before it, which is compared faster than the separator is
    // found.
    if (m_lastNamespace != nullptr) {
        std::size_t const size = m_lastNamespace->size();
        if (size < expanded.size() && expanded[size] == kSeparator &&
            Equal(expanded.substr(0, size), *m_lastNamespace))
            return SplitLocalName(*m_lastNamespace, expanded.substr(size + 1));
    }
    std::size_t const separator = expanded.find(kSeparator);
    if (separator == expanded.npos) return {m_memory.m_names.Intern(*m_noNamespace, expanded), {}};
    m_lastNamespace = &m_memory.m_names.InternText(expanded.substr(0, separator));
    return SplitLocalName(*m_lastNamespace, expanded.substr(separator + 1));
}

/// @param local with the prefix behind it, if prefixes are asked for and there is one
CExpatReader::ExpandedName CExpatReader::SplitLocalName(wstring const& namespaceUri,
                                                        std::u16string_view local) {
    std::size_t const separator = m_details.m_prefixes ? local.find(kSeparator) : local.npos;
    if (separator == local.npos) return {m_memory.m_names.Intern(namespaceUri, local), {}};
    return {m_memory.m_names.Intern(namespaceUri, local.substr(0, separator)), local.substr(separator + 1)};
}

/// From the beginning of the event that Expat tells, as far as Expat has it; nothing if it does not say.
std::string_view CExpatReader::InputFromHere() const {
    int offset = 0, size = 0;
    char const* const context = XML_GetInputContext(m_parser.get(), &offset, &size);
    if (context == nullptr) return {};
    return {context + offset, static_cast<std::size_t>(size - offset)};
}

CExpatReader::ExpandedName CExpatReader::ElementName(char16_t const* expanded) {
    // Expat tells neither the tag of an element that an entity stands for nor, without the expanded name, a
    // prefix.
    if (m_hasDocumentType || m_details.m_prefixes) return SplitName(expanded);
    std::string_view const tag = InputFromHere();
    if (tag.empty()) return SplitName(expanded);
    CTagNames::Entry* const known = m_tagNames.Find(tag);
    if (known == nullptr) return SplitName(expanded);
    if (known->m_name == nullptr) known->m_name = &SplitName(expanded).m_name;
    return {*known->m_name, {}};
}

void CExpatReader::StartElement(char16_t const* name, char16_t const* const* attributes) {
    CountElement();
    m_hasRoot = true;
    if (m_details.m_octets) return PassElement(attributes);
    m_attributes.clear();
    if (attributes[0] != nullptr) {
        auto const specified = static_cast<std::size_t>(XML_GetSpecifiedAttributeCount(m_parser.get())) / 2;
        for (; attributes[0] != nullptr; attributes += 2) {
            bool const isSpecified = m_attributes.size() < specified;
            std::u16string_view value = attributes[1];
            if (!isSpecified) CountDefaulted(value);
            auto const [attribute, prefix] = SplitName(attributes[0]);
            m_attributes.push_back({&attribute, prefix, value, isSpecified || m_standsAlone});
        }
    }
    auto const [element, prefix] = ElementName(name);
    std::size_t const line = m_details.m_lines ? Line() : 0;
    m_literals.clear();
    if (m_hasDocumentType && (!m_attributes.empty() || m_hasDeclarations)) {
        m_tagPlace = Place();
        FindSkippedInTag();
    }
    m_hasDeclarations = false;
    CDocumentReader::StartElement({element, prefix, m_attributes, line, m_literals});
    m_tagPlace.reset();
}

/// Checks an element of which nobody is told.
void CExpatReader::PassElement(char16_t const* const* attributes) {
    ++m_depth;
    if (!m_hasDocumentType) return;
    attributes += XML_GetSpecifiedAttributeCount(m_parser.get());
    for (; attributes[0] != nullptr; attributes += 2) CountDefaulted(attributes[1]);
}

/// Expat does not tell of the entities that it skips in values of attributes.
void CExpatReader::FindSkippedInTag() {
    std::size_t const line = Line();
    m_tag.clear();
    XML_SetDefaultHandlerExpand(m_parser.get(), Callbacks::Tag);
    XML_DefaultCurrent(m_parser.get());
    XML_SetDefaultHandlerExpand(m_parser.get(), nullptr);
    if (m_failure) return;  // no memory for the tag
    auto const* const defaults = m_defaults.Of(ElementOf(m_tag));
    if (defaults == nullptr && m_tag.find(u'&') == m_tag.npos) return;
    NormalizeLineEnds(m_tag);
    std::u16string_view rest = m_tag;
    std::size_t attribute = 0;
    std::vector<std::u16string_view> specified;
    for (std::size_t equals = rest.find(u'='); equals != rest.npos; equals = rest.find(u'=')) {
        std::u16string_view const name = AttributeAtEnd(rest.substr(0, equals));
        bool const isDeclaration = IsDeclaration(name);
        rest.remove_prefix(rest.find_first_of(u"'\"", equals));
        std::u16string_view const literal = rest.substr(0, rest.find(rest[0], 1) + 1);
        rest.remove_prefix(literal.size());
        std::size_t const count = CountSkipped(literal, line);
        if (count > 0 && m_details.m_markup) {
            if (isDeclaration) {
                m_receiver.LoseEntityReference();
            } else {
                m_literals.push_back({attribute, literal, count});
            }
        }
        if (!isDeclaration) ++attribute;
        if (defaults != nullptr) specified.push_back(name);
    }
    if (defaults != nullptr) FindSkippedInDefaults(*defaults, specified, line);
}

/// @param specified names of the attributes in the tag, which take no default value
void CExpatReader::FindSkippedInDefaults(CAttributeDefaults::Defaults const& defaults,
                                         std::vector<std::u16string_view>& specified, std::size_t line) {
    std::ranges::sort(specified);
    for (auto const& [name, value] : defaults) {
        if (value.m_undeclared == 0 || std::ranges::binary_search(specified, name)) continue;
        SkipEntity(value.m_first, line, value.m_undeclared);
        if (m_details.m_markup && IsDeclaration(name)) m_receiver.LoseEntityReference();
    }
    if (!m_details.m_markup) return;
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        auto const& [name, prefix, text, isSpecified] = m_attributes[i];
        if (isSpecified) continue;
        wstring const& local = name->m_localName;
        auto const known = defaults.find(prefix.empty() ? local : wstring(prefix) + u':' + local);
        if (known == defaults.end() || known->second.m_undeclared == 0) continue;
        m_literals.push_back({i, known->second.m_literal, known->second.m_undeclared});
    }
}

/// Whether an attribute of this name declares a namespace.
bool CExpatReader::IsDeclaration(std::u16string_view name) const {
    return m_schemaType != st_NoNamespaces && (name == u"xmlns" || name.starts_with(u"xmlns:"));
}

/// @return how many entities the value of an attribute refers to that are not declared
std::size_t CExpatReader::CountSkipped(std::u16string_view literal, std::size_t line) {
    std::size_t count = 0;
    m_entities.ForEachUndeclared(literal, [&](std::u16string_view name) {
        SkipEntity(name, line);
        ++count;
    });
    return count;
}

void CExpatReader::SkipEntity(std::u16string_view name, std::size_t line, std::size_t times) {
    if (m_skippedEntities.m_count == 0) {
        m_skippedEntities.m_name = name;
        m_skippedEntities.m_line = line;
    }
    m_skippedEntities.m_count += times;
}

void CExpatReader::SkipReference(std::u16string_view name) {
    SkipEntity(name, Line());
    if (m_details.m_markup) m_receiver.AddEntityReference(name);
}

/// What Expat asks for.
/// @return false if there is none, or the text has to be converted
bool CExpatReader::FindEncoding(wstring const& name, std::span<int, 256> map) {
    m_unknownEncoding = FormatString(
        !m_details.m_systemEncodings ? u"The encoding [%s] is read only where those of the system are allowed"
        : m_isUtf16                  ? u"The text is UTF-16, but declares the encoding [%s]"
        : m_hasMark                  ? kMarkDiffers
                                     : kUnknownEncoding,
        name.substr(0, 100).c_str());
    if (!m_details.m_systemEncodings || m_isUtf16 || m_hasMark) return false;
    CEncoding encoding(ToUtf8(name));
    if (!encoding.IsKnown()) return false;
    auto const octets = encoding.Octets();
    if (octets) {
        std::ranges::copy(*octets, map.begin());
    } else if (m_source == nullptr) {
        m_convertedEncoding = ToUtf8(name);
    } else {  // it was not found ahead of the first slice
        m_unknownEncoding = FormatString(u"The XML declaration, with the encoding [%s], exceeds %d octets",
                                         name.c_str(), static_cast<int>(CPeekedSource::kSize));
    }
    return octets.has_value();
}

/// The line of the event that Expat tells. Expat's own count looks at each octet once more, but it does so anyway
/// behind each slice.
std::size_t CExpatReader::Line() {
    if (m_source != nullptr) return XML_GetCurrentLineNumber(m_parser.get());
    return m_lines.LineAt(static_cast<std::size_t>(ByteIndex()));
}

std::uint64_t CExpatReader::ByteIndex() const {
    return static_cast<std::uint64_t>(std::max<XML_Index>(XML_GetCurrentByteIndex(m_parser.get()), 0));
}

void CExpatReader::CountDefaulted(std::u16string_view value) {
    m_defaultedUnits += value.size() + kUnitsOfDefaultedAttribute;
    if (m_defaultedUnits <= m_mostDefaultedUnits) return;
    throw CBxException(
        u"The document type adds more attributes to the elements than a document of this size may have");
}

void CExpatReader::EndElement() {
    if (!HasOpenElement()) return;
    if (m_details.m_octets) {
        --m_depth;
    } else {
        CDocumentReader::EndElement();
    }
}

void CExpatReader::DeclareNamespace(char16_t const* prefix, char16_t const* namespaceUri) {
    m_tagNames.Forget();
    ThrowIfNamespaceTooLong(TextOf(namespaceUri));
    if (m_details.m_octets) return;
    // No prefix is the default namespace; no URI is xmlns="".
    CNameTable& names = m_memory.m_names;
    m_hasDeclarations = true;
    m_receiver.DeclareNamespace(names.InternText(TextOf(prefix)), names.InternText(TextOf(namespaceUri)));
}

void CExpatReader::AddText(std::u16string_view text) {
    if (text.empty() || !HasOpenElement()) return;
    // Expat gives what a reference to a character stands for by itself, but not inside an entity.
    if (m_hasDocumentType) return AddAnyText(text);
    m_receiver.AddText(text);
}

/// Expat tells of declarations, not what they look like, so another parser is asked, which does not.
void CExpatReader::EndDocumentType() {
    m_isInDocumentType = false;
    ExpatParser const parser = NewParser(m_utf8 ? u"UTF-8" : nullptr, st_NoNamespaces);
    XML_SetUnknownEncodingHandler(parser.get(), Callbacks::UnknownEncoding, this);
    m_receiver.AddDocumentType(DocumentTypeOf(parser.get(), m_prolog));
}

}  // namespace BxXmlLib5
