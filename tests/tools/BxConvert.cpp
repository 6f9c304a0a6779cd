// bxconvert as its users run it: by its command line.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

/// How a command ended and what it printed.
struct Outcome {
    int m_status;
    std::string m_out;
    std::string m_err;
    bool operator==(Outcome const&) const = default;
};

void PrintTo(Outcome const& outcome, std::ostream* out) {
    *out << "status " << outcome.m_status << "\n--- out\n" << outcome.m_out << "\n--- err\n" << outcome.m_err;
}

void Put(fs::path const& path, std::string const& octets) {
    std::ofstream(path, std::ios::binary) << octets;
}

std::string Get(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A folder to run commands in, gone at the end.
class Folder {
public:
    Folder() {
        std::string name = (fs::temp_directory_path() / "bxconvert-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw fs::filesystem_error("mkdtemp", name, {});
        m_path = name;
        fs::create_directory(m_path / "work");
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;
    ~Folder() { fs::remove_all(m_path); }

    void PutFile(char const* name, std::string const& octets) const { Put(m_path / "work" / name, octets); }

    /// Runs a line of shell, for which bxconvert is a command.
    Outcome Run(std::string const& command, std::string const& input = {}) const {
        Put(m_path / "in", input);
        Put(m_path / "run", "PATH=" + fs::path(BXCONVERT).parent_path().string() + ":$PATH\ncd " +
                                (m_path / "work").string() + "\n" + command + "\n");
        std::string const base = m_path.string();
        int const status = std::system(
            ("sh " + base + "/run <" + base + "/in >" + base + "/out 2>" + base + "/err").c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Get(m_path / "out"), Get(m_path / "err")};
    }

private:
    fs::path m_path;
};

std::string const kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
std::string const kXsi = "http://www.w3.org/2001/XMLSchema-instance";

std::string Nested(int levels) {
    std::string open;
    std::string close;
    for (int i = 1; i < levels; ++i) {
        open += "<a>";
        close += "</a>";
    }
    return open + "<a/>" + close;
}

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
        {"--compact --format", "<a/>", kDeclaration + "<a/>\n", ""},
        {"--declaration=no", "<?xml version='1.0'?><a/>", "<a/>\n", ""},
        {"--declaration no --declaration yes", "<a/>", kDeclaration + "<a/>\n", ""},
        {"--eol crlf", "<a>1\n2<b/></a>", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>\r\n\t<b/>\r\n1\r\n2</a>\r\n", mixed + "1 element\n"},
        {"--eol=crlf --eol=lf --compact", "<a>1\r\n2</a>", kDeclaration + "<a>1\n2</a>", ""},
        {"--compact", "<?xml version='1.0' encoding='ISO-8859-1'?><a x='\xE9&lt;&amp;&quot;'>\xE9&gt;</a>",
            kDeclaration + "<a x=\"\xC3\xA9&lt;&amp;&quot;\">\xC3\xA9&gt;</a>", ""},
        {"--compact", std::string("\xFF\xFE<\0a\0>\0\x3D\xD8\x00\xDE<\0/\0a\0>\0", 20), kDeclaration + "<a>\xF0\x9F\x98\x80</a>", ""},
        {"--compact", Nested(1024), kDeclaration + Nested(1024), ""},
        // Encodings, and the forms that are not text
        {"--encoding utf-16 --declaration no --compact", "<a>\xF0\x9F\x98\x80</a>", "\xFF\xFE<\0a\0>\0\x3D\xD8\x00\xDE<\0/\0a\0>\0"s, ""},
        {"--encoding utf-16 --encoding utf-8 --compact", "<?xml version='1.0' encoding='UTF-8'?><a/>", kDeclaration + "<a/>", ""},
        {"--to finf", "<a>\n<b/></a>", "\xE0\0\0\1\0\x3C\0a\x3C\0b\xF0\xFF"s, ""},
        {"--to finf --to xml", "<a/>", kDeclaration + "<a/>\n", ""},
        {"--to finf --keep-whitespace", "<a> <b/></a>", "\xE0\0\0\1\0\x3C\0a\x3C\0b\xF0\x90 \xFF"s, ""},
        {"--compact", "\xE0\0\0\1\0\x3C\0a\x91hi\xFF"s, kDeclaration + "<a>hi</a>", ""},
        {"--compact --no-namespaces", "\xE0\0\0\1\0\x3F\0p\0u\0a\xFF"s, kDeclaration + "<a xmlns=\"u\"/>", ""},
        {"--to finf", "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, ""},
        {"--compact", "<?xml encoding='finf'?>\xE0\0\0\1\0\x3C\0a\xFF"s, kDeclaration + "<a/>", ""},
        // Text beside children
        {"--compact", "<a> <b> </b>\t\r\n&#13;</a>", kDeclaration + "<a><b> </b></a>", ""},
        {"--compact --keep-whitespace", "<a> <b>\t</b>\n</a>", kDeclaration + "<a><b>\t</b> \n</a>", ""},
        {"--compact", "<a> <b> </b>\xC2\xA0</a>", kDeclaration + "<a><b> </b> \xC2\xA0</a>", mixed + "1 element\n"},
        {"--compact", "<a>1<b>2<c/>3</b>4<b>5</b> </a>", kDeclaration + "<a><b><c/>23</b><b>5</b>14 </a>", mixed + "2 elements\n"},
        {"--compact --strict", "<a> <b>2</b>\n</a>", kDeclaration + "<a><b>2</b></a>", ""},
        // Namespaces
        {"--compact", "<p:a xmlns:p='u' p:x='1' x='2'><p:b/></p:a>",
            kDeclaration + "<a xmlns=\"u\" xmlns:AA=\"u\" AA:x=\"1\" x=\"2\"><b/></a>", ""},
        {"--compact", "<a xmlns='u'><b xmlns='v'/><b xmlns='v'><c/></b></a>",
            kDeclaration + "<a xmlns=\"u\"><AA:b xmlns:AA=\"v\"/><AA:b xmlns:AA=\"v\"><AA:c/></AA:b></a>", ""},
        {"--compact", "<a xmlns='u'><b xmlns='v'><c xmlns=''/></b></a>",
            kDeclaration + "<AA:a xmlns:AA=\"u\"><AB:b xmlns:AB=\"v\"><c/></AB:b></AA:a>", ""},
        {"--compact", "<a><b xmlns='u'/></a>", kDeclaration + "<a><AA:b xmlns:AA=\"u\"/></a>", ""},
        {"--compact", "<a xmlns:xsi='" + kXsi + "' xmlns:q='q'><b xsi:nil='true' xml:lang='en'/></a>",
            kDeclaration + "<a xmlns:xsi=\"" + kXsi + "\"><b xsi:nil=\"true\" xml:lang=\"en\"/></a>", ""},
        {"--compact", "<a xmlns:xsi='" + kXsi + "'/>", kDeclaration + "<a/>", ""},
        {"--compact", "<a xmlns:i='" + kXsi + "' xmlns:xsi='u' i:nil='1'/>", kDeclaration + "<a xmlns:AA=\"" + kXsi + "\" AA:nil=\"1\"/>", ""},
        {"--compact", "<a xmlns='u?1&amp;2'><b xmlns='&lt;&quot;&#10;&#9;&#13;' xmlns:p='u?1&amp;2' p:x='1'/></a>",
            kDeclaration + "<a xmlns=\"u?1&amp;2\"><AA:b xmlns:AA=\"&lt;&quot;&#10;&#9;&#13;\" xmlns:AB=\"u?1&amp;2\" AB:x=\"1\"/></a>", ""},
        {"--compact --no-namespaces", "<p:a xmlns:p='u?1&amp;2' p:x='1'> <b xmlns='v'/> <undeclared:c/></p:a>",
            kDeclaration + "<p:a xmlns:p=\"u?1&amp;2\" p:x=\"1\"><b xmlns=\"v\"/><undeclared:c/></p:a>", ""},
        // Facts instead of the document
        {"--info", "<p:a xmlns:p='u&#10;v' x='1' p:y='2'> <b/>m<b><c/></b></p:a>",
            "form: XML text\nroot: a\nnamespace: u v\nelements: 4\nattributes: 2\ndepth: 3\noctets: 60\n", ""},
        {"--info --no-namespaces", "<p:a xmlns:p='u'/>", "form: XML text\nroot: p:a\nnamespace: (none)\nelements: 1\nattributes: 1\ndepth: 1\noctets: 18\n", ""},
    };
    // clang-format on
    Folder const folder;
    for (auto const& row : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + row.m_options + " -", row.m_input),
                  (Outcome{0, row.m_output, row.m_warning}))
            << row.m_options << ' ' << row.m_input.substr(0, 100);
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
                  (Outcome{0, declaration + "\xE0\0\0\1\0\x3C\0a\xFF"s, ""}));
    }
}

