#pragma once

#include "kernel/OdString.h"
#include "spooler/DevModeView.h"

// Papers of the product family's own printers, asked of the spooler. What a driver throws goes through.

// The installed printer that a name means, local and connected ones: the first with exactly that name, otherwise the
// first whose name contains it (quirk 73), otherwise the name itself.
OdString fullPrinterName(const OdString& name);

// The printer's code for the first paper of exactly that name, names being cut to 64 characters; "" and the code 0 are
// a name and a code like any other. -1 when the printer reports none or cannot be asked. devMode is what the driver is
// asked with and may be null.
int paperCodeForName(const OdString& printerName, OdStringView paperName, const DEVMODEW* devMode);
