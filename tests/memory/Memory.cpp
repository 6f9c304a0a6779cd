// What is left when memory runs out in the middle of a read or a write: each request for memory fails in
// turn, alone and with all behind it. Whatever was at work throws, gives back what it took, and works at the
// next try.
//
//     memory_tests exhaustive    lets each request fail in new processes too, and for the large document

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "BxXmlLib5/BxXmlLib5.h"
#include "BxXmlLib5/collections/CAttributeCol.h"
#include "BxXmlLib5/collections/CElementCol.h"
#include "Gpx.h"
#include "Parcels.h"
#include "binding/TestBinding.h"
#include "support/FailingMalloc.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace BxXmlLib5;
using namespace BxTest;

bool g_isExhaustive = false;

/// Runs an operation whose request for memory fails after so many.
/// @return whether it failed
template <class Operation>
bool FailsAt(long request, bool once, Operation operation) {
    bool fails = true;
    g_memory.m_left = request;
    g_memory.m_once = once;
    try {
        operation();
        fails = false;
    } catch (std::bad_alloc const&) {
    } catch (CBxException const&) {
    }
    g_memory.m_left = -1;
    return fails;
}

/// Lets an operation's requests fail, on objects of a State each, and tries again with the same objects: all of them in
/// a process where what is made once is there, some in processes of their own, where it is not.
/// @param show what the operation made of the State, as a text
template <class State>
void FailAtEach(std::function<void(State&)> const& operation,
                std::function<std::string(State const&)> const& show, long stride = 1) {
    auto const isRight = [&](State& state) {
        operation(state);
        State fresh;
        operation(fresh);
        return show(state) == show(fresh) && !show(fresh).empty();
    };
    constexpr int kRight = 0, kWrong = 1, kEnd = 2;
    auto const firstTime = [&](long request, bool once) {
        State state;
        bool const fails = FailsAt(request, once, [&] { operation(state); });
        if (!fails && g_memory.m_taken < request) return kEnd;
        return isRight(state) ? kRight : kWrong;
    };
    long const firstTimes = g_isExhaustive ? 1 : 11 * stride;
    for (bool const once : {false, true}) {
        for (long request = 0, ending = kRight; ending == kRight; request += firstTimes) {
            pid_t const child = fork();
            ASSERT_NE(child, -1);
            if (child == 0) {
                g_memory.m_taken = 0;
                _exit(firstTime(request, once));
            }
            int status = 0;
            ASSERT_EQ(waitpid(child, &status, 0), child);
            ending = WIFEXITED(status) ? WEXITSTATUS(status) : kWrong;
            ASSERT_NE(ending, kWrong) << "status " << status << ", request " << request << ", once " << once;
        }
    }

    std::string expected;
    long requests = 0;
    for (int round = 0; round < 3; ++round) {
        State state;
        requests = g_memory.m_taken;
        operation(state);
        requests = g_memory.m_taken - requests;
        expected = show(state);
    }
    ASSERT_GT(requests, 0);
    for (bool const once : {false, true}) {
        for (long request = 0; request < requests; request += stride) {
            long const alive = g_memory.m_alive;
            {
                State state;
                // What can do without memory does so, and has the same outcome.
                bool const fails = FailsAt(request, once, [&] { operation(state); });
                ASSERT_TRUE(fails || show(state) == expected) << "request " << request << ", once " << once;
                operation(state);
                ASSERT_EQ(show(state), expected);
            }
            ASSERT_EQ(g_memory.m_alive, alive) << "request " << request << ", once " << once;
        }
    }
}

constexpr char kSample[] =
    "<?xml version='1.0'?>\n<!DOCTYPE r [<!ENTITY e 'an entity with some text'><!ATTLIST r d CDATA 'default'>]>\n"
    "<r xmlns='urn:sample' xmlns:p='urn:sample:other' p:a='a value of some length'><?pi data?><!-- comment -->\n"
    "<p:text>&e; and &lt;more&gt; text, &#x1F600;</p:text><![CDATA[a section of text <&> that is long]]>"
    "<empty/><deep><p:er><est xmlns=''>\xC3\xBC</est></p:er></deep></r>";

CXmlSerializationContext Thorough() {
    CXmlSerializationContext context;
    context.SetRequireWholeDocument(true);
    context.SetSystemEncodings(true);
    context.SetCheckWellFormed(true);
    context.SetFailOnIgnoredContent(true);
    return context;
}

using Octets = CBinaryData;

Octets OctetsOf(std::string_view text) {
    Octets octets;
    octets.Append({reinterpret_cast<unsigned char const*>(text.data()), text.size()});
    return octets;
}
std::string_view ViewOf(Octets const& octets) {
    return {reinterpret_cast<char const*>(octets.GetData()), octets.GetLength()};
}

