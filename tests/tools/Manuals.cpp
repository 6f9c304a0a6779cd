// The manual pages and the completion of the tools tell the options that --help tells.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace {

/// What a line of shell prints.
std::string OutputOf(std::string const& command) {
    return BxTest::TemporaryFolder().Run("/", command).m_out;
}

/// A text as troff reads it.
std::string Escaped(std::string const& text) {
    std::string escaped;
    for (char const c : text) {
        if (c == '-') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

/// The options of --help as a manual page has them.
std::string OptionsOf(std::string const& program) {
    struct Option {
        std::string m_head;
        std::string m_text;
    };
    std::vector<Option> options;
    std::istringstream help(OutputOf('\'' + program + "' --help"));
    for (std::string line; std::getline(help, line) && (options.empty() || !line.empty());) {
        bool const begins = line.starts_with("  -");
        if (!begins && options.empty()) continue;
        std::size_t const end = begins ? std::min(line.find("  ", 2), line.size()) : 0;
        if (begins) options.push_back({line.substr(2, end - 2), ""});
        std::size_t const text = line.find_first_not_of(' ', end);
        if (text == line.npos) continue;
        options.back().m_text += (options.back().m_text.empty() ? "" : " ") + line.substr(text);
    }
    std::string page;
    for (auto const& [head, text] : options) {
        std::size_t const blank = head.find(' ');
        bool const hasValue = blank != head.npos;
        page += ".TP\n" + (hasValue ? ".BI \"" + Escaped(head.substr(0, blank)) + " \" \"" +
                                          Escaped(head.substr(blank + 1)) + '"'
                                    : ".B " + Escaped(head));
        page += '\n' + Escaped(text) + '\n';
    }
    return page;
}

TEST(Manuals, TellTheOptionsOfHelp) {
    struct Row {
        std::string m_program;
        std::string m_page;
    };
    for (Row const& row : {Row{BXCONVERT, "bxconvert.1"}, {BXGEN, "bxgen.1"}}) {
        std::string const page = BxTest::Content(BX_MANUALS "/" + row.m_page);
        std::string const head = ".SH OPTIONS\n";
        std::size_t const first = page.find(head) + head.size();
        EXPECT_EQ(page.substr(first, page.find(".SH ", first) - first), OptionsOf(row.m_program))
            << row.m_page;
    }
}

TEST(Completion, KnowsTheOptionsOfHelp) {
    struct Row {
        std::string m_words;  ///< the last one is completed
        std::string m_replies;
    };
    std::string const gen = "'" BXGEN "'";
    std::string const convert = "'" BXCONVERT "'";
    for (Row const& row : {
             Row{convert + " --co", "--compact --compress "},
             {convert + " --compress g", "gzip "},
             {convert + " --compress = ''", "none gzip zlib "},
             {convert + " --compress =", "none gzip zlib "},
             {convert + " --finf-declaration 1.1", "1.1 1.1-yes 1.1-no "},
             {convert + " a", "ab.xsd ac "},
             {gen + " --names a", "ab.xsd ac "},
             {gen + " --out-dir a", "ac "},
             {gen + " --sources a", ""},
             {gen + " --na", "--name --namespace-map --names "},
             {gen + " --ascii a", "ab.xsd ac "},
         }) {
        EXPECT_EQ(
            OutputOf(
                "folder=$(mktemp -d) && cd \"$folder\" && touch ab.xsd && mkdir ac && bash -c '. \"$0\"; "
                "COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                "_bx_complete \"$1\" \"${!#}\" \"${COMP_WORDS[COMP_CWORD - 1]}\"; "
                "[ ${#COMPREPLY[@]} = 0 ] || printf \"%s \" \"${COMPREPLY[@]}\"' '" BX_COMPLETION "' " +
                row.m_words + "; rm -r \"$folder\""),
            row.m_replies)
            << row.m_words;
    }
}

}  // namespace
