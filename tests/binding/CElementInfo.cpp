#include "BxXmlLib5/binding/CElementInfo.h"

#include <array>

#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

static_assert(std::is_abstract_v<CElementInfoSeqNonCol> && std::is_abstract_v<CElementInfoAllNonCol>);

/// The operations that the driver calls.
struct Entry : CElementInfo {
    static bool Read(CElementInfo& entry, CXmlSerializationContext const& context, TestObject& owner,
                     CXmlElement* element, CXmlElement** child, XmlElementType ownerType) {
        return (entry.*&Entry::ElementFromXml)(context, &owner, element, child, u"own", ownerType);
    }
    static bool IsContent(CElementInfo const& entry, TestObject const& owner, bool found, bool isElement) {
        return (entry.*&Entry::Validate)(Settings(), &owner, found, isElement);
    }
    using CElementInfo::GetAnyDefaultNamespace;
};

/// What the only entry of a class makes of the children of an element: its result, the child at which reading
/// then stands (. for none), and what the owner saw.
std::string Ask(std::string const& type, char const* settings, std::string const& document,
                XmlElementType ownerType) {
    CSmartPtr<TestObject> const owner = new TestObject(Class(type));
    CXmlDocument tree;
    tree.LoadXml(InRoot(document).c_str());
    CXmlElement* const root = tree.GetDocumentElement();
    CXmlElement* child = root->GetFirstElement();
    std::string answer;
    t_log.clear();
    std::string const thrown = Thrown([&] {
        bool const satisfied =
            Entry::Read(*owner->m_class.m_elements[0], Settings(settings), *owner, root, &child, ownerType);
        answer = satisfied ? "1" : "0";
    });
    answer += (child == nullptr ? "." : ToUtf8(child->GetLocalName())) + (t_log.empty() ? "" : " ") + t_log;
    return thrown == "nothing" ? answer : thrown;
}

/// Expects an answer, or one under an element, a bar, one under a pseudo element.
void ExpectAnswer(std::string const& type, char const* settings, std::string const& document,
                  std::string const& answer) {
    std::size_t const bar = answer.find('|');
    EXPECT_EQ(Ask(type, settings, document, et_Element), Failure(answer.substr(0, bar)))
        << type << " " << settings << " " << document;
    EXPECT_EQ(Ask(type, settings, document, et_PseudoElement), Failure(answer.substr(bar + 1)))
        << type << " " << settings << " " << document << " in a pseudo element";
}

std::string const kMissing = "CBxValidationException: Failed to find the mandatory element [";

/// The four answers of Validate: found or not under an element, found or not under a pseudo element; m for what
/// is missing, n for what must not be asked.
std::string Contents(std::string const& type) {
    TestObject const owner(Class(type));
    std::string contents;
    for (int i = 0; i < 4; ++i) {
        bool passes = false;
        std::string const thrown = Thrown(
            [&] { passes = Entry::IsContent(*owner.m_class.m_elements[0], owner, i % 2 == 0, i < 2); });
        contents += thrown == "nothing"            ? (passes ? '1' : '0')
                    : thrown == Failure("!never")  ? 'n'
                    : thrown.starts_with(kMissing) ? 'm'
                                                   : '?';
    }
    return contents;
}

