// Ambiguity of content models.

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "Folder.h"

namespace BxGen {
namespace {

/// A particle of a random content model.
struct Model {
    char m_kind = 'e';  ///< e: an element; s, c: a sequence, a choice
    int m_id = 0;
    char m_name = 'a';
    int m_min = 1;
    int m_max = 1;  ///< 0 for no limit
    std::vector<Model> m_members;
};

class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    Model Make(int depth) {
        constexpr int kBounds[][2] = {{1, 1}, {1, 1}, {0, 1}, {0, 0}, {1, 0}, {2, 2}, {1, 2}, {2, 3}, {0, 2}};
        auto const& bounds = kBounds[Pick(std::size(kBounds))];
        Model model{'e', ++m_id, static_cast<char>('a' + Pick(3)), bounds[0], bounds[1], {}};
        if (depth == 0 || Pick(3) == 0) return model;
        model.m_kind = Pick(2) == 0 ? 's' : 'c';
        for (std::size_t i = 0, count = 1 + Pick(3); i < count; ++i)
            model.m_members.push_back(Make(depth - 1));
        return model;
    }

private:
    std::size_t Pick(std::size_t count) { return m_random() % count; }

    std::mt19937 m_random;
    int m_id = 0;
};

std::string Text(Model const& model) {
    std::string const max = model.m_max == 0 ? "unbounded" : std::to_string(model.m_max);
    std::string const occurs = " minOccurs='" + std::to_string(model.m_min) + "' maxOccurs='" + max + "'";
    if (model.m_kind == 'e') return "<xs:element name='" + std::string(1, model.m_name) + "'" + occurs + "/>";
    std::string const tag = model.m_kind == 's' ? "xs:sequence" : "xs:choice";
    std::string text = "<" + tag + occurs + ">";
    for (Model const& member : model.m_members) text += Text(member);
    return text + "</" + tag + ">";
}

/// The positions of a model whose bounds are written out (a{1,2} is a, a?), and which may follow which.
class Automaton {
public:
    struct Part {
        std::set<int> m_first, m_last;
        bool m_mayBeEmpty = false;
    };

    bool IsAmbiguous(Model const& model) {
        Part const whole = Repeated(model);
        bool isAmbiguous = Clashes(whole.m_first);
        for (auto const& [position, next] : m_next) isAmbiguous = isAmbiguous || Clashes(next);
        return isAmbiguous;
    }

private:
    bool Clashes(std::set<int> const& positions) const {
        std::map<char, int> seen;
        for (int const position : positions) {
            Model const& model = *m_models[static_cast<std::size_t>(position)];
            auto const [entry, isNew] = seen.emplace(model.m_name, model.m_id);
            if (!isNew && entry->second != model.m_id) return true;
        }
        return false;
    }

    Part Repeated(Model const& model) {
        Part all{{}, {}, true};
        int const copies = model.m_max == 0 ? std::max(model.m_min, 1) : model.m_max;
        for (int i = 0; i < copies; ++i) {
            Part copy = Once(model);
            if (model.m_max == 0 && i + 1 == copies) Link(copy.m_last, copy.m_first);
            copy.m_mayBeEmpty = copy.m_mayBeEmpty || i >= model.m_min;
            all = Sequence(all, copy);
        }
        return all;
    }

    Part Once(Model const& model) {
        if (model.m_kind == 'e') {
            m_models.push_back(&model);
            int const position = static_cast<int>(m_models.size()) - 1;
            m_next[position];
            return {{position}, {position}, false};
        }
        Part all{{}, {}, model.m_kind == 's'};
        for (Model const& member : model.m_members) {
            Part const part = Repeated(member);
            all = model.m_kind == 's' ? Sequence(all, part) : Choice(all, part);
        }
        return all;
    }

    Part Sequence(Part left, Part right) {
        Link(left.m_last, right.m_first);
        if (left.m_mayBeEmpty) left.m_first.insert(right.m_first.begin(), right.m_first.end());
        if (right.m_mayBeEmpty) right.m_last.insert(left.m_last.begin(), left.m_last.end());
        return {left.m_first, right.m_last, left.m_mayBeEmpty && right.m_mayBeEmpty};
    }

    static Part Choice(Part left, Part const& right) {
        left.m_first.insert(right.m_first.begin(), right.m_first.end());
        left.m_last.insert(right.m_last.begin(), right.m_last.end());
        left.m_mayBeEmpty = left.m_mayBeEmpty || right.m_mayBeEmpty;
        return left;
    }

