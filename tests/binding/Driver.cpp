// Classes and documents at random, compared with the model.

#include <random>

#include "binding/DriverModel.h"
#include "support/Follow.h"

using namespace BxTest;

namespace {

/// Makes descriptions of classes, and documents that mostly fit them.
class Random {
public:
    std::string ClassOf(int depth, bool isGroup = false, bool mayHaveAttributes = true) {
        char const group = Pick(",,|&");
        std::string fields;
        bool hasGroups = isGroup;
        for (int count = Below(4); count > 0; --count) {
            std::string const field = FieldOf(group, depth, mayHaveAttributes);
            hasGroups = hasGroups || field.find('(') != field.npos;
            fields += (fields.empty() && Below(2) ? "" : std::string(1, group)) + " " + field;
        }
        if (mayHaveAttributes && Below(3) == 0) {
            fields += " @k" + std::to_string(++m_attributes) + PickWord({":number", ":enum", ":text"}) +
                      PickWord({"", "?", "?=one", "?=1.00"});
        }
        if (!hasGroups && Below(8) == 0) fields += " @_:any";
        if (Below(4) == 0) fields += " #";
        return (Below(5) ? "" : "strict ") + std::string(1, group) + fields;
    }

    std::string DocumentOf(TestClass const& type) {
        std::string const start = "<r xmlns:n='n'" + AttributesOf(type);
        return start + ">" + ContentOf(type) + "</r>";
    }

    std::string Settings() {
        std::string settings = PickWord({"", "", "E", "E", "M"});
        for (char const letter : {'A', 'C', '#', 'N', 'D'})
            if (Below(4) == 0) settings += letter;
        return settings;
    }

private:
    int Below(int bound) { return static_cast<int>(m_engine() % static_cast<unsigned>(bound)); }
    char Pick(std::string const& letters) {
        return letters[static_cast<std::size_t>(Below(static_cast<int>(letters.size())))];
    }
    std::string PickWord(std::vector<std::string> const& words) {
        return words[static_cast<std::size_t>(Below(static_cast<int>(words.size())))];
    }

    std::string FieldOf(char group, int depth, bool mayHaveAttributes) {
        std::string const occurrence =
            group == '|' ? PickWord({"?", "?", "*", "*1-2"}) : PickWord({"", "", "~", "?", "*", "*1-2"});
        std::string kind =
            PickWord({"number", "enum", "text", "any", "abstract", "none", "{", "{", "(", "(", "("});
        if (depth == 0 && (kind == "{" || kind == "(")) kind = "number";
        if (kind == "none" && occurrence != "?") kind = "enum";
        if (group == '&' && kind == "abstract" && Below(4)) kind = "text";
        std::string const name = kind == "any" && Below(2) ? "_" : std::string(1, Pick("abcdE"));
        bool const isCollection = occurrence[0] == '*';
        if (kind == "{") kind += ClassOf(depth - 1) + "}";
        if (kind == "(") kind += ClassOf(depth - 1, true, mayHaveAttributes && !isCollection) + ")";
        return name + ":" + kind + occurrence;
    }

    std::string ValueOf(Field const& field) {
        if (Below(30) == 0) return "x";
        return field.m_kind == Kind::Number ? PickWord({"1", "2.5"}) : PickWord({"one", "two"});
    }

    std::string AttributesOf(TestClass const& type) {
        std::string text;
        for (Field const& field : type.m_fields) {
            if (field.m_isAttribute && field.m_kind != Kind::Any && Below(6))
                text += " " + ToUtf8(field.m_name) + "='" + ValueOf(field) + "'";
            if (field.m_elementType == et_PseudoElement && field.m_class)
                text += AttributesOf(*field.m_class);
        }
        if (Below(20) == 0) text += " u" + std::to_string(++m_attributes) + "='1'";
        return text;
    }

    std::string ContentOf(TestClass const& type) {
        std::vector<Field const*> fields;
        for (Field const& field : type.m_fields) fields.push_back(&field);
        bool const isChoice = type.m_info->GetElementGroupType() == egt_Choice;
        if (Below(isChoice ? 2 : 6) == 0) std::shuffle(fields.begin(), fields.end(), m_engine);
        std::string content;
        for (Field const* const field : fields) {
            if (isChoice && !content.empty() && Below(10)) break;
            if (field->m_isAttribute || field->m_kind == Kind::Own || Below(7) == 0) continue;
            for (int count = field->IsCollection() ? Below(4) : 1 + (Below(12) == 0); count > 0; --count) {
                if (Below(10) == 0) content += "<u/>";
                content += field->m_elementType == et_PseudoElement
                               ? field->m_class ? ContentOf(*field->m_class) : ""
                               : ElementOf(*field);
            }
        }
        if (Below(12) == 0) content += PickWord({"<u/>", "text", "<a>1</a>", "<b/>"});
        return content;
    }

