#pragma once

#include "spooler/DevModeView.h"
#include "spooler/SpoolerRecords.h"

// Queries to the spooler and to a printer's driver. Nothing here shows a message. Exceptions from drivers are passed
// on.

// The ports of an open printer exactly as the system returns them (several are separated by commas); nothing if the
// query fails.
std::optional<WideText> portsOfPrinter(HANDLE printer);

// The name of an open printer's driver; nothing if the query fails.
std::optional<WideText> driverOfPrinter(HANDLE printer);

// The default device mode of an open printer's driver; empty if the driver asks for no bytes or its fill returns 0.
//
// A negative result of the fill counts as success (quirk 36), and a block that was not written is all zero. So check
// the block's view before using it: it is invalid if the block is empty or claims more bytes than there are.
DevModeBlock defaultDevMode(HANDLE printer, const WCHAR* name);

// What a driver returned for a device mode.
struct DevModeMerge
{
    LONG result = -1;   // the driver's result: IDOK (1), IDCANCEL (2), negative for a failure
    DevModeBlock block; // empty if there was nothing to merge; otherwise check its view, whatever the result
};

// Passes a device mode through an open printer's driver, as input and output, with the given mode: DM_IN_BUFFER |
// DM_OUT_BUFFER, plus DM_IN_PROMPT for the driver's dialog, whose owner is given. The driver is not called if bytes do
// not hold a valid block.
//
// Under Wine the merged block becomes the driver's default for the rest of the process.
DevModeMerge mergeDevMode(HWND owner, HANDLE printer, const WCHAR* name, std::span<const BYTE> bytes, DWORD mode);

// One installed printer. A text that the system does not return is absent, which equals no text, not even "".
struct InstalledPrinter
{
    std::optional<WideText> name;
    std::optional<WideText> driver; // level 2 only
    std::optional<WideText> port;   // levels 2 and 5
    DWORD attributes = 0;           // levels 2, 4 and 5; the flags of level 1
};

// One enumeration without a server name: the printers in the system's order. level is 1, 2, 4 or 5. Empty if the call
// is refused or finds none.
std::vector<InstalledPrinter> installedPrinters(DWORD flags, DWORD level);
