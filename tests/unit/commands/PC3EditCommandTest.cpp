#include "GarmPC3Editor/Commands/PC3EditCommand.h"

#include "kernel/OdError.h"
#include "kernel/OdRxObjectImpl.h"
#include "tests/unit/commands/CommandTest.h"
#include "tests/unit/commands/ScriptedEditor.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace
{
const std::vector<OdString> resultsInOrder = {OD_T("fileName"), OD_T("paperName"), OD_T("result"),
                                              OD_T("canonicalModelName")};

// A value that runs a function when it is replaced.
class Witness : public OdRxObject
{
public:
    std::function<void()> onGone;

protected:
    ~Witness() override { onGone(); }
};

OdRxObjectPtr newWitness(std::function<void()> onGone)
{
    const OdSmartPtr<Witness> witness = OdRxObjectImpl<Witness>::createObject();
    witness->onGone = std::move(onGone);
    return witness;
}

class PC3EditCommandTest : public CommandTest
{
protected:
    PC3EditCommandTest() { saveToPlots(); }

    void run() { OdRxObjectImpl<PC3EditCommand>::createObject()->execute(context()); }

    // Runs with these arguments.
    void edit(const OdString& plotCfgName, bool isPrinter, const OdString& paperName = {})
    {
        values().clear();
        setText(OD_T("plotCfgName"), plotCfgName);
        setFlag(OD_T("bSystemPrinter"), isPrinter);
        if (!paperName.isEmpty())
            setText(OD_T("paperName"), paperName);
        run();
    }

    // Checks that all results exist, in their order and with their restypes.
    void expectResults()
    {
        std::vector<OdString> written = values().names();
        std::erase_if(written, [](const OdString& name)
                      { return name == OD_T("plotCfgName") || name == OD_T("bSystemPrinter"); });
        EXPECT_EQ(written, resultsInOrder);
        EXPECT_EQ(valueOf(OD_T("fileName"))->restype(), 5005);
        EXPECT_EQ(valueOf(OD_T("paperName"))->restype(), 5005);
        EXPECT_EQ(valueOf(OD_T("result"))->restype(), 5003);
        EXPECT_EQ(valueOf(OD_T("canonicalModelName"))->restype(), 5005);
    }

    // The user changes something and leaves the sheet with OK.
    void changeAndConfirm(const std::optional<OdString>& name)
    {
        m_editor.onSheet = [](EditorOutcome& outcome)
        {
            outcome.confirmed = true;
            outcome.modified = true;
        };
        m_editor.onName = [name](const OdString&) { return name; };
    }

    // Runs with these arguments and expects that nothing can be edited and no result is written.
    void runWithoutAnswer(const OdString& plotCfgName, bool isPrinter, const OdString& paperName)
    {
        values().clear();
        setText(OD_T("plotCfgName"), plotCfgName);
        setFlag(OD_T("bSystemPrinter"), isPrinter);
        setText(OD_T("paperName"), paperName);
        const std::vector<OdString> given = values().names();
        const int sheets = m_editor.sheets;
        run();
        EXPECT_EQ(m_editor.sheets, sheets);
        EXPECT_EQ(values().names(), given);
        EXPECT_EQ(textOf(OD_T("paperName")), paperName);
    }

    ScriptedEditor m_editor;
};

TEST_F(PC3EditCommandTest, withoutARequiredValueNothingHappens)
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

TEST_F(PC3EditCommandTest, aValueOfAWrongClassThrows)
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

TEST_F(PC3EditCommandTest, wrongClassThrowsEvenWithAnotherValueMissing)
{
    values().set(OD_T("paperName"), newStranger());
    EXPECT_THROW(run(), OdError_NotThatKindOfClass);
}

TEST_F(PC3EditCommandTest, valueOfAnotherKindIsCallersError)
{
    setText(OD_T("plotCfgName"), OD_T("Plotter A"));
    setText(OD_T("bSystemPrinter"), OD_T("true"));
    EXPECT_THROW(run(), OdError);
    EXPECT_TRUE(m_room.calls().empty());
}

TEST_F(PC3EditCommandTest, printerGetsNewConfigurationThatPassesThroughDriver)
{
    OdString paper;
    m_editor.onSheet = [&paper](EditorOutcome& outcome) { paper = outcome.cfg->m_media.m_size.m_name; };
    edit(OD_T("Plotter A"), true, OD_T("A3"));
    // The requested paper only applies to files.
    EXPECT_EQ(paper, OD_T("A4"));
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("A4"));
    EXPECT_EQ(textOf(OD_T("fileName")), OD_T("Plotter A"));
    int merges = 0;
    for (const room::CallRecord& record : m_room.calls())
        if (record.call == room::Call::documentProperties && record.detail == 10)
            ++merges;
    EXPECT_EQ(merges, 1);
}

