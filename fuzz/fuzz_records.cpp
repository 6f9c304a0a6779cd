// Any octets, read record by record: the records are the elements of the whole document, however the octets
// are cut into slices, whatever a record may take, and whether the caller throws in between.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "document/CInflatingSource.h"
#include "fastinfoset/CFastInfosetReader.h"
#include "support/Inert.h"

using namespace BxXmlLib5;

namespace {

using Octets = std::vector<unsigned char>;
using Random = std::minstd_rand;
using Lines = std::vector<std::string>;

[[noreturn]] void Fail(char const* what, std::string const& first, std::string const& second) {
    std::fprintf(stderr, "%s:\n%s\n%s\n", what, first.c_str(), second.c_str());
    std::abort();
}

void Expect(char const* what, std::string const& first, std::string const& second) {
    if (first != second) Fail(what, first, second);
}

std::string Start(wstring const& ns, wstring const& name) {
    return "<" + ToUtf8(u"{" + ns + u"}" + name);
}

std::string Attribute(wstring const& ns, wstring const& name, wstring const& value) {
    return " {" + ToUtf8(ns) + "}" + ToUtf8(name) + "='" + ToUtf8(value) + "'";
}

std::string Attributes(CXmlElement const& element) {
    Lines all;
    for (CXmlAttribute const* attribute : element.GetAttributes())
        all.push_back(
            Attribute(attribute->GetNamespaceURI(), attribute->GetLocalName(), attribute->GetValue()));
    std::ranges::sort(all);
    std::string text;
    for (std::string const& one : all) text += one;
    return text;
}

std::string Dump(CXmlElement const& element) {
    std::string text = Start(element.GetNamespaceURI(), element.GetLocalName()) + Attributes(element) + ">" +
                       ToUtf8(element.GetText());
    for (auto* child = element.GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        text += Dump(*child);
    return text + "</>";
}

std::string Dump(CElement const& element) {
    Lines all;
    for (CAttribute const* attribute : *element.GetAttributes())
        all.push_back(Attribute(attribute->GetNamespace(), attribute->GetName(), attribute->GetValue()));
    std::ranges::sort(all);
    std::string text = Start(element.GetNamespace(), element.GetName());
    for (std::string const& one : all) text += one;
    text += ">" + ToUtf8(element.GetText());
    for (CElement const* child : *element.GetChildElements()) text += Dump(*child);
    return text + "</>";
}

/// Takes the tree of a record as it is.
struct Taking : BxTest::Inert {
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement*, CXmlSerializationContext const&,
                             bool) override {
        m_text = Dump(*element);
        if (m_throws) throw CBxValidationException(u"thrown");
        return nullptr;
    }
    std::string m_text;
    bool m_throws = false;
};

/// What a reader gave: its records, empty ones for those that were too large, and how it ended.
struct Found {
    Lines m_records, m_ends;
    std::optional<std::string> m_refusal{};
    std::string m_around{};
};

/// Of the elements that lead to records, each by itself.
void AddBranch(CXmlElement const& element, std::size_t depth, std::string& text) {
    text += Start(element.GetNamespaceURI(), element.GetLocalName()) + Attributes(element);
    CXmlElement const* last = nullptr;
    for (auto* child = element.GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        last = child;
    if (depth > 1 && last != nullptr) AddBranch(*last, depth - 1, text);
}

void AddElements(CXmlElement const& element, std::size_t depth, Found& found) {
    if (depth == 0) return found.m_records.push_back(Dump(element));
    for (auto* child = element.GetFirstElement(); child != nullptr; child = child->GetNextSiblingElement())
        AddElements(*child, depth - 1, found);
    found.m_ends.push_back(Start(element.GetNamespaceURI(), element.GetLocalName()) + Attributes(element));
}

Found OfWhole(Octets const& octets, std::size_t depth, bool& isComplete) {
    Found found;
    CXmlDocument document;
    try {
        document.LoadXmlStream(octets.data(), octets.size());
    } catch (CBxException const& failure) {
        found.m_refusal = ToUtf8(failure.GetMessage());
        return found;
    }
    isComplete = document.IsComplete();
    AddElements(*document.GetDocumentElement(), depth, found);
    if (depth > 0) AddBranch(*document.GetDocumentElement(), depth, found.m_around);
    return found;
}

enum class How { kPlain, kCuriously, kSmall };

Found OfReader(Octets const& octets, std::size_t depth, Random& random, How how) {
    Found found;
    RecordReaderSettings settings;
    settings.m_context.SetRequireWholeDocument(false);
    if (how == How::kSmall) settings.m_maxRecord = 150 + random() % 500;
    settings.m_keepsSurroundings = how != How::kSmall;
    settings.m_onEnd = [&](CXmlElement const& element) {
        found.m_ends.push_back(Start(element.GetNamespaceURI(), element.GetLocalName()) +
                               Attributes(element));
        if (how == How::kCuriously && random() % 3 == 0) throw std::logic_error("end");
    };
    std::span<unsigned char const> left(octets);
    auto const source = [&](std::span<unsigned char> room) {
        std::size_t const some = random() % 4 == 0 ? 1 + random() % 2000 : 1 + random() % 12;
        std::size_t const count = std::min({room.size(), left.size(), some});
        std::copy_n(left.begin(), count, room.begin());
        left = left.subspan(count);
        return count;
    };
    wstring path = u"*";
    for (std::size_t i = 0; i < depth; ++i) path += u"/*";
    std::vector<std::pair<CElement, std::string>> kept;
    try {
        CRecordReader reader(source, path.c_str(), settings);
        CElement element(u"");
        Taking taking;
        for (bool goesOn = true; goesOn;) {
            bool const isElement = random() % 2 == 0;
            taking.m_throws = how == How::kCuriously && random() % 4 == 0;
            taking.m_text.clear();
            if (how == How::kCuriously && random() % 3 == 0 && !reader.HasFailed()) {
                try {
                    if (CXmlElement const* around = reader.GetSurroundings()) Dump(*around);
                } catch (CBxException const&) {  // comes again
                }
            }
            try {
                goesOn = isElement ? reader.Read(element) : reader.Read(taking);
                if (!goesOn) break;
                if (isElement) kept.emplace_back(element, Dump(element));
                found.m_records.push_back(isElement ? kept.back().second : taking.m_text);
                if (reader.GetLocation().GetPath().empty()) Fail("no place", found.m_records.back(), {});
            } catch (std::logic_error const&) {
            } catch (CBxException const& failure) {
                if (reader.HasFailed()) throw;
                std::string const message = ToUtf8(failure.GetMessage());
                bool const isLarge = message.find("m_maxRecord") != message.npos;
                if (!isLarge && message != "thrown") throw;
                found.m_records.push_back(isLarge ? "" : taking.m_text);
            }
        }
        if (depth > 0) AddBranch(*reader.GetSurroundings(), depth, found.m_around);
    } catch (CBxException const& failure) {
        found.m_refusal = ToUtf8(failure.GetMessage());
    }
    for (auto const& [element, text] : kept) Expect("kept", text, Dump(element));
    return found;
}

std::string Joined(Lines const& lines, std::size_t most) {
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), most); ++i) text += lines[i] + "\n";
    return text;
}

