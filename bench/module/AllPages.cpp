#include "bench/module/AllPages.h"

#include "GarmPC3Editor/Decisions/DeviceTree.h"
#include "bench/module/BareSheet.h"
#include "bench/module/OpenedSheet.h"
#include "resources/Resource.h"
#include "tests/support/operator/WindowTools.h"

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

void selectEach(HWND tree)
{
    for (const TreeItem& entry : itemsOf(tree))
    {
        ::SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(entry.item));
        paint(::GetParent(tree));
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
    showBothTabs(sheet, [](HWND page) { selectEach(::GetDlgItem(page, IDC_TREE)); });
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
    for (const TreeItem& entry : itemsOf(tree))
        texts.append(detailsOf(tree, entry.item).label) += L'\n';
    return texts;
}
} // namespace modulebench