TEST(Convert, ReadsBackEveryFormThatItWrites) {
    Folder const folder;
    // Prints how many forms there are, and each that does not lead back.
    Outcome const outcome = folder.Run(R"(
        count=0
        bxconvert --compact )" BX_TRACK R"( -o expected
        try() {
            for compression in none gzip zlib; do
                bxconvert "$@" --compress $compression expected -o form || echo "$@ $compression is not written"
                bxconvert --compact form -o back || echo "$@ $compression is not read"
                cmp back expected
                bxconvert "$@" --compress $compression <form - | cmp - form
                count=$((count + 1))
            done
        }
        try --encoding utf-8 --format --eol crlf
        try --encoding utf-16
        try --encoding utf-16 --declaration no
        for declaration in none plain yes no 1.0 1.0-yes 1.0-no 1.1 1.1-yes 1.1-no; do
            try --to finf --finf-declaration $declaration
        done
        bxconvert --to finf expected | bxconvert --to finf - | bxconvert --encoding utf-16 - |
            bxconvert --compact - | cmp - expected
        echo $count forms)");
    EXPECT_EQ(outcome, (Outcome{0, "39 forms\n", ""}));
}

TEST(Convert, TellsTheFormThatItRead) {
    std::pair<char const*, char const*> const rows[] = {
        {"--encoding utf-16", "form: XML text\n"},
        {"--compress gzip", "form: XML text, compressed\n"},
        {"--compress zlib --to finf", "form: Fast Infoset, compressed\n"},
        {"--to finf --finf-declaration 1.1", "form: Fast Infoset\n"},
    };
    Folder const folder;
    for (auto const& [options, form] : rows) {
        EXPECT_EQ(folder.Run("bxconvert " BX_TRACK " "s + options + " | bxconvert --info - | grep -a ^form"),
                  (Outcome{0, form, ""}));
    }
}

