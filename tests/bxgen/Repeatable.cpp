// What is generated depends on the schemas and the options alone.

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <locale>
#include <map>
#include <string>

#include "Folder.h"

namespace BxGen {
namespace {

/// Numbers in the way of no locale that a test may count on.
class Grouping : public std::numpunct<char> {
protected:
    char do_thousands_sep() const override { return '.'; }
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\1"; }
};

/// A locale of C and of C++ for a while.
class Locales {
public:
    Locales(char const* name, std::locale const& locale) : m_name(std::setlocale(LC_ALL, nullptr)) {
        m_isThere = std::setlocale(LC_ALL, name) != nullptr;
        m_locale = std::locale::global(locale);
    }
    Locales(Locales const&) = delete;
    Locales& operator=(Locales const&) = delete;
    ~Locales() {
        std::locale::global(m_locale);
        std::setlocale(LC_ALL, m_name.c_str());
    }

    bool IsThere() const { return m_isThere; }

private:
    std::string m_name;
    std::locale m_locale;
    bool m_isThere = false;
};

/// Files by name, and what was said.
using Made = std::map<std::string, std::string>;

Made Make() {
    Folder const folder;
    std::string types;
    for (int i = 0; i < 1200; ++i) types += "<xs:complexType name='i" + std::to_string(i) + "'/>\n";
    folder.Put("a.xsd",
               Schema("<xs:include schemaLocation='d/b.xsd'/>\n" + types +
                      "<xs:element name='title' type='t:i1100'/><xs:element name='Release' type='t:i'/>"));
    folder.Put(
        "d/b.xsd",
        Schema(
            "<xs:complexType name='i' mixed='true'><xs:sequence><xs:element name='item' type='xs:int' "
            "minOccurs='1000' maxOccurs='2000'/><xs:any namespace='##other'/></xs:sequence></xs:complexType>"
            "<xs:simpleType name='s'><xs:restriction base='xs:string'><xs:maxLength value='12345'/>"
            "<xs:pattern value='\\i{1000}'/></xs:restriction></xs:simpleType>"));
    Outcome const outcome = folder.Run({"--program", "--sources", "3", "--depfile", "@out/d", "@a.xsd"});
    Made made = {{"status", std::to_string(outcome.m_status)}, {"messages", outcome.m_messages}};
    for (auto const& entry : std::filesystem::directory_iterator(folder.Path("out"))) {
        std::ifstream file(entry.path(), std::ios::binary);
        std::string text(std::istreambuf_iterator<char>(file), {});
        // Only a rule for make names folders.
        if (entry.path().filename() == "d") Folder::Replace(text, folder.Path(""), "");
        made[entry.path().filename()] = text;
    }
    return made;
}

TEST(Repeatable, InAnotherFolder) {
    Made const first = Make();
    EXPECT_EQ(first.at("status"), "0") << first.at("messages");
    EXPECT_EQ(first.size(), 2u + 7u);
    EXPECT_EQ(Make(), first);
}

TEST(Repeatable, WhereNumbersHavePoints) {
    Made const plain = Make();
    Locales const locales("C", std::locale(std::locale::classic(), new Grouping));
    EXPECT_EQ(Make(), plain);
}

class InLocale : public testing::TestWithParam<char const*> {};

TEST_P(InLocale, IsTheSame) {
    Made const plain = Make();
    Locales const locales(GetParam(), std::locale::classic());
    if (!locales.IsThere()) GTEST_SKIP() << "the locale " << GetParam() << " is not installed";
    EXPECT_EQ(Make(), plain);
}

INSTANTIATE_TEST_SUITE_P(Repeatable, InLocale, testing::Values("tr_TR.UTF-8", "de_DE.UTF-8"));

}  // namespace
}  // namespace BxGen
