// bxconvert as its users run it: by its command line.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

#include "support/StrictFastInfoset.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace BxTest;
using namespace std::string_literals;

struct Folder : TemporaryFolder {
    Ending Run(std::string const& lines, std::string const& input = {}) const {
        return TemporaryFolder::Run(BXCONVERT, lines, input);
    }
};

std::string const kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
std::string const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

TEST(Convert, WritesWhatItReads) {
    struct Row {
        std::string m_options;
        std::string m_input;
        std::string m_output;
        std::string m_warning;
    };
    std::string const mixed =
        "bxconvert: standard input: warning: mixed content, text moved behind the children in ";
    // clang-format off
    Row const rows[] = {
        // Form
        {"", "<!--c--><?p?><!DOCTYPE a><a x=\"1\">\n <b>t</b> <c></c>\n</a>", kDeclaration + "<a x=\"1\">\n\t<b>t</b>\n\t<c/>\n</a>\n", ""},
        {"--compact", "<a>\n <b>t</b>\n <c/>\n</a>", kDeclaration + "<a><b>t</b><c/></a>", ""},
        {"--declaration=no", "<?xml version='1.0'?><a/>", "<a/>\n", ""},
        {"--compact --format --declaration no --declaration yes --encoding utf-16 --encoding utf-8 --to finf --to xml --eol=crlf --eol=lf",
            "<?xml version='1.0'?><a/>", kDeclaration + "<a/>\n", ""},
        {"--eol crlf", "<a>1\n2<b/></a>", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>\r\n\t<b/>\r\n1\r\n2</a>\r\n", mixed + "1 element\n"},
        // Encodings, and the forms that are not text
        {"--encoding utf-16 --declaration no --compact", "<a>\xF0\x9F\x98\x80</a>", "\xFF\xFE<\0a\0>\0\x3D\xD8\x00\xDE<\0/\0a\0>\0"s, ""},
        {"--to finf", "<a>\n<b/></a>", "\xE0\0\0\1\0\x3C\0a\x3C\0b\xF0\xFF"s, ""},
        {"--to finf --keep-whitespace", "<a> <b/></a>", "\xE0\0\0\1\0\x3C\0a\x3C\0b\xF0\x90 \xFF"s, ""},
        {"--compact --no-namespaces", "\xE0\0\0\1\0\x3F\0p\0u\0a\xFF"s, kDeclaration + "<a xmlns=\"u\"/>", ""},
        {"--to finf", "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, ""},
        // Text beside children
        {"--compact", "<a> <b> </b>\t\r\n&#13;</a>", kDeclaration + "<a><b> </b></a>", ""},
        {"--compact --keep-whitespace", "<a> <b>\t</b>\n</a>", kDeclaration + "<a><b>\t</b> \n</a>", ""},
        {"--compact", "<a> <b> </b>\xC2\xA0</a>", kDeclaration + "<a><b> </b> \xC2\xA0</a>", mixed + "1 element\n"},
        {"--compact", "<a>1<b>2<c/>3</b>4<b>5</b> </a>", kDeclaration + "<a><b><c/>23</b><b>5</b>14 </a>", mixed + "2 elements\n"},
        {"--compact --strict", "<a> <b>2</b>\n</a>", kDeclaration + "<a><b>2</b></a>", ""},
        // Namespaces
        {"--compact", "<p:a xmlns:p='u' p:x='1' x='2'><p:b/></p:a>",
            kDeclaration + "<a xmlns=\"u\" xmlns:AA=\"u\" AA:x=\"1\" x=\"2\"><b/></a>", ""},
        {"--compact", "<a xmlns='u'><b xmlns='v'><c xmlns=''/></b></a>",
            kDeclaration + "<AA:a xmlns:AA=\"u\"><AB:b xmlns:AB=\"v\"><c/></AB:b></AA:a>", ""},
        {"--compact", "<a xmlns:xsi='" + kXsi + "' xmlns:q='q'><b xsi:nil='true' xml:lang='en'/></a>",
            kDeclaration + "<a xmlns:xsi=\"" + kXsi + "\"><b xsi:nil=\"true\" xml:lang=\"en\"/></a>", ""},
        {"--compact", "<a xmlns:xsi='" + kXsi + "'/>", kDeclaration + "<a/>", ""},
        {"--compact", "<a xmlns:i='" + kXsi + "' xmlns:xsi='u' i:nil='1'/>", kDeclaration + "<a xmlns:AA=\"" + kXsi + "\" AA:nil=\"1\"/>", ""},
        {"--compact", "<a xmlns='u?1&amp;2'><b xmlns='&lt;&quot;&#10;&#9;&#13;' xmlns:p='u?1&amp;2' p:x='1'/></a>",
            kDeclaration + "<a xmlns=\"u?1&amp;2\"><AA:b xmlns:AA=\"&lt;&quot;&#10;&#9;&#13;\" xmlns:AB=\"u?1&amp;2\" AB:x=\"1\"/></a>", ""},
        {"--compact", "<a xmlns:t='u&amp;' xmlns:xsi='" + kXsi + "'><b xsi:type=' t:T'/></a>",
            kDeclaration + "<a xmlns:xsi=\"" + kXsi + "\" xmlns:t=\"u&amp;\"><b xsi:type=\" t:T\"/></a>", ""},
        {"--compact", "<p:a xmlns:p='u' xmlns:q='u' xmlns:xsi='" + kXsi + "' xsi:type='T'><b xsi:type=' q:q'/><c xsi:type='p:q'/></p:a>",
            kDeclaration + "<p:a xmlns:xsi=\"" + kXsi + "\" xmlns:p=\"u\" xsi:type=\"T\"><b xsi:type=\" p:q\"/><c xsi:type=\"p:q\"/></p:a>", ""},
        {"--compact", "<p:a xmlns:p='u' xmlns:xsi='" + kXsi + "' xsi:type='T'/>",
            kDeclaration + "<AA:a xmlns:AA=\"u\" xmlns:xsi=\"" + kXsi + "\" xsi:type=\"T\"/>", ""},
        {"--compact", "<a xmlns:p='u&amp;' p:x='1'/>", kDeclaration + "<a xmlns:AA=\"u&amp;\" AA:x=\"1\"/>", ""},
        {"--compact --no-namespaces", "<p:a xmlns:p='u?1&amp;2' p:x='1'> <b xmlns='v'/> <undeclared:c/></p:a>",
            kDeclaration + "<p:a xmlns:p=\"u?1&amp;2\" p:x=\"1\"><b xmlns=\"v\"/><undeclared:c/></p:a>", ""},
        {"--to finf", "<a xmlns='u&amp;'/>", "\xE0\0\0\1\0\x38\xCF\2ns1\1u&\xF0\x3F\x81\x81\0a\xFF"s, ""},
        // Facts instead of the document
        {"--info", "<p:a xmlns:p='u&#10;v' x='1' p:y='2'> <b/>m<b><c/></b></p:a>",
            "form: XML text\nroot: a\nnamespace: u v\nelements: 4\nattributes: 2\ndepth: 3\noctets: 60\n", ""},
        {"--info --no-namespaces", "<p:a xmlns:p='u'/>", "form: XML text\nroot: p:a\nnamespace: (none)\nelements: 1\nattributes: 1\ndepth: 1\noctets: 18\n", ""},
    };
    // clang-format on
    Folder const folder;
    for (auto const& row : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + row.m_options + " -", row.m_input),
                  (Ending{0, row.m_output, row.m_warning}))
            << row.m_options << ' ' << row.m_input.substr(0, 100);
    }
}