TEST(ElementInfo, ReadsByClassAndOwner) {
    Class("s=e(Px?)");
    struct {
        char const* m_field;
        std::string m_document;
        char const* m_contents;
        // Where it is there; where it is not, by default, with no child, under M; behind others under E.
        char const *m_present, *m_absent, *m_none, *m_missing, *m_behind;
    } const rows[] = {
        {"s(Pe!)", "<e>1</e>", "nnnn", "1b e=", "!missing e|0b", "!missing e|0.", "1b|0b", "1d e="},
        {"s(Ee!)", "<e>one</e>", "nnnn", "1b e=", "!missing e|0b", "!missing e|0.", "1b|0b", "1d e=|0b"},
        {"s(Ce!s())", "<e/>", "nnnn", "1b {}", "!missing e|0b", "!missing e|0.", "1b|0b", "1d {}|0b"},
        {"s(Ce!~s(Px?))", "<x>1</x>", "nnnn", "1b {x=}", "!missing e|0b {}", "!missing e|0.",
         "!missing e|0b {}", "!missing e|0b {}"},
        {"s(Ce.~s(Px?))", "<x>1</x>", "nnnn", "1b {x=}", "1b {}", "1. {}", "1b {}", "0b {}|1b {}"},
        {"s(Ae!)", "<e/>", "nnnn", "1b new (e){}e=", "!no-substitute e|0b", "!no-substitute e|0.",
         "!no-substitute e|0b", "!no-substitute e|0b"},
        {"s(Ue!)", "<e/>", "nnnn", "1b", "!not-from |0b", "!missing e", "!not-from |0b", "!not-from |0b"},
        {"s(U_!)", "<e/>", "nnnn", "1b", "1.", "!missing AnyElement", "1.", "1c"},
        {"s(Pe?)", "<e>1</e>", "nnnn", "1b e=", "1b", "1.", "1b", "1b"},
        {"s(Ce?s(Px?))", "<e><x>1</x></e>", "nnnn", "1b new e(){x=}e=", "1b", "1.", "1b", "1b"},
        {"s(Ce?~s(Px?))", "<x>1</x>", "nnnn", "1b new e(){x=}e=", "1b new e(){}", "1.", "1b new e(){}",
         "1b new e(){}"},
        {"s(Ae?)", "<e><x>1</x></e>", "nnnn", "1b new (e){x=}e=", "1b", "1.", "1b", "1b"},
        {"s(Ue?)", "<e/>", "nnnn", "1b e=", "1b", "1.", "1b", "1b"},
        {"s(U_?)", "<e/>", "nnnn", "1b _=", "1. _=", "1.", "1. _=", "1c _="},
        {"s(Pe*)", "<e/><e/>", "nnnn", "1b {=}{=}#", "1b #", "1. #", "1b #", "1b #"},
        {"s(Ce*~s(Px!))", "<x>1</x><x>2</x>", "nnnn", "1b {x=}{x=}{}#", "1b {}#", "1. #", "1b {}#",
         "1d {x=}{x=}{}#"},
        {"s(Ue*)", "<e/>", "nnnn", "1b", "1b", "1.", "1b", "1b"},
        {"s(U_*)", "<e/>", "nnnn", "1.", "1.", "1.", "1.", "1."},
        {"a(Pe!)", "<e>1</e>", "1m10", "1b e=", "0b", "0.", "0b", "0b"},
        {"a(Ce!s())", "<e/>", "1m10", "1b {}", "0b", "0.", "0b", "0b"},
        {"a(Ce.s())", "<e/>", "1110", "1b {}", "0b", "0.", "0b", "0b"},
        {"a(Ce!~s(Px?))", "<x>1</x>", "1m10", "1b {x=}", "0b {}", "0. {}", "0b {}", "0b {}"},
        {"a(Ce.~s(Px?))", "<x>1</x>", "1m10", "1b {x=}", "0b {}", "0. {}", "0b {}", "0b {}"},
        {"a(Ae!)", "<e/>", "1m10", "!unreadable", "!unreadable", "0.", "!unreadable", "!unreadable"},
        {"a(Ue!)", "<e/>", "1m10", "1b", "0b", "0.", "0b", "0b"},
        {"a(Pe?)", "<e>1</e>", "1111", "1b e=", "0b", "0.", "0b", "0b"},
        {"a(Ce?s(Px?))", "<e><x>1</x></e>", "1111", "1b new e(){x=}e=", "0b", "0.", "0b", "0b"},
        {"a(Ce?~s(Px?))", "<x>1</x>", "1111", "1b new e(){x=}e=", "0b new e(){}", "0.", "0b new e(){}",
         "0b new e(){}"},
        {"a(Ue?)", "<e/>", "1111", "1b e=", "0b", "0.", "0b", "0b"},
        {"a(Pe*)", "<e/><e/>", "1111", "0b {=}{=}", "0b", "0.", "0b", "0b"},
        {"a(Ue*)", "<e/>", "1111", "0.", "0.", "0.", "0.", "0."},
        {"c(Pe?)", "<e>1</e>", "nnnn", "1b e=", "0b", "0.", "0b", "0b"},
        {"c(Ce?s(Px?))", "<e><x>1</x></e>", "nnnn", "1b new e()e={x=}", "0b", "0.", "0b", "0b"},
        {"c(Ce?~s(Px?))", "<x>1</x>", "nnnn", "1b new e()e={x=}", "0b new e()e={}e=0", "0.",
         "0b new e()e={}e=0", "0b new e()e={}e=0"},
        {"c(Ae?)", "<e><x>1</x></e>", "nnnn", "1b new (e)e={x=}", "0b", "0.", "0b", "0b"},
        {"c(Ue?)", "<e/>", "nnnn", "1b e=", "0b e=0", "0.", "0b e=0", "0b e=0"},
        {"c(Pe*)", "<e/><e/>", "nnnn", "1b {=}{=}#", "0b", "0.", "0b", "0b"},
        {"c(Ue*)", "<e/>", "nnnn", "1b", "0b", "0.", "0b", "0b"},
    };
    for (auto const& row : rows) {
        // Any element would be taken along.
        bool const takesAll = std::string(row.m_present) == "1." || std::string(row.m_present) == "0.";
        ExpectAnswer(row.m_field, "", row.m_document + (takesAll ? "" : "<b/>"), row.m_present);
        ExpectAnswer(row.m_field, "", "<b/>", row.m_absent);
        ExpectAnswer(row.m_field, "", "", row.m_none);
        ExpectAnswer(row.m_field, "M", "<b/>", row.m_missing);
        ExpectAnswer(row.m_field, "E", "<b/><c/>" + row.m_document + "<d/>", row.m_behind);
        EXPECT_EQ(Contents(row.m_field), row.m_contents) << row.m_field;
    }
}

