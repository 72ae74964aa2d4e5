#include "GarmPC3Editor/Dialogs/CPDFPrintDlg.h"

#include "GarmPC3Editor/Decisions/ShownText.h"
#include "GarmPC3Editor/Decisions/VirtualPrinter.h"
#include "GarmPC3Editor/Dialogs/LanguageResources.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"
#include "resources/HostControls.h"
#include "resources/Resource.h"
#include "spooler/Handles.h"
#include "spooler/PrinterQueries.h"

#include <algorithm>
#include <cstring>

namespace
{
// Choices of the radio buttons.
constexpr int millimetres = 0;
constexpr int inches = 1;
constexpr int portrait = 0;
constexpr int landscape = 1;

LRESULT send(HWND control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return ::SendMessageW(control, message, wParam, lParam);
}

// Entries are cut to what a buffer of 256 characters holds.
CString entryText(HWND list, int index)
{
    constexpr int longest = 255;
    const LRESULT length = send(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length < 0)
        return {};
    CString text;
    // The list returns the text's length and then writes all of it, including the terminator.
    const LRESULT copied = send(list, CB_GETLBTEXT, static_cast<WPARAM>(index),
                                reinterpret_cast<LPARAM>(text.GetBuffer(static_cast<int>(length) + 1)));
    text.ReleaseBuffer(static_cast<int>(std::clamp<LRESULT>(copied, 0, length)));
    return text.Left(longest);
}

// As a 24-bit bitmap: the control would copy one with an alpha channel, and the copy would leak.
BitmapHandle loadBitmap(UINT id)
{
    return BitmapHandle(static_cast<HBITMAP>(
        ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
}
} // namespace

CPDFPrintDlg::CPDFPrintDlg(const GmMetaNode& meta, CWnd* page)
    : CDialog(IDD_VIRTUAL_PRINTER, page),
      m_icon(::LoadIconW(AfxGetResourceHandle(), MAKEINTRESOURCEW(IDI_SYSTEM_PRINTER))), m_meta(meta),
      m_hostDialog(::GetParent(::GetParent(::GetParent(page->m_hWnd))))
{
}

HWND CPDFPrintDlg::hostControl(int id) const
{
    return ::GetDlgItem(m_hostDialog, id);
}

void CPDFPrintDlg::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_CBIndex(pDX, IDC_PAPER, m_paper);
    DDX_CBIndex(pDX, IDC_QUALITY, m_quality);
    DDX_Text(pDX, IDC_PAPER_WIDTH, m_width);
    DDX_Text(pDX, IDC_PAPER_LENGTH, m_length);
    DDX_Radio(pDX, IDC_PORTRAIT, m_orientation);
    DDX_Radio(pDX, IDC_MILLIMETRES, m_unit);
}

BOOL CPDFPrintDlg::OnInitDialog()
{
    SetWindowText(CString(shownLine(m_printerName)) + L" - Properties");
    showOrientationImages();
    SendDlgItemMessage(IDC_PAPER, CB_RESETCONTENT);
    SendDlgItemMessage(IDC_QUALITY, CB_RESETCONTENT);
    if (const HWND hostPapers = hostControl(IDC_HOST_PAPER))
        copyHostPapers(hostPapers);
    fillQualities();
    SetIcon(m_icon, TRUE);
    SetIcon(m_icon, FALSE);
    // A field that is missing from the block reads as 0.
    const DEVMODEW fields = DevModeView(claimedBytes(*m_devMode)).fields();
    m_quality = qualityIndex(fields.dmPrintQuality);
    const HWND hostButton = hostControl(IDC_HOST_PORTRAIT);
    m_orientation = hostButton && send(hostButton, BM_GETCHECK) != BST_CHECKED ? landscape : portrait;

    // Without the host's list there is no paper, and so no custom one.
    const bool isCustom = selectedPaper().view() == customPaper;
    if (!isCustom)
        enableCustomSize(false);
    m_width = isCustom ? wholeMillimetres(fields.dmPaperWidth) : 0.0;
    m_length = isCustom ? wholeMillimetres(fields.dmPaperLength) : 0.0;
    m_unit = millimetres;
    UpdateData(FALSE);
    showLimits();
    // Last: the base class only copies the values into the controls, and they are set by now.
    return CDialog::OnInitDialog();
}

void CPDFPrintDlg::showOrientationImages()
{
    if (!m_portrait)
        m_portrait = loadBitmap(IDB_PORTRAIT);
    if (!m_landscape)
        m_landscape = loadBitmap(IDB_LANDSCAPE);
    const auto show = [this](int control, const BitmapHandle& bitmap)
    {
        return reinterpret_cast<HBITMAP>(
            SendDlgItemMessage(control, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap.get())));
    };
    m_previousPortrait = show(IDC_PORTRAIT_IMAGE, m_portrait);
    m_previousLandscape = show(IDC_LANDSCAPE_IMAGE, m_landscape);
}

