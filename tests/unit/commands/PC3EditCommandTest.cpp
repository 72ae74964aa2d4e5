#include "GarmPC3Editor/Commands/PC3EditCommand.h"

#include "kernel/OdError.h"
#include "kernel/OdRxObjectImpl.h"
#include "tests/unit/commands/CommandTest.h"

#include <vector>

namespace
{
class PC3EditCommandTest : public CommandTest
{
protected:
    void run() { OdRxObjectImpl<PC3EditCommand>::createObject()->execute(context()); }

    // Runs with these arguments and expects that it answers nothing.
    void runWithoutAnswer(const OdString& plotCfgName, bool isPrinter, const OdString& paperName)
    {
        values().clear();
        setText(OD_T("plotCfgName"), plotCfgName);
        setFlag(OD_T("bSystemPrinter"), isPrinter);
        setText(OD_T("paperName"), paperName);
        const std::vector<OdString> given = values().names();
        run();
        EXPECT_EQ(values().names(), given);
        EXPECT_EQ(textOf(OD_T("paperName")), paperName);
    }
};

TEST_F(PC3EditCommandTest, WithoutARequiredValueNothingHappens)
{
    run();
    EXPECT_TRUE(values().names().empty());

    setText(OD_T("plotCfgName"), OD_T("Plotter A"));
    run();
    EXPECT_EQ(values().names().size(), 1U);

    values().clear();
    setFlag(OD_T("bSystemPrinter"), true);
    run();
    EXPECT_EQ(values().names().size(), 1U);
    EXPECT_TRUE(m_room.calls().empty());
}

TEST_F(PC3EditCommandTest, AValueOfAWrongClassThrows)
{
    for (const OdChar* wrong : {OD_T("plotCfgName"), OD_T("bSystemPrinter"), OD_T("paperName")})
    {
        values().clear();
        setText(OD_T("plotCfgName"), OD_T("Plotter A"));
        setFlag(OD_T("bSystemPrinter"), true);
        values().set(wrong, newStranger());
        EXPECT_THROW(run(), OdError_NotThatKindOfClass) << OdString(wrong);
        EXPECT_TRUE(m_room.calls().empty());
    }
}

TEST_F(PC3EditCommandTest, AWrongClassThrowsAlsoWhenAnotherValueIsMissing)
{
    values().set(OD_T("paperName"), newStranger());
    EXPECT_THROW(run(), OdError_NotThatKindOfClass);
}

TEST_F(PC3EditCommandTest, AValueOfAnotherKindIsTheCallersError)
{
    setText(OD_T("plotCfgName"), OD_T("Plotter A"));
    setText(OD_T("bSystemPrinter"), OD_T("true"));
    EXPECT_THROW(run(), OdError);
    EXPECT_TRUE(m_room.calls().empty());
}

TEST_F(PC3EditCommandTest, PrinterGetsANewConfigurationThatPassesThroughTheDriver)
{
    runWithoutAnswer(OD_T("Plotter A"), true, OD_T("A3"));
    int merges = 0;
    for (const room::CallRecord& record : m_room.calls())
        if (record.call == room::Call::documentProperties && record.detail == 10)
            ++merges;
    EXPECT_EQ(merges, 1);
}

TEST_F(PC3EditCommandTest, FileIsReadAndItsPrinterLookedUp)
{
    putConfiguration(OD_T("a.pc3"));
    runWithoutAnswer(OD_T("a.pc3"), false, OD_T("A3"));
    EXPECT_GT(m_room.count(room::Call::getPrinterDriver), 0);
    EXPECT_EQ(m_room.count(room::Call::documentProperties), 0);
}

TEST_F(PC3EditCommandTest, WhatCannotBeEditedEndsWithoutAnswer)
{
    putDamagedFile(OD_T("bad.pc3"));
    runWithoutAnswer(OD_T("missing.pc3"), false, {});
    runWithoutAnswer(OD_T("bad.pc3"), false, {});
    runWithoutAnswer(OD_T("Plotter Z"), true, {});
    runWithoutAnswer({}, true, {});
    runWithoutAnswer({}, false, {});
}

TEST_F(PC3EditCommandTest, PaperNameMayBeMissing)
{
    putConfiguration(OD_T("a.pc3"));
    setText(OD_T("plotCfgName"), OD_T("a.pc3"));
    setFlag(OD_T("bSystemPrinter"), false);
    run();
    EXPECT_EQ(values().names().size(), 2U);
}
} // namespace
