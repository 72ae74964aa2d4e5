#pragma once

#include "win32/Win32.h"

namespace modulebench
{
// A property sheet of the system with the editor's two pages, and nothing behind them: no code of the module is in it.
class BareSheet
{
public:
    // Loads the English language library. Throws std::runtime_error.
    BareSheet();
    ~BareSheet();
    BareSheet(const BareSheet&) = delete;
    BareSheet& operator=(const BareSheet&) = delete;

    // Shows it, and returns when it is closed. Throws std::runtime_error when it cannot be shown.
    void show(HWND owner) const;
    // The same, with what the editor shows in its pages when it opens.
    void showFilled(HWND owner) const;

    HINSTANCE resources() const noexcept { return m_resources; }

private:
    HMODULE m_resources;
};

// A dialog of a template alone, as a child of the parent.
HWND createBareDialog(HINSTANCE resources, UINT dialog, HWND parent);
} // namespace modulebench