TEST(Convert, CompressesFromTheFirstOctet) {
    Folder const folder;
    std::string const options = "bxconvert " BX_TRACK " --compress ";
    std::string const utf16 = folder.Run("bxconvert --encoding utf-16 " BX_TRACK).m_out;
    EXPECT_TRUE(utf16.starts_with("\xFF\xFE<\0?\0x\0"s));
    EXPECT_EQ(folder.Run(options + "gzip --encoding utf-16 | gunzip"), (Outcome{0, utf16, ""}));
    EXPECT_TRUE(folder.Run(options + "gzip").m_out.starts_with("\x1F\x8B\x08"));
    EXPECT_TRUE(folder.Run(options + "zlib --to finf").m_out.starts_with("\x78\x01"));
}

TEST(Convert, KeepsNamespacesOnTheWayThroughFastInfoset) {
    std::string const documents[] = {
        "<a xmlns=\"u?1&amp;2\" x=\"\"><AA:b xmlns:AA=\"&lt;&quot;&#10;&#9;&#13;\" xmlns:AB=\"u?1&amp;2\" AB:x=\"1\"/></a>",
        "<a xmlns:xsi=\"" + kXsi + "\"><b xsi:nil=\"true\" xml:lang=\"en\"/></a>",
        "<AA:a xmlns:AA=\"u\"><AB:b xmlns:AB=\"v\"><c/></AB:b></AA:a>",
    };
    Folder const folder;
    for (std::string const& document : documents) {
        EXPECT_EQ(folder.Run("bxconvert --to finf - | bxconvert --compact --declaration no -", document),
                  (Outcome{0, document, ""}));
    }
}

