#include "bench/module/FilledPages.h"

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "bench/module/BareCalls.h"
#include "bench/module/BareSheet.h"
#include "resources/Resource.h"
#include "win32/windows/SystemHandles.h"

#include <commctrl.h>
#include <iterator>
#include <string>

namespace modulebench
{
namespace
{
struct PageText
{
    int control;
    const wchar_t* text;
};
constexpr PageText texts[] = {{IDC_FILE_NAME, L"load.pc3"},
                              {IDC_DRIVER, L"System printer"},
                              {IDC_DRIVER_FILE, L"gdiplot7.hdi"},
                              {IDC_VERSION, L"Version: not specified"},
                              {IDC_PORT, L"Port: LPR:DesignJet-3500CP"}};

// The labels of the tree's entries in their order, with the values of a new configuration. They make the tree wider
// than its window, so that it has a scroll bar to paint.
constexpr const wchar_t* labels[] = {L"load.pc3",
                                     L"Media",
                                     L"Source and size <Size: US Letter>",
                                     L"Media destination <Default>",
                                     L"Collating <Not collated>",
                                     L"Graphics",
                                     L"Vector graphics <Colors: 1, depth 32> <Resolution: 300x300> <Dithering: None>",
                                     L"Raster graphics <Preference: 50> <Raster images: 6> <OLE objects: 6>",
                                     L"TrueType text <As text>",
                                     L"Merge control <Lines overwrite>",
                                     L"Custom properties"};
static_assert(std::size(labels) == static_cast<std::size_t>(std::ranges::count_if(deviceRows, [](const GmDeviceRow& row)
                                                                                  { return row.label != nullptr; })));

HINSTANCE libraryOf(LPARAM page)
{
    return reinterpret_cast<HINSTANCE>(reinterpret_cast<const PROPSHEETPAGEW*>(page)->lParam);
}

IconHandle iconOf(HINSTANCE resources, UINT id, int size)
{
    return IconHandle(
        static_cast<HICON>(::LoadImageW(resources, MAKEINTRESOURCEW(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

void addTips(HWND page)
{
    const HWND tips =
        ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0,
                          page, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    for (const PageText& text : texts)
    {
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = page;
        tool.uId = reinterpret_cast<UINT_PTR>(::GetDlgItem(page, text.control));
        tool.lpszText = const_cast<wchar_t*>(text.text);
        ::SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void fillGeneral(HWND page, HINSTANCE resources)
{
    for (const PageText& text : texts)
        ::SetDlgItemTextW(page, text.control, text.text);
    ::SendDlgItemMessageW(
        page, IDC_DRIVER_ICON, STM_SETICON,
        reinterpret_cast<WPARAM>(iconOf(resources, IDI_SYSTEM_PRINTER, ::GetSystemMetrics(SM_CXICON)).release()), 0);
    for (const std::wstring& name : namesOfPrinters())
        ::SendDlgItemMessageW(page, IDC_PRINTERS, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    ::SendDlgItemMessageW(page, IDC_PRINTERS, CB_SETCURSEL, 0, 0);
    ::EnableWindow(::GetDlgItem(page, IDC_PRINTERS), FALSE);
    addTips(page);
}

HIMAGELIST entryPictures(HINSTANCE resources)
{
    const int size = ::GetSystemMetrics(SM_CXSMICON);
    const HIMAGELIST images = ::ImageList_Create(size, size, ILC_MASK | ILC_COLOR24, 0, 1);
    for (std::int32_t type = 0; type < deviceRowCount; ++type)
    {
        const IconHandle icon = iconOf(resources, deviceRow(type)->icon, size);
        ::ImageList_ReplaceIcon(images, -1, icon.get());
    }
    return images;
}

void insertEntries(HWND tree)
{
    HTREEITEM items[deviceRowCount] = {};
    const auto* label = std::begin(labels);
    for (const GmDeviceRow& row : deviceRows)
    {
        if (!row.label)
            continue;
        TVINSERTSTRUCTW insert = {};
        insert.hParent = row.parent ? items[*row.parent] : TVI_ROOT;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
        insert.item.pszText = const_cast<wchar_t*>(*label++);
        insert.item.iImage = row.type;
        insert.item.iSelectedImage = row.type;
        items[row.type] =
            reinterpret_cast<HTREEITEM>(::SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    }
    // As in the editor: the entries of media are visible, those of graphics are not.
    ::SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(items[eMedia]));
    ::SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(items[eCustomProp]));
    ::SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(items[eRoot]));
}

void fillDevice(HWND page, HINSTANCE resources)
{
    const HWND tree = ::GetDlgItem(page, IDC_TREE);
    ::SendMessageW(tree, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(entryPictures(resources)));
    insertEntries(tree);

    const HWND shown = createBareDialog(resources, IDD_CUSTOM_PROP, page);
    RECT frame = {};
    ::GetWindowRect(::GetDlgItem(page, IDC_PAGE_FRAME), &frame);
    ::MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&frame), 2);
    ::SetWindowPos(shown, nullptr, frame.left, frame.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ::ShowWindow(shown, SW_SHOW);
}
} // namespace

INT_PTR CALLBACK fillGeneralPage(HWND page, UINT message, WPARAM /*first*/, LPARAM second) noexcept
{
    if (message == WM_INITDIALOG)
        fillGeneral(page, libraryOf(second));
    else if (message == WM_DESTROY)
        ::DestroyIcon(reinterpret_cast<HICON>(::SendDlgItemMessageW(page, IDC_DRIVER_ICON, STM_GETICON, 0, 0)));
    return FALSE;
}

INT_PTR CALLBACK fillDevicePage(HWND page, UINT message, WPARAM /*first*/, LPARAM second) noexcept
{
    if (message == WM_INITDIALOG)
        fillDevice(page, libraryOf(second));
    else if (message == WM_DESTROY)
        ::ImageList_Destroy(
            reinterpret_cast<HIMAGELIST>(::SendDlgItemMessageW(page, IDC_TREE, TVM_GETIMAGELIST, TVSIL_NORMAL, 0)));
    return FALSE;
}
} // namespace modulebench
