#include "tests/win/editor/VirtualPrinterTest.h"

#include <algorithm>
#include <array>

VirtualPrinterTest::VirtualPrinterTest()
{
    printer = &m_room.add({.name = printerName,
                           .driver = L"Virtual",
                           .port = L"PDF:",
                           .papers = {{8, L"A3"}, {9, L"A4"}, {300, L"Roll"}},
                           .driverExtra = 8});
    std::array<BYTE, sizeof(DEVMODEW) + 8> bytes = {};
    auto& dm = reinterpret_cast<DEVMODEW&>(bytes);
    dm.dmSize = sizeof(DEVMODEW);
    dm.dmDriverExtra = 8;
    dm.dmFields = DM_PRINTQUALITY | DM_COPIES | DM_COLOR;
    dm.dmPrintQuality = 300;
    m_block = DevModeBlock::copyOf(DevModeView(bytes));
}

HostDialog& VirtualPrinterTest::openHost(HostDialog::Controls controls)
{
    host.emplace(controls);
    if (host->papers())
    {
        for (const auto* name : {L"A4", L"A3", L"Custom"})
            host->addPaper(name);
        host->selectPaper(0);
    }
    return *host;
}

INT_PTR VirtualPrinterTest::run(const Script& script, const std::function<void(ScriptedPrintDlg&)>& prepare)
{
    if (!host)
        openHost();
    ScriptedPrintDlg dialog(GmMetaNode(), &host->page());
    dialog.m_devMode = &devMode();
    dialog.m_printerName = printerName;
    dialog.m_script = script;
    if (prepare)
        prepare(dialog);
    return dialog.DoModal();
}

DEVMODEW VirtualPrinterTest::confirm(const Script& script)
{
    const auto scriptAndOk = [&script](ScriptedPrintDlg& dialog)
    {
        script(dialog);
        dialog.click(IDOK);
    };
    EXPECT_EQ(run(scriptAndOk), IDOK);
    const std::vector<DEVMODEW> handed = handedToDriver();
    EXPECT_EQ(handed.size(), 1U);
    return handed.empty() ? DEVMODEW() : handed.front();
}

std::vector<DEVMODEW> VirtualPrinterTest::handedToDriver() const
{
    std::vector<DEVMODEW> blocks;
    for (const room::CallRecord& call : m_room.calls())
        if (call.call == room::Call::documentProperties && !call.devMode.empty())
        {
            EXPECT_EQ(call.owner, nullptr);
            EXPECT_EQ(call.detail, static_cast<DWORD>(DM_IN_BUFFER | DM_OUT_BUFFER));
            EXPECT_EQ(call.printer, printerName);
            blocks.push_back(DevModeView(call.devMode).fields());
        }
    return blocks;
}
