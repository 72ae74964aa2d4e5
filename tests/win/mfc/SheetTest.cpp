#include "SheetTest.h"

#include "mfc/AfxRes.h"

#include <commctrl.h>

namespace
{
void setKeyDown(int key, bool isDown)
{
    BYTE keys[256] = {};
    ::GetKeyboardState(keys);
    keys[key] = isDown ? 0x80 : 0;
    ::SetKeyboardState(keys);
}
} // namespace

BOOL ScriptedPage::OnInitDialog()
{
    note("init");
    const BOOL result = CPropertyPage::OnInitDialog();
    if (m_onInit)
        m_onInit(*this);
    return result;
}

BOOL ScriptedPage::OnSetActive()
{
    note("active");
    return CPropertyPage::OnSetActive();
}

BOOL ScriptedPage::OnKillActive()
{
    note("kill");
    return CPropertyPage::OnKillActive() && m_letsGo;
}

BOOL ScriptedPage::OnApply()
{
    note("apply");
    if (m_onApply)
        m_onApply();
    return CPropertyPage::OnApply() && m_applies;
}

BOOL ScriptedPage::OnQueryCancel()
{
    note("query cancel");
    return CPropertyPage::OnQueryCancel() && m_mayCancel;
}

void ScriptedPage::OnReset()
{
    note("reset");
    CPropertyPage::OnReset();
}

void ScriptedPage::OnOK()
{
    note("ok");
    CPropertyPage::OnOK();
}

void ScriptedPage::OnCancel()
{
    note("cancel");
    CPropertyPage::OnCancel();
}

BOOL ScriptedPage::PreTranslateMessage(MSG* pMsg)
{
    if (m_preTranslate && m_preTranslate(pMsg))
        return TRUE;
    return CPropertyPage::PreTranslateMessage(pMsg);
}

void ScriptedPage::DoDataExchange(CDataExchange* pDX)
{
    CPropertyPage::DoDataExchange(pDX);
    if (m_exchange)
        m_exchange(pDX);
}

void ScriptedPage::onRun()
{
    if (m_onRun)
        m_onRun(*this);
}

BEGIN_MESSAGE_MAP(ScriptedPage, CPropertyPage)
ON_BN_CLICKED(IDC_RUN, &ScriptedPage::onRun)
END_MESSAGE_MAP()

ScriptedSheet::ScriptedSheet(CWnd* pParent, UINT selectPage) : CPropertySheet(L"Caption", pParent, selectPage)
{
    AddPage(&m_first);
    AddPage(&m_second);
    m_psh.dwFlags |= PSH_NOAPPLYNOW;
}

void ScriptedSheet::clickTab(int index)
{
    const CWnd* tab = GetTabControl();
    RECT item = {};
    tab->SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    const LPARAM place = MAKELPARAM((item.left + item.right) / 2, (item.top + item.bottom) / 2);
    tab->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, place);
    tab->SendMessage(WM_LBUTTONUP, 0, place);
}

void ScriptedSheet::press(HWND control, WPARAM key)
{
    ::PostMessageW(control, WM_KEYDOWN, key, 1);
    ::PostMessageW(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001U));
}

// Posted keys carry no modifiers, so the keyboard's state is set for as long as the message is looked at.
void ScriptedSheet::pressWithControl(HWND control, WPARAM key, bool withShift)
{
    setKeyDown(VK_CONTROL, true);
    setKeyDown(VK_SHIFT, withShift);
    MSG message = {};
    message.hwnd = control;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    EXPECT_TRUE(WalkPreTranslateTree(m_hWnd, &message));
    setKeyDown(VK_CONTROL, false);
    setKeyDown(VK_SHIFT, false);
}

int ScriptedSheet::highlightedTab() const
{
    return static_cast<int>(GetTabControl()->SendMessage(TCM_GETCURSEL));
}

CPropertyPage* ScriptedSheet::shownPage() const
{
    CPropertyPage* shown = nullptr;
    for (int index = 0; index < GetPageCount(); ++index)
        if (GetPage(index)->m_hWnd && GetPage(index)->IsWindowVisible())
        {
            EXPECT_EQ(shown, nullptr) << "two pages are shown";
            shown = GetPage(index);
        }
    return shown;
}

BOOL ScriptedSheet::OnInitDialog()
{
    m_events.emplace_back("sheet init");
    const BOOL result = CPropertySheet::OnInitDialog();
    m_steps.begin(*this);
    if (m_onInit)
        m_onInit(*this);
    return result && m_initResult;
}

BOOL ScriptedSheet::DestroyWindow()
{
    return m_destroyWindow ? m_destroyWindow() : CPropertySheet::DestroyWindow();
}

void ScriptedSheet::onTabChanging(NMHDR*, LRESULT* result)
{
    m_events.emplace_back("sheet changing");
    *result = m_refuses && m_refuses() ? TRUE : Default();
}

void ScriptedSheet::onTabChanged(NMHDR*, LRESULT* result)
{
    m_events.emplace_back("sheet changed");
    m_tabAfterChange = highlightedTab();
    Default();
    *result = 0;
}

LRESULT ScriptedSheet::onStep(WPARAM, LPARAM)
{
    return m_steps.runNext(*this);
}

BEGIN_MESSAGE_MAP(ScriptedSheet, CPropertySheet)
ON_NOTIFY(TCN_SELCHANGING, AFX_IDC_TAB_CONTROL, &ScriptedSheet::onTabChanging)
ON_NOTIFY(TCN_SELCHANGE, AFX_IDC_TAB_CONTROL, &ScriptedSheet::onTabChanged)
ON_MESSAGE(Steps<ScriptedSheet>::message, &ScriptedSheet::onStep)
END_MESSAGE_MAP()
