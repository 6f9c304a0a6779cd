#include "BxXmlLib5/binding/CXmlSerializationContext.h"

#include "BxXmlLib5/collections/CAttributeCol.h"
#include "support/Expect.h"

using namespace BxXmlLib5;

namespace {

struct Flag {
    bool (CXmlSerializationContext::*m_get)() const;
    void (CXmlSerializationContext::*m_set)(bool);
};

#define FLAG(name) \
    { &CXmlSerializationContext::Get##name, &CXmlSerializationContext::Set##name }
Flag const kFlags[] = {
    FLAG(IgnoreUnknownAttributes),          FLAG(IgnoreUnknownElements),
    FLAG(IgnoreMissingMandatoryElements),   FLAG(IgnoreMissingChoice),
    FLAG(IgnoreInvalidCollectionCounts),    FLAG(IgnoreNamespaces),
    FLAG(NoOptionalAttributeDefaultOutput),
};
#undef FLAG

/// A digit for each flag, in the order of kFlags.
std::string Flags(CXmlSerializationContext const& context) {
    std::string flags;
    for (Flag const& flag : kFlags) flags += (context.*flag.m_get)() ? '1' : '0';
    return flags;
}

/// All settings but the additional attributes.
std::string Settings(CXmlSerializationContext const& context) {
    std::string settings = Flags(context) + " " + std::to_string(context.GetSchemaType()) + " " +
                           ToUtf8(context.GetDefaultNamespaceURI() + u" " + context.GetInLineSchema());
    for (wstring const& instruction : context.GetProcessingInstructions())
        settings += " " + ToUtf8(instruction);
    for (auto const& [uri, alias] : context.GetNamespaceAliases().GetAll())
        settings += " " + ToUtf8(alias + u":" + uri);
    return settings;
}

// Runs before main, in whatever order the linker chose.
int const kAliasesBeforeMain =
    CXmlSerializationContext::GetDefaultContext().GetNamespaceAliases().GetNamespaceCount();

TEST(CXmlSerializationContext, ToleratesAndAddsNothingAtFirst) {
    EXPECT_EQ(Settings(CXmlSerializationContext()), "0000000 0  ");
    EXPECT_EQ(Settings(CXmlSerializationContext::GetDefaultContext()), "0000000 0  ");
    EXPECT_EQ(kAliasesBeforeMain, 0);
}

TEST(CXmlSerializationContext, SharesOneDefaultThatCanBeChanged) {
    CXmlSerializationContext::GetDefaultContext().SetIgnoreMissingChoice(true);
    EXPECT_TRUE(CXmlSerializationContext::GetDefaultContext().GetIgnoreMissingChoice());
    EXPECT_FALSE(CXmlSerializationContext().GetIgnoreMissingChoice());
    CXmlSerializationContext::GetDefaultContext().SetIgnoreMissingChoice(false);
}

TEST(CXmlSerializationContext, SetsEachFlagAlone) {
    for (std::size_t i = 0; i < std::size(kFlags); ++i) {
        CXmlSerializationContext context;
        (context.*kFlags[i].m_set)(true);
        std::string expected = "0000000";
        expected[i] = '1';
        EXPECT_EQ(Flags(context), expected);
        (context.*kFlags[i].m_set)(false);
        EXPECT_EQ(Flags(context), "0000000");
    }
}

TEST(CXmlSerializationContext, RefusesBothTolerancesAtOnce) {
    CXmlSerializationContext context;
    context.SetIgnoreMissingMandatoryElements(true);
    context.SetIgnoreMissingMandatoryElements(true);
    EXPECT_BX_THROW(
        (context.SetIgnoreUnknownElements(true), 0), CBxInvalidStateException,
        "The parser can only ignore additional elements, or ignore the fact that some required ones are "
        "missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting "
        "IgnoreUnknownElements to true");
    context.SetIgnoreUnknownElements(false);
    EXPECT_EQ(Flags(context), "0010000");
    context.SetIgnoreMissingMandatoryElements(false);
    context.SetIgnoreUnknownElements(true);
    context.SetIgnoreUnknownElements(true);
    EXPECT_BX_THROW(
        (context.SetIgnoreMissingMandatoryElements(true), 0), CBxInvalidStateException,
        "The parser can only ignore additional elements, or ignore the fact that some required ones are "
        "missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting "
        "IgnoreMissingMandatoryElements to true");
    context.SetIgnoreMissingMandatoryElements(false);
    EXPECT_EQ(Flags(context), "0100000");
}

TEST(CXmlSerializationContext, IgnoresNamespacesUnderOneSchemaType) {
    for (int type : {-1, 0, 1, 2, 3}) {
        CXmlSerializationContext context;
        context.SetSchemaType(static_cast<SchemaType>(type));
        context.SetIgnoreNamespaces(false);
        EXPECT_EQ(context.GetSchemaType(), type);
        EXPECT_EQ(context.GetIgnoreNamespaces(), type == 2) << type;
        context.SetIgnoreNamespaces(true);
        context.SetSchemaType(st_Default);
        EXPECT_TRUE(context.GetIgnoreNamespaces()) << type;
    }
}

TEST(CXmlSerializationContext, CopiesItsSettingsByValue) {
    CXmlSerializationContext source;
    for (Flag const& flag : kFlags) {
        if (flag.m_set != &CXmlSerializationContext::SetIgnoreUnknownElements) (source.*flag.m_set)(true);
    }
    source.SetSchemaType(static_cast<SchemaType>(5));
    source.SetDefaultNamespaceURI(u"default");
    source.SetInLineSchema(u"<schema/>");
    source.GetProcessingInstructions() = {u"<?a?>", u"<?b?>"};
    source.GetNamespaceAliases().Add(u"p", u"P");
    std::string const settings = "1011111 5 default <schema/> <?a?> <?b?> p:P";
    CXmlSerializationContext const copy = source;
    CXmlSerializationContext assigned;
    assigned.SetIgnoreUnknownElements(true);
    assigned.GetNamespaceAliases().Add(u"q", u"Q");
    assigned = source;
    source.SetDefaultNamespaceURI(nullptr);
    source.SetInLineSchema(nullptr);
    source.GetProcessingInstructions().clear();
    source.GetNamespaceAliases().RemoveNamespace(u"P");
    for (Flag const& flag : kFlags) (source.*flag.m_set)(false);
    EXPECT_EQ(Settings(source), "0000000 5  ");
    EXPECT_EQ(Settings(copy), settings);
    EXPECT_EQ(Settings(assigned), settings);
}

TEST(CXmlSerializationContext, SharesTheAdditionalRootAttributesWithCopies) {
    CXmlSerializationContext source;
    CXmlSerializationContext const before = source;
    CXmlSerializationContext const& constant = source;
    CSmartPtr<CAttributeCol> const attributes = constant.GetAdditionalRootAttributes();
    attributes->Add(u"k", u"v", u"any namespace");
    EXPECT_EQ(source.GetAdditionalRootAttributes()->GetCount(), 1);
    EXPECT_EQ(source.GetAdditionalRootAttributes(), attributes);
    EXPECT_EQ(CXmlSerializationContext(source).GetAdditionalRootAttributes(), attributes);
    CXmlSerializationContext assigned;
    assigned.GetAdditionalRootAttributes()->Add(u"dropped");
    assigned = source;
    EXPECT_EQ(assigned.GetAdditionalRootAttributes(), attributes);
    EXPECT_NE(before.GetAdditionalRootAttributes(), attributes);
    EXPECT_EQ(before.GetAdditionalRootAttributes()->GetCount(), 0);
}

}  // namespace