TEST(Convert, WritesFastInfosetThatAStrictReaderTakes) {
    std::string const xsi = " xmlns:xsi='" + kXsi + "' ", type = " {" + kXsi + "}type=";
    std::pair<std::string, std::string> const rows[] = {
        {"<a xmlns='u' xmlns:p='v' p:k='1' l='2'><p:b xml:lang='en'/><c xmlns='w'>t</c><d/></a>",
         "<{u}a {v}k=1 l=2><{v}b {http://www.w3.org/XML/1998/namespace}lang=en></><{w}c>t</><{u}d></></>"},
        {"<a xmlns='u'><b xmlns=''/></a>", "<{u}a><b></></>"},
        {"<a><b xmlns='u'><c xmlns=''/></b></a>", "<a><{u}b><c></></></>"},
        {"<a xmlns='&lt;&amp;'/>", "<{<&}a></>"},
        // What a type says stays what it means, and no alias is used twice.
        {"<a" + xsi + "xmlns:ns1='u'><b xsi:type=' ns1:T' xmlns='v'/></a>",
         "<a><{v}b" + type + "{u}T></></>"},
        {"<a" + xsi + "xmlns='u' xsi:type='T'/>", "<{u}a" + type + "T></>"},
        {"<a" + xsi + "xmlns:p='u' xmlns:q='u' xsi:type='p:T'><b xsi:type='q:T'/></a>",
         "<a" + type + "{u}T><b" + type + "{u}T></></>"},
        {"<a" + xsi + "xsi:type='unbound:T'/>", "! a type whose prefix is not in scope at octet 76"},
    };
    Folder const folder;
    auto const read = [&folder](std::string const& name, std::string const& input = {}) {
        auto const [status, out, errors] = folder.Run("bxconvert --to finf " + name, input);
        return BxTest::CStrictFastInfoset::Read(
            {reinterpret_cast<unsigned char const*>(out.data()), out.size()});
    };
    for (auto const& [input, expected] : rows) EXPECT_EQ(read("-", input), expected) << input;
    for (std::string const file :
         {BX_TRACK, BX_TEST_DATA "/drawing.xml", BX_TEST_DATA "/envelope.xml", BX_TEST_DATA "/feed.xml"}) {
        EXPECT_EQ(read(file).substr(0, 2), "<{") << file << read(file);
    }
}

