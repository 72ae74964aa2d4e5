#pragma once

#include "tests/support/RecordedAsserts.h"
#include "tests/support/operator/DeviceTabUser.h"
#include "tests/support/operator/SentMessages.h"
#include "tests/win/editor/EditorSheet.h"
#include "tests/win/editor/EditorTest.h"

#include <functional>
#include <string>
#include <vector>

// A sheet on a configuration of "Plotter A", with its second tab on show. Any assertion that a test does not expect
// fails it.
class DeviceTabTest : public EditorTest
{
protected:
    using Script = std::function<void(DeviceTabUser& tab)>;

    DeviceTabTest();
    ~DeviceTabTest() override;

    // Shows the sheet and its device tab; the script must not close it, it is closed with OK. Returns what DoModal did.
    INT_PTR run(const Script& script);

    // Does something on the sheet's thread.
    void onSheetsThread(const DeviceTabUser& tab, const std::function<void()>& work);
    // Counts the labels that the tree is given, as long as the watch lives.
    static SentMessages countingTreeTexts(int& count);
    // The object of a page's window; on the sheet's thread only.
    static GmDeviceSubDlg& pageObject(HWND page);

    OdSharedPtr<GmPlotCfg3> m_cfg = newConfiguration();
    EditorSheet m_sheet;
    std::vector<std::string> m_expectedAsserts; // all there may be in the end

private:
    RecordedAsserts m_asserts;
};
