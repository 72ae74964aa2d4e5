#include "plothost/PlotSession.h"

#include "plothost/ModuleCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

#include "tests/support/ScriptedCommand.h"

using namespace plothost;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
const OdString planPath = OD_T("/cfg/plan.pc3");
const OdString otherPath = OD_T("/cfg/other.pc3");
const OdString plotter = OD_T("Plotter A");

// The module's two commands and the system around the dialog, as a test sets them up.
class PlotSessionTest : public testing::Test
{
protected:
    struct Asked
    {
        OdString deviceName;
        unsigned question;
    };

    void SetUp() override
    {
        m_list.configurations = {{OD_T("other.pc3"), otherPath}, {OD_T("plan.pc3"), planPath}};
        m_list.printers = {{plotter, OD_T("D"), OD_T("LPT1:"), true}};
        m_devMode = landscapeA3();
        ScriptedCommand::add(OD_T("PC3GETDEVMODE"), [this](GmServicesManagerInterface& values) { answerAll(values); });
        ScriptedCommand::add(OD_T("PC3EDIT"), [this](GmServicesManagerInterface& values) { m_editor(values); });
    }
    void TearDown() override
    {
        ScriptedCommand::removeAll();
        namedValues().clear();
    }

    PlotSurroundings surroundings()
    {
        PlotSurroundings around;
        around.list = [this] { return m_list; };
        around.papers = [this](const OdString& printer)
        {
            m_papersOf.push_back(printer);
            return m_papers;
        };
        around.defaults = [this](const OdString&) { return m_devMode; };
        around.whyNoPrinter = [](const OdString& deviceName) { return odToUtf8(deviceName) + " has none"; };
        around.whyNotEdited = [](const EditQuestion& question) { return odToUtf8(question.name) + " is locked"; };
        around.resetDrivers = [this] { m_log.emplace_back("reset"); };
        around.startCheck = [this](const OdString& deviceName, unsigned question)
        {
            m_asked.push_back({deviceName, question});
            return m_checkProblem;
        };
        return around;
    }

    static std::vector<BYTE> landscapeA3()
    {
        DEVMODEW devMode = {};
        devMode.dmSize = sizeof(devMode);
        devMode.dmFields = DM_ORIENTATION | DM_PAPERSIZE;
        devMode.dmOrientation = DMORIENT_LANDSCAPE;
        devMode.dmPaperSize = 8;
        std::vector<BYTE> bytes(sizeof(devMode));
        std::memcpy(bytes.data(), &devMode, sizeof(devMode));
        return bytes;
    }

    void answerAll(GmServicesManagerInterface& values) const
    {
        const OdString name = OdResBuf::cast(values.get(OD_T("deviceName")).get())->getString();
        const bool isPrinter = name == plotter;
        values.set(OD_T("printerName"), OdResBuf::newRb(kRtString, m_found ? plotter : OdString()));
        OdBinaryData devMode;
        for (std::size_t i = 0; i < m_devMode.size() && !isPrinter; ++i)
            devMode.push_back(m_devMode[i]);
        values.set(OD_T("devMode"), OdResBuf::newRb(kRtBinaryChunk, devMode));
        values.set(OD_T("result"), OdResBuf::newRb(kRtBool, m_found));
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, isPrinter ? OdString() : m_paper));
        values.set(OD_T("driverType"), OdResBuf::newRb(kRtInt16, OdInt16(1)));
        values.set(OD_T("canonicalModelName"), OdResBuf::newRb(kRtString, OD_T("M")));
    }

    static void leave(GmServicesManagerInterface& values, const OdString& fileName, const OdString& paperName)
    {
        values.set(OD_T("fileName"), OdResBuf::newRb(kRtString, fileName));
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, paperName));
        values.set(OD_T("result"), OdResBuf::newRb(kRtInt16, OdInt16(1)));
        values.set(OD_T("canonicalModelName"), OdResBuf::newRb(kRtString, OD_T("M")));
    }

    // A session whose device has been checked.
    PlotSession ready(std::size_t device)
    {
        PlotSession session(surroundings());
        session.choose(device);
        EXPECT_TRUE(session.answer(m_asked.back().question, true));
        m_controls = {session.view().paper ? session.view().papers[*session.view().paper] : OdString(),
                      session.view().landscape};
        return session;
    }

    std::string edit(PlotSession& session)
    {
        return session.edit([this] { return m_controls; });
    }

    static OdString paperOf(const PlotSession& session)
    {
        const PlotView& view = session.view();
        return view.paper ? view.papers.at(*view.paper) : OdString(OD_T("(none)"));
    }

    ListReport m_list;
    std::vector<DriverPaper> m_papers = {{OD_T("A4"), 9}, {OD_T("A3"), 8}};
    std::vector<BYTE> m_devMode;
    OdString m_paper = OD_T("A4");
    bool m_found = true;
    std::string m_checkProblem;
    std::vector<Asked> m_asked;
    std::vector<OdString> m_papersOf;
    std::vector<std::string> m_log;
    PlotControls m_controls;
    ScriptedCommand::Script m_editor = [](GmServicesManagerInterface&) {};
};
} // namespace

