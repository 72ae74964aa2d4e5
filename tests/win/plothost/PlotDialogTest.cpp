#include "plothost/windows/PlotDialog.h"

#include "host/GmResBufExtention.h"
#include "plothost/DevModeQuery.h"
#include "plothost/ModuleCommand.h"
#include "plothost/windows/PlotIds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>

#include <commctrl.h>

#include "StepByStep.h"
#include "tests/support/ScriptedCommand.h"

using namespace plothost;
using testing::Contains;
using testing::ElementsAre;

namespace
{
const OdString plan = OD_T("C:\\cfg\\plan.pc3");
const OdString printer = OD_T("R&D Plotter");

std::wstring textOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::vector<std::wstring> entriesOf(HWND combo)
{
    std::vector<std::wstring> entries;
    for (LRESULT i = 0; i < ::SendMessageW(combo, CB_GETCOUNT, 0, 0); ++i)
    {
        std::wstring text(static_cast<std::size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0)),
                          L'\0');
        ::SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        entries.push_back(text);
    }
    return entries;
}

std::wstring selectedOf(HWND combo)
{
    const LRESULT index = ::SendMessageW(combo, CB_GETCURSEL, 0, 0);
    return index < 0 ? L"(none)" : entriesOf(combo).at(static_cast<std::size_t>(index));
}

std::wstring cellOf(HWND list, int line, int column)
{
    wchar_t text[300] = {};
    ListView_GetItemText(list, line, column, text, 300);
    return text;
}

std::vector<HWND> childrenOf(HWND dialog)
{
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

int windowsOfThread()
{
    int count = 0;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND, LPARAM result) -> BOOL
        {
            ++*reinterpret_cast<int*>(result);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

// The dialog with the module's two commands and the system as a test scripts them. Checks are answered by the test.
class PlotDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_list.configurations = {{OD_T("plan.pc3"), plan}};
        m_list.printers = {{printer, OD_T("D"), OD_T("LPT1:"), true}};
        ScriptedCommand::add(OD_T("PC3GETDEVMODE"), [this](GmServicesManagerInterface& values) { query(values); });
        ScriptedCommand::add(OD_T("PC3EDIT"), [this](GmServicesManagerInterface& values) { m_editor(values); });
    }
    void TearDown() override
    {
        EXPECT_TRUE(m_steps.allDone());
        ScriptedCommand::removeAll();
        namedValues().clear();
    }

    void query(GmServicesManagerInterface& values)
    {
        if (void* window = GmResBufExtention::getVoid(OdResBuf::cast(values.get(OD_T("hwndPost")).get())))
        {
            m_checked.push_back(static_cast<HWND>(window));
            return;
        }
        const OdString name = OdResBuf::cast(values.get(OD_T("deviceName")).get())->getString();
        values.set(OD_T("printerName"), OdResBuf::newRb(kRtString, printer));
        values.set(OD_T("devMode"), OdResBuf::newRb(kRtBinaryChunk, OdBinaryData()));
        values.set(OD_T("result"), OdResBuf::newRb(kRtBool, true));
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, name == plan ? OD_T("A3") : OD_T("")));
        values.set(OD_T("driverType"), OdResBuf::newRb(kRtInt16, OdInt16(1)));
        values.set(OD_T("canonicalModelName"), OdResBuf::newRb(kRtString, OD_T("Model X")));
    }

    static void leave(GmServicesManagerInterface& values, const OdString& paperName)
    {
        values.set(OD_T("fileName"), OdResBuf::newRb(kRtString, OD_T("plan.pc3")));
        values.set(OD_T("paperName"), OdResBuf::newRb(kRtString, paperName));
        values.set(OD_T("result"), OdResBuf::newRb(kRtInt16, OdInt16(1)));
        values.set(OD_T("canonicalModelName"), OdResBuf::newRb(kRtString, OD_T("Model X")));
    }

    PlotSurroundings surroundings()
    {
        PlotSurroundings around;
        around.list = [this] { return m_list; };
        around.papers = [](const OdString&) { return std::vector<DriverPaper>{{OD_T("A4"), 9}, {OD_T("A3"), 8}}; };
        around.defaults = [](const OdString&) { return std::vector<BYTE>(); };
        around.whyNoPrinter = [](const OdString&) { return std::string("it is gone"); };
        around.whyNotEdited = [](const EditQuestion&) { return std::string("it is locked"); };
        around.resetDrivers = [this] { m_resets += 1; };
        return around;
    }

    // Opens the dialog, runs the steps in it, and closes it.
    void run(std::vector<StepByStep::Step> steps)
    {
        m_steps.add([this] { m_dialog = StepByStep::topDialog(); });
        for (auto& step : steps)
            m_steps.add(std::move(step));
        m_steps.add(
            [this]
            {
                ::SendMessageW(m_dialog, WM_CLOSE, 0, 0);
                // A test that failed must not wait for a person.
                if (!m_dialog || ::IsWindowVisible(m_dialog))
                    ::PostQuitMessage(0);
            });
        runOnly();
    }

    void runOnly()
    {
        PlotDialog dialog(surroundings());
        DWORD error = 0;
        EXPECT_TRUE(dialog.run(::GetModuleHandleW(nullptr), error)) << error;
        EXPECT_FALSE(::IsWindow(m_dialog));
    }

    HWND item(int id) const { return ::GetDlgItem(m_dialog, id); }
    void answer(std::size_t check, bool found) const
    {
        ::SendMessageW(m_checked.at(check), backgroundMessage, found ? 1 : 0, 0);
    }
    void click(int id) const
    {
        // A disabled button would take a sent click too; a person could not give it.
        ASSERT_TRUE(::IsWindowEnabled(item(id)) && ::IsWindowVisible(item(id)));
        ::SendMessageW(item(id), BM_CLICK, 0, 0);
    }
    std::wstring state() const { return textOf(item(IDC_PLOT_STATE)); }
    bool isLandscape() const { return ::IsDlgButtonChecked(m_dialog, IDC_HOST_LANDSCAPE) == BST_CHECKED; }

    StepByStep m_steps;
    HWND m_dialog = nullptr;
    ListReport m_list;
    std::vector<HWND> m_checked;
    int m_resets = 0;
    ScriptedCommand::Script m_editor = [](GmServicesManagerInterface&) {};
};
} // namespace

