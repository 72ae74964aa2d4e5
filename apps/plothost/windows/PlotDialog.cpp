#include "plothost/windows/PlotDialog.h"

#include "kernel/OdText.h"
#include "plothost/DevModeQuery.h"
#include "plothost/windows/PlotIds.h"

#include <algorithm>
#include <utility>

#include <commctrl.h>

namespace plothost
{
namespace
{
constexpr const wchar_t* columnTitles[] = {L"Field", L"Value", L"Meaning", L"Set"};

std::wstring wide(const std::string& utf8)
{
    return odFromUtf8(utf8);
}

std::optional<std::size_t> selected(HWND combo)
{
    const LRESULT index = ::SendMessageW(combo, CB_GETCURSEL, 0, 0);
    return index < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(index));
}

// Fills a list and makes its opened part as wide as its longest entry: names of printers and papers are long.
void fill(HWND combo, const std::vector<OdString>& entries, std::optional<std::size_t> choice)
{
    ::SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    const HDC device = ::GetDC(combo);
    const auto font = reinterpret_cast<HGDIOBJ>(::SendMessageW(combo, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font ? ::SelectObject(device, font) : nullptr;
    LONG widest = 0;
    for (const OdString& entry : entries)
    {
        ::SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
        SIZE extent = {};
        if (::GetTextExtentPoint32W(device, entry.c_str(), entry.getLength(), &extent))
            widest = std::max(widest, extent.cx);
    }
    if (before)
        ::SelectObject(device, before);
    ::ReleaseDC(combo, device);
    const int frame = ::GetSystemMetrics(SM_CXVSCROLL) + 4 * ::GetSystemMetrics(SM_CXEDGE);
    ::SendMessageW(combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest) + static_cast<WPARAM>(frame), 0);
    ::SendMessageW(combo, CB_SETCURSEL, choice ? static_cast<WPARAM>(*choice) : static_cast<WPARAM>(-1), 0);
}

// Each column is as wide as its content; the last one gets the rest, less the width of the scroll bar.
void fitColumns(HWND details)
{
    RECT frame = {};
    ::GetWindowRect(details, &frame);
    int rest = frame.right - frame.left - ::GetSystemMetrics(SM_CXVSCROLL) - 2 * ::GetSystemMetrics(SM_CXEDGE);
    const int last = static_cast<int>(std::size(columnTitles)) - 1;
    for (int column = 0; column < last; ++column)
    {
        ListView_SetColumnWidth(details, column, LVSCW_AUTOSIZE);
        // The width that the system returns for the title is too narrow on some systems.
        const int title = ListView_GetStringWidth(details, columnTitles[column]) + 8 * ::GetSystemMetrics(SM_CXEDGE);
        if (ListView_GetColumnWidth(details, column) < title)
            ListView_SetColumnWidth(details, column, title);
        rest -= ListView_GetColumnWidth(details, column);
    }
    ListView_SetColumnWidth(details, last, LVSCW_AUTOSIZE);
    if (ListView_GetColumnWidth(details, last) < rest)
        ListView_SetColumnWidth(details, last, rest);
}

// The program's icon as the title bar and the task switcher show it; shared, so it is not destroyed.
void setIcon(HWND dialog, HINSTANCE resources, WPARAM which, int width, int height)
{
    const HANDLE icon = ::LoadImageW(resources, MAKEINTRESOURCEW(IDI_PLOTHOST), IMAGE_ICON, ::GetSystemMetrics(width),
                                     ::GetSystemMetrics(height), LR_SHARED);
    ::SendMessageW(dialog, WM_SETICON, which, reinterpret_cast<LPARAM>(icon));
}
} // namespace

PlotDialog::PlotDialog(PlotSurroundings surroundings) : m_surroundings(std::move(surroundings))
{
    m_surroundings.startCheck = [this](const OdString& deviceName, unsigned question)
    { return startCheck(deviceName, question); };
}

bool PlotDialog::run(HINSTANCE resources, DWORD& error)
{
    INITCOMMONCONTROLSEX controlClasses = {sizeof(controlClasses), ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&controlClasses);
    m_resources = resources;
    m_opened = false;
    ::DialogBoxParamW(resources, MAKEINTRESOURCEW(IDD_PLOT), nullptr, &PlotDialog::procedure,
                      reinterpret_cast<LPARAM>(this));
    error = m_opened ? ERROR_SUCCESS : ::GetLastError();
    m_session.reset();
    m_checks.reset();
    if (m_thrown)
        std::rethrow_exception(std::exchange(m_thrown, nullptr));
    return m_opened;
}

INT_PTR CALLBACK PlotDialog::procedure(HWND dialog, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_INITDIALOG)
    {
        ::SetWindowLongPtrW(dialog, DWLP_USER, second);
        reinterpret_cast<PlotDialog*>(second)->m_dialog = dialog;
    }
    auto* const self = reinterpret_cast<PlotDialog*>(::GetWindowLongPtrW(dialog, DWLP_USER));
    return self ? self->handle(message, first) : FALSE;
}

INT_PTR PlotDialog::handle(UINT message, WPARAM first)
{
    switch (message)
    {
    case WM_INITDIALOG:
        m_opened = true;
        guarded([this] { initialise(); });
        return TRUE;
    case WM_COMMAND:
        return command(LOWORD(first), HIWORD(first));
    default:
        return FALSE;
    }
}

