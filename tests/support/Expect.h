// What all tests expect alike.
#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <ostream>
#include <string>
#include <typeinfo>

#include "BxXmlLib5/core/CBxException.h"
#include "BxXmlLib5/platform/Text.h"

// UTF-16 in failure messages, as a text instead of a list of numbers.
namespace testing::internal {
template <>
inline void PrintTo(std::u16string const& text, std::ostream* out) {
    *out << '"' << BxXmlLib5::ToUtf8(text) << '"';
}
}  // namespace testing::internal

namespace BxTest {

/// Runs a statement and gives "Class: message" of the exception that it throws, of exactly that class, or
/// "nothing".
template <std::invocable Statement>
std::string Thrown(Statement statement) {
    using namespace BxXmlLib5;
    try {
        statement();
    } catch (CBxException const& failure) {
        std::string const name =
            typeid(failure) == typeid(CBxException)                   ? "CBxException"
            : typeid(failure) == typeid(CBxValidationException)       ? "CBxValidationException"
            : typeid(failure) == typeid(CBxInvalidValueException)     ? "CBxInvalidValueException"
            : typeid(failure) == typeid(CBxInvalidNamespaceException) ? "CBxInvalidNamespaceException"
            : typeid(failure) == typeid(CBxInvalidStateException)     ? "CBxInvalidStateException"
            : typeid(failure) == typeid(CBxInvalidParamException)     ? "CBxInvalidParamException"
                                                                      : "CBxOverFlowException";
        return name + ": " + ToUtf8(failure.GetMessage());
    }
    return "nothing";
}

/// The text that an action gives, or the report of the failure that it throws.
template <std::invocable Action>
std::string Reported(Action action) {
    try {
        return action();
    } catch (BxXmlLib5::CBxException const& failure) {
        return BxXmlLib5::ToUtf8(failure.GetReport());
    }
}

/// The path of the failure of an action.
template <std::invocable Action>
std::string PathOf(Action action) {
    try {
        action();
    } catch (BxXmlLib5::CBxException const& failure) {
        return BxXmlLib5::ToUtf8(failure.GetLocation().GetPath());
    }
    return "nothing";
}

}  // namespace BxTest

/// Expects a statement to throw exactly this class with exactly this message, in UTF-8.
#define EXPECT_BX_THROW(statement, Class, message) \
    EXPECT_EQ(BxTest::Thrown([&] { (void)(statement); }), std::string(#Class ": ") + (message))
