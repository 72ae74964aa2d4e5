#pragma once

#include "kernel/OdString.h"

#include <vector>

// The actions of the tool. Each has its own arguments, prints its results as lines "name: value" and returns the exit
// status: 0, or 1 with a message on standard error.
using ActionArguments = std::vector<OdString>;

// PRINTER DRIVER: adds a printer with an installed driver and port FILE:.
int addPrinter(const ActionArguments& arguments);
// PRINTER: deletes a printer.
int deletePrinter(const ActionArguments& arguments);
// PRINTER FILE: passes the bytes of the file to the driver as a DEVMODE, in and out, and prints the result.
int acceptDevMode(const ActionArguments& arguments);
// PRINTER: passes a landscape device mode to the driver, in and out, then resets the drivers like the reference host
// between two runs of the editor, and prints the default orientation at each stage.
int resetDrivers(const ActionArguments& arguments);
// MODULE DEVICE ROUNDS: repeatedly loads the module, queries the device, switches the language and unloads the module;
// fails if the process gained handles or libraries after the first rounds.
int repeatLoading(const ActionArguments& arguments);
// MODULE TAG...: loads the module, switches to each language in turn and prints a text of the library in use.
int switchLanguages(const ActionArguments& arguments);
