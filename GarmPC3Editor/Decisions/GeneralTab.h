#pragma once

#include "GarmPC3Editor/Decisions/GmTexts.h"
#include "GarmPC3Editor/GmPlotCfg3.h"

#include <functional>
#include <vector>

// The lines of the General tab, its list of printers, and what choosing one does.

// A Windows printer's driver is "the system's"; others are named by family and model.
OdString driverLine(const GmMetaNode& meta, const GmTexts& texts);

// File name and extension of the driver.
OdString driverFile(const GmMetaNode& meta);

OdString versionLine(const GmMetaNode& meta, const GmTexts& texts);

// Where plots go: the autospool folder, else a file, else the port of the Windows printer if it has one. Asks the
// spooler for the port; exceptions from a driver pass through.
OdString portLine(const GmPlotCfg3& cfg, const GmTexts& texts);

// The list entry for a printer that is not installed.
OdString notInstalledEntry(const OdString& printerName, const GmTexts& texts);

// The installed printers in the spooler's order, in two passes: local printers, then connected, shared and network
// ones. A pass that fails or throws adds nothing. Wine returns names at information level 5 only; elsewhere level 1 has
// the names that users know. underWine is called in each pass.
std::vector<OdString> printerNames(const std::function<bool()>& underWine);

// The configuration to continue with after the user has chosen another printer and newCfg (not null) was created for
// it. If both have the same driver, ignoring case, the present one (not null) gets the new printer's name and keeps all
// edits; otherwise it is the new one.
OdSharedPtr<GmPlotCfg3> exchangedForPrinter(const OdSharedPtr<GmPlotCfg3>& cfg, const OdSharedPtr<GmPlotCfg3>& newCfg);
