#include "GarmPC3Editor/Commands/BackgroundCheck.h"

#include "GarmPC3Editor/Commands/PrinterQuery.h"
#include "GarmPC3Editor/Model/AnswerOnThrow.h"

#include <memory>

namespace
{
struct Check
{
    OdString deviceName;
    HWND window;
};

// Posts when it is destroyed, so the message is sent exactly once however the scope is left.
class Report
{
public:
    explicit Report(HWND window) noexcept : m_window(window) {}
    ~Report() { ::PostMessageW(m_window, printerCheckedMessage, m_found ? 1 : 0, 0); }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    void setFound(bool found) noexcept { m_found = found; }

private:
    HWND m_window;
    bool m_found = false;
};

void runCheck(void* context) noexcept
{
    // The report comes first: it posts last, after everything else of the check is destroyed.
    Report report(static_cast<Check*>(context)->window);
    const std::unique_ptr<Check> check(static_cast<Check*>(context));
    PrinterAnswer answer;
    report.setFound(queryPrinter(check->deviceName, answer));
}

std::unique_ptr<Check> makeCheck(const OdString& deviceName, HWND window) noexcept
{
    return answerOnThrow(std::unique_ptr<Check>(),
                         [&deviceName, window]
                         {
                             auto check = std::make_unique<Check>();
                             check->deviceName = deviceName;
                             check->window = window;
                             return check;
                         });
}
} // namespace

void startBackgroundCheck(const OdString& deviceName, HWND window) noexcept
{
    std::unique_ptr<Check> check = makeCheck(deviceName, window);
    if (check && startModuleThread(&runCheck, check.get()))
        check.release(); // NOLINT(bugprone-unused-return-value): the thread owns it from here on
    else
        const Report noPrinter(window);
}
