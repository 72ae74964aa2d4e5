#include "bench/module/BareSheet.h"

#include "bench/module/FilledPages.h"
#include "bench/module/Places.h"
#include "resources/Resource.h"

#include <prsht.h>
#include <stdexcept>

namespace modulebench
{
namespace
{
INT_PTR CALLBACK nothing(HWND /*page*/, UINT /*message*/, WPARAM /*first*/, LPARAM /*second*/) noexcept
{
    return FALSE;
}

PROPSHEETPAGEW page(HINSTANCE resources, UINT dialog, UINT title, DLGPROC procedure)
{
    PROPSHEETPAGEW result = {};
    result.dwSize = sizeof result;
    result.dwFlags = PSP_USETITLE;
    result.hInstance = resources;
    result.pszTemplate = MAKEINTRESOURCEW(dialog);
    result.pszTitle = MAKEINTRESOURCEW(title);
    result.pfnDlgProc = procedure;
    result.lParam = reinterpret_cast<LPARAM>(resources);
    return result;
}

void showSheet(HINSTANCE resources, HWND owner, DLGPROC general, DLGPROC device)
{
    const PROPSHEETPAGEW pages[] = {page(resources, IDD_GENERAL, IDS_TAB_GENERAL, general),
                                    page(resources, IDD_DEVICE, IDS_TAB_DEVICE, device)};
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW;
    header.hwndParent = owner;
    header.hInstance = ::GetModuleHandleW(nullptr);
    header.pszCaption = L"Bare";
    header.nPages = 2;
    header.ppsp = pages;
    if (::PropertySheetW(&header) < 0)
        throw std::runtime_error("the system shows no property sheet");
}
} // namespace

BareSheet::BareSheet()
    : m_resources(::LoadLibraryExW(besideThisProgram(OD_T("en\\GarmPC3EditorRes.dll")).c_str(), nullptr,
                                   LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE))
{
    if (!m_resources)
        throw std::runtime_error("the language library cannot be loaded");
}

void BareSheet::show(HWND owner) const
{
    showSheet(m_resources.get(), owner, &nothing, &nothing);
}

void BareSheet::showFilled(HWND owner) const
{
    showSheet(m_resources.get(), owner, &fillGeneralPage, &fillDevicePage);
}

HWND createBareDialog(HINSTANCE resources, UINT dialog, HWND parent)
{
    return ::CreateDialogParamW(resources, MAKEINTRESOURCEW(dialog), parent, &nothing, 0);
}
} // namespace modulebench
