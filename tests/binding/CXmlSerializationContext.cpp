#include "BxXmlLib5/binding/CXmlSerializationContext.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "support/Expect.h"

using namespace BxXmlLib5;
using Context = CXmlSerializationContext;

namespace {

#define FLAG(name) std::pair(&Context::Get##name, &Context::Set##name)
std::pair<bool (Context::*)() const, void (Context::*)(bool)> const kFlags[] = {
    FLAG(IgnoreUnknownAttributes),
    FLAG(IgnoreUnknownElements),
    FLAG(IgnoreMissingMandatoryElements),
    FLAG(IgnoreMissingChoice),
    FLAG(IgnoreInvalidCollectionCounts),
    FLAG(IgnoreNamespaces),
    FLAG(NoOptionalAttributeDefaultOutput),
    FLAG(CheckWellFormed),
    FLAG(RequireWholeDocument),
    FLAG(SystemEncodings)};
#undef FLAG

/// All settings but the additional attributes; first a digit for each of kFlags.
std::string Settings(Context const& context) {
    std::string settings;
    for (auto const& [get, set] : kFlags) settings += (context.*get)() ? '1' : '0';
    settings += ' ' + std::to_string(context.GetSchemaType()) + ' ';
    settings += ToUtf8(context.GetDefaultNamespaceURI() + u' ' + context.GetInLineSchema());
    for (wstring const& instruction : context.GetProcessingInstructions())
        settings += ' ' + ToUtf8(instruction);
    for (auto const& [uri, alias] : context.GetNamespaceAliases().GetAll())
        settings += ' ' + ToUtf8(alias + u':' + uri);
    return settings;
}

std::string const kNone = std::string(std::size(kFlags), '0') + " 0  ";
// Runs before main, in whatever order the linker chose.
std::string const kDefaultBeforeMain = Settings(Context::GetDefaultContext());

TEST(CXmlSerializationContext, ToleratesOnlyWhatIsSet) {
    EXPECT_EQ(kDefaultBeforeMain, kNone);
    std::string expected = kNone;
    for (std::size_t i = 0; auto const& [get, set] : kFlags) {
        (Context::GetDefaultContext().*set)(true);
        expected[i] = '1';
        EXPECT_EQ(Settings(Context::GetDefaultContext()), expected);
        EXPECT_EQ(Settings(Context()), kNone);
        (Context::GetDefaultContext().*set)(false);
        expected[i++] = '0';
    }
    Context context;
    context.SetSchemaType(st_NoNamespaces);
    EXPECT_TRUE(context.GetIgnoreNamespaces());
}

TEST(CXmlSerializationContext, RefusesBothTolerancesAtOnce) {
    std::string const text =
        "The parser can only ignore additional elements, or ignore the fact that some required ones are "
        "missing, you can "
        "not ignore both\nSet ";
    Context context;
    context.SetIgnoreMissingMandatoryElements(true);
    EXPECT_BX_THROW(
        (context.SetIgnoreUnknownElements(true), 0), CBxInvalidStateException,
        text + "IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    EXPECT_FALSE(context.GetIgnoreUnknownElements());
    context.SetIgnoreMissingMandatoryElements(false);
    context.SetIgnoreUnknownElements(true);
    EXPECT_BX_THROW(
        (context.SetIgnoreMissingMandatoryElements(true), 0), CBxInvalidStateException,
        text + "IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    EXPECT_FALSE(context.GetIgnoreMissingMandatoryElements());
}

TEST(CXmlSerializationContext, CopiesAllButTheAdditionalRootAttributesByValue) {
    Context source;
    Context const before = source;
    for (auto const& [get, set] : kFlags) {
        if (set != &Context::SetIgnoreUnknownElements) (source.*set)(true);
    }
    source.SetSchemaType(static_cast<SchemaType>(5));
    source.SetDefaultNamespaceURI(u"default");
    source.SetInLineSchema(u"<schema/>");
    source.GetProcessingInstructions() = {u"<?a?>", u"<?b?>"};
    source.GetNamespaceAliases().Add(u"p", u"P");
    CSmartPtr<CAttributeCol> const attributes = before.GetAdditionalRootAttributes();
    EXPECT_NE(source.GetAdditionalRootAttributes(), attributes);
    source.GetAdditionalRootAttributes()->Add(u"k", u"v", u"any namespace");
    Context const copy = source;
    Context assigned = before;
    assigned = source;
    source = before;
    source.SetDefaultNamespaceURI(nullptr);
    source.SetInLineSchema(nullptr);
    EXPECT_EQ(Settings(source), kNone);
    EXPECT_EQ(source.GetAdditionalRootAttributes(), attributes);
    EXPECT_EQ(Settings(copy),
              "10" + std::string(std::size(kFlags) - 2, '1') + " 5 default <schema/> <?a?> <?b?> p:P");
    EXPECT_EQ(Settings(assigned), Settings(copy));
    EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 1);
}

}  // namespace
