#include "plothost/DevModeQuery.h"

#include "host/GmResBufExtention.h"
#include "kernel/OdError.h"
#include "kernel/OdResBuf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ScriptedCommand.h"

using namespace plothost;
using testing::HasSubstr;

namespace
{
class DevModeQuery : public testing::Test
{
protected:
    void SetUp() override
    {
        ScriptedCommand::add(OD_T("PC3GETDEVMODE"), [this](GmServicesManagerInterface& values) { m_script(values); });
    }
    void TearDown() override { ScriptedCommand::removeAll(); }

    static void answerAll(GmServicesManagerInterface& values)
    {
        values.set(OD_T("printerName"), OdResBuf::newRb(kRtString, OD_T("P")));
        values.set(OD_T("devMode"), OdResBuf::newRb(kRtBinaryChunk, OdBinaryData({1, 2})));
        values.set(OD_T("result"), OdResBuf::newRb(kRtBool, true));
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, OD_T("A4")));
        values.set(OD_T("driverType"), OdResBuf::newRb(kRtInt16, OdInt16(3)));
        values.set(OD_T("canonicalModelName"), OdResBuf::newRb(kRtString, OD_T("M")));
    }

    ScriptedCommand::Script m_script = [](GmServicesManagerInterface&) {};
};
} // namespace

TEST_F(DevModeQuery, passesTheArgumentsAndReadsTheAnswers)
{
    OdString asked;
    bool inBackground = true;
    m_script = [&](GmServicesManagerInterface& values)
    {
        asked = OdResBuf::cast(values.get(OD_T("deviceName")).get())->getString();
        EXPECT_TRUE(values.get(OD_T("printerName"))) << "must be present";
        inBackground = values.get(OD_T("hwndPost")).get() != nullptr;
        answerAll(values);
    };
    const DevModeAnswer answer = askDevMode(OD_T("plan.pc3"));
    EXPECT_EQ(asked, OD_T("plan.pc3"));
    EXPECT_FALSE(inBackground);
    EXPECT_EQ(answer.problem, "");
    EXPECT_EQ(answer.report.deviceName, OD_T("plan.pc3"));
    EXPECT_TRUE(answer.report.result);
    EXPECT_EQ(answer.report.printerName, OD_T("P"));
    EXPECT_EQ(answer.report.paperName, OD_T("A4"));
    EXPECT_EQ(answer.report.driverType, 3);
    EXPECT_EQ(answer.report.canonicalModelName, OD_T("M"));
    EXPECT_EQ(answer.report.devMode, (std::vector<BYTE>{1, 2}));
}

TEST_F(DevModeQuery, anAnswerThatIsMissingOrOfAnotherKindIsNoAnswer)
{
    for (const OdChar* name :
         {OD_T("devMode"), OD_T("result"), OD_T("paperName"), OD_T("driverType"), OD_T("canonicalModelName")})
    {
        m_script = [name](GmServicesManagerInterface& values)
        {
            answerAll(values);
            values.remove(name);
        };
        EXPECT_THAT(askDevMode(OD_T("x")).problem, HasSubstr("an incomplete answer")) << odToUtf8(name);
        m_script = [name](GmServicesManagerInterface& values)
        {
            answerAll(values);
            values.set(name, OdResBuf::newRb(kRtDouble, 1.0));
        };
        EXPECT_THAT(askDevMode(OD_T("x")).problem, HasSubstr("an incomplete answer")) << odToUtf8(name);
    }
}

TEST_F(DevModeQuery, answersOfAnEarlierQuestionAreGone)
{
    m_script = answerAll;
    EXPECT_EQ(askDevMode(OD_T("x")).problem, "");
    m_script = [](GmServicesManagerInterface&) {};
    EXPECT_THAT(askDevMode(OD_T("x")).problem, HasSubstr("an incomplete answer"));
}

TEST_F(DevModeQuery, whatTheCommandThrowsIsTold)
{
    m_script = [](GmServicesManagerInterface&) { throw OdError_NotThatKindOfClass(); };
    EXPECT_THAT(askDevMode(OD_T("x")).problem, HasSubstr("the command 'PC3GETDEVMODE' failed: "));
    EXPECT_THAT(startBackgroundCheck(OD_T("x"), nullptr), HasSubstr("failed: "));
}

TEST_F(DevModeQuery, withoutTheCommandThereIsNoAnswer)
{
    ScriptedCommand::removeAll();
    EXPECT_EQ(askDevMode(OD_T("x")).problem, "the module has no command 'PC3GETDEVMODE'");
    EXPECT_EQ(startBackgroundCheck(OD_T("x"), nullptr), "the module has no command 'PC3GETDEVMODE'");
}

TEST_F(DevModeQuery, theBackgroundCheckGetsTheWindow)
{
    int target = 0;
    void* passed = nullptr;
    m_script = [&passed](GmServicesManagerInterface& values)
    { passed = GmResBufExtention::getVoid(OdResBuf::cast(values.get(OD_T("hwndPost")).get())); };
    EXPECT_EQ(startBackgroundCheck(OD_T("x"), reinterpret_cast<HWND>(&target)), "");
    EXPECT_EQ(passed, &target);
    m_script = [&passed](GmServicesManagerInterface& values) { passed = values.get(OD_T("hwndPost")).get(); };
    static_cast<void>(askDevMode(OD_T("x")));
    EXPECT_EQ(passed, nullptr) << "a later question waits again";
}
