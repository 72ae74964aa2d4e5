#include "bench/module/AllPages.h"

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "bench/module/BareSheet.h"
#include "bench/module/OpenedSheet.h"
#include "resources/Resource.h"

#include <commctrl.h>
#include <cstddef>
#include <stdexcept>

namespace modulebench
{
namespace
{
constexpr bool hasPage(const GmDeviceRow& row) noexcept
{
    return row.dialog != 0;
}
constexpr auto treePages = std::ranges::count_if(deviceRows, &hasPage);

HTREEITEM next(HWND tree, WPARAM which, HTREEITEM item)
{
    return reinterpret_cast<HTREEITEM>(::SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

void selectEach(HWND tree, HTREEITEM item)
{
    for (; item; item = next(tree, TVGN_NEXT, item))
    {
        ::SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
        paint(::GetParent(tree));
        selectEach(tree, next(tree, TVGN_CHILD, item));
    }
}

void addTexts(std::wstring& texts, HWND tree, HTREEITEM item)
{
    for (; item; item = next(tree, TVGN_NEXT, item))
    {
        wchar_t text[260] = {};
        TVITEMW entry = {};
        entry.mask = TVIF_TEXT;
        entry.hItem = item;
        entry.pszText = text;
        entry.cchTextMax = static_cast<int>(std::size(text));
        ::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&entry));
        texts.append(text) += L'\n';
        addTexts(texts, tree, next(tree, TVGN_CHILD, item));
    }
}

std::ptrdiff_t dialogsIn(HWND page)
{
    std::ptrdiff_t count = 0;
    HWND dialog = nullptr;
    while ((dialog = ::FindWindowExW(page, dialog, L"#32770", nullptr)) != nullptr)
        ++count;
    return count;
}

template <class MakePages>
void showBothTabs(HWND sheet, MakePages makePages)
{
    paint(sheet);
    showTab(sheet, 1);
    paint(sheet);
    const HWND page = shownPage(sheet);
    makePages(page);
    if (dialogsIn(page) != treePages)
        throw std::runtime_error("not all pages of the device tree have been made");
    showTab(sheet, 0);
    paint(sheet);
}
} // namespace

void showAllPages(HWND sheet)
{
    showBothTabs(sheet,
                 [](HWND page)
                 {
                     const HWND tree = ::GetDlgItem(page, IDC_TREE);
                     selectEach(tree, next(tree, TVGN_ROOT, nullptr));
                 });
}

void showAllBarePages(HWND sheet, HINSTANCE resources)
{
    showBothTabs(sheet,
                 [resources](HWND page)
                 {
                     for (const GmDeviceRow& row : deviceRows)
                     {
                         if (!hasPage(row))
                             continue;
                         ::ShowWindow(createBareDialog(resources, row.dialog, page), SW_SHOW);
                         paint(page);
                     }
                 });
}

std::wstring textsOfTree(HWND sheet)
{
    std::wstring texts;
    const HWND tree = ::GetDlgItem(shownPage(sheet), IDC_TREE);
    addTexts(texts, tree, next(tree, TVGN_ROOT, nullptr));
    return texts;
}
} // namespace modulebench
