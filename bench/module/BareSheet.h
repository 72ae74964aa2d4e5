#pragma once

#include "win32/windows/SystemHandles.h"

namespace modulebench
{
// A property sheet of the system with the templates of the editor's two pages and no code of the module.
class BareSheet
{
public:
    // Loads the English language library. Throws std::runtime_error.
    BareSheet();

    // Shows the sheet and returns when it is closed. Throws std::runtime_error if it cannot be shown.
    void show(HWND owner) const;
    // The same, filled with what the editor shows on its pages when it opens.
    void showFilled(HWND owner) const;

    HINSTANCE resources() const noexcept { return m_resources.get(); }

private:
    LibraryHandle m_resources;
};

// A dialog that consists of its template alone, as a child of the parent.
HWND createBareDialog(HINSTANCE resources, UINT dialog, HWND parent);
} // namespace modulebench
