#include "tests/win/mfc/DialogTest.h"

#include "mfc/CButton.h"
#include "mfc/CComboBox.h"
#include "mfc/CEdit.h"
#include "mfc/CImageList.h"
#include "mfc/CPaintDC.h"
#include "mfc/CScrollBar.h"
#include "mfc/CSliderCtrl.h"
#include "mfc/CStatic.h"
#include "mfc/CTreeCtrl.h"

#include <optional>

namespace
{
class ControlsTest : public DialogTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dialog.Create(IDD_CONTROLS));
        ASSERT_TRUE(m_tree.SubclassDlgItem(IDC_TREE, &m_dialog));
        ASSERT_TRUE(m_slider.SubclassDlgItem(IDC_SLIDER, &m_dialog));
        ASSERT_TRUE(m_list.SubclassDlgItem(IDC_LIST, &m_dialog));
        ASSERT_TRUE(m_edit.SubclassDlgItem(IDC_TEXT, &m_dialog));
        ASSERT_TRUE(m_check.SubclassDlgItem(IDC_RUN, &m_dialog));
        ASSERT_TRUE(m_picture.SubclassDlgItem(IDC_PICTURE, &m_dialog));
    }
    void TearDown() override
    {
        m_dialog.DestroyWindow();
        for (const CWnd* control :
             {static_cast<CWnd*>(&m_tree), static_cast<CWnd*>(&m_slider), static_cast<CWnd*>(&m_list),
              static_cast<CWnd*>(&m_edit), static_cast<CWnd*>(&m_check), static_cast<CWnd*>(&m_picture)})
            EXPECT_EQ(control->m_hWnd, nullptr);
        DialogTest::TearDown();
    }

    ScriptedDlg m_dialog;
    CTreeCtrl m_tree;
    CSliderCtrl m_slider;
    CComboBox m_list;
    CEdit m_edit;
    CButton m_check;
    CStatic m_picture;
};

TEST_F(ControlsTest, comboBoxKeepsOrderTextsAndData)
{
    EXPECT_EQ(m_list.AddString(L"zebra"), 0);
    EXPECT_EQ(m_list.AddString(L"ant"), 1);
    EXPECT_EQ(m_list.InsertString(0, L"first"), 0);
    EXPECT_EQ(m_list.GetCount(), 3);
    CString text;
    m_list.GetLBText(1, text);
    EXPECT_EQ(text, L"zebra");
    EXPECT_EQ(m_list.GetLBTextLen(1), 5);
    EXPECT_EQ(m_list.SetItemData(2, 77), 1);
    EXPECT_EQ(m_list.GetItemData(2), 77U);
    EXPECT_EQ(m_list.DeleteString(0), 2);
    EXPECT_EQ(m_list.GetItemData(1), 77U);
    m_list.ResetContent();
    EXPECT_EQ(m_list.GetCount(), 0);
}

TEST_F(ControlsTest, comboBoxSelectsAndFinds)
{
    for (const wchar_t* text : {L"A4", L"A4 small", L"Letter"})
        m_list.AddString(text);
    EXPECT_EQ(m_list.GetCurSel(), CB_ERR);
    EXPECT_EQ(m_list.SetCurSel(2), 2);
    EXPECT_EQ(m_list.GetCurSel(), 2);
    EXPECT_EQ(m_list.SetCurSel(-1), CB_ERR);
    EXPECT_EQ(m_list.GetCurSel(), CB_ERR);
    EXPECT_EQ(m_list.FindStringExact(-1, L"a4 SMALL"), 1);
    EXPECT_EQ(m_list.FindStringExact(-1, L"A4 s"), CB_ERR);
    EXPECT_EQ(m_list.FindString(-1, L"A4"), 0);
    EXPECT_EQ(m_list.FindString(0, L"A4"), 1) << "the search begins behind the given entry";
    EXPECT_EQ(m_list.SelectString(-1, L"Let"), 2);
    EXPECT_EQ(m_list.GetCurSel(), 2);
}