TEST_F(PlotDialogTest, opensWithDevicesAndTheModulesControls)
{
    run({[this]
         {
             ASSERT_TRUE(m_dialog);
             EXPECT_EQ(textOf(m_dialog), L"Plot");
             EXPECT_THAT(entriesOf(item(IDC_PLOT_DEVICE)), ElementsAre(L"plan.pc3", L"R&D Plotter"));
             EXPECT_EQ(selectedOf(item(IDC_PLOT_DEVICE)), L"plan.pc3");
             EXPECT_EQ(state(), L"Checking...");
             EXPECT_EQ(m_checked.size(), 1U);
             ASSERT_TRUE(item(6455));
             ASSERT_TRUE(item(6461));
             ASSERT_TRUE(item(6462));
             EXPECT_EQ(::SendMessageW(item(6455), CB_GETCURSEL, 0, 0), CB_ERR) << "nothing is known yet";
             EXPECT_EQ(::SendMessageW(item(6461), BM_GETCHECK, 0, 0), BST_CHECKED);
             EXPECT_EQ(::SendMessageW(item(6462), BM_GETCHECK, 0, 0), BST_UNCHECKED);
             EXPECT_EQ(LOWORD(::SendMessageW(m_dialog, DM_GETDEFID, 0, 0)), IDC_PLOT_PROPERTIES);
             EXPECT_TRUE(::SendMessageW(m_dialog, WM_GETICON, ICON_SMALL, 0));
             EXPECT_TRUE(::SendMessageW(m_dialog, WM_GETICON, ICON_BIG, 0));
         }});
}

