#include "plothost/windows/PrintServer.h"

#include "spooler/PrinterQueries.h"

namespace plothost
{
namespace
{
// Wine asks the server as soon as the client is loaded, Windows when connections are listed. What the answer is does
// not matter here.
DWORD WINAPI listPrinters(void*) noexcept
{
    try
    {
        installedPrinters(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, 2);
    }
    catch (...)
    {
        // The list that somebody asks for later says so.
    }
    return 0;
}
} // namespace

bool printServerAnswers(DWORD milliseconds)
{
    const HANDLE thread = ::CreateThread(nullptr, 0, &listPrinters, nullptr, 0, nullptr);
    if (!thread)
        return true; // whoever needs printers waits as long as it takes
    const bool answered = ::WaitForSingleObject(thread, milliseconds) != WAIT_TIMEOUT;
    ::CloseHandle(thread);
    return answered;
}

void endWithoutPrintServer(int status) noexcept
{
    // The usual end notifies every library, for which it needs the lock.
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(status));
    for (;;) // not reached: the system does not come back from that
        ::SwitchToThread();
}
} // namespace plothost
