#pragma once

#include "spooler/DevModeView.h"
#include "spooler/SpoolerRecords.h"

// Questions to the spooler and to a printer's driver. Nothing here shows a message; what a driver throws goes through.

// The ports of an open printer as the system gives them (several are separated by commas); nothing when it does not
// say.
std::optional<WideText> portsOfPrinter(HANDLE printer);

// The name of an open printer's driver; nothing when the system does not say.
std::optional<WideText> driverOfPrinter(HANDLE printer);

// The default device mode of an open printer's driver; none when the driver asks for no bytes or its fill answers 0.
//
// A negative answer of the fill counts as success, because drivers exist that fill the block and still say so; a block
// that was not written is all zero. So ask the block's view before using it: it is invalid for a block that is empty
// or claims more bytes than there are.
DevModeBlock defaultDevMode(HANDLE printer, const WCHAR* name);

// What a driver made of a device mode.
struct DevModeMerge
{
    LONG result = -1;   // as the driver answered: IDOK (1), IDCANCEL (2), negative for a failure
    DevModeBlock block; // null when there was nothing to merge; otherwise ask its view, whatever the result is
};

// Passes a device mode through an open printer's driver, as input and output, under the given mode: DM_IN_BUFFER |
// DM_OUT_BUFFER, with DM_IN_PROMPT for the driver's dialog, which gets the owner. The driver is asked for nothing when
// bytes hold no valid block.
//
// Under Wine the merged block becomes the driver's default for the rest of the process.
DevModeMerge mergeDevMode(HWND owner, HANDLE printer, const WCHAR* name, std::span<const BYTE> bytes, DWORD mode);

// One installed printer. A text that the system does not give is absent, which equals no text, not even "".
struct InstalledPrinter
{
    std::optional<WideText> name;
    std::optional<WideText> driver; // level 2 only
    std::optional<WideText> port;   // levels 2 and 5
    DWORD attributes = 0;           // levels 2, 4 and 5; the flags of level 1
};

// One enumeration pass without a server name: the printers in the system's order. level is 1, 2, 4 or 5. Empty when the
// pass is refused or finds none.
std::vector<InstalledPrinter> installedPrinters(DWORD flags, DWORD level);