TEST_F(PlotDialogTest, theAnswerFillsStatePapersAndDetails)
{
    run({[this]
         {
             answer(0, true);
             EXPECT_EQ(state(), L"Ready: plots on R&D Plotter.");
             EXPECT_THAT(entriesOf(item(6455)), ElementsAre(L"A4", L"A3", L"Custom"));
             EXPECT_EQ(selectedOf(item(6455)), L"A3");
             const HWND details = item(IDC_PLOT_DETAILS);
             ASSERT_EQ(ListView_GetItemCount(details), 5);
             EXPECT_EQ(cellOf(details, 0, 0), L"Printer");
             EXPECT_EQ(cellOf(details, 0, 1), L"R&D Plotter");
             EXPECT_EQ(cellOf(details, 2, 2), L"Windows system printer");
             EXPECT_EQ(cellOf(details, 3, 1), L"Model X");
             EXPECT_EQ(cellOf(details, 4, 0), L"DEVMODE");
             EXPECT_EQ(cellOf(details, 4, 1), L"none");
         }});
}

TEST_F(PlotDialogTest, aNoShowsItsReason)
{
    run({[this]
         {
             answer(0, false);
             EXPECT_EQ(state(), L"Not ready: it is gone.");
             EXPECT_TRUE(::IsWindowEnabled(item(IDC_PLOT_PROPERTIES))) << "a file can be edited without its printer";
         }});
}

TEST_F(PlotDialogTest, theAnswerOfAnEarlierChoiceIsIgnored)
{
    run({[this]
         {
             ::SendMessageW(item(IDC_PLOT_DEVICE), WM_KEYDOWN, VK_DOWN, 0);
             ASSERT_EQ(m_checked.size(), 2U);
             EXPECT_EQ(selectedOf(item(IDC_PLOT_DEVICE)), L"R&D Plotter");
             EXPECT_NE(m_checked[0], m_checked[1]);
             EXPECT_TRUE(::IsWindow(m_checked[0])) << "its answer is still to come";
             answer(0, true);
             EXPECT_EQ(state(), L"Checking...");
             EXPECT_FALSE(::IsWindow(m_checked[0]));
             answer(1, true);
             EXPECT_EQ(state(), L"Ready.");
         }});
}

TEST_F(PlotDialogTest, propertiesRunsTheEditorForThisDialog)
{
    OdString name;
    OdString paper;
    HWND active = nullptr;
    m_editor = [&](GmServicesManagerInterface& values)
    {
        name = OdResBuf::cast(values.get(OD_T("plotCfgName")).get())->getString();
        paper = OdResBuf::cast(values.get(OD_T("paperName")).get())->getString();
        active = ::GetActiveWindow();
        leave(values, OD_T("A4"));
    };
    run({[this] { answer(0, true); }, [this] { ::SendMessageW(item(6455), WM_KEYDOWN, VK_UP, 0); },
         [&]
         {
             click(IDC_PLOT_PROPERTIES);
             EXPECT_EQ(name, plan);
             EXPECT_EQ(paper, OD_T("A4"));
             EXPECT_EQ(active, m_dialog) << "the sheet takes the thread's active window as its owner";
             EXPECT_EQ(m_resets, 1);
             ASSERT_EQ(m_checked.size(), 2U) << "the device is looked at again";
             EXPECT_EQ(state(), L"Checking...");
             answer(1, true);
             EXPECT_EQ(selectedOf(item(6455)), L"A4") << "as the editor left it";
         }});
}

TEST_F(PlotDialogTest, whatModulesDialogSetsInControlsStays)
{
    m_editor = [this](GmServicesManagerInterface& values)
    {
        ::SendMessageW(item(6455), CB_SETCURSEL, 2, 0);
        ::SendMessageW(item(6461), BM_SETCHECK, BST_UNCHECKED, 0);
        ::SendMessageW(item(6462), BM_SETCHECK, BST_CHECKED, 0);
        leave(values, OD_T("A3"));
    };
    run({[this] { answer(0, true); },
         [this]
         {
             click(IDC_PLOT_PROPERTIES);
             answer(1, true);
             EXPECT_EQ(selectedOf(item(6455)), L"Custom");
             EXPECT_TRUE(isLandscape());
             EXPECT_FALSE(::IsDlgButtonChecked(m_dialog, 6461));
         }});
}