BOOL CPDFPrintDlg::DestroyWindow()
{
    if (m_hWnd)
    {
        const auto giveBack = [this](int control, HBITMAP bitmap)
        { SendDlgItemMessage(control, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)); };
        giveBack(IDC_PORTRAIT_IMAGE, m_previousPortrait);
        giveBack(IDC_LANDSCAPE_IMAGE, m_previousLandscape);
    }
    m_portrait.reset();
    m_landscape.reset();
    return CDialog::DestroyWindow();
}

void CPDFPrintDlg::copyHostPapers(HWND hostPapers)
{
    const auto count = static_cast<int>(send(hostPapers, CB_GETCOUNT));
    for (int i = 0; i < count; ++i)
        SendDlgItemMessage(IDC_PAPER, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entryText(hostPapers, i).GetString()));
    m_paper = static_cast<int>(send(hostPapers, CB_GETCURSEL));
    SendDlgItemMessage(IDC_PAPER, CB_SETCURSEL, static_cast<WPARAM>(m_paper));
}

void CPDFPrintDlg::fillQualities() const
{
    constexpr UINT names[] = {IDS_QUALITY_72, IDS_QUALITY_150, IDS_QUALITY_300, IDS_QUALITY_600, IDS_QUALITY_1200};
    for (const UINT id : names)
        SendDlgItemMessage(IDC_QUALITY, CB_ADDSTRING, 0,
                           reinterpret_cast<LPARAM>(CString(languageTexts()(id)).GetString()));
}

void CPDFPrintDlg::enableCustomSize(bool enable) const
{
    for (const int id : {IDC_PAPER_LENGTH, IDC_PAPER_WIDTH, IDC_MILLIMETRES, IDC_INCHES})
        ::EnableWindow(::GetDlgItem(m_hWnd, id), enable ? TRUE : FALSE);
}

CString CPDFPrintDlg::selectedPaper() const
{
    return entryText(::GetDlgItem(m_hWnd, IDC_PAPER), m_paper);
}

bool CPDFPrintDlg::isCustomPaper() const
{
    return hostControl(IDC_HOST_PAPER) && selectedPaper().view() == customPaper;
}

bool CPDFPrintDlg::showNote(int note, double length) const
{
    const GmTexts texts = languageTexts();
    const bool isInches = m_unit == inches;
    const OdString limit =
        formatText(texts(isInches ? IDS_LIMIT_INCHES : IDS_LIMIT_MILLIMETRES), {longestLength(isInches)});
    const bool isPossible = isLengthPossible(length, isInches);
    SetDlgItemText(note, CString(isPossible ? limit : formatText(texts(IDS_LENGTH_TOO_LARGE), {limit})));
    return isPossible;
}

void CPDFPrintDlg::showLimit(int note) const
{
    showNote(note, 0.0);
}

void CPDFPrintDlg::showLimits() const
{
    showLimit(IDC_WIDTH_NOTE);
    showLimit(IDC_LENGTH_NOTE);
}

// The note about a length is outdated once another one is typed.

void CPDFPrintDlg::OnWidthTyped()
{
    showLimit(IDC_WIDTH_NOTE);
}

void CPDFPrintDlg::OnLengthTyped()
{
    showLimit(IDC_LENGTH_NOTE);
}

void CPDFPrintDlg::OnPaperChange()
{
    // Nothing changes if a length is not a number: the user could not correct it in a disabled field.
    if (!UpdateData(TRUE))
        return;
    enableCustomSize(selectedPaper().view() == customPaper);
    showLimits();
}

void CPDFPrintDlg::OnUnitChange()
{
    const int before = m_unit;
    if (!UpdateData(TRUE))
    {
        // Nothing was converted, so the buttons go back to the fields' unit.
        CheckRadioButton(IDC_MILLIMETRES, IDC_INCHES, before == inches ? IDC_INCHES : IDC_MILLIMETRES);
        return;
    }
    if (m_unit == millimetres && before == inches)
        showLengths(m_width * millimetresPerInch, m_length * millimetresPerInch);
    else if (m_unit != millimetres && before == millimetres)
        showLengths(m_width / millimetresPerInch, m_length / millimetresPerInch);
    showLimits();
}

void CPDFPrintDlg::showLengths(double width, double length) const
{
    SetDlgItemText(IDC_PAPER_WIDTH, CString(displayedLength(width)));
    SetDlgItemText(IDC_PAPER_LENGTH, CString(displayedLength(length)));
}

