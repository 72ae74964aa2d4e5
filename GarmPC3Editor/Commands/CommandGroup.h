#pragma once

#include "kernel/OdResult.h"

// Puts the module's commands on the process's command stack. Any exception ends the routine with eRoutineError; what
// was registered before it stays.
OdRoutineResult registerCommands() noexcept;

// Removes them all at once by their group. Does nothing if there are none.
OdRoutineResult unregisterCommands() noexcept;
