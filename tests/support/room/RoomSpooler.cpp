#include "tests/support/room/RoomRecords.h"
#include "tests/support/room/RoomState.h"

#include <cstddef>

// The spooler: opening printers, records, enumeration.

using namespace room;

namespace
{
// The handle that a failed open returns if the room is scripted to do so: it belongs to another program.
const HANDLE strangersHandle = reinterpret_cast<HANDLE>(std::uintptr_t{0xBADF00});

BOOL fail(DWORD error)
{
    ::SetLastError(error);
    return FALSE;
}

std::optional<Text> recordName(const Printer& printer)
{
    return printer.namedInRecords ? std::optional(printer.name) : std::nullopt;
}

DWORD attributes(const Printer& printer)
{
    return printer.connection ? PRINTER_ATTRIBUTE_NETWORK : PRINTER_ATTRIBUTE_LOCAL;
}

void putInfo(RecordImage& image, std::size_t i, DWORD level, const Printer& printer)
{
    switch (level)
    {
    case 1:
        image.put(i, offsetof(PRINTER_INFO_1W, Flags), attributes(printer));
        image.putText(i, offsetof(PRINTER_INFO_1W, pName), recordName(printer));
        break;
    case 2:
        image.put(i, offsetof(PRINTER_INFO_2W, Attributes), attributes(printer));
        if (printer.hasDevMode)
            image.putBlock(i, offsetof(PRINTER_INFO_2W, pDevMode), defaultBlock(printer));
        image.putText(i, offsetof(PRINTER_INFO_2W, pPrinterName), recordName(printer));
        image.putText(i, offsetof(PRINTER_INFO_2W, pDriverName), printer.driver);
        image.putText(i, offsetof(PRINTER_INFO_2W, pPortName), printer.port);
        break;
    case 4:
        image.put(i, offsetof(PRINTER_INFO_4W, Attributes), attributes(printer));
        image.putText(i, offsetof(PRINTER_INFO_4W, pPrinterName), recordName(printer));
        break;
    case 5:
        image.put(i, offsetof(PRINTER_INFO_5W, Attributes), attributes(printer));
        image.putText(i, offsetof(PRINTER_INFO_5W, pPrinterName), recordName(printer));
        image.putText(i, offsetof(PRINTER_INFO_5W, pPortName), printer.port);
        break;
    default:
        break;
    }
}

// 0 for an unknown level.
std::size_t recordSize(DWORD level)
{
    switch (level)
    {
    case 1:
        return sizeof(PRINTER_INFO_1W);
    case 2:
        return sizeof(PRINTER_INFO_2W);
    case 4:
        return sizeof(PRINTER_INFO_4W);
    case 5:
        return sizeof(PRINTER_INFO_5W);
    default:
        return 0;
    }
}
} // namespace

extern "C" BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSW defaults)
{
    const Text given = textOrEmpty(name);
    const Visit visit({.call = Call::openPrinter, .printer = given, .null = !name, .defaults = defaults != nullptr});
    State& s = state();
    // Without a name the system opens the print server.
    Printer* const found = name ? s.find(given) : nullptr;
    if (visit.mustFail() || (name && !found))
    {
        if (s.handleOnFailedOpen)
            *printer = strangersHandle;
        return fail(ERROR_INVALID_PRINTER_NAME);
    }
    if (found && found->opensAs)
    {
        *printer = reinterpret_cast<HANDLE>(*found->opensAs);
        return TRUE;
    }
    const HANDLE handle = reinterpret_cast<HANDLE>(s.newHandle());
    s.printers.emplace(handle, OpenedPrinter{given, found});
    *printer = handle;
    return TRUE;
}

extern "C" BOOL WINAPI ClosePrinter(HANDLE printer)
{
    // Closed whatever the result of the call: an error or an exception is no reason to close it again.
    OpenedPrinter closed;
    bool wasOpen = false;
    {
        const std::lock_guard lock(state().mutex);
        wasOpen = takeOut(state().printers, printer, closed);
    }
    const Visit visit({.call = Call::closePrinter, .printer = std::move(closed.name)});
    if (!wasOpen)
    {
        ++state().strayCloses;
        return fail(ERROR_INVALID_HANDLE);
    }
    return visit.mustFail() ? fail(ERROR_INVALID_HANDLE) : TRUE;
}

extern "C" BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed)
{
    const Visit visit(
        {.call = Call::getPrinter, .printer = nameOf(printer), .detail = level, .fill = buffer != nullptr});
    const Printer* const found = state().ofHandle(printer);
    // Here the size is not set, as under Wine.
    if (visit.mustFail() || !found)
        return fail(ERROR_INVALID_HANDLE);
    if (recordSize(level) == 0)
        return fail(ERROR_INVALID_LEVEL);
    RecordImage image(1, recordSize(level), state().lies[Call::getPrinter]);
    putInfo(image, 0, level, *found);
    return image.deliver(buffer, size, needed);
}

extern "C" BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer, DWORD size,
                                         LPDWORD needed)
{
    const Visit visit({.call = Call::getPrinterDriver,
                       .printer = nameOf(printer),
                       .detail = level,
                       .fill = buffer != nullptr,
                       .where = textOf(environment)});
    const Printer* const found = state().ofHandle(printer);
    if (visit.mustFail() || !found)
        return fail(ERROR_UNKNOWN_PRINTER_DRIVER);
    if (level != 3)
        return fail(ERROR_INVALID_LEVEL);
    RecordImage image(1, sizeof(DRIVER_INFO_3W), state().lies[Call::getPrinterDriver]);
    image.put(0, offsetof(DRIVER_INFO_3W, cVersion), DWORD{3});
    image.putText(0, offsetof(DRIVER_INFO_3W, pName), found->driver);
    return image.deliver(buffer, size, needed);
}

extern "C" BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR server, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                                     LPDWORD returned)
{
    const Visit visit({.call = Call::enumPrinters,
                       .detail = flags,
                       .level = level,
                       .fill = buffer != nullptr,
                       .where = textOf(server)});
    State& s = state();
    if (visit.mustFail())
        return fail(ERROR_ACCESS_DENIED);
    if ((flags & (PRINTER_ENUM_SHARED | PRINTER_ENUM_NETWORK)) && !s.networkPass)
    {
        *needed = 0;
        return fail(ERROR_INVALID_FLAGS);
    }
    if (recordSize(level) == 0)
        return fail(ERROR_INVALID_LEVEL);

    std::vector<const Printer*> chosen;
    for (const Printer& printer : s.present)
        if (printer.listed && (flags & (printer.connection ? PRINTER_ENUM_CONNECTIONS : PRINTER_ENUM_LOCAL)))
            chosen.push_back(&printer);
    const RecordLies& lies = s.lies[Call::enumPrinters];
    RecordImage image(chosen.size(), recordSize(level), lies);
    for (std::size_t i = 0; i < chosen.size(); ++i)
        putInfo(image, i, level, *chosen[i]);
    const BOOL result = image.deliver(buffer, size, needed);
    *returned = result ? lies.returned.value_or(static_cast<DWORD>(chosen.size())) : 0;
    return result;
}
