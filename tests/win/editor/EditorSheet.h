#pragma once

#include "GarmPC3Editor/Dialogs/GmPCfgDlg.h"
#include "tests/support/operator/SheetDriver.h"

#include <functional>

// The editor's sheet, for tests that want to know or do something on its own thread.
class EditorSheet : public GmPCfgDlg
{
public:
    static constexpr UINT runMessage = WM_APP + 0x51;

    GmTabGeneral& general() { return dynamic_cast<GmTabGeneral&>(*GetPage(0)); }

    // Shows the sheet while a script uses it; the script's second argument is the sheet's window. Answers what DoModal
    // did.
    INT_PTR show(const std::function<void(SheetDriver& user, HWND sheet)>& script)
    {
        INT_PTR result = 0;
        SheetDriver::run([&] { result = DoModal(); }, [&](SheetDriver& user) { script(user, user.awaitWindow()); });
        return result;
    }

    // Does something on the sheet's thread; for scripts.
    static void onItsThread(SheetDriver& user, HWND sheet, const std::function<void()>& work)
    {
        user.send(sheet, runMessage, 0, reinterpret_cast<LPARAM>(&work));
    }

    int m_helps = 0;

protected:
    void onHelp() override
    {
        GmPCfgDlg::onHelp();
        ++m_helps;
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != runMessage)
            return GmPCfgDlg::WindowProc(message, wParam, lParam);
        (*reinterpret_cast<const std::function<void()>*>(lParam))();
        return 0;
    }
};
