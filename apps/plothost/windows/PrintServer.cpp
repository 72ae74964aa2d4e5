#include "plothost/windows/PrintServer.h"

#include "spooler/PrinterQueries.h"

namespace plothost
{
namespace
{
// Wine contacts the server as soon as the client is loaded, Windows when connections are listed. The result does not
// matter here.
DWORD WINAPI listPrinters(void*) noexcept
{
    try
    {
        installedPrinters(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, 2);
    }
    catch (...)
    {
        // A later listing reports that.
    }
    return 0;
}
} // namespace

bool printServerAnswers(DWORD milliseconds)
{
    const HANDLE thread = ::CreateThread(nullptr, 0, &listPrinters, nullptr, 0, nullptr);
    if (!thread)
        return true; // code that needs printers waits as long as it takes
    const bool answered = ::WaitForSingleObject(thread, milliseconds) != WAIT_TIMEOUT;
    ::CloseHandle(thread);
    return answered;
}

void endWithoutPrintServer(int status) noexcept
{
    // A normal exit notifies every library and needs the lock for that.
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(status));
    for (;;) // not reached: that call does not return
        ::SwitchToThread();
}
} // namespace plothost