    void Link(std::set<int> const& from, std::set<int> const& to) {
        for (int const position : from) m_next[position].insert(to.begin(), to.end());
    }

    std::vector<Model const*> m_models;
    std::map<int, std::set<int>> m_next;
};

TEST(ContentModels, RandomOnesAgainstTheirAutomaton) {
    Folder const folder;
    int counts[2] = {};
    for (unsigned seed = 0; seed < 2000; ++seed) {
        Model model = Generator(seed).Make(3);
        if (model.m_kind == 'e') continue;
        bool const isAmbiguous = Automaton().IsAmbiguous(model);
        ++counts[isAmbiguous];
        Outcome const outcome =
            folder.Dump(Schema("<xs:complexType name='T'>" + Text(model) + "</xs:complexType>"));
        ASSERT_EQ(outcome.m_status, isAmbiguous ? 2 : 0) << seed << '\n'
                                                         << Text(model) << '\n'
                                                         << outcome.m_messages;
    }
    EXPECT_GT(counts[0], 100);
    EXPECT_GT(counts[1], 100);
}

TEST(ContentModels, WildcardsSubstitutionAndBounds) {
    struct Row {
        std::string m_content;
        bool m_isAmbiguous;
    };
    std::string const huge = " minOccurs='9223372036854775808' maxOccurs='9223372036854775808'";
    // clang-format off
    Row const rows[] = {
        {"<xs:element ref='t:a'/><xs:any/>", false},
        {"<xs:element ref='t:a' minOccurs='0'/><xs:any/>", true},
        {"<xs:element ref='t:a' minOccurs='0'/><xs:any namespace='##other'/>", false},
        {"<xs:element ref='t:a' minOccurs='0'/><xs:any namespace='##local v'/>", false},
        {"<xs:element ref='t:a' minOccurs='0'/><xs:any namespace='##local ##targetNamespace'/>", true},
        {"<xs:element name='a' minOccurs='0'/><xs:any namespace='##other'/>", false},
        {"<xs:any minOccurs='0' namespace='v w'/><xs:any namespace='x'/>", false},
        {"<xs:any minOccurs='0' namespace='v w'/><xs:any namespace='w'/>", true},
        {"<xs:any minOccurs='0' namespace='v'/><xs:any namespace='##other'/>", true},
        {"<xs:any minOccurs='0' namespace='##local'/><xs:any namespace='##other'/>", false},
        {"<xs:any minOccurs='0' namespace='##other'/><xs:any namespace='##other'/>", true},
        {"<xs:any namespace='##any' maxOccurs='unbounded'/>", false},
        {"<xs:element ref='t:a' minOccurs='0'/><xs:element ref='t:m'/>", true},
        {"<xs:element ref='t:m' minOccurs='0'/><xs:element ref='t:a'/>", true},
        {"<xs:element ref='t:m' minOccurs='0'/><xs:element ref='t:b'/>", false},
        {"<xs:element name='c'" + huge + "/><xs:element name='c'/>", false},
        {"<xs:element name='c' maxOccurs='9223372036854775807'/><xs:element name='c'/>", true},
        {"<xs:group ref='t:g'/><xs:group ref='t:g'/>", true},
        {"<xs:group ref='t:g'" + huge + "/>", true},
        {"<xs:sequence" + huge + "><xs:element name='c'/><xs:element name='d' minOccurs='0'/></xs:sequence><xs:element name='c'/>", false},
    };
    // clang-format on
    std::string const globals =
        "<xs:element name='a'/><xs:element name='m' substitutionGroup='t:a'/><xs:element name='b'/>"
        "<xs:group name='g'><xs:sequence><xs:element name='c'/><xs:element name='d' minOccurs='0'/>"
        "<xs:element name='c' minOccurs='0'/></xs:sequence></xs:group>";
    Folder const folder;
    for (Row const& row : rows) {
        Outcome const outcome = folder.Dump(Schema(globals + "<xs:complexType name='T'><xs:sequence>" +
                                                   row.m_content + "</xs:sequence></xs:complexType>"));
        EXPECT_EQ(outcome.m_status, row.m_isAmbiguous ? 2 : 0) << row.m_content << '\n' << outcome.m_messages;
        EXPECT_EQ(outcome.m_messages.find("[ambiguous]") != std::string::npos, row.m_isAmbiguous)
            << row.m_content;
    }
}

}  // namespace
}  // namespace BxGen
