#pragma once

#include "mfc/CWnd.h"
#include "resources/HostControls.h"

#include <string>
#include <vector>

// A host's dialog as the virtual printers' dialog looks for it: a paper list and two orientation buttons, each of which
// may be missing. The windows between it and a page of the editor are there too.
class HostDialog
{
public:
    enum Controls
    {
        all,
        noPapers,
        noOrientation,
        none,
        noDialog, // the sheet is owned by no window
    };

    explicit HostDialog(Controls controls = all);
    ~HostDialog();
    HostDialog(const HostDialog&) = delete;
    HostDialog& operator=(const HostDialog&) = delete;

    HWND window() const noexcept { return m_window; }
    HWND papers() const { return ::GetDlgItem(m_window, IDC_HOST_PAPER); }
    void addPaper(const std::wstring& name) const;
    void selectPaper(int index) const { ::SendMessageW(papers(), CB_SETCURSEL, static_cast<WPARAM>(index), 0); }
    int selectedPaper() const { return static_cast<int>(::SendMessageW(papers(), CB_GETCURSEL, 0, 0)); }
    void checkLandscape(bool landscape) const;
    bool isPortraitChecked() const { return ::IsDlgButtonChecked(m_window, IDC_HOST_PORTRAIT) == BST_CHECKED; }
    bool isLandscapeChecked() const { return ::IsDlgButtonChecked(m_window, IDC_HOST_LANDSCAPE) == BST_CHECKED; }

    // The page: inside a tab, inside a sheet that the host's dialog owns.
    CWnd& page() noexcept { return m_page; }
    HWND sheet() const noexcept { return m_sheet; }

private:
    HWND m_window;
    HWND m_sheet;
    CWnd m_page;
};
