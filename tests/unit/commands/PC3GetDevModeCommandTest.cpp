#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"

#include "GarmPC3Editor/Commands/BackgroundCheck.h"
#include "kernel/OdError.h"
#include "kernel/OdRxObjectImpl.h"
#include "tests/unit/commands/CommandTest.h"

#include <algorithm>
#include <vector>

namespace
{
const std::vector<OdString> resultsInOrder = {OD_T("printerName"), OD_T("devMode"),    OD_T("result"),
                                              OD_T("paperName"),   OD_T("driverType"), OD_T("canonicalModelName")};

class PC3GetDevModeCommandTest : public CommandTest
{
protected:
    void run() { OdRxObjectImpl<PC3GetDevModeCommand>::createObject()->execute(context()); }

    void ask(const OdString& deviceName)
    {
        values().clear();
        setText(OD_T("deviceName"), deviceName);
        setText(OD_T("printerName"), OD_T("ignored"));
        run();
    }

    void expectEmptyAnswer()
    {
        EXPECT_EQ(textOf(OD_T("printerName")), OD_T(""));
        EXPECT_TRUE(valueOf(OD_T("devMode"))->getBinaryChunk().isEmpty());
        EXPECT_FALSE(valueOf(OD_T("result"))->getBool());
        EXPECT_EQ(textOf(OD_T("paperName")), OD_T(""));
        EXPECT_EQ(valueOf(OD_T("driverType"))->getInt16(), 0);
        EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T(""));
    }

    // Whether the values are still the host's: the command wrote none of them.
    bool nothingWritten(const std::vector<OdString>& given) { return values().names() == given; }
};

TEST_F(PC3GetDevModeCommandTest, configurationAnswersAllValuesUnderTheirRestypes)
{
    putConfiguration(OD_T("a.pc3"));
    ask(OD_T("a.pc3"));
    EXPECT_EQ(valueOf(OD_T("printerName"))->restype(), 5005);
    EXPECT_EQ(textOf(OD_T("printerName")), OD_T("Plotter A"));
    EXPECT_EQ(valueOf(OD_T("devMode"))->restype(), 310);
    EXPECT_EQ(valueOf(OD_T("devMode"))->getBinaryChunk().size(), 228U);
    EXPECT_EQ(valueOf(OD_T("result"))->restype(), 290);
    EXPECT_TRUE(valueOf(OD_T("result"))->getBool());
    EXPECT_EQ(valueOf(OD_T("paperName"))->restype(), 5005);
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("A3"));
    EXPECT_EQ(valueOf(OD_T("driverType"))->restype(), 5003);
    EXPECT_EQ(valueOf(OD_T("driverType"))->getInt16(), 1);
    EXPECT_EQ(valueOf(OD_T("canonicalModelName"))->restype(), 5005);
    EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T("Canonical"));
}

TEST_F(PC3GetDevModeCommandTest, resultsAreWrittenInAFixedOrder)
{
    putConfiguration(OD_T("a.pc3"));
    setText(OD_T("printerName"), OD_T("ignored"));
    setText(OD_T("deviceName"), OD_T("a.pc3"));
    setText(OD_T("paperName"), OD_T("ignored"));
    run();
    std::vector<OdString> written = values().names();
    ASSERT_EQ(written.size(), 7U);
    EXPECT_EQ(written[0], OD_T("deviceName"));
    written.erase(written.begin());
    EXPECT_EQ(written, resultsInOrder);
}

TEST_F(PC3GetDevModeCommandTest, everythingIsWrittenEvenWithoutAPrinter)
{
    for (const OdChar* name : {OD_T("Plotter Z"), OD_T("missing.pc3"), OD_T("")})
    {
        ask(name);
        expectEmptyAnswer();
        EXPECT_EQ(values().names().size(), 7U);
    }
}

TEST_F(PC3GetDevModeCommandTest, configurationWithoutPrinterReturnsPaperTypeAndModel)
{
    putConfiguration(OD_T("nodevmode.pc3"), [](GmPlotCfg3& cfg) { cfg.m_custom = nullptr; });
    ask(OD_T("nodevmode.pc3"));
    EXPECT_EQ(textOf(OD_T("printerName")), OD_T(""));
    EXPECT_TRUE(valueOf(OD_T("devMode"))->getBinaryChunk().isEmpty());
    EXPECT_FALSE(valueOf(OD_T("result"))->getBool());
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("A3"));
    EXPECT_EQ(valueOf(OD_T("driverType"))->getInt16(), 1);
    EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T("Canonical"));
}

TEST_F(PC3GetDevModeCommandTest, windowsPrinterReturnsItsNameWithoutDevMode)
{
    ask(OD_T("Plotter A"));
    EXPECT_EQ(textOf(OD_T("printerName")), OD_T("Plotter A"));
    EXPECT_TRUE(valueOf(OD_T("devMode"))->getBinaryChunk().isEmpty());
    EXPECT_TRUE(valueOf(OD_T("result"))->getBool());
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T(""));
    EXPECT_EQ(valueOf(OD_T("driverType"))->getInt16(), 0);
    EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T(""));
}

TEST_F(PC3GetDevModeCommandTest, printerNameIsRequiredButIgnored)
{
    setText(OD_T("deviceName"), OD_T("Plotter A"));
    run();
    EXPECT_TRUE(nothingWritten({OD_T("deviceName")}));

    setText(OD_T("printerName"), OD_T("Plotter Z"));
    run();
    EXPECT_EQ(textOf(OD_T("printerName")), OD_T("Plotter A"));
}

