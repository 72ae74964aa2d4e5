#pragma once

#include "plothost/PlotSession.h"
#include "plothost/windows/CheckWindows.h"

#include <exception>
#include <functional>
#include <memory>
#include <windows.h>

namespace plothost
{
// The Plot dialog: shows what a PlotSession decides and passes the user's actions to it. The editor is opened from it,
// so the module's dialogs find their owner and the controls that they expect here.
class PlotDialog
{
public:
    // All surroundings except startCheck, which the dialog provides.
    explicit PlotDialog(PlotSurroundings surroundings);
    PlotDialog(const PlotDialog&) = delete;
    PlotDialog& operator=(const PlotDialog&) = delete;

    // Shows it until the user closes it. Returns false with the system's error if it cannot be opened. An exception in
    // a handler closes it and is rethrown.
    bool run(HINSTANCE resources, DWORD& error);

private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM first, LPARAM second);

    INT_PTR handle(UINT message, WPARAM first);
    bool command(WORD control, WORD notification);
    void initialise();
    void chooseDevice();
    void editDevice();
    std::string startCheck(const OdString& deviceName, unsigned question);
    void guarded(const std::function<void()>& work);

    void show();
    void showDetails();
    PlotControls controls() const;
    HWND item(int id) const { return ::GetDlgItem(m_dialog, id); }

    PlotSurroundings m_surroundings;
    HINSTANCE m_resources = nullptr;
    HWND m_dialog = nullptr;
    bool m_opened = false;
    std::unique_ptr<CheckWindows> m_checks;
    std::unique_ptr<PlotSession> m_session;
    std::exception_ptr m_thrown;
};
} // namespace plothost
