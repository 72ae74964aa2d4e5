#include "mfc/Ddx.h"

#include "tests/win/mfc/BoxAnswerer.h"
#include "tests/win/mfc/DialogTest.h"

#include "mfc/AfxModuleState.h"
#include "mfc/CEdit.h"
#include "mfc/CInvalidArgException.h"
#include "mfc/CUserException.h"

namespace
{
// A modeless dialog with one control of each kind and the exchange that a test sets.
class DdxTest : public DialogTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dialog.Create(IDD_EXCHANGE));
        for (const wchar_t* text : {L"zero", L"one", L"two"})
            m_dialog.SendDlgItemMessage(IDC_LIST, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    void TearDown() override
    {
        m_dialog.DestroyWindow();
        DialogTest::TearDown();
    }

    CString textOf(int id) const
    {
        CString text;
        m_dialog.GetDlgItemText(id, text);
        return text;
    }

    ScriptedDlg m_dialog;
};

TEST_F(DdxTest, updateDataWithoutAWindowReturnsTrue)
{
    ScriptedDlg dialog;
    int exchanges = 0;
    dialog.m_exchange = [&](CDataExchange*) { ++exchanges; };
    EXPECT_EQ(dialog.UpdateData(TRUE), TRUE);
    EXPECT_EQ(dialog.UpdateData(FALSE), TRUE);
    EXPECT_EQ(exchanges, 0);
}

TEST_F(DdxTest, directionIsArgumentAndTrueByDefault)
{
    std::vector<BOOL> directions;
    m_dialog.m_exchange = [&](CDataExchange* pDX)
    {
        EXPECT_EQ(pDX->m_pDlgWnd, &m_dialog);
        directions.push_back(pDX->m_bSaveAndValidate);
    };
    m_dialog.UpdateData();
    m_dialog.UpdateData(FALSE);
    EXPECT_EQ(directions, (std::vector<BOOL>{TRUE, FALSE}));
}

TEST_F(DdxTest, textGoesBothWaysWhole)
{
    CString value(L'x', 40000);
    m_dialog.SendDlgItemMessage(IDC_TEXT, EM_LIMITTEXT, 100000);
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_TEXT, value); };
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(textOf(IDC_TEXT).GetLength(), 40000);
    value = L"lost?";
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(value, CString(L'x', 40000));
    m_dialog.SetDlgItemText(IDC_TEXT, L"");
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(value, L"");
}

TEST_F(DdxTest, loadingTextThatIsThereKeepsModifiedFlag)
{
    CString value = L"same";
    m_dialog.SetDlgItemText(IDC_TEXT, L"same");
    m_dialog.SendDlgItemMessage(IDC_TEXT, EM_SETMODIFY, TRUE);
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_TEXT, value); };
    m_dialog.UpdateData(FALSE);
    EXPECT_EQ(m_dialog.SendDlgItemMessage(IDC_TEXT, EM_GETMODIFY), TRUE);
    value = L"other";
    m_dialog.UpdateData(FALSE);
    EXPECT_EQ(m_dialog.SendDlgItemMessage(IDC_TEXT, EM_GETMODIFY), FALSE);
}

TEST_F(DdxTest, numbersAreShownWithUpToFifteenDigits)
{
    struct Case
    {
        double value;
        const wchar_t* text;
    };
    double value = 0;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NUMBER, value); };
    for (const Case& each :
         {Case{0, L"0"}, Case{210, L"210"}, Case{8.27, L"8.27"}, Case{-1.5, L"-1.5"}, Case{0.1 + 0.2, L"0.3"},
          Case{123456789012345, L"123456789012345"}, Case{2.0 / 3, L"0.666666666666667"}, Case{1e20, L"1e+20"}})
    {
        value = each.value;
        EXPECT_TRUE(m_dialog.UpdateData(FALSE));
        EXPECT_EQ(textOf(IDC_NUMBER), each.text);
    }
}

TEST_F(DdxTest, numbersAreTakenWithBlanksSignAndExponent)
{
    struct Case
    {
        const wchar_t* text;
        double value;
    };
    double value = 0;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NUMBER, value); };
    for (const Case& each : {Case{L"297", 297}, Case{L"  8.27 ", 8.27}, Case{L"-0.5", -0.5}, Case{L"+3", 3},
                             Case{L".5", 0.5}, Case{L"5.", 5}, Case{L"1e3", 1000}})
    {
        value = -99;
        m_dialog.SetDlgItemText(IDC_NUMBER, each.text);
        EXPECT_TRUE(m_dialog.UpdateData(TRUE));
        EXPECT_EQ(value, each.value);
    }
}

// The user's decimal sign for the scope.
class DecimalSign
{
public:
    explicit DecimalSign(const wchar_t* sign)
    {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, m_before, 8);
        EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign));
    }
    ~DecimalSign() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, m_before); }
    DecimalSign(const DecimalSign&) = delete;
    DecimalSign& operator=(const DecimalSign&) = delete;

private:
    WCHAR m_before[8] = {};
};

