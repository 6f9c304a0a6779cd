#include "BxXmlLib5/binding/CBxException.h"

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
    TypeParam const none;
    EXPECT_EQ(Chain(&none) + ToUtf8(none.GetFullMessage()), Link<TypeParam>(""));
    EXPECT_EQ(TypeParam(u"", TypeParam(u"m")).GetFullMessage(), u"\nm");
    CBxOverFlowException const outer(u"1", TypeParam(u"2", CBxException(u"3", TypeParam(u"4"))));
    CBxException const copy = outer;
    EXPECT_EQ(copy.GetFullMessage(), u"1\n2\n3\n4");
    EXPECT_EQ(Chain(&copy), Link<CBxException>("1") + Link<TypeParam>("2") + Link<CBxException>("3") +
                                Link<TypeParam>("4"));
    EXPECT_NE(copy.GetInnerException(), outer.GetInnerException());
}

TYPED_TEST(CBxExceptionKinds, AreMadeFromAnyOtherAndAssigned) {
    CBxException const& any =
        CBxInvalidStateException(u"2", CBxInvalidValueException(u"3", CBxException(u"4")));
    std::string const inner = Link<CBxInvalidValueException>("3") + Link<CBxException>("4");
    TypeParam target(any);
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + inner);
    TypeParam const copy(target);
    target = TypeParam(u"none");
    EXPECT_EQ(Chain(&target), Link<TypeParam>("none"));
    target = copy;
    target = static_cast<TypeParam const&>(target);
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + inner);
    EXPECT_NE(copy.GetInnerException(), target.GetInnerException());
    static_cast<CBxException&>(target) = *target.GetInnerException();
    EXPECT_EQ(Chain(&target), Link<TypeParam>("3") + Link<CBxException>("4"));
}

/// A digit for each class of Kinds: whether the class is or derives from it.
template <class Kind, class... Bases>
std::string BasesOf(testing::Types<Bases...>) {
    return (std::string(std::is_base_of_v<Bases, Kind> ? "1" : "0") + ...);
}

TEST(CBxException, IsTheBaseOfATree) {
    EXPECT_EQ(BasesOf<CBxException>(Kinds()), "1000000");
    EXPECT_EQ(BasesOf<CBxValidationException>(Kinds()), "1100000");
    EXPECT_EQ(BasesOf<CBxInvalidValueException>(Kinds()), "1110000");
    EXPECT_EQ(BasesOf<CBxInvalidNamespaceException>(Kinds()), "1101000");
    EXPECT_EQ(BasesOf<CBxInvalidStateException>(Kinds()), "1000100");
    EXPECT_EQ(BasesOf<CBxInvalidParamException>(Kinds()), "1000010");
    EXPECT_EQ(BasesOf<CBxOverFlowException>(Kinds()), "1000001");
}

}  // namespace