TEST(ElementInfo, ReadsByFactoriesNamespacesAndCounts) {
    struct {
        char const *m_field, *m_settings, *m_document, *m_answer;
    } const rows[] = {
        {"s(Pe!)", "M", "", "1.|0."},
        {"s(Ce.~s(Px?))", "E", "", "1. {}"},
        {"s(Ag!)", "", "<g/>", "!no-substitute g|0g new (g)"},
        {"c(Ag?)", "", "<g/>", "0g new (g)g=0"},
        {"c(Ce?0)", "", "<e/>", "0e new e()"},
        {"c(Ce?~0)", "", "<e/>", "0e new e()"},
        {"s(Ue!)", "", "<e xmlns='u'/>", "1."},
        {"s(UE!)", "M", "<b/>", "!not-from n|0b"},
        {"s(U_![##local|])", "", "<b xmlns='u'/>", "!not-from |0b"},
        {"s(U_?[##other|t])", "", "<b xmlns='t'/>", "1b"},
        {"s(Ue?[##other|])", "", "<b/>", "!namespace  ##other "},
        {"c(Ue?[##other|])", "", "<b/>", "!namespace  ##other "},
        {"s(Pe*1-2)", "", "<b/>", "!too-few e 1"},
        {"s(Pe*1-2)", "", "<e/><e/><e/>", "!too-many e 2"},
        {"s(U_*1-2)", "", "<e/><b/><c/>", "!too-many  2"},
        {"s(Ue*1-2)", "", "<b/>", "!too-few  1"},
        {"s(Ue*)", "", "<e xmlns='u'/><e xmlns='v'/>", "1e"},
        {"a(Pe*2-3)", "", "<e/>", "0. {=}"},
        {"c(Pe*2-3)", "", "<e/>", "!too-few e 2"},
        {"c(Pe*2-3)", "#", "<e/>", "1. {=}"},
    };
    for (auto const& row : rows) ExpectAnswer(row.m_field, row.m_settings, row.m_document, row.m_answer);
}

/// Each kind of element in each group, with its namespace, alone and ahead of another.
TEST(ElementInfo, WritesWhatItReads) {
    Class("s=E(Px?)");
    std::string const start = "<AA:E xmlns:AA=\"n\"", end = "</AA:E>", child = "><x>1.00</x>" + end;
    struct {
        std::string m_kind, m_class, m_document;
    } const rows[] = {
        {"PE", "", start + ">7.00" + end},
        {"EE", "", start + ">two" + end},
        {"CE", "s(Px?)", start + child},
        {"CE", "~s(SE!)", start + ">x" + end},
        {"AE", "", start + child},
        {"UE", "", start + " AA:k=\"1\"" + child},
        {"U_", "", start + "><x/>text" + end},
    };
    for (auto const& row : rows) {
        for (std::string const group : {"s", "c", "a"}) {
            for (char const occurrence : {'!', '?', '*'}) {
                bool const isText = row.m_kind[0] == 'P' || row.m_kind[0] == 'E';
                if (group == "c" ? occurrence == '!'
                                 : group == "a" && row.m_kind == "AE" && occurrence != '*')
                    continue;
                std::string const field = group + "(" + row.m_kind + occurrence + row.m_class;
                ExpectRows(
                    {{field + ")", "",
                      isText && occurrence == '*' ? row.m_document + row.m_document : row.m_document}});
                if (occurrence != '!' && row.m_kind != "U_") ExpectRows({{field + " Sz?)", "", "<z/>"}});
            }
        }
    }
    ExpectRows({{"a(Pa*1-2 Sb?)", "", "<b/>", "!too-few a 1"}, {"a(Pa*1-2 Sb?)", "#", "<b/>"}});
}