TEST(Convert, WritesTheDeclarationOfFastInfoset) {
    std::pair<char const*, char const*> const rows[] = {
        {"none", ""},
        {"plain", "<?xml encoding='finf'?>"},
        {"yes", "<?xml encoding='finf' standalone='yes'?>"},
        {"no", "<?xml encoding='finf' standalone='no'?>"},
        {"1.0", "<?xml version='1.0' encoding='finf'?>"},
        {"1.0-yes", "<?xml version='1.0' encoding='finf' standalone='yes'?>"},
        {"1.0-no", "<?xml version='1.0' encoding='finf' standalone='no'?>"},
        {"1.1", "<?xml version='1.1' encoding='finf'?>"},
        {"1.1-yes", "<?xml version='1.1' encoding='finf' standalone='yes'?>"},
        {"1.1-no", "<?xml version='1.1' encoding='finf' standalone='no'?>"},
    };
    Folder const folder;
    for (auto const& [name, declaration] : rows) {
        EXPECT_EQ(folder.Run("bxconvert - --to finf --finf-declaration "s + name, "<a/>"),
                  (Ending{0, declaration + "\xE0\0\0\1\0\x3C\0a\xFF"s, ""}));
    }
}

TEST(Convert, ReadsBackTheFormsThatItWrites) {
    struct Row {
        std::string m_options;
        std::string m_form;
        std::string m_start;
    };
    Row const rows[] = {
        {"", "XML text", kDeclaration + "<gpx"},
        {"--encoding utf-16", "XML text", "\xFF\xFE<\0?\0x\0"s},
        {"--encoding utf-16 --compress gzip", "XML text, compressed", "\x1F\x8B\x08"},
        {"--to finf --compress zlib", "Fast Infoset, compressed", "\x78\x01"},
        {"--to finf --finf-declaration 1.1", "Fast Infoset", "<?xml version='1.1' encoding='finf'?>\xE0"},
    };
    Folder const folder;
    for (auto const& [options, form, start] : rows) {
        auto const [status, out, errors] =
            folder.Run("bxconvert " BX_TRACK " -o expected; bxconvert " BX_TRACK " -o form " + options +
                       "; bxconvert form | cmp - expected; bxconvert --info form | head -n 1; cat form");
        EXPECT_EQ(out.substr(0, out.find('\n') + 1 + start.size()), "form: " + form + "\n" + start);
        EXPECT_EQ(errors, "") << options;
    }
}

