#include "GarmPC3Editor/Commands/NamedValues.h"

#include "host/GmResBufExtention.h"
#include "kernel/OdError.h"
#include "kernel/OdRxObjectImpl.h"
#include "tests/unit/commands/CommandTest.h"

namespace
{
class OtherContext : public OdEdCommandContext
{
protected:
    ~OtherContext() override = default;
};

class NamedValuesTest : public CommandTest
{
};

OdResult codeOf(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (const OdError& error)
    {
        return error.code();
    }
    return eOk;
}

TEST_F(NamedValuesTest, missingValueIsNull)
{
    const NamedValues named(context());
    EXPECT_TRUE(named.get(OD_T("nothing")).isNull());
    EXPECT_EQ(named.getPointer(OD_T("nothing")), nullptr);
}

TEST_F(NamedValuesTest, valueOfAnotherClassThrows)
{
    values().set(OD_T("stranger"), newStranger());
    const NamedValues named(context());
    EXPECT_THROW(named.get(OD_T("stranger")), OdError_NotThatKindOfClass);
    EXPECT_THROW(named.getPointer(OD_T("stranger")), OdError_NotThatKindOfClass);
}

TEST_F(NamedValuesTest, pointerOfAnotherKindThrows)
{
    setText(OD_T("text"), OD_T("no address"));
    const NamedValues named(context());
    EXPECT_EQ(codeOf([&] { named.getPointer(OD_T("text")); }), eInvalidResBuf);
}

TEST_F(NamedValuesTest, eachKindIsWrittenUnderItsRestype)
{
    NamedResults results;
    results.addString(OD_T("string"), OD_T("text"));
    results.addBool(OD_T("bool"), true);
    results.addInt16(OD_T("int16"), -2);
    results.addBinaryChunk(OD_T("chunk"), {1, 2, 3});
    EXPECT_TRUE(values().names().empty());
    NamedValues(context()).write(results);

    EXPECT_EQ(valueOf(OD_T("string"))->restype(), 5005);
    EXPECT_EQ(textOf(OD_T("string")), OD_T("text"));
    EXPECT_EQ(valueOf(OD_T("bool"))->restype(), 290);
    EXPECT_TRUE(valueOf(OD_T("bool"))->getBool());
    EXPECT_EQ(valueOf(OD_T("int16"))->restype(), 5003);
    EXPECT_EQ(valueOf(OD_T("int16"))->getInt16(), -2);
    EXPECT_EQ(valueOf(OD_T("chunk"))->restype(), 310);
    EXPECT_EQ(valueOf(OD_T("chunk"))->getBinaryChunk(), OdBinaryData({1, 2, 3}));
}

TEST_F(NamedValuesTest, writingReplacesTheHostsValueObject)
{
    setText(OD_T("name"), OD_T("before"));
    const OdResBufPtr hosts = valueOf(OD_T("name"));
    NamedResults results;
    results.addString(OD_T("name"), OD_T("after"));
    NamedValues(context()).write(results);
    EXPECT_EQ(hosts->getString(), OD_T("before"));
    EXPECT_EQ(textOf(OD_T("name")), OD_T("after"));
}

TEST_F(NamedValuesTest, contextThatIsNotHostsIsRefused)
{
    const OdSmartPtr<OtherContext> other = OdRxObjectImpl<OtherContext>::createObject();
    EXPECT_THROW(NamedValues(other.get()), OdError_NotThatKindOfClass);
    EXPECT_EQ(codeOf([] { const NamedValues none(nullptr); }), eNullObjectPointer);
}
} // namespace