TEST_F(PC3GetDevModeCommandTest, withoutDeviceNameNothingIsWritten)
{
    setText(OD_T("printerName"), OD_T("Plotter A"));
    run();
    EXPECT_TRUE(nothingWritten({OD_T("printerName")}));
}

TEST_F(PC3GetDevModeCommandTest, paperNameIsNoInput)
{
    putConfiguration(OD_T("a.pc3"));
    setText(OD_T("deviceName"), OD_T("a.pc3"));
    setText(OD_T("printerName"), {});
    setText(OD_T("paperName"), OD_T("A4"));
    run();
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("A3"));
}

TEST_F(PC3GetDevModeCommandTest, valueOfWrongClassThrowsAndWritesNothing)
{
    for (const OdChar* wrong : {OD_T("deviceName"), OD_T("printerName"), OD_T("hwndPost"), OD_T("paperName")})
    {
        values().clear();
        setText(OD_T("deviceName"), OD_T("Plotter A"));
        setText(OD_T("printerName"), {});
        values().set(wrong, newStranger());
        const std::vector<OdString> given = values().names();
        EXPECT_THROW(run(), OdError_NotThatKindOfClass) << OdString(wrong);
        EXPECT_TRUE(nothingWritten(given));
        EXPECT_TRUE(m_room.calls().empty());
    }
}

TEST_F(PC3GetDevModeCommandTest, wrongClassThrowsEvenWithAnotherValueMissing)
{
    values().set(OD_T("printerName"), newStranger());
    EXPECT_THROW(run(), OdError_NotThatKindOfClass);

    values().clear();
    values().set(OD_T("deviceName"), newStranger());
    EXPECT_THROW(run(), OdError_NotThatKindOfClass);

    values().clear();
    values().set(OD_T("paperName"), newStranger());
    EXPECT_THROW(run(), OdError_NotThatKindOfClass);
}

TEST_F(PC3GetDevModeCommandTest, valueOfAnotherKindIsCallersError)
{
    setText(OD_T("deviceName"), OD_T("Plotter A"));
    setFlag(OD_T("printerName"), true);
    EXPECT_THROW(run(), OdError);
    EXPECT_TRUE(nothingWritten({OD_T("deviceName"), OD_T("printerName")}));
}

TEST_F(PC3GetDevModeCommandTest, aNullWindowMeansTheSynchronousForm)
{
    setText(OD_T("deviceName"), OD_T("Plotter A"));
    setText(OD_T("printerName"), {});
    setAddress(OD_T("hwndPost"), nullptr);
    run();
    EXPECT_TRUE(valueOf(OD_T("result"))->getBool());
    EXPECT_EQ(m_module.waitingThreads(), 0U);
    EXPECT_TRUE(m_room.posted().empty());
}

TEST_F(PC3GetDevModeCommandTest, backgroundFormOnlyPostsOneMessage)
{
    const HWND window = m_room.newWindow();
    setText(OD_T("deviceName"), OD_T("Plotter A"));
    setText(OD_T("printerName"), {});
    setAddress(OD_T("hwndPost"), window);
    const std::vector<OdString> given = values().names();
    run();

    EXPECT_EQ(m_module.waitingThreads(), 1U) << "execute must not do the check itself";
    EXPECT_TRUE(m_room.calls().empty());
    // The host may change its variables meanwhile.
    setText(OD_T("deviceName"), OD_T("Plotter Z"));
    m_module.runFirstThread();

    const std::vector<room::PostedMessage> expected = {{window, 1125, 1, 0}};
    EXPECT_EQ(m_room.posted(), expected);
    std::vector<OdString> names = values().names();
    std::sort(names.begin(), names.end());
    std::vector<OdString> sorted = given;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(names, sorted);
}

TEST_F(PC3GetDevModeCommandTest, inBackgroundFormEmptyNamePostsNothing)
{
    setText(OD_T("deviceName"), {});
    setText(OD_T("printerName"), {});
    setAddress(OD_T("hwndPost"), m_room.newWindow());
    const std::vector<OdString> given = values().names();
    run();
    EXPECT_EQ(m_module.waitingThreads(), 0U);
    EXPECT_TRUE(m_room.posted().empty());
    EXPECT_TRUE(nothingWritten(given));
}

TEST_F(PC3GetDevModeCommandTest, inBackgroundFormMissingValuePostsNothing)
{
    setText(OD_T("deviceName"), OD_T("Plotter A"));
    setAddress(OD_T("hwndPost"), m_room.newWindow());
    run();
    EXPECT_EQ(m_module.waitingThreads(), 0U);
    EXPECT_TRUE(m_room.posted().empty());
}

TEST_F(PC3GetDevModeCommandTest, commandKeepsNothingFromOneRunToNext)
{
    putConfiguration(OD_T("a.pc3"));
    const OdSmartPtr<PC3GetDevModeCommand> command = OdRxObjectImpl<PC3GetDevModeCommand>::createObject();
    setText(OD_T("deviceName"), OD_T("a.pc3"));
    setText(OD_T("printerName"), {});
    command->execute(context());
    setText(OD_T("deviceName"), OD_T("Plotter Z"));
    command->execute(context());
    expectEmptyAnswer();
}
} // namespace
