#include "SheetTest.h"

#include "mfc/AfxExceptionScope.h"
#include "mfc/AfxModuleState.h"
#include "mfc/AfxRes.h"
#include "mfc/CInvalidArgException.h"

#include <commctrl.h>

namespace
{
using CPropertySheetTest = SheetTest;

TEST_F(CPropertySheetTest, OkAndCancelAnswerAndTellThePages)
{
    ScriptedSheet sheet;
    sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDOK), BM_CLICK, 0, 0); });
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(sheet.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_first.m_hWnd, nullptr);
    EXPECT_EQ(sheet.m_events,
              (Events{"first init", "first active", "sheet init", "first kill", "first apply", "first ok"}));

    sheet.m_events.clear();
    sheet.addStep([](auto& s) { ::SendMessageW(s.button(IDCANCEL), BM_CLICK, 0, 0); });
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.m_events, (Events{"first init", "first active", "sheet init", "first query cancel", "first reset",
                                      "first cancel"}));
}

TEST_F(CPropertySheetTest, TheSheetIsInvisibleUntilItIsInitialised)
{
    ScriptedSheet sheet;
    bool firstSeen = true;
    sheet.m_first.m_onInit = [&](auto& page) { firstSeen = page.GetParent()->IsWindowVisible() != FALSE; };
    sheet.m_onInit = [](auto& s)
    {
        EXPECT_FALSE(s.IsWindowVisible());
        EXPECT_EQ(s.m_second.m_hWnd, nullptr) << "made before it is needed";
    };
    sheet.addStep(
        [](auto& s)
        {
            EXPECT_TRUE(s.IsWindowVisible());
            EXPECT_EQ(s.shownPage(), &s.m_first);
            s.EndDialog(7);
        });
    EXPECT_EQ(sheet.DoModal(), 7);
    EXPECT_FALSE(firstSeen);
}

TEST_F(CPropertySheetTest, HasItsCaptionTabsAndNoApplyButton)
{
    ScriptedSheet sheet;
    sheet.addStep(
        [](auto& s)
        {
            CString caption;
            s.GetWindowText(caption);
            EXPECT_EQ(caption, L"Caption");
            EXPECT_EQ(s.GetTabControl()->GetDlgCtrlID(), AFX_IDC_TAB_CONTROL);
            for (const auto& [index, expected] : {std::pair{0, L"Grüße, 世界"}, std::pair{1, L"Second"}})
            {
                WCHAR text[40] = {};
                TCITEMW item = {};
                item.mask = TCIF_TEXT;
                item.pszText = text;
                item.cchTextMax = 40;
                s.GetTabControl()->SendMessage(TCM_GETITEMW, static_cast<WPARAM>(index),
                                               reinterpret_cast<LPARAM>(&item));
                EXPECT_EQ(CString(text), expected);
            }
            constexpr int apply = 12321;
            EXPECT_FALSE(::IsWindowVisible(s.button(apply)));
            EXPECT_FALSE(::IsWindowVisible(s.button(IDHELP)));
            s.EndDialog(1);
        });
    EXPECT_EQ(sheet.DoModal(), 1);
}
} // namespace