/// The attributes of the classes that may be pseudo elements, in the tag of their owner.
TEST(ElementInfo, WritesTheAttributesOfPseudoElements) {
    for (std::string const field : {"Cp!", "Cp.", "Cp?", "Cp*", "Ap!", "Ap?", "Ap*", "Bp*"}) {
        for (std::string const group : {"s", "c", "a"}) {
            if (group == "c" && field[2] != '?' && field[2] != '*') continue;
            for (std::string const type : {"", "~"}) {
                if (field[0] == 'B' && type == "~") continue;
                TestObject owner(
                    Class(group + "(" + field + type + (field[0] == 'C' ? "s(@Sk?)" : "") + ")"));
                CSmartPtr<TestObject> const child = new TestObject(Class(type + "s(@Sk?)"), u"p");
                (*child)[u"k"].SetString(u"1");
                if (field[2] == '*')
                    dynamic_cast<TestCol&>(*owner[u"p"].GetXmlCollection()).AppendItem(child);
                else
                    owner[u"p"].SetXmlObject(child);
                EXPECT_EQ(Written(owner), type == "~" ? "<r k=\"1\"/>" : "<r><p k=\"1\"/></r>")
                    << group << field << type;
                if (field[2] == '*') continue;
                owner[u"p"].SetXmlObject(nullptr);
                EXPECT_EQ(Written(owner, "C"), "<r/>");
            }
        }
    }
}

TEST(ElementInfo, HandsOnHowToWrite) {
    TestObject object(Class("s(CA!s() SB* CC?s())"));
    object[u"C"].SetXmlObject(new TestObject(Class("s()"), u"other"));
    dynamic_cast<TestCol&>(*object[u"B"].GetXmlCollection()).AppendItem(new TestObject(Class("s()"), u"b"));
    t_log.clear();
    std::string const ns = " xmlns:AA=\"n\"/>";
    EXPECT_EQ(Written(object), "<r><AA:A" + ns + "<AA:b" + ns + "<AA:other" + ns + "</r>");
    EXPECT_EQ(t_log, "[n]#");
}

TEST(ElementInfo, RefusesBadValues) {
    ExpectRows({{"s(Pa!)", "", "<a>x</a>", "!no-double x"},
                {"s(Sa!)", "", "<a> x  y </a>", "<a>x y</a>"},
                {"s(Ea!)", "", "<a> one</a>", "!no-enum a"}});
    for (std::string const type : {"s(Fa!)", "c(Fa?)", "a(Fa?)", "s(@Fa?=x)", "s(@Fa!)"}) {
        TestObject object(Class(type));
        object[u"a"].SetString(u"abc");
        EXPECT_TRUE(Thrown([&] { Written(object); }).starts_with("CBxException: ")) << type;
    }
    BxVariant value;
    value.SetString(u"abc");
    EXPECT_BX_THROW((Class("s(Ea!)").m_elements[0]->CheckRestriction(value), 0), CBxException,
                    "Cannot CheckRestriction for type: string");
}

/// Properties that hold nothing, another kind, or something else at each call.
TEST(ElementInfo, MeetsOwnersThatBreakTheContract) {
    Class("s=e(Px?)");
    for (char const* const type : {"s(Ca!%s())", "s(Ca.%~s())", "s(U_!%)", "s(Ua*%)", "a(Ca!%s())", "a(U_!%)",
                                   "a(Sa*%)", "c(Sa*%)", "c(Ua*%)"}) {
        ExpectRows({{type, "", "<a/>", "!nothing-there"}});
    }
    ExpectRows({
        {"s(Sa*%)", "", "-", "!nothing-there"},
        {"s(#%)", "", "-", ""},
        {"s(Ca!$s())", "", "<a/>", "!other-kind 27 5"},
        {"s(Sa*$)", "", "-", "!other-kind 28 5"},
        {"s(Ea!$)", "", "-", "!other-kind 5 23"},
        {"s(Ua*&)", "", "<a/>", "!other-collection CElementCol"},
        {"s(Ca!-s(Px!))", "", "<a><x>1</x></a>", "<a/>"},
        {"s(Ca!-~s(Px!))", "", "<x>1</x>", ""},
        {"s(Ca?-s(Px!) Ae?- U_?-)", "", "<a><x>1</x></a><e/><b/>", ""},
        {"c(Ca?-s(Px!) Sb?)", "C", "<a><x>1</x></a>", ""},
        {"c(Ae?- Sb?)", "C", "<e><x>1</x></e>", ""},
    });
}

TEST(ElementInfo, PicksTheNamespaceOfUntypedContent) {
    // What is allowed, the namespace of the owner, the target, what is picked.
    std::array<char16_t const*, 4> const rows[] = {{u"##any", u"n", u"t", u"n"},
                                                   {u"##other", u"n", u"t", u""},
                                                   {u"##other", nullptr, u"t", u"DefaultNamespace"},
                                                   {u"##targetNamespace", u"n", nullptr, u""},
                                                   {u"##targetNamespace u", u"n", u"t", u"t"},
                                                   {u"##local ##any", u"n", u"t", u""},
                                                   {u" ##any", u"n", u"t", u""},
                                                   {nullptr, u"n", u"t", u""}};
    for (auto const& [allowed, ns, target, expected] : rows) {
        EXPECT_EQ(Entry::GetAnyDefaultNamespace(allowed, ns, target), expected)
            << ToUtf8(allowed == nullptr ? u"null" : allowed);
    }
}

}  // namespace
