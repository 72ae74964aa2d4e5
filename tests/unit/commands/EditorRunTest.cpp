#include "GarmPC3Editor/Commands/EditedConfiguration.h"

#include "tests/support/RecordedAsserts.h"
#include "tests/unit/commands/CommandTest.h"
#include "tests/unit/commands/ScriptedEditor.h"

#include <new>
#include <stdexcept>
#include <vector>

namespace
{
class EditorRunTest : public CommandTest
{
protected:
    EditorRunTest() : m_cfg(new GmPlotCfg3)
    {
        m_cfg->m_meta.m_win_device_name = OD_T("\\\\srv\\p|x/y");
        m_module.setResourceInstance(m_library);
        saveToPlots();
        m_room.putString(m_library, 201, OD_T("Not saved."));
    }

    // The user changes something, leaves the sheet with OK and enters this name.
    void changeAndSaveAs(const OdChar* name)
    {
        m_editor.onSheet = [](EditorOutcome& outcome)
        {
            outcome.confirmed = true;
            outcome.modified = true;
        };
        m_editor.onName = [this, name](const OdString& proposedPath)
        {
            m_proposal = proposedPath;
            return OdString(name);
        };
    }

    void setSearchPath(const OdString& searchPath) { getMainInternalInterface()->setPlotCfgSearchPath(searchPath); }

    OdString descriptionOf(const std::string& fileName) const
    {
        bool modified = false;
        const OdSharedPtr<GmPlotCfg3> cfg = GmPlotCfg3::read(m_folder.at(inPlots(fileName)), modified);
        return cfg ? cfg->m_meta.m_config_description : OdString(OD_T("no file"));
    }

    // Runs the editor and replaces the configuration and path with the result's. Returns whether it was saved.
    bool edit()
    {
        const EditResult result = editAndSave({m_cfg, m_path});
        m_cfg = result.cfg;
        m_path = result.fileName;
        return result.saved;
    }

    ScriptedEditor m_editor;
    HINSTANCE m_library = m_room.newLibrary();
    OdSharedPtr<GmPlotCfg3> m_cfg;
    OdString m_path = OD_T("C:\\plot\\in.pc3");
    OdString m_proposal = OD_T("nothing was proposed");
};

TEST_F(EditorRunTest, theSheetGetsTheConfigurationAndItsPath)
{
    EditorOutcome given;
    m_editor.onSheet = [&given](EditorOutcome& outcome) { given = outcome; };
    edit();
    EXPECT_EQ(m_editor.sheets, 1);
    EXPECT_EQ(given.cfg, m_cfg);
    EXPECT_EQ(given.path, OD_T("C:\\plot\\in.pc3"));
}

TEST_F(EditorRunTest, withoutOkFileTitleComesBackWhateverChanged)
{
    m_editor.onSheet = [](EditorOutcome& outcome)
    {
        outcome.modified = true;
        outcome.replaced = true;
        outcome.fileTitle = OD_T("Saved elsewhere.pc3");
    };
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_path, OD_T("Saved elsewhere.pc3"));
    EXPECT_EQ(m_editor.names, 0);
    EXPECT_TRUE(savedFiles().empty());
}

TEST_F(EditorRunTest, okWithoutChangesSavesNothing)
{
    m_editor.onSheet = [](EditorOutcome& outcome) { outcome.confirmed = true; };
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_path, OD_T("in.pc3"));
    EXPECT_EQ(m_editor.names, 0);
}

TEST_F(EditorRunTest, unsavedNewConfigurationIsNamedByItsPrinter)
{
    m_path.empty();
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_path, OD_T("\\\\srv\\p|x/y"));
}

TEST_F(EditorRunTest, eachFlagAloneIsEnoughToSave)
{
    for (const bool modified : {true, false})
    {
        changeAndSaveAs(OD_T("a"));
        m_editor.onSheet = [modified](EditorOutcome& outcome)
        {
            outcome.confirmed = true;
            outcome.modified = modified;
            outcome.replaced = !modified;
        };
        EXPECT_TRUE(edit());
        EXPECT_EQ(m_path, OD_T("a.pc3"));
    }
}

TEST_F(EditorRunTest, theSheetsPathIsProposed)
{
    changeAndSaveAs(OD_T("a"));
    m_editor.onSheet = [](EditorOutcome& outcome)
    {
        outcome.confirmed = true;
        outcome.modified = true;
        outcome.path = OD_T("D:\\copies\\copy.pc3");
    };
    EXPECT_TRUE(edit());
    EXPECT_EQ(m_proposal, OD_T("D:\\copies\\copy.pc3"));
    // The user chooses only the name: files are always written to the first folder of the search path.
    EXPECT_EQ(savedFiles(), std::set<std::string>{"a.pc3"});
}