TEST(Convert, IsStable) {
    Folder const folder;
    Outcome const once = folder.Run("bxconvert " BX_TRACK);
    EXPECT_EQ(once.m_status, 0);
    EXPECT_NE(once.m_out.find("<AA:heartRate>"), std::string::npos);
    EXPECT_EQ(folder.Run("bxconvert -", once.m_out), once);
    EXPECT_EQ(folder.Run("bxconvert --compact - | bxconvert -", once.m_out), once);
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
        {"", "no XML", "syntax error at line 1"},
        {"", "<a>\n<b></a>", "mismatched tag at line 2"},
        {"", "<a><b/>", "the document ends inside an element"},
        {"", "<p:a/>", "unbound prefix at line 1"},
        {"", Nested(1025), "Elements are nested more than 1024 levels deep, which is the limit"},
        {"", "\xE0\0\0\1\0\x3C\0a"s, "Failed to parse FastInfoset. Unexpected End of File."},
        {"", "\xE0\0\0\1\0\x3C\0a\x90\1\xFF"s, unwritable},
        {"--encoding utf-16", "\xE0\0\0\1\0\x3C\0a\x92\0\xEF\xBF\xBF\xFF"s, unwritable},
        {"", "\xE0\0\0\1\0\x3C\2a b\xFF"s, unwritable},
        {"", "\xE0\0\0\1\0\x3C\4a/><b\xFF"s, unwritable},
        {"", "\xE0\0\0\1\0\x3C\3b><a\xFF"s, unwritable},
        {"--compact", "\xE0\0\0\1\0\x3C\5a k=''\xFF"s, unwritable},
        {"--compress gzip", "<a/>", "Failed to compress data. [Error Code: 0]"},
        {"--compress zlib --to finf", "<a/>", "Failed to compress data. [Error Code: 0]"},
        {"--strict", "<a>1<b/></a>", "mixed content, text beside children, in 1 element"},
        {"--strict --info", "<a><b/>1<b>1<c/></b></a>", "mixed content, text beside children, in 2 elements"},
    };
    Folder const folder;
    for (auto const& row : rows) {
        EXPECT_EQ(folder.Run("bxconvert " + row.m_options + " - -o out.xml", row.m_input),
                  (Outcome{1, "", "bxconvert: standard input: " + row.m_message + "\n"}))
            << row.m_options << ' ' << row.m_input.substr(0, 100);
    }
    EXPECT_EQ(folder.Run("ls -A").m_out, "");
}

TEST(CommandLine, UsageErrors) {
    struct Row {
        char const* m_arguments;
        char const* m_message;
    };
    Row const rows[] = {
        {"", "INPUT is missing"},
        {"--compact --", "INPUT is missing"},
        {"--nothing in.xml", "unknown option '--nothing'"},
        {"in.xml -x", "unknown option '-x'"},
        {"in.xml --Compact", "unknown option '--Compact'"},
        {"in.xml in.xml", "more than one INPUT: 'in.xml'"},
        {"- -- --help", "more than one INPUT: '--help'"},
        {"in.xml -o", "option '-o' needs a value"},
        {"in.xml --eol", "option '--eol' needs a value"},
        {"--eol in.xml", "'in.xml' is no value of option '--eol', which takes lf|crlf"},
        {"--declaration= in.xml", "'' is no value of option '--declaration', which takes yes|no"},
        {"--to fastinfoset in.xml", "'fastinfoset' is no value of option '--to', which takes xml|finf"},
        {"--encoding UTF-8 in.xml", "'UTF-8' is no value of option '--encoding', which takes utf-8|utf-16"},
        {"--compress 1 in.xml", "'1' is no value of option '--compress', which takes none|gzip|zlib"},
        {"--finf-declaration 2.0 in.xml",
         "'2.0' is no value of option '--finf-declaration', which takes "
         "none|plain|yes|no|1.0|1.0-yes|1.0-no|1.1|1.1-yes|1.1-no"},
        {"--no-namespaces in.xml --to finf",
         "option '--no-namespaces' is not for '--to finf', which knows no prefixes as such"},
        {"--compact=yes in.xml", "option '--compact' takes no value"},
        {"'--two\nlines'", "unknown option '--two lines'"},
    };
    Folder const folder;
    folder.PutFile("in.xml", "<a/>");
    for (auto const& row : rows) {
        EXPECT_EQ(
            folder.Run(std::string("bxconvert ") + row.m_arguments),
            (Outcome{2, "", std::string("bxconvert: ") + row.m_message + ". Try 'bxconvert --help'.\n"}))
            << row.m_arguments;
    }
}

TEST(CommandLine, HelpAndVersion) {
    Folder const folder;
    EXPECT_EQ(folder.Run("bxconvert --version"), (Outcome{0, "bxconvert " BX_VERSION "\n", ""}));
    Outcome const help = folder.Run("bxconvert --help");
    EXPECT_EQ(help.m_status, 0);
    for (char const* const text : {"Usage: bxconvert", "-o OUTPUT", "--eol lf|crlf", "--to xml|finf",
                                   "|1.1-no\n", "--keep-whitespace", "Comments"}) {
        EXPECT_NE(help.m_out.find(text), std::string::npos) << text;
    }
    std::istringstream lines(help.m_out);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
}

