#include "bench/module/BareSheet.h"

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

PROPSHEETPAGEW page(HINSTANCE resources, UINT dialog, UINT title)
{
    PROPSHEETPAGEW result = {};
    result.dwSize = sizeof result;
    result.dwFlags = PSP_USETITLE;
    result.hInstance = resources;
    result.pszTemplate = MAKEINTRESOURCEW(dialog);
    result.pszTitle = MAKEINTRESOURCEW(title);
    result.pfnDlgProc = &nothing;
    return result;
}
} // namespace

BareSheet::BareSheet()
    : m_resources(::LoadLibraryExW(besideThisProgram(OD_T("en\\GarmPC3EditorRes.dll")).c_str(), nullptr,
                                   LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE))
{
    if (!m_resources)
        throw std::runtime_error("the language library cannot be loaded");
}

BareSheet::~BareSheet()
{
    ::FreeLibrary(m_resources);
}

void BareSheet::show(HWND owner) const
{
    const PROPSHEETPAGEW pages[] = {page(m_resources, IDD_GENERAL, IDS_TAB_GENERAL),
                                    page(m_resources, IDD_DEVICE, IDS_TAB_DEVICE)};
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

HWND createBareDialog(HINSTANCE resources, UINT dialog, HWND parent)
{
    return ::CreateDialogParamW(resources, MAKEINTRESOURCEW(dialog), parent, &nothing, 0);
}
} // namespace modulebench