TEST_F(PlotSessionTest, theFirstDeviceIsCheckedAtOnceAndNothingIsShownBeforeTheAnswer)
{
    const PlotSession session(surroundings());
    EXPECT_EQ(session.view().devices.size(), 3U);
    EXPECT_EQ(session.view().device, 0U);
    EXPECT_EQ(session.view().state, "Checking...");
    EXPECT_FALSE(session.view().isKnown);
    EXPECT_TRUE(session.view().papers.empty());
    EXPECT_EQ(session.view().paper, std::nullopt);
    EXPECT_TRUE(session.view().details.empty());
    ASSERT_EQ(m_asked.size(), 1U);
    EXPECT_EQ(m_asked[0].deviceName, otherPath) << "with its folder: it is that file and no other";
}

TEST_F(PlotSessionTest, anAnsweredConfigurationShowsStatePapersOrientationAndDetails)
{
    const PlotSession session = ready(1);
    EXPECT_EQ(m_asked.back().deviceName, planPath);
    EXPECT_EQ(session.view().state, "Ready: plots on Plotter A.");
    EXPECT_TRUE(session.view().isKnown);
    EXPECT_THAT(session.view().papers, ElementsAre(OD_T("A4"), OD_T("A3"), OD_T("Custom")));
    EXPECT_EQ(paperOf(session), OD_T("A4"));
    EXPECT_TRUE(session.view().landscape);
    EXPECT_EQ(m_papersOf, std::vector<OdString>{plotter}) << "the papers are those of the printer behind it";
    EXPECT_THAT(session.view().details, testing::Contains(DetailRow{"Model", "M", "", ""}));
}

TEST_F(PlotSessionTest, anAnsweredPrinterShowsItsDriversDefaults)
{
    const PlotSession session = ready(2);
    EXPECT_EQ(session.view().state, "Ready.");
    EXPECT_EQ(paperOf(session), OD_T("A3"));
    EXPECT_TRUE(session.view().landscape);
    EXPECT_THAT(session.view().details,
                testing::Contains(DetailRow{"dmOrientation", "2", "DMORIENT_LANDSCAPE", "yes"}));
}

TEST_F(PlotSessionTest, aNoNamesItsReasonAndStillShowsWhatIsKnown)
{
    m_found = false;
    PlotSession session(surroundings());
    EXPECT_TRUE(session.answer(m_asked.back().question, false));
    EXPECT_EQ(session.view().state, "Not ready: /cfg/other.pc3 has none.");
    EXPECT_TRUE(m_papersOf.empty()) << "there is no printer to ask";
    EXPECT_THAT(session.view().papers, ElementsAre(OD_T("A4"), OD_T("Custom")));
    EXPECT_EQ(paperOf(session), OD_T("A4"));
    EXPECT_THAT(session.view().details, testing::Contains(DetailRow{"Paper", "A4", "", ""}));
}

TEST_F(PlotSessionTest, aPrinterThatVanishedSinceItsCheckIsNotReady)
{
    m_found = false;
    PlotSession session(surroundings());
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_THAT(session.view().state, StartsWith("Not ready: "));
}

TEST_F(PlotSessionTest, answersOfEarlierQuestionsChangeNothing)
{
    PlotSession session(surroundings());
    session.choose(1);
    session.choose(2);
    ASSERT_EQ(m_asked.size(), 3U);
    EXPECT_FALSE(session.answer(m_asked[1].question, false));
    EXPECT_FALSE(session.answer(m_asked[0].question, true));
    EXPECT_EQ(session.view().state, "Checking...");
    EXPECT_TRUE(session.answer(m_asked[2].question, true));
    EXPECT_EQ(session.view().state, "Ready.");
    EXPECT_FALSE(session.answer(m_asked[2].question, false)) << "each question has one answer";
    EXPECT_EQ(session.view().state, "Ready.");
    EXPECT_FALSE(session.answer(0, true));
}