/// The document in each form that is read, compressed ones too.
std::vector<Octets> Forms(Octets const& document) {
    CXmlSerializationContext const context;
    CSmartPtr<CElement> const root = CElement::LoadXmlStream(document);
    return {document, root->ToXmlStream(true, true, enc_UTF16, eol_CRLF, context, cmp_GZip),
            root->ToFastInfosetStream(fi_None, context, cmp_None),
            root->ToFastInfosetStream(fi_None, context, cmp_ZLib)};
}

std::string Text(CElement const& element) {
    return ToUtf8(element.ToXml(false, false, eol_LF, CXmlSerializationContext()));
}

void Append(std::string& text, CXmlElement const& element) {
    text += "<" + ToUtf8(element.GetLocalName()) + " " + ToUtf8(element.GetNamespaceURI());
    for (CXmlAttribute const* attribute : element.GetAttributes())
        text += " " + ToUtf8(attribute->GetLocalName()) + "=" + ToUtf8(attribute->GetValue());
    text += ">" + ToUtf8(element.GetText());
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        Append(text, *child);
}

struct Octeted {
    Octets m_octets;
};
std::string Shown(Octeted const& state) {
    return std::string(ViewOf(state.m_octets));
}

TEST(Memory, Trees) {
    std::string single = kSample;
    single.replace(single.find("\xC3\xBC"), 2, "\xA4");
    single.insert(single.find("?>"), " encoding='iso-8859-15'");
    std::string many = kSample;
    many.replace(many.find("\xC3\xBC"), 2, "\x82\xA0");
    many.insert(many.find("?>"), " encoding='Shift_JIS'");
    std::vector<Octets> forms = Forms(OctetsOf(kSample));
    forms.push_back(OctetsOf(single));
    forms.push_back(OctetsOf(many));
    for (Octets const& form : forms) {
        FailAtEach<CXmlDocument>(
            [&](CXmlDocument& document) {
                document.SetSystemEncodings(true);
                document.SetRequireWholeDocument(true);
                document.LoadXmlStream(form.GetData(), form.GetLength());
            },
            [](CXmlDocument const& document) {
                std::string text;
                Append(text, *document.GetDocumentElement());
                return text;
            });
    }
}

struct Untyped {
    CSmartPtr<CElement> m_root;
};

TEST(Memory, UntypedContent) {
    for (Octets const& form : Forms(OctetsOf(kSample))) {
        FailAtEach<Untyped>([&](Untyped& state) { state.m_root = CElement::LoadXmlStream(form, Thorough()); },
                            [](Untyped const& state) { return Text(*state.m_root); });
    }
}

/// Reads a class from each form of a document, and checks it.
template <class Class>
void ReadEach(Octets const& document) {
    for (Octets const& form : Forms(document)) {
        FailAtEach<Class>(
            [&](Class& object) {
                object.Parse(ViewOf(form), Thorough());
                if (!object.Validate().empty() || !object.Clone()->Equals(object))
                    throw std::logic_error("?");
            },
            [](Class const& object) { return object.ToText(); });
    }
}

constexpr char kGpx[] =
    "<gpx xmlns='http://www.topografix.com/GPX/1/1' version='1.1' creator='a name of some length'>"
    "<metadata><name>n</name><time>2024-06-22T13:05:44Z</time><keywords>some keywords of a hike</keywords></metadata>"
    "<wpt lat='47.409520123456789012345' lon='10.3'><ele>815.5</ele><fix>dgps</fix><dgpsid>7</dgpsid></wpt>"
    "<trk><trkseg><trkpt lat='1' lon='2'><extensions><s:r xmlns:s='urn:s'><s:h u='C'>96</s:h></s:r></extensions>"
    "</trkpt><trkpt lat='1.5' lon='2.5'/></trkseg></trk></gpx>";
constexpr char kParcel[] =
    "<parcel xmlns='urn:parcel' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' code='AB123' speed='2' "
    "version='1.0' sizes='1.0 2.5' xml:lang='en' xmlns:o='urn:other' o:x='some other attribute'>"
    "<from xsi:type='foreignAddress' overseas='true'><city>a city of some length</city><country>c</country></from>"
    "<to><city>x</city></to><weight>fast</weight><filled>1</filled><filled>99.5</filled><days>7</days>"
    "<book count='1'><title>the title of a book</title></book><t:toy xmlns:t='urn:toys'><age>3</age></t:toy>"
    "<novel><title>b</title></novel><note>mixed <b>bold</b> text</note><due xsi:nil='true'/>"
    "<open a='1'><c>d</c></open><e:x xmlns:e='urn:extra'><e:y>some text of others</e:y></e:x></parcel>";

TEST(Memory, GeneratedClasses) {
    ReadEach<Gpx::CGpx>(OctetsOf(kGpx));
    ReadEach<Parcels::CParcel>(OctetsOf(kParcel));
}

struct Handwritten {
    static TestClass const& Type() {
        static TestClass const& s_type = Class("@k:text, a:number, b:{x:enum, y:text?}*, c:any?");
        return s_type;
    }
    TestObject m_object{Type()};
};

