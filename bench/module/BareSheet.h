#pragma once

#include "win32/Win32.h"

namespace modulebench
{
// A property sheet of the system with the templates of the editor's two pages and no code of the module.
class BareSheet
{
public:
    // Loads the English language library. Throws std::runtime_error.
    BareSheet();
    ~BareSheet();
    BareSheet(const BareSheet&) = delete;
    BareSheet& operator=(const BareSheet&) = delete;

    // Shows the sheet and returns when it is closed. Throws std::runtime_error if it cannot be shown.
    void show(HWND owner) const;
    // The same, filled with what the editor shows on its pages when it opens.
    void showFilled(HWND owner) const;

    HINSTANCE resources() const noexcept { return m_resources; }

private:
    HMODULE m_resources;
};

// A dialog that consists of its template alone, as a child of the parent.
HWND createBareDialog(HINSTANCE resources, UINT dialog, HWND parent);
} // namespace modulebench
