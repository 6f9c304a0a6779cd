// What is read, shown by the dump.

#include <gtest/gtest.h>

#include <string>

#include "Cases.h"
#include "Folder.h"

namespace BxGen {
namespace {

/// The dump without what stands behind the sign at: up to a blank or the end of the line.
std::string WithoutPlaces(std::string text) {
    for (std::size_t at = text.find(" @"); at != text.npos; at = text.find(" @", at)) {
        text.erase(at, text.find_first_of(" \n", at + 1) - at);
    }
    return text;
}

TEST(Components, AreWhatTheDumpShows) {
    Folder const folder;
    for (Case const& each : CasesIn("components")) {
        Outcome const outcome = folder.Dump(Schema(each.m_body, each.m_attributes));
        EXPECT_EQ(outcome.m_messages, "") << each.m_place;
        EXPECT_EQ(WithoutPlaces(outcome.m_output), each.m_outcome) << each.m_place;
    }
}

TEST(Components, PlacesAndEncodings) {
    Folder const folder;
    std::string const schema =
        "<?xml version='1.0' encoding='ISO-8859-1'?>\n<!DOCTYPE xs:schema [<!ENTITY n 'e'>]>\n"
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>\n  <xs:element name='&n;\xE9'/>\n</xs:schema>";
    EXPECT_EQ(folder.Dump(schema),
              (Outcome{0, "schema a.xsd of \"\"\nelement e\xC3\xA9 type xs:anyType @a.xsd:4:3\n", ""}));
}

}  // namespace
}  // namespace BxGen
