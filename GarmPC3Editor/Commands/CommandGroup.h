#pragma once

#include "kernel/OdResult.h"

// Puts the module's commands on the process's command stack. Whatever is thrown on the way ends the routine with
// eRoutineError; what was registered before stays.
OdRoutineResult registerCommands() noexcept;

// Takes them off again, all at once by their group. Without such commands nothing happens.
OdRoutineResult unregisterCommands() noexcept;
