// Every allocation of both commands fails once, on the caller's thread and in the background check: the documented
// failure, all results or none, nothing left open and no partial file.

#include "GarmPC3Editor/Commands/BackgroundCheck.h"
#include "GarmPC3Editor/Commands/CommandGroup.h"
#include "GarmPC3Editor/Commands/PC3EditCommand.h"
#include "GarmPC3Editor/Commands/PC3GetDevModeCommand.h"
#include "kernel/OdAlloc.h"
#include "kernel/OdEdCommandStack.h"
#include "kernel/OdRxObjectImpl.h"
#include "tests/support/FailingAllocation.h"
#include "tests/unit/commands/CommandTest.h"
#include "tests/unit/commands/ScriptedEditor.h"

#include <algorithm>
#include <vector>

namespace
{
// Long enough to be allocated, like most texts here.
const OdChar* const fileName = OD_T("a configuration.pc3");

class CommandsOutOfMemory : public CommandTest
{
protected:
    CommandsOutOfMemory() : m_sourceBefore(odrxSetAllocSource(&failingMalloc)) { putConfiguration(fileName); }
    ~CommandsOutOfMemory() override { odrxSetAllocSource(m_sourceBefore); }

    void expectAllClosed(unsigned n) const
    {
        EXPECT_EQ(m_room.openHandles(), 0) << n;
        EXPECT_EQ(m_room.openContexts(), 0) << n;
        EXPECT_EQ(m_room.strayCloses(), 0) << n;
    }

    bool hasValue(const OdString& name) { return !values().get(name).isNull(); }

    // Whether all of these values exist; fails the test if only some do.
    bool allOrNone(const std::vector<OdString>& names, unsigned n)
    {
        const auto there = std::ranges::count_if(names, [this](const OdString& name) { return hasValue(name); });
        EXPECT_TRUE(there == 0 || there == std::ssize(names)) << there << " results after failing " << n;
        return there != 0;
    }

    // Executes with the n-th allocation failing; returns whether there was one. Must not throw.
    bool execute(OdEdCommand& command, unsigned n)
    {
        bool reached = false;
        EXPECT_NO_THROW({
            const FailingAllocation failing(n);
            command.execute(context());
            reached = failing.reached();
        }) << n;
        expectAllClosed(n);
        return reached;
    }

private:
    OdAllocSource m_sourceBefore;
};

class GetDevModeOutOfMemory : public CommandsOutOfMemory
{
protected:
    void setArguments(const OdString& deviceName, HWND window = nullptr)
    {
        values().clear();
        setText(OD_T("deviceName"), deviceName);
        setText(OD_T("printerName"), OD_T("ignored"));
        if (window)
            setAddress(OD_T("hwndPost"), window);
    }

    // The number of outcomes of each kind, over all allocations.
    struct Answers
    {
        unsigned none = 0;
        unsigned empty = 0;
        unsigned whole = 0;
    };

    Answers askFailing(const OdString& deviceName, std::size_t devModeBytes)
    {
        Answers answers;
        for (unsigned n = 1;; ++n)
        {
            setArguments(deviceName);
            const bool reached = execute(*m_command, n);
            // printerName is both an argument and a result, so it is not checked here.
            const bool answered = allOrNone(
                {OD_T("devMode"), OD_T("result"), OD_T("paperName"), OD_T("driverType"), OD_T("canonicalModelName")},
                n);
            const bool found = answered && valueOf(OD_T("result"))->getBool();
            ++(found ? answers.whole : answered ? answers.empty : answers.none);
            if (answered)
            {
                EXPECT_EQ(textOf(OD_T("printerName")), found ? OD_T("Plotter A") : OD_T(""));
                EXPECT_EQ(valueOf(OD_T("devMode"))->getBinaryChunk().size(), found ? devModeBytes : 0U);
            }
            EXPECT_TRUE(found || reached);
            if (!reached)
            {
                RecordProperty("allocations", static_cast<int>(n) - 1);
                return answers;
            }
        }
    }