TEST_F(EditorRunTest, printerNameIsProposedWithUnderscores)
{
    struct Case
    {
        const OdChar* searchPath;
        const OdChar* proposal;
    };
    for (const Case& c :
         {Case{OD_T("C:\\plot;D:\\more"), OD_T("C:\\plot\\__srv_p_x_y")},
          Case{OD_T("C:\\plot\\;D:\\more"), OD_T("C:\\plot\\__srv_p_x_y")}, Case{OD_T(""), OD_T("__srv_p_x_y")}})
    {
        setSearchPath(c.searchPath);
        changeAndSaveAs(OD_T(""));
        m_editor.onName = [this](const OdString& proposedPath) -> std::optional<OdString>
        {
            m_proposal = proposedPath;
            return std::nullopt;
        };
        m_path.empty();
        EXPECT_FALSE(edit());
        EXPECT_EQ(m_proposal, c.proposal);
        EXPECT_EQ(m_path, OD_T(""));
    }
}

TEST_F(EditorRunTest, withoutPathAndPrinterNothingIsProposed)
{
    m_cfg->m_meta.m_win_device_name.empty();
    m_path.empty();
    changeAndSaveAs(OD_T("a"));
    EXPECT_TRUE(edit());
    EXPECT_EQ(m_proposal, OD_T(""));
    EXPECT_EQ(m_path, OD_T("a.pc3"));
}

TEST_F(EditorRunTest, aRefusedNameLeavesThePath)
{
    changeAndSaveAs(OD_T("a"));
    m_editor.onName = {};
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_editor.names, 1);
    EXPECT_EQ(m_path, OD_T("C:\\plot\\in.pc3"));
    EXPECT_TRUE(savedFiles().empty());
    EXPECT_TRUE(m_room.shownMessages().empty());
}

TEST_F(EditorRunTest, extensionIsPutOnWhateverNameEndsIn)
{
    changeAndSaveAs(OD_T("x.pc3"));
    EXPECT_TRUE(edit());
    EXPECT_EQ(m_path, OD_T("x.pc3.pc3"));
    EXPECT_EQ(savedFiles(), std::set<std::string>{"x.pc3.pc3"});
}

TEST_F(EditorRunTest, saveInsideSheetIsNotAskedFor)
{
    // A configuration already written by Save As is written again under the confirmed name.
    changeAndSaveAs(OD_T("again"));
    m_editor.onSheet = [this](EditorOutcome& outcome)
    {
        outcome.confirmed = true;
        outcome.modified = true;
        outcome.path = m_folder.at(inPlots("first.pc3"));
        EXPECT_TRUE(outcome.cfg->write(outcome.path));
    };
    EXPECT_TRUE(edit());
    EXPECT_EQ(m_path, OD_T("again.pc3"));
    EXPECT_EQ(savedFiles(), (std::set<std::string>{"again.pc3", "first.pc3"}));
}

TEST_F(EditorRunTest, anExchangedConfigurationIsWrittenAndKept)
{
    putConfiguration(OD_T("other.pc3"),
                     [](GmPlotCfg3& cfg) { cfg.m_meta.m_config_description = OD_T("of the other printer"); });
    bool modified = false;
    const OdSharedPtr<GmPlotCfg3> other = GmPlotCfg3::read(m_folder.at("other.pc3"), modified);
    ASSERT_TRUE(other);
    changeAndSaveAs(OD_T("new"));
    m_editor.onSheet = [&other](EditorOutcome& outcome)
    {
        outcome.confirmed = true;
        outcome.replaced = true;
        outcome.cfg = other;
    };
    EXPECT_TRUE(edit());
    EXPECT_EQ(m_cfg, other);
    EXPECT_EQ(descriptionOf("new.pc3"), OD_T("of the other printer"));
}

TEST_F(EditorRunTest, anExchangedConfigurationIsKeptAfterCancelToo)
{
    const OdSharedPtr<GmPlotCfg3> other(new GmPlotCfg3);
    m_editor.onSheet = [&other](EditorOutcome& outcome) { outcome.cfg = other; };
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_cfg, other);
}