TEST(Convert, RefusesBadDocuments) {
    struct Row {
        std::string m_options;
        std::string m_input;
        std::string m_message;
    };
    std::string const unwritable = "a name or a text has characters that XML text cannot have";
    Row const rows[] = {
        {"", "", "XML Stream is empty!"},
        {"", "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, unwritable},
        {"", "\xE0\0\0\1\0\x3C\0r\x3C\4b/><c\xFF"s, unwritable},
        {"", "\xE0\0\0\1\0\x3C\1a \xFF"s, unwritable},
        {"", "\xE0\0\0\1\0\x7C\0a\x78\5k='' l\xFF\xF0\xFF"s, unwritable},
        {"--compress gzip", "<a/>", "Failed to compress data. [Error Code: 0]"},
        {"--strict --info", "<a><b/>1<b>1<c/></b></a>", "mixed content, text beside children, in 2 elements"},
    };
    Folder const folder;
    for (auto const& row : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + row.m_options + " - -o out.xml", row.m_input),
                  (Ending{1, "", "bxconvert: standard input: " + row.m_message + "\n"}))
            << row.m_options << ' ' << row.m_input.substr(0, 100);
    }
    EXPECT_EQ(
        folder.Run("bxconvert - -o out.xml", "<a>\n<b>"),
        (Ending{1, "",
                "bxconvert: standard input:2: The document ends inside the element [/a/b], which begins on "
                "line 2\n"}));
    EXPECT_EQ(folder.Run("ls -A"), (Ending{0, "", ""}));
}

TEST(CommandLine, UsageErrors) {
    std::pair<std::string, std::string> const rows[] = {
        {"", "INPUT is missing"},
        {"--nothing in.xml", "unknown option '--nothing'"},
        {"in.xml -o=x", "unknown option '-o=x'"},
        {"- -- --help", "more than one INPUT: '--help'"},
        {"in.xml -o", "option '-o' needs a value"},
        {"--eol in.xml", "'in.xml' is no value of option '--eol', which takes lf|crlf"},
        {"--declaration= in.xml", "'' is no value of option '--declaration', which takes yes|no"},
        {"--no-namespaces in.xml --to finf",
         "option '--no-namespaces' is not for '--to finf', which knows no prefixes as such"},
        {"--compact=yes in.xml", "option '--compact' takes no value"},
        {"'--two\nlines'", "unknown option '--two lines'"},
    };
    Folder const folder;
    folder.Write("in.xml", "<a/>");
    for (auto const& [arguments, message] : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + arguments),
                  (Ending{2, "", "bxconvert: " + message + ". Try 'bxconvert --help'.\n"}))
            << arguments;
    }
}

TEST(CommandLine, HelpAndVersion) {
    Folder const folder;
    EXPECT_EQ(folder.Run("bxconvert --version"), (Ending{0, "bxconvert " BX_VERSION "\n", ""}));
    auto const [status, help, errors] = folder.Run("bxconvert --help");
    EXPECT_EQ(status, 0);
    for (char const* const text :
         {"Usage: bxconvert", "-o OUTPUT", "--eol lf|crlf", "--to xml|finf", "--encoding utf-8|utf-16",
          "--declaration yes|no", "--compress none|gzip|zlib", "|1.1-no\n", "--keep-whitespace",
          "Comments"}) {
        EXPECT_NE(help.find(text), std::string::npos) << text;
    }
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
}

