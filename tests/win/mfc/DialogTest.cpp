#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxModuleState.h"

#include <commctrl.h>

namespace
{
constexpr UINT stepMessage = WM_APP + 300;
}

DialogTest::DialogTest() : m_library(::LoadLibraryW(L"mfc_test_dialogs.dll")), m_libraryBefore(AfxGetResourceHandle())
{
    EXPECT_TRUE(m_library);
    AfxSetResourceHandle(m_library.get());
    ::InitCommonControls();
}

DialogTest::~DialogTest()
{
    AfxSetResourceHandle(m_libraryBefore);
}

void ScriptedDlg::addStep(Action step)
{
    m_steps.push_back(std::move(step));
    if (m_hWnd && m_steps.size() == 1)
        PostMessage(stepMessage);
}

BOOL ScriptedDlg::OnInitDialog()
{
    ++m_inits;
    const BOOL result = CDialog::OnInitDialog();
    if (!m_steps.empty())
        PostMessage(stepMessage);
    if (m_onInit)
        m_onInit(*this);
    return result;
}

void ScriptedDlg::OnOK()
{
    ++m_oks;
    CDialog::OnOK();
}

void ScriptedDlg::OnCancel()
{
    ++m_cancels;
    CDialog::OnCancel();
}

BOOL ScriptedDlg::DestroyWindow()
{
    ++m_destroyed;
    return m_destroyWindow ? m_destroyWindow() : CDialog::DestroyWindow();
}

void ScriptedDlg::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    if (m_exchange)
        m_exchange(pDX);
}

void ScriptedDlg::onRun()
{
    if (m_onRun)
        m_onRun(*this);
}

LRESULT ScriptedDlg::onStep(WPARAM, LPARAM)
{
    const Action step = std::move(m_steps.front());
    m_steps.pop_front();
    // The next one waits in the queue already: a step may run a loop of its own.
    if (!m_steps.empty())
        PostMessage(stepMessage);
    step(*this);
    return 0;
}

BEGIN_MESSAGE_MAP(ScriptedDlg, CDialog)
ON_BN_CLICKED(IDC_RUN, &ScriptedDlg::onRun)
ON_MESSAGE(stepMessage, &ScriptedDlg::onStep)
END_MESSAGE_MAP()
