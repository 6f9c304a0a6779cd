// Groups that repeat, in classes written by hand.

#include <gtest/gtest.h>

#include <string>

#include "BxXmlLib5/generated/Generated.h"
#include "support/Expect.h"

namespace {

namespace Bx = BxXmlLib5::Generated;
namespace Xs = Bx::Xs;
using namespace BxTest;
using namespace BxXmlLib5;

class CPair : public Bx::CGroup {
public:
    Bx::Values<Xs::string> A;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

class CEither : public Bx::CGroup {
public:
    Bx::Values<Xs::string> B;
    Bx::Values<Xs::string> C;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

class CPairs : public Bx::Root<Bx::CObject> {
public:
    Bx::Collection<CPair> Pair;
    Bx::Collection<CEither> Either;

    static Bx::Class const kClass;

protected:
    Bx::Class const& Describe() const override;
};

constexpr Bx::Row kPairRows[] = {
    Bx::Sequence,
    Bx::Element<&CPair::A>(u"a", 2, 2),
    Bx::End,
};
constexpr Bx::Row kEitherRows[] = {
    Bx::Choice(2, 2),
    Bx::Element<&CEither::B>(u"b", 1, 1),
    Bx::Element<&CEither::C>(u"c", 1, 1),
    Bx::End,
};
constexpr Bx::Row kPairsRows[] = {
    Bx::Sequence,
    Bx::Items<&CPairs::Pair>(0, Bx::kMany),
    Bx::Items<&CPairs::Either>(0, Bx::kMany),
    Bx::End,
};

constinit Bx::Set const kSet{};
constinit Bx::Class const CPair::kClass = Bx::Describe<CPair>(kSet, u"pair", u"", kPairRows);
Bx::Class const& CPair::Describe() const {
    return kClass;
}
constinit Bx::Class const CEither::kClass = Bx::Describe<CEither>(kSet, u"either", u"", kEitherRows);
Bx::Class const& CEither::Describe() const {
    return kClass;
}
constinit Bx::Class const CPairs::kClass = Bx::Describe<CPairs>(kSet, u"pairs", u"", kPairsRows);
Bx::Class const& CPairs::Describe() const {
    return kClass;
}

/// In a time that does not grow with their square, which the limit of a test's time shows.
TEST(Groups, FailAtTheEndOfAnyNumberOfElements) {
    constexpr int kCount = 400'000;
    struct {
        std::string m_element, m_missing;
    } const rows[] = {{"<a/>", "the element [a]"}, {"<b/>", "one of the elements [b] [c]"}};
    for (auto const& [element, missing] : rows) {
        CPairs pairs;
        std::string elements = "<pairs>";
        for (int i = 0; i < kCount; ++i) elements += element;
        pairs.Parse(elements + "</pairs>");
        EXPECT_EQ(pairs.Pair.Count() + pairs.Either.Count(), kCount / 2);
        EXPECT_EQ(Thrown([&] { pairs.Parse(elements + element + "</pairs>"); }),
                  "CBxValidationException: Failed to find " + missing + " in the element [pairs]");
    }
}

}  // namespace