TEST_F(PlotDialogTest, openEditorBlocksTheDialog)
{
    m_editor = [this](GmServicesManagerInterface& values)
    {
        // Another thread's program may send what the disabled dialog gets from no person.
        ::SendMessageW(m_dialog, WM_COMMAND, MAKEWPARAM(IDC_PLOT_PROPERTIES, BN_CLICKED), 0);
        ::SendMessageW(m_dialog, WM_CLOSE, 0, 0);
        answer(0, true);
        EXPECT_EQ(::SendMessageW(item(6455), CB_GETCOUNT, 0, 0), 0) << "the editor's dialogs work with this list";
        leave(values, OD_T("A3"));
    };
    run({[this]
         {
             click(IDC_PLOT_PROPERTIES);
             EXPECT_TRUE(::IsWindowVisible(m_dialog));
             EXPECT_EQ(m_resets, 1) << "one editor";
             answer(1, true);
             EXPECT_EQ(state(), L"Ready: plots on R&D Plotter.");
         }});
}

TEST_F(PlotDialogTest, failedEditorIsExplainedInABox)
{
    std::wstring caption;
    std::vector<std::wstring> texts;
    HWND owner = nullptr;
    run({[this] { click(IDC_PLOT_PROPERTIES); },
         [&]
         {
             const HWND box = StepByStep::topDialog();
             ASSERT_NE(box, m_dialog);
             owner = ::GetWindow(box, GW_OWNER);
             caption = textOf(box);
             for (const HWND child : childrenOf(box))
                 texts.push_back(textOf(child));
             ::SendMessageW(box, WM_COMMAND, IDOK, 0);
         },
         [this] { EXPECT_TRUE(::IsWindowEnabled(m_dialog)); }});
    EXPECT_EQ(caption, L"Plot");
    EXPECT_EQ(owner, m_dialog);
    EXPECT_THAT(texts, Contains(L"it is locked"));
}

TEST_F(PlotDialogTest, withoutDevicesThereIsNothingToEdit)
{
    m_list = {};
    run({[this]
         {
             EXPECT_FALSE(::IsWindowEnabled(item(IDC_PLOT_PROPERTIES)));
             EXPECT_FALSE(::IsWindowEnabled(item(IDC_PLOT_DEVICE)));
             EXPECT_THAT(state(), testing::HasSubstr(L"nothing to plot on"));
             EXPECT_TRUE(m_checked.empty());
         }});
}

TEST_F(PlotDialogTest, escapeClosesItAndReturnOpensTheEditor)
{
    int edited = 0;
    m_editor = [&edited](GmServicesManagerInterface& values)
    {
        ++edited;
        leave(values, OD_T("A3"));
    };
    m_steps.add(
        [this]
        {
            m_dialog = StepByStep::topDialog();
            // Posted, so that the dialog's loop sees them as a person's.
            ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
            ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
        });
    runOnly();
    EXPECT_EQ(edited, 1);
}

TEST_F(PlotDialogTest, focusReturnsAfterTheEditor)
{
    m_editor = [](GmServicesManagerInterface& values) { leave(values, OD_T("A3")); };
    run({[this] { EXPECT_EQ(::GetFocus(), item(IDC_PLOT_DEVICE)); },
         [this]
         {
             ::SetFocus(item(IDC_PLOT_PROPERTIES));
             click(IDC_PLOT_PROPERTIES);
             EXPECT_EQ(::GetFocus(), item(IDC_PLOT_PROPERTIES));
         }});
}

