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

static_assert(std::is_base_of_v<CBxValidationException, CBxInvalidValueException>);

}  // namespace
