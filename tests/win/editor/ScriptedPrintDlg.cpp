#include "tests/win/editor/ScriptedPrintDlg.h"

#include "tests/support/operator/WindowTools.h"

#include <gtest/gtest.h>

namespace
{
constexpr UINT runScript = WM_APP + 77;
} // namespace

BOOL ScriptedPrintDlg::OnInitDialog()
{
    if (m_beforeInit)
        m_beforeInit(*this);
    PostMessage(runScript);
    return CPDFPrintDlg::OnInitDialog();
}

void ScriptedPrintDlg::DoDataExchange(CDataExchange* pDX)
{
    if (m_beforeExchange)
        m_beforeExchange(*pDX);
    CPDFPrintDlg::DoDataExchange(pDX);
}

LRESULT ScriptedPrintDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == runScript)
    {
        if (m_script)
            m_script(*this);
        PostMessage(WM_COMMAND, IDCANCEL);
        return 0;
    }
    if (message == WM_DESTROY && m_whileDestroyed)
        m_whileDestroyed(*this);
    return CPDFPrintDlg::WindowProc(message, wParam, lParam);
}

std::wstring ScriptedPrintDlg::title() const
{
    return ::textOf(m_hWnd);
}

std::wstring ScriptedPrintDlg::textOf(int id) const
{
    return ::textOf(control(id));
}

std::vector<std::wstring> ScriptedPrintDlg::entriesOf(int id) const
{
    return ::entriesOf(control(id));
}

int ScriptedPrintDlg::selectionOf(int id) const
{
    return static_cast<int>(SendDlgItemMessage(id, CB_GETCURSEL));
}

void ScriptedPrintDlg::click(int id) const
{
    ASSERT_TRUE(isEnabled(id)) << "control " << id;
    SendDlgItemMessage(id, BM_CLICK);
}

void ScriptedPrintDlg::select(int id, int index) const
{
    ASSERT_TRUE(isEnabled(id)) << "control " << id;
    SendDlgItemMessage(id, CB_SETCURSEL, static_cast<WPARAM>(index));
    SendMessage(WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(control(id)));
}

void ScriptedPrintDlg::type(int id, const std::wstring& text) const
{
    ASSERT_TRUE(isEnabled(id)) << "control " << id;
    SendDlgItemMessage(id, EM_SETSEL, 0, -1);
    SendDlgItemMessage(id, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}