    OdSmartPtr<PC3GetDevModeCommand> m_command = OdRxObjectImpl<PC3GetDevModeCommand>::createObject();
    const HWND m_window = m_room.newWindow();
};

class EditOutOfMemory : public CommandsOutOfMemory
{
protected:
    EditOutOfMemory()
    {
        saveToPlots();
        m_module.setResourceInstance(m_library);
        m_room.putString(m_library, 201, OD_T("Not saved."));
        m_editor.onSheet = [](EditorOutcome& outcome)
        {
            outcome.confirmed = true;
            outcome.modified = true;
        };
        m_editor.onName = [](const OdString&) { return OdString(OD_T("a new configuration")); };
    }

    const std::string m_saved = "a new configuration.pc3";

    void removeSaved()
    {
        for (const std::string& name : savedFiles())
            std::filesystem::remove(std::filesystem::path(m_folder.at(inPlots(name)).c_str()));
    }

    // Edits and saves with each allocation failing once. Returns how often a failed save was reported.
    unsigned editFailing(const OdString& name, bool isPrinter)
    {
        unsigned told = 0;
        for (unsigned n = 1;; ++n)
        {
            values().clear();
            setText(OD_T("plotCfgName"), name);
            setFlag(OD_T("bSystemPrinter"), isPrinter);
            removeSaved();
            const std::size_t boxes = m_room.shownMessages().size();
            const bool reached = execute(*m_command, n);

            const std::set<std::string> files = savedFiles();
            EXPECT_TRUE(files.empty() || files == std::set<std::string>{m_saved}) << n;
            if (!files.empty())
            {
                bool modified = false;
                EXPECT_TRUE(GmPlotCfg3::read(m_folder.at(inPlots(m_saved)), modified)) << n;
            }
            const bool answered =
                allOrNone({OD_T("fileName"), OD_T("paperName"), OD_T("result"), OD_T("canonicalModelName")}, n);
            const bool failedToSave = m_room.shownMessages().size() > boxes;
            if (answered)
            {
                EXPECT_EQ(textOf(OD_T("fileName")) == OD_T("a new configuration.pc3"), !files.empty()) << n;
                EXPECT_EQ(failedToSave, files.empty()) << n;
                EXPECT_EQ(valueOf(OD_T("result"))->restype(), 5003) << n;
            }
            if (failedToSave)
            {
                EXPECT_EQ(OdString(m_room.shownMessages().back().text.c_str()), OD_T("Not saved.")) << n;
                EXPECT_TRUE(files.empty()) << n;
                ++told;
            }
            if (!reached)
            {
                EXPECT_TRUE(answered);
                EXPECT_FALSE(files.empty());
                RecordProperty("allocations", static_cast<int>(n) - 1);
                return told;
            }
        }
    }

    ScriptedEditor m_editor;
    HINSTANCE m_library = m_room.newLibrary();
    OdSmartPtr<PC3EditCommand> m_command = OdRxObjectImpl<PC3EditCommand>::createObject();
};
} // namespace

TEST_F(GetDevModeOutOfMemory, configurationResultsAreWholeEmptyOrAbsent)
{
    const Answers answers = askFailing(fileName, 228);
    EXPECT_GT(answers.empty, 100U); // in the query
    EXPECT_GE(answers.none, 12U);   // in the results: each a value and its name
    EXPECT_GE(answers.whole, 1U);
}

TEST_F(GetDevModeOutOfMemory, printerResultsAreWholeEmptyOrAbsent)
{
    const Answers answers = askFailing(OD_T("Plotter A"), 0);
    EXPECT_GE(answers.empty, 1U);
    EXPECT_GE(answers.none, 12U);
    EXPECT_GE(answers.whole, 1U);
}