TEST(Files, AreReadAndWritten) {
    struct Row {
        char const* m_command;
        Outcome m_outcome;
    };
    std::string const a = "<a/>\n";
    auto const fails = [](std::string const& message, std::string const& out = {}) {
        return Outcome{1, out, "bxconvert: " + message + "\n"};
    };
    // Each runs in a folder with in.xml, bad.xml and old.xml. A last command that succeeds hides the status
    // before it.
    // clang-format off
    Row const rows[] = {
        // Input
        {"B in.xml", {0, a, ""}},
        {"mv in.xml ./-x; B -- -x", {0, a, ""}},
        {"f=$(printf '\\303\\244\\360\\237\\230\\200'); cp in.xml $f; B $f", {0, a, ""}},
        {"f=$(printf 'x\\377y'); cp in.xml $f; B $f", {0, a, ""}},
        {"gzip in.xml; B in.xml.gz; gzip -c bad.xml | B /dev/stdin", fails("/dev/stdin: mismatched tag at line 1", a)},
        {"gzip in.xml; test \"$(B - --info <in.xml.gz | grep octets)\" = \"octets: $(stat -c %s in.xml.gz)\"", {0, "", ""}},
        {"mkfifo f; cat in.xml >f & B f", {0, a, ""}},
        {"B in.xml <&-; B - <&-", fails("standard input: Bad file descriptor", a)},
        {"B none.xml", fails("none.xml: Failed to open the file [none.xml] Error [0x00000002]")},
        {"B .", fails(".: Failed to open the file [.] Error [0x00000015]")},
        {": >empty.xml; B empty.xml", fails("empty.xml: Invalid or empty XML document")},
        // Output
        {"B in.xml -o new.xml; ls -A; cat new.xml", {0, "bad.xml\nin.xml\nnew.xml\nold.xml\n" + a, ""}},
        {"B -o in.xml in.xml; cat in.xml", {0, a, ""}},
        {"B in.xml -o -; B in.xml -o /dev/stdout; echo end", {0, a + a + "end\n", ""}},
        {"B in.xml -o /dev/null; test -c /dev/null", {0, "", ""}},
        {"mkfifo f; cat f & B in.xml -o f; wait; test -p f", {0, a, ""}},
        {"B in.xml -o /dev/fd/3 3>>old.xml; cat old.xml", {0, "old" + a, ""}},
        {"chmod 640 old.xml; B in.xml -o old.xml; stat -c %a old.xml; umask 27; B in.xml -o new.xml; stat -c %a new.xml", {0, "640\n640\n", ""}},
        {"mkdir d; mv old.xml d; ln -s d/old.xml l; ln -s l ll; B in.xml -o ll; test -L l -a -L ll; ls -A . d; cat d/old.xml",
            {0, ".:\nbad.xml\nd\nin.xml\nl\nll\n\nd:\nold.xml\n" + a, ""}},
        {"ln -s new.xml l; B in.xml -o l; readlink l; cat new.xml", {0, "new.xml\n" + a, ""}},
        // Failures leave things as they were
        {"B bad.xml -o old.xml || cat old.xml; ls -A", {0, "oldbad.xml\nin.xml\nold.xml\n", "bxconvert: bad.xml: mismatched tag at line 1\n"}},
        {"B in.xml -o none/new.xml", fails("none/new.xml: No such file or directory")},
        {"B in.xml -o .", fails(".: Is a directory")},
        {"ln -s l l; B in.xml -o l", fails("l: Too many levels of symbolic links")},
        {"B in.xml >/dev/full", fails("standard output: No space left on device")},
        {"B in.xml >&-", fails("standard output: Bad file descriptor")},
        {"B --help >/dev/full", fails("standard output: No space left on device")},
        {"B in.xml -o /dev/full", fails("/dev/full: No space left on device")},
        {"(ulimit -f 1; B " BX_TRACK " -o old.xml) || cat old.xml; ls -A", {0, "oldbad.xml\nin.xml\nold.xml\n", "bxconvert: old.xml: File too large\n"}},
    };
    // clang-format on
    for (auto const& row : rows) {
        Folder const folder;
        folder.PutFile("in.xml", "<?xml version='1.0'?><a/>");
        folder.PutFile("bad.xml", "<a></b>");
        folder.PutFile("old.xml", "old");
        EXPECT_EQ(folder.Run(std::string("B() { bxconvert --declaration=no \"$@\"; }\n") + row.m_command),
                  row.m_outcome)
            << row.m_command;
    }
}

}  // namespace
