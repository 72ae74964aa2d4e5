#include "mfc/CFileDialog.h"

#include "WindowTest.h"
#include "mfc/AfxModalLoop.h"
#include "tests/support/TemporaryFolder.h"

#include <deque>
#include <functional>
#include <objbase.h>
#include <set>
#include <stdexcept>
#include <thread>

namespace
{
constexpr UINT workMessage = WM_APP;

// Works on the system's dialogs while they are open: for each new one the next piece of work, from a message that its
// own loop hands out, and so after it is ready.
class DialogWorker : public TestWnd
{
public:
    using Work = std::function<void(HWND dialog)>;

    DialogWorker() : m_hook(::SetWindowsHookExW(WH_CBT, &hook, nullptr, ::GetCurrentThreadId()))
    {
        if (!m_hook || !create())
            throw std::runtime_error("no hook for dialogs");
        current = this;
    }
    ~DialogWorker() override
    {
        current = nullptr;
        ::UnhookWindowsHookEx(m_hook);
        EXPECT_TRUE(m_work.empty()) << "a dialog did not come";
        DestroyWindow();
    }

    void add(Work work) { m_work.push_back(std::move(work)); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != workMessage)
            return TestWnd::WindowProc(message, wParam, lParam);
        const auto dialog = reinterpret_cast<HWND>(wParam);
        if (m_work.empty())
        {
            ADD_FAILURE() << "one dialog more than expected";
            // One of them ends it, whatever it is.
            ::PostMessageW(dialog, WM_COMMAND, IDNO, 0);
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            return 0;
        }
        const Work work = std::move(m_work.front());
        m_work.pop_front();
        work(dialog);
        return 0;
    }

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam)
    {
        WCHAR name[16] = {};
        const auto hWnd = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && current && ::GetClassNameW(hWnd, name, 16) &&
            std::wstring_view(name) == L"#32770" && current->m_seen.insert(hWnd).second)
            current->PostMessage(workMessage, wParam);
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline DialogWorker* current = nullptr;
    HHOOK m_hook;
    std::deque<Work> m_work;
    std::set<HWND> m_seen;
};

// The two kinds of dialog have the field for the name under different numbers.
constexpr int olderNameField = 1148;
constexpr int newerNameField = 1152;

bool isNewer(HWND dialog)
{
    return ::GetDlgItem(dialog, newerNameField) && !::GetDlgItem(dialog, olderNameField);
}

HWND nameField(HWND dialog)
{
    return ::GetDlgItem(dialog, isNewer(dialog) ? newerNameField : olderNameField);
}

CString textOf(HWND field)
{
    WCHAR text[600] = {};
    ::SendMessageW(field, WM_GETTEXT, 600, reinterpret_cast<LPARAM>(text));
    return text;
}

