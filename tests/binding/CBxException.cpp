#include "BxXmlLib5/binding/CBxException.h"

#include <type_traits>

#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

/// Class and message of a failure and of all inner ones.
std::string Chain(CBxException const* failure) {
    std::string chain;
    for (; failure != nullptr; failure = failure->GetInnerException()) {
        // typeid names are unique, and all but the library's are the compiler's business.
        chain += std::string(typeid(*failure).name()) + "=" + ToUtf8(failure->GetMessage()) + ";";
    }
    return chain;
}

template <class Kind>
std::string Link(char const* message) {
    return std::string(typeid(Kind).name()) + "=" + message + ";";
}

CBxInvalidStateException const kChain(
    u"2", CBxInvalidValueException(u"3", CBxInvalidNamespaceException(u"4", CBxOverFlowException(u"5"))));
std::string const kInner = Link<CBxInvalidValueException>("3") + Link<CBxInvalidNamespaceException>("4") +
                           Link<CBxOverFlowException>("5");
std::string const kWhole = Link<CBxInvalidStateException>("2") + kInner;

template <class Kind>
class CBxExceptionKinds : public testing::Test {};
using Kinds = testing::Types<CBxException, CBxValidationException, CBxInvalidValueException,
                             CBxInvalidNamespaceException, CBxInvalidStateException, CBxInvalidParamException,
                             CBxOverFlowException>;
TYPED_TEST_SUITE(CBxExceptionKinds, Kinds);

TYPED_TEST(CBxExceptionKinds, CarryMessageAndInnerException) {
    EXPECT_EQ(TypeParam().GetMessage(), u"");
    EXPECT_EQ(TypeParam().GetFullMessage(), u"");
    EXPECT_EQ(TypeParam().GetInnerException(), nullptr);
    EXPECT_EQ(TypeParam(u"m").GetFullMessage(), u"m");
    TypeParam const outer(u"1", kChain);
    EXPECT_EQ(outer.GetMessage(), u"1");
    EXPECT_EQ(outer.GetFullMessage(), u"1\n2\n3\n4\n5");
    EXPECT_EQ(Chain(&outer), Link<TypeParam>("1") + kWhole);
    EXPECT_EQ(TypeParam(u"", TypeParam()).GetFullMessage(), u"\n");
}

TYPED_TEST(CBxExceptionKinds, KeepTheirClassAsInnerException) {
    CBxException const outer(u"1", CBxException(u"2", TypeParam(u"3", TypeParam(u"4"))));
    CBxException const copy = outer;
    EXPECT_EQ(Chain(&copy), Link<CBxException>("1") + Link<CBxException>("2") + Link<TypeParam>("3") +
                                Link<TypeParam>("4"));
    EXPECT_NE(copy.GetInnerException(), outer.GetInnerException());
}

TYPED_TEST(CBxExceptionKinds, AreMadeFromAnyOther) {
    CBxException const& any = kChain;
    TypeParam const converted(any);
    EXPECT_EQ(Chain(&converted), Link<TypeParam>("2") + kInner);
    TypeParam const copy(converted);
    EXPECT_EQ(Chain(&copy), Link<TypeParam>("2") + kInner);
    EXPECT_NE(copy.GetInnerException(), converted.GetInnerException());
}

TYPED_TEST(CBxExceptionKinds, AreAssigned) {
    TypeParam target(u"old", CBxOverFlowException(u"gone"));
    target = TypeParam(u"1", kChain);
    EXPECT_EQ(Chain(&target), Link<TypeParam>("1") + kWhole);
    TypeParam const& self = target;
    target = self;
    EXPECT_EQ(Chain(&target), Link<TypeParam>("1") + kWhole);
    static_cast<CBxException&>(target) = *target.GetInnerException();
    EXPECT_EQ(Chain(&target), Link<TypeParam>("2") + kInner);
    target = TypeParam(u"none");
    EXPECT_EQ(Chain(&target), Link<TypeParam>("none"));
}

/// A 1 for each class that the class is or derives from, in the order of Kinds.
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
    try {
        throw CBxInvalidValueException(u"m");
    } catch (CBxValidationException const& failure) {
        EXPECT_EQ(Chain(&failure), Link<CBxInvalidValueException>("m"));
    }
}

}  // namespace