    std::string ElementOf(Field const& field) {
        bool const hasPrefix = field.m_name[0] == u'E' && Below(15);
        std::string const name =
            (hasPrefix ? "n:" : "") + (field.m_name == u"_" ? PickWord({"a", "z"}) : ToUtf8(field.m_name));
        std::string const end = "</" + name + ">";
        if (field.m_kind == Kind::Any) return "<" + name + " w='1'><y/>t" + end;
        if (field.m_kind == Kind::Abstract) return "<" + name + ">" + PickWord({"", "<x>1</x>"}) + end;
        if (field.m_kind != Kind::Class || field.m_class == nullptr)
            return "<" + name + ">" + ValueOf(field) + end;
        return "<" + name + AttributesOf(*field.m_class) + ">" + ContentOf(*field.m_class) + end;
    }

    std::mt19937 m_engine{12345};
    int m_attributes = 0;
};

TEST(Driver, DoesWhatTheModelDoes) {
    Class("=a x:number?");
    Class("=E x:number");
    Random random;
    int written = 0, lost = 0;
    for (int i = 0; i < 4000 && !HasFailure(); ++i) {
        std::string const description = random.ClassOf(2);
        TestClass const& type = Class(description);
        CSmartPtr<TestObject> const object = new TestObject(type);
        for (int j = 0; j < 4; ++j) {
            std::string const text = random.DocumentOf(type), settings = random.Settings();
            SCOPED_TRACE("class:    " + description + "\nsettings: " + settings + "\ndocument: " + text);
            CXmlDocument document;
            document.LoadXml(text.c_str());
            CXmlElement* const root = document.GetDocumentElement();

            std::string expected;
            Model model(settings);
            try {
                auto const copy = model.New(type, "r");
                model.m_log.clear();
                model.Read(*copy, root, root->GetFirstElement());
                expected = model.Write(*copy, "");
            } catch (std::string const& failure) {
                expected = failure;
            }
            t_log.clear();
            std::string actual, log;
            std::string const thrown = Thrown([&] {
                CXmlSerializationContext context = Settings(settings);
                object->FromXmlElement(root, context);
                log = std::exchange(t_log, "");
                CXmlDocument result;
                result.LoadXml(Written(*object, settings).c_str());
                actual = Line(result.GetDocumentElement());
            });
            if (thrown != "nothing") actual = thrown;
            EXPECT_EQ(actual, expected);
            // Where unknown elements are skipped, searches are not repeated.
            if (log.empty() || settings.find('E') != settings.npos) model.m_log = log;
            EXPECT_EQ(log, model.m_log);
            ++(thrown == "nothing" ? written : lost);
        }
    }
    EXPECT_TRUE(written > 3000 && lost > 3000) << written << " " << lost;
}

/// A number of a document that is read is none any more.
TEST(Driver, FindsWhatItCannotRead) {
    Class("=a x:number?");
    Class("=E x:number");
    Random random;
    std::regex const value(R"((<(\w:)?\w+>|')(1|2\.5)(?=[<']))");
    int elements = 0, attributes = 0;
    for (int i = 0; i < 5000 && !HasFailure(); ++i) {
        std::string const description = random.ClassOf(3);
        TestObject object(Class(description));
        std::string const text = random.DocumentOf(object.m_class), settings = random.Settings();
        if (Thrown([&] { Read(object, text, settings); }) != "nothing") continue;
        for (std::sregex_iterator at(text.begin(), text.end(), value), end; at != end; ++at) {
            std::string broken = text;
            if (i % 2 == 0) std::replace(broken.begin(), broken.end(), ' ', '\n');
            broken.replace(static_cast<std::size_t>(at->position(3)), static_cast<std::size_t>(at->length(3)),
                           "broken");
            SCOPED_TRACE("class:    " + description + "\nsettings: " + settings + "\ndocument: " + broken);
            try {
                Read(object, broken, settings);
            } catch (CBxInvalidValueException const& failure) {
                CXmlDocument document;
                document.LoadXml(InRoot(broken).c_str());
                wstring const path = failure.GetLocation().GetPath();
                Found const found = Follow(document, path);
                ASSERT_TRUE(found.m_element != nullptr) << ToUtf8(path);
                EXPECT_EQ(found.m_attribute ? found.m_attribute->GetValue() : found.m_element->GetText(),
                          u"broken")
                    << ToUtf8(path);
                EXPECT_EQ(failure.GetLocation().GetLine(), found.m_element->GetLine());
                ++(found.m_attribute ? attributes : elements);
            }
        }
    }
    EXPECT_TRUE(elements > 300 && attributes > 100) << elements << " " << attributes;
}

}  // namespace