bool PlotDialog::command(WORD control, WORD notification)
{
    if (control == IDCANCEL)
    {
        // While the editor is open, this dialog cannot be closed: it owns the editor.
        if (!m_session || !m_session->isEditing())
            ::EndDialog(m_dialog, IDCANCEL);
        return true;
    }
    if (control == IDC_PLOT_DEVICE && notification == CBN_SELCHANGE)
        guarded([this] { chooseDevice(); });
    else if (control == IDC_PLOT_PROPERTIES && notification == BN_CLICKED)
        guarded([this] { editDevice(); });
    else
        return false;
    return true;
}

// Exceptions must not pass through the system's window procedures.
void PlotDialog::guarded(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (...)
    {
        m_thrown = std::current_exception();
        ::EndDialog(m_dialog, IDABORT);
    }
}

void PlotDialog::initialise()
{
    setIcon(m_dialog, m_resources, ICON_BIG, SM_CXICON, SM_CYICON);
    setIcon(m_dialog, m_resources, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
    const HWND details = item(IDC_PLOT_DETAILS);
    ListView_SetExtendedListViewStyle(details, LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    for (int i = 0; i < static_cast<int>(std::size(columnTitles)); ++i)
    {
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_SUBITEM;
        column.pszText = const_cast<wchar_t*>(columnTitles[i]);
        column.iSubItem = i;
        ListView_InsertColumn(details, i, &column);
    }
    ::CheckRadioButton(m_dialog, IDC_HOST_PORTRAIT, IDC_HOST_LANDSCAPE, IDC_HOST_PORTRAIT);

    m_checks = std::make_unique<CheckWindows>(
        [this](unsigned question, bool found)
        {
            guarded(
                [this, question, found]
                {
                    if (m_session->answer(question, found))
                        show();
                });
        });
    m_session = std::make_unique<PlotSession>(m_surroundings);
    show();
}

std::string PlotDialog::startCheck(const OdString& deviceName, unsigned question)
{
    const HWND window = m_checks->open(question);
    if (!window)
        return "cannot create a message window";
    std::string problem = startBackgroundCheck(deviceName, window);
    if (!problem.empty())
        m_checks->close(window);
    return problem;
}

void PlotDialog::chooseDevice()
{
    const auto device = selected(item(IDC_PLOT_DEVICE));
    if (!device)
        return;
    m_session->choose(*device);
    show();
}

void PlotDialog::editDevice()
{
    const std::string problem = m_session->edit([this] { return controls(); });
    show();
    if (!problem.empty())
        ::MessageBoxW(m_dialog, wide(problem).c_str(), L"Plot", MB_OK | MB_ICONWARNING);
}

PlotControls PlotDialog::controls() const
{
    PlotControls controls;
    const HWND papers = item(IDC_HOST_PAPER);
    if (const auto paper = selected(papers))
    {
        const LRESULT length = ::SendMessageW(papers, CB_GETLBTEXTLEN, *paper, 0);
        std::vector<OdChar> text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1);
        ::SendMessageW(papers, CB_GETLBTEXT, *paper, reinterpret_cast<LPARAM>(text.data()));
        controls.paper = OdString(text.data());
    }
    controls.landscape = ::IsDlgButtonChecked(m_dialog, IDC_HOST_LANDSCAPE) == BST_CHECKED;
    return controls;
}

void PlotDialog::show()
{
    const PlotView& view = m_session->view();
    std::vector<OdString> labels;
    for (const PlotDevice& device : view.devices)
        labels.push_back(device.label);
    fill(item(IDC_PLOT_DEVICE), labels, view.device);
    ::EnableWindow(item(IDC_PLOT_DEVICE), !labels.empty());
    ::EnableWindow(item(IDC_PLOT_PROPERTIES), view.device.has_value());
    ::SetDlgItemTextW(m_dialog, IDC_PLOT_STATE, wide(view.state).c_str());
    fill(item(IDC_HOST_PAPER), view.papers, view.paper);
    if (view.isKnown)
        ::CheckRadioButton(m_dialog, IDC_HOST_PORTRAIT, IDC_HOST_LANDSCAPE,
                           view.landscape ? IDC_HOST_LANDSCAPE : IDC_HOST_PORTRAIT);
    showDetails();
}

void PlotDialog::showDetails()
{
    const HWND details = item(IDC_PLOT_DETAILS);
    ::SendMessageW(details, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(details);
    int line = 0;
    for (const DetailRow& row : m_session->view().details)
    {
        LVITEMW entry = {};
        entry.iItem = line;
        ListView_InsertItem(details, &entry);
        int column = 0;
        for (const std::string* text : {&row.name, &row.value, &row.meaning, &row.flagged})
        {
            std::wstring cell = wide(*text);
            ListView_SetItemText(details, line, column, cell.data());
            ++column;
        }
        ++line;
    }
    // The arrow keys begin at the first line.
    ListView_SetItemState(details, 0, LVIS_FOCUSED, LVIS_FOCUSED);
    fitColumns(details);
    ::SendMessageW(details, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(details, nullptr, TRUE);
}
} // namespace plothost