TEST_F(PC3EditCommandTest, fileIsReadAndItsPrinterLookedUp)
{
    putConfiguration(OD_T("a.pc3"));
    edit(OD_T("a.pc3"), false);
    EXPECT_EQ(m_editor.sheets, 1);
    EXPECT_GT(m_room.count(room::Call::getPrinterDriver), 0);
    EXPECT_EQ(m_room.count(room::Call::documentProperties), 0);
}

TEST_F(PC3EditCommandTest, whatCannotBeEditedEndsWithoutAnswer)
{
    putDamagedFile(OD_T("bad.pc3"));
    runWithoutAnswer(OD_T("missing.pc3"), false, {});
    runWithoutAnswer(OD_T("bad.pc3"), false, {});
    runWithoutAnswer(OD_T("Plotter Z"), true, {});
    runWithoutAnswer({}, true, {});
    runWithoutAnswer({}, false, {});
}

TEST_F(PC3EditCommandTest, paperNameMayBeMissing)
{
    putConfiguration(OD_T("a.pc3"));
    edit(OD_T("a.pc3"), false);
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("A3"));
}

TEST_F(PC3EditCommandTest, requestedPaperIsThePaperInTheEditor)
{
    putConfiguration(OD_T("a.pc3"));
    OdString paper;
    m_editor.onSheet = [&paper](EditorOutcome& outcome) { paper = outcome.cfg->m_media.m_size.m_name; };
    edit(OD_T("a.pc3"), false, OD_T("Roll 36"));
    EXPECT_EQ(paper, OD_T("Roll 36"));
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("Roll 36"));
}

TEST_F(PC3EditCommandTest, aCancelledEditorAnswersAllTheSame)
{
    putConfiguration(OD_T("a.pc3"));
    edit(OD_T("a"), false, OD_T("A3"));
    expectResults();
    EXPECT_EQ(textOf(OD_T("fileName")), OD_T("a.pc3"));
    EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T("Canonical"));
    EXPECT_EQ(valueOf(OD_T("result"))->getInt16(), 1);
}

TEST_F(PC3EditCommandTest, okWithoutChangesAnswersAllTheSame)
{
    putConfiguration(OD_T("a.pc3"));
    m_editor.onSheet = [](EditorOutcome& outcome) { outcome.confirmed = true; };
    edit(OD_T("a.pc3"), false);
    expectResults();
    EXPECT_EQ(textOf(OD_T("fileName")), OD_T("a.pc3"));
    EXPECT_EQ(m_editor.names, 0);
}

TEST_F(PC3EditCommandTest, aSaveAnswersTheNameOfTheFile)
{
    putConfiguration(OD_T("a.pc3"));
    changeAndConfirm(OdString(OD_T("b")));
    edit(OD_T("a.pc3"), false);
    expectResults();
    EXPECT_EQ(textOf(OD_T("fileName")), OD_T("b.pc3"));
    EXPECT_EQ(savedFiles(), std::set<std::string>{"b.pc3"});
}

TEST_F(PC3EditCommandTest, refusedNameAnswersPathAsItWentIn)
{
    const OdString path = putConfiguration(OD_T("a.pc3"));
    changeAndConfirm(std::nullopt);
    edit(OD_T("a.pc3"), false);
    expectResults();
    EXPECT_EQ(textOf(OD_T("fileName")), path);
    edit(OD_T("Plotter A"), true);
    expectResults();
    EXPECT_EQ(textOf(OD_T("fileName")), OD_T(""));
}

TEST_F(PC3EditCommandTest, failedSaveAnswersPathAsItWentIn)
{
    const OdString path = putConfiguration(OD_T("a.pc3"));
    m_folder.addFile(inPlots("taken.pc3/file"));
    changeAndConfirm(OdString(OD_T("taken")));
    edit(OD_T("a.pc3"), false);
    expectResults();
    EXPECT_EQ(textOf(OD_T("fileName")), path);
    EXPECT_EQ(m_room.shownMessages().size(), 1U);
}

TEST_F(PC3EditCommandTest, resultIsTheDriverTypeNotTheFlag)
{
    for (const std::int32_t type : {1, 0, 3, 65537, -1})
    {
        putConfiguration(OD_T("a.pc3"), [type](GmPlotCfg3& cfg) { cfg.m_meta.m_driver_type = type; });
        for (const bool save : {false, true})
        {
            changeAndConfirm(save ? std::optional<OdString>(OD_T("b")) : std::nullopt);
            edit(OD_T("a.pc3"), false);
            EXPECT_EQ(valueOf(OD_T("result"))->getInt16(), static_cast<OdInt16>(type));
            EXPECT_FALSE(values().get(OD_T("driverType")));
        }
    }
}