TEST(Memory, ClassesWithTablesOfTheirOwn) {
    std::u16string const document =
        u"<r k='a key of some length'><a>2.50</a><b><x>one</x></b><b><x>two</x><y>t</y></b><c><d/></c></r>";
    Handwritten::Type();
    FailAtEach<Handwritten>([&](Handwritten& state) { state.m_object.FromXml(document.c_str(), Thorough()); },
                            [](Handwritten const& state) { return Written(state.m_object); });
}

/// Writes an object in each form.
template <class Class>
void WriteEach(Class const& object, CXmlSerializationContext const& context) {
    std::function<Octets()> const rows[] = {
        [&] { return OctetsOf(ToUtf8(object.ToXml(true, true, eol_LF, context))); },
        [&] { return object.ToXmlStream(true, false, enc_UTF8, eol_LF, context, cmp_None); },
        [&] { return object.ToXmlStream(true, true, enc_UTF16, eol_CRLF, context, cmp_GZip); },
        [&] { return object.ToFastInfosetStream(fi_None, context, cmp_None); },
        [&] { return object.ToFastInfosetStream(fi_None, context, cmp_ZLib); },
    };
    for (auto const& row : rows) FailAtEach<Octeted>([&](Octeted& state) { state.m_octets = row(); }, Shown);
}

TEST(Memory, Writing) {
    Gpx::CGpx gpx;
    gpx.Parse(kGpx);
    Parcels::CParcel parcel;
    parcel.Parse(kParcel);
    CSmartPtr<CElement> const element = CElement::LoadXml(kSample);
    for (bool const checked : {false, true}) {
        CXmlSerializationContext context = gpx.WritingContext();
        context.SetCheckWellFormed(checked);
        WriteEach(gpx, context);
        context.SetDefaultNamespaceURI(u"");
        WriteEach(parcel, context);
        WriteEach(*element, context);
    }
    FailAtEach<Octeted>([&](Octeted& state) { state.m_octets = OctetsOf(parcel.ToText(Layout::Indented)); },
                        Shown);
}

struct Folder : TemporaryFolder {
    std::string m_file = Write("file", "old");
};

/// Writes a file, of which a failure leaves nothing but the old one.
void WriteFile(std::function<void(std::string const&)> const& write) {
    FailAtEach<Folder>([&](Folder& folder) { write(folder.m_file); },
                       [](Folder const& folder) {
                           long const files =
                               std::distance(std::filesystem::directory_iterator(folder.m_path), {});
                           return std::to_string(files) + Content(folder.m_file);
                       });
}

TEST(Memory, Files) {
    Gpx::CGpx gpx;
    gpx.Parse(kGpx);
    CXmlSerializationContext const context = gpx.WritingContext();
    WriteFile([&](std::string const& file) { gpx.Save(file); });
    WriteFile([&](std::string const& file) {
        gpx.ToFastInfosetFile(FromUtf8(file).c_str(), fi_None, context, cmp_GZip);
    });
    for (int form = 0; form < 4; ++form) {
        RecordSettings settings;
        settings.m_isFastInfoset = form % 2 == 1;
        settings.m_compression = form / 2 == 1 ? cmp_GZip : cmp_None;
        settings.m_layout = Layout::Indented;
        WriteFile([&](std::string const& file) {
            CRecordWriter writer(file, settings);
            writer.Start(u"gpx", Gpx::kNamespace);
            writer.Attribute(u"creator", u"a name of some length");
            writer.Start(u"trk");
            for (Gpx::CWpt& point : gpx.Wpt) writer.Write(point, u"wpt");
            writer.Start(u"name", u"urn:other:namespace");
            writer.Text(u"some text that is longer than a short one");
            writer.Finish();
        });
    }
}

TEST(Memory, Reports) {
    std::string const wrong =
        std::string(kGpx).replace(std::string_view(kGpx).find("dgps<"), 4, "none at all");
    FailAtEach<Octeted>(
        [&](Octeted& state) {
            state.m_octets = Octets();
            try {
                Gpx::CGpx().Parse(wrong);
            } catch (CBxException const& failure) {
                state.m_octets = OctetsOf(ToUtf8(failure.GetReport()));
            }
        },
        Shown);
}

// Buffers and tables that grow.
TEST(Memory, ALargeDocument) {
    std::string const track = Content(BX_TRACK);
    struct Both {
        Gpx::CGpx m_gpx;
        Octets m_octets;
    };
    FailAtEach<Both>(
        [&](Both& state) {
            state.m_gpx.Parse(track);
            state.m_octets = state.m_gpx.ToFastInfosetStream(fi_None, Thorough(), cmp_GZip);
        },
        [](Both const& state) { return Shown({state.m_octets}); }, g_isExhaustive ? 1 : 97);
}

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    g_isExhaustive = count > 1 && std::string_view(arguments[1]) == "exhaustive";
    return RUN_ALL_TESTS();
}
