#pragma once

#include "tests/win/mfc/MfcTestIds.h"
#include "tests/win/mfc/Steps.h"
#include "tests/win/mfc/WindowTest.h"
#include "win32/windows/SystemHandles.h"

#include "mfc/CDialog.h"

#include <functional>

// A test with dialogs from the tests' resource library, which is current during the test.
class DialogTest : public WindowTest
{
protected:
    DialogTest();
    ~DialogTest() override;

private:
    LibraryHandle m_library;
    HINSTANCE m_libraryBefore;
};

// A dialog scripted by a test: once while it is initialised, then step by step, each step from a posted message and so
// from the innermost loop that runs.
class ScriptedDlg : public CDialog
{
public:
    explicit ScriptedDlg(UINT templateId = IDD_PLAIN, CWnd* pParent = nullptr) : CDialog(templateId, pParent) {}

    using Action = std::function<void(ScriptedDlg&)>;
    Action m_onInit;
    Action m_onRun; // click on IDC_RUN
    std::function<void(CDataExchange*)> m_exchange;
    std::function<BOOL()> m_destroyWindow; // instead of the base's
    int m_inits = 0;
    int m_oks = 0;
    int m_cancels = 0;
    int m_destroyed = 0;

    void addStep(Action step) { m_steps.add(std::move(step), *this); }

    BOOL DestroyWindow() override;
    using CDialog::Default;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void onRun();
    afx_msg LRESULT onStep(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    Steps<ScriptedDlg> m_steps;
};