TEST_F(PC3EditCommandTest, theFlagIsWrittenFirstAndThenReplaced)
{
    putConfiguration(OD_T("a.pc3"));
    for (const bool save : {false, true})
    {
        changeAndConfirm(save ? std::optional<OdString>(OD_T("b")) : std::nullopt);
        std::vector<OdString> flags;
        // The first write replaces a value that puts another one in its place; the second write replaces that one,
        // which lets us see what the first write left.
        OdRxObjectPtr second = newWitness(
            [this, &flags]
            {
                const OdResBufPtr flag = valueOf(OD_T("result"));
                ASSERT_EQ(flag->restype(), 290);
                flags.emplace_back(flag->getBool() ? OD_T("written") : OD_T("not written"));
            });
        values().clear();
        setText(OD_T("plotCfgName"), OD_T("a.pc3"));
        setFlag(OD_T("bSystemPrinter"), false);
        values().set(OD_T("result"),
                     newWitness([this, &second] { values().set(OD_T("result"), std::exchange(second, nullptr)); }));
        run();
        EXPECT_EQ(flags, std::vector<OdString>{save ? OD_T("written") : OD_T("not written")});
    }
}

TEST_F(PC3EditCommandTest, anExchangedConfigurationIsWhatIsAnswered)
{
    putConfiguration(OD_T("a.pc3"));
    m_editor.onSheet = [](EditorOutcome& outcome)
    {
        outcome.cfg = new GmPlotCfg3;
        outcome.cfg->m_meta.m_driver_type = 42;
        outcome.cfg->m_meta.m_canonical_model_name = OD_T("Other");
        outcome.cfg->m_media.m_size.m_name = OD_T("Other paper");
    };
    edit(OD_T("a.pc3"), false);
    expectResults();
    EXPECT_EQ(textOf(OD_T("paperName")), OD_T("Other paper"));
    EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T("Other"));
    EXPECT_EQ(valueOf(OD_T("result"))->getInt16(), 42);
}
} // namespace

TEST_F(PC3EditCommandTest, moduleIsLockedAsLongAsCommandRuns)
{
    OdRefCount whileOpen = 0;
    m_editor.onSheet = [&](EditorOutcome& outcome)
    {
        whileOpen = m_module.locks();
        outcome.confirmed = outcome.modified = true;
    };
    OdRefCount whileNamed = 0;
    m_editor.onName = [&](const OdString&)
    {
        whileNamed = m_module.locks();
        return std::optional<OdString>(OD_T("new"));
    };
    edit(OD_T("Plotter A"), true);
    EXPECT_EQ(whileOpen, 1U);
    EXPECT_EQ(whileNamed, 1U);
    EXPECT_EQ(m_module.locks(), 0U);
}

TEST_F(PC3EditCommandTest, howeverTheCommandEndsTheModuleIsUnlocked)
{
    edit(OD_T("nobody.pc3"), false);
    EXPECT_EQ(m_module.locks(), 0U);

    values().set(OD_T("paperName"), newStranger());
    EXPECT_THROW(run(), OdError_NotThatKindOfClass);
    EXPECT_EQ(m_module.locks(), 0U);

    m_editor.onSheet = [](EditorOutcome&) { throw std::bad_alloc(); };
    edit(OD_T("Plotter A"), true);
    EXPECT_EQ(m_editor.sheets, 1);
    EXPECT_EQ(m_module.locks(), 0U);
}

TEST_F(PC3EditCommandTest, nestedRunHasItsOwnConfigurationAndLock)
{
    putConfiguration(OD_T("x.pc3"), [](GmPlotCfg3& cfg) { cfg.m_meta.m_canonical_model_name = OD_T("outer"); });
    putConfiguration(OD_T("y.pc3"), [](GmPlotCfg3& cfg) { cfg.m_meta.m_canonical_model_name = OD_T("inner"); });
    std::vector<OdRefCount> locks;
    m_editor.onSheet = [&](EditorOutcome&)
    {
        locks.push_back(m_module.locks());
        if (locks.size() > 1)
            return;
        edit(OD_T("y.pc3"), false);
        EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T("inner"));
        locks.push_back(m_module.locks());
    };
    edit(OD_T("x.pc3"), false);
    EXPECT_EQ(textOf(OD_T("canonicalModelName")), OD_T("outer"));
    EXPECT_EQ(locks, (std::vector<OdRefCount>{1, 2, 1}));
    EXPECT_EQ(m_module.locks(), 0U);
}