void CPDFPrintDlg::OnOK()
{
    if (!UpdateData(TRUE) || (isCustomPaper() && !checkLengths()))
        return;
    chooseInHost();
    writeDevMode();
    completeByDriver();
    EndDialog(IDOK);
}

// A device mode has 16 bits for them: longer ones would wrap.
bool CPDFPrintDlg::checkLengths() const
{
    const bool widthFits = showNote(IDC_WIDTH_NOTE, m_width);
    const bool lengthFits = showNote(IDC_LENGTH_NOTE, m_length);
    if (widthFits && lengthFits)
        return true;
    const HWND field = ::GetDlgItem(m_hWnd, widthFits ? IDC_PAPER_LENGTH : IDC_PAPER_WIDTH);
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(field), TRUE);
    return false;
}

void CPDFPrintDlg::chooseInHost() const
{
    if (const HWND hostPapers = hostControl(IDC_HOST_PAPER))
        send(hostPapers, CB_SETCURSEL, static_cast<WPARAM>(m_paper));
    if (!hostControl(IDC_HOST_PORTRAIT))
        return;
    ::CheckDlgButton(m_hostDialog, IDC_HOST_PORTRAIT, m_orientation == landscape ? BST_UNCHECKED : BST_CHECKED);
    ::CheckDlgButton(m_hostDialog, IDC_HOST_LANDSCAPE, m_orientation == landscape ? BST_CHECKED : BST_UNCHECKED);
}

void CPDFPrintDlg::writeDevMode()
{
    GmVirtualPrinterChoice choice;
    choice.qualityIndex = m_quality;
    if (hostControl(IDC_HOST_PORTRAIT))
        choice.landscape = m_orientation == landscape;
    if (isCustomPaper())
    {
        choice.width = m_width;
        choice.length = m_length;
        choice.inches = m_unit == inches;
    }
    else
    {
        const OdString paper = hostControl(IDC_HOST_PAPER) ? selectedPaper().toOdString() : OdString();
        // A missing code becomes 65535.
        choice.paperCode = [this, paper](const DEVMODEW& devMode)
        {
            const auto ask = [&] { return paperCodeForName(m_printerName, paper.view(), &devMode); };
            return static_cast<short>(answerOnThrow(-1, ask));
        };
    }
    applyVirtualPrinterChoice(choice, *m_devMode);
}

// If the printer cannot be opened or its driver refuses, the block stays as written.
void CPDFPrintDlg::completeByDriver()
{
    const std::span<const BYTE> bytes = claimedBytes(*m_devMode);
    const auto ask = [&]
    {
        const PrinterHandle printer = openPrinter(m_printerName.c_str());
        return printer
                   ? mergeDevMode(nullptr, printer.get(), m_printerName.c_str(), bytes, DM_IN_BUFFER | DM_OUT_BUFFER)
                   : DevModeMerge{};
    };
    const DevModeMerge merge = answerOnThrow(DevModeMerge{}, ask);
    const DevModeView completed = merge.block.view();
    if (merge.result == IDOK && completed && completed.bytes().size() <= bytes.size())
        std::memcpy(m_devMode, completed.bytes().data(), completed.bytes().size());
}

void CPDFPrintDlg::OnPaint()
{
    if (!IsIconic())
    {
        CDialog::OnPaint();
        return;
    }
    const CPaintDC dc(this);
    SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc()));
    RECT client = {};
    GetClientRect(&client);
    dc.DrawIcon((client.right - ::GetSystemMetrics(SM_CXICON) + 1) / 2,
                (client.bottom - ::GetSystemMetrics(SM_CYICON) + 1) / 2, m_icon);
}

HCURSOR CPDFPrintDlg::OnQueryDragIcon()
{
    return m_icon;
}

BEGIN_MESSAGE_MAP(CPDFPrintDlg, CDialog)
ON_WM_PAINT()
ON_WM_QUERYDRAGICON()
ON_CBN_SELCHANGE(IDC_PAPER, &CPDFPrintDlg::OnPaperChange)
ON_EN_CHANGE(IDC_PAPER_WIDTH, &CPDFPrintDlg::OnWidthTyped)
ON_EN_CHANGE(IDC_PAPER_LENGTH, &CPDFPrintDlg::OnLengthTyped)
ON_BN_CLICKED(IDC_MILLIMETRES, &CPDFPrintDlg::OnUnitChange)
ON_BN_CLICKED(IDC_INCHES, &CPDFPrintDlg::OnUnitChange)
END_MESSAGE_MAP()
