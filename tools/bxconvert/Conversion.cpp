#include "Conversion.h"

#include <optional>

#include "Counter.h"
#include "DeflatingSink.h"
#include "FastInfosetEmitter.h"
#include "LayoutFilter.h"
#include "PrefixFilter.h"
#include "Source.h"
#include "TextEmitter.h"
#include "document/CDocumentStream.h"

namespace BxConvert {

using namespace BxXmlLib5;

namespace {

constexpr std::uint64_t kMaxInflatedSize = 1'000'000'000;

DocumentStreamSettings SettingsOf(Options const& options) {
    bool const isAsItIs = options.m_form == Form::kXml && options.m_encoding == enc_UTF8 &&
                          options.m_layout == Layout::kAsItIs && !options.m_info;
    return {.m_schemaType = options.m_namespaces ? st_Default : st_NoNamespaces,
            .m_details = {.m_systemEncodings = true,
                          .m_prefixes = true,
                          .m_markup = !options.m_info,
                          .m_octets = isAsItIs,
                          .m_exact = true},
            .m_maxSize = options.m_maxSize.value_or(std::numeric_limits<std::uint64_t>::max()),
            .m_maxInflatedSize = options.m_maxSize.value_or(kMaxInflatedSize)};
}

void Info(Options const& options, Source& source, Sink& sink) {
    CNameTable names;
    Counter counter;
    CDocumentStream stream(source, counter, names, SettingsOf(options));
    stream.Read();
    std::string const text = counter.ToText(stream.IsFastInfoset(), stream.IsCompressed(), source.Count());
    sink.Write({reinterpret_cast<unsigned char const*>(text.data()), text.size()});
    sink.Finish();
}

std::unique_ptr<Emitter> MakeEmitter(Sink& sink, Options const& options) {
    if (options.m_form == Form::kFastInfoset) return std::make_unique<FastInfosetEmitter>(sink, options);
    return std::make_unique<TextEmitter>(sink, options);
}

/// For Fast Infoset, which has no lines.
[[noreturn]] void ThrowBeforeOctet(std::string const& failure, DocumentPlace const& place) {
    throw std::runtime_error(failure + ", before octet " + std::to_string(place.m_octet));
}

Losses Convert(Options const& options, COctetSource& source, Emitter& emitter) {
    CNameTable names;
    LayoutFilter layout(emitter, options.m_layout == Layout::kFormatted && options.m_form == Form::kXml);
    bool const hasLayout = options.m_layout != Layout::kAsItIs;
    CDocumentReceiver& behindPrefixes = hasLayout ? static_cast<CDocumentReceiver&>(layout) : emitter;
    PrefixFilter prefixes(behindPrefixes, names);
    auto const receiverOf = [&](bool isFastInfoset) -> CDocumentReceiver& {
        return isFastInfoset ? prefixes : behindPrefixes;
    };
    CDocumentStream stream(source, receiverOf, names, SettingsOf(options));
    emitter.Begin(stream.IsFastInfoset());
    try {
        stream.Read();
    } catch (UnwritableText const& failure) {
        ThrowBeforeOctet(failure.what(), stream.Place());
    } catch (CBxInvalidValueException const& failure) {
        if (!stream.IsFastInfoset()) throw;
        ThrowBeforeOctet(ToUtf8(failure.GetMessage()), stream.Place());
    }
    emitter.Finish();
    return emitter.Lost();
}

}  // namespace

Losses Convert(Options const& options, COctetSource& source, Sink& sink) {
    std::optional<DeflatingSink> deflating;
    if (options.m_compression != cmp_None) deflating.emplace(sink, options.m_compression);
    Sink& target = deflating ? static_cast<Sink&>(*deflating) : sink;
    std::unique_ptr<Emitter> const emitter = MakeEmitter(target, options);
    Losses const losses = Convert(options, source, *emitter);
    std::string const lost = losses.ToText();
    if (options.m_strict && !lost.empty()) throw std::runtime_error(NotKept(options, lost));
    target.Finish();
    return losses;
}

Losses Convert(Options const& options, Sink& sink) {
    Source source(options.m_input);
    if (!options.m_info) return Convert(options, source, sink);
    Info(options, source, sink);
    return {};
}

std::string NotKept(Options const& options, std::string const& what) {
    return std::string(options.m_form == Form::kXml ? "XML text" : "Fast Infoset") + " does not keep " + what;
}

}  // namespace BxConvert