TEST_F(DdxTest, pointAndLocalDecimalSignAreAccepted)
{
    double value = 0;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NUMBER, value); };
    const DecimalSign sign(L",");
    for (const wchar_t* text : {L"8,27", L"8.27"})
    {
        value = 0;
        m_dialog.SetDlgItemText(IDC_NUMBER, text);
        EXPECT_TRUE(m_dialog.UpdateData(TRUE)) << CString(text);
        EXPECT_EQ(value, 8.27) << CString(text);
    }
    m_dialog.UpdateData(FALSE);
    EXPECT_EQ(textOf(IDC_NUMBER), L"8.27") << "what is shown must be taken back by everyone";
}

TEST_F(DdxTest, invalidNumberShowsTheStandardMessage)
{
    const DecimalSign sign(L".");
    double value = 33;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NUMBER, value); };
    for (const wchar_t* text :
         {L"", L"  ", L"abc", L"1x", L"1 2", L"1,5", L"1.5.5", L"--1", L"+-1", L"nan", L"inf", L"1e999", L"\x661"})
    {
        m_dialog.SetDlgItemText(IDC_NUMBER, text);
        ::SetFocus(::GetDlgItem(m_dialog, IDOK));
        BoxAnswerer answerer;
        EXPECT_EQ(m_dialog.UpdateData(TRUE), FALSE) << CString(text);
        ASSERT_EQ(answerer.boxes().size(), 1U) << CString(text);
        EXPECT_EQ(answerer.boxes()[0].text, L"A number, please.");
        EXPECT_EQ(answerer.boxes()[0].caption, L"Exchange");
        EXPECT_EQ(answerer.boxes()[0].owner, m_dialog.m_hWnd);
        EXPECT_EQ(value, 33) << CString(text);
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(m_dialog, IDC_NUMBER)) << CString(text);
        DWORD from = 99;
        DWORD to = 99;
        m_dialog.SendDlgItemMessage(IDC_NUMBER, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                                    reinterpret_cast<LPARAM>(&to));
        EXPECT_EQ(from, 0U);
        EXPECT_EQ(to, CString(text).view().size()) << "all of the wrong text is selected, to be typed over";
    }
}

TEST_F(DdxTest, withoutStringInLibraryMessageIsEnglish)
{
    double value = 0;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NUMBER, value); };
    m_dialog.SetDlgItemText(IDC_NUMBER, L"x");
    AfxSetResourceHandle(::GetModuleHandleW(nullptr));
    BoxAnswerer answerer;
    EXPECT_FALSE(m_dialog.UpdateData(TRUE));
    ASSERT_EQ(answerer.boxes().size(), 1U);
    EXPECT_EQ(answerer.boxes()[0].text, L"Please enter a number.");
}

TEST_F(DdxTest, aFailedExchangeStopsWhereItFails)
{
    double number = 0;
    CString before = L"?";
    CString after = L"kept";
    m_dialog.SetDlgItemText(IDC_TEXT, L"text");
    m_dialog.SetDlgItemText(IDC_NUMBER, L"x");
    m_dialog.m_exchange = [&](CDataExchange* pDX)
    {
        DDX_Text(pDX, IDC_TEXT, before);
        DDX_Text(pDX, IDC_NUMBER, number);
        DDX_Text(pDX, IDC_TEXT, after);
    };
    BoxAnswerer answerer;
    EXPECT_FALSE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(before, L"text");
    EXPECT_EQ(after, L"kept");
}

TEST_F(DdxTest, okWithAnInvalidValueStaysOpen)
{
    ScriptedDlg dialog(IDD_EXCHANGE);
    double number = 1;
    dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NUMBER, number); };
    std::size_t boxes = 0;
    const auto correct = [](ScriptedDlg& dlg)
    {
        EXPECT_TRUE(dlg.IsWindowVisible());
        dlg.SetDlgItemText(IDC_NUMBER, L"2.5");
        dlg.SendDlgItemMessage(IDOK, BM_CLICK);
    };
    dialog.addStep(
        [&](auto& dlg)
        {
            BoxAnswerer answerer;
            dlg.SetDlgItemText(IDC_NUMBER, L"x");
            dlg.SendDlgItemMessage(IDOK, BM_CLICK);
            boxes = answerer.boxes().size();
            dlg.addStep(correct);
        });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(boxes, 1U);
    EXPECT_EQ(number, 2.5);
}