TEST_F(PlotDialogTest, accessKeysAreUniqueAndBeforeTheirControls)
{
    run({[this]
         {
             std::map<wchar_t, int> keys;
             for (const HWND child : childrenOf(m_dialog))
             {
                 const std::wstring text = textOf(child);
                 const std::size_t mark = text.find(L'&');
                 const bool showsAName = (::GetWindowLongPtrW(child, GWL_STYLE) & SS_NOPREFIX) != 0;
                 if (mark != std::wstring::npos && mark + 1 < text.size() && ::GetDlgCtrlID(child) != IDC_PLOT_DEVICE &&
                     !(::GetDlgCtrlID(child) == IDC_PLOT_STATE && showsAName))
                     ++keys[static_cast<wchar_t>(::towlower(text[mark + 1]))];
             }
             EXPECT_EQ(keys,
                       (std::map<wchar_t, int>{{L'd', 1}, {L'r', 1}, {L'p', 1}, {L'o', 1}, {L'l', 1}, {L't', 1}}));
             for (const auto& [id, label] : std::map<int, std::wstring>{
                      {IDC_PLOT_DEVICE, L"Plot &device:"}, {6455, L"&Paper size:"}, {IDC_PLOT_DETAILS, L"De&tails:"}})
                 EXPECT_EQ(textOf(::GetWindow(item(id), GW_HWNDPREV)), label);
         }});
}

TEST_F(PlotDialogTest, noTextIsClipped)
{
    run({[this]
         {
             for (const HWND child : childrenOf(m_dialog))
             {
                 const std::wstring text = textOf(child);
                 if (text.empty() || ::GetDlgCtrlID(child) == IDC_PLOT_DEVICE)
                     continue;
                 const HDC device = ::GetDC(child);
                 const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(child, WM_GETFONT, 0, 0));
                 const HGDIOBJ before = ::SelectObject(device, font);
                 RECT needed = {};
                 ::DrawTextW(device, text.c_str(), -1, &needed, DT_CALCRECT | DT_SINGLELINE);
                 ::SelectObject(device, before);
                 ::ReleaseDC(child, device);
                 RECT room = {};
                 ::GetClientRect(child, &room);
                 EXPECT_LE(needed.right, room.right) << OdString(OdStringView(text));
                 EXPECT_LE(needed.bottom, room.bottom + 1) << OdString(OdStringView(text));
             }
         }});
}

TEST_F(PlotDialogTest, throwInAHandlerEndsTheDialog)
{
    PlotSurroundings around = surroundings();
    around.papers = [](const OdString&) -> std::vector<DriverPaper> { throw std::runtime_error("no memory"); };
    PlotDialog dialog(std::move(around));
    m_steps.add([this] { m_dialog = StepByStep::topDialog(); });
    m_steps.add([this] { answer(0, true); });
    DWORD error = 0;
    EXPECT_THROW(static_cast<void>(dialog.run(::GetModuleHandleW(nullptr), error)), std::runtime_error);
    EXPECT_FALSE(::IsWindow(m_dialog));

    around = surroundings();
    around.list = []() -> ListReport { throw std::runtime_error("no memory"); };
    PlotDialog atOnce(std::move(around));
    EXPECT_THROW(static_cast<void>(atOnce.run(::GetModuleHandleW(nullptr), error)), std::runtime_error);
}

TEST_F(PlotDialogTest, refusedDialogIsReportedWithItsError)
{
    PlotDialog dialog(surroundings());
    DWORD error = 0;
    // A library without such a dialog.
    EXPECT_FALSE(dialog.run(::GetModuleHandleW(L"kernel32.dll"), error));
    EXPECT_NE(error, static_cast<DWORD>(ERROR_SUCCESS));
}

TEST_F(PlotDialogTest, pendingAnswersLeaveNothingBehind)
{
    run({});
    const int before = windowsOfThread();
    const HWND check = m_checked.back();
    EXPECT_FALSE(::IsWindow(check)) << "a late answer finds nobody";
    for (int i = 0; i < 20; ++i)
        run({[this] { ::SendMessageW(item(IDC_PLOT_DEVICE), WM_KEYDOWN, VK_DOWN, 0); }});
    EXPECT_EQ(windowsOfThread(), before);
}