TEST_F(ControlsTest, comboBoxReturnsLongTextsWhole)
{
    const CString longText(L'p', 5000);
    m_list.AddString(longText);
    CString text;
    m_list.GetLBText(0, text);
    EXPECT_EQ(text, longText);
    m_list.GetLBText(1, text);
    EXPECT_TRUE(text.IsEmpty());
    m_list.AddString(L"");
    text = L"left over";
    m_list.GetLBText(1, text);
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(ControlsTest, sliderCutsPositionsToItsRange)
{
    m_slider.SetRange(0, 6, TRUE);
    int minimum = -1;
    int maximum = -1;
    m_slider.GetRange(minimum, maximum);
    EXPECT_EQ(minimum, 0);
    EXPECT_EQ(maximum, 6);
    m_slider.SetPos(4);
    EXPECT_EQ(m_slider.GetPos(), 4);
    m_slider.SetPos(99);
    EXPECT_EQ(m_slider.GetPos(), 6);
    m_slider.SetPos(-3);
    EXPECT_EQ(m_slider.GetPos(), 0);
    m_slider.SetRange(-100000, 100000);
    m_slider.SetPos(70000);
    EXPECT_EQ(m_slider.GetPos(), 70000) << "more than 16 bits";
}

TEST_F(ControlsTest, treeBuildsAndWalks)
{
    const HTREEITEM root = m_tree.InsertItem(L"root", 1, 2);
    const HTREEITEM first = m_tree.InsertItem(L"first", root);
    const HTREEITEM second = m_tree.InsertItem(L"second", root);
    ASSERT_TRUE(root && first && second);
    EXPECT_EQ(m_tree.GetCount(), 3U);
    EXPECT_EQ(m_tree.GetRootItem(), root);
    EXPECT_EQ(m_tree.GetChildItem(root), first);
    EXPECT_EQ(m_tree.GetNextSiblingItem(first), second);
    EXPECT_EQ(m_tree.GetNextSiblingItem(second), nullptr);
    EXPECT_EQ(m_tree.GetParentItem(second), root);
    EXPECT_EQ(m_tree.GetParentItem(root), nullptr);
    int image = -1;
    int selectedImage = -1;
    EXPECT_TRUE(m_tree.GetItemImage(root, image, selectedImage));
    EXPECT_EQ(image, 1);
    EXPECT_EQ(selectedImage, 2);
    EXPECT_TRUE(m_tree.Expand(root, TVE_EXPAND));
    EXPECT_EQ(m_tree.GetItemState(root, TVIS_EXPANDED), static_cast<UINT>(TVIS_EXPANDED));
    EXPECT_TRUE(m_tree.SelectItem(second));
    EXPECT_EQ(m_tree.GetSelectedItem(), second);
    EXPECT_TRUE(m_tree.DeleteItem(first));
    EXPECT_EQ(m_tree.GetChildItem(root), second);
    EXPECT_TRUE(m_tree.DeleteAllItems());
    EXPECT_EQ(m_tree.GetRootItem(), nullptr);
}

TEST_F(ControlsTest, treeKeepsDataAndState)
{
    const HTREEITEM item = m_tree.InsertItem(L"item");
    EXPECT_EQ(m_tree.GetItemData(item), 0U);
    EXPECT_TRUE(m_tree.SetItemData(item, 11));
    EXPECT_EQ(m_tree.GetItemData(item), 11U);
    EXPECT_TRUE(m_tree.SetItemState(item, INDEXTOOVERLAYMASK(1), TVIS_OVERLAYMASK));
    EXPECT_EQ(m_tree.GetItemState(item, TVIS_OVERLAYMASK), 0x100U);
    EXPECT_EQ(m_tree.GetItemState(item, TVIS_EXPANDED), 0U);
}

TEST_F(ControlsTest, treeGivesTextsOfEveryLengthWhole)
{
    const HTREEITEM item = m_tree.InsertItem(L"");
    EXPECT_EQ(m_tree.GetItemText(item), L"");
    // Around the sizes of a buffer that doubles from 256 units.
    for (const int length : {1, 254, 255, 256, 257, 510, 511, 512, 513, 40000})
    {
        const CString text(L'y', length);
        ASSERT_TRUE(m_tree.SetItemText(item, text));
        EXPECT_EQ(m_tree.GetItemText(item), text) << length;
    }
    EXPECT_EQ(m_tree.GetItemText(nullptr), L"");
}

TEST_F(ControlsTest, imageListOwnsItsPictures)
{
    CImageList images;
    EXPECT_EQ(images.m_hImageList, nullptr);
    ASSERT_TRUE(images.Create(16, 16, ILC_MASK | ILC_COLOR24, 0, 1));
    EXPECT_FALSE(images.Create(16, 16, ILC_MASK, 0, 1)) << "a second list";
    EXPECT_EQ(images.GetImageCount(), 0);
    EXPECT_EQ(images.Add(::LoadIconW(nullptr, IDI_APPLICATION)), 0);
    EXPECT_EQ(images.Add(::LoadIconW(nullptr, IDI_WARNING)), 1);
    EXPECT_EQ(images.Add(nullptr), -1);
    EXPECT_EQ(images.GetImageCount(), 2);
    EXPECT_TRUE(images.SetOverlayImage(0, 1));
    images.SetBkColor(CLR_NONE);
    EXPECT_EQ(::ImageList_GetBkColor(images), CLR_NONE);

    EXPECT_EQ(m_tree.SetImageList(images, TVSIL_NORMAL), nullptr);
    EXPECT_EQ(m_tree.GetImageList(TVSIL_NORMAL), images.GetSafeHandle());
    EXPECT_EQ(m_tree.SetImageList(nullptr, TVSIL_NORMAL), images.GetSafeHandle());

    const HIMAGELIST list = images.Detach();
    EXPECT_FALSE(images.DeleteImageList()) << "nothing to delete any more";
    EXPECT_TRUE(images.Attach(list));
    EXPECT_TRUE(images.DeleteImageList());
    EXPECT_FALSE(images.Attach(nullptr));
}

TEST_F(ControlsTest, editKnowsSelectionAndChange)
{
    m_edit.SetWindowText(L"text");
    EXPECT_FALSE(m_edit.GetModify());
    m_edit.SetSel(1, 3);
    int start = -1;
    int end = -1;
    m_edit.GetSel(start, end);
    EXPECT_EQ(start, 1);
    EXPECT_EQ(end, 3);
    m_edit.ReplaceSel(L"E");
    CString text;
    m_edit.GetWindowText(text);
    EXPECT_EQ(text, L"tEt");
    EXPECT_TRUE(m_edit.GetModify());
    m_edit.SetModify(FALSE);
    EXPECT_FALSE(m_edit.GetModify());
    EXPECT_TRUE(m_edit.SetReadOnly());
    EXPECT_TRUE(m_edit.GetStyle() & ES_READONLY);
}

TEST_F(ControlsTest, buttonsAndPicturesShowWhatTheyAreGiven)
{
    EXPECT_EQ(m_check.GetCheck(), BST_UNCHECKED);
    m_check.SetCheck(BST_CHECKED);
    EXPECT_EQ(m_check.GetCheck(), BST_CHECKED);

    const HICON icon = ::LoadIconW(nullptr, IDI_APPLICATION);
    m_check.ModifyStyle(0, BS_ICON);
    EXPECT_EQ(m_check.SetIcon(icon), nullptr);
    EXPECT_EQ(m_check.GetIcon(), icon);
    EXPECT_EQ(m_check.SetIcon(nullptr), icon);

    EXPECT_EQ(m_picture.SetIcon(icon), nullptr);
    EXPECT_EQ(m_picture.GetIcon(), icon);
    EXPECT_EQ(m_picture.SetIcon(nullptr), icon);
}

// What comes in a scroll message, and from whom.
class ScrollDlg : public ScriptedDlg
{
public:
    using ScriptedDlg::ScriptedDlg;
    struct Call
    {
        UINT code;
        UINT position;
        CScrollBar* bar;
    };
    std::optional<Call> m_call;

protected:
    void OnHScroll(UINT code, UINT position, CScrollBar* pScrollBar)
    {
        m_call = Call{code, position, pScrollBar};
        CWnd::OnHScroll(code, position, pScrollBar);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ScrollDlg, ScriptedDlg)
ON_WM_HSCROLL()
END_MESSAGE_MAP()

TEST_F(ControlsTest, aKeyOnASliderScrolls)
{
    ScrollDlg dialog;
    ASSERT_TRUE(dialog.Create(IDD_CONTROLS));
    CSliderCtrl slider;
    ASSERT_TRUE(slider.SubclassDlgItem(IDC_SLIDER, &dialog));
    slider.SetRange(0, 6);
    slider.SetPos(2);
    EXPECT_FALSE(dialog.m_call) << "setting a position is no news";
    slider.SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(slider.GetPos(), 3);
    ASSERT_TRUE(dialog.m_call);
    EXPECT_EQ(dialog.m_call->code, static_cast<UINT>(TB_LINEDOWN));
    EXPECT_EQ(dialog.m_call->bar, nullptr) << "a slider is no scroll bar";

    CScrollBar bar;
    ASSERT_TRUE(bar.Create(L"ScrollBar", L"", WS_CHILD, RECT{0, 0, 50, 10}, &dialog, 5));
    dialog.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 44), reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_EQ(dialog.m_call->code, static_cast<UINT>(SB_THUMBPOSITION));
    EXPECT_EQ(dialog.m_call->position, 44U);
    EXPECT_EQ(dialog.m_call->bar, &bar);
    dialog.DestroyWindow();
}

// Paints in its handler, or leaves it to the base.
class PaintedDlg : public ScriptedDlg
{
public:
    using ScriptedDlg::ScriptedDlg;
    bool m_withContext = true;
    int m_paints = 0;

protected:
    void OnPaint()
    {
        ++m_paints;
        if (!m_withContext)
        {
            CWnd::OnPaint();
            return;
        }
        const CPaintDC context(this);
        EXPECT_NE(context.GetSafeHdc(), nullptr);
        EXPECT_EQ(context.GetSafeHdc(), context.m_ps.hdc);
        EXPECT_TRUE(context.DrawIcon(1, 1, ::LoadIconW(nullptr, IDI_APPLICATION)));
    }
    HCURSOR OnQueryDragIcon() { return static_cast<HCURSOR>(::LoadIconW(nullptr, IDI_WARNING)); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(PaintedDlg, ScriptedDlg)
ON_WM_PAINT()
ON_WM_QUERYDRAGICON()
END_MESSAGE_MAP()

TEST_F(ControlsTest, paintingIsDoneOnceEitherWay)
{
    PaintedDlg dialog;
    ASSERT_TRUE(dialog.Create(IDD_PLAIN));
    for (const bool withContext : {true, false})
    {
        dialog.m_withContext = withContext;
        dialog.Invalidate();
        dialog.m_paints = 0;
        dialog.UpdateWindow();
        dialog.UpdateWindow();
        EXPECT_EQ(dialog.m_paints, 1) << withContext;
    }
    EXPECT_EQ(dialog.SendMessage(WM_QUERYDRAGICON), reinterpret_cast<LRESULT>(::LoadIconW(nullptr, IDI_WARNING)));
    dialog.DestroyWindow();
}
} // namespace