TEST_F(GetDevModeOutOfMemory, waitingWindowAlwaysGetsItsMessage)
{
    for (unsigned n = 1;; ++n)
    {
        setArguments(fileName, m_window);
        const std::size_t before = m_room.posted().size();
        const bool reached = execute(*m_command, n);
        const bool started = m_module.waitingThreads() > 0;
        EXPECT_EQ(m_room.posted().size(), before + (started ? 0 : 1)) << n;
        if (started)
            m_module.runFirstThread();
        ASSERT_EQ(m_room.posted().size(), before + 1) << n;
        EXPECT_EQ(m_room.posted().back(), (room::PostedMessage{m_window, 1125, started ? 1U : 0U, 0})) << n;
        EXPECT_TRUE(started || reached) << n;
        EXPECT_EQ(values().names().size(), 3U) << "nothing is written";
        if (!reached)
        {
            EXPECT_GE(n, 3U);
            RecordProperty("allocations", static_cast<int>(n) - 1);
            break;
        }
    }
}

TEST_F(GetDevModeOutOfMemory, theThreadPostsOnceWhateverItLacks)
{
    unsigned notFound = 0;
    for (unsigned n = 1;; ++n)
    {
        startBackgroundCheck(fileName, m_window);
        ASSERT_EQ(m_module.waitingThreads(), 1U);
        const std::size_t before = m_room.posted().size();
        bool reached = false;
        m_module.runFirstThread(
            [n, &reached](const std::function<void()>& work)
            {
                const FailingAllocation failing(n);
                work();
                reached = failing.reached();
            });
        expectAllClosed(n);
        ASSERT_EQ(m_room.posted().size(), before + 1) << n;
        notFound += m_room.posted().back().wParam == 0 ? 1U : 0U;
        EXPECT_TRUE(reached || m_room.posted().back().wParam == 1) << n;
        if (!reached)
        {
            RecordProperty("allocations", static_cast<int>(n) - 1);
            break;
        }
    }
    EXPECT_GT(notFound, 100U);
}

TEST_F(EditOutOfMemory, fileIsSavedOrNothingIsReturned)
{
    EXPECT_GT(editFailing(fileName, false), 50U);
}

TEST_F(EditOutOfMemory, printerIsSavedOrNothingIsReturned)
{
    EXPECT_GT(editFailing(OD_T("Plotter A"), true), 50U);
}

TEST_F(EditOutOfMemory, aCancelledEditorAnswersAllOrNothing)
{
    m_editor.onSheet = nullptr;
    unsigned none = 0;
    for (unsigned n = 1;; ++n)
    {
        values().clear();
        setText(OD_T("plotCfgName"), fileName);
        setFlag(OD_T("bSystemPrinter"), false);
        const bool reached = execute(*m_command, n);
        none += allOrNone({OD_T("fileName"), OD_T("paperName"), OD_T("result"), OD_T("canonicalModelName")}, n) ? 0 : 1;
        EXPECT_TRUE(savedFiles().empty());
        EXPECT_TRUE(m_room.shownMessages().empty());
        if (!reached)
            break;
    }
    EXPECT_GT(none, 40U); // fewer on Windows, where the host has its own allocator
}

TEST_F(CommandsOutOfMemory, startOfModuleRegistersWhatItCan)
{
    unsigned errors = 0;
    for (unsigned n = 1;; ++n)
    {
        OdRoutineResult result = eRoutineNormal;
        bool reached = false;
        {
            const FailingAllocation failing(n);
            result = registerCommands();
            reached = failing.reached();
        }
        const std::size_t registered = odedRegCmds()->commands().size();
        EXPECT_EQ(result, registered == 2 ? eRoutineNormal : eRoutineError) << n;
        EXPECT_LE(registered, 2U);
        EXPECT_EQ(unregisterCommands(), eRoutineNormal);
        EXPECT_TRUE(odedRegCmds()->commands().empty());
        if (!reached)
        {
            EXPECT_EQ(registered, 2U);
            break;
        }
        errors += result == eRoutineError ? 1 : 0;
    }
    EXPECT_GT(errors, 4U);
}
