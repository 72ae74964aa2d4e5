#pragma once

#include "GarmPC3Editor/GmPlotCfg3.h"
#include "GarmPC3Editor/Model/BlockReader.h"

class CPIAParser;

// Reading with a printer, converting and creating, each with the reason if it fails. The functions that GmPlotCfg3
// exports are thin wrappers that report nothing and throw nothing. Here running out of memory and a driver's exceptions
// pass through.

// Fills a configuration from what a parser has read and binds it to an installed printer. modified is untouched if the
// file or a node fails or the configuration names no driver.
bool readPlotCfg(GmPlotCfg3& configuration, const CPIAParser& parser, bool& modified, ReadReport& report);

// The same for a file; null if it fails.
OdSharedPtr<GmPlotCfg3> readPlotCfg(const OdString& path, bool& modified, ReadReport& report);

// Binds to an installed printer with the stored driver: to the stored printer, else to the first one, whose name is
// then stored.
ResolvePrinterResult resolvePrinter(GmMetaNode& meta, Fault& fault);

// The DEVMODEW bytes of a configuration; empty when none can be built.
OdArray<unsigned char> makeDevMode(const GmPlotCfg3& configuration, Fault& fault);

// Imports the settings of a device mode. modified is set if anything changes and never cleared here. Changes made
// before a failure stay. insert: the configuration is being created.
bool importDevMode(GmPlotCfg3& configuration, const DevModeView& devMode, const OdString& printerName, bool insert,
                   bool& modified, Fault& fault);

// A new configuration for an installed printer, or null.
OdSharedPtr<GmPlotCfg3> createPlotCfg(const OdString& printerName, Fault& fault);