TEST_F(PlotSessionTest, choosingTheSameDeviceAgainAsksAgain)
{
    PlotSession session = ready(1);
    const unsigned before = m_asked.back().question;
    session.choose(1);
    EXPECT_NE(m_asked.back().question, before);
    EXPECT_FALSE(session.view().isKnown);
    EXPECT_EQ(session.view().state, "Checking...");
    session.choose(99);
    EXPECT_EQ(session.view().device, 1U) << "an index outside the list is none";
}

TEST_F(PlotSessionTest, withoutAnyDeviceTheStateSaysSo)
{
    m_list = {};
    PlotSession session(surroundings());
    EXPECT_EQ(session.view().device, std::nullopt);
    EXPECT_THAT(session.view().state, HasSubstr("nothing to plot on"));
    EXPECT_TRUE(m_asked.empty());
    EXPECT_EQ(edit(session), "");
    EXPECT_TRUE(m_log.empty());
}

TEST_F(PlotSessionTest, aCheckThatCannotBeStartedIsTold)
{
    m_checkProblem = "no thread";
    PlotSession session(surroundings());
    EXPECT_EQ(session.view().state, "Not checked: no thread.");
    EXPECT_FALSE(session.answer(m_asked.back().question, true));
}

TEST_F(PlotSessionTest, withoutTheModulesCommandTheStateSaysSo)
{
    ScriptedCommand::removeAll();
    PlotSession session(surroundings());
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_EQ(session.view().state, "Not ready: the module has no command 'PC3GETDEVMODE'.");
}

TEST_F(PlotSessionTest, theEditorGetsDeviceAndPaper)
{
    PlotSession session = ready(1);
    m_controls.paper = OD_T("A3");
    bool ran = false;
    m_editor = [&](GmServicesManagerInterface& values)
    {
        ran = true;
        EXPECT_TRUE(session.isEditing());
        EXPECT_EQ(OdResBuf::cast(values.get(OD_T("plotCfgName")).get())->getString(), planPath);
        EXPECT_FALSE(OdResBuf::cast(values.get(OD_T("bSystemPrinter")).get())->getBool());
        EXPECT_EQ(OdResBuf::cast(values.get(OD_T("paperName")).get())->getString(), OD_T("A3"));
        leave(values, OD_T("plan.pc3"), OD_T("A3"));
    };
    EXPECT_EQ(edit(session), "");
    EXPECT_TRUE(ran);
    EXPECT_FALSE(session.isEditing());
}

TEST_F(PlotSessionTest, whileTheDeviceIsStillCheckedNoPaperIsPassed)
{
    PlotSession session(surroundings());
    bool hadPaper = true;
    m_editor = [&](GmServicesManagerInterface& values)
    {
        hadPaper = values.get(OD_T("paperName")).get() != nullptr;
        leave(values, OD_T("other.pc3"), OD_T("A4"));
    };
    EXPECT_EQ(edit(session), "");
    EXPECT_FALSE(hadPaper);
}

TEST_F(PlotSessionTest, nothingElseHappensWhileTheEditorIsOpen)
{
    PlotSession session = ready(1);
    session.choose(1);
    const unsigned open = m_asked.back().question;
    m_editor = [&](GmServicesManagerInterface& values)
    {
        EXPECT_FALSE(session.answer(open, true)) << "the editor's dialogs use the paper list meanwhile";
        session.choose(0);
        EXPECT_EQ(session.view().device, 1U);
        EXPECT_EQ(session.edit([] { return PlotControls(); }), "");
        leave(values, OD_T("plan.pc3"), OD_T("A4"));
    };
    EXPECT_EQ(edit(session), "");
    EXPECT_EQ(m_log, std::vector<std::string>{"reset"}) << "one editor ran";
    EXPECT_NE(m_asked.back().question, open) << "it is asked again afterwards";
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
}

