#pragma once

#include "tests/win/editor/EditorTest.h"
#include "tests/win/editor/HostDialog.h"
#include "tests/win/editor/ScriptedPrintDlg.h"

#include "spooler/DevModeView.h"

#include <optional>

// The dialog of the product family's own printers, opened from a host's dialog for a printer of a scripted room.
class VirtualPrinterTest : public EditorTest
{
protected:
    using Script = std::function<void(ScriptedPrintDlg&)>;

    VirtualPrinterTest();

    // Opens the host's dialog with the papers A4, A3 and Custom, A4 being selected.
    HostDialog& openHost(HostDialog::Controls controls = HostDialog::all);
    // Runs the dialog with a script; prepare may set more up before. Returns the result of DoModal.
    INT_PTR run(const Script& script, const std::function<void(ScriptedPrintDlg&)>& prepare = {});

    DEVMODEW& devMode() { return *m_block.get(); }
    // Runs the dialog with a script and presses OK. Returns the one device mode that the driver was given to complete.
    DEVMODEW confirm(const Script& script);
    // The device modes that the driver was given to complete, as it got them.
    std::vector<DEVMODEW> handedToDriver() const;

    static constexpr const WCHAR* printerName = L"R&D PDF";
    std::optional<HostDialog> host;
    room::Printer* printer = nullptr;

private:
    DevModeBlock m_block;
};