// A name that is not taken ends the dialog all the same, or the test would wait for ever.
void confirm(HWND dialog)
{
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

void cancel(HWND dialog)
{
    ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

void setName(HWND dialog, const OdString& name)
{
    ::SendMessageW(nameField(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
}

DialogWorker::Work enter(const OdString& name)
{
    return [name](HWND dialog)
    {
        setName(dialog, name);
        confirm(dialog);
    };
}

constexpr DWORD saveFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
constexpr LPCWSTR filter = L"Plotter configurations (*.pc3)|*.pc3|All files (*.*)|*.*||";

// Every test runs with both kinds of dialog.
class CFileDialogTest : public WindowTest, public ::testing::WithParamInterface<BOOL>
{
protected:
    void SetUp() override { ASSERT_TRUE(m_owner.create(nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE)); }
    void TearDown() override
    {
        EXPECT_TRUE(m_owner.IsWindowEnabled());
        m_owner.DestroyWindow();
        WindowTest::TearDown();
    }

    std::unique_ptr<CFileDialog> saveDialog(LPCWSTR fileName, LPCWSTR extension = L"pc3", LPCWSTR types = filter)
    {
        return std::make_unique<CFileDialog>(FALSE, extension, fileName, saveFlags, types, &m_owner, 0, GetParam());
    }

    TemporaryFolder m_folder;
    TestWnd m_owner;
};

INSTANTIATE_TEST_SUITE_P(BothStyles, CFileDialogTest, ::testing::Values(TRUE, FALSE),
                         [](const auto& kind) { return kind.param ? "Newer" : "Older"; });

TEST_P(CFileDialogTest, theNameChosenGetsTheDefaultExtension)
{
    DialogWorker worker;
    worker.add(enter(m_folder.at("chosen")));
    const auto dialog = saveDialog(nullptr);
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(dialog->GetPathName(), CString(m_folder.at("chosen.pc3")));
    EXPECT_EQ(dialog->GetFileName(), L"chosen.pc3");
}

TEST_P(CFileDialogTest, theDefaultExtensionNeedsNoFilter)
{
    DialogWorker worker;
    worker.add(enter(m_folder.at("chosen")));
    const auto dialog = saveDialog(nullptr, L"pc3", nullptr);
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(dialog->GetFileName(), L"chosen.pc3");
}

TEST_P(CFileDialogTest, withoutADefaultExtensionTheNameStays)
{
    DialogWorker worker;
    worker.add(enter(m_folder.at("chosen")));
    const auto dialog = saveDialog(nullptr, nullptr, nullptr);
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(dialog->GetPathName(), CString(m_folder.at("chosen")));
}

TEST_P(CFileDialogTest, isOfTheKindAskedFor)
{
    DialogWorker worker;
    worker.add(
        [](HWND dialog)
        {
            EXPECT_EQ(isNewer(dialog), GetParam() == TRUE);
            cancel(dialog);
        });
    EXPECT_EQ(saveDialog(nullptr)->DoModal(), IDCANCEL);
}

TEST_P(CFileDialogTest, cancelLeavesTheNameAsItWas)
{
    DialogWorker worker;
    worker.add(&cancel);
    const CString before(m_folder.at("before.pc3"));
    const auto dialog = saveDialog(before);
    EXPECT_EQ(dialog->DoModal(), IDCANCEL);
    EXPECT_EQ(dialog->GetPathName(), before);
}

TEST_P(CFileDialogTest, startsInTheFolderOfTheName)
{
    DialogWorker worker;
    CString shown;
    worker.add(
        [&](HWND dialog)
        {
            shown = textOf(nameField(dialog));
            confirm(dialog);
        });
    const CString before(m_folder.at("before.pc3"));
    const auto dialog = saveDialog(before);
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(dialog->GetPathName(), before);
    EXPECT_EQ(shown, L"before.pc3") << "the field holds the name alone";
}

TEST_P(CFileDialogTest, startsInInitialFolderWithEmptyName)
{
    DialogWorker worker;
    CString shown = L"poison";
    worker.add(
        [&](HWND dialog)
        {
            shown = textOf(nameField(dialog));
            enter(OD_T("plain"))(dialog);
        });
    const OdString folder = m_folder.path();
    const auto dialog = saveDialog(L"");
    dialog->m_ofn.lpstrInitialDir = folder.c_str();
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(dialog->GetPathName(), CString(m_folder.at("plain.pc3")));
}

TEST_P(CFileDialogTest, namesOwnFolderCountsBeforeInitialOne)
{
    DialogWorker worker;
    worker.add(&confirm);
    const CString before(m_folder.at("before.pc3"));
    const auto dialog = saveDialog(before);
    dialog->m_ofn.lpstrInitialDir = L"C:\\windows";
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(dialog->GetPathName(), before);
}

TEST_P(CFileDialogTest, asksBeforeAFileIsOverwritten)
{
    m_folder.addFile("there.pc3");
    DialogWorker worker;
    HWND first = nullptr;
    worker.add(
        [&](HWND dialog)
        {
            first = dialog;
            setName(dialog, m_folder.at("there"));
            ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
    // No: the dialog stays. The second time: yes.
    worker.add(
        [&](HWND question)
        {
            EXPECT_TRUE(::IsWindowVisible(first));
            ::PostMessageW(question, WM_COMMAND, IDNO, 0);
            ::PostMessageW(first, WM_COMMAND, IDOK, 0);
        });
    worker.add([](HWND question) { ::PostMessageW(question, WM_COMMAND, IDYES, 0); });
    const auto dialog = saveDialog(nullptr);
    EXPECT_EQ(dialog->DoModal(), IDOK);
    EXPECT_EQ(dialog->GetPathName(), CString(m_folder.at("there.pc3")));
}

TEST_P(CFileDialogTest, doesNotAskUnlessRequested)
{
    m_folder.addFile("there.pc3");
    DialogWorker worker;
    worker.add(enter(m_folder.at("there.pc3")));
    CFileDialog dialog(FALSE, L"pc3", nullptr, OFN_HIDEREADONLY, filter, &m_owner, 0, GetParam());
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_P(CFileDialogTest, theOwnerIsDisabledMeanwhile)
{
    TestWnd child;
    ASSERT_TRUE(child.create(&m_owner, WS_CHILD | WS_VISIBLE));
    for (CWnd* parent : {static_cast<CWnd*>(&m_owner), static_cast<CWnd*>(&child), static_cast<CWnd*>(nullptr)})
    {
        DialogWorker worker;
        worker.add(
            [&](HWND dialog)
            {
                EXPECT_FALSE(m_owner.IsWindowEnabled());
                EXPECT_EQ(::GetWindow(dialog, GW_OWNER), m_owner.m_hWnd);
                cancel(dialog);
            });
        CFileDialog dialog(FALSE, nullptr, nullptr, saveFlags, nullptr, parent, 0, GetParam());
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_TRUE(m_owner.IsWindowEnabled());
    }
}

TEST_P(CFileDialogTest, offersTheTypesOfTheFilter)
{
    DialogWorker worker;
    constexpr int types = 1136; // of the older kind; the newer one has its list under the same number here
    worker.add(
        [](HWND dialog)
        {
            const HWND list = ::GetDlgItem(dialog, types);
            ASSERT_NE(list, nullptr);
            ASSERT_EQ(::SendMessageW(list, CB_GETCOUNT, 0, 0), 2);
            WCHAR text[100] = {};
            ::SendMessageW(list, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text));
            EXPECT_EQ(CString(text), L"Plotter configurations (*.pc3)");
            ::SendMessageW(list, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text));
            EXPECT_EQ(CString(text), L"All files (*.*)");
            cancel(dialog);
        });
    EXPECT_EQ(saveDialog(nullptr)->DoModal(), IDCANCEL);
}

TEST_P(CFileDialogTest, aBrokenFilterIsCutToItsPairs)
{
    for (const LPCWSTR broken : {L"", L"|", L"text only|", L"no end", L"All|*.*|left over||"})
    {
        DialogWorker worker;
        worker.add(&cancel);
        EXPECT_EQ(saveDialog(nullptr, nullptr, broken)->DoModal(), IDCANCEL) << CString(broken);
    }
}

TEST_P(CFileDialogTest, dialogAppearsEvenForAnInvalidName)
{
    for (const LPCWSTR name : {L"a<b>|?*.pc3", L"C:\\no such folder\\name.pc3", L"\\\\\\", L":", L"..\\..\\.."})
    {
        DialogWorker worker;
        worker.add(enter(m_folder.at("better")));
        const auto dialog = saveDialog(name);
        EXPECT_EQ(dialog->DoModal(), IDOK) << CString(name);
        EXPECT_EQ(dialog->GetPathName(), CString(m_folder.at("better.pc3")));
    }
}

TEST_P(CFileDialogTest, anEndlessNameIsCut)
{
    const std::wstring endless(0x10000, L'n');
    DialogWorker worker;
    worker.add(&cancel);
    EXPECT_EQ(saveDialog(endless.c_str())->DoModal(), IDCANCEL);
}

TEST_P(CFileDialogTest, opensAFileThatIsThere)
{
    const OdString there = m_folder.addFile("there.pc3");
    DialogWorker worker;
    worker.add(enter(there));
    CFileDialog dialog(TRUE, L"pc3", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, filter, &m_owner, 0, GetParam());
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), CString(there));
}

TEST_P(CFileDialogTest, whatAHandlerThrowsMeanwhileComesOut)
{
    DialogWorker worker;
    worker.add(
        [](HWND dialog)
        {
            cancel(dialog);
            throw std::runtime_error("handler");
        });
    const auto dialog = saveDialog(nullptr);
    EXPECT_THROW(dialog->DoModal(), std::runtime_error);
}

TEST_P(CFileDialogTest, otherApartmentsGetTheOlderDialog)
{
    const OdString name = m_folder.at("chosen");
    const BOOL style = GetParam();
    std::thread(
        [&]
        {
            ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_MULTITHREADED)));
            {
                DialogWorker worker;
                worker.add(
                    [&](HWND dialog)
                    {
                        EXPECT_FALSE(isNewer(dialog));
                        enter(name)(dialog);
                    });
                CFileDialog dialog(FALSE, L"pc3", nullptr, saveFlags, filter, nullptr, 0, style);
                EXPECT_EQ(dialog.DoModal(), IDOK);
                EXPECT_EQ(dialog.GetFileName(), L"chosen.pc3");
            }
            ::CoUninitialize();
        })
        .join();
}

TEST(CFileDialogNameTest, isThatGivenUntilAnotherIsChosen)
{
    const CFileDialog named(FALSE, nullptr, L"C:\\folder\\name.pc3");
    EXPECT_EQ(named.GetPathName(), L"C:\\folder\\name.pc3");
    EXPECT_EQ(named.GetFileName(), L"name.pc3");
    const CFileDialog unnamed(FALSE);
    EXPECT_EQ(unnamed.GetPathName(), L"");
    EXPECT_EQ(unnamed.GetFileName(), L"");
    EXPECT_EQ(CFileDialog(FALSE, nullptr, L"C:name").GetFileName(), L"name");
    EXPECT_EQ(CFileDialog(FALSE, nullptr, L"C:/folder/").GetFileName(), L"");
}
} // namespace
