#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxModuleState.h"

#include <commctrl.h>

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

BOOL ScriptedDlg::OnInitDialog()
{
    ++m_inits;
    const BOOL result = CDialog::OnInitDialog();
    m_steps.begin(*this);
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
    return m_steps.runNext(*this);
}

BEGIN_MESSAGE_MAP(ScriptedDlg, CDialog)
ON_BN_CLICKED(IDC_RUN, &ScriptedDlg::onRun)
ON_MESSAGE(Steps<ScriptedDlg>::message, &ScriptedDlg::onStep)
END_MESSAGE_MAP()
