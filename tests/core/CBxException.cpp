#include "BxXmlLib5/core/CBxException.h"

#include <type_traits>

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

template <class Kind>
std::string Link(char const* message) {
    return std::string(typeid(Kind).name()) + "=" + message + ";";
}

/// Class and message of a failure and of all inner ones, each as of Link.
std::string Chain(CBxException const* failure) {
    if (failure == nullptr) return "";
    std::string const name = typeid(*failure).name();
    return name + "=" + ToUtf8(failure->GetMessage()) + ";" + Chain(failure->GetInnerException());
}

template <class Kind>
class CBxExceptionKinds : public testing::Test {};
using Kinds = testing::Types<CBxException, CBxValidationException, CBxInvalidValueException,
                             CBxInvalidNamespaceException, CBxInvalidStateException, CBxInvalidParamException,
                             CBxOverFlowException>;
TYPED_TEST_SUITE(CBxExceptionKinds, Kinds);

TYPED_TEST(CBxExceptionKinds, KeepMessageAndClassInAChain) {
    EXPECT_EQ(TypeParam().GetFullMessage() + TypeParam(u"m").GetFullMessage(), u"m");
    EXPECT_EQ(TypeParam(u"", TypeParam()).GetFullMessage(), u"\n");
    CBxOverFlowException const outer(u"1", TypeParam(u"2", CBxException(u"3", TypeParam(u"4"))));
    CBxException const copy = outer;
    EXPECT_EQ(copy.GetFullMessage(), u"1\n2\n3\n4");
    EXPECT_EQ(Chain(&copy), Link<CBxException>("1") + Link<TypeParam>("2") + Link<CBxException>("3") +
                                Link<TypeParam>("4"));
}

TYPED_TEST(CBxExceptionKinds, AreMadeFromAnyOtherAndAssigned) {
    CBxException const& any =
        CBxInvalidStateException(u"1", CBxInvalidValueException(u"2", CBxException(u"3")));
    std::string const whole =
        Link<TypeParam>("1") + Link<CBxInvalidValueException>("2") + Link<CBxException>("3");
    TypeParam target(any);
    EXPECT_EQ(Chain(&target), whole);
    TypeParam const copy(target);
    target = TypeParam(u"none");
    target = copy;
    target = static_cast<TypeParam const&>(target);
    EXPECT_EQ(Chain(&target), whole);
    static_cast<CBxException&>(target) = *target.GetInnerException();
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + Link<CBxException>("3"));
    EXPECT_EQ(Chain(&copy), whole);
}

TYPED_TEST(CBxExceptionKinds, TakeThePlaceOfTheFailureThatLedToThem) {
    TypeParam inner(u"m");
    EXPECT_FALSE(inner.GetLocation().IsKnown());
    inner.SetLocation(CBxLocation(u"/a/b", 7));
    CBxValidationException const outer(u"n", inner);
    TypeParam const made(static_cast<CBxException const&>(outer));
    TypeParam assigned;
    assigned = made;
    inner.SetLocation(CBxLocation(u"/c"));
    EXPECT_EQ(inner.GetReport(), u"/c: m");
    EXPECT_EQ(assigned.GetReport(u"d.xml"), u"d.xml:7: /a/b: n\nm");
    EXPECT_EQ(assigned.GetInnerException()->GetReport(), u"7: /a/b: m");
    assigned.SetLocation(CBxLocation(u"/d"));
    EXPECT_EQ(assigned.GetReport() + made.GetReport(), u"/d: n\nm7: /a/b: n\nm");
}

TEST(CBxException, ReportsWhatIsKnownOfItsPlace) {
    struct {
        CBxLocation location;
        wstring report;
    } const rows[] = {
        {CBxLocation(), u"a.xml: m"},
        {CBxLocation(u"", 0, 3), u"a.xml: m"},
        {CBxLocation(u"/a"), u"a.xml: /a: m"},
        {CBxLocation(u"", 2), u"a.xml:2: m"},
        {CBxLocation(u"", 2, 3), u"a.xml:2:3: m"},
        {CBxLocation(u"/a", 2, 3), u"a.xml:2:3: /a: m"},
    };
    for (auto const& row : rows) {
        CBxException failure(u"m");
        failure.SetLocation(row.location);
        EXPECT_EQ(failure.GetReport(u"a.xml"), row.report);
    }
}

static_assert(std::is_base_of_v<CBxValidationException, CBxInvalidValueException>);

}  // namespace
