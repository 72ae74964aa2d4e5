#pragma once

#include "kernel/OdString.h"

#include <vector>

// What the tool does for the scenarios. Each takes its own arguments, prints what it found as lines "name: value" and
// answers the exit status: 0, or 1 with a line on standard error.
using ActionArguments = std::vector<OdString>;

// PRINTER DRIVER: a second printer on an installed driver, at port FILE:.
int addPrinter(const ActionArguments& arguments);
// PRINTER: takes a printer away.
int deletePrinter(const ActionArguments& arguments);
// PRINTER FILE: gives the driver the file's bytes as a DEVMODE, in and out, and prints what came back.
int acceptDevMode(const ActionArguments& arguments);
// PRINTER: gives the driver a landscape device mode, in and out, then resets the drivers as the reference host does
// between two runs of the editor, and prints the driver's default orientation at each stage.
int resetDrivers(const ActionArguments& arguments);
// MODULE DEVICE ROUNDS: loads the module, asks it for the device, switches the language, unloads it, that many times;
// fails when handles or libraries of the process have grown after the first rounds.
int repeatLoading(const ActionArguments& arguments);
// MODULE TAG...: loads the module, switches to each language in turn and prints whose library is in the process.
int switchLanguages(const ActionArguments& arguments);
