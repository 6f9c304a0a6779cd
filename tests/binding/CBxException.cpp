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
    EXPECT_EQ(TypeParam().GetFullMessage() + TypeParam(u"m").GetFullMessage(), u"m");
    EXPECT_EQ(TypeParam(u"", TypeParam()).GetFullMessage(), u"\n");
    CBxOverFlowException const outer(u"1", TypeParam(u"2", CBxException(u"3", TypeParam(u"4"))));
    CBxException const copy = outer;
    EXPECT_EQ(copy.GetFullMessage(), u"1\n2\n3\n4");
    EXPECT_EQ(Chain(&copy), Link<CBxException>("1") + Link<TypeParam>("2") + Link<CBxException>("3") +
                                Link<TypeParam>("4"));
    EXPECT_NE(copy.GetInnerException(), outer.GetInnerException());
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
    EXPECT_EQ(Chain(&target), Link<TypeParam>("none"));
    target = copy;
    target = static_cast<TypeParam const&>(target);
    EXPECT_EQ(Chain(&target), whole);
    static_cast<CBxException&>(target) = *target.GetInnerException();
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + Link<CBxException>("3"));
    EXPECT_EQ(Chain(&copy), whole);
}

/// The bases of each class, itself among them.
template <class... All>
std::string Bases(testing::Types<All...>) {
    auto const row = []<class Kind>(Kind*) {
        return ((std::is_base_of_v<All, Kind> ? "1" : "0") + ... + std::string(" "));
    };
    return (row(static_cast<All*>(nullptr)) + ...);
}

TEST(CBxException, IsTheBaseOfATree) {
    EXPECT_EQ(Bases(Kinds()), "1000000 1100000 1110000 1101000 1000100 1000010 1000001 ");
}

}  // namespace