TEST_F(PlotSessionTest, theDriversAreResetAfterTheEditorAndBeforeAnythingIsAsked)
{
    PlotSession session = ready(1);
    m_editor = [this](GmServicesManagerInterface& values)
    {
        m_log.emplace_back("editor");
        leave(values, OD_T("plan.pc3"), OD_T("A4"));
    };
    const std::size_t asked = m_asked.size();
    EXPECT_EQ(edit(session), "");
    EXPECT_EQ(m_log, (std::vector<std::string>{"editor", "reset"}));
    EXPECT_EQ(m_asked.size(), asked + 1);
    m_editor = [](GmServicesManagerInterface&) {};
    static_cast<void>(edit(session));
    EXPECT_EQ(m_log.back(), "reset");
    EXPECT_EQ(m_log.size(), 3U) << "also after an editor that did not open";
}

TEST_F(PlotSessionTest, aSavedFileIsTheChosenDevice)
{
    PlotSession session = ready(2);
    m_controls.landscape = false;
    m_editor = [this](GmServicesManagerInterface& values)
    {
        m_list.configurations.push_back({OD_T("new.pc3"), OD_T("/cfg/new.pc3")});
        leave(values, OD_T("new.pc3"), OD_T("A4"));
    };
    EXPECT_EQ(edit(session), "");
    EXPECT_EQ(session.view().device, 2U);
    EXPECT_EQ(m_asked.back().deviceName, OD_T("/cfg/new.pc3"));
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_EQ(paperOf(session), OD_T("A4")) << "as the file says";
    EXPECT_TRUE(session.view().landscape);
}

TEST_F(PlotSessionTest, withoutASavedFileTheDeviceStays)
{
    PlotSession session = ready(2);
    m_editor = [](GmServicesManagerInterface& values) { leave(values, plotter, OD_T("A3")); };
    EXPECT_EQ(edit(session), "");
    EXPECT_EQ(session.view().device, 2U);
    m_editor = [](GmServicesManagerInterface& values) { leave(values, OD_T("elsewhere.pc3"), OD_T("A3")); };
    EXPECT_EQ(edit(session), "");
    EXPECT_EQ(session.view().device, 2U);
}

TEST_F(PlotSessionTest, aDeviceThatIsGoneAfterTheEditorLeavesTheFirstOne)
{
    PlotSession session = ready(1);
    m_editor = [this](GmServicesManagerInterface& values)
    {
        m_list.configurations.pop_back();
        leave(values, OD_T("plan.pc3"), OD_T("A4"));
    };
    EXPECT_EQ(edit(session), "");
    EXPECT_EQ(session.view().device, 0U);
    EXPECT_EQ(m_asked.back().deviceName, otherPath);
}

TEST_F(PlotSessionTest, thePaperThatTheEditorLeftIsSelected)
{
    PlotSession session = ready(1);
    m_editor = [](GmServicesManagerInterface& values) { leave(values, OD_T("plan.pc3"), OD_T("A3")); };
    EXPECT_EQ(edit(session), "");
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_EQ(paperOf(session), OD_T("A3"));
    session.choose(1);
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_EQ(paperOf(session), OD_T("A4")) << "choosing the device reads it from the start";
}

TEST_F(PlotSessionTest, whatTheEditorsDialogsChoseInTheControlsStays)
{
    PlotSession session = ready(1);
    m_editor = [this](GmServicesManagerInterface& values)
    {
        m_controls = {OD_T("Custom"), false};
        leave(values, OD_T("plan.pc3"), OD_T("A3"));
    };
    EXPECT_EQ(edit(session), "");
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_EQ(paperOf(session), OD_T("Custom"));
    EXPECT_FALSE(session.view().landscape) << "although the file says landscape";
}

TEST_F(PlotSessionTest, anEditorThatDidNotOpenGivesTheReasonAndTheChoiceStays)
{
    PlotSession session = ready(1);
    m_controls.paper = OD_T("A3");
    EXPECT_EQ(edit(session), "/cfg/plan.pc3 is locked");
    EXPECT_EQ(session.view().device, 1U);
    EXPECT_TRUE(session.answer(m_asked.back().question, true));
    EXPECT_EQ(paperOf(session), OD_T("A3"));
}

TEST_F(PlotSessionTest, aCommandThatFailsGivesItsReason)
{
    PlotSession session = ready(1);
    m_editor = [](GmServicesManagerInterface&) { throw std::runtime_error("out of windows"); };
    EXPECT_EQ(edit(session), "the command 'PC3EDIT' failed: out of windows");
    EXPECT_FALSE(session.isEditing());
    EXPECT_EQ(m_log, std::vector<std::string>{"reset"});
}
