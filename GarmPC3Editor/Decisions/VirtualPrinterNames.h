#pragma once

#include "kernel/OdString.h"

// The names under which the product family's own printers are installed: what the reseller data store says, else the
// defaults. 0 when the store had the name, 1 when the default stands.
int pdfPrinterName(OdString& name);
int jpgPrinterName(OdString& name);

// Whether a Windows printer is one of them, without regard to case.
bool isVirtualPrinter(const OdString& deviceName);