TEST_F(EditorRunTest, withoutAConfigurationNothingIsWritten)
{
    const OdSharedPtr<GmPlotCfg3> before = m_cfg;
    changeAndSaveAs(OD_T("a"));
    m_editor.onSheet = [](EditorOutcome& outcome)
    {
        outcome.confirmed = true;
        outcome.modified = true;
        outcome.cfg = nullptr;
    };
    const RecordedAsserts asserts;
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_editor.names, 1);
    EXPECT_EQ(RecordedAsserts::reports(), std::vector<std::string>{"pCfg | GarmPC3Editor/Commands/PC3EditCommand"});
    EXPECT_EQ(m_cfg, before);
    EXPECT_EQ(m_path, OD_T("C:\\plot\\in.pc3"));
    EXPECT_TRUE(savedFiles().empty());
}

TEST_F(EditorRunTest, failedSaveMessageHasNeitherOwnerNorCaption)
{
    m_folder.addFile(inPlots("taken.pc3/file"));
    changeAndSaveAs(OD_T("taken"));
    int told = 0;
    m_room.onCall(room::Call::messageBox, {},
                  [&told](const room::CallRecord&)
                  {
                      ++told;
                      EXPECT_TRUE(ScriptedEditor::resourcesAreCurrent());
                  });
    EXPECT_FALSE(edit());
    EXPECT_EQ(told, 1);
    EXPECT_EQ(m_path, OD_T("C:\\plot\\in.pc3"));
    const std::vector<room::ShownMessage> shown = m_room.shownMessages();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].owner, nullptr);
    EXPECT_EQ(OdString(shown[0].text.c_str()), OD_T("Not saved."));
    ASSERT_TRUE(shown[0].caption.has_value());
    EXPECT_TRUE(shown[0].caption->empty());
    EXPECT_EQ(shown[0].type, 0x30U);
}

TEST_F(EditorRunTest, failedSaveIsReportedWithoutAText)
{
    m_module.setResourceInstance(m_room.newLibrary());
    m_folder.addFile(inPlots("taken.pc3/file"));
    changeAndSaveAs(OD_T("taken"));
    EXPECT_FALSE(edit());
    ASSERT_EQ(m_room.shownMessages().size(), 1U);
    EXPECT_TRUE(m_room.shownMessages()[0].text.empty());
}

TEST_F(EditorRunTest, failedSaveMessageIsCutToItsBuffer)
{
    m_room.putString(m_library, 201, room::Text(600, 'x'));
    m_folder.addFile(inPlots("taken.pc3/file"));
    changeAndSaveAs(OD_T("taken"));
    EXPECT_FALSE(edit());
    ASSERT_EQ(m_room.shownMessages().size(), 1U);
    EXPECT_EQ(m_room.shownMessages()[0].text, room::Text(511, 'x')) << "512 with its end";
}

TEST_F(EditorRunTest, outOfMemoryForTheNameIsReported)
{
    changeAndSaveAs(OD_T("a"));
    m_editor.onName = [](const OdString&) -> std::optional<OdString> { throw std::bad_alloc(); };
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_room.shownMessages().size(), 1U);
    EXPECT_EQ(m_path, OD_T("C:\\plot\\in.pc3"));
    EXPECT_TRUE(savedFiles().empty());
}

TEST_F(EditorRunTest, withoutConfigurationAndPathNoNameIsProposed)
{
    changeAndSaveAs(OD_T("a"));
    m_editor.onSheet = [](EditorOutcome& outcome)
    {
        outcome.confirmed = true;
        outcome.modified = true;
        outcome.cfg = nullptr;
        outcome.path.empty();
    };
    const RecordedAsserts asserts;
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_proposal, OD_T(""));
    EXPECT_EQ(RecordedAsserts::reports().size(), 1U);
}

TEST_F(EditorRunTest, withoutSearchPathFileWouldStandAtRoot)
{
    // The search path is read after the sheet closes, so the host may have changed it meanwhile.
    changeAndSaveAs(OD_T("no/such/folder/anywhere/a"));
    m_editor.onSheet = [this](EditorOutcome& outcome)
    {
        outcome.confirmed = true;
        outcome.modified = true;
        setSearchPath({});
    };
    EXPECT_FALSE(edit());
    EXPECT_EQ(m_room.shownMessages().size(), 1U);
}

TEST_F(EditorRunTest, resourcesAreGivenBackWhenWindowThrows)
{
    m_editor.onSheet = [](EditorOutcome&) { throw std::runtime_error("window"); };
    EXPECT_THROW(edit(), std::runtime_error);
    EXPECT_FALSE(ScriptedEditor::resourcesAreCurrent());
    EXPECT_EQ(m_path, OD_T("C:\\plot\\in.pc3"));
}
} // namespace
