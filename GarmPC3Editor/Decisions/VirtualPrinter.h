#pragma once

#include "GarmPC3Editor/Model/Numbers.h"
#include "kernel/OdString.h"
#include "spooler/DevModeView.h"

#include <functional>
#include <optional>

// The product family's own printers: their names, their papers, and what their dialog shows from a device mode and
// writes to it.

// The names under which the product family's own printers are installed: from the reseller data store, else the
// defaults. Returns 0 if the store had the name, 1 for the default.
int pdfPrinterName(OdString& name);
int jpgPrinterName(OdString& name);

// Whether a Windows printer is one of them, without regard to case.
bool isVirtualPrinter(const OdString& deviceName);

// The next two ask the spooler. Exceptions from a driver pass through.

// The installed printer, local or connected, that a name means: the first with exactly that name, otherwise the first
// whose name contains it (quirk 73), otherwise the name itself.
OdString fullPrinterName(const OdString& name);

// The printer's code for the first paper of exactly that name, names being cut to 64 characters; "" and the code 0 are
// a name and a code like any other. -1 if the printer has no such paper or cannot be asked. devMode is passed to the
// driver and may be null.
int paperCodeForName(const OdString& printerName, OdStringView paperName, const DEVMODEW* devMode);

// The paper whose size the user types; a literal of the host's list too, never translated.
inline constexpr OdStringView customPaper = OD_T("Custom");

// Choices 0 to 4: 72, 150, 300, 600 and 1200 dots per inch. For others see quirk 68.
int qualityIndex(short printQuality) noexcept;
short printQuality(int index) noexcept;

// Converts tenths of a millimetre, as in a device mode, to the whole millimetres that are shown.
double wholeMillimetres(short tenths) noexcept;

// The typed value to the nearest tenth of a millimetre. The field has 16 bits: larger values wrap, and a value that is
// not finite gives 0.
short tenthsOfMillimetre(double length, bool inches) noexcept;
// Whether the value fits without wrapping.
bool isLengthPossible(double length, bool inches) noexcept;
// The longest such length in its unit: 3276.7 mm.
OdString longestLength(bool inches);

// A length with two decimals and a point, as the dialog shows converted ones.
OdString displayedLength(double length);

struct GmVirtualPrinterChoice
{
    int qualityIndex = 0;
    std::optional<bool> landscape = {}; // nothing, and not written, if the host's dialog has no such choice
    // Returns the code of the chosen paper; called once the device mode has the values above. Empty for a custom size.
    std::function<short(const DEVMODEW& dm)> paperCode = {};
    double width = 0.0; // custom size in the unit
    double length = 0.0;
    bool inches = false;
};

// Writes the choice into a device mode; dmFields then holds only what was written here. A field that is not entirely
// within dmSize is not written: the driver's private bytes follow a short public part.
void applyVirtualPrinterChoice(const GmVirtualPrinterChoice& choice, DEVMODEW& dm);
