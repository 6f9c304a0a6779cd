#include "BxXmlLib5/binding/CBxException.h"

#include <type_traits>

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

template <class Kind>
std::string Link(std::string const& message) {
    return typeid(Kind).name() + ("=" + message) + ";";
}

/// Class and message of a failure and of all inner ones, each as of Link.
std::string Chain(CBxException const* failure) {
    if (failure == nullptr) return "";
    return typeid(*failure).name() + ("=" + ToUtf8(failure->GetMessage())) + ";" +
           Chain(failure->GetInnerException());
}

CBxInvalidStateException const kChain(u"2", CBxInvalidValueException(u"3", CBxException(u"4")));
std::string const kInner = Link<CBxInvalidValueException>("3") + Link<CBxException>("4");

template <class Kind>
class CBxExceptionKinds : public testing::Test {};
using Kinds = testing::Types<CBxException, CBxValidationException, CBxInvalidValueException,
                             CBxInvalidNamespaceException, CBxInvalidStateException, CBxInvalidParamException,
                             CBxOverFlowException>;
TYPED_TEST_SUITE(CBxExceptionKinds, Kinds);

TYPED_TEST(CBxExceptionKinds, CarryMessageAndInnerException) {
    TypeParam const none;
    EXPECT_EQ(Chain(&none) + ToUtf8(none.GetFullMessage()), Link<TypeParam>(""));
    EXPECT_EQ(TypeParam(u"m").GetFullMessage(), u"m");
    TypeParam const outer(u"1", kChain);
    EXPECT_EQ(outer.GetFullMessage(), u"1\n2\n3\n4");
    EXPECT_EQ(Chain(&outer), Link<TypeParam>("1") + Link<CBxInvalidStateException>("2") + kInner);
    EXPECT_EQ(TypeParam(u"", TypeParam()).GetFullMessage(), u"\n");
}

TYPED_TEST(CBxExceptionKinds, KeepTheirClassAsInnerException) {
    CBxException const outer(u"1", TypeParam(u"2", TypeParam(u"3")));
    CBxException const copy = outer;
    EXPECT_EQ(Chain(&copy), Link<CBxException>("1") + Link<TypeParam>("2") + Link<TypeParam>("3"));
    EXPECT_NE(copy.GetInnerException(), outer.GetInnerException());
}

TYPED_TEST(CBxExceptionKinds, AreMadeFromAnyOtherAndAssigned) {
    TypeParam target(static_cast<CBxException const&>(kChain));
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + kInner);
    TypeParam const copy(target);
    target = TypeParam(u"none");
    EXPECT_EQ(Chain(&target), Link<TypeParam>("none"));
    target = copy;
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + kInner);
    EXPECT_NE(copy.GetInnerException(), target.GetInnerException());
    TypeParam const& self = target;
    target = self;
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + kInner);
    static_cast<CBxException&>(target) = *target.GetInnerException();
    EXPECT_EQ(Chain(&target), Link<TypeParam>("3") + Link<CBxException>("4"));
}

/// A 1 for each class of Kinds that the class is or derives from.
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
