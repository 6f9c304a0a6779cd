#include "check/XercesCheck.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/TransService.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "schema/BuiltInTypes.h"
#include "xml/File.h"

namespace BxGen {

namespace {

std::string Utf8(XMLCh const* text) {
    if (text == nullptr) return {};
    xercesc::TranscodeToStr const octets(text, "UTF-8");
    return {reinterpret_cast<char const*>(octets.str()), octets.length()};
}

std::unique_ptr<xercesc::InputSource> SourceOf(std::string_view octets, std::string_view name) {
    xercesc::TranscodeFromStr const id(reinterpret_cast<XMLByte const*>(name.data()), name.size(), "UTF-8");
    auto* const copy = new XMLByte[std::max<std::size_t>(octets.size(), 1)];
    std::ranges::copy(octets, copy);
    return std::make_unique<xercesc::MemBufInputSource>(copy, octets.size(), id.str(), true);
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (char const c : text) {
        if (c == '&' || c == '<' || c == '"') {
            escaped += "&#" + std::to_string(c) + ';';
        } else {
            escaped += c;
        }
    }
    return escaped;
}

/// Leads references where they led the tool's own reader.
class Resolver : public xercesc::XMLEntityResolver {
public:
    explicit Resolver(SchemaSet const& set) {
        for (SchemaDocument const* const document : set.Documents()) {
            for (SchemaReference const& reference : document->m_references) {
                if (reference.m_document == nullptr) continue;
                std::string const target(reference.m_document->m_file);
                m_byNamespace.emplace(reference.m_namespace, target);
                if (reference.m_location)
                    m_byLocation.emplace(std::pair(document->m_file, *reference.m_location), target);
            }
        }
    }

    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* wanted) override {
        std::string const base = Utf8(wanted->getBaseURI());
        std::string const location = Utf8(wanted->getSystemId());
        std::string const uri = Utf8(wanted->getNameSpace());
        if (wanted->getResourceIdentifierType() == xercesc::XMLResourceIdentifier::ExternalEntity) {
            return SourceOf("", location).release();
        }
        auto const located = m_byLocation.find({base, location});
        if (located != m_byLocation.end()) return File(located->second);
        if (auto const named = m_byNamespace.find(uri); named != m_byNamespace.end())
            return File(named->second);
        if (std::string_view const text = BuiltInSchema(uri); !text.empty())
            return SourceOf(text, uri).release();
        // The reader passed over it, since nothing of it is needed.
        std::string const target = uri.empty() ? "" : " targetNamespace=\"" + Escaped(uri) + '"';
        return SourceOf("<schema xmlns=\"http://www.w3.org/2001/XMLSchema\"" + target + "/>", uri).release();
    }

private:
    static xercesc::InputSource* File(std::string const& file) {
        return SourceOf(ReadFile(file), file).release();
    }

    std::map<std::pair<std::string_view, std::string_view>, std::string> m_byLocation;
    std::map<std::string_view, std::string> m_byNamespace;
};

class Reporter : public xercesc::ErrorHandler {
public:
    explicit Reporter(std::function<void(XercesMessage const&)> const& report) : m_report(report) {}

    void warning(xercesc::SAXParseException const&) override {}
    void error(xercesc::SAXParseException const& error) override {
        m_report({Utf8(error.getSystemId()), error.getLineNumber(), error.getColumnNumber(),
                  Utf8(error.getMessage())});
    }
    void fatalError(xercesc::SAXParseException const& failure) override { error(failure); }
    void resetErrors() override {}

private:
    std::function<void(XercesMessage const&)> const& m_report;
};

void Load(std::vector<std::string> const& files, SchemaSet const& set, bool isFull,
          std::function<void(XercesMessage const&)> const& report) {
    Resolver resolver(set);
    Reporter reporter(report);
    xercesc::XMLGrammarPoolImpl pool;
    xercesc::XercesDOMParser parser(nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, &pool);
    parser.setXMLEntityResolver(&resolver);
    parser.setErrorHandler(&reporter);
    parser.setDoNamespaces(true);
    parser.setDoSchema(true);
    // Without it content models are not looked at.
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Always);
    parser.setValidationSchemaFullChecking(isFull);
    parser.setHandleMultipleImports(true);
    parser.cacheGrammarFromParse(true);
    parser.useCachedGrammarInParse(true);
    for (std::string const& file : files) {
        auto const source = SourceOf(ReadFile(file), file);
        parser.loadGrammar(*source, xercesc::Grammar::SchemaGrammarType, true);
    }
}

}  // namespace

void CheckWithXerces(std::vector<std::string> const& files, SchemaSet const& set, bool isFull,
                     std::function<void(XercesMessage const&)> const& report) {
    // Not terminated: the process ends with the check.
    xercesc::XMLPlatformUtils::Initialize();
    try {
        Load(files, set, isFull, report);
    } catch (xercesc::OutOfMemoryException const&) {
        throw std::bad_alloc();
    } catch (xercesc::XMLException const& failure) {
        report({{}, 0, 0, Utf8(failure.getMessage())});
    } catch (xercesc::SAXException const& failure) {
        report({{}, 0, 0, Utf8(failure.getMessage())});
    }
}

}  // namespace BxGen
