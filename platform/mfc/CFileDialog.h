#pragma once

#include "mfc/CString.h"
#include "mfc/CWnd.h"

#include <commdlg.h>
#include <vector>

// The system's dialog for the name of a file to open or save. It uses the newer dialog where available, otherwise, and
// if bVistaStyle is FALSE, the older one.
//
//     CFileDialog dialog(FALSE, L"pc3", path, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, filter, this);
//     dialog.m_ofn.lpstrInitialDir = folder;
//     if (dialog.DoModal() == IDOK)
//         ... dialog.GetPathName() ...
class CFileDialog
{
public:
    // defaultExtension: without a dot, appended to a name that has none of the filter's extensions. fileName: the
    // initial content of the name field, preceded by a folder if the dialog should start there. filter: pairs of text
    // and pattern, each followed by "|", with one more "|" at the end. All may be null.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCWSTR defaultExtension = nullptr, LPCWSTR fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCWSTR filter = nullptr,
                         CWnd* pParentWnd = nullptr, DWORD size = 0, BOOL bVistaStyle = TRUE);
    CFileDialog(const CFileDialog&) = delete;
    CFileDialog& operator=(const CFileDialog&) = delete;
    virtual ~CFileDialog() = default;

    // lpstrInitialDir, lpstrTitle and nFilterIndex may be set before DoModal. What they point to must outlive it. A
    // folder in the file name takes precedence over the initial one.
    OPENFILENAMEW m_ofn = {};

    // IDOK if the user chose a name, otherwise IDCANCEL. While the dialog is open, its owner is disabled: the parent's
    // top-level window, or without a parent the one in front. Rethrows what any window's handler threw meanwhile.
    virtual INT_PTR DoModal();

    // The chosen path; before that the name given to the constructor.
    CString GetPathName() const { return m_path; }
    // Without the folder.
    CString GetFileName() const;

private:
    INT_PTR runShellDialog(HWND owner, bool& shown);
    INT_PTR runCommonDialog(HWND owner);

    BOOL m_bOpenFileDialog;
    BOOL m_bVistaStyle;
    CString m_defaultExtension;
    CString m_path;
    std::vector<CString> m_filter; // text, pattern, text, pattern, ...
    CWnd* m_pParentWnd;
};
