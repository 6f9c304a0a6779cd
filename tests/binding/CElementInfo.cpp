#include "BxXmlLib5/binding/CElementInfo.h"

#include "BxXmlLib5/binding/CElementInfoAll.h"
#include "BxXmlLib5/binding/CElementInfoSeq.h"
#include "BxXmlLib5/collections/CElement.h"
#include "BxXmlLib5/document/CXmlDocument.h"
#include "binding/TestBinding.h"

using namespace BxTest;

namespace {

static_assert(std::is_abstract_v<CElementInfoSeqNonCol> &&
              std::is_base_of_v<CElementInfoSeq, CElementInfoSeqNonCol>);
static_assert(std::is_abstract_v<CElementInfoAllNonCol> &&
              std::is_base_of_v<CElementInfoAll, CElementInfoAllNonCol>);

/// The operations that the driver calls.
struct Entry : CElementInfo {
    static bool Read(CElementInfo& entry, CXmlSerializationContext const& context, TestObject& owner,
                     CXmlElement* element, CXmlElement** child, XmlElementType ownerType) {
        return (entry.*&Entry::ElementFromXml)(context, &owner, element, child,
                                               owner.m_class.m_namespace.c_str(), ownerType);
    }
    static bool IsContent(CElementInfo const& entry, TestObject const& owner, bool found, bool isElement) {
        return (entry.*&Entry::Validate)(Settings(""), &owner, found, isElement);
    }
    using CElementInfo::GetAnyDefaultNamespace;
};

/// What the only entry of a class makes of the children of an element: its result, the child at which reading
/// then stands (. for none), and what the owner saw.
std::string Ask(TestObject& owner, char const* settings, char const* document, XmlElementType ownerType) {
    auto const context = Settings(settings);
    CXmlDocument tree(context.GetSchemaType());
    tree.LoadXml(InRoot(document).c_str());
    CXmlElement* const root = tree.GetDocumentElement();
    CXmlElement* child = root->GetFirstElement();
    std::string answer;
    t_log.clear();
    std::string const thrown = Thrown([&] {
        answer =
            Entry::Read(*owner.m_class.m_elements[0], context, owner, root, &child, ownerType) ? "1" : "0";
    });
    answer += (child == nullptr ? "." : ToUtf8(child->GetLocalName())) + (t_log.empty() ? "" : " ") + t_log;
    return thrown == "nothing" ? answer : thrown;
}

struct Question {
    char const* m_class;
    char const* m_settings;
    char const* m_document;
    std::string m_underElement;
    std::string m_underPseudoElement = m_underElement;
};

void ExpectAnswers(std::initializer_list<Question> rows) {
    Class("s=e(Px?)");
    for (Question const& row : rows) {
        for (auto const ownerType : {et_Element, et_PseudoElement}) {
            CSmartPtr<TestObject> const owner = new TestObject(Class(row.m_class));
            EXPECT_EQ(Ask(*owner, row.m_settings, row.m_document, ownerType),
                      ownerType == et_Element ? row.m_underElement : row.m_underPseudoElement)
                << row.m_class << " " << row.m_settings << " " << row.m_document << " " << ownerType;
        }
    }
}

std::string const kUnreadable =
    "CBxException: AllAbsClsMndElm.ProcessXml, has not been implemented fully, contact the vendor's support";

std::string NotInNamespace(std::string const& ns) {
    return Invalid("Failed to find the required element from namespace [" + ns + "]");
}

TEST(ElementInfo, ReadsInASequence) {
    ExpectAnswers({
        {"s(Pa!)", "", "<a>1</a><b/>", "1b a="},
        {"s(Pa!)", "", "<b/><a>1</a>", Missing("a"), "0b"},
        {"s(Pa!)", "", "", Missing("a"), "0."},
        {"s(Pa!)", "M", "<b/><a>1</a>", "1b", "0b"},
        {"s(Pa!)", "M", "", "1.", "0."},
        {"s(Pa!)", "E", "<b/><c/><a>1</a><d/>", "1d a="},
        {"s(Pa!)", "E", "<b/>", Missing("a"), "0."},
        {"s(Ea!)", "", "<a>one</a><b/>", "1b a="},
        {"s(Ea!)", "", "<b/><a>one</a>", Missing("a"), "0b"},
        {"s(Ea!)", "", "", Missing("a"), "0."},
        {"s(Ea!)", "M", "<b/><a>one</a>", "1b", "0b"},
        {"s(Ea!)", "E", "<b/><c/><a>one</a><d/>", "1d a=", "0b"},
        {"s(Ca!s())", "", "<a/><b/>", "1b {}"},
        {"s(Ca.s())", "", "<b/><a/>", Missing("a"), "0b"},
        {"s(Ca.s())", "", "", Missing("a"), "0."},
        {"s(Ca!s())", "M", "<b/><a/>", "1b", "0b"},
        {"s(Ca!s())", "E", "<b/><c/><a/><d/>", "1d {}", "0b"},
        {"s(Ca!~s(Px?))", "", "<x>1</x><b/>", "1b {x=}"},
        {"s(Ca!~s(Px?))", "", "<b/>", Missing("a"), "0b {}"},
        {"s(Ca!~s(Px?))", "M", "<b/>", Missing("a"), "0b {}"},
        {"s(Ca!~s(Px?))", "E", "<b/>", Missing("a"), "0b {}"},
        {"s(Ca!~s(Px?))", "", "", Missing("a"), "0."},
        {"s(Ca.~s(Px?))", "", "<x>1</x><b/>", "1b {x=}"},
        {"s(Ca.~s(Px?))", "", "<b/>", "1b {}"},
        {"s(Ca.~s(Px?))", "E", "<b/>", "0b {}", "1b {}"},
        {"s(Ca.~s(Px?))", "E", "", "1. {}"},
        {"s(Ae!)", "", "<e/><b/>", "1b new (e){}e="},
        {"s(Ae!)", "M", "<b/><e/>", NoSubstitute("e"), "0b"},
        {"s(Ae!)", "E", "<b/><e/>", NoSubstitute("e"), "0b"},
        {"s(Ae!)", "", "", NoSubstitute("e"), "0."},
        {"s(Ag!)", "", "<g/>", NoSubstitute("g"), "0g new (g)"},
        {"s(U_!)", "", "<b/><c/>", "1c"},
        {"s(Ua!)", "", "<a/><a/>", "1a"},
        {"s(Ua!)", "E", "<b/><a/>", NotInNamespace(""), "0b"},
        {"s(UA!)", "M", "<b/>", NotInNamespace("n"), "0b"},
        {"s(U_![##local|])", "", "<b xmlns='u'/>", NotInNamespace(""), "0b"},
        {"s(U_!)", "M", "", Missing("AnyElement")},
        {"s(Pa?)", "", "<a>1</a><b/>", "1b a="},
        {"s(Pa?)", "E", "<b/><a>1</a>", "1b"},
        {"s(Pa?)", "", "", "1."},
        {"s(Ea?)", "", "<a>one</a><b/>", "1b a="},
        {"s(Ea?)", "E", "<b/><a>one</a>", "1b"},
        {"s(Ca?s(Px?))", "", "<a><x>1</x></a><b/>", "1b new a(){x=}a="},
        {"s(Ca?s(Px?))", "E", "<b/><a/>", "1b"},
        {"s(Ca?s(Px?))", "", "", "1."},
        {"s(Ca?0)", "", "<a/>", "1a new a()"},
        {"s(Ca?~s(Px?))", "", "<x>1</x><b/>", "1b new a(){x=}a="},
        {"s(Ca?~s(Px?))", "E", "<b/>", "1b new a(){}"},
        {"s(Ca?~s(Px?))", "", "", "1."},
        {"s(Ca?~0)", "", "<a/>", "1a new a()"},
        {"s(Ae?)", "", "<e><x>1</x></e><b/>", "1b new (e){x=}e="},
        {"s(Ae?)", "E", "<b/><e/>", "1b"},
        {"s(Ag?)", "", "<g/>", "1g new (g)"},
        {"s(U_?)", "", "<b/><c/>", "1c _="},
        {"s(U_?)", "", "", "1."},
        {"s(Ua?)", "", "<b/><a/>", "1b"},
        {"s(Ua?)", "", "<a xmlns='u'/>", "1. a="},
        {"s(U_?[##local|])", "", "<b xmlns='u'/>", "1b"},
        {"s(U_?[##other|t])", "", "<b xmlns='t'/>", "1b"},
        {"s(Ua?[##other|])", "", "<b/>", NotAllowed("", "##other", "")},
        {"s(Pa*1-2)", "", "<a/><a/><b/>", "1b {=}{=}"},
        {"s(Pa*1-2)", "", "<b/>", TooFew("a", 1)},
        {"s(Pa*1-2)", "", "", TooFew("a", 1)},
        {"s(Pa*1-2)", "#", "", "1."},
        {"s(Pa*1-2)", "", "<a/><a/><a/>", TooMany("a", 2)},
        {"s(Ea*)", "", "<a/><b/>", "1b {=}"},
        {"s(Ba*1-2)", "", "<b/>", TooFew("a", 1)},
        {"s(Ca*s())", "", "<a/><b/>", "1b {}"},
        {"s(Ca*~s(Px!))", "", "<x>1</x><x>2</x><b/>", "1b {x=}{x=}{}"},
        {"s(Ae*)", "", "<e/><b/>", "1b new (e){}"},
        {"s(U_*1-2)", "", "<a/><b/>", "1."},
        {"s(U_*1-2)", "", "<a/><b/><c/>", TooMany("", 2)},
        {"s(Ua*1-2)", "", "<a/><b/>", "1b"},
        {"s(Ua*1-2)", "", "<b/>", TooFew("", 1)},
        {"s(Ua*1-2)", "#", "<b/>", "1b"},
        {"s(Ua*1-2)", "", "", TooFew("", 1)},
        {"s(Ua*)", "", "<a xmlns='u'/><a xmlns='v'/>", "1a"},
    });
}

TEST(ElementInfo, ReadsInAnAllGroup) {
    ExpectAnswers({
        {"a(Pa!)", "", "<a>1</a><b/>", "1b a="},
        {"a(Pa!)", "E", "<b/><a>1</a>", "0b"},
        {"a(Pa!)", "M", "", "0."},
        {"a(Pa?)", "", "<a>1</a><b/>", "1b a="},
        {"a(Pa?)", "", "<b/>", "0b"},
        {"a(Ea!)", "", "<a>one</a><b/>", "1b a="},
        {"a(Ea!)", "M", "<b/>", "0b"},
        {"a(Ea?)", "", "<a>one</a><b/>", "1b a="},
        {"a(Ea?)", "", "<b/>", "0b"},
        {"a(Ca!s())", "", "<a/><b/>", "1b {}"},
        {"a(Ca!s())", "M", "<b/>", "0b"},
        {"a(Ca.~s(Px?))", "", "<x>1</x><b/>", "1b {x=}"},
        {"a(Ca.~s(Px?))", "", "<b/>", "0b {}"},
        {"a(Ca.~s(Px?))", "", "", "0. {}"},
        {"a(Ca?s(Px?))", "", "<a><x>1</x></a><b/>", "1b new a(){x=}a="},
        {"a(Ca?s(Px?))", "", "<b/>", "0b"},
        {"a(Ca?0)", "", "<a/>", "0a new a()"},
        {"a(Ca?~s(Px?))", "", "<x>1</x><b/>", "1b new a(){x=}a="},
        {"a(Ca?~s(Px?))", "", "<b/>", "0b new a(){}"},
        {"a(Ca?~s(Px?))", "", "", "0."},
        {"a(Ca?~0)", "", "<a/>", "0a new a()"},
        {"a(Ae!)", "", "<b/>", kUnreadable},
        {"a(Ae!)", "M", "", "0."},
        {"a(Ae?)", "E", "<b/>", kUnreadable},
        {"a(Ae?)", "", "", "0."},
        {"a(U_!)", "", "<b/><c/>", "1c"},
        {"a(Ua!)", "", "<a/><b/>", "1b"},
        {"a(Ua!)", "", "<b/>", "0b"},
        {"a(U_![##local|])", "", "<b xmlns='u'/>", "0b"},
        {"a(U_!)", "", "", "0."},
        {"a(U_?)", "", "<b/><c/>", "1c _="},
        {"a(Ua?)", "", "<b/>", "0b"},
        {"a(Ua?[##other|])", "", "<b/>", NotAllowed("", "##other", "")},
        {"a(U_?)", "", "", "0."},
        {"a(Pa*2-3)", "", "<a/><b/>", "0b {=}"},
        {"a(Ea*)", "", "<a/><b/>", "0b {=}"},
        {"a(Ba*)", "", "<b/>", "0b"},
        {"a(Ca*s())", "", "", "0."},
        {"a(Ae*)", "", "<e/><b/>", "0b new (e){}"},
        {"a(Ua*)", "", "<b/><c/>", "0."},
    });
}

TEST(ElementInfo, ReadsInAChoice) {
    ExpectAnswers({
        {"c(Pa?)", "", "<a>1</a><b/>", "1b a="},
        {"c(Pa?)", "E", "<b/><a>1</a>", "0b"},
        {"c(Pa?)", "M", "", "0."},
        {"c(Ea?)", "", "<a>one</a><b/>", "1b a="},
        {"c(Ea?)", "", "<b/>", "0b"},
        {"c(Ca?s(Px?))", "", "<a><x>1</x></a><b/>", "1b new a()a={x=}"},
        {"c(Ca?s(Px?))", "", "<b/>", "0b"},
        {"c(Ca?0)", "", "<a/>", "0a new a()"},
        {"c(Ca?~s(Px?))", "", "<x>1</x><b/>", "1b new a()a={x=}"},
        {"c(Ca?~s(Px?))", "", "<b/>", "0b new a()a={}a=0"},
        {"c(Ca?~c(Px?))", "", "<b/>", "0b new a()a={}a=0"},
        {"c(Ca?~s(Px?))", "", "", "0."},
        {"c(Ca?~0)", "", "<a/>", "0a new a()"},
        {"c(Ae?)", "", "<e><x>1</x></e><b/>", "1b new (e)e={x=}"},
        {"c(Ae?)", "", "<b/>", "0b"},
        {"c(Ag?)", "", "<g/>", "0g new (g)g=0"},
        {"c(U_?)", "", "<b/><c/>", "1c _="},
        {"c(Ua?)", "", "<b/>", "0b a=0"},
        {"c(U_?[##local|])", "", "<b xmlns='u'/>", "0b _=0"},
        {"c(Ua?[##other|])", "", "<b/>", NotAllowed("", "##other", "")},
        {"c(U_?)", "", "", "0."},
        {"c(Pa*2-3)", "", "<a/><a/><b/>", "1b {=}{=}"},
        {"c(Pa*2-3)", "", "<a/>", TooFew("a", 2)},
        {"c(Pa*2-3)", "#", "<a/>", "1. {=}"},
        {"c(Pa*2-3)", "", "<b/>", "0b"},
        {"c(Ea*)", "", "<a/><b/>", "1b {=}"},
        {"c(Ba*1-2)", "", "", "0."},
        {"c(Ca*s())", "", "<b/>", "0b"},
        {"c(Ae*)", "", "<e/><b/>", "1b new (e){}"},
        {"c(U_*1-2)", "", "<a/><b/>", "1."},
        {"c(U_*1-2)", "", "<a/><b/><c/>", TooMany("", 2)},
        {"c(U_*)", "", "", "0."},
        {"c(Ua*)", "", "<a/><b/>", "1b"},
        {"c(Ua*2-3)", "", "<a/><b/>", TooFew("", 2)},
        {"c(Ua*)", "", "<b/>", "0b"},
        {"c(Ua*)", "", "", "0."},
    });
}

TEST(ElementInfo, Validates) {
    // Found or not under an element, found or not under a pseudo element: passes, gives up, misses its
    // element, has too few, or must not be asked.
    std::pair<char const*, char const*> const rows[] = {
        {"s(Pa!)", "nnnn"},       {"s(Ea?)", "nnnn"},     {"s(Ca!s())", "nnnn"},  {"s(Ca?s())", "nnnn"},
        {"s(Ae!)", "nnnn"},       {"s(U_?)", "nnnn"},     {"s(Pa*)", "nnnn"},     {"s(Ua*)", "nnnn"},
        {"c(Pa?)", "nnnn"},       {"c(Ea?)", "nnnn"},     {"c(Ca?s())", "nnnn"},  {"c(Ae?)", "nnnn"},
        {"c(U_?)", "nnnn"},       {"c(Ba*)", "nnnn"},     {"c(Ua*)", "nnnn"},     {"a(Pa!)", "1m10"},
        {"a(Ea!)", "1m10"},       {"a(Ae!)", "1m10"},     {"a(U_!)", "1m10"},     {"a(Ca!s())", "1m10"},
        {"a(Ca.s())", "1110"},    {"a(Ca!~s())", "1m10"}, {"a(Ca.~s())", "1m10"}, {"a(Pa?)", "1111"},
        {"a(Ea?)", "1111"},       {"a(Ca?s())", "1111"},  {"a(Ca?~s())", "1111"}, {"a(Ae?)", "1111"},
        {"a(U_?)", "1111"},       {"a(Pa*)", "1111"},     {"a(Pa*1-2)", "ffff"},  {"a(Ea*1-2)", "ffff"},
        {"a(Ca*1-2s())", "ffff"}, {"a(Ae*1-2)", "ffff"},  {"a(Ba*1-2)", "ffff"},  {"a(Ua*1-2)", "ffff"},
    };
    for (auto const& [description, expected] : rows) {
        TestObject const owner(Class(description));
        std::string const name = owner.m_class.m_fields[0].m_name == u"_" ? "AnyElement"
                                 : description[3] == 'e'                  ? "e"
                                                                          : "a";
        std::string actual;
        for (bool const isElement : {true, false}) {
            for (bool const found : {true, false}) {
                bool passes = false;
                std::string const thrown = Thrown([&] {
                    passes = Entry::IsContent(*owner.m_class.m_elements[0], owner, found, isElement);
                });
                actual += thrown == "nothing" ? (passes ? '1' : '0')
                          : thrown == "CBxException: Not implemented, should never be called" ? 'n'
                          : thrown == MissingInAll(name)                                      ? 'm'
                          : thrown == TooFew(name, 1) || thrown == TooFew("", 1)              ? 'f'
                                                                                              : '?';
            }
        }
        EXPECT_EQ(actual, expected) << description;
    }
    EXPECT_EQ(Thrown([] { Read(*CSmartPtr<TestObject>(new TestObject(Class("a(Pa*1-2 Sb?)"))), "<b/>"); }),
              TooFew("a", 1));
    ExpectRows({{"a(Pa*1-2 Sb?)", "#", "<b/>"}});
}

/// Each kind of element in each group, with its namespace, alone and ahead of another.
TEST(ElementInfo, WritesWhatItReads) {
    Class("s=E(Px?)");
    std::string const ns = " xmlns:AA=\"n\"";
    struct {
        std::string m_kind, m_type, m_document;
    } const rows[] = {
        {"PE", "", "<AA:E" + ns + ">7</AA:E>"},
        {"RE", "", "<AA:E" + ns + ">1.50</AA:E>"},
        {"EE", "", "<AA:E" + ns + ">two</AA:E>"},
        {"CE", "s(Px?)", "<AA:E" + ns + "><x>1</x></AA:E>"},
        {"AE", "", "<AA:E" + ns + "><x>1</x></AA:E>"},
        {"UE", "", "<AA:E" + ns + " AA:k=\"1\"><x>1</x></AA:E>"},
        {"U_", "", "<AA:E" + ns + "><x>1</x>text</AA:E>"},
        {"CE", "~s(SE!)", "<AA:E" + ns + ">x</AA:E>"},
    };
    for (auto const& row : rows) {
        for (std::string const group : {"s", "c", "a"}) {
            for (std::string const occurrence : {"!", "?", "*"}) {
                if (group == "c" && occurrence == "!") continue;
                if (group == "a" && row.m_kind == "AE" && occurrence != "*") continue;
                // A collection of double or enumerated values of its own is not part of the binding of tests.
                bool const isText = row.m_type.empty() && row.m_kind[0] != 'A' && row.m_kind[0] != 'U';
                std::string const field = row.m_kind + occurrence + row.m_type;
                ExpectRows({{(group + "(" + field + ")").c_str(), "", row.m_document.c_str()}});
                if (isText && occurrence == "*")
                    ExpectRows({{(group + "(" + field + ")").c_str(), "",
                                 (row.m_document + row.m_document).c_str()}});
                if (occurrence == "!") continue;
                ExpectRows({{(group + "(" + field + " Sz?)").c_str(), row.m_kind == "U_" ? "C" : "",
                             row.m_kind == "U_" ? "" : "<z/>"}});
            }
        }
    }
    ExpectRows({{"s(Ba* Sb?)", "", "<a>1</a><a>2</a><b/>"},
                {"a(Ba* Sb?)", "", "<a>1</a><a>2</a><b/>"},
                {"c(Ba* Sb?)", "", "<a>1</a><a>2</a>"},
                {"s(Pa! Eb! Sc!)", "M", "<c/>"}});
}

/// The attributes of the classes that may be pseudo elements, in the tag of their owner.
TEST(ElementInfo, WritesTheAttributesOfPseudoElements) {
    std::string const pseudo = "~s(@Sk? Sa?)";
    auto const add = [](BxVariant const& value, char const* k) {
        CSmartPtr<TestObject> const item = new TestObject(Class("~s(@Sk?)"));
        (*item)["k"].SetString(FromUtf8(k));
        dynamic_cast<TestCol&>(*value.GetXmlCollection()).Add(item);
    };
    for (std::string const group : {"s", "c", "a"}) {
        for (std::string const occurrence : {"!", ".", "?"}) {
            if (group == "c" && occurrence != "?") continue;
            ExpectRows({{(group + "(Cp" + occurrence + pseudo + ")").c_str(), "", "<r k=\"1\"><a/></r>"}});
            for (std::string const kind : {"A", "C"}) {
                if (kind == "A" && occurrence == ".") continue;
                for (std::string const type : {"~", ""}) {
                    TestObject owner(Class(
                        (group + "(" + kind + "p" + occurrence + type + (kind == "C" ? "s(@Sk?)" : "") + ")")
                            .c_str()));
                    CSmartPtr<TestObject> const child =
                        new TestObject(Class((type + "s(@Sk?)").c_str()), u"p");
                    (*child)["k"].SetString(u"1");
                    owner["p"].SetXmlObject(child);
                    EXPECT_EQ(owner.Text(), type.empty() ? "<r><p k=\"1\"/></r>" : "<r k=\"1\"/>");
                    owner["p"].SetXmlObject(nullptr);
                    EXPECT_EQ(owner.Text("C"), "<r/>");
                }
            }
        }
        for (std::string const field : {"Cp*~s()", "Ap*~", "Cp*s(@Sk?)", "Ap*", "Bp*"}) {
            TestObject owner(Class((group + "(" + field + ")").c_str()));
            add(owner["p"], "1");
            bool const isPseudo = field.find('~') != field.npos;
            LogWriter writer;
            owner.ToXml_Int(&writer, true, u"", Settings(""), false);
            EXPECT_EQ(writer.m_calls,
                      isPseudo ? "start [r] []\nattribute [k] [] [1]\nend\n" : "start [r] []\nend\n")
                << group << field;
        }
    }
}

TEST(ElementInfo, HandsOnHowToWrite) {
    TestObject object(Class("s(CA!s() SB* CC?s())"));
    object["C"].SetXmlObject(new TestObject(Class("s()"), u"other"));
    dynamic_cast<TestCol&>(*object["B"].GetXmlCollection()).Add(new TestObject(Class("s()"), u"b"));
    LogWriter writer;
    t_log.clear();
    object.ToXml_Int(&writer, true, u"", Settings(""), true);
    EXPECT_EQ(writer.m_calls,
              "start [r] []\nstart [A] [n]\nend\nstart [b] [n]\nend\nstart [other] [n]\nend\nend\n");
    EXPECT_EQ(t_log, "[n]");
}

TEST(ElementInfo, RefusesBadValues) {
    ExpectRows({
        {"s(Pa!)", "", "<a/>", "<a>0</a>"},
        {"c(Pa?)", "", "<a>x</a>", "CBxInvalidValueException: The value [x] can not be converted to a i4"},
        {"s(Sa!)", "", "<a> x  y </a>", "<a>x y</a>"},
        {"s(Ea!)", "", "<a> one</a>", "CBxInvalidValueException: Invalid Value for a [3]"},
    });
    // A facet is tested ahead of the element, in every group.
    for (std::string const group : {"s(Fa!)", "s(Fa?)", "c(Fa?)", "a(Fa!)", "a(Fa?)"}) {
        TestObject object(Class(group.c_str()));
        object["a"].SetString(u"abc");
        LogWriter writer;
        EXPECT_EQ(Thrown([&] { object.ToXml_Int(&writer, true, u"", Settings(""), false); }).substr(0, 13),
                  "CBxException:");
        EXPECT_EQ(writer.m_calls, "start [r] []\n");
        EXPECT_EQ(Thrown([&] { object.m_class.m_elements[0]->CheckRestriction(object["a"]); }).substr(0, 13),
                  "CBxException:");
    }
    BxVariant value;
    value.SetString(u"abc");
    Class("s(Sa!)").m_elements[0]->CheckRestriction(value);
    EXPECT_BX_THROW((Class("s(Ea!)").m_elements[0]->CheckRestriction(value), 0), CBxException,
                    "Cannot CheckRestriction for type: string");
}

/// Properties that hold nothing, another kind, or something else at each call.
TEST(ElementInfo, MeetsOwnersThatBreakTheContract) {
    Class("s=e(Px?)");
    std::string const notElements =
        "CBxException: Serialization Data Error : The collection should be a CElementCol, it was not!";
    ExpectRows({
        {"s(Ca!%s())", "", "<a/>", kNothingInPlace},
        {"s(Ca!%s())", "", nullptr, "<r/>"},
        {"s(Ca.%~s())", "", "", kNothingInPlace},
        {"s(U_!%)", "", "<a/>", kNothingInPlace},
        {"s(Sa*%)", "", "", kNothingInPlace},
        {"s(Ua*%)", "", "", kNothingInPlace},
        {"s(Sa*%)", "", nullptr, kNothingInPlace},
        {"s(Ca*%~s())", "", nullptr, kNothingInPlace},
        {"a(Ca!%s())", "", "<a/>", kNothingInPlace},
        {"a(Ca!%~s())", "", "<a/>", kNothingInPlace},
        {"a(U_!%)", "", "<a/>", kNothingInPlace},
        {"a(Sa*%)", "", "<a/>", kNothingInPlace},
        {"a(Sa*%)", "", "", kNothingInPlace},
        {"c(Sa*%)", "", "<a/>", kNothingInPlace},
        {"c(Ua*%)", "", "<a/>", kNothingInPlace},
        {"s(Pa!% Eb!% Ra?% Ca?%s())", "", nullptr, "<r/>"},
        {"s(#%)", "", nullptr, "<r/>"},
        {"s(#$)", "", nullptr, WrongKind(it_string, it_i4)},
        {"s(Ca!$s())", "", "<a/>", WrongKind(it_xmlObject, it_i4)},
        {"s(Ca!$~s())", "", nullptr, WrongKind(it_xmlObject, it_i4)},
        {"s(Sa*$)", "", "<a/>", WrongKind(it_xmlCollection, it_i4)},
        {"s(Sa*$)", "", nullptr, WrongKind(it_xmlCollection, it_i4)},
        {"s(Ea!$)", "", nullptr, WrongKind(it_i4, it_string)},
        {"s(Ua*&)", "", "<a/>", notElements},
        {"c(Ua*&)", "", "<a/>", notElements},
        {"s(Ua*&)", "", ""},
        {"s(Ca!-s(Px!))", "", "<a><x>1</x></a>", "<a/>"},
        {"s(Ca!-~s(Px!))", "", "<x>1</x>", ""},
        {"s(U_!-)", "", "<a/>", "<new/>"},
        {"s(Ca?-s(Px!) Ae?- U_?-)", "", "<a><x>1</x></a><e/><b/>", ""},
        {"s(Ae!- Sb*- Ua*-)", "", "<e/><b/><a/>", ""},
        {"a(Ca!-s(Px!) Cb?-s() Sc*- Ud?-)", "", "<c/><a><x>1</x></a><b/><d/>", "<a/>"},
        {"a(Cp!-~s(Px!))", "", "<x>1</x>", ""},
        {"c(Ca?-s(Px!) Sb?)", "C", "<a><x>1</x></a>", ""},
        {"c(Ca?-~s(Px!) Sb?)", "C", "<x>1</x>", ""},
        {"c(Ae?- Sb?)", "C", "<e><x>1</x></e>", ""},
        {"c(U_?- Sb?)", "C", "<e><x>1</x></e>", ""},
        {"c(Sa*-)", "", "<a/>", ""},
        {"c(Ua*-)", "", "<a/>", ""},
        {"a(Pa!)", "", nullptr, "<r/>"},
    });
}

TEST(ElementInfo, PicksTheNamespaceOfUntypedContent) {
    struct {
        char16_t const *m_allowed, *m_namespace, *m_target;
        wstring m_expected;
    } const rows[] = {
        {u"##any", u"n", u"t", u"n"},
        {u"##any", u"", u"t", u""},
        {u"##other", u"n", u"t", u""},
        {u"##other", u"", u"t", u"DefaultNamespace"},
        {u"##local", u"n", u"t", u""},
        {u"##targetNamespace", u"n", u"t", u"t"},
        {u"##targetNamespace u", u"n", u"t", u"t"},
        {u"##any ##local", u"n", u"t", u"n"},
        {u"##local ##any", u"n", u"t", u""},
        {u"##other u v", u"", u"t", u"DefaultNamespace"},
        {u"u v", u"n", u"t", u""},
        {u"u", u"n", u"t", u""},
        {u"", u"n", u"t", u""},
        {nullptr, u"n", u"t", u""},
        {u" ##any", u"n", u"t", u""},
        {u"#any ##any", u"n", u"t", u""},
        {u"## ##any", u"n", u"t", u""},
        {u"##any", nullptr, u"t", u""},
        {u"##other", nullptr, u"t", u"DefaultNamespace"},
        {u"##targetNamespace", u"n", nullptr, u""},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(Entry::GetAnyDefaultNamespace(row.m_allowed, row.m_namespace, row.m_target), row.m_expected)
            << ToUtf8(row.m_allowed == nullptr ? u"null" : row.m_allowed);
    }
}

}  // namespace