TEST_F(DdxTest, unloadableValueEndsTheDialog)
{
    ScriptedDlg dialog(IDD_EXCHANGE);
    dialog.m_exchange = [](CDataExchange* pDX) { pDX->Fail(); };
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST_F(DdxTest, otherExceptionsLeaveUpdateData)
{
    m_dialog.m_exchange = [](CDataExchange*) { AfxThrowInvalidArgException(); };
    EXPECT_THROW(m_dialog.UpdateData(TRUE), CInvalidArgException*);
    m_dialog.m_exchange = [](CDataExchange*) { AfxThrowUserException(); };
    EXPECT_EQ(m_dialog.UpdateData(TRUE), FALSE);
}

TEST_F(DdxTest, controlThatIsNotThereIsInvalidArgument)
{
    CString text;
    double number = 0;
    int index = 0;
    CWnd control;
    const std::function<void(CDataExchange*)> exchanges[] = {
        [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_MISSING, text); },
        [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_MISSING, number); },
        [&](CDataExchange* pDX) { DDX_CBIndex(pDX, IDC_MISSING, index); },
        [&](CDataExchange* pDX) { DDX_Radio(pDX, IDC_MISSING, index); },
        [&](CDataExchange* pDX) { DDX_Control(pDX, IDC_MISSING, control); },
    };
    for (const auto& exchange : exchanges)
    {
        m_dialog.m_exchange = exchange;
        EXPECT_THROW(m_dialog.UpdateData(TRUE), CInvalidArgException*);
        EXPECT_THROW(m_dialog.UpdateData(FALSE), CInvalidArgException*);
    }
}

TEST_F(DdxTest, theSelectedEntryGoesBothWays)
{
    int index = 2;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_CBIndex(pDX, IDC_LIST, index); };
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(m_dialog.SendDlgItemMessage(IDC_LIST, CB_GETCURSEL), 2);
    m_dialog.SendDlgItemMessage(IDC_LIST, CB_SETCURSEL, 1);
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(index, 1);
    m_dialog.SendDlgItemMessage(IDC_LIST, CB_SETCURSEL, static_cast<WPARAM>(-1));
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(index, -1);
}

TEST_F(DdxTest, checkedButtonIsExchangedBothWays)
{
    int choice = 1;
    m_dialog.CheckDlgButton(IDC_OTHER_GROUP, BST_CHECKED);
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Radio(pDX, IDC_FIRST_RADIO, choice); };
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(m_dialog.GetCheckedRadioButton(IDC_FIRST_RADIO, IDC_THIRD_RADIO), IDC_SECOND_RADIO);
    EXPECT_EQ(m_dialog.IsDlgButtonChecked(IDC_OTHER_GROUP), static_cast<UINT>(BST_CHECKED)) << "another group";

    m_dialog.SendDlgItemMessage(IDC_THIRD_RADIO, BM_CLICK);
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(choice, 2);

    choice = -1;
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(m_dialog.GetCheckedRadioButton(IDC_FIRST_RADIO, IDC_THIRD_RADIO), 0);
    choice = 5;
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(choice, -1);
}

TEST_F(DdxTest, controlsBecomeObjectsAtFirstExchangeOnly)
{
    CEdit edit;
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, IDC_TEXT, edit); };
    EXPECT_TRUE(m_dialog.UpdateData(FALSE));
    EXPECT_EQ(edit.m_hWnd, ::GetDlgItem(m_dialog, IDC_TEXT));
    EXPECT_EQ(m_dialog.GetDlgItem(IDC_TEXT), &edit);
    EXPECT_TRUE(m_dialog.UpdateData(TRUE));
    EXPECT_EQ(edit.m_hWnd, ::GetDlgItem(m_dialog, IDC_TEXT));
    edit.SetWindowText(L"works on");
    EXPECT_EQ(textOf(IDC_TEXT), L"works on");
    m_dialog.DestroyWindow();
    EXPECT_EQ(edit.m_hWnd, nullptr) << "the object outlived its control";
}

TEST_F(DdxTest, aControlHasOneObject)
{
    CEdit first;
    CEdit second;
    ASSERT_TRUE(first.SubclassDlgItem(IDC_TEXT, &m_dialog));
    m_dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, IDC_TEXT, second); };
    EXPECT_THROW(m_dialog.UpdateData(FALSE), CInvalidArgException*);
    EXPECT_EQ(second.m_hWnd, nullptr);
    m_dialog.DestroyWindow();
}

// Counts the edit control's notifications.
class ChangeCounter : public ScriptedDlg
{
public:
    using ScriptedDlg::ScriptedDlg;
    int m_changes = 0;

protected:
    void onChange() { ++m_changes; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ChangeCounter, ScriptedDlg)
ON_EN_CHANGE(IDC_TEXT, &ChangeCounter::onChange)
END_MESSAGE_MAP()

TEST_F(DdxTest, notificationsOfTheExchangeItselfAreIgnored)
{
    ChangeCounter dialog;
    ASSERT_TRUE(dialog.Create(IDD_EXCHANGE));
    CString value = L"loaded";
    dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_TEXT, value); };
    dialog.UpdateData(FALSE);
    EXPECT_EQ(dialog.m_changes, 0);
    dialog.SetDlgItemText(IDC_TEXT, L"by hand");
    EXPECT_EQ(dialog.m_changes, 1);
    dialog.m_exchange = [](CDataExchange*) { AfxThrowInvalidArgException(); };
    EXPECT_THROW(dialog.UpdateData(FALSE), CInvalidArgException*);
    dialog.SetDlgItemText(IDC_TEXT, L"after a failure");
    EXPECT_EQ(dialog.m_changes, 2);
    dialog.DestroyWindow();
}
} // namespace
