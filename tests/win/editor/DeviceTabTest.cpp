#include "tests/win/editor/DeviceTabTest.h"

DeviceTabTest::DeviceTabTest()
{
    m_sheet.setConfig(m_cfg, L"C:\\plot\\plotter.pc3", L"");
}

DeviceTabTest::~DeviceTabTest()
{
    EXPECT_EQ(RecordedAsserts::reports(), m_expectedAsserts);
}

INT_PTR DeviceTabTest::run(const Script& script)
{
    return m_sheet.show(
        [&](SheetDriver& user, HWND sheet)
        {
            DeviceTabUser tab(user, sheet);
            script(tab);
            tab.pressOk();
        });
}

void DeviceTabTest::onSheetsThread(const DeviceTabUser& tab, const std::function<void()>& work)
{
    EditorSheet::onItsThread(tab.user, tab.sheet, work);
}

SentMessages DeviceTabTest::countingTreeTexts(int& count)
{
    return SentMessages(
        [&count](HWND, UINT message, WPARAM, LPARAM)
        {
            if (message == TVM_SETITEMW)
                ++count;
        });
}

GmDeviceSubDlg& DeviceTabTest::pageObject(HWND page)
{
    return dynamic_cast<GmDeviceSubDlg&>(*CWnd::FromHandlePermanent(page));
}