TEST(Files, AreReadAndWritten) {
    std::string const a = "<a/>\n";
    auto const fails = [](std::string const& message, std::string const& out = {}) {
        return Ending{1, out, "bxconvert: " + message + "\n"};
    };
    // Each runs in a folder with in.xml, bad.xml and old.xml. A last command that succeeds hides the status
    // before it.
    // clang-format off
    std::pair<std::string, Ending> const rows[] = {
        // Input
        {"B in.xml", {0, a, ""}},
        {"mv in.xml ./-x; B -- -x", {0, a, ""}},
        {"f=$(printf '\\303\\244\\360\\237\\230\\200'); cp in.xml $f; B $f", {0, a, ""}},
        {"f=$(printf 'x\\377y'); cp in.xml $f; B $f", {0, a, ""}},
        {"B --info in.xml | grep octets", {0, "octets: 25\n", ""}},
        {"mkfifo f; cat in.xml >f & B f", {0, a, ""}},
        {"B in.xml <&-; B - <&-", fails("standard input: Bad file descriptor", a)},
        {"B none.xml", fails("none.xml: Failed to open the file [none.xml] Error [0x00000002]\nNo such file or directory")},
        {"B .", fails(".: Failed to open the file [.] Error [0x00000015]\nIs a directory")},
        // Output
        {"B in.xml -o new.xml; ls -A; cat new.xml", {0, "bad.xml\nin.xml\nnew.xml\nold.xml\n" + a, ""}},
        {"B in.xml -o -; B in.xml -o /dev/stdout; echo end", {0, a + a + "end\n", ""}},
        {"mkfifo f; cat f & B in.xml -o f; wait; test -p f", {0, a, ""}},
        {"B in.xml -o /dev/fd/3 3>>old.xml; cat old.xml", {0, "old" + a, ""}},
        {"chmod 640 old.xml; B in.xml -o old.xml; stat -c %a old.xml; umask 27; B in.xml -o new.xml; stat -c %a new.xml", {0, "640\n640\n", ""}},
        {"mkdir d; mv old.xml d; ln -s old.xml d/l; ln -s d/l ll; B in.xml -o ll; test -L d/l -a -L ll; ls -A . d; cat d/old.xml",
            {0, ".:\nbad.xml\nd\nin.xml\nll\n\nd:\nl\nold.xml\n" + a, ""}},
        {"ln -s new.xml l; B in.xml -o l; readlink l; cat new.xml", {0, "new.xml\n" + a, ""}},
        // Failures leave things as they were
        {"B bad.xml -o old.xml || cat old.xml; ls -A", {0, "oldbad.xml\nin.xml\nold.xml\n", "bxconvert: bad.xml:1:6: mismatched tag at line 1\n"}},
        {"B in.xml -o none/new.xml", fails("none/new.xml: No such file or directory")},
        {"ln -s l l; B in.xml -o l", fails("l: Too many levels of symbolic links")},
        {"B in.xml >/dev/full", fails("standard output: No space left on device")},
        {"B in.xml >&-", fails("standard output: Bad file descriptor")},
        {"(ulimit -f 1; B " BX_TRACK " -o old.xml) || cat old.xml; ls -A", {0, "oldbad.xml\nin.xml\nold.xml\n", "bxconvert: old.xml: File too large\n"}},
    };
    // clang-format on
    for (auto const& [command, outcome] : rows) {
        Folder const folder;
        folder.Write("in.xml", "<?xml version='1.0'?><a/>");
        folder.Write("bad.xml", "<a></b>");
        folder.Write("old.xml", "old");
        EXPECT_EQ(folder.Run("B() { bxconvert --declaration=no \"$@\"; }\n" + command), outcome) << command;
    }
}

}  // namespace