/// What breaks off behind the root leaves the whole document complete.
bool IsBrokenOff(std::string const& refusal) {
    return refusal.starts_with("unclosed token") || refusal.starts_with("partial character");
}

void Compare(Octets const& octets, std::size_t depth, Random& random) {
    bool isComplete = false;
    Found const whole = OfWhole(octets, depth, isComplete);
    Found const plain = OfReader(octets, depth, random, How::kPlain);
    bool const isText = !CInflatingSource::Recognises(octets) && !CFastInfosetReader::Recognises(octets);
    if (whole.m_refusal) {
        if (!plain.m_refusal && isText) Fail("refused", *whole.m_refusal, Joined(plain.m_records, 9999));
    } else {
        // A document that breaks off was told as far as it goes.
        Expect("records", Joined(whole.m_records, plain.m_refusal ? plain.m_records.size() : SIZE_MAX),
               Joined(plain.m_records, SIZE_MAX));
        if (isText && isComplete && plain.m_refusal && !IsBrokenOff(*plain.m_refusal))
            Fail("read", *plain.m_refusal, {});
        if (!plain.m_refusal) {
            Expect("ends", Joined(whole.m_ends, SIZE_MAX), Joined(plain.m_ends, SIZE_MAX));
            Expect("around", whole.m_around, plain.m_around);
        }
    }
    Found const curious = OfReader(octets, depth, random, How::kCuriously);
    Expect("records again", Joined(plain.m_records, SIZE_MAX), Joined(curious.m_records, SIZE_MAX));
    Expect("ends again", Joined(plain.m_ends, SIZE_MAX), Joined(curious.m_ends, SIZE_MAX));
    Expect("refusal again", plain.m_refusal.value_or("-"), curious.m_refusal.value_or("-"));
    Expect("around again", plain.m_around, curious.m_around);
    Found const small = OfReader(octets, depth, random, How::kSmall);
    if (plain.m_refusal) return;
    Expect("small", plain.m_around, small.m_around);
    // In an entity one that is too large stands for those behind it, too.
    auto next = plain.m_records.begin();
    for (std::string const& record : small.m_records) {
        if (record.empty()) continue;
        next = std::find(next, plain.m_records.end(), record);
        if (next++ == plain.m_records.end()) Fail("small", Joined(plain.m_records, SIZE_MAX), record);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    Octets const octets(data, data + size);
    Random random(static_cast<Random::result_type>(size + 1));
    for (std::size_t const depth : {1U, 2U}) Compare(octets, depth, random);
    if (random() % 8 == 0) Compare(octets, 0, random);
    return 0;
}
